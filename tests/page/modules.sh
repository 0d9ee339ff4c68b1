# Installs the modules that pages and their tests need, once for each lock file, and sets $modules to their folder. To be sourced.
page=build/ship-design-$(sha256sum tools/zof/design/page/package-lock.json | cut -c1-16)
rm -rf "$page/src"
mkdir -p "$page"
(cd tools/zof/design/page && tar cf - --exclude=node_modules --exclude=dist .) | tar xf - -C "$page"
if [ ! -e "$page/installed" ]; then
    (cd "$page" && npm ci --no-audit --no-fund) >"$work/npm.log" 2>&1 || fail "npm ci"
    touch "$page/installed"
fi
modules=$PWD/$page/node_modules
