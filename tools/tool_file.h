// Whole files for the tools: regular files only, because a device has no end and a pipe may wait for ever.
#ifndef TOOL_FILE_H
#define TOOL_FILE_H

#include <string>

// Reads a file into `text`. Returns the reason of a failure, empty on success.
std::string tool_file_read(const std::string &path, std::string &text);

// Creates a file, or replaces the content of one. Returns the reason of a failure, empty on success.
std::string tool_file_write(const std::string &path, const std::string &text);

#endif
