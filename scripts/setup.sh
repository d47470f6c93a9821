#!/usr/bin/env bash
# Installs the Debian packages the build and tests need, skipping those present.
set -euo pipefail
packages=(cmake ninja-build g++ qt6-base-dev qt6-svg-dev libgtest-dev libgmock-dev libbenchmark-dev fonts-dejavu-core)
packages+=("$@")
missing=()
for p in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${db:Status-Status}' "$p" 2>/dev/null || true)
  [ "$status" = "installed" ] || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  SUDO=""
  [ "$(id -u)" -eq 0 ] || SUDO="sudo"
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
fi
