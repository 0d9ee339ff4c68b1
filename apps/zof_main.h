// The start of the bench panel.
#ifndef ZOF_MAIN_H
#define ZOF_MAIN_H

#include "ui/views.h"
#include "zof.h"

ZOF_C_BEGIN

// Shows the panel and connects its model to the link; opens no port.
void panel_start(void);

extern const zof_view_fun_t zof_views_fun[ZOF_VIEW_COUNT];

ZOF_C_END

#endif
