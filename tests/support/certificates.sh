#!/usr/bin/env bash
# Certificates for a server of the tests, valid for a day: server.crt with server.key for the name "localhost", the
# root.crt that has signed it, and stranger.crt, a root that has not. Usage: certificates.sh FOLDER
set -euo pipefail
cd "${1:?"a folder is needed"}"

new_key=(-newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes)

make_root() {
  openssl req -x509 "${new_key[@]}" -days 1 -subj "/CN=$1" -keyout "$1.key" -out "$1.crt" 2>/dev/null
}

make_root root
make_root stranger
openssl req "${new_key[@]}" -subj "/CN=localhost" -keyout server.key -out server.csr 2>/dev/null
openssl x509 -req -days 1 -in server.csr -CA root.crt -CAkey root.key -CAcreateserial -out server.crt 2>/dev/null \
  -extfile <(echo "subjectAltName=DNS:localhost")
rm root.key root.srl stranger.key server.csr
chmod 600 server.key
