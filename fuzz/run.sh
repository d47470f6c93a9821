#!/usr/bin/env bash
# Builds the core with clang's libFuzzer instrumentation and the sanitizers, makes seed
# files with the program's own code (fuzz/make_seeds.cpp), then runs each fuzz target
# (each fuzz/*.cpp with a LLVMFuzzerTestOneInput) for SECONDS (default 30) and prints
# its executions, its coverage and how many functions of the passes it reached.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-30}
out=build-fuzz
san="-fsanitize=address,undefined -fno-sanitize-recover=all"
CXX=clang++ cmake -S . -B "$out" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DAQ_CORE_ONLY=ON -DAQ_BENCH=OFF \
  -DCMAKE_CXX_FLAGS="-fsanitize=fuzzer-no-link $san" >/dev/null
cmake --build "$out" --target aqcore >/dev/null
# shellcheck disable=SC2086
clang++ -std=c++20 -O1 -g -fsanitize=fuzzer-no-link $san -Isrc -Itests fuzz/make_seeds.cpp "$out/libaqcore.a" "$out/libaqformats.a" \
  -o "$out/make_seeds"
seeds="$out/seeds"
rm -rf "$seeds"
"$out/make_seeds" "$seeds"
for target in $(grep -l LLVMFuzzerTestOneInput fuzz/*.cpp); do
  name=$(basename "$target" .cpp)
  # The passes take a 2000-drifter pool whole, preferring quicker inputs; the reader
  # gets it cut short, as a truncated file, and runs many times faster.
  extra=""
  case "$name" in
    pool_passes) seed="$seeds/pool" max_len=8200000 extra="-entropic_scale_per_exec_time=1" ;;
    pool_*) seed="$seeds/pool" max_len=1100000 ;;
    dna_*) seed="$seeds/dna" max_len=4096 ;;
    settings_*) seed="$seeds/settings" max_len=300000 ;;
    *) seed="$seeds/paths" max_len=4096 ;;
  esac
  echo "== fuzzing $name for ${seconds}s"
  # A fuzzer of the file formats links the formats library alone; one that runs the
  # program's passes links the core too.
  libs="$out/libaqformats.a"
  grep -q '#include "\(state\|files\|generator\|pooleditor\|foodeditor\|dnaeditor\|archive\|series\|shell\)/' "$target" &&
    libs="$out/libaqcore.a $libs"
  # shellcheck disable=SC2086
  clang++ -std=c++20 -O1 -g -fsanitize=fuzzer $san -Isrc -Itests "$target" $libs -o "$out/$name"
  mkdir -p "$out/corpus-$name"
  log="$out/$name.log"
  # shellcheck disable=SC2086
  if ! "$out/$name" -max_total_time="$seconds" -rss_limit_mb=2048 -max_len="$max_len" -print_final_stats=1 \
    -print_coverage=1 -artifact_prefix="$out/" $extra "$out/corpus-$name" "$seed" >"$log" 2>&1; then
    tail -n 40 "$log"
    echo "== $name found a fault; the input is in $out (crash-*, leak-*, timeout-*, slow-unit-*)"
    exit 1
  fi
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  cov=$(grep -o 'DONE *cov: [0-9]*' "$log" | grep -o '[0-9]*$' || echo "?")
  passes=$(grep '^COVERED_FUNC' "$log" | grep -c -E 'src/(pooleditor|series|foodeditor|generator)/' || true)
  echo "   $runs runs, coverage $cov edges, $passes functions of the passes reached"
done
