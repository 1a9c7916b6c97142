# Sourced by the test command: throwaway PostgreSQL servers on loopback ports.

# A program of the server's is looked for when it is run: it may have been installed since this was sourced.
run_server_program() { as_postgres "$(ls -d /usr/lib/postgresql/*/bin | tail -n 1)/$1" "${@:2}"; }
as_postgres() { if [ "$(id -u)" -eq 0 ]; then setpriv --reuid=postgres --regid=postgres --clear-groups "$@"; else "$@"; fi; }

# start_server FOLDER PORT INIT...: INIT makes FOLDER/data.
start_server() {
    local folder=$1 port=$2
    shift 2
    mkdir -p "$folder" && chmod 755 "$(dirname "$folder")" || return
    [ "$(id -u)" -ne 0 ] || chown postgres "$folder" || return
    # One role has to give a password.
    (
        cd "$folder" && run_server_program "$@" -D "$folder/data" >/dev/null &&
        as_postgres sed -i '1i host all locked 127.0.0.1/32 scram-sha-256' data/pg_hba.conf &&
        run_server_program pg_ctl -D "$folder/data" -w -l "$folder/log" start \
            -o "-p $port -k $folder -c listen_addresses=127.0.0.1 -c fsync=off -c max_connections=60" >/dev/null
    )
}

# start_postgres FOLDER: sets NOLSCHED_TEST_SERVER, and NOLSCHED_TEST_PAIR to a server with its standby, of which one
# test ends the first. Fails where one of them does not start, also where that is asked for as a condition.
start_postgres() {
    local port=$((20000 + RANDOM % 20000)) init="initdb -U tester -A trust --locale=C -E UTF8"
    start_server "$1/server" $port $init && start_server "$1/primary" $((port + 1)) $init &&
        start_server "$1/standby" $((port + 2)) pg_basebackup -R -h 127.0.0.1 -p $((port + 1)) -U tester || return
    export NOLSCHED_TEST_SERVER=postgresql://tester@127.0.0.1:$port
    export NOLSCHED_TEST_PAIR=postgresql://tester@127.0.0.1:$((port + 1)),127.0.0.1:$((port + 2))
}

# stop_postgres FOLDER: also where one of them is gone already.
stop_postgres() {
    local server
    for server in "$1"/*/data/postmaster.pid; do
        [ ! -e "$server" ] || (cd "$1" && run_server_program pg_ctl -D "${server%/*}" -m immediate stop >/dev/null) || true
    done
}
