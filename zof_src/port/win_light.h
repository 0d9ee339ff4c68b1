// The light of the display, on a device without a desktop, where no other program shows anything. On a desktop it
// belongs to the user, and nothing here changes it. Graphics thread only. Internal: C++ only.
#ifndef WIN_LIGHT_H
#define WIN_LIGHT_H

#include "zof_lib/zof_type.h"

struct SDL_Window;

// Returns whether SDL's video shows the picture without a desktop. The window then always fills the screen.
bool win_light_alone();

// Takes the light of the display that shows the window, and switches it on: the program before may have left it dark.
void win_light_open(SDL_Window *window);
// Leaves it switched on.
void win_light_close();

// Returns true if the display has a backlight that can be set.
bool win_light_is_set();

// Sets the light, 0 to 255; 0 switches the display off. Returns false if it has no light for this level: then the
// picture has to be dimmed.
bool win_light_level(u8 level);

// Returns true while the display is off and nothing can be shown.
bool win_light_is_off();

#endif
