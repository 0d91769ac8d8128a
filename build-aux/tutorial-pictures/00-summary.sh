# shellcheck shell=bash
window summary - --intensity 1:3 --intensity 2:3
