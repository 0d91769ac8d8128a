# shellcheck shell=bash
zoomed 04-adding-waves-two 1 4 04-adding-waves
zoomed 04-adding-waves-mask 1 4 04-adding-waves-mask
# The drag makes the circle just wide enough for one, two and four waves.
zoomed 04-adding-waves-stripes-1 2 2 04-adding-waves --menu mnuFT2a:10 --drag 5:130,128,144,128
zoomed 04-adding-waves-stripes-2 2 2 04-adding-waves --menu mnuFT2a:10 --drag 5:130,128,160,128
zoomed 04-adding-waves-stripes-4 2 2 04-adding-waves --menu mnuFT2a:10 --drag 5:130,128,190,128
