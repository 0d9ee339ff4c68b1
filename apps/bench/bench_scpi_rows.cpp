// The table of SCPI commands, and the handlers of those that do not concern rails or the output.
#include "bench/bench_scpi_in.h"

#include "bench/bench_record.h"
#include "bench/bench_session.h"
#include "zof.h"

static constexpr u32 STB_ERRORS = 4, STB_ESR = 32, STB_SUM = 64;

static const char not_a_number[] = "9.91E37";

// Status ----------------------------------------------------------------------------------------------------------
static void idn(scpi_call_t &call) {
    const char *version = zof_user_app_version();
    scpi_answer(call, std::string("zof,bench panel,0,") + (version ? version : "0"));
}

// Turning off is the only state that is safe for any connected device. Rails and session are unchanged.
static void rst(scpi_call_t &call) {
    call.client->opc = false;
    scpi_output_off(call.client);
}

static bool always(scpi_call_t &) {
    return true;
}

static void cls(scpi_call_t &call) {
    call.client->errors = 0;
    call.client->esr = 0;
    call.client->opc = false;
}

// A one-byte register and its query.
template <u8 scpi_client_t::*FIELD> static void byte_set(scpi_call_t &call) {
    u32 value = 0;
    if (scpi_param_integer(call, 0, 0, 255, &value)) {
        call.client->*FIELD = (u8)value;
    }
}

template <u8 scpi_client_t::*FIELD> static void byte_ask(scpi_call_t &call) {
    scpi_answer(call, std::to_string(call.client->*FIELD));
}

static void esr(scpi_call_t &call) {
    byte_ask<&scpi_client_t::esr>(call);
    call.client->esr = 0;
}

static void stb(scpi_call_t &call) {
    const scpi_client_t &client = *call.client;
    const u32 bits = (client.errors ? STB_ERRORS : 0u) | ((client.esr & client.ese) != 0 ? STB_ESR : 0u);
    scpi_answer(call, std::to_string(bits | ((bits & client.sre) != 0 ? STB_SUM : 0u)));
}

static void opc(scpi_call_t &call) {
    call.client->opc = true;
    scpi_outcome(call.client);
}

static void opc_ask(scpi_call_t &call) {
    scpi_answer(call, "1");
}

static void nothing(scpi_call_t &) {
}

static void tst(scpi_call_t &call) {
    scpi_answer(call, bench_live() ? "0" : "1");
}

static void error_next(scpi_call_t &call) {
    scpi_client_t &client = *call.client;
    if (client.errors == 0) {
        scpi_answer(call, "0,\"No error\"");
        return;
    }
    scpi_answer(call, std::to_string(client.error[0].code) + ",\"" + client.error[0].text + "\"");
    client.errors--;
    for (u32 i = 0; i < client.errors; i++) {
        client.error[i] = client.error[i + 1];
    }
}

static void error_count(scpi_call_t &call) {
    scpi_answer(call, std::to_string(call.client->errors));
}

static void version(scpi_call_t &call) {
    scpi_answer(call, "1999.0");
}

static void remote(scpi_call_t &call) {
    scpi_remote_take(call.client);
}

static void remote_ask(scpi_call_t &call) {
    scpi_answer(call, scpi_quoted(bench.remote));
}

static void local(scpi_call_t &call) {
    scpi_remote_leave(call.client);
}

// Readings --------------------------------------------------------------------------------------------------------
// Answers with the last report, without averaging, which would hide a spike.
static void reading(scpi_call_t &call, bool known, u32 thousandths) {
    if (known && bench_live()) {
        scpi_answer(call, scpi_milli(thousandths));
        return;
    }
    scpi_answer(call, not_a_number);
    scpi_fail(call.client, SCPI_STALE, "no reading from the box");
}

static void volts(scpi_call_t &call) {
    reading(call, bench.mv_known, bench.mv);
}

static void amperes(scpi_call_t &call) {
    reading(call, bench.ma_known, bench.ma);
}

static void watts(scpi_call_t &call) {
    reading(call, bench.dw_known, bench.dw * 100u);
}

