// SCPI without sockets: answers, errors, and what is sent to the box.
#include "scpi_box.h"

#include "bench/bench_scpi_in.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "bench/bench_record.h"
#include "eventually.h"
#include "temp_project.h"
#include "zof_test.h"

using reports = std::vector<std::pair<u16, u16>>;

// Sends a line and lets time pass until it has ended.
static std::string say(const std::string &line, scpi_client_t &client = scpi_box.client) {
    const std::string text = line + "\n";
    size_t at = scpi_feed(&client, text.data(), text.size());
    for (u32 i = 0; i < 400 && (at < text.size() || scpi_waits(&client)); i++) {
        scpi_box_pass(SCPI_BOX_STEP_MS);
        at += scpi_feed(&client, text.data() + at, text.size() - at);
    }
    std::string out = std::exchange(client.out, "");
    out.resize(out.empty() ? 0 : out.size() - 1);
    return out;
}

// Code and text of the next error.
static std::string error(scpi_client_t &client = scpi_box.client) {
    return say("SYST:ERR?", client);
}

// Returns the code of the only queued error; 0 for an empty queue, -1 for several errors.
static int code(scpi_client_t &client = scpi_box.client) {
    const int first = std::stoi(error(client));
    return error(client) == "0,\"No error\"" ? first : -1;
}

static reports sent() {
    return std::exchange(scpi_box.sent, {});
}

TEST_CASE("scpi: headers and parameters are read as the standard requires, and each mistake has its error") {
    scpi_box_open();
    static const struct {
        const char *line, *answer;
        int code;
    } rows[] = {
        {"*TST?;*STB?;*ESR?;*ESE?;*SRE?;SYST:ERR:COUN?", "0;0;0;0;0;0", 0},
        {"*idn?", "zof,bench panel,0,0", 0},
        {"  SYSTEM:VERSION?\r", "1999.0", 0},
        {":syst:vers?;VERS?;:SYST:VERS?", "1999.0;1999.0;1999.0", 0},
        {"SYST:VERS?;*OPC?;VERS?", "1999.0;1;1999.0", 0}, // a common command leaves the path as it is
        {"MEAS:SCAL:VOLT:DC?;CURR?", "0.000", -113},      // now there is a path MEAS:SCAL:VOLT
        {"MEAS:VOLT?;CURR?;:FETCH:POWER?", "0.000;0.000;0.000", 0},
        {"SOURCE1:VOLTAGE:LEVEL:IMMEDIATE:AMPLITUDE?", "5.000", 0},
        {"VOLT?;;CURR?;", "5.000;5.000", 0},
        {"SOUR:VOLT?;CURR?;:APPL?", "5.000;5.000;5.000,5.000", 0},
        {"VOLT? MAX;CURR? maximum;VOLT? MIN;VOLT? DEF", "48.000;5.000;3.300;5.000", 0},
        {"", "", 0},
        {" \t ; ;", "", 0},
        {"VOLTA?", "", -113},
        {"VOL?", "", -113},
        {"MEAS?", "", -113},
        {"MEAS:VOLT", "", -113},
        {"SOUR2:VOLT?", "", -114},
        {"VOLT5", "", -114},
        {"SYST::VERS?", "", -102},
        {":", "", -102},
        {"?", "", -102},
        {"*", "", -113},
        {"ABCDEFGHIJKLM?", "", -112},
        {"A:B:C:D:E:F:G:H:I?", "", -113},
        {"VOLT,5", "", -111},
        {"VOLT\"5\"", "", -111},
        {"VOLT@5", "", -101},
        {"\xC3\xA4?", "", -101},
        {"VOLT", "", -109},
        {"VOLT 5,6", "", -108},
        {"*IDN? 1", "", -108},
        {"VOLT 1,2,3,4,5,6", "", -108},
        {"APPL 5,", "", -102},
        {"APPL ,5", "", -102},
        {"VOLT $", "", -101},
        {"VOLT \"5\"", "", -104},
        {"VOLT \"5;*IDN?", "", -151},
        {"VOLT \"5;\"\";6\"x", "", -151},
        {"VOLT +-5", "", -121},
        {"VOLT -inf", "", -121},
        {"VOLT 1e999", "", -123},
        {"VOLT 5 A", "", -131},
        {"VOLT 5 MVV", "", -131},
        {"VOLT LOTS", "", -224},
        {"VOLT? 5", "", -104},
        {"OUTP MAYBE", "", -224},
        {"OUTP 2", "", -222},
        {"OUTP 1 V", "", -138},
        {"*ESE 256", "", -222},
        {"*ESE -1", "", -222},
        {"*ESE", "", -109},
    };
    for (const auto &row : rows) {
        CAPTURE(row.line);
        CHECK(say(row.line) == row.answer);
        CHECK(code() == row.code);
        CHECK(sent().empty());
    }
}

