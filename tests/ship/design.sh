#!/bin/sh
# The page of zof design is in order: types, lint, layout; and people's stories on it, in a browser against
# the program itself, leave the bytes that were meant.
#   usage: design.sh BUILD      the release build; CHROMIUM names another browser than /usr/bin/chromium
cd "$(dirname "$0")/../.."
. tests/system/lib.sh
build=$(cd "$1" && pwd)
source=tools/zof/design/page

# The modules are installed once for each lock file; the page is checked in a copy beside them.
copy=build/ship-design-$(sha256sum $source/package-lock.json | cut -c1-16)
rm -rf "$copy/src"
mkdir -p "$copy"
(cd $source && tar cf - --exclude=node_modules --exclude=dist .) | tar xf - -C "$copy"
if [ ! -e "$copy/installed" ]; then
    (cd "$copy" && npm ci --no-audit --no-fund) >"$work/npm.log" 2>&1 || fail "npm ci"
    touch "$copy/installed"
fi
(cd "$copy" && npm run check) >"$work/check.log" 2>&1 || fail "npm run check"

export ZOF_BUILD=$build ZOF_MODULES=$PWD/$copy/node_modules
timeout 900 node --test tests/page/ >"$work/stories.log" 2>&1 || fail "a story fails"
grep -q '^# fail 0' "$work/stories.log" || fail "no stories were run"
echo "design: $(sed -n 's/^# pass //p' "$work/stories.log") stories of the page, accessible in light and dark"
node tests/page/pointer.mjs || echo "design: no figures, the machine is too busy"
