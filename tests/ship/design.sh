#!/bin/sh
# The page of zof design is in order: types, lint, layout; and people's stories on it, in a browser against
# the program itself, leave the bytes that were meant.
#   usage: design.sh BUILD      the release build; CHROMIUM names another browser than /usr/bin/chromium
cd "$(dirname "$0")/../.."
. tests/system/lib.sh
build=$(cd "$1" && pwd)
# The page is checked in a copy beside the modules.
. tests/page/modules.sh
(cd "$page" && npm run check) >"$work/check.log" 2>&1 || fail "npm run check"

export ZOF_BUILD=$build ZOF_MODULES=$modules
timeout 900 node --test tests/page/ >"$work/stories.log" 2>&1 || fail "a story fails"
grep -q '^# fail 0' "$work/stories.log" || fail "no stories were run"
echo "design: $(sed -n 's/^# pass //p' "$work/stories.log") stories of the page, accessible in light and dark"
node tests/page/pointer.mjs || echo "design: no figures, the machine is too busy"
