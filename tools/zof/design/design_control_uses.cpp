// Where controls are used: in actions of views, and in programs and scripts beside the project, which call them by the
// names that `zof ids` writes, or by their names in quotes.
#include <algorithm>
#include <cctype>
#include <cstring>

#include "design_control.h"
#include "drv/zof_drv.h"
#include "hmi/zof_hmi_action.h"

enum { DEPTH_MAX = 6, FILES_MAX = 2000, USES_MAX = 100, SOURCE_MAX = 1 << 20 };

// Actions ----------------------------------------------------------------------------------------------------------

// Returns where the name stands in an argument, "brew", "brew.txt" or "home/brew"; npos for another control.
static size_t name_in(const design_view_t *view, bool same_view, zof_action_arg_e kind, const std::string &argument,
                      const std::set<std::string> &names) {
    char field[ZOF_ACTION_SIZE];
    std::string path = argument;
    if (kind == ZOF_ACTION_FIELD && zof_action_field(argument.c_str(), field, sizeof(field))) {
        path = field;
    } else if (kind != ZOF_ACTION_CONTROL) {
        return std::string::npos;
    }
    const size_t slash = path.find('/');
    const std::string owner = slash == std::string::npos ? "" : path.substr(0, slash);
    const bool of_view = owner.empty()
                             ? same_view
                             : owner == view->name || owner == view->name + ".g" || owner == std::to_string(view->id);
    const size_t at = slash == std::string::npos ? 0 : slash + 1;
    return of_view && names.contains(path.substr(at)) ? at : std::string::npos;
}

// Returns 0 if an argument is the view, or a control with its view's name; npos otherwise.
static size_t view_in(const design_view_t *view, zof_action_arg_e kind, const std::string &argument) {
    const bool is_view = kind == ZOF_ACTION_VIEW && (argument == view->name || argument == view->name + ".g");
    const bool in_view =
        (kind == ZOF_ACTION_CONTROL || kind == ZOF_ACTION_FIELD) && argument.starts_with(view->name + "/");
    return is_view || in_view ? 0 : std::string::npos;
}

struct action_walk_t {
    const design_view_t *view;
    std::string file;
    const std::set<std::string> *names; // of controls; null for the view itself
    design_action_fn fn;
    void *arg;
};

static void action_look(const action_walk_t *walk, const std::string &path, const char *text) {
    zof_action_t action;
    if (zof_action_parse(text, &action) != nullptr) {
        return;
    }
    for (u32 i = 0; i < ZOF_ACTION_ARGS && action.args[i]; i++) {
        const auto begin = (size_t)(action.args[i] - action.text);
        const zof_action_arg_e kind = action.row->args[i];
        const size_t at = walk->names
                              ? name_in(walk->view, walk->file == walk->view->file, kind, action.args[i], *walk->names)
                              : view_in(walk->view, kind, action.args[i]);
        const bool there = std::string(text).compare(begin, strlen(action.args[i]), action.args[i]) == 0;
        if (at != std::string::npos && there) {
            walk->fn(walk->file, path, text, begin + at, walk->arg);
            return;
        }
    }
}

static void entry_look(const action_walk_t *walk, const zof_jdoc_t *json, u32 entry, const std::string &path) {
    const u32 on = zof_jdoc_get(json, entry, "on");
    u32 list = on == ZOF_J_NONE ? on : json->nodes[on].child;
    for (; list != ZOF_J_NONE; list = json->nodes[list].next) {
        char key[64];
        if (zof_jdoc_key(json, list, key, sizeof(key)) < 0 || json->nodes[list].kind != ZOF_J_ARRAY) {
            continue;
        }
        u32 index = 0;
        for (u32 at = json->nodes[list].child; at != ZOF_J_NONE; at = json->nodes[at].next, index++) {
            char text[ZOF_ACTION_SIZE];
            if (zof_jdoc_text(json, at, text, sizeof(text)) >= 0) {
                action_look(walk, path + ".on." + key + "[" + std::to_string(index) + "]", text);
            }
        }
    }
}

void design_control_actions(design_files_t *files, const design_view_t *view, const std::set<std::string> *names,
                            design_action_fn fn, void *arg) {
    for (auto &[file, entry] : files->files) {
        if (!file.starts_with("config/view/") || entry.doc.text.find("\"on\"") == std::string::npos ||
            !design_doc_index(&entry.doc)) {
            continue;
        }
        const action_walk_t walk = {view, file, names, fn, arg};
        const zof_jdoc_t json = design_doc_json(&entry.doc);
        const u32 controls = zof_jdoc_get(&json, 0, "controls");
        u32 index = 0;
        u32 at = controls == ZOF_J_NONE ? controls : json.nodes[controls].child;
        for (; at != ZOF_J_NONE; at = json.nodes[at].next, index++) {
            entry_look(&walk, &json, at, "controls[" + std::to_string(index) + "]");
        }
    }
}

// Programs ---------------------------------------------------------------------------------------------------------

