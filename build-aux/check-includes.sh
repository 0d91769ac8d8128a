#!/usr/bin/env bash
# Checks the order of the folders: an include points to the same folder or to a
# lower one, and only desktop/, tools/, their tests and benchmarks know the
# toolkit. Prints each offending line and fails if there is one.
set -euo pipefail
cd "$(dirname "$0")/.."

# From the ground up. engine/ and analysis/ are one library with the channel's
# class header in engine/, but a file of engine/ still includes nothing of
# analysis/.
folders=(engine analysis app scripting ui desktop)
bad=0

offend() {
    echo "check-includes: $1" >&2
    echo "$2" >&2
    bad=1
}

higher=()
for ((i = ${#folders[@]} - 1; i >= 0; i--)); do
    folder=${folders[i]}
    if [ ${#higher[@]} -gt 0 ]; then
        pattern=$(IFS='|'; echo "${higher[*]}")
        if found=$(git grep -nE "^ *# *include *[\"<]($pattern)/" -- "$folder/*.cpp" "$folder/*.h"); then
            offend "$folder/ may not include a higher folder:" "$found"
        fi
    fi
    if found=$(git grep -nE '^ *# *include *["<](tests|bench|fuzz|tools)/' -- "$folder/*.cpp" "$folder/*.h"); then
        offend "$folder/ may not include tests or tools:" "$found"
    fi
    higher+=("$folder")
done

# Toolkit headers are named <QSomething>, <QtModule/...> or <qsomething.h>.
if found=$(git grep -nE '^ *# *include *[<"](Q[A-Z]|Qt|q[a-z]+\.h)' -- \
    'engine' 'analysis' 'app' 'scripting' 'ui' \
    'tests/engine' 'tests/analysis' 'tests/app' 'tests/scripting' 'tests/ui' 'tests/support' \
    'bench' ':!bench/desktop' 'fuzz'); then
    offend "only desktop/, tools/, tests/desktop/ and bench/desktop/ may know the toolkit:" "$found"
fi

[ $bad -eq 0 ] && echo "check-includes: every include points down"
exit $bad
