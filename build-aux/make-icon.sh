#!/usr/bin/env bash
# Draws the program's icon, assets/quillon.png: the spectrum of a hexagonal
# lattice, in the colours of the first colour scheme, on a square with round
# corners.
set -euo pipefail
cd "$(dirname "$0")/.."
build-aux/set-up.sh pictures

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The spots: the middle one and two hexagons around it, fainter with the
# distance. Lines of radius, turn in degrees, size.
spots=$(awk 'function spot(r, degrees, size,   t, x, y) {
        t = degrees * atan2(0, -1) / 180
        x = 127.5 + r * cos(t); y = 127.5 + r * sin(t)
        printf "circle %.3f,%.3f %.3f,%.3f\n", x, y, x + size, y }
    NF == 1 { spot(0, 0, $1) }
    NF == 3 { for (corner = 0; corner < 6; ++corner) spot($1, $2 + 60 * corner, $3) }' <<'LIST'
13
50 0 9.5
86.6 30 6
100 0 6
LIST
)

# Each spot glows: the sharp spots and two veils of them, added, on a ground that
# is not quite dark.
convert -size 256x256 xc:black -fill white -draw "$spots" -blur 0x1.2 \
    \( +clone -blur 0x6 \) -compose plus -composite \
    \( +clone -blur 0x14 \) -compose plus -composite \
    +level '10%,100%' -clamp "$work/spots.png"

# The colours of the scheme, from dark to bright.
convert xc:'#070328' xc:'#1B027E' xc:'#72009A' xc:'#CF1A78' xc:'#F06C00' xc:'#FCA600' xc:'#FFEE5D' xc:'#FFF8CC' \
    +append -filter Triangle -resize '256x1!' "$work/colors.png"

convert "$work/spots.png" -colorspace sRGB "$work/colors.png" -interpolate bilinear -clut "$work/picture.png"
convert -size 256x256 xc:none -fill white -draw 'roundrectangle 4,4 251,251 44,44' "$work/mask.png"
convert "$work/picture.png" "$work/mask.png" -compose DstIn -composite \
    -depth 8 -strip PNG32:assets/quillon.png
identify -format '%f: %w by %h, %b\n' assets/quillon.png
