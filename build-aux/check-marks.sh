#!/usr/bin/env bash
# Fails where a tracked text still holds a mark of unfinished work or of a merge
# conflict. The patterns are written with brackets so that they do not find
# themselves.
set -euo pipefail
cd "$(dirname "$0")/.."

bad=0
look_for() {
    if found=$(git grep -nIE "$2" -- .); then
        echo "check-marks: $1:" >&2
        cut -c1-160 <<<"$found" >&2
        bad=1
    fi
}

look_for "unfinished work" '\b(TO[D]O|FIX[M]E|XX[X]|HAC[K])\b|not implemented[ ]yet'
look_for "a merge conflict" '^(<<<<<<<|>>>>>>>)[ ]'

[ $bad -eq 0 ] && echo "check-marks: none found"
exit $bad
