#!/usr/bin/env bash
# The plain suites once more against Qt 6: installs Debian's Qt 6 if missing,
# configures build-qt6/ with -DUX_QT_MAJOR=6 (no benchmarks), builds and runs
# every suite offscreen. The fuzzers and the sanitizer run stay on Qt 5.
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
bash "$here/scripts/install-deps.sh" qt6
build="${BUILD_DIR_QT6:-$here/build-qt6}"
BUILD_DIR="$build" bash "$here/scripts/build.sh" -DUX_QT_MAJOR=6 -DUX_BUILD_BENCH=OFF
(cd "$build" && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j"$(nproc)")
