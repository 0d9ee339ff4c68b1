"""What all pages of the panel share: palette, grid, fonts, words, and the functions that make rows of the layout.

A row is one control. `looks` are its other looks, by the names in LOOKS: the panel's code only sets the state.
"""

# palette -------------------------------------------------------------------------------------------
BLACK, WHITE = 0x000000, 0xFFFFFF
CARD, RAISED, LINE = 0x1C1C1E, 0x2C2C2E, 0x3A3A3C
GREY, DIM = 0x98989F, 0x8E8E93
AMBER, AMBER_HI, AMBER_INK, AMBER_BED = 0xFF9F0A, 0xFFE680, 0x231300, 0x3A2A10
ON, OFF = 0xFF453A, 0x30D158                       # the live output, and what turns it off; the output that is off
ON_BED, OFF_BED = 0x80231D, 0x18692C               # the same under half black: grounds of white words
PALETTE = {name: value for name, value in dict(globals()).items() if name.isupper()}
TRACK = (DIM, 90)                                  # unfilled part of arc, sliders and switch: colour, opacity
LATE, LATE_STRIP = 0xAAAAAA, 0xB3B3B4              # readings older than a second: white at two thirds, on black and on the strip
BADGE = {"FIX": (RAISED, GREY), "PPS": (0x64D2FF, 0x062A30), "AVS": (AMBER, 0x2A1800), "EPR": (0xBF5AF2, 0x1E0C33)}
CHECK_MARK = "✓"

# A control has one of these looks or none: name -> bit of LVGL's state.
LOOKS = {"chosen": 0x1000, "dead": 0x2000, "late": 0x4000, "hold": 0x8000}

# grid: 8 px; outer margin 16; tab bar 48 at the bottom, strip 52 at the top -------------------------
W, H, TAB_Y, TAB_H, TAB_W, STRIP_H = 800, 480, 432, 48, 160, 52
NUM, RAIL, TEXT, BOLD = "bench-num", "bench-rail", "bench-text", "bench-bold"

# Words: key -> (English, German). {0}, {1}, ... are what the panel's code puts in; all other words are shown as they are.
WORDS = {
    "tab_output": ("Output", "Ausgang"), "tab_rails": ("Rails", "Profile"), "tab_trend": ("Trend", "Verlauf"),
    "tab_settings": ("Settings", "Einstellungen"), "tab_about": ("About", "Info"),
    "strip_on": ("Output on", "Ausgang ein"), "strip_off": ("Output off", "Ausgang aus"),
    "off_short": ("Turn off", "Ausschalten"), "limit_line": ("Current limit", "Stromgrenze"), "remote": ("Remote", "Remote"), "replay": ("Replay", "Aufnahme"),
    "off_again": ("Still on: off", "Noch ein: aus"),
    # Why nothing is known: {0} the port, {1} the age, {2} the group or the program
    "looking": ("Looking for the box at {0}", "Netzteil wird an {0} gesucht"),
    "no_data": ("No data from the box for {1}", "Seit {1} keine Daten vom Netzteil"),
    "stale_gone": ("No data from the box for {1}: cable out", "Seit {1} keine Daten vom Netzteil: Kabel ab"),
    "stale_silent": ("No data from the box for {1}: the box is silent", "Seit {1} keine Daten vom Netzteil: es schweigt"),
    "no_port": ("No box at {0}: nothing is plugged in there", "Kein Netzteil an {0}: dort steckt nichts"),
    "no_right": ("No box at {0}: no right to open it (group {2})", "Kein Netzteil an {0}: kein Recht (Gruppe {2})"),
    "no_right_plain": ("No box at {0}: no right to open it", "Kein Netzteil an {0}: kein Recht, ihn zu öffnen"),
    "port_held": ("No box at {0}: another program has it open", "Kein Netzteil an {0}: anderweitig belegt"),
    "port_held_by": ("No box at {0}: {2} has it open", "Kein Netzteil an {0}: von {2} belegt"),
    "port_fault": ("No box at {0}: {2}", "Kein Netzteil an {0}: {2}"),
    "no_port_set": ("No port is set for the box", "Für das Netzteil ist kein Anschluss gewählt"),
    # The update screen, in the built-in font, which has no umlauts: %1 copied files, %2 that failed
    "update_running": ("Updating. Please do not switch off.", "Daten werden aktualisiert. Bitte nicht ausschalten."),
    "update_done": ("Update finished. Files copied: %1, failed: %2. Please switch off and on again.",
                    "Update beendet. Kopierte Dateien: %1, Fehler: %2. Bitte aus- und wieder einschalten."),
    "locked": ("Locked: hold “Output” for 1 s", "Gesperrt: „Ausgang“ 1 s halten"),
}

# The keys: name -> caps and what they do, each English and German. About and --help list them, keys.cpp acts on them.
KEYBOARD = {
    "pages": (("1 – 5", "1 – 5"), ("pages", "Seiten")), "toggle": (("Space", "Leer"), ("on, off", "ein, aus")),
    "off": (("Esc, F12", "Esc, F12"), ("off, always", "aus, immer")), "lock": (("L", "L"), ("lock", "sperren")),
    "focus": (("←→↑↓", "←→↑↓"), ("choose", "wählen")), "press": (("Enter", "Enter"), ("press", "drücken")),
    "picture": (("F2", "F2"), ("picture", "Bild")), "full": (("F11", "F11"), ("full screen", "Vollbild")),
}
for _n, (_caps, _does) in enumerate(KEYBOARD.values()):
    WORDS.update({f"k{_n}": _caps, f"d{_n}": _does})


