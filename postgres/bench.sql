-- Rows per second of nlformat against PostgreSQL's own to_char in one session,
-- one backend (no parallel workers).  After the extension's test has run once:
--   S=build/default/postgres/scratch; B=$S/install$(pg_config --bindir)
--   [runuser -u postgres --] $B/pg_ctl -D $S/data -l $S/server.log -w -o "-k $S -c listen_addresses=''" start
--   psql -X -h $S -U postgres -d paralleldb -f postgres/bench.sql; [runuser -u postgres --] $B/pg_ctl -D $S/data stop
CREATE EXTENSION IF NOT EXISTS corvinel;
\timing on
CREATE TEMP TABLE m AS SELECT x::double precision * 1.37 AS x FROM generate_series(1, 1000000) AS x;
SET max_parallel_workers_per_gather = 0;
SELECT sum(length(nlformat(x, 'NLNUM12.2', 'de_DE'))) FROM m;
SELECT sum(length(to_char(x, 'FM9G999G999D99'))) FROM m;
SELECT sum(length(nlformat(x, 'NLNUM12.2', 'de_DE'))) FROM m;
SELECT sum(length(to_char(x, 'FM9G999G999D99'))) FROM m;
SELECT sum(length(x::text)) FROM m;
