// The window's aids: presses go through its event queue, pictures come from its frame store.
#include "drv/zof_drv_aid.h"
#include "port/zof_port.h"

void win_aid_init(void) {
    static constexpr zof_drv_aid_ops_t ops = {
        .pointer = sdl_pointer_inject, .shot = zof_shot_png, .frame = sdl_frame_get, .png = zof_shot_png_make};
    drv_aid_t = &ops;
}
