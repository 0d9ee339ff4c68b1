// The texts of all languages, where they are used, and whether they fit there.
#include <algorithm>
#include <map>
#include <memory>
#include <set>

#include "design_in.h"

struct cell_t {
    bool there;
    std::string text, missing;
    bool measured;
    s32 needs[2], has[2]; // width and height, of the place where the text has the least room
};

struct row_t {
    std::vector<std::string> uses; // paths of controls
    std::map<std::string, cell_t> cells;
};

// The work on one request: it ends when the last view has been drawn.
struct work_t {
    design_request_t request;
    std::vector<std::string> order; // of the keys
    std::map<std::string, row_t> rows;
    s32 left; // views to draw
};
using work_p = std::shared_ptr<work_t>;

// Returns the decoded text of a value in a file.
static std::string decoded(const cJSON *value) {
    cJSON *parsed = cJSON_Parse(design_text_of(value, "raw").c_str());
    const char *text = cJSON_GetStringValue(parsed);
    std::string out = text ? text : "";
    cJSON_Delete(parsed);
    return out;
}

static row_t *row_get(work_t *work, const std::string &key) {
    if (!work->rows.contains(key)) {
        work->order.push_back(key);
    }
    return &work->rows[key];
}

static void language_take(work_t *work, const std::string &language) {
    std::string ignored;
    cJSON *values = design_files_read(design.files, "config/languages/" + language + ".g", "", &ignored);
    const cJSON *value = nullptr;
    cJSON_ArrayForEach(value, values) {
        if (design_text_of(value, "kind") == "text") {
            row_get(work, design_text_of(value, "path"))->cells[language] = {.there = true, .text = decoded(value)};
        }
    }
    cJSON_Delete(values);
}

// Finds the controls of a view that show texts by key.
static void uses_take(work_t *work, const std::string &view) {
    std::string ignored;
    cJSON *values = design_files_read(design.files, "config/view/" + view + ".g", "controls", &ignored);
    std::map<std::string, std::string> names, ids; // by "[3]"
    std::vector<std::pair<std::string, std::string>> found;
    const cJSON *value = nullptr;
    cJSON_ArrayForEach(value, values) {
        const std::string path = design_text_of(value, "path");
        const size_t end = path.find(']');
        const std::string control = path.substr(0, end == std::string::npos ? 0 : end + 1);
        if (path.ends_with(".pub_t.name")) {
            names[control] = decoded(value);
        } else if (path.ends_with(".pub_t.id")) {
            ids[control] = design_text_of(value, "raw");
        } else if (design_text_of(value, "kind") == "text" && decoded(value).starts_with("#")) {
            found.emplace_back(control, decoded(value).substr(1));
        }
    }
    for (const auto &[control, key] : found) {
        const std::string name = names[control].empty() ? "#" + ids[control] : names[control];
        const auto row = work->rows.find(key);
        if (row != work->rows.end()) { // else a colour, or a key that no language has: the checker reports it
            row->second.uses.push_back(view + "/" + name);
        }
    }
    cJSON_Delete(values);
}

static void pair_read(const cJSON *text, const char *name, s32 *out) {
    const cJSON *pair = cJSON_GetObjectItemCaseSensitive(text, name);
    for (s32 i = 0; i < 2; i++) {
        const cJSON *one = cJSON_GetArrayItem(pair, i);
        out[i] = cJSON_IsNumber(one) ? one->valueint : 0;
    }
}

// Of several places, the one counts where most is missing.
static void measure_take(cell_t *cell, const cJSON *text) {
    s32 needs[2];
    s32 has[2];
    pair_read(text, "needs", needs);
    pair_read(text, "has", has);
    const s32 now = std::max(needs[0] - has[0], needs[1] - has[1]);
    const s32 before = std::max(cell->needs[0] - cell->has[0], cell->needs[1] - cell->has[1]);
    if (!cell->measured || now > before) {
        cell->measured = true;
        std::copy(needs, needs + 2, cell->needs);
        std::copy(has, has + 2, cell->has);
    }
    const std::string missing = design_text_of(text, "missing");
    cell->missing = missing.empty() ? cell->missing : missing;
}

