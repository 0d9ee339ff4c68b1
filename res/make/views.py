#!/usr/bin/python3
"""Writes the view, theme, language and project files of the project folder from the layout in panel.py.

usage: views.py OUTPUT_FOLDER APP_VERSION COMP_TIME
"""
import json
import os
import sys
import panel as P

OUT, APP_VER, COMP_TIME = sys.argv[1:4]
TYPES = {"label": 0, "container": 2, "arc": 5, "slider": 7, "switch": 8, "chart": 16, "image": 19}
MAIN, INDICATOR, KNOB = 0, 0x020000, 0x030000
CHECKED, PRESSED = 0x01, 0x20
WRAP, CLIP = 0, 4
ALIGN = {"left": 1, "center": 2, "right": 3}
TOP, MIDDLE = 0x10, 0x20
SIDES = {"top": 2, "all": 15}
FULL = 4294967295
BITMAP_SIZES = (112, 56, 36, 26)
HOST_PORT, BAUD_921600 = 5, 11


def colour(c, opa=255):
    return c if isinstance(c, tuple) else (c, opa)


def body(c=None, opa=255, radius=0, border=None, pad=(0, 0, 0, 0)):
    rgb, opa = colour(c, opa) if c is not None else (0, 0)
    side, width, line = border or ("all", 0, 0)
    top, right, bottom, left = pad
    if side == "top":                   # a border on one side moves the text; its padding moves it back
        top -= width
    return {"main_color": rgb, "opa": opa, "radius": radius,
            "border": {"color": line, "width": width, "part": SIDES[side], "opa": 255 if width else 0},
            "padding": {"top": top, "right": right, "bottom": bottom, "left": left}}


def style(body_t, txt_t=None, img=None, part=MAIN, state=0):
    out = {"style_part": part, "style_state": state, "style_sect": 0, "body_t": body_t}
    if txt_t:
        out["txt_t"] = txt_t
    if img:
        out["img_t"] = {"bg_img": img}
    return out


def text(font, size, color):
    bitmap = font == P.NUM and size in BITMAP_SIZES
    rgb, opa = colour(color)
    return {"color": rgb, "opa": opa, "font_lib": f"{font}-{size}.bin" if bitmap else f"{font}.ttf", "font_size": size}


def lighter(rgb):
    return sum(min(255, round((rgb >> shift & 255) * 1.1)) << shift for shift in (0, 8, 16))


# The pressed state of a control by its role, as changes of its look.
PRESSED_LOOK = {
    "lighter": lambda c: dict(bg=lighter(c["bg"])),
    "tab": lambda c: dict(bg=P.RAISED),
    "row": lambda c: dict(bg=P.RAISED),
    "key": lambda c: dict(bg=P.LINE),
    "link": lambda c: dict(color=P.AMBER_HI),
    "option": lambda c: dict(bg=P.WHITE, opa=20, color=P.WHITE),
}


def label(c):
    wrap = c.get("wrap")

    def look(c, state):
        side, width, _ = c.get("border") or ("all", 0, 0)
        pad = c.get("pad", (0, 0, 0, 0))
        if side == "all" and not wrap:  # a text in the middle stays there whatever its border
            pad = tuple(p - width for p in pad)
        words = text(c["font"], c["size"], c["color"]) if "font" in c else text(P.TEXT, 20, P.WHITE)
        return style(body(c.get("bg"), c.get("opa", 255), c.get("radius", 0), c.get("border"), pad),
                     words, c.get("overlay"), state=state)

    styles = []
    for name, changes in {None: {}, **c.get("looks", {})}.items():
        state, row = P.LOOKS.get(name, 0), {**c, **changes}
        styles.append(look(row, state))
        if c.get("role"):
            styles.append(look({**row, **PRESSED_LOOK[c["role"]](row)}, state | PRESSED))
    return {"auto_hight": 1, "dis_mode_e": WRAP if wrap else CLIP, "animspeed": 0,
            "align_e": ALIGN[c.get("align", "left")] | (TOP if wrap else MIDDLE), "txt": c.get("txt", ""), "styles": styles}


def container(c):
    return {"styles": [style(body(c.get("bg"), 255, c.get("radius", 0)))]}


def image(c):
    x, y = c.get("pivot", (0, 0))
    return {"init_img": c["src"], "rotate_pt": {"x": x, "y": y}, "init_angel": 0, "img_mode_e": 1}


def line(c, width):
    rgb, opa = colour(c)
    return {"color": rgb, "width": width, "opa": opa, "rounded": 0}


