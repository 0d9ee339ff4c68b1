// Texts of the templates. German ones do without umlauts, which the built-in font does not have.
#include <algorithm>
#include <cctype>

#include "new.h"
#include "new_files.h"

// `\\u` and a number is one of the symbols that are part of every font.
static const struct text_t {
    const char *key, *en, *de;
} texts[] = {
    {"title_blank", "My panel", "Mein Panel"},
    {"title_dashboard", "Dashboard", "Dashboard"},
    {"title_settings", "Settings", "Einstellungen"},
    {"hint", "Clicks so far", "Klicks bisher"},
    {"more", "Press me", "Bitte klicken"},
    {"power", "Power", "Leistung"},
    {"temperature", "Temperature", "Temperatur"},
    {"pressure", "Pressure", "Druck"},
    {"flow", "Flow", "Durchfluss"},
    {"trend", "Power, 30 s", "Leistung, 30 s"},
    {"messages", "Messages", "Meldungen"},
    {"message_ready", "\\uF00C  Ready", "\\uF00C  Bereit"},
    {"message_filter", "\\uF071  Clean the filter", "\\uF071  Filter reinigen"},
    {"message_update", "\\uF019  Update available", "\\uF019  Update bereit"},
    {"message_door", "\\uF00D  Door was open", "\\uF00D  Klappe war offen"},
    {"start", "\\uF04B  Start", "\\uF04B  Start"},
    {"stop", "\\uF04D  Stop", "\\uF04D  Stopp"},
    {"clear", "\\uF2ED  Clear", "\\uF2ED  Neu"},
    {"network", "\\uF1EB  Network", "\\uF1EB  Netzwerk"},
    {"sound", "\\uF0F3  Sound", "\\uF0F3  Ton"},
    {"volume", "\\uF028  Volume", "\\uF028  Ton"},
    {"brightness", "\\uF06E  Brightness", "\\uF06E  Helligkeit"},
    {"language", "\\uF11C  Language", "\\uF11C  Sprache"},
    {"theme", "\\uF043  Theme", "\\uF043  Design"},
    {"day", "Light", "Hell"},
    {"night", "Dark", "Dunkel"},
    {"about", "About", "Info"},
};

static const struct {
    const char *code, *name;
} names[] = {{"en", "English"}, {"de", "Deutsch"}};

bool new_language_known(const std::string &language) {
    return std::any_of(std::begin(names), std::end(names), [&](const auto &row) { return language == row.code; });
}

static std::string capitals(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return (char)std::toupper(c); });
    return text;
}

std::string new_language_name(const std::string &language) {
    for (const auto &row : names) {
        if (language == row.code) {
            return row.name;
        }
    }
    return capitals(language);
}

std::string new_texts(const std::string &view, const std::vector<std::string> &languages, size_t language) {
    std::string out;
    const auto add = [&](const std::string &key, const std::string &text) {
        const size_t at = view.find("#" + key); // a key ends with its text, or with the line of an option
        if (at != std::string::npos) {
            out += (out.empty() ? "{\n" : ",\n") + ("    \"" + key + "\": \"" + text + "\"");
        }
    };
    for (const text_t &text : texts) {
        add(text.key, languages[language] == "de" ? text.de : text.en);
    }
    add("next_language", capitals(languages[(language + 1) % languages.size()]));
    return out + "\n}\n";
}

std::string new_file(const char *name, bool languages) {
    std::string text;
    for (const auto &file : NEW_FILES) {
        text = file.name == std::string(name) ? file.text : text;
    }
    const std::string from = "// @if languages\n", to = "// @end\n";
    // Each mark has a line to itself, after the spaces that clang-format puts there.
    for (size_t at; (at = text.find(from)) != std::string::npos;) {
        const size_t begin = text.rfind('\n', at) + 1, inner = at + from.size(), close = text.find(to, inner);
        const size_t inner_end = text.rfind('\n', close) + 1;
        text.replace(begin, close + to.size() - begin, languages ? text.substr(inner, inner_end - inner) : "");
    }
    return text;
}
