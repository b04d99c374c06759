# shellcheck shell=bash
# To be sourced beside checks.bash: what a program or shared library may not lack, read from the file.

# search_path FILE: prints the RPATH and RUNPATH entries of the file, one per line. An empty line is
# the directory in which the program is started.
search_path() {
    readelf -dW "$1" | sed -n -E 's/.*\((RPATH|RUNPATH)\).*\[(.*)\]$/\2:/p' | tr : '\n' | head -n -1
}

# An entry must be absolute or relative to the file itself.
has_safe_search_path() {
    # shellcheck disable=SC2016 # the linker's name, not a variable
    ! search_path "$1" | grep -qvE '^(/|\$ORIGIN(/|$))'
}

is_position_independent() {
    local file
    file="$(readelf -hdW "$1")"
    [[ "$file" =~ Type:\ +DYN ]] && { [[ "$1" == *.so* ]] || [[ "$file" == *PIE* ]]; }
}

# Relocations are read-only before the program runs (full RELRO).
has_fixed_addresses() {
    [[ "$(readelf -lW "$1")" == *GNU_RELRO* && "$(readelf -dW "$1")" =~ BIND_NOW|FLAGS_1.*NOW ]]
}

has_no_executable_stack() {
    readelf -lW "$1" | grep -qE 'GNU_STACK.* RW +0x'
}

# entry_of FILE: prints one of our functions in it that is called by its address.
entry_of() {
    if [[ "$1" == *.so* ]]; then
        nm -D --defined-only "$1" | awk '$2 == "T" { print $3; exit }'
    else
        echo main
    fi
}

# Checks the machine code: the linker marks a file as protected only if all of its objects are,
# which the C library's start-up code is not everywhere.
has_marked_jump_targets() {
    [[ "$(uname -m)" != x86_64 ]] ||
        [[ "$(objdump -d --no-show-raw-insn --disassemble="$(entry_of "$1")" "$1")" =~ \>:$'\n'[^$'\n']*endbr64 ]]
}

# check_elf_file FILE
check_elf_file() {
    check "libraries are looked for in absolute directories alone" has_safe_search_path "$1"
    check "it can be loaded anywhere" is_position_independent "$1"
    check "addresses are fixed at its start" has_fixed_addresses "$1"
    check "its stack is not executable" has_no_executable_stack "$1"
    check "its jumps are protected" has_marked_jump_targets "$1"
}
