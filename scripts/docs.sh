#!/usr/bin/env bash
# docs.sh: makes the reference of the public headers in build/docs/html. What is not documented, or not as doxygen wants
# it, fails.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

scripts/setup.sh --all
echo "Making the reference ..."
mkdir -p build/docs
doxygen docs/Doxyfile
echo "build/docs/html/index.html"
