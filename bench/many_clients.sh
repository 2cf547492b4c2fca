#!/usr/bin/env bash
# Sixteen clients in processes of their own work for a minute on one database; about two a second are ended with
# SIGKILL and replaced. Then no number stands twice, no record is half there and no raise of a shared number is lost.
set -euo pipefail
cd "$(dirname "$0")/.."

./setup.sh build
cmake --preset checked
cmake --build --preset checked --target zef_test_many_clients
build/checked/tests/zef_test_many_clients --gtest_also_run_disabled_tests --gtest_filter='ManyClients.DISABLED_*'
