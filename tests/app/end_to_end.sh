#!/usr/bin/env bash
# Runs the real program on a display of its own, by keyboard, each time in a home of its own.
#   end_to_end.sh BUILD_FOLDER [CASE...]
# Ends with status 77, which skips the test, where there is nothing to show a window on.
set -u
here=$(dirname "$(realpath "$0")")
build=$(realpath "$1")
shift
program=$build/bin/tessaview3
sample=$build/share/tessaview3/sample.ts
capture_class='{8F6E0A52-3B1D-4C7E-9A64-D20B71C5E3F8}'
patience=60 # seconds; long, since only a failure waits for its end

for tool in Xvfb openbox xdotool setpriv; do
    if ! command -v $tool >/dev/null; then
        echo "skipped: $tool is not installed"
        exit 77
    fi
done

work=$(mktemp -d)
chmod 755 "$work"
children=()
clean_up() {
    [ ${#children[@]} -eq 0 ] || kill "${children[@]}" 2>/dev/null
    wait 2>/dev/null
    chmod -R u+w "$work"
    rm -rf "$work"
}
trap clean_up EXIT

Xvfb -displayfd 3 -screen 0 1280x900x24 -ac 3>"$work/display" 2>/dev/null &
children+=($!)
for _ in $(seq 100); do
    [ -s "$work/display" ] && break
    sleep 0.1
done
export DISPLAY=:$(cat "$work/display")
openbox >/dev/null 2>&1 &
children+=($!)
# A window that comes before the window manager is ready may never be mapped.
for _ in $(seq 100); do
    xdotool get_desktop >/dev/null 2>&1 && break
    sleep 0.1
done
unset WAYLAND_DISPLAY XDG_CONFIG_HOME XDG_DATA_HOME XDG_STATE_HOME TESSAVIEW_COMPONENT_PATH
export QT_QPA_PLATFORM=xcb
# Only leaks of our own count.
export LSAN_OPTIONS=suppressions=$here/library_leaks.supp:print_suppressions=0

fail() {
    echo "FAILED in $case: $*"
    [ ! -e "$home/err" ] || sed 's/^/  stderr: /' "$home/err"
    kill -9 $pid 2>/dev/null
    exit 1
}

# new_home: an empty home, with components of its own beside those of the program.
homes=0
new_home() {
    homes=$((homes + 1))
    home=$work/home$homes
    mkdir -p "$home/components"
    export HOME=$home TESSAVIEW_COMPONENT_PATH=$home/components TESSAVIEW_TEST_JOURNAL=$home/journal
    settings=$home/.config/tessaview3/settings.json
    satellites="$home/.local/share/Tessaview 3/satlist.xml"
    unset TESSAVIEW_DRIVER_PATIENCE
}

# store CLASS: as the chosen driver.
store() {
    mkdir -p "$(dirname "$settings")"
    printf '{"SOFTWARE\\\\Team Tessaview\\\\Tessaview3": {"driverclsid": "%s"}}' "$1" >"$settings"
}

# scripted CLASS: installs the scripted driver and stores it as the chosen one.
scripted() {
    printf '{"clsid": "%s", "name": "Scripted", "library": "%s",
        "categories": ["{EF0D1518-8E81-4B68-940C-42A0ABF05AA6}"]}' \
        "$1" "$build/tests/scripted/scripted_driver.so" >"$home/components/scripted.component"
    store "$1"
}

# start [--as-nobody] [ARGUMENT...]
start() {
    local as=()
    if [ "${1:-}" = --as-nobody ]; then
        shift
        [ "$(id -u)" -ne 0 ] || as=(setpriv --reuid 65534 --regid 65534 --clear-groups)
    fi
    "${as[@]}" "$program" "$@" 2>"$home/err" &
    pid=$!
}

# see TITLE: waits until a window of this title has the keyboard. The window manager may leave it
# to the window before, so after a while it is asked for it.
see() {
    local end=$((SECONDS + patience)) turn=0 window
    while [ "$(xdotool getactivewindow getwindowname 2>/dev/null)" != "$1" ]; do
        kill -0 $pid 2>/dev/null || fail "the program ended before it showed '$1'"
        [ $SECONDS -lt $end ] || fail "'$1' was not shown"
        sleep 0.05
        turn=$((turn + 1))
        [ $((turn % 40)) -eq 0 ] || continue
        window=$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1)
        [ -z "$window" ] || xdotool windowactivate "$window" 2>/dev/null
    done
}

