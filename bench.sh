#!/usr/bin/env bash
# Builds the benchmarks and runs them. Usage: bench.sh [--quick] [further arguments of the
# benchmark program, such as --benchmark_filter=Load]
set -euo pipefail
cd "$(dirname "$0")"

./setup.sh build
./setup.sh bench
cmake --preset bench
cmake --build --preset bench

# A server of their own for the rows on one; it ends with this script.
if ls /usr/lib/postgresql/*/bin/postgres >/dev/null 2>&1; then
  ZEF_BENCH_SERVER=/tmp/zef-bench-server-$$
  export ZEF_BENCH_SERVER
  tests/support/server.sh start "$ZEF_BENCH_SERVER" $$
  trap 'tests/support/server.sh stop "$ZEF_BENCH_SERVER"' EXIT
fi
build/bench/zef_bench "$@"
