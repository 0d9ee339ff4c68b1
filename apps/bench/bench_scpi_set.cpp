// SCPI commands that change something. All of them go through the model's gate. An explicit command counts as a hold,
// but nothing raises the voltage or turns on while readings are late.
#include "bench/bench_scpi_rails.h"

#include <math.h>

#include <charconv>

enum { STARTED_APPLY = 1, STARTED_ON = 2, STARTED_OFF = 4 };
enum { OFF_MS = 2000 }; // time for the box to report that it is off

static const char not_a_number[] = "9.91E37";
static const char off_came[] = "a command to turn off came after it";

// Permission to change something ------------------------------------------------------------------------
static bool may_set(scpi_call_t &call) {
    if (call.client->refused) {
        scpi_fail(call.client, SCPI_PROTECTED, "the panel was taken back; SYST:REM asks for it again");
    } else if (!bench.seen) {
        scpi_fail(call.client, SCPI_DEVICE, "no data from the box");
    } else if (bench_age() != BENCH_LIVE) {
        scpi_fail(call.client, SCPI_DEVICE, scpi_format("no data from the box for %.1f s", bench_silence_ms() / 1e3));
    } else {
        return true;
    }
    return false;
}

static bool may_apply(scpi_call_t &call) {
    if (!may_set(call)) {
        return false;
    }
    if (bench.rails.state != BENCH_RAILS_SHOWN) {
        scpi_fail(call.client, SCPI_DEVICE, "the rails are not known yet");
        return false;
    }
    return true;
}

// Pending requests ---------------------------------------------------------------------------------------
bool scpi_settling(const scpi_call_t &) {
    return bench.applying || bench.turning_on || (bench.turning_off && bench.now - bench.off_at < OFF_MS);
}

// A measurement after a change reflects the change.
bool scpi_measure_waits(const scpi_call_t &call) {
    return bench_live() && (call.client->started != 0 || bench.now < call.client->fresh_at);
}

static std::string choice_text(bench_choice_t choice) {
    return scpi_with_unit(choice.mv, SCPI_VOLTS) + ", " + scpi_with_unit(choice.ma, SCPI_AMPERES);
}

static void apply_outcome(scpi_client_t *client) {
    const bench_choice_t &last = bench.last, &choice = client->choice;
    const bool mine = bench.apply_at == client->apply_at;
    if (bench.applying && mine) {
        return;
    }
    client->started &= (u8)~STARTED_APPLY;
    if ((bench.not_taken && mine) || !bench_live() || last.rail != choice.rail || last.mv != choice.mv ||
        last.ma != choice.ma) {
        scpi_fail(client, SCPI_TIMEOUT, "the box has not confirmed " + choice_text(choice));
    }
}

static void on_outcome(scpi_client_t *client) {
    if (bench.turning_on && bench.on_at == client->on_at) {
        return;
    }
    client->started &= (u8)~STARTED_ON;
    if (!bench_is_on()) {
        scpi_fail(client, SCPI_TIMEOUT, "the output is not on");
    }
}

static void off_outcome(scpi_client_t *client) {
    const bool mine = bench.off_at == client->off_at;
    if (bench.turning_off && mine && bench.now - bench.off_at < OFF_MS) {
        return;
    }
    client->started &= (u8)~STARTED_OFF;
    if (bench_is_on() && mine) {
        scpi_fail(client, SCPI_TIMEOUT, "the output is still on");
    }
}

void scpi_outcome(scpi_client_t *client) {
    static constexpr struct {
        u8 bit;
        void (*outcome)(scpi_client_t *client);
    } rows[] = {{STARTED_APPLY, apply_outcome}, {STARTED_ON, on_outcome}, {STARTED_OFF, off_outcome}};
    for (const auto &row : rows) {
        if ((client->started & row.bit) != 0) {
            row.outcome(client);
            client->fresh_at = bench.now + SCPI_FRESH_MS;
        }
    }
    if (client->opc && client->started == 0) {
        client->opc = false;
        client->esr |= 1;
    }
}

// If the box has not reported whether applying turns its output on, assume that it may.
static bool turns_on() {
    return (bench.settings_known & BENCH_SETTING_AUTO_ON) == 0 || bench.auto_on != 0;
}

