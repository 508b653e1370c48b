#!/usr/bin/env bash
# Draws the splash's animated picture: two tiles that turn over, one after the
# other, and show the same smiling sun: a pair found. Needs ImageMagick.
# Usage: tools/crea-immagini-avvio.sh  (writes app/risorse/avvio.gif)
set -euo pipefail
cd "$(dirname "$0")/.."
out=app/risorse/avvio.gif
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
W=178 H=162
tw=76 th=104

# One tile, face down (blue with a question mark) or face up (the sun).
convert -size ${tw}x${th} xc:none -fill '#3a6fd8' -stroke '#1d3f8a' -strokewidth 3 \
  -draw "roundrectangle 2,2 $((tw-3)),$((th-3)) 10,10" \
  -fill white -stroke none -font DejaVu-Sans-Bold -pointsize 54 -gravity center -annotate +0+2 '?' \
  "$tmp/dorso.png"
convert -size ${tw}x${th} xc:none -fill '#fff4c2' -stroke '#d08a00' -strokewidth 3 \
  -draw "roundrectangle 2,2 $((tw-3)),$((th-3)) 10,10" \
  -stroke '#ff9f00' -strokewidth 4 \
  -draw "line 38,22 38,30" -draw "line 38,74 38,82" -draw "line 14,52 22,52" -draw "line 54,52 62,52" \
  -draw "line 21,35 26,40" -draw "line 50,64 55,69" -draw "line 55,35 50,40" -draw "line 26,64 21,69" \
  -fill '#ffd21f' -stroke '#e09000' -strokewidth 2 -draw "circle 38,52 38,36" \
  -fill '#5a3a00' -stroke none -draw "circle 32,48 32,45" -draw "circle 44,48 44,45" \
  -fill none -stroke '#5a3a00' -strokewidth 2 -draw "arc 30,50 46,62 20,160" \
  "$tmp/fronte.png"

# The width of a turning tile follows the cosine of its angle.
larghezza() { awk -v a="$1" -v w="$tw" 'BEGIN { v = int(w * (a < 0 ? -a : a) + 0.5); if (v < 2) v = 2; print v }'; }

n=0
fotogramma() { # $1 $2: face and width of the left tile; $3 $4: the right one; $5 delay
  local f="$tmp/f$(printf %03d $n).png"
  convert -size ${W}x${H} xc:'#ffffff00' \
    \( "$tmp/$1.png" -resize "$2x${th}!" \) -gravity west -geometry +$((8 + (tw - $2) / 2))+0 -composite \
    \( "$tmp/$3.png" -resize "$4x${th}!" \) -gravity west -geometry +$((W - 8 - tw + (tw - $4) / 2))+0 -composite \
    "$f"
  echo "-delay $5 $f" >> "$tmp/lista"
  n=$((n + 1))
}

: > "$tmp/lista"
fotogramma dorso $tw dorso $tw 60
for c in 0.8 0.5 0.2; do fotogramma dorso "$(larghezza $c)" dorso $tw 6; done
for c in 0.2 0.5 0.8 1; do fotogramma fronte "$(larghezza $c)" dorso $tw 6; done
fotogramma fronte $tw dorso $tw 30
for c in 0.8 0.5 0.2; do fotogramma fronte $tw dorso "$(larghezza $c)" 6; done
for c in 0.2 0.5 0.8 1; do fotogramma fronte $tw fronte "$(larghezza $c)" 6; done
fotogramma fronte $tw fronte $tw 120
for c in 0.8 0.5 0.2; do fotogramma fronte "$(larghezza $c)" fronte "$(larghezza $c)" 6; done
for c in 0.2 0.5 0.8; do fotogramma dorso "$(larghezza $c)" dorso "$(larghezza $c)" 6; done

# shellcheck disable=SC2046
convert -dispose background $(cat "$tmp/lista") -loop 0 -layers Optimize "$out"
echo "wrote $out"
