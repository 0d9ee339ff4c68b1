// What the files of the view manager share. Internal.
#ifndef ZOF_VIEW_LAYER_H
#define ZOF_VIEW_LAYER_H

#include "project/zof_para.h"
#include "project/zof_view.h"

// The four root objects as the display made them, in the order of zof_layer_se: what hiding a layer puts back.
extern lv_obj_t *g_init_layer_view[ZOF_LAYER_COUNT];

// Remembers the root objects; of use only before the first view replaces one.
void zof_view_layers_capture(void);

// The layer that a view's file names; numbers without a layer count as ZOF_LAYER_UI.
zof_layer_se zof_view_layer_of(const zof_view_node_t *node);

// Makes `root` the root object of one of the layers other than ZOF_LAYER_UI.
void zof_view_layer_set_root(zof_layer_se layer, lv_obj_t *root);

// The layer on which a view is current, or ZOF_LAYER_COUNT.
u32 zof_view_layer_showing(const zof_view_node_t *node);

// Calls `fn` with each control record of the view, in the list's order or, `last_first`, against it. What `fn` and the
// events that it causes take out of the list is passed over, what they add is left out. 0, or -1 without memory.
s32 zof_view_ctrls_each(zof_view_node_t *view, bool last_first, void (*fn)(zof_view_node_t *view, para_t *record));

// Gives the view's object the colour and opacity of its record.
void zof_view_bg_paint(zof_view_node_t *node);

// Draws the background image: JPEG and PNG as an image object of the view, anything else by the display driver.
void zof_view_set_bg_img(zof_view_node_t *node, const char *image);

#endif
