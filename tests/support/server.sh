#!/usr/bin/env bash
# A PostgreSQL server of the tests' own: a cluster in a folder, for user "tester" without a password. It is reached by a
# socket in the folder, and over the network of this machine encrypted only, where user "guarded" has the password "open
# sesame"; the file "port" holds the port of both, and root.crt is who has signed its certificate. Usage: server.sh start FOLDER [PROCESS] | stop FOLDER
# With PROCESS given ("parent" for who calls) the server ends by itself once that process is gone, so that interrupted
# tests leave none.
set -euo pipefail

programs=${ZEF_POSTGRESQL_BIN:-$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -1)}
folder=${2:?"a folder is needed"}
memory="/dev/shm/$(basename "$folder")"
self=$(readlink -f "$0")

# The server refuses to run as root.
as_user() {
  if [ "$(id -u)" -eq 0 ]; then setpriv --reuid=postgres --regid=postgres --clear-groups -- "$@"; else "$@"; fi
}

give_to_user() { if [ "$(id -u)" -eq 0 ]; then chown postgres:postgres "$1"; fi; }

server_process() { head -1 "$folder/data/postmaster.pid" 2>/dev/null; }

# Ends the server at once; nothing of it is kept.
stop() {
  local process
  if process=$(server_process) && kill -QUIT "$process" 2>/dev/null; then
    while kill -0 "$process" 2>/dev/null; do sleep 0.05; done
  fi
  rm -rf "$memory" "$folder"
}

# A database is some 300 files, and each test has one of its own: they are made in memory where there is plenty of it.
make_data_folder() {
  local free
  free=$(df --output=avail -k /dev/shm 2>/dev/null | tail -1) || free=0
  if [ "$free" -lt 2000000 ]; then return; fi
  mkdir -m 700 "$memory"
  ln -s "$memory" "$folder/data"
  give_to_user "$memory"
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

make_encryption() {
  "$(dirname "$self")/certificates.sh" "$folder"
  give_to_user "$folder/server.key"
  printf '%s\n' "local all all trust" "hostssl all guarded 127.0.0.1/32 scram-sha-256" \
    "hostssl all all 127.0.0.1/32 trust" >"$folder/data/pg_hba.conf"
}

make_guarded_user() {
  as_user "$programs/postgres" --single -D "$folder/data" postgres >/dev/null 2>&1 \
    <<<"CREATE ROLE guarded LOGIN PASSWORD 'open sesame'"
}

# What a crash would lose is of no worth here.
start_on() {
  as_user "$programs/pg_ctl" start --silent -w -D "$folder/data" -l "$folder/log" -o "-p $1 \
    -c listen_addresses=127.0.0.1 -c unix_socket_directories='$folder' \
    -c ssl=on -c ssl_cert_file='$folder/server.crt' -c ssl_key_file='$folder/server.key' \
    -c max_connections=100 -c shared_buffers=64MB -c fsync=off -c synchronous_commit=off -c full_page_writes=off \
    -c autovacuum=off -c wal_level=minimal -c max_wal_senders=0 -c max_wal_size=64MB -c log_min_messages=warning" \
    >/dev/null 2>&1
}

# Below the ports that the system gives out.
start_on_free_port() {
  local port
  for _ in 1 2 3 4 5; do
    port=$((20000 + RANDOM % 12000))
    if start_on "$port"; then echo "$port" >"$folder/port" && return 0; fi
  done
  cat "$folder/log" >&2
  return 1
}

start() {
  local watched=${1:-}
  if [ "$watched" = parent ]; then watched=$PPID; fi
  stop
  mkdir -m 700 "$folder"
  give_to_user "$folder"
  make_data_folder
  cd /
  as_user "$programs/initdb" --no-sync --username=tester --auth=trust --encoding=UTF8 --locale=C -D "$folder/data" >/dev/null
  make_encryption
  make_guarded_user
  start_on_free_port
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
