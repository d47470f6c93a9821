#!/usr/bin/env bash
# Builds the fuzz targets with clang's libFuzzer and the sanitizers, and runs each
# for SECONDS (default 30).
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-30}
out=build-fuzz
mkdir -p "$out"
flags=(-std=c++20 -O1 -g -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=all -Isrc)
for target in fuzz/*.cpp; do
  name=$(basename "$target" .cpp)
  echo "== fuzzing $name for ${seconds}s"
  # Each target names the core sources it needs on its first line.
  sources=$(sed -n '1s#^// sources: ##p' "$target")
  # shellcheck disable=SC2086
  clang++ "${flags[@]}" "$target" $sources -o "$out/$name"
  mkdir -p "$out/corpus-$name"
  "$out/$name" -max_total_time="$seconds" -rss_limit_mb=2048 -max_len=300000 "$out/corpus-$name" 2>&1 | tail -n 3
done
