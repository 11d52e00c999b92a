#!/usr/bin/env bash
# Builds and runs the benchmark program, then prints the summary table (ours,
# the Qt peer, the floor, the ratios, the targets). Extra arguments go to the
# program, e.g. --benchmark_repetitions=3 (figures become medians) or
# --benchmark_filter=Sort.
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
BUILD_TARGET=bench_uicomponents bash "$here/scripts/build.sh" >/dev/null
QT_QPA_PLATFORM=offscreen "${BUILD_DIR:-$here/build}/bench/bench_uicomponents" "$@"
