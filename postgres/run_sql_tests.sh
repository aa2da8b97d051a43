#!/bin/bash
# Runs the SQL regression files of the extension against a real server: a
# throw-away cluster in a scratch directory, listening only on a Unix socket
# there, in a private installation (copies of the server programs, which
# find their share and library directories relative to themselves, with the
# system's files linked in and the extension added), so that nothing is
# installed into the system.  As root, the server runs as the postgres user.
# Then every format in every locale is compared with the host tool in
# UTF8, LATIN1 and EUC_JP databases of the C locale and a UTF8 database
# whose LC_CTYPE is C.UTF-8 (compare_with_tool.py).
#   run_sql_tests.sh EXTENSION_SO LIBCORVINEL_SO CORVINEL_FMT SOURCE_DIR SCRATCH_DIR
set -euo pipefail
extension=$1 module=$2 tool=$3 source=$4 scratch=$5

bindir=$(pg_config --bindir)
sharedir=$(pg_config --sharedir)
pkglibdir=$(pg_config --pkglibdir)
root=$scratch/install
rm -rf "$scratch"
mkdir -p "$root$bindir" "$root$pkglibdir" "$(dirname "$root$sharedir")" "$scratch/results"

cp "$bindir/postgres" "$bindir/initdb" "$bindir/pg_ctl" "$root$bindir/"
cp -rs "$sharedir" "$root$sharedir"
ln -s "$pkglibdir"/* "$root$pkglibdir/"
# An installed extension is linked in with the rest: remove those links
# first, since cp would write through them into the system's files.
rm -f "$root$pkglibdir/corvinel.so" "$root$pkglibdir"/libcorvinel.so* "$root$sharedir/extension/corvinel"*
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
for database in utf8db:UTF8:C latin1db:LATIN1:C eucjpdb:EUC_JP:C utf8ctypedb:UTF8:C.UTF-8 paralleldb:UTF8:C \
                typesdb:UTF8:C schemadb:UTF8:C; do
  IFS=: read -r name encoding ctype <<<"$database"
  "${psql[@]}" -d postgres -c "CREATE DATABASE $name ENCODING '$encoding' LC_COLLATE '$ctype' LC_CTYPE '$ctype' TEMPLATE template0" >/dev/null
done

failed=0
for test in utf8:utf8db latin1:latin1db parallel:paralleldb types:typesdb schema:schemadb; do
  name=${test%%:*} database=${test#*:}
  # psql reads the file from standard input, so that its messages name no path.
  "${psql[@]}" -a -d "$database" -v VERBOSITY=terse < "$source/sql/$name.sql" > "$scratch/results/$name.out" 2>&1 || true
  if ! diff -u "$source/expected/$name.out" "$scratch/results/$name.out"; then
    echo "postgres test $name: output differs (above)" >&2
    failed=1
  fi
done

for database in utf8db latin1db eucjpdb utf8ctypedb; do
  "${psql[@]}" -d "$database" -c "CREATE EXTENSION IF NOT EXISTS corvinel" >/dev/null
done
/usr/bin/python3 "$source/compare_with_tool.py" "$tool" "$module" "$scratch" utf8db latin1db eucjpdb \
  utf8ctypedb || failed=1

# No backend may have died on the way.
if grep -q "terminated by signal" "$scratch/server.log"; then
  grep "terminated by signal" "$scratch/server.log" >&2
  failed=1
fi
exit $failed
