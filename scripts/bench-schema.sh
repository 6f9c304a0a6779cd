#!/usr/bin/env bash
# bench-schema.sh [--document FILE] [BXGEN-ARGUMENT... SCHEMA]: what generating and compiling classes costs, for a schema
# of a thousand classes that is made here, for that of GPX and for the one that is named; what their objects take; and
# what reading and writing GPX costs against the floor.
#
#   --document FILE  one of the named schema, which a program generated from it reads and writes again
#
# Seconds are those of the processor but for bxgen, whose are those of the clock; of five runs the best.
caller=$PWD
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

document=''
if [[ ${1:-} == --document ]]; then
    document=$(cd "$caller" && realpath -e -- "$2")
    shift 2
fi

scripts/setup.sh --tests
build release BxXmlLib5 bxgen bxbench
bxgen=$PWD/build/release/tools/bxgen/bxgen
compiler="${CXX:-g++} -std=c++20 -I$PWD/include"
library="-L$PWD/build/release/src -Wl,-rpath,$PWD/build/release/src -lBxXmlLib5"
gpx=$PWD/examples/gpx/gpx.xsd
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# A class has ten elements, a third of them repeated, four of them of other classes, and two attributes.
thousand_classes() {
    awk 'BEGIN {
        print "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\" xmlns=\"urn:t\" targetNamespace=\"urn:t\">"
        print "<xs:simpleType name=\"code\"><xs:restriction base=\"xs:token\">"
        print "<xs:enumeration value=\"a\"/><xs:enumeration value=\"b\"/></xs:restriction></xs:simpleType>"
        print "<xs:simpleType name=\"short\"><xs:restriction base=\"xs:string\">"
        print "<xs:maxLength value=\"30\"/></xs:restriction></xs:simpleType>"
        count = split("xs:string xs:int xs:decimal xs:dateTime xs:boolean xs:token code short", simple, " ")
        print "<xs:element name=\"root\" type=\"type0\"/>"
        for (i = 0; i < 1000; ++i) {
            print "<xs:complexType name=\"type" i "\"><xs:sequence>"
            for (k = 0; k < 10; ++k) {
                type = k < 6 ? simple[(i + k * 3) % count + 1] : "type" (i * 7 + k * 131) % 1000
                bounds = k % 3 == 2 ? " minOccurs=\"0\" maxOccurs=\"unbounded\"" : k > 2 ? " minOccurs=\"0\"" : ""
                print "<xs:element name=\"member" k "\" type=\"" type "\"" bounds "><xs:annotation>"
                print "<xs:documentation>What it holds at " k ".</xs:documentation></xs:annotation></xs:element>"
            }
            print "</xs:sequence><xs:attribute name=\"id\" type=\"xs:token\" use=\"required\"/>"
            print "<xs:attribute name=\"size\" type=\"xs:int\"/></xs:complexType>"
        }
        print "</xs:schema>"
    }'
}

# best FORMAT COMMAND...: the least that time(1) tells of five runs.
best() {
    local run
    for run in 1 2 3 4 5; do
        /usr/bin/time -f "$1" -o "$work/time" "${@:2}" >"$work/log" 2>&1 || { cat "$work/log" >&2; return 1; }
        cat "$work/time"
    done | sort -n | head -n 1
}

# compile LEVEL SOURCE: seconds and megabytes.
compile() {
    /usr/bin/time -f '%U %M' $compiler "-$1" -c "$2" -o "$2.o" 2>&1 |
        awk '{ printf "%.1f s %d MB", $1, $2 / 1024 }'
}

# octets FOLDER NAME: of the smallest, the middle and the greatest class.
octets() {
    {
        printf '#include "%s.h"\n#include <cstdio>\nint main() {\n' "$2"
        sed -n "s/^class \(C.*\);/    std::printf(\"%zu \1\\\\n\", sizeof($2::\1));/p" "$1/$2Fwd.h"
        echo '}'
    } >"$1/octets.cpp"
    $compiler -O0 "$1/octets.cpp" "$1/$2"*.cpp.o $library -o "$1/octets"
    "$1/octets" | sort -n | awk '{ line[NR] = $0 } END { print line[1] ", " line[int((NR + 1) / 2)] ", " line[NR] }'
}

# measure NAME SOURCES BXGEN-ARGUMENT...: prints the figures of a schema. Its files stay in a folder of that name.
measure() {
    local name=$1 sources=$2 folder=$work/$1 seconds classes source
    shift 2
    # A file that is the same would not be written.
    seconds=$(cd "$caller" && best %e sh -c 'rm -rf "$1"; shift; exec "$@"' - "$folder" \
        "$bxgen" -q --sources "$sources" -n "$name" -o "$folder" "$@")
    classes=$(grep -c '^class ' "$folder/${name}Fwd.h")
    printf '\n%s: %d classes, %d lines a class\n' "$name" "$classes" $(($(cat "$folder"/* | wc -l) / classes))
    printf '  bxgen                %s s\n' "$seconds"
    for source in "$folder"/*.cpp; do
        printf '  %-20s -O0 %s, -O2 %s\n' "${source##*/}" "$(compile O0 "$source")" "$(compile O2 "$source")"
    done
    printf '  octets of objects    %s\n' "$(octets "$folder" "$name")"
}

thousand_classes >"$work/thousand.xsd"
measure Thousand 5 "$work/thousand.xsd"
measure Gpx 1 --strip-suffix Type "$gpx"
if (($# > 0)); then
    measure Named 1 "$@"
fi
if [[ -n $document ]]; then
    folder=$work/Named
    (cd "$caller" && "$bxgen" -q --program -n Named -o "$folder" "$@")
    $compiler -O2 "$folder/NamedMain.cpp" "$folder/Named.cpp.o" $library -o "$folder/program"
    printf '  document             %d octets: read in %s s, read and written in %s s\n' \
        "$(stat --format %s "$document")" "$(best %U "$folder/program" --check "$document")" \
        "$(best %U "$folder/program" "$document" -o "$folder/written.xml")"
fi

echo
build/release/benchmarks/bxbench ReadGpx WriteGpxUtf8 PeakOfReadGpx 2>/dev/null | sed -n '/^  figure/,$p'
