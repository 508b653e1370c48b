#!/usr/bin/env bash
# Builds the game, its tests and its benchmarks, and runs every test.
set -euo pipefail
radice=$(cd "$(dirname "$0")/.." && pwd)
bash "$radice/scripts/installa-dipendenze.sh"
bash "$radice/scripts/compila.sh" "$radice/build"
cd "$radice/build"
ctest --output-on-failure -j 2