struct search_t {
    std::vector<std::string> words; // VIEW1_BREW_ID
    std::vector<std::string> texts; // "brew" in quotes
    u32 files;
    std::vector<std::string> *uses;
};

static bool is_word(char c) {
    return isalnum((u8)c) || c == '_';
}

static bool has_word(const std::string &line, const std::string &word) {
    for (size_t at = line.find(word); at != std::string::npos; at = line.find(word, at + 1)) {
        const size_t end = at + word.size();
        if ((at == 0 || !is_word(line[at - 1])) && (end == line.size() || !is_word(line[end]))) {
            return true;
        }
    }
    return false;
}

static bool line_uses(const search_t *search, const std::string &line) {
    return std::any_of(search->words.begin(), search->words.end(),
                       [&line](const std::string &word) { return has_word(line, word); }) ||
           std::any_of(search->texts.begin(), search->texts.end(),
                       [&line](const std::string &text) { return line.find(text) != std::string::npos; });
}

static void source_search(search_t *search, const std::string &path, const std::string &shown) {
    std::string text;
    if (zof_file_size(path.c_str()) > SOURCE_MAX || !design_file_read(path, &text) ||
        text.starts_with("// Generated by `zof ids`")) {
        return;
    }
    u32 number = 1;
    for (size_t at = 0; at < text.size() && search->uses->size() < USES_MAX; number++) {
        const size_t end = std::min(text.find('\n', at), text.size());
        if (line_uses(search, text.substr(at, end - at))) {
            search->uses->push_back(shown + ":" + std::to_string(number));
        }
        at = end + 1;
    }
}

static bool is_source(const std::string &name) {
    static const char *const ends[] = {".c", ".cpp", ".h", ".py"};
    return std::any_of(std::begin(ends), std::end(ends), [&name](const char *end) { return name.ends_with(end); });
}

// Links are not followed, because they may lead anywhere.
static void folder_search(search_t *search, const std::string &folder, const std::string &shown, u32 depth) {
    std::vector<std::string> names;
    zof_dir_t *dir = zof_opendir(folder.c_str());
    while (const zof_dirent_t *entry = dir ? zof_readdir(dir) : nullptr) {
        names.push_back(entry->name);
    }
    zof_closedir(dir);
    std::sort(names.begin(), names.end());
    for (const std::string &name : names) {
        if (name.empty() || name[0] == '.' || name.starts_with("build") || name == "node_modules") {
            continue;
        }
        const std::string path = folder + name;
        const u32 kind = zof_file_kind(path.c_str());
        if (kind == ZOF_FILE_FOLDER && depth < DEPTH_MAX) {
            folder_search(search, path + "/", shown + name + "/", depth + 1);
        } else if (kind == ZOF_FILE_PLAIN && is_source(name) && search->files < FILES_MAX) {
            search->files++;
            source_search(search, path, shown + name);
        }
    }
}

struct note_t {
    design_files_t *files;
    const design_view_t *view;
    const std::vector<u32> *controls; // whose own actions are no uses when they are deleted
    std::vector<std::string> *uses;
};

static void action_note(const std::string &file, const std::string &path, const std::string &, size_t, void *arg) {
    const auto *note = (const note_t *)arg;
    design_doc_t *doc = &note->files->files.at(file).doc;
    const u32 node = design_doc_find(doc, file, path);
    const u32 index = (u32)strtoul(path.c_str() + strlen("controls["), nullptr, 10);
    const bool own = file == note->view->file && note->controls->size() > 1 && design_view_in(*note->controls, index);
    if (node != ZOF_J_NONE && !own) {
        const zof_jdoc_t json = design_doc_json(doc);
        u32 line;
        u32 column;
        zof_jdoc_place(&json, json.nodes[node].at, &line, &column);
        note->uses->push_back(file + ":" + std::to_string(line));
    }
}

std::vector<std::string> design_control_uses(design_files_t *files, const design_view_t *view,
                                             const std::vector<u32> &controls) {
    std::vector<std::string> uses;
    search_t search = {{}, {}, 0, &uses};
    std::set<std::string> names;
    for (const u32 index : controls) {
        const std::string &name = view->all[index].name;
        if (name.empty()) {
            continue;
        }
        search.words.push_back("VIEW" + std::to_string(view->id) + "_" + design_control_upper(name) + "_ID");
        for (const std::string &text : {name, view->name + "/" + name}) {
            search.texts.push_back("\"" + text + "\"");
            search.texts.push_back("'" + text + "'");
        }
        names.insert(name);
    }
    note_t note = {files, view, &controls, &uses};
    design_control_actions(files, view, &names, action_note, &note);
    if (search.words.empty()) {
        return uses;
    }
    // The program of a project stands beside its folder if that is `res`, as in each project that `zof new` makes.
    const std::string end = "/res/";
    const bool inside = files->folder.ends_with(end);
    folder_search(&search, inside ? files->folder.substr(0, files->folder.size() - end.size() + 1) : files->folder, "",
                  0);
    return uses;
}
