#!/usr/bin/env bash
# Compares the trees of captures with those that are expected of them.
#   compare-trees.sh BUILD_FOLDER CAPTURES
# CAPTURES/expected/NAME.tree is the tree of CAPTURES/NAME.ts; an asterisk in it stands for any text.
set -euo pipefail
build=$1 captures=$2 failed=0
for expected in "$captures"/expected/*.tree; do
    capture=$captures/$(basename "$expected" .tree).ts
    mapfile -t wanted <"$expected"
    mapfile -t tree < <("$build/bin/tessaview3-scan" --log /dev/null --quiet --tables all "$capture")
    for ((i = 0; i < ${#wanted[@]} || i < ${#tree[@]}; ++i)); do
        pattern=${wanted[i]-(no line)}
        pattern=${pattern//\\/\\\\}
        pattern=${pattern//[/\\[}
        pattern=${pattern//\?/\\?}
        # shellcheck disable=SC2053
        [[ ${tree[i]-(no line)} == $pattern ]] && continue
        printf '%s, line %d:\n%s\ninstead of\n%s\n' "$capture" $((i + 1)) "${tree[i]-}" "${wanted[i]-}"
        failed=1
        break
    done
done
exit $failed
