#!/usr/bin/env bash
# package.sh [--check]: builds the Debian packages in build/package. With --check also installs them, as root, in a
# fresh Debian of the same release, runs the tools there, and builds and runs a program.
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
[[ ${1:-} == --check ]] || exit 0

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
inside() { chroot "$root" env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root DEBIAN_FRONTEND=noninteractive "$@"; }
package() { basename build/package/"$1"_*.deb; }
install() { quietly inside apt-get install --yes --no-install-recommends "$@"; }

echo "Installing the packages in a fresh root ..."
quietly debootstrap --variant=minbase "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$root"
cp build/package/*.deb examples/gpx/data/track.gpx "$root/tmp"
cp -r tests/consumer "$root/tmp"

# What they depend on is all that the tools have there.
install "/tmp/$(package libbxxmllib5)" "/tmp/$(package bxxmllib5-tools)"
inside bxgen --version
inside bxconvert --version
inside bxconvert --to finf --compress gzip /tmp/track.gpx -o /tmp/track.finf.gz
inside bxconvert --info /tmp/track.finf.gz
inside bxgen -q --name Orders --catalog "/tmp/consumer/the catalog.xml" --out-dir /tmp/made /tmp/consumer/order.xsd
for file in man/man1/bxgen.1.gz man/man1/bxconvert.1.gz bash-completion/completions/bxgen; do
    test -s "$root/usr/share/$file" || { echo "$file is not installed." >&2; exit 1; }
done

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
