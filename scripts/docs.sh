#!/usr/bin/env bash
# docs.sh: makes the reference of the public headers in build/docs/html. Fails on what is not documented, or not as
# doxygen wants it, and on links of the pages that lead nowhere.
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

# The anchors of a page's headings.
anchors() {
    sed -n 's/^##* //p' "$1" | tr '[:upper:] ' '[:lower:]-' | tr -cd '[:alnum:]_\n-'
}

broken=0
while IFS=: read -r page link; do
    link=${link#](}
    link=${link%)}
    target=$(dirname "$page")/${link%%#*}
    [[ $link != '#'* ]] || target=$page
    if [[ ! -e $target ]] || { [[ $link == *'#'* ]] && ! anchors "$target" | grep -qxF -- "${link#*#}"; }; then
        echo "$page: $link leads nowhere" >&2
        broken=1
    fi
done < <(git grep -o '](\([^):]*\))' -- '*.md')
((broken == 0)) || exit 1

scripts/setup.sh --all
echo "Making the reference ..."
mkdir -p build/docs
doxygen docs/Doxyfile
echo "build/docs/html/index.html"