TEST_CASE("scpi: set commands choose an adjustable rail before a fixed one, then the one with the lower top voltage") {
    static const struct {
        const char *line;
        const char *set; // rail, volts and amperes at the end
    } rows[] = {
        {"SYST:RAIL:SEL 7", "7,3.300,1.000"},
        {"SYST:RAIL:SEL 7,9", "7,9.000,1.000"},
        {"VOLT 9", "5,9.000,5.000"},
        {"VOLT 9000mV", "5,9.000,5.000"},
        {"VOLT 0.009 kV", "5,9.000,5.000"},
        {"VOLT +.9E1", "5,9.000,5.000"},
        {"APPL 9.1,1", "5,9.100,1.000"},
        {"APPL 11.02,1", "6,11.020,1.000"},
        {"APPL 18,3", "11,18.000,3.000"},
        {"APPL 18.02,3", "7,18.020,3.000"},
        {"APPL 28,5", "12,28.000,5.000"},
        {"APPL 48,5", "10,48.000,5.000"},
        {"APPL MAX,MAX", "10,48.000,5.000"},
        {"APPL MIN,MIN", "5,3.300,0.050"},
        {"CURR 0.15", "5,5.000,0.150"},
        {"SYST:RAIL:SEL 11,20,3.25", "11,20.000,3.250"},
        {"SYST:RAIL:SEL 2", "2,12.000,5.000"},
        {"SYST:RAIL 2,12,5", "2,12.000,5.000"},
        {"VOLT 9;CURR 1;VOLT 10;CURR 2", "5,10.000,2.000"},
    };
    for (const auto &row : rows) {
        CAPTURE(row.line);
        scpi_box_open();
        CHECK(say(row.line) == "");
        CHECK(say("*OPC?;:SYST:RAIL:SEL?") == std::string("1;") + row.set);
        CHECK(code() == 0);
        CHECK(std::string(bench.remote) == "192.168.1.20");
    }
}

