#!/usr/bin/env bash
# Builds everything and runs the tests. Usage: test.sh [--preset NAME] [arguments for ctest]
set -euo pipefail
cd "$(dirname "$0")"

preset=checked
if [ "${1:-}" = "--preset" ]; then
  preset=${2:?"--preset needs a name"}
  shift 2
fi

./setup.sh test
cmake --preset "$preset"
cmake --build --preset "$preset"
ctest --preset "$preset" --no-tests=error --output-on-failure -j"$(nproc)" "$@"
