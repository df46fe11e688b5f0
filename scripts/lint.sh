#!/usr/bin/env bash
# Formatting and static analysis; every finding is an error.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

mapfile -t sources < <(git ls-files '*.h' '*.cpp')
clang-format --dry-run --Werror "${sources[@]}"
echo "clang-format: ${#sources[@]} files clean"

[ -f build/dev/build.ninja ] || cmake --preset dev >/dev/null
mapfile -t units < <(git ls-files '*.cpp' ':!tests/fuzz')
printf '%s\n' "${units[@]}" |
    xargs -P "$(nproc)" -n 1 clang-tidy -p build/dev --quiet --warnings-as-errors='*' 2>/dev/null
echo "clang-tidy: ${#units[@]} files clean"
