#!/usr/bin/env bash
# Makes the game's ready-made sets from the word lists in contenuti/insiemi/:
# the pictures (Noto Emoji and Fluent Emoji Flat, from their npm packages)
# become still-faced animated GIFs, the words are spoken by espeak-ng and
# trimmed by sox, and the set files are written as the editors write them.
# Everything lands in app/programma/memorypronti/. The same lists and the same
# package versions (Debian 12, the npm versions below) give the same bytes.
# Usage: bash contenuti/crea.sh
set -euo pipefail
cd "$(dirname "$0")/.."
radice=$PWD
fonte=$radice/contenuti
uscita=$radice/app/programma/memorypronti

# The picture packages, at the versions the credits name.
pacchetti_npm=(@iconify-json/noto@1.2.9 @iconify-json/fluent-emoji-flat@1.2.6)
pacchetti_apt=(espeak-ng sox imagemagick librsvg2-bin)
cache=${COPPIE_CONTENUTI_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/coppie-vivaci-contenuti}

installa() {
  local mancanti=()
  for p in "${pacchetti_apt[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || mancanti+=("$p")
  done
  # Some machines have Node.js with its own npm from elsewhere: only the commands matter.
  command -v node > /dev/null || mancanti+=(nodejs)
  command -v npm > /dev/null || mancanti+=(npm)
  if [ ${#mancanti[@]} -gt 0 ]; then
    local sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    echo "Installo: ${mancanti[*]}"
    $sudo apt-get update
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends "${mancanti[@]}"
  fi
  mkdir -p "$cache"
  [ -f "$cache/package.json" ] || echo '{"private": true}' > "$cache/package.json"
  local serve=0
  for p in "${pacchetti_npm[@]}"; do
    local nome=${p%@*} versione=${p##*@}
    local trovata
    trovata=$(node -p "try { require('$cache/node_modules/$nome/package.json').version } catch (e) { '' }")
    [ "$trovata" = "$versione" ] || serve=1
  done
  if [ $serve -eq 1 ]; then
    (cd "$cache" && npm install --no-audit --no-fund --ignore-scripts --save-exact "${pacchetti_npm[@]}")
  fi
}
installa

lavoro=$(mktemp -d)
trap 'rm -rf "$lavoro"' EXIT
nuovi=$lavoro/memorypronti
mkdir -p "$nuovi/gif" "$nuovi/suoni" "$nuovi/ii" "$nuovi/pi"

dati='C:\ImpostazioniProgrammiLorea\tesselo\dati\'
lato=192    # the picture inside its 256 x 256 tile

# One animated GIF from a PNG: the first frame is the picture at rest, which
# the board shows as the still face; the rest move once the pair is found.
# Six frames make a smooth enough bounce or wiggle; a spin needs eight.
anima() {
  local png=$1 moto=$2 sfondo=$3 gif=$4
  local d=$lavoro/fotogrammi
  rm -rf "$d" && mkdir -p "$d"
  local n=6 ritardo=11
  [ "$moto" = giro ] && n=8 ritardo=8
  for ((k = 0; k < n; k++)); do
    local dy=0 ang=0
    case $moto in
      salto) dy=$(awk -v k=$k -v n=$n 'BEGIN { printf "%d", -30 * sin(3.14159265 * k / n) }') ;;
      dondolo) ang=$(awk -v k=$k -v n=$n 'BEGIN { printf "%.1f", 16 * sin(2 * 3.14159265 * k / n) }') ;;
      giro) ang=$(awk -v k=$k -v n=$n 'BEGIN { printf "%.1f", 360 * k / n }') ;;
    esac
    convert -size 256x256 "xc:$sfondo" \( "$png" -background none -rotate "$ang" \) \
      -gravity center -geometry "+0$( [ "$dy" -lt 0 ] && echo "$dy" || echo "+$dy")" -composite \
      "$d/f$k.png"
  done
  convert -delay $ritardo -loop 0 $(for ((k = 0; k < n; k++)); do echo "$d/f$k.png"; done) \
    +dither -colors 40 -layers Optimize "$gif"
}

# One spoken sound: espeak-ng's Italian voice, the silence around the word
# cut, a short pause kept at both ends, loudness set, mono 22050 Hz in 8 bits:
# half the size of 16, and the synthetic voice loses nothing one can hear.
parla() {
  local testo=$1 wav=$2
  espeak-ng -v it -s 150 -w "$lavoro/voce.wav" "$testo"
  sox -R "$lavoro/voce.wav" -r 22050 -c 1 -b 8 "$wav" \
    silence 1 0.02 0.5% reverse silence 1 0.02 0.5% reverse pad 0.05 0.05 norm -1
  local durata
  durata=$(soxi -D "$wav")
  awk -v d="$durata" 'BEGIN { exit !(d < 3.0) }' || { echo "troppo lungo: $testo ($durata s)" >&2; exit 1; }
}

moti=(salto dondolo giro)

