#!/usr/bin/env bash
# xsd-suite.sh [OPTION...] FOLDER [-- BXGEN-ARGUMENT...]: generates classes from a suite of schemas, and passes the
# suite's documents through them: read, written, compared.
#
#   --index FILE     the suite's list (FOLDER/index.tsv): after a line of headings, for each group of schemas a line of
#                    its name, its schemas, its valid and its invalid documents, with tabulators between. Files of one
#                    column are divided by blanks and named from FOLDER, where bxgen runs.
#   --expected FILE  what is known to differ (FOLDER/expected.tsv, if there is one): lines as this script prints them,
#                    of outcome, document and reason, with tabulators between. The reason is for readers.
#   --build BUILD    a build folder that is configured, whose compiler is taken (build/release)
#
# Prints a line for each document that is not as it should be and not known to differ:
#   unequal, refused  a valid one that did not come back as it was, or was not read
#   accepted          an invalid one that was read
#   broken            code that does not compile, a crash, an endless run
#   not taken         bxgen refused the schema; these are counted by reason unless there is a list
#   known             one that is known to differ, and does no longer
# The exit status is 1 if there is such a line, or a document not taken that is not known. All outcomes are in
# outcomes.tsv of the folder that the last lines but one name.

caller=$PWD
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage() {
    echo "Usage: scripts/xsd-suite.sh [--index FILE] [--expected FILE] [--build BUILD] FOLDER [-- BXGEN-ARGUMENT...]" >&2
    exit 2
}

# from_caller FILE: the path of a file as the caller named it.
from_caller() { (cd "$caller" && realpath -e -- "$1"); }

index='' expected='' build='' suite=''
while (($# > 0)); do
    case $1 in
        --index | --expected | --build)
            (($# > 1)) || usage
            printf -v "${1#--}" %s "$(from_caller "$2")"
            shift
            ;;
        --)
            shift
            break
            ;;
        -*) usage ;;
        *)
            [[ -z $suite ]] || usage
            suite=$(from_caller "$1")
            ;;
    esac
    shift
done
[[ -n $suite ]] || usage
[[ -n $index ]] || index=$suite/index.tsv
[[ -n $expected || ! -e $suite/expected.tsv ]] || expected=$suite/expected.tsv

if [[ -n $build ]]; then
    quietly cmake --build "$build" --target BxXmlLib5 bxgen
else
    scripts/setup.sh --tests
    build release BxXmlLib5 bxgen
    build=$PWD/build/release
fi

# cached NAME: a variable of the build.
cached() { sed -n "s/^$1:[A-Z]*=//p" "$build/CMakeCache.txt"; }

export suite work bxgen compiler
work=$build/suite/$(basename "$suite")
bxgen=$build/tools/bxgen/bxgen
compiler="$(cached CMAKE_CXX_COMPILER_LAUNCHER) $(cached CMAKE_CXX_COMPILER) -std=c++20 $(cached CMAKE_CXX_FLAGS) \
    -O0 -Wall -Wextra -I$PWD/include -I$PWD/tests/suite/runner -I$work"
jobs=$(nproc)
groups_of_a_source=60
rm -rf "$work"
mkdir -p "$work/batches"
# Sanitizers reserve more than there is.
[[ $(cached CMAKE_CXX_FLAGS) == *-fsanitize* ]] || ulimit -v 6000000

# generate [BXGEN-ARGUMENT...] GROUP SCHEMAS: makes the classes of a group, and a source that includes and registers them.
# Tells group, exit status, codes of warnings and the first error.
generate() {
    local group=${*: -2:1} schemas=${*: -1} status=0 source
    local folder=$work/$group
    mkdir -p "$folder/suite"
    # shellcheck disable=SC2086 # several schemas
    (cd "$suite" && exec timeout 20 "$bxgen" --program --root-element all --all-warnings -n "$group" -o "$folder" \
        "${@:1:$#-2}" $schemas) >"$folder/bxgen.log" 2>&1 || status=$?
    awk -v group="$group" -v status="$status" '
        match($0, / warning: .*\[[a-z-]+\]$/) {
            code = $NF
            gsub(/[][]/, "", code)
            if (!(code in seen)) warned = warned (warned == "" ? "" : ", ") code
            seen[code]
        }
        match($0, /error: /) && error == "" { error = substr($0, RSTART + RLENGTH) }
        END {
            if (status == 124) error = "bxgen does not end [time]"
            else if (status > 124) error = "bxgen crashed, status " status " [crash]"
            else if (status && error !~ /\[[a-z-]+\]$/) error = error " [other]"
            gsub(/\t/, " ", error)
            print group "\t" status "\t" warned "\t" error
        }' "$folder/bxgen.log" >>"$work/generated.tsv"
    ((status == 0)) || return 0
    {
        for source in "$folder"/*.cpp; do
            [[ $source == *Main.cpp ]] || echo "#include \"$group/${source##*/}\""
        done
        printf '#include "Suite.h"\nstatic Suite::Group const suite_%s("%s", {\n' "$group" "$group"
        sed -n 's/^ *\(&.*::kClass,\)$/    \1/p' "$folder"/*Main.cpp
        echo '});'
    } >"$folder/suite/group.cpp"
}

# culprits LOG: the groups that a compiler's messages tell of, each with its first error. Messages about the headers
# of the library name the group in the lines ahead.
culprits() {
    awk '
        match($0, /T[0-9]+\/[^:]*\.(h|cpp):/) { group = substr($0, RSTART); sub(/\/.*/, "", group) }
        match($0, /error: /) && group != "" {
            if (!(group in seen)) {
                sub(/^[^:]*\//, "")
                print group "\t" $0
            }
            seen[group]
            group = ""
        }' "$1"
}

