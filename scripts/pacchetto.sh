#!/usr/bin/env bash
# Builds the game and its Debian package (build/coppie-vivaci_*.deb).
# Install it with: apt-get install ./build/coppie-vivaci_<version>_<arch>.deb
set -euo pipefail
radice=$(cd "$(dirname "$0")/.." && pwd)
bash "$radice/scripts/installa-dipendenze.sh"
bash "$radice/scripts/compila.sh" "$radice/build"
cd "$radice/build"
cpack -G DEB
ls -l "$radice"/build/coppie-vivaci_*.deb
