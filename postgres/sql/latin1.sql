-- The extension in a LATIN1 database: characters LATIN1 has come through,
-- one it lacks (the euro sign) becomes "?".
CREATE EXTENSION corvinel;
SELECT nlformat(DATE '2003-02-24', 'NLDATE20.', 'fr_FR') AS fr, nlformat(DATE '2003-03-24', 'NLDATE20.', 'de_DE') AS de;
SELECT nlformat(1234.5, 'NLMNY14.2', 'de_DE') AS euro, nlformat(1234.5, 'NLMNY14.2', 'en_GB') AS pound;
SELECT nlformat(DATE '2003-02-24', 'NLDATE20.', 'ja_JP') AS ja;
