#!/usr/bin/env bash
# Builds and runs all tests: ./test.sh [release|asan|tsan]
set -euo pipefail
cd "$(dirname "$0")"
. tools/packages.sh

preset=${1:-release}
case $preset in
    release | asan | tsan) ;;
    *)
        echo "test.sh: '$preset' is not a preset; use release, asan or tsan" >&2
        exit 2
        ;;
esac

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
cmake --preset "$preset" -DBUILD_TESTING=ON -DTESSAVIEW_WERROR=ON
cmake --build --preset "$preset"
ctest --preset "$preset"
