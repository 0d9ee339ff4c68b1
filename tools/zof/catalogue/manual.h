// The tables of the manual of project folders, in Markdown.
#ifndef ZOF_CAT_MANUAL_H
#define ZOF_CAT_MANUAL_H

#include <string>

// Replaces what stands between "<!-- keys of NAME: begin -->" and "<!-- keys: end -->" by the table of each record.
// Returns what is wrong with the marks, empty for nothing. Every record needs its mark.
std::string cat_manual_refresh(const std::string &page, std::string &now);

#endif
