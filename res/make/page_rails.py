"""Page 2, Rails: the list, the tray below it, presets, and the keypad that lies over them."""
from layout import *

WORDS.update({
    "no_rails": ("No rails yet", "Noch keine Profile"),
    "no_rails_hint": ("The box lists them here as soon as its source is connected.", "Sie erscheinen hier, sobald die Quelle angeschlossen ist."),
    "again": ("Reading the rails again", "Profile werden erneut gelesen"),
    "again_hint": ("The list did not arrive whole. It is asked for again, try {0} of 3.", "Die Liste kam nicht vollständig an. Versuch {0} von 3."),
    "cannot_read": ("The rails cannot be read", "Die Profile sind nicht lesbar"),
    "cannot_read_hint": ("The list does not arrive whole. It is asked for again every 10 s.", "Die Liste kommt nicht vollständig an. Neuer Versuch alle 10 s."),
    "bad_row": ("not valid", "ungültig"),
    "select": ("Select a rail", "Profil wählen"), "use": ("Use {0}", "{0} anwenden"), "hold_use": ("Hold for {0}", "Halten für {0}"),
    "applying": ("Applying", "Wird angewendet"), "applied": ("Applied", "Angewendet"), "not_taken": ("The box did not take it", "Nicht angenommen"),
    "hold_longer": ("Hold until it is full", "Halten, bis es voll ist"), "turns_on": ("This turns the output on", "Schaltet den Ausgang ein"),
    "fixed_upto": ("Fixed rail, up to {0}", "Festes Profil, bis {0}"), "on_at": ("The output is on at {0}", "Der Ausgang ist ein, {0}"),
    "is_off": ("The output is off", "Der Ausgang ist aus"), "is_unknown": ("Output state unknown", "Ausgang unbekannt"),
    "changed": ("The rails have changed.\nNothing was applied.", "Die Profile haben sich geändert.\nNichts wurde angewendet."),
    "wait": ("Last list.\nNothing can be applied until the box answers.", "Letzte Liste.\nAnwenden geht erst, wenn das Netzteil antwortet."),
    "hint": ("PPS and AVS rails are set here.\nTap a preset at the right, or hold it to store.",
             "PPS- und AVS-Profile werden hier eingestellt.\nVorgabe rechts antippen, oder zum Speichern halten."),
    # The keypad: {0} lowest or the lower neighbour, {1} highest or the higher one, {2} the step or the kind, {3} what was typed
    "pad_volts": ("Volts of the {2} rail", "Volt des {2}-Profils"), "pad_amperes": ("Amperes of the {2} rail", "Ampere des {2}-Profils"),
    "pad_range": ("{0} to {1} in steps of {2}", "{0} bis {1} in Stufen von {2}"),
    "pad_note": ("Nothing changes at the output until you apply it.", "Am Ausgang ändert sich nichts, bis Sie es anwenden."),
    "pad_between": ("Between {0} and {1}", "Zwischen {0} und {1}"),
    "pad_grid_volts": ("{3} is not on the {2} mV grid:\n{0} or {1}", "{3} liegt nicht im {2}-mV-Raster:\n{0} oder {1}"),
    "pad_grid_amperes": ("{3} is not on the {2} mA grid:\n{0} or {1}", "{3} liegt nicht im {2}-mA-Raster:\n{0} oder {1}"),
    "cancel": ("Cancel", "Abbrechen"), "done": ("Done", "Fertig"),
})

# One row per rail. The ids have no pattern: the rows were laid out by hand.
ROW_COLUMNS = ("badge", "volt", "meta", "curr", "check", "bg")
ROW_ID = [(6, 2, 3, 4, 5, 67), (10, 9, 8, 7, 1, 68), (12, 11, 13, 14, 15, 79), (26, 27, 28, 29, 30, 78),
          (25, 24, 18, 22, 21, 77), (16, 17, 23, 19, 20, 76), (55, 54, 43, 42, 31, 69), (56, 53, 44, 41, 32, 70),
          (57, 52, 45, 40, 33, 71), (58, 51, 46, 39, 34, 72), (59, 50, 47, 38, 35, 73), (60, 49, 48, 37, 36, 75),
          (65, 64, 63, 62, 61, 74)]
