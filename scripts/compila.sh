#!/usr/bin/env bash
# Configures and builds in build/ (or the folder given as $1): everything, or
# only the targets named after the folder (gioca.sh asks for the game alone).
#   scripts/compila.sh [build folder] [target...]
set -euo pipefail
radice=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$radice/build}
shift || true
cmake -S "$radice" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
if [ $# -gt 0 ]; then
  cmake --build "$build" -j "$(nproc)" --target "$@"
else
  cmake --build "$build" -j "$(nproc)"
fi
