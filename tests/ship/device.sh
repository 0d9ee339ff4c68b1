#!/bin/sh
# Installs the panel on a device without a desktop: a virtual machine with a graphics adapter, a touch screen, serial
# ports and a hardware watchdog, whose root is Debian, read-only. apt installs the packages in it; the panel is a service
# and draws by KMSDRM. See device/guest.py for what is tested. The root is made once and kept in build/device.
#   usage: device.sh NATIVE_BUILD      the release build of this machine
cd "$(dirname "$0")/../.."
. tests/system/lib.sh
. tests/system/root.sh
native=$(cd "$1" && pwd)
kept=$PWD/build/device

# What the panel's package depends on, and what the page on small boards adds to it.
packages=libsdl2-2.0-0,libfreetype6,libcjson1,$(sed -n 's/^sudo apt-get install //p' docs/small_board.md | head -1 | tr ' ' ,)
[ "${packages%,}" = "$packages" ] || fail "the page has no list of packages"
if [ "$(cat "$kept/packages" 2>/dev/null)" != "$packages" ]; then
    rm -rf "$kept"
    mkdir -p "$kept"
    # The initial RAM disk has only what mounts the root: the machine's disks are virtual.
    debian_root "$kept/root.tar" "systemd-sysv,udev,kmod,initramfs-tools,linux-image-amd64,$packages" --dpkgopt='path-exclude=/usr/share/doc/*' \
        --dpkgopt='path-exclude=/usr/share/locale/*' --dpkgopt='path-exclude=/usr/share/man/*' \
        --essential-hook='mkdir -p "$1/etc/initramfs-tools/conf.d"; echo MODULES=list >"$1/etc/initramfs-tools/conf.d/modules"; printf "virtio_pci\nvirtio_blk\next4\n" >>"$1/etc/initramfs-tools/modules"'
    mkdir "$kept/boot"
    tar -C "$kept/boot" -xf "$kept/root.tar" --strip-components=2 --wildcards './boot/vmlinuz-*' './boot/initrd.img-*'
    echo "$packages" >"$kept/packages"
fi

(cd "$native" && cpack -G DEB -B "$work/packages") >"$work/cpack.log" 2>&1 || fail "cpack fails"
rm "$work"/packages/zof-dev_*.deb
cc -Wall -Wextra -O2 -static -o "$work/touch_screen" tests/ship/device/touch.c
# What the panel draws without a display has to be on the screen, pixel by pixel.
printf 'wait 6000\nshot output.png\ntap 560 456\nwait 1500\nshot settings.png\nquit\n' >"$work/tour"
SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy ZOF_SHOTS=$work ZOF_SCRIPT=$work/tour timeout 60 "$native/panel/zof_bench" \
    --port 6=/dev/zof_bench >"$work/tour.log" 2>&1 || fail "the panel does not run on this machine"

PYTHONDONTWRITEBYTECODE=1 PYTHONPATH=clients/python /usr/bin/python3 tests/ship/device/guest.py "$kept" "$work" \
    "$native" >"$work/guest.log" 2>&1 || fail "the device fails"
cat "$work/guest.log"
