-- The extension in a schema that is not on search_path: every overload
-- works when called by its qualified name, and a function of the same name
-- elsewhere takes no call over.
CREATE SCHEMA fmt;
CREATE EXTENSION corvinel SCHEMA fmt;
SET search_path = public;
CREATE FUNCTION public.nlformat(value double precision, format text, locale text) RETURNS text
LANGUAGE sql AS $$ SELECT 'not corvinel' $$;
SELECT fmt.nlformat(1234.5::double precision, 'NLNUM10.1', 'de_DE') AS float8,
       fmt.nlformat(1234.5::numeric, 'NLNUM10.1', 'de_DE') AS numeric,
       fmt.nlformat(DATE '2003-02-24', 'NLDATE20.', 'de_DE') AS date;
SELECT fmt.nlformat(TIMESTAMP '2003-02-24 12:39:43', 'NLDATM30.', 'de_DE') AS timestamp,
       fmt.nlformat(TIMESTAMPTZ '2003-02-24 12:39:43+00', 'NLDATE20.', 'de_DE') AS timestamptz,
       fmt.nlformat(TIME '12:39:43', 'NLTIME10.', 'de_DE') AS time;
SELECT count(*) AS formats FROM fmt.nlformats();
-- The hint names a query that works from here.
\set VERBOSITY default
SELECT fmt.nlformat(1, 'NLNOPE', 'en_US');
\set VERBOSITY terse
-- The extension moves with its schema.
CREATE SCHEMA other;
ALTER EXTENSION corvinel SET SCHEMA other;
SELECT other.nlformat(DATE '2003-02-24', 'NLDATEYM16.', 'en_US') AS moved;
