#!/bin/sh
# zof font: cuts a font to a project's letters and icons, which the project then shows.
#      usage: font.sh BUILD_FOLDER SOURCE_FOLDER FONT
. "$(dirname "$0")/lib.sh"
zof=$1/tools/zof
font=$3
cp -r "$2/examples/blank/res" "$work/res"
cd "$work"
view=res/config/view/main.g
sed -i 's/"Press me"/"#press"/; s/"txt_t": {/"txt_t": {"font_lib": "cut.ttf", /' $view
mkdir res/config/languages
echo '{"press": ":ampersand: Press 漢"}' >res/config/languages/en.g
sed -i 's/"start_page"/"language": "en", "start_page"/' res/config/project/zofprj.g

# Adds the font; fails unless it ends with this status and says this.
adds() {
    status=0
    "$zof" font add "$font" --name cut.ttf --project res --icons "$2" >out.log 2>&1 || status=$?
    [ $status -eq "$1" ] || fail "ended with $status, not $1"
    grep -qF -- "$3" out.log || fail "there is no \"$3\" in:"
}
adds 1 "$font:ampersan" "no icon ampersan; did you mean ampersand?"
adds 1 "$font:a b" "cannot be a name in texts"
adds 1 "/dev/null:a" "/dev/null: "
adds 1 "nowhere.ttf:a" "nowhere.ttf: No such file or directory"
[ ! -e res/font/cut.ttf ] && [ ! -e res/config/icons.g ] || fail "a failed run has written files"
adds 1 "$font:ampersand" "config/languages/en.g:1:11: warning: $font has no U+6F22"
echo '{"press": ":ampersand: Press"}' >res/config/languages/en.g
adds 0 "$font:ampersand" ":ampersand: U+E000"
cp res/font/cut.ttf first.ttf
cp res/config/icons.g first.g
adds 0 "$font:ampersand" "KiB"
cmp res/font/cut.ttf first.ttf && cmp res/config/icons.g first.g || fail "a second run has changed the files"
[ "$(wc -c <first.ttf)" -lt 20000 ] || fail "the font has more than the letters"
adds 0 "$font:percent" "config/languages/en.g:1:11: note: the icon :ampersand: is not among --icons"
/usr/bin/python3 - "$font" <<END || fail "no font without points on the curve"
import sys
from fontTools.ttLib import TTFont
font = TTFont(sys.argv[1])
font["glyf"]["percent"].flags = bytearray(len(font["glyf"]["percent"].getCoordinates(font["glyf"])[2]))
font.save("off.ttf")
END
adds 0 "off.ttf:percent" ":percent: U+E001"
cp first.ttf res/font/cut.ttf
"$zof" check res || fail "the project has findings"
"$zof" view res --log --shot shot.png >out.log 2>&1 || fail "the project cannot be shown"
! grep -q "cut.ttf" out.log || fail "the font lacks something"
