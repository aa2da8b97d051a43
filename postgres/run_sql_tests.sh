#!/bin/bash
# Runs the SQL regression files of the extension against a real server: a
# throw-away cluster in a scratch directory, listening only on a Unix socket
# there, in a private installation (copies of the server programs, which
# find their share and library directories relative to themselves, with the
# system's files linked in and the extension added), so that nothing is
# installed into the system.  As root, the server runs as the postgres user.
#   run_sql_tests.sh EXTENSION_SO LIBCORVINEL_SO SOURCE_DIR SCRATCH_DIR
set -euo pipefail
extension=$1 module=$2 source=$3 scratch=$4

bindir=$(pg_config --bindir)
sharedir=$(pg_config --sharedir)
pkglibdir=$(pg_config --pkglibdir)
root=$scratch/install
rm -rf "$scratch"
mkdir -p "$root$bindir" "$root$pkglibdir" "$(dirname "$root$sharedir")" "$scratch/results"

cp "$bindir/postgres" "$bindir/initdb" "$bindir/pg_ctl" "$root$bindir/"
cp -rs "$sharedir" "$root$sharedir"
ln -s "$pkglibdir"/* "$root$pkglibdir/"
cp "$extension" "$root$pkglibdir/corvinel.so"
cp -L "$module" "$root$pkglibdir/$(basename "$(readlink -f "$module")")"
for link in libcorvinel.so.0 libcorvinel.so; do
  ln -sf "$(basename "$(readlink -f "$module")")" "$root$pkglibdir/$link"
done
cp "$source/corvinel.control" "$source/corvinel--0.1.sql" "$root$sharedir/extension/"

as_server=()
if [ "$(id -u)" = 0 ]; then
  chown -R postgres "$scratch"
  as_server=(runuser -u postgres --)
fi
bin=$root$bindir
"${as_server[@]}" "$bin/initdb" -D "$scratch/data" -U postgres -A trust -E UTF8 --locale=C >"$scratch/initdb.log" 2>&1
"${as_server[@]}" "$bin/pg_ctl" -D "$scratch/data" -l "$scratch/server.log" -w \
  -o "-k $scratch -c listen_addresses='' -c max_worker_processes=4 -c max_parallel_workers=2" start >/dev/null
trap '"${as_server[@]}" "$bin/pg_ctl" -D "$scratch/data" -m fast stop >/dev/null || true' EXIT

# The client speaks UTF-8 whatever the database's encoding: the server
# converts, and the expected outputs stay in one encoding.
export PGCLIENTENCODING=UTF8
psql=(psql -X -q -h "$scratch" -U postgres)
"${psql[@]}" -d postgres -c "CREATE DATABASE utf8db ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C' TEMPLATE template0" >/dev/null
"${psql[@]}" -d postgres -c "CREATE DATABASE latin1db ENCODING 'LATIN1' LC_COLLATE 'C' LC_CTYPE 'C' TEMPLATE template0" >/dev/null
"${psql[@]}" -d postgres -c "CREATE DATABASE paralleldb ENCODING 'UTF8' LC_COLLATE 'C' LC_CTYPE 'C' TEMPLATE template0" >/dev/null

failed=0
for test in utf8:utf8db latin1:latin1db parallel:paralleldb; do
  name=${test%%:*} database=${test#*:}
  # psql reads the file from standard input, so that its messages name no path.
  "${psql[@]}" -a -d "$database" -v VERBOSITY=terse < "$source/sql/$name.sql" > "$scratch/results/$name.out" 2>&1 || true
  if ! diff -u "$source/expected/$name.out" "$scratch/results/$name.out"; then
    echo "postgres test $name: output differs (above)" >&2
    failed=1
  fi
done
exit $failed
