#!/usr/bin/env bash
# Builds with AddressSanitizer and UndefinedBehaviorSanitizer and runs every test with leak checking.
source "$(dirname "$0")/common.sh"

install_missing "${test_packages[@]}"
build sanitize
ctest --preset sanitize -j "$(nproc)" "$@"
