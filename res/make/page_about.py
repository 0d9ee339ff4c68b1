"""Page 3, About."""
from layout import *

# A label is aligned by the height of its key in the file, so a key must fit on one line of its label: these are short.
WORDS.update({
    "a_title": ("USB Power Delivery bench box", "USB-Power-Delivery-Netzteil"), "a_sub": ("Front panel", "Bedienfeld"),
    "a_ver": ("Version", "Version"), "a_time": ("Built", "Erstellt"), "a_box": ("Box", "Netzteil"),
    "a_port": ("Port", "Anschluss"), "a_link": ("Link", "Verbindung"), "a_frames": ("Frames", "Telegramme"),
    "a_lic": ("Licences", "Lizenzen"), "a_lic_are": ("with the files of this program", "bei den Dateien des Programms"),
    # {0} a number of frames, {1} an age, {2} a number of bytes
    "link_good": ("connected, last frame {1} ago", "steht, zuletzt vor {1}"), "link_silent": ("open, but silent", "offen, aber stumm"),
    "link_none": ("not connected", "nicht verbunden"),
    "frames_rate": ("{0}/s, {2} bytes skipped", "{0}/s, {2} Byte Reste"),
    "a_kinds": ("Kinds of rail", "Arten von Profilen"), "a_fix": ("one fixed voltage", "eine feste Spannung"),
    "a_pps": ("adjustable in fine steps", "in feinen Stufen einstellbar"),
    "a_avs": ("adjustable over a wide range", "in weitem Bereich einstellbar"), "a_epr": ("extended range, above 20 V", "erweitert, über 20 V"),
    "a_measured": ("measured", "gemessen"), "a_set": ("set by you", "eingestellt"), "a_unknown": ("not known", "unbekannt"),
    "a_on": ("output on", "Ausgang ein"), "a_off": ("output off", "Ausgang aus"), "a_rec": ("recording", "Aufzeichnung"),
})


def page():
    ids = iter(range(6, 99))
    out = [label(next(ids), 32, 58, 368, 40, "#a_title", BOLD, 24, WHITE), label(next(ids), 32, 96, 280, 28, "#a_sub", TEXT, 20, GREY),
           image(1, 336, 94, 48, 48, "logo_small.png", name="image0")]
    rows = (("a_ver", "@app_ver", None), ("a_time", "@comp_time", None), ("a_box", "-", "box_version"), ("a_port", "", "port"),
            ("a_link", "", "link"), ("a_frames", "", "frames"), ("a_lic", "#a_lic_are", None))
    for n, (key, value, name) in enumerate(rows):
        y = 146 + 40 * n
        out += [box(next(ids), 32, y, 352, 1, bg=LINE), label(next(ids), 32, y + 2, 104, 37, "#" + key, TEXT, 16, GREY),
                label(next(ids), 136, y + 2, 264, 37, value, TEXT, 16, WHITE, name=name)]
    out.append(card(next(ids), 416, 58, 368, 148))
    for n, (kind, (bg, ink)) in enumerate(BADGE.items()):
        y = 69 + 34 * n
        out += [label(next(ids), 432, y, 44, 24, kind, BOLD, 16, ink, "center", bg=bg, radius=6),
                label(next(ids), 492, y - 2, 276, 28, "#a_" + kind.lower(), TEXT, 16, GREY)]
    out.append(card(next(ids), 416, 212, 368, 116))
    for n, (sample, ink, key) in enumerate((("12.04", WHITE, "measured"), ("12.04", AMBER, "set"), ("-.--", GREY, "unknown"))):
        y = 219 + 34 * n
        out += [label(next(ids), 424, y, 76, 32, sample, RAIL, 24, ink, "right"), label(next(ids), 512, y, 110, 32, "#a_" + key, TEXT, 16, GREY)]
    for n, (ink, key, ring) in enumerate(((ON, "on", 0), (OFF, "off", 0), (ON, "rec", 3))):
        y = 225 + 34 * n
        out += [box(next(ids), 636, y, 20, 20, bg=ink, radius=10, border=("all", ring, WHITE) if ring else None),
                label(next(ids), 668, y - 4, 112, 28, "#a_" + key, TEXT, 16, GREY)]
    out.append(card(next(ids), 416, 334, 368, 92))
    for n in range(len(KEYBOARD)):
        x, y = 432 + 188 * (n // 4), 336 + 22 * (n % 4)
        out += [label(next(ids), x, y, 68, 22, f"#k{n}", BOLD, 16, WHITE),
                label(next(ids), x + 76, y, 88, 22, f"#d{n}", TEXT, 16, GREY)]
    return out


PAGE = strip() + page() + tabs(4, (2, 3, 99, 5, 4))
