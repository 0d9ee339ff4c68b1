#include "design_net.h"

#include <utility> // Boost 1.74 needs it first

#define BOOST_ASIO_DISABLE_FENCED_BLOCK // one thread needs no fences, and ThreadSanitizer does not support them
#include <boost/asio.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>

#include <atomic>
#include <cstring>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

#include "drv/zof_drv_file.h"
#include "zof_lib/zof_stdio.h"

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = beast::http;
namespace websocket = beast::websocket;
using asio::ip::tcp;
using boost::system::error_code;

enum {
    MESSAGE_MAX = 16 << 20, // of a page: a whole file may be pasted
    PAGES_MAX = 16,
    FILE_MAX = 64 << 20,
};

using request_t = http::request<http::string_body>;
using response_t = http::response<http::string_body>;

struct out_t {
    std::string bytes;
    bool text;
};

// A connection that has become a socket. Belongs to the thread.
struct page_t {
    explicit page_t(tcp::socket &&socket) : ws(std::move(socket)) {
    }
    websocket::stream<tcp::socket> ws;
    u32 number = 0;
    beast::flat_buffer in;
    std::deque<out_t> out;
};
using page_p = std::shared_ptr<page_t>;

// A connection that asks for files.
struct client_t {
    explicit client_t(tcp::socket &&from) : socket(std::move(from)) {
    }
    tcp::socket socket;
    beast::flat_buffer in;
    request_t request;
    response_t response;
};
using client_p = std::shared_ptr<client_t>;

static struct {
    design_net_options_t *options;
    std::unique_ptr<asio::io_context> io;
    std::unique_ptr<tcp::acceptor> acceptor;
    std::thread thread;
    std::map<u32, page_p> pages; // of the thread
    u32 last;                    // number of a page

    std::mutex lock; // guards what follows; nothing is called under it
    std::deque<design_net_message_t> messages;
    std::map<u32, size_t> waiting; // bytes that are not sent yet, of open pages
} net;

static void message_put(const page_p &page, design_net_what_e what, std::string text) {
    {
        std::lock_guard guard(net.lock);
        net.messages.push_back({page->number, what, std::move(text)});
        if (what == DESIGN_NET_OPENED) {
            net.waiting[page->number] = 0;
        } else if (what == DESIGN_NET_CLOSED) {
            net.waiting.erase(page->number);
        }
    }
    net.options->wake();
}

static void page_close(const page_p &page) {
    if (net.pages.erase(page->number)) {
        error_code ignored;
        page->ws.next_layer().close(ignored);
        message_put(page, DESIGN_NET_CLOSED, "");
    }
}

static void page_read(const page_p &page) {
    page->ws.async_read(page->in, [page](error_code error, size_t) {
        if (error) {
            page_close(page);
            return;
        }
        message_put(page, DESIGN_NET_TEXT, beast::buffers_to_string(page->in.data()));
        page->in.clear();
        page_read(page);
    });
}

static void page_write(const page_p &page) {
    page->ws.text(page->out.front().text);
    page->ws.async_write(asio::buffer(page->out.front().bytes), [page](error_code error, size_t) {
        if (error) {
            page_close(page);
            return;
        }
        {
            std::lock_guard guard(net.lock);
            const auto waiting = net.waiting.find(page->number);
            if (waiting != net.waiting.end()) {
                waiting->second -= page->out.front().bytes.size();
            }
        }
        page->out.pop_front();
        if (!page->out.empty()) {
            page_write(page);
        }
    });
}

static std::string host_of(const char *name) {
    return name + std::string(":") + std::to_string(net.options->port);
}

// Other names of this machine are refused, so that no page of another origin that has its own name point here is
// served.
static bool host_good(const request_t &request) {
    const std::string host(request[http::field::host]);
    return host == host_of("127.0.0.1") || host == host_of("localhost");
}

static bool origin_good(const request_t &request) {
    const std::string origin(request[http::field::origin]);
    return origin == "http://" + host_of("127.0.0.1") || origin == "http://" + host_of("localhost");
}

// Compares in a time that does not depend on where the texts differ.
static bool token_good(const std::string &target) {
    const std::string wanted = "/socket?token=" + net.options->token;
    u32 differences = wanted.size() != target.size();
    for (size_t i = 0; i < wanted.size() && i < target.size(); i++) {
        differences |= (u32)(wanted[i] ^ target[i]);
    }
    return differences == 0;
}

static const char *kind_of(const std::string &name) {
    static constexpr const char *kinds[][2] = {
        {".html", "text/html; charset=utf-8"},
        {".js", "text/javascript; charset=utf-8"},
        {".css", "text/css; charset=utf-8"},
        {".svg", "image/svg+xml"},
        {".woff2", "font/woff2"},
        {".json", "application/json"},
        {".map", "application/json"},
    };
    for (const auto &[end, kind] : kinds) {
        if (name.ends_with(end)) {
            return kind;
        }
    }
    return "application/octet-stream";
}

// A name has no folder, so none can lead outside.
static bool file_read(const std::string &name, std::string *out) {
    const design_net_options_t *options = net.options;
    if (name == "catalogue.json") {
        *out = options->catalogue;
        return true;
    }
    if (name.find_first_of("/\\%:") != std::string::npos || name.starts_with(".")) {
        return false;
    }
    if (!options->folder.empty()) {
        u32 size = 0;
        const char *why = nullptr;
        u8 *data = zof_file_read_all((options->folder + "/" + name).c_str(), FILE_MAX, &size, &why);
        *out = data ? std::string((const char *)data, size) : "";
        zof_free(data);
        return data != nullptr;
    }
    for (const design_page_file_t &file : options->files) {
        if (name == file.name) {
            out->assign((const char *)file.data, file.size);
            return true;
        }
    }
    return false;
}

