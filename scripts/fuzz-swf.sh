#!/usr/bin/env bash
# Fuzzes the film reader and renderer under AddressSanitizer and
# UndefinedBehaviorSanitizer with libFuzzer, one worker per core, until the
# workers together have run the number of inputs asked for (10 million unless
# given as $1). Seeds: the reference films beside the project and the game's
# own films. Runs the library's tests under the sanitisers first. Prints the
# executions of each worker and their sum; fails if any worker found a crash,
# a leak or an input slower than the time limit.
#
#   scripts/fuzz-swf.sh [executions] [build folder]
set -euo pipefail
radice=$(cd "$(dirname "$0")/.." && pwd)
totale=${1:-10000000}
build=${2:-$radice/build-fuzz}
lavoratori=${COPPIE_FUZZ_LAVORATORI:-$(nproc)}
corpus_rif=$(cd "$radice/.." && pwd)/shared/swf-corpus

if [ "$(id -u)" = 0 ] && command -v apt-get >/dev/null; then
  bash "$radice/scripts/installa-dipendenze.sh"
  DEBIAN_FRONTEND=noninteractive apt-get install -y -q clang libclang-rt-14-dev >/dev/null
fi

CC=clang CXX=clang++ cmake -S "$radice/tests/swf/fuzz" -B "$build" -G Ninja \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCOPPIE_SWF_CORPUS="$corpus_rif" >/dev/null
cmake --build "$build" --target swf_fuzz swf_test -j "$(nproc)"

# The library's own tests first, under the same sanitisers: some of them are
# there for undefined behaviour an ordinary build cannot see
QT_QPA_PLATFORM=offscreen "$build/tests/swf_test" -silent

# Seeds: every film we have, once each
semi="$build/semi"
corpus="$build/corpus"
esiti="$build/esiti"
mkdir -p "$semi" "$corpus" "$esiti"
for cartella in "$corpus_rif" "$radice/app/programma" "$radice/contenuti"; do
  [ -d "$cartella" ] || continue
  find "$cartella" -iname '*.swf' -size -2M -print0 |
    while IFS= read -r -d '' f; do cp -f "$f" "$semi/$(sha1sum "$f" | cut -c1-40).swf"; done
done
echo "semi: $(ls "$semi" | wc -l) film"

# A finding is kept as its input and replayed at will, so the reports need not
# record where every block was allocated: a third more inputs a second
export ASAN_OPTIONS=${ASAN_OPTIONS:-malloc_context_size=0}
per_lavoratore=$(( (totale + lavoratori - 1) / lavoratori ))
inizio=$(date +%s)
pids=()
for i in $(seq 1 "$lavoratori"); do
  "$build/tests/swf_fuzz" "$corpus" "$semi" \
    -runs="$per_lavoratore" -max_len=65536 -timeout=10 -rss_limit_mb=2560 \
    -print_final_stats=1 -artifact_prefix="$esiti/" -seed="$i$inizio" \
    >"$build/lavoratore-$i.log" 2>&1 &
  pids+=($!)
done
fallito=0
for p in "${pids[@]}"; do wait "$p" || fallito=1; done
fine=$(date +%s)

somma=0
for i in $(seq 1 "$lavoratori"); do
  n=$(grep -E '^stat::number_of_executed_units:' "$build/lavoratore-$i.log" | awk '{print $2}' || true)
  v=$(grep -E '^stat::average_exec_per_sec:' "$build/lavoratore-$i.log" | awk '{print $2}' || true)
  echo "lavoratore $i: ${n:-?} esecuzioni, ${v:-?} al secondo"
  somma=$(( somma + ${n:-0} ))
done
trovati=$(ls "$esiti" | wc -l)
echo "totale: $somma esecuzioni in $(( fine - inizio )) s; reperti: $trovati; corpus: $(ls "$corpus" | wc -l) ingressi"
if [ "$fallito" != 0 ] || [ "$trovati" != 0 ]; then
  echo "il fuzzing ha trovato qualcosa: vedi $esiti e $build/lavoratore-*.log" >&2
  exit 1
fi
