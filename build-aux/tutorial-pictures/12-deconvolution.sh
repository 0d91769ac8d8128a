# shellcheck shell=bash
# What is given, what comes out, what breaks, and what a low-pass saves.
row 12-deconvolution-twice 1 12-deconvolution
row 12-deconvolution-once 2 12-deconvolution --intensity 2:3
row 12-deconvolution-spot 2 11-convolution-blur
row 12-deconvolution-breaks 2 12-deconvolution-breaks --intensity 2:4
row 12-deconvolution-low-pass 2 12-deconvolution-low-pass --intensity 2:4 --menu itmOpt:12 --menu mnuNew2a:9
