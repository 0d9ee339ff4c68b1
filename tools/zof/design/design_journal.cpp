// The journal. A step is appended before its files are written, and a mark after them. At the next start the steps
// after the last mark are applied to the files that still have the text before them, so that a step over several files
// is made whole. Each step has the hashes of its files before and after it: if they lead to other texts than those on
// the disk, another program has been at work, and nothing is applied.
#include "design_journal.h"

#include <algorithm>
#include <cstring>

#include "drv/zof_drv.h"

enum { JOURNAL_MAX = 16 << 20, JOURNAL_KEPT = 8 << 20 };

// Writing ----------------------------------------------------------------------------------------------------------

// A text of JSON ends at a zero byte, which is written as two others.
static std::string escaped(const std::string &text) {
    std::string out;
    for (const char c : text) {
        out += c == 0 || c == 1 ? std::string("\1") + (char)('0' + c) : std::string(1, c);
    }
    return out;
}

static cJSON *splice_json(const design_splice_t &splice) {
    cJSON *out = cJSON_CreateObject();
    cJSON_AddStringToObject(out, "file", splice.file.c_str());
    cJSON_AddNumberToObject(out, "at", splice.at);
    cJSON_AddStringToObject(out, "before", escaped(splice.before).c_str());
    cJSON_AddStringToObject(out, "after", escaped(splice.after).c_str());
    cJSON_AddStringToObject(out, "path", splice.path.c_str());
    cJSON_AddNumberToObject(out, "line", splice.line);
    cJSON_AddNumberToObject(out, "column", splice.column);
    cJSON_AddNumberToObject(out, "kind", splice.created ? 1 : splice.deleted ? 2 : 0);
    return out;
}

static cJSON *splices_json(const std::vector<design_splice_t> &splices) {
    cJSON *out = cJSON_CreateArray();
    for (const design_splice_t &splice : splices) {
        cJSON_AddItemToArray(out, splice_json(splice));
    }
    return out;
}

static cJSON *step_json(const char *what, const design_gesture_t &gesture,
                        const std::vector<design_splice_t> &splices) {
    cJSON *out = cJSON_CreateObject();
    cJSON_AddStringToObject(out, "step", what);
    cJSON_AddNumberToObject(out, "number", gesture.number);
    cJSON_AddStringToObject(out, "label", gesture.label.c_str());
    cJSON_AddStringToObject(out, "merge", gesture.merge.c_str());
    cJSON_AddNumberToObject(out, "time", (double)gesture.time);
    cJSON_AddBoolToObject(out, "elsewhere", gesture.elsewhere);
    cJSON_AddItemToObject(out, "splices", splices_json(splices));
    return out;
}

static std::string line_of(cJSON *json) {
    char *text = cJSON_PrintUnformatted(json);
    std::string line = text ? std::string(text) + "\n" : "";
    cJSON_free(text);
    cJSON_Delete(json);
    return line;
}

static void journal_end(design_files_t *files) {
    if (files->journal) {
        fclose(files->journal);
        files->journal = nullptr;
    }
}

// A line that cannot be written whole is taken back. Without it the journal does not fit any more, which the next start
// finds by the hashes, unless it is written as a whole before.
static void line_put(design_files_t *files, const std::string &line, bool sync) {
    if (!files->journal) {
        return;
    }
    const bool good = zof_file_put(files->journal, line.data(), line.size()) == 0 && fflush(files->journal) == 0;
    if (!good) {
        zof_file_cut(files->journal, files->journal_size);
        journal_end(files);
        return;
    }
    files->journal_size += line.size();
    if (sync) {
        zof_file_sync(files->journal);
    }
}

void design_journal_step(design_files_t *files, const char *what, u32 number,
                         const std::vector<design_splice_t> &splices) {
    if (!files->journal) {
        return;
    }
    const auto gesture = std::find_if(files->gestures.begin(), files->gestures.end(),
                                      [number](const design_gesture_t &one) { return one.number == number; });
    if (gesture == files->gestures.end()) {
        return;
    }
    cJSON *step = step_json(what, *gesture, splices);
    cJSON *hashes = cJSON_AddObjectToObject(step, "files");
    for (const design_splice_t &splice : splices) {
        if (!cJSON_HasObjectItem(hashes, splice.file.c_str())) {
            design_file_t *entry = &files->files.at(splice.file);
            cJSON *pair = cJSON_AddArrayToObject(hashes, splice.file.c_str());
            cJSON_AddItemToArray(pair, cJSON_CreateString(entry->hash_before.c_str()));
            cJSON_AddItemToArray(pair, cJSON_CreateString(design_file_hash(entry).c_str()));
        }
    }
    const bool several = cJSON_GetArraySize(hashes) > 1;
    line_put(files, line_of(step), several);
}

