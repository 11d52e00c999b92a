#!/usr/bin/env bash
# Installs the Debian packages the build, the tests and the gallery need,
# only those that are missing. Safe to run again.
set -euo pipefail

# The argument "qt6" (or UX_QT_MAJOR=6 in the environment) adds Debian's Qt 6
# for the second build; other arguments are further package names.
qt6=(qt6-base-dev qt6-base-dev-tools qt6-tools-dev qt6-l10n-tools)
extra=()
for a in "$@"; do
    if [ "$a" = qt6 ]; then extra+=("${qt6[@]}"); else extra+=("$a"); fi
done
[ "${UX_QT_MAJOR:-5}" = 6 ] && extra+=("${qt6[@]}")

packages=(
    build-essential cmake ninja-build ccache pkg-config
    qtbase5-dev qtbase5-dev-tools
    qttools5-dev doxygen
    libbenchmark-dev
    xvfb xauth
    fonts-wqy-microhei
    faketime
    "${extra[@]}"
)

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "ok installed"; then
        missing+=("$p")
    fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null 2>&1 || { echo "need root to install: ${missing[*]}" >&2; exit 1; }
    sudo="sudo"
fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
