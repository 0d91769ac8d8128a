# shellcheck shell=bash
row 01-spectrum-photograph 1 - --intensity 1:3
row 01-spectrum-clouds 1 01-spectrum --intensity 1:2
row 01-spectrum-grass 2 01-spectrum --intensity 2:2
