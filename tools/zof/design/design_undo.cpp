// Gestures: edits are applied and written, undone and redone. Undo puts the bytes before back, last splice first.
#include <algorithm>

#include "design_journal.h"
#include "design_text.h"

// Splices ----------------------------------------------------------------------------------------------------------

static std::string splice_apply(const design_splice_t &splice, bool back, design_doc_t *doc) {
    const std::string &old = back ? splice.after : splice.before;
    const std::string &made = back ? splice.before : splice.after;
    if (splice.created || splice.deleted) {
        if (doc->exists != (splice.created == back) || doc->text != old) {
            return splice.file + " has another text now";
        }
        *doc = {};
        doc->exists = splice.created != back;
        doc->text = made;
        return "";
    }
    if (!doc->exists || doc->text.compare(std::min((size_t)splice.at, doc->text.size()), old.size(), old) != 0) {
        return splice.file + " has another text now";
    }
    design_doc_splice(doc, splice.at, (u32)old.size(), made, ZOF_J_NONE, ZOF_J_NULL);
    return "";
}

std::string design_splices_apply(design_files_t *files, const std::vector<design_splice_t> &splices, bool back,
                                 design_works_t *works) {
    std::string error;
    for (size_t i = 0; i < splices.size() && error.empty(); i++) {
        const design_splice_t &splice = splices[back ? splices.size() - 1 - i : i];
        design_file_t *entry = design_file_of(files, splice.file);
        if (!entry) {
            return "\"" + splice.file + "\" is not a file of the project";
        }
        const auto work = works->emplace(splice.file, entry->doc).first;
        error = splice_apply(splice, back, &work->second);
    }
    return error;
}

void design_works_keep(design_files_t *files, design_works_t *works) {
    for (auto &[file, doc] : *works) {
        design_file_set(files, file, std::move(doc));
    }
}

// Joins a splice with an earlier one of the same bytes. Returns false if it has to stand by itself.
static bool splice_join(std::vector<design_splice_t> *all, const design_splice_t &splice) {
    u32 at = splice.at; // before the splices that follow the one in question
    for (size_t i = all->size(); i-- > 0 && !splice.created && !splice.deleted;) {
        design_splice_t &old = (*all)[i];
        if (old.file != splice.file) {
            continue;
        }
        if (old.at == at && old.after == splice.before && !old.created && !splice.before.empty()) {
            const u32 by = (u32)splice.after.size() - (u32)splice.before.size();
            for (size_t later = i + 1; later < all->size(); later++) {
                (*all)[later].at += (*all)[later].file == splice.file && (*all)[later].at > at ? by : 0;
            }
            old.after = splice.after;
            return true;
        }
        if (old.created || old.deleted || (at < old.at + old.after.size() && at + splice.before.size() > old.at)) {
            return false;
        }
        at += at >= old.at + old.after.size() ? (u32)old.before.size() - (u32)old.after.size() : 0;
    }
    return false;
}

void design_undo_merge(design_gesture_t *gesture, const std::vector<design_splice_t> &splices) {
    for (const design_splice_t &splice : splices) {
        if (!splice_join(&gesture->splices, splice)) {
            gesture->splices.push_back(splice);
        }
    }
}

// The list ---------------------------------------------------------------------------------------------------------

const design_gesture_t *design_undo_add(design_files_t *files, design_gesture_t &&gesture) {
    files->gestures.resize(files->done);
    gesture.number = files->next_number++;
    files->gestures.push_back(std::move(gesture));
    files->done = files->gestures.size();
    if (files->gestures.size() > DESIGN_GESTURES_MAX) {
        files->gestures.erase(files->gestures.begin());
        files->done--;
        files->closed -= files->closed > 0;
    }
    return &files->gestures.back();
}

void design_undo_close(design_files_t *files, const char *why) {
    files->gestures.resize(files->done);
    files->closed = files->done;
    files->closed_why = why;
    files->merged_at = 0;
}

// Returns whether a new gesture is part of the last one.
static bool merges(const design_files_t *files, const std::string &label, const std::string &merge, s64 now) {
    if (merge.empty() || files->done == 0 || files->done != files->gestures.size() || files->done <= files->closed) {
        return false;
    }
    const design_gesture_t &last = files->gestures.back();
    return last.merge == merge && last.label == label && !last.elsewhere && now - files->merged_at < DESIGN_MERGE_MS;
}

const design_gesture_t *design_plan_keep(design_files_t *files, design_plan_t *plan, const std::string &label,
                                         const std::string &merge, s64 now) {
    design_works_keep(files, &plan->works);
    const design_gesture_t *gesture;
    if (merges(files, label, merge, now)) {
        design_gesture_t *last = &files->gestures.back();
        design_undo_merge(last, plan->splices);
        design_journal_step(files, "merge", last->number, plan->splices);
        gesture = last;
    } else {
        design_gesture_t made = {};
        made.label = label;
        made.merge = merge;
        made.time = now;
        made.splices = std::move(plan->splices);
        gesture = design_undo_add(files, std::move(made));
        design_journal_step(files, "do", gesture->number, gesture->splices);
    }
    files->merged_at = now;
    design_files_write(files);
    return gesture;
}

