#!/usr/bin/env bash
# Everything before a commit: format, clang-tidy over what the build compiles, build, tests.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}" "${CHECK_PACKAGES[@]}"
tools/check-format.sh
./test.sh release
git ls-files -- 'src/*.cpp' 'drivers/*.cpp' 'components/*.cpp' |
    xargs -r -P "$(nproc)" -n 4 clang-tidy-14 -p build/asan --quiet
