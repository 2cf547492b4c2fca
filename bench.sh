#!/usr/bin/env bash
# Builds the benchmarks and runs them. Usage: bench.sh [arguments for the benchmark program]
set -euo pipefail
cd "$(dirname "$0")"

./setup.sh build
./setup.sh bench
cmake --preset bench
cmake --build --preset bench
build/bench/zef_bench "$@"
