// `zof lint`: what is wrong in the pictures of a project, found by its rules in what a player says of them.
#ifndef LINT_H
#define LINT_H

#include <map>
#include <set>
#include <string>
#include <vector>

#include <cjson/cJSON.h>

#include "check/zof_check.h"
#include "view_sheet.h"

// Where a finding appears.
struct lint_mark_t {
    view_cell_t cell;
    view_box_t box;
};

struct lint_finding_t {
    const zof_check_rule_t *rule;
    std::string file, key; // below the project folder; the control's entry, "controls[3]"
    u32 line, col;
    std::string text; // of its worst appearance
    double weight;    // of that one; only compared within a finding
    std::vector<lint_mark_t> marks;
};

// A font that some style loads.
struct lint_font_t {
    bool used;
    lint_finding_t first; // what there is to report if none uses it
};

struct lint_t {
    view_plan_t plan;
    std::string folder;                          // of the project, as the player names it, with "/"
    std::map<std::string, lint_finding_t> found; // by place, rule and subject
    std::map<std::string, lint_font_t> fonts;    // by files and size
};

// Applies all rules to the reply to `review` for a cell.
void lint_take(lint_t *lint, const cJSON *review, const view_cell_t &cell);

// Adds what is known only after the last cell, and to each text the languages and themes that it is limited to; then
// makes the list of findings, without those that the folder's zof-check.ignore names. The caller frees it.
void lint_end(lint_t *lint, const char *folder, zof_check_t *check);

#endif
