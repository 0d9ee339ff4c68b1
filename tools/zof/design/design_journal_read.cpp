// Reading the journal at the start.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "design_journal.h"
#include "drv/zof_drv.h"

// A step that may not be in the files.
struct pending_t {
    std::vector<design_splice_t> splices;
    bool back;
    std::map<std::string, std::string> before; // hashes
};

struct replay_t {
    design_files_t *files;
    std::map<std::string, std::string> hashes; // of the files after all steps
    std::vector<pending_t> pending;            // since the last mark
    bool begun;
};

static double number_of(const cJSON *json, const char *name) {
    const cJSON *number = cJSON_GetObjectItemCaseSensitive(json, name);
    return cJSON_IsNumber(number) && number->valuedouble >= 0 && number->valuedouble < 9e15 ? number->valuedouble : 0;
}

static u32 count_of(const cJSON *json, const char *name) {
    return (u32)std::min(number_of(json, name), (double)UINT32_MAX);
}

static std::string unescaped(const std::string &text) {
    std::string out;
    for (size_t i = 0; i < text.size(); i++) {
        const bool pair = text[i] == 1 && i + 1 < text.size();
        out += pair ? (char)(text[i + 1] - '0') : text[i];
        i += pair;
    }
    return out;
}

static std::vector<design_splice_t> splices_of(const cJSON *step) {
    std::vector<design_splice_t> out;
    const cJSON *json = nullptr;
    cJSON_ArrayForEach(json, cJSON_GetObjectItemCaseSensitive(step, "splices")) {
        design_splice_t splice = {};
        splice.file = design_text_of(json, "file");
        splice.at = count_of(json, "at");
        splice.before = unescaped(design_text_of(json, "before"));
        splice.after = unescaped(design_text_of(json, "after"));
        splice.path = design_text_of(json, "path");
        splice.line = count_of(json, "line");
        splice.column = count_of(json, "column");
        splice.created = count_of(json, "kind") == 1;
        splice.deleted = count_of(json, "kind") == 2;
        out.push_back(splice);
    }
    return out;
}

static void gesture_do(design_files_t *files, const cJSON *step, const std::vector<design_splice_t> &splices) {
    design_gesture_t gesture = {};
    gesture.label = design_text_of(step, "label");
    gesture.merge = design_text_of(step, "merge");
    gesture.time = (s64)number_of(step, "time");
    gesture.elsewhere = cJSON_IsTrue(cJSON_GetObjectItemCaseSensitive(step, "elsewhere"));
    gesture.splices = splices;
    files->next_number = std::max(files->next_number, count_of(step, "number"));
    design_undo_add(files, std::move(gesture));
}

// Returns false for a step that does not follow from those before it.
static bool step_list(design_files_t *files, const cJSON *step, const std::string &what,
                      const std::vector<design_splice_t> &splices) {
    if (what == "do") {
        gesture_do(files, step, splices);
        return true;
    }
    const size_t at = what == "redo" ? files->done : files->done - 1;
    if (at >= files->gestures.size() || files->gestures[at].number != count_of(step, "number")) {
        return false;
    }
    if (what == "merge") {
        design_undo_merge(&files->gestures[at], splices);
        return true;
    }
    const bool back = what == "undo";
    files->gestures[at].undone = back;
    files->done += back ? (size_t)-1 : 1;
    return back || what == "redo";
}

static bool step_replay(replay_t *replay, const cJSON *step) {
    const std::string what = design_text_of(step, "step");
    pending_t pending = {splices_of(step), what == "undo", {}};
    const cJSON *pair = nullptr;
    cJSON_ArrayForEach(pair, cJSON_GetObjectItemCaseSensitive(step, "files")) {
        const char *before = cJSON_GetStringValue(cJSON_GetArrayItem(pair, 0));
        const char *after = cJSON_GetStringValue(cJSON_GetArrayItem(pair, 1));
        if (!before || !after) {
            return false;
        }
        pending.before[pair->string] = before;
        replay->hashes[pair->string] = after;
    }
    const bool good = step_list(replay->files, step, what, pending.splices);
    replay->pending.push_back(std::move(pending));
    return good;
}

