#!/usr/bin/env bash
# Builds the game alone (no tests, no benchmarks: scripts/prova.sh builds
# those) and starts it. On a machine without a display it says so, starts the
# game under Xvfb, and saves a screenshot of what it shows.
set -euo pipefail
radice=$(cd "$(dirname "$0")/.." && pwd)
bash "$radice/scripts/installa-dipendenze.sh"
bash "$radice/scripts/compila.sh" "$radice/build" coppie-vivaci
gioco="$radice/build/programma/coppie-vivaci"

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec "$gioco"
fi

echo "No display found: starting the game under Xvfb (1024x768) to show that it runs."
schermo=:97
Xvfb "$schermo" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
trap 'kill "${gioco_pid:-}" "$xvfb" 2>/dev/null || true' EXIT
sleep 1
DISPLAY=$schermo "$gioco" &
gioco_pid=$!
# A first run asks two questions (the cursive font, the ready-made sets):
# answer each box as a person would, with the Enter key, then wait for the splash.
for _ in 1 2 3 4 5 6; do
  sleep 1.5
  for w in $(DISPLAY=$schermo xdotool search --onlyvisible --name "Coppie vivaci" 2>/dev/null); do
    larghezza=$(DISPLAY=$schermo xdotool getwindowgeometry "$w" | sed -n 's/.*Geometry: \([0-9]*\)x.*/\1/p')
    if [ -n "$larghezza" ] && [ "$larghezza" -lt 1024 ]; then
      DISPLAY=$schermo xdotool key Return 2>/dev/null || true
      break
    fi
  done
done
sleep 2
foto="$radice/schermata-gioco.png"
DISPLAY=$schermo import -window root "$foto"
if kill -0 "$gioco_pid" 2>/dev/null; then
  echo "The game is running; what it shows is saved in $foto"
else
  echo "The game stopped by itself: see the messages above." >&2
  exit 1
fi
