// The model of the bench panel: the state of the box, how old it is, and the only gate through which anything is sent
// to the box. The model knows neither views nor controls. Everything runs under dis_mutex.
//
// Time is `bench.now`, in milliseconds since the start; bench_tick sets it from zof_sys_time_ms. A value from the board
// is live for one second, late for another, and unknown after that.
#ifndef BENCH_H
#define BENCH_H

#include "bench/bench_grid.h"
#include "bench/bench_preset.h"
#include "hardware/uart/zof_hw_map.h"
#include "zof_lib/zof_type.h"

// Every period of the panel, in milliseconds.
enum {
    BENCH_LATE_MS = 1000,    // age at which a reading is late
    BENCH_DEAD_MS = 2000,    // age at which a reading is unknown
    BENCH_LOOKING_MS = 2000, // after the start, while the panel looks for the box
    BENCH_HOLD_MS = 800,     // how long a button must be held for an action that can damage a device
    BENCH_DEAF_MS = 600,     // after turning off, while the toggle ignores touches
    BENCH_STILL_ON_MS = 1000,
    BENCH_TURNING_ON_MS = 2000,
    BENCH_APPLYING_MS = 2000, // for the box to confirm the rail
    BENCH_LIMIT_MS = 300,     // before the current limit is shown or hidden
    BENCH_EYE_MS = 300,       // over which displayed readings are averaged
    BENCH_UNDO_MS = 5000,
    BENCH_NOTE_MS = 2000,   // for a line that explains why a touch had no effect
    BENCH_WAKE_MS = 30000,  // after a touch has brightened a dim display
    BENCH_NEWS_MS = 4000,   // for a line that reports an event not caused by a touch
    BENCH_TRY_MS = 1000,    // for an answer of the box, and between tries
    BENCH_PAUSE_MS = 10000, // between tries after the third
};
enum { BENCH_TRIES = 3 };
// Until the output has been on once, it turns on with a simple touch up to this voltage.
enum { BENCH_FIRST_ON_MV = 5500 };

// Bits for the settings of the box that are known.
enum { BENCH_SETTING_BRIGHT = 1, BENCH_SETTING_BOOT = 2, BENCH_SETTING_AUTO_ON = 4 };

enum bench_age_e { BENCH_LIVE, BENCH_LATE, BENCH_DEAD };

// Why there is no connection to the box, as far as the system reports it.
enum bench_port_e {
    BENCH_PORT_OPEN,
    BENCH_PORT_UNSET,   // no port is configured
    BENCH_PORT_LOOKING, // not tried yet
    BENCH_PORT_MISSING, // the device does not exist
    BENCH_PORT_GONE,    // it was open, and its device vanished
    BENCH_PORT_RIGHT,   // permission denied; `who` is the group that has access
    BENCH_PORT_HELD,    // another program has it open; `who` is its name
    BENCH_PORT_FAULT,   // any other error; `who` is the system's error text
};
struct bench_port_t {
    bench_port_e state;
    u32 opened;    // number of times that it has been opened
    char path[64]; // empty if no port is configured
    char who[96];  // empty if not known
};

// State of the list of rails.
enum bench_rails_e {
    BENCH_RAILS_NONE,   // no list has been read since the box appeared
    BENCH_RAILS_AGAIN,  // the last answer was incomplete or had a rail that no source can offer
    BENCH_RAILS_FAILED, // three answers were incomplete
    BENCH_RAILS_SHOWN,
};
struct bench_rails_t {
    bench_rails_e state;
    prof_t rail[RAIL_MAX];
    bool valid[RAIL_MAX]; // may be selected
    u8 count;
    u8 tries;              // number of the current or next try, up to BENCH_TRIES
    u32 changes;           // counts lists that differ from the previous one
    bool waiting;          // for the answer to a request
    bool doubt;            // the rail in force was garbled; it is requested again, at most every BENCH_PAUSE_MS
    u64 asked_at, next_at; // time of the request; when to ask again, or 0
    // The answer that is arriving.
    u64 words;    // one bit per received word
    bool counted; // the count has been received
};

