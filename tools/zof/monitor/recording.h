// Recordings of the monitor: text files, one line "MICROSECONDS host|panel BYTES  # description" for each piece.
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
    int number; // in the file
};

struct recording {
    std::string head; // head bytes as hex digits; empty if the file does not say
    bool crc = false;
    std::vector<recorded_line> lines;
};

// Reads a file. Returns what is wrong, with the file's name and line; empty on success.
std::string recording_read(const std::string &file, recording &out);

// The first line, and that of one piece.
std::string recording_head(const std::string &head, bool crc);
std::string recording_line(const piece &p);

// Returns the piece that a line describes.
piece recording_piece(const recorded_line &line, const zof_hmi_cmd_analys_t &settings);

// Prints where the answers of a replay differ from those of the recording, given with their line numbers. Returns the
// number of differences.
int recording_compare(const std::string &file, const std::vector<std::pair<int, piece>> &then,
                      const std::vector<piece> &now);

#endif
