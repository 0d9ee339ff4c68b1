// The words of actions and how they are read.
#include "hmi/zof_hmi_action.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "hmi/zof_hmi_action_in.h"
#include "hmi/zof_hmi_event.h"
#include "project/base/zof_hold_in.h"
#include "zof_lib/zof_stdio.h"
#include "zof_lib/zof_util.h"

#define ALL(kind) \
    { kind, kind, kind, kind, kind, kind, kind, kind }

// clang-format off
const zof_action_row_t zof_action_rows[] = {
    {"view", "VIEW [SLIDE]", "shows a view; SLIDE is left, right, up, down or fade", 1,
     {ZOF_ACTION_VIEW, ZOF_ACTION_SLIDE}, action_view},
    {"back", "", "shows the view from which the last `view` led to this one", 0, {}, action_back},
    {"lang", "LANGUAGE ...", "changes the language of all texts; of several, to the one after the current one", 1,
     ALL(ZOF_ACTION_LANGUAGE), action_lang},
    {"theme", "THEME ...", "changes the theme; of several, to the one after the current one", 1,
     ALL(ZOF_ACTION_THEME), action_theme},
    {"show", "CONTROL", "shows a control that is hidden", 1, {ZOF_ACTION_CONTROL}, action_show},
    {"hide", "CONTROL", "hides a control", 1, {ZOF_ACTION_CONTROL}, action_hide},
    {"toggle", "CONTROL", "hides a control, or shows it if it is hidden", 1, {ZOF_ACTION_CONTROL}, action_toggle},
    {"enable", "CONTROL", "lets a control take touches again", 1, {ZOF_ACTION_CONTROL}, action_enable},
    {"disable", "CONTROL", "greys a control out", 1, {ZOF_ACTION_CONTROL}, action_disable},
    {"set", "CONTROL.txt TEXT, or CONTROL.value NUMBER", "sets a text, or a value", 2,
     {ZOF_ACTION_FIELD, ZOF_ACTION_TEXT}, action_set},
    {"add", "CONTROL.value NUMBER", "adds to a value, within its range", 2, {ZOF_ACTION_FIELD, ZOF_ACTION_NUMBER},
     action_add},
    {"keys", "KEYBOARD TEXTBOX", "shows a keyboard, which types into a text box", 2,
     {ZOF_ACTION_CONTROL, ZOF_ACTION_CONTROL}, action_keys},
    {"beep", "[MS]", "plays a tone, 100 ms or as long as the number says", 0, {ZOF_ACTION_NUMBER}, action_beep},
    {"bright", "PERCENT", "sets the brightness of the display", 1, {ZOF_ACTION_NUMBER}, action_bright},
    {},
};
// clang-format on

static bool is_number(const char *text) {
    char *end = nullptr;
    strtol(text, &end, 10);
    return end != text && !*end;
}

// Ends the word at the cursor and moves it to the next one. Returns the word; null at the end.
static char *word_take(char **at) {
    char *word = *at + strspn(*at, " ");
    if (!*word) {
        return nullptr;
    }
    char *end = word + strcspn(word, " ");
    *at = *end ? end + 1 : end;
    *end = 0;
    return word;
}

static char *rest_take(char **at) {
    char *rest = *at + strspn(*at, " ");
    *at += strlen(*at);
    return *rest ? rest : nullptr;
}

static const zof_action_row_t *row_of(const char *word) {
    const zof_action_row_t *row = zof_action_rows;
    while (row->word && strcmp(row->word, word) != 0) {
        row++;
    }
    return row->word ? row : nullptr;
}

static const char *fault(const char *format, const char *a, const char *b) {
    static thread_local char text[ZOF_ACTION_SIZE];
    snprintf(text, sizeof(text), format, a, b);
    return text;
}

