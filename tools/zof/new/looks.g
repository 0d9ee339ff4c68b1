{
    "colors": {
        "page": "#EDF0F4", "card": "#FFFFFF", "ink": "#17212B", "faint": "#566371", "line": "#CBD3DC",
        "accent": "#0B6E75", "on_accent": "#FFFFFF", "pressed": "#08545A", "mark": "#0E8A92"
    },
    "looks": {
        "page": {"body_t": {"main_color": "$page", "opa": 255}},
        "card": {"body_t": {"main_color": "$card", "opa": 255, "radius": 10}},
        "clear": {
            "body_t": {"opa": 0},
            "scroll bar": {"body_t": {"main_color": "$line", "opa": 255, "radius": 2}}
        },
        "text": {"txt_t": {"color": "$ink", "opa": 255@FONT_TEXT@}},
        "small": {"txt_t": {"color": "$faint", "opa": 255@FONT_SMALL@}},
        "title": {"txt_t": {"color": "$ink", "opa": 255@FONT_TITLE@}},
        "value": {"txt_t": {"color": "$ink", "opa": 255@FONT_VALUE@}},
        "button": {
            "is": "text",
            "body_t": {
                "main_color": "$card", "opa": 255, "radius": 10,
                "border": {"color": "$line", "width": 1, "part": "all", "opa": 255}
            },
            "pressed": {"body_t": {"main_color": "$line"}}
        },
        "primary": {
            "is": "button",
            "body_t": {"main_color": "$accent", "border": {"width": 0}},
            "txt_t": {"color": "$on_accent"},
            "pressed": {"body_t": {"main_color": "$pressed"}}
        },
        "list": {
            "is": "text",
            "body_t": {"opa": 0},
            "scroll bar": {"body_t": {"main_color": "$line", "opa": 255, "radius": 2}},
            "second": {
                "body_t": {
                    "main_color": "$card", "opa": 255,
                    "border": {"color": "$line", "width": 1, "part": "bottom", "opa": 255},
                    "padding": {"top": @PAD@, "bottom": @PAD@, "left": 4, "right": 4}
                },
                "txt_t": {"color": "$ink", "opa": 255@FONT_TEXT@}
            },
            "second:pressed": {"body_t": {"main_color": "$line"}}
        },
        "choice": {
            "is": "text",
            "body_t": {
                "main_color": "$page", "opa": 255, "radius": 10,
                "padding": {"top": @PAD@, "bottom": @PAD@, "left": 12, "right": 12}
            },
            "second": {
                "body_t": {
                    "main_color": "$card", "opa": 255, "radius": 10,
                    "border": {"color": "$line", "width": 1, "part": "all", "opa": 255},
                    "padding": {"top": 12, "bottom": 12, "left": 12, "right": 12}
                },
                "txt_t": {"color": "$ink", "opa": 255@FONT_TEXT@}
            },
            "second:selection": {"body_t": {"main_color": "$card", "opa": 255}},
            "second:selection:checked": {
                "body_t": {"main_color": "$accent", "opa": 255}, "txt_t": {"color": "$on_accent", "opa": 255}
            }
        },
        "switch": {
            "body_t": {"main_color": "$line", "opa": 255, "radius": 16},
            "indicator": {"body_t": {"main_color": "$line", "opa": 255, "radius": 16}},
            "indicator:checked": {"body_t": {"main_color": "$mark"}},
            "knob": {
                "body_t": {
                    "main_color": "#FFFFFF", "opa": 255, "radius": 16,
                    "padding": {"top": -3, "bottom": -3, "left": -3, "right": -3}
                }
            }
        },
        "slider": {
            "body_t": {"main_color": "$line", "opa": 255, "radius": 4},
            "indicator": {"body_t": {"main_color": "$mark", "opa": 255, "radius": 4}},
            "knob": {
                "body_t": {
                    "main_color": "$accent", "opa": 255, "radius": 14,
                    "padding": {"top": 8, "bottom": 8, "left": 8, "right": 8}
                }
            }
        },
        "check_box": {
            "is": "text",
            "indicator": {
                "body_t": {
                    "main_color": "$card", "opa": 255, "radius": 6,
                    "border": {"color": "$line", "width": 2, "part": "all", "opa": 255}
                }
            },
            "indicator:checked": {"body_t": {"main_color": "$mark", "border": {"color": "$mark"}}}
        },
        "bar": {
            "body_t": {"main_color": "$line", "opa": 255, "radius": 4},
            "indicator": {"body_t": {"main_color": "$mark", "opa": 255, "radius": 4}}
        },
        "input": {
            "is": "text",
            "body_t": {
                "main_color": "$card", "opa": 255, "radius": 10,
                "border": {"color": "$line", "width": 1, "part": "all", "opa": 255},
                "padding": {"top": @PAD@, "bottom": @PAD@, "left": 12, "right": 12}
            },
            "placeholder": {"txt_t": {"color": "$faint"}},
            "cursor:focused": {
                "body_t": {"border": {"color": "$ink", "width": 2, "part": "left", "opa": 255}}
            }
        },
        "spin_box": {
            "is": "input",
            "cursor": {
                "body_t": {"main_color": "$accent", "opa": 255, "radius": 4}, "txt_t": {"color": "$on_accent"}
            },
            "cursor:focused": {"body_t": {"border": {"width": 0}}}
        },
        "roller": {
            "is": "text",
            "body_t": {
                "main_color": "$card", "opa": 255, "radius": 10,
                "border": {"color": "$line", "width": 1, "part": "all", "opa": 255}
            },
            "selection": {"body_t": {"main_color": "$accent", "opa": 255}, "txt_t": {"color": "$on_accent"}}
        },
        "message_box": {
            "is": "text",
            "body_t": {
                "main_color": "$card", "opa": 255, "radius": 10,
                "border": {"color": "$line", "width": 1, "part": "all", "opa": 255},
                "padding": {"top": 16, "bottom": 16, "left": 16, "right": 16}
            },
            "second": {"body_t": {"opa": 0}},
            "second:items": {
                "body_t": {"main_color": "$accent", "opa": 255, "radius": 10},
                "txt_t": {"color": "$on_accent", "opa": 255@FONT_TEXT@}
            },
            "second:items:pressed": {"body_t": {"main_color": "$pressed"}}
        },
        "table": {
            "is": "text",
            "body_t": {"main_color": "$card", "opa": 255, "radius": 10},
            "items": {
                "body_t": {
                    "main_color": "$card", "opa": 255,
                    "border": {"color": "$line", "width": 1, "part": "bottom", "opa": 255},
                    "padding": {"top": 8, "bottom": 8, "left": 12, "right": 12}
                }
            }
        },
        "keyboard": {
            "is": "text",
            "body_t": {"opa": 0, "padding": {"top": 4, "bottom": 4, "left": 4, "right": 4}},
            "items": {
                "body_t": {
                    "main_color": "$card", "opa": 255, "radius": 10,
                    "border": {"color": "$line", "width": 1, "part": "all", "opa": 255}
                }
            },
            "items:pressed": {"body_t": {"main_color": "$line"}}
        },
        "keys": {
            "is": "keyboard",
            "items:checked": {"body_t": {"main_color": "$accent"}, "txt_t": {"color": "$on_accent"}}
        },
        "chart": {
            "body_t": {"opa": 0},
            "indicator": {"body_t": {"opa": 0}},
            "items": {"body_t": {"radius": 0, "border": {"width": 2, "part": "all", "opa": 255}}}
        }
    }
}
