// `zof new`: writes a project that is complete: folder, program and build. The templates are in new/.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "new/new.h"
#include "zof.h"

namespace fs = std::filesystem;

static struct {
    std::string dir, size = "800x480", form = "blank", name, font;
    std::vector<std::string> languages = {"en", "de"};
} opt;

static void options_add(CLI::App &app) {
    app.add_option("dir", opt.dir, "the folder to write; it must not exist, or be empty")->type_name("DIR")->required();
    app.add_option("--size", opt.size, "pixels of the panel; default: 800x480")->type_name("WxH");
    app.add_option("--lang", opt.languages, "languages, the first one at start; default: en,de")
        ->type_name("CODE,...")
        ->delimiter(',');
    app.add_option("--template", opt.form, "what the page shows: blank, dashboard, settings; default: blank")
        ->type_name("NAME");
    app.add_option("--name", opt.name, "name of project and program; default: that of the folder")->type_name("NAME");
    app.add_option("--font", opt.font, "a font for all texts, cut to their letters; default: the built-in one")
        ->type_name("FILE");
}

static bool fail(const std::string &text) {
    fprintf(stderr, "zof new: %s\n", text.c_str());
    return false;
}

// Arguments
// ------------------------------------------------------------------------------------------------------------

static bool size_read(int *width, int *height) {
    enum { LEAST = 240, MOST = 4096 };
    char rest = 0;
    if (sscanf(opt.size.c_str(), "%5dx%5d%c", width, height, &rest) != 2) {
        return fail("--size " + opt.size + ": expected width and height, such as 800x480");
    }
    if (std::min(*width, *height) < LEAST || std::max(*width, *height) > MOST) {
        return fail("--size " + opt.size + ": each side must be from 240 to 4096 pixels");
    }
    return true;
}

static bool languages_read() {
    std::set<std::string> seen;
    for (const std::string &code : opt.languages) {
        const bool letters = std::all_of(code.begin(), code.end(), [](char c) { return c >= 'a' && c <= 'z'; });
        if (!letters || code.size() < 2 || code.size() > 3) {
            return fail("--lang: \"" + code + "\" is not a language code of two or three small letters, such as en");
        }
        if (!seen.insert(code).second) {
            return fail("--lang: " + code + " is there twice");
        }
    }
    return true;
}

// The name becomes that of a CMake target and of the program.
static bool name_read() {
    static const char *const taken[] = {"all", "clean", "help", "install", "package", "res", "schema", "test", "zof"};
    std::error_code error;
    const fs::path full = fs::absolute(opt.dir, error).lexically_normal();
    const bool slash = full.filename().empty();
    std::string &name = opt.name;
    name = !name.empty() ? name : (slash ? full.parent_path() : full).filename().string();
    const auto letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    const auto good = [&](char c) { return letter(c) || (c >= '0' && c <= '9') || c == '_'; };
    if (name.empty() || name.size() > 60 || !letter(name[0]) || !std::all_of(name.begin(), name.end(), good)) {
        return fail("\"" + name + "\" cannot be the name of a program: use letters, digits and _, or give a --name");
    }
    for (const char *word : taken) {
        if (name == word) {
            return fail("\"" + name + "\" is a name that CMake uses itself; give another --name");
        }
    }
    return true;
}

static const new_template_t *template_read() {
    for (const new_template_t &form : new_templates) {
        if (opt.form == form.name) {
            return &form;
        }
    }
    fail("--template " + opt.form + ": expected blank, dashboard or settings");
    return nullptr;
}

static bool folder_read() {
    std::error_code error;
    if (fs::exists(opt.dir, error) && !(fs::is_directory(opt.dir, error) && fs::is_empty(opt.dir, error))) {
        return fail(opt.dir + " exists and is not an empty folder; nothing was written");
    }
    if (!opt.font.empty() && !fs::is_regular_file(opt.font, error)) {
        return fail("--font " + opt.font + ": there is no such file");
    }
    return true;
}

// Files
// ----------------------------------------------------------------------------------------------------------------