static void send(scpi_call_t &call, bench_choice_t choice) {
    scpi_client_t *client = call.client;
    if (scpi_off_ahead(client) && turns_on()) {
        scpi_fail(client, SCPI_CONFLICT, off_came);
    } else if (!bench_apply(choice, true)) {
        scpi_fail(client, SCPI_DEVICE, choice_text(choice) + " cannot be applied now");
    } else {
        client->started |= STARTED_APPLY;
        client->choice = choice;
        client->apply_at = bench.apply_at;
        client->ma_wanted = 0;
        scpi_remote_take(client);
    }
}

static void choose_and_send(scpi_call_t &call, scpi_scope_t scope, double mv, double ma) {
    bench_choice_t choice;
    if (scpi_choose(call, scope, mv, ma, &choice)) {
        send(call, choice);
    }
}

// Commands --------------------------------------------------------------------------------------------------------
// Returns the current to use with a voltage that is given alone.
static double present_ma(const scpi_call_t &call) {
    return bench.set_known ? bench.set.ma : call.client->ma_wanted != 0 ? call.client->ma_wanted : SCPI_ANY;
}

void scpi_volt(scpi_call_t &call) {
    double mv = 0;
    if (may_apply(call) && scpi_value_read(call, 0, scpi_all_rails, SCPI_VOLTS, present_ma(call), &mv)) {
        choose_and_send(call, scpi_all_rails, mv, present_ma(call));
    }
}

// Keeps a current for the next voltage, while no voltage is known.
static void ma_keep(scpi_call_t &call, double ma) {
    for (u8 i = 0; i < RAIL_MAX; i++) {
        if (scpi_rail_gives(i, SCPI_AMPERES, ma)) {
            call.client->ma_wanted = (u16)ma;
            return;
        }
    }
    scpi_refuse(call, scpi_all_rails, SCPI_AMPERES, ma, SCPI_ANY);
}

void scpi_curr(scpi_call_t &call) {
    const double mv = bench.set_known ? bench.set.mv : SCPI_ANY;
    double ma = 0;
    if (!may_apply(call) || !scpi_value_read(call, 0, scpi_all_rails, SCPI_AMPERES, mv, &ma)) {
        return;
    }
    if (bench.set_known) {
        choose_and_send(call, scpi_all_rails, mv, ma);
    } else {
        ma_keep(call, ma);
    }
}

// Applies volts and amperes read from the parameters that start at `index`.
static void apply_from(scpi_call_t &call, u32 index, scpi_scope_t scope, double ma) {
    double mv = 0;
    if (scpi_value_read(call, index, scope, SCPI_VOLTS, SCPI_ANY, &mv) &&
        (call.params <= index + 1 || scpi_value_read(call, index + 1, scope, SCPI_AMPERES, mv, &ma))) {
        choose_and_send(call, scope, mv, ma);
    }
}

void scpi_apply(scpi_call_t &call) {
    if (may_apply(call)) {
        apply_from(call, 0, scpi_all_rails, present_ma(call));
    }
}

void scpi_rail(scpi_call_t &call) {
    u32 rail = 0;
    if (!may_apply(call) || !scpi_param_integer(call, 0, 0, RAIL_MAX - 1, &rail)) {
        return;
    }
    if (!bench_rail_usable((u8)rail)) {
        scpi_fail(call.client, SCPI_RANGE, scpi_format("there is no rail %u", rail));
    } else if (call.params == 1) {
        send(call, bench_rail_open((u8)rail));
    } else {
        apply_from(call, 1, {(u8)rail, (u8)(rail + 1)}, SCPI_ANY);
    }
}

static bool means_on(const scpi_param_t &param) {
    double value = 0;
    std::from_chars(param.text.data(), param.text.data() + param.text.size(), value);
    return param.kind == SCPI_WORD ? scpi_word_is("ON", param.text) : round(value) != 0;
}

// On waits until earlier requests are confirmed and off has been reported.
bool scpi_output_waits(const scpi_call_t &call) {
    return means_on(call.param[0]) && !call.client->failed && !scpi_off_ahead(call.client) &&
           (scpi_settling(call) || bench.now < bench.deaf_until);
}

