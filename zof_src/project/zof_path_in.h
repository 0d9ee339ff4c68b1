// The gate for names that hosts and project files bring. Inside the room only; files go through zof_res.h. Names stay
// inside the project and the drive folders unless the project file says "allow_outside": 1.
#ifndef ZOF_PATH_IN_H
#define ZOF_PATH_IN_H

// True when the project file allows names that lead out of the project, and until it is read: it could not say
// otherwise.
bool path_outside_allowed(void);

// False, with a line, for a name with control characters, and for one that climbs out of the project from its folder
// `dir` by "..". When `dir` is a drive, as "D:", or leads out of the project itself, the name must not climb above it.
// Looks at the texts only. Null texts are empty.
bool path_name_passes(const char *dir, const char *name);

// False when links lead from `path` to something outside the folder `base`. What does not exist passes:
// there is nothing to open.
bool path_stays_inside(const char *path, const char *base);

#endif
