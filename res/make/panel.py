#!/usr/bin/python3
"""The panel's layout as data: views, controls, texts. `views.py` writes the view and language files from it, `look.py` the
constants of the panel's code, `art.py` draws in its colours."""

# palette -------------------------------------------------------------------------------------------
BLACK, WHITE = 0x000000, 0xFFFFFF
CARD, RAISED = 0x1C1C1E, 0x2C2C2E
GREY, DIM = 0x98989F, 0x8E8E93
AMBER, AMBER_HI, AMBER_INK, AMBER_BED = 0xFF9F0A, 0xFFE680, 0x231300, 0x3A2A10
ON, OFF = 0x30D158, 0xFF453A
PALETTE = {name: value for name, value in dict(globals()).items() if name.isupper()}
TRACK = (DIM, 90)                                  # unfilled part of arc, sliders and switch: colour, opacity
BADGE = {"FIX": (RAISED, DIM), "PPS": (0x64D2FF, 0x062A30), "AVS": (AMBER, 0x2A1800), "EPR": (0xBF5AF2, 0x1E0C33)}
CHECK_MARK = "✓"

# grid: 8 px; outer margin 16; tab bar 48 at the bottom --------------------------------------------
W, H, TAB_Y, TAB_H = 800, 480, 432, 48
NUM, RAIL, TEXT, BOLD = "bench-num", "bench-rail", "bench-text", "bench-bold"

EN = {
    "tab_output": "Output", "tab_rails": "Rails", "tab_settings": "Settings", "tab_about": "About",
    "session": "Session", "reset": "Reset", "to_rails": "Rails ›", "to_output": "‹ Output",
    "no_rails": "No rails yet", "no_rails_hint": "The box lists them here as soon as its source is connected.",
    "adjust_hint": "PPS and AVS rails open their sliders here.",
    "brightness": "Brightness", "power_on": "Output at power-on", "boot_off": "Off", "boot_last": "As last used",
    "auto_arm": "Auto arm", "auto_arm_hint": "After a rail is applied",
    "turn_on": "Turn output on", "turn_off": "Turn output off", "select": "Select a rail", "use": "Use %u.%02u V",
    "applied": "Applied", "fixed_rail": "Fixed rail", "adjustable_rail": "Adjustable rail",
    "update_running": "Updating. Please do not switch off.",
    "update_done": "Update finished. Files copied: %1, failed: %2. Please switch off and on again.",
}
DE = {
    "tab_output": "Ausgang", "tab_rails": "Profile", "tab_settings": "Einstellungen", "tab_about": "Info",
    "session": "Sitzung", "reset": "Nullen", "to_rails": "Profile ›", "to_output": "‹ Ausgang",
    "no_rails": "Noch keine Profile", "no_rails_hint": "Sie erscheinen hier, sobald die Quelle angeschlossen ist.",
    "adjust_hint": "PPS- und AVS-Profile öffnen hier ihre Regler.",
    "brightness": "Helligkeit", "power_on": "Ausgang beim Einschalten", "boot_off": "Aus", "boot_last": "Wie zuletzt",
    "auto_arm": "Auto-Aktivierung", "auto_arm_hint": "Nachdem ein Profil gewählt ist",
    "turn_on": "Ausgang einschalten", "turn_off": "Ausgang ausschalten", "select": "Profil wählen", "use": "%u.%02u V setzen",
    "applied": "Gesetzt", "fixed_rail": "Festes Profil", "adjustable_rail": "Einstellbar",
    "update_running": "Daten werden aktualisiert. Bitte nicht ausschalten.",   # the update screen's font has no umlauts
    "update_done": "Update beendet. Kopierte Dateien: %1, Fehler: %2. Bitte aus- und wieder einschalten.",
}
# Those that the panel's code writes: in English if a language does not have them.
PROGRAM_TEXTS = ("turn_on", "turn_off", "select", "use", "applied", "fixed_rail", "adjustable_rail")


def label(i, x, y, w, h, txt="", font=TEXT, size=20, color=WHITE, align="left", **kw):
    return dict(id=i, type="label", box=(x, y, w, h), txt=txt, font=font, size=size, color=color, align=align, **kw)


def box(i, x, y, w, h, **kw):
    return dict(id=i, type="label", box=(x, y, w, h), txt="", **kw)


def image(i, x, y, w, h, src, **kw):
    return dict(id=i, type="image", box=(x, y, w, h), src=src, **kw)


TABS = ("tab_output", "tab_rails", "tab_settings", "tab_about")      # from left to right


