#!/usr/bin/env bash
# run.sh PROGRAM [ARGUMENT ...]: runs a Windows program of the build under Wine. Test programs run without a
# screen, or on the platform that KESTOVA_WINDOWS_PLATFORM names: variables that begin with QT_ do not reach
# them. Nor does what they write reach a pipe: it goes to a file, which is printed.
set -euo pipefail
source "$(dirname "$0")/wine.sh"
program=$1
shift

name=$(basename "$program" .exe)
if [[ $name != tst_* ]]; then
    exec wine "$program" "$@"
fi
arguments=(-platform "${KESTOVA_WINDOWS_PLATFORM:-offscreen}")
if [[ $name == *WithoutApplication ]]; then
    arguments=() # which would have taken them
fi
report=$(mktemp)
trap 'rm -f "$report"' EXIT
code=0
wine "$program" "${arguments[@]}" -o "$report,txt" "$@" || code=$?
cat "$report"
if [ "$code" -eq 0 ] && ! grep -q "^Totals: " "$report"; then
    echo "$name ended without a result" >&2
    code=1
fi
exit "$code"
