// The looks of a new project, and with which one a type of control begins.
#include <algorithm>

#include "new.h"

static const char LOOK_START[] = "\n        \"";

static const struct {
    const char *type, *look;
} first_looks[] = {
    {"label", "text"},       {"button", "button"},           {"image button", "text"},
    {"container", "card"},   {"check box", "check_box"},     {"bar", "bar"},
    {"slider", "slider"},    {"switch", "switch"},           {"text box", "input"},
    {"drop list", "choice"}, {"roller", "roller"},           {"list", "list"},
    {"table", "table"},      {"message box", "message_box"}, {"spin box", "spin_box"},
    {"chart", "chart"},      {"button matrix", "keys"},      {"keyboard", "keyboard"},
};

const char *new_look_name(const std::string &type) {
    for (const auto &row : first_looks) {
        if (type == row.type) {
            return row.look;
        }
    }
    return "";
}

std::string new_replaced(std::string text, const std::string &from, const std::string &to) {
    for (size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

std::string new_looks_text(const new_page_t &page) {
    const new_scale_t *scale = page.scale;
    std::string text = new_file("looks.g", true);
    for (const auto &[mark, size] : {std::pair("@FONT_SMALL@", scale->small),
                                     {"@FONT_TEXT@", scale->text},
                                     {"@FONT_TITLE@", scale->title},
                                     {"@FONT_VALUE@", scale->value}}) {
        const std::string font = ", \"font_lib\": \"text.ttf\", \"font_size\": " + std::to_string(size);
        text = new_replaced(text, mark, page.font ? font : "");
    }
    return new_replaced(text, "@PAD@", std::to_string((scale->touch - new_line(page, scale->text)) / 2));
}

// Each look begins on its own line and follows the looks that it inherits from.
std::vector<new_look_t> new_looks_split(const std::string &text) {
    const std::string start = LOOK_START;
    const size_t last = text.rfind("\n    }");
    std::vector<new_look_t> looks;
    for (size_t at = text.find(start, text.find("\"looks\"")); at < last;) {
        const size_t end = std::min(text.find(start, at + 1), last);
        const size_t name = at + start.size();
        const size_t open = text.find('{', name);
        looks.push_back({text.substr(name, text.find('"', name) - name),
                         text.substr(open, text.find_last_of('}', end - 1) + 1 - open)});
        at = end;
    }
    return looks;
}

std::string new_looks_used(const std::string &text, const std::string &view) {
    const size_t first = text.find(LOOK_START, text.find("\"looks\"")), last = text.rfind("\n    }");
    std::string used;
    const std::vector<new_look_t> looks = new_looks_split(text);
    for (size_t i = looks.size(); i-- > 0;) {
        const std::string quoted = "\"" + looks[i].name + "\"";
        if (view.find("\"look\": " + quoted) != std::string::npos ||
            used.find("\"is\": " + quoted) != std::string::npos) {
            used.insert(0, LOOK_START + looks[i].name + "\": " + looks[i].text + (used.empty() ? "" : ","));
        }
    }
    return text.substr(0, first) + used + text.substr(last);
}