TEST_CASE("scpi: a value that no rail can supply is refused with the nearest ones, and nothing is sent") {
    static const struct {
        const char *line, *text;
    } rows[] = {
        {"VOLT 60", "60 V with 5 A: the nearest is 48 V"},
        {"VOLT 9.01", "9.01 V with 5 A: the nearest are 9 V and 9.02 V"},
        {"VOLT 9.0199999", "9.02 V with 5 A: the nearest are 9 V and 9.02 V"},
        {"VOLT 1e300", "1e+300 V with 5 A: the nearest is 48 V"},
        {"VOLT -0.02", "-0.02 V"},
        {"VOLT 0", "0 V with 5 A: the nearest is 3.3 V"},
        {"VOLT 30", "30 V with 5 A: the nearest are 28 V and 36 V"},
        {"CURR 1.02", "1.02 A with 5 V: the nearest are 1 A and 1.05 A"},
        {"CURR 9", "9 A with 5 V: the nearest is 5 A"},
        {"APPL 48,1", "1 A with 48 V: the nearest is 5 A"}, // a fixed rail has no lower limit
        {"APPL 40,1", "40 V with 1 A: the nearest is 28 V"},
        {"APPL 5,9", "9 A with 5 V: the nearest is 5 A"},
        {"SYST:RAIL:SEL 11,15.05", "15.05 V: the nearest are 15 V and 15.1 V"},
        {"SYST:RAIL:SEL 2,11", "11 V: the nearest is 12 V"},
        {"SYST:RAIL:SEL 13", "0 to 12"},
    };
    scpi_box_open();
    for (const auto &row : rows) {
        CAPTURE(row.line);
        CHECK(say(row.line) == "");
        CHECK(error() == "-222,\"Data out of range;" + std::string(row.text) + "\"");
        CHECK((sent().empty() && bench.remote[0] == '\0'));
    }
    scpi_box_open(board_default_rails(3));
    say("SYST:RAIL:SEL 3");
    CHECK(error() == "-222,\"Data out of range;there is no rail 3\"");
    say("CURR 1");
    CHECK(error() == "-222,\"Data out of range;1 A with 5 V: the nearest is 5 A\"");
    CHECK(say("SYST:RAIL:CAT?") == "0,FIX,5.000,5.000,5.000,1,FIX,9.000,9.000,5.000,2,FIX,12.000,12.000,5.000");
}

TEST_CASE("scpi: after an error the rest of a line has no effect, except to turn off") {
    scpi_box_open();
    for (const char *line :
         {"VOLT 60;CURR 1;OUTP ON;*OPC?", "FOO;APPL 9,1;OUTP 1;*OPC?", "OUTP X;SESS:RES;SYST:RAIL:SEL 5;*OPC?"}) {
        CAPTURE(line);
        CHECK(say(line) == "1");
        CHECK(code() != 0);
        CHECK(sent().empty());
    }
    CHECK(say("OUTP ON;*OPC?;:OUTP?") == "1;1");
    sent();
    for (const char *line : {"VOLT 60;OUTP OFF", "FOO;*RST", "VOLT \";OUTP OFF;\";OUTP 0"}) {
        say(line);
        CHECK(sent() == reports{{REG_OUT_REQ, 0}});
    }
    CHECK(say("*WAI;OUTP?") == "0");
}

TEST_CASE("scpi: a measurement after a change reflects the change") {
    scpi_box_open();
    CHECK(say("APPL 9,1;OUTP ON") == "");
    scpi_box_pass(2000);
    CHECK(say("MEAS:VOLT?;CURR?;POW?") == "9.000;0.900;8.100");
    const u64 before = bench.now;
    CHECK(say("VOLT 5;:FETC:VOLT?") == "9.000");
    CHECK(bench.now - before < 100);
    CHECK(std::stod(say("MEAS:VOLT?")) < 9);
}

TEST_CASE("scpi: the session and recordings are the same as on the Trend page") {
    scpi_box_open();
    trend_clear();
    CHECK(say("SESS:TIME?") == "9.91E37");
    CHECK(code() == -230);
    CHECK(say("APPL 9,1;OUTP ON;*OPC?") == "1");
    scpi_box_pass(20000);
    CHECK(say("SENS:SESS:VOLT:MAX?;MIN?;:SESS:CURR:MAX?;:SESS:CHAR?") == "9.000;0.000;0.900;0.005");
    CHECK(std::stod(say("SESS:TIME?")) > 19);
    record_folder_set("/nowhere");
    say("TRAC:REC ON");
    CHECK((code() == -300 && say("TRAC:REC?") == "0"));
    const temp_project_t folder;
    record_folder_set(folder.top.c_str());
    CHECK(say("TRAC:REC 1;REC?") == "1");
    const std::string name = say("TRAC:REC:NAME?");
    scpi_box_pass(1000);
    CHECK(say("TRAC:REC OFF;REC?") == "0");
    CHECK(eventually([] { // its thread writes the last lines, and is joined
        bench_tick();
        return record.state == RECORD_OFF;
    }));
    CHECK((code() == 0 && std::filesystem::exists(folder.top + "/" + name.substr(1, name.size() - 2))));
}

