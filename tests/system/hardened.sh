# Checks that programs are hardened; to be sourced after lib.sh.   hardened OBJDUMP PROGRAM...
hardened() {
    objdump=$1
    shift
    for program in "$@"; do
        readelf -W -h -l -d --dyn-syms "$program" >"$work/elf.log" || fail "$program: not a program"
        while read -r property text; do
            grep -q -- "$text" "$work/elf.log" || fail "$program: no $property"
        done <<'EOF'
PIE FLAGS_1.* PIE
RELRO GNU_RELRO
early-binding FLAGS_1.* NOW
stack-protector __stack_chk_fail
fortified-calls UND .*_chk[@ ]
EOF
        ! grep 'GNU_STACK.*RWE' "$work/elf.log" || fail "$program: its stack can be executed"
        "$objdump" -d "$program" >"$work/code"
        [ "$(grep -c 'endbr64\|paciasp' "$work/code")" -gt 10 ] || fail "$program: returns and jumps are not protected"
    done
}
