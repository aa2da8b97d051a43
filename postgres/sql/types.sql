-- Values of each SQL type reach the formats through their calendar date and
-- time of day, brought to what the format reads.
CREATE EXTENSION corvinel;
SET TimeZone = 'UTC';
SELECT name, value_kind FROM nlformats() WHERE name IN ('NLNUM', 'NLDATEYM', 'NLDATMTM', 'NLTIMAP', 'NLSTRMON')
ORDER BY name;
-- The shown date is the date PostgreSQL holds, also after 28 February 4000,
-- where the day counts of the two calendars part; 29 February 4000 (a day
-- the module's calendar lacks) and dates outside 1582..20000 show "*".
SELECT d, trim(nlformat(d, 'NLDATE20.', 'en_US')) AS shown,
       trim(nlformat(d, 'NLDATE20.', 'en_US')) = to_char(d, 'FMMonth DD, YYYY') AS same_as_postgres
FROM (VALUES (DATE '1582-01-01'), ('2003-02-24'), ('4000-02-28'), ('4000-02-29'), ('4000-03-01'), ('9999-12-31'),
             ('20000-12-31'), ('1581-12-31'), ('20001-01-01'), ('infinity'), ('-infinity')) AS v(d);
-- Every type in every kind of format; microseconds are kept.
SELECT v.t AS type, f AS format, nlformat(v.d, f, 'en_US') AS date, nlformat(v.ts, f, 'en_US') AS timestamp,
       nlformat(v.tz, f, 'en_US') AS timestamptz
FROM (VALUES ('values', DATE '4000-03-01', TIMESTAMP '4000-03-01 23:59:58.123456',
              TIMESTAMPTZ '4000-03-01 23:59:58.123456+00')) AS v(t, d, ts, tz),
     unnest(ARRAY['NLDATE20.', 'NLDATM40.3', 'NLDATEYM16.', 'NLDATMYM16.']) AS f;
SELECT nlformat(TIMESTAMP '4000-03-01 23:59:58.123456', 'NLTIME20.3', 'en_US') AS timestamp_time,
       nlformat(TIME '23:59:58.123456', 'NLTIME20.3', 'en_US') AS time_time,
       nlformat(TIMESTAMP '2003-02-24 23:59:59.999999', 'NLDATE20.', 'en_US') AS last_microsecond,
       nlformat(TIMESTAMP 'infinity', 'NLTIME10.', 'en_US') AS infinite_time;
-- A number is the count the format reads: days, or seconds from 1960.
SELECT nlformat(15760, 'NLDATE20.', 'en_US') AS days, nlformat(15760 * 86400 + 45583.5, 'NLDATM30.1', 'en_US') AS seconds,
       nlformat(45583, 'NLTIME10.', 'en_US') AS time_seconds;
-- A value a format cannot show is an error naming both kinds.
SELECT nlformat(DATE '2003-02-24', 'NLTIME10.', 'en_US');
SELECT nlformat(TIME '16:24:43', 'NLDATE20.', 'en_US');
SELECT nlformat(TIME '16:24:43', 'NLDATM30.', 'en_US');
SELECT nlformat(DATE '2003-02-24', 'NLNUM12.', 'en_US');
SELECT nlformat(TIMESTAMPTZ '2003-02-24 00:00+00', 'NLMNY12.2', 'en_US');
-- NULLs of every type are the missing value.
SELECT nlformat(NULL::date, 'NLTIME10.', 'en_US') AS date_in_time, nlformat(NULL::timestamptz, 'NLDATM20.', 'en_US') AS tz,
       nlformat(NULL::time, 'NLTIME10.', 'en_US') AS time, nlformat(NULL::numeric, 'NLNUM8.', 'en_US') AS num;
-- The zone formats write the offset of the session's TimeZone at the value
-- shown, as to_char's TZH and TZM show it; a timestamp without zone takes
-- the offset of its wall time.
CREATE FUNCTION zone_offsets(zone text)
RETURNS TABLE (format text, utc timestamp, shown text, same_as_postgres boolean, wall_time_same boolean)
LANGUAGE plpgsql AS $$
BEGIN
  PERFORM set_config('TimeZone', zone, true);
  RETURN QUERY
  SELECT f, v AT TIME ZONE 'UTC', right(nlformat(v, f, 'en_US'), 5), right(nlformat(v, f, 'en_US'), 5) = to_char(v, 'TZHTZM'),
         right(nlformat(v::timestamp, f, 'en_US'), 5) = to_char(v, 'TZHTZM')
  FROM unnest(ARRAY['NLDATMZ40.', 'NLDATMTZ32.', 'NLDATMWZ40.']) AS f,
       unnest(ARRAY[TIMESTAMPTZ '2003-01-15 12:00:00+00', TIMESTAMPTZ '2003-07-15 12:00:00+00']) AS v;
END $$;
SELECT zone, z.format, z.utc, z.shown, z.same_as_postgres, z.wall_time_same
FROM unnest(ARRAY['UTC', 'Asia/Kolkata', 'America/New_York', 'America/St_Johns', 'Australia/Lord_Howe']) AS zone,
     LATERAL zone_offsets(zone) AS z
ORDER BY 1, 2, 3;
-- Across many instants, in rising and in falling order and over changes of
-- offset, a timestamptz shows the wall time PostgreSQL gives it and the
-- offset to_char shows.
CREATE FUNCTION zone_mismatches(zone text)
RETURNS TABLE (instants bigint, wrong_wall_time bigint, wrong_offset bigint)
LANGUAGE plpgsql AS $$
BEGIN
  PERFORM set_config('TimeZone', zone, true);
  RETURN QUERY
  SELECT count(*),
         count(*) FILTER (WHERE nlformat(v, 'NLDATM30.', 'en_US') <> nlformat(v AT TIME ZONE zone, 'NLDATM30.', 'en_US')),
         count(*) FILTER (WHERE right(nlformat(v, 'NLDATMZ40.', 'en_US'), 5) <> to_char(v, 'TZHTZM'))
  FROM (SELECT v FROM generate_series(TIMESTAMPTZ '1890-01-01 00:00+00', '2100-01-01', INTERVAL '97 days 13:07') AS v
        UNION ALL SELECT v FROM generate_series(TIMESTAMPTZ '2003-03-29 22:00+00', '2003-03-30 04:00', INTERVAL '10 min') AS v
        UNION ALL SELECT v FROM generate_series(TIMESTAMPTZ '2003-10-26 04:00+00', '2003-10-25 22:00', INTERVAL '-10 min') AS v
        UNION ALL SELECT v FROM unnest(ARRAY[TIMESTAMPTZ '1600-01-01 00:00+00', '9999-06-15 12:00+00', '9999-12-31 23:59:59+00',
                                             '2100-01-01 00:00+00', '1890-01-01 00:00+00']) AS v) AS instants;
END $$;
SELECT zone, m.* FROM unnest(ARRAY['UTC', 'Europe/Berlin', 'America/New_York', 'Australia/Lord_Howe', 'Asia/Kolkata']) AS zone,
     LATERAL zone_mismatches(zone) AS m ORDER BY zone;
SET TimeZone = 'Asia/Kolkata';
SELECT nlformat(TIMESTAMPTZ '2003-02-24 20:00:00+00', 'NLDATMZ40.', 'en_US') AS kolkata,
       nlformat(TIMESTAMPTZ '2003-02-24 20:00:00+00', 'NLDATE20.', 'en_US') AS next_day_there,
       nlformat(DATE '2003-02-24', 'NLDATMZ40.', 'en_US') AS date_at_midnight,
       right(nlformat(0, 'NLDATMZ40.', 'en_US'), 5) AS number_now;
RESET TimeZone;
-- Widths and decimals: within the limits the format renders what it is
-- asked for; outside them an error names the limits.
SELECT nlformat(TIMESTAMP '2003-02-24 12:39:43.25', 'NLDATM40.3', 'en_US') AS three_digits,
       nlformat(TIMESTAMP '2003-02-24 12:39:43.25', 'NLDATM10.3', 'en_US') AS narrow,
       nlformat(2, 'NLSTRMON1.', 'el_GR') AS one_star;
SELECT nlformat(TIMESTAMP '2003-02-24 12:39:43', 'NLDATM40.4', 'en_US');
SELECT nlformat(DATE '2003-02-24', 'NLDATE9.', 'en_US');
SELECT nlformat(DATE '2003-02-24', 'NLDATE201.', 'en_US');
SELECT nlformat(1, 'NLPVALUE8.0', 'en_US');
\set VERBOSITY default
SELECT nlformat(TIMESTAMP '2003-02-24 12:39:43', 'NLDATMX', 'en_US');
\set VERBOSITY terse
SELECT nlformat(1, 'NLNUM8.', 'de_de');
-- numeric becomes the nearest double: 15 significant digits survive.
SELECT nlformat(123456789012345.678::numeric, 'NLNUM32.3', 'en_US') AS fifteen_digits,
       nlformat('NaN'::numeric, 'NLNUM8.', 'en_US') AS not_a_number;