CELL_W, CELL_H, GAP_X, GAP_Y, ROWS = 186, 56, 8, 6, 4          # four columns of four places, read downwards
DEAD_INK = dict(dead=dict(color=GREY))


def cell(i):
    return (i // ROWS) * (CELL_W + GAP_X), (i % ROWS) * (CELL_H + GAP_Y)


def rail_row(i):
    badge, volt, meta, curr, check, bg = ROW_ID[i]
    x, y = cell(i)
    return [
        box(bg, x, y, CELL_W, CELL_H, bg=CARD, radius=12, hidden=True, click=True, name=f"label{bg - 2}", role="row",
            looks=dict(chosen=dict(bg=AMBER_BED))),
        label(check, x + 8, y + 4, 24, 26, CHECK_MARK, BOLD, 20, AMBER, "center", hidden=True),
        label(volt, x + 32, y + 1, 144, 32, "", RAIL, 24, WHITE, "right", hidden=True, looks=DEAD_INK),
        label(badge, x + 10, y + 31, 44, 20, "", BOLD, 16, GREY, "center", bg=RAISED, radius=6, pad=(1, 0, 0, 0), hidden=True),
        label(meta, x + 10, y + 31, 100, 20, "#bad_row", TEXT, 16, GREY, "left", pad=(1, 0, 0, 0), hidden=True),
        label(curr, x + 66, y + 31, 110, 20, "", RAIL, 20, WHITE, "right", hidden=True, looks=DEAD_INK),
    ]


def preset(n):
    """One of four chips in the three places that thirteen rails leave free; an empty one is dashes."""
    x, y = 582 + 96 * (n % 2), 62 + 93 * (n // 2)
    return label(120 + n, x, y, 90, 87, "-․-- V\n-․-- A", RAIL, 20, GREY, "center", border=("all", 1, LINE), radius=12, wrap=True, line=26,
                 pad=(18, 0, 0, 0), click=True, name=f"preset{n}",
                 looks=dict(chosen=dict(color=AMBER), hold=dict(color=AMBER, border=("all", 2, AMBER))))


def step(i, x, y, sign, name):
    return label(i, x, y, 48, 48, sign, BOLD, 24, AMBER, "center", bg=RAISED, radius=12, click=True, role="key", name=name,
                 looks=dict(dead=dict(color=GREY)))


def value(i, y, txt, name):
    """A set value that opens the keypad; of a fixed rail, words on the card."""
    return label(i, 8, y, 132, 48, txt, NUM, 36, AMBER, "right", dimunit=True, bg=BLACK, border=("all", 1, DIM), radius=12, pad=(0, 6, 0, 0),
                 click=True, name=name, looks=dict(chosen=dict(bg=CARD, border=None, pad=(0, 6, 0, 12)), dead=dict(color=GREY)))


APPLY = (574, 52, 202, 60)
TRAY = [
    value(88, 6, "0.00 V", "label82"),
    step(110, 148, 6, "−", "volts_less"), slider(83, 222, 26, 248, 3300, 21000, 3300, click=False, name="slider0"), step(111, 494, 6, "+", "volts_more"),
    value(89, 64, "0.00 A", "label83"),
    step(112, 148, 64, "−", "amperes_less"), slider(87, 222, 84, 248, 0, 5000, 0, click=False, name="slider1"),
    step(113, 494, 64, "+", "amperes_more"),
    # What takes the finger at a slider's knob: it follows the knob. A touch beside it does nothing.
    box(118, 198, 6, 48, 48, click=True, name="volts_knob"), box(119, 198, 64, 48, 48, click=True, name="amperes_knob"),
    label(116, 20, 64, 400, 44, "", TEXT, 20, GREY, "left", hidden=True, wrap=True, line=26, name="tray_words", looks=dict(chosen=dict(color=WHITE))),
    label(114, 494, 7, 276, 40, "#is_off", TEXT, 16, GREY, "right", name="tray_state", looks=dict(chosen=dict(color=WHITE), hold=dict(color=WHITE, size=20))),
    label(90, *APPLY, "#select", BOLD, 20, AMBER_INK, "center", bg=AMBER, radius=12, click=True, name="label84",
          looks=dict(dead=dict(bg=RAISED, color=GREY), hold=dict(bg=AMBER_BED, color=AMBER, border=("all", 2, AMBER)))),
    # Over the button while it is held: 115 grows and cuts off the filled button that is in it.
    container(115, *APPLY, hidden=True, name="hold_fill", kids=[
        label(117, 0, 0, 202, 60, "", BOLD, 20, AMBER_INK, "center", bg=AMBER, radius=12, name="hold_words")]),
]
KEYS = ("7", "8", "9", "4", "5", "6", "1", "2", "3", ".", "0", "←")
KEY_NAMES = {".": "point", "←": "back"}
PAD = [
    label(131, 16, 8, 392, 32, "", BOLD, 24, WHITE, name="pad_title"), label(132, 16, 44, 392, 28, "", TEXT, 20, GREY, name="pad_range"),
    label(133, 16, 84, 392, 96, "", NUM, 56, AMBER, "right", dimunit=True, bg=BLACK, border=("all", 1, DIM), radius=12, pad=(0, 16, 0, 0), name="pad_value"),
    label(134, 16, 193, 392, 64, "#pad_note", TEXT, 20, GREY, "left", wrap=True, line=26, name="pad_note", looks=dict(chosen=dict(color=WHITE))),
    label(135, 16, 264, 192, 60, "", BOLD, 24, AMBER, "center", border=("all", 2, AMBER), radius=12, hidden=True, click=True, name="pad_lower"),
    label(136, 216, 264, 192, 60, "", BOLD, 24, AMBER, "center", border=("all", 2, AMBER), radius=12, hidden=True, click=True, name="pad_upper"),
    label(137, 16, 356, 192, 60, "#cancel", BOLD, 20, WHITE, "center", bg=RAISED, radius=12, click=True, role="key", name="pad_cancel"),
    label(138, 216, 356, 192, 60, "#done", BOLD, 20, AMBER_INK, "center", bg=AMBER, radius=12, click=True, name="pad_done",
          looks=dict(dead=dict(bg=RAISED, color=GREY))),
] + [label(140 + n, 424 + 124 * (n % 3), 8 + 104 * (n // 3), 112, 96, key, BOLD if key == "←" else NUM, 36, WHITE, "center", bg=RAISED, radius=12,
           click=True, role="key", name="key_" + KEY_NAMES.get(key, key)) for n, key in enumerate(KEYS)]

PAGE = strip() + [
    container(66, 16, 58, 768, 242, [c for i in range(len(ROW_ID)) for c in rail_row(i)] + [preset(n) for n in range(4)]
              + [box(84, 0, 0, CELL_W, CELL_H, border=("all", 2, AMBER), radius=12, hidden=True, name="selbox")]),
    container(82, 8, 306, 784, 120, TRAY, bg=CARD, radius=12, name="container1"),
    label(85, 16, 330, 424, 56, "", TEXT, 16, GREY, "left", hidden=True),
    label(91, 456, 330, 120, 56, "", BOLD, 20, AMBER, "center", hidden=True, name="label85"),
    label(80, 16, 190, 768, 36, "#no_rails", BOLD, 24, WHITE, "center", hidden=True, name="label78"),
    label(81, 16, 234, 768, 28, "#no_rails_hint", TEXT, 20, GREY, "center", hidden=True, name="label79"),
] + tabs(1, (93, 92, 97, 96, 95)) + [
    container(130, 0, STRIP_H, 800, 428, PAD, bg=BLACK, hidden=True, click=True, name="keypad"),      # also takes what misses the keys
]
