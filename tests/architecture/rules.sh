#!/usr/bin/env bash
# Whether tools/check-includes.sh notices what it is for.
set -euo pipefail
cd "$(dirname "$0")/../.."

tools/check-includes.sh --cases tests/architecture/includes.txt | diff tests/architecture/includes.txt -

# complaint TABLE TEXT: what is said of such a table contains the text
complaint() {
    local said
    said=$(! tools/check-includes.sh <(printf "$1")) || { echo "accepted: $1"; exit 1; }
    [[ $said == *"$2"* ]] || { printf '%s\ninstead of: %s\n' "$said" "$2"; exit 1; }
}
complaint '| `b` | `a` | |\n| `a` | | |\n' 'the row of b names a room that does not stand above it: a'
complaint '| `a` | `a` | |\n' 'the row of a names a room that does not stand above it: a'
complaint '| `a` | | |\n| `a` | | |\n' 'a has two rows'
complaint '| `log` | | |\n| `si` | `log` | |\n' 'the row of si allows log, which it does not include'
complaint 'no table\n' 'si has no row among the rooms'
complaint '| `attic` | | |\n' 'no file was seen of the room attic'
