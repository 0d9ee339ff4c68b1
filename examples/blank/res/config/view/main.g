{
    "view": {"v_name": "main", "v_id": 1, "bg_scale": 255, "bg_color": 1054998},
    "controls": [
        {"type": 0, "theme": "night", "property": {
            "pub_t": {"name": "count", "id": 1, "pt": {"x": 40, "y": 50}, "size": {"width": 400, "height": 80}, "alpha": 255},
            "auto_hight": 1, "align_e": 34, "txt": "0",
            "styles": [{"txt_t": {"color": 16777215, "opa": 255}}]
        }},
        {"type": 1, "theme": "night", "property": {
            "pub_t": {"name": "button", "id": 2, "pt": {"x": 140, "y": 170}, "size": {"width": 200, "height": 72},
                      "t_mode": 1, "alpha": 255},
            "txt": "Press me",
            "styles": [{"body_t": {"main_color": 2388168, "opa": 255, "radius": 14}, "txt_t": {"color": 16777215, "opa": 255}},
                       {"style_state": 32, "body_t": {"main_color": 2187952, "opa": 255, "radius": 14},
                        "txt_t": {"color": 16777215, "opa": 255}}]
        }}
    ]
}
