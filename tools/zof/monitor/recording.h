// Recordings of the monitor: text files with one line "MICROSECONDS host|panel BYTES  # description" per piece.
#ifndef ZOF_MONITOR_RECORDING_H
#define ZOF_MONITOR_RECORDING_H

#include <string>
#include <utility>
#include <vector>

#include "decode.h"

struct recorded_line {
    int64_t at_us;
    bool from_host;
    bytes data;
    int number; // line number in the file
};

struct recording {
    std::string head; // head bytes as hex digits; empty if the file does not have them
    bool crc = false;
    std::vector<recorded_line> lines;
};

// Reads a file. Returns an error with the file's name and line; empty on success.
std::string recording_read(const std::string &file, recording &out);

// Return the first line of a recording, and the line of one piece.
std::string recording_head(const std::string &head, bool crc);
std::string recording_line(const piece &p);

// Decodes a line. Returns bytes that are not exactly one piece as "noise".
piece recording_piece(const recorded_line &line, const zof_hmi_cmd_analys_t &settings);

// Prints the differences between the answers of a replay and those of the recording, which have line numbers. Returns
// the number of differences.
int recording_compare(const std::string &file, const std::vector<std::pair<int, piece>> &then,
                      const std::vector<piece> &now);

#endif