TEST_CASE("scpi: operations end when the box confirms, and with an error when it does not within two seconds") {
    scpi_box_open();
    CHECK(say("*OPC;*ESR?") == "1");
    u64 before = bench.now;
    CHECK(say("VOLT 9;*OPC;*ESR?;:OUTP ON;*OPC?") == "0;1");
    CHECK((bench.now - before < 100 && say("*ESR?") == "1" && code() == 0));
    scpi_box.deaf = true;
    before = bench.now;
    CHECK(say("VOLT 12;*OPC?;:APPL?") == "1;9.000,5.000");
    CHECK((bench.now - before >= 2000 && bench.now - before < 2100));
    CHECK(error() == "-365,\"Time out error;the box has not confirmed 12 V, 5 A\"");
    CHECK(say("VOLT 9;*OPC?") == "1"); // as it was before, but not confirmed this time
    CHECK(code() == -365);
    CHECK(say("OUTP OFF;*OPC?;:OUTP?") == "1;1");
    CHECK(error() == "-365,\"Time out error;the output is still on\"");
    sent();
    CHECK(say("VOLT 12;OUTP OFF;OUTP ON;*OPC?") == "1"); // on waits for off; nothing turns on after a failure
    CHECK(sent() == reports{{REG_ADJ_MV, 12000}, {REG_ADJ_MA, 5000}, {REG_RAIL_SELECT, 6}, {REG_OUT_REQ, 0}});
    scpi_box.deaf = false;
    say("OUTP OFF;*CLS;*OPC?");
    before = bench.now;
    CHECK(say("OUTP ON;*OPC?;:OUTP?") == "1;1"); // not before the panel's own pause after off
    CHECK((bench.now - before > 500 && code() == 0));
}

TEST_CASE("scpi: off in a later line takes effect at once, and commands before it cannot turn on") {
    static const struct {
        const char *lines, *answers;
        bool auto_on, off;
    } rows[] = {
        {"VOLT 12\n*OPC?\nOUTP OFF\n*TST?\n", "1\n0\n", false, true},
        {"VOLT 12\nSYST:VERS?;*OPC?\nVOLT?;OUTP 0\n", "1999.0;1\n9.000\n", false, true},
        {"VOLT 12\nOUTP ON\n*RST\n", "", false, true},
        {"VOLT 12\nVOLT 5\nOUTP OFF\n", "", true, true},
        {"VOLT 12\n*OPC?;OUTP OFF\n", "1\n", false, false}, // one line keeps its order
        {"VOLT 12\n*OPC?\nOUTP MAYBE;:OUTP OFF?;RST\n", "1\n", false, false},
        {"VOLT 12\n*OPC?\nOUTP OFF", "1\n", false, false}, // may become OFFER
    };
    for (const auto &row : rows) {
        CAPTURE(row.lines);
        scpi_box_open();
        bench_take(REG_AUTO_ARM, row.auto_on);
        say("VOLT 9;*OPC?");
        say("OUTP OFF;*OPC?");
        sent();
        scpi_box.deaf = true;
        std::string left = row.lines;
        left.erase(0, scpi_feed(&scpi_box.client, left.data(), left.size()));
        CHECK((sent().back() == std::pair<u16, u16>{REG_OUT_REQ, 0}) == row.off);
        scpi_box_pass(SCPI_BOX_STEP_MS);
        for (u32 i = 0; i < 400 && (!left.empty() || scpi_waits(&scpi_box.client)); i++) {
            left.erase(0, scpi_feed(&scpi_box.client, left.data(), left.size()));
            scpi_box_pass(SCPI_BOX_STEP_MS);
        }
        for (const auto &[addr, value] : sent()) {
            CHECK((addr == REG_OUT_REQ ? value == 0 : !row.auto_on));
        }
        CHECK(scpi_box.client.out == row.answers);
    }
}

