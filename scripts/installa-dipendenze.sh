#!/usr/bin/env bash
# Installs, by Debian package name, everything the game needs to build, run and
# be tested on a Debian 12 machine. Run as root (or with sudo).
set -euo pipefail
pacchetti=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev qt6-multimedia-dev qt6-svg-dev qt6-image-formats-plugins libqt6svg6
  libgl-dev libx11-dev libxfixes-dev libxdamage-dev zlib1g-dev liblzma-dev libsdl2-dev
  gstreamer1.0-plugins-base gstreamer1.0-plugins-good
  fonts-liberation fonts-comic-neue fonts-ecolier-court fonts-dejavu-core
  libgtest-dev libbenchmark-dev
  libsndfile1-dev libmpg123-dev libmp3lame-dev
  xvfb xauth x11-utils xdotool imagemagick
)
mancanti=()
for p in "${pacchetti[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || mancanti+=("$p")
done
if [ ${#mancanti[@]} -gt 0 ]; then
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  echo "Installing: ${mancanti[*]}"
  $SUDO apt-get update
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y --no-install-recommends "${mancanti[@]}"
fi
