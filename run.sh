#!/usr/bin/env bash
# Builds Tessaview 3 and shows what a multiplex signals, in a window or in the shell.
#
#   ./run.sh                     the window, on the sample multiplex that the build makes
#   ./run.sh CAPTURE...          the window, on captured transport streams or folders of them
#   ./run.sh --scan [...]        the shell tool tessaview3-scan, with all that it takes
#   ./run.sh --OPTION ...        the same: the window takes captures only
#   ./run.sh --deps              only installs the packages that are missing
#
# Where there is no display, the shell tool shows what the window would.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
. "$here/tools/packages.sh"

install_packages "${BUILD_PACKAGES[@]}"
[ "${1:-}" != --deps ] || exit 0

program=tessaview3
case ${1:-} in
    --scan)
        program=tessaview3-scan
        shift
        ;;
    -*) program=tessaview3-scan ;;
    *)
        if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
            echo "There is no display for the window: starting tessaview3-scan, as --scan does" >&2
            program=tessaview3-scan
        elif [ -z "${DISPLAY:-}" ]; then
            install_packages qt6-wayland
        fi
        ;;
esac

build=$here/build/release
(
    cd "$here"
    [ -f "$build/build.ninja" ] || quietly cmake --preset release -DBUILD_TESTING=OFF
    # Said only when there is so much to build that one wonders.
    (sleep 3 && echo "Building (the first time takes a minute or two)" >&2) &
    note=$!
    trap 'kill "$note" 2>/dev/null || true' EXIT
    quietly cmake --build --preset release --target programs
)
[ $# -gt 0 ] || set -- "$build/share/tessaview3/sample.ts"
exec "$build/bin/$program" "$@"
