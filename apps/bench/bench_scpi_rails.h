// Volts and amperes in SCPI commands: which rails can supply a value, and which rail is chosen.
#ifndef BENCH_SCPI_RAILS_H
#define BENCH_SCPI_RAILS_H

#include "bench/bench_scpi_in.h"

enum scpi_which_e { SCPI_VOLTS, SCPI_AMPERES };
// Values are thousandths, possibly fractional as a client wrote them.
inline constexpr double SCPI_ANY = -1; // any value is acceptable

// The rails that a command may choose from.
struct scpi_scope_t {
    u8 first, end;
};
inline constexpr scpi_scope_t scpi_all_rails = {0, RAIL_MAX};

bool scpi_rail_gives(u8 rail, scpi_which_e which, double value);
std::string scpi_with_unit(double milli, scpi_which_e which); // returns "12.04 V"
// Queues the error for a value that no rail can supply together with the other one, naming the nearest values.
void scpi_refuse(scpi_call_t &call, scpi_scope_t scope, scpi_which_e which, double value, double other);
// Chooses a rail: adjustable rails come before fixed ones, then those with a lower maximum voltage, then those with a
// lower number. SCPI_ANY as current selects the current with which the rail opens. Returns false after queueing an
// error.
bool scpi_choose(scpi_call_t &call, scpi_scope_t scope, double mv, double ma, bench_choice_t *out);
// Read MINimum, MAXimum or DEFault among the rails that can supply the other value; scpi_value_read also reads a
// number. Return false after queueing an error.
bool scpi_word_value(scpi_call_t &call, u32 index, scpi_scope_t scope, scpi_which_e which, double other, double *out);
bool scpi_value_read(scpi_call_t &call, u32 index, scpi_scope_t scope, scpi_which_e which, double other, double *out);

#endif
