#!/usr/bin/env bash
# Runs a command beside a PostgreSQL server of its own, whose address the command finds in DESK_TEST_SERVER:
#   tools/test_postgres.sh FOLDER COMMAND...
# The server keeps its data under FOLDER, listens on a free port of the loopback and ends with the command. Exit code 77 where no
# server can be started, else the command's.
set -euo pipefail
[ $# -ge 2 ] || { echo "usage: tools/test_postgres.sh FOLDER COMMAND..." >&2; exit 2; }
folder=$1
shift

skip() {
  echo "No PostgreSQL server can be started here: $*" >&2
  exit 77
}

programs=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1)
[ -n "$programs" ] || skip "the package postgresql isn't installed"

# The server refuses to run as root; Debian's package brings a user for it.
as_server=()
if [ "$(id -u)" -eq 0 ]; then
  id postgres >/dev/null 2>&1 || skip "there is no user postgres"
  as_server=(runuser -u postgres --)
fi

mkdir -p "$folder"
data=$(mktemp -d "$(cd "$folder" && pwd)/postgres-XXXXXX")
if [ ${#as_server[@]} -gt 0 ]; then
  chown postgres "$data"
  # A folder that the server's user can't reach is no place for it.
  if ! "${as_server[@]}" test -w "$data"; then
    rmdir "$data"
    data=$(mktemp -d "${TMPDIR:-/tmp}/desk-postgres-XXXXXX")
    chown postgres "$data"
  fi
fi
stop() {
  (cd / && "${as_server[@]}" "$programs/pg_ctl" -D "$data" -m immediate -s stop) >/dev/null 2>&1 || true
  rm -rf "$data"
}
trap stop EXIT

cd_run() { (cd "$data" && "${as_server[@]}" "$@"); }
cd_run "$programs/initdb" -D "$data" -U desk -A trust -E UTF8 --locale=C.UTF-8 >"$data.log" 2>&1 || { cat "$data.log" >&2; rm -f "$data.log"; skip "initdb failed"; }
rm -f "$data.log"
for attempt in 1 2 3 4 5; do
  port=$((20000 + (RANDOM * 32768 + RANDOM) % 30000))
  options="-p $port -c listen_addresses=127.0.0.1 -c unix_socket_directories='' -c fsync=on -c max_connections=60"
  if cd_run "$programs/pg_ctl" -D "$data" -l "$data/server.log" -o "$options" -t 60 -s -w start >/dev/null 2>&1; then
    DESK_TEST_SERVER="postgresql://desk@127.0.0.1:$port" "$@" && code=0 || code=$?
    exit "$code"
  fi
done
tail -n 5 "$data/server.log" >&2 || true
skip "it doesn't come up"
