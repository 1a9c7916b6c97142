# Sourced by the test command: a throwaway PostgreSQL server on a loopback port.

# start_postgres FOLDER: sets NOLSCHED_TEST_SERVER.
start_postgres() {
    local folder=$1 bin port
    bin=$(ls -d /usr/lib/postgresql/*/bin | tail -n 1)
    port=$((20000 + RANDOM % 20000))
    as_postgres() { if [ "$(id -u)" -eq 0 ]; then setpriv --reuid=postgres --regid=postgres --clear-groups "$@"; else "$@"; fi; }
    mkdir -p "$folder/server"
    [ "$(id -u)" -ne 0 ] || chown postgres "$folder/server"
    chmod 755 "$folder"
    (
        cd "$folder/server"
        as_postgres "$bin/initdb" -D "$folder/server/data" -U tester -A trust --locale=C -E UTF8 >/dev/null
        # One role has to give a password.
        as_postgres sed -i '1i host all locked 127.0.0.1/32 scram-sha-256' data/pg_hba.conf
        as_postgres "$bin/pg_ctl" -D "$folder/server/data" -w -l "$folder/server/log" start \
            -o "-p $port -k $folder/server -c listen_addresses=127.0.0.1 -c fsync=off -c max_connections=60" >/dev/null
    )
    export NOLSCHED_TEST_SERVER=postgresql://tester@127.0.0.1:$port
}

# stop_postgres FOLDER
stop_postgres() {
    local folder=$1 bin
    bin=$(ls -d /usr/lib/postgresql/*/bin | tail -n 1)
    [ ! -e "$folder/server/data" ] || (cd "$folder/server" && as_postgres "$bin/pg_ctl" -D data -m immediate stop >/dev/null)
}
