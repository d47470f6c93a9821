#!/usr/bin/env bash
# Builds Aquarium File Manager (Release) and starts it.
set -euo pipefail
cd "$(dirname "$0")"
scripts/setup.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build build --target AqFileManager aqfm demo_folder
exec build/AqFileManager "$@"
