# shellcheck shell=bash
# What the scripts have in common. Sourced, not run; leaves the shell in the root of the repository.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Runs a command; what it prints is shown only if it fails.
quietly() {
    local log status=0
    log=$(mktemp)
    "$@" >"$log" 2>&1 || status=$?
    ((status == 0)) || cat "$log" >&2
    rm -f "$log"
    return "$status"
}

# build PRESET [TARGET...]: configures where that is needed, and builds.
build() {
    local preset=$1
    shift
    echo "Building (preset $preset) ..."
    if [[ ! build/$preset/build.ninja -nt CMakePresets.json ]]; then
        quietly cmake --preset "$preset"
    fi
    quietly cmake --build --preset "$preset" ${1:+--target "$@"}
}
