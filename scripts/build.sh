#!/usr/bin/env bash
# Configures and builds the tree into BUILD_DIR (default: build/); only the
# target BUILD_TARGET when that is set.
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
build="${BUILD_DIR:-$here/build}"
generator=()
command -v ninja >/dev/null 2>&1 && generator=(-G Ninja)
if [ ! -f "$build/CMakeCache.txt" ]; then
    cmake -S "$here" -B "$build" "${generator[@]}" -DCMAKE_BUILD_TYPE="${BUILD_TYPE:-RelWithDebInfo}" "$@"
else
    cmake -S "$here" -B "$build" "$@" >/dev/null
fi
cmake --build "$build" -j"$(nproc)" ${BUILD_TARGET:+--target "$BUILD_TARGET"}
