// The views of the bench panel.
#ifndef VIEWS_H
#define VIEWS_H

#include "project/base/zof_event.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

enum {
    ZOF_NULL = 0,
    ZOF_VIEW1_ID = 1, // output
    ZOF_VIEW2_ID = 2, // rails
    ZOF_VIEW3_ID = 3, // about
    ZOF_VIEW4_ID = 4, // settings
    ZOF_VIEW5_ID = 5, // trend
    ZOF_VIEW_COUNT = 5
};

// Each view has four functions: init binds its controls to their event functions, entry and exit run when it is shown
// and left, and paint updates it from the model.
void view1_init(void);
void view1_entry(void);
void view1_exit(void);
void view1_paint(void);
void view2_init(void);
void view2_entry(void);
void view2_exit(void);
void view2_paint(void);
void view3_init(void);
void view3_entry(void);
void view3_exit(void);
void view3_paint(void);
void view4_init(void);
void view4_entry(void);
void view4_exit(void);
void view4_paint(void);
void view5_init(void);
void view5_entry(void);
void view5_exit(void);
void view5_paint(void);

// Sets the brightness of the display to the last value from the box, whatever page is shown.
void bright_apply(void);
// Shows the rails page with a rail selected, or with no selection if the rail is not in the list.
void view2_open_rail(u8 rail);

ZOF_C_END

#endif
