// The inspector: draws information about the controls under the pointer over the panel.
#ifndef VIEW_INSPECTOR_H
#define VIEW_INSPECTOR_H

#include <string>

#include <cjson/cJSON.h>

#include "view_draw.h"

struct view_inspector_t {
    bool on;
    cJSON *hits; // the controls under the pointer, topmost first; null if unknown
    u32 pick;    // index of the selected one
    s32 x, y;    // position of the pointer on the panel
    s32 hit_id;  // id of the pending `hit` command; 0 if no reply is pending
    bool moved;  // the pointer has moved since that command was sent
};

// Takes the reply to `hit`.
void view_inspector_take(view_inspector_t *inspector, const cJSON *reply);

// Selects the next control under the pointer.
void view_inspector_next(view_inspector_t *inspector);

// Draws outlines of the selected control and its parent, its padding, and a line of text away from the pointer.
void view_inspector_draw(const view_inspector_t *inspector, view_image_t *image);

// Returns a line such as "home/brew  button 10  212,204 122 x 56  pressed  theme button.g:3  styles home.g:40".
std::string view_inspector_text(const view_inspector_t *inspector);

// Returns the line of Python that sets the control's value, or an empty text if the control has no value.
std::string view_inspector_python(const view_inspector_t *inspector);

// Returns the control's file and its line, or an empty text if they are unknown.
std::string view_inspector_place(const view_inspector_t *inspector, s32 *line);

// Draws a band with a text, wrapped to the width, at the top or the bottom.
void view_band_draw(view_image_t *image, const std::string &text, u32 color, bool top);

#endif
