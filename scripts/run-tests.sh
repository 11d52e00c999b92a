#!/usr/bin/env bash
# The README's test command: installs what is missing, builds, runs every suite.
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
bash "$here/scripts/install-deps.sh"
bash "$here/scripts/build.sh"
build="${BUILD_DIR:-$here/build}"
cd "$build"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j"$(nproc)"
