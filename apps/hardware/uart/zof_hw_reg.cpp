// Passes registers that the board writes to the link's client, limited to the range of the register's row.
#include "hardware/uart/zof_hw_uart.h"

static constexpr zof_hw_client_t nobody = {};
static const zof_hw_client_t *client = &nobody;

void zof_hw_client_set(const zof_hw_client_t *what) {
    client = what ? what : &nobody;
}

// A table that is committed repeatedly in one delivery is read once, at its end; otherwise a kilobyte of commits would
// block the panel for seconds.
static struct {
    bool running, commit;
} delivery;

static void write(u16 addr, u16 value) {
    if (client->write) {
        client->write(addr, value);
    }
}

void zof_reg_take_word(u16 addr) {
    if (client->word) {
        client->word(addr);
    }
}

void zof_reg_delivery_begin(void) {
    delivery = {.running = true, .commit = false};
}

void zof_reg_delivery_end(void) {
    const bool commit = delivery.commit;
    delivery = {};
    if (commit) {
        write(REG_RAIL_COMMIT, 1);
    }
    if (client->delivered) {
        client->delivered();
    }
}

void zof_reg_set_user(u16 addr, u16 *data, u8 datalen) {
    const reg_row_t *row = reg_find(addr);
    if (!data || datalen == 0 || !row || row->addr != addr || !(row->writer & REG_BY_BOARD)) {
        return;
    }
    if (addr == REG_RAIL_COMMIT && delivery.running) {
        delivery.commit = true;
    } else {
        write(addr, reg_value(addr, data[0]));
    }
}
