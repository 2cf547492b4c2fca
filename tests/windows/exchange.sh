#!/usr/bin/env bash
# A database file that is made and changed on one system is read and changed on the other, as it is and encrypted. What
# both show of it must be the same, letter by letter. Usage: exchange.sh NATIVE_ZEF WINDOWS_BUILD_FOLDER
# Ends with 77, "skipped", where the client of this system has not been built.
set -euo pipefail
native=$1 build=$2
[ -x "$native" ] || { echo "There is no $native."; exit 77; }
wine="$(cd "$(dirname "$0")" && pwd)/../../cmake/wine.sh"

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

on_linux() { "$native" "$@"; }
on_windows() { "$wine" "$build/zef.exe" "$@"; }

shown_by() {
  "$1" notes people.db --json "${password[@]}" | tr -d '\r'
  "$1" tasks people.db --json "${password[@]}" | tr -d '\r'
}

same_on_both() {
  shown_by on_linux >linux
  shown_by on_windows >windows
  diff linux windows
  grep -q "$1" linux
}

exchange() {
  local maker=$1 changer=$2
  rm -f people.db*
  "$maker" create people.db "${password[@]}" >/dev/null
  "$maker" add note people.db "Chöre 漢字" --text "l'église" "${password[@]}" >/dev/null
  same_on_both "Chöre 漢字"
  "$changer" add task people.db "Наставник" --due "2024-05-17" "${password[@]}" >/dev/null
  same_on_both "Наставник"
  "$maker" add note people.db "Last" "${password[@]}" >/dev/null
  same_on_both "Last"
}

for secret in "" "sésame"; do
  password=()
  [ -z "$secret" ] || password=(--password "$secret")
  exchange on_linux on_windows
  exchange on_windows on_linux
done
echo "The file is the same on both."
