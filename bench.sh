#!/usr/bin/env bash
# Builds the benchmarks and runs them. Usage: bench.sh [--quick] [further arguments of the
# benchmark program, such as --benchmark_filter=Load]
set -euo pipefail
cd "$(dirname "$0")"

./setup.sh build
./setup.sh bench
cmake --preset bench
cmake --build --preset bench
build/bench/zef_bench "$@"