static void answer_make(client_t *client) {
    std::string target(client->request.target());
    target.erase(std::min(target.find('?'), target.size()));
    const std::string name = target == "/" ? "index.html" : target.substr(std::min<size_t>(1, target.size()));
    response_t &response = client->response;
    response = {};
    response.version(11);
    if (!host_good(client->request)) {
        response.result(http::status::forbidden);
        response.body() = "The address must be that of this machine.\n";
    } else if (name == "socket") { // a page asks why its socket is refused
        response.result(!token_good(std::string(client->request.target())) ? http::status::forbidden
                        : net.pages.size() >= PAGES_MAX                    ? http::status::service_unavailable
                                                                           : http::status::no_content);
    } else if (client->request.method() != http::verb::get || !file_read(name, &response.body())) {
        response.result(http::status::not_found);
        response.body() = "There is no such file.\n";
    }
    const bool found = response.result() == http::status::ok;
    response.set(http::field::content_type, found ? kind_of(name) : "text/plain; charset=utf-8");
    response.set(http::field::cache_control, "no-store");
    response.set(
        "Content-Security-Policy",
        "default-src 'self'; style-src 'self' 'unsafe-inline'; img-src 'self' data: blob:; connect-src 'self' ws://" +
            host_of("127.0.0.1") + " ws://" + host_of("localhost") +
            "; frame-ancestors 'none'; base-uri 'none'; form-action 'none'");
    response.set("X-Content-Type-Options", "nosniff");
    response.set("Referrer-Policy", "no-referrer");
    response.keep_alive(client->request.keep_alive());
    response.prepare_payload();
}

static void client_read(const client_p &client);

static void client_answer(const client_p &client) {
    answer_make(client.get());
    http::async_write(client->socket, client->response, [client](error_code error, size_t) {
        if (!error && client->response.keep_alive()) {
            client_read(client);
        }
    });
}

static void page_open(const client_p &client) {
    const auto page = std::make_shared<page_t>(std::move(client->socket));
    error_code ignored;
    page->ws.next_layer().set_option(tcp::no_delay(true), ignored);
    page->ws.read_message_max(MESSAGE_MAX);
    page->ws.set_option(websocket::stream_base::timeout::suggested(beast::role_type::server));
    page->ws.async_accept(client->request, [page, client](error_code error) {
        if (error) {
            return;
        }
        page->number = ++net.last;
        net.pages[page->number] = page;
        message_put(page, DESIGN_NET_OPENED, "");
        page_read(page);
    });
}

static void client_take(const client_p &client) {
    const bool socket = websocket::is_upgrade(client->request);
    const bool good = host_good(client->request) && origin_good(client->request) &&
                      token_good(std::string(client->request.target())) && net.pages.size() < PAGES_MAX;
    if (socket && good) {
        page_open(client);
        return;
    }
    client_answer(client);
}

static void client_read(const client_p &client) {
    client->request = {};
    http::async_read(client->socket, client->in, client->request, [client](error_code error, size_t) {
        if (!error) {
            client_take(client);
        }
    });
}

static void accept_next() {
    net.acceptor->async_accept([](error_code error, tcp::socket socket) {
        if (!error) {
            client_read(std::make_shared<client_t>(std::move(socket)));
        }
        if (error != asio::error::operation_aborted) {
            accept_next();
        }
    });
}

std::string design_net_start(design_net_options_t *options) {
    net.options = options;
    net.io = std::make_unique<asio::io_context>(1);
    net.acceptor = std::make_unique<tcp::acceptor>(*net.io);
    const tcp::endpoint at(asio::ip::address_v4::loopback(), (u16)options->port);
    error_code error;
    net.acceptor->open(at.protocol(), error);
#ifndef _WIN32 // there, it would let another program use the same port
    net.acceptor->set_option(tcp::acceptor::reuse_address(true), error);
#endif
    net.acceptor->bind(at, error);
    if (!error) {
        net.acceptor->listen(asio::socket_base::max_listen_connections, error);
    }
    if (error) {
        return "127.0.0.1:" + std::to_string(options->port) + ": " + error.message();
    }
    options->port = net.acceptor->local_endpoint().port();
    accept_next();
    net.thread = std::thread([] { net.io->run(); });
    return "";
}

bool design_net_take(design_net_message_t *message) {
    std::lock_guard guard(net.lock);
    if (net.messages.empty()) {
        return false;
    }
    *message = std::move(net.messages.front());
    net.messages.pop_front();
    return true;
}

static void send(u32 number, std::string bytes, bool text) {
    {
        std::lock_guard guard(net.lock);
        const auto waiting = net.waiting.find(number);
        if (waiting == net.waiting.end()) {
            return;
        }
        waiting->second += bytes.size();
    }
    asio::post(*net.io, [number, text, bytes = std::move(bytes)]() mutable {
        const auto found = net.pages.find(number);
        if (found == net.pages.end()) {
            return;
        }
        const page_p page = found->second;
        page->out.push_back({std::move(bytes), text});
        if (page->out.size() == 1) {
            page_write(page);
        }
    });
}

void design_net_send(u32 page, std::string text) {
    send(page, std::move(text), true);
}

void design_net_send_bytes(u32 page, std::vector<u8> bytes) {
    send(page, std::string((const char *)bytes.data(), bytes.size()), false);
}

size_t design_net_waiting(u32 page) {
    std::lock_guard guard(net.lock);
    const auto found = net.waiting.find(page);
    return found == net.waiting.end() ? 0 : found->second;
}

void design_net_stop() {
    if (net.thread.joinable()) {
        net.io->stop();
        net.thread.join();
    }
    net.pages.clear();
    net.acceptor.reset();
    net.io.reset();
}
