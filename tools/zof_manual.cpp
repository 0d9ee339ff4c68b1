// Writes the tables of keys into the manual of project folders and the pages of control types, the table of rules into
// the page of `zof lint`, and those of options, variables and exit statuses into the page on running a program; and the
// types that follow from the catalogue into the design page. The catalogue and the rows in the code are the only
// sources.
#include <cstdio>
#include <cstring>

#include "catalogue/json.h"
#include "catalogue/manual.h"
#include "tool_file.h"

static int fail(const char *file, const std::string &what) {
    fprintf(stderr, "zof_manual: %s: %s\n", file, what.c_str());
    return 1;
}

static int refresh(const char *file, bool check, std::set<std::string> &found) {
    std::string old;
    std::string now;
    const char *manual = strstr(file, "/types/") ? "../project.md" : "";
    std::string reason = tool_file_read(file, old);
    if (std::string(file).ends_with(".ts")) {
        now = cat_page_types();
    } else if (reason.empty()) {
        reason = cat_manual_refresh(old, manual, found, now);
    }
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
    const bool check = argc > 1 && strcmp(argv[1], "--check") == 0;
    const int first = check ? 2 : 1;
    if (argc <= first) {
        fprintf(
            stderr,
            "usage: zof_manual [--check] PAGE...\n"
            "Replaces the tables of keys in the pages by those of the catalogue. Together the pages need all of them.\n"
            "--check writes nothing, and fails if something would change.\n");
        return 2;
    }
    int status = 0;
    std::set<std::string> found;
    for (int i = first; i < argc; i++) {
        status |= refresh(argv[i], check, found);
    }
    const std::string reason = cat_manual_missing(found);
    return reason.empty() ? status : fail(argv[first], reason);
}
