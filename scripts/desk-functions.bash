# shellcheck shell=bash
# To be sourced by scripts that run the editor with a desk platform. The processes end with the
# namespace that they run in; without one, the caller has to end those in "started".

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

# start_display: starts a virtual display with a window manager and sets DISPLAY.
start_display() {
    local number
    exec {display_output}< <(exec Xvfb -displayfd 1 -screen 0 1280x900x24 -nolisten tcp -noreset \
        2>/dev/null)
    started+=($!)
    read -r -t 60 -u "$display_output" number || fail "the virtual display did not start"
    export DISPLAY=":$number"
    # Qt Widgets need no OpenGL, and its drivers start slowly.
    export QT_XCB_GL_INTEGRATION=none
    openbox >/dev/null 2>&1 &
    started+=($!)
    # Windows that are shown before the window manager runs get no title bar.
    until xdotool get_desktop >/dev/null 2>&1; do
        kill -0 "${started[-1]}" 2>/dev/null || fail "the window manager did not start"
        sleep 0.1
    done
}
