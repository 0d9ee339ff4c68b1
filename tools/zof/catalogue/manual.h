// The tables of the manual of project folders, in Markdown.
#ifndef ZOF_CAT_MANUAL_H
#define ZOF_CAT_MANUAL_H

#include <string>

// Replaces what stands between "<!-- keys of NAME: begin -->" and "<!-- keys: end -->" by the table of each record.
// Returns an error if marks are missing or do not match, otherwise an empty text. With `all` every record needs its
// marks.
std::string cat_manual_refresh(const std::string &page, bool all, std::string &now);

#endif
