#!/bin/sh
# Writes projects with `zof new`, checks and lints them, and compares a picture of each template with the golden one.
#   usage: new.sh BUILD_FOLDER SOURCE_FOLDER
set -u
export SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy
export LSAN_OPTIONS=suppressions="$2/tests/lsan.supp"
zof=$1/tools/zof golden=$2/tests/screen/golden work=$1/new-test
bad=0
rm -rf "$work"
mkdir -p "$work"
cd "$work" || exit 1
fail() {
    echo "$*"
    bad=1
}

# Templates, sizes and languages; $1 is a font or nothing.
clean() {
    for form in blank dashboard settings; do
        for size in 240x320 320x240 480x320 480x480 480x800 800x480 1024x600; do
            rm -rf panel
            "$zof" new panel --template $form --size $size ${1:+--font "$1"} >out 2>&1 || fail "$form $size: $(cat out)"
            "$zof" check --strict panel >out 2>&1 || fail "$form $size, check: $(cat out)"
            "$zof" lint --strict panel >out 2>&1 || fail "$form $size, lint: $(cat out)"
        done
    done
}
clean ""
clean "$1/panel/res/font/bench-text.ttf"
rm -rf panel
"$zof" new panel --template settings --lang fr --name one >out && grep -q 'fr.g are English' out || fail "fr: $(cat out)"
grep -q languages panel/main.c && fail "a program with one language has a choice of languages"
"$zof" check --strict panel >out 2>&1 || fail "one language: $(cat out)"

for form in blank dashboard settings; do
    "$zof" new my_$form --template $form >out && "$zof" view my_$form --shot $form.png >out 2>&1 || fail "$(cat out)"
    [ "${ZOF_GOLDEN:-}" = write ] && cp $form.png "$golden/new_$form.png"
    cmp $form.png "$golden/new_$form.png" || fail "$work/$form.png is not the golden one; ZOF_GOLDEN=write replaces it"
done

# What is refused, with its message; nothing is written.
refused() {
    message=$1
    shift
    "$zof" new "$@" >out 2>&1 && fail "accepted: $*"
    grep -q -e "$message" out || fail "$*: $(cat out)"
}
refused 'my_blank exists and is not an empty folder' my_blank
: >file
refused 'file exists and is not an empty folder' file
refused 'expected width and height' made --size 800
refused 'expected width and height' made --size 800x480x2
refused 'from 240 to 4096' made --size 100x480
refused 'expected blank, dashboard or settings' made --template none
refused '"EN" is not a language code' made --lang EN
refused 'the language en is there twice' made --lang en,de,en
refused '"2nd-panel" cannot be the name' 2nd-panel
refused 'CMake uses itself' made --name test
refused 'there is no such file' made --font none.ttf
[ ! -e made ] || fail "a refused project was written"
exit $bad
