#!/bin/sh
# Makes the Debian packages and installs them, with apt, into empty roots that know nothing of the build tree: the panel runs as
# nobody from a root that is read-only and shows the pages of the build tree; a project of `zof new` is built with CMake and with
# pkg-config, and its own package runs in the bare root. lintian must find nothing. Prints rows for bench/RESULTS.md.
#   usage: packages.sh NATIVE_BUILD      the release build of this machine
[ "$(id -u)" -eq 0 ] || exec sudo "$0" "$@" # for chroot and mounts
cd "$(dirname "$0")/../.."
. tests/system/lib.sh
. tests/system/root.sh
native=$(cd "$1" && pwd)
cache=$PWD/build/ship
mkdir -p "$cache/archives/partial"
export LC_ALL=C.UTF-8 SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy

# The packages -------------------------------------------------------------------------------------------------------
(cd "$native" && rm -f zof-*.deb zof-*.tar.gz && cpack -G "DEB;TGZ") >"$work/cpack.log" 2>&1 || fail "cpack fails"
lintian --fail-on warning --allow-root "$native"/zof-*.deb >"$work/lintian.log" 2>&1 || fail "lintian finds something"
DESTDIR="$work/installed" cmake --install "$native" --prefix /usr >"$work/install.log"
mkdir "$work/packed" "$work/archived"
for package in "$native"/zof-*.deb; do dpkg-deb -x "$package" "$work/packed"; done
for archive in "$native"/zof-*.tar.gz; do tar -C "$work/archived" --strip-components=1 -xf "$archive"; done
diff -rq "$work/installed/usr" "$work/packed/usr" | grep -v '/usr/bin/.* differ$' >"$work/diff.log" && fail "packages and cmake --install differ" # stripped
diff -rq "$work/packed/usr" "$work/archived" >"$work/diff.log" || fail "packages and archives differ"
for name in bench tools; do
    dpkg-deb -f "$native"/zof-"$name"_*.deb Recommends | grep -q libavcodec || fail "zof-$name does not recommend FFmpeg"
done

# The roots: one bare, one with a compiler; of this machine's sources, kept for a month -----------------------------------
apt-config dump | grep '^Acquire::' | grep -v '::Changelogs' >"$work/apt.conf"
root_make() { # NAME PACKAGE...
    name=$1
    shift
    find "$cache" -name "$name.tar" -mtime +30 -delete
    [ -f "$cache/$name.tar" ] || debian_root "$cache/$name.tar" "ca-certificates $*"
    mkdir "$work/$name"
    tar -C "$work/$name" -xf "$cache/$name.tar"
    cp "$work/apt.conf" "$work/$name/etc/apt/apt.conf.d/00host"
    cp -L /etc/resolv.conf "$work/$name/etc/"
    apt "$name" update
}
# apt in a root, with the packages that earlier runs have downloaded.   apt NAME ARGUMENT...
apt() {
    root=$work/$1
    shift
    cp -ln "$cache"/archives/*.deb "$root/var/cache/apt/archives/" 2>/dev/null || cp -n "$cache"/archives/*.deb "$root/var/cache/apt/archives/" 2>/dev/null || true
    chroot "$root" env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o Dpkg::Options::=--force-unsafe-io "$@" >"$work/apt.log" 2>&1 || fail "apt-get $* fails in $root"
    cp -n "$root"/var/cache/apt/archives/*.deb "$cache/archives/" 2>/dev/null || true
}
# What apt would install: a count, and its size in MB.   needs NAME PACKAGE...
needs() {
    root=$1
    shift
    chroot "$work/$root" apt-get -s --no-install-recommends install "$@" | sed -n 's/^Inst \([^ ]*\) .*/\1/p' | grep -v '^zof-' >"$work/needs"
    printf '%s packages, %s MB' "$(wc -l <"$work/needs")" \
        "$(chroot "$work/$root" apt-cache show --no-all-versions $(cat "$work/needs") | awk '/^Installed-Size:/ {sum += $2} END {printf "%.0f", sum / 1024}')"
}
# A command in the root as nobody, from /, with a root that can only be read; $work/out is its /tmp.   nobody COMMAND...
nobody() {
    unshare --mount sh -c 'root=$1 out=$2; shift 2
        mount --bind "$root" "$root" && mount -o remount,ro,bind "$root" && mount -t proc proc "$root/proc" && mount --bind "$out" "$root/tmp" &&
        exec chroot --userspec=65534:65534 "$root" env -i PATH=/usr/bin:/bin HOME=/nonexistent SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy "$@"' \
        sh "$work/bare" "$work/out" "$@"
}
mkdir -m 777 "$work/out" "$work/native"
root_make bare
root_make maker g++ cmake ninja-build dpkg-dev file pkg-config

