#!/usr/bin/env bash
# Builds a fuzzer and runs it. Usage: fuzz/run.sh NAME [options of libFuzzer]
# What it learns stays in build/fuzz/corpus/NAME, a finding in build/fuzz/findings. See fuzz/README.md.
set -euo pipefail
cd "$(dirname "$0")/.."

name=${1:?"usage: fuzz/run.sh NAME [options of libFuzzer]"}
shift
[ -f "fuzz/$name.cpp" ] || { echo "fuzz/run.sh: there is no fuzzer \"$name\"" >&2; exit 2; }

./setup.sh fuzz
cmake --preset fuzz
cmake --build --preset fuzz --target "zef_fuzz_$name"

learned="build/fuzz/corpus/$name"
findings="$PWD/build/fuzz/findings"
mkdir -p "$learned" "$findings"
# Inputs make and remove files all the time, which a file system in memory does best.
[ -n "${TMPDIR:-}" ] || [ ! -w /dev/shm ] || export TMPDIR=/dev/shm
# Short traces of allocations and no scheduling by rare features: both take longer than most inputs.
export ASAN_OPTIONS="malloc_context_size=2:${ASAN_OPTIONS:-}"
"build/fuzz/fuzz/zef_fuzz_$name" -artifact_prefix="$findings/" -max_len=512 -timeout=60 -entropic=0 "$@" \
  "$learned" "fuzz/corpus/$name"
