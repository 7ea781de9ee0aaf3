#!/usr/bin/env bash
# Builds the benchmarks and runs them, with options as they take them, such as
# tools/benchmarks.sh --benchmark_filter=rebuildTree
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

install_packages "${BUILD_PACKAGES[@]}" "${BENCHMARK_PACKAGES[@]}"
quietly cmake --preset release -B build/benchmarks -DTESSAVIEW_BENCHMARKS=ON -DBUILD_TESTING=OFF
quietly cmake --build build/benchmarks --target benchmarks
for program in build/benchmarks/benchmarks/*_benchmark; do
    "$program" "$@"
done
