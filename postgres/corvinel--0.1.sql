-- corvinel: locale-aware output formats.  nlformat(value, format, locale)
-- renders value with a format of the module ('NLNUM12.2', 'NLDATE20.',
-- 'NLMNIEUR'); locale is a name such as 'de_DE' (NULL: the server's
-- ORB_LOCALE, else en_US).  A NULL value renders the missing value ".".
-- Every function is written in C and refers to no other object, so the
-- extension works in any schema, on search_path or not.
\echo Use "CREATE EXTENSION corvinel" to load this file. \quit

-- STABLE rather than IMMUTABLE: timestamptz values and the zone formats
-- follow the session's TimeZone, and a NULL locale reads ORB_LOCALE.
-- A number is what the format reads: a count of days from 1 January 1960
-- for the date formats, of seconds from 1960-01-01 00:00:00 for the
-- datetime formats, of seconds from midnight for the time formats.
CREATE FUNCTION nlformat(value double precision, format text, locale text DEFAULT NULL)
RETURNS text
AS 'MODULE_PATHNAME', 'corvinel_nlformat'
LANGUAGE C STABLE PARALLEL SAFE;

-- A numeric becomes the nearest double precision (15 significant digits
-- are kept exactly).
CREATE FUNCTION nlformat(value numeric, format text, locale text DEFAULT NULL)
RETURNS text
AS 'MODULE_PATHNAME', 'corvinel_nlformat_numeric'
LANGUAGE C STABLE PARALLEL SAFE;

-- Dates, timestamps and times keep their calendar date and time of day:
-- a date format shows the date, a datetime format the date at midnight or
-- the timestamp, a time format the time of day.
CREATE FUNCTION nlformat(value date, format text, locale text DEFAULT NULL)
RETURNS text
AS 'MODULE_PATHNAME', 'corvinel_nlformat_date'
LANGUAGE C STABLE PARALLEL SAFE;

CREATE FUNCTION nlformat(value timestamp, format text, locale text DEFAULT NULL)
RETURNS text
AS 'MODULE_PATHNAME', 'corvinel_nlformat_timestamp'
LANGUAGE C STABLE PARALLEL SAFE;

-- A timestamp with time zone is shown in the session's TimeZone.
CREATE FUNCTION nlformat(value timestamptz, format text, locale text DEFAULT NULL)
RETURNS text
AS 'MODULE_PATHNAME', 'corvinel_nlformat_timestamptz'
LANGUAGE C STABLE PARALLEL SAFE;

CREATE FUNCTION nlformat(value time, format text, locale text DEFAULT NULL)
RETURNS text
AS 'MODULE_PATHNAME', 'corvinel_nlformat_time'
LANGUAGE C STABLE PARALLEL SAFE;

-- The registry; value_kind is what a format reads: number, date,
-- datetime or time.
CREATE FUNCTION nlformats(
    OUT name text, OUT min_width integer, OUT max_width integer, OUT default_width integer,
    OUT min_decimals integer, OUT max_decimals integer, OUT default_decimals integer,
    OUT value_kind text)
RETURNS SETOF record
AS 'MODULE_PATHNAME', 'corvinel_nlformats'
LANGUAGE C IMMUTABLE PARALLEL SAFE;
