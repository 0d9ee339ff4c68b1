#!/bin/sh
# Every installed program is hardened: position independent, read-only after it has started, with guarded stacks, checked
# calls of the C library, and protected returns and jumps.
#   usage: hardened.sh BUILD      the release build
cd "$(dirname "$0")/../.."
. tests/system/lib.sh
. tests/system/hardened.sh
cmake --install "$1" --prefix "$work/prefix" >"$work/install.log" 2>&1 || fail "the build cannot be installed"
hardened objdump "$work"/prefix/bin/*
# The check itself finds a program that is not.
echo 'int main(void) { return 0; }' >"$work/weak.c"
cc "$work/weak.c" -o "$work/weak"
! (trap - EXIT; hardened objdump "$work/weak" 2>/dev/null) || fail "a program that is not hardened passes"
echo "hardened: $(ls "$work/prefix/bin" | wc -l) programs"