struct bench_t {
    u64 now;
    u32 clock; // zof_sys_time_ms at `now`
    bool started;

    bench_port_t port;
    u64 port_at;         // when its state changed
    u64 seen_at;         // time of the last whole frame with a reading or the output's state
    u64 frame_at;        // time of the last whole frame
    u32 frames, skipped; // whole frames; bytes outside any frame
    bool seen;           // a frame has come since the start
    bool dead;           // seen_at is more than BENCH_DEAD_MS ago, or nothing has been received
    u16 version;         // of the box; 0 if unknown

    u16 mv, ma, dw; // the last readings
    bool mv_known, ma_known, dw_known;
    bool out_known, on; // from register 22 since the last silence
    u32 mwh;            // energy, as the box counts it
    u8 mwh_known;       // bits: low half, high half

    u8 rail; // in force, from register 23, or RAIL_NONE
    bool rail_known;
    bool set_known; // `set` holds the values that the box has confirmed
    bench_choice_t set;
    bool last_known; // `last` has been set at least once since the start
    bench_choice_t last;

    bench_rails_t rails;

    // Requests that are not confirmed yet.
    bool applying, not_taken;
    bool in_doubt; // the box has not confirmed `apply`, but may have executed it
    bench_choice_t apply;
    u64 apply_at, not_taken_at;
    bool off_wanted; // off was requested and is not confirmed yet; it is sent again when a port opens
    bool off_said;   // off was requested, and register 22 has not been received since
    bool turning_off, turning_on;
    u64 off_at, on_at, deaf_until;
    u16 last_on_mv; // voltage when the output was last on, as set or as the current limit reduced it; 0 if it never was
    bench_choice_t last_on; // settings when the output was last on
    bool last_on_known;     // the rail of `last_on` is still in the list

    bool limit; // the current limit is inferred
    u64 limit_at;
    bool limit_next;

    u8 settings_known; // BENCH_SETTING_... bits
    u8 settings_tries;
    u64 settings_at;
    bool settings_waiting;
    u16 bright, boot_last, auto_on;

    u32 base_mwh;            // added to the box's count
    u32 undo_mwh, undo_base; // the box's count and base_mwh before the last reset
    u64 reset_at;
    bool undo;

    // State of the panel itself.
    bool hold_off;       // raising the voltage needs no hold
    bool locked;         // everything except turning off is locked
    bool locked_pressed; // a locked control was pressed at locked_at
    u64 locked_at;
    bool averaged_off; // readings are shown without averaging
    char remote[48];   // address of the client that holds the panel; empty if none
    bool replay;       // a recorded link is being replayed, named in `remote`; nothing is sent
    bench_preset_t preset[BENCH_PRESETS];
};
extern bench_t bench;

// time ------------------------------------------------------------------------------------------------------------
// Resets the model: nothing is known, and the port has not been tried. Call it once, before anything else.
void bench_start(void);
// Advances `now` and handles everything that depends on time alone. Call it at least ten times a second.
void bench_tick(void);

// from the link ---------------------------------------------------------------------------------------------------
// Takes a register that the board has written; `value` is within the register's range.
void bench_take(u16 addr, u16 value);
// Takes note that a word of the rail table has been stored in the register image.
void bench_take_word(u16 addr);
// Takes a change of the port's state. Each time the port has been opened, a pending off is sent first, then everything
// is requested from the box.
void bench_take_port(const bench_port_t *port);

// what is known ---------------------------------------------------------------------------------------------------
bench_age_e bench_age(void);
u64 bench_silence_ms(void); // time since the last reading or output state
bool bench_live(void);      // returns true unless the box is dead
// Returns true if the state of the output is known: the box is live and has reported it since the last silence.
bool bench_out_known(void);
bool bench_is_on(void); // returns true if the output is known to be on
// Returns true if, by the last readings, the output is below its set voltage because the current is at its limit.
bool bench_limit_acts(void);
// Returns true if a press counts. A locked panel ignores it and shows a note for BENCH_NOTE_MS. While a remote client
// holds the panel or a replay runs, only presses that look at something or take the panel back count.
enum bench_press_e { BENCH_PRESS_CHANGES, BENCH_PRESS_LOOKS };
bool bench_press(bench_press_e what = BENCH_PRESS_CHANGES);
bool bench_locked_note(void);
void bench_lock(bool on);
// Writes the readings for display, averaged over BENCH_EYE_MS. Returns false if they are not known.
bool bench_eye(u16 *mv, u16 *ma, u16 *dw);
// Writes the energy of the session in mWh. Returns false if it is not known.
bool bench_energy(u64 *mwh);

