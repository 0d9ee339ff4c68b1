#include "manual.h"

#include <cstring>

#include "check/zof_check.h"
#include "control/zof_ctrl_create.h"
#include "func/zof_option.h"
#include "hmi/zof_hmi_action.h"
#include "words.h"

// Escapes a table cell, whose text must not end its column.
static std::string cell(const std::string &text) {
    std::string out;
    for (const char c : text) {
        out += c == '|' ? "\\|" : std::string(1, c);
    }
    return out;
}

static std::string setters(const zof_cat_key_t *key) {
    std::string words;
    for (const char *name : {key->call, key->row}) {
        words += name ? (words.empty() ? "`" : ", `") + std::string(name) + "`" : "";
    }
    return words;
}

static std::string table_row(const std::vector<std::string> &cells) {
    std::string text = "|";
    for (const std::string &words : cells) {
        text.append(" ").append(words).append(" |");
    }
    return text.append("\n");
}

static std::string table_head(const std::vector<std::string> &titles) {
    std::string text = table_row(titles).append("|");
    for (size_t i = 0; i < titles.size(); i++) {
        text.append("---|");
    }
    return text.append("\n");
}

static std::string code(const std::string &words) {
    return "`" + words + "`";
}

static std::string key_row(const zof_cat_record_t *record, const zof_cat_key_t *key, bool live) {
    std::vector<std::string> cells = {code(key->key), cat_kind(key), cat_values(record, key, "`", false),
                                      cell(cat_meaning(key))};
    if (live) {
        cells.push_back(setters(key));
    }
    return table_row(cells);
}

static std::string table(const zof_cat_record_t *record) {
    bool live = false;
    std::string rows;
    for (u32 i = 0; i < record->count; i++) {
        live = live || (cat_is_listed(record, &record->keys[i]) && !setters(&record->keys[i]).empty());
    }
    for (u32 i = 0; i < record->count; i++) {
        rows += cat_is_listed(record, &record->keys[i]) ? key_row(record, &record->keys[i], live) : "";
    }
    std::vector<std::string> titles = {"Key", "Kind", "Values", "Meaning"};
    if (live) {
        titles.push_back("Changed by");
    }
    return rows.empty() ? "" : table_head(titles) + rows;
}

static std::string line_of(const char *title, const std::vector<std::string> &words) {
    return words.empty() ? "" : std::string("\n- ") + title + ": " + cat_join(words, "`") + ".";
}

// Writes the properties of a control type that are not keys.
static std::string type_lines(const zof_cat_type_t *type) {
    std::string text = line_of("Parts", cat_parts(type));
    text += type->sections > 1 ? "\n- Its second object is styled with `style_sect` 1, `second`." : "";
    text += type->parts ? "" : "\n- It has no styles.";
    text += type->parts ? line_of("States", cat_states(type)) : "";
    text += line_of("Events", cat_own_events(type)) + line_of("Functions", cat_list(type->calls));
    return text.substr(text.empty() ? 0 : 1) + "\n";
}

static std::string record_block(const zof_cat_record_t *record) {
    const zof_cat_type_t *type = cat_type_of(record);
    if (!type) {
        return table(record);
    }
    const std::string keys = table(record);
    return "Type " + std::to_string(type->type) + ", `" + type->name + "`, is " + type->help + ".\n\n" + keys +
           (keys.empty() ? "" : "\n") + type_lines(type);
}

static std::string kinds_block(void) {
    std::string text = table_head({"Kind", "In a file", "Values"});
    for (const zof_cat_kind_t &kind : zof_cat_kinds) {
        text += table_row({kind.name, kind.json, kind.help});
    }
    return text;
}

static std::string files_block(void) {
    std::string text = table_head({"File, in the project folder", "What it holds"});
    for (u32 i = 0; i < zof_cat_file_count; i++) {
        text += table_row({code(zof_cat_files[i].path), zof_cat_files[i].help});
    }
    return text;
}

static std::string link_to(const std::string &page) {
    return "[" + page + "](types/" + page + ".md)";
}

// Each page is named after the type's theme file.
static std::string types_block(void) {
    std::string text = table_head({"Type", "Name", "Page, and its theme file", "What it is"});
    for (const zof_cat_type_t &type : zof_cat_types) {
        text += table_row(
            {std::to_string(type.type), code(type.name), link_to(zof_ctrl_classes[type.type]->name), type.help});
    }
    return text;
}