press() {
    xdotool key --clearmodifiers "$@"
}

# answer TITLE KEY: presses a key that closes the window of this title, once it is seen; again when
# the key got lost, as it does in a window that has the keyboard but does not listen yet.
answer() {
    local end=$((SECONDS + patience)) window turn=0
    see "$1"
    window=$(xdotool getactivewindow 2>/dev/null)
    press "$2"
    while [ -n "$window" ] && [ "$(xdotool getactivewindow 2>/dev/null)" = "$window" ]; do
        kill -0 $pid 2>/dev/null || return 0
        [ $SECONDS -lt $end ] || fail "'$1' does not go"
        sleep 0.05
        turn=$((turn + 1))
        [ $((turn % 60)) -ne 0 ] || press "$2"
    done
}

# ends STATUS
ends() {
    local end=$((SECONDS + patience))
    while kill -0 $pid 2>/dev/null; do
        [ $SECONDS -lt $end ] || fail "the program did not end"
        sleep 0.05
    done
    wait $pid
    local status=$?
    [ $status -eq "$1" ] || fail "exit status $status, not $1"
}

# quit: by the menu, again when the keys went to a reading that had just begun.
quit() {
    local try
    for try in 1 2 3 4 5; do
        see "Untitled - Tessaview"
        press alt+f
        sleep 0.3
        press x
        sleep 1
        case $(xdotool getactivewindow getwindowname 2>/dev/null) in
            "SI Reading" | "Untitled - Tessaview") press Escape ;;
            *) return ;;
        esac
    done
}

stores() { grep -q "\"driverclsid\": \"$1\"" "$settings" || fail "$1 is not stored"; }
stores_nothing() { ! grep -qs driverclsid "$settings" || fail "a driver is stored"; }
has_satellites() { grep -q "Astra 19E" "$satellites" || fail "the satellite list was not saved"; }

first_start() {
    start
    answer "Driver selction" Return # the driver for captures is chosen already
    quit
    ends 0
    stores "$capture_class"
    has_satellites
    start
    quit # and is not asked again
    ends 0
}

cancel_at_the_choice() {
    for _ in 1 2; do
        start
        answer "Driver selction" Escape
        answer Tessaview3 Return
        ends 1
        stores_nothing
    done
}

failing_driver() {
    scripted '{000000A3-0000-0000-0000-000000000000}'
    start
    answer Tessaview3 Return
    ends 1
    stores_nothing
    start
    answer "Driver selction" Escape
    answer Tessaview3 Return
    ends 1
}

driver_that_hangs_at_the_start() {
    scripted '{000000A5-0000-0000-0000-000000000000}'
    export TESSAVIEW_DRIVER_PATIENCE=1
    start
    answer Tessaview3 alt+k # keep waiting
    answer Tessaview3 alt+q
    ends 1
    stores_nothing
    has_satellites
    store '{000000A5-0000-0000-0000-000000000000}'
    start
    see Tessaview3
    touch "$home/journal.go" # it answers after all
    quit
    ends 0
}

driver_that_hangs_at_the_end() {
    scripted '{000000A6-0000-0000-0000-000000000000}'
    export TESSAVIEW_DRIVER_PATIENCE=1
    start
    quit
    ends 0
    grep -q "Shutdown with the list saved" "$home/journal" || fail "the list was not saved first"
}

