#!/usr/bin/env bash
# Installs a build tree, then builds and runs a project outside the tree against what was installed.
# Usage: install_test.sh SOURCE BUILD CMAKE CXX
set -euo pipefail
source=$1 build=$2 cmake=$3 cxx=$4

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
prefix="$folder/prefix with blank"
export XDG_DATA_HOME=$folder/data

"$cmake" --install "$build" --prefix "$prefix" >/dev/null
for file in lib/libZEFComponents.so include/ZEFComponents.hpp include/ZEFComponents/automation.h \
  include/ZEFComponents/client.h lib/python3/dist-packages/zefcomponents/__init__.py bin/zef; do
  [ -e "$prefix/$file" ] || { echo "not installed: $file" >&2; exit 1; }
done

zef=$prefix/bin/zef
"$zef" create "$folder/people.db"
"$zef" register | grep -F "24 classes of $(realpath "$prefix/lib/libZEFComponents.so")"

check() {
  local printed
  printed=$("$@")
  [ "$printed" = $'Alarms\nCalendar\nContacts\nNotes\nTasks' ] || { echo "$1 printed: $printed" >&2; exit 1; }
}

# With find_package, from a copy, so that nothing of the checkout is found by accident.
cp -r "$source/tests/clients/outside" "$folder/outside"
"$cmake" -S "$folder/outside" -B "$folder/build" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$cxx" >/dev/null
"$cmake" --build "$folder/build" >/dev/null
check "$folder/build/outside" "$folder/people.db"
check "$folder/build/by_name" "$folder/people.db"

# With pkg-config, which finds the prefix from the place of its file.
export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
eval "flags=($(pkg-config --cflags --libs zefcomponents))"
"$cxx" -std=c++20 -o "$folder/by_hand" "$folder/outside/main.cpp" "${flags[@]}"
check "$folder/by_hand" "$folder/people.db"
eval "library=$(pkg-config --variable=library zefcomponents)"
[ -e "$library" ]

# From Python: by name, and all tests of the module on what was installed.
export PYTHONPATH=$prefix/lib/python3/dist-packages PYTHONDONTWRITEBYTECODE=1
check python3 -c '
import sys, zefcomponents
session = zefcomponents.CreateObject("ZEFComponents.CSession")
session.Connect2Database(sys.argv[1], "", "")
folders = zefcomponents.CreateObject("ZEFComponents.CFolders")
session.LoadRootFolders(folders)
for folder in folders: print(folder.Name)' "$folder/people.db"
(cd "$source/tests/python" &&
  ZEF_LIBRARY=$prefix/lib/libZEFComponents.so ZEF_PROGRAM=$zef python3 -m unittest --quiet)

"$zef" unregister >/dev/null
if "$folder/by_hand" "$folder/people.db" 2>"$folder/complaint"; then exit 1; fi
grep -F "ZEFComponents.CSession is not registered" "$folder/complaint"
