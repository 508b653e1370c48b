#!/usr/bin/env bash
# Fuzzes the game's text readers under AddressSanitizer and
# UndefinedBehaviorSanitizer with libFuzzer: the field reader (campi), the set
# files as boards and editors read them (memoria), the player's profile
# (profilo), the language files (lingua) and LangSetting.ini
# (impostazione_lingua). For each reader, one worker per core runs until the
# workers together have run the number of inputs asked for (10 million unless
# given as $1). Each reader's corpus is kept in the build folder, so runs on
# the same code add up. Prints each worker's count and each reader's sum;
# fails on any finding (a crash, a broken rule of the entry, a leak, an input
# slower than the limit).
#
#   scripts/fuzz-testi.sh [inputs per reader] [reader...]
#   COPPIE_FUZZ_LAVORATORI=N sets the workers per reader (default: the cores)
#   COPPIE_FUZZ_BUILD=folder sets the build folder (default: build-fuzz-testi)
set -euo pipefail
radice=$(cd "$(dirname "$0")/.." && pwd)
totale=${1:-10000000}
shift || true
lettori=("$@")
[ ${#lettori[@]} -gt 0 ] || lettori=(campi memoria profilo lingua impostazione_lingua)
build=${COPPIE_FUZZ_BUILD:-$radice/build-fuzz-testi}
lavoratori=${COPPIE_FUZZ_LAVORATORI:-$(nproc)}

if [ "$(id -u)" = 0 ] && command -v apt-get >/dev/null; then
  bash "$radice/scripts/installa-dipendenze.sh"
  if ! command -v clang++ >/dev/null || ! dpkg-query -W libclang-rt-14-dev >/dev/null 2>&1; then
    apt-get update -q >/dev/null
    DEBIAN_FRONTEND=noninteractive apt-get install -y -q clang libclang-rt-14-dev >/dev/null
  fi
fi

CC=clang CXX=clang++ cmake -S "$radice" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCOPPIE_FUZZ_TESTI=ON -DCOPPIE_BUILD_TESTS=OFF -DCOPPIE_BUILD_BENCHMARKS=OFF >/dev/null
obiettivi=()
for l in "${lettori[@]}"; do obiettivi+=("fuzz_$l"); done
cmake --build "$build" --target "${obiettivi[@]}" -j "$(nproc)"

export QT_QPA_PLATFORM=offscreen
per_lavoratore=$(( (totale + lavoratori - 1) / lavoratori ))
fallito=0
for l in "${lettori[@]}"; do
  semi="$radice/tests/fuzz_testi/semi/$l"
  altri=()
  case "$l" in
    memoria) altri=("$radice/app/programma/memorypronti/ii" "$radice/app/programma/memorypronti/pi") ;;
    lingua) altri=("$radice/lang/lng") ;;
  esac
  [ -d "$radice/tests/fuzz_testi/reperti/$l" ] && altri+=("$radice/tests/fuzz_testi/reperti/$l")
  corpus="$build/corpus/$l"
  esiti="$build/esiti/$l"
  mkdir -p "$corpus" "$esiti"
  inizio=$(date +%s)
  pids=()
  for i in $(seq 1 "$lavoratori"); do
    "$build/tests/fuzz_$l" "$corpus" "$semi" "${altri[@]}" \
      -runs="$per_lavoratore" -max_len=8192 -timeout=10 -rss_limit_mb=2560 \
      -print_final_stats=1 -artifact_prefix="$esiti/" -seed="$i$inizio" \
      >"$build/$l-lavoratore-$i.log" 2>&1 &
    pids+=($!)
  done
  esito=0
  for p in "${pids[@]}"; do wait "$p" || esito=1; done
  fine=$(date +%s)
  somma=0
  for i in $(seq 1 "$lavoratori"); do
    n=$(grep -E '^stat::number_of_executed_units:' "$build/$l-lavoratore-$i.log" | awk '{print $2}' || true)
    v=$(grep -E '^stat::average_exec_per_sec:' "$build/$l-lavoratore-$i.log" | awk '{print $2}' || true)
    echo "$l, lavoratore $i: ${n:-?} esecuzioni, ${v:-?} al secondo"
    somma=$(( somma + ${n:-0} ))
  done
  trovati=$(ls "$esiti" | wc -l)
  echo "$l: $somma esecuzioni in $(( fine - inizio )) s; reperti: $trovati; corpus: $(ls "$corpus" | wc -l) ingressi"
  if [ "$esito" != 0 ] || [ "$trovati" != 0 ]; then
    echo "il fuzzing di $l ha trovato qualcosa: vedi $esiti e $build/$l-lavoratore-*.log" >&2
    fallito=1
  fi
done
exit "$fallito"