captures() {
    store '{00000000-0000-0000-0000-000000000001}'
    start --log "$home/log" "$sample"
    see "Untitled - Tessaview"
    local end=$((SECONDS + patience))
    until grep -q "All networks processed" "$home/log"; do
        [ $SECONDS -lt $end ] || fail "nothing was read"
        sleep 0.05
    done
    quit
    ends 0
    stores '{00000000-0000-0000-0000-000000000001}'
    start "$home/gone.ts"
    answer Tessaview3 Return
    quit
    ends 0
}

unreadable_settings() {
    mkdir -p "$home/.config/tessaview3"
    printf '{"SOFT' >"$settings"
    start
    answer "Driver selction" Return
    quit
    ends 0
    stores "$capture_class"
    [ -e "$settings.broken-1" ] || fail "the unreadable settings are gone"
}

read_only_home() {
    chmod 755 "$home"
    touch "$home/err"
    chmod 666 "$home/err"
    chmod 555 "$home" "$home/components"
    start --as-nobody
    answer "Driver selction" Return
    answer Tessaview3 Return # the choice cannot be remembered
    quit
    answer Tessaview3 Return # the satellite list cannot be saved
    ends 0
}

no_writable_folder() {
    HOME=/proc/nowhere start --as-nobody "$sample"
    quit
    answer Tessaview3 Return
    ends 0
}

two_at_once() {
    store "$capture_class"
    start --log "$home/log"
    see "Untitled - Tessaview"
    local first=$pid
    start --log "$home/log"
    local end=$((SECONDS + patience))
    until grep -q "another explorer writes the log" "$home/err"; do
        [ $SECONDS -lt $end ] || fail "the second explorer does not tell where its log is"
        sleep 0.05
    done
    kill $pid
    ends 0
    pid=$first
    kill $pid
    ends 0
    grep -q "Starting Tessaview 3" "$home/log-2" || fail "the second explorer has no log"
}

driver_that_crashes_at_the_start() {
    scripted '{000000A9-0000-0000-0000-000000000000}'
    export TESSAVIEW_TEST_CRASH=IsLocked
    start
    ends 134
    start
    answer Tessaview3 alt+t # try again
    ends 134
    start
    answer Tessaview3 alt+w # start without it
    answer "Driver selction" Escape
    answer Tessaview3 Return
    ends 1
    stores_nothing
}

terminated_while_a_driver_hangs() {
    scripted '{000000B3-0000-0000-0000-000000000000}'
    export TESSAVIEW_DRIVER_PATIENCE=1
    start
    see "Untitled - Tessaview"
    local end=$((SECONDS + patience))
    until grep -q ReadTables "$home/journal"; do
        [ $SECONDS -lt $end ] || fail "nothing is read"
        press alt+a Right Return # the first command of the first submenu
        sleep 0.5
        press Return # starts
        sleep 0.5
    done
    kill $pid
    ends 0
    has_satellites
}

terminated() {
    store "$capture_class"
    start
    see "Untitled - Tessaview"
    kill $pid
    ends 0
    has_satellites
    rm "$settings"
    start
    see "Driver selction"
    kill $pid
    ends 1
}

wrong_usage() {
    start --no-such-option
    ends 2
    grep -q -- --no-such-option "$home/err" && grep -q Usage "$home/err" || fail "usage is missing"
    start --version
    ends 0
}

cases=(first_start cancel_at_the_choice failing_driver driver_that_hangs_at_the_start
    driver_that_hangs_at_the_end captures unreadable_settings read_only_home no_writable_folder
    driver_that_crashes_at_the_start two_at_once terminated_while_a_driver_hangs terminated
    wrong_usage)
[ $# -eq 0 ] || cases=("$@")
for case in "${cases[@]}"; do
    new_home
    case $case in
        read_only_home | no_writable_folder)
            if [ "$(id -u)" -eq 0 ] &&
                ! setpriv --reuid 65534 --regid 65534 --clear-groups test -x "$program"; then
                echo "skipped: $case, since nobody may start the program"
                continue
            fi
            ;;
    esac
    # Keys can be lost between windows on a busy machine; a fault of the program shows twice.
    if ! ($case); then
        echo "again: $case"
        new_home
        ($case) || exit 1
    fi
    echo "passed: $case"
done
