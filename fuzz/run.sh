#!/usr/bin/env bash
# Builds the core with clang's libFuzzer instrumentation and the sanitizers, then
# runs each fuzz target (fuzz/*.cpp) for SECONDS (default 30).
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-30}
out=build-fuzz
san="-fsanitize=address,undefined -fno-sanitize-recover=all"
CXX=clang++ cmake -S . -B "$out" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DAQ_CORE_ONLY=ON -DAQ_BENCH=OFF \
  -DCMAKE_CXX_FLAGS="-fsanitize=fuzzer-no-link $san" >/dev/null
cmake --build "$out" --target aqcore >/dev/null
for target in fuzz/*.cpp; do
  name=$(basename "$target" .cpp)
  echo "== fuzzing $name for ${seconds}s"
  # shellcheck disable=SC2086
  clang++ -std=c++20 -O1 -g -fsanitize=fuzzer $san -Isrc -Itests "$target" "$out/libaqcore.a" "$out/libaqformats.a" -o "$out/$name"
  mkdir -p "$out/corpus-$name"
  "$out/$name" -max_total_time="$seconds" -rss_limit_mb=2048 -max_len=300000 "$out/corpus-$name" 2>&1 | tail -n 2
done
