// The strip: the live output on all pages except Output, with a button that turns it off.
#include "bench/bench_record.h"
#include "bench_ids.h"
#include "ui/ui.h"

enum {
    NOTICE_WIDTH = 600,
    DOT_WIDTH = 42
}; // width of a notice up to the Off button, and of the recording dot between them

// The ids are the same on all pages that have a strip.
static_assert((u32)VIEW2_STRIP_ID == VIEW3_STRIP_ID && (u32)VIEW2_STRIP_ID == VIEW4_STRIP_ID &&
              (u32)VIEW2_STRIP_ID == VIEW5_STRIP_ID);

// Returns the text for the port's state; for an open port, that the box is silent.
static panel_text_e reason(const bench_port_t &port) {
    const bool who = port.who[0] != '\0';
    switch (port.state) {
    case BENCH_PORT_UNSET:
        return TEXT_NO_PORT_SET;
    case BENCH_PORT_LOOKING:
        return TEXT_LOOKING;
    case BENCH_PORT_MISSING:
        return TEXT_NO_PORT;
    case BENCH_PORT_RIGHT:
        return who ? TEXT_NO_RIGHT : TEXT_NO_RIGHT_PLAIN;
    case BENCH_PORT_HELD:
        return who ? TEXT_PORT_HELD_BY : TEXT_PORT_HELD;
    case BENCH_PORT_FAULT:
        return TEXT_PORT_FAULT;
    case BENCH_PORT_GONE:
        return TEXT_STALE_GONE;
    case BENCH_PORT_OPEN:
        break;
    }
    return TEXT_STALE_SILENT;
}

void strip_notice(char *out, size_t size) {
    const bench_port_t &port = bench.port;
    panel_text_e words = reason(port);
    if (!bench.seen && bench.now < BENCH_LOOKING_MS && port.state <= BENCH_PORT_MISSING &&
        port.state != BENCH_PORT_UNSET) {
        words = TEXT_LOOKING;
    }
    char age[PAINT_NUMBER_SIZE];
    words_fill(out, size, words, port.path, number_age(age, bench_silence_ms()), port.who);
}

static void live_paint(u32 view) {
    const auto at = [view](u32 id) { return zof_ctrl_get_form_id(view, id); };
    char text[PAINT_NUMBER_SIZE];
    u16 mv, ma, dw;
    bench_eye(&mv, &ma, &dw);
    const u32 look = bench_age() == BENCH_LATE ? LOOK_LATE : 0;
    paint_text(at(VIEW2_STRIP_VOLTS_ID), bench.mv_known ? number_volts(text, mv) : "-․-- V");
    paint_text(at(VIEW2_STRIP_AMPERES_ID), bench.ma_known ? number_amperes_fine(text, ma) : "-․--- A");
    paint_look(at(VIEW2_STRIP_VOLTS_ID), look);
    paint_look(at(VIEW2_STRIP_AMPERES_ID), look);
    paint_words(at(VIEW2_STRIP_STATE_ID), bench_is_on() ? TEXT_STRIP_ON : TEXT_STRIP_OFF);
    paint_look(at(VIEW2_STRIP_DOT_ID), bench_is_on() ? LOOK_CHOSEN : 0);
}

void strip_paint(u32 view) {
    const auto at = [view](u32 id) { return zof_ctrl_get_form_id(view, id); };
    const bool known = bench_out_known();
    live_paint(view);
    paint_shown(at(VIEW2_STRIP_DOT_ID), known);
    paint_shown(at(VIEW2_STRIP_STATE_ID), known);
    const bench_toggle_e toggle = bench_toggle();
    paint_words(at(VIEW2_STRIP_TURN_OFF_ID), toggle == BENCH_TOGGLE_STILL_ON       ? TEXT_OFF_AGAIN
                                             : toggle == BENCH_TOGGLE_UNKNOWN_SAID ? TEXT_OFF_REQUESTED
                                                                                   : TEXT_OFF_SHORT);
    paint_shown(at(VIEW2_STRIP_TURN_OFF_ID), !known || bench.on);
    paint_look(at(VIEW2_STRIP_TURN_OFF_ID), known ? 0 : LOOK_DEAD);
    paint_words(at(VIEW2_STRIP_REMOTE_ID), bench.replay ? TEXT_REPLAY : TEXT_REMOTE);
    paint_shown(at(VIEW2_STRIP_REMOTE_ID), bench.remote[0] != '\0');
    paint_shown(at(VIEW2_STRIP_RECORDING_ID), record_runs());
    paint_shown(at(VIEW2_STRIP_LIMIT_ID), bench.limit && !bench.remote[0]);
    const bool dead = bench_age() == BENCH_DEAD;
    const bool locked = bench_locked_note();
    char text[PAINT_TEXT_SIZE];
    if (dead) {
        strip_notice(text, sizeof(text));
    } else {
        words_fill(text, sizeof(text), TEXT_LOCKED);
    }
    paint_line(at(VIEW2_STRIP_NOTICE_ID), text, NOTICE_WIDTH - (record_runs() ? DOT_WIDTH : 0));
    paint_look(at(VIEW2_STRIP_NOTICE_ID), dead ? 0 : LOOK_CHOSEN);
    paint_shown(at(VIEW2_STRIP_NOTICE_ID), dead || locked);
}

// Off acts when the finger lands, whatever the state of the panel.
void strip_off_event(zof_ctrl_t *, zof_event_e event) {
    if (event == ZOF_EVENT_PRESSED) {
        bench_tick();
        if (!bench_out_known() || bench.on) {
            bench_off();
        }
        ui_paint();
    }
}
