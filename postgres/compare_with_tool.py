#!/usr/bin/python3
"""Compares nlformat in real databases with the host tool on the same requests.

Every format of the registry, at its smallest, a middle and its default
width, with two values of the kind it reads and a NULL (the missing value),
in all 136 locales: the tool renders each request as 16-bit units, and each
database renders all of them in one query.  A database in another encoding
than UTF8 must show the tool's text with each character converted by the
server's own conversion, "?" for one the encoding lacks.  Besides the
equality, every shown character must be one the tool's text holds or "?".

    compare_with_tool.py TOOL MODULE SOCKET_DIR DATABASE...

Prints one line per database and up to ten differences; exits 1 on any.
"""
import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

# Two values of each kind, as the tool reads them and as SQL literals.  The
# second date lies after 28 February 4000, where the two calendars' day
# counts part.
VALUES = {
    "number": [("1234567.891", "1234567.891"), ("-0.5", "-0.5")],
    "name": [("2", "2"), ("4", "4")],
    "date": [("2003-02-24", "DATE '2003-02-24'"), ("9999-12-31", "DATE '9999-12-31'")],
    "datetime": [("2003-02-24T12:39:43.25", "TIMESTAMP '2003-02-24 12:39:43.25'"),
                 ("9999-12-31T23:59:59", "TIMESTAMP '9999-12-31 23:59:59'")],
    "time": [("16:24:43", "TIME '16:24:43'"), ("00:00:00.5", "TIME '00:00:00.5'")],
}
SQL_NULL = {"number": "NULL::double precision", "name": "NULL::double precision",
            "date": "NULL::date", "datetime": "NULL::timestamp", "time": "NULL::time"}


def psql(socket_dir, database, sql):
    run = subprocess.run(["psql", "-X", "-q", "-A", "-t", "-h", socket_dir, "-U", "postgres", "-d", database,
                          "-v", "ON_ERROR_STOP=1", "-f", "-"],
                         input=sql.encode(), capture_output=True, check=False,
                         env=dict(os.environ, PGCLIENTENCODING="UTF8"))
    if run.returncode != 0:
        sys.exit(f"psql in {database} failed: {run.stderr.decode(errors='replace')}")
    return run.stdout.decode()


def value_class(name, kind):
    if kind == "number" and name.startswith("NLSTR"):
        return "name"
    return kind


