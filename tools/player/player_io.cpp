// Lines of JSON on standard input and output.
#include <cstdio>
#include <cstdlib>
#include <mutex>

#include <unistd.h>

#include "player.h"
#include "zof_lib/zof_stdio.h"

static FILE *out;
static std::mutex print; // keeps lines whole

void player_io_init() {
    out = fdopen(dup(STDOUT_FILENO), "w");
    dup2(STDERR_FILENO, STDOUT_FILENO);
    zof_printf_to_errors();
}

int player_line_read(std::string *line) {
    line->clear();
    bool whole = true;
    int c = 0;
    while ((c = getc_unlocked(stdin)) != EOF && c != '\n') {
        whole = whole && line->size() < PLAYER_LINE_MAX;
        if (whole) {
            *line += (char)c;
        }
    }
    if (c == EOF && line->empty()) {
        return 0;
    }
    return whole ? 1 : -1;
}

void player_send(cJSON *value) {
    char *text = cJSON_PrintUnformatted(value);
    cJSON_Delete(value);
    std::lock_guard guard(print);
    if (text && out) {
        fputs(text, out);
        fputc('\n', out);
        fflush(out);
    }
    cJSON_free(text);
}

cJSON *player_event(const char *name) {
    cJSON *event = cJSON_CreateObject();
    cJSON_AddStringToObject(event, "event", name);
    return event;
}
