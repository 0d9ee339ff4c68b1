# Libraries for another system, built from the sources of the distribution that this machine runs, so that they have the
# versions and patches of the libraries that the Linux programs load, and letters have the same pixels. apt checks the
# sources by checksum against the signed index; dpkg-source checks them once more when it unpacks. For scripts:
#   sources_begin SCRIPT FOLDER [JOBS]   ends the script if FOLDER/root is what SCRIPT has built
#   sources_fetch PACKAGE...             unpacks source packages into FOLDER/src
#   sources_cmake NAME OPTION...         builds FOLDER/src/NAME-* with CMake into FOLDER/root
#   sources_end                          keeps the licences, and removes the rest
fail() { tail -n 15 "$folder/build.log" >&2; echo "$(basename "$script"): $*; see $folder/build.log" >&2; exit 1; }
log() { "$@" >>"$folder/build.log" 2>&1; }

need() {
    for program; do
        command -v "$program" >/dev/null || { echo "$(basename "$script"): $program is missing; run tools/packages ship" >&2; exit 2; }
    done
}

sources_begin() {
    script=$1
    mkdir -p "$2"
    folder=$(cd "$2" && pwd)
    jobs=${3:-$(nproc)}
    root=$folder/root
    stamp=$root/built-by
    wanted=$(cat "$script" "$(dirname "$script")/../sources.sh" | sha256sum)
    [ "$(cat "$stamp" 2>/dev/null)" != "$wanted" ] || exit 0
    need dpkg-source cmake ninja
    : >"$folder/build.log"
    rm -rf "$folder/src" "$folder/build" "$root"
}

# Package lists of its own, for sources: the machine's settings stay as they are, and it works without root.
sources_fetch() {
    apt=$folder/apt
    packages=$*
    mkdir -p "$apt/lists/partial" "$apt/archives/partial" "$apt/sources" "$folder/src"
    for list in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [ ! -f "$list" ] || sed -n '/^deb .*\/debian/s/^deb /deb-src /p' "$list" >"$apt/sources/$(basename "$list" .list).list"
    done
    for list in /etc/apt/sources.list.d/*.sources; do
        [ ! -f "$list" ] || ! grep -q 'URIs:.*/debian' "$list" || sed 's/^Types:.*/Types: deb-src/' "$list" >"$apt/sources/$(basename "$list")"
    done
    set -- -o Dir::Etc::sourcelist=/dev/null -o "Dir::Etc::sourceparts=$apt/sources" -o "Dir::State::lists=$apt/lists" \
        -o "Dir::Cache=$apt" -o APT::Sandbox::User=
    log apt-get "$@" update || fail "the package lists cannot be fetched"
    # shellcheck disable=SC2086
    (cd "$folder/src" && log apt-get "$@" source --only-source $packages) || fail "the sources cannot be fetched"
    rm -rf "$apt"
}

sources_cmake() {
    source=$(echo "$folder/src/$1"-*/)
    echo "Libraries: $(basename "$source")"
    name=$1
    shift
    log cmake -S "${source%/}" -B "$folder/build/$name" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$(dirname "$script")/compilers.cmake" \
        -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$root" -DBUILD_SHARED_LIBS=OFF "$@" || fail "$name cannot be configured"
    log ninja -C "$folder/build/$name" -j "$jobs" install || fail "$name cannot be built"
}

sources_end() {
    for package in "$folder"/src/*/debian/copyright; do
        name=$(basename "$(dirname "$(dirname "$package")")")
        mkdir -p "$root/licences" && cp "$package" "$root/licences/${name%%-[0-9]*}.txt"
    done
    rm -rf "$folder/src" "$folder/build"
    echo "$wanted" >"$stamp"
}
