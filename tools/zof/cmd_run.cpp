// zof run: shows a project folder without a program. Its actions and a host drive it.
#include <cstdio>
#include <vector>

#include "drv/zof_drv_file.h"
#include "zof.h"
#include "zof_lib/zof_util.h"
#include "zof_plain.h"
#include "zof_start.h"

static std::string folder;
static const CLI::App *parsed; // has the words after the folder, which belong to the runtime

static void options_add(CLI::App &app) {
    app.add_option("dir", folder, "the project folder, or a folder with it in res/")->required()->type_name("DIR");
    app.prefix_command();
    parsed = &app;
}

extern "C" void zof_main(void) {
    if (zof_plain_create(nullptr) != 0) {
        fprintf(stderr, "zof run: the project file has no views\n");
    }
}

// Returns the last name of a path, under which the program keeps its state; "zof" if that is not a name.
static std::string name_of(std::string path) {
    while (path.size() > 1 && (path.back() == '/' || path.back() == '\\')) {
        path.pop_back();
    }
    const std::string name = path.substr(zof_path_parent(path.c_str()));
    return name.empty() || name[0] == '.' ? "zof" : name;
}

static int run() {
    const bool whole = zof_file_size((folder + "/config/project/zofprj.g").c_str()) >= 0;
    static const std::string name = name_of(folder);
    const std::string project = whole ? folder : folder + "/res";
    std::vector<const char *> args = {name.c_str(), "--project", project.c_str()};
    const std::vector<std::string> more = parsed->remaining();
    for (const std::string &word : more) {
        args.push_back(word.c_str());
    }
    args.push_back(nullptr);
    zof_program_name_set(name.c_str());
    return zof_run((int)args.size() - 1, const_cast<char **>(args.data()));
}

const zof_command_t zof_run_command = {
    "run", "show a project folder without a program: its actions and a host on the serial line drive it",
    "  zof run coffee                            coffee/ or coffee/res/ is the project folder\n"
    "  zof run coffee --port 5=/dev/ttyUSB0      the host's line, port 5 of config/project/zofhmi.g\n"
    "  zof run coffee --fullscreen --lang de\n"
    "All options of programs can follow the folder: zof run coffee --help",
    options_add, run};