static void output_on(scpi_call_t &call) {
    scpi_client_t *client = call.client;
    if (client->failed || !may_set(call) || bench_is_on()) {
        return;
    }
    if (scpi_off_ahead(client)) {
        scpi_fail(client, SCPI_CONFLICT, off_came);
    } else if (!bench_out_known() || !bench.set_known) {
        scpi_fail(client, bench_out_known() ? SCPI_CONFLICT : SCPI_DEVICE,
                  bench_out_known() ? "what is set is not known; APPL first" : "the output's state is not known");
    } else if (!bench_turn_on(true)) {
        scpi_fail(client, SCPI_DEVICE, "the output cannot be turned on now");
    } else {
        client->started |= STARTED_ON;
        client->on_at = bench.on_at;
        scpi_remote_take(client);
    }
}

void scpi_off_request(scpi_client_t *client) {
    bench_off();
    client->started = (u8)((client->started & ~STARTED_ON) | STARTED_OFF);
    client->off_at = bench.off_at;
}

void scpi_output_off(scpi_client_t *client) {
    scpi_off_request(client);
    if (!bench_out_known()) {
        scpi_fail(client, SCPI_DEVICE, "off is requested, but the output's state is not known");
    }
}

bool scpi_output_turns_off(scpi_call_t &call) {
    bool on = true;
    return scpi_param_flag(call, 0, &on) && !on;
}

void scpi_output(scpi_call_t &call) {
    bool on = false;
    if (scpi_param_flag(call, 0, &on)) {
        if (on) {
            output_on(call);
        } else {
            scpi_output_off(call.client);
        }
    }
}

void scpi_session_reset(scpi_call_t &call) {
    if (!may_set(call)) {
        return;
    }
    if (bench_session_reset()) {
        scpi_remote_take(call.client);
    } else {
        scpi_fail(call.client, SCPI_DEVICE, "the energy is not known");
    }
}

// Queries ---------------------------------------------------------------------------------------------------------
static void set_unknown(scpi_call_t &call, const char *answer) {
    scpi_answer(call, answer);
    scpi_fail(call.client, SCPI_STALE, "what is set is not known");
}

static void value_ask(scpi_call_t &call, scpi_which_e which) {
    const double other = !bench.set_known ? SCPI_ANY : which == SCPI_VOLTS ? bench.set.ma : bench.set.mv;
    double value = 0;
    if (call.params == 1 && call.param[0].kind != SCPI_WORD) {
        scpi_fail(call.client, SCPI_DATA_TYPE, "MIN, MAX or DEF");
    } else if (call.params == 1 && scpi_word_value(call, 0, scpi_all_rails, which, other, &value)) {
        scpi_answer(call, scpi_milli((u32)value));
    } else if (call.params == 0 && bench.set_known) {
        scpi_answer(call, scpi_milli(which == SCPI_VOLTS ? bench.set.mv : bench.set.ma));
    } else if (call.params == 0) {
        set_unknown(call, not_a_number);
    } else {
        scpi_answer(call, not_a_number);
    }
}

void scpi_volt_ask(scpi_call_t &call) {
    value_ask(call, SCPI_VOLTS);
}

void scpi_curr_ask(scpi_call_t &call) {
    value_ask(call, SCPI_AMPERES);
}

static std::string set_text() {
    return bench.set_known ? scpi_milli(bench.set.mv) + "," + scpi_milli(bench.set.ma) : "9.91E37,9.91E37";
}

void scpi_apply_ask(scpi_call_t &call) {
    if (bench.set_known) {
        scpi_answer(call, set_text());
    } else {
        set_unknown(call, set_text().c_str());
    }
}

void scpi_rail_ask(scpi_call_t &call) {
    const bool known = bench.rail_known && bench.rail != RAIL_NONE;
    const std::string answer = (known ? std::to_string(bench.rail) : not_a_number) + "," + set_text();
    if (known && bench.set_known) {
        scpi_answer(call, answer);
    } else {
        set_unknown(call, answer.c_str());
    }
}
