#!/usr/bin/env bash
# Makes the photographs in Images/ from the free pictures in assets/sources/: 256
# by 256 grey JPEGs of high quality, so that a panel shows them pixel for pixel.
#
# The subjects of the two samples are chosen for the lesson in which the channels exchange their
# phases: a man at a camera with straight edges and a clear outline, a cat's face
# with round eyes and fine fur. Each is recognised at once by its phases alone,
# under the magnitudes of the other.
set -euo pipefail
cd "$(dirname "$0")/.."
build-aux/set-up.sh pictures

# sample SOURCE CROP QUALITY TARGET: the crop as widthxheight+left+top. The full range of
# greys is used, with 0.4 % of the pixels left to white and black at the ends.
sample() {
    convert "assets/sources/$1" -colorspace Gray -crop "$2" +repage \
        -filter Lanczos -resize '256x256!' -contrast-stretch '0.4%x0.4%' \
        -depth 8 -strip -quality "$3" "Images/$4"
    identify -format '%f: %w by %h, %[colorspace], quality %Q, %b\n' "Images/$4"
}

sample camera.png 512x512+0+0 97 Halvard-Image1.jpg
sample chelsea.png 300x300+80+0 97 Halvard-Image2.jpg

# Two textures for the lessons: one of long straight joints, one without any order.
sample brick.png 512x512+0+0 90 brick.jpg
sample grass.png 512x512+0+0 90 grass.jpg

# The photograph faded into middle grey towards its borders, so that left and
# right, top and bottom meet without a jump.
mask=$(mktemp --suffix=.png)
trap 'rm -f "$mask"' EXIT
convert -size 256x256 xc:black \
    -fx '0.5+0.5*cos(pi*min(1,max(0,hypot(i-127.5,j-127.5)/64-1)))' -colorspace Gray "$mask"
convert -size 256x256 'xc:gray(50%)' Images/Halvard-Image1.jpg "$mask" -composite \
    -colorspace Gray -depth 8 -strip -quality 95 Images/camera-faded.jpg

# The cup of the lessons on noise, convolution and sampling, as plain bytes:
# quillon-demonstrations makes Images/cup.bmp and its changed copies of it.
convert assets/sources/coffee.png -colorspace Gray -crop 400x400+80+0 +repage \
    -filter Lanczos -resize '256x256!' -contrast-stretch '0.4%x0.4%' \
    -depth 8 -strip PGM:assets/sources/cup.pgm
