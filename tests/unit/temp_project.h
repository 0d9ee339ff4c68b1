// A temporary project folder, removed with its drives at the end of a test; and the output of the runtime.
//
//     temp_project_t project;
//     project.write("config/project/zofprj.g", R"({"width": 320, "height": 240})");
//     zof_prj_t *prj = project.open();
#ifndef TEMP_PROJECT_H
#define TEMP_PROJECT_H

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "zof_test.h"

inline std::string file_text(const std::filesystem::path &path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

// Projects live until the end of the process. This list keeps them reachable for the leak checker, and is itself never
// destroyed.
inline std::vector<zof_prj_t *> &opened_projects = *new std::vector<zof_prj_t *>;

struct temp_project_t {
    std::string top;    // the temporary folder, in which drives are created
    std::string folder; // the project folder, with its "/"

    temp_project_t() {
        char name[] = "/tmp/zof_test_XXXXXX";
        if (!mkdtemp(name)) { // without a folder of its own it would write into the root of the system
            perror(name);
            abort();
        }
        top = name;
        folder = top + "/res/";
        zof_res_set_path_cache(500);
        write("config/project/zofprj.g", R"({"p_name": "test", "width": 320, "height": 240, "views": []})");
    }

    ~temp_project_t() {
        namespace fs = std::filesystem; // its remove_all never ends on Windows while one of the files is open
        std::error_code ignored;
        std::vector<fs::path> paths = {top};
        for (const auto &entry : fs::recursive_directory_iterator(top, ignored)) {
            paths.push_back(entry.path());
        }
        for (auto path = paths.rbegin(); path != paths.rend(); path++) {
            fs::remove(*path, ignored);
        }
    }

    temp_project_t(const temp_project_t &) = delete;
    temp_project_t &operator=(const temp_project_t &) = delete;

    std::string path(const std::string &name) const {
        return folder + name;
    }

    // Writes a file of the project and creates its folders.
    void write(const std::string &name, const std::string &text) const {
        std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
        std::ofstream(path(name), std::ios::binary) << text;
    }

    // Makes it the current project; returns the result of zof_prj_obj_create.
    zof_prj_t *open() const {
        opened_projects.push_back(zof_prj_obj_create(folder.c_str()));
        return opened_projects.back();
    }
};

// Returns what `work` prints to standard output.
template <typename F> std::string printed(F work) {
    char name[] = "/tmp/zof_printed_XXXXXX";
    int file = mkstemp(name);
    std::fflush(stdout);
    int console = dup(STDOUT_FILENO);
    dup2(file, STDOUT_FILENO);
    work();
    std::fflush(stdout);
    dup2(console, STDOUT_FILENO);
    close(console);
    close(file);
    std::string text = file_text(name);
    unlink(name);
    return text;
}

inline std::string str(const char *text) {
    return text ? text : "(null)";
}

// The little-endian bytes of a number.
inline std::string le(u32 value, int size) {
    std::string out;
    for (; size > 0; size--, value >>= 8) {
        out += (char)value;
    }
    return out;
}

inline bool contains(const std::string &text, const std::string &part) {
    return text.find(part) != std::string::npos;
}

#endif
