#!/usr/bin/env bash
# The Windows build and the Wine runs: the mingw-w64 compiler, Wine and a virtual X
# display (Wine makes no window without one). Installed only when missing.
set -euo pipefail
exec "$(dirname "$0")/setup.sh" wine g++-mingw-w64-x86-64 xvfb xauth "$@"
