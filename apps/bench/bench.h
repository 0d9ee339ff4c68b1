// The model of the bench panel: what is known of the box and since when, and the only gate through which anything is
// sent to it. It knows neither views nor controls. Everything runs under dis_mutex.
//
// Time is `bench.now`, milliseconds since the start, set by bench_tick from zof_sys_time_ms. What a board wrote counts
// as live for a second, as late for another, and as unknown from then on.
#ifndef BENCH_H
#define BENCH_H

#include "bench/bench_grid.h"
#include "bench/bench_preset.h"
#include "hardware/uart/zof_hw_map.h"
#include "zof_lib/zof_type.h"

// Every period of the panel, in milliseconds.
enum {
    BENCH_LATE_MS = 1000,    // age of a reading from which it is late
    BENCH_DEAD_MS = 2000,    // age from which it is not known
    BENCH_LOOKING_MS = 2000, // after the start, the box is being looked for
    BENCH_HOLD_MS = 800,     // how long a button is held for what may hurt
    BENCH_DEAF_MS = 600,     // after it has turned off, the toggle takes no touch
    BENCH_STILL_ON_MS = 1000,
    BENCH_TURNING_ON_MS = 2000,
    BENCH_APPLYING_MS = 2000, // for the box to name the rail
    BENCH_LIMIT_MS = 300,     // for the current limit to show and to go
    BENCH_EYE_MS = 300,       // readings are averaged for the eye
    BENCH_UNDO_MS = 5000,
    BENCH_NOTE_MS = 2000,   // for a line that says why a touch did nothing
    BENCH_WAKE_MS = 30000,  // after a touch has brightened a dim display
    BENCH_NEWS_MS = 4000,   // for a line that says what happened without a touch
    BENCH_TRY_MS = 1000,    // for an answer of the box, and between tries
    BENCH_PAUSE_MS = 10000, // between tries after the third
};
enum { BENCH_TRIES = 3 };
// The first time since the start, the output turns on at one touch up to this voltage.
enum { BENCH_FIRST_ON_MV = 5500 };

// Settings of the box that are known.
enum { BENCH_SETTING_BRIGHT = 1, BENCH_SETTING_BOOT = 2, BENCH_SETTING_AUTO_ON = 4 };

enum bench_age_e { BENCH_LIVE, BENCH_LATE, BENCH_DEAD };

// Why there is no box, as far as the system says.
enum bench_port_e {
    BENCH_PORT_OPEN,
    BENCH_PORT_UNSET,   // no port is configured
    BENCH_PORT_LOOKING, // not tried yet
    BENCH_PORT_MISSING, // nothing there
    BENCH_PORT_GONE,    // it was open, and its device vanished
    BENCH_PORT_RIGHT,   // no right to open it; `who` is the group that has it
    BENCH_PORT_HELD,    // another program has it open; `who` is its name
    BENCH_PORT_FAULT,   // anything else; `who` is the system's reason
};
struct bench_port_t {
    bench_port_e state;
    u32 opened;    // how often it has been opened
    char path[64]; // empty without one
    char who[96];  // empty if not known
};

// The list of rails.
enum bench_rails_e {
    BENCH_RAILS_NONE,   // none has been read since the box came
    BENCH_RAILS_AGAIN,  // the last answer was not whole, or had a rail that no source offers
    BENCH_RAILS_FAILED, // three answers were not whole
    BENCH_RAILS_SHOWN,
};
struct bench_rails_t {
    bench_rails_e state;
    prof_t rail[RAIL_MAX];
    bool valid[RAIL_MAX]; // may be chosen
    u8 count;
    u8 tries;              // the try that runs or comes next, up to BENCH_TRIES
    u32 changes;           // counts lists that differ from the last one
    bool waiting;          // for the answer to a request
    bool doubt;            // the rail in force was garbled; it is asked for again, at most every BENCH_PAUSE_MS
    u64 asked_at, next_at; // of the request; when to ask again, or 0
    // The answer that arrives
    u64 words; // one bit per word that came
    bool counted;
};

struct bench_t {
    u64 now;
    u32 clock; // zof_sys_time_ms at `now`
    bool started;

    bench_port_t port;
    u64 port_at;         // when its state changed
    u64 seen_at;         // the last whole frame with a reading or the output's state
    u64 frame_at;        // the last whole frame
    u32 frames, skipped; // whole frames; bytes that belong to none
    bool seen;           // a frame has come since the start
    bool dead;           // seen_at is more than BENCH_DEAD_MS ago, or nothing has come
    u16 version;         // of the box, 0: not known

    u16 mv, ma, dw; // the last readings
    bool mv_known, ma_known, dw_known;
    bool out_known, on; // as register 22 said since the last silence
    u32 mwh;            // as the box counts
    u8 mwh_known;       // bits: low half, high half

    u8 rail; // in force, as register 23 says, or RAIL_NONE
    bool rail_known;
    bool set_known; // `set` is what the box has taken
    bench_choice_t set;
    bool last_known; // `last` was set once, however long ago
    bench_choice_t last;

    bench_rails_t rails;

    // Requests on their way
    bool applying, not_taken;
    bool in_doubt; // the box has not confirmed `apply`, but may have taken it
    bench_choice_t apply;
    u64 apply_at, not_taken_at;
    bool off_wanted; // off was requested and the box has not confirmed it: it is sent again when a port opens
    bool off_said;   // off was requested, and register 22 has not come since
    bool turning_off, turning_on;
    u64 off_at, on_at, deaf_until;
    u16 last_on_mv; // the voltage when the output was last on, as set or as the current limit reduced it; 0: never

    bool limit; // the current limit is inferred
    u64 limit_at;
    bool limit_next;

