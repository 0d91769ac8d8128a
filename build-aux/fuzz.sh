#!/usr/bin/env bash
# fuzz.sh [SECONDS]: runs every fuzz target for that long (60), starting from the
# inputs kept in fuzz/corpus/TARGET. New inputs go to build/fuzz/found/TARGET,
# an input that breaks something is left in build/fuzz/broken/.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
seconds=${1:-60}

shopt -s nullglob
programs=("$top"/build/fuzz/bin/*fuzz*)
[ ${#programs[@]} -gt 0 ] || { echo "fuzz: no target was built" >&2; exit 1; }
mkdir -p "$top/build/fuzz/broken"
for program in "${programs[@]}"; do
    name=${program##*/}
    found=$top/build/fuzz/found/$name
    mkdir -p "$found"
    corpus=("$found")
    [ -d "$top/fuzz/corpus/$name" ] && corpus+=("$top/fuzz/corpus/$name")
    echo "== $name for $seconds seconds"
    "$program" -max_total_time="$seconds" -print_final_stats=1 \
        -artifact_prefix="$top/build/fuzz/broken/$name-" "${corpus[@]}"
done
