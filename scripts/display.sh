# A display of its own for the window, in a folder that goes with it. To be sourced by a script that has set
# "-euo pipefail".

# start_display PROGRAMS: works in the folder, with the programs of that one, a window manager and the accessibility
# bus; all of it ends with the script.
start_display() {
    PATH=$(realpath "$1"):$PATH
    folder=$(mktemp -d)
    trap 'kill "$display" 2>/dev/null || true; rm -rf "$folder"' EXIT
    cd "$folder"
    Xvfb -displayfd 3 -screen 0 1280x900x24 3>number 2>/dev/null &
    display=$!
    until [ -s number ]; do sleep 0.05; done
    DISPLAY=:$(<number)
    export DISPLAY XDG_RUNTIME_DIR=$folder XDG_CONFIG_HOME=$folder QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 LC_ALL=C.UTF-8
    unset WAYLAND_DISPLAY QT_QPA_PLATFORM
    openbox >/dev/null 2>&1 & # gives windows the focus
}
