# Shared by the tests that need an empty Debian, to be sourced after lib.sh.

# Makes a root of the release that this machine runs, with packages from this machine's sources.   debian_root TAR PACKAGES OPTION...
debian_root() {
    root_tar=$1
    root_packages=$2
    shift 2
    apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' 'Origin: Debian' | sort -u >"$work/sources"
    mmdebstrap --quiet --variant=minbase --include="$root_packages" --aptopt='Acquire::Check-Valid-Until "false"' "$@" \
        "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$root_tar" "$work/sources" >"$work/mmdebstrap.log" 2>&1 ||
        { rm -f "$root_tar"; fail "the root $root_tar cannot be made"; }
}
