#!/bin/sh
# An archive in partitions on two servers, both on this machine: how queries are planned, how long they take, and what they give
# when a server is stopped: sql/postgresql/cluster.sh [ROWS]
# There are a million rows unless told, a thousand at the least. It takes PostgreSQL 15 with the extension; QX_POSTGRESQL is the
# folder of its programs. All of it lies in a folder for the time being, and the servers listen on the loopback alone, for who
# has the password.
set -eu
rows=${1:-1000000}
programs=${QX_POSTGRESQL:-/usr/lib/postgresql/15/bin}
folder=$(mktemp -d /tmp/qx_cluster_XXXXXX)
one=$(shuf -i 20000-30000 -n 1)
two=$((one + 1))
PGPASSWORD=$(od -An -N 16 -t x1 /dev/urandom | tr -d ' ')
export PGPASSWORD LC_ALL=C.UTF-8

unprivileged=""
[ "$(id -u)" -ne 0 ] || unprivileged="setpriv --reuid=nobody --regid=nogroup --clear-groups" # PostgreSQL refuses root

# control PORT ACTION…
control() {
    port=$1
    shift
    $unprivileged "$programs/pg_ctl" --silent --pgdata="$folder/$port" "$@"
}

finish() {
    for port in $one $two; do
        [ ! -e "$folder/$port/postmaster.pid" ] || control "$port" stop --mode=immediate
    done
    rm -rf "$folder"
}
trap finish EXIT
trap 'exit 1' INT TERM

# ask PORT [ARGUMENT…]: one session, ended by the first error.
ask() {
    port=$1
    shift
    "$programs/psql" -X -q -A -t -v ON_ERROR_STOP=1 -v VERBOSITY=terse -h 127.0.0.1 -p "$port" -U postgres "$@"
}

fail() {
    echo "sql/postgresql/cluster.sh: $1" >&2
    exit 1
}

# begin PORT: a server that makes messages; one in a hundred is asked for.
begin() {
    $unprivileged "$programs/initdb" --pgdata="$folder/$1" --username=postgres --auth=scram-sha-256 --encoding=UTF8 --no-sync \
        --pwfile="$folder/password" >/dev/null
    control "$1" start --log="$folder/$1.log" \
        --options="-c listen_addresses=127.0.0.1 -c unix_socket_directories= -c port=$1 -c fsync=off" ||
        { cat "$folder/$1.log" >&2 && fail "no server at port $1"; }
    ask "$1" <<'SQL'
CREATE EXTENSION qx_messages;
CREATE FUNCTION delivered(id bigint) RETURNS text AS $$
    SELECT '0004' || substr(submit, 7, 20) || '62111221512080' || substr(submit, 27)
    FROM unnest(sms_encode('+4477009' || lpad((id % 100000)::text, 5, '0'),
        'Parcel ' || id || ' is at the door' || CASE id % 100 WHEN 0 THEN ', and cold' ELSE ' of your house' END)) AS submit
$$ LANGUAGE sql;
SQL
}

# fill PORT TABLE FIRST LAST
fill() {
    ask "$1" -c "CREATE TABLE $2 AS SELECT id, delivered(id) AS pdu FROM generate_series($3::bigint, $4) AS id" -c "VACUUM ANALYZE $2"
}

# measure TITLE COMMAND…: the best of five.
measure() {
    title=$1
    shift
    for _ in 1 2 3 4 5; do
        begun=$(date +%s%N)
        "$@" >given || fail "$title: no answer"
        echo $(($(date +%s%N) - begun))
    done >taken
    sort -n taken | awk -v title="$title" -v rows="$rows" \
        'NR == 1 { printf "%-44s %7.2f s %10d rows a second\n", title, $1 / 1e9, rows * 1e9 / $1 }'
}

# expect TEXT: what the last command gave.
expect() {
    [ "$(cat given)" = "$1" ] || fail "not $1 but $(cat given)"
}

