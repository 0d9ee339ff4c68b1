// Internal header of SCPI.
#ifndef BENCH_SCPI_IN_H
#define BENCH_SCPI_IN_H

#include <string>
#include <string_view>

#include "bench/bench_scpi.h"

// Codes of the standard.
enum scpi_code_e : s16 {
    SCPI_INVALID_CHARACTER = -101,
    SCPI_SYNTAX = -102,
    SCPI_DATA_TYPE = -104,
    SCPI_TOO_MANY = -108,
    SCPI_MISSING = -109,
    SCPI_SEPARATOR = -111,
    SCPI_MNEMONIC_LONG = -112,
    SCPI_HEADER = -113,
    SCPI_HEADER_SUFFIX = -114,
    SCPI_IN_NUMBER = -121,
    SCPI_EXPONENT = -123,
    SCPI_SUFFIX = -131,
    SCPI_NO_SUFFIX = -138,
    SCPI_STRING = -151,
    SCPI_PROTECTED = -203,
    SCPI_CONFLICT = -221,
    SCPI_RANGE = -222,
    SCPI_ILLEGAL = -224,
    SCPI_STALE = -230,
    SCPI_DEVICE = -300,
    SCPI_OVERFLOW = -350,
    SCPI_OVERRUN = -363,
    SCPI_TIMEOUT = -365,
};

enum scpi_kind_e { SCPI_NUMBER, SCPI_WORD, SCPI_STRING_DATA };
struct scpi_param_t {
    scpi_kind_e kind;
    std::string_view text; // a string includes its quotes
};
enum { SCPI_PARAMS = 4 };

struct scpi_call_t {
    scpi_client_t *client;
    scpi_param_t param[SCPI_PARAMS];
    u32 params;
};

struct scpi_row_t {
    // Nodes in their long form; the capitals are the short form. Nodes in brackets may be omitted.
    const char *header;
    u8 least, most;                         // minimum and maximum number of parameters
    bool sets;                              // changes something, so it does not run after an error in the same line
    bool (*waits)(const scpi_call_t &call); // null: never waits
    void (*run)(scpi_call_t &call);
    bool (*turns_off)(scpi_call_t &call); // null: never turns off. Queues an error if parameters are wrong
};
extern const scpi_row_t scpi_rows[];
extern const u32 scpi_row_count;

// Queues an error with details, and marks the line as failed.
void scpi_fail(scpi_client_t *client, scpi_code_e code, const std::string &more = "");
// Returns a text as a quoted string for an answer; characters that are not allowed there become question marks.
std::string scpi_quoted(const std::string &text);
// Appends a text to the line's answer.
void scpi_answer(scpi_call_t &call, const std::string &text);

// Parameters. The scpi_param_... functions return false after queueing an error.
bool scpi_word_is(std::string_view pattern, std::string_view word); // accepts the long and the short form
bool scpi_param_flag(scpi_call_t &call, u32 index, bool *out);
bool scpi_param_integer(scpi_call_t &call, u32 index, u32 low, u32 high, u32 *out);
// Reads volts or amperes (`unit` is 'V' or 'A') in thousandths, which may be fractional.
bool scpi_param_milli(scpi_call_t &call, u32 index, char unit, double *out);
std::string scpi_milli(u32 thousandths); // returns "12.040"
std::string scpi_format(const char *format, ...) __attribute__((format(printf, 1, 2)));

// Track which clients hold the panel. scpi_remote_check detects that the Local button has taken the panel back.
void scpi_remote_check();
void scpi_remote_take(scpi_client_t *client);
void scpi_remote_leave(scpi_client_t *client);

// Handlers of set commands and their queries.
void scpi_outcome(scpi_client_t *client); // updates the state of what the client has requested
bool scpi_settling(const scpi_call_t &call);
bool scpi_measure_waits(const scpi_call_t &call);
bool scpi_output_waits(const scpi_call_t &call);
void scpi_volt(scpi_call_t &call);
void scpi_curr(scpi_call_t &call);
void scpi_apply(scpi_call_t &call);
void scpi_rail(scpi_call_t &call);
void scpi_volt_ask(scpi_call_t &call);
void scpi_curr_ask(scpi_call_t &call);
void scpi_apply_ask(scpi_call_t &call);
void scpi_rail_ask(scpi_call_t &call);
void scpi_output(scpi_call_t &call);
void scpi_output_off(scpi_client_t *client);
bool scpi_output_turns_off(scpi_call_t &call);
// Requests off at once; the command itself reports the result when its turn comes.
void scpi_off_request(scpi_client_t *client);
// Returns true if a queued command has already turned the output off, so that no earlier one may turn it on.
bool scpi_off_ahead(const scpi_client_t *client);
void scpi_session_reset(scpi_call_t &call);

#endif
