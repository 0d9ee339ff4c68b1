#!/bin/sh
# The C library is an Arduino library: what describes it is complete, and its example is built for two boards as the
# Arduino tools build it: from a copy of the folder alone, with the core's headers and flags; it fits; and on a simulated
# Uno it drives a panel.
#   usage: arduino.sh BUILD      the release build
cd "$(dirname "$0")/../.."
. tests/system/lib.sh
core=/usr/share/arduino/hardware/arduino/avr
library=$work/libraries/zof_host
mkdir -p "$work/libraries"
cp -r clients/c "$library"
for key in name version author maintainer sentence paragraph category url architectures; do
    grep -q "^$key=." "$library/library.properties" || fail "library.properties has no $key"
done

# Of a library without a folder src, the sources in its top folder are compiled.   build BOARD MCU VARIANT FLASH RAM
build() {
    out=$work/$1
    mkdir -p "$out"
    flags="-mmcu=$2 -DF_CPU=16000000L -DARDUINO=10819 -DARDUINO_$1 -DARDUINO_ARCH_AVR -I$core/cores/arduino -I$core/variants/$3 -I$library -c -Os -Wall -Wextra
           -ffunction-sections -fdata-sections -flto -fno-fat-lto-objects"
    # Debian's compiler is older than the core, whose texts need a constant that it has only under another name.
    cpp="avr-g++ $flags -DDECIMAL_DIG=__DECIMAL_DIG__ -std=gnu++11 -fpermissive -fno-exceptions -fno-threadsafe-statics"
    for source in "$core"/cores/arduino/*.c "$core"/cores/arduino/*.S "$library"/*.c; do
        case $source in "$library"/*) strict=-Werror ;; *) strict=-w ;; esac
        avr-gcc $flags -std=gnu11 $strict "$source" -o "$out/$(basename "$source").o" || return 1
    done
    for source in "$core"/cores/arduino/*.cpp; do $cpp -w "$source" -o "$out/$(basename "$source").o" || return 1; done
    { echo '#include <Arduino.h>' && cat "$library/examples/Panel/Panel.ino"; } >"$out/sketch.cpp"
    $cpp -Werror "$out/sketch.cpp" -o "$out/sketch.o" || return 1
    avr-gcc -Os -flto -fuse-linker-plugin -Wl,--gc-sections -mmcu="$2" "$out"/*.o -lm -o "$out/sketch.elf" || return 1
    set -- "$@" $(avr-size "$out/sketch.elf" | tail -1) # text, data, bss
    echo "$1: $(($6 + $7)) bytes of flash, $(($7 + $8)) of RAM"
    [ $(($6 + $7)) -le "$4" ] && [ $(($7 + $8)) -le $(($5 * 3 / 4)) ]
}
build AVR_UNO atmega328p standard 32256 2048 || fail "the example cannot be built for an Uno"
build AVR_MEGA2560 atmega2560 mega 253952 8192 || fail "the example cannot be built for a Mega"

# The example's panel: the label and the slider that it names. The player creates the controls of the first view before it
# opens the line, so they report nothing; those of the other are created by the first command.
mkdir "$work/panel"
cp -r examples/blank/res "$work/panel"
echo '{"hmi_en": 1, "uart": {"win_port": 4, "speed_e": 6, "bit_e": 1}, "head_fh": 90, "head_fl": 165, "buffsize": 4096, "event_en": 1, "load_en": 1}' \
    >"$work/panel/res/config/project/zofhmi.g"
cat >"$work/panel/res/config/view/main.g" <<'EOF'
{
    "view": {"v_name": "main", "v_id": 1},
    "controls": [
        {"type": "label", "theme": "night", "property": {
            "pub_t": {"name": "volts", "id": 5, "pt": {"x": 40, "y": 50}, "size": {"width": 400, "height": 80}, "alpha": 255}}},
        {"type": "slider", "theme": "night", "property": {
            "pub_t": {"name": "level", "id": 9, "pt": {"x": 50, "y": 200}, "size": {"width": 300, "height": 20}, "t_mode": "touch", "alpha": 255},
            "minValue": 0, "maxValue": 100}}
    ]
}
EOF
echo '{"view": {"v_name": "start", "v_id": 2}, "controls": []}' >"$work/panel/res/config/view/start.g"
sed -i 's/"start_page": 1/"start_page": 2/; s/"main.g"}/"main.g"}, {"pageId": 2, "pageName": "start.g"}/' "$work/panel/res/config/project/zofprj.g"
cc -Wall -Wextra -Werror -isystem /usr/include/simavr -isystem /usr/include/simavr/parts tests/clients/avr_board.c -o "$work/avr_board" \
    -lsimavrparts -lsimavr -lutil -lpthread
start board "$work/avr_board" "$work/AVR_UNO/sketch.elf"
expect "$work/board.log" "^line "
mkfifo "$work/lines"
ZOF_COM4=$(sed -n 's/^line //p' "$work/board.log") "$1/tools/zof_player" --live <"$work/lines" >"$work/player.log" 2>&1 &
pids="$pids $!"
exec 3>"$work/lines"
say() { echo "$1" >&3; }
finger() { say "{\"do\": \"pointer\", \"x\": $1, \"y\": 210, \"down\": $2}"; }
say "{\"do\": \"load\", \"dir\": \"$work/panel\"}"
say '{"do": "link"}'
for try in $(seq 200); do
    say '{"do": "tree", "view": "main"}'
    ! grep -q '"text":"2.50"' "$work/player.log" || break
    sleep 0.1
done
expect "$work/player.log" '"text":"2.50"'
say '{"do": "show", "view": "main"}'
finger 52 true
expect "$work/board.log" "led 1"
finger 120 true
finger 210 true
expect "$work/board.log" "pwm 1[0-9][0-9] led 1"
finger 210 false
expect "$work/board.log" "led 0"
echo "arduino: built for Uno and Mega; on a simulated Uno it shows a voltage and follows a slider"
