#!/usr/bin/env bash
# setup.sh [--all]: installs what building and testing needs and is missing; with --all also what .ci/run needs
# besides. Packages are those of Debian 12.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

packages=(g++ cmake make ninja-build libexpat1-dev zlib1g-dev libpcre2-dev libgtest-dev libgmock-dev libbenchmark-dev time)
tools=(g++ cmake make ninja)
if [[ ${1:-} == --all ]]; then
    packages+=(git clang clang-format clang-tidy libclang-rt-14-dev libxerces-c-dev doxygen)
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

if ((EUID == 0)); then
    as_root=(env DEBIAN_FRONTEND=noninteractive)
else
    as_root=(sudo env DEBIAN_FRONTEND=noninteractive)
fi

if command -v apt-get >/dev/null && command -v "${as_root[0]}" >/dev/null; then
    echo "Installing ${missing[*]} ..."
    quietly "${as_root[@]}" apt-get update
    quietly "${as_root[@]}" apt-get install --yes --no-install-recommends "${missing[@]}"
    exit 0
fi

echo "Nothing can be installed here. Needed are what Debian calls: ${missing[*]}" >&2
for tool in "${tools[@]}"; do
    if ! command -v "$tool" >/dev/null; then
        echo "$tool is not there." >&2
        exit 1
    fi
done