TEST_CASE("scpi: stale readings are reported as not a number, and set commands are refused") {
    scpi_box_open();
    scpi_box.mute = true;
    scpi_box_pass(1500);
    CHECK(say("MEAS:VOLT?") == "0.000");
    sent();
    say("VOLT 9");
    CHECK(error().substr(0, 55) == "-300,\"Device-specific error;no data from the box for 1.");
    scpi_box_pass(1000);
    for (const char *line :
         {"MEAS:VOLT?", "FETC:CURR?", "MEAS:POW?", "OUTP?", "VOLT?", "CURR?", "SESS:ENER?", "SYST:RAIL:CAT?"}) {
        CAPTURE(line);
        CHECK(say(line) == "9.91E37");
        CHECK(code() == -230);
    }
    CHECK(say("APPL?;*TST?") == "9.91E37,9.91E37;1");
    CHECK(say("SYST:RAIL:SEL?") == "9.91E37,9.91E37,9.91E37");
    say("*CLS");
    for (const char *line : {"VOLT 9", "CURR 1", "APPL 9,1", "SYST:RAIL:SEL 1", "OUTP ON", "SESS:RES"}) {
        CAPTURE(line);
        say(line);
        CHECK(code() == -300);
    }
    CHECK(sent().empty());
    say("OUTP OFF");
    CHECK((sent() == reports{{REG_OUT_REQ, 0}} && code() == -300)); // sent, but not confirmed
}

TEST_CASE("scpi: without known set values a voltage opens with the rail's current, and nothing turns on blindly") {
    scpi_box_open({{RAIL_PPS, 3300, 11000, 3000}, {RAIL_FIX, 20000, 20000, 2250}});
    CHECK(say("APPL?") == "9.91E37,9.91E37");
    CHECK(code() == -230);
    say("OUTP ON");
    CHECK(error() == "-221,\"Settings conflict;what is set is not known; APPL first\"");
    CHECK(sent().empty());
    say("CURR 0.5"); // kept for the voltage
    CHECK((code() == 0 && sent().empty()));
    CHECK(say("VOLT 9;*OPC?;:APPL?") == "1;9.000,0.500");
    say("CURR 9");
    CHECK(code() == -222);
    say("APPL 20,2.25;*OPC?");
    CHECK(say("VOLT 9;*OPC?;:APPL?") == "1;9.000,2.250");
    scpi_box_open({{RAIL_PPS, 3300, 11000, 3000}});
    CHECK(say("VOLT 9;*OPC?;:APPL?;:OUTP ON;*OPC?") == "1;9.000,1.000;1"); // after a restart no current has been used
}

TEST_CASE("scpi: a client that sets a value holds the panel until Local, SYST:LOC or the end of its connection") {
    scpi_box_open();
    static scpi_client_t second;
    REQUIRE(scpi_open(&second, "192.168.1.21"));
    say("*IDN?;MEAS:VOLT?;OUTP OFF", second);
    CHECK(bench.remote[0] == '\0');
    say("VOLT 9;*OPC?");
    CHECK((std::string(bench.remote) == "192.168.1.20" && !bench_press()));
    say("CURR 1;*OPC?", second);
    CHECK(std::string(bench.remote) == "192.168.1.21");
    scpi_close(&second);
    CHECK(std::string(bench.remote) == "192.168.1.20");
    REQUIRE(scpi_open(&second, "192.168.1.21"));
    bench.remote[0] = '\0'; // Local
    sent();
    for (scpi_client_t *client : {&scpi_box.client, &second}) {
        for (const char *line :
             {"VOLT 5", "CURR 1", "APPL 5,1", "OUTP ON", "SYST:RAIL:SEL 0", "SESS:RES", "SYST:LOC;:VOLT 5"}) {
            CAPTURE(line);
            say(line, *client);
            CHECK(code(*client) == -203);
        }
    }
    CHECK((sent().empty() && bench.remote[0] == '\0'));
    say("OUTP OFF");
    CHECK((sent() == reports{{REG_OUT_REQ, 0}} && code() == 0));
    say("SYST:REM;:VOLT 5;*OPC?");
    CHECK((code() == 0 && std::string(bench.remote) == "192.168.1.20"));
    say("SYST:LOC");
    CHECK(bench_press());
    say("SYST:REM");
    scpi_close(&scpi_box.client);
    scpi_close(&second);
    CHECK(bench_press());
}