    u8 settings_known; // bits by BENCH_SETTING_...
    u8 settings_tries;
    u64 settings_at;
    bool settings_waiting;
    u16 bright, boot_last, auto_on;

    u32 base_mwh;            // what is added to the box's count
    u32 undo_mwh, undo_base; // the box's count and what was added, before the last reset
    u64 reset_at;
    bool undo;

    // Of the panel itself
    bool hold_off;       // raising the voltage needs no hold
    bool locked;         // all but off is locked
    bool locked_pressed; // something locked was pressed, at locked_at
    u64 locked_at;
    bool averaged_off; // readings are shown as they come
    char remote[48];   // who holds the panel, empty: nobody
    bool replay;       // a recorded link is shown, named in `remote`; nothing is sent
    bench_preset_t preset[BENCH_PRESETS];
};
extern bench_t bench;

// time ------------------------------------------------------------------------------------------------------------
// Nothing is known, and the port has not been tried. Once, before anything else.
void bench_start(void);
// Advances `now`; everything that depends on time alone happens here. At least ten times a second.
void bench_tick(void);

// from the link ---------------------------------------------------------------------------------------------------
// A register was written by the board; `value` is in its range.
void bench_take(u16 addr, u16 value);
// A word of the rail table was stored in the image.
void bench_take_word(u16 addr);
// The port's state changed. Each time it has been opened, off is sent first if it was wanted, and all is asked for.
void bench_take_port(const bench_port_t *port);

// what is known ---------------------------------------------------------------------------------------------------
bench_age_e bench_age(void);
u64 bench_silence_ms(void); // since the last reading or state
bool bench_live(void);      // not dead
// The output as it is known: live, and its state came since the last silence.
bool bench_out_known(void);
bool bench_is_on(void); // known to be on
// Whether the output is below its set voltage because the current is at its limit, by the last readings.
bool bench_limit_acts(void);
// Returns whether a press counts. It does not on a locked panel, which shows a note for BENCH_NOTE_MS, nor while a
// remote client holds the panel, except for BENCH_PRESS_LOCAL, the button that takes it back.
enum bench_press_e { BENCH_PRESS_ANY, BENCH_PRESS_LOCAL };
bool bench_press(bench_press_e what = BENCH_PRESS_ANY);
bool bench_locked_note(void);
void bench_lock(bool on);
// The readings for the eye: averaged over BENCH_EYE_MS. False if not known.
bool bench_eye(u16 *mv, u16 *ma, u16 *dw);
// Energy of the session in mWh; false if not known.
bool bench_energy(u64 *mwh);

// rails -----------------------------------------------------------------------------------------------------------
// Asks for the list; the state changes when the answer is in.
void bench_rails_ask(void);
bool bench_rail_usable(u8 rail); // in a list that is shown, and valid
// What a rail opens with: in force, its set values; else its lowest voltage and the current last used on it, or 1 A. Of
// a fixed rail, its voltage and its most current. The rail must be usable.
bench_choice_t bench_rail_open(u8 rail);

// the gate --------------------------------------------------------------------------------------------------------
// What the toggle of the output says and does.
enum bench_toggle_e {
    BENCH_TOGGLE_UNKNOWN,
    BENCH_TOGGLE_UNKNOWN_SAID, // off was requested
    BENCH_TOGGLE_ON,
    BENCH_TOGGLE_TURNING_OFF,
    BENCH_TOGGLE_STILL_ON,
    BENCH_TOGGLE_OFF,
    BENCH_TOGGLE_HOLD,         // off, and turning on needs a hold that names the set voltage
    BENCH_TOGGLE_HOLD_UNKNOWN, // likewise, but the set voltage is not known
    BENCH_TOGGLE_TURNING_ON,
};
bench_toggle_e bench_toggle(void);
// A finger landed on the toggle or on an off button. Returns whether it meant off. `toggle` may be deaf.
bool bench_toggle_down(void);
// Requests off, in any state and on any page.
void bench_off(void);
// A finger left the toggle inside, or held it to the end. Returns whether on was requested.
bool bench_turn_on(bool held);

enum bench_apply_e { BENCH_APPLY_NO, BENCH_APPLY_CLICK, BENCH_APPLY_HOLD };
// Whether a choice may be applied now, and how: by a click, or held because the output is on, or may come on, at a
// higher voltage than before. NO while dead or applying, and for values that are not on the grid of the rail.
bench_apply_e bench_apply_how(bench_choice_t choice);
// Whether applying turns the output on.
bool bench_apply_turns_on(void);
// Applies it. Returns whether it was sent: `held` must be true for BENCH_APPLY_HOLD, and readings must not be late for
// what is held.
bool bench_apply(bench_choice_t choice, bool held);
// Whether the box has confirmed these values.
bool bench_applied(bench_choice_t choice);

bool bench_session_reset(void); // false while dead
bool bench_session_undo(void);  // false after BENCH_UNDO_MS

// Settings of the box: BRIGHT, BOOT_STATE or AUTO_ARM. Takes effect at once and is sent; false while dead.
bool bench_setting(u16 addr, u16 value);
void bench_settings_ask(void);

// Steps of the model that other files of it use.
void bench_gate_start(void);               // clears the currents last used on each rail
void bench_gate_send(u16 addr, u16 value); // the only sender of registers
void bench_gate_tick(void);
void bench_gate_out(bool on);  // register 22 came
void bench_gate_rail(u8 rail); // register 23 came
void bench_gate_lost(void);    // what was known of the box is not any more
void bench_rails_tick(void);
void bench_rails_commit(void);
void bench_rails_lost(void);
void bench_rails_back(void); // the box is back: the old list is not shown until the new one is in
void bench_gate_rails(void); // a list came, which may be the same
// Another list comes: `rails` in place of those of bench.rails.
void bench_gate_list(const prof_t *rails, u8 count);

#endif
