#include <stdio.h>
#include <zof.h>

#include "ids.h"

// @if languages
static const char *const languages[] = {LANGUAGES};
// @end
static const char *const themes[] = {"day", "night"};

/* Returns a control of the only view. */
static zof_ctrl_t *control(u32 id) {
    return zof_ctrl_get_form_id(VIEW_MAIN_ID, id);
}
