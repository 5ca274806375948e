#!/usr/bin/env bash
# Builds the reference of the exported headers into build/docs/html. Fails when a header is left out or
# something that it declares is not explained.
source "$(dirname "$0")/common.sh"

install_missing doxygen
exported=$(sed -n '/^set(KESTOVA_PUBLIC_HEADERS/,/)/p' timeline/CMakeLists.txt | grep -oE '(api|model)/[A-Za-z]+\.h' | sort)
explained=$(grep -oE 'timeline/(api|model)/[A-Za-z]+\.h' docs/Doxyfile | sed 's|^timeline/||' | sort)
if [ "$exported" != "$explained" ]; then
    echo "docs/Doxyfile: expected the headers of KESTOVA_PUBLIC_HEADERS as its input:"
    diff <(echo "$exported") <(echo "$explained")
    exit 1
fi
mkdir -p build
rm -rf build/docs
doxygen docs/Doxyfile
echo "The reference of the exported headers is in $PWD/build/docs/html/index.html"
