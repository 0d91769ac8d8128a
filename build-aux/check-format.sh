#!/usr/bin/env bash
# Fails where a tracked source is not as clang-format leaves it; with --fix,
# formats them all instead.
set -euo pipefail
cd "$(dirname "$0")/.."

mode=(--dry-run -Werror)
[ "${1:-}" = --fix ] && mode=(-i)
git ls-files -z '*.cpp' '*.h' | xargs -0 -r -n 20 -P 2 clang-format --style=file "${mode[@]}"
echo "check-format: every source is as clang-format leaves it"
