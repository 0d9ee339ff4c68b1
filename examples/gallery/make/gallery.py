#!/usr/bin/python3
"""The gallery's project folder: every control type with its options, each with a caption that names its keys.

usage: gallery.py OUTPUT_FOLDER
"""
import os
import sys
from kit import (BOTTOM, CENTER, CHECKED, CURSOR, DISABLED, INDICATOR, ITEMS, KNOB, LEFT, MAIN, MIDDLE, PLACEHOLDER, PRESSED, RIGHT, ROUND,
                 SCROLLBAR, SELECTED, TICKS, TOP, TYPES, View, style, write, write_theme, write_view)

WIDTH, HEIGHT, FONT = 800, 480, "gallery.ttf"
BACK, PREV, NEXT = 1, 2, 3          # on every page except the first; the program uses these ids
NIGHT = dict(bg=0x0E1116, card=0x181D26, raised=0x252C38, line=0x39424F, text=0xE8ECF1, accent=0x3DA9FC, on=0x06131F, knob=0xFFFFFF, shade=0x000000)
YOUTH = dict(bg=0xEDF0F5, card=0xFFFFFF, raised=0xE3E8EF, line=0xC3CBD6, text=0x1B2430, accent=0x1769D2, on=0xFFFFFF, knob=0xFFFFFF, shade=0xB4BECB)
ACCENT, WARM, GREEN, GREY = 0x2F8FE8, 0xE8862F, 0x2FA36B, 0x7C8794   # for controls that have colour keys of their own

languages = {"en": {}, "de": {}, "zh": {}}


def t(en, de, zh):
    """Adds a text in three languages and returns its key for the view files.

    Keys are short, because a label aligned in its box is measured by its key until the language is loaded.
    """
    key = "".join(c for c in en.lower() if c.isalnum())[:7]
    while key in languages["en"] and languages["en"][key] != en:
        key += "x"
    for name, value in zip(languages, (en, de, zh)):
        languages[name][key] = value
    return "#" + key


def themes(p):
    words = dict(color=p["text"], text_opa=255, font=FONT, size=16)
    plain = style(opa=0, **words)
    field = dict(bg=p["raised"], radius=8, pad=8, border=(p["line"], 1), **words)
    bar = [style(bg=p["line"], radius=ROUND), style(INDICATOR, bg=p["accent"], radius=ROUND)]
    scrollbar = style(SCROLLBAR, bg=p["line"], radius=ROUND)
    button = dict(bg=p["raised"], radius=10, **words)
    key = dict(bg=p["raised"], radius=6, **words)
    plain_key = dict(bg=p["raised"], radius=6, color=p["text"], text_opa=255)
    lit = dict(bg=p["accent"], **{**words, "color": p["on"]})
    return {
        "label": [plain],
        "container": [style(bg=p["card"], radius=12, **words), scrollbar],
        "button": [style(**button), style(state=PRESSED, **{**button, "bg": p["line"]}), style(state=CHECKED, radius=10, **lit),
                   style(state=CHECKED | PRESSED, radius=10, **lit), style(state=DISABLED, **{**button, "opa": 110, "text_opa": 110})],
        "image_button": [plain, style(state=PRESSED, opa=0, **words)],
        "arc": [style(opa=0), style(KNOB, bg=p["knob"], radius=ROUND, pad=3, border=(ACCENT, 3))],
        "bar": bar,
        "slider": bar + [style(KNOB, bg=p["knob"], radius=ROUND, pad=8, border=(p["accent"], 2)),
                         style(KNOB, PRESSED, bg=p["knob"], radius=ROUND, pad=11, border=(p["accent"], 2))],
        "sw": [style(bg=p["line"], radius=ROUND), style(INDICATOR, opa=0, radius=ROUND),
               style(INDICATOR, CHECKED, bg=p["accent"], radius=ROUND), style(KNOB, bg=p["knob"], radius=ROUND, pad=(-3, -4, -3, -3))],
        "cb": [plain, style(INDICATOR, bg=p["raised"], radius=5, pad=3, border=(p["line"], 2), **words),
               style(INDICATOR, CHECKED, radius=5, pad=3, img="check.png", border=(p["accent"], 2), **lit),
               style(state=DISABLED, opa=0, **{**words, "text_opa": 200})],
        "mbox": [style(bg=p["card"], radius=14, pad=20, border=(p["line"], 1), shadow=(p["shade"], 40), **words),
                 style(sect=1, opa=0, **words), style(ITEMS, sect=1, **key),
                 style(ITEMS, PRESSED, sect=1, radius=6, **lit)],
        "tileview": [style(bg=p["raised"], radius=12)],
        "tile": [style(opa=0, **words)],
        "txtbox": [style(**field), style(state=2, **{**field, "border": (p["accent"], 2)}),
                   style(PLACEHOLDER, opa=0, **{**words, "text_opa": 150}), scrollbar],
        "list": [style(bg=p["raised"], radius=10, pad=4, **words), scrollbar, style(sect=1, opa=0, pad=9, **words),
                 style(state=PRESSED, sect=1, bg=p["line"], radius=6, pad=9, **words), style(state=CHECKED, sect=1, radius=6, pad=9, **lit)],
        "droplist": [style(**field), style(state=CHECKED, **{**field, "border": (p["accent"], 2)}),
                     style(sect=1, **{**field, "shadow": (p["shade"], 24)}), style(SELECTED, CHECKED, sect=1, **lit),
                     style(SELECTED, PRESSED, sect=1, bg=p["line"], **words), style(SCROLLBAR, sect=1, bg=p["line"], radius=ROUND)],
        "rollist": [style(bg=p["raised"], radius=10, **{**words, "text_opa": 130}), style(SELECTED, radius=6, **lit)],
        "chart": [style(bg=p["raised"], radius=10, pad=10, border=(p["line"], 1), **words), style(TICKS, **{**words, "size": 12}),
                  style(INDICATOR, radius=ROUND, opa=255)],
        # LVGL makes a table one pixel smaller than its cells, which would hide their last lines.
        "table": [style(opa=0, radius=10, border=(p["line"], 0), pad=(0, 1, 1, 0), **words), style(ITEMS, bg=p["raised"], border=(p["line"], 1), pad=9, **words), scrollbar],
        "spinbox": [style(**field)],
        # No font: the symbols are in LVGL's own font.
        "keyboard": [style(bg=p["card"], pad=4), style(ITEMS, **plain_key), style(ITEMS, PRESSED, **{**plain_key, "bg": p["accent"], "color": p["on"]}),
                     style(ITEMS, CHECKED, **{**plain_key, "bg": p["line"]})],
        "sketchpad": [style(bg=p["raised"], radius=10, color=p["text"], text_opa=255)],    # the toolbar's symbols are in LVGL's font, too
        "btnmatrix": [style(bg=p["card"], pad=2, **words), style(ITEMS, **key), style(ITEMS, PRESSED, radius=6, **lit),
                      style(ITEMS, CHECKED, radius=6, **lit), style(ITEMS, DISABLED, **{**key, "opa": 110, "text_opa": 110})],
        "scrollcont": [style(bg=p["raised"], radius=12)],
        "scrollcont_obj": [style(opa=0, **words)],
    }


