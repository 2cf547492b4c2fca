#!/usr/bin/env bash
# Installs what building needs and the machine lacks (Debian 12). With everything there it does nothing and needs no
# network. Usage: setup.sh [build|test|bench|fuzz|windows|ci], each group with those it rests on; no argument means all of
# them but windows.
set -euo pipefail

packages_build=(cmake g++ ninja-build ccache pkg-config libicu-dev libboost-dev libfmt-dev libcli11-dev libpq-dev)
packages_test=(libgtest-dev libgmock-dev sqlite3 python3 valgrind postgresql-15 openssl)
packages_bench=(libbenchmark-dev libical-dev postgresql-15)
packages_fuzz=(clang-14 libclang-rt-14-dev)
# No libpq and no ICU can be had for the cross compiler; libwine-dev has the texts that a type library imports.
packages_windows=(g++-mingw-w64-x86-64-posix mingw-w64-tools wine64 libwine-dev googletest)
packages_ci=(clang-format clang-tidy libsqlite3-dev)

wanted_packages() {
  local wanted=("${packages_build[@]}")
  command -v npm >/dev/null || wanted+=(npm)
  case "$1" in
    build) ;;
    test) wanted+=("${packages_test[@]}") ;;
    bench) wanted+=("${packages_bench[@]}") ;;
    fuzz) wanted+=("${packages_fuzz[@]}") ;;
    windows) wanted+=("${packages_windows[@]}") ;;
    ci | all) wanted+=("${packages_test[@]}" "${packages_bench[@]}" "${packages_fuzz[@]}" "${packages_ci[@]}") ;;
    *) echo "setup.sh: unknown group \"$1\"; known are build, test, bench, fuzz, windows, ci" >&2; return 2 ;;
  esac
  printf '%s\n' "${wanted[@]}"
}

missing_packages() {
  local wanted
  wanted=$(wanted_packages "$1") || return
  # dpkg-query fails when one of the names is unknown to it, which is just what is to be found out.
  comm -23 <(sort -u <<<"$wanted") \
    <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' $wanted 2>/dev/null | sed -n 's/^installed //p' | sort -u)
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  else
    sudo "$@"
  fi
}

# The tests run servers of their own; installing one must not start another.
keep_server_from_starting() {
  local settings=/etc/postgresql-common/createcluster.d
  as_root mkdir -p "$settings"
  as_root tee "$settings/no-main-cluster.conf" <<<"create_main_cluster = false" >/dev/null
}

main() {
  local missing
  if ! command -v apt-get >/dev/null; then
    echo "setup.sh: no apt-get here; please see to these packages yourself:" $(wanted_packages "$1") >&2
    return 0
  fi
  missing=$(missing_packages "$1")
  [ -n "$missing" ] || return 0
  echo "Installing:" $missing
  if grep -q postgresql <<<"$missing"; then keep_server_from_starting; fi
  as_root env DEBIAN_FRONTEND=noninteractive apt-get update -q
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends $missing
}

main "${1:-all}"
