#!/usr/bin/env bash
# Builds everything and runs every test through CTest, then the Windows build's tests
# and the series through Wine, then the desktop files and the Debian package through
# Debian's checkers, then the core tests once more under AddressSanitizer and
# UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")"
scripts/setup.sh clang libclang-rt-14-dev wine g++-mingw-w64-x86-64 xvfb xauth \
  dpkg-dev lintian desktop-file-utils appstream man-db groff-base bash-completion shared-mime-info \
  xdg-utils libfile-mimeinfo-perl
scripts/check-layers
jobs=$(nproc)

cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release -DAQ_WERROR=ON \
  -DCMAKE_CXX_FLAGS="-D_GLIBCXX_ASSERTIONS" >/dev/null
cmake --build build -j "$jobs"
ctest --test-dir build --output-on-failure -j "$jobs"

JOBS=$jobs scripts/wine-tests.sh
scripts/check-package.sh

cmake -S . -B build-asan -G Ninja -DCMAKE_BUILD_TYPE=Debug -DAQ_CORE_ONLY=ON -DAQ_WERROR=ON \
  -DCMAKE_CXX_FLAGS="-O1 -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=all -D_GLIBCXX_ASSERTIONS" \
  >/dev/null
cmake --build build-asan -j "$jobs"
ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ctest --test-dir build-asan --output-on-failure -j "$jobs"
