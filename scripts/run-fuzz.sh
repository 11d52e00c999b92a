#!/usr/bin/env bash
# Builds the libFuzzer targets under fuzz/ with clang into build-fuzz/ and runs
# each for a bounded number of executions, starting from the committed seed
# corpus in fuzz/corpus/<target>/. Any crash, sanitizer report or failed check
# fails the run; the input that caused it is kept in build-fuzz/artifacts/.
#
#   bash scripts/run-fuzz.sh            short pass (20000 runs per target, CI)
#   bash scripts/run-fuzz.sh long       1000000 runs per parser target
#   bash scripts/run-fuzz.sh 50000      that many runs per target
#
# Targets that drive widgets are slower per input; in the long mode they get
# a tenth of the runs, a quarter in the short pass (FUZZ_WIDGET_RUNS overrides).
# UX_STEP=build only configures and builds, UX_STEP=run only runs the targets
# of an earlier build.
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
build="${FUZZ_BUILD_DIR:-$here/build-fuzz}"
mode="${1:-20000}"
case "$mode" in
    long) runs=1000000 ;;
    ''|*[!0-9]*) echo "usage: $0 [runs|long]" >&2; exit 2 ;;
    *) runs="$mode" ;;
esac
widget_runs="${FUZZ_WIDGET_RUNS:-$(( runs >= 100000 ? runs / 10 : runs / 4 ))}"

step="${UX_STEP:-all}"

if [ "$step" != run ]; then
    bash "$here/scripts/install-deps.sh" clang libclang-rt-14-dev
    generator=()
    command -v ninja >/dev/null 2>&1 && generator=(-G Ninja)
    cmake -S "$here/fuzz" -B "$build" "${generator[@]}" \
        -DCMAKE_CXX_COMPILER="${FUZZ_CXX:-clang++}" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
    cmake --build "$build" -j"$(nproc)"
fi
[ "$step" = build ] && exit 0

export ASAN_OPTIONS="halt_on_error=1:detect_leaks=1:exitcode=23"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1:exitcode=23"
supp="$(mktemp)"
trap 'rm -f "$supp"' EXIT
cat "$here/scripts/sanitizers/lsan.supp" "$here/scripts/sanitizers/lsan-fuzz.supp" >"$supp"
export LSAN_OPTIONS="suppressions=$supp:print_suppressions=0"
export QT_QPA_PLATFORM=offscreen

mkdir -p "$build/artifacts"
status=0
summary=()
for exe in "$build"/fuzz_*; do
    [ -x "$exe" ] && [ -f "$exe" ] || continue
    target="$(basename "$exe")"
    seeds="$here/fuzz/corpus/$target"
    work="$build/corpus/$target"
    mkdir -p "$work" "$seeds"
    n="$runs"
    case "$target" in fuzz_keyboard*) n="$widget_runs" ;; esac
    dict=()
    case "$target" in fuzz_columnfile|fuzz_blockmap) dict=(-dict="$here/fuzz/json.dict") ;; esac
    echo "== $target: $n runs"
    log="$build/$target.log"
    start=$(date +%s)
    # New inputs go to the work corpus; the committed seeds are only read.
    if "$exe" -runs="$n" -max_len=65536 -timeout=30 -rss_limit_mb=4096 \
        "${dict[@]}" -print_final_stats=1 \
        -artifact_prefix="$build/artifacts/$target-" \
        "$work" "$seeds" >"$log" 2>&1; then
        secs=$(( $(date +%s) - start ))
        cov="$(grep -o 'cov: [0-9]*' "$log" | tail -1 || true)"
        execs="$(grep -o 'stat::number_of_executed_units: [0-9]*' "$log" | grep -o '[0-9]*$' || true)"
        summary+=("$target: ok, ${execs:-?} runs in ${secs}s, ${cov:-cov: ?}")
    else
        status=1
        summary+=("$target: FAILED (log: $log)")
        tail -n 60 "$log"
    fi
done
printf '%s\n' "${summary[@]}"
exit "$status"
