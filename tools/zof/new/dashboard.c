
enum { STEP_MS = 500, POINTS = 60 };

static lv_chart_series_t *series;
static zof_task_t *task;

/* Returns a value that moves back and forth between 0 and 1000; a period is a number of steps. Put measured values in
 * its place. */
static s32 wave(u32 step, u32 period) {
    s32 at = (s32)(step % period * 2000 / period);
    return at < 1000 ? at : 2000 - at;
}

static void show(u32 id, s32 tenths, const char *unit) {
    char text[32];
    snprintf(text, sizeof(text), "%d.%d %s", (int)(tenths / 10), (int)(tenths % 10), unit);
    zof_label_set_txt(control(id), text);
}

/* Takes and shows the values. */
static void step(zof_task_t *self) {
    static u32 steps = POINTS; /* goes on where main_ready has filled the chart */
    char text[32];
    const s32 power = 40 + wave(steps, 37) * 45 / 1000;
    (void)self;
    steps++;
    show(VIEW1_TEMPERATURE_ID, 198 + wave(steps, 43) * 30 / 1000, "°C");
    show(VIEW1_PRESSURE_ID, 12 + wave(steps, 31) * 8 / 1000, "bar");
    show(VIEW1_FLOW_ID, 62 + wave(steps, 23) * 9 / 1000, "l/min");
    snprintf(text, sizeof(text), "%d %%", (int)power);
    zof_label_set_txt(control(VIEW1_POWER_TEXT_ID), text);
    zof_arc_set_value(control(VIEW1_POWER_ID), (s16)power);
    zof_chart_set_next(control(VIEW1_CHART_ID), series, power);
}

static void start_event(zof_ctrl_t *button, zof_event_e event) {
    (void)button;
    if (event == ZOF_EVENT_CLICKED) {
        zof_task_set_cb_resume(task);
    }
}

static void stop_event(zof_ctrl_t *button, zof_event_e event) {
    (void)button;
    if (event == ZOF_EVENT_CLICKED) {
        zof_task_set_cb_pause(task);
    }
}

/* Clears the chart. */
static void clear_event(zof_ctrl_t *button, zof_event_e event) {
    (void)button;
    for (u32 i = 0; event == ZOF_EVENT_CLICKED && i < POINTS; i++) {
        zof_chart_set_next(control(VIEW1_CHART_ID), series, LV_CHART_POINT_NONE);
    }
}

/* The events of the view's controls. */
static const zof_ctrl_fun_t events[] = {
    // @if languages
    {VIEW1_LANGUAGE_ID, language_event},
    // @end
    {VIEW1_THEME_ID, theme_event},
    {VIEW1_START_ID, start_event},
    {VIEW1_STOP_ID, stop_event},
    {VIEW1_CLEAR_ID, clear_event},
};

static void main_ready(void) {
    series = zof_chart_add_series(control(VIEW1_CHART_ID), 0x14919B, 0);
    for (u32 i = 0; i < POINTS; i++) {
        zof_chart_set_next(control(VIEW1_CHART_ID), series, 40 + wave(i, 37) * 45 / 1000);
    }
    task = zof_task_create(step, STEP_MS, NULL);
}
