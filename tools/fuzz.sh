#!/usr/bin/env bash
# Builds the fuzz targets and runs each for a while: tools/fuzz.sh [SECONDS [TARGET...]]
# What a target finds is kept below build/fuzz/corpus and taken up the next time; an input that
# fails is written to build/fuzz/findings.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/packages.sh

seconds=${1:-10}
shift || true
if ! [[ $seconds =~ ^[1-9][0-9]*$ ]]; then
    echo "fuzz.sh: '$seconds' is no number of seconds" >&2
    exit 2
fi

install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
cmake --preset fuzz -DTESSAVIEW_WERROR=ON
cmake --build --preset fuzz --target fuzzers

folder=build/fuzz/fuzz
targets=("$@")
if [ ${#targets[@]} -eq 0 ]; then
    for program in "$folder"/fuzz_*; do
        targets+=("${program##*/fuzz_}")
    done
fi

# Files that a target writes are short-lived: in memory where there is such a folder.
if [ -d /dev/shm ]; then
    TMPDIR=$(mktemp -d -p /dev/shm)
else
    TMPDIR=$(mktemp -d)
fi
export TMPDIR
trap 'rm -rf "$TMPDIR"' EXIT

failed=()
mkdir -p build/fuzz/findings
for target in "${targets[@]}"; do
    corpus=build/fuzz/corpus/$target
    mkdir -p "$corpus"
    options=(-max_total_time="$seconds" -max_len=4096 -timeout=10 -rss_limit_mb=2048 -print_final_stats=1
        -artifact_prefix="build/fuzz/findings/$target-")
    if [ "$target" = capture ]; then
        options+=(-max_len=20000)
    fi
    if [ -f "fuzz/$target.dict" ]; then
        options+=(-dict="fuzz/$target.dict")
    fi
    log=build/fuzz/$target.log
    if "$folder/fuzz_$target" "${options[@]}" "$corpus" "$folder/seeds/$target" >"$log" 2>&1; then
        echo "$target: $(grep -a 'DONE' "$log" | tail -n 1 | sed 's/^#[0-9]*\s*DONE\s*//')," \
            "$(sed -n 's/^stat::number_of_executed_units: *//p' "$log") runs"
    else
        failed+=("$target")
        tail -n 40 "$log" >&2
    fi
done
if [ ${#failed[@]} -gt 0 ]; then
    echo "fuzz.sh: findings of ${failed[*]} in build/fuzz/findings" >&2
    exit 1
fi
