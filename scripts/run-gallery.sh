#!/usr/bin/env bash
# The README's run command: installs what is missing, builds, and opens the
# gallery. With no display it runs on a virtual one and writes screenshots,
# at 100% and (under 200/) at 200%.
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
bash "$here/scripts/install-deps.sh"
bash "$here/scripts/build.sh"
build="${BUILD_DIR:-$here/build}"
gallery="$build/gallery/uicomponents-gallery"
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    exec "$gallery" "$@"
fi
shots="${SCREENSHOT_DIR:-$build/screenshots}"
mkdir -p "$shots"
echo "No display: running the gallery on a virtual display, screenshots go to $shots"
xvfb-run -a -s "-screen 0 1600x1000x24" "$gallery" --screenshots "$shots" "$@"
# Once more as on a 4K monitor at 200%: the same pages at twice the pixels.
QT_SCALE_FACTOR=2 xvfb-run -a -s "-screen 0 3200x2000x24" "$gallery" --screenshots "$shots/200" "$@"
echo "Screenshots written to $shots:"
ls -1 "$shots" "$shots/200"
