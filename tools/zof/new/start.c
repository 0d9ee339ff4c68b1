#include <stdio.h>
#include <zof.h>

#include "ids.h"

// @if languages
static const char *const languages[] = {LANGUAGES};
// @end
static const char *const themes[] = {"day", "night"};

/* The only view: its pageId in zofprj.g. The names of its controls begin with VIEW1, whatever its file is called. */
enum { MAIN_VIEW = 1 };

/* Returns a control of the view. */
static zof_ctrl_t *control(u32 id) {
    return zof_ctrl_get_form_id(MAIN_VIEW, id);
}
