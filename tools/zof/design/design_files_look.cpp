// Changes that other programs make on the disk, taken over as gestures.
#include <algorithm>
#include <cstring>
#include <set>

#include "design_journal.h"
#include "design_text.h"

// Differences ------------------------------------------------------------------------------------------------------

static bool is_inside_character(const std::string &text, size_t at) {
    return at < text.size() && ((u8)text[at] & 0xC0) == 0x80;
}

// The common head and tail stay; characters are not split, because the pages get both texts.
static design_splice_t difference(const std::string &file, const std::string &before, const std::string &after) {
    size_t head = 0;
    size_t tail = 0;
    const size_t most = std::min(before.size(), after.size());
    while (head < most && before[head] == after[head]) {
        head++;
    }
    while (head > 0 && (is_inside_character(before, head) || is_inside_character(after, head))) {
        head--;
    }
    while (tail < most - head && before[before.size() - 1 - tail] == after[after.size() - 1 - tail]) {
        tail++;
    }
    while (tail > 0 && is_inside_character(before, before.size() - tail)) {
        tail--;
    }
    design_splice_t splice = {};
    splice.file = file;
    splice.at = (u32)head;
    splice.before = before.substr(head, before.size() - head - tail);
    splice.after = after.substr(head, after.size() - head - tail);
    const zof_jdoc_t json = {before.data(), before.size()};
    zof_jdoc_place(&json, splice.at, &splice.line, &splice.column);
    return splice;
}

static design_splice_t splice_of(const std::string &file, const design_doc_t &before, const design_doc_t &after) {
    design_splice_t splice = difference(file, before.text, after.text);
    splice.created = !before.exists && after.exists;
    splice.deleted = before.exists && !after.exists;
    if (splice.created || splice.deleted) {
        splice.at = 0;
        splice.before = before.text;
        splice.after = after.text;
    }
    return splice;
}

// Files with edits that could not be written ----------------------------------------------------------------------

// Returns the node of the control with this id; ZOF_J_NONE if no one or several have it.
static std::string path_elsewhere(design_doc_t *mine, design_doc_t *theirs, const std::string &file,
                                  const std::string &path) {
    const size_t end = path.find(']');
    const std::string id = ".property.pub_t.id";
    if (!path.starts_with("controls[") || end == std::string::npos) {
        return path;
    }
    const std::string raw = design_doc_raw(mine, file, path.substr(0, end + 1) + id);
    if (raw.empty() || design_doc_raw(theirs, file, path.substr(0, end + 1) + id) == raw) {
        return path;
    }
    const u32 controls = design_doc_find(theirs, file, "controls");
    const zof_jdoc_t json = design_doc_json(theirs);
    u32 at = controls == ZOF_J_NONE ? (u32)ZOF_J_NONE : json.nodes[controls].child;
    for (u32 i = 0; at != ZOF_J_NONE; at = json.nodes[at].next, i++) {
        const u32 node = zof_jdoc_find(&json, at, id.c_str());
        if (node != ZOF_J_NONE &&
            theirs->text.substr(json.nodes[node].at, json.nodes[node].end - json.nodes[node].at) == raw) {
            return "controls[" + std::to_string(i) + "]" + path.substr(end + 1);
        }
    }
    return "";
}

// Puts the values that this program has set, and not written, into the text of the other one. Returns false, with why,
// if the other one has changed the same values, or if something else than a value was changed.
static bool values_carry(design_files_t *files, const std::string &file, design_file_t *entry, design_doc_t *theirs,
                         std::string *why) {
    std::set<std::string> paths;
    for (size_t i = 0; i < files->done; i++) {
        for (const design_splice_t &splice : files->gestures[i].splices) {
            if (splice.file == file) {
                paths.insert(splice.path);
            }
        }
    }
    design_doc_t made = *theirs;
    for (const std::string &path : paths) {
        const std::string base = path.empty() ? "" : design_doc_raw(&entry->disk, file, path);
        const std::string mine = design_doc_raw(&entry->doc, file, path);
        const std::string there = path.empty() ? "" : path_elsewhere(&entry->doc, &made, file, path);
        const std::string other = there.empty() ? "" : design_doc_raw(&made, file, there);
        if (base == mine && !path.empty()) {
            continue; // written before
        }
        if (base.empty() || mine.empty() || (other != base && other != mine)) {
            *why = path + (other.empty() ? " is not there" : " is " + other.substr(0, 100) + " there") + ", and " +
                   mine.substr(0, 100) + " here; undo brings it back";
            return false;
        }
        const u32 node = design_doc_find(&made, file, there);
        design_doc_splice(&made, made.nodes[node].at, (u32)other.size(), mine, ZOF_J_NONE, ZOF_J_NULL);
    }
    *theirs = made;
    return true;
}

