# What scenarios run with. Their standard output and error become the transcript; they lie in a
# folder of their own, where they leave trees and logs.
# shellcheck shell=dash

tuner=/dev/dvb/adapter0

# plug_in [PARAMETER...]: the device, anew, with the rights that udev would give it.
plug_in() {
    plug_out
    while read -r module; do
        case $module in
            *bridge.ko) insmod "$module" "$@" ;;
            *) is_loaded "$(basename "$module" .ko | tr - _)" || insmod "$module" ;;
        esac
    done </etc/modules
    until_true test -c $tuner/demux0
    chgrp video $tuner/*
    chmod 660 $tuner/*
}

plug_out() { ! is_loaded dvb_vidtv_bridge || rmmod dvb_vidtv_bridge; }

is_loaded() { grep -q "^$1 " /proc/modules; }

# until_true COMMAND...: waits until it succeeds.
until_true() {
    local tries=300
    until "$@" >/dev/null 2>&1; do
        tries=$((tries - 1))
        if [ $tries -eq 0 ]; then
            echo "This did not come true: $*"
            exit 1
        fi
        usleep 100000
    done
}

# settings NAME VALUE [NAME VALUE...]: those of the driver, numbers.
settings() {
    local values=
    while [ $# -gt 0 ]; do
        values="$values${values:+, }\"$1\": $2"
        shift 2
    done
    mkdir -p "$HOME/.config/tessaview3"
    printf '{"SOFTWARE\\\\Team Tessaview\\\\Tessaview3\\\\drivers\\\\linuxdvb": {%s}}\n' "$values" \
        >"$HOME/.config/tessaview3/settings.json"
}

# start NAME OPTION...: the tool, which leaves NAME.tree and NAME.log.
start() {
    local name=$1
    shift
    echo "\$ tessaview3-scan $*"
    tessaview3-scan --driver "Linux DVB" --log "$name.log" "$@" >"$name.tree" &
    tool=$!
}

# Waits for the tool's end.
finish() {
    local status=0
    wait "$tool" || status=$?
    echo "exit status $status"
}

scan() {
    start "$@"
    finish
}

# has_open NAME: whether the tool has that part of the device open; it tunes with frontend0 and
# reads with demux0.
has_open() {
    for file in "/proc/$tool/fd/"*; do
        [ "$(readlink "$file")" != "$tuner/$1" ] || return 0
    done
    return 1
}

# Hundredths of a second since the machine was switched on.
clock() { sed 's/^\([0-9]*\)\.\([0-9]*\) .*/\1\2/' /proc/uptime; }

if [ -n "${1:-}" ]; then
    HOME=/tmp/$1
    mkdir -p "$HOME"
    . "/scenarios/$1.sh"
fi
