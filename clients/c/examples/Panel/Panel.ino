// Shows the voltage at pin A0 on label 5 of view 1, dims the LED at pin 9 with slider 9, and lights the one of the board
// while the panel is touched. The panel is on Serial, at 115200 baud, 8 bits, no parity; its settings have `event_en`: 1.
#include <stdlib.h>
#include <zof_host.h>

const uint16_t VIEW = 1, LABEL = 5, SLIDER = 9; // `zof ids` writes names for them
const int DIMMED = 9;

static uint8_t rx[48], tx[96];
static zof_host_on_t places[1];
static zof_host_t host;
static int shown; // on the label

static uint16_t line_read(void *, uint8_t *bytes, uint16_t size) {
    uint16_t n = 0;
    while (n < size && Serial.available()) {
        bytes[n++] = (uint8_t)Serial.read();
    }
    return n;
}

static uint16_t line_write(void *, const uint8_t *bytes, uint16_t size) {
    const uint16_t room = (uint16_t)Serial.availableForWrite(); // a write of more would wait
    return (uint16_t)Serial.write(bytes, size < room ? size : room);
}

static void slider_event(zof_host_t *, const zof_host_event_t *event) {
    if (event->event == ZOF_HOST_EVENT_CHANGED) {
        analogWrite(DIMMED, constrain(event->number, 0, 100) * 255 / 100);
    }
}

static void on_event(zof_host_t *, const zof_host_event_t *event) {
    if (event->kind == ZOF_HOST_TOUCH) {
        digitalWrite(LED_BUILTIN, event->state ? HIGH : LOW);
    }
}

static uint8_t on_restart(zof_host_t *panel, uint8_t) {
    zof_host_set_system_touch_config(panel, 0x32); // tones, and reports of press and release
    shown = -1;
    return 0;
}

void setup() {
    pinMode(LED_BUILTIN, OUTPUT);
    pinMode(DIMMED, OUTPUT);
    Serial.begin(115200);
    host.head_fh = 90, host.head_fl = 165; // as in zofhmi.g
    host.timeout_ms = 1000, host.byte_us = 87;
    host.rx = rx, host.rx_size = sizeof(rx), host.tx = tx, host.tx_size = sizeof(tx);
    host.on = places, host.on_size = 1;
    host.read = line_read, host.write = line_write, host.on_event = on_event, host.on_restart = on_restart;
    zof_host_init(&host);
    zof_host_on(&host, VIEW, SLIDER, slider_event);
    on_restart(&host, 0);
}

void loop() {
    const int value = analogRead(A0);
    if (!zof_host_poll(&host, millis()) && value != shown) {
        char text[8];
        shown = value;
        zof_host_set_label_text(&host, VIEW, LABEL, dtostrf(value * 5.0 / 1023, 4, 2, text));
    }
}
