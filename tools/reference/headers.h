// The public functions of the runtime, as its headers declare them: prototypes at the beginning of a line, with the
// comment above. A comment also counts for the prototypes that follow it up to the next empty line.
#ifndef ZOF_REFERENCE_HEADERS_H
#define ZOF_REFERENCE_HEADERS_H

#include <string>
#include <vector>

struct ref_function_t {
    std::string name, signature; // the signature is one line, without its semicolon
    std::string note;            // the comment after the name; may be empty
    std::string comment;         // the lines above it, with "// "
};

struct ref_header_t {
    std::string path;    // below zof_src
    std::string comment; // the one at the top of the file, with "// "
    std::vector<ref_function_t> functions;
};

// Reads the headers that zof.h in `folder` includes. Returns an error, or an empty text.
std::string ref_headers_read(const std::string &folder, std::vector<ref_header_t> &headers);

// Returns a function; null if no header declares it.
const ref_function_t *ref_function(const std::vector<ref_header_t> &headers, const std::string &name);

// Returns a comment as text.
std::string ref_plain(const std::string &comment);

// Returns what a function does, without a full stop: its note, or the first sentence of its comment.
std::string ref_sentence(const ref_function_t &function);

#endif
