#!/usr/bin/env bash
# Builds the libraries and the test suites with AddressSanitizer,
# UndefinedBehaviorSanitizer and LeakSanitizer into build-asan/ and runs every
# suite. Any sanitizer report fails the run.
#
#   bash scripts/run-sanitizers.sh [extra cmake arguments]
#
# UX_STEP=build only configures and builds, UX_STEP=run only runs the suites
# of an earlier build (the test command builds while other passes run).
#
# The gallery's pages are built so that its smoke test (tst_gallery) runs here
# too; the benchmarks are not. The package test (install + outside build) is
# left to the normal run: it checks packaging, not memory.
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
build="${ASAN_BUILD_DIR:-$here/build-asan}"
step="${UX_STEP:-all}"

if [ "$step" != run ]; then
    bash "$here/scripts/install-deps.sh"
    generator=()
    command -v ninja >/dev/null 2>&1 && generator=(-G Ninja)
    # -O1 keeps the instrumented suites quick while stacks stay readable; Debug
    # keeps Q_ASSERT on. -g1 (functions and lines, what a report shows) compiles
    # about 30% faster than full debug information.
    cmake -S "$here" -B "$build" "${generator[@]}" \
        -DCMAKE_BUILD_TYPE=Debug \
        -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g1" \
        -DUX_SANITIZE=ON \
        -DUX_BUILD_GALLERY=ON \
        -DUX_BUILD_BENCH=OFF \
        -DUX_BUILD_TESTS=ON \
        "$@" >/dev/null
    cmake --build "$build" -j"$(nproc)"
fi
[ "$step" = build ] && exit 0

supp="$here/scripts/sanitizers"
export ASAN_OPTIONS="halt_on_error=1:fast_unwind_on_malloc=0:abort_on_error=0:exitcode=23:detect_leaks=1:detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1:detect_odr_violation=1"
export LSAN_OPTIONS="suppressions=$supp/lsan.supp:print_suppressions=0:exitcode=23"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1:exitcode=23:suppressions=$supp/ubsan.supp"
export QT_QPA_PLATFORM=offscreen

cd "$build"
# Two suites at a time on two cores.
ctest --output-on-failure -j"$(nproc)" -E '^(package_consumer|designer_form)$'
