#!/usr/bin/env bash
# Reads the game as a screen reader does. Starts Xvfb and a session bus with
# the accessibility bus, starts the game with Qt's AT-SPI bridge always on and
# a player who plays by manual scanning, and reads the accessibility tree from
# outside with pyatspi (scripts/albero-accessibile.py): every control of the
# menu with its name, role and states, every tile of a board with its state,
# and the reader's focus after each press of Space, driven by xdotool.
#   scripts/prova-accessibilita.sh [screenshot.png]
# Uses build/programma/coppie-vivaci, building it first if it is missing.
set -euo pipefail
radice=$(cd "$(dirname "$0")/.." && pwd)
foto=${1:-$radice/build/accessibilita.png}

# What the outside reader needs; not part of the game's own dependencies.
pacchetti=(xvfb xdotool dbus dbus-x11 at-spi2-core python3-pyatspi gir1.2-atspi-2.0 imagemagick)
mancanti=()
for p in "${pacchetti[@]}"; do
  dpkg -s "$p" >/dev/null 2>&1 || mancanti+=("$p")
done
if [ ${#mancanti[@]} -gt 0 ]; then
  sudo=""
  [ "$(id -u)" -eq 0 ] || sudo=sudo
  $sudo apt-get update
  $sudo apt-get install -y --no-install-recommends "${mancanti[@]}"
fi

gioco="$radice/build/programma/coppie-vivaci"
[ -x "$gioco" ] || bash "$radice/scripts/compila.sh" "$radice/build" coppie-vivaci

# A home of its own: a player who plays by manual scanning (input mode 1),
# the rest of the profile as the game's defaults.
casa=$(mktemp -d)
utenti="$casa/ImpostazioniProgrammiLorea/tesselo/utenti"
mkdir -p "$utenti"
printf '%s\r\n' Arial Arial ' 2 ' ' 12 ' '-2147483640 ' ' 16777215 ' '-2147483640 ' ' 16777215 ' \
  ' 65535 ' ' 255 ' ' 16777152 ' True False ' 1 ' ' 4 ' False False ' 9 ' False False False \
  >"$utenti/_predefinito.INI"

schermo=:96
Xvfb "$schermo" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
trap 'kill "$xvfb" 2>/dev/null || true; rm -rf "$casa"' EXIT
sleep 1

# One session bus for the game and the reader; it starts the accessibility bus on demand.
export DISPLAY=$schermo HOME=$casa XDG_RUNTIME_DIR=$casa
dbus-run-session -- bash -c '
  /usr/libexec/at-spi-bus-launcher --launch-immediately &
  launcher=$!
  sleep 1
  QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_ACCESSIBILITY=1 "$1" >/dev/null 2>&1 &
  gioco=$!
  esito=0
  /usr/bin/python3 "$2" "$3" || esito=$?
  kill "$gioco" "$launcher" 2>/dev/null || true
  exit $esito
' prova "$gioco" "$radice/scripts/albero-accessibile.py" "$foto"
