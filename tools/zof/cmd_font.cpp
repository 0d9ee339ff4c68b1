// `zof font`: makes a font with exactly the letters that a project uses. fontTools, a Python library, subsets the font;
// this file collects the letters and icons and records the names of icons.
#include <cjson/cJSON.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "catalogue/json_in.h"
#include "catalogue/zof_cat.h"
#include "check/zof_check.h"
#include "document.h"
#include "font_script.h"
#include "project/path/zof_res.h"
#include "words.h"
#include "zof.h"
#include "zof_lib/zof_util.h"

#include "../system/advice.h"
#include "../system/stream.h"

static struct {
    std::string font, project = ".", sizes, weight, text, name;
    std::vector<std::string> icons;
} opt;

static void options_add(CLI::App &app) {
    CLI::App *add = app.add_subcommand("add", "write font/NAME.ttf with the letters that the project needs");
    add->add_option("font", opt.font, "a font that FreeType reads: .ttf, .otf, .ttc, .woff")
        ->type_name("FILE")
        ->required();
    add->add_option("--project", opt.project, "the project folder; default: this one")->type_name("DIR");
    add->add_option("--name", opt.name, "name of the file in font/; default: that of the font")->type_name("NAME.ttf");
    add->add_option("--icons", opt.icons, "glyphs of an icon font by name, for texts such as \":cafe: Brew\"")
        ->type_name("FILE:NAME,...");
    add->add_option("--text", opt.text, "further letters, which the program writes")->type_name("TEXT");
    add->add_option("--weight", opt.weight, "of a variable font: 400 is regular, 700 bold")->type_name("N");
    add->add_option("--size", opt.sizes, "print the line height of these sizes in pixels")->type_name("N,...");
    app.require_subcommand(1);
}

static bool fail(const std::string &text) {
    fprintf(stderr, "zof font: %s\n", text.c_str());
    return false;
}

// LVGL's symbols are part of every font of a project, whatever its file has; icons come before them.
enum { ICON_FIRST = 0xE000, ICON_LAST = 0xF000, SYMBOL_FIRST = 0xF001, SYMBOL_LAST = 0xF8FF };

// Letters -------------------------------------------------------------------------------------------------------------

struct letters_t {
    std::map<u32, std::string> first;         // each letter, with the place of its first use
    std::map<std::string, std::string> icons; // each icon of the project that is used, with the place of its first use
    const cJSON *known = nullptr;             // the project's icons
    bool typing = false;                      // a control takes text from the user
};

// Characters that programs write: digits, signs and separators.
static const char NUMBERS[] = " 0123456789+-.,:/%";

static void letters_of(letters_t &letters, const std::string &text, const std::string &place) {
    for (u32 at = 0; at < text.size();) {
        const size_t end = text[at] == ':' ? text.find(':', at + 1) : std::string::npos;
        const std::string name = end == std::string::npos ? "" : text.substr(at + 1, end - at - 1);
        if (!name.empty() && cJSON_GetObjectItem(letters.known, name.c_str())) {
            letters.icons.emplace(name, place);
            at = (u32)end + 1;
            continue;
        }
        const u32 letter = _lv_txt_encoded_next(text.c_str(), &at);
        if (letter >= ' ' && (letter < SYMBOL_FIRST || letter > SYMBOL_LAST)) {
            letters.first.emplace(letter, place);
        }
    }
}

static std::string place_of(const document_t &doc, const std::string &file, u32 node) {
    u32 line = 0, col = 0;
    zof_jdoc_place(&doc.json, doc.json.nodes[node].at, &line, &col);
    return file + ":" + std::to_string(line) + ":" + std::to_string(col);
}

static const zof_cat_record_t *record_of_type(const document_t &doc, u32 entry) {
    const u32 node = zof_jdoc_get(&doc.json, entry, "type");
    double number = -1;
    s64 type = -1;
    if (node != ZOF_J_NONE && zof_jdoc_number(&doc.json, node, &number) != 0) {
        zof_names_read(zof_type_names, ZOF_FALSE, document_text(doc, node).c_str(), &type);
    } else {
        type = (s64)number;
    }
    return type >= 0 && type < ZOF_CTRL_TYPE_COUNT ? zof_cat_types[type].record : nullptr;
}

