#!/usr/bin/env bash
# tidy.sh [SOURCE...]: what clang-tidy finds, by the checks of .clang-tidy, in the library, the tools and the examples, or in
# these sources. Fails if it finds anything.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# The commands of clang++: clang-tidy does not know all options of g++.
echo "Configuring (preset clang) ..."
quietly cmake --preset clang
if (($# == 0)); then
    mapfile -t sources < <(git ls-files 'src/*.cpp' 'tools/*.cpp' 'examples/*.cpp')
    set -- "${sources[@]}"
fi
echo "Looking through $# sources ..."
status=0
printf '%s\n' "$@" | xargs --max-procs="$(nproc)" -n 4 clang-tidy -p build/clang --quiet --warnings-as-errors='*' \
    2> >(grep -v -E '^[0-9]+ warnings? generated' >&2) || status=$?
exit "$status"