static std::string replaced(std::string text, const std::string &from, const std::string &to) {
    for (size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

static bool file_write(const std::string &name, const std::string &text) {
    const fs::path path = fs::path(opt.dir) / name;
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    std::ofstream out(path, std::ios::binary);
    out << text;
    out.close();
    return out ? true : fail(path.string() + ": cannot be written");
}

// Removes unused looks. Each look begins on its own line and follows the looks that it inherits from.
static std::string looks_used(const std::string &text, const std::string &view) {
    const std::string start = "\n        \"";
    const size_t first = text.find(start, text.find("\"looks\"")), last = text.rfind("\n    }");
    std::string used;
    for (size_t end = last; end > first;) {
        const size_t at = text.rfind(start, end - 1), name = at + start.size() - 1;
        const std::string quoted = text.substr(name, text.find('"', name + 1) + 1 - name);
        if (view.find("\"look\": " + quoted) != std::string::npos ||
            used.find("\"is\": " + quoted) != std::string::npos) {
            const std::string look = text.substr(at, end - at);
            used.insert(0, look.substr(0, look.find_last_of('}') + 1) + (used.empty() ? "" : ","));
        }
        end = at;
    }
    return text.substr(0, first) + used + text.substr(last);
}

static std::string looks_text(const new_page_t &page) {
    const new_scale_t *scale = page.scale;
    std::string text = looks_used(new_file("looks.g", true), page.controls);
    for (const auto &[mark, size] : {std::pair("@FONT_SMALL@", scale->small),
                                     {"@FONT_TEXT@", scale->text},
                                     {"@FONT_TITLE@", scale->title},
                                     {"@FONT_VALUE@", scale->value}}) {
        const std::string font = ", \"font_lib\": \"text.ttf\", \"font_size\": " + std::to_string(size);
        text = replaced(text, mark, page.font ? font : "");
    }
    return replaced(text, "@PAD@", std::to_string((scale->touch - new_line(page, scale->text)) / 2));
}

static std::string project_text(const new_page_t &page, int width, int height) {
    return "{\n    \"p_name\": \"" + page.name + "\", \"width\": " + std::to_string(width) +
           ", \"height\": " + std::to_string(height) + ", \"start_page\": 1, \"language\": \"" + page.languages[0] +
           "\", \"app_ver\": \"1.0.0\",\n    \"hw_t\": {\"touch_t\": {\"th_en\": \"open\"}},\n" +
           "    \"views\": [{\"pageId\": 1, \"pageName\": \"main.g\"}]\n}\n";
}

static std::string program_text(const new_page_t &page, const new_template_t &form) {
    const bool several = page.languages.size() > 1;
    std::string text = new_file("start.c", several), list;
    for (const char *part : form.program) {
        text += "\n" + new_file(part, several);
    }
    for (const std::string &language : page.languages) {
        list += (list.empty() ? "\"" : ", \"") + language + "\"";
    }
    return replaced(text + "\n" + new_file("end.c", several), "LANGUAGES", list);
}

static bool project_write(new_page_t &page, const new_template_t &form, int width, int height) {
    form.draw(page, {0, 0, width, height});
    const std::string view =
        "{\n    \"view\": {\"v_name\": \"main\", \"v_id\": 1, \"bg_color\": \"$page\", \"bg_scale\": 255, \"layer\": "
        "\"screen\"},\n    \"controls\": [\n" +
        page.controls + "\n    ]\n}\n";
    bool good = file_write("res/config/project/zofprj.g", project_text(page, width, height)) &&
                file_write("res/config/view/main.g", view) && file_write("res/config/looks.g", looks_text(page)) &&
                file_write("res/config/theme/day/looks.g", "{}\n") &&
                file_write("res/config/theme/night/looks.g", new_file("night.g", true)) &&
                file_write("main.c", program_text(page, form)) && file_write(".gitignore", "build/\n") &&
                file_write("CMakeLists.txt", replaced(new_file("CMakeLists.txt", true), "blank", page.name)) &&
                file_write(".vscode/settings.json", new_file("settings.json", true));
    for (const char *file : {"icon.svg", "program.desktop.in", "program.rules.in", "program.service.in"}) {
        good = good && file_write(std::string("package/") + file, new_file(file, true));
    }
    for (size_t i = 0; i < page.languages.size(); i++) {
        good = good && file_write("res/config/languages/" + page.languages[i] + ".g",
                                  new_texts(page.controls, page.languages, i));
    }
    return good;
}

static int run() {
    int width = 0, height = 0;
    const new_template_t *form = template_read();
    if (!form || !size_read(&width, &height) || !languages_read() || !name_read()) {
        return ZOF_EXIT_USAGE;
    }
    if (!folder_read()) {
        return ZOF_EXIT_FINDINGS;
    }
    new_page_t page = {new_scale(width, height), !opt.font.empty(), opt.languages, opt.name, "", 0};
    if (!project_write(page, *form, width, height)) {
        return ZOF_EXIT_FINDINGS;
    }
    const std::string res = (fs::path(opt.dir) / "res").string();
    if (page.font && zof_font_add(opt.font, res, "text.ttf") != ZOF_EXIT_CLEAN) {
        fail("the font cannot show all texts, see above; `zof font add` tries another one");
        return ZOF_EXIT_FINDINGS;
    }
    for (const std::string &language : opt.languages) {
        if (!new_language_known(language)) {
            printf("note: the texts in %s/config/languages/%s.g are English; translate them\n", res.c_str(),
                   language.c_str());
        }
    }
    printf(
        "%s is ready. To see it, and to build its program:\n  zof view %s --watch\n  cmake -S %s -B %s/build && cmake "
        "--build %s/build && %s/build/%s\n",
        opt.dir.c_str(), res.c_str(), opt.dir.c_str(), opt.dir.c_str(), opt.dir.c_str(), opt.dir.c_str(),
        page.name.c_str());
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