for lista in "$fonte"/insiemi/*.txt; do
  base=$(basename "$lista" .txt)          # e.g. animali.agg
  prefisso=${base%.*}
  tipo=${base##*.}
  case $tipo in
    agg) cartella=ii ;;
    apg) cartella=pi ;;
    *) echo "tipo sconosciuto: $lista" >&2; exit 1 ;;
  esac
  echo "== $base"

  # A word set may read the words of an image set and use its pictures and
  # voices: "usa|<image set>|<side>" costs no new media.
  usa=$(awk -F'|' '$1 == "usa" { print $2 "|" $3 }' "$lista")
  if [ -n "$usa" ]; then
    IFS='|' read -r altro lato_usato <<< "$usa"
    [ "$tipo" = apg ] && [ -f "$fonte/insiemi/$altro.agg.txt" ] || { echo "usa sbagliato: $lista" >&2; exit 1; }
    set_righe=()
    while IFS='|' read -r chiave parola frase img1 img2; do
      case $chiave in ''|'#'*|sfondo) continue ;; esac
      nome=${altro}_$chiave
      set_righe+=("$parola" "${dati}gif\\${nome}_$lato_usato.gif" "${dati}suoni\\${nome}_1.wav" "${dati}suoni\\${nome}_2.wav")
    done < "$fonte/insiemi/$altro.agg.txt"
    printf '%s\r\n' "${set_righe[@]}" | iconv -f UTF-8 -t WINDOWS-1252 > "$nuovi/$cartella/$base"
    continue
  fi

  sfondo=$(awk -F'|' '$1 == "sfondo" { print $2 }' "$lista")
  righe=()
  : > "$lavoro/svg.txt"
  i=0
  while IFS='|' read -r chiave parola frase img1 img2; do
    case $chiave in ''|'#'*|sfondo) continue ;; esac
    nome=${prefisso}_$chiave
    if [ "$tipo" = agg ]; then
      printf '%s\t%s\n' "$img1" "$lavoro/${nome}_1.svg" >> "$lavoro/svg.txt"
      printf '%s\t%s\n' "$img2" "$lavoro/${nome}_2.svg" >> "$lavoro/svg.txt"
    else
      printf '%s\t%s\n' "$img1" "$lavoro/${nome}.svg" >> "$lavoro/svg.txt"
    fi
    righe+=("$i|$chiave|$parola|$frase")
    i=$((i + 1))
  done < "$lista"
  node "$fonte/svg-da-iconify.mjs" "$cache/node_modules" < "$lavoro/svg.txt"

  set_righe=()
  for r in "${righe[@]}"; do
    IFS='|' read -r i chiave parola frase <<< "$r"
    nome=${prefisso}_$chiave
    parla "$parola" "$nuovi/suoni/${nome}_1.wav"
    parla "$frase" "$nuovi/suoni/${nome}_2.wav"
    if [ "$tipo" = agg ]; then
      for lato_n in 1 2; do
        rsvg-convert -w $lato -h $lato -a "$lavoro/${nome}_$lato_n.svg" -o "$lavoro/${nome}_$lato_n.png"
        anima "$lavoro/${nome}_$lato_n.png" "${moti[$(((i + lato_n - 1) % 3))]}" "$sfondo" "$nuovi/gif/${nome}_$lato_n.gif"
      done
      set_righe+=("${dati}gif\\${nome}_1.gif" "${dati}gif\\${nome}_2.gif")
    else
      rsvg-convert -w $lato -h $lato -a "$lavoro/$nome.svg" -o "$lavoro/$nome.png"
      anima "$lavoro/$nome.png" "${moti[$((i % 3))]}" "$sfondo" "$nuovi/gif/$nome.gif"
      set_righe+=("$parola" "${dati}gif\\$nome.gif")
    fi
    set_righe+=("${dati}suoni\\${nome}_1.wav" "${dati}suoni\\${nome}_2.wav")
  done
  # Four bare lines a pair, CR LF, in the Windows code page, as the editors write.
  printf '%s\r\n' "${set_righe[@]}" | iconv -f UTF-8 -t WINDOWS-1252 > "$nuovi/$cartella/$base"
done

# Into place: only this tool's own files are replaced, since the film sets
# share these folders. A list whose name ends in .txt makes one set.
mkdir -p "$uscita/gif" "$uscita/suoni" "$uscita/ii" "$uscita/pi"
for lista in "$fonte"/insiemi/*.txt; do
  base=$(basename "$lista" .txt)
  prefisso=${base%.*}
  rm -f "$uscita/gif/${prefisso}_"*.gif "$uscita/suoni/${prefisso}_"*.wav "$uscita/ii/$base" "$uscita/pi/$base"
done
for sotto in gif suoni ii pi; do
  cp "$nuovi/$sotto/"* "$uscita/$sotto/"
done

# Credits and licences ship beside the sets.
cp "$fonte/CREDITI.txt" "$uscita/CREDITI.txt"
cp "$fonte/licenze/"*.txt "$uscita/"

echo "Fatto: $(find "$nuovi" -type f | wc -l) file, $(du -sh --apparent-size "$nuovi" | cut -f1)"
