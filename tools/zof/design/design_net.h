// The web server of `zof design`: on 127.0.0.1 alone, for one page and its socket. It runs on a separate thread, which
// does nothing but move bytes; messages are taken and sent by the main thread.
#ifndef DESIGN_NET_H
#define DESIGN_NET_H

#include <functional>
#include <string>
#include <vector>

#include "zof_lib/zof_type.h"

// A file that the page may ask for.
struct design_page_file_t {
    const char *name; // "app.js"
    const u8 *data;
    u32 size;
};

struct design_net_options_t {
    u32 port;           // 0 for any free one; set to the one that is used
    std::string token;  // what the socket asks for
    std::string folder; // the page's files are read from it; empty for those of the program
    std::vector<design_page_file_t> files;
    std::string catalogue;      // /catalogue.json
    std::function<void()> wake; // called on the thread when there are messages
};

// Starts the server. Returns an error, or an empty text. The options must stay.
std::string design_net_start(design_net_options_t *options);

enum design_net_what_e { DESIGN_NET_OPENED, DESIGN_NET_CLOSED, DESIGN_NET_TEXT };

struct design_net_message_t {
    u32 page; // 1, 2, ... in the order of their connection
    design_net_what_e what;
    std::string text;
};

// Takes the next message; false if no message waits. Main thread, like all below.
bool design_net_take(design_net_message_t *message);

// Sends a message to a page. Unknown pages are ignored, because a page may close at any time.
void design_net_send(u32 page, std::string text);
void design_net_send_bytes(u32 page, std::vector<u8> bytes);

// Returns the number of bytes that wait to be sent to a page, so that frames can be left out for a slow one.
size_t design_net_waiting(u32 page);

// Closes all connections and ends the thread.
void design_net_stop();

#endif