TEST_CASE("scpi: sixteen clients are served, each with its own errors") {
    scpi_box_open();
    static scpi_client_t more[SCPI_CLIENTS];
    for (u32 i = 0; i + 1 < SCPI_CLIENTS; i++) {
        REQUIRE(scpi_open(&more[i], "127.0.0.1"));
    }
    CHECK(!scpi_open(&more[SCPI_CLIENTS - 1], "127.0.0.1"));
    say("FOO", more[3]);
    CHECK((code(more[4]) == 0 && code(more[3]) == -113));
    for (u32 i = 0; i + 1 < SCPI_CLIENTS; i++) {
        scpi_close(&more[i]);
    }
}

TEST_CASE("scpi: the error queue holds twenty, and the registers follow it") {
    scpi_box_open();
    CHECK(say("*ESE 48;*SRE 36;*ESE?;*SRE?;*STB?") == "48;36;0");
    for (u32 i = 0; i < 25; i++) {
        say("FOO@");
    }
    CHECK(say("*STB?;:SYST:ERR:COUN?;:*ESR?") == "100;20");
    CHECK(say("*ESR?;*ESR?;*STB?") == "40;0;68");
    for (u32 i = 0; i < 19; i++) {
        CHECK(error().substr(0, 5) == "-101,");
    }
    CHECK(error() == "-350,\"Queue overflow\"");
    CHECK(error() == "0,\"No error\"");
    say("VOLT 99");
    CHECK(say("*ESR?;*CLS;*STB?") == "16;0");
}

TEST_CASE("scpi: a line may arrive in any pieces, and one that is too long is skipped up to its end") {
    scpi_box_open();
    const std::string text = "VOLT 9;*OPC?\nVOLT?\r\n*IDN?\n";
    std::string whole;
    for (size_t split = 0; split <= text.size(); split++) {
        const std::string a = text.substr(0, split), b = text.substr(split);
        std::string out;
        for (const std::string &part : {a, b}) {
            for (size_t at = 0; at < part.size();) {
                at += scpi_feed(&scpi_box.client, part.data() + at, part.size() - at);
                scpi_box_pass(SCPI_BOX_STEP_MS);
            }
        }
        whole = whole.empty() ? scpi_box.client.out : whole;
        CHECK(std::exchange(scpi_box.client.out, "") == whole);
    }
    CHECK(whole.substr(0, 8) == "1\n9.000\n");
    const std::string fits = "*IDN?" + std::string(SCPI_LINE_MAX - 5, ' ');
    CHECK(say(fits + "\r") != "");
    CHECK(code() == 0);
    sent();
    CHECK(say("OUTP ON;" + fits) == "");
    CHECK((code() == -363 && sent().empty()));
    CHECK(say(std::string(100000, '\0')) == "");
    CHECK(code() == -363);
    CHECK(say("SYST:VERS?") == "1999.0");
}

TEST_CASE("scpi: the manual lists every command") {
    std::stringstream manual;
    manual << std::ifstream(ZOF_SOURCE_DIR "/docs/scpi.md").rdbuf();
    for (u32 i = 0; i < scpi_row_count; i++) {
        std::string header = scpi_rows[i].header;
        header.erase(0, header[0] == ':');
        header = header.rfind("[:", 0) == 0
                     ? "[" + header.substr(2, header.find(']') - 2) + ":]" + header.substr(header.find(']') + 2)
                     : header;
        CAPTURE(header);
        CHECK(manual.str().find("`" + header) != std::string::npos);
    }
}
