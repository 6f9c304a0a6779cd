#!/usr/bin/env bash
# format.sh [--check]: formats the sources, or fails if one is not formatted.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

case ${1:-} in
    "") how=(-i) ;;
    --check) how=(--dry-run --Werror) ;;
    *)
        echo "Usage: scripts/format.sh [--check]" >&2
        exit 2
        ;;
esac

scripts/setup.sh --all
mapfile -t sources < <(git ls-files '*.h' '*.cpp')
clang-format "${how[@]}" "${sources[@]}"
