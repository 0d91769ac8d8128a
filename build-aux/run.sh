#!/usr/bin/env bash
# run.sh [SCRIPT]: opens the window of the release build and replays the script.
# Without a display the window is drawn by the toolkit's offscreen platform and
# written as a picture.
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
programs=$top/build/release/bin

# The lab takes an absolute path as it is.
[ $# -eq 0 ] || set -- "$(realpath "$1")"

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$programs/quillon" "$@"
fi

picture=$top/build/window.png
QT_QPA_PLATFORM=offscreen "$programs/quillon-picture" "$picture" "$@"
echo "There is no display here, so the window was drawn into a picture:"
echo "  $picture"
