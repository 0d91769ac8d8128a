# shellcheck shell=bash
row 05-edges-rectangle 1 05-edges --intensity 1:2
row 05-edges-turned 2 05-edges --intensity 2:2
row 05-edges-camera 1 05-edges-cross --intensity 1:3
row 05-edges-faded 2 05-edges-cross --intensity 2:3
