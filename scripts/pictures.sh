#!/usr/bin/env bash
# Makes every picture of docs/ anew: the reference host runs docs/scripts/*.txt without a display, and the
# reference of the skins draws its own.
source "$(dirname "$0")/common.sh"

scripts/skin-reference.sh
export QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=1 LC_ALL=C.UTF-8
export FONTCONFIG_FILE=$PWD/tests/support/fonts.conf
host=$PWD/build/release/host/kestova-host
cd docs/images
for script in ../scripts/*.txt; do
    "$host" --script "$script" 2> >(grep -v '^This plugin does not support' >&2)
done
echo "The pictures are in $PWD"
