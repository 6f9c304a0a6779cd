#!/usr/bin/env bash
# layers.sh: fails on an include of the library or of bxgen that runs upwards, and names its file and line.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

status=0

# check NAME ROOMS... -- FOLDER...: looks through the folders, whose parts are rooms from low to high. Rooms of one
# argument may include each other.
check() {
    local name=$1 i room folder file line text from to
    local -A level=()
    shift
    for ((i = 0; $# > 0; ++i)); do
        [[ $1 != -- ]] || break
        for room in $1; do level[$room]=$i; done
        shift
    done
    shift
    while IFS=: read -r file line text; do
        from=$file
        for folder in "$@"; do from=${from#"$folder"/}; done
        to=${text#*\"}
        to=${to#BxXmlLib5/}
        to=${to%%\"*}
        [[ $from == */* && $to == */* ]] || continue
        from=${from%%/*} to=${to%%/*}
        for room in "$from" "$to"; do
            if [[ -z ${level[$room]:-} ]]; then
                echo "$file:$line: '$room' is no room of $name in scripts/layers.sh" >&2
                exit 1
            fi
        done
        if ((level[$to] > level[$from])); then
            echo "$file:$line: $from includes $to, which lies above it: $text" >&2
            status=1
        fi
    done < <(git grep -n '^#include "' -- "$@")
}

check "the library" platform core values "document fastinfoset" writers "collections binding" generated \
    -- src include/BxXmlLib5 include
check bxgen common xml names schema mapping emit check -- tools/bxgen

exit "$status"
