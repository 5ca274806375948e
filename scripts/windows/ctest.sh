#!/usr/bin/env bash
# ctest for the Windows build, in a Wine of its own. Arguments are for ctest.
source "$(dirname "$0")/../common.sh"
source scripts/windows/wine.sh
trap stop_wine EXIT
start_wine
run_tests windows "$@"
