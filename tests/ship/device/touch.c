// A touch screen for a guest. It exists until the standard input ends, and taps at the place of each line:  X Y, in
// thousandths of the screen.
#include <fcntl.h>
#include <linux/uinput.h>
#include <stdio.h>
#include <string.h>
#include <sys/ioctl.h>
#include <unistd.h>

enum { STEPS = 4096 };

static int screen;

static void emit(unsigned type, unsigned code, int value) {
    struct input_event event = {.type = (unsigned short)type, .code = (unsigned short)code, .value = value};
    if (write(screen, &event, sizeof(event)) != sizeof(event)) {
        perror("uinput");
    }
}

static void contact(int id, int x, int y) {
    emit(EV_ABS, ABS_MT_SLOT, 0);
    emit(EV_ABS, ABS_MT_TRACKING_ID, id);
    if (id >= 0) {
        emit(EV_ABS, ABS_MT_POSITION_X, x);
        emit(EV_ABS, ABS_MT_POSITION_Y, y);
        emit(EV_ABS, ABS_X, x);
        emit(EV_ABS, ABS_Y, y);
    }
    emit(EV_KEY, BTN_TOUCH, id >= 0);
    emit(EV_SYN, SYN_REPORT, 0);
}

int main(void) {
    static const unsigned short axes[] = {
        ABS_X, ABS_Y, ABS_MT_POSITION_X, ABS_MT_POSITION_Y, ABS_MT_SLOT, ABS_MT_TRACKING_ID};
    screen = open("/dev/uinput", O_WRONLY);
    ioctl(screen, UI_SET_EVBIT, EV_KEY);
    ioctl(screen, UI_SET_KEYBIT, BTN_TOUCH);
    ioctl(screen, UI_SET_EVBIT, EV_ABS);
    ioctl(screen, UI_SET_PROPBIT, INPUT_PROP_DIRECT);
    for (unsigned i = 0; i < sizeof(axes) / sizeof(axes[0]); i++) {
        struct uinput_abs_setup axis = {.code = axes[i]};
        axis.absinfo.maximum = axes[i] == ABS_MT_SLOT ? 9 : axes[i] == ABS_MT_TRACKING_ID ? 65535 : STEPS - 1;
        ioctl(screen, UI_ABS_SETUP, &axis);
    }
    struct uinput_setup setup = {.id = {.bustype = BUS_USB, .vendor = 0x1234, .product = 1}};
    strcpy(setup.name, "touch screen");
    if (ioctl(screen, UI_DEV_SETUP, &setup) != 0 || ioctl(screen, UI_DEV_CREATE) != 0) {
        perror("uinput");
        return 1;
    }
    int x, y, id = 0;
    while (scanf("%d %d", &x, &y) == 2) {
        contact(id++, x * (STEPS - 1) / 1000, y * (STEPS - 1) / 1000);
        usleep(150000);
        contact(-1, 0, 0);
    }
    return 0;
}
