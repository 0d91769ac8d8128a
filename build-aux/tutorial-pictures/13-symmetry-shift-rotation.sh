# shellcheck shell=bash
# The letter upright, moved and turned, then the star; the phases of the letter
# before and after the move.
row 13-symmetry-shift-rotation-letter 1 13-symmetry-shift-rotation
row 13-symmetry-shift-rotation-moved 1 13-symmetry-shift-rotation --menu mnuImg1b:2 --drag 1:100,100,140,130
row 13-symmetry-shift-rotation-turned 2 13-symmetry-shift-rotation
row 13-symmetry-shift-rotation-triangle 1 13-symmetry-shift-rotation-star
row 13-symmetry-shift-rotation-star 2 13-symmetry-shift-rotation-star
