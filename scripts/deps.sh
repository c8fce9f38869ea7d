#!/usr/bin/env bash
# Installs the Debian packages the build needs, only those that are missing, so a second run installs
# nothing. Runs apt-get update only when something has to be installed.
set -euo pipefail

packages=(g++ cmake ninja-build pkg-config libsqlite3-dev libgtest-dev libgmock-dev libbenchmark-dev
          nlohmann-json3-dev libcli11-dev libpq-dev postgresql locales mdbtools-dev clang libclang-rt-14-dev
          valgrind)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "installing: ${missing[*]}"
$sudo apt-get update
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends "${missing[@]}"
