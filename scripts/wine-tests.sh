#!/usr/bin/env bash
# The Windows build under Wine: builds everything the Windows build makes with
# mingw-w64, runs the Windows core tests below under Wine, then a series driven
# from Linux with the Windows stand-in under Wine. One throwaway Wine folder for it all;
# every Wine process is ended afterwards. Needs the Linux build in build/.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup-wine.sh
jobs=${JOBS:-$(nproc)}
# The Windows core tests that run here; the other folders drive aqfm through a POSIX
# shell or lean on POSIX permissions and run on Linux only. The tests left out below
# build their paths and expected messages with "/" where Windows joins with "\\" (the
# path helpers then split at the "\\" only), quote for a POSIX shell, or expect POSIX
# error texts.
win_tests=(tests_archive tests_base tests_foodeditor tests_pool tests_series tests_shell)
declare -A skip=(
  [tests_archive]="CopyToArchive.NothingCheckedCancelledAutoNamesAndOverwrites:ReplaceFromArchive.*"
  [tests_series]="Harvest.CliScoresAndPrepare:EvolveSeries.PlagueAndHarvestHappenInTheCycle"
  [tests_shell]="Discovery.*"
)
filters=()
for t in "${win_tests[@]}"; do filters+=("$t=-${skip[$t]:-}"); done

launcher=()
command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S . -B build-win -G Ninja --toolchain cmake/mingw-w64-x86_64.cmake -DCMAKE_BUILD_TYPE=Release \
  -DAQ_WERROR=ON "${launcher[@]}" >/dev/null
cmake --build build-win -j "$jobs"

work=$(mktemp -d)
export WINEPREFIX="$work/prefix" WINEDEBUG=-all AQ_WIN_BUILD="$PWD/build-win"
cleanup() { wineserver -k 2>/dev/null || true; rm -rf "$work"; }
trap cleanup EXIT

xvfb-run -a bash -c '
  set -u
  failed=0
  start=$(date +%s)
  wineboot -i >/dev/null 2>&1 || true
  echo "Wine folder ready in $(( $(date +%s) - start )) s"
  cd build-win
  for entry in "$@"; do
    t=${entry%%=*}
    echo "== $t.exe under Wine"
    wine "tests/$t.exe" --gtest_brief=1 --gtest_filter="${entry#*=}" || failed=1
  done
  cd ..
  echo "== a series from Linux with the Windows stand-in under Wine"
  build/tests/tests_series --gtest_filter="Standin.WindowsSeries*" || failed=1
  echo "== a Windows simulator that never opens its window, ended at Finish"
  # A process of its own, so the broker it launches passes the stand-in mode on.
  build/tests/tests_series --gtest_filter="Standin.WindowsNeverReady*" || failed=1
  exit $failed
' wine-tests "${filters[@]}"
