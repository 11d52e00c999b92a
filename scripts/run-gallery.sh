#!/usr/bin/env bash
# The README's run command: installs what is missing, builds, and opens the
# gallery. With no display it runs on a virtual one and writes screenshots.
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
echo "Screenshots written to $shots:"
ls -1 "$shots"
