-- Rows per second of nlformat against PostgreSQL's to_char in one run: a
-- million rows, each expression timed three times in one backend (no
-- parallel workers), the median kept; then the plan of a parallel query.
-- With the extension installed (README, Inside PostgreSQL):
--   pg_virtualenv psql -X -f postgres/bench/speed.sql
CREATE EXTENSION IF NOT EXISTS corvinel;
-- The formats are fastest where LC_CTYPE speaks UTF-8 in a UTF8 database.
SELECT current_setting('server_encoding') AS encoding, current_setting('lc_ctype') AS lc_ctype;
SET TimeZone = 'Europe/Berlin';
-- Not a temporary table: parallel workers cannot read those.
DROP TABLE IF EXISTS rows_to_show;
CREATE UNLOGGED TABLE rows_to_show AS
SELECT i * 1.37::double precision AS x, DATE '1990-01-01' + i % 20000 AS d,
       TIMESTAMP '1990-01-01' + i * INTERVAL '917 seconds' AS ts,
       TIMESTAMPTZ '1990-01-01 00:00+00' + i * INTERVAL '917 seconds' AS tz
FROM generate_series(1, 1000000) AS i;
ANALYZE rows_to_show;

CREATE FUNCTION pg_temp.rows_per_second(expression text) RETURNS double precision LANGUAGE plpgsql AS $$
DECLARE
  runs double precision[] := '{}';
  started timestamptz;
BEGIN
  FOR run IN 1..3 LOOP
    started := clock_timestamp();
    EXECUTE format('SELECT sum(length(%s)) FROM rows_to_show', expression);
    runs := runs || extract(epoch FROM clock_timestamp() - started)::double precision;
  END LOOP;
  RETURN 1000000 / (SELECT percentile_disc(0.5) WITHIN GROUP (ORDER BY r) FROM unnest(runs) AS r);
END $$;

SET max_parallel_workers_per_gather = 0;
WITH measured AS (
  SELECT m.n, m.what, m.expression, m.baseline, m.limit_ratio, pg_temp.rows_per_second(m.expression) AS rate
  FROM (VALUES
    (1, 'number',      'nlformat(x, ''NLNUM14.2'', ''de_DE'')',  'to_char(x, ''FM999G999G990D00'')', 0.7),
    (2, 'number',      'to_char(x, ''FM999G999G990D00'')',       NULL, NULL),
    (3, 'date',        'nlformat(d, ''NLDATE20.'', ''de_DE'')',  'to_char(ts, ''DD. TMMonth YYYY'')', 1.0),
    (4, 'timestamp',   'nlformat(ts, ''NLDATE20.'', ''de_DE'')', 'to_char(ts, ''DD. TMMonth YYYY'')', 1.0),
    (5, 'timestamptz', 'nlformat(tz, ''NLDATE20.'', ''de_DE'')', 'to_char(ts, ''DD. TMMonth YYYY'')', 1.0),
    (6, 'timestamp',   'to_char(ts, ''DD. TMMonth YYYY'')',      NULL, NULL),
    (7, 'timestamptz', 'to_char(tz, ''DD. TMMonth YYYY'')',      NULL, NULL),
    (8, 'timestamptz', 'nlformat(tz, ''NLDATMZ40.'', ''de_DE'')', 'to_char(tz, ''DD. TMMonth YYYY HH24:MI:SS TZHTZM'')', NULL),
    (9, 'timestamptz', 'to_char(tz, ''DD. TMMonth YYYY HH24:MI:SS TZHTZM'')', NULL, NULL),
    (10, 'numeric',    'nlformat(x::numeric, ''NLNUM14.2'', ''de_DE'')', 'to_char(x::numeric, ''FM999G999G990D00'')', NULL),
    (11, 'numeric',    'to_char(x::numeric, ''FM999G999G990D00'')', NULL, NULL)
  ) AS m(n, what, expression, baseline, limit_ratio)
  ORDER BY m.n
)
SELECT a.what, a.expression, round(a.rate) AS rows_per_s,
       round((b.rate / a.rate)::numeric, 2) AS time_ratio_to_baseline, a.limit_ratio AS at_most
FROM measured AS a LEFT JOIN measured AS b ON b.expression = a.baseline
ORDER BY a.n;

SET max_parallel_workers_per_gather = 2;
SET parallel_setup_cost = 0;
SET parallel_tuple_cost = 0;
SET min_parallel_table_scan_size = 0;
EXPLAIN (COSTS OFF) SELECT sum(length(nlformat(tz, 'NLDATE20.', 'de_DE'))) FROM rows_to_show;
DROP TABLE rows_to_show;
