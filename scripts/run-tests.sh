#!/usr/bin/env bash
# The README's test command: installs what is missing, builds, runs every
# suite; then the same suites under AddressSanitizer, UndefinedBehaviorSanitizer
# and LeakSanitizer, and a short fuzzing pass over everything that parses
# outside input. UX_TESTS_QUICK=1 stops after the plain suites.
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
bash "$here/scripts/install-deps.sh"
bash "$here/scripts/build.sh"
build="${BUILD_DIR:-$here/build}"
(cd "$build" && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j"$(nproc)")
bash "$here/scripts/run-tests-qt6.sh"
[ "${UX_TESTS_QUICK:-0}" = 1 ] && exit 0
bash "$here/scripts/run-sanitizers.sh"
bash "$here/scripts/run-fuzz.sh" 20000
