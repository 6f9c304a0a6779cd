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
(cd build/package && quietly cpack)
ls build/package/*.deb
[[ ${1:-} == --check ]] || exit 0

root=$(mktemp -d)
trap 'rm -rf "$root"' EXIT
echo "Installing the packages in a fresh root ..."
release=$(. /etc/os-release && echo "$VERSION_CODENAME")
quietly debootstrap --variant=minbase "$release" "$root"
inside() { chroot "$root" env -i PATH="$PATH" HOME=/root LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive "$@"; }
cp build/package/*.deb "$root/tmp"
cp examples/gpx/gpx.xsd examples/gpx/data/track.gpx tests/consumer/order.x?? tests/consumer/items.xsd "$root/tmp"

# What the library needs comes by its Depends alone.
quietly inside apt-get install --yes --no-install-recommends /tmp/libbxxmllib5_*.deb /tmp/bxxmllib5-tools_*.deb
