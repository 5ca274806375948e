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
rm -rf build/docs
mkdir -p build/docs/timeline/api
# The one that the build writes.
version=$(sed -n 's/^project(KestovaTimelineQU VERSION \([0-9.]*\) .*/\1/p' CMakeLists.txt)
IFS=. read -r major minor patch <<<"$version"
sed -e "s/@PROJECT_VERSION@/$version/; s/@PROJECT_VERSION_MAJOR@/$major/" \
    -e "s/@PROJECT_VERSION_MINOR@/$minor/; s/@PROJECT_VERSION_PATCH@/$patch/" \
    timeline/api/KestovaVersion.h.in >build/docs/timeline/api/KestovaVersion.h
doxygen docs/Doxyfile
echo "The reference of the exported headers is in $PWD/build/docs/html/index.html"
