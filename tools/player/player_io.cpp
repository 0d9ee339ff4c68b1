// Lines of JSON on standard input and output.
#include <cstdio>

#include "player.h"
#include "zof_lib/zof_stdio.h"

#include "../system/stream.h"

static FILE *out;

void player_io_init() {
    out = output_take();
    zof_printf_to_errors();
}

bool player_line_read(inspect_reader_t *line) {
    int c = 0;
    inspect_reader_clear(line);
    while ((c = getc(stdin)) != EOF) {
        if (inspect_reader_put(line, (char)c)) {
            return true;
        }
    }
    return line->cut || !line->line.empty();
}

static void put(const inspect_line_t *line) {
    if (out) {
        fputs(inspect_line_text(line).c_str(), out);
        fputc('\n', out);
        fflush(out);
    }
}

const inspect_peer_t player_parent = {INSPECT_PLAYER, put};
