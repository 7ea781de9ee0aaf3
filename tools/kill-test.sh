#!/usr/bin/env bash
# Kills the window's program at random moments of its starts, reads and ends, and looks whether
# settings and satellite list are still there: tools/kill-test.sh [TIMES], 200 by default.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --build --preset release --target app_tests tessaview3
TESSAVIEW_KILLS=${1:-200} build/release/tests/app_tests --gtest_filter='Killed.*'
