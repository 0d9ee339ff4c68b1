// The list of undo on the disk: a line of JSON for each step, in the user's state folder. It holds what is not in the
// files yet as well, so that a crash or a disk that is full loses nothing.
#ifndef DESIGN_JOURNAL_H
#define DESIGN_JOURNAL_H

#include "design_text.h"

// Opens the journal in a folder and brings the list, and files that were not written, to its state.
void design_journal_open(design_files_t *files, const std::string &state);
// Writes the whole list in place of the old one, and opens it for more steps.
void design_journal_begin(design_files_t *files);
// Opens the journal for more steps after those of journal_size bytes.
void design_journal_append(design_files_t *files);
void design_journal_close(design_files_t *files);

// Notes a step before its files are written. `what` is "do", "merge", "undo" or "redo".
void design_journal_step(design_files_t *files, const char *what, u32 number,
                         const std::vector<design_splice_t> &splices);
// Notes that all files are on the disk.
void design_journal_saved(design_files_t *files);
void design_journal_closed(design_files_t *files);

#endif
