#include "snippets.h"

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "tool_file.h"

enum { WIDTH = 400, HEIGHT = 200, DRAWN_MS = 60 };

static std::string number(unsigned value) {
    return std::to_string(value);
}

std::string ref_snippet(const ref_page_t &page, const char *language, unsigned *line) {
    const std::string fence = std::string("\n```") + language + "\n";
    const size_t at = page.text.find(fence);
    if (at == std::string::npos) {
        return "";
    }
    const size_t begin = at + fence.size();
    if (line) {
        *line = (unsigned)std::count(page.text.begin(), page.text.begin() + (long)begin, '\n') + 1;
    }
    return page.text.substr(begin, page.text.find("\n```", begin) + 1 - begin);
}

static std::string write(const std::string &path, const std::string &text) {
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
    std::string old;
    if (tool_file_read(path, old).empty() && old == text) {
        return ""; // what depends on it need not be built again
    }
    const std::string reason = tool_file_write(path, text);
    return reason.empty() ? "" : path + ": " + reason;
}

static std::string view_text(const ref_page_t &page) {
    return "{\"view\": {\"v_name\": \"" + page.name + "\", \"v_id\": " + number(page.type + 1) +
           ", \"bg_scale\": 255, \"bg_color\": \"#0E1116\"},\n\"controls\": [\n" + ref_snippet(page, "json", nullptr) +
           "]}\n";
}

static std::string project_text(const std::vector<ref_page_t> &pages) {
    std::string views;
    for (const ref_page_t &page : pages) {
        views += (views.empty() ? "" : ",\n    ") + std::string("{\"pageId\": ") + number(page.type + 1) +
                 ", \"pageName\": \"" + page.name + ".g\"}";
    }
    return "{\"p_name\": \"Reference\", \"width\": " + number(WIDTH) + ", \"height\": " + number(HEIGHT) +
           ", \"start_page\": 1, \"hw_t\": {\"touch_t\": {\"th_en\": 1}},\n\"views\": [" + views + "]}\n";
}

static const char link_text[] = "{\"hmi_en\": 1, \"uart\": {\"win_port\": 4, \"speed_e\": \"115200 baud\", \"bit_e\": "
                                "\"8 bits\"}, \"head_fh\": 90, "
                                "\"head_fl\": 165, \"buffsize\": 4096, \"timeout\": 5, \"resend_en\": 1}\n";

static std::string c_text(const ref_page_t &page) {
    unsigned line = 0;
    const std::string code = ref_snippet(page, "c", &line);
    const std::string name = "reference_" + page.name;
    return "#include <stdio.h>\n#include <string.h>\n#include <zof.h>\n\nvoid " + name + "(void);\n#line " +
           number(line) + " \"" + page.path + "\"\n" + code + "\nvoid " + name + "(void) {\n    init();\n}\n";
}

static std::string main_text(const std::vector<ref_page_t> &pages) {
    std::string names, views;
    for (const ref_page_t &page : pages) {
        names += "void reference_" + page.name + "(void);\n";
        views += "    {" + number(page.type + 1) + ", reference_" + page.name + ", shown, 0},\n";
    }
    return "#include <zof.h>\n\n" + names +
           "\nstatic void shown(void) {\n}\n\nstatic const zof_view_fun_t views[] = {\n" + views +
           "};\n\nvoid zof_main(void) {\n    zof_prj_create(views, sizeof(views) / sizeof(views[0]));\n}\n\n" +
           "int main(int argc, char **argv) {\n    return zof_run(argc, argv);\n}\n";
}

static std::string python_text(const std::vector<ref_page_t> &pages) {
    std::string text = "from zof_host import rows\n";
    for (const ref_page_t &page : pages) {
        text += "\n\ndef " + page.name + "(panel):\n";
        std::istringstream lines(ref_snippet(page, "python", nullptr));
        for (std::string line; std::getline(lines, line);) {
            text.append(line.empty() ? "" : "    ").append(line).append("\n");
        }
    }
    return text;
}

static std::string session_text(const std::vector<ref_page_t> &pages) {
    std::string text;
    for (const ref_page_t &page : pages) {
        text += "view " + number(page.type + 1) + "\nwait " + number(DRAWN_MS) + "\nshot " + page.name + ".png\n";
    }
    return text + "quit\n";
}

std::string ref_snippets_write(const std::string &folder, const std::vector<ref_page_t> &pages) {
    std::vector<std::pair<std::string, std::string>> files = {
        {"panel/res/config/project/zofprj.g", project_text(pages)},
        {"panel/res/config/project/zofhmi.g", link_text},
        {"panel/session", session_text(pages)},
        {"code/main.c", main_text(pages)},
        {"code/snippets.py", python_text(pages)}};
    for (const ref_page_t &page : pages) {
        files.push_back({"panel/res/config/view/" + page.name + ".g", view_text(page)});
        files.push_back({"code/" + page.name + ".c", c_text(page)});
    }
    std::string reason;
    for (const auto &[path, text] : files) {
        if (reason.empty()) {
            reason = write(std::string(folder).append("/").append(path), text);
        }
    }
    return reason;
}
