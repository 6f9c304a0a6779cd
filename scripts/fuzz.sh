#!/usr/bin/env bash
# fuzz.sh TARGET|all [SECONDS]: builds a fuzz target and runs it, or all of them, as many at a time as there are
# processors, each for a minute if not told otherwise. BX_FUZZ_SEED is where chance begins; without it, or with 0, it
# begins elsewhere each time. With a seed the corpus is new too. Runs still differ, as the keys of hashes and the order of
# addresses do.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

targets=(xml fastinfoset gpx values pattern tree schema events records)
target=${1:?Usage: scripts/fuzz.sh all|$(IFS='|' && echo "${targets[*]}") [SECONDS]}
seconds=${2:-60}
seed=${BX_FUZZ_SEED:-0}
[[ $target == all ]] || targets=("$target")

scripts/setup.sh --all
build fuzz "${targets[@]/#/fuzz_}"

# fuzz TARGET
fuzz() {
    local corpus=build/fuzz/corpus/$1 seeds=("fuzz/seeds/$1")
    if ((seed != 0)); then
        corpus=build/fuzz/seeded/$1
        rm -rf "$corpus"
    fi
    [[ $1 != events && $1 != records ]] || seeds+=(fuzz/seeds/xml fuzz/seeds/fastinfoset fuzz/seeds/gpx)
    mkdir -p "$corpus"
    echo "Fuzzing $1 for $seconds seconds ..."
    quietly "build/fuzz/fuzz/fuzz_$1" -seed="$seed" -max_total_time="$seconds" -max_len=4096 \
        -timeout=30 -artifact_prefix="build/fuzz/$1-" "$corpus" "${seeds[@]}"
}
export seconds seed
export -f fuzz quietly
printf '%s\n' "${targets[@]}" | xargs --max-procs="$(nproc)" -I{} bash -euo pipefail -c 'fuzz {}'