// Beginning again --------------------------------------------------------------------------------------------------

static size_t bytes_of(const design_gesture_t &gesture) {
    size_t bytes = 200;
    for (const design_splice_t &splice : gesture.splices) {
        bytes += splice.before.size() + splice.after.size() + splice.path.size() + splice.file.size() + 100;
    }
    return bytes;
}

// Drops the oldest gestures that have no room.
static void gestures_trim(design_files_t *files) {
    size_t bytes = 0;
    size_t first = files->gestures.size();
    while (first > 0 && (bytes += bytes_of(files->gestures[first - 1])) < JOURNAL_KEPT) {
        first--;
    }
    first = std::min(first, files->done);
    files->gestures.erase(files->gestures.begin(), files->gestures.begin() + (std::ptrdiff_t)first);
    files->done -= first;
    files->closed -= std::min(files->closed, first);
}

static cJSON *state_json(design_files_t *files) {
    cJSON *out = cJSON_CreateObject();
    cJSON_AddNumberToObject(out, "done", (double)files->done);
    cJSON_AddNumberToObject(out, "closed", (double)files->closed);
    cJSON_AddStringToObject(out, "why", files->closed_why.c_str());
    cJSON_AddNumberToObject(out, "next", files->next_number);
    cJSON *hashes = cJSON_AddObjectToObject(out, "state");
    for (size_t i = files->closed; i < files->gestures.size(); i++) {
        for (const design_splice_t &splice : files->gestures[i].splices) {
            design_file_t *entry = design_file_of(files, splice.file);
            if (entry && !cJSON_HasObjectItem(hashes, splice.file.c_str())) {
                cJSON_AddStringToObject(hashes, splice.file.c_str(), design_file_hash(entry).c_str());
            }
        }
    }
    return out;
}

static std::string journal_path(const design_files_t *files) {
    return files->state + "journal";
}

void design_journal_begin(design_files_t *files) {
    const std::string path = journal_path(files);
    char beside[1100];
    journal_end(files);
    gestures_trim(files);
    std::string text = "{\"journal\": 1}\n";
    for (const design_gesture_t &gesture : files->gestures) {
        text += line_of(step_json("do", gesture, gesture.splices));
    }
    text += line_of(state_json(files));
    FILE *f = nullptr;
    if (zof_file_temp_name(beside, sizeof(beside), path.c_str(), ZOF_FILE_TEMP) == 0) {
        f = zof_file_create(beside);
    }
    const bool put = f && zof_file_put(f, text.data(), text.size()) == 0;
    const bool finished = f && zof_file_finish(f) == 0 && put;
    if (finished && zof_rename(beside, path.c_str()) == 0) {
        files->journal_size = text.size();
        design_journal_append(files);
    } else if (f) {
        zof_file_remove(beside);
    }
}

// What follows the whole lines is cut off.
void design_journal_append(design_files_t *files) {
    files->journal = zof_file_write_open(journal_path(files).c_str(), ZOF_TRUE);
    if (files->journal &&
        (zof_file_cut(files->journal, files->journal_size) != 0 || fseek(files->journal, 0, SEEK_END) != 0)) {
        journal_end(files);
    }
}

void design_journal_saved(design_files_t *files) {
    const bool lost = !files->journal && !files->state.empty() && files->lock != 0; // the disk was full
    if (lost || files->journal_size > JOURNAL_MAX) {
        design_journal_begin(files);
    } else {
        line_put(files, "{\"saved\": true}\n", false);
    }
}

void design_journal_closed(design_files_t *files) {
    if (files->journal) {
        design_journal_begin(files);
    }
}

void design_journal_close(design_files_t *files) {
    journal_end(files);
    zof_folder_unlock(files->lock);
}
