#!/bin/sh
# Compiles the firmware library like its users and checks the sizes in its README, with a tolerance of 2 % for other
# compilers.   usage: sizes.sh SOURCE_FOLDER WORK_FOLDER
set -eu
c=$1/clients/c work=$2
flags="-Os -Wall -Wextra -Wpedantic -Werror -I$c"
mkdir -p "$work"
cd "$work"
gcc -std=c99 $flags -c "$c/zof_host.c" -o c.o
g++ -std=c++11 $flags -x c++ -c "$c/zof_host.c" -o cpp.o
avr="avr-gcc -std=c99 -mmcu=atmega328p -ffunction-sections -fdata-sections $flags"
$avr -c "$c/zof_host.c" -o avr.o
$avr -Wl,--gc-sections "$c/example/avr_main.c" "$c/zof_host.c" -o avr.elf
printf '#include "zof_host.h"\nzof_host_t host;\n' | avr-gcc -fno-common -mmcu=atmega328p -I"$c" -x c -c - -o struct.o

bad=0
# A row of the README: | WORDS | flash | RAM |; `size` prints text, data and bss.
row() {
    what=$1 file=$2
    set -- $(avr-size "$file" | tail -1)
    flash=$(($1 + $2)) ram=$(($2 + $3))
    echo "$what: flash $flash, RAM $ram bytes"
    said=$(sed -n "s/^| $what | \([0-9]*\) | \([0-9]*\) |$/\1 \2/p" "$c/README.md")
    set -- $said
    if [ $# -ne 2 ] || [ $((flash * 100)) -gt $(($1 * 102)) ] || [ $((ram * 100)) -gt $(($2 * 102)) ]; then
        echo "clients/c/README.md says \"$said\" in its row \"$what\"" >&2
        bad=1
    fi
}
row "the library" avr.o
row "one host" struct.o
row "the whole example" avr.elf
exit $bad
