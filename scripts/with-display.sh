#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a command on a screen of its own with a window manager on it, and hands on the command's status:
# with-display.sh COMMAND [ARG...]
set -euo pipefail

# Pixels and bits. The usual size has room for the browser's grid of five tiles by six. Several screens, separated by
# blanks, stand side by side from left to right.
read -r -a screens <<<"${VIRTUAL_SCREEN:-1920x1200x24}"
patience=60         # seconds a server or a window manager may take to come up on a busy machine

logs=$(mktemp -d)
started=() # the last one last
# shellcheck disable=SC2317 # the traps call it
finish() {
    local i
    # Backwards: what shows itself on the server complains when the server goes first.
    for ((i = ${#started[@]} - 1; i >= 0; --i)); do
        kill "${started[i]}" 2>/dev/null || true
        wait "${started[i]}" 2>/dev/null || true
    done
    rm -rf -- "$logs"
}
trap finish EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

give_up() {
    echo "with-display: $1" >&2
    cat -- "$logs"/* >&2
    exit 1
}

unset WAYLAND_DISPLAY XAUTHORITY
export QT_QPA_PLATFORM=xcb
export QT_XCB_GL_INTEGRATION=none # nothing draws with OpenGL, and where its software driver is, loading it costs and leaks

# Starts a server, which picks a free number itself and tells it, so two runs at a time do not meet. Only a server that
# had the number before and is just ending may take the new one's socket away with its own: then another server is
# started. Without -noreset the server starts anew when its last client leaves, and turns away who comes meanwhile.
start_server() {
    local attempt numbers number server
    for attempt in 1 2 3; do
        exec {numbers}< <(exec "$@" -displayfd 1 -nolisten tcp -noreset 2>"$logs/server")
        server=$!
        read -r -t "$patience" -u "$numbers" number || give_up "$1 did not start"
        ! DISPLAY=:$number xdpyinfo >/dev/null 2>&1 || break
        kill "$server" 2>/dev/null || true
        wait "$server" 2>/dev/null || true
        ((attempt < 3)) || give_up "$1 cannot be reached"
    done
    started+=("$server")
    export DISPLAY=:$number
}

if ((${#screens[@]} == 1)); then
    start_server Xvfb -screen 0 "${screens[0]}"
else
    # Xvfb puts all its screens at the same place; Xephyr places them, in a window on a screen that has room for all.
    # Without RANDR, which knows of one screen only there, clients ask Xinerama.
    inner=(-extension RANDR +xinerama)
    width=0
    height=0
    for screen in "${screens[@]}"; do
        IFS=x read -r w h depth <<<"$screen"
        inner+=(-screen "${w}x$h+$width+0")
        width=$((width + w))
        height=$((h > height ? h : height))
    done
    start_server Xvfb -screen 0 "${width}x${height}x$depth"
    start_server Xephyr "${inner[@]}"
fi

# The distribution's own settings, since a user's might place windows or follow the pointer.
openbox --sm-disable --config-file /etc/xdg/openbox/rc.xml >"$logs/manager" 2>&1 &
manager=$!
started+=("$manager")
deadline=$((SECONDS + patience))
until xprop -root _NET_SUPPORTING_WM_CHECK 2>>"$logs/manager" | grep -q 'window id'; do
    kill -0 "$manager" 2>/dev/null || give_up "openbox ended at once"
    ((SECONDS < deadline)) || give_up "openbox did not come up"
    sleep 0.1
done

# The pointer starts in the middle, where it would hover over what is shown.
xdotool mousemove 0 0

# Waited for, because a signal interrupts a wait, but not a command in the foreground.
"$@" <&0 &
started+=($!)
status=0
wait $! || status=$?
unset 'started[-1]'
exit "$status"
