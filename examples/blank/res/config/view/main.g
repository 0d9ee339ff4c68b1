{
    "view": {"v_name": "main", "v_id": 1, "bg_scale": 255, "bg_color": "#101916"},
    "controls": [
        {"type": "label", "theme": "night", "property": {
            "pub_t": {"name": "count", "id": 1, "pt": {"x": 40, "y": 50}, "size": {"width": 400, "height": 80}, "alpha": 255},
            "auto_hight": 1, "align_e": "center middle", "txt": "0",
            "styles": [{"txt_t": {"color": "#FFFFFF", "opa": 255}}]
        }},
        {"type": "button", "theme": "night", "property": {
            "pub_t": {"name": "button", "id": 2, "pt": {"x": 140, "y": 170}, "size": {"width": 200, "height": 72},
                      "t_mode": "touch", "alpha": 255},
            "txt": "Press me",
            "styles": [{"body_t": {"main_color": "#2F89E8", "opa": 255, "radius": 14}, "txt_t": {"color": "#FFFFFF", "opa": 255}},
                       {"style_state": "pressed", "body_t": {"main_color": "#2162B0", "opa": 255, "radius": 14},
                        "txt_t": {"color": "#FFFFFF", "opa": 255}}]
        }}
    ]
}
