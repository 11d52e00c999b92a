#!/usr/bin/env bash
# The README's test command: installs what is missing, builds, runs every
# suite; then the same suites again under faketime at moments where date
# arithmetic breaks (the clock pass); then the suites built with
# AddressSanitizer, UndefinedBehaviorSanitizer and LeakSanitizer, and a short
# fuzzing pass over everything that parses outside input. The sanitizer and
# fuzz builds run in the background during the clock pass, the Qt 6 suites
# and the clazy check.
# UX_TESTS_QUICK=1 stops after the plain suites. Each phase's wall time is
# printed at the end.
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
build="${BUILD_DIR:-$here/build}"
jobs="$(nproc)"
export QT_QPA_PLATFORM=offscreen

timings=()
phase() {
    local name="$1" start=$SECONDS status=0
    shift
    echo "== $name"
    "$@" </dev/null || status=$?
    local note=""
    [ "$status" = 0 ] || note=" (failed)"
    timings+=("$(printf '%-44s %4d s%s' "$name" $((SECONDS - start)) "$note")")
    return "$status"
}
report() { [ ${#timings[@]} -eq 0 ] || printf '%s\n' "-- phase times:" "${timings[@]}"; }
trap report EXIT

suites() { (cd "$build" && ctest --output-on-failure -j"$jobs" "$@"); }

# One pass of the suites under libfaketime's start-at form: every test process
# begins at <moment> and its clock keeps running from there. The library is
# preloaded into each suite alone (UX_TEST_PRELOAD, see tests/CMakeLists.txt):
# preloaded into ctest, it would share ctest's clock with every process ctest
# starts, and suites started late in the pass would miss the moment. The
# monotonic clock stays real so that QTimer and QElapsedTimer behave.
# Left out: package_consumer, designer_form and doxygen_reference build an
# outside project or the reference pages; they check packaging and docs and
# read no clock of ours. clock_probe fails the pass
# unless the suites really see <expected>.
clock_pass() {
    local zone="$1" moment="$2" expected="$3" lib
    lib="$(ls /usr/lib/*/faketime/libfaketimeMT.so.1 | head -n 1)"
    (cd "$build" && TZ="$zone" UX_CLOCK_EXPECT="$expected" FAKETIME="@$moment" \
        FAKETIME_DONT_FAKE_MONOTONIC=1 UX_TEST_PRELOAD="$lib" \
        ctest --output-on-failure -j"$jobs" -E '^(package_consumer|designer_form|doxygen_reference)$')
}

phase "install dependencies" bash "$here/scripts/install-deps.sh"
phase "configure and build" bash "$here/scripts/build.sh"
phase "plain suites" suites
[ "${UX_TESTS_QUICK:-0}" = 1 ] && exit 0

# zone|moment asked for|what the suites must see (the New York moment lies in
# the hour skipped when daylight saving starts, so the clock shows 03:30; the
# Shanghai one is the 1st locally and still the 30th in UTC)
moments=(
    "UTC|2027-03-01 00:00:00|2027-03-01 00:00 UTC"
    "UTC|2027-01-14 12:00:00|2027-01-14 12:00 UTC"
    "UTC|2026-12-31 23:59:58|2026-12-31 23:59 UTC"
    "UTC|2028-02-29 12:00:00|2028-02-29 12:00 UTC"
    "America/New_York|2027-03-14 02:30:00|2027-03-14 03:30 EDT"
    "Asia/Shanghai|2027-07-01 07:30:00|2027-07-01 07:30 CST"
)
# The sanitizer and fuzz builds only compile, while the clock passes mostly
# wait on timers, so the builds run meanwhile in the background, in the idle
# scheduling class: they get a core only when no suite wants it, so the suites'
# timers still fire on time.
builds_log="$build/background-builds.log"
builds_start=$SECONDS
setsid -w chrt --idle 0 bash -c 'UX_STEP=build bash "$1/scripts/run-sanitizers.sh" &&
    UX_STEP=build bash "$1/scripts/run-fuzz.sh"' _ "$here" >"$builds_log" 2>&1 </dev/null &
builds=$!
trap 'kill -- -"$builds" 2>/dev/null || true; report' EXIT

# Every moment runs even when one fails, so that the log names them all.
failed=()
for m in "${moments[@]}"; do
    IFS='|' read -r zone moment expected <<<"$m"
    phase "clock $zone $moment" clock_pass "$zone" "$moment" "$expected" || failed+=("$zone $moment")
done
if [ ${#failed[@]} -gt 0 ]; then
    printf 'clock pass failed at: %s\n' "${failed[@]}" >&2
    exit 1
fi

# The plain suites once more against Qt 6.
phase "Qt 6 suites" bash "$here/scripts/run-tests-qt6.sh"

# The static check: clazy's level0 and level1 over the library's sources.
phase "clazy" bash "$here/scripts/run-clazy.sh"

echo "== waiting for the sanitizer and fuzz builds"
if ! wait "$builds"; then
    tail -n 80 "$builds_log"
    echo "sanitizer or fuzz build failed (log: $builds_log)" >&2
    exit 1
fi
timings+=("$(printf '%-44s %4d s' "sanitizer and fuzz builds (background)" $((SECONDS - builds_start)))")
phase "sanitizer suites" env UX_STEP=run bash "$here/scripts/run-sanitizers.sh"
phase "fuzz short pass" env UX_STEP=run bash "$here/scripts/run-fuzz.sh" 20000
