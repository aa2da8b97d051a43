-- The extension in a UTF8 database of a cluster whose locale is C: the
-- results carry every character, since they come as 16-bit units.
CREATE EXTENSION corvinel;
SHOW lc_ctype;
-- Numbers and currencies in several locales.
SELECT nlformat(1234567.891, 'NLNUM14.2', 'de_DE') AS de, nlformat(1234567.891, 'NLNUM14.2', 'en_US') AS us,
       nlformat(1234567.891, 'NLNUM14.2', 'en_IN') AS india;
SELECT nlformat(-1234.5::numeric, 'NLMNY14.2', 'en_US') AS us, nlformat(-1234.5, 'NLMNY14.2', 'de_DE') AS de,
       nlformat(1234.5, 'NLMNIEUR16.2', 'fr_CH') AS eur_ch;
SELECT nlformat(0.125, 'NLPCT8.1', 'en_US') AS pct, nlformat(8, 'NLSTRMON12.', 'fr_FR') AS month,
       nlformat(8, 'NLSTRMON12.3', 'de_DE') AS month_upper;
-- Dates, datetimes and times: a date counts days from 1960-01-01.
SELECT nlformat(DATE '2003-02-24', 'NLDATE20.', 'de_DE') AS de, nlformat(DATE '2003-02-24', 'NLDATE20.', 'ja_JP') AS ja,
       nlformat(DATE '1960-01-01', 'NLDATE20.', 'en_US') AS epoch;
SELECT nlformat(TIMESTAMP '2003-02-24 12:39:43', 'NLDATM30.', 'de_DE') AS de,
       nlformat(TIMESTAMP '2003-02-24 12:39:43', 'NLDATM30.', 'en_US') AS us;
SET TimeZone = 'Asia/Tokyo';
SELECT nlformat(TIMESTAMPTZ '2003-02-24 03:39:43+00', 'NLDATM30.', 'en_US') AS tokyo_session;
RESET TimeZone;
SELECT nlformat(TIME '16:24:43', 'NLTIME10.', 'en_US') AS us, nlformat(TIME '16:24:43', 'NLTIME10.', 'de_DE') AS de;
-- A NULL value is the missing value; a NULL format gives NULL.
SELECT nlformat(NULL::double precision, 'NLNUM8.2', 'en_US') AS missing, nlformat(NULL::date, 'NLDATE10.', 'en_US') AS missing_date,
       nlformat(1, NULL, 'en_US') IS NULL AS no_format;
-- Format names in any case, defaults from the registry.
SELECT nlformat(1234.5, 'nlnum.1', 'de_DE') AS default_width, name, default_width, max_decimals
FROM nlformats() WHERE name = 'NLNUM';
SELECT count(*) AS formats FROM nlformats();
-- Bad input: errors with a clear message, never a crash.
SELECT nlformat(1, 'NLNOPE12.', 'en_US');
SELECT nlformat(1, 'NLNUM200.', 'en_US');
SELECT nlformat(1, 'NLNUM12.99', 'en_US');
SELECT nlformat(1, 'NLNUM12.2x', 'en_US');
SELECT nlformat(1, 'NLNUM12.2', 'xx_YY');
SELECT nlformat(1, 'NLNUM12.2', 'German');
-- The server's own locale behaviour is as it was.
SHOW lc_ctype;
SELECT upper('straße ä') AS c_locale_upper;
