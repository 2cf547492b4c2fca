#!/usr/bin/env bash
# Builds the command-line client and shows what it does.
set -euo pipefail
cd "$(dirname "$0")"

./setup.sh build
cmake --preset release
cmake --build --preset release --target zef
PATH="$PWD/build/release:$PATH"

# --- the story -------------------------------------------------------------------------------------------------------
zef --help
