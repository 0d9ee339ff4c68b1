#include "recording.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "tool_file.h"

std::string recording_head(const std::string &head, bool crc) {
    return "# zof monitor head=" + head + " crc=" + (crc ? "1" : "0") + "\n";
}

std::string recording_line(const piece &p) {
    return std::to_string(p.at_us) + (p.from_host ? " host " : " panel ") + hex_text(p.data) + "  # " + p.text + "\n";
}

static constexpr int64_t AT_MAX_US = 1000000000000000; // thirty years

static bool parse_line(const std::string &text, recorded_line &out) {
    std::istringstream in(text.substr(0, text.find('#')));
    std::string who, byte;
    if (!(in >> out.at_us >> who) || out.at_us < 0 || out.at_us > AT_MAX_US || (who != "host" && who != "panel")) {
        return false;
    }
    out.from_host = who == "host";
    while (in >> byte) {
        char *end;
        const unsigned long value = strtoul(byte.c_str(), &end, 16);
        if (*end || value > 0xFF) {
            return false;
        }
        out.data.push_back((uint8_t)value);
    }
    return !out.data.empty();
}

// Takes a line. Returns false unless it is the head, a comment, blank, or a piece.
static bool line_take(const std::string &text, int number, recording &out) {
    char head[5];
    int crc;
    recorded_line line = {.number = number};
    if (sscanf(text.c_str(), "# zof%*1[ _]monitor head=%4s crc=%d", head, &crc) == 2) {
        out.head = head;
        out.crc = crc != 0;
        return true;
    }
    if (text.find_first_not_of(" \t\r") == std::string::npos || text[0] == '#') {
        return true;
    }
    if (!parse_line(text, line)) {
        return false;
    }
    out.lines.push_back(line);
    return true;
}

std::string recording_read(const std::string &file, recording &out) {
    std::string content, text;
    const std::string reason = tool_file_read(file, content);
    if (!reason.empty()) {
        return file + ": " + reason;
    }
    std::istringstream in(content);
    for (int number = 1; std::getline(in, text); number++) {
        if (!line_take(text, number, out)) {
            return file + ":" + std::to_string(number) + ": expected: MICROSECONDS host|panel BYTES";
        }
    }
    return "";
}

piece recording_piece(const recorded_line &line, const zof_hmi_cmd_analys_t &settings) {
    splitter s = {.from_host = line.from_host};
    std::vector<piece> all = split(s, settings, line.data, line.at_us, true);
    return all.size() == 1 ? all[0] : piece{line.at_us, line.from_host, line.data, "noise", "bytes"};
}

// Walks both lists side by side. Where they differ, it looks for the nearest point at which they match again;
// everything before that point is missing or new.
int recording_compare(const std::string &file, const std::vector<std::pair<int, piece>> &then,
                      const std::vector<piece> &now) {
    enum { LOOK = 50 };
    int differences = 0;
    size_t i = 0, k = 0;
    const auto same = [&](size_t a, size_t b) {
        return a < then.size() && b < now.size() && then[a].second.data == now[b].data;
    };
    while (i < then.size() || k < now.size()) {
        if (same(i, k)) {
            i++, k++;
            continue;
        }
        size_t skip = 1;
        while (skip < LOOK && !same(i + skip, k) && !same(i, k + skip) && !same(i + skip, k + skip)) {
            skip++;
        }
        const bool missing = !same(i, k + skip), besides = !same(i + skip, k);
        for (size_t n = 0; n < skip; n++) {
            if (missing && i < then.size()) {
                printf("%s:%d: was  %s   [%s]\n", file.c_str(), then[i].first, then[i].second.text.c_str(),
                       hex_text(then[i].second.data).c_str());
                i++, differences++;
            }
            if (besides && k < now.size()) {
                printf("%*s  is   %s   [%s]\n", (int)file.size() + 2, "", now[k].text.c_str(),
                       hex_text(now[k].data).c_str());
                k++, differences += !missing;
            }
        }
    }
    return differences;
}
