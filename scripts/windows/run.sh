#!/usr/bin/env bash
# run.sh PROGRAM [ARGUMENT ...]: runs a Windows program of the build under Wine, with a prefix of its own
# in the build folder and without a screen. What a test program writes does not reach a pipe, so it goes
# to a file, which is printed.
set -euo pipefail
program=$1
shift
build=$(cd "$(dirname "$0")/../.." && pwd)/build/windows
export WINEPREFIX=${KESTOVA_WINE_PREFIX:-$build/wine} WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml="

name=$(basename "$program" .exe)
if [[ $name != tst_* ]]; then
    exec wine "$program" "$@"
fi
arguments=(-platform "${KESTOVA_WINDOWS_PLATFORM:-offscreen}")
if [[ $name == *WithoutApplication ]]; then
    arguments=() # which would have taken them
fi
report=$(mktemp "$build/$name.XXXXXX")
trap 'rm -f "$report"' EXIT
code=0
wine "$program" "${arguments[@]}" -o "$report,txt" "$@" || code=$?
cat "$report"
exit "$code"
