#!/usr/bin/env bash
# Upgrades a database of 50,000 contacts, 50,000 tasks and 100,000 events from 9.1 to 9.2.4. Kills the upgrade at 100
# random moments and looks each time whether every row is still there and a second run comes to the end; then measures
# its time against the same statements by hand, and its memory.
set -euo pipefail
cd "$(dirname "$0")/.."

./setup.sh build
cmake --preset checked
cmake --build --preset checked --target zef_test_upgrade
build/checked/tests/zef_test_upgrade --gtest_also_run_disabled_tests --gtest_filter='KilledUpgrade.DISABLED_*'

./bench.sh --benchmark_filter='pgrade'
