// Checks names from hosts and project files. Internal; files are opened through zof_res.h. Names must stay inside the
// project and the drive folders unless the project file has "allow_outside": 1.
#ifndef ZOF_PATH_IN_H
#define ZOF_PATH_IN_H

// Returns true if the project file allows names that lead out of the project, and also before the file has been read.
bool path_outside_allowed(void);

// Returns false, after a message, for a name with control characters, and for one that leaves the project from its
// folder `dir` by "..". If `dir` is a drive such as "D:", or is itself outside the project, the name must not leave
// `dir`. Checks only the text. Null texts count as empty.
bool path_name_passes(const char *dir, const char *name);

// Returns false if links lead from `path` out of the folder `base`. A path that does not exist passes, because there is
// nothing to open.
bool path_stays_inside(const char *path, const char *base);

// Returns `path`, or null, after a message, if links lead from it out of the folder.
char *path_linked_inside(char *path, const char *folder);

#endif
