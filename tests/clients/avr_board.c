// Runs a program for an ATmega328P at 16 MHz, in real time: its serial line is a pseudo-terminal, pin ADC0 is at 2.5 V.
// Prints the path of the line's other end, and what timer 1 and the LED of the board are set to when that changes.
//   usage: avr_board PROGRAM.elf
#include <avr_adc.h>
#include <avr_uart.h>
#include <parts/uart_pty.h>
#include <sim_avr.h>
#include <sim_elf.h>
#include <stdio.h>
#include <string.h>
#include <time.h>

enum { OCR1A = 0x88, PORTB = 0x25, LED = 1 << 5, SLICE = 16000 }; // data addresses; cycles of a millisecond

static void real_time(void) {
    static struct timespec next;
    if (!next.tv_sec) {
        clock_gettime(CLOCK_MONOTONIC, &next);
    }
    next.tv_nsec += 1000000;
    if (next.tv_nsec >= 1000000000) {
        next.tv_nsec -= 1000000000, next.tv_sec++;
    }
    clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &next, NULL);
}

int main(int argc, char **argv) {
    static elf_firmware_t firmware;
    static uart_pty_t line;
    avr_t *avr = avr_make_mcu_by_name("atmega328p");
    if (argc != 2 || !avr || elf_read_firmware(argv[1], &firmware) != 0) {
        return 2;
    }
    avr_init(avr);
    firmware.frequency = 16000000;
    avr_load_firmware(avr, &firmware);
    avr->vcc = avr->avcc = avr->aref = 5000;
    uart_pty_init(avr, &line);
    uart_pty_connect(&line, '0');
    remove("/tmp/simavr-uart0"); // a link that simavr makes
    printf("line %s\n", line.pty.slavename);
    fflush(stdout);
    avr_raise_irq(avr_io_getirq(avr, AVR_IOCTL_ADC_GETIRQ, ADC_IRQ_ADC0), 2500);
    int pwm = 0, led = 0;
    for (avr_cycle_count_t slice = SLICE;; slice += SLICE) {
        while (avr->cycle < slice) {
            const int state = avr_run(avr);
            if (state == cpu_Done || state == cpu_Crashed) {
                return 1;
            }
        }
        if (avr->data[OCR1A] != pwm || (avr->data[PORTB] & LED) != led) {
            pwm = avr->data[OCR1A], led = avr->data[PORTB] & LED;
            printf("pwm %d led %d\n", pwm, led != 0);
            fflush(stdout);
        }
        real_time();
    }
}
