// The one list of the port's drivers, in the order in which they start.
#include <SDL.h>

#include "drv/zof_drv.h"
#include "drv/zof_drv_disp.h"
#include "drv/zof_drv_media.h"
#include "port/zof_port.h"

void win_drv_init(void) {
    static constexpr void (*drivers[])(void) = {
        win_disp_init, // first: it takes size and title from the project
        win_touch_init, win_uart_init, win_rtc_init, zof_image_init, win_video_init,
        win_audio_init, win_gpio_init, win_aid_init, win_alive_init,
    };
    for (auto *init : drivers) {
        init();
    }
}

// SDL reads its driver from the environment.
void zof_disp_headless(void) {
    SDL_setenv("SDL_VIDEODRIVER", "offscreen", 1);
}
