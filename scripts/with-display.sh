#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a command on a virtual screen with a window manager, and returns the command's exit status:
# with-display.sh COMMAND [ARG...]
set -euo pipefail

# Size in pixels, and colour depth. The default has space for the browser's grid of five by six tiles. Several
# screens, separated by blanks, are placed side by side from left to right.
read -r -a screens <<<"${VIRTUAL_SCREEN:-1920x1200x24}"
start_timeout=60 # seconds that a server or a window manager may take to start on a busy machine

logs=$(mktemp -d)
started=() # process IDs in the order of starting
# shellcheck disable=SC2317 # the traps call it
finish() {
    local i
    # In reverse order, because clients print errors if their server ends first.
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
export QT_XCB_GL_INTEGRATION=none # OpenGL is not used, and loading its software driver is slow and leaks memory

# Starts a server, which selects a free display number and prints it, so that concurrent runs do not conflict.
# Only a server that had the same number before and is just exiting may delete the new server's socket
# together with its own: then another server is started. Without -noreset, the server resets when its last
# client disconnects, and meanwhile rejects new clients.
start_server() {
    local attempt numbers number server
    for attempt in 1 2 3; do
        exec {numbers}< <(exec "$@" -displayfd 1 -nolisten tcp -noreset 2>"$logs/server")
        server=$!
        read -r -t "$start_timeout" -u "$numbers" number || give_up "$1 did not start"
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
    # Xvfb places all its screens at the same position. Xephyr can place them side by side, in a window on a
    # screen that is large enough for all. RANDR would report only one screen there; without it, clients use
    # Xinerama.
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

# Use the distribution's configuration. A user's might place windows or make the focus follow the pointer.
# While it starts, it gives new windows no focus, but sets the properties by which clients recognise it.
openbox --sm-disable --config-file /etc/xdg/openbox/rc.xml --startup "touch '$logs/started'" >"$logs/manager" 2>&1 &
manager=$!
started+=("$manager")
deadline=$((SECONDS + start_timeout))
until [[ -e $logs/started ]]; do
    kill -0 "$manager" 2>/dev/null || give_up "openbox exited"
    ((SECONDS < deadline)) || give_up "openbox did not start"
    sleep 0.1
done

# The pointer starts in the centre of the screen, where it would hover over the windows.
xdotool mousemove 0 0

# In the background, because a signal interrupts wait, but not a command in the foreground.
"$@" <&0 &
started+=($!)
status=0
wait $! || status=$?
unset 'started[-1]'
exit "$status"
