#!/usr/bin/env bash
# Makes the game's three fixed sounds with sox: a bright chime for a right
# pair, a soft low sound for a wrong one, a short applause. Mono, 22050 Hz.
# Usage: tools/crea-suoni.sh  (writes app/programma/suoni/*.wav)
set -euo pipefail
cd "$(dirname "$0")/.."
out=app/programma/suoni
mkdir -p "$out"
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fmt=(-r 22050 -c 1 -b 16)

# Right: three rising bell notes (C6, E6, G6) with a soft ring.
for nota in 1046.5:0.11 1318.5:0.11 1568:0.45; do
  f=${nota%%:*} d=${nota##*:}
  sox -n "${fmt[@]}" "$tmp/n$f.wav" synth "$d" sine "$f" sine "$(echo "$f*2" | bc)" remix - \
    fade l 0.005 "$d" "$(echo "$d*0.8" | bc)" vol 0.5
done
sox "$tmp/n1046.5.wav" "$tmp/n1318.5.wav" "$tmp/n1568.wav" "$tmp/si.wav"
sox "$tmp/si.wav" "$out/si.wav" reverb 20 norm -3

# Wrong: two gentle low notes going down, soft and short.
sox -n "${fmt[@]}" "$tmp/a.wav" synth 0.22 triangle 294 fade h 0.02 0.22 0.08 vol 0.5
sox -n "${fmt[@]}" "$tmp/b.wav" synth 0.34 triangle 220 fade h 0.02 0.34 0.2 vol 0.5
sox "$tmp/a.wav" "$tmp/b.wav" "$out/no.wav" lowpass 900 norm -6

# Applause: several layers of short noise claps at different rates, mixed.
strati=()
for i in 1 2 3 4 5; do
  rate=$(echo "9 + $i * 2.3" | bc)
  sox -n "${fmt[@]}" "$tmp/c$i.wav" synth 2.4 whitenoise band -n $((1400 + i * 300)) 1200 \
    tremolo "$rate" 100 tremolo "$(echo "$rate * 0.37" | bc)" 60 vol 0.4
  strati+=("$tmp/c$i.wav")
done
sox -m "${strati[@]}" "$tmp/app.wav"
sox "$tmp/app.wav" "$out/applauso.wav" fade q 0.15 2.4 0.9 norm -3
for f in si no applauso; do soxi -D "$out/$f.wav" | xargs printf "%s.wav: %ss\n" "$f"; done
