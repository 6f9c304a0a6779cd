#!/usr/bin/env bash
# demo.sh: builds the tools and the examples, and shows what they do.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

scripts/setup.sh
build package BxXmlLib5 bxconvert bxgen gpxstat values
built=$PWD/build/package
PATH=$built/tools/bxconvert:$built/tools/bxgen:$built/examples/gpx:$built/examples/values:$PATH

# Where a compiler and a program look by themselves once the library is installed.
export CPATH=$PWD/include LIBRARY_PATH=$built/src LD_LIBRARY_PATH=$built/src

compiler=${CXX:-g++}
schema=$PWD/examples/gpx/gpx.xsd
track=$PWD/examples/gpx/data/track.gpx
mime=/usr/share/mime/packages/freedesktop.org.xml
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
cp "$schema" "$track" .

heading() { printf '\n== %s\n\n' "$1"; }

# Shows a command line and runs it.
run() {
    echo "\$ $1"
    eval "$1"
}

size() { stat --format %s "$1"; }

# Shows that two files are the same, or ends the demo.
same() {
    cmp "$1" "$2"
    echo "$1 and $2 are the same, octet for octet ($(size "$1") octets)."
}

heading "A schema in, a program out, a document read, changed and written"
cat >rename.cpp <<'EOF'
#include "Gpx.h"

int main() {
    Gpx::CGpx gpx;
    gpx.Load("track.gpx");
    for (Gpx::CTrk& track : gpx.Trk) track.Name = "South ridge";
    gpx.Metadata.Make().Keywords = "hike, south";
    gpx.Save("changed.gpx", Gpx::Bx::Layout::Indented);
}
EOF
run 'cat rename.cpp'
echo
run 'bxgen -q --name Gpx --strip-suffix Type gpx.xsd'
run "$compiler -std=c++20 -O1 rename.cpp Gpx.cpp -lBxXmlLib5 -o rename"
run './rename'
echo
run 'wc -l gpx.xsd Gpx*.h Gpx*.cpp'
run 'grep -A 9 "^class CRte" Gpx.h'

heading "A program without a line of code, which reads, checks and writes documents"
run 'bxgen -q --program --name Gpx --strip-suffix Type gpx.xsd'
run "$compiler -std=c++20 -O1 GpxMain.cpp Gpx.cpp -lBxXmlLib5 -o gpx"
run './gpx track.gpx -o written.gpx'
run 'diff written.gpx changed.gpx || true'

heading "A value that the schema forbids"
status=0
run "sed 's/lat=\"47.4/lat=\"147.4/' track.gpx | ./gpx --check -" 2>&1 || status=$?
echo "Exit status $status."
((status == 2))

heading "A GPS track: what is in it"
run 'bxconvert --info track.gpx'

heading "Read and written again, formatted"
run 'bxconvert --format track.gpx -o formatted.gpx'
run 'head -n 15 formatted.gpx'
echo "..."
run 'grep -m 1 -B 6 -A 4 "<s:reading" formatted.gpx'

heading "What was written, read and written once more"
run 'bxconvert formatted.gpx -o again.gpx'
same formatted.gpx again.gpx

heading "Compact, and back"
run 'bxconvert --compact track.gpx -o compact.gpx'
run 'bxconvert --format compact.gpx -o back.gpx'
echo "track.gpx has $(size track.gpx) octets, compact.gpx $(size compact.gpx)."
same formatted.gpx back.gpx

heading "Compressed input, from a pipe"
run 'gzip -c track.gpx | bxconvert --format - -o unzipped.gpx'
same formatted.gpx unzipped.gpx

heading "Fast Infoset, the binary form of XML, compressed and back"
run 'grep -v "^<!--" formatted.gpx > plain.gpx'
run 'bxconvert --to finf --compact plain.gpx -o track.finf'
run 'head -c 64 track.finf | od -A d -t x1z'
run 'bxconvert --compress gzip track.finf --to finf -o track.finf.gz'
run 'bxconvert --compress gzip --compact track.gpx -o track.gpx.gz'
run 'bxconvert --format track.finf.gz -o returned.gpx'
printf '%8d octets of %s\n' \
    "$(size track.gpx)" "XML text" "$(size compact.gpx)" "compact XML text" \
    "$(size track.finf)" "Fast Infoset" "$(size track.gpx.gz)" "compact XML text, gzip" \
    "$(size track.finf.gz)" "Fast Infoset, gzip"
same plain.gpx returned.gpx
run 'bxconvert --encoding utf-16 --compress zlib track.finf.gz | bxconvert --to finf - -o again.finf'
same track.finf again.finf

heading "A document that is none"
run 'sed "s,</ele>,</el>," track.gpx > broken.gpx'
status=0
run 'bxconvert broken.gpx -o formatted.gpx' 2>&1 || status=$?
echo "Exit status $status; the output file is as it was:"
((status == 1))
same formatted.gpx again.gpx

if [[ -r $mime ]]; then
    heading "A larger document: the shared MIME database of this machine"
    run "bxconvert --info $mime"
    echo
    run "bxconvert --format $mime -o formatted.xml"
    run 'head -n 5 formatted.xml'
    echo "..."
    run "bxconvert --compact $mime -o compact.xml"
    run 'bxconvert --format compact.xml -o back.xml'
    echo "The database has $(size "$mime") octets, formatted.xml $(size formatted.xml), compact.xml $(size compact.xml)."
    same formatted.xml back.xml
fi

heading "A document that is larger than the memory of who reads it"
run 'large() { echo "<gpx>"; seq -f "<wpt lat=\"47.4\" lon=\"8.5\"><name>%.0f</name></wpt>" 1500000; echo "</gpx>"; }'
run 'large | (ulimit -v 60000; bxconvert --to finf --compress gzip -) | (ulimit -v 60000; bxconvert -) | wc -c'
run 'large | (ulimit -v 60000; bxconvert --info -)'

heading "The value types of XML Schema, in a program of an application"
run values

heading "The same track in the classes of GPX, each value of its own type"
run 'gpxstat --write typed.gpx track.gpx'
run 'grep -m 1 -A 6 "<trkpt" typed.gpx'
run 'gpxstat --write again.gpx typed.gpx'
same typed.gpx again.gpx

heading "A track that is larger than the memory of who reads it, point by point"
run 'track() { echo "<gpx xmlns=\"http://www.topografix.com/GPX/1/1\" version=\"1.1\" creator=\"seq\"><trk><trkseg>"
    seq -f "<trkpt lat=\"47.%.0f\" lon=\"8.5\"/>" 1000000 1999999; echo "</trkseg></trk></gpx>"; }'
run 'track | wc -c'
run 'track | gzip -1 | (ulimit -v 30000; gpxstat /dev/stdin)'

heading "A position that is none"
run 'sed "s/lat=\"47.4/lat=\"147.4/" track.gpx > broken.gpx'
status=0
run 'gpxstat broken.gpx' 2>&1 || status=$?
echo "Exit status $status."
((status == 1))
