#!/usr/bin/env bash
# Configures and builds the game in build/ (or the folder given as $1).
set -euo pipefail
radice=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$radice/build}
cmake -S "$radice" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$build" -j "$(nproc)"
