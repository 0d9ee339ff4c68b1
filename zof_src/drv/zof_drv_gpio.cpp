#include "drv/zof_drv_gpio.h"

const zof_drv_gpio_ops_t *zof_gpio_t;

s32 zof_gpio_init(const zof_gpio_cfg_t *cfg) {
    return cfg && zof_gpio_t && zof_gpio_t->init ? zof_gpio_t->init(cfg) : -1;
}

s32 zof_gpio_readInputPin(u8 port, u8 pin) {
    return zof_gpio_t && zof_gpio_t->readInputPin ? zof_gpio_t->readInputPin(port, pin) : -1;
}

s32 zof_gpio_readOutputPin(u8 port, u8 pin) {
    return zof_gpio_t && zof_gpio_t->readOutputPin ? zof_gpio_t->readOutputPin(port, pin) : -1;
}

s32 zof_gpio_setPin(u8 port, u8 pin, u8 value) {
    return zof_gpio_t && zof_gpio_t->setPin ? zof_gpio_t->setPin(port, pin, value) : -1;
}

s32 zof_gpio_set_irq(const zof_gpio_cfg_t *cfg, zof_gpio_irq_fn fn) {
    return cfg && zof_gpio_t && zof_gpio_t->set_irq ? zof_gpio_t->set_irq(cfg, fn) : -1;
}

s32 zof_gpio_group_set_irq(u8 group, zof_gpio_irq_fn fn) {
    return zof_gpio_t && zof_gpio_t->group_set_irq ? zof_gpio_t->group_set_irq(group, fn) : -1;
}

s32 zof_gpio_group_get_irq_pin(u8 group) {
    return zof_gpio_t && zof_gpio_t->group_get_irq_pin ? zof_gpio_t->group_get_irq_pin(group) : -1;
}

s32 zof_gpio_group_get_irq_mode(u8 group) {
    return zof_gpio_t && zof_gpio_t->group_get_irq_mode ? zof_gpio_t->group_get_irq_mode(group) : -1;
}