def tabs(here, ids, mark):
    """`ids`: control id of each tab except `here`; `mark`: id of the label that marks the current tab."""
    out = []
    for place, key in enumerate(TABS):
        x = place * 200
        if place == here:
            out.append(label(mark, x, TAB_Y, 200, TAB_H, "#" + key, BOLD, 20, WHITE, "center", bg=BLACK,
                             border=("top", 3, AMBER), role="mark"))
        else:
            out.append(label(ids[place], x, TAB_Y, 200, TAB_H, "#" + key, TEXT, 20, GREY, "center", bg=CARD,
                             click=True, role="tab"))
    return out


# view 1: output ------------------------------------------------------------------------------------
# The decimal points of volts, amperes and watts are aligned: DOT is the centre of that line.
EM = {NUM: (0.605, 0.229, 0.10), RAIL: (0.622, 0.238, 0.16)}          # digit, point, space, in em
UNIT = {"A": 0.297, "W": 0.419, "V": 0.296, "h": 0.244}                  # unit letters of bench-num, in em
DOT = 173


def right_edge(size, decimals, unit=""):
    """Right edge of a right-aligned reading whose decimal point is at DOT."""
    digit, point, space = EM[NUM]
    return round(DOT + size * (point / 2 + decimals * digit + ((space + UNIT[unit]) if unit else 0)))


BIG, MID = 112, 56
# An unknown reading has U+2024 as its decimal point, which the fonts draw as faint as the dashes.
V1 = [
    label(1, 16, 18, right_edge(BIG, 2) - 16, 136, "-․--", NUM, BIG, WHITE, "right", role="volts"),
    label(2, right_edge(BIG, 2) + 11, 18, 48, 136, "V", NUM, BIG, WHITE, "left", role="unit", dimunit=True),
    label(3, 16, 164, right_edge(BIG, 3, "A") - 16, 136, "-․--- A", NUM, BIG, WHITE, "right", role="amperes", dimunit=True),
    label(5, 16, 346, right_edge(MID, 1, "W") - 16, 68, "-․- W", NUM, MID, WHITE, "right", role="watts", dimunit=True),
    box(25, 344, 369, 104, 48, bg=RAISED, radius=12, hidden=True, role="press mark"),
    label(16, 344, 369, 104, 48, "#reset", TEXT, 20, AMBER, "center", click=True),
    label(17, 464, 370, 96, 48, "#session", TEXT, 16, GREY, "right"),
    label(4, 568, 363, 184, 48, "-․---", NUM, 36, WHITE, "right", role="energy"),
    label(10, 759, 363, 40, 48, "Wh", NUM, 36, WHITE, dimunit=True),
    image(9, 472, 8, 320, 320, "dial.png"),
    dict(id=7, type="arc", box=(506, 42, 252, 252), width=12, track=TRACK, fill=WHITE, span=(135, 405),
         range=(0, 480), value=0),
    label(11, 540, 76, 184, 184, EN["turn_on"], BOLD, 24, WHITE, "center", bg=ON, radius=92, wrap=True, line=29,
          pad=(88, 16, 0, 16), overlay="toggle.png", click=True, shade=128, role="toggle"),
    label(8, 560, 276, 144, 48, "#to_rails", BOLD, 20, AMBER, "center", click=True),
] + tabs(0, {1: 12, 3: 13, 2: 14}, 15)

# view 2: rails -------------------------------------------------------------------------------------
# One row per rail. The ids have no pattern: the rows were laid out by hand.
ROW_COLUMNS = ("badge", "volt", "meta", "curr", "check", "bg")
ROW_ID = [(6, 2, 3, 4, 5, 67), (10, 9, 8, 7, 1, 68), (12, 11, 13, 14, 15, 79), (26, 27, 28, 29, 30, 78),
          (25, 24, 18, 22, 21, 77), (16, 17, 23, 19, 20, 76), (55, 54, 43, 42, 31, 69), (56, 53, 44, 41, 32, 70),
          (57, 52, 45, 40, 33, 71), (58, 51, 46, 39, 34, 72), (59, 50, 47, 38, 35, 73), (60, 49, 48, 37, 36, 75),
          (65, 64, 63, 62, 61, 74)]
CELL_W, CELL_H, GAP_X, GAP_Y, ROWS = 248, 56, 12, 6, 5


