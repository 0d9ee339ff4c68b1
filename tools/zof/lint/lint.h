// `zof lint`: applies its rules to the replies of a player to `review`, for each view in each language and theme.
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
    lint_finding_t first; // reported if no control uses the font
};

struct lint_t {
    view_plan_t plan;
    std::string folder;                          // of the project, as the player names it, with "/"
    std::map<std::string, lint_finding_t> found; // by place, rule and subject
    std::map<std::string, lint_font_t> fonts;    // by files and size
};

// Applies all rules to a cell; `review` is the reply of the player.
void lint_take(lint_t *lint, const cJSON *review, const view_cell_t &cell);

// Adds the fonts that no cell has used, and appends to each text the languages and themes that it is limited to.
// Returns the findings in `check`, without those listed in the folder's zof-check.ignore. The caller frees it.
void lint_end(lint_t *lint, const char *folder, zof_check_t *check);

#endif
