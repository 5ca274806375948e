#!/usr/bin/env bash
# Builds for 64-bit Windows and runs the tests there, under Wine: all of them without a screen, and those
# that work in shown windows once more on the platform that real windows have, on a virtual screen. Qt for
# Windows lies in the folder that KESTOVA_QT_WINDOWS names, build/qt5-mingw otherwise (build-qt.sh makes
# one). Arguments are for ctest.
source "$(dirname "$0")/../common.sh"

./scripts/windows/fetch-tools.sh
build windows

# The first program in a prefix decides whether there is a screen, until its server has ended. The server is
# started, and the prefix made, before two tests do it at once.
export WINEPREFIX=$PWD/build/windows/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
in_fresh_wine() {
    wineserver -k || true
    wineserver -p
    wine wineboot -u 2>/dev/null
    "$@"
}
trap 'wineserver -k || true' EXIT

run_tests() { ctest --preset windows -j "$(nproc)" "$@"; }
unset DISPLAY
in_fresh_wine run_tests "$@"

echo "Once more in windows on a screen:"
export KESTOVA_WINDOWS_PLATFORM=windows
export -f in_fresh_wine run_tests
xvfb-run -a -s "-screen 0 1600x1200x24" bash -euc 'in_fresh_wine run_tests -L window "$@"' bash "$@"