pages = []


class Page(View):
    """A page with a header, and cards with captions."""

    def __init__(self, title, hint, name):
        super().__init__(len(pages) + 2, name, NIGHT["bg"])
        pages.append((self, title))
        for c, (text, x, w) in enumerate((("‹", 16, 48), ("‹‹", 680, 48), ("››", 736, 48))):
            self.add("button", x, 10, w, 40, name=("back", "prev", "next")[c], txt=text, styles=[style(size=20)])
        self.label(80, 10, 250, 40, title, size=22)
        self.label(280, 10, 390, 40, hint, size=13, opa=170, align=RIGHT | MIDDLE)

    def label(self, x, y, w, h, text, size=16, opa=255, align=LEFT | MIDDLE, parent=0, mode=4, name=None, **keys):
        look = style(size=size, text_opa=opa, **keys)
        return self.add("label", x, y, w, h, name=name, parent=parent, styles=[look], auto_hight=1, dis_mode_e=mode, align_e=align,
                        txt=text)

    def card(self, x, y, w, h, title, keys):
        """Adds a card and returns it; controls go above its caption."""
        c = self.add("container", x, y, w, h)
        self.label(14, h - 50, w - 28, 20, title, size=15, parent=c)
        self.label(14, h - 28, w - 28, 18, keys, size=12, opa=170, parent=c)
        return c


