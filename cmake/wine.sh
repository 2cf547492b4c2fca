#!/bin/sh
# Runs a program for Windows, in an environment of Wine's that the build tree holds. Needs no display. What it leaves
# running ends a moment after the last program.
set -eu
WINEPREFIX=${ZEF_WINE_PREFIX:-$(cd "$(dirname "$0")/.." && pwd)/build/windows/wine}
WINEDEBUG=-all
WINEDLLOVERRIDES="mscoree,mshtml="  # asks for no downloads
LC_ALL=C.UTF-8  # words of the command line are UTF-8
export LC_ALL WINEPREFIX WINEDEBUG WINEDLLOVERRIDES
# Programs that start at once would each make the environment.
mkdir -p "$WINEPREFIX"
[ -e "$WINEPREFIX/system.reg" ] || flock "$WINEPREFIX" /usr/lib/wine/wine64 wineboot.exe --init >/dev/null 2>&1
exec /usr/lib/wine/wine64 "$@"
