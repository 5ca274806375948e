#!/usr/bin/env bash
# Builds with AddressSanitizer and UndefinedBehaviorSanitizer and runs the tests with leak checking: all of
# them, or with the word library those of the library alone, without the reference host.
source "$(dirname "$0")/common.sh"

host=ON
if [ "${1:-}" = library ]; then
    host=OFF
    shift
fi
install_missing "${test_packages[@]}"
build sanitize -DKESTOVA_BUILD_HOST=$host
run_tests sanitize -j "$test_jobs" "$@"
