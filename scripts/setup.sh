#!/usr/bin/env bash
# Installs the Debian packages the build and the tests need, skipping those already present.
set -euo pipefail
pkgs=(g++ cmake ninja-build pkg-config libgtest-dev libgmock-dev googletest libbenchmark-dev
      nlohmann-json3-dev libcurl4-openssl-dev libfreetype-dev fonts-dejavu-core libsqlite3-dev
      python3 ccache)
missing=()
for p in "${pkgs[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "Installing: ${missing[*]}"
    SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO=sudo
    $SUDO apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