// Collects the displayed texts of an object. The recursion is only as deep as the catalogue.
static void object_walk(letters_t &letters, const document_t &doc, const std::string &file, u32 object,
                        const zof_cat_record_t *record) {
    for (u32 at = doc.json.nodes[object].child; record && at != ZOF_J_NONE; at = doc.json.nodes[at].next) {
        char name[128];
        const zof_jnode_t &node = doc.json.nodes[at];
        const zof_cat_key_t *key =
            zof_jdoc_key(&doc.json, at, name, sizeof name) >= 0 ? zof_cat_key(record, name) : nullptr;
        if (!key) {
            continue;
        }
        const zof_cat_record_t *inner = key->record ? key->record : record_of_type(doc, object);
        if (node.kind == ZOF_J_TEXT && (key->kind == ZOF_CAT_WORDS || key->kind == ZOF_CAT_OPTIONS)) {
            letters_of(letters, document_text(doc, at), place_of(doc, file, at));
        } else if (key->kind == ZOF_CAT_OBJECT && node.kind == ZOF_J_OBJECT) {
            object_walk(letters, doc, file, at, inner);
        } else if (key->kind == ZOF_CAT_ARRAY && node.kind == ZOF_J_ARRAY) {
            for (u32 element = node.child; element != ZOF_J_NONE; element = doc.json.nodes[element].next) {
                if (doc.json.nodes[element].kind == ZOF_J_OBJECT) {
                    object_walk(letters, doc, file, element, inner);
                } else if (doc.json.nodes[element].kind == ZOF_J_TEXT && inner &&
                           inner->keys[0].kind == ZOF_CAT_WORDS) {
                    letters_of(letters, document_text(doc, element), place_of(doc, file, element));
                }
            }
        }
        letters.typing = letters.typing || inner == zof_cat_types[ZOF_CTRL_KEYBOARD].record ||
                         inner == zof_cat_types[ZOF_CTRL_TXTBOX].record;
    }
}

