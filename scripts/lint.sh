#!/usr/bin/env bash
# Formatting and static analysis; every finding is an error.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

# The files git knows that match; an empty list would look like a clean one.
list() {
    local files
    files=$(git ls-files -- "$@") || return 1
    if [ -z "$files" ]; then
        echo "git knows no files like: $*" >&2
        return 1
    fi
    printf '%s\n' "$files"
}

files=$(list '*.h' '*.cpp')
mapfile -t sources <<<"$files"
clang-format --dry-run --Werror "${sources[@]}"
echo "clang-format: ${#sources[@]} files clean"

# Without precompiled headers: a file that forgets an include is found, and clang-tidy reads none of g++.
cmake --preset dev -B build/lint -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >/dev/null
files=$(list '*.cpp' ':!tests/fuzz')
mapfile -t units <<<"$files"
# Counts of what was not shown are noise; everything else clang-tidy says stays.
noise='^[0-9]+ warnings?( and [0-9]+ errors?)? generated\.$|^Suppressed [0-9]+ warnings'
printf '%s\n' "${units[@]}" |
    xargs -P "$(nproc)" -n 1 clang-tidy -p build/lint --quiet --warnings-as-errors='*' 2>&1 |
    { grep -Ev "$noise" || [ $? -eq 1 ]; }
echo "clang-tidy: ${#units[@]} files clean"
