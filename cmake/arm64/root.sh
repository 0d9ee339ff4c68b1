#!/bin/sh
# Makes a folder with the libraries and headers of a 64-bit ARM machine that runs this machine's distribution. Programs are
# built against it, and run in it under qemu. The packages come from the sources of this machine, whose apt settings stay as
# they are; apt checks them by checksum against the signed index. Needs no root.
#   usage: root.sh FOLDER       afterwards everything is in FOLDER/root; does nothing if it is there
set -eu
mkdir -p "$1"
folder=$(cd "$1" && pwd)
here=$(cd "$(dirname "$0")" && pwd)
root=$folder/root
wanted=$(sha256sum <"$here/root.sh")
[ "$(cat "$folder/built-by" 2>/dev/null)" != "$wanted" ] || exit 0

for program in aarch64-linux-gnu-g++ dpkg-deb; do
    command -v $program >/dev/null || { echo "root.sh: $program is missing; run tools/packages ship" >&2; exit 2; }
done
log() { "$@" >>"$folder/root.log" 2>&1 || { tail -n 15 "$folder/root.log" >&2; echo "root.sh: see $folder/root.log" >&2; exit 1; }; }
: >"$folder/root.log"
echo "Packages for arm64: $root"

# An apt of its own architecture, which thinks that nothing is installed.
apt=$folder/apt
rm -rf "$apt" "$root"
mkdir -p "$apt/lists/partial" "$apt/archives/partial" "$root/usr/lib" "$root/usr/bin" "$root/usr/sbin"
: >"$apt/status"
set -- -o APT::Architecture=arm64 -o APT::Architectures=arm64 -o APT::Install-Recommends=no -o APT::Sandbox::User= -o Debug::NoLocking=1 \
    -o "Dir::State::status=$apt/status" -o "Dir::State::lists=$apt/lists" -o "Dir::Cache=$apt"
log apt-get "$@" update
log apt-get "$@" install -y --download-only libc6-dev libsdl2-dev libavformat-dev libavcodec-dev libswscale-dev libswresample-dev \
    libfreetype-dev libcjson-dev libcli11-dev libboost-dev doctest-dev libstdc++6

# A machine has /lib and the like as links. Links to absolute paths would lead to this machine's files.
for name in lib bin sbin; do ln -s usr/$name "$root/$name"; done
for package in "$apt"/archives/*.deb; do
    dpkg-deb --fsys-tarfile "$package" | tar -x -C "$root" --keep-directory-symlink --no-same-owner \
        --exclude=./usr/share/doc --exclude=./usr/share/man --exclude=./usr/share/locale
done
find "$root/usr/lib" -lname '/*' | while read -r link; do
    ln -sfnr "$root$(readlink "$link")" "$link"
done
rm -rf "$apt"
echo "$wanted" >"$folder/built-by"
