// Frames of the register link as text, using the rows of the register map. Panel, virtual board and documentation share
// these functions.
#ifndef ZOF_HW_TEXT_H
#define ZOF_HW_TEXT_H

#include <span>
#include <string>

// Returns a description of a frame, which may be incomplete or unknown: "write 16 LIVE_MV = 20012 mV".
std::string frame_text(std::span<const unsigned char> frame);

// Returns bytes as hexadecimal digits: "5AA505".
std::string hex_text(std::span<const unsigned char> data);

#endif
