#!/usr/bin/python3
"""Runs a device in a virtual machine and tests the panel on it: what is on the screen, what a tap does, how bright the
display is, what is plugged in, and what happens when the panel or the kernel fails.

usage: guest.py KEPT WORK BUILD      KEPT has the root, WORK the packages, the touch screen and the pictures to expect
"""
import io
import json
import pathlib
import re
import socket
import subprocess
import sys
import tarfile
import time

from PIL import Image

KEPT, WORK, NATIVE = map(pathlib.Path, sys.argv[1:])
BOARD, PANEL = NATIVE / "tools/board_sim", NATIVE / "panel"
WIDTH, HEIGHT, TOP = 800, 600, 60      # of the screen; the panel is as wide, and has black above and below it
TABS = TOP + 430                       # from there on, pages look the same with and without a box
LIGHT = "/sys/class/backlight/lcd"

# The device as its owner sets it up, and a shell for this script.
FILES = {
    "etc/fstab": "/dev/vda / auto ro 0 0\n/dev/vdb /var auto rw 0 0\ntmpfs /tmp tmpfs mode=1777 0 0\n",
    "etc/hostname": "device\n",
    "etc/machine-id": "",
    "etc/default/zof_bench": "OPTIONS=--port 5=/dev/ttyS1 --port 6=/dev/zof_bench\n",
    "etc/modules-load.d/watchdog.conf": "i6300esb\n",
    "etc/systemd/system.conf.d/watchdog.conf": "[Manager]\nRuntimeWatchdogSec=20\n",
    "etc/systemd/system/shell.service": "[Service]\nExecStart=/bin/sh /usr/sbin/shell\n",
    "usr/sbin/shell": "exec 3<>/dev/virtio-ports/shell\necho '== 0' >&3\n"
                      "while read -r line <&3; do sh -c \"$line\" >&3 2>&1 </dev/null; echo \"== $?\" >&3; done\n",
}
WANTED = "shell.service"


def add(tar, name, text="", target=None, folder=False):
    """Adds a file, a link or a folder."""
    info = tarfile.TarInfo(name)
    info.mode = 0o755 if folder else 0o644
    info.type = tarfile.DIRTYPE if folder else tarfile.SYMTYPE if target else tarfile.REGTYPE
    info.linkname = target or ""
    info.size = len(text)
    tar.addfile(info, io.BytesIO(text.encode()))


def by_root(info):
    info.uid = info.gid = 0
    info.uname = info.gname = "root"
    return info


def images_make():
    """Writes the images of the root, which the guest never changes, and of /var."""
    with tarfile.open(KEPT / "root.tar") as source, tarfile.open(WORK / "root.tar", "w") as root, \
            tarfile.open(WORK / "var.tar", "w") as var:
        for info in source:
            info.name = info.name.removeprefix("./")
            to_var = info.name.startswith("var/")
            if info.name in FILES or info.name.startswith("dev/") or info.name in ("", "."):
                continue
            data = source.extractfile(info) if info.isreg() else None
            info.pax_headers = {}
            info.name = info.name.removeprefix("var/")
            (var if to_var else root).addfile(info, data)
        for folder in "etc/systemd/system.conf.d", "etc/modules-load.d":
            add(root, folder, folder=True)
        for name, text in FILES.items():
            add(root, name, text)
        add(root, f"etc/systemd/system/multi-user.target.wants/{WANTED}", target=f"/etc/systemd/system/{WANTED}")
        for package in (WORK / "packages").glob("*.deb"):
            root.add(package, "srv/" + package.name.split("_")[0] + ".deb", filter=by_root)
        root.add(WORK / "touch_screen", "usr/bin/touch_screen", filter=by_root)
    for name, blocks in ("root", 300000), ("var", 16000):
        subprocess.run(["genext2fs", "-B", "4096", "-b", str(blocks), "-i", "8192", "-a", WORK / f"{name}.tar",
                        WORK / f"{name}.img"], check=True, stderr=subprocess.DEVNULL)


