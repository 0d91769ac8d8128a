# shellcheck shell=bash
# The sampled cup with its copies, the rings before and after.
row 15-sampling-cup 1 15-sampling
row 15-sampling-rings 1 15-sampling-rings
row 15-sampling-false-rings 2 15-sampling-rings
