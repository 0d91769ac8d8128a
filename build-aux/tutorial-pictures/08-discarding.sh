# shellcheck shell=bash
row 08-discarding-phases 1 08-discarding --menu itmOpt:9 --intensity 1:3
row 08-discarding-phases-shifted 1 08-discarding --menu itmOpt:9 --intensity 1:3 --menu mnuNew1a:9
row 08-discarding-magnitudes 1 08-discarding --menu itmOpt:10
row 08-discarding-random-phases 1 08-discarding-random-phases --intensity 1:3
row 08-discarding-random-magnitudes 1 08-discarding-random-magnitudes
