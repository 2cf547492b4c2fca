#!/usr/bin/env bash
# Runs a script under Wine in a folder of its own, with a new database "people.db" in it, between the texts that all
# scripts share. It passes if it comes to its end: the host tells nothing of a script that stops on the way.
# Usage: script.sh BUILD_FOLDER SCRIPT
set -euo pipefail
build=$1 script=$2
here=$(cd "$(dirname "$0")" && pwd)
wine="$here/../../cmake/wine.sh"

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cat "$here/scripts/shared/begin.vbs" "$script" "$here/scripts/shared/end.vbs" >"$folder/script.vbs"
cd "$folder"
"$wine" "$build/zef.exe" create people.db >/dev/null
"$wine" cscript.exe //nologo script.vbs | tr -d '\r' | tee output
[ "$(tail -n 1 output)" = passed ]
