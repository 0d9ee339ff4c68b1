// Shared by the files of the view manager. Internal.
#ifndef ZOF_VIEW_LAYER_H
#define ZOF_VIEW_LAYER_H

#include "project/base/zof_para.h"
#include "project/view/zof_view.h"

// The four root objects created by the display, in the order of zof_layer_se; hiding a layer restores them.
extern lv_obj_t *g_init_layer_view[ZOF_LAYER_COUNT];

// Saves the root objects; must run before the first view replaces one.
void zof_view_layers_capture(void);

// Returns the layer of a view's file; unknown numbers count as ZOF_LAYER_UI.
zof_layer_se zof_view_layer_of(const zof_view_node_t *node);

// Makes `root` the root object of one of the layers other than ZOF_LAYER_UI.
void zof_view_layer_set_root(zof_layer_se layer, lv_obj_t *root);

// Returns the layer on which a view is current, or ZOF_LAYER_COUNT.
u32 zof_view_layer_showing(const zof_view_node_t *node);

// Calls `fn` with each control record of the view, in the order of the list or, with `last_first`, in reverse. Records
// that `fn` or its events remove are skipped, and those they add are not visited. Returns 0, or -1 without memory.
s32 zof_view_ctrls_each(zof_view_node_t *view, bool last_first, void (*fn)(zof_view_node_t *view, para_t *record));

// Sets the colour and opacity of the view's object from its record.
void zof_view_bg_paint(zof_view_node_t *node);

// Gives the object of a view that is shown what its record says of it: background and layer.
void zof_view_dress(zof_view_node_t *node);

// Draws the background image: JPEG and PNG as an image object of the view, others by the display driver.
void zof_view_set_bg_img(zof_view_node_t *node, const char *image);

#endif
