#!/usr/bin/env bash
# picture.sh FILE: has the reference host open its sample scene as a Windows program, in a window on a virtual
# screen, and write a picture of it. (docs/images/windows.png is made with it.)
set -euo pipefail
if [ -z "${KESTOVA_VIRTUAL_SCREEN:-}" ]; then
    KESTOVA_VIRTUAL_SCREEN=1 exec xvfb-run -a -s "-screen 0 1600x1200x24" "$0" "$@"
fi
picture=$(realpath -m "${1:?the file to write}")
cd "$(dirname "$0")/../.."
source scripts/windows/wine.sh
data=$(mktemp -d)
trap 'stop_wine; rm -rf "$data"' EXIT
start_wine
rm -f "$picture"
KESTOVA_HOST_DATA="Z:$data" wine build/windows/bin/kestova-host.exe \
    --size 1280x720 --frame 24 --screenshot "Z:$picture"
[ -s "$picture" ] || { echo "$0: the host wrote no $picture" >&2; exit 1; }