# compile BATCH: compiles the groups that the file BATCH lists. Those that do not compile are told in uncompiled.tsv.
compile() {
    local batch=$1 groups half
    while mapfile -t groups <"$batch" && ((${#groups[@]} > 0)); do
        printf '#include "%s/suite/group.cpp"\n' "${groups[@]}" >"$batch.cpp"
        ! $compiler -c "$batch.cpp" -o "$batch.o" 2>"$batch.log" || return 0
        culprits "$batch.log" >"$batch.culprits"
        if [[ -s $batch.culprits ]]; then
            cat "$batch.culprits" >>"$work/uncompiled.tsv"
            printf '%s\n' "${groups[@]}" | grep -vxFf <(cut -f 1 "$batch.culprits") >"$batch" || true
        elif ((${#groups[@]} == 1)); then
            printf '%s\t%s\n' "${groups[0]}" "$(grep -m 1 -E 'error|fatal' "$batch.log" || tail -n 1 "$batch.log")" \
                >>"$work/uncompiled.tsv"
            return 0
        else
            half=$((${#groups[@]} / 2))
            printf '%s\n' "${groups[@]:half}" >"${batch}b"
            printf '%s\n' "${groups[@]:0:half}" >"$batch"
            compile "${batch}b"
        fi
    done
}
export -f generate culprits compile

SECONDS=0
# stage TEXT: tells how long the one before took.
stage() { echo "$1 (${SECONDS} s)"; }

touch "$work/generated.tsv" "$work/uncompiled.tsv"
stage "Generating ..."
awk -F '\t' 'NR > 1 { print "T" NR - 1; print $2 }' "$index" |
    xargs -d '\n' -n 2 -P "$jobs" bash -c 'generate "$@"' generate "$@"

stage "Compiling ..."
awk -F '\t' '$2 == 0 { print $1 }' "$work/generated.tsv" | sort -V |
    split -l "$groups_of_a_source" -a 3 - "$work/batches/B"
find "$work/batches" -name 'B*' | sort | xargs -r -P "$jobs" -n 1 bash -c 'compile "$1"' compile
$compiler tests/suite/runner/*.cpp $(find "$work/batches" -name 'B*.o') -o "$work/run" \
    -L"$build/src" -Wl,-rpath,"$build/src" -lBxXmlLib5

stage "Reading and writing ..."
# Documents of groups that compile go to the program; of the others the outcome is known.
awk -F '\t' -v OFS='\t' -v work="$work" '
    part == "generated" { if ($2) failure[$1] = $4; next }
    part == "uncompiled" { failure[$1] = "generated code does not compile: " $2 " [compile]"; next }
    FNR > 1 {
        group = "T" FNR - 1
        for (column = 3; column <= 4; ++column) {
            kind = column == 3 ? "valid" : "invalid"
            count = split($column, documents, " ")
            for (i = 1; i <= count; ++i) {
                if (!(group in failure)) print group, kind, documents[i] >(work "/documents.tsv")
                else if (failure[group] !~ /\[(compile|crash|time)\]$/ || kind == "invalid")
                    print group, kind, "not taken", documents[i], failure[group]
                else print group, kind, "broken", documents[i], failure[group]
            }
        }
    }' part=generated "$work/generated.tsv" part=uncompiled "$work/uncompiled.tsv" part=index "$index" >"$work/outcomes.tsv"
[[ ! -e $work/documents.tsv ]] || (cd "$suite" && "$work/run") <"$work/documents.tsv" >>"$work/outcomes.tsv"
sort -t $'\t' -k 3,3 -k 4,4 -o "$work/outcomes.tsv" "$work/outcomes.tsv"

stage "All outcomes are in ${work#"$PWD/"}/outcomes.tsv"
warnings=$(cat "$work"/batches/B*.log | grep -c 'warning:' || true)
((warnings == 0)) || echo "The C++ compiler warned $warnings times, see ${work#"$PWD/"}/batches"
awk -F '\t' -v OFS='\t' -v hasList="$([[ -z $expected ]] || echo 1)" '
    part == "generated" { warned[$1] = $3; next }
    part == "known" { if ($0 !~ /^(#|$)/) known[$2] = $1; next }
    {
        group = $1; kind = $2; outcome = $3; document = $4; reason = $5
        ++total[kind]
        ++count[kind, outcome]
        isRight = outcome == "equal" || (kind == "invalid" && (outcome == "refused" || outcome == "not taken"))
        if (outcome == "unequal" && warned[group] != "") reason = reason " (warned: " warned[group] ")"
        if (outcome == "not taken" && kind == "valid") {
            code = reason
            sub(/.*\[/, "", code)
            sub(/\]$/, "", code)
            ++reasons[code]
        }
        if (document in known) {
            isKnown = known[document] == outcome
            seen[document]
        } else {
            isKnown = isRight
        }
        if (isKnown) next
        ++deviations
        if (isRight) print "known", document, "as " known[document] ", but it is " outcome
        else if (outcome != "not taken" || hasList) print outcome, document, reason
    }
    END {
        for (code in reasons) print reasons[code] " not taken [" code "]" | "sort -rn"
        close("sort -rn")
        printf "%d of %d valid documents equal, %d refused, %d not taken; %d of %d invalid documents refused\n",
            count["valid", "equal"], total["valid"], count["valid", "refused"], count["valid", "not taken"],
            count["invalid", "refused"], total["invalid"]
        exit deviations > 0
    }' part=generated "$work/generated.tsv" ${expected:+part=known "$expected"} part=outcomes "$work/outcomes.tsv"
