// `zof fmt`: converts numbers to names and colours, and back.
#include <cstdio>
#include <string>
#include <vector>

#include "check/zof_fmt.h"
#include "document.h"
#include "project/path/zof_res.h"
#include "zof.h"
#include "zof_lib/zof_stdio.h"

static struct {
    std::vector<std::string> files;
    bool names = false, numbers = false, check = false;
} opt;

static void options_add(CLI::App &app) {
    app.add_option("files", opt.files, "files of a project folder, below config/")->type_name("FILE")->required();
    CLI::Option *names = app.add_flag("--names", opt.names, "numbers become names and colours; the default");
    app.add_flag("--numbers", opt.numbers, "names and colours become numbers")->excludes(names);
    app.add_flag("--check", opt.check, "change nothing; name the files that would change");
}

static int fail(const std::string &path, const char *what, int status) {
    fprintf(stderr, "%s: error: %s\n", path.c_str(), what);
    return status;
}

static int change(const std::string &path, const char *text, size_t size) {
    if (opt.check) {
        printf("%s\n", path.c_str());
        return ZOF_EXIT_FINDINGS;
    }
    return zof_file_write(path.c_str(), text, size) == 0 ? ZOF_EXIT_CLEAN
                                                         : fail(path, "cannot be written", ZOF_EXIT_FINDINGS);
}

static int file_convert(const std::string &path) {
    document_t doc;
    const bool readable = document_read(doc, path);
    size_t size = 0;
    char *made = readable ? zof_fmt(path.c_str(), doc.text.data(), doc.text.size(), !opt.numbers, &size) : nullptr;
    int result = ZOF_EXIT_UNREADABLE;
    if (readable && !made) {
        result = fail(path, "not a file of a project folder, by its path: config/...", ZOF_EXIT_UNREADABLE);
    } else if (readable) {
        result = std::string(made, size) == doc.text ? ZOF_EXIT_CLEAN : change(path, made, size);
    }
    zof_free(made);
    document_free(doc);
    return result;
}

static int fmt_run() {
    int worst = ZOF_EXIT_CLEAN;
    for (const std::string &path : opt.files) {
        worst = std::max(worst, file_convert(path));
    }
    return worst;
}

const zof_command_t zof_fmt_command = {
    "fmt", "write names and colours in place of numbers in project files, or numbers again",
    "  zof fmt res/config/view/*.g          \"type\": 1 becomes \"type\": \"button\", 16711680 \"#FF0000\"\n"
    "  zof fmt --numbers res/config/view/main.g\n"
    "  zof fmt --check res/config/view/*.g  exit status 1 if a file would change\n"
    "Order, layout and everything else stay as they are.",
    options_add, fmt_run};