// Taking over ------------------------------------------------------------------------------------------------------

// Reads the disk's text. Returns false if it is the known one.
static bool disk_read(const design_files_t *files, const std::string &file, design_file_t *entry, design_doc_t *out) {
    const std::string path = design_file_path(files, file);
    entry->stamp = {};
    *out = {};
    if (!path.empty()) {
        zof_file_stamp(path.c_str(), &entry->stamp);
        out->exists = design_file_read(path, &out->text);
    }
    const design_doc_t &known = entry->unsaved ? entry->disk : entry->doc;
    return out->exists != known.exists || out->text != known.text;
}

static std::string name_of(const std::string &file) {
    return file.substr(file.rfind('/') + 1);
}

static void file_take(design_files_t *files, const std::string &file, s64 now) {
    design_file_t *entry = &files->files.at(file);
    design_doc_t theirs;
    if (!disk_read(files, file, entry, &theirs)) {
        return;
    }
    const design_doc_t disk = theirs;
    std::string why;
    if (entry->unsaved && theirs.exists) {
        values_carry(files, file, entry, &theirs, &why);
    }
    design_gesture_t gesture = {};
    gesture.label = name_of(file) + " changed elsewhere" + (why.empty() ? "" : ": " + why);
    gesture.elsewhere = true;
    gesture.time = now;
    gesture.splices.push_back(splice_of(file, entry->doc, theirs));
    entry->unsaved = true;
    entry->disk = disk;
    const bool changes = theirs.exists != entry->doc.exists || theirs.text != entry->doc.text;
    design_file_set(files, file, std::move(theirs));
    if (changes) {
        const design_gesture_t *added = design_undo_add(files, std::move(gesture));
        files->unreported.push_back(added->number);
        design_journal_step(files, "do", added->number, added->splices);
    }
    files->merged_at = 0;
}

// Many files at once are another branch or a script: a new beginning, not gestures.
static void all_take(design_files_t *files, const std::vector<std::string> &changed) {
    for (const std::string &file : changed) {
        design_file_t *entry = &files->files.at(file);
        design_doc_t theirs;
        if (disk_read(files, file, entry, &theirs)) {
            entry->doc = theirs;
            entry->unsaved = false;
            entry->disk = {};
            entry->hash.clear();
        }
    }
    design_undo_close(files, "many files changed elsewhere since");
    design_journal_closed(files);
    files->unreported.push_back(0);
}

void design_files_take(design_files_t *files, const std::vector<std::string> &changed, s64 now) {
    if (changed.size() > DESIGN_ELSEWHERE_MAX) {
        all_take(files, changed);
        return;
    }
    for (const std::string &file : changed) {
        file_take(files, file, now);
    }
    design_files_write(files);
}

// Looking ----------------------------------------------------------------------------------------------------------

// Compares the stamps of files that are not texts. Returns whether one has changed, come or gone.
static bool others_changed(design_files_t *files, const std::vector<std::string> &all) {
    std::map<std::string, zof_file_stamp_t> now;
    for (const std::string &file : all) {
        if (!design_files_is_text(file) && !design_file_path(files, file).empty()) {
            zof_file_stamp((files->folder + file).c_str(), &now[file]);
        }
    }
    const bool same = now.size() == files->others.size() &&
                      std::equal(now.begin(), now.end(), files->others.begin(), [](const auto &a, const auto &b) {
                          return a.first == b.first && memcmp(&a.second, &b.second, sizeof(a.second)) == 0;
                      });
    files->others = now;
    return !same;
}

// Texts that have appeared become known as files that did not exist before.
static void new_texts(design_files_t *files, const std::vector<std::string> &all) {
    for (const std::string &file : all) {
        if (design_files_is_text(file) && !files->files.contains(file) && !design_file_path(files, file).empty()) {
            files->files.emplace(file, design_file_t{});
        }
    }
}

std::vector<u32> design_files_look(design_files_t *files, s64 now) {
    std::vector<std::string> all;
    std::vector<std::string> changed;
    design_files_walk(files, "", &all);
    new_texts(files, all);
    for (const auto &[file, entry] : files->files) {
        if (design_file_changed(files, file, &entry)) {
            changed.push_back(file);
        }
    }
    const bool others = others_changed(files, all);
    design_files_take(files, changed, now);
    std::vector<u32> numbers = std::move(files->unreported);
    files->unreported.clear();
    if (others && std::find(numbers.begin(), numbers.end(), 0U) == numbers.end()) {
        numbers.push_back(0);
    }
    return numbers;
}
