# shellcheck shell=bash
# Stripes with and without their masks; grain before and after a low-pass.
row 09-noise-and-masks-striped 1 09-noise-and-masks --menu mnuFT1a:9
row 09-noise-and-masks-masked 1 09-noise-and-masks
row 09-noise-and-masks-grain 1 09-noise-and-masks-grain --menu itmOpt:12
