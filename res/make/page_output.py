"""Page 1, Output."""
from layout import *

WORDS.update({
    "on": ("ON", "EIN"), "off": ("OFF", "AUS"), "turn_on": ("Turn output on", "Ausgang einschalten"),
    "turn_off": ("Turn output off", "Ausgang ausschalten"), "turning_on": ("Turning on", "Schaltet ein"),
    "turning_off": ("Turning off", "Schaltet aus"), "still_on": ("Still on:\nturn off", "Noch ein:\nausschalten"),
    "unknown": ("Output state\nunknown", "Ausgang\nunbekannt"), "off_requested": ("Off requested", "Aus angefordert"),
    "hold_for": ("Hold for\n{0}", "Halten für\n{0}"), "hold_on": ("Hold to\nturn on", "Halten zum\nEinschalten"),
    "session": ("Session", "Sitzung"), "reset": ("Reset", "Nullen"), "undo": ("Undo", "Zurück"), "to_rails": ("Rails ›", "Profile ›"),
    "to_port": ("Port ›", "Anschluss ›"), "limit": ("Current\nlimit", "Strom-\ngrenze"),
    # {0} volts, {1} amperes, {2} kind of rail
    "set_line": ("Set {0}, {1} max, {2}", "Soll {0}, max. {1}, {2}"), "last_set": ("Last set {0}, {1} max", "Zuletzt {0}, max. {1}"),
    "set_unknown": ("Set values not known, {2}", "Sollwerte unbekannt, {2}"),
    "set_unknown_plain": ("Set values not known", "Sollwerte unbekannt"), "no_rail": ("No rail applied", "Kein Profil angewendet"),
    "fixed": ("fixed", "fest"), "remote_is": ("Remote: {0}", "Remote: {0}"), "replay_is": ("Replay: {0}", "Aufnahme: {0}"), "local": ("Local", "Lokal"),
})

BIG, MID = 112, 56
# The decimal points of volts, amperes and watts are aligned: DOT is the centre of that line.
DIGIT, POINT, SPACE = 0.605, 0.229, 0.10                                  # of bench-num, in em
UNIT = {"A": 0.297, "W": 0.419}
DOT = 173


def right_edge(size, decimals, unit=""):
    """Right edge of a right-aligned reading whose decimal point is at DOT."""
    return round(DOT + size * (POINT / 2 + decimals * DIGIT + ((SPACE + UNIT[unit]) if unit else 0)))


FADE = dict(late=dict(color=LATE))
# An unknown reading has U+2024 as its decimal point, which the fonts draw as faint as the dashes.
PAGE = [
    label(28, 16, 2, 608, 46, "", BOLD, 24, AMBER, "left", click=True, name="set_line", role="link"),
    label(29, 0, 0, 800, 48, "", BOLD, 20, BLACK, "left", bg=GREY, pad=(0, 0, 0, 16), hidden=True, name="notice"),
    label(31, 480, 0, 304, 48, "", TEXT, 16, BLACK, "right", hidden=True, name="last_set"),
    label(36, 424, 2, 200, 46, "", TEXT, 16, WHITE, "right", hidden=True, name="remote"),
    label(37, 640, 2, 144, 46, "#local", BOLD, 20, AMBER, "center", bg=RAISED, radius=12, click=True, hidden=True, name="local"),
    label(1, 16, 48, right_edge(BIG, 2) - 16, 136, "-․--", NUM, BIG, WHITE, "right", dimunit=True, name="label0", looks=FADE),
    label(2, right_edge(BIG, 2) + 11, 48, 48, 136, "V", NUM, BIG, WHITE, "left", dimunit=True, looks=FADE, name="volt_unit"),
    label(3, 16, 176, right_edge(BIG, 3, "A") - 16, 136, "-․--- A", NUM, BIG, WHITE, "right", dimunit=True, name="label2", looks=FADE),
    label(30, 16, 204, 74, 80, "#limit", BOLD, 16, AMBER_INK, "center", bg=AMBER, radius=6, hidden=True, wrap=True, line=20,
          pad=(20, 0, 0, 0), name="limit"),
    label(5, 16, 346, right_edge(MID, 1, "W") - 16, 68, "-․- W", NUM, MID, WHITE, "right", dimunit=True, name="label4", looks=FADE),
    box(25, 344, 369, 104, 48, bg=RAISED, radius=12, hidden=True, name="label21"),
    label(16, 344, 369, 104, 48, "#reset", TEXT, 20, AMBER, "center", click=True, name="label13",
          looks=dict(dead=dict(color=DIM), hold=dict(color=GREY))),
    label(17, 464, 370, 96, 48, "#session", TEXT, 16, GREY, "right"),
    label(4, 568, 363, 184, 48, "-․---", NUM, 36, WHITE, "right", name="label3", looks=FADE),
    label(10, 759, 363, 40, 48, "Wh", NUM, 36, WHITE, dimunit=True, name="energy_unit", looks=FADE),
    image(9, 472, 48, 320, 320, "dial.png"),
    arc(7, 506, 82, 252, 12, TRACK, WHITE, (135, 405), 0, 480, name="arc0"),
    image(27, 629, 76, 6, 22, "mark.png", pivot=(3, 132), hidden=True, name="set_mark"),
    label(11, 532, 108, 200, 200, "#turn_on", BOLD, 20, WHITE, "center", bg=OFF_BED, border=("all", 6, OFF), radius=100, wrap=True,
          line=24, pad=(112, 22, 0, 22), click=True, name="label7", role="lighter",
          looks=dict(chosen=dict(bg=ON_BED, border=("all", 6, ON)),
                     dead=dict(bg=RAISED, border=("all", 6, GREY), pad=(40, 12, 0, 12)))),
    arc(35, 532, 108, 200, 6, (OFF, 0), AMBER, (270, 629), 0, 800, hidden=True, name="hold_ring"),
    label(26, 532, 142, 200, 76, "#off", BOLD, 72, WHITE, "center", name="state_word"),
    box(34, 592, 212, 80, 1, bg=GREY, hidden=True, name="unknown_rule"),
    label(32, 552, 216, 160, 44, "#off_short", BOLD, 24, WHITE, "center", hidden=True, name="unknown_word"),
    label(8, 560, 316, 144, 48, "#to_rails", BOLD, 20, AMBER, "center", click=True, name="label6", role="link",
          looks=dict(dead=dict(color=GREY))),
] + tabs(0, (15, 12, 33, 14, 13)) + [
    label(39, 16, 308, 418, 36, "#locked", BOLD, 20, BLACK, "center", bg=GREY, radius=12, hidden=True, name="locked_note"),
]
