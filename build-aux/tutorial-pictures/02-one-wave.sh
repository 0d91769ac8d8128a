# shellcheck shell=bash
zoomed 02-one-wave 1 4 02-one-wave
# Bright spots would be white whatever their phase.
colours=(--menu itmOpt:13 --intensity 1:0.2 --intensity 2:0.2)
detail 02-one-wave-phases-upper 2 32x32+111+111 8 02-one-wave "${colours[@]}"
detail 02-one-wave-phases-lower 5 32x32+111+111 8 02-one-wave "${colours[@]}"
