#!/usr/bin/env bash
# Builds and runs every benchmark and prints one table: the operation, its time,
# the floor measured in the same run (bench/floors.txt) or a fixed budget such as a
# 16 ms frame, and their ratio.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build >/dev/null
out=$(mktemp -d)
for b in build/bench/bench_*; do
  [ -f "$b" ] && [ -x "$b" ] || continue
  QT_QPA_PLATFORM=offscreen "$b" --benchmark_format=json --benchmark_min_time=0.2 >"$out/$(basename "$b").json" 2>/dev/null
done
python3 - "$out" bench/floors.txt <<'PY'
import json, os, sys
folder, floors_file = sys.argv[1], sys.argv[2]
times, notes = {}, {}
for name in sorted(os.listdir(folder)):
    for b in json.load(open(os.path.join(folder, name)))["benchmarks"]:
        scale = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}[b.get("time_unit", "ns")]
        times[b["name"]] = b["real_time"] * scale
        # What a benchmark counts besides time, such as the memory it holds.
        notes[b["name"]] = " ".join(f"{k}={b[k]:g}" for k in ("MB", "peak MB", "species") if k in b)
floors = {}
for line in open(floors_file):
    line = line.split("#")[0].split()
    if len(line) == 2:
        floors[line[0]] = line[1]
print(f"{'operation':48} {'time ms':>10} {'floor':44} {'floor ms':>10} {'ratio':>7}  counted")
for name, ms in times.items():
    if name in floors.values() and name not in floors:
        continue
    floor = floors.get(name)
    if floor and floor.endswith("ms") and floor[:-2].replace(".", "", 1).isdigit():
        # A fixed budget rather than a measured floor, such as the 16 ms of a frame.
        print(f"{name:48} {ms:10.3f} {'a frame of ' + floor:44} {float(floor[:-2]):10.3f} {ms / float(floor[:-2]):7.2f}  {notes[name]}")
    elif floor and floor in times:
        print(f"{name:48} {ms:10.3f} {floor:44} {times[floor]:10.3f} {ms / times[floor]:7.2f}  {notes[name]}")
    else:
        print(f"{name:48} {ms:10.3f} {'':44} {'':10} {'':7}  {notes[name]}")
PY
rm -rf "$out"
