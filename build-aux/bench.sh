#!/usr/bin/env bash
# Runs every benchmark of the bench build, one after the other.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

shopt -s nullglob
programs=("$top"/build/bench/bin/*bench*)
[ ${#programs[@]} -gt 0 ] || { echo "bench: no benchmark was built" >&2; exit 1; }
for program in "${programs[@]}"; do
    echo "== ${program##*/}"
    "$program" "$@"
done
