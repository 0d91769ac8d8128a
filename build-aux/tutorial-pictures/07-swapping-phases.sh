# shellcheck shell=bash
swapped=(--menu itmOpt:6 --intensity 1:3 --intensity 2:3)
row 07-swapping-phases-upper 1 07-swapping-phases "${swapped[@]}"
row 07-swapping-phases-lower 2 07-swapping-phases "${swapped[@]}"
row 07-swapping-phases-brick 1 07-swapping-phases-textures "${swapped[@]}"
row 07-swapping-phases-grass 2 07-swapping-phases-textures "${swapped[@]}"
