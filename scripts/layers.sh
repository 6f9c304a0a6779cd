#!/usr/bin/env bash
# layers.sh: fails on an include of the library that runs upwards, and names its file and line.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# From low to high; rooms on one line may include each other.
rooms=(
    "platform"
    "core"
    "values"
    "document fastinfoset"
    "writers"
    "collections binding"
    "generated"
)

declare -A level
for i in "${!rooms[@]}"; do
    for room in ${rooms[i]}; do level[$room]=$i; done
done

status=0
while IFS=: read -r file line text; do
    from=${file#src/}
    from=${from#include/BxXmlLib5/}
    to=${text#*\"}
    to=${to#BxXmlLib5/}
    [[ $from == */* && $to == */* ]] || continue
    for room in "${from%%/*}" "${to%%/*}"; do
        if [[ -z ${level[$room]:-} ]]; then
            echo "$file:$line: '$room' has no level in scripts/layers.sh" >&2
            exit 1
        fi
    done
    if ((level[${to%%/*}] > level[${from%%/*}])); then
        echo "$file:$line: ${from%%/*} includes ${to%%/*}, which lies above it: $text" >&2
        status=1
    fi
done < <(git grep -n '^#include "' -- src include)
exit "$status"
