#!/usr/bin/env bash
# Installs what builds for 64-bit Windows on Debian and runs it there: the compilers of mingw-w64, Wine,
# and a screen for windows that want one.
source "$(dirname "$0")/../common.sh"

install_missing g++ cmake ninja-build libsimpleini-dev fonts-dejavu-core \
    g++-mingw-w64-x86-64-posix libz-mingw-w64-dev wine wine64 xvfb xauth
