// The decoded traffic of a line, as used to debug the communication of host and panel.
#include "decode.h"
#include "host_frame.h"
#include "temp_project.h"

// Returns the description of a stream, one line per piece.
static std::string said(const bytes &data, bool from_host, bool crc = false, size_t cut_at = 0) {
    const zof_hmi_cmd_analys_t settings = decode_settings(0x5A, 0xA5, crc);
    splitter s = {.from_host = from_host};
    std::string out;
    const bytes parts[] = {{data.begin(), data.begin() + (long)cut_at}, {data.begin() + (long)cut_at, data.end()}, {}};
    for (int step = 0; step < 3; step++) {
        for (const piece &p : split(s, settings, parts[step], step * 10, step == 2)) {
            out += p.text + "\n";
        }
    }
    return out;
}

TEST_CASE("the monitor decodes every kind of frame, and marks frames that a panel would refuse") {
    const std::pair<bytes, std::string> rows[] = {
        // bytes after the head
        {{0x07, 0x11, 0xB1, 0x06, 0x01, 0x40, 0x00, 0xF0}, "value view.size width=320 height=240\n"},
        {{0x0A, 0x22, 0xB2, 0, 0, 0, 1, 0, 5, '"', 0}, "write label.text view=1 control=5 text=\"\\x22\"\n"},
        {{0x05, 0x22, 0xB0, 0x04, 0x00, 0x00}, "ack   system.touch_config answer=0\n"},
        {{0x0C, 0x22, 0xB1, 0x05, 0}, "!! cut short: length says 12, 7 bytes came\n"},
        {{0x05, 0x11, 0xB1, 0x01, 0x03, 0xFF}, "value view.displayed layer=3 refused\n"},
        {{0x03, 0x11, 0xC0, 0x00}, "read  ?  !! no such row\n"},
        {{0x04, 0x11, 0xB1, 0x06, 0x01}, "read  view.size  !! bytes after the fields\n"},
        {{0x01, 0x11}, "!! length 1 has no room for a command\nnoise, 1 bytes\n"},
    };
    for (const auto &[data, want] : rows) {
        CHECK(said(join({{0x5A, 0xA5}, data}), want[0] != 'v' && want[0] != 'a') == want);
    }
    const bytes good = {0x5A, 0xA5, 0x05, 0x11, 0xB1, 0x06, 0x39, 0xA9};
    bytes wrong = good;
    wrong[5] ^= 1;
    CHECK(said(join({wrong, good}), true, true) == "!! CRC is 39A9, should be 2988\nread  view.size\n");
    wrong[2] = 0x0C; // swallows the head of the next frame
    CHECK(contains(said(join({wrong, good}), true, true), "\nread  view.size\n"));
    const bytes stream = join({{9, 0x5A}, good, good});
    for (size_t at = 0; at <= stream.size(); at++) { // split in two at every byte
        CHECK(said(stream, true, true, at) == "noise, 2 bytes\nread  view.size\nread  view.size\n");
    }
}
