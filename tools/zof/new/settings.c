
/* Prints a switch or a slider that was changed. Put what the setting does in its place. */
static void network_event(zof_ctrl_t *sw, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        printf("network: %u\n", (unsigned)zof_sw_get_state(sw));
    }
}

static void sound_event(zof_ctrl_t *sw, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        printf("sound: %u\n", (unsigned)zof_sw_get_state(sw));
    }
}

static void volume_event(zof_ctrl_t *slider, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        printf("volume: %d\n", (int)zof_slider_get_value(slider));
    }
}

static void brightness_event(zof_ctrl_t *slider, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        zof_disp_set_bright((u8)zof_slider_get_value(slider));
    }
}

// @if languages
static void language_event(zof_ctrl_t *list, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        zof_lang_set(languages[zof_droplist_get_selected(list)]);
    }
}

// @end
/* Shows the chosen colours: those in config/looks.g, or those of config/theme/night/looks.g in their place. */
static void theme_event(zof_ctrl_t *list, zof_event_e event) {
    if (event == ZOF_EVENT_VALUE_CHANGED) {
        zof_theme_set(themes[zof_droplist_get_selected(list)]);
    }
}

/* The events of the view's controls. */
static const zof_ctrl_fun_t events[] = {
    {VIEW1_NETWORK_ID, network_event},
    {VIEW1_SOUND_ID, sound_event},
    {VIEW1_VOLUME_ID, volume_event},
    {VIEW1_BRIGHTNESS_ID, brightness_event},
    // @if languages
    {VIEW1_LANGUAGE_ID, language_event},
    // @end
    {VIEW1_THEME_ID, theme_event},
};

static void main_ready(void) {
    zof_sw_set_state(control(VIEW1_NETWORK_ID), 1);
    zof_slider_set_value(control(VIEW1_VOLUME_ID), 60);
    zof_slider_set_value(control(VIEW1_BRIGHTNESS_ID), 80);
}
