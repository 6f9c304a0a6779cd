#!/usr/bin/env bash
# bench.sh [NAME...] [ARGUMENT...]: builds and runs the benchmarks, or those of these names with their floors, and
# prints a table of their figures; with the name Gigabyte also those of bxconvert on a document of 1 GB. Arguments
# begin with a hyphen and are those of Google Benchmark.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

scripts/setup.sh --tests
build release bxbench
build/release/benchmarks/bxbench --benchmark_min_time=0.1 "$@"
