"""The parts of a project folder as Python calls: views, controls, styles, themes, languages.

A control is one call of View.add; keys of its type are passed by name, everything else gets a default.
"""
import json
import os

TYPES = ("label", "button", "container", "image_button", "line", "arc", "bar", "slider", "sw", "cb", "mbox", "tileview", "txtbox",
         "list", "droplist", "rollist", "chart", "table", "spinbox", "img", "gif", "qrcode", "video", "keyboard", "tile",
         "sketchpad", "btnmatrix", "animimg", "scrollcont", "scrollcont_obj")
MAIN, SCROLLBAR, INDICATOR, KNOB, SELECTED, ITEMS, TICKS, CURSOR, PLACEHOLDER = (n << 16 for n in range(9))
CHECKED, FOCUSED, PRESSED, DISABLED = 1, 2, 32, 128
LEFT, CENTER, RIGHT, TOP, MIDDLE, BOTTOM = 1, 2, 3, 0x10, 0x20, 0x30
ROUND = 4294967295

TOUCHED = {"button", "image_button", "slider", "sw", "cb", "tileview", "txtbox", "list", "droplist", "rollist", "spinbox",
           "keyboard", "tile", "sketchpad", "btnmatrix", "scrollcont", "scrollcont_obj", "mbox", "table", "arc"}
# A finger needs so many pixels; what is drawn smaller also takes touches around it. Some types are as high as their text.
FINGER = 44
SMALL = {"button": None, "slider": None, "sw": None, "droplist": None, "cb": 24, "txtbox": 36, "spinbox": 40}


def body(**keys):
    """bg, opa, radius, pad (one number, or top right bottom left), border (colour, width), grad, shadow (colour,
    width)"""
    out = {}
    if "bg" in keys:
        out.update(main_color=keys["bg"], opa=keys.get("opa", 255))
    elif "opa" in keys:
        out["opa"] = keys["opa"]
    if "grad" in keys:
        out.update(grad_color=keys["grad"], grad_dir_e=keys.get("grad_dir", 1))
    if "radius" in keys:
        out["radius"] = keys["radius"]
    if "border" in keys:
        color, width = keys["border"]
        out["border"] = {"color": color, "width": width, "part": keys.get("sides", 15), "opa": 255 if width else 0}
    if "shadow" in keys:
        out["shadow"] = dict(zip(("color", "width"), keys["shadow"]))
    if "pad" in keys:
        pad = keys["pad"]
        out["padding"] = dict(zip(("top", "right", "bottom", "left"), (pad,) * 4 if isinstance(pad, int) else pad))
    return out


def words(**keys):
    """color, text_opa, font, size"""
    names = {"color": "color", "text_opa": "opa", "font": "font_lib", "size": "font_size"}
    return {names[k]: v for k, v in keys.items() if k in names}


def style(part=MAIN, state=0, sect=0, img=None, **keys):
    """One style record. It has only the given keys; the rest comes from the theme."""
    out = {"style_part": part, "style_state": state, "style_sect": sect}
    if body(**keys):
        out["body_t"] = body(**keys)
    if words(**keys):
        out["txt_t"] = words(**keys)
    if img:
        out["img_t"] = {"bg_img": img}
    return out


class View:
    def __init__(self, view_id, name, color, layer=0, **keys):
        self.id, self.name, self.controls, self.last = view_id, name, [], 0
        self.view = {"v_name": name, "v_id": view_id, "bg_scale": 255, "bg_color": color, "layer": layer, **keys}

    def add(self, kind, x, y, w, h, name=None, parent=0, styles=(), touch=None, hidden=False, pub=False, alpha=255,
            scroll=None, **keys):
        """Adds a control and returns its id, for use as a parent and in the application."""
        self.last += 1
        touch = kind in TOUCHED if touch is None else touch
        common = {"name": name or f"{kind}_{self.last}", "id": self.last, "parent_id": parent, "pub": pub,
                  "pt": {"x": x, "y": y}, "size": {"width": w, "height": h}, "t_mode": int(touch), "hidden": hidden,
                  "alpha": alpha}
        small = min(w, SMALL[kind] or h) if touch and kind in SMALL else FINGER
        if small < FINGER:
            common["click_area"] = (FINGER - small + 1) // 2
        if scroll:
            common["scrollbar_t"] = scroll
        entry = {"pub_t": common, **keys}
        if styles:
            entry["styles"] = list(styles)
        self.controls.append({"type": TYPES.index(kind), "theme": "night", "property": entry})
        return self.last


def write(folder, path, data):
    path = os.path.join(folder, "config", path)
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as f:
        json.dump(data, f, ensure_ascii=False, indent=1)


def write_view(folder, view):
    write(folder, f"view/{view.name}.g", {"view": view.view, "controls": view.controls})


def write_theme(folder, name, styles):
    """`styles` maps a control type to its style records."""
    for kind, records in styles.items():
        write(folder, f"theme/{name}/{kind}.g", {"styles": records})
