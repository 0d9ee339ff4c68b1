
// @if languages
/* Shows the next language. Every text that names a key follows. */
static void language_event(zof_ctrl_t *button, zof_event_e event) {
    static u32 shown;
    (void)button;
    if (event == ZOF_EVENT_CLICKED) {
        shown = (shown + 1) % (sizeof(languages) / sizeof(languages[0]));
        zof_lang_set(languages[shown]);
    }
}

// @end
/* Shows the other theme: the colours in config/looks.g, or those of config/theme/night/looks.g in their place. */
static void theme_event(zof_ctrl_t *button, zof_event_e event) {
    static u32 shown;
    (void)button;
    if (event == ZOF_EVENT_CLICKED) {
        shown = !shown;
        zof_theme_set(themes[shown]);
    }
}
