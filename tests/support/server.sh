#!/usr/bin/env bash
# A PostgreSQL server of the tests' own: a cluster in a folder, reached by a socket in it, for user "zef" without a
# password. Usage: server.sh start FOLDER [PROCESS] | stop FOLDER
# With PROCESS given ("parent" for who calls) the server ends by itself once that process is gone, so that interrupted
# tests leave none.
set -euo pipefail

programs=${ZEF_POSTGRESQL_BIN:-$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -1)}
folder=${2:?"a folder is needed"}
self=$(readlink -f "$0")

# The server refuses to run as root.
as_user() {
  if [ "$(id -u)" -eq 0 ]; then setpriv --reuid=postgres --regid=postgres --clear-groups -- "$@"; else "$@"; fi
}

server_process() { head -1 "$folder/data/postmaster.pid" 2>/dev/null; }

# Ends the server at once; nothing of it is kept.
stop() {
  local process
  if process=$(server_process) && kill -QUIT "$process" 2>/dev/null; then
    while kill -0 "$process" 2>/dev/null; do sleep 0.05; done
  fi
  rm -rf "$folder"
}

# Waits for the end of a process and then stops the server, unless another one stands in its place.
watch_over() {
  local watched=$1 server=$2
  while kill -0 "$watched" 2>/dev/null; do
    sleep 0.5
    [ "$(server_process)" = "$server" ] || return 0
  done
  stop
}

start() {
  local watched=${1:-}
  if [ "$watched" = parent ]; then watched=$PPID; fi
  stop
  mkdir -m 700 "$folder"
  if [ "$(id -u)" -eq 0 ]; then chown postgres:postgres "$folder"; fi
  cd /
  as_user "$programs/initdb" --no-sync --username=zef --auth=trust --encoding=UTF8 --locale=C -D "$folder/data" >/dev/null
  # What a crash would lose is of no worth here.
  as_user "$programs/pg_ctl" start --silent -w -D "$folder/data" -l "$folder/log" -o "-c listen_addresses='' \
    -c unix_socket_directories='$folder' -c max_connections=100 -c shared_buffers=64MB -c fsync=off \
    -c synchronous_commit=off -c full_page_writes=off -c autovacuum=off -c log_min_messages=warning" >/dev/null
  chmod 755 "$folder"
  if [ -n "$watched" ]; then
    setsid "$BASH" "$self" watch "$folder" "$watched" "$(server_process)" </dev/null >/dev/null 2>&1 &
  fi
}

case "$1" in
  start) start "${3:-}" ;;
  stop) stop ;;
  watch) watch_over "$3" "$4" ;;
  *) echo "server.sh: start or stop, not \"$1\"" >&2; exit 2 ;;
esac
