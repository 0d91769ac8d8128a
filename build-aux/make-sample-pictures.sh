#!/usr/bin/env bash
# Makes the two sample pictures in Images/ from the free pictures in
# assets/sources/: 256 by 256 grey JPEGs of high quality, so that a panel shows
# them pixel for pixel.
#
# The subjects are chosen for the lesson in which the channels exchange their
# phases: a man at a camera with straight edges and a clear outline, a cat's face
# with round eyes and fine fur. Each is recognised at once by its phases alone,
# under the magnitudes of the other.
set -euo pipefail
cd "$(dirname "$0")/.."
build-aux/set-up.sh pictures

# sample SOURCE CROP TARGET: the crop as widthxheight+left+top. The full range of
# greys is used, with 0.4 % of the pixels left to white and black at the ends.
sample() {
    convert "assets/sources/$1" -colorspace Gray -crop "$2" +repage \
        -filter Lanczos -resize '256x256!' -contrast-stretch '0.4%x0.4%' \
        -depth 8 -strip -quality 97 "Images/$3"
    identify -format '%f: %w by %h, %[colorspace], quality %Q, %b\n' "Images/$3"
}

sample camera.png 512x512+0+0 Halvard-Image1.jpg
sample chelsea.png 300x300+80+0 Halvard-Image2.jpg
