#!/bin/bash
# Makes again every film of the game and the film sets that ship with it:
#   app/programma/swf/premio_*.swf            reward films, each with a short
#                                             cheerful tune (tools/crea-suoni.sh)
#   app/programma/memorypronti/swf/film_*.swf faces of the film sets
#   app/programma/memorypronti/suoni/film_*.wav  the words, spoken (espeak-ng, sox)
#   app/programma/memorypronti/ii/film_*.ass, pi/film_*.aps   the sets
# Builds swf_scrivi first when SWF_SCRIVI doesn't name one.
# With --premi it makes again the reward films only (no espeak-ng needed).
set -euo pipefail
solo_premi=0
[[ "${1:-}" == "--premi" ]] && solo_premi=1

radice=$(cd "$(dirname "$0")/../.." && pwd)
programma="$radice/app/programma"
pronti="$programma/memorypronti"

if [[ -z "${SWF_SCRIVI:-}" ]]; then
    build="${COPPIE_BUILD_FILMATI:-${TMPDIR:-/tmp}/coppie-build-filmati}"
    if [[ ! -f "$build/build.ninja" ]]; then
        cmake -S "$radice" -B "$build" -G Ninja -DCOPPIE_CON_SWF=ON -DCOPPIE_BUILD_BENCHMARKS=OFF >/dev/null
    fi
    ninja -C "$build" -j2 swf_scrivi >/dev/null
    SWF_SCRIVI=$(find "$build" -type f -name swf_scrivi -perm -u+x | head -n 1)
fi
necessari=(sox bc)
[[ $solo_premi == 1 ]] || necessari+=(espeak-ng)
for programmaNecessario in "${necessari[@]}"; do
    command -v "$programmaNecessario" >/dev/null || { echo "missing: $programmaNecessario" >&2; exit 1; }
done

mkdir -p "$programma/swf"
rm -f "$programma"/swf/premio_*.swf

# Reward films: every scene of the writer, with its tune as the soundtrack.
musiche=$(mktemp -d)
trap 'rm -rf "$musiche"' EXIT
bash "$radice/tools/crea-suoni.sh" --premi "$musiche" >/dev/null
for nome in $("$SWF_SCRIVI" --list | awk '$1 == "premio" { print $2 }'); do
    suono=()
    [[ -f "$musiche/$nome.wav" ]] && suono=(--sound "$musiche/$nome.wav")
    "$SWF_SCRIVI" "$programma/swf/$nome.swf" "$nome" --cws "${suono[@]}" >/dev/null
done
if [[ $solo_premi == 1 ]]; then
    echo "reward films: $(ls "$programma"/swf/premio_*.swf | wc -l)"
    exit 0
fi

mkdir -p "$pronti/swf" "$pronti/suoni" "$pronti/ii" "$pronti/pi"
rm -f "$pronti"/swf/film_*.swf "$pronti"/suoni/film_*.wav "$pronti"/ii/film_*.ass "$pronti"/pi/film_*.aps

# A word spoken in Italian: mono 22050 Hz, 16 bit, silence trimmed, normalised.
parla() {
    local testo="$1" uscita="$2" grezzo
    grezzo=$(mktemp --suffix=.wav)
    espeak-ng -v it -s 120 -w "$grezzo" "$testo"
    # -D -R: no dither, fixed seed: the same bytes each time the script runs
    sox -D -R "$grezzo" -r 22050 -c 1 -b 16 "$uscita" \
        silence 1 0.02 0.5% reverse silence 1 0.02 0.5% reverse pad 0.05 0.1 norm -1
    rm -f "$grezzo"
}

dati='C:\ImpostazioniProgrammiLorea\tesselo\dati'
riga() { printf '%s\r\n' "$1"; }

# Two groups of twelve subjects; each makes one set of film with film and one
# of word with film.
gruppo1="sole palla stella palloncino pesce macchina fiore cuore luna nuvola farfalla barca"
gruppo2="coccinella fragola mela arcobaleno razzo uccellino girandola ape albero casa gelato treno"

crea_insiemi() {
    local nomeInsieme="$1" soggetti="$2"
    local ass="$pronti/ii/film_$nomeInsieme.ass" aps="$pronti/pi/film_$nomeInsieme.aps"
    : >"$ass"
    : >"$aps"
    for s in $soggetti; do
        "$SWF_SCRIVI" "$pronti/swf/film_$s.swf" "$s" --cws >/dev/null
        parla "$("$SWF_SCRIVI" --word "$s")" "$pronti/suoni/film_$s.wav"
        parla "$("$SWF_SCRIVI" --phrase "$s")" "$pronti/suoni/film_${s}_articolo.wav"
        local film="$dati\\swf\\film_$s.swf"
        local suono1="$dati\\suoni\\film_$s.wav" suono2="$dati\\suoni\\film_${s}_articolo.wav"
        # film with film: the same film on both tiles of a pair
        { riga "$film"; riga "$film"; riga "$suono1"; riga "$suono2"; } >>"$ass"
        # word with film
        { riga "$("$SWF_SCRIVI" --word "$s")"; riga "$film"; riga "$suono1"; riga "$suono2"; } >>"$aps"
    done
}

crea_insiemi cielo_e_giochi "$gruppo1"
crea_insiemi giardino_e_viaggi "$gruppo2"

echo "reward films: $(ls "$programma"/swf/premio_*.swf | wc -l)"
echo "set films:    $(ls "$pronti"/swf/film_*.swf | wc -l)"
echo "sounds:       $(ls "$pronti"/suoni/film_*.wav | wc -l)"
echo "sets:         $(ls "$pronti"/ii/film_*.ass "$pronti"/pi/film_*.aps | wc -l)"