def requests(registry):
    """(format text, value class, tool value or None, SQL literal) per request."""
    for name, min_width, default_width, kind in registry:
        widths = sorted({min_width, (min_width + default_width) // 2, default_width})
        cls = value_class(name, kind)
        for width in widths:
            for tool_value, literal in VALUES[cls] + [(None, SQL_NULL[cls])]:
                yield f"{name}{width}.", tool_value, literal


def decode(hex_text, missing):
    """The tool's bytes as text: 16-bit units, except a field of "*" and the
    missing value, which formats leave in single bytes."""
    data = bytes.fromhex(hex_text)
    if data and all(b == 0x2A for b in data):
        return "*" * len(data)
    if missing and 0 not in data:
        return data.decode("ascii")
    return data.decode("utf-16-le")


def tool_texts(tool, module, request_list, ctype):
    """{(request index, locale code): text} and the locale codes in record
    order, in a session of the database's LC_CTYPE (the width counts its
    bytes)."""
    env = dict(os.environ, TZ="UTC0", LC_ALL=ctype)

    def run(index):
        fmt, value, _ = request_list[index]
        out = subprocess.run([tool, "--module", module, "--utf16", "--no-check", "--all-locales", fmt, value or "."],
                             capture_output=True, env=env, check=False)
        rows = []
        for line in out.stdout.decode().splitlines():
            code, _, hex_text = line.partition("  ")
            rows.append((code, decode(hex_text.strip(), value is None)))
        if out.returncode != 0 or len(rows) != 136:
            sys.exit(f"{tool} {fmt} {value}: exit {out.returncode}, {len(rows)} rows: {out.stderr.decode()}")
        return rows

    with ThreadPoolExecutor(max_workers=os.cpu_count() or 2) as pool:
        results = list(pool.map(run, range(len(request_list))))
    codes = [code for code, _ in results[0]]
    texts = {(i, code): text for i, rows in enumerate(results) for code, text in rows}
    return texts, codes


def converter(socket_dir, database, characters):
    """Each non-ASCII character as the database shows it after its own
    conversion from UTF-8, "?" when it has none."""
    if not characters:
        return {}
    ordered = sorted(characters)
    rows = ",".join(f"({i},'\\x{c.encode().hex()}')" for i, c in enumerate(ordered))
    out = psql(socket_dir, database, f"""
CREATE FUNCTION pg_temp.shown(bytes bytea) RETURNS text LANGUAGE plpgsql AS $$
BEGIN RETURN convert_from(bytes, 'UTF8'); EXCEPTION WHEN others THEN RETURN '?'; END $$;
SELECT i, pg_temp.shown(b::bytea) FROM (VALUES {rows}) AS c(i, b) ORDER BY i;""")
    shown = {}
    for line in out.splitlines():
        index, _, text = line.partition("|")
        shown[ordered[int(index)]] = text
    return shown


def query_of(request_list, codes):
    """One query for all requests: the requests by value type, crossed with
    the locales in record order."""
    locales = ",".join(f"({n},'{code}')" for n, code in enumerate(codes))
    selects = []
    for sql_type in ("double precision", "date", "timestamp", "time"):
        rows = ",".join(f"({i},'{fmt}',{literal}::{sql_type})" for i, (fmt, _, literal) in enumerate(request_list)
                        if type_of(literal) == sql_type)
        selects.append(f"""
SELECT r.i, l.n, nlformat(r.v, r.f, l.code) FROM (VALUES {rows}) AS r(i, f, v)
  CROSS JOIN (VALUES {locales}) AS l(n, code)""")
    return "SET TimeZone = 'UTC';\n" + "\nUNION ALL".join(selects) + "\nORDER BY 1, 2;"


def main():
    tool, module, socket_dir, databases = sys.argv[1], sys.argv[2], sys.argv[3], sys.argv[4:]
    registry = []
    for line in psql(socket_dir, databases[0],
                     "SELECT name, min_width, default_width, value_kind FROM nlformats() ORDER BY name").splitlines():
        name, min_width, default_width, kind = line.split("|")
        registry.append((name, int(min_width), int(default_width), kind))
    request_list = list(requests(registry))
    by_ctype = {}

    failed = False
    for database in databases:
        ctype = psql(socket_dir, database, "SHOW lc_ctype").strip()
        if ctype not in by_ctype:
            by_ctype[ctype] = tool_texts(tool, module, request_list, ctype)
        texts, codes = by_ctype[ctype]
        if len(set(codes)) != len(codes):
            sys.exit("the tool names two locale records alike")
        characters = {c for text in texts.values() for c in text if ord(c) >= 0x80}
        shown = converter(socket_dir, database, characters)
        got = {}
        for line in psql(socket_dir, database, query_of(request_list, codes)).splitlines():
            i, n, text = line.split("|", 2)
            got[(int(i), codes[int(n)])] = text
        differences = []
        strays = set()
        for key, expected in texts.items():
            wanted = "".join(shown.get(c, c) for c in expected)
            actual = got.get(key)
            if actual != wanted:
                differences.append((key, wanted, actual))
            strays |= set(actual or "") - set(wanted)
        print(f"{database}: {len(got)} rows, {len(differences)} differ from the tool, "
              f"{len(strays)} characters the tool never shows")
        for (i, code), wanted, actual in differences[:10]:
            fmt, value, _ = request_list[i]
            print(f"  {fmt} {value} {code}: tool {wanted!r}, database {actual!r}")
        failed |= bool(differences) or bool(strays) or len(got) != len(texts)
    sys.exit(1 if failed else 0)


def type_of(literal):
    for prefix, sql_type in (("DATE", "date"), ("TIMESTAMP", "timestamp"), ("TIME", "time")):
        if literal.startswith(prefix) or literal == f"NULL::{sql_type}":
            return sql_type
    return "double precision"


if __name__ == "__main__":
    main()