def arc(c):
    start, end = c["span"]
    low, high = c["range"]
    return {"angle_t": {"start_angle": start % 360, "end_angle": end % 360}, "arc_value": c["value"], "mode_e": 0,
            "range_t": {"minValue": low, "maxValue": high}, "know_dis_en": False,
            "arc_t_main": line(c["track"], c["width"]), "arc_t_inc": line(c["fill"], c["width"]),
            "styles": [style(body())]}


def slider(c):
    pad = (c["knob"] - c["track_h"]) // 2
    return {"minValue": c["range"][0], "maxValue": c["range"][1], "anim_time": 0,
            "styles": [style(body(c["track"], radius=FULL)), style(body(c["fill"], radius=FULL), part=INDICATOR),
                       style(body(c["knob_color"], radius=FULL, pad=(pad,) * 4), part=KNOB)]}


def switch(c):
    return {"anim_time": 120,
            "styles": [style(body(c["off"], radius=FULL)), style(body(radius=FULL), part=INDICATOR),
                       style(body(c["on"], radius=FULL), part=INDICATOR, state=CHECKED),
                       # LVGL draws the knob a pixel wider than high
                       style(body(P.WHITE, radius=FULL, pad=(-4, -5, -4, -4)), part=KNOB)]}


def chart(c):
    """Only the ground: the panel's code draws the rest."""
    return {"dis_type_e": 1, "point_cnt": 1, "divline_hdiv": 0, "divline_vdiv": 0, "styles": [style(body(c["bg"]))]}


PROPERTY = {"label": label, "container": container, "image": image, "arc": arc, "slider": slider, "switch": switch, "chart": chart}


def pub(c, parent):
    x, y, w, h = c["box"]
    click = c.get("click", c["type"] in ("slider", "switch"))
    area = click if click is not True else 0
    return {"name": c.get("name") or f"{c['type']}_{c['id']}", "id": c["id"], "parent_id": parent, "pub": False,
            "pt": {"x": x, "y": y}, "size": {"width": w, "height": h}, "click_area": int(area), "t_mode": 1 if click else 0,
            "scrollbar_t": {"mode_e": 0, "dir_e": 0, "chain_e": 0, "momentum": False, "elastic": False, "scroll_one": False},
            "hidden": bool(c.get("hidden")), "alpha": 255}


def controls(rows, parent=0):
    for c in rows:
        if "txt" in c:
            c = dict(c, txt={"@app_ver": APP_VER, "@comp_time": COMP_TIME}.get(c["txt"], c["txt"]))
        yield {"type": TYPES[c["type"]], "theme": "night", "property": {"pub_t": pub(c, parent), **PROPERTY[c["type"]](c)}}
        yield from controls(c.get("kids", []), c["id"])


def write(path, data):
    path = os.path.join(OUT, "config", path)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as f:
        json.dump(data, f, ensure_ascii=False, indent=1)
        f.write("\n")


def main():
    for view, (name, rows) in P.VIEWS.items():
        entries = list(controls(rows))
        ids = [e["property"]["pub_t"]["id"] for e in entries]
        assert len(ids) == len(set(ids)), f"view {view}: duplicate id"
        write(f"view/{name}.g", {
            "view": {"v_name": name, "v_id": view, "bg_scale": 255, "bg_color": P.BLACK, "layer": 0, "model_en": False},
            "controls": entries})
    for language, place in P.LANGUAGES.items():
        write(f"languages/{language}.g", {key: words[place] for key, words in P.WORDS.items()})
    write("project/zofprj.g", {
        "p_name": "USB-PD bench box", "version": APP_VER, "width": P.W, "height": P.H, "language": "en", "start_page": 1,
        "cacheImg": 8, "app_ver": APP_VER, "comp_time": COMP_TIME, "init_allview": 1, "rotate": 0, "show_en": 0,
        "win_mem": 64, "views": [{"pageId": view, "pageName": name + ".g"} for view, (name, _) in P.VIEWS.items()],
        "hw_t": {"dis_t": {"off_x": 0, "off_y": 0, "dis_mode": 0}, "touch_t": {"th_en": 0, "long_press_time": 0}}})
    write("project/zofhmi.g", {
        "hmi_en": 1, "uart": {"win_port": HOST_PORT, "speed_e": BAUD_921600, "bit_e": 1, "parity_e": 0, "stop_e": 0},
        "head_fh": 0x5A, "head_fl": 0xA5, "buffsize": 4096, "timeout": 5, "resend_en": 1, "crc_en": 0})


if __name__ == "__main__":
    main()
