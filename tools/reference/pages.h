// The pages of the reference in Markdown, made from those in docs/ and from catalogue, rows and headers.
#ifndef ZOF_REFERENCE_PAGES_H
#define ZOF_REFERENCE_PAGES_H

#include "headers.h"
#include "snippets.h"

// Returns the page of a control type with its picture, and with sections on events, functions and rows. Sets `reason`
// if something is missing.
std::string ref_type_page(const ref_page_t &page, const std::vector<ref_header_t> &headers, std::string &reason);

// Returns the page of functions: each line "- `NAME`" becomes a row of a table, and "<!-- inside -->" the functions
// that have no such line, by header. Sets `reason` for a name that no header declares or explains.
std::string ref_function_page(const std::string &text, const std::vector<ref_header_t> &headers, std::string &reason);

// Returns a page with the pictures that its comments "picture: FILE | OPTIONS | TEXT" name, and with the file name of a
// block of code as its title.
std::string ref_walk_page(const std::string &text);

// Returns what the pages, as one text, do not mention: a public function, an event, or a row of a host; otherwise an
// empty text.
std::string ref_without_place(const std::string &pages, const std::vector<ref_header_t> &headers);

#endif
