#!/usr/bin/env bash
# Builds and runs the benchmark program, then prints the summary table (ours,
# the Qt peer, the floor, the ratios, the targets). Extra arguments go to the
# program, e.g. --benchmark_repetitions=3 (figures become medians) or
# --benchmark_filter=Sort.
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
build="${BUILD_DIR:-$here/build}"
generator=()
command -v ninja >/dev/null 2>&1 && generator=(-G Ninja)
if [ ! -f "$build/CMakeCache.txt" ]; then
    cmake -S "$here" -B "$build" "${generator[@]}" -DCMAKE_BUILD_TYPE="${BUILD_TYPE:-RelWithDebInfo}" >/dev/null
fi
cmake --build "$build" --target bench_uicomponents -j"$(nproc)"
QT_QPA_PLATFORM=offscreen "$build/bench/bench_uicomponents" "$@"
