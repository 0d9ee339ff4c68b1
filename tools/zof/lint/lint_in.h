// What the files of `zof lint` share.
#ifndef LINT_IN_H
#define LINT_IN_H

#include "lint.h"

// What a rule is applied to: a control, and perhaps one of its texts.
struct lint_case_t {
    lint_t *lint;
    const view_cell_t *cell;
    const cJSON *review, *control, *text;
    view_box_t box;      // to be marked
    std::string subject; // tells the texts of one control apart
};

// Adds a finding, or another appearance of one; the text with the largest weight is kept.
void lint_add(const lint_case_t &at, const char *rule, double weight, const std::string &text);

// Notes that a control loads a font.
void lint_font_note(const lint_case_t &at, const std::string &font, bool used);

// Return a member of an object: a text or "", a number or `absent`, an element of an array or 0.
const char *lint_text(const cJSON *object, const char *name);
double lint_number(const cJSON *object, const char *name, double absent);
bool lint_is(const cJSON *object, const char *name);
s32 lint_at(const cJSON *object, const char *name, int index);
view_box_t lint_box(const cJSON *object, const char *name);

#endif