def cell(i):
    return (i // ROWS) * (CELL_W + GAP_X), (i % ROWS) * (CELL_H + GAP_Y)


def rail_row(i):
    badge, volt, meta, curr, check, bg = ROW_ID[i]
    x, y = cell(i)
    return [
        box(bg, x, y, CELL_W, CELL_H, bg=CARD, radius=12, hidden=True, click=True),
        label(badge, x + 12, y + 7, 44, 20, "", BOLD, 16, DIM, "center", bg=RAISED, radius=6, hidden=True),
        label(check, x + 60, y + 5, 24, 24, CHECK_MARK, BOLD, 20, AMBER, "center", hidden=True),
        label(volt, x + 86, y + 1, 150, 32, "", RAIL, 26, WHITE, "right", hidden=True),
        label(meta, x + 12, y + 31, 140, 20, "", TEXT, 16, GREY, "left", hidden=True),
        label(curr, x + 156, y + 30, 80, 20, "", RAIL, 20, WHITE, "right", hidden=True),
    ]


TRAY_Y, TRAY_H = 320, 108
V2 = [
    dict(id=66, type="container", box=(16, 8, 768, 304),
         kids=[c for i in range(len(ROW_ID)) for c in rail_row(i)]
         + [box(84, 0, 0, CELL_W, CELL_H, border=("all", 2, AMBER), radius=12, hidden=True)]),
    label(85, 16, 364, 424, 56, "#adjust_hint", TEXT, 16, GREY, "left"),
    label(80, 16, 128, 768, 32, "#no_rails", BOLD, 24, WHITE, "center"),
    label(81, 16, 164, 768, 264, "#no_rails_hint", TEXT, 20, GREY, "center", bg=BLACK, wrap=True, line=24),
    dict(id=82, type="container", box=(8, TRAY_Y, 784, TRAY_H), bg=CARD, radius=12, hidden=True, kids=[
        label(88, 8, 0, 132, 48, "0.00 V", NUM, 36, AMBER, "right", dimunit=True, role="set volts"),
        dict(id=83, type="slider", box=(172, 20, 580, 8), range=(3300, 21000), value=21000, click=24, track_h=8, knob=32, track=TRACK,
             fill=AMBER, knob_color=WHITE),
        label(89, 8, 48, 110, 48, "0.0 A", NUM, 36, AMBER, "right", dimunit=True, role="set amperes"),
        dict(id=87, type="slider", box=(172, 68, 252, 8), range=(0, 5000), value=5000, click=24, track_h=8, knob=32, track=TRACK,
             fill=AMBER, knob_color=WHITE),
    ]),
    label(91, 456, 364, 120, 56, "#to_output", BOLD, 20, AMBER, "center", click=True),
    label(90, 584, 364, 200, 56, EN["select"], BOLD, 20, DIM, "center", bg=RAISED, opa=230, radius=12, click=True),
] + tabs(1, {0: 93, 3: 95, 2: 96}, 92)

# view 3: about -------------------------------------------------------------------------------------
# A label is aligned by the height of its key in the file, so the key must fit on one line of the label.
EN |= {
    "about_title": "USB Power Delivery bench box", "about_sub": "Front panel", "about_ver": "Version",
    "about_time": "Built", "about_link": "Board link", "about_link_is": "serial, 115 200 baud, 8N1",
    "about_lic": "Licences", "about_lic_are": "in the folder of this program", "about_kinds": "Kinds of rail",
    "about_fix": "one fixed voltage", "about_pps": "adjustable in fine steps",
    "about_avs": "adjustable over a wide range", "about_epr": "extended range, above 20 V", "about_colours": "Colours",
    "about_measured": "measured", "about_set": "set by you", "about_unknown": "not known yet",
}
DE |= {
    "about_title": "USB-Power-Delivery-Netzteil", "about_sub": "Bedienfeld", "about_ver": "Version",
    "about_time": "Erstellt", "about_link": "Verbindung", "about_link_is": "seriell, 115 200 Baud, 8N1",
    "about_lic": "Lizenzen", "about_lic_are": "im Ordner dieses Programms", "about_kinds": "Arten von Profilen",
    "about_fix": "eine feste Spannung", "about_pps": "in feinen Stufen einstellbar",
    "about_avs": "in weitem Bereich einstellbar", "about_epr": "erweiterter Bereich, über 20 V", "about_colours": "Farben",
    "about_measured": "gemessen", "about_set": "eingestellt", "about_unknown": "noch unbekannt",
}


def about():
    """Real labels, so the page is sharp, follows the language and can be tested. Ids start at 6."""
    out = [image(1, 32, 16, 80, 80, "logo_small.png")]
    ids = iter(range(6, 60))

    def put(x, base, w, txt, font=TEXT, size=16, color=GREY, align="left", **kw):
        h = kw.pop("h", round(size * 1.25))
        return label(next(ids), x, base - round(0.364 * size) - h // 2, w, h, txt, font, size, color, align, **kw)

    out += [label(next(ids), 128, 18, 264, 58, "#about_title", BOLD, 24, WHITE, "left", wrap=True, line=29),
            put(128, 96, 264, "#about_sub", size=20)]
    rows = [("#about_ver", "@app_ver"), ("#about_time", "@comp_time"), ("#about_link", "#about_link_is"),
            ("#about_lic", "#about_lic_are")]
    for i, (key, value) in enumerate(rows):
        out += [box(next(ids), 32, 126 + 56 * i, 352, 1, bg=RAISED), put(32, 162 + 56 * i, 100, key),
                put(136, 162 + 56 * i, 256, value, color=WHITE)]
    out += [box(next(ids), 416, 16, 368, 216, bg=CARD, radius=12), put(432, 50, 336, "#about_kinds", size=20, color=WHITE)]
    for i, kind in enumerate(BADGE):
        y, (bg, ink) = 90 + 40 * i, BADGE[kind]
        out += [put(432, y, 44, kind, BOLD, 16, ink, "center", bg=bg, radius=6),
                put(492, y, 284, "#about_" + kind.lower())]
    out += [box(next(ids), 416, 244, 368, 172, bg=CARD, radius=12), put(432, 278, 336, "#about_colours", size=20, color=WHITE)]
    for i, (sample, col, what) in enumerate((("12.04", WHITE, "measured"), ("12.04", AMBER, "set"), ("-․--", WHITE, "unknown"))):
        out += [put(428, 318 + 36 * i, 80, sample, NUM, 26, col, "right"), put(524, 318 + 36 * i, 252, "#about_" + what)]
    return out


V3 = about() + tabs(3, {0: 2, 1: 3, 2: 5}, 4)

# view 4: settings ----------------------------------------------------------------------------------
V4 = [
    box(1, 16, 16, 768, 128, bg=CARD, radius=12),
    label(2, 32, 28, 400, 40, "#brightness", TEXT, 20, WHITE),
    label(23, 568, 24, 200, 48, "100%", NUM, 36, AMBER, "right"),
    dict(id=19, type="slider", box=(48, 104, 704, 8), range=(10, 100), value=100, click=24, track_h=8, knob=32, track=TRACK,
         fill=AMBER, knob_color=WHITE),
    box(3, 16, 156, 768, 136, bg=CARD, radius=12),
    label(4, 32, 168, 500, 40, "#power_on", TEXT, 20, WHITE),
    box(5, 32, 216, 356, 60, bg=RAISED, radius=12),
    box(6, 412, 216, 356, 60, bg=RAISED, radius=12),
    box(7, 48, 230, 32, 32, bg=GREY, radius=16),
    box(8, 428, 230, 32, 32, bg=GREY, radius=16),
    label(10, 32, 216, 356, 60, "#boot_off", BOLD, 24, WHITE, "left", pad=(0, 0, 0, 21), click=True, radius=12, role="option"),
    label(11, 412, 216, 356, 60, "#boot_last", BOLD, 24, GREY, "left", pad=(0, 0, 0, 21), click=True, radius=12, role="option"),
    box(9, 16, 304, 768, 112, bg=CARD, radius=12),
    label(12, 32, 324, 560, 36, "#auto_arm", TEXT, 20, WHITE),
    label(14, 32, 360, 560, 28, "#auto_arm_hint", TEXT, 16, GREY),
    dict(id=13, type="switch", click=True, box=(672, 336, 96, 48), value=0, on=AMBER, off=TRACK),
] + tabs(2, {0: 15, 1: 16, 3: 17}, 18)
for table in (EN, DE):                  # the tick is on the disc of the option
    for key in ("boot_off", "boot_last"):
        table[key] = CHECK_MARK + "   " + table[key]

VIEWS = {1: V1, 2: V2, 3: V3, 4: V4}

# names --------------------------------------------------------------------------------------------
# The program uses these names of controls (VIEW1_LABEL0_ID and so on); all others are named after type and id.
NAMES = {
    1: {1: "label0", 3: "label2", 4: "label3", 5: "label4", 7: "arc0", 8: "label6", 11: "label7", 12: "label8",
        13: "label9", 14: "label10", 16: "label13", 25: "label21"},
    2: {80: "label78", 81: "label79", 82: "container1", 83: "slider0", 84: "selbox", 87: "slider1", 88: "label82",
        89: "label83", 90: "label84", 91: "label85", 93: "label86", 95: "label88", 96: "label89",
        **{i: f"label{i - 2}" for i in range(67, 80)}},
    3: {1: "image0", 2: "label0", 3: "label1", 5: "label3"},
    4: {10: "label8", 11: "label9", 13: "sw0", 15: "label11", 16: "label12", 17: "label13", 19: "slider0", 23: "label16"},
}
