#!/usr/bin/env bash
# What every change has to pass: format, then all tests with g++ optimised and with clang's
# address and undefined-behaviour sanitizers, a virtual DVB device in a virtual machine, and a
# short run of every fuzz target.
#
#   usage: tools/check.sh [--quick] [--tidy]
#
# --quick leaves it at format and the optimised tests. --tidy lets clang-tidy look at every source
# file, too, which takes longer than all the rest.
#
# Exit status: 0 all passed, 1 something failed, 2 wrong usage.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

usage() {
    sed -n 's/^#   usage: /usage: /p' "$0"
}

quick=false
tidy=false
for option in "$@"; do
    case $option in
        --quick) quick=true ;;
        --tidy) tidy=true ;;
        --help)
            usage
            exit 0
            ;;
        *)
            echo "check.sh: '$option' is not known" >&2
            usage >&2
            exit 2
            ;;
    esac
done

check_tidy() {
    install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
    # One command for each source file, as clang understands it; nothing needs to be built.
    quietly cmake --preset asan -B build/tidy -DCMAKE_UNITY_BUILD=OFF
    git ls-files -- 'src/*.cpp' 'drivers/*.cpp' 'components/*.cpp' |
        xargs -r -P "$(nproc)" -n 4 clang-tidy-14 -p build/tidy --quiet
}

install_packages "${CHECK_PACKAGES[@]}"
tools/check-format.sh
./test.sh release
if ! $quick; then
    tools/dvb-vm/run.sh || [ $? -eq 77 ] # skipped where there is no qemu
    ./test.sh asan
    tools/fuzz.sh 2
fi
if $tidy; then
    check_tidy
fi
