# shellcheck shell=bash disable=SC2154
# To be sourced by in-namespace: makes a private root for machines that allow no namespaces. It is
# a directory. fakechroot, preloaded into each program, maps absolute paths into it, except those
# in "excluded", which stay the machine's. The functions are those of bubblewrap-functions.bash; see
# docs/DEVELOPING.md for their limits.

root=""
excluded=""
placeholder_dirs=()
placeholder_files=()
start_dir=""
# Drops root's capabilities, if setpriv is allowed to.
drop_power=(--inh-caps=-all --bounding-set=-all)
without_power=()

# The same devices as with bubblewrap.
devices=(null zero full random urandom tty ptmx pts fd stdin stdout stderr)

# give_up REASON: ends the script, as a private root cannot be made.
give_up() {
    fail "$lack, and fakechroot cannot stand in for them, since $1; $remedy"
}

begin_root() {
    local device
    if setpriv "${drop_power[@]}" true 2>/dev/null; then
        without_power=(setpriv "${drop_power[@]}")
    fi
    [[ -z "${FAKECHROOT_BASE-}" ]] || give_up "it runs already"
    root="$(mktemp -d /tmp/scribon-root.XXXXXX)"
    watch_over_root
    make_shared_memory
    keep /proc
    for device in "${devices[@]}"; do
        keep "/dev/$device"
    done
    cc -shared -fPIC -O1 -o "$root/fake-root.so" "$scripts/fake-root.c" 2>/dev/null ||
        give_up "there is no C compiler for what is preloaded with it"
}

# On the machine's /dev/shm if possible, where sparse files take no memory.
make_shared_memory() {
    local shared="/dev/shm/${root##*/}"
    mkdir "$root/dev"
    if mkdir -m 0700 "$shared" 2>/dev/null; then
        ln -s "$shared" "$root/dev/shm"
    else
        mkdir "$root/dev/shm"
    fi
}

# Starts end-fake-root, which cleans up as soon as the pipe is closed, however this script ends.
watch_over_root() {
    exec {lifeline}> >(exec setsid "$scripts/end-fake-root" "$root" >/dev/null 2>&1)
    watcher=$!
    # Waits for the cleanup. After a signal, wait fails and the script ends at once.
    trap 'exec {lifeline}>&-; wait "$watcher" 2>/dev/null || true' EXIT
}

make_dir() {
    mkdir -p "$root$2"
    chmod "$1" "$root$2"
}

# The size is not used: fake-root.c limits the one small disk.
make_disk() {
    make_dir "$1" "$2"
}

make_link() {
    keep "$2"
    ln -s "$1" "$root$2"
}

# With an empty placeholder in the root, so that the name is found when its directory is listed.
show() {
    keep "$1"
    if [[ -d "$1" ]]; then
        placeholder_dirs+=("$root$1")
    else
        placeholder_files+=("$root$1")
    fi
}

show_as() {
    mkdir -p "$(dirname -- "$root$2")"
    cp -rT -- "$1" "$root$2"
}

# Without a placeholder, so that listing a private directory does not show the path.
keep() {
    excluded+=":$1"
}

give() {
    keep "$1"
}

give_as_specs() {
    keep "$1"
    rmdir "$root/specs" 2>/dev/null || true
    ln -s "$1" "$root/specs"
    export SCRIBON_SPECS="$1"
}

separate_session() {
    :
}

separate_network() {
    :
}

# in_root COMMAND...: runs the command with fakechroot preloaded.
in_root() {
    (
        cd -- "$start_dir" || exit 125
        exec {lifeline}>&-
        export ASAN_OPTIONS="${ASAN_OPTIONS-}:verify_asan_link_order=0"
        export LD_PRELOAD="libfakechroot.so:$root/fake-root.so${LD_PRELOAD:+:$LD_PRELOAD}"
        export FAKECHROOT=true FAKECHROOT_BASE="$root" FAKECHROOT_EXCLUDE_PATH="${excluded#:}"
        # fakechroot is not loaded yet at the first exec, so that one is of /bin/sh.
        # shellcheck disable=SC2016 # for the shell inside
        exec "${without_power[@]}" /bin/sh -c 'exec "$@"' sh "$@"
    )
}

try_root() {
    mkdir -p "${placeholder_dirs[@]}"
    touch "${placeholder_files[@]}" "$root/small-disk/private"
    start_dir="$1"
    [[ ! -d "$root$1" ]] || start_dir="$root$1"
    in_root test -e /small-disk/private 2>/dev/null </dev/null ||
        give_up "the package fakechroot is not installed"
    rm "$root/small-disk/private"
}

run_in_root() {
    local status=0
    in_root "$@" || status=$?
    exit "$status"
}
