#!/bin/sh
# The libraries for hosts, which are copied without this tree, state the version of the runtime.
#   usage: versions.sh SOURCE_FOLDER
cd "$1" || exit 2
version=$(sed -n 's/^project(zof VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
for line in "clients/python/pyproject.toml:version = \"$version\"" "clients/c/library.properties:version=$version"; do
    grep -qxF -- "${line#*:}" "${line%%:*}" || { echo "${line%%:*}: the version is not $version, as in CMakeLists.txt" >&2; exit 1; }
done
