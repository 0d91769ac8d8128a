# shellcheck shell=bash
# Choosing the view again paints the dark surround of a low-pass.
row 06-low-pass-high-pass-low 1 06-low-pass-high-pass --intensity 1:3 --menu itmOpt:12
row 06-low-pass-high-pass-high 2 06-low-pass-high-pass --intensity 2:3
row 06-low-pass-high-pass-ringing-20 1 06-low-pass-high-pass-ringing --intensity 1:3 --menu itmOpt:12
row 06-low-pass-high-pass-ringing-40 2 06-low-pass-high-pass-ringing --intensity 2:3 --menu itmOpt:12
