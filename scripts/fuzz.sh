#!/usr/bin/env bash
# fuzz.sh [TARGET|all] [SECONDS]: builds a fuzz target and runs it, or each of them one after the other, for a minute if
# not told otherwise.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

targets=(xml fastinfoset gpx values pattern tree schema)
target=${1:?Usage: scripts/fuzz.sh all|$(IFS='|' && echo "${targets[*]}") [SECONDS]}
seconds=${2:-60}
[[ $target == all ]] || targets=("$target")

scripts/setup.sh --all
build fuzz "${targets[@]/#/fuzz_}"
for target in "${targets[@]}"; do
    corpus=build/fuzz/corpus/$target
    mkdir -p "$corpus"
    echo "Fuzzing $target for $seconds seconds ..."
    quietly "build/fuzz/fuzz/fuzz_$target" -max_total_time="$seconds" -max_len=4096 -timeout=30 \
        -artifact_prefix=build/fuzz/ "$corpus" "fuzz/seeds/$target"
done
