#!/usr/bin/env bash
# How long the window takes from its start until it is there, in milliseconds: the median of ten
# starts on a display of its own, with the settings of a second start.
set -euo pipefail
cd "$(dirname "$0")/.."
program=$PWD/build/release/bin/tessaview3
work=$(mktemp -d)
Xvfb -displayfd 3 -screen 0 1280x900x24 3>"$work/display" 2>/dev/null &
server=$!
trap 'kill $server; rm -rf "$work"' EXIT
until [ -s "$work/display" ]; do sleep 0.1; done
export DISPLAY=:$(cat "$work/display") QT_QPA_PLATFORM=xcb HOME=$work XDG_CONFIG_HOME=$work/config
mkdir -p "$work/config/tessaview3"
printf '{"SOFTWARE\\\\Team Tessaview\\\\Tessaview3":
    {"driverclsid": "{8F6E0A52-3B1D-4C7E-9A64-D20B71C5E3F8}"}}' >"$work/config/tessaview3/settings.json"
for _ in $(seq 10); do
    start=$(date +%s%N)
    "$program" --log "$work/log.txt" "$@" 2>/dev/null &
    xdotool search --sync --onlyvisible --name '^Untitled - Tessaview$' >/dev/null
    echo $((($(date +%s%N) - start) / 1000000))
    kill $!
    wait $! || true
done | sort -n | sed -n '5{h;n;H;x;s/\n/ /p}' | { read -r a b; echo "median: $(((a + b) / 2)) ms"; }
