#!/usr/bin/env bash
# Builds the game and its Debian package (build/coppie-vivaci_*.deb), then
# checks the package with lintian when it is installed.
# Install it with: apt-get install ./build/coppie-vivaci_<version>_<arch>.deb
set -euo pipefail
radice=$(cd "$(dirname "$0")/.." && pwd)
bash "$radice/scripts/installa-dipendenze.sh"
# Only what goes into the package: the game, its icons, its manual page and changelog.
bash "$radice/scripts/compila.sh" "$radice/build" coppie-vivaci icone documenti_debian
cd "$radice/build"
cpack -G DEB
pacchetto=$(ls -t "$radice"/build/coppie-vivaci_*.deb | head -1)
ls -l "$pacchetto"
if command -v lintian >/dev/null; then
  echo "== lintian $(basename "$pacchetto")"
  lintian --display-info "$pacchetto" || true
else
  echo "(lintian is not installed: apt-get install lintian to check the package)"
fi