// Files of others --------------------------------------------------------------------------------------------------

// Returns the files of edits that another program has changed.
static std::vector<std::string> changed_files(design_files_t *files, const cJSON *edits) {
    std::vector<std::string> out;
    const cJSON *edit = nullptr;
    cJSON_ArrayForEach(edit, edits) {
        const char *file = cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(edit, "file"));
        const auto found = file ? files->files.find(file) : files->files.end();
        if (found != files->files.end() && design_file_changed(files, file, &found->second) &&
            std::find(out.begin(), out.end(), file) == out.end()) {
            out.push_back(file);
        }
    }
    return out;
}

// An edit was made for the value that the page saw. Returns an error if that is another one now.
static std::string edit_compare(design_files_t *files, design_works_t *seen, const cJSON *edit) {
    const char *file = cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(edit, "file"));
    const char *path = cJSON_GetStringValue(cJSON_GetObjectItemCaseSensitive(edit, "path"));
    const auto old = file && path ? seen->find(file) : seen->end();
    if (old == seen->end()) {
        return "";
    }
    const std::string before = design_doc_raw(&old->second, file, path);
    const std::string now = design_doc_raw(&files->files.at(file).doc, file, path);
    const auto named = [](const std::string &raw) { return raw.empty() ? std::string("absent") : raw.substr(0, 200); };
    return before == now ? ""
                         : std::string(file) + " changed elsewhere: " + path + " is " + named(now) + " now, and was " +
                               named(before);
}

// Takes over changes from elsewhere before edits are applied.
static std::string changes_take(design_files_t *files, const cJSON *edits, s64 now) {
    const std::vector<std::string> changed = changed_files(files, edits);
    design_works_t seen;
    for (const std::string &file : changed) {
        seen.emplace(file, files->files.at(file).doc);
    }
    if (changed.empty()) {
        return "";
    }
    design_files_take(files, changed, now);
    std::string error;
    const cJSON *edit = nullptr;
    cJSON_ArrayForEach(edit, edits) {
        error = error.empty() ? edit_compare(files, &seen, edit) : error;
    }
    return error;
}

const design_gesture_t *design_files_edit(design_files_t *files, const cJSON *edits, const std::string &label,
                                          const std::string &merge, s64 now, std::string *error) {
    design_plan_t plan = {files, {}, {}};
    *error = changes_take(files, edits, now);
    *error = error->empty() ? design_plan_make(&plan, edits) : *error;
    if (!error->empty()) {
        return nullptr;
    }
    files->nothing.label = label;
    return plan.splices.empty() ? &files->nothing : design_plan_keep(files, &plan, label, merge, now);
}

// Undo -------------------------------------------------------------------------------------------------------------

std::string design_gesture_current(design_files_t *files, const design_gesture_t &gesture) {
    for (const design_splice_t &splice : gesture.splices) {
        const auto found = files->files.find(splice.file);
        if (found != files->files.end() && design_file_changed(files, splice.file, &found->second)) {
            design_files_take(files, {splice.file}, gesture.time);
            return splice.file + " has just been changed by another program";
        }
    }
    return "";
}

// Applies a gesture of the list, back or forward.
static std::string gesture_apply(design_files_t *files, design_gesture_t *gesture, bool back) {
    design_works_t works;
    std::string error = design_gesture_current(files, *gesture);
    error = error.empty() ? design_splices_apply(files, gesture->splices, back, &works) : error;
    if (!error.empty()) {
        return error;
    }
    design_works_keep(files, &works);
    gesture->undone = back;
    files->merged_at = 0;
    files->done += back ? (size_t)-1 : 1;
    design_journal_step(files, back ? "undo" : "redo", gesture->number, gesture->splices);
    design_files_write(files);
    return "";
}

const design_gesture_t *design_files_undo(design_files_t *files, std::string *error) {
    if (files->done <= files->closed) {
        *error = files->closed ? files->closed_why : "there is nothing to undo";
        return nullptr;
    }
    design_gesture_t *gesture = &files->gestures[files->done - 1];
    *error = gesture_apply(files, gesture, true);
    return error->empty() ? gesture : nullptr;
}

const design_gesture_t *design_files_redo(design_files_t *files, std::string *error) {
    if (files->done >= files->gestures.size()) {
        *error = "there is nothing to redo";
        return nullptr;
    }
    design_gesture_t *gesture = &files->gestures[files->done];
    *error = gesture_apply(files, gesture, false);
    return error->empty() ? gesture : nullptr;
}

const std::vector<design_gesture_t> &design_files_gestures(const design_files_t *files) {
    return files->gestures;
}
