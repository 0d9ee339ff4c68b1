// The thread "zof scpi". Commands run on it under dis_mutex; everything else here belongs to it alone. While answers
// are being sent to a client nothing is read from it, so a client that does not read blocks only itself.
#include "net/net_scpi.h"

#include <utility> // Boost 1.74 needs it first

#define BOOST_ASIO_DISABLE_FENCED_BLOCK // one thread needs no fences, and ThreadSanitizer does not support them
#include <boost/asio.hpp>

#include <charconv>
#include <chrono>
#include <memory>
#include <string>

#include "bench/bench_scpi.h"
#include "drv/zof_lock.h"
#include "zof.h"

namespace asio = boost::asio;
using asio::ip::tcp;
using boost::system::error_code;

enum {
    THREAD_PRIO = 7, // normal
    READ_SIZE = 1024,
    HELD_MAX = 4096,       // bytes that may be queued after a waiting command before reading stops
    WRITE_MS = 5000,       // for a client to read its answers
    END_MS = 2000,         // for the last commands of a client that has stopped sending
    AGAIN_MS = 10,         // between checks of unfinished operations
    ACCEPT_PAUSE_MS = 200, // after an error
};
// A client whose machine has vanished is detected within KEEP_IDLE_S + KEEP_COUNT * KEEP_EACH_S.
enum { KEEP_IDLE_S = 10, KEEP_EACH_S = 5, KEEP_COUNT = 3 };

struct conn_t {
    tcp::socket socket;
    asio::steady_timer again, limit, end;
    char block[READ_SIZE];
    std::string held, sending; // bytes received but not consumed; answers being sent
    bool reading, writing, ended, closed;
    scpi_client_t client;
};
using conn_p = std::shared_ptr<conn_t>;

// Never freed: the process ends while the thread runs.
static struct net_t {
    asio::io_context io{1};
    tcp::acceptor acceptor{io};
    asio::steady_timer pause{io};
} *net;

static void conn_work(const conn_p &conn);

static void conn_close(const conn_p &conn) {
    if (conn->closed) {
        return;
    }
    conn->closed = true;
    error_code error;
    conn->socket.close(error);
    conn->again.cancel();
    conn->limit.cancel();
    conn->end.cancel();
    zof_lock gui(dis_mutex);
    scpi_close(&conn->client);
}

static void limit_set(const conn_p &conn, asio::steady_timer &limit, u32 ms, const char *why) {
    limit.expires_after(std::chrono::milliseconds(ms));
    limit.async_wait([conn, why](const error_code &error) {
        if (!error && !conn->closed) {
            zof_printf("SCPI: %s %s; it is cut off", conn->client.name, why);
            conn_close(conn);
        }
    });
}

static void answers_send(const conn_p &conn) {
    conn->writing = true;
    limit_set(conn, conn->limit, WRITE_MS, "does not read its answers");
    asio::async_write(conn->socket, asio::buffer(conn->sending), [conn](const error_code &error, size_t) {
        conn->writing = false;
        conn->limit.cancel();
        if (error) {
            conn_close(conn);
        } else {
            conn_work(conn);
        }
    });
}

static void more_read(const conn_p &conn) {
    conn->reading = true;
    conn->socket.async_read_some(asio::buffer(conn->block), [conn](const error_code &error, size_t size) {
        conn->reading = false;
        conn->held.append(conn->block, size);
        if (error == asio::error::eof) { // it may still read, as `printf '*IDN?\n' | nc` does
            conn->ended = true;
            limit_set(conn, conn->end, END_MS, "sends no more, and its commands take too long");
        } else if (error) {
            conn_close(conn);
            return;
        }
        conn_work(conn);
    });
}

// Runs the received commands. Returns true if an operation has not finished.
static bool commands_run(const conn_p &conn) {
    zof_lock gui(dis_mutex);
    conn->held.erase(0, scpi_feed(&conn->client, conn->held.data(), conn->held.size()));
    conn->sending.swap(conn->client.out);
    conn->client.out.clear();
    return scpi_unfinished(&conn->client);
}

static void look_again(const conn_p &conn) {
    conn->again.expires_after(std::chrono::milliseconds(AGAIN_MS));
    conn->again.async_wait([conn](const error_code &error) {
        if (!error) {
            conn_work(conn);
        }
    });
}

static void conn_work(const conn_p &conn) {
    if (conn->closed || conn->writing) {
        return;
    }
    const bool unfinished = commands_run(conn);
    if (!conn->sending.empty()) {
        answers_send(conn);
    } else if (conn->ended && !scpi_waits(&conn->client)) {
        conn_close(conn);
        return;
    }
    if (unfinished && !conn->writing) {
        look_again(conn);
    }
    if (!conn->reading && !conn->writing && !conn->ended && conn->held.size() < HELD_MAX) {
        more_read(conn);
    }
}

