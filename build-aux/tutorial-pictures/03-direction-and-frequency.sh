# shellcheck shell=bash
zoomed 03-direction-and-frequency-32 1 3 03-direction-and-frequency
zoomed 03-direction-and-frequency-oblique 2 3 03-direction-and-frequency