static void output_ask(scpi_call_t &call) {
    if (bench_out_known()) {
        scpi_answer(call, bench.on ? "1" : "0");
        return;
    }
    scpi_answer(call, not_a_number);
    scpi_fail(call.client, SCPI_STALE, "the output's state is not known");
}

static void energy(scpi_call_t &call) {
    u64 mwh = 0;
    if (bench_energy(&mwh)) {
        scpi_answer(call, std::to_string(mwh / 1000) + scpi_format(".%03u", (u32)(mwh % 1000)));
        return;
    }
    scpi_answer(call, not_a_number);
    scpi_fail(call.client, SCPI_STALE, "no energy from the box");
}

// Statistics of the session, from all reports since the last reset.
using stats_read_t = u64 (*)(const trend_stats_t &stats); // returns thousandths

template <stats_read_t READ> static void statistic(scpi_call_t &call) {
    trend_stats_t stats;
    session_stats(&stats);
    if (stats.any) {
        const u64 value = READ(stats);
        scpi_answer(call, std::to_string(value / 1000) + scpi_format(".%03u", (u32)(value % 1000)));
        return;
    }
    scpi_answer(call, not_a_number);
    scpi_fail(call.client, SCPI_STALE, "nothing has been reported in this session");
}

static u64 stats_charge(const trend_stats_t &stats) {
    return stats.mah;
}

static u64 stats_time(const trend_stats_t &stats) {
    return stats.ms;
}

template <trend_what_e WHAT> static u64 stats_low(const trend_stats_t &stats) {
    return stats.low[WHAT];
}

template <trend_what_e WHAT> static u64 stats_high(const trend_stats_t &stats) {
    return stats.high[WHAT];
}

// Recording does not affect the box, so the client need not hold the panel.
static void record_set(scpi_call_t &call) {
    bool on = false;
    if (!scpi_param_flag(call, 0, &on)) {
        return;
    }
    if (!on) {
        record_stop();
    } else if (!record_runs() && !record_start()) {
        scpi_fail(call.client, SCPI_DEVICE, std::string("no recording: ") + record.why);
    }
}

static void record_ask(scpi_call_t &call) {
    scpi_answer(call, record_runs() ? "1" : "0");
}

static void record_name_ask(scpi_call_t &call) {
    scpi_answer(call, scpi_quoted(record.name ? record.name : ""));
}

static void catalog(scpi_call_t &call) {
    static constexpr const char *types[] = {"FIX", "PPS", "AVS", "EPR"};
    std::string list;
    for (u8 i = 0; i < RAIL_MAX; i++) {
        if (bench_rail_usable(i)) {
            const prof_t &rail = bench.rails.rail[i];
            list += std::string(list.empty() ? "" : ",") + std::to_string(i) + "," + types[rail.type] + "," +
                    scpi_milli(rail.vmin) + "," + scpi_milli(rail.vmax) + "," + scpi_milli(rail.imax);
        }
    }
    if (list.empty()) {
        scpi_fail(call.client, SCPI_STALE, "the rails are not known");
    }
    scpi_answer(call, list.empty() ? not_a_number : list);
}

