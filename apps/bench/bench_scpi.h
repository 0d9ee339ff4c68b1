// SCPI for programs on the bench's network: text in, text out. It knows the model and no sockets. Everything runs under
// dis_mutex. docs/scpi.md is the manual.
//
// Each client has its own errors and status. Its commands run one after the other; a command that has to wait for the
// box stops the ones after it, and nothing else.
#ifndef BENCH_SCPI_H
#define BENCH_SCPI_H

#include <string>

#include "bench/bench.h"

enum {
    SCPI_CLIENTS = 16,
    SCPI_LINE_MAX = 1024, // bytes of a line without its end
    SCPI_ERRORS = 20,
    SCPI_FRESH_MS = 250, // for a report after a change
    SCPI_WAIT_MS = 3000, // longer than anything that a command waits for
};

struct scpi_error_t {
    s16 code;
    std::string text;
};

struct scpi_client_t {
    char name[sizeof(bench.remote)]; // its address, as the panel shows it

    std::string line; // the bytes received so far, or the whole line while it runs
    bool skipping;    // the line is too long and ignored up to its end
    bool running;     // the line is whole, and has not ended: a command waits
    size_t at;        // where the command that runs or waits begins
    u64 taken;        // bytes since it connected
    u64 looked, off;  // byte counts: searched for Off so far; the end of the last line that contains one
    std::string path; // the path that a header without a leading colon continues
    bool failed;      // a command of the line failed: those after it change nothing, except to turn off
    bool waiting;
    u64 wait_from;
    std::string answer; // to the current line, so far

    scpi_error_t error[SCPI_ERRORS];
    u32 errors;
    u8 esr, ese, sre;
    bool opc; // *OPC waits for its end

    bool holds;   // it has set something and still holds the panel
    bool refused; // the panel was taken back
    u8 started;   // requests to the box that are not confirmed yet
    bench_choice_t choice;
    u64 apply_at, on_at, off_at;
    u64 fresh_at;  // readings from this time on reflect what it has set
    u16 ma_wanted; // a current set while no voltage was known; 0: none

    std::string out; // answers to send; the caller removes them
};

// Adds a client. False if there are SCPI_CLIENTS already. `name` is its address.
bool scpi_open(scpi_client_t *client, const char *name);
// Removes it; the panel is local again if nobody else holds it.
void scpi_close(scpi_client_t *client);
// Consumes bytes until all are used or a command waits, see scpi_waits. Returns the number consumed; pass the rest
// again in the next call. Complete lines in the rest that turn the output off take effect at once. With no bytes,
// continues a waiting command if possible.
size_t scpi_feed(scpi_client_t *client, const char *bytes, size_t size);
// Return whether a command waits, and whether an operation of the client has not finished; feed the client again soon.
bool scpi_waits(const scpi_client_t *client);
bool scpi_unfinished(const scpi_client_t *client);

#endif
