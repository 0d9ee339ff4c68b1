"""Page 4, Settings."""
from layout import *

WORDS.update({
    "brightness": ("Brightness", "Helligkeit"), "power_on": ("Output at power-on", "Ausgang beim Einschalten"),
    "boot_off": ("Off", "Aus"), "boot_last": ("As last used", "Wie zuletzt"),
    "auto_on": ("Turn the output on as soon\nas a rail is applied", "Ausgang einschalten, sobald\nein Profil angewendet wird"),
    "hold_up": ("Hold to raise\nthe voltage while on", "Im Betrieb Spannung nur\ndurch Halten erhöhen"),
    "average": ("Steady digits: readings\naveraged over 0.3 s", "Ruhige Ziffern: Messwerte\nüber 0.3 s gemittelt"),
    "lock_all": ("Lock all but Off\n(unlock: hold “Output” for 1 s)", "Alles außer Aus sperren\n(frei: „Ausgang“ 1 s halten)"),
    "language": ("Language", "Sprache"), "english": ("English", "English"), "german": ("Deutsch", "Deutsch"),
    "port": ("Port", "Anschluss"), "other": ("Change", "Wechseln"),
    # The port's state: {0} bauds, {1} age of the last frame, {2} group or program
    "port_good": ("Connected, {0} baud, last answer {1} ago", "Verbunden, {0} Baud, letzte Antwort vor {1}"),
    "port_silent": ("Open, but the box is silent: is it switched on?", "Offen, doch das Netzteil schweigt: ist es eingeschaltet?"),
    "port_looking": ("Looking for the box", "Netzteil wird gesucht"),
    "port_right": ("No right to open it: join the group {2} and sign in again", "Kein Recht: der Gruppe {2} beitreten, neu anmelden"),
    "port_right_plain": ("No right to open it", "Kein Recht, ihn zu öffnen"),
    "port_busy": ("Another program has it open: close that program", "Ein anderes Programm hat ihn offen: dieses beenden"),
    "port_busy_by": ("{2} has it open: close it", "{2} hat ihn offen: beenden"),
    "port_none": ("Nothing is plugged in there: plug the box in, or press Change",
                  "Dort steckt nichts: Netzteil anschließen oder Wechseln"),
    "port_gone": ("The cable is out: plug it in again", "Kabel ab: wieder anschließen"),
    "port_first_off": ("Turn the output off first", "Erst den Ausgang ausschalten"),
    "port_no_other": ("No other port was found", "Kein anderer Anschluss gefunden"), "port_error": ("{2}", "{2}"),
    "port_unset": ("No port is set: press Change", "Kein Anschluss gewählt: Wechseln"),
})
for key in ("boot_off", "boot_last", "english", "german"):                # the tick is on the disc of the option
    WORDS[key] = tuple(CHECK_MARK + "   " + word for word in WORDS[key])


def half(ids, x, y, key, value, name):
    """A switch with two lines of words, in a card of half the width."""
    ground, words, knob = ids
    return [card(ground, x, y, 381, 56), label(words, x + 16, y, 256, 56, key, TEXT, 16, WHITE, wrap=True, pad=(8, 0, 0, 0)),
            switch(knob, x + 277, y + 4, value, name=name)]


PAGE = strip() + [
    card(1, 16, 58, 332, 98), label(2, 32, 60, 200, 44, "#brightness", TEXT, 20, WHITE),
    label(23, 232, 60, 100, 44, "100%", NUM, 36, AMBER, "right", name="label16"),
    slider(19, 48, 124, 268, 10, 100, 100, click=24, name="slider0"),
    card(3, 356, 58, 428, 98), label(4, 372, 60, 396, 40, "#power_on", TEXT, 20, WHITE),
    *option((5, 7, 10), 364, 102, 200, "#boot_off", "label8"), *option((6, 8, 11), 572, 102, 204, "#boot_last", "label9"),
    *half((9, 12, 13), 16, 162, "#auto_on", 0, "sw0"), label(14, 32, 190, 560, 24, "", TEXT, 16, GREY, hidden=True),
    *half((24, 25, 26), 403, 162, "#hold_up", 1, "hold"), *half((41, 42, 43), 16, 224, "#average", 1, "average"),
    *half((44, 45, 46), 403, 224, "#lock_all", 0, "lock_all"),
    card(27, 16, 286, 768, 56), label(28, 32, 286, 300, 56, "#language", TEXT, 20, WHITE),
    *option((29, 30, 31), 404, 290, 182, "#english", "english"), *option((32, 33, 34), 594, 290, 182, "#german", "german"),
    card(35, 16, 348, 768, 78), label(36, 32, 354, 110, 36, "#port", TEXT, 20, WHITE),
    label(37, 142, 354, 440, 36, "", TEXT, 20, AMBER, name="port"),
    label(38, 32, 388, 580, 30, "", TEXT, 16, GREY, name="port_state", looks=dict(dead=dict(color=WHITE))),
    label(39, 632, 363, 144, 48, "#other", BOLD, 20, AMBER, "center", bg=RAISED, radius=12, click=True, name="port_change"),
] + tabs(3, (15, 16, 40, 18, 17))