// Accepting -------------------------------------------------------------------------------------------------------
static std::string address_text(const tcp::socket &socket) {
    error_code error;
    const asio::ip::address address = socket.remote_endpoint(error).address();
    if (address.is_v6() && address.to_v6().is_v4_mapped()) {
        return asio::ip::make_address_v4(asio::ip::v4_mapped, address.to_v6()).to_string();
    }
    return address.to_string();
}

static void options_set(tcp::socket &socket) {
    error_code error;
    socket.set_option(tcp::no_delay(true), error);
    socket.set_option(asio::socket_base::keep_alive(true), error);
#ifdef TCP_KEEPIDLE
    namespace option = asio::detail::socket_option;
    socket.set_option(option::integer<IPPROTO_TCP, TCP_KEEPIDLE>(KEEP_IDLE_S), error);
    socket.set_option(option::integer<IPPROTO_TCP, TCP_KEEPINTVL>(KEEP_EACH_S), error);
    socket.set_option(option::integer<IPPROTO_TCP, TCP_KEEPCNT>(KEEP_COUNT), error);
#endif
}

static void conn_refuse(const conn_p &conn) {
    conn->sending = "-300,\"Device-specific error;" + std::to_string(SCPI_CLIENTS) + " clients are connected\"\n";
    asio::async_write(conn->socket, asio::buffer(conn->sending), [conn](const error_code &, size_t) {
        error_code error;
        conn->socket.shutdown(tcp::socket::shutdown_send, error);
    });
}

static void conn_open(tcp::socket socket) {
    const std::string name = address_text(socket);
    options_set(socket);
    const conn_p conn(new conn_t{std::move(socket), asio::steady_timer(net->io), asio::steady_timer(net->io),
                                 asio::steady_timer(net->io)});
    bool open;
    {
        zof_lock gui(dis_mutex);
        open = scpi_open(&conn->client, name.c_str());
    }
    if (open) {
        conn_work(conn);
    } else {
        conn_refuse(conn);
    }
}

static void accept_next() {
    net->acceptor.async_accept([](const error_code &error, tcp::socket socket) {
        if (!error) {
            conn_open(std::move(socket));
            accept_next();
            return;
        }
        net->pause.expires_after(std::chrono::milliseconds(ACCEPT_PAUSE_MS));
        net->pause.async_wait([](const error_code &) { accept_next(); });
    });
}

// Listening -------------------------------------------------------------------------------------------------------
static bool endpoint_read(std::string text, tcp::endpoint *out) {
    const size_t colon = text.rfind(':');
    std::string address = colon == std::string::npos ? "127.0.0.1" : text.substr(0, colon);
    text.erase(0, colon == std::string::npos ? 0 : colon + 1);
    if (address.size() > 2 && address.front() == '[' && address.back() == ']') {
        address = address.substr(1, address.size() - 2);
    }
    u16 port = 0;
    const char *end = text.data() + text.size();
    const auto [at, wrong] = std::from_chars(text.data(), end, port);
    error_code error;
    *out = tcp::endpoint(asio::ip::make_address(address, error), port);
    return !error && wrong == std::errc() && at == end;
}

static error_code port_open(const tcp::endpoint &where) {
    error_code error;
    net->acceptor.open(where.protocol(), error);
    if (!error) {
        net->acceptor.set_option(tcp::acceptor::reuse_address(true), error);
        net->acceptor.bind(where, error);
    }
    if (!error) {
        net->acceptor.listen(SCPI_CLIENTS, error);
    }
    return error;
}

s32 net_scpi_listen(const char *address) {
    tcp::endpoint where;
    if (!endpoint_read(address, &where)) {
        fprintf(stderr, "zof_bench: --scpi %s: not [ADDRESS:]PORT, such as 5025 or 0.0.0.0:5025\n", address);
        return -1;
    }
    net = new net_t;
    const error_code error = port_open(where);
    if (error) {
        fprintf(stderr, "zof_bench: --scpi %s: %s\n", address, error.message().c_str());
        return -1;
    }
    error_code ignored;
    where = net->acceptor.local_endpoint(ignored);
    const bool six = where.address().is_v6();
    zof_printf("SCPI: listening on %s%s%s:%u", six ? "[" : "", where.address().to_string().c_str(), six ? "]" : "",
               where.port());
    return 0;
}

void net_scpi_start() {
    if (net) {
        accept_next();
        zof_thread_create(
            "zof scpi", [](void *) { net->io.run(); }, nullptr, 0, THREAD_PRIO);
    }
}
