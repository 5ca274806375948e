#!/usr/bin/env bash
# Makes the packages: the Debian packages of build/release, or with the word windows the archive for Windows
# of build/windows. They are put into the folder packages/ of that build.
source "$(dirname "$0")/common.sh"

preset=${1:-release}
case $preset in
release)
    install_missing "${build_packages[@]}" dpkg-dev file binutils
    build release -DKESTOVA_BUILD_TESTS=OFF -DKESTOVA_BUILD_BENCH=OFF
    ;;
windows) # scripts/windows/ gets compiler and Qt
    cmake --preset windows >/dev/null
    cmake --build --preset windows --target KestovaTimelineQU kestova-host kestova-skin-check -- --quiet
    ;;
*)
    echo "$0: expected nothing, or the word windows" >&2
    exit 2
    ;;
esac
rm -rf "build/$preset/packages"
(cd "build/$preset" && cpack >packages.log 2>&1) || { cat "build/$preset/packages.log"; exit 1; }
cd "build/$preset/packages"
echo "The packages are in $PWD:"
shopt -s nullglob
du --apparent-size --block-size=1K -- *.deb *.zip | sed 's/\t/ KiB  /'
