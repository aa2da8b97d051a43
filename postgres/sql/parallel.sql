-- A million rows through a parallel plan: the function is PARALLEL SAFE and
-- its workers render what the leader would.
CREATE EXTENSION corvinel;
CREATE TABLE numbers AS SELECT x::double precision * 1.5 AS x FROM generate_series(1, 1000000) AS x;
ANALYZE numbers;
SET parallel_setup_cost = 0;
SET parallel_tuple_cost = 0;
SET min_parallel_table_scan_size = 0;
SET max_parallel_workers_per_gather = 2;
EXPLAIN (COSTS OFF) SELECT sum(length(nlformat(x, 'NLNUM12.2', 'de_DE'))) FROM numbers;
-- Every field is 12 bytes wide: 12 million in all.
SELECT sum(length(nlformat(x, 'NLNUM12.2', 'de_DE'))) AS total_length FROM numbers;
SELECT nlformat(x, 'NLNUM12.2', 'de_DE') AS sample FROM numbers WHERE x IN (1.5, 1500, 1500000) ORDER BY x;
