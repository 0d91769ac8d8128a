#!/usr/bin/env bash
# lint.sh [FILE...]: clang-tidy over the given sources, or over every source that
# has changed, itself or a header it includes, since it was last found clean. The
# naming rules of .clang-tidy spare the names in build-aux/given-names.txt.
# Needs the configured build folder build/dev for the compile commands; where it
# has been built, its record of includes tells what a header touches.
set -euo pipefail
cd "$(dirname "$0")/.."

database=build/dev
stamps=build/lint
reports=$stamps/reports
config=$stamps/clang-tidy.yaml
mkdir -p "$stamps"

# Beside the given names, a single capital letter is a quantity of the formula
# beside it, and a name that would hide another or a keyword ends in an underscore.
write_config() {
    local names kind
    names=$(grep -vE '^(#|$)' build-aux/given-names.txt | paste -sd '|')
    cat .clang-tidy
    for kind in Class Struct Function Method Member EnumConstant; do
        echo "  - { key: readability-identifier-naming.${kind}IgnoredRegexp, value: '^($names)\$' }"
    done
    for kind in Variable Parameter PrivateMember ProtectedMember; do
        echo "  - { key: readability-identifier-naming.${kind}Case, value: camelBack }"
        echo "  - { key: readability-identifier-naming.${kind}IgnoredRegexp, value: '^($names|[A-Z]|[a-z][A-Za-z0-9]*_)\$' }"
    done
}
write_config >"$config.new"
cmp -s "$config.new" "$config" || cp "$config.new" "$config"

# Every source that the build knows, by its path from the top.
compiled() {
    grep -oE '"file": "[^"]+\.cpp"' "$database/compile_commands.json" | cut -d '"' -f 4 |
        sed "s|^$PWD/||" | sort -u
}

# The project's own headers of each source, from the build's record: lines of
# "source header".
includes() {
    ninja -C "$database" -t deps 2>/dev/null | awk -v top="$PWD/" '
        /^[^ ]/ { source = "" }
        /^ / {
            path = $1
            sub("^(\\.\\./)+", top, path)
            if (index(path, top) != 1) next
            path = substr(path, length(top) + 1)
            if (path ~ /^build\//) next
            if (source == "") { source = path; next }
            print source, path
        }'
}

stamp_of() { echo "$stamps/${1//\//+}.clean"; }

changed_sources() {
    local source header stamp
    declare -A stale=()
    while read -r source header; do
        stamp=$(stamp_of "$source")
        if [ ! "$stamp" -nt "$header" ]; then stale[$source]=1; fi
    done < <(includes)
    while read -r source; do
        stamp=$(stamp_of "$source")
        if [ -n "${stale[$source]:-}" ] || [ ! "$stamp" -nt "$source" ] || [ ! "$stamp" -nt "$config" ]; then
            echo "$source"
        fi
    done < <(compiled)
}

# shellcheck disable=SC2317  # Called through xargs.
lint_one() {
    local source=$1 report=$reports/${1//\//+}
    if clang-tidy --quiet --config-file="$config" -p "$database" "$source" >"$report" 2>/dev/null; then
        touch "$(stamp_of "$source")"
        rm "$report"
    else
        return 1
    fi
}
export -f lint_one stamp_of
export config database stamps reports

if [ $# -gt 0 ]; then
    sources=("$@")
else
    mapfile -t sources < <(changed_sources)
fi
if [ ${#sources[@]} -eq 0 ]; then
    echo "lint: nothing has changed since the last clean run"
    exit 0
fi
echo "lint: ${#sources[@]} sources"
rm -rf "$reports"
mkdir -p "$reports"
# shellcheck disable=SC2016  # The inner shell expands it.
if printf '%s\0' "${sources[@]}" | xargs -0 -n 1 -P 2 bash -c 'lint_one "$1"' lint_one; then
    echo "lint: clean"
    exit 0
fi

# What is said of a header is said once, not once for each source that includes it.
cat "$reports"/* | sed "s|^$PWD/||" | awk '
    /^[^ ]+:[0-9]+:[0-9]+: (error|warning)/ { show = !seen[$0]++ }
    show { print }'
echo "lint: $(find "$reports" -type f | wc -l) sources are not clean" >&2
exit 1
