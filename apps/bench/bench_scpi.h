// SCPI for programs on the bench's network: text in, text out. This module uses the model and knows nothing of sockets.
// Everything runs under dis_mutex. docs/scpi.md is the manual.
//
// Each client has its own errors and status. Its commands run one after the other; a command that waits for the box
// delays only the commands of the same client.
#ifndef BENCH_SCPI_H
#define BENCH_SCPI_H

#include <string>

#include "bench/bench.h"

enum {
    SCPI_CLIENTS = 16,
    SCPI_LINE_MAX = 1024, // bytes of a line without its end
    SCPI_ERRORS = 20,
    SCPI_FRESH_MS = 250, // how long a query waits for a report after a change
    SCPI_WAIT_MS = 3000, // longer than any wait of a command
};

struct scpi_error_t {
    s16 code;
    std::string text;
};

struct scpi_client_t {
    char name[sizeof(bench.remote)]; // its address, as the panel shows it

    std::string line; // the bytes received so far, or the whole line while it runs
    bool skipping;    // the line is too long and is ignored up to its end
    bool running;     // the line is complete but not finished: a command waits
    size_t at;        // offset of the command that runs or waits
    u64 taken;        // bytes consumed since the connection was opened
    u64 looked, off;  // byte counts: searched for Off so far; end of the last line that contains one
    std::string path; // the path that a header without a leading colon continues
    bool failed;      // a command of the line failed: later ones change nothing except turning off
    bool waiting;
    u64 wait_from;
    std::string answer; // answer to the current line so far

    scpi_error_t error[SCPI_ERRORS];
    u32 errors;
    u8 esr, ese, sre;
    bool opc; // *OPC waits for pending operations

    bool holds;   // it has set something and still holds the panel
    bool refused; // the panel was taken back
    u8 started;   // requests to the box that are not confirmed yet
    bench_choice_t choice;
    u64 apply_at, on_at, off_at;
    u64 fresh_at;  // readings from this time on reflect what the client has set
    u16 ma_wanted; // a current that was set while no voltage was known; 0 if none

    std::string out; // answers to send; the caller removes them
};

// Adds a client with the address `name`. Returns false if there are SCPI_CLIENTS already.
bool scpi_open(scpi_client_t *client, const char *name);
// Removes a client. The panel becomes local again if no other client holds it.
void scpi_close(scpi_client_t *client);
// Consumes bytes until all are used or a command waits, see scpi_waits. Returns the number consumed; pass the rest
// again in the next call. Complete lines in the rest that turn the output off take effect at once. With no bytes,
// continues a waiting command if possible.
size_t scpi_feed(scpi_client_t *client, const char *bytes, size_t size);
// Return true if a command waits, and if an operation of the client has not finished; feed the client again soon.
bool scpi_waits(const scpi_client_t *client);
bool scpi_unfinished(const scpi_client_t *client);

#endif
