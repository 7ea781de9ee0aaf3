#!/usr/bin/env bash
# Builds Tessaview 3 and shows what a multiplex signals.
#
#   ./run.sh                     the sample multiplex that the build makes
#   ./run.sh CAPTURE...          captured transport streams, or folders of them
#   ./run.sh [options] ...       anything else that tessaview3-scan takes
#   ./run.sh --deps              only installs the packages that are missing
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
. "$here/tools/packages.sh"

install_packages "${BUILD_PACKAGES[@]}"
[ "${1:-}" != --deps ] || exit 0

build=$here/build/release
(
    cd "$here"
    [ -f "$build/build.ninja" ] || quietly cmake --preset release -DBUILD_TESTING=OFF
    echo "Building (the first time takes a minute or two)" >&2
    quietly cmake --build --preset release --target programs
)
[ $# -gt 0 ] || set -- "$build/share/tessaview3/sample.ts"
exec "$build/bin/tessaview3-scan" "$@"
