// zof catalogue: prints everything that a project folder may contain, for people and for programs.
#include <cstring>
#include <filesystem>
#include <iostream>
#include <sstream>

#include "catalogue/json.h"
#include "catalogue/words.h"
#include "tool_file.h"
#include "zof.h"

static struct {
    std::string word, schema_folder;
    bool json;
} self;

enum { KEY_COLUMN = 2, KIND_COLUMN = 26, TEXT_COLUMN = 46, COLUMNS = 118 };

// Removes Markdown: "[below](#here)" becomes "below".
static std::string plain(const std::string &text) {
    std::string out;
    for (size_t i = 0; i < text.size(); i++) {
        if (text.compare(i, 2, "](") == 0) {
            i = text.find(')', i);
        } else if (!strchr("`[*", text[i])) {
            out += text[i];
        }
    }
    return out;
}

// Prints a text with line breaks, starting at a column that the caller's output has already reached.
static void wrapped(const std::string &text, size_t column) {
    std::istringstream words(text);
    size_t at = column;
    for (std::string word; words >> word;) {
        if (at > column && at + 1 + word.size() > COLUMNS) {
            std::cout << "\n" << std::string(column, ' ');
            at = column;
        }
        std::cout << (at > column ? " " : "") << word;
        at += word.size() + (at > column);
    }
    std::cout << "\n";
}

static std::string padded(const std::string &text, size_t width) {
    return text + std::string(text.size() < width ? width - text.size() : 1, ' ');
}

static void line(const std::string &text) {
    std::cout << std::string(TEXT_COLUMN, ' ');
    wrapped(text, TEXT_COLUMN);
}

static void key_print(const zof_cat_record_t *record, const zof_cat_key_t *key) {
    std::cout << std::string(KEY_COLUMN, ' ') << padded(key->key, KIND_COLUMN - KEY_COLUMN)
              << padded(cat_kind(key), TEXT_COLUMN - KIND_COLUMN);
    wrapped(plain(cat_meaning(key)), TEXT_COLUMN);
    const std::string values = cat_values(record, key, "", true);
    if (!values.empty()) {
        line(values);
    }
    if (key->call || key->row) {
        line("changed by " + std::string(key->call ? key->call : "") + (key->call && key->row ? ", " : "") +
             (key->row ? std::string("row ") + key->row : ""));
    }
}

static void record_print(const zof_cat_record_t *record) {
    for (u32 i = 0; i < record->count; i++) {
        key_print(record, &record->keys[i]);
    }
}

static void list_print(const char *title, const std::vector<std::string> &words) {
    if (!words.empty()) {
        std::cout << padded(title, KIND_COLUMN);
        wrapped(cat_join(words, ""), KIND_COLUMN);
    }
}

static void type_print(const zof_cat_type_t *type) {
    std::cout << type->name << ", type " << type->type << ": " << type->help << "\n\n";
    record_print(type->record);
    std::cout << "\n";
    list_print("parts", cat_parts(type));
    list_print("states", cat_states(type));
    list_print("events", cat_list(type->events));
    list_print("functions", cat_list(type->calls));
    if (type->rows) {
        list_print("rows of a host", {std::string(type->rows) + ".*", "control.*"});
    }
}

static void all_print(void) {
    std::cout << "Control types:\n";
    for (const zof_cat_type_t &type : zof_cat_types) {
        std::cout << padded("  " + std::to_string(type.type), 6) << padded(type.name, 20) << type.help << "\n";
    }
    std::cout << "\nFiles of a project folder:\n";
    for (u32 i = 0; i < zof_cat_file_count; i++) {
        const zof_cat_file_t *file = &zof_cat_files[i];
        std::cout << "  " << padded(file->path, 28) << plain(file->help)
                  << (file->root ? std::string(" [") + file->root->name + "]" : "") << "\n";
    }
    std::cout << "\n`zof catalogue NAME` explains a control type, an object such as pub_t or style, or a key.\n";
}

// Prints the keys with this name (if `whole`) or whose name contains it. Returns false if no key matches.
static bool keys_print(const std::string &word, bool whole) {
    bool found = false;
    for (u32 i = 0; zof_cat_records[i]->name; i++) {
        const zof_cat_record_t *record = zof_cat_records[i];
        for (u32 k = 0; k < record->count; k++) {
            const bool same = zof_cat_key(record, word.c_str()) == &record->keys[k];
            if (cat_is_listed(record, &record->keys[k]) &&
                (whole ? same : strstr(record->keys[k].key, word.c_str()) != nullptr)) {
                std::cout << (found ? "\n" : "") << record->name << ":\n";
                key_print(record, &record->keys[k]);
                found = true;
            }
        }
    }
    return found;
}

static int word_print(const std::string &word) {
    s64 type = -1;
    if (zof_names_read(zof_type_names, ZOF_FALSE, word.c_str(), &type) == 0) {
        type_print(&zof_cat_types[type]);
        return ZOF_EXIT_CLEAN;
    }
    const zof_cat_record_t *record = cat_record(word);
    if (record) {
        std::cout << record->name << (record->help ? std::string(": ") + plain(record->help) : "") << "\n\n";
        record_print(record);
        return ZOF_EXIT_CLEAN;
    }
    if (keys_print(word, true) || keys_print(word, false)) {
        return ZOF_EXIT_CLEAN;
    }
    std::cerr << "zof catalogue: no control type, object or key has the name \"" << word << "\"\n";
    return ZOF_EXIT_FINDINGS;
}

static int schemas_write(const std::string &folder) {
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    for (const char *const *name = cat_schema_names; *name; name++) {
        const std::string file = folder + "/" + *name + ".json";
        const std::string reason = tool_file_write(file, cat_schema(*name));
        if (!reason.empty()) {
            std::cerr << "zof catalogue: " << file << ": " << reason << "\n";
            return ZOF_EXIT_UNREADABLE;
        }
    }
    return ZOF_EXIT_CLEAN;
}

static void options(CLI::App &app) {
    app.add_option("NAME", self.word, "control type, object, key, or a part of a key");
    CLI::Option *json = app.add_flag("--json", self.json, "print the whole catalogue as JSON");
    app.add_option("--schema", self.schema_folder, "write JSON Schemas for editors into a folder")
        ->type_name("FOLDER")
        ->excludes(json);
}

static int run() {
    if (!self.schema_folder.empty()) {
        return schemas_write(self.schema_folder);
    }
    if (self.json) {
        std::cout << cat_json();
        return ZOF_EXIT_CLEAN;
    }
    if (self.word.empty()) {
        all_print();
        return ZOF_EXIT_CLEAN;
    }
    return word_print(self.word);
}

const zof_command_t zof_catalogue_command = {
    .name = "catalogue",
    .help = "explain control types and the keys of project files",
    .examples = "  zof catalogue                 all control types and files\n"
                "  zof catalogue button          the keys, functions, parts and events of buttons\n"
                "  zof catalogue \"check box\"     a name of two words\n"
                "  zof catalogue alpha           a key, wherever it is\n"
                "  zof catalogue --json          everything, for other programs\n"
                "  zof catalogue --schema DIR    schemas, with which editors complete and underline\n",
    .options = options,
    .run = run,
};
