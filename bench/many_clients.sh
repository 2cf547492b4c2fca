#!/usr/bin/env bash
# Sixteen clients in processes of their own work for a minute on one database; about two a second are ended with
# SIGKILL and replaced. Then no number stands twice, no record is half there and no raise of a shared number is lost.
# Once on a file and, where PostgreSQL is installed, once on a server of the run's own.
set -euo pipefail
cd "$(dirname "$0")/.."

./setup.sh build
cmake --preset checked
cmake --build --preset checked --target zef_test_many_clients

run() { build/checked/tests/zef_test_many_clients --gtest_also_run_disabled_tests --gtest_filter='ManyClients.DISABLED_*'; }
run
if ls /usr/lib/postgresql/*/bin/postgres >/dev/null 2>&1; then ZEF_TEST_ON_SERVER=own run; fi