# The panel ----------------------------------------------------------------------------------------------------------
cp "$native"/zof-bench_*.deb "$work/bare/zof-bench.deb"
plain=$(needs bare ./zof-bench.deb)
media=$(needs bare ./zof-bench.deb $(dpkg-deb -f "$native"/zof-bench_*.deb Recommends | tr -d ','))
small=$(needs bare ./zof-bench.deb libturbojpeg0)
apt bare --no-install-recommends install ./zof-bench.deb
chroot "$work/bare" dpkg --verify zof-bench >"$work/verify.log" || fail "files of zof-bench are changed or missing"
{
    echo 'wait 1500'
    for page in output:80 rails:240 trend:400 settings:560 about:720; do printf 'tap %s 456\nwait 1500\nshot %s.png\n' "${page#*:}" "${page%:*}"; done
    echo quit
} >"$work/out/tour"
echo quit >"$work/out/quit"
nobody ZOF_SHOTS=/tmp ZOF_SCRIPT=/tmp/tour timeout 60 zof_bench >"$work/panel.log" 2>&1 || fail "the installed panel ended with $?"
(cd "$native/panel" && ZOF_SHOTS=$work/native ZOF_SCRIPT=$work/out/tour timeout 60 ./zof_bench) >"$work/native.log" 2>&1 || fail "the panel of the build ended with $?"
for page in output rails trend settings about; do
    cmp "$work/native/$page.png" "$work/out/$page.png" || fail "the page $page of the installed panel differs"
done
best() { # milliseconds of the fastest of five runs
    for _ in 1 2 3 4 5; do
        begun=$(date +%s%N)
        "$@" >/dev/null 2>&1
        echo $((($(date +%s%N) - begun) / 1000000))
    done | sort -n | head -1
}
started=$(best nobody ZOF_SCRIPT=/tmp/quit zof_bench)
cd "$native/panel"
built=$(best env ZOF_SCRIPT="$work/out/quit" ./zof_bench)
cd - >/dev/null

# A maker's project, from the packages alone -------------------------------------------------------------------------------
cp "$native"/zof-dev_*.deb "$native"/zof-tools_*.deb "$work/maker/"
apt maker --no-install-recommends install $(cd "$work/maker" && ls -d ./zof-*.deb)
cat >"$work/maker/make.sh" <<'END'
set -eux
mount -t proc proc /proc
mkdir /srv/maker
cd /srv/maker
export SDL_VIDEODRIVER=offscreen SDL_AUDIODRIVER=dummy ZOF_STATE=
zof new coffee --template dashboard
zof check --strict coffee
zof lint coffee
cmake -S coffee -B build -G Ninja
cmake --build build
cd build
cpack -G DEB
cd ..
zof ids coffee/res ids.h
cc -I. -o by_pkg_config coffee/main.c $(pkg-config --cflags --libs zof)
printf 'wait 500\nshot page.png\nquit\n' >session
mkdir cmake pkg-config
ZOF_SHOTS=cmake ZOF_SCRIPT=session build/coffee
ZOF_SHOTS=pkg-config ZOF_SCRIPT=session ./by_pkg_config --project coffee/res
cmp cmake/page.png pkg-config/page.png
man -w zof zof_player board_sim 2>/dev/null || ls /usr/share/man/man1/zof.1.gz
END
unshare --mount chroot "$work/maker" sh /make.sh >"$work/maker.log" 2>&1 || fail "a project cannot be made with the packages"
cp "$work"/maker/srv/maker/build/coffee_*.deb "$work/bare/coffee.deb"
dpkg-deb -f "$work/bare/coffee.deb" Recommends | grep -q libavcodec || fail "a maker's package does not recommend FFmpeg"
apt bare --no-install-recommends install ./coffee.deb
cp "$work/maker/srv/maker/session" "$work/out/"
nobody ZOF_SHOTS=/tmp ZOF_SCRIPT=/tmp/session timeout 60 coffee >"$work/coffee.log" 2>&1 || fail "the maker's panel ended with $?"
cmp "$work/maker/srv/maker/cmake/page.png" "$work/out/page.png" || fail "the maker's panel differs on the bare root"
apt bare remove zof-bench coffee
[ ! -e "$work/bare/usr/share/zof_bench" ] || fail "removing the package leaves files"

size() { echo "$(($(stat -c %s "$1") / 1024)) KB, installed $(dpkg-deb -f "$1" Installed-Size) KB"; }
for name in bench tools dev; do echo "| package zof-$name | $(size "$(echo "$native"/zof-${name}_*.deb)") | | |"; done
echo "| package of a maker's panel (template dashboard) | $(size "$work"/maker/srv/maker/build/coffee_*.deb) | | |"
echo "| the installed panel needs, on a bare Debian | $plain | $media, with the FFmpeg that it recommends | |"
echo "| the same, built without FFmpeg | $small | | |"
echo "| start and end of the installed panel, root read-only | $started ms | $built ms, in the build tree | $(echo "$started $built" | awk '{printf "%.2f", $1 / $2}') |"
