# shellcheck shell=bash
# The even and the odd picture with both parts, the disc moved by four pixels, and
# the spots of cosine and sine enlarged.
row 14-real-and-imaginary-even 1 14-real-and-imaginary --menu itmOpt:15
row 14-real-and-imaginary-odd 2 14-real-and-imaginary --menu itmOpt:16
panel 14-real-and-imaginary-moved-real 2 14-real-and-imaginary --menu mnuImg1b:2 --drag 1:100,100,104,100 --menu itmOpt:15
panel 14-real-and-imaginary-moved-imaginary 2 14-real-and-imaginary --menu mnuImg1b:2 --drag 1:100,100,104,100 --menu itmOpt:16
detail 14-real-and-imaginary-cosine 2 32x16+111+119 8 14-real-and-imaginary-waves --menu itmOpt:15 --intensity 1:0.25
detail 14-real-and-imaginary-sine 5 32x16+111+119 8 14-real-and-imaginary-waves --menu itmOpt:16 --intensity 2:0.25
