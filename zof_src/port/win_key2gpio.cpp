// Keyboard keys as pins. Key events come from the window's event handler, under the graphics lock, so a pin's callback
// may touch controls.
#include "drv/zof_drv_gpio.h"
#include "port/zof_port.h"
#include "zof_lib/zof_stdio.h"

// A simulated pin. The callback gets the address of `port`, which `pin` follows.
struct win_key {
    u32 key;
    u8 port, pin;
    u32 mode, irq_mode;
    zof_gpio_irq_fn callback;
    u8 level; // 1 while the key is down
};

// How a pin is searched: by its number, or by its key, never both: two pins may have had the same key in turn.
struct win_key_search {
    bool by_key;
    u32 key;
    u8 port, pin;
};

static zof_win_key_param_t g_win_key_param;

static int win_key_list_compare(void *data, void *key) {
    const auto *node = (const win_key *)data;
    const auto *search = (const win_key_search *)key;
    if (!node || !search) {
        return -1;
    }
    const bool same =
        search->by_key ? node->key == search->key : node->port == search->port && node->pin == search->pin;
    return same ? 0 : -1;
}

static win_key *find(win_key_search search) {
    if (!g_win_key_param.list) {
        g_win_key_param.list = db_list_create();
        if (g_win_key_param.list) {
            g_win_key_param.list->compare = win_key_list_compare;
        }
    }
    return (win_key *)__db_list_search_node(g_win_key_param.list, &search);
}

static win_key *find_pin(u8 port, u8 pin) {
    return find({false, 0, port, pin});
}

s32 zof_drv_win_key_sim_gpio_reg(u8 port, u8 pin, u32 key) {
    win_key *node = find_pin(port, pin);
    if (!node) {
        node = (win_key *)zof_malloc(sizeof(win_key));
        if (!node || __db_list_put_tail(g_win_key_param.list, node) != 0) {
            zof_free(node);
            return -1;
        }
    }
    node->key = key;
    node->port = port;
    node->pin = pin;
    return 0;
}

s32 zof_drv_win_key_irq_reg(void (*fn)(zof_win_key_param_t *param, u32 key)) {
    g_win_key_param.callback = fn;
    return 0;
}

s32 zof_drv_win_key_get_value(const zof_win_key_param_t *param) {
    return param ? (s32)param->value : -1;
}

s32 zof_drv_win_key_get_status(const zof_win_key_param_t *param) {
    return param ? (s32)param->status : -1;
}

// Returns whether a pin set up like this is interested in its key going down (1) or up (0).
static bool wants_edge(const win_key *node, u8 level) {
    const bool mode = node->mode == 0 || node->mode == 2 || node->mode == 3;
    const u32 edge = level ? ZOF_GPIO_EDGE_RISING : ZOF_GPIO_EDGE_FALLING;
    return mode && (node->irq_mode == edge || node->irq_mode == ZOF_GPIO_EDGE_BOTH);
}

s32 zof_drv_win_key_set_value(u32 level, u32 key) {
    const u8 now = level ? 1 : 0;
    if (g_win_key_param.callback) {
        g_win_key_param.status = now;
        g_win_key_param.value = key;
        g_win_key_param.callback(&g_win_key_param, key);
    }
    win_key *node = find({true, key, 0, 0});
    if (!node || node->level == now) { // a held key repeats
        return 0;
    }
    node->level = now;
    if (node->callback && wants_edge(node, now)) {
        node->callback(&node->port);
    }
    return 0;
}

static s32 zof_win_drv_gpio_init(const zof_gpio_cfg_t *cfg) {
    win_key *node = find_pin(cfg->port, cfg->pin);
    if (!node) {
        return -1;
    }
    node->mode = cfg->mode;
    node->irq_mode = cfg->irq_mode;
    return 0;
}

static s32 aic_rtos_drv_gpio_set_irq(const zof_gpio_cfg_t *cfg, zof_gpio_irq_fn fn) {
    win_key *node = find_pin(cfg->port, cfg->pin);
    if (!node) {
        return -1;
    }
    node->callback = fn;
    return 0;
}

static s32 zof_win_drv_gpio_readInputPin(u8 port, u8 pin) {
    const win_key *node = find_pin(port, pin);
    return node ? node->level : -1;
}

s32 zof_win_key_sim_gpio_reg(u8 port, u8 pin, u32 key) {
    return zof_drv_win_key_sim_gpio_reg(port, pin, key);
}

s32 zof_win_key_irq_reg(void (*fn)(zof_win_key_param_t *param, u32 key)) {
    return zof_drv_win_key_irq_reg(fn);
}

s32 zof_win_key_get_value(const zof_win_key_param_t *param) {
    return zof_drv_win_key_get_value(param);
}

s32 zof_win_key_get_status(const zof_win_key_param_t *param) {
    return zof_drv_win_key_get_status(param);
}

void win_gpio_init(void) {
    static constexpr zof_drv_gpio_ops_t ops = {
        .init = zof_win_drv_gpio_init,
        .readInputPin = zof_win_drv_gpio_readInputPin,
        .set_irq = aic_rtos_drv_gpio_set_irq,
    };
    zof_gpio_t = &ops;
}
