#!/usr/bin/env bash
# Holds every #include of src, drivers and components against the rooms' table.
#   check-includes.sh [TABLE]        the table's file; docs/architecture.md unless told
#   check-includes.sh --cases FILE   what it says of the worked cases of FILE, below each of them
set -euo pipefail
cd "$(dirname "$0")/.."

check() {
    awk -f /dev/fd/3 "$@" 3<<'RULES'
function complain(text) { print text; failed = 1 }

# The room of a file, or of an include as it is written; empty for a path in no room.
function roomOf(path,    parts, count) {
    sub(/^src\//, "", path)
    count = split(path, parts, "/")
    if (count < 2)
        return ""
    if (parts[1] != "drivers")
        return parts[1]
    return path ~ /\/dialogs\// ? "drivers/dialogs" : "drivers"
}

# "drivers/capture/" of a path in that driver; what drivers share belongs to none.
function driverOf(path,    parts, count) {
    count = split(path, parts, "/")
    return count > 1 && parts[1] == "drivers" && parts[2] != "common" ? "drivers/" parts[2] "/" : ""
}

function problemOfOurs(file, included,    from, to) {
    from = roomOf(file)
    to = roomOf(included)
    includes[from, to] = 1
    if (index("/" included "/", "/../"))
        return "names a folder with '..'"
    if (!(to in isRoom))
        return "is not in a room"
    if (driverOf(included) != "" && index(file, driverOf(included)) != 1)
        return "belongs to a driver"
    if (!(from in isRoom))
        return "is included from a folder that has no row among the rooms"
    return from == to || (from, to) in mayInclude ? "" : "is not below '" from "'"
}

function problemOfForeign(file, included,    parts) {
    split(included, parts, "/")
    if (parts[1] in isRoom)
        return "is ours and belongs in quotation marks"
    return included ~ /^Q/ && !(roomOf(file) in mayUseQt) ? "is Qt" : ""
}

# What is wrong with a line of a file; empty when nothing is.
function problemOf(file, line,    included, problem) {
    if (line !~ /^[ \t]*#[ \t]*include(_next)?([^A-Za-z0-9_]|$)/)
        return ""
    if (line !~ /^[ \t]*#[ \t]*include[ \t]*["<][^">]+[">]/)
        return "an include that names no file"
    included = line
    sub(/^[^"<]*["<]/, "", included)
    sub(/[">].*/, "", included)
    problem = line ~ /^[^"<]*"/ ? problemOfOurs(file, included) : problemOfForeign(file, included)
    return problem == "" ? "" : "'" included "' " problem
}

# Of `a` | `b` `c` | yes |: a may include b and c, which stand above it, and Qt.
function readRow(    names, count, i, room) {
    if (NF != 5 || split($2, names, "`") != 3)
        return
    room = names[2]
    if (room in isRoom)
        complain(room " has two rows")
    count = split($3, names, "`")
    for (i = 2; i < count; i += 2) {
        if (!(names[i] in isRoom))
            complain("the row of " room " names a room that does not stand above it: " names[i])
        mayInclude[room, names[i]] = 1
    }
    if ($4 ~ /yes/)
        mayUseQt[room] = 1
    isRoom[room] = 1
}

BEGIN { FS = "|" }
FNR == 1 { isTable = ++fileNumber == 1 }
isTable { readRow(); next }
isCases {
    if ($0 ~ /^ /)
        next
    print
    blank = index($0, " ")
    problem = problemOf(substr($0, 1, blank - 1), "  #  include" substr($0, blank) " // why")
    if ($0 !~ /^(#|$)/ && problem != "")
        print "    " problem
    next
}
{
    seen[roomOf(FILENAME)] = 1
    problem = problemOf(FILENAME, $0)
    if (problem != "")
        complain(FILENAME ":" FNR ": " problem)
}
END {
    if (!isCases) {
        for (room in isRoom)
            if (!(room in seen))
                complain("no file was seen of the room " room)
        for (room in seen)
            if (!(room in isRoom))
                complain(room " has no row among the rooms")
        for (pair in mayInclude)
            if (!(pair in includes)) {
                split(pair, rooms, SUBSEP)
                complain("the row of " rooms[1] " allows " rooms[2] ", which it does not include")
            }
    }
    exit failed
}
RULES
}

if [ "${1:-}" = --cases ]; then
    check -v isCases=1 docs/architecture.md "$2"
else
    mapfile -t files < <(find src drivers components -name '*.cpp' -o -name '*.h' -o -name '*.c')
    check "${1:-docs/architecture.md}" "${files[@]}"
fi