static void review_take(work_t *work, const std::string &language, const cJSON *reply) {
    std::multimap<std::string, cell_t *> by_control;
    for (auto &[key, row] : work->rows) {
        for (const std::string &use : row.uses) {
            by_control.emplace(use, &row.cells[language]);
        }
    }
    const cJSON *text = nullptr;
    cJSON_ArrayForEach(text, cJSON_GetObjectItemCaseSensitive(reply, "texts")) {
        const auto range = by_control.equal_range(design_text_of(text, "control"));
        for (auto at = range.first; at != range.second; ++at) {
            if (at->second->there && at->second->text == design_text_of(text, "text")) {
                measure_take(at->second, text);
            }
        }
    }
}

static cJSON *pair_json(const s32 *pair) {
    return cJSON_CreateIntArray(pair, 2);
}

static cJSON *cell_json(const cell_t &cell) {
    cJSON *out = cJSON_CreateObject();
    cJSON_AddItemToObject(out, "text", cell.there ? cJSON_CreateString(cell.text.c_str()) : cJSON_CreateNull());
    if (cell.measured) {
        cJSON_AddItemToObject(out, "needs", pair_json(cell.needs));
        cJSON_AddItemToObject(out, "has", pair_json(cell.has));
    }
    if (!cell.missing.empty()) {
        cJSON_AddStringToObject(out, "missing", cell.missing.c_str());
    }
    return out;
}

static void work_end(const work_t *work, const std::vector<std::string> &languages) {
    cJSON *reply = cJSON_CreateObject();
    cJSON *rows = cJSON_AddArrayToObject(reply, "rows");
    for (const std::string &key : work->order) {
        const row_t &row = work->rows.at(key);
        cJSON *one = cJSON_CreateObject();
        cJSON_AddStringToObject(one, "key", key.c_str());
        cJSON *uses = cJSON_AddArrayToObject(one, "uses");
        for (const std::string &use : row.uses) {
            cJSON_AddItemToArray(uses, cJSON_CreateString(use.c_str()));
        }
        cJSON *cells = cJSON_AddObjectToObject(one, "cells");
        for (const std::string &language : languages) {
            const auto cell = row.cells.find(language);
            cJSON_AddItemToObject(cells, language.c_str(),
                                  cell_json(cell == row.cells.end() ? cell_t{} : cell->second));
        }
        cJSON_AddItemToArray(rows, one);
    }
    design_answer(work->request, reply);
}

static std::vector<std::string> names_of(const char *array, const char *member) {
    std::vector<std::string> out;
    const cJSON *item = nullptr;
    cJSON_ArrayForEach(item, cJSON_GetObjectItemCaseSensitive(design_canvas_project(), array)) {
        out.push_back(member ? design_text_of(item, member) : cJSON_IsString(item) ? item->valuestring : "");
    }
    return out;
}

void design_texts_ask(const design_request_t &request, const cJSON *) {
    const auto work = std::make_shared<work_t>();
    const std::vector<std::string> languages = names_of("languages", nullptr);
    const std::vector<std::string> views = names_of("views", "name");
    work->request = request;
    for (const std::string &language : languages) {
        language_take(work.get(), language);
    }
    std::set<std::string> used; // views with texts by key
    for (const std::string &view : views) {
        uses_take(work.get(), view);
    }
    for (const auto &[key, row] : work->rows) {
        for (const std::string &use : row.uses) {
            used.insert(use.substr(0, use.find('/')));
        }
    }
    work->left = (s32)(used.size() * languages.size());
    for (const std::string &view : used) {
        for (const std::string &language : languages) {
            design_tile_review(view, language, [work, language, languages](const cJSON *reply) {
                review_take(work.get(), language, reply);
                if (--work->left == 0) {
                    work_end(work.get(), languages);
                }
            });
        }
    }
    if (work->left == 0) {
        work_end(work.get(), languages);
    }
}
