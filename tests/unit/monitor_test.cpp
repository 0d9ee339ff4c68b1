// The line's traffic in words: what a person looks for when host and panel do not understand each other.
#include "decode.h"
#include "host_frame.h"
#include "temp_project.h"
#include "zof_test.h"

static const bytes read_size = {0x5A, 0xA5, 0x03, 0x11, 0xB1, 0x06};
static const bytes size_is = {0x5A, 0xA5, 0x07, 0x11, 0xB1, 0x06, 0x01, 0x40, 0x00, 0xF0};

// What a stream says, a line a piece.
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

TEST_CASE("the monitor tells every kind of frame in words") {
    CHECK(said(read_size, true) == "read  view.size\n");
    CHECK(said(size_is, false) == "value view.size width=320 height=240\n");
    CHECK(said({0x5A, 0xA5, 0x0C, 0x22, 0xB2, 0, 0, 0, 1, 0, 5, '1', '"', 'V', 0}, true) ==
          "write label.text view=1 control=5 text=\"1\\x22V\"\n");
    CHECK(said({0x5A, 0xA5, 0x05, 0x22, 0xB0, 0x04, 0x00, 0x00}, false) == "ack   system.touch_config answer=0\n");
    CHECK(said({0x5A, 0xA5, 0x0C, 0x22, 0xB1, 0x05, 0, 1, 0xFF, 0x00, 0x80, 0x40}, true) ==
          "!! cut short: length says 12, 12 bytes came\n");
    CHECK(said({0x5A, 0xA5, 0x09, 0x22, 0xB1, 0x05, 0, 1, 0xFF, 0x00, 0x80, 0x40}, true) ==
          "write view.bg_color view=1 argb=0xFF008040\n");
    CHECK(said({0x5A, 0xA5, 0x05, 0x11, 0xB1, 0x01, 0x03, 0xFF}, false) == "value view.displayed layer=3 refused\n");
}

TEST_CASE("the monitor marks what a panel would not take") {
    CHECK(said({0x5A, 0xA5, 0x03, 0x11, 0xC0, 0x00}, true) == "read  ?  !! no such row\n");
    CHECK(said({0x5A, 0xA5, 0x05, 0x22, 0xB1, 0x00, 0x01, 0}, true) == "write view.display view=256\n");
    CHECK(said({0x5A, 0xA5, 0x04, 0x22, 0xB1, 0x00, 0x01}, true) == "write view.display  !! fields are missing\n");
    CHECK(said({0x5A, 0xA5, 0x04, 0x11, 0xB1, 0x06, 0x01}, true) == "read  view.size  !! bytes behind the fields\n");
    CHECK(said({0x5A, 0xA5, 0x01, 0x11}, true) == "!! length 1 has no room for a command\nnoise, 1 bytes\n");
    CHECK(said(join({{1, 2, 0x5A}, read_size}), true) == "noise, 3 bytes\nread  view.size\n");
    const bytes with_crc = {0x5A, 0xA5, 0x05, 0x11, 0xB1, 0x06, 0x39, 0xA9};
    CHECK(said(with_crc, true, true) == "read  view.size\n");
    bytes wrong = with_crc;
    wrong[5] ^= 1;
    CHECK(said(join({wrong, with_crc}), true, true) == "!! CRC is 39A9, should be 2988\nread  view.size\n");
    wrong = with_crc;
    wrong[2] = 0x0C; // swallows the next one's head
    CHECK(contains(said(join({wrong, with_crc}), true, true), "\nread  view.size\n"));
    wrong[2] = 0x40; // more than comes
    CHECK(said(join({wrong, with_crc}), true, true) == "!! cut short: length says 64, 8 bytes came\nread  view.size\n");
}

TEST_CASE("the monitor puts frames together from any two pieces") {
    const bytes stream = join({{9, 9}, read_size, size_is});
    const std::string whole = said(stream, false);
    for (size_t at = 0; at <= stream.size(); at++) {
        CAPTURE(at);
        CHECK(said(stream, false, false, at) == whole);
    }
}
