
/* Creates the view's controls; runs once, before the view is shown. */
static void main_made(void) {
    zof_view_create(MAIN_VIEW, events, sizeof(events) / sizeof(events[0]));
    main_ready();
}

/* Runs each time the view is shown. */
static void main_shown(void) {
}

static const zof_view_fun_t views[] = {{MAIN_VIEW, main_made, main_shown, NULL}};

void zof_main(void) {
    zof_prj_create(views, sizeof(views) / sizeof(views[0]));
}

int main(int argc, char **argv) {
    return zof_run(argc, argv);
}
