#!/usr/bin/env bash
# Makes the archive for Windows from the build there is and uses it as its users do: it holds the files that
# tests/install/Archive.txt names, the host runs from the folder that it was unpacked to and looks as the one
# of the build does (in the picture that picture.sh makes), and the smallest host is built with it and runs.
source "$(dirname "$0")/../common.sh"

root=$PWD
./scripts/package.sh windows
folder=$(mktemp -d "/tmp/unpacked программы.XXXXXX")
trap 'rm -rf "$folder"' EXIT
(cd "$folder" && cmake -E tar xf "$root"/build/windows/packages/*.zip)
unpacked=$(echo "$folder"/*)

(cd "$unpacked" && find . -type f | LC_ALL=C sort | sed 's|^\./||') | diff tests/install/Archive.txt - ||
    { echo "$0: the archive (>) is not as recorded (<)" >&2; exit 1; }

./scripts/windows/picture.sh "$folder/host.png" "$unpacked/bin/kestova-host.exe"
cmp "$folder/host.png" build/windows/host.png
# It reads what was unpacked, not what the build has: damage shows.
echo "[TickTrack]" >"$unpacked/share/KestovaTimelineQU/skins/default.ini"
if ./scripts/windows/picture.sh "$folder/damaged.png" "$unpacked/bin/kestova-host.exe" >/dev/null 2>&1; then
    echo "$0: the host of the archive does not read the skin of the archive" >&2
    exit 1
fi
cp skins/default.ini "$unpacked/share/KestovaTimelineQU/skins"

cmake -S "$unpacked/share/doc/KestovaTimelineQU/examples/minimal" -B "$folder/minimal" -G Ninja \
    --toolchain "$root/cmake/toolchain-mingw64.cmake" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_FIND_ROOT_PATH="$unpacked" >/dev/null
cmake --build "$folder/minimal" -- --quiet
cp "$folder/minimal/minimal.exe" "$unpacked/bin"
./scripts/windows/picture.sh "$folder/minimal.png" "$unpacked/bin/minimal.exe" --picture
echo "The archive is complete, and works"
