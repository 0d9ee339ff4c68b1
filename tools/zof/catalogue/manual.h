// The tables of the project folder manual, in Markdown.
#ifndef ZOF_CAT_MANUAL_H
#define ZOF_CAT_MANUAL_H

#include <set>
#include <string>

// Replaces the text between each pair of "<!-- keys of NAME: begin -->" and "<!-- keys: end -->" by the table of the
// record, and adds the names to `found`. `manual` is the path from the page to the manual; empty for the manual itself.
// Returns an error if marks do not match or a name was found before, otherwise an empty text.
std::string cat_manual_refresh(const std::string &page, const char *manual, std::set<std::string> &found,
                               std::string &now);

// Returns an error if a record is not among those found, otherwise an empty text.
std::string cat_manual_missing(const std::set<std::string> &found);

#endif
