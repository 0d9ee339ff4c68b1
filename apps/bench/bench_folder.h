// The user's folders, as desktops agree on them (XDG).
#ifndef BENCH_FOLDER_H
#define BENCH_FOLDER_H

#include "zof_lib/zof_type.h"

// Writes the folder of the user's documents, or of what comes nearest to it; "." without a home.
void folder_documents(char *out, size_t size);

#endif
