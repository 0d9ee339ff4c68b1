// `zof new`: writes a project that is complete: folder, program and build. What it is made of is in new/.
#include <cstdio>
#include <filesystem>
#include <string>

#include "new/new.h"
#include "zof.h"

namespace fs = std::filesystem;

static new_project_t project;
static std::string dir, size = "800x480", font;

static void options_add(CLI::App &app) {
    app.add_option("dir", dir, "the folder to write; it must not exist, or be empty")->type_name("DIR")->required();
    app.add_option("--size", size, "pixels of the panel; default: 800x480")->type_name("WxH");
    app.add_option("--lang", project.languages, "languages, the first one at start; default: en,de")
        ->type_name("CODE,...")
        ->delimiter(',');
    app.add_option("--template", project.form, "what the page shows: blank, dashboard, settings; default: blank")
        ->type_name("NAME");
    app.add_option("--name", project.name, "name of project and program; default: that of the folder")
        ->type_name("NAME");
    app.add_option("--font", font, "a font for all texts, cut to their letters; default: the built-in one")
        ->type_name("FILE");
}

static int fail(const std::string &text, int status) {
    fprintf(stderr, "zof new: %s\n", text.c_str());
    return status;
}

static int run() {
    char rest = 0;
    if (sscanf(size.c_str(), "%5dx%5d%c", &project.width, &project.height, &rest) != 2) {
        return fail("--size " + size + ": expected width and height, such as 800x480", ZOF_EXIT_USAGE);
    }
    project.name = project.name.empty() ? new_project_name(dir) : project.name;
    project.font = !font.empty();
    std::string fault = new_project_check(project);
    if (!fault.empty()) {
        return fail(fault, ZOF_EXIT_USAGE);
    }
    std::error_code error;
    if (project.font && !fs::is_regular_file(font, error)) {
        return fail("--font " + font + ": there is no such file", ZOF_EXIT_FINDINGS);
    }
    fault = new_project_write(project, dir);
    if (!fault.empty()) {
        return fail(fault, ZOF_EXIT_FINDINGS);
    }
    const std::string res = (fs::path(dir) / "res").string();
    if (project.font && zof_font_add(font, res, "text.ttf") != ZOF_EXIT_CLEAN) {
        return fail("the font cannot show all texts, see above; `zof font add` tries another one", ZOF_EXIT_FINDINGS);
    }
    for (const std::string &language : project.languages) {
        if (!new_language_known(language)) {
            printf("note: the texts in %s/config/languages/%s.g are English; translate them\n", res.c_str(),
                   language.c_str());
        }
    }
    const char *path = dir.c_str();
    printf("%s is ready. To see it, and to build its program:\n  zof view %s --watch\n  cmake -S %s -B %s/build && "
           "cmake --build %s/build && %s/build/%s\n",
           path, res.c_str(), path, path, path, path, project.name.c_str());
    return ZOF_EXIT_CLEAN;
}

const zof_command_t zof_new_command = {
    "new", "write a new project: folder, program and build",
    "  zof new panel                              a title, a count and a button, 800x480\n"
    "  zof new panel --template dashboard --size 1024x600 --font Inter.ttf\n"
    "  zof new panel --template settings --lang de,en,fr\n"
    "The project checks clean, has a light and a dark theme, and runs in `zof view panel` at once. Texts exist in\n"
    "English and German; other languages start with English ones. The built-in font has one size, and no letters\n"
    "with accents.",
    options_add, run};
