// An example for an ATmega328P: shows the voltage at pin ADC0 on label 5 of view 1, and lights an LED (PB5) while the
// panel is touched. 115200 baud at 16 MHz. The interrupt fills a ring of bytes; the library runs only in the main loop.
#define F_CPU 16000000ul
#include <avr/interrupt.h>
#include <avr/io.h>
#include <stdlib.h>

#include "zof_host.h"

static volatile uint8_t ring[64], ring_in; // written by the interrupt
static uint8_t ring_out;                   // used by the main loop
static volatile uint32_t ticks;            // milliseconds

ISR(USART_RX_vect) {
    ring[ring_in++ % sizeof(ring)] = UDR0;
}

ISR(TIMER0_COMPA_vect) {
    ticks++;
}

static uint32_t now_ms(void) {
    cli(); // the four bytes must be read atomically
    const uint32_t now = ticks;
    sei();
    return now;
}

static uint16_t line_read(void *user, uint8_t *bytes, uint16_t size) {
    uint16_t n = 0;
    (void)user;
    while (n < size && ring_out != ring_in) {
        bytes[n++] = ring[ring_out++ % sizeof(ring)];
    }
    return n;
}

static uint16_t line_write(void *user, const uint8_t *bytes, uint16_t size) {
    (void)user;
    if (!size || !(UCSR0A & (1 << UDRE0))) {
        return 0;
    }
    UDR0 = bytes[0];
    return 1;
}

static void on_event(zof_host_t *host, const zof_host_event_t *event) {
    (void)host;
    if (event->kind == ZOF_HOST_TOUCH) {
        PORTB = event->state ? 1 << PB5 : 0;
    }
}

static uint8_t on_restart(zof_host_t *host, uint8_t step) {
    (void)step;
    zof_host_set_system_touch_config(host, 0x32); // tones, and reports of press and release
    return 0;
}

int main(void) {
    static uint8_t rx[40], tx[64];
    static zof_host_t host;
    DDRB = 1 << PB5;
    TCCR0A = 1 << WGM01, TCCR0B = 1 << CS01 | 1 << CS00, OCR0A = 249, TIMSK0 = 1 << OCIE0A; // 1 ms
    UCSR0A = 1 << U2X0, UBRR0 = 16, UCSR0B = 1 << RXEN0 | 1 << TXEN0 | 1 << RXCIE0;         // 115200 baud
    ADMUX = 1 << REFS0, ADCSRA = 1 << ADEN | 1 << ADSC | 1 << ADATE | 7;
    host.head_fh = 90, host.head_fl = 165;
    host.timeout_ms = 1000, host.byte_us = 87;
    host.rx = rx, host.rx_size = sizeof(rx), host.tx = tx, host.tx_size = sizeof(tx);
    host.write = line_write, host.read = line_read, host.on_event = on_event;
    host.on_restart = on_restart;
    zof_host_init(&host);
    sei();
    on_restart(&host, 0);
    for (uint16_t shown = 0xFFFF;;) {
        if (!zof_host_poll(&host, now_ms()) && ADC != shown) {
            char text[8];
            utoa(shown = ADC, text, 10);
            zof_host_set_label_text(&host, 1, 5, text);
        }
    }
}