def index():
    v = View(1, "index", NIGHT["bg"])
    v.add("label", 20, 12, 200, 40, auto_hight=1, dis_mode_e=4, align_e=LEFT | MIDDLE, txt=t("Gallery", "Galerie", "控件展示"),
          styles=[style(size=26)])
    v.add("label", 150, 14, 250, 40, auto_hight=1, dis_mode_e=4, align_e=LEFT | MIDDLE, styles=[style(size=13, text_opa=150)],
          txt=t("thirty control types", "dreißig Arten von Steuerelementen", "三十种控件"))
    for i, (name, text) in enumerate((("en", "English"), ("de", "Deutsch"), ("zh", "中文"))):
        v.add("button", 410 + 88 * i, 12, 80, 40, name=f"lang_{name}", txt=text, mode=1, styles=[style(size=15)])
    v.add("label", 686, 12, 50, 40, auto_hight=1, dis_mode_e=4, align_e=RIGHT | MIDDLE, txt=t("Light", "Hell", "浅色"),
          styles=[style(size=15)])
    v.add("sw", 744, 20, 40, 24, name="theme", anim_time=120)
    for i, (page, title) in enumerate(pages):
        v.add("button", 16 + 194 * (i % 4), 68 + 102 * (i // 4), 186, 92, name=f"to_{page.name}", txt=title,
              styles=[style(size=17, radius=12)])
    return v


def labels():
    p = Page(t("Labels", "Beschriftungen", "标签"), t("type 0", "Typ 0", "类型 0"), "labels")
    text = t("Volts, amperes and watts are shown as they come from the box.",
             "Volt, Ampere und Watt stehen da, wie sie vom Gerät kommen.", "电压、电流和功率按设备发来的值显示。")
    modes = ((0, t("Wrapped", "Umbrochen", "自动换行")), (1, t("Cut with dots", "Mit Punkten gekürzt", "省略号")),
             (2, t("To and fro", "Hin und her", "往复滚动")), (3, t("Round and round", "Im Kreis", "循环滚动")),
             (4, t("Clipped", "Abgeschnitten", "裁剪")))
    for i, (mode, title) in enumerate(modes):
        c = p.card(16 + 260 * (i % 3), 64 + 206 * (i // 3), 248, 194, title, f"dis_mode_e {mode}   animspeed 40")
        p.add("label", 14, 18, 220, (100, 24, 40, 40, 40)[mode], parent=c, auto_hight=1, dis_mode_e=mode, animspeed=40,
              align_e=LEFT | TOP, txt=text)
    c = p.card(536, 270, 248, 194, t("Nine places", "Neun Plätze", "九个位置"), "auto_hight 1   align_e 0x11 … 0x33")
    for i in range(9):
        down, across = divmod(i, 3)
        p.add("label", 14, 12, 220, 120, parent=c, auto_hight=1, dis_mode_e=4, align_e=(across + 1) | (down + 1) << 4,
              txt=f"0x{down + 1}{across + 1}", styles=[style(size=14)])


def buttons():
    p = Page(t("Buttons", "Knöpfe", "按钮"), t("types 1 and 3", "Typen 1 und 3", "类型 1 和 3"), "buttons")
    spots = [(16 + 260 * (i % 3), 64 + 206 * (i // 3)) for i in range(6)]
    c = p.card(*spots[0], 248, 194, t("Button", "Knopf", "普通按钮"), "mode 0   txt")
    p.add("button", 44, 40, 160, 60, name="count", parent=c, txt=t("Press me", "Drück mich", "按我"))
    c = p.card(*spots[1], 248, 194, t("Toggle", "Umschalter", "切换按钮"), "mode 1   style_state 1")
    p.add("button", 44, 40, 160, 60, name="toggle", parent=c, mode=1, txt=t("On and off", "An und aus", "开和关"))
    c = p.card(*spots[2], 248, 194, t("Disabled", "Gesperrt", "禁用"), "zof_btn_set_state(…, 128)")
    p.add("button", 44, 40, 160, 60, name="disabled", parent=c, txt=t("Not now", "Jetzt nicht", "不可用"))
    c = p.card(*spots[3], 248, 194, t("Own look", "Eigenes Aussehen", "自定义外观"), "styles: grad_color, shadow, radius")
    own = dict(bg=0x8A5CF6, grad=0x2F8FE8, grad_dir=2, radius=ROUND, color=0xFFFFFF, text_opa=255)
    p.add("button", 44, 40, 160, 60, parent=c, txt=t("Go", "Los", "出发"), styles=[
        style(shadow=(0x2F8FE8, 30), **own), style(state=PRESSED, shadow=(0x2F8FE8, 6), **own)])
    c = p.card(*spots[4], 248, 194, t("Image button", "Bildknopf", "图片按钮"), "img_rel   img_pr   txt")
    p.add("image_button", 64, 34, 120, 72, parent=c, img_rel="key.png", img_pr="key_pr.png", txt=t("Ring", "Läuten", "响铃"),
          styles=[style(color=0xFFFFFF, size=18), style(state=PRESSED, color=0xFFFFFF, size=18)])
    c = p.card(*spots[5], 248, 194, t("Checkable image button", "Bildknopf, der bleibt", "可选中图片按钮"),
               "mode 1   pos_mode_e 1   img_tgl_rel")
    p.add("image_button", 84, 30, 80, 80, name="lamp", parent=c, mode=1, pos_mode_e=1, img_rel="lamp.png", img_pr="lamp_pr.png",
          img_tgl_rel="lamp_on.png", img_tgl_pr="lamp_on.png", txt="")


def pictures():
    p = Page(t("Pictures and lines", "Bilder und Linien", "图片与线条"), t("types 19, 4 and 2", "Typen 19, 4 und 2", "类型 19、4 和 2"), "pictures")
    spots = [(16 + 195 * (i % 4), 64 + 206 * (i // 4)) for i in range(8)]
    say = [t("As large as it is", "So groß wie es ist", "原始大小"), t("Centred", "In der Mitte", "居中"), t("Tiled", "Gekachelt", "平铺")]
    for mode in range(3):
        c = p.card(*spots[mode], 183, 194, say[mode], f"img_mode_e {mode}")
        p.add("img", 12, 12, 159, 120, parent=c, init_img="shell.png", img_mode_e=mode)
    c = p.card(*spots[3], 183, 194, t("Turned", "Gedreht", "旋转"), "init_angel 300   rotate_pt")
    p.add("img", 60, 40, 64, 64, parent=c, init_img="shell.png", init_angel=300, rotate_pt={"x": 32, "y": 32})
    c = p.card(*spots[4], 183, 194, t("Enlarged, coloured", "Vergrößert, gefärbt", "放大与着色"), "zof_img_zoom_setting")
    p.add("img", 60, 40, 64, 64, name="zoomed", parent=c, init_img="shell.png", rotate_pt={"x": 32, "y": 32})
    c = p.card(*spots[5], 183, 194, t("Of the language", "Je nach Sprache", "随语言而变"), "init_img \"#flag\"")
    for name in languages:
        languages[name]["flag"] = f"sign_{name}.png"
    p.add("img", 44, 38, 96, 64, parent=c, init_img="#flag")
    c = p.card(*spots[6], 183, 194, t("Line", "Linie", "线条"), "dis_t   zof_line_set_points")
    p.add("line", 16, 16, 150, 110, name="line", parent=c, dis_t={"color": ACCENT, "width": 5, "opa": 255, "rounded": 1})
    p.add("line", 16, 16, 150, 110, name="dashes", parent=c, dis_t={"color": WARM, "width": 3, "opa": 200, "rounded": 0})
    c = p.card(*spots[7], 183, 194, t("Container", "Behälter", "容器"), "scrollbar_t   parent_id")
    box = p.add("container", 12, 12, 159, 120, parent=c, touch=True, styles=[style(bg=GREY, opa=60, pad=8)],
                scroll={"mode_e": 1, "dir_e": 12, "chain_e": 1, "momentum": True, "elastic": True, "scroll_one": False})
    for i in range(8):
        p.label(4, 2 + 30 * i, 130, 26, str(i + 1) + ".", parent=box, size=15)


def values():
    p = Page(t("Values", "Werte", "数值"), t("types 5, 6 and 7", "Typen 5, 6 und 7", "类型 5、6 和 7"), "values")
    c = p.card(16, 64, 248, 194, t("Arc", "Bogen", "圆弧"), "know_dis_en   angle_t   range_t")
    look = dict(angle_t={"start_angle": 135, "end_angle": 45}, range_t={"minValue": 0, "maxValue": 100},
                arc_t_main={"color": GREY, "width": 12, "opa": 90, "rounded": 1}, arc_t_inc={"color": ACCENT, "width": 12, "opa": 255, "rounded": 1})
    p.add("arc", 60, 6, 128, 128, name="arc", parent=c, arc_value=65, know_dis_en=True, **look)
    p.label(60, 50, 128, 40, "65", size=24, parent=c, align=CENTER | MIDDLE, name="arc_value")
    c = p.card(276, 64, 248, 194, t("Gauge", "Anzeige", "仪表"), "arc_main_img   know_dis_en false")
    look = dict(look, arc_t_inc={"color": WARM, "width": 10, "opa": 255, "rounded": 0}, arc_main_img="ring.png")
    p.add("arc", 60, 6, 128, 128, name="gauge", parent=c, arc_value=30, know_dis_en=False, touch=False, **look)
    c = p.card(536, 64, 248, 194, t("Upright", "Aufrecht", "竖直"), t("higher than wide", "höher als breit", "高大于宽"))
    p.add("slider", 60, 22, 10, 104, parent=c, minValue=0, maxValue=50, anim_time=200, name="upright")
    p.add("bar", 170, 16, 20, 116, parent=c, minValue=0, maxValue=50, anim_time=400, name="upright_bar")
    c = p.card(16, 270, 378, 194, t("Slider", "Schieber", "滑块"), "minValue 0   maxValue 100   anim_time 200")
    p.add("slider", 30, 56, 260, 10, name="slider", parent=c, minValue=0, maxValue=100, anim_time=200)
    p.label(306, 40, 60, 40, "40", size=22, parent=c, align=RIGHT | MIDDLE, name="slider_value")
    c = p.card(406, 270, 378, 194, t("Bar", "Balken", "进度条"), "minValue -50   maxValue 50   anim_time 400")
    p.add("bar", 30, 52, 318, 18, name="bar", parent=c, minValue=-50, maxValue=50, anim_time=400)
    p.label(30, 84, 318, 30, t("follows the slider", "folgt dem Schieber", "跟随滑块"), size=14, opa=150, parent=c)


def switches():
    p = Page(t("Switches and numbers", "Schalter und Zahlen", "开关与数字"), t("types 8, 9 and 18", "Typen 8, 9 und 18", "类型 8、9 和 18"), "switches")
    c = p.card(16, 64, 248, 194, t("Switch", "Schalter", "开关"), "anim_time 120")
    p.add("sw", 94, 54, 60, 32, name="sw", parent=c, anim_time=120)
    c = p.card(276, 64, 248, 194, t("Several", "Mehrere", "多个"), t("size as you like", "Größe nach Wunsch", "大小随意"))
    for i, w in enumerate((36, 52, 72)):
        p.add("sw", 24 + 66 * i, 70 - w // 4, w, w // 2, parent=c, anim_time=200)
    c = p.card(536, 64, 248, 194, t("Check box", "Kästchen", "复选框"), "txt   style_part INDICATOR")
    p.add("cb", 24, 26, 200, 30, name="cb", parent=c, txt=t("Tones on", "Töne an", "开启声音"))
    p.add("cb", 24, 62, 200, 30, name="cb_on", parent=c, txt=t("Dim at night", "Nachts dunkler", "夜间变暗"))
    p.add("cb", 24, 98, 200, 30, name="cb_off", parent=c, txt=t("Not for you", "Nicht für dich", "不可选"))
    c = p.card(16, 270, 508, 194, t("Spin box", "Zahlenfeld", "数字框"), "range_min   range_max   step   int_cnt 2   dec_cnt 2   cursor_style")
    p.add("button", 60, 42, 56, 52, name="down", parent=c, txt="−", styles=[style(size=26)])
    p.add("spinbox", 136, 46, 150, 44, name="spin", parent=c, range_min=0, range_max=4800, step=1, int_cnt=2, dec_cnt=2, i_value=1205,
          styles=[style(size=22, pad=(6, 8, 6, 22))],
          cursor_style={"cursor_e": 1, "color": ACCENT, "zof_cursor_width": 3, "zof_cursor_opa": 255, "zof_cursor_animtime": 500})
    p.add("button", 306, 42, 56, 52, name="up", parent=c, txt="+", styles=[style(size=26)])
    p.add("button", 376, 42, 96, 52, name="digit", parent=c, txt=t("Digit", "Stelle", "数位"))
    c = p.card(536, 270, 248, 194, t("What it says", "Was es sagt", "数值"), "zof_spinbox_get_value")
    p.label(20, 36, 208, 60, "12.05 V", size=34, parent=c, align=CENTER | MIDDLE, name="spin_value")


def lists():
    p = Page(t("Lists", "Listen", "列表"), t("types 13, 14 and 15", "Typen 13, 14 und 15", "类型 13、14 和 15"), "lists")
    rails = [t("Fixed 5 V", "Fest 5 V", "固定 5 V"), t("Fixed 9 V", "Fest 9 V", "固定 9 V"), t("Fixed 15 V", "Fest 15 V", "固定 15 V"),
             t("Fixed 20 V", "Fest 20 V", "固定 20 V"), t("Adjustable", "Einstellbar", "可调")]
    c = p.card(16, 64, 248, 400, t("List", "Liste", "列表控件"), "btns_t: image_num, txt")
    p.add("list", 12, 12, 224, 326, name="list", parent=c, anim_time=200,
          btns_t=[{"image_num": f"dot{i % 3}.png", "txt": text} for i, text in enumerate(rails)] + [{"image_num": "", "txt": text} for text in rails[:3]])
    c = p.card(276, 64, 248, 194, t("Drop-down list", "Auswahlliste", "下拉列表"), "options   dir_t 8   txt_align_e")
    p.add("droplist", 24, 40, 200, 42, name="drop", parent=c, options="\n".join(rails), dir_t=8, anim_time=150, txt_align_e=LEFT)
    c = p.card(276, 270, 248, 194, t("Opens upwards", "Öffnet nach oben", "向上展开"), "dir_t 4")
    p.add("droplist", 24, 70, 200, 42, parent=c, options="\n".join(rails), dir_t=4, anim_time=150, txt_align_e=CENTER)
    c = p.card(536, 64, 248, 194, t("Roller", "Walze", "滚轮"), "rol_mode 0   row_cnt 3")
    p.add("rollist", 34, 14, 180, 100, name="roller", parent=c, options="\n".join(rails), rol_mode=0, row_cnt=3, anim_time=200, txt_align_e=CENTER)
    c = p.card(536, 270, 248, 194, t("Endless roller", "Endlose Walze", "循环滚轮"), "rol_mode 1   ext_sel_width 4")
    p.add("rollist", 64, 14, 120, 100, parent=c, options="\n".join(f"{n:02}" for n in range(0, 60, 5)), rol_mode=1, row_cnt=3,
          anim_time=200, txt_align_e=CENTER, ext_sel_width=4)


def tables():
    p = Page(t("Tables and matrices", "Tabellen und Felder", "表格与按钮矩阵"), t("types 17 and 26", "Typen 17 und 26", "类型 17 和 26"), "tables")
    c = p.card(16, 64, 378, 400, t("Table", "Tabelle", "表格"), "row_cnt 6   col_cnt 3   align_table")
    p.add("table", 12, 12, 354, 326, name="table", parent=c, row_cnt=6, col_cnt=3, align_table=CENTER)
    c = p.card(406, 64, 378, 260, t("Button matrix", "Tastenfeld", "按钮矩阵"), "btnmatrix_txt: …, \"\\n\", …, \"\"")
    p.add("btnmatrix", 12, 10, 354, 192, name="matrix", parent=c,
          btnmatrix_txt=["7", "8", "9", "\n", "4", "5", "6", "\n", "1", "2", "3", "\n", "0", ".", t("Done", "Fertig", "完成"), ""])
    c = p.card(406, 336, 378, 128, t("One of them", "Eines davon", "单选"), "zof_btnmatrix_set_one_checked")
    p.add("btnmatrix", 12, 10, 354, 56, name="one", parent=c, btnmatrix_txt=["5 V", "9 V", "12 V", "20 V", ""])


def charts():
    p = Page(t("Charts", "Diagramme", "图表"), t("type 16", "Typ 16", "类型 16"), "charts")
    line = {"color": GREY, "width": 1, "opa": 90, "rounded": 0}

    def chart(parent, name, x, y, w, h, kind, **keys):
        base = dict(dis_type_e=kind, dis_mode_e=0, y_min=0, y_max=100, x_min=0, x_max=100, point_cnt=40, divline_hdiv=5, divline_vdiv=6,
                    x_mark={}, y_mark={}, chart_line_style=line, chart_line_tick_style=line)
        p.add("chart", x, y, w, h, name=name, parent=parent, **{**base, **keys})

    mark = {"major_tick_len": 6, "minor_tick_len": 3, "major_cnt": 6, "minor_cnt": 2, "draw_size": 36, "last_mark_en": True}
    c = p.card(16, 64, 768, 226, t("Lines", "Linien", "折线图"), "dis_type_e 1   point_cnt 40   y_mark   x_mark")
    chart(c, "lines", 50, 14, 700, 132, 1, y_mark=mark, x_mark=dict(mark, major_cnt=9))
    c = p.card(16, 302, 378, 162, t("Columns", "Säulen", "柱状图"), "dis_type_e 2   point_cnt 12")
    chart(c, "columns", 12, 10, 354, 96, 2, point_cnt=12)
    c = p.card(406, 302, 378, 162, t("Points", "Punkte", "散点图"), "dis_type_e 3")
    chart(c, "points", 12, 10, 354, 96, 3, point_cnt=30)


def tiles():
    p = Page(t("Tiles", "Kacheln", "平铺页"), t("types 11 and 24", "Typen 11 und 24", "类型 11 和 24"), "tiles")
    c = p.card(16, 64, 378, 400, t("Two by two", "Zwei mal zwei", "二乘二"), "count 4   row_id   col_id   dir 15")
    v = p.add("tileview", 12, 12, 354, 326, name="grid", parent=c, count=4, anim_time=200)
    for i in range(4):
        tile = p.add("tile", 0, 0, 354, 326, parent=v, row_id=i // 2, col_id=i % 2, dir=15)
        p.label(0, 0, 354, 326, f"{i // 2} · {i % 2}", size=40, parent=tile, align=CENTER | MIDDLE)
    c = p.card(406, 64, 378, 400, t("Without end", "Ohne Ende", "无限循环"), "unlimited_scroll 1   start_id 1   dir 3")
    v = p.add("tileview", 12, 12, 354, 326, name="endless", parent=c, count=3, start_id=1, unlimited_scroll=1, anim_time=200)
    for i, color in enumerate((ACCENT, GREEN, WARM)):
        tile = p.add("tile", 0, 0, 354, 326, parent=v, row_id=0, col_id=i, dir=3, styles=[style(bg=color)])
        p.label(0, 0, 354, 326, "ABC"[i], size=64, parent=tile, align=CENTER | MIDDLE, color=0xFFFFFF)


def typing():
    p = Page(t("Typing", "Eingabe", "文字输入"), "", "typing")
    p.label(280, 10, 230, 40, t("types 12 and 23", "Typen 12 und 23", "类型 12 和 23"), size=13, opa=170, align=RIGHT | MIDDLE)
    p.add("button", 530, 10, 134, 40, name="spell", mode=1, txt=t("Pinyin", "Pinyin", "拼音"), styles=[style(size=15)])
    cursor = {"cursor_e": 4, "color": ACCENT, "zof_cursor_width": 2, "zof_cursor_opa": 255, "zof_cursor_animtime": 400}
    any_sign = [style(font="cn.ttf"), style(state=2, font="cn.ttf")]    # Pinyin characters are not in the subset font
    c = p.card(16, 64, 248, 164, t("One line", "Eine Zeile", "单行"), "line_mode 0   p_holder_txt")
    p.add("txtbox", 14, 24, 220, 46, name="line", parent=c, line_mode=0, max_txt_len=40, p_holder_txt="Name · 名字", cursor_style_t=cursor,
          styles=any_sign)
    c = p.card(276, 64, 248, 164, t("Several lines", "Mehrere Zeilen", "多行"), "line_mode 1   max_txt_len")
    p.add("txtbox", 14, 12, 220, 96, name="lines", parent=c, line_mode=1, max_txt_len=200, init_txt="One\nTwo\nThree", cursor_style_t=cursor,
          styles=any_sign)
    c = p.card(536, 64, 248, 164, t("Secret", "Geheim", "密码"), "pwd_mode_en   accept_txt")
    p.add("txtbox", 14, 24, 220, 46, name="secret", parent=c, line_mode=0, max_txt_len=12, pwd_mode_en=True, pwd_char_show_time=800,
          accept_txt="0123456789", init_txt="2026", cursor_style_t=cursor)
    p.add("keyboard", 16, 266, 768, 206, name="keyboard", keyboard_spell=True, mode=0, popovers=True)
    p.add("keyboard", 16, 266, 768, 206, name="pinyin", hidden=True, keyboard_spell=False, mode=0, cn_font_lib="cn.ttf", cn_font_size=18)


def messages():
    p = Page(t("Messages", "Meldungen", "消息框"), t("type 10", "Typ 10", "类型 10"), "messages")
    for i, (name, title, keys) in enumerate((
            ("ask", t("Ask", "Fragen", "询问"), "title   txt   btn_txt"), ("tell", t("Tell", "Sagen", "告知"), "btn_num 0"),
            ("soon", t("Gone soon", "Gleich wieder weg", "自动关闭"), "zof_mbox_start_auto_close"))):
        c = p.card(16 + 260 * i, 64, 248, 140, title, keys)
        p.add("button", 44, 18, 160, 56, name=f"open_{name}", parent=c, txt=title)
    # Created again whenever the page is shown, because the buttons of a box keep the language they were created in.
    p.add("mbox", 220, 250, 360, 128, name="ask", pub=True, hidden=True, title=t("Switch the output on?", "Ausgang einschalten?", "打开输出？"),
          txt=t("20.00 V at up to 3.00 A.", "20,00 V mit bis zu 3,00 A.", "20.00 V，最大 3.00 A。"),
          btn_txt=[t("Yes", "Ja", "是"), t("No", "Nein", "否"), ""])
    p.add("mbox", 240, 260, 320, 64, name="tell", hidden=True, title="", txt=t("Nothing is connected.", "Nichts ist angeschlossen.", "未连接任何设备。"))


def wheels():
    p = Page(t("Wheels", "Räder", "转轮"), t("types 28 and 29", "Typen 28 und 29", "类型 28 和 29"), "wheels")

    def wheel(parent, name, x, y, w, h, count, texts, **keys):
        # Dragging an item turns the wheel: the wheel scrolls, and its items chain the movement to it.
        turns = dict(mode_e=0, dir_e=15, chain_e=0, momentum=True, elastic=True, scroll_one=False)
        v = p.add("scrollcont", x, y, w, h, name=name, parent=parent, scroll=turns, child_cnt=len(texts), display_count=count, **keys)
        for i, text in enumerate(texts):
            item = p.add("scrollcont_obj", 0, 0, 10, 10, parent=v, create_num=i, scroll=dict(turns, dir_e=0, chain_e=3))
            upright = keys["dir"] == 1
            p.label(w // 2 - 36 if upright else w // count // 2 - 36, 8 if upright else h // 2 - 50, 72, h // count - 16 if upright else 64,
                    text, size=24, parent=item, align=CENTER | MIDDLE, bg=(ACCENT, GREEN, WARM)[i % 3], radius=14, color=0xFFFFFF)

    c = p.card(16, 64, 516, 400, t("On an arc", "Auf einem Bogen", "沿圆弧"), "dir 0   display_count 5   arc_r 300   zoom 120   opa_mode 1")
    wheel(c, "arc", 12, 12, 492, 326, 5, [str(n) for n in range(1, 10)], dir=0, pad=0, arc_r=300, arc_dir=0, zoom=120, zoom_mode=0, opa_mode=1)
    c = p.card(544, 64, 240, 400, t("Upright", "Aufrecht", "竖直"), "dir 1   zoom_mode 1   opa_mode 1")
    wheel(c, "upright", 12, 12, 216, 326, 5, [f"{n} V" for n in (3, 5, 9, 12, 15, 20, 24)], dir=1, pad=0, arc_r=0, arc_dir=0, zoom=110, zoom_mode=1, opa_mode=1)


def moving():
    p = Page(t("Moving pictures", "Bewegte Bilder", "动态图片"), t("types 20, 21 and 27", "Typen 20, 21 und 27", "类型 20、21 和 27"), "moving")
    c = p.card(16, 64, 248, 194, t("GIF", "GIF", "GIF 动画"), "init_gif   play_en   num")
    p.add("gif", 76, 24, 96, 96, name="gif", parent=c, init_gif="spin.gif", play_en=True, num=0)
    c = p.card(276, 64, 248, 194, t("Waiting GIF", "Wartendes GIF", "暂停的 GIF"), "play_en false   num 3")
    p.add("gif", 30, 24, 96, 96, name="gif_waiting", parent=c, init_gif="spin.gif", play_en=False, num=3)
    p.add("button", 146, 46, 84, 48, name="gif_play", parent=c, txt=t("Play", "Start", "播放"))
    c = p.card(536, 64, 248, 194, t("QR code", "QR-Code", "二维码"), "txt   color   bg_color   width")
    p.add("qrcode", 64, 12, 120, 120, name="qr", parent=c, txt="20.00 V 3.00 A", color=0x101820, bg_color=0xFFFFFF, width=4, border_color=0xFFFFFF)
    c = p.card(16, 270, 378, 194, t("Image sequence", "Bildfolge", "图片序列"), "img_dsc_t   frame_rate 60   repeat_open   repeat_count")
    p.add("animimg", 141, 24, 96, 96, name="sequence", parent=c, img_dsc_t="wave", start_id=0, end_id=11, frame_rate=60, repeat_open=1, repeat_count=1)
    c = p.card(406, 270, 378, 194, t("Three times", "Dreimal", "播放三次"), "repeat_count 3   repeat_open 0")
    p.add("animimg", 60, 24, 96, 96, name="thrice", parent=c, img_dsc_t="wave", start_id=0, end_id=11, frame_rate=60, repeat_count=3)
    p.add("button", 220, 46, 110, 48, name="again", parent=c, txt=t("Again", "Nochmal", "再来"))


def media():
    p = Page(t("Video and sound", "Film und Ton", "视频与声音"), t("type 22", "Typ 22", "类型 22"), "media")
    c = p.card(16, 64, 508, 400, t("Video", "Film", "视频"), "volume   state   zof_video_set_src")
    p.add("container", 16, 16, 476, 268, parent=c, styles=[style(bg=0x000000, radius=0)])    # a stopped player draws nothing
    p.add("video", 16, 16, 476, 268, name="video", parent=c, txt="clip.mp4", volume=80, state=0, play_en=False)
    for i, (name, text) in enumerate((("play", t("Play", "Start", "播放")), ("pause", t("Pause", "Pause", "暂停")), ("stop", t("Stop", "Stopp", "停止")))):
        p.add("button", 16 + 120 * i, 296, 110, 42, name=name, parent=c, txt=text)
    c = p.card(536, 64, 248, 400, t("Sound", "Ton", "声音"), "zof_audio_set_src")
    for i, (name, text) in enumerate((("chime", t("Chime", "Glocke", "铃声")), ("scale", t("Scale", "Tonleiter", "音阶")), ("beep", t("Beep", "Piep", "蜂鸣")))):
        p.add("button", 44, 30 + 72 * i, 160, 56, name=name, parent=c, txt=text)
    p.add("slider", 44, 270, 160, 10, name="volume", parent=c, minValue=0, maxValue=100, anim_time=0)


def drawing():
    p = Page(t("Drawing", "Zeichnen", "手绘"), t("type 25", "Typ 25", "类型 25"), "drawing")
    c = p.card(16, 64, 640, 400, t("Sketchpad", "Skizzenblock", "画板"), "toolbar 1   line_width 4")
    p.add("sketchpad", 12, 48, 616, 290, name="pad", parent=c, toolbar=1, line_width=4, styles=[style(bg=GREY, opa=40)])
    c = p.card(668, 64, 116, 400, t("Width", "Breite", "线宽"), "set_width")
    for i, w in enumerate((2, 4, 8, 16)):
        p.add("button", 14, 20 + 62 * i, 88, 50, name=f"width{w}", parent=c, txt=str(w))
    p.add("button", 14, 280, 88, 50, name="clean", parent=c, txt=t("Clear", "Leeren", "清除"))


def transitions():
    p = Page(t("Transitions", "Übergänge", "切换效果"), t("between views", "zwischen Ansichten", "视图之间"), "transitions")
    names = ("none", "over left", "over right", "over top", "over bottom", "move left", "move right", "move top", "move bottom", "fade in",
             "fade on", "fade out", "out left", "out right", "out top", "out bottom", "zoom in", "zoom in, bg", "zoom out")
    for i, name in enumerate(names):
        p.add("button", 16 + 155 * (i % 5), 64 + 82 * (i // 5), 147, 72, name=f"way{i}", txt=f"{i}\n{name}", styles=[style(size=15)])
    p.add("button", 16 + 155 * 4, 64 + 82 * 3, 147, 72, name="path", txt=t("Path", "Verlauf", "曲线"), styles=[style(size=15)])
    p.label(16, 404, 768, 60, t("Each button goes to the first page by its transition, in 600 ms.",
                                "Jeder Knopf zeigt die erste Seite mit seinem Übergang, in 600 ms.", "每个按钮以其切换效果在 600 毫秒内返回首页。"), size=14, opa=150)


def project():
    return {"p_name": "Gallery", "width": WIDTH, "height": HEIGHT, "language": "en", "start_page": 1, "cacheImg": 40, "app_ver": "1.0.0",
            "views": [{"pageId": 1, "pageName": "index.g"}] + [{"pageId": p.id, "pageName": p.name + ".g"} for p, _ in pages],
            "hw_t": {"tone_t": {"type": 0, "time": 20, "sound": "chime.wav", "volum": 60}, "touch_t": {"th_en": 1 + 2, "long_press_time": 500}},
            "func_t": {"standby_t": {"stdby_view": 0, "stdby_time": 120, "stdby_bright": 40, "off_time": 300, "off_bright": 5,
                                     "on_bright": 100, "on_view": 0}}}


HMI = {"hmi_en": 1, "uart": {"win_port": 4, "speed_e": 6, "bit_e": 1}, "head_fh": 0x5A, "head_fl": 0xA5, "buffsize": 4096, "timeout": 5,
       "resend_en": 1}


def views():
    """Builds all views, which also collects the texts of all languages."""
    for page in (labels, buttons, pictures, values, switches, lists, tables, charts, tiles, typing, messages, wheels, moving, media,
                 drawing, transitions):
        page()
    return [index()] + [p for p, _ in pages]


# Findings of `zof lint` that are meant to be so.
EXCEPTIONS = """\
text-cut config/view/labels.g:controls[12] it shows what dots do
text-cut config/view/labels.g:controls[24] it shows what clipping does
target config/view/tables.g:controls[12] four rows of keys in half a page
contrast config/view/buttons.g:controls[20] a look of its own, over a gradient
contrast config/view/lists.g:controls[20] options that are not selected are faint
contrast config/view/lists.g:controls[24] options that are not selected are faint
contrast config/view/tiles.g:controls[24] a letter as high as a button
contrast config/view/typing.g:controls[10] a placeholder is fainter than a text
contrast config/view/values.g:controls[28] a note, fainter than the value
"""


def exceptions(views):
    """What stands on the bare page is legible only with the background that the program sets with the theme."""
    lines = [f"contrast config/view/{v.name}.g:controls[{i}] the program paints the page with the theme" for v in views
             for i, c in enumerate(v.controls) if c["property"].get("txt") and
             c["type"] == TYPES.index("label") and not c["property"]["pub_t"]["parent_id"]]
    lines += [f"contrast config/view/wheels.g:controls[{i}] large digits on colours that tell the items apart"
              for i in (10, 12, 14, 16, 18, 32, 34, 36, 38, 40)]
    return EXCEPTIONS + "".join(line + "\n" for line in lines)


def make(out):
    everything = views()
    for view in everything:
        write_view(out, view)
    with open(os.path.join(out, "zof-check.ignore"), "w", encoding="utf-8") as f:
        f.write(exceptions(everything))
    write_theme(out, "night", themes(NIGHT))
    write_theme(out, "youth", themes(YOUTH))
    write(out, "project/zofprj.g", project())
    write(out, "project/zofhmi.g", HMI)
    for name, texts in languages.items():
        write(out, f"languages/{name}.g", texts)


if __name__ == "__main__":
    make(sys.argv[1])
