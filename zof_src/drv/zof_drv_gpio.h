// Pins. On a desktop, keyboard keys stand in for them, so that a project written for real keys can be tried there.
// Everything here belongs to the graphics thread.
#ifndef ZOF_DRV_GPIO_H
#define ZOF_DRV_GPIO_H

#include "zof_lib/dblist/db_list.h"
#include "zof_lib/zof_type.h"

ZOF_C_BEGIN

enum { ZOF_GPIO_EDGE_RISING = 0, ZOF_GPIO_EDGE_FALLING = 1, ZOF_GPIO_EDGE_BOTH = 2 };

typedef struct {
    u8 port, pin;
    u32 mode;     // 0, 2 and 3 allow the interrupt
    u32 irq_mode; // ZOF_GPIO_EDGE_*
} zof_gpio_cfg_t;

// Receives a pointer to the pin's port byte; the pin byte follows it.
typedef void (*zof_gpio_irq_fn)(u8 *port);

// A port's operations; each is OPTIONAL, and its wrapper returns -1 without it.
typedef struct {
    s32 (*init)(const zof_gpio_cfg_t *cfg);
    s32 (*readInputPin)(u8 port, u8 pin);
    s32 (*readOutputPin)(u8 port, u8 pin);
    s32 (*setPin)(u8 port, u8 pin, u8 value);
    s32 (*set_irq)(const zof_gpio_cfg_t *cfg, zof_gpio_irq_fn fn);
    s32 (*group_set_irq)(u8 group, zof_gpio_irq_fn fn);
    s32 (*group_get_irq_pin)(u8 group);
    s32 (*group_get_irq_mode)(u8 group);
} zof_drv_gpio_ops_t;

extern const zof_drv_gpio_ops_t *zof_gpio_t;

// Return the level of a pin, 0 or 1, or whatever the port returns; -1 for a missing driver, operation or pin.
s32 zof_gpio_init(const zof_gpio_cfg_t *cfg);
s32 zof_gpio_readInputPin(u8 port, u8 pin);
s32 zof_gpio_readOutputPin(u8 port, u8 pin);
s32 zof_gpio_setPin(u8 port, u8 pin, u8 value);
s32 zof_gpio_set_irq(const zof_gpio_cfg_t *cfg, zof_gpio_irq_fn fn);
s32 zof_gpio_group_set_irq(u8 group, zof_gpio_irq_fn fn);
s32 zof_gpio_group_get_irq_pin(u8 group);
s32 zof_gpio_group_get_irq_mode(u8 group);

// The simulated pins of a desktop. Bind the keys first, then set up the pins.
typedef struct zof_win_key_param {
    db_list *list;
    void (*callback)(struct zof_win_key_param *param, u32 key); // for every key event; may be null
    u32 status;                                                 // of the last key event: 1 down, 0 up
    u32 value;                                                  // its key code
} zof_win_key_param_t;

// Binds a key (its code) to a pin; binding again replaces the key. Returns 0, or -1 without memory.
s32 zof_win_key_sim_gpio_reg(u8 port, u8 pin, u32 key);
// Installs the callback for every key event, bound or not; null removes it. Returns 0.
s32 zof_win_key_irq_reg(void (*fn)(zof_win_key_param_t *param, u32 key));
// Return key code and level of the event that the callback is called for; -1 for null.
s32 zof_win_key_get_value(const zof_win_key_param_t *param);
s32 zof_win_key_get_status(const zof_win_key_param_t *param);

// The port's side of the same; the window calls it for every key event but repeats and F11, which is its own: level 1
// down, 0 up. Always returns 0.
s32 zof_drv_win_key_sim_gpio_reg(u8 port, u8 pin, u32 key);
s32 zof_drv_win_key_irq_reg(void (*fn)(zof_win_key_param_t *param, u32 key));
s32 zof_drv_win_key_get_value(const zof_win_key_param_t *param);
s32 zof_drv_win_key_get_status(const zof_win_key_param_t *param);
s32 zof_drv_win_key_set_value(u32 level, u32 key);

ZOF_C_END

#endif
