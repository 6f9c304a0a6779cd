#!/usr/bin/env bash
# test.sh [CTEST ARGUMENT...]: builds everything and runs every test.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

scripts/setup.sh --tests
build release
ctest --preset release --parallel "$(nproc)" "$@"
