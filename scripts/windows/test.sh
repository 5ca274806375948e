#!/usr/bin/env bash
# Builds for 64-bit Windows and runs the tests there, under Wine: all of them without a screen; then, on a
# virtual one, the host with its sample scene, the archive for users, and those tests once more that work in
# windows. Qt for Windows lies in the folder that KESTOVA_QT_WINDOWS names, build/qt5-mingw otherwise
# (build-qt.sh makes one). With arguments, which are for ctest, the second part is left out.
source "$(dirname "$0")/../common.sh"

./scripts/windows/fetch-tools.sh
build windows -DKESTOVA_BUILD_TESTS=ON
unset DISPLAY
./scripts/windows/ctest.sh -j "$test_jobs" "$@"
[ $# -eq 0 ] || exit 0

./scripts/windows/picture.sh build/windows/host.png
./scripts/windows/check-archive.sh
# One at a time: they would take the focus from each other.
KESTOVA_WINDOWS_PLATFORM=windows \
    xvfb-run -a -s "-screen 0 1600x1200x24" ./scripts/windows/ctest.sh -L window