// The table -------------------------------------------------------------------------------------------------------
#define LEVEL "[:LEVel][:IMMediate][:AMPLitude]"
// clang-format off
const scpi_row_t scpi_rows[] = {
    // header                               least most sets  waits              run, turns_off
    {"*IDN?",                                  0, 0, false, nullptr,            idn},
    {"*RST",                                   0, 0, false, nullptr,            rst, always},
    {"*CLS",                                   0, 0, false, nullptr,            cls},
    {"*ESE",                                   1, 1, false, nullptr,            byte_set<&scpi_client_t::ese>},
    {"*ESE?",                                  0, 0, false, nullptr,            byte_ask<&scpi_client_t::ese>},
    {"*ESR?",                                  0, 0, false, nullptr,            esr},
    {"*OPC",                                   0, 0, false, nullptr,            opc},
    {"*OPC?",                                  0, 0, false, scpi_settling,      opc_ask},
    {"*SRE",                                   1, 1, false, nullptr,            byte_set<&scpi_client_t::sre>},
    {"*SRE?",                                  0, 0, false, nullptr,            byte_ask<&scpi_client_t::sre>},
    {"*STB?",                                  0, 0, false, nullptr,            stb},
    {"*TST?",                                  0, 0, false, nullptr,            tst},
    {"*WAI",                                   0, 0, false, scpi_settling,      nothing},
    {":SYSTem:ERRor[:NEXT]?",                  0, 0, false, nullptr,            error_next},
    {":SYSTem:ERRor:COUNt?",                   0, 0, false, nullptr,            error_count},
    {":SYSTem:VERSion?",                       0, 0, false, nullptr,            version},
    {":SYSTem:REMote",                         0, 0, false, nullptr,            remote},
    {":SYSTem:REMote?",                        0, 0, false, nullptr,            remote_ask},
    {":SYSTem:LOCal",                          0, 0, false, nullptr,            local},
    {":MEASure[:SCALar]:VOLTage[:DC]?",        0, 0, false, scpi_measure_waits, volts},
    {":MEASure[:SCALar]:CURRent[:DC]?",        0, 0, false, scpi_measure_waits, amperes},
    {":MEASure[:SCALar]:POWer[:DC]?",          0, 0, false, scpi_measure_waits, watts},
    {":FETCh[:SCALar]:VOLTage[:DC]?",          0, 0, false, nullptr,            volts},
    {":FETCh[:SCALar]:CURRent[:DC]?",          0, 0, false, nullptr,            amperes},
    {":FETCh[:SCALar]:POWer[:DC]?",            0, 0, false, nullptr,            watts},
    {"[:SOURce]:VOLTage" LEVEL,                1, 1, true,  scpi_settling,      scpi_volt},
    {"[:SOURce]:VOLTage" LEVEL "?",            0, 1, false, scpi_settling,      scpi_volt_ask},
    {"[:SOURce]:CURRent" LEVEL,                1, 1, true,  scpi_settling,      scpi_curr},
    {"[:SOURce]:CURRent" LEVEL "?",            0, 1, false, scpi_settling,      scpi_curr_ask},
    {":APPLy",                                 1, 2, true,  scpi_settling,      scpi_apply},
    {":APPLy?",                                0, 0, false, scpi_settling,      scpi_apply_ask},
    {":OUTPut[:STATe]",                        1, 1, false, scpi_output_waits,  scpi_output, scpi_output_turns_off},
    {":OUTPut[:STATe]?",                       0, 0, false, scpi_settling,      output_ask},
    {":SYSTem:RAIL:CATalog?",                  0, 0, false, nullptr,            catalog},
    {":SYSTem:RAIL[:SELect]",                  1, 3, true,  scpi_settling,      scpi_rail},
    {":SYSTem:RAIL[:SELect]?",                 0, 0, false, scpi_settling,      scpi_rail_ask},
    {"[:SENSe]:SESSion:ENERgy?",               0, 0, false, nullptr,            energy},
    {"[:SENSe]:SESSion:CHARge?",               0, 0, false, nullptr,            statistic<stats_charge>},
    {"[:SENSe]:SESSion:TIME?",                 0, 0, false, nullptr,            statistic<stats_time>},
    {"[:SENSe]:SESSion:VOLTage:MINimum?",      0, 0, false, nullptr,            statistic<stats_low<TREND_MV>>},
    {"[:SENSe]:SESSion:VOLTage:MAXimum?",      0, 0, false, nullptr,            statistic<stats_high<TREND_MV>>},
    {"[:SENSe]:SESSion:CURRent:MINimum?",      0, 0, false, nullptr,            statistic<stats_low<TREND_MA>>},
    {"[:SENSe]:SESSion:CURRent:MAXimum?",      0, 0, false, nullptr,            statistic<stats_high<TREND_MA>>},
    {":TRACe:RECord[:STATe]",                  1, 1, true,  nullptr,            record_set},
    {":TRACe:RECord[:STATe]?",                 0, 0, false, nullptr,            record_ask},
    {":TRACe:RECord:NAME?",                    0, 0, false, nullptr,            record_name_ask},
    {"[:SENSe]:SESSion:RESet",                 0, 0, true,  nullptr,            scpi_session_reset},
};
// clang-format on
const u32 scpi_row_count = sizeof(scpi_rows) / sizeof(scpi_rows[0]);
