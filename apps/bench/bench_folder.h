// The user's folders, as the XDG convention of desktops defines them.
#ifndef BENCH_FOLDER_H
#define BENCH_FOLDER_H

#include "zof_lib/zof_type.h"

// Writes the path of the user's documents folder or the nearest substitute: the home folder, the
// folder `recordings` of the program's state, "." if there is neither.
void folder_documents(char *out, size_t size);

#endif
