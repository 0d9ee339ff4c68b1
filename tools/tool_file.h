// Reading and writing whole files for the tools. Only regular files are accepted, because a device has no end and a
// pipe may block forever.
#ifndef TOOL_FILE_H
#define TOOL_FILE_H

#include <string>

// Reads a file into `text`. Returns an error text, empty on success.
std::string tool_file_read(const std::string &path, std::string &text);

// Creates a file or replaces its contents. Returns an error text, empty on success.
std::string tool_file_write(const std::string &path, const std::string &text);

#endif
