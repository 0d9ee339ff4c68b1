// The views of the bench panel.
#ifndef ZOF_MAIN_H
#define ZOF_MAIN_H

#include "project/base/zof_event.h"

ZOF_C_BEGIN

enum { ZOF_NULL = 0, ZOF_VIEW1_ID = 1, ZOF_VIEW2_ID = 2, ZOF_VIEW3_ID = 3, ZOF_VIEW4_ID = 4, ZOF_VIEW_COUNT = 4 };

// Of each view: binds its controls to their event functions, runs when it is entered, and runs when it is left.
void view1_init(void);
void view1_entry(void);
void view1_exit(void);
void view2_init(void);
void view2_entry(void);
void view2_exit(void);
void view3_init(void);
void view3_entry(void);
void view3_exit(void);
void view4_init(void);
void view4_entry(void);
void view4_exit(void);

extern const zof_view_fun_t zof_views_fun[ZOF_VIEW_COUNT];

ZOF_C_END

#endif
