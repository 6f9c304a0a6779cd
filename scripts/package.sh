#!/usr/bin/env bash
# package.sh [--check]: builds the Debian packages in build/package, and runs the tools as unpacked. With --check also
# installs them, as root, in a fresh Debian of the same release, runs the tools there, and builds and runs a program.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

case ${1:-} in
    "" | --check) ;;
    *)
        echo "Usage: scripts/package.sh [--check]" >&2
        exit 2
        ;;
esac

scripts/setup.sh --packages
build package
rm -f build/package/*.deb
quietly cpack --config build/package/CPackConfig.cmake -B build/package
ls build/package/*.deb

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
package() { basename build/package/"$1"_*.deb; }

# try_tools FOLDER RUNNER...: how the tools run, and where that is they see the folder under the same name.
try_tools() {
    local folder=$1
    shift
    "$@" bxgen --version
    "$@" bxconvert --version
    "$@" bxconvert --to finf --compress gzip "$folder/track.gpx" -o "$folder/track.finf.gz"
    "$@" bxconvert --info "$folder/track.finf.gz"
    "$@" bxgen -q --name Orders --catalog "$folder/consumer/the catalog.xml" --out-dir "$folder/made" \
        "$folder/consumer/order.xsd"
}

# has_files ROOT: what belongs to the tools besides.
has_files() {
    local file
    for file in man/man1/bxgen.1.gz man/man1/bxconvert.1.gz bash-completion/completions/bxgen; do
        test -s "$1/usr/share/$file" || { echo "$file is not in the packages." >&2; exit 1; }
    done
}

# copy_data FOLDER
copy_data() {
    cp examples/gpx/data/track.gpx "$1"
    cp -r tests/consumer "$1"
}

echo "Unpacking the packages ..."
for package in build/package/*.deb; do dpkg-deb --extract "$package" "$root/unpacked"; done
libraries=("$root"/unpacked/usr/lib/*-linux-gnu*)
copy_data "$root"
has_files "$root/unpacked"
try_tools "$root" env LD_LIBRARY_PATH="${libraries[0]}" PATH="$root/unpacked/usr/bin:$PATH"
rm -rf "${root:?}"/*
[[ ${1:-} == --check ]] || exit 0

inside() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root DEBIAN_FRONTEND=noninteractive "$@"; }
install() { quietly inside apt-get install --yes --no-install-recommends "$@"; }

echo "Installing the packages in a fresh root ..."
quietly debootstrap --variant=minbase "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$root"
cp build/package/*.deb "$root/tmp"
copy_data "$root/tmp"

# What they depend on is all that the tools have there.
install "/tmp/$(package libbxxmllib5)" "/tmp/$(package bxxmllib5-tools)"
try_tools /tmp inside
has_files "$root"

install g++ cmake make pkgconf "/tmp/$(package libbxxmllib5-dev)"
inside pkg-config --print-errors --exists bxxmllib5
inside env CXXFLAGS=-O0 cmake -S /tmp/consumer -B /tmp/build -DCMAKE_BUILD_TYPE=None >/dev/null
quietly inside cmake --build /tmp/build --target consumer
result=$(inside /tmp/build/consumer /tmp/consumer/order.xml)
[[ $result == "A-17 B-3 9.5 EUR" ]] || { echo "The program tells '$result'." >&2; exit 1; }

# Nothing stays of what is removed.
quietly inside apt-get purge --yes 'libbxxmllib5*' bxxmllib5-tools
left=$(find "$root/usr" "$root/etc" -iname '*bxxmllib5*' -o -name 'bxgen*' -o -name 'bxconvert*')
[[ -z $left ]] || { echo "Left behind: $left" >&2; exit 1; }
echo "The packages install, run and go."
