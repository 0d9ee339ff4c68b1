// The port of a running program, for one client at a time. The thread "zof inspect" owns the sockets: it checks the
// token, collects lines and sends replies, for which it encodes pictures. The graphics thread takes one line at the end
// of each turn, so that neither a slow client nor a busy one stops the panel.
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <mutex>

#include "drv/zof_drv.h"
#include "drv/zof_drv_end.h"
#include "drv/zof_drv_file.h"
#include "drv/zof_drv_net.h"
#include "drv/zof_loop_in.h"
#include "inspect/zof_inspect.h"
#include "inspect/zof_inspect_in.h"
#include "zof_lib/zof_jdoc.h"
#include "zof_lib/zof_stdio.h"

enum {
    TOKEN_BYTES = 16,
    TOKEN_SIZE = 2 * TOKEN_BYTES, // hexadecimal digits
    HELLO_MAX = 1024,             // bytes of the first line
    HELLO_MS = 2000,              // for a client to send it
    UNREAD_MS = 5000,             // for a client to read
    LOOK_MS = 250,                // between checks of these times
    READ_SIZE = 4096,
    LINES_MAX = 16,      // commands that wait before reading stops
    OUT_BUSY = 1 << 20,  // bytes that wait to be sent; then no command is executed
    OUT_MAX = 8 << 20,   // bytes that wait before the client is disconnected
    THREAD_PRIORITY = 7, // normal
};

// Never destroyed: the thread may be using it when the process ends.
struct server_t {
    zof_net_port_t *port;
    char token[TOKEN_SIZE + 1];
    char file[512]; // of the token
    inspect_peer_t peer;
    std::mutex lock; // guards what follows
    std::deque<inspect_reader_t> lines;
    std::deque<inspect_line_t> out;
    size_t out_bytes;
    u32 client;  // its number; 0 until a client has sent the token
    u32 running; // the client whose command is being executed, or 0
    bool full;   // `out` is
};
static server_t &server = *new server_t{};

// The connected client. Belongs to the thread.
struct client_t {
    s32 connection = -1;
    bool known;   // it has sent the token
    bool ended;   // it has closed its side
    bool closing; // once `sending` is sent
    inspect_reader_t reader;
    std::string sending;
    size_t sent;
    u32 since; // time of its connection, then of the last progress in sending
};
static client_t &client = *new client_t{};
static s32 arrived = -1; // the connection of the next one

// The graphics thread -------------------------------------------------------------------------------------------------
static size_t bytes_of(const inspect_line_t *line) {
    return line->text.size() + line->pixels.size() * sizeof(u32);
}

// Drops a reply whose client has disconnected, so that the next client does not get it.
static void put(const inspect_line_t *line) {
    {
        std::lock_guard guard(server.lock);
        if (!server.client || (server.running && server.running != server.client)) {
            return;
        }
        server.full = server.full || server.out_bytes > OUT_MAX;
        if (!server.full) {
            server.out.push_back(*line);
            server.out_bytes += bytes_of(line);
        }
    }
    zof_net_wake(server.port);
}

static bool command_take(inspect_reader_t *line) {
    std::lock_guard guard(server.lock);
    if (server.lines.empty() || server.out_bytes > OUT_BUSY) {
        return false;
    }
    *line = server.lines.front();
    server.lines.pop_front();
    server.running = server.client;
    return true;
}

static void command_end() {
    bool more = false;
    {
        std::lock_guard guard(server.lock);
        server.running = 0;
        more = !server.lines.empty();
    }
    zof_net_wake(server.port);
    if (more) {
        zof_loop_wake(nullptr);
    }
}

static void turn_end() {
    inspect_reader_t line;
    inspect_frame_publish();
    if (command_take(&line)) {
        inspect_line_run(&server.peer, &line);
        command_end();
    }
}

// The thread ----------------------------------------------------------------------------------------------------------
static void client_close(const char *why) {
    if (why) {
        zof_printf("inspect: the client %s; it is disconnected", why);
    }
    zof_net_close(client.connection);
    client = {};
    std::lock_guard guard(server.lock);
    server.client = 0;
    server.lines.clear();
    server.out.clear();
    server.out_bytes = 0;
    server.full = false;
}