static std::string lint_block(void) {
    std::string text = table_head({"Rule", "What is reported"});
    for (const zof_check_rule_t *rule = zof_lint_rules; rule->name; rule++) {
        text += table_row({code(rule->name), rule->help});
    }
    return text;
}

static std::string actions_block(void) {
    std::string text = table_head({"Action", "What it does"});
    for (const zof_action_row_t *row = zof_action_rows; row->word; row++) {
        text += table_row({code(row->word + (*row->form ? std::string(" ") + row->form : "")), row->help});
    }
    return text;
}

static std::string options_block(void) {
    std::string text = table_head({"Option", "What it does"});
    for (const zof_option_t *row = zof_options; row->name; row++) {
        const std::string letter = row->letter ? code(row->letter) + ", " : "";
        text += table_row({letter + code(row->name + (row->value ? std::string(" ") + row->value : "")), row->help});
    }
    return text;
}

static std::string variables_block(void) {
    std::string text = table_head({"Variable", "What it is for"});
    for (const zof_variable_t *row = zof_variables; row->name; row++) {
        text += table_row({code(row->name), row->help});
    }
    return text;
}

static std::string exits_block(void) {
    std::string text = table_head({"Status", "Meaning"});
    for (const zof_exit_t *row = zof_exits; row->help; row++) {
        text += table_row({std::to_string(row->status), row->help});
    }
    return text;
}

static std::string block_of(const std::string &name) {
    static constexpr struct {
        const char *name;
        std::string (*write)(void);
    } blocks[] = {{"kinds", kinds_block}, {"files", files_block},     {"types", types_block},
                  {"lint", lint_block},   {"options", options_block}, {"variables", variables_block},
                  {"exits", exits_block}, {"actions", actions_block}};
    for (const auto &block : blocks) {
        if (name == block.name) {
            return block.write();
        }
    }
    const zof_cat_record_t *record = cat_record(name);
    return record ? record_block(record) : "";
}

std::string cat_manual_missing(const std::set<std::string> &found) {
    for (u32 i = 0; zof_cat_records[i]->name; i++) {
        const bool bare =
            strchr("0*", zof_cat_records[i]->keys[0].key[0]) != nullptr; // described where the value is used
        if (!bare && !found.count(zof_cat_records[i]->name)) {
            return std::string("no page has \"keys of ") + zof_cat_records[i]->name + ": begin\"";
        }
    }
    return "";
}

// Links of the catalogue lead to sections of the manual, or to pages of types: "#line". `manual` is empty in the
// manual.
static std::string link_target(const std::string &section, const char *manual) {
    for (const zof_ctrl_class_t *type : zof_ctrl_classes) {
        if (section == type->name) {
            return (*manual ? "" : "types/") + section + ".md";
        }
    }
    return manual + ("#" + section);
}

static std::string linked(const std::string &block, const char *manual) {
    static const std::string link = "](#";
    std::string out;
    size_t done = 0;
    for (size_t at = block.find(link); at != std::string::npos; at = block.find(link, done)) {
        const size_t name = at + link.size(), end = block.find(')', name);
        out += block.substr(done, at + 2 - done) + link_target(block.substr(name, end - name), manual);
        done = end;
    }
    return out + block.substr(done);
}

std::string cat_manual_refresh(const std::string &page, const char *manual, std::set<std::string> &found,
                               std::string &now) {
    static const std::string begin = "<!-- keys of ", middle = ": begin -->\n", end = "<!-- keys: end -->";
    now.clear();
    size_t done = 0;
    for (size_t at = page.find(begin); at != std::string::npos; at = page.find(begin, done)) {
        const size_t name_end = page.find(middle, at);
        const size_t stop = page.find(end, at);
        if (name_end == std::string::npos || stop == std::string::npos || stop < name_end) {
            return "a block of keys without an end";
        }
        const std::string name = page.substr(at + begin.size(), name_end - at - begin.size());
        const std::string block = block_of(name);
        if (block.empty() || !found.insert(name).second) {
            return "\"keys of " + name + "\": " + (block.empty() ? "there is no such record" : "given twice");
        }
        now += page.substr(done, name_end + middle.size() - done) + "\n" + linked(block, manual) + "\n";
        done = stop;
    }
    now += page.substr(done);
    return "";
}