// The state after a list of gestures that was written at once.
static bool state_replay(replay_t *replay, const cJSON *state) {
    design_files_t *files = replay->files;
    files->done = std::min((size_t)count_of(state, "done"), files->gestures.size());
    files->closed = std::min((size_t)count_of(state, "closed"), files->done);
    files->closed_why = design_text_of(state, "why");
    files->next_number = std::max(files->next_number, count_of(state, "next"));
    for (size_t i = files->done; i < files->gestures.size(); i++) {
        files->gestures[i].undone = true;
    }
    const cJSON *hash = nullptr;
    cJSON_ArrayForEach(hash, cJSON_GetObjectItemCaseSensitive(state, "state")) {
        replay->hashes[hash->string] = cJSON_IsString(hash) ? hash->valuestring : "";
    }
    replay->pending.clear();
    return true;
}

static bool line_replay(replay_t *replay, const std::string &line) {
    cJSON *json = cJSON_ParseWithLength(line.data(), line.size());
    bool good = json != nullptr;
    if (!replay->begun) {
        good = count_of(json, "journal") == 1;
        replay->begun = good;
    } else if (cJSON_HasObjectItem(json, "step")) {
        good = step_replay(replay, json);
    } else if (cJSON_HasObjectItem(json, "state")) {
        good = state_replay(replay, json);
    } else if (cJSON_HasObjectItem(json, "saved")) {
        replay->pending.clear();
    }
    cJSON_Delete(json);
    return good;
}

// Replays a journal, and sets the size of its whole lines: files were never written after a line that is not whole.
// Returns false for a damaged journal.
static bool text_replay(replay_t *replay, const std::string &text, u64 *size) {
    bool good = true;
    size_t at = 0;
    for (size_t end; good && (end = text.find('\n', at)) != std::string::npos; at = end + 1) {
        good = line_replay(replay, text.substr(at, end - at));
    }
    *size = at;
    return good && replay->begun;
}

// Brings one file from its text on the disk to that after all steps. Returns false if no step begins with its text.
static bool file_finish(replay_t *replay, const std::string &file, design_works_t *works) {
    design_file_t *entry = design_file_of(replay->files, file);
    const std::string hash = entry ? design_file_hash(entry) : "";
    bool found = false;
    for (const pending_t &pending : replay->pending) {
        const auto before = pending.before.find(file);
        found = found || (before != pending.before.end() && before->second == hash);
        std::vector<design_splice_t> own;
        std::copy_if(pending.splices.begin(), pending.splices.end(), std::back_inserter(own),
                     [&file](const design_splice_t &splice) { return splice.file == file; });
        if (found && !design_splices_apply(replay->files, own, pending.back, works).empty()) {
            return false;
        }
    }
    const auto work = works->find(file);
    return found && work != works->end() &&
           (work->second.exists ? design_doc_hash(work->second.text) : "-") == replay->hashes[file];
}

// Applies the steps that are not in the files. Returns false, with nothing applied, if the files do not fit.
static bool files_finish(replay_t *replay) {
    design_works_t works;
    for (const auto &[file, hash] : replay->hashes) {
        design_file_t *entry = design_file_of(replay->files, file);
        if (!entry || (design_file_hash(entry) != hash && !file_finish(replay, file, &works))) {
            return false;
        }
    }
    design_works_keep(replay->files, &works);
    return true;
}

// Keeps what does not fit beside the new journal if it has changes that are in no file.
static void journal_replace(replay_t *replay) {
    const std::string path = replay->files->state + "journal";
    if (!replay->pending.empty()) {
        zof_rename(path.c_str(), (path + "-unfit").c_str());
    }
    design_undo_close(replay->files, "the files have been changed since they were last open here");
    design_journal_begin(replay->files);
}

void design_journal_open(design_files_t *files, const std::string &state) {
    char holder[64];
    if (state.empty() || zof_mkdir(state.c_str()) < 0) {
        return;
    }
    files->state = state + "/";
    files->lock = zof_folder_lock(state.c_str(), holder, sizeof(holder));
    if (files->lock == 0) {
        return; // another process has this project open, and keeps its list
    }
    std::string text;
    replay_t replay = {files, {}, {}, false};
    if (!design_file_read(files->state + "journal", &text) || text.empty()) {
        design_journal_begin(files);
    } else if (text_replay(&replay, text, &files->journal_size) && files_finish(&replay)) {
        design_journal_append(files);
    } else {
        journal_replace(&replay);
    }
}
