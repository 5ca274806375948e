#!/usr/bin/env bash
# Writes docs/skin-reference.md and its pictures anew from the default skin.
source "$(dirname "$0")/common.sh"

install_missing "${build_packages[@]}"
build release
QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=1 FONTCONFIG_FILE=$PWD/tests/support/fonts.conf \
    build/release/tools/skin_reference/kestova-skin-reference skins/default.ini docs
