#include "hardware/zof_hw.h"

#include "hardware/uart/zof_hw_uart.h"

void zof_hw_init(void) {
    zof_uart_init();
}
