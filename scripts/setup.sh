#!/usr/bin/env bash
# setup.sh [--tests|--packages|--all]: installs what building needs and is missing; with --tests also what the tests
# and benchmarks need, with --packages what packages are made and tried with, with --all both and what .ci/run needs
# besides. Packages are those of Debian 12 and 13.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

packages=(g++ cmake ninja-build libexpat1-dev zlib1g-dev libpcre2-dev)
tools=(g++ cmake ninja)
kind=${1:-}
case $kind in
    '' | --tests | --packages | --all) ;;
    *)
        echo "Usage: scripts/setup.sh [--tests|--packages|--all]" >&2
        exit 2
        ;;
esac
if [[ $kind == --tests || $kind == --all ]]; then
    packages+=(make pkgconf libgtest-dev libgmock-dev libbenchmark-dev time)
    tools+=(make pkg-config)
fi
if [[ $kind == --packages || $kind == --all ]]; then
    packages+=(dpkg-dev file gzip debootstrap)
fi
if [[ $kind == --all ]]; then
    packages+=(git clang clang-format clang-tidy libclang-rt-dev libxerces-c-dev doxygen)
    tools+=(git clang++ clang-format clang-tidy doxygen)
fi

is_installed() {
    dpkg-query --show --showformat='${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed
}

missing=()
for package in "${packages[@]}"; do
    is_installed "$package" || missing+=("$package")
done
((${#missing[@]} > 0)) || exit 0

if ! command -v apt-get >/dev/null; then
    echo "Needed are what Debian calls ${missing[*]}." >&2
    for tool in "${tools[@]}"; do
        command -v "$tool" >/dev/null || { echo "$tool is not there." >&2; exit 1; }
    done
    exit 0
fi

install=(apt-get install --yes --no-install-recommends "${missing[@]}")
as_root=(env DEBIAN_FRONTEND=noninteractive)
((EUID == 0)) || as_root=(sudo "${as_root[@]}")
if command -v "${as_root[0]}" >/dev/null; then
    echo "Installing ${missing[*]} ..."
    if quietly "${as_root[@]}" apt-get update && quietly "${as_root[@]}" "${install[@]}"; then
        exit 0
    fi
fi
echo "Packages are missing. Install them as root, and come again:" >&2
echo "    ${install[*]}" >&2
exit 1
