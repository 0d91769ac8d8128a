#!/usr/bin/env bash
# make-tutorial-pictures.sh [CHAPTER...]: draws the tutorial's pictures into
# doc/pictures/ with the built quillon-picture, in a home of its own, so that they
# show what the program shows. Without an argument all are drawn, else those of
# the chapters named by number ("05"; "00" is the start page).
#
# build-aux/tutorial-pictures/ has a file for each chapter. Its lines are calls of
# the functions below; a script is named without folder and extension, "-" stands
# for none, and STEP... is what quillon-picture takes after the script.
set -euo pipefail
cd "$(dirname "$0")/.."
build-aux/set-up.sh pictures

tool=
for build in release dev; do
    [ -z "$tool" ] && [ -x "build/$build/bin/quillon-picture" ] && tool=build/$build/bin/quillon-picture
done
[ -n "$tool" ] || { echo "there is no quillon-picture yet: build first" >&2; exit 1; }

home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
mkdir -p "$home/.config/Brindlewood"
printf '[General]\nEXE=/usr/bin/true\n' >"$home/.config/Brindlewood/Sorrel.conf"
export HOME=$home XDG_CONFIG_HOME=$home/.config XDG_CACHE_HOME=$home/.cache XDG_RUNTIME_DIR=$home

# Runs the tool over a script. Whatever the program has to say but for the notices
# of a first start is a fault of the script.
draw() {
    local script=$1
    shift
    local said
    [ "$script" = - ] || set -- "$@" "$PWD/Scripts/$script.ftscr"
    rm -rf "$home/Quillon"
    said=$("$tool" "$@" 2>&1) || { echo "$said" >&2; exit 1; }
    if grep -E 'Script Error|Error in|Error:' <<<"$said" >&2; then
        exit 1
    fi
}

# Writes a picture small and without a date.
keep() {
    convert "$1" -strip -define png:exclude-chunks=date,time "doc/pictures/$2.png"
    identify -format '%f: %w by %h, %b\n' "doc/pictures/$2.png"
}

# window NAME SCRIPT STEP...: the whole window.
window() {
    draw "$2" "${@:3}" "$home/shot.png"
    keep "$home/shot.png" "$1"
}

# row NAME CHANNEL SCRIPT STEP...: the three panels of channel 1 or 2.
row() {
    draw "$3" "${@:4}" --row "$2" "$home/shot.png"
    keep "$home/shot.png" "$1"
}

# zoomed NAME CHANNEL TIMES SCRIPT STEP...: the three panels, the spectrum's middle
# enlarged 2, 3 or 4 times, for spectra of single points.
zoomed() {
    local crop first=$(($2 * 3 - 2))
    case $3 in
    2) crop=128x128+64+64 ;;
    3) crop=85x85+85+85 ;;
    4) crop=64x64+96+96 ;;
    esac
    draw "$4" "${@:5}" --panels "$home/shot"
    convert "$home/shot-$first.png" -size 8x256 xc:none \
        \( "$home/shot-$((first + 1)).png" -crop "$crop" +repage -filter point \
        -resize "${3}00%" -background black -extent 256x256 \) \
        xc:none "$home/shot-$((first + 2)).png" +append "$home/row.png"
    keep "$home/row.png" "$1"
}

# panel NAME PANEL SCRIPT STEP...: one panel, 1 to 6.
panel() {
    draw "$3" "${@:4}" --panels "$home/shot"
    keep "$home/shot-$2.png" "$1"
}

# detail NAME PANEL CROP FACTOR SCRIPT STEP...: a part of a panel, as
# widthxheight+left+top, with pixels made square blocks of FACTOR by FACTOR.
detail() {
    draw "$5" "${@:6}" --panels "$home/shot"
    convert "$home/shot-$2.png" -crop "$3" +repage -filter point -resize "${4}00%" "$home/part.png"
    keep "$home/part.png" "$1"
}

mkdir -p doc/pictures
for chapter in build-aux/tutorial-pictures/*.sh; do
    number=$(basename "$chapter" | cut -c1-2)
    if [ $# -eq 0 ] || [[ " $* " == *" $number "* ]]; then
        # shellcheck source=/dev/null
        source "$chapter"
    fi
done
