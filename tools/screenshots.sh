#!/usr/bin/env bash
# Takes pictures of the window on the sample multiplex, driven by key on a display of its own.
#   tools/screenshots.sh FOLDER [SCREEN]
# SCREEN is its size, default 1280x860. QT_SCALE_FACTOR and the like reach the program.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
. "$here/tools/packages.sh"
if [ $# -lt 1 ]; then
    sed -n 's/^#   /usage: /p' "$0" >&2
    exit 2
fi
mkdir -p "$1"
pictures=$(realpath "$1")
screen=${2:-1280x860}
build=$here/build/release
patience=30 # seconds
install_packages xvfb openbox xdotool imagemagick

work=$(mktemp -d)
children=()
clean_up() {
    kill "${children[@]}" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$work"
}
trap clean_up EXIT

# until_true COMMAND...: waits until it succeeds.
until_true() {
    local end=$((SECONDS + patience))
    until "$@" >/dev/null 2>&1; do
        if [ $SECONDS -ge $end ]; then
            echo "This did not come true: $*" >&2
            exit 1
        fi
        sleep 0.1
    done
}

active() { [ "$(xdotool getactivewindow getwindowname)" = "$1" ]; }
see() { until_true active "$1"; }

press() {
    local key
    for key in "$@"; do
        xdotool key --clearmodifiers "$key"
        sleep 0.2
    done
}

find_text() {
    press ctrl+f
    xdotool type --delay 30 "$1"
    sleep 0.5
}

# picture NAME: of the window that has the keyboard, with its frame and few colours.
picture() {
    sleep 0.5
    import -frame -window "$(xdotool getactivewindow)" "$work/$1.png"
    convert "$work/$1.png" -strip +dither -colors 128 "png8:$pictures/$1.png"
    echo "$pictures/$1.png"
}

Xvfb -displayfd 3 -screen 0 "${screen}x24" 3>"$work/display" 2>/dev/null &
children+=($!)
until_true test -s "$work/display"
DISPLAY=:$(cat "$work/display")
export DISPLAY QT_QPA_PLATFORM=xcb HOME=$work
unset WAYLAND_DISPLAY XDG_CONFIG_HOME XDG_DATA_HOME XDG_STATE_HOME TESSAVIEW_COMPONENT_PATH
openbox >/dev/null 2>&1 &
children+=($!)
until_true xdotool get_desktop

mkdir -p "$HOME/.config/tessaview3"
printf '{"SOFTWARE\\\\Team Tessaview\\\\Tessaview3":
    {"driverclsid": "{8F6E0A52-3B1D-4C7E-9A64-D20B71C5E3F8}"}}' \
    >"$HOME/.config/tessaview3/settings.json"
"$build/bin/tessaview3" --log "$work/log" "$build/share/tessaview3/sample.ts" 2>/dev/null &
children+=($!)
main="Untitled - Tessaview"
until_true grep -q "All networks processed" "$work/log"
sleep 1 # until the dialog of the reading has gone
see "$main"

find_text SERVICE_DESCRIPTOR
picture find
press Escape
picture window

find_text "4D 65 61 64" # in the private bytes of a CA descriptor
press Escape F6 F6 Tab Right
picture bytes

press alt+a Return Return
see Tessaview3 # keeps what was read
press Return
see "SI Reading"
picture reading
press Escape
see "$main"

press alt+o Up Return
see "Satellite list manager"
picture satellites
press Escape
see "$main"

press alt+h Return
see "About Tessaview3"
picture about
press Escape
