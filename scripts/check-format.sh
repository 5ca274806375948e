#!/usr/bin/env bash
# Fails when a source file is not laid out as .clang-format says.
source "$(dirname "$0")/common.sh"

install_missing clang-format
git ls-files -co --exclude-standard '*.h' '*.cpp' | xargs clang-format --dry-run --Werror
echo "All sources are laid out as .clang-format says."
