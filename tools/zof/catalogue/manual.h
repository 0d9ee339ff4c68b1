// The tables of the project folder manual, in Markdown.
#ifndef ZOF_CAT_MANUAL_H
#define ZOF_CAT_MANUAL_H

#include <string>

// Replaces the text between each pair of "<!-- keys of NAME: begin -->" and "<!-- keys: end -->" by the table of the
// record. Returns an error if marks are missing or do not match, otherwise an empty text. If `all`, every record must
// have its marks.
std::string cat_manual_refresh(const std::string &page, bool all, std::string &now);

#endif
