#!/usr/bin/env bash
# Sets up the machine, builds everything with AddressSanitizer + UndefinedBehaviorSanitizer, and runs every
# test. This is the command CI runs.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
cmake --preset sanitize
cmake --build --preset sanitize
ctest --preset sanitize -j "$(nproc)"
