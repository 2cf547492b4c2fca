#!/usr/bin/env bash
# Builds everything and runs the tests. Usage: test.sh [--preset NAME | --windows] [arguments for ctest]
# --windows builds for Windows with the cross compiler and runs the tests under Wine.
set -euo pipefail
cd "$(dirname "$0")"

preset=checked
packages=test
if [ "${1:-}" = "--windows" ]; then
  preset=windows
  packages=windows
  shift
elif [ "${1:-}" = "--preset" ]; then
  preset=${2:?"--preset needs a name"}
  shift 2
fi

./setup.sh "$packages"
if [ "$preset" = windows ]; then
  # Files go from one system to the other.
  cmake --preset release
  cmake --build --preset release --target zef
fi
cmake --preset "$preset"
cmake --build --preset "$preset"
ctest --preset "$preset" --no-tests=error --output-on-failure -j"$(nproc)" "$@"