class Guest:
    """The machine: `sh` runs a command in it as root, `qmp` one of the machine itself."""

    def __init__(self):
        kernel, = (KEPT / "boot").glob("vmlinuz-*")
        disk, = (KEPT / "boot").glob("initrd.img-*")
        self.process = subprocess.Popen(
            ["qemu-system-x86_64", "-accel", "tcg", "-cpu", "Nehalem", "-smp", "1", "-m", "1024", "-nodefaults",
             "-display", "none", "-device", f"virtio-vga,xres={WIDTH},yres={HEIGHT}", "-device", "qemu-xhci",
             "-kernel", kernel, "-initrd", disk, "-append", "root=/dev/vda ro console=ttyS0 panic=0",
             "-drive", f"file={WORK}/root.img,if=virtio,format=raw,snapshot=on",
             "-drive", f"file={WORK}/var.img,if=virtio,format=raw,snapshot=on",
             "-serial", f"file:{WORK}/console.log", "-serial", "chardev:host", "-chardev", "pty,id=host",
             "-chardev", "pty,id=box", "-device", "usb-serial,chardev=box", "-device", "i6300esb", "-action", "watchdog=reset",
             "-device", "virtio-serial", "-device", "virtserialport,chardev=shell,name=shell",
             "-chardev", f"socket,id=shell,path={WORK}/shell,server=on,wait=off",
             "-qmp", f"unix:{WORK}/qmp,server=on,wait=off"], stdin=subprocess.DEVNULL)
        self.events = []
        self.monitor = self.connect("qmp")
        self.monitor.readline()
        self.qmp("qmp_capabilities")
        self.shell = self.connect("shell")

    def connect(self, name):
        for _ in range(100):
            try:
                line = socket.socket(socket.AF_UNIX)
                line.connect(str(WORK / name))
                line.settimeout(900)
                return line.makefile("rw")
            except OSError:
                time.sleep(0.1)
        raise SystemExit("the machine does not start")

    def qmp(self, name, **arguments):
        self.monitor.write(json.dumps({"execute": name, "arguments": arguments}) + "\n")
        self.monitor.flush()
        while True:
            answer = json.loads(self.monitor.readline())
            if "event" not in answer:
                return answer["return"]
            self.events.append(answer["event"])

    def reply(self):
        """Returns the status of the shell's command and its output."""
        text = ""
        while not (line := self.shell.readline()).startswith("== "):
            if not line:
                raise SystemExit("the machine has ended")
            text += line.replace("\r", "")
        return int(line[3:]), text

    def sh(self, command):
        self.shell.write(command + "\n")
        self.shell.flush()
        return self.reply()

    def line(self, name):
        """Returns the pseudo-terminal of a serial line."""
        return next(row["filename"].removeprefix("pty:") for row in self.qmp("query-chardev") if row["label"] == name)

    def picture(self):
        path = WORK / "screen.png"
        self.qmp("screendump", filename=str(path), format="png")
        return Image.open(path).convert("RGB")


def until(what, condition, seconds=300):
    """Fails unless the condition becomes true in time; prints how long it took."""
    begin = time.monotonic()
    while not condition():
        if time.monotonic() - begin > seconds:
            raise SystemExit(f"device: never: {what}")
        time.sleep(0.5)
    print(f"device: {what} ({time.monotonic() - begin:.0f} s)", flush=True)


def must(what, good, *shown):
    if not good:
        raise SystemExit(f"device: not so: {what}\n" + "\n".join(map(str, shown)))
    print(f"device: {what}", flush=True)


def host(*words):
    subprocess.run(["/usr/bin/python3", "-m", "zof_host", "--port", HOST_LINE, "--project",
                    PANEL / "res", "--timeout", "10000", *words], check=True, timeout=60)


def shows(name, top=0):
    """Returns whether the screen is the panel's picture between black bars, from the row `top` on."""
    want = Image.new("RGB", (WIDTH, HEIGHT))
    want.paste(Image.open(WORK / f"{name}.png").convert("RGB"), (0, TOP))
    part = (0, top, WIDTH, HEIGHT)
    return guest.picture().crop(part).tobytes() == want.crop(part).tobytes()


def tap(x, y):
    """Taps on a pixel of the panel."""
    guest.sh(f"echo {x * 1000 // WIDTH} {(y + TOP) * 1000 // HEIGHT} >/tmp/touch")


def power():
    return guest.sh("cat /sys/class/drm/card0-*/dpms")[1].strip()


def service(name):
    return guest.sh(f"systemctl show -P {name} zof_bench")[1].strip()


def restarts(what, signal):
    before = int(service("NRestarts"))
    guest.sh(f"kill -{signal} $(systemctl show -P MainPID zof_bench)")
    until(what, lambda: int(service("NRestarts")) > before and service("ActiveState") == "active")


def install_test():
    """Installs the packages on the device, as docs/small_board.md says."""
    for command in ("mount -o remount,rw /", "apt-get install -qq -y --no-install-recommends /srv/zof-bench.deb /srv/zof-tools.deb",
                    "systemctl enable --now zof_bench", "udevadm control --reload", "udevadm trigger -s tty",
                    "mount -o remount,ro /"):
        status, text = guest.sh(command)
        must(command, status == 0, text)
    must("the root is read-only", guest.sh("touch /usr/x")[0] != 0)


