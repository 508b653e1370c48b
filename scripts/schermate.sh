#!/usr/bin/env bash
# Makes the screenshots of the game that its AppStream metadata names
# (packaging/it.coppievivaci.CoppieVivaci.metainfo.xml): the built game runs
# under Xvfb at 1024x768 on a home of its own, with the ready-made sets in
# its data tree, and is played with xdotool as a child would.
#   scripts/schermate.sh [output folder]   (default: build/schermate)
# Writes menu.png, partita.png and uscita.png (and avvio.png, the splash).
# Needs: a build of the game (scripts/compila.sh), Xvfb, xdotool, ImageMagick.
set -euo pipefail
radice=$(cd "$(dirname "$0")/.." && pwd)
uscita=${1:-$radice/build/schermate}
programma=$radice/build/programma
gioco=$programma/coppie-vivaci
[ -x "$gioco" ] || { echo "No game in $gioco: build it first (scripts/compila.sh)" >&2; exit 1; }
for p in Xvfb xdotool import; do
  command -v "$p" >/dev/null || { echo "Missing $p: run scripts/installa-dipendenze.sh" >&2; exit 1; }
done
mkdir -p "$uscita"

casa=$(mktemp -d)
schermo=:$((90 + RANDOM % 200))
xvfb=""
gioco_pid=""
fine() {
  [ -n "$gioco_pid" ] && kill "$gioco_pid" 2>/dev/null || true
  [ -n "$xvfb" ] && kill "$xvfb" 2>/dev/null || true
  rm -rf "$casa"
}
trap fine EXIT

# A player who has imported the ready-made sets: no question at the start.
dati=$casa/ImpostazioniProgrammiLorea/tesselo/dati
mkdir -p "$casa/ImpostazioniProgrammiLorea/tesselo/utenti" "$dati" "$casa/.local/share/fonts"
for c in ii pi gif suoni swf; do cp -r "$programma/memorypronti/$c" "$dati/"; done
cp "$programma/penna1.ttf" "$casa/.local/share/fonts/"
printf 'Coppie vivaci\r\n' > "$casa/ImpostazioniProgrammiLorea/leggimi.txt"
# Profile lines: fonts, kind of game 2 (pictures), 12 tiles, colours, sounds,
# the system pointer, mouse input, then the pictures-imported flag.
printf '%s\r\n' Arial Arial " 2 " " 12 " "-2147483640 " " 16777215 " "-2147483640 " " 16777215 " \
  " 65535 " " 255 " " 16777152 " True True " 0 " " 4 " False False " 9 " False False True \
  > "$casa/ImpostazioniProgrammiLorea/tesselo/utenti/_predefinito.ini"

Xvfb "$schermo" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
export DISPLAY=$schermo
for _ in $(seq 50); do xdotool getdisplaygeometry >/dev/null 2>&1 && break; sleep 0.2; done

foto() { sleep "${2:-0}"; import -window root "$uscita/$1.png"; echo "   $uscita/$1.png"; }
clic() { xdotool mousemove "$1" "$2" click 1; sleep "${3:-1}"; }

env HOME="$casa" XDG_CONFIG_HOME="$casa/.config" XDG_DATA_HOME="$casa/.local/share" \
  XDG_RUNTIME_DIR="$casa" LANG=C.UTF-8 "$gioco" >"$casa/gioco.log" 2>&1 &
gioco_pid=$!
for _ in $(seq 60); do
  xdotool search --onlyvisible --name "Coppie vivaci" >/dev/null 2>&1 && break
  sleep 0.5
done
# Positions are those of the game's screens at 1024x768.
foto avvio 3
clic 552 650 3          # Avvio
foto menu
clic 600 63             # the first set of the list (a set of films)
clic 760 275 2          # Gioca: the names box
xdotool type --delay 60 Sara
clic 637 504 4          # Gioca in the names box: the board
clic 175 146 0.4        # two tiles turned: a picture each
clic 399 146 0.6
foto partita
sleep 3
clic 79 9 2             # Esci on the board's menu bar
foto uscita
kill -0 "$gioco_pid" 2>/dev/null || { echo "The game stopped: $(cat "$casa/gioco.log")" >&2; exit 1; }
