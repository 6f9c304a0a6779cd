#!/usr/bin/env bash
# fuzz.sh TARGET [SECONDS]: builds a fuzz target, xml, fastinfoset or schema, and runs it, for a minute if not told
# otherwise.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

target=${1:?Usage: scripts/fuzz.sh xml|fastinfoset|schema [SECONDS]}
seconds=${2:-60}

scripts/setup.sh --all
build fuzz "fuzz_$target"
corpus=build/fuzz/corpus/$target
mkdir -p "$corpus"
echo "Fuzzing $target for $seconds seconds ..."
quietly "build/fuzz/fuzz/fuzz_$target" -max_total_time="$seconds" -max_len=4096 -timeout=30 \
    -artifact_prefix=build/fuzz/ "$corpus" "fuzz/seeds/$target"