def screen_test():
    until("the service starts", lambda: service("ActiveState") == "active")
    until("the panel fills the screen, with black above and below", lambda: shows("output"))
    guest.sh("modprobe uinput; mkfifo /tmp/touch; (sleep 10000 >/tmp/touch &); (touch_screen </tmp/touch >/dev/null 2>&1 &)")
    time.sleep(3)
    tap(560, 456)
    until("a tap on a touch screen that was plugged in shows the page under it", lambda: shows("settings"))
    planes = guest.sh("cat /sys/kernel/debug/dri/0/state")[1]
    must("there is no cursor", len(re.findall(r"\bfb=[1-9]", planes)) == 1, planes)


def doctor_test():
    nobody = "setpriv --reuid 1000 --regid 1000 --clear-groups zof doctor"
    text = guest.sh(nobody)[1]
    wanted = [r"wrong +display +/dev/dri/card0: no permission\n +sudo usermod -aG video", r"usermod -aG input",
              r"ok +backlight none", r"wrong +media +.*not installed.*\n +sudo apt-get install .*libavcodec", r"usermod -aG dialout"]
    must("zof doctor says what a user may not open", all(re.search(row, text) for row in wanted), text)
    text = guest.sh(nobody.replace("--clear-groups", "--groups video,input,dialout"))[1]
    must("zof doctor says that the display is in use", "ok     display   /dev/dri/card0" in text and "systemctl stop" in text, text)
    grade = re.search(r"exposure level for \S+ ([\d.]+)", guest.sh("systemd-analyze security --no-pager zof_bench")[1])
    must(f"the unit drops what the panel does not need: exposure {grade[1]}", float(grade[1]) <= 2)


def light_test():
    host("set", "system.bright", "0")
    until("brightness 0 switches the display off", lambda: power() == "Off")
    host("set", "system.bright", "100")
    until("another switches it on", lambda: power() == "On" and shows("settings"))
    host("set", "system.standby", "0", "2", "50", "2", "0", "100", "0")
    until("standby switches the display off", lambda: power() == "Off")
    tap(400, 240)
    until("a touch switches it on", lambda: power() == "On")
    # No graphics adapter of the machine has a backlight: a folder takes its place where sysfs has one.
    guest.sh("mount -t tmpfs none /sys/devices/breakpoint; mount -t tmpfs none /sys/class/backlight")
    guest.sh(f"mkdir /sys/devices/breakpoint/lcd; ln -s /sys/devices/breakpoint/lcd {LIGHT}; cd {LIGHT}; echo 400 >max_brightness;"
             " echo 7 >brightness; echo platform >type; chgrp video brightness; chmod 664 brightness; systemctl restart zof_bench")
    until("the panel switches a backlight on", lambda: guest.sh(f"cat {LIGHT}/brightness")[1].strip() == "400")
    until("the panel draws again", lambda: service("ActiveState") == "active")
    host("set", "system.bright", "40")
    until("the backlight follows the brightness", lambda: guest.sh(f"cat {LIGHT}/brightness")[1].strip() == "160")


def box_test():
    with subprocess.Popen([BOARD, "--tty", guest.line("box"), "--no-noise"], stdout=subprocess.DEVNULL) as board:
        try: # the machine sees the adapter when its line is opened
            until("an adapter that is plugged in gets its name, and the panel opens it",
                  lambda: "port 6: /dev/zof_bench at 115200 baud" in guest.sh("journalctl -b --no-pager -u zof_bench")[1])
            must("ModemManager leaves it alone",
                 "ID_MM_PORT_IGNORE=1" in guest.sh("udevadm info -q property /dev/zof_bench")[1])
        finally:
            board.kill()


def fault_test():
    restarts("a panel that is killed is started again", "KILL")
    restarts("a panel that hangs is started again", "STOP")
    text = guest.sh("journalctl -b --no-pager --grep watchdog")[1]
    must("the hardware watchdog is fed", "Using hardware watchdog" in text and "WATCHDOG" not in guest.events, text, guest.events)
    guest.shell.write("echo 0 >/proc/sys/kernel/panic; echo c >/proc/sysrq-trigger\n")
    guest.shell.flush()
    until("the hardware watchdog restarts the machine when the kernel fails",
          lambda: guest.qmp("query-status") is not None and "WATCHDOG" in guest.events)
    until("the panel starts with the machine", lambda: shows("output", TABS), 900)


images_make()
guest = Guest()
try:
    HOST_LINE = guest.line("host")
    guest.reply()
    for test in install_test, screen_test, doctor_test, light_test, box_test, fault_test:
        test()
except SystemExit:
    if guest.process.poll() is None:
        guest.picture().save(KEPT.parent / "device-failed.png")
    raise
finally:
    guest.process.kill()
    guest.process.wait()
