{
    "p_name": "Blank", "width": 480, "height": 320, "start_page": 1, "app_ver": "1.0.0",
    "hw_t": {"touch_t": {"th_en": 1}},
    "views": [{"pageId": 1, "pageName": "main.g"}]
}
