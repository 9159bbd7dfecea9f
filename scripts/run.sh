#!/usr/bin/env bash
# Sets up the machine, builds the optimised tree and runs the design host with the given arguments
# (with none, it shows what is loaded and how to use it).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh >&2
cmake --preset default >&2
cmake --build --preset default >&2
exec build/default/bin/jexdesign "$@"
