# shellcheck shell=bash
# To be sourced by in-namespace: makes a private root file system in namespaces by bubblewrap. The
# root is empty at first; the functions collect the arguments that put something into it.

arguments=()

# Succeeds if this machine allows namespaces; otherwise bwrap prints the reason.
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

# show PLACE: shows the machine's file or directory at the same place, read-only.
show() {
    arguments+=(--ro-bind "$1" "$1")
}

# show_as SOURCE PLACE: shows SOURCE at PLACE, read-only.
show_as() {
    arguments+=(--ro-bind "$1" "$2")
}

# keep PATH, give PATH: show the path at its own place, even if that is a private one. keep is
# read-only, give is writable.
keep() {
    arguments+=(--ro-bind "$1" "$1")
}

give() {
    arguments+=(--bind "$1" "$1")
}

# give_as_specs DIR: the directory is /specs, writable.
give_as_specs() {
    arguments+=(--bind "$1" /specs)
}

separate_session() {
    arguments+=(--unshare-ipc)
}

separate_network() {
    arguments+=(--unshare-net)
}

# try_root WORKING_DIR: runs a command that cannot fail, since the exit status does not tell whether
# bwrap or the command failed.
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
