-- corvinel: locale-aware output formats.  nlformat(value, format, locale)
-- renders value with a format of the module ('NLNUM12.2', 'NLDATE20.',
-- 'NLMNIEUR'); locale is a name such as 'de_DE' (NULL: the server's
-- ORB_LOCALE, else en_US).  A NULL value renders the missing value ".".
\echo Use "CREATE EXTENSION corvinel" to load this file. \quit

-- STABLE rather than IMMUTABLE: the formats with a zone offset read the
-- clock and the machine's zone, and a NULL locale reads ORB_LOCALE.
CREATE FUNCTION nlformat(value double precision, format text, locale text DEFAULT NULL)
RETURNS text
AS 'MODULE_PATHNAME', 'corvinel_nlformat'
LANGUAGE C STABLE PARALLEL SAFE;

CREATE FUNCTION nlformat(value numeric, format text, locale text DEFAULT NULL)
RETURNS text
AS $$ SELECT nlformat(value::double precision, format, locale) $$
LANGUAGE SQL STABLE PARALLEL SAFE;

-- A date is the count of days from 1 January 1960.
CREATE FUNCTION nlformat(value date, format text, locale text DEFAULT NULL)
RETURNS text
AS $$ SELECT nlformat((value - DATE '1960-01-01')::double precision, format, locale) $$
LANGUAGE SQL STABLE PARALLEL SAFE;

-- A timestamp is the count of seconds from 1 January 1960 00:00:00.
CREATE FUNCTION nlformat(value timestamp, format text, locale text DEFAULT NULL)
RETURNS text
AS $$ SELECT nlformat(extract(epoch FROM value - TIMESTAMP '1960-01-01 00:00:00')::double precision,
                      format, locale) $$
LANGUAGE SQL STABLE PARALLEL SAFE;

-- A timestamp with time zone is shown in the session's TimeZone.
CREATE FUNCTION nlformat(value timestamptz, format text, locale text DEFAULT NULL)
RETURNS text
AS $$ SELECT nlformat(value::timestamp, format, locale) $$
LANGUAGE SQL STABLE PARALLEL SAFE;

-- A time is the count of seconds since midnight.
CREATE FUNCTION nlformat(value time, format text, locale text DEFAULT NULL)
RETURNS text
AS $$ SELECT nlformat(extract(epoch FROM value)::double precision, format, locale) $$
LANGUAGE SQL STABLE PARALLEL SAFE;

CREATE FUNCTION nlformats(
    OUT name text, OUT min_width integer, OUT max_width integer, OUT default_width integer,
    OUT min_decimals integer, OUT max_decimals integer, OUT default_decimals integer)
RETURNS SETOF record
AS 'MODULE_PATHNAME', 'corvinel_nlformats'
LANGUAGE C IMMUTABLE PARALLEL SAFE;