// rails -----------------------------------------------------------------------------------------------------------
// Requests the list; the state changes when the answer has arrived.
void bench_rails_ask(void);
bool bench_rail_usable(u8 rail); // returns true if a list is shown and this rail is valid
// Returns the choice with which the page of a rail opens. The rail in force opens with its set values, any other
// adjustable rail with its lowest voltage and the current last used on it, or 1 A. A fixed rail has its own voltage and
// maximum current. The rail must be usable.
bench_choice_t bench_rail_open(u8 rail);

// the gate --------------------------------------------------------------------------------------------------------
// What the output's toggle shows and does.
enum bench_toggle_e {
    BENCH_TOGGLE_UNKNOWN,
    BENCH_TOGGLE_UNKNOWN_SAID, // off has been requested
    BENCH_TOGGLE_ON,
    BENCH_TOGGLE_TURNING_OFF,
    BENCH_TOGGLE_STILL_ON,
    BENCH_TOGGLE_OFF,
    BENCH_TOGGLE_HOLD,         // off, and turning on requires a hold that shows the set voltage
    BENCH_TOGGLE_HOLD_UNKNOWN, // as BENCH_TOGGLE_HOLD, but the set voltage is not known
    BENCH_TOGGLE_TURNING_ON,
};
bench_toggle_e bench_toggle(void);
// Handles a touch on the toggle or on an off button. Returns true if the touch requests off, even if the toggle ignores
// it because it has just turned off.
bool bench_toggle_down(void);
// Requests off. Works in any state and on any page.
void bench_off(void);
// Handles the release of the toggle inside its area, or the end of a hold. Returns true if on was requested.
bool bench_turn_on(bool held);

enum bench_apply_e { BENCH_APPLY_NO, BENCH_APPLY_CLICK, BENCH_APPLY_HOLD };
// Returns whether a choice may be applied now, and how: by a click, or by a hold if the output is on, or may turn on,
// at a higher voltage than before. Returns BENCH_APPLY_NO while the box is dead or a choice is being applied, and for
// values off the grid of the rail.
bench_apply_e bench_apply_how(bench_choice_t choice);
// Returns true if applying a choice turns the output on.
bool bench_apply_turns_on(void);
// Applies a choice. Returns true if it was sent. BENCH_APPLY_HOLD requires `held` and readings that are not late.
bool bench_apply(bench_choice_t choice, bool held);
// Returns true if the box has confirmed these values.
bool bench_applied(bench_choice_t choice);

bool bench_session_reset(void); // returns false while the box is dead
bool bench_session_undo(void);  // returns false after BENCH_UNDO_MS

// Changes a setting of the box: BRIGHT, BOOT_STATE or AUTO_ARM. It takes effect at once and is sent. Returns false
// while the box is dead.
bool bench_setting(u16 addr, u16 value);
void bench_settings_ask(void);

// Internal functions of the model, called between its files.
void bench_gate_start(void);               // clears the currents last used on the rails
void bench_gate_send(u16 addr, u16 value); // the only function that sends registers
void bench_gate_tick(void);
void bench_gate_out(bool on);  // register 22 has been received
void bench_gate_rail(u8 rail); // register 23 has been received
void bench_gate_lost(void);    // forgets the state of the box
void bench_rails_tick(void);
void bench_rails_commit(void);
void bench_rails_lost(void);
void bench_rails_back(void); // the box is back: hides the old list until the new one is complete
void bench_gate_rails(void); // a list has been received, possibly the same one
// Announces that `rails` is about to replace the rails of bench.rails.
void bench_gate_list(const prof_t *rails, u8 count);

#endif
