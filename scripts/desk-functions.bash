# shellcheck shell=bash
# To be sourced by what shows the editor beside a platform. What these start ends with the namespace
# that they run in; where there is none, "started" tells what has to be ended.

started=()

fail() {
    echo "$(basename -- "$0"): $*" >&2
    exit 1
}

# start_platform BUILD_DIR CATALOGUE
start_platform() {
    local line="" desk="$1/host/marvane-desk" catalogue="$2"
    export MARVANE_DESK_NAME=scribon-run
    exec {desk_output}< <(exec "$desk" "$catalogue")
    read -r -t 60 -u "$desk_output" line || true
    [[ "$line" == *ready* ]] || fail "the demo platform did not start"
}

# start_display: with a window manager, and set as DISPLAY
start_display() {
    local number
    exec {display_output}< <(exec Xvfb -displayfd 1 -screen 0 1280x900x24 -nolisten tcp -noreset \
        2>/dev/null)
    started+=($!)
    read -r -t 60 -u "$display_output" number || fail "the virtual display did not start"
    export DISPLAY=":$number"
    # A program of plain widgets draws without the GL drivers, which take their time here.
    export QT_XCB_GL_INTEGRATION=none
    openbox >/dev/null 2>&1 &
    started+=($!)
    # A window that comes up before there is a window manager stays without its title bar.
    until xdotool get_desktop >/dev/null 2>&1; do
        kill -0 "${started[-1]}" 2>/dev/null || fail "the window manager did not start"
        sleep 0.1
    done
}
