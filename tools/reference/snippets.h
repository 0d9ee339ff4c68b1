// The snippets of the pages of control types, as files that can be checked and run: a project folder with a view for
// each page, a C file for each page and one that makes a program of them, a Python script, and a session that takes
// pictures.
#ifndef ZOF_REFERENCE_SNIPPETS_H
#define ZOF_REFERENCE_SNIPPETS_H

#include <string>
#include <vector>

// A page of a control type. The view of its snippets has the id `type` + 1.
struct ref_page_t {
    unsigned type;
    std::string name, path, text; // name: of its file, and of the type's theme file
};

// Returns the block of code in a language, "json"; empty if the page has no such block. `line`: OPTIONAL, its first
// line.
std::string ref_snippet(const ref_page_t &page, const char *language, unsigned *line);

// Writes all files below a folder. Returns an error, or an empty text.
std::string ref_snippets_write(const std::string &folder, const std::vector<ref_page_t> &pages);

#endif