// Returns what is wrong with an argument, apart from what it names; null for nothing.
static const char *arg_fault(zof_action_arg_e kind, const char *argument) {
    char name[ZOF_ACTION_SIZE];
    if (kind == ZOF_ACTION_NUMBER && !is_number(argument)) {
        return fault("%.40s is not a whole number%s", argument, "");
    }
    if (kind == ZOF_ACTION_SLIDE && zof_action_slide(argument) < 0) {
        return fault("%.40s is not left, right, up, down or fade%s", argument, "");
    }
    if (kind == ZOF_ACTION_FIELD && !zof_action_field(argument, name, sizeof(name))) {
        return fault("%.80s needs .txt or .value after the control's name%s", argument, "");
    }
    return nullptr;
}

// A value is a number, and `add` adds to values only.
static const char *field_fault(const zof_action_t *action) {
    char name[ZOF_ACTION_SIZE];
    const char *field =
        action->row->args[0] == ZOF_ACTION_FIELD ? zof_action_field(action->args[0], name, sizeof(name)) : nullptr;
    if (!field) {
        return nullptr;
    }
    const bool value = strcmp(field, "value") == 0;
    if (value) {
        return is_number(action->args[1]) ? nullptr : fault("%.40s is not a whole number%s", action->args[1], "");
    }
    return action->row->args[1] == ZOF_ACTION_NUMBER ? fault("%s takes %s", action->row->word, action->row->form)
                                                     : nullptr;
}

const char *zof_action_parse(const char *text, zof_action_t *out) {
    *out = {};
    if (!zof_text_join(out->text, sizeof(out->text), text, nullptr, nullptr)) {
        return "an action is at most 255 bytes long";
    }
    char *at = out->text;
    const char *word = word_take(&at);
    out->row = word ? row_of(word) : nullptr;
    if (!out->row) {
        return fault("there is no action %.40s%s", word ? word : "\"\"", "");
    }
    u32 count = 0;
    for (; count < ZOF_ACTION_ARGS && out->row->args[count] != ZOF_ACTION_NONE; count++) {
        const zof_action_arg_e kind = out->row->args[count];
        out->args[count] = kind == ZOF_ACTION_TEXT ? rest_take(&at) : word_take(&at);
        if (!out->args[count]) {
            break;
        }
        const char *wrong = arg_fault(kind, out->args[count]);
        if (wrong) {
            return wrong;
        }
    }
    if (count < out->row->least || rest_take(&at)) {
        return fault(*out->row->form ? "%s takes %s" : "%s takes no arguments%s", out->row->word, out->row->form);
    }
    return field_fault(out);
}

static const char *event_name(u32 event) {
    for (const zof_hmi_event_row_t &row : zof_hmi_event_rows) {
        if (row.event != ZOF_EVENT_ALL && row.event == (zof_event_e)event) {
            return row.name;
        }
    }
    return nullptr;
}

static void line_run(const char *text, u32 view) {
    zof_action_t action;
    const char *wrong = zof_action_parse(text, &action);
    action.view = view;
    if (wrong || action.row->run(&action) != 0) {
        zof_printf("action \"%s\": %s\n", text, wrong ? wrong : "what it names does not exist");
    }
}

// Actions may delete their control, so they work on a copy. Its lines are the name of an event and an action.
static void lines_run(const char *lines, const char *event, u32 view) {
    char *copy = zof_text_copy(lines);
    const size_t length = strlen(event);
    for (char *line = copy; line && *line;) {
        char *end = line + strcspn(line, "\n");
        char *next = *end ? end + 1 : end;
        *end = 0;
        if (strncmp(line, event, length) == 0 && line[length] == ' ') {
            line_run(line + length + 1, view);
        }
        line = next;
    }
    zof_free(copy);
}

void zof_action_happened(const para_t *record, u32 event) {
    static bool running;
    const char *name = event_name(event);
    if (!name || !record->attr || !record->attr->on || running) {
        return;
    }
    zof_hold hold;
    running = true;
    lines_run(record->attr->on, name, record->attr->view_id);
    running = false;
}
