// Writes the tables of keys into the manual of project folders. The catalogue is the only source.
#include <cstdio>
#include <cstring>

#include "catalogue/manual.h"
#include "tool_file.h"

static int fail(const char *file, const std::string &what) {
    fprintf(stderr, "zof_manual: %s: %s\n", file, what.c_str());
    return 1;
}

static int refresh(const char *file, bool check) {
    std::string old;
    std::string now;
    std::string reason = tool_file_read(file, old);
    reason = reason.empty() ? cat_manual_refresh(old, now) : reason;
    if (!reason.empty() || now == old) {
        return reason.empty() ? 0 : fail(file, reason);
    }
    if (check) {
        return fail(file, "is out of date with the catalogue; build the target `protocol`");
    }
    reason = tool_file_write(file, now);
    return reason.empty() ? 0 : fail(file, reason);
}

int main(int argc, char **argv) {
    const bool check = argc == 3 && strcmp(argv[1], "--check") == 0;
    if (argc != 2 && !check) {
        fprintf(stderr,
                "usage: zof_manual [--check] FILE\n"
                "Replaces the tables of keys in the manual by those of the catalogue. --check writes nothing, and\n"
                "fails if something would change.\n");
        return 2;
    }
    return refresh(argv[argc - 1], check);
}