static std::vector<std::string> files_in(const std::string &folder) {
    std::vector<std::string> files;
    std::error_code error;
    for (const auto &entry : std::filesystem::directory_iterator(folder, error)) {
        if (entry.is_regular_file(error)) {
            files.push_back(entry.path().filename().string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

static bool file_walk(letters_t &letters, const std::string &folder, const std::string &file, bool view) {
    document_t doc;
    const bool read = document_read(doc, folder + file) && doc.json.count && doc.json.nodes[0].kind == ZOF_J_OBJECT;
    if (read && view) {
        object_walk(letters, doc, file, 0, cat_record("view file"));
    }
    for (u32 at = read && !view ? doc.json.nodes[0].child : ZOF_J_NONE; at != ZOF_J_NONE;
         at = doc.json.nodes[at].next) {
        letters_of(letters, document_text(doc, at), place_of(doc, file, at));
    }
    document_free(doc);
    return read;
}

static bool project_walk(letters_t &letters, const std::string &folder) {
    bool read = true;
    for (const char *part : {"config/view/", "config/languages/"}) {
        for (const std::string &name : files_in(folder + part)) {
            read = file_walk(letters, folder, part + name, strcmp(part, "config/view/") == 0) && read;
        }
    }
    letters_of(letters, NUMBERS, "numbers");
    letters_of(letters, opt.text, "--text");
    for (char c = ' '; letters.typing && c <= '~'; c++) {
        letters.first.emplace((u8)c, "typing");
    }
    return read;
}

// Icons ---------------------------------------------------------------------------------------------------------------

// Returns the project's icons, {"cafe": "U+E000"}: an empty object if there is no file, null if it is invalid.
static cJSON *icons_read(const std::string &path) {
    document_t doc;
    cJSON *icons = nullptr;
    if (!std::filesystem::exists(path)) {
        return cJSON_CreateObject();
    }
    icons = document_read(doc, path) ? cJSON_Parse(doc.text.c_str()) : nullptr;
    document_free(doc);
    return icons;
}

static u32 letter_of(const cJSON *icon) {
    const char *text = cJSON_GetStringValue(icon);
    return text && (text[0] == 'U' || text[0] == 'u') && text[1] == '+' ? (u32)strtoul(text + 2, nullptr, 16) : 0;
}

static u32 letter_free(const cJSON *icons) {
    u32 next = ICON_FIRST;
    const cJSON *icon = nullptr;
    cJSON_ArrayForEach(icon, icons) {
        const u32 letter = letter_of(icon);
        next = letter >= next && letter < ICON_LAST ? letter + 1 : next;
    }
    return next;
}

// Splits "FILE:NAME,NAME" and adds the letter of each name that the project already has.
static bool icons_split(const std::string &text, const cJSON *icons, std::vector<std::string> &args) {
    const size_t colon = text.rfind(':');
    if (colon == std::string::npos || colon == 0 || colon + 1 == text.size()) {
        return fail("--icons " + text + ": expected FILE:NAME,NAME");
    }
    std::string names;
    std::stringstream list(text.substr(colon + 1));
    for (std::string name; std::getline(list, name, ',');) {
        const char *bad = name.empty() ? name.c_str() : strpbrk(name.c_str(), ": \n=");
        if (bad || name.size() > 63) {
            return fail("--icons: \"" + name + "\" cannot be a name in texts");
        }
        const cJSON *known = cJSON_GetObjectItem(icons, name.c_str());
        names += (names.empty() ? "" : ",") + name + (known ? std::string("=") + cJSON_GetStringValue(known) : "");
    }
    args.push_back(text.substr(0, colon));
    args.push_back(names);
    return true;
}

// Adds the new names to the project's file. Existing names keep their letters.
static bool icons_keep(const std::string &path, cJSON *icons, const cJSON *made) {
    const cJSON *icon = nullptr;
    cJSON_ArrayForEach(icon, made) {
        if (!cJSON_GetObjectItem(icons, icon->string)) {
            cJSON_AddStringToObject(icons, icon->string, cJSON_GetStringValue(icon));
        }
    }
    if (!cJSON_GetArraySize(made)) {
        return true;
    }
    const std::string text = json_print(cJSON_Duplicate(icons, true)) + "\n";
    return zof_file_write(path.c_str(), text.data(), text.size()) == 0 || fail(path + ": cannot be written");
}

// Python --------------------------------------------------------------------------------------------------------------

enum { NO_FONTTOOLS = 9, NO_PYTHON = 127 };

// Runs the script. Returns its exit status, and its output in `out`.
static int script_run(const std::string &python, const std::vector<std::string> &args, std::string &out) {
    child_t child;
    std::vector<std::string> words = {python, "-c", FONT_SCRIPT};
    words.insert(words.end(), args.begin(), args.end());
    if (!child_start(&child, words, nullptr, false).empty()) {
        return NO_PYTHON;
    }
    char part[4096];
    s32 n = 0;
    while ((n = stream_read(child.output, part, sizeof part)) >= 0) {
        out.append(part, (size_t)n);
        stream_wait({{child.output, false}}, -1, 1000);
    }
    std::string how;
    const int status = child_end(&child, &how);
    child_kill(&child);
    return status < 0 ? (int)NO_PYTHON : status;
}

// Returns the script's result, or null after a message.
static cJSON *font_make(const std::vector<std::string> &args) {
    int status = NO_PYTHON;
    std::string out;
    for (const char *python : python_names) {
        status = status == NO_PYTHON || status == NO_FONTTOOLS ? script_run(python, args, out) : status;
    }
    if (status == NO_PYTHON || status == NO_FONTTOOLS) {
        fail(std::string("needs Python 3 with fontTools: ") + python_help);
        return nullptr;
    }
    cJSON *made = cJSON_Parse(out.c_str());
    const char *error = cJSON_GetStringValue(cJSON_GetObjectItem(made, "error"));
    if (!made || error) {
        fail(error ? error : "the script has failed");
        cJSON_Delete(made);
        return nullptr;
    }
    return made;
}

// The command ---------------------------------------------------------------------------------------------------------

static std::string utf8(u32 letter) {
    const u32 bytes = _lv_txt_unicode_to_encoded(letter);
    char text[5] = "";
    memcpy(text, &bytes, sizeof bytes);
    return text;
}

// Reports icons of texts that the font lacks. A font without any is probably one that texts with icons do not use.
static void icons_print(const cJSON *icons, const letters_t &letters) {
    if (opt.icons.empty() && !letters.icons.empty()) {
        printf("note: texts use :%s:%s; without --icons this font has no icons\n", letters.icons.begin()->first.c_str(),
               letters.icons.size() > 1 ? " and other icons" : "");
        return;
    }
    for (const auto &[icon, place] : letters.icons) {
        if (!cJSON_GetObjectItem(icons, icon.c_str())) {
            printf("%s: note: the icon :%s: is not among --icons, so this font lacks it\n", place.c_str(),
                   icon.c_str());
        }
    }
}

static void made_print(const cJSON *made, const letters_t &letters, const std::string &name) {
    const auto number = [&](const char *key) { return cJSON_GetNumberValue(cJSON_GetObjectItem(made, key)); };
    const cJSON *icons = cJSON_GetObjectItem(made, "icons"), *at = nullptr;
    printf("font/%s: %.0f letters, %d icons, %.1f KiB of %.1f KiB\n", name.c_str(), number("letters"),
           cJSON_GetArraySize(icons), number("after") / 1024, number("before") / 1024);
    cJSON_ArrayForEach(at, icons) {
        printf("  :%s: %s\n", at->string, cJSON_GetStringValue(at));
    }
    cJSON_ArrayForEach(at, cJSON_GetObjectItem(made, "heights")) {
        printf("  size %s: lines of %.0f px\n", at->string, at->valuedouble);
    }
    icons_print(icons, letters);
    cJSON_ArrayForEach(at, cJSON_GetObjectItem(made, "missing")) {
        const u32 letter = (u32)at->valuedouble;
        printf("%s: warning: %s has no U+%04X %s\n", letters.first.at(letter).c_str(), opt.font.c_str(), letter,
               utf8(letter).c_str());
    }
}

static bool font_name(const std::string &folder, std::string &name) {
    name = opt.name.empty() ? std::filesystem::path(opt.font).stem().string() + ".ttf" : opt.name;
    if (!zof_suffix_is(name.c_str(), ".ttf") || name.find('/') != std::string::npos) {
        return fail("--name " + name + ": expected a name that ends in .ttf");
    }
    std::error_code error;
    const std::string path = folder + "font/" + name;
    if (std::filesystem::equivalent(path, opt.font, error)) {
        return fail(path + " is the font itself; choose another --name");
    }
    std::filesystem::create_directory(folder + "font", error);
    if (std::filesystem::is_symlink(folder + "font", error)) {
        return fail(folder + "font is a link; the file would be outside of the project");
    }
    return true;
}

static int font_run() {
    char folder[1024];
    if (zof_check_find(opt.project.c_str(), folder, sizeof folder) != 0) {
        fail(opt.project + ": there is no config/project/zofprj.g in it");
        return ZOF_EXIT_UNREADABLE;
    }
    const std::string icon_file = folder + std::string("config/icons.g");
    cJSON *icons = icons_read(icon_file);
    letters_t letters;
    letters.known = icons;
    std::string name, text;
    if (!icons || !project_walk(letters, folder) || !font_name(folder, name)) {
        cJSON_Delete(icons);
        return ZOF_EXIT_UNREADABLE;
    }
    for (const auto &letter : letters.first) {
        text += utf8(letter.first);
    }
    char next[16];
    snprintf(next, sizeof next, "%X", letter_free(icons));
    std::vector<std::string> args = {opt.font, folder + ("font/" + name), text, opt.weight, opt.sizes, next};
    bool good = true;
    for (const std::string &icon : opt.icons) {
        good = good && icons_split(icon, icons, args);
    }
    cJSON *made = good ? font_make(args) : nullptr;
    good = made && icons_keep(icon_file, icons, cJSON_GetObjectItem(made, "icons"));
    const bool missing = made && cJSON_GetArraySize(cJSON_GetObjectItem(made, "missing")) > 0;
    if (good) {
        made_print(made, letters, name);
    }
    cJSON_Delete(made);
    cJSON_Delete(icons);
    return good && !missing ? ZOF_EXIT_CLEAN : ZOF_EXIT_FINDINGS;
}

int zof_font_add(const std::string &font, const std::string &project, const std::string &name) {
    opt.font = font;
    opt.project = project;
    opt.name = name;
    return font_run();
}

const zof_command_t zof_font_command = {
    "font", "make a font of exactly the letters and icons that a project needs",
    "  zof font add Inter.ttf --project res --size 16,24\n"
    "  zof font add Inter.ttf --project res --icons icons.ttf:cafe,settings\n"
    "Letters are those of all views and languages, digits, and ASCII if something is typed on the panel. Icons\n"
    "are written by name, \":settings: Setup\"; their letters are in config/icons.g. Run it again when texts\n"
    "have changed. Exit status 1 if the font lacks letters.",
    options_add, font_run};
