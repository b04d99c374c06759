# shellcheck shell=bash
# To be sourced by in-namespace: a private root in namespaces, which bubblewrap makes. The root is an
# empty file system; each function here puts something into it.

arguments=()

# Says why when it fails.
try_namespaces() {
    bwrap --cap-drop ALL --unshare-pid --unshare-ipc --unshare-net --ro-bind / / --proc /proc \
        --dev /dev true
}

begin_root() {
    arguments=(--die-with-parent --cap-drop ALL --unshare-pid --proc /proc --dev /dev)
}

# make_dir MODE PLACE
make_dir() {
    arguments+=(--perms "$1" --dir "$2")
}

# make_disk MODE PLACE [BYTES]
make_disk() {
    [[ -z "${3-}" ]] || arguments+=(--size "$3")
    arguments+=(--perms "$1" --tmpfs "$2")
}

# make_link TARGET PLACE
make_link() {
    arguments+=(--symlink "$1" "$2")
}

# show PLACE: what the machine has there, among the other things in its directory
show() {
    arguments+=(--ro-bind "$1" "$1")
}

# show_as SOURCE PLACE
show_as() {
    arguments+=(--ro-bind "$1" "$2")
}

# keep PATH, give PATH: it stays where it is, in a private place too; writable when it is given.
keep() {
    arguments+=(--ro-bind "$1" "$1")
}

give() {
    arguments+=(--bind "$1" "$1")
}

# give_as_specs DIR
give_as_specs() {
    arguments+=(--bind "$1" /specs)
}

separate_session() {
    arguments+=(--unshare-ipc)
}

separate_network() {
    arguments+=(--unshare-net)
}

# Tried with a command that cannot fail, since bwrap's own failure and the command's look alike.
try_root() {
    local complaint
    arguments+=(--chdir "$1")
    if ! complaint="$(bwrap "${arguments[@]}" true 2>&1 </dev/null)"; then
        fail "bubblewrap cannot make the namespace: ${complaint//$'\n'/; }"
    fi
}

run_in_root() {
    exec bwrap "${arguments[@]}" -- "$@"
}
