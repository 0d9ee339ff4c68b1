// One gesture is taken back while those after it stay, as a gesture of its own.
#include <algorithm>

#include "design_text.h"

// Puts the bytes before a splice back. `later`: the splices of later gestures, in the text that has the splice; they
// become those of the text without it. Returns false if one of them changed the bytes of the splice, or touches bytes
// that were added or removed: what stands there may only be right because of both.
static bool splice_take(design_plan_t *plan, const design_splice_t &made, std::vector<design_splice_t> *later) {
    const s64 apart = made.before.empty() || made.after.empty() ? 1 : 0;
    const s64 more = (s64)made.after.size() - (s64)made.before.size();
    s64 at = made.at;
    s64 end = at + (s64)made.after.size();
    for (design_splice_t &splice : *later) {
        const s64 splice_end = splice.at + (s64)splice.before.size();
        if (splice.file != made.file) {
            continue;
        }
        if (splice.created || splice.deleted || (splice.at < end + apart && splice_end > at - apart)) {
            return false;
        }
        if (splice_end <= at) {
            const s64 by = (s64)splice.after.size() - (s64)splice.before.size();
            at += by;
            end += by;
        } else {
            splice.at = (u32)(splice.at - more);
        }
    }
    const design_doc_t *doc = design_plan_work(plan, made.file);
    if (!doc || !doc->exists ||
        doc->text.compare(std::min((size_t)at, doc->text.size()), made.after.size(), made.after) != 0) {
        return false;
    }
    design_plan_put(plan, made.file, made.path, {(u32)at, (u32)made.after.size(), made.before}, ZOF_J_NONE, ZOF_J_NULL);
    return true;
}

static std::string plan_make(design_files_t *files, size_t index, design_plan_t *plan) {
    const design_gesture_t &gesture = files->gestures[index];
    std::vector<design_splice_t> later;
    for (size_t i = index + 1; i < files->done; i++) {
        const std::vector<design_splice_t> &splices = files->gestures[i].splices;
        later.insert(later.end(), splices.begin(), splices.end());
    }
    for (auto splice = gesture.splices.rbegin(); splice != gesture.splices.rend(); ++splice) {
        if (splice->created || splice->deleted) {
            return "a whole file was made or deleted; only Undo takes that back";
        }
        if (!splice_take(plan, *splice, &later)) {
            return "a later change depends on it; undo that one first";
        }
    }
    return "";
}

const design_gesture_t *design_files_take_back(design_files_t *files, u32 number, s64 now, std::string *error) {
    size_t index = files->closed;
    while (index < files->done && files->gestures[index].number != number) {
        index++;
    }
    if (index >= files->done) {
        *error = "this change is not in the list of undo";
        return nullptr;
    }
    *error = design_gesture_current(files, files->gestures[index]);
    design_plan_t plan = {files, {}, {}};
    *error = error->empty() ? plan_make(files, index, &plan) : *error;
    return error->empty() ? design_plan_keep(files, &plan, "Take back: " + files->gestures[index].label, "", now)
                          : nullptr;
}
