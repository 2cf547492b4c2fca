#!/usr/bin/env bash
# Runs the tests of the component boundary, from inside and from outside, under valgrind: no leak, no wrong access.
# Usage: tests/component/valgrind.sh BUILD_TREE [quick]
# "quick" leaves out what takes long. Exits with 77 where it cannot run, which ctest shows as skipped.
set -euo pipefail
cd "$(dirname "$0")/../.."

build=${1:?"usage: tests/component/valgrind.sh BUILD_TREE [quick]"}
# Valgrind ends a program whose operator new fails, so what happens then is left to the other runs.
left_out='Memory.*'
[ "${2:-}" != quick ] || left_out+=':RandomCalls.*:LibraryFile.*:Unloading.*:TextCrossing.KeepsALongText'

skip() { echo "valgrind.sh: skipped, $1"; exit 77; }
command -v valgrind >/dev/null || skip "valgrind is not installed (./setup.sh test installs it)"
! grep -q '^CMAKE_CXX_FLAGS:.*-fsanitize' "$build/CMakeCache.txt" || skip "the sanitizers in $build do the same work"

status=0
for program in zef_test_component zef_test_clients; do
  valgrind --quiet --leak-check=full --error-exitcode=1 "$build/tests/$program" --gtest_brief=1 --gtest_filter="-$left_out" ||
    status=1
done
exit $status
