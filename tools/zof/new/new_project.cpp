// A new project as a list of files.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

#include "new.h"

namespace fs = std::filesystem;

static bool is_letter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

static std::string languages_check(const std::vector<std::string> &languages) {
    std::set<std::string> seen;
    for (const std::string &code : languages) {
        const bool letters = std::all_of(code.begin(), code.end(), [](char c) { return c >= 'a' && c <= 'z'; });
        if (!letters || code.size() < 2 || code.size() > 3) {
            return "\"" + code + "\" is not a language code of two or three small letters, such as en";
        }
        if (!seen.insert(code).second) {
            return "the language " + code + " is there twice";
        }
    }
    return seen.empty() ? "a project needs a language" : "";
}

// The name becomes that of a CMake target and of the program.
static std::string name_check(const std::string &name) {
    static const char *const taken[] = {"all", "clean", "help", "install", "package", "res", "schema", "test", "zof"};
    const auto good = [](char c) { return is_letter(c) || (c >= '0' && c <= '9') || c == '_'; };
    if (name.empty() || name.size() > 60 || !is_letter(name[0]) || !std::all_of(name.begin(), name.end(), good)) {
        return "\"" + name + "\" cannot be the name of a program: use letters, digits and _";
    }
    for (const char *word : taken) {
        if (name == word) {
            return "\"" + name + "\" is a name that CMake uses itself; choose another one";
        }
    }
    return "";
}

static const new_template_t *template_find(const std::string &name) {
    for (const new_template_t &form : new_templates) {
        if (name == form.name) {
            return &form;
        }
    }
    return nullptr;
}

std::string new_project_check(const new_project_t &project) {
    enum { LEAST = 240, MOST = 4096 };
    if (!template_find(project.form)) {
        return "there is no template " + project.form + ": expected blank, dashboard or settings";
    }
    if (std::min(project.width, project.height) < LEAST || std::max(project.width, project.height) > MOST) {
        return "each side of the panel must be from 240 to 4096 pixels";
    }
    const std::string fault = languages_check(project.languages);
    return fault.empty() ? name_check(project.name) : fault;
}

static std::string project_text(const new_project_t &project) {
    return "{\n    \"p_name\": \"" + project.name + "\", \"width\": " + std::to_string(project.width) +
           ", \"height\": " + std::to_string(project.height) + ", \"start_page\": 1, \"language\": \"" +
           project.languages[0] + "\", \"app_ver\": \"1.0.0\",\n    \"hw_t\": {\"touch_t\": {\"th_en\": \"open\"}},\n" +
           "    \"views\": [{\"pageId\": 1, \"pageName\": \"main.g\"}]\n}\n";
}

static std::string program_text(const new_project_t &project, const new_template_t &form) {
    const bool several = project.languages.size() > 1;
    std::string text = new_file("start.c", several), list;
    for (const char *part : form.program) {
        text += "\n" + new_file(part, several);
    }
    for (const std::string &language : project.languages) {
        list += (list.empty() ? "\"" : ", \"") + language + "\"";
    }
    return new_replaced(text + "\n" + new_file("end.c", several), "LANGUAGES", list);
}

static std::string link_text(unsigned baud) {
    return "{\n    \"hmi_en\": 1, \"head_fh\": 90, \"head_fl\": 165, \"crc_en\": 1, \"event_en\": 1, \"load_en\": 1,\n"
           "    \"uart\": {\"win_port\": 5, \"port\": 5, \"speed_e\": \"" +
           std::to_string(baud) + " baud\", \"bit_e\": \"8 bits\"}\n}\n";
}

std::vector<new_file_t> new_project_files(const new_project_t &project) {
    const new_template_t *form = template_find(project.form);
    new_page_t page = {.scale = new_scale(project.width, project.height),
                       .font = project.font,
                       .program = project.program,
                       .languages = project.languages,
                       .name = project.name};
    form->draw(page, {0, 0, project.width, project.height});
    const std::string view =
        "{\n    \"view\": {\"v_name\": \"main\", \"v_id\": 1, \"bg_color\": \"$page\", \"bg_scale\": 255, \"layer\": "
        "\"screen\"},\n    \"controls\": [\n" +
        page.controls + "\n    ]\n}\n";
    std::vector<new_file_t> files = {
        {"res/config/project/zofprj.g", project_text(project)},
        {"res/config/view/main.g", view},
        {"res/config/looks.g", new_looks_used(new_looks_text(page), page.controls)},
        {"res/config/theme/day/looks.g", "{}\n"},
        {"res/config/theme/night/looks.g", new_file("night.g", true)},
    };
    if (project.baud) {
        files.push_back({"res/config/project/zofhmi.g", link_text(project.baud)});
    }
    for (size_t i = 0; i < page.languages.size(); i++) {
        files.push_back(
            {"res/config/languages/" + page.languages[i] + ".g", new_texts(page.controls, page.languages, i)});
    }
    if (project.program) {
        files.push_back({"main.c", program_text(project, *form)});
        files.push_back({".gitignore", "build/\n"});
        files.push_back({"CMakeLists.txt", new_replaced(new_file("CMakeLists.txt", true), "blank", project.name)});
        files.push_back({".vscode/settings.json", new_file("settings.json", true)});
        for (const char *file : {"icon.svg", "program.desktop.in", "program.rules.in", "program.service.in"}) {
            files.push_back({std::string("package/") + file, new_file(file, true)});
        }
    }
    return files;
}

std::string new_project_write(const new_project_t &project, const std::string &dir) {
    std::error_code error;
    if (fs::exists(dir, error) && !(fs::is_directory(dir, error) && fs::is_empty(dir, error))) {
        return dir + " exists and is not an empty folder; nothing was written";
    }
    for (const new_file_t &file : new_project_files(project)) {
        const fs::path path = fs::path(dir) / file.name;
        fs::create_directories(path.parent_path(), error);
        std::ofstream out(path, std::ios::binary);
        out << file.text;
        out.close();
        if (!out) {
            return path.string() + ": cannot be written";
        }
    }
    return "";
}

std::string new_project_name(const std::string &dir) {
    std::error_code error;
    const fs::path full = fs::absolute(dir, error).lexically_normal();
    return (full.filename().empty() ? full.parent_path() : full).filename().string();
}
