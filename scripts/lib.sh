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

# Runs a command with its progress on a terminal; elsewhere what it prints is shown only if it fails.
watched() {
    if [[ -t 1 ]]; then
        NINJA_STATUS='[%f/%t] ' "$@"
    else
        quietly "$@"
    fi
}

# step COMMAND...: runs a command, and tells how long it took.
step() {
    local start=$SECONDS
    printf '\n== %s\n' "$*"
    "$@"
    echo "== $((SECONDS - start)) s: $*"
}

# build PRESET [TARGET...]: configures and builds.
build() {
    local preset=$1
    shift
    echo "Building (preset $preset) ..."
    quietly cmake --preset "$preset"
    watched cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}
