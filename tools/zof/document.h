// A JSON file that a subcommand reads, and messages about it.
#ifndef ZOF_DOCUMENT_H
#define ZOF_DOCUMENT_H

#include <string>

#include "zof_lib/zof_jdoc.h"

struct document_t {
    std::string path, text;
    zof_jdoc_t json;
};

// Reads a file. Returns false after a message for each fault. The caller frees the document in either case.
bool document_read(document_t &doc, const std::string &path);
void document_free(document_t &doc);

// Prints "FILE:LINE:COLUMN: error: TEXT". Returns false.
bool document_fault(const document_t &doc, u32 at, const std::string &text);

// Return the text of a value, empty if it is not a text, and its whole number, -1 if it is not a number from 0 up.
std::string document_text(const document_t &doc, u32 node);
s64 document_number(const document_t &doc, u32 node);

#endif
