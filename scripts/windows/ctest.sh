#!/usr/bin/env bash
# ctest for the Windows build, in a Wine of its own. Arguments are for ctest.
set -euo pipefail
cd "$(dirname "$0")/../.."
source scripts/windows/wine.sh
trap stop_wine EXIT
start_wine
ctest --preset windows "$@"
