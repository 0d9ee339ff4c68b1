// Reads the command line by the rows of options, and prints them as help.
#include "func/zof_option.h"

#include <stdio.h>
#include <string.h>

#include "drv/zof_drv_file.h"
#include "zof_lib/zof_stdio.h"

static const zof_app_t *app; // null if the application adds nothing

// An argument that has been read.
struct word_t {
    const zof_option_t *row; // null for the last one
    const char *value;       // null for an option without a value
};

void zof_app_set(const zof_app_t *own) {
    app = own;
}

// Returns a row, the application's first; null after the last one.
static const zof_option_t *row_at(u32 n) {
    const u32 own = app ? app->option_count : 0;
    const zof_option_t *row = n < own ? &app->options[n] : &zof_options[n - own];
    return row->name ? row : nullptr;
}

// Returns the row of a name, which is the first `length` bytes of `word`, or of a letter.
static const zof_option_t *row_find(const char *word, size_t length) {
    for (u32 n = 0; const zof_option_t *row = row_at(n); n++) {
        const bool named = strncmp(row->name, word, length) == 0 && !row->name[length];
        if (named || (row->letter && strcmp(row->letter, word) == 0)) {
            return row;
        }
    }
    return nullptr;
}

static bool fault(const char *word, const char *what, const char *more) {
    fprintf(stderr, "%s: %s: %s%s; --help lists all options\n", zof_program_name(), word, what, more);
    return false;
}

// Reads the option at *at with its value, and moves *at to the next one. Returns false after a message.
static bool word_read(int argc, char **argv, int *at, word_t *out) {
    const char *word = *at < argc ? argv[(*at)++] : nullptr;
    *out = {};
    if (!word) {
        return true;
    }
    const char *sign = strncmp(word, "--", 2) == 0 ? strchr(word, '=') : nullptr;
    out->row = row_find(word, sign ? (size_t)(sign - word) : strlen(word));
    if (!out->row) {
        return fault(word, "not expected", "");
    }
    if (!out->row->value) {
        return !sign || fault(word, "takes no value", "");
    }
    const bool follows = !sign && *at < argc && argv[*at] && strncmp(argv[*at], "--", 2) != 0;
    out->value = sign ? sign + 1 : follows ? argv[(*at)++] : "";
    return *out->value || fault(out->row->name, "a value is missing: ", out->row->value);
}

static bool is_given(int argc, char **argv, const char *name) {
    word_t word = {};
    for (int at = 1; word_read(argc, argv, &at, &word) && word.row;) {
        if (strcmp(word.row->name, name) == 0) {
            return true;
        }
    }
    return false;
}

static bool words_check(int argc, char **argv) {
    word_t word = {};
    for (int at = 1; at < argc;) {
        if (!word_read(argc, argv, &at, &word)) {
            return false;
        }
        const char *other = word.row ? word.row->excludes : nullptr;
        if (other && is_given(argc, argv, other)) {
            return fault(word.row->name, "excludes ", other);
        }
    }
    return true;
}

static void line_print(const char *first, const char *second, const char *third, const char *help) {
    char left[80];
    snprintf(left, sizeof(left), "%s%s%s", first, second, third);
    printf("  %-25s  %s\n", left, help);
}

static void options_print() {
    puts("\nOptions:");
    for (u32 n = 0; const zof_option_t *row = row_at(n); n++) {
        if (row_find(row->name, strlen(row->name)) != row) {
            continue; // replaced by the application's
        }
        if (row->letter) {
            line_print(row->letter, ", ", row->name, row->help);
        } else {
            line_print(row->name, row->value ? " " : "", row->value ? row->value : "", row->help);
        }
    }
}

static int help_print() {
    printf("usage: %s [OPTION]...\n%s\n", zof_program_name(), app && app->about ? app->about : "Shows its project.");
    options_print();
    puts("\nEnvironment:");
    for (u32 i = 0; app && i < app->variable_count; i++) {
        line_print(app->variables[i].name, "", "", app->variables[i].help);
    }
    for (const zof_variable_t *variable = zof_variables; variable->name; variable++) {
        line_print(variable->name, "", "", variable->help);
    }
    puts("\nExit status:");
    for (const zof_exit_t *exit = zof_exits; exit->help; exit++) {
        printf("  %d  %s\n", exit->status, exit->help);
    }
    if (app && app->more) {
        app->more();
    }
    return ZOF_EXIT_GOOD;
}

int zof_options_take(int argc, char **argv) {
    if (!argv || !words_check(argc, argv)) {
        return argv ? ZOF_EXIT_USAGE : -1;
    }
    for (u32 n = 0; const zof_option_t *row = row_at(n); n++) {
        word_t word = {};
        for (int at = 1; word_read(argc, argv, &at, &word) && word.row;) {
            const int status = word.row != row ? -1 : row->take ? row->take(word.value) : help_print();
            if (status >= 0) {
                return status;
            }
        }
    }
    return -1;
}
