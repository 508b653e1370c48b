#!/usr/bin/env bash
# The whole test suite under AddressSanitizer and UndefinedBehaviorSanitizer,
# and the road of one whole game under Valgrind's memcheck.
#
#   scripts/prova-sanitizzatori.sh [asan|valgrind|tutto]   (default: tutto)
#
# asan: builds the game and its tests in build-asan/ with both sanitisers
#   (undefined behaviour stops the program), then runs every test; a report
#   of either sanitiser, a leak among them, fails the test that made it. The
#   leaks that the system's own libraries keep until the end of the process
#   (fonts, the display, the sound server) are listed in
#   tests/sanitizzatori/lsan.supp; none of the game's code is.
# valgrind: builds the ordinary build in build/ and runs, under memcheck, a
#   whole game played with the mouse to its reward and on to a new game, and
#   the road from the menu to a real board and back; fails on any error of
#   memcheck or any definite leak.
set -euo pipefail
radice=$(cd "$(dirname "$0")/.." && pwd)
cosa=${1:-tutto}
supp="$radice/tests/sanitizzatori"

if [ "$(id -u)" = 0 ] && command -v apt-get >/dev/null; then
  bash "$radice/scripts/installa-dipendenze.sh"
  if ! command -v valgrind >/dev/null; then
    apt-get update -q >/dev/null
    DEBIAN_FRONTEND=noninteractive apt-get install -y -q valgrind >/dev/null
  fi
fi

esito=0
if [ "$cosa" = asan ] || [ "$cosa" = tutto ]; then
  build="$radice/build-asan"
  bandiere="-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer"
  cmake -S "$radice" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DCMAKE_CXX_FLAGS="$bandiere" -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined" \
    -DCOPPIE_BUILD_BENCHMARKS=OFF >/dev/null
  cmake --build "$build" -j "$(nproc)"
  export ASAN_OPTIONS="detect_leaks=1:abort_on_error=0:detect_stack_use_after_return=0"
  export LSAN_OPTIONS="suppressions=$supp/lsan.supp:print_suppressions=0"
  export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
  if (cd "$build" && ctest -j "$(nproc)" --output-on-failure --timeout 1500); then
    echo "asan: every test passed with no report"
  else
    echo "asan: some test failed or made a report (see above)" >&2
    esito=1
  fi
fi

if [ "$cosa" = valgrind ] || [ "$cosa" = tutto ]; then
  build="$radice/build"
  bash "$radice/scripts/compila.sh" "$build" test_schermi_tavola test_strada_tavole
  export QT_QPA_PLATFORM=offscreen
  # Qt's regular expressions compile to machine code at run time, which
  # memcheck cannot follow (it reports unnamed code reading unset bytes); the
  # interpreter keeps the reports about the game's own code.
  export QT_ENABLE_REGEXP_JIT=0
  for prova in "test_schermi_tavola aWholeGameIsPlayedWithTheMouseToTheRewardAndANewGameStarts" \
               "test_strada_tavole"; do
    set -- $prova
    registro="$build/valgrind-$1.log"
    if valgrind --tool=memcheck --leak-check=full --show-leak-kinds=definite \
         --errors-for-leak-kinds=definite --error-exitcode=99 \
         --suppressions="$supp/valgrind.supp" --num-callers=30 \
         "$build/tests/$1" "${@:2}" >"$registro" 2>&1; then
      echo "valgrind: $prova: $(grep -E 'definitely lost:|ERROR SUMMARY' "$registro" | sed 's/^==[0-9]*== //' | tr '\n' ' ')"
    else
      echo "valgrind: $prova failed or found something: see $registro" >&2
      grep -E 'definitely lost:|ERROR SUMMARY|FAIL' "$registro" >&2 || true
      esito=1
    fi
  done
fi
exit "$esito"
