#!/usr/bin/env bash
# Builds everything in release mode and runs every test without a display.
source "$(dirname "$0")/common.sh"

install_missing "${test_packages[@]}"
build release -DKESTOVA_BUILD_TESTS=ON -DKESTOVA_BUILD_BENCH=ON
run_tests release -j "$test_jobs" "$@"
