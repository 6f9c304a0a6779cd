#!/usr/bin/env bash
# bench.sh [BENCHMARK ARGUMENT...]: builds and runs the benchmarks.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

scripts/setup.sh
build release bxbench
build/release/benchmarks/bxbench "$@"
