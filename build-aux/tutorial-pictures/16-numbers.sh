# shellcheck shell=bash
# The known waves, their profile under the Alt key, and the histogram of the grey bands.
row 16-numbers-waves 1 16-numbers
row 16-numbers-profile 1 16-numbers --profile 2:128,128
window 16-numbers-histogram 16-numbers --menu mnuImg2a:10
