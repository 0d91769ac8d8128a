#!/usr/bin/env bash
# Draws the ground of the About box, assets/about.jpg, at twice its size of 387
# by 214: on white a picture of three waves that meet at 60 degrees, and at its
# right the six spots that are their spectrum. Both fade into the white where the
# texts stand.
set -euo pipefail
cd "$(dirname "$0")/.."
build-aux/set-up.sh pictures

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The waves, in the blue of the first colour scheme (48, 108, 160) on white; the
# middle of the picture is a crest.
wave() { echo "cos(2*pi*((i-200)*$1+(j-86)*$2)/46)"; }
waves="($(wave 1 0)+$(wave 0.5 0.8660254)+$(wave 0.5 -0.8660254)+1.5)/4.5"
convert -size 774x428 xc:white -fx "$waves" -colorspace Gray "$work/waves.png"
convert "$work/waves.png" +level-colors '#FFFFFF,#306CA0' "$work/blue.png"

# Full at the left, gone towards the right and towards the texts.
convert -size 774x428 xc:white -fx \
    'max(0,min(1,(430-i)/260))*max(0,min(1,(180-j)/110))' -colorspace Gray "$work/fade.png"

# The spectrum: the zero frequency and the six spots of the three waves.
spots=$(awk 'BEGIN { pi = atan2(0, -1); print "circle 640,86 652,86"
    for (corner = 0; corner < 6; ++corner) {
        x = 640 + 62 * cos(corner * pi / 3); y = 86 + 62 * sin(corner * pi / 3)
        printf "circle %.3f,%.3f %.3f,%.3f\n", x, y, x + 8, y } }')
convert -size 774x428 xc:white -fill '#306CA0' -draw "$spots" "$work/spots.png"
convert "$work/spots.png" \( +clone -blur 0x9 \) -compose multiply -composite "$work/glow.png"

convert "$work/glow.png" \( "$work/blue.png" "$work/fade.png" -compose CopyOpacity -composite \) \
    -compose over -composite -strip -sampling-factor 1x1 -quality 88 assets/about.jpg
identify -format '%f: %w by %h, %b\n' assets/about.jpg
