#!/usr/bin/env bash
# headers.sh: compiles each public header alone, as C++20 and C++23, by g++ and clang++. Warnings are errors.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

if git grep -n 'using namespace' -- include; then
    echo "A public header must not bring a namespace into that of its users." >&2
    exit 1
fi

# compile HEADER COMPILER STANDARD
compile() {
    echo "#include \"${1#include/}\"" | "$2" "-std=$3" -fsyntax-only -I include \
        -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -x c++ -
}
export -f compile

for compiler in g++ clang++; do
    for standard in c++20 c++2b; do
        echo "Compiling the public headers ($compiler, $standard) ..."
        git ls-files 'include/*.h' | xargs --max-procs="$(nproc)" -I{} bash -c "compile {} $compiler $standard"
    done
done
