#!/usr/bin/env bash
# Runs the gallery on a virtual display as a compressed trading day (1,000
# ticks a second, paging and sorting every few seconds, a skin switch every
# minute) and prints the resident memory; fails when it grows 5% or more after
# the first minute. Usage: scripts/run-soak.sh [seconds, default 600]
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
seconds="${1:-600}"
bash "$here/scripts/install-deps.sh"
bash "$here/scripts/build.sh"
build="${BUILD_DIR:-$here/build}"
export UXCORE_CONFIG_DIR="$(mktemp -d)"
trap 'rm -rf "$UXCORE_CONFIG_DIR"' EXIT
xvfb-run -a -s "-screen 0 1600x1000x24" "$build/gallery/uicomponents-gallery" --soak "$seconds" 2>/dev/null
