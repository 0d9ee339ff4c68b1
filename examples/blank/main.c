#include <stdio.h>
#include <zof.h>

#include "ids.h"

/* Events of the button: clicks, presses, releases, long presses (zof_event_e). */
static void button_event(zof_ctrl_t *button, zof_event_e event) {
    static int clicks;
    char text[32];
    (void)button;
    if (event != ZOF_EVENT_CLICKED) {
        return;
    }
    snprintf(text, sizeof(text), "%d", ++clicks);
    zof_label_set_txt(zof_ctrl_get_form_id(1, VIEW1_COUNT_ID), text);
}

/* The view: the event functions of its controls, and what runs when it is created, shown and left. */
static const zof_ctrl_fun_t events[] = {{VIEW1_BUTTON_ID, button_event}};
static void made(void) {
    zof_view_create(1, events, sizeof(events) / sizeof(events[0]));
}
static void shown(void) {
}

static const zof_view_fun_t views[] = {{1, made, shown, 0}};

void zof_main(void) {
    zof_prj_create(views, sizeof(views) / sizeof(views[0]));
}

int main(int argc, char **argv) {
    return zof_run(argc, argv);
}