printf '%s' "$PGPASSWORD" >"$folder/password"
[ "$(id -u)" -ne 0 ] || chown -R nobody:nogroup "$folder"
cd "$folder"
half=$((rows / 2))
for port in $one $two; do
    begin "$port"
done
fill "$one" whole 1 "$rows"
fill "$one" part 1 "$half"
fill "$two" part $((half + 1)) "$rows"

# The archive has no rows of its own.
ask "$one" -c "CREATE DATABASE archive"
{
    echo "CREATE EXTENSION qx_messages; CREATE EXTENSION postgres_fdw;"
    echo "CREATE TABLE archive(id bigint, pdu text) PARTITION BY RANGE (id);"
    for server in one two; do
        port=$one first=1 last=$half
        [ $server = one ] || { port=$two first=$((half + 1)) && last=$rows; }
        echo "CREATE SERVER $server FOREIGN DATA WRAPPER postgres_fdw OPTIONS (host '127.0.0.1', port '$port', dbname 'postgres',
                  extensions 'qx_messages', async_capable 'true');
              CREATE USER MAPPING FOR postgres SERVER $server OPTIONS (user 'postgres', password '$PGPASSWORD');
              CREATE FOREIGN TABLE part_$server PARTITION OF archive FOR VALUES FROM ($first) TO ($((last + 1)))
                  SERVER $server OPTIONS (table_name 'part');"
    done
    echo "CREATE FOREIGN TABLE whole(id bigint, pdu text) SERVER one;"
} | ask "$one" -d archive

query="SELECT count(*) FROM archive WHERE sms_text(pdu) LIKE '%cold'"
whole="SELECT count(*) FROM whole WHERE sms_text(pdu) LIKE '%cold'"
wanted=$((rows / 100))
echo "$query"
ask "$one" -d archive -c "EXPLAIN (VERBOSE, COSTS OFF) $query" | tee plan
[ "$(grep -cF 'Async Foreign Scan' plan)" -eq 2 ] || fail "the servers are not asked at once"
[ "$(grep -cF "WHERE ((public.sms_text(pdu) ~~ '%cold'::text))" plan)" -eq 2 ] || fail "the filter does not run where the rows are"

echo
both="SET max_parallel_workers_per_gather = 1; SET parallel_setup_cost = 0; SET parallel_tuple_cost = 0"
both="$both; SET min_parallel_table_scan_size = 0"
for port in $one $two; do
    ask "$port" -c "ALTER SYSTEM SET max_parallel_workers_per_gather = 0" -c "SELECT pg_reload_conf()" >/dev/null
done
measure "one server, nothing but the length" ask "$one" -c "SELECT count(*) FROM whole WHERE length(pdu) > 0"
measure "one server" ask "$one" -c "$whole"
expect $wanted
measure "one server, with a worker beside" ask "$one" -c "$both" -c "$whole"
expect $wanted
measure "one server, through another" ask "$one" -d archive -c "$whole"
expect $wanted
measure "two servers" ask "$one" -d archive -c "$query"
expect $wanted
if command -v qxpdu >/dev/null; then
    ask "$one" -c "COPY (SELECT pdu FROM whole) TO STDOUT" >pdus.txt
    measure "qxpdu decode --columns text" qxpdu decode --columns text --no-heading --file pdus.txt
fi

# One server stops while it is read, and is not there afterwards.
echo
echo "the second server stops"
none() {
    title=$1
    shift
    if ask "$one" -d archive "$@" >given 2>errors; then
        fail "$title: an answer"
    fi
    [ ! -s given ] || fail "$title: half an answer"
    sed "s/^psql:[^ ]* //; s/^/$title: /" errors
}
none "while it is read" <<SQL
BEGIN;
DECLARE reader CURSOR FOR SELECT sms_text(pdu) FROM archive;
MOVE 1 FROM reader;
\! $unprivileged $programs/pg_ctl --silent --pgdata=$folder/$two stop --mode=immediate
FETCH ALL FROM reader;
SQL
none "afterwards" -c "$query"
ask "$one" -d archive -c "$query AND id <= $half" >given
expect $((half / 100))
echo "what the first server has: as before"
