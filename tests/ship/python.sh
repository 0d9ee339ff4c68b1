#!/bin/sh
# The Python library installs with pip from its folder, with its types, which are sound for every Python that it supports;
# and drives a panel.
#   usage: python.sh BUILD      the release build
cd "$(dirname "$0")/../.."
. tests/system/lib.sh
export PIP_DISABLE_PIP_VERSION_CHECK=1 MYPY_CACHE_DIR="$work/cache"
cp -r clients/python "$work/source"
for version in 3.9 3.10 3.11 3.12 3.13; do
    (cd "$work/source" && mypy --python-version $version) >"$work/mypy.log" 2>&1 || fail "mypy for Python $version"
done
/usr/bin/python3 -m venv "$work/venv"
"$work/venv/bin/pip" install --quiet --no-cache-dir "$work/source" >"$work/pip.log" 2>&1 || fail "pip cannot install it"
rm -r "$work/source"

# A user's program is checked against the types that are installed.
printf 'from zof_host import Panel, rows\nwith Panel.open("p") as panel:\n    n: int = panel.read(rows.SLIDER_VALUE, view=1, control=2)\n' >"$work/good.py"
sed 's/n: int/n: str/' "$work/good.py" >"$work/bad.py"
types() { mypy --strict --python-executable "$work/venv/bin/python" "$work/$1.py" >"$work/mypy.log" 2>&1; }
types good || fail "its types are not installed"
! types bad || fail "a wrong type is not found"

start bench env -u DISPLAY -u WAYLAND_DISPLAY PYTHONDONTWRITEBYTECODE=1 tests/clients/bench_panel.py "$1"
expect "$work/bench.log" " get view.size"
port=$(sed -n 's/.*--port \([^ ]*\) .*/\1/p' "$work/bench.log") project=$(sed -n 's/.*--project \([^ ]*\) .*/\1/p' "$work/bench.log")
host() { (cd / && "$work/venv/bin/zof-host" --port "$port" --project "$project" "$@") 2>"$work/host.log"; }
[ "$(host get view.size)" = "width=800 height=480" ] || fail "the panel does not answer"
host set slider.value settings/slider0 55 && [ "$(host get slider.value settings/slider0)" = 55 ] || fail "a value does not arrive"
echo "python: installed by pip, typed for 3.9 to 3.13, drives a panel"
