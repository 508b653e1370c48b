#!/usr/bin/env bash
# Makes the game's three fixed sounds with sox: a bright chime for a right
# pair, a soft low sound for a wrong one, a short applause; and the soft cue
# of a scanning step. Mono, 22050 Hz.
# Usage: tools/crea-suoni.sh  (writes app/programma/suoni/*.wav)
#        tools/crea-suoni.sh --premi FOLDER
#   writes instead the short cheerful tunes of the reward films,
#   FOLDER/premio_<scene>.wav, the same bytes each time; tools/swf/crea-filmati.sh
#   puts them into the films as their soundtracks.
set -euo pipefail
cd "$(dirname "$0")/.."
out=app/programma/suoni
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
fmt=(-r 22050 -c 1 -b 16)

if [[ "${1:-}" == "--premi" ]]; then
  out=${2:?"usage: $0 --premi FOLDER"}
  mkdir -p "$out"
  # -D -R: no dither, fixed seed: the same bytes every time
  sx() { sox -D -R "$@"; }
  per() { echo "$1*$2" | bc -l; }
  # nota FILE TIMBRE HZ SECONDS; a whistle's HZ may be a sweep, 400-1200
  nota() {
    local f=$1 timbro=$2 hz=$3 d=$4
    case $timbro in
      campana) sx -n "${fmt[@]}" "$f" synth "$d" sine "$hz" sine "$(per "$hz" 2.01)" remix - \
                 fade l 0.005 "$d" "$(per "$d" 0.9)" vol 0.5 ;;
      pizzico) sx -n "${fmt[@]}" "$f" synth "$d" pluck "$hz" fade l 0 "$d" "$(per "$d" 0.7)" ;;
      flauto)  sx -n "${fmt[@]}" "$f" synth "$d" triangle "$hz" fade h 0.02 "$d" "$(per "$d" 0.4)" tremolo 6 15 vol 0.6 ;;
      fischio) sx -n "${fmt[@]}" "$f" synth "$d" sine "$hz" fade h 0.01 "$d" 0.02 vol 0.5 ;;
      treno)   sx -n "${fmt[@]}" "$f" synth "$d" triangle "$hz" triangle "$(per "$hz" 1.26)" remix - \
                 fade h 0.02 "$d" 0.1 vol 0.5 ;;
      ronzio)  sx -n "${fmt[@]}" "$f" synth "$d" sawtooth "$hz" tremolo 25 60 lowpass 900 fade h 0.05 "$d" 0.1 vol 0.4 ;;
      pop)     sx -n "${fmt[@]}" "$f" synth "$d" whitenoise vol 0.5 highpass 1200 fade l 0 "$d" "$d" ;;
      pausa)   sx -n "${fmt[@]}" "$f" trim 0 "$d" ;;
    esac
  }
  # tune NAME "TIMBRE:HZ:SECONDS ...": the notes one after the other, a
  # little room around them, at a gentle level under the spoken words
  tune() {
    local nome=$1 parti=() i=0
    for n in $2; do
      IFS=: read -r t hz d <<<"$n"
      nota "$tmp/n$i.wav" "$t" "$hz" "$d"
      parti+=("$tmp/n$i.wav")
      i=$((i + 1))
    done
    sx "${parti[@]}" "$tmp/tune.wav"
    sx "$tmp/tune.wav" "$out/$nome.wav" reverb 25 pad 0 0.2 norm -6
    rm -f "$tmp"/n*.wav "$tmp/tune.wav"
  }
  tune premio_stelle "campana:1046.5:0.15 campana:1568:0.15 campana:1318.5:0.15 campana:2093:0.6"
  tune premio_palloncini "pizzico:523.25:0.12 pizzico:659.25:0.12 pizzico:784:0.12 pop:0:0.05 pausa:0:0.15 pop:0:0.05 pausa:0:0.15 pizzico:1046.5:0.4"
  tune premio_acquario "fischio:400-1100:0.08 pausa:0:0.07 fischio:500-1300:0.07 pausa:0:0.1 fischio:350-1000:0.09 pausa:0:0.06 fischio:600-1500:0.06 pausa:0:0.12 flauto:784:0.2 flauto:1046.5:0.4"
  tune premio_giardino "fischio:2600-3600:0.06 pausa:0:0.04 fischio:2600-3600:0.06 pausa:0:0.2 fischio:3000-4000:0.05 pausa:0:0.03 fischio:3000-4000:0.05 pausa:0:0.03 fischio:3200-2600:0.12 pausa:0:0.2 flauto:784:0.25 flauto:1046.5:0.45"
  tune premio_farfalle "flauto:784:0.18 flauto:880:0.18 flauto:987.77:0.18 flauto:1174.66:0.5"
  tune premio_sole "pizzico:523.25:0.14 pizzico:659.25:0.14 pizzico:784:0.14 pizzico:1046.5:0.14 pizzico:1318.5:0.5"
  tune premio_corsa "flauto:440:0.1 pausa:0:0.05 flauto:440:0.1 pausa:0:0.15 flauto:392:0.15 flauto:523.25:0.15 flauto:659.25:0.15 flauto:784:0.5"
  tune premio_cuori "campana:659.25:0.25 campana:784:0.25 campana:1046.5:0.7"
  tune premio_girandole "fischio:300-1500:0.35 pizzico:784:0.12 pizzico:987.77:0.12 pizzico:1174.66:0.12 pizzico:1568:0.4"
  tune premio_api "ronzio:220:0.5 pausa:0:0.1 pizzico:659.25:0.14 pizzico:784:0.14 pizzico:1046.5:0.4"
  tune premio_arcobaleno "campana:523.25:0.1 campana:587.33:0.1 campana:659.25:0.1 campana:698.46:0.1 campana:784:0.1 campana:880:0.1 campana:987.77:0.1 campana:1046.5:0.6"
  tune premio_coccinelle "pizzico:784:0.14 pizzico:659.25:0.14 pizzico:784:0.14 pizzico:659.25:0.14 pizzico:1046.5:0.45"
  tune premio_razzo "fischio:200-1800:0.8 campana:1568:0.12 campana:2093:0.12 campana:2637:0.5"
  tune premio_palle "fischio:700-250:0.16 pausa:0:0.08 fischio:700-250:0.14 pausa:0:0.08 fischio:700-250:0.12 pausa:0:0.1 pizzico:1046.5:0.4"
  tune premio_trenino "treno:523.25:0.25 pausa:0:0.08 treno:523.25:0.55"
  tune premio_gelati "flauto:1046.5:0.18 flauto:880:0.18 flauto:698.46:0.18 flauto:784:0.18 flauto:1046.5:0.5"
  for f in "$out"/premio_*.wav; do soxi -D "$f" | xargs printf "%s: %ss\n" "$(basename "$f")"; done
  exit 0
fi
mkdir -p "$out"

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
# Step: the soft cue of each step of the scanning highlight, a short round
# tick (two quiet sines with a quick fade), well under the tiles' own sounds.
sox -n "${fmt[@]}" "$out/passo.wav" synth 0.07 sine 660 sine 990 remix - fade l 0.004 0.07 0.05 \
  lowpass 2500 vol 0.25
for f in si no applauso passo; do soxi -D "$out/$f.wav" | xargs printf "%s.wav: %ss\n" "$f"; done
