#!/usr/bin/env bash
# Builds the reference host and opens the sample scene: in a window when there is a display, otherwise
# rendered to build/demo.png.
source "$(dirname "$0")/common.sh"

install_missing "${build_packages[@]}"
build release -DKESTOVA_BUILD_TESTS=OFF -DKESTOVA_BUILD_BENCH=OFF
host=build/release/host/kestova-host

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$host" "$@"
fi
QT_QPA_PLATFORM=offscreen "$host" --size 1280x720 --frame 37 --screenshot build/demo.png "$@"
echo "There is no display: the sample scene was rendered to $PWD/build/demo.png"
