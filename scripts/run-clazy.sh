#!/usr/bin/env bash
# Runs clazy (checks level0 and level1) over the library's and the host
# core's own sources, using the build's compile_commands.json. Prints every
# finding and fails if there is one. Lines where the widgets' required API is
# what clazy flags carry a "clazy:exclude=" comment with the reason.
#
#   bash scripts/run-clazy.sh            uses (and if needed configures) build/
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
build="${BUILD_DIR:-$here/build}"
bash "$here/scripts/install-deps.sh" clazy
if [ ! -f "$build/compile_commands.json" ]; then
    bash "$here/scripts/build.sh"
fi
# Generated headers (moc, uic, export macros) must exist before clazy parses.
cmake --build "$build" --target uicomponents_obj >/dev/null
files="$(python3 - "$build/compile_commands.json" "$here" <<'PY'
import json, os, sys
root = os.path.realpath(sys.argv[2])
seen = set()
for entry in json.load(open(sys.argv[1])):
    f = os.path.realpath(entry["file"])
    rel = os.path.relpath(f, root)
    if rel.split(os.sep)[0] in ("uicomponents", "uxcore") and f.endswith(".cpp") and f not in seen:
        seen.add(f)
        print(f)
PY
)"
log="$(mktemp)"
trap 'rm -f "$log"' EXIT
printf '%s\n' $files | xargs -P"$(nproc)" -n4 clazy-standalone -p "$build" --checks=level0,level1 \
    --header-filter="$here/(uicomponents|uxcore)/.*" >"$log" 2>&1 || true
findings="$(grep -E 'warning:|error:' "$log" | sort -u || true)"
count=$(printf '%s' "$findings" | grep -c . || true)
echo "clazy level0,level1 over $(printf '%s\n' $files | wc -l) sources: $count findings"
if [ "$count" -gt 0 ]; then
    printf '%s\n' "$findings"
    exit 1
fi
