
/* Counts the clicks of the button. Other events are presses, releases, long presses (zof_event_e). */
static void more_event(zof_ctrl_t *button, zof_event_e event) {
    static u32 clicks;
    char text[32];
    (void)button;
    if (event == ZOF_EVENT_CLICKED) {
        snprintf(text, sizeof(text), "%u", ++clicks);
        zof_label_set_txt(control(VIEW1_COUNT_ID), text);
    }
}

/* The events of the view's controls. */
static const zof_ctrl_fun_t events[] = {
    // @if languages
    {VIEW1_LANGUAGE_ID, language_event},
    // @end
    {VIEW1_THEME_ID, theme_event},
    {VIEW1_MORE_ID, more_event},
};

static void main_ready(void) {
}
