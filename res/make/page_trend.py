"""Page 5, Trend."""
from layout import *

WORDS.update({
    "t_cursor": ("Cursor", "Zeiger"), "t_now": ("Now", "Jetzt"), "t_ago": ("{0} ago", "vor {0}"), "t_end": ("now", "jetzt"),
    "t_min": ("Min", "Min"), "t_max": ("Max", "Max"), "mean": ("Mean", "Mittel"), "t_charge": ("Charge", "Ladung"),
    "t_energy": ("Energy", "Energie"), "t_record": ("Record", "Aufzeichnen"), "t_stop": ("Stop recording", "Anhalten"),
    "t_recording": ("Recording", "Aufnahme"), "t_full": ("Cannot write: disk full", "Voll: nicht geschrieben"),
    "t_failed": ("Cannot write there", "Dort nicht schreibbar"),
})

# Both panes have one time axis. A pane's last row and column are its foot and its right edge.
X, PANE_W = 60, 500
VOLTS_Y, VOLTS_H, LOW_Y, LOW_H = 68, 122, 220, 106
FOOT = LOW_Y + LOW_H
L = 584                                            # the column of numbers


def chart(i, y, h, name):
    return dict(id=i, type="chart", box=(X, y, PANE_W + 1, h + 1), bg=BLACK, name=name)


def axis(ids, name):
    """Numbers of an axis; the panel's code places them."""
    return [label(i, 0, 0, 52, 24, "", TEXT, 16, GREY, "right", hidden=True, name=f"{name}{n}") for n, i in enumerate(ids)]


def times():
    """Places of the time axis; the last one is the present."""
    return ([label(i, 0, FOOT + 4, 88, 24, "", TEXT, 16, GREY, "center", name=f"time{n}") for n, i in enumerate(range(88, 94))] +
            [label(97, X + PANE_W - 80, FOOT + 4, 80, 24, "#t_end", TEXT, 16, GREY, "right", name="time_now")])


def ring(i, name):
    return box(i, 0, 0, 12, 12, bg=BLACK, border=("all", 2, AMBER_HI), radius=6, hidden=True, name=name)


def pair(ids, y, key, name):
    """A row of numbers: its word, volts, and amperes or watts."""
    return [label(ids[0], L, y, 64, 28, key, TEXT, 16, GREY), label(ids[1], 608, y, 84, 28, "", RAIL, 20, WHITE, "right", name=name + "_volts"),
            label(ids[2], 696, y, 88, 28, "", RAIL, 20, WHITE, "right", name=name + "_low")]


CHOSEN = dict(chosen=dict(font=BOLD, color=WHITE, bg=RAISED, border=("all", 2, AMBER)))


def choice(i, x, w, text, name):
    return label(i, x, 368, w, 56, text, TEXT, 20, GREY, "center", bg=CARD, radius=12, click=True, role="key", name=name, looks=CHOSEN)


PAGE = strip() + [
    chart(20, VOLTS_Y, VOLTS_H, "volts_pane"), chart(60, LOW_Y, LOW_H, "low_pane"),
    *axis((80, 81, 82, 83, 61, 62), "volts_axis"), *axis((84, 85, 86, 87, 63, 64), "low_axis"), *times(),
    image(94, X + PANE_W + 2, 0, 9, 12, "set_now.png", hidden=True, name="volts_set"),
    image(95, X + PANE_W + 2, 0, 9, 12, "set_now.png", hidden=True, name="amperes_set"),
    box(77, X, VOLTS_Y - 6, 1, FOOT - VOLTS_Y + 6, bg=AMBER_HI, hidden=True, name="cursor"), ring(78, "volts_ring"), ring(79, "low_ring"),
    box(96, X, 56, PANE_W, 292, click=True, name="panes"),
    label(21, L, 58, 64, 28, "#t_now", TEXT, 16, GREY, name="when"), label(22, 650, 58, 134, 28, "", TEXT, 16, WHITE, "right", name="ago"),
    *pair((23, 24, 25), 86, "", "at"), box(98, L - 8, 56, 208, 62, click=True, name="cursor_off"),
    box(27, L, 120, 200, 1, bg=LINE), label(26, L, 124, 70, 24, "", TEXT, 16, WHITE, name="span"),
    label(28, 642, 124, 50, 24, "V", TEXT, 16, GREY, "right"), label(29, 734, 124, 50, 24, "A", TEXT, 16, GREY, "right", name="low_unit"),
    *pair((30, 31, 32), 150, "#t_min", "min"), *pair((33, 34, 35), 178, "#t_max", "max"), *pair((36, 37, 38), 206, "#mean", "mean"),
    box(39, L, 240, 200, 1, bg=LINE),
    label(40, L, 246, 80, 28, "#t_charge", TEXT, 16, GREY), label(41, 650, 246, 100, 28, "", RAIL, 20, WHITE, "right", name="charge"),
    label(42, 756, 246, 28, 28, "Ah", TEXT, 16, GREY, "right"),
    label(43, L, 274, 80, 28, "#t_energy", TEXT, 16, GREY), label(44, 650, 274, 100, 28, "", RAIL, 20, WHITE, "right", name="energy"),
    label(45, 756, 274, 28, 28, "Wh", TEXT, 16, GREY, "right"),
    box(46, L, 314, 20, 20, bg=ON, border=("all", 3, WHITE), radius=10, hidden=True, name="recording_dot"),
    label(47, 612, 310, 100, 28, "#t_recording", TEXT, 16, WHITE, hidden=True, name="recording"),
    label(48, 700, 310, 84, 28, "", TEXT, 20, WHITE, "right", hidden=True, name="recorded"),
    label(49, L, 334, 200, 24, "", TEXT, 16, GREY, hidden=True, name="file", looks=dict(chosen=dict(color=WHITE))),
    choice(50, 16, 88, "1 min", "span0"), choice(51, 110, 88, "10 min", "span1"), choice(52, 204, 88, "1 h", "span2"),
    choice(53, 298, 88, "12 h", "span3"), choice(55, 392, 88, "#session", "span4"), choice(56, 492, 68, "W", "watts"),
    label(54, L, 368, 200, 56, "#t_record", BOLD, 20, AMBER, "center", bg=RAISED, radius=12, click=True, role="key", name="record",
          looks=dict(chosen=dict(color=WHITE), dead=dict(color=GREY))),
] + tabs(2, (1, 2, 3, 4, 5))
