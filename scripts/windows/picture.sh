#!/usr/bin/env bash
# picture.sh FILE [PROGRAM OPTION ...]: has a Windows program open its window on a virtual screen and write a
# picture of it. Without a program that is the reference host of the build with its sample scene.
# (docs/images/windows.png is made with it.)
set -euo pipefail
if [ -z "${KESTOVA_VIRTUAL_SCREEN:-}" ]; then
    KESTOVA_VIRTUAL_SCREEN=1 exec xvfb-run -a -s "-screen 0 1600x1200x24" "$0" "$@"
fi
picture=$(realpath -m "${1:?the file to write}")
shift
cd "$(dirname "$0")/../.."
source scripts/windows/wine.sh
program=${1:-build/windows/bin/kestova-host.exe}
options=("${@:2}")
if [[ $program == *kestova-host.exe ]]; then
    options=(--size 1280x720 --frame 24 --screenshot)
fi
data=$(mktemp -d)
trap 'stop_wine; rm -rf "$data"' EXIT
start_wine
rm -f "$picture"
KESTOVA_HOST_DATA="Z:$data" wine "$program" "${options[@]}" "Z:$picture"
[ -s "$picture" ] || { echo "$0: $program wrote no $picture" >&2; exit 1; }