static std::string error_line(const char *text) {
    return std::string(R"({"ok":false,"error":")") + text + "\"}\n";
}

static void client_refuse(const char *text) {
    client.sending = error_line(text);
    client.closing = true;
    client.since = zof_sys_time_ms();
}

// Compares in a time that does not depend on where the tokens differ.
static bool token_is(const char *token) {
    u32 different = 0;
    for (u32 i = 0; i < TOKEN_SIZE; i++) {
        different |= (u32)(token[i] ^ server.token[i]);
    }
    return different == 0;
}

static bool member_read(const zof_jdoc_t *doc, const char *key, char *out, size_t size) {
    const u32 node = zof_jdoc_get(doc, 0, key);
    const s32 length = node == ZOF_J_NONE ? -1 : zof_jdoc_text(doc, node, out, size);
    return length >= 0 && (size_t)length < size;
}

// Returns true for {"do": "hello", "token": ...} with the token.
static bool hello_is(const inspect_reader_t *line) {
    zof_jdoc_t doc;
    char command[8];
    char token[TOKEN_SIZE + 1] = "";
    if (line->cut || line->line.size() > HELLO_MAX || zof_jdoc_read(&doc, line->line.data(), line->line.size()) < 0) {
        return false;
    }
    const bool said = doc.count && member_read(&doc, "do", command, sizeof(command)) && strcmp(command, "hello") == 0 &&
                      member_read(&doc, "token", token, sizeof(token)) && token_is(token);
    zof_jdoc_free(&doc);
    return said;
}

static void line_take(const inspect_reader_t *line) {
    static u32 clients;
    if (!client.known && !hello_is(line)) {
        zof_printf("inspect: a client without the token was refused");
        client_refuse("the first line must be hello with the token");
        return;
    }
    std::lock_guard guard(server.lock);
    if (!client.known) {
        client.known = true;
        server.client = ++clients;
    }
    server.lines.push_back(*line);
}

static void input_read() {
    char block[READ_SIZE];
    const s32 size = zof_net_read(client.connection, block, sizeof(block));
    client.ended = size < 0;
    for (s32 i = 0; i < size && !client.closing; i++) {
        if (inspect_reader_put(&client.reader, block[i])) {
            line_take(&client.reader);
            inspect_reader_clear(&client.reader);
        }
    }
    if (size > 0) {
        zof_loop_wake(nullptr);
    }
}

// Takes the next line to send. Returns false if the queue is empty.
static bool output_take() {
    inspect_line_t line;
    {
        std::lock_guard guard(server.lock);
        if (server.out.empty()) {
            return false;
        }
        line = std::move(server.out.front());
        server.out.pop_front();
    }
    client.sending = inspect_line_text(&line) + "\n";
    client.sent = 0;
    client.since = zof_sys_time_ms();
    bool waits = false;
    {
        std::lock_guard guard(server.lock);
        server.out_bytes -= bytes_of(&line);
        waits = !server.lines.empty();
    }
    if (waits) {
        zof_loop_wake(nullptr);
    }
    return true;
}

static void output_send() {
    while (client.sent < client.sending.size() || output_take()) {
        const s32 size = zof_net_write(client.connection, client.sending.data() + client.sent,
                                       (u32)(client.sending.size() - client.sent));
        if (size <= 0) {
            client.closing = client.closing || size < 0;
            client.ended = client.ended || size < 0;
            return;
        }
        client.sent += (size_t)size;
        client.since = zof_sys_time_ms();
    }
}

static bool is_full() {
    std::lock_guard guard(server.lock);
    return server.full;
}

static bool is_idle() {
    std::lock_guard guard(server.lock);
    return server.lines.empty() && !server.running && server.out.empty();
}

static bool may_read() {
    std::lock_guard guard(server.lock);
    return !client.ended && !client.closing && server.lines.size() < LINES_MAX;
}

static void limits_check() {
    const bool sends = client.sent < client.sending.size();
    const u32 waited = zof_sys_time_ms() - client.since;
    if (is_full() || (sends && waited > UNREAD_MS)) {
        client_close("does not read");
    } else if (!client.known && !client.closing && waited > HELLO_MS) {
        client_close("has sent no token");
    } else if ((client.closing && (!sends || client.ended)) || (client.ended && !sends && is_idle())) {
        client_close(nullptr);
    }
}

