#!/bin/bash
# Load test of the extension: pgbench for 60 seconds with 8 clients on
# load.pgbench, then the server log is searched for crashed backends and
# errors, and one backend's memory is read after 10,000 and after 1,000,000
# more calls.  Run against a throw-away server, as root or as a user who
# owns one:
#   pg_virtualenv postgres/bench/load.sh
# or against any server psql reaches, naming its log in SERVER_LOG.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
psql=(psql -X -q -v ON_ERROR_STOP=1)

"${psql[@]}" <<'SQL'
CREATE EXTENSION IF NOT EXISTS corvinel;
DROP TABLE IF EXISTS load_cases;
-- Every format in eight locales.
CREATE TABLE load_cases AS
SELECT row_number() OVER (ORDER BY f.name, l.code)::integer AS id, f.name || '.' AS format, l.code AS locale,
       f.value_kind AS kind
FROM nlformats() AS f,
     unnest(ARRAY['de_DE', 'en_US', 'ja_JP', 'el_GR', 'ar_EG', 'fr_CH', 'zh_TW', 'ru_RU']) AS l(code);
-- Requests the extension refuses: each must fail with its own message.
CREATE OR REPLACE FUNCTION load_attempt(i integer, format text, locale text) RETURNS text
LANGUAGE plpgsql AS $$
BEGIN
  CASE i % 6
    WHEN 0 THEN RETURN nlformat(i, 'NLNOPE' || i % 7, locale);
    WHEN 1 THEN RETURN nlformat(i, format || '999', locale);
    WHEN 2 THEN RETURN nlformat(i, format, 'xx_YY');
    WHEN 3 THEN RETURN nlformat(DATE '2003-02-24', 'NLTIME10.', locale);
    WHEN 4 THEN RETURN nlformat(TIME '12:00', 'NLDATE20.', locale);
    ELSE RETURN nlformat(i, 'NLNUM12.40', locale);
  END CASE;
EXCEPTION WHEN invalid_parameter_value OR datatype_mismatch THEN
  RETURN 'refused';
END $$;
SQL

log=${SERVER_LOG:-$(pg_lsclusters -h | awk -v port="${PGPORT:-5432}" '$3 == port {print $7}')}
lines_before=$( [ -n "$log" ] && wc -l < "$log" || echo 0)
pgbench -n -T 60 -c 8 -j 2 -f "$here/load.pgbench" 2>&1 | grep -E "number of (transactions|failed)|tps|latency average|aborted"

if [ -n "$log" ]; then
  new_lines=$(tail -n +"$((lines_before + 1))" "$log")
  echo "server log: $(grep -c "terminated by signal" <<<"$new_lines" || true) backends terminated by a signal," \
       "$(grep -c "ERROR" <<<"$new_lines" || true) errors"
  grep -m 5 "ERROR\|terminated by signal" <<<"$new_lines" || true
fi

# One backend's resident memory after 10,000 calls, then after 1,000,000.
"${psql[@]}" <<'SQL'
CREATE FUNCTION pg_temp.resident_kb() RETURNS bigint LANGUAGE sql AS $$
  SELECT substring(pg_read_file('/proc/self/status') FROM 'VmRSS:\s+(\d+)')::bigint $$;
CREATE FUNCTION pg_temp.calls(n integer) RETURNS bigint LANGUAGE sql AS $$
  SELECT sum(length(nlformat(DATE '1960-01-01' + i % 40000, 'NLDATEW29.', l[1 + i % 8])) +
             length(nlformat(TIMESTAMPTZ '1990-01-01 00:00+00' + i * INTERVAL '1 minute', 'NLDATMZ40.', l[1 + i % 8])) +
             length(nlformat((i * 1.37)::numeric, 'NLMNY14.2', l[1 + i % 8])) +
             length(nlformat(TIME '00:00' + i * INTERVAL '1 second', 'NLTIME10.', l[1 + i % 8])))
  FROM generate_series(1, n / 4) AS i,
       (SELECT ARRAY['de_DE', 'en_US', 'ja_JP', 'el_GR', 'ar_EG', 'fr_CH', 'zh_TW', 'ru_RU']) AS a(l) $$;
SELECT pg_temp.calls(10000) IS NOT NULL AS warmed;
SELECT pg_temp.resident_kb() AS kb_after_10000 \gset
SELECT pg_temp.calls(1000000) IS NOT NULL AS loaded;
SELECT :kb_after_10000 AS kb_after_10000, pg_temp.resident_kb() AS kb_after_1000000,
       pg_temp.resident_kb() - :kb_after_10000 AS growth_kb;
DROP TABLE load_cases;
DROP FUNCTION load_attempt(integer, text, text);
SQL
