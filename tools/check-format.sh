#!/usr/bin/env bash
# Fails when a source file is not as clang-format would write it.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -- '*.cpp' '*.h' '*.c' | xargs -r clang-format-14 --dry-run --Werror