def label(i, x, y, w, h, txt="", font=TEXT, size=20, color=WHITE, align="left", **kw):
    return dict(id=i, type="label", box=(x, y, w, h), txt=txt, font=font, size=size, color=color, align=align, **kw)


def box(i, x, y, w, h, **kw):
    return dict(id=i, type="label", box=(x, y, w, h), txt="", **kw)


def image(i, x, y, w, h, src, **kw):
    return dict(id=i, type="image", box=(x, y, w, h), src=src, **kw)


def container(i, x, y, w, h, kids, **kw):
    return dict(id=i, type="container", box=(x, y, w, h), kids=kids, **kw)


def slider(i, x, y, w, low, high, value, **kw):
    return dict(id=i, type="slider", box=(x, y, w, 8), range=(low, high), value=value, track_h=8, knob=32, track=TRACK, fill=AMBER,
                knob_color=WHITE, **kw)


def arc(i, x, y, size, width, track, fill, span, low, high, **kw):
    return dict(id=i, type="arc", box=(x, y, size, size), width=width, track=track, fill=fill, span=span, range=(low, high), value=0, **kw)


def switch(i, x, y, value, **kw):
    return dict(id=i, type="switch", box=(x, y, 96, 48), value=value, on=AMBER, off=TRACK, click=True, **kw)


def card(i, x, y, w, h):
    return box(i, x, y, w, h, bg=CARD, radius=12)


def option(ids, x, y, w, key, name):
    """One of several: a ground with an amber border when it is chosen, a disc with the tick, the words."""
    ground, disc, text = ids
    return [box(ground, x, y, w, 48, bg=RAISED, radius=12, name=name + "_ground", looks=dict(chosen=dict(border=("all", 2, AMBER)))),
            box(disc, x + 8, y + 10, 28, 28, bg=GREY, radius=14),
            label(text, x, y, w, 48, key, BOLD, 20, GREY, "left", pad=(0, 0, 0, 13), radius=12, click=True, role="option", name=name,
                  looks=dict(chosen=dict(color=WHITE)))]


TABS = ("tab_output", "tab_rails", "tab_trend", "tab_settings", "tab_about")      # from left to right


def tabs(here, ids):
    """`ids`: control ids from left to right; the one of `here` marks the current page."""
    out = []
    for place, (key, i) in enumerate(zip(TABS, ids)):
        x = place * TAB_W
        if place == here:
            out.append(label(i, x, TAB_Y, TAB_W, TAB_H, "#" + key, BOLD, 20, WHITE, "center", bg=BLACK, border=("top", 3, AMBER),
                             name=key, click=place == 0))      # held, Output locks the panel
        else:
            out.append(label(i, x, TAB_Y, TAB_W, TAB_H, "#" + key, TEXT, 20, GREY, "center", bg=CARD, click=True, role="tab", name=key))
    lock = ("lock.png", 38) if here == 0 else ("lock_grey.png", 158)
    return out + [image(lock[1], 8, 446, 20, 20, lock[0], hidden=True, name="lock")]


def strip():
    """The live output at the top of every page but Output, with its Off button: ids 100 to 109."""
    return [
        box(100, 0, 0, 800, STRIP_H, bg=CARD, name="strip"),
        box(101, 16, 16, 20, 20, bg=OFF, radius=10, name="strip_dot", looks=dict(chosen=dict(bg=ON))),
        label(102, 48, 0, 140, STRIP_H, "#strip_off", BOLD, 20, WHITE, name="strip_state"),
        label(103, 188, 0, 116, STRIP_H, "", RAIL, 26, WHITE, "right", name="strip_volts", looks=dict(late=dict(color=LATE_STRIP))),
        label(104, 304, 0, 126, STRIP_H, "", RAIL, 26, WHITE, "right", name="strip_amperes", looks=dict(late=dict(color=LATE_STRIP))),
        label(105, 446, 14, 132, 24, "#limit_line", BOLD, 16, AMBER_INK, "center", bg=AMBER, radius=6, hidden=True, name="strip_limit"),
        label(109, 446, 14, 132, 24, "#remote", BOLD, 16, WHITE, "center", bg=RAISED, radius=6, hidden=True, name="strip_remote"),
        label(107, 0, 0, 800, STRIP_H, "", BOLD, 20, BLACK, "left", bg=GREY, pad=(0, 176, 0, 16), hidden=True, name="strip_notice",
              looks=dict(chosen=dict(bg=RAISED, color=WHITE))),
        box(108, 590, 16, 20, 20, bg=ON, border=("all", 3, WHITE), radius=10, hidden=True, name="strip_recording"),
        label(106, 624, 4, 160, 44, "#off_short", BOLD, 20, WHITE, "center", bg=ON_BED, radius=12, border=("all", 2, ON), click=True,
              hidden=True, name="strip_turn_off", looks=dict(dead=dict(bg=RAISED, border=("all", 2, GREY)))),
    ]