// Serves the client that has arrived, or refuses it. It waits for the answers to a client that has stopped sending,
// which may be itself.
static void arrived_take() {
    if (arrived >= 0 && client.connection < 0) {
        client.connection = arrived;
        client.since = zof_sys_time_ms();
        arrived = -1;
    } else if (arrived >= 0 && !client.ended) {
        const std::string line = error_line("another client is connected");
        zof_net_write(arrived, line.data(), (u32)line.size());
        zof_net_close(arrived);
        arrived = -1;
    }
}

static u32 events_wanted() {
    u32 events = 0;
    if (arrived < 0) {
        events |= ZOF_NET_ACCEPT;
    }
    if (client.connection >= 0 && may_read()) {
        events |= ZOF_NET_READ;
    }
    if (client.sent < client.sending.size()) {
        events |= ZOF_NET_WRITE;
    }
    return events;
}

static void client_serve() {
    if (may_read()) {
        input_read();
    }
    output_send();
    limits_check();
}

static void serve(void *) {
    for (;;) {
        const u32 events = events_wanted();
        const bool waits = client.connection < 0 || (client.known && !client.ended && !client.closing);
        zof_net_wait(server.port, client.connection, events, waits && !(events & ZOF_NET_WRITE) ? -1 : (s32)LOOK_MS);
        if (arrived < 0) { // before the client is read: it may have closed its connection before it has opened another
            arrived = zof_net_accept(server.port);
        }
        if (client.connection >= 0) {
            client_serve();
        }
        arrived_take();
    }
}

// Start ---------------------------------------------------------------------------------------------------------------
static bool number_read(const char *text, u16 *number) {
    const char *end = text + strlen(text);
    const auto [at, wrong] = std::from_chars(text, end, *number);
    return wrong == std::errc() && at == end;
}

static bool token_make(u16 number) {
    u8 bytes[TOKEN_BYTES];
    char name[32];
    if (zof_net_random(bytes, sizeof(bytes)) != 0) {
        return false;
    }
    for (u32 i = 0; i < TOKEN_BYTES; i++) {
        snprintf(server.token + 2 * (size_t)i, 3, "%02x", bytes[i]);
    }
    snprintf(name, sizeof(name), ZOF_INSPECT_FILE, number);
    return zof_net_private_path(server.file, sizeof(server.file), name, ZOF_TRUE) == 0 &&
           zof_net_private_write(server.file, server.token) == 0;
}

static void token_remove() {
    remove(server.file);
}

// Returns the number of the port that was opened, with its token; 0 after a log line.
static u16 port_open(const char *text) {
    u16 number = 0;
    if (!number_read(text, &number)) {
        zof_printf("inspect: ZOF_INSPECT=%s: not a port, 0 to 65535", text);
        return 0;
    }
    server.port = zof_net_listen(&number);
    if (!server.port) {
        zof_printf("inspect: 127.0.0.1:%u: %s", number, zof_file_error());
        return 0;
    }
    if (!token_make(number)) {
        zof_printf("inspect: the token cannot be written: %s", zof_file_error());
        zof_net_unlisten(server.port);
        server.port = nullptr;
        return 0;
    }
    zof_end_add(token_remove);
    return number;
}

static void serving_start(bool write) {
    static zof_loop_source source = {.settle = turn_end};
    server.peer = {write ? INSPECT_WRITE : INSPECT_READ, put};
    inspect_peer_add(&server.peer);
    inspect_frames_start(nullptr);
    inspect_messages_start(true);
    inspect_writes_watch();
    inspect_events_start();
    zof_loop_source_add(&source, nullptr);
    zof_thread_del(zof_thread_create("zof inspect", serve, nullptr, 0, THREAD_PRIORITY));
}

void zof_inspect_start(void) {
    const char *text = getenv("ZOF_INSPECT");
    const char *write = getenv("ZOF_INSPECT_WRITE");
    const u16 number = text && *text && !server.port ? port_open(text) : 0;
    if (number) {
        serving_start(write && strcmp(write, "1") == 0);
        zof_printf("inspect: 127.0.0.1:%u, token in %s", number, server.file);
    }
}
