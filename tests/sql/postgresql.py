"""The functions in PostgreSQL: the vectors, as they are and as SQLite has them, what is no PDU, and that the server is the same one
afterwards.

usage: postgresql.py EXTENSION EXTENSION-OF-SQLITE SOURCE-TREE LIBRARY…
"""
import json
import pathlib
import re
import subprocess
import sys

from server import Installation, Server

extension, sqlite_extension, source, *libraries = map(pathlib.Path, sys.argv[1:])
HI = "00040C9144770009103200006211128051038002C834"
OPTIONS = "is no option; there are smsc=yes|no, direction=to-mobile|from-mobile, failure-cause=yes|no and length=N"

# What a statement gives, or how its error begins.
CASES = [
    (f"SELECT sms_text('{HI}'), sms_text('\\x{HI}'::bytea)", "Hi|Hi"),
    (f"SELECT sms_address('{HI}'), sms_time('{HI}'), sms_type('{HI}'), sms_error('{HI}')",
     "+447700900123|2026-11-21T08:15:30+02:00|SMS-DELIVER|NULL"),
    (f"SELECT sms_reference('{HI}'), sms_part('{HI}'), sms_parts('{HI}'), sms_remarks('{HI}')", "NULL|NULL|NULL|[]"),
    ("SELECT sms_reference(p), sms_part(p), sms_parts(p), sms_text(p) FROM (SELECT '00440C91447700091032000862111280510300"
     "0A05000307030200630064'::text AS p) AS one", "7|2|3|cd"),
    (f"SELECT sms_json('{HI}')->'tp_scts'->>'time', sms_json('{HI}')->>'text'", "2026-11-21T08:15:30+02:00|Hi"),
    (f"SELECT name, value, octet, length, mask FROM sms_fields('{HI}') WHERE octet IN (1, 2, 20)",
     "TP-MTI|0|1|1|3\nTP-MMS|1|1|1|4\nTP-LP|0|1|1|8\nTP-SRI|0|1|1|32\nTP-UDHI|0|1|1|64\nTP-RP|0|1|1|128\n"
     "TP-OA|+447700900123|2|8|255\nTP-UD|Hi|20|2|255"),
    ("SELECT name, value, meaning FROM sms_fields('00040C91'::text) WHERE octet > 1", "TP-OA|0C91|NULL"),
    (f"SELECT count(*) FROM sms_fields('\\x{HI[2:]}'::bytea, 'smsc=no')", "12"),
    ("SELECT count(*) FROM sms_fields(repeat('0', 9000))", "0"),
    (f"SELECT sms_text('{HI[2:]}', 'smsc=no, direction=to-mobile')", "Hi"),
    (f"SELECT sms_text('{HI}', 'smsc=maybe')", "ERROR:  'smsc=maybe' " + OPTIONS),
    ("SELECT sms_error('00040C91'), sms_text('00040C91'), sms_error('no'), sms_error('')",
     "octet 2: the octets end in TP-OA, which takes 8 octets: 2 are there|NULL|octet 0: octet 0 is no pair of hexadecimal digits|"
     "octet 0: there is not one octet"),
    ("SELECT sms_text(NULL::text), sms_error(NULL::bytea), sms_json(NULL::text), cbs_text(NULL::text), sms_encode(NULL, 'a'), "
     "sms_join(NULL::bytea)", "NULL|NULL|NULL|NULL|NULL|NULL"),
    ("SELECT sms_text(1)", "ERROR:  function sms_text(integer) does not exist"),
    ("SELECT sms_text(1.5)", "ERROR:  function sms_text(numeric) does not exist"),
    ("SELECT sms_text()", "ERROR:  function sms_text() does not exist"),
    # U+0000, which no text of the server can hold, and a backslash before u0000 as it was sent
    ("SELECT sms_text(p), sms_json(p)->>'text', sms_fields.value FROM (SELECT '00040C9144770009103200086211128051030004"
     "00410000'::text AS p) AS one, sms_fields(p) WHERE name = 'TP-UD'", "A\ufffd|A\ufffd|A\ufffd"),
    ("SELECT sms_json('00040C914477000910320008621112805103000E005C00750030003000300030' || '0041')->>'text'", r"\u0000A"),
    ("SELECT cbs_text('403211120111C8329BFD06'), cbs_json('403211120111C8329BFD06')->>'type', cbs_error('4032')",
     "Hello|GSM page|octet 2: the octets end in message identifier, which takes 2 octets: 0 are there"),
    ("SELECT cbs_json('200011010300', 'etws')->>'type', cbs_text('200011010300', 'etws')", "ETWS primary notification|NULL"),
    ("SELECT sms_encode('+447700900123', 'Hi')", "{0001000C91447700091032000002C834}"),
    ("SELECT array_length(sms_encode('+447700900123', repeat('a', 161), 5), 1), "
     "sms_encode('+447700900123', repeat('a', 161), 5)::text LIKE '{%0500030502%,%0500030502%}'", "2|t"),
    ("SELECT sms_encode('Bob', 'Hi')", "ERROR:  octet 0 of the number is of no digit"),
    ("SELECT sms_encode('1', 'Hi', 65536)", "ERROR:  the reference 65536 is none of 0 to 65535"),
    # in any order, one of them twice, and what is broken among them
    ("SELECT sms_join(p), count(*) FROM (SELECT unnest(sms_encode('+447700900123', repeat('a', 400) || 'b')) AS p UNION ALL "
     "SELECT (sms_encode('+447700900123', repeat('a', 400) || 'b'))[2] UNION ALL SELECT NULL UNION ALL SELECT '00' "
     "ORDER BY 1 DESC) AS parts HAVING sms_join(p) <> repeat('a', 400) || 'b'", ""),
    ("SELECT sms_join(decode(p, 'hex')) = repeat('a', 400) FROM unnest(sms_encode('+44', repeat('a', 400))) AS p", "t"),
    ("SELECT sms_join(p) FROM unnest((sms_encode('+44', repeat('a', 400)))[1:2]) AS p", "NULL"),
    (f"SELECT sms_join(p) FROM (VALUES ('{HI}'), ('{HI}')) AS two(p)", "Hi"),
    (f"SELECT sms_join(p) FROM (VALUES ('{HI}'), (overlay('{HI}' placing '1' from 36))) AS two(p)", "NULL"),
    # by the query that the document has: a message of two parts, two single ones, and one of them twice
    ("SELECT sms_address(pdu), sms_join(pdu) FROM (VALUES ('00440C91447700091032000862111280510300080500030702010061'), "
     f"('00440C91447700091032000862111280510300080500030702020062'), ('{HI}'), ('{HI}'), (overlay('{HI}' placing '1' from 36))) AS archive(pdu) "
     "GROUP BY sms_address(pdu), sms_reference(pdu), sms_parts(pdu), left(sms_time(pdu), 10), CASE WHEN sms_part(pdu) IS NULL THEN pdu END "
     "ORDER BY min(sms_time(pdu)), sms_parts(pdu)", "+447700900123|Hi\n+447700900123|ab\n+447700900123|Hi"),
    (f"SELECT sms_join('{HI}') OVER ()", "Hi"),
    ("SELECT sms_join(p) FROM (SELECT ''::text AS p WHERE false) AS none", "NULL"),
    # huge values: they are neither read nor copied
    ("SELECT sms_error(repeat('0', 1000000000))", "over 4096 octets, which no message has"),
    ("CREATE TABLE huge AS SELECT decode(repeat('00', 10000000), 'hex') AS pdu; SELECT sms_error(pdu), sms_join(pdu) FROM huge GROUP BY pdu; "
     "DROP TABLE huge", "over 4096 octets, which no message has|NULL"),
    ("SELECT sms_type(repeat('00', 4096)), sms_error(repeat('00', 4097))", "SMS-DELIVER|over 4096 octets, which no message has"),
    # a group that is too long for the server
    ("SELECT sms_join(repeat('0', 1000000)) FROM generate_series(1, 1100)", "ERROR:  array size exceeds the maximum allowed (1073741823)"),
    # a statement that is cancelled
    ("SET statement_timeout = 300; SELECT count(sms_json(repeat('0', i % 50))) FROM generate_series(1, 1000000000) AS i",
     "ERROR:  canceling statement due to statement timeout"),
    ("SET statement_timeout = 300; SELECT sms_join(repeat('0', i % 50)) FROM generate_series(1, 1000000000) AS i",
     "ERROR:  canceling statement due to statement timeout"),
    # a group that takes long, of which no more is gone over once it is cancelled: in less than half of the time for the whole
    ("CREATE TABLE large AS SELECT array_agg(parts[1 + i % 2]) AS pdus FROM (SELECT sms_encode('+44', repeat('a', 400)) AS parts) AS one, "
     "generate_series(1, 500000) AS i;\n"
     "SELECT clock_timestamp() AS begun \\gset\nSELECT sms_join_pdus(pdus) FROM large;\n"
     "SELECT clock_timestamp() - :'begun' AS whole, clock_timestamp() AS begun \\gset\n"
     "SET statement_timeout = 50;\nSELECT sms_join_pdus(pdus) FROM large;\nRESET statement_timeout;\n"
     "SELECT clock_timestamp() - :'begun' < :'whole'::interval / 2;\nDROP TABLE large",
     "NULL\nERROR:  canceling statement due to statement timeout\nt"),
    # what all of them are declared to be
    ("SELECT provolatile, proisstrict, proparallel, count(*) > 60 FROM pg_proc JOIN pg_depend ON objid = pg_proc.oid WHERE deptype = 'e' "
     "AND refobjid = (SELECT oid FROM pg_extension WHERE extname = 'qx_messages') AND prokind = 'f' GROUP BY 1, 2, 3", "i|t|s|t"),
    # an index on an expression
    (f"CREATE TABLE archive(pdu text); INSERT INTO archive SELECT '{HI}' FROM generate_series(1, 1000); INSERT INTO archive VALUES ('00'); "
     "CREATE INDEX ON archive(sms_error(pdu)); SET enable_seqscan = off; EXPLAIN (COSTS OFF) SELECT 1 FROM archive WHERE sms_error(pdu) = 'x'",
     "Bitmap Heap Scan on archive\n  Recheck Cond: (sms_error(pdu) = 'x'::text)\n  ->  Bitmap Index Scan on archive_sms_error_idx\n"
     "        Index Cond: (sms_error(pdu) = 'x'::text)"),
    # workers, whose groups are put together
    ("SET parallel_setup_cost = 0; SET parallel_tuple_cost = 0; SET min_parallel_table_scan_size = 0; ALTER TABLE archive SET (parallel_workers = 2);"
     "EXPLAIN (COSTS OFF) SELECT count(sms_text(pdu)), sms_join(pdu) FROM archive; SELECT count(sms_text(pdu)), sms_join(pdu) FROM archive",
     "Finalize Aggregate\n  ->  Gather\n        Workers Planned: 2\n        ->  Partial Aggregate\n"
     "              ->  Parallel Seq Scan on archive\n1000|Hi"),
    # a server in another encoding
    ("CREATE DATABASE latin TEMPLATE template0 ENCODING 'LATIN1' LC_COLLATE 'C' LC_CTYPE 'C'", ""),
    ("CREATE DATABASE ascii TEMPLATE template0 ENCODING 'SQL_ASCII' LC_COLLATE 'C' LC_CTYPE 'C'", ""),
    ("CREATE DATABASE shadow;\nCREATE DATABASE dumped;\nCREATE DATABASE restored", ""),
    ("DROP EXTENSION qx_messages CASCADE; CREATE EXTENSION qx_messages; SELECT sms_text('" + HI + "')",
     "NOTICE:  drop cascades to index archive_sms_error_idx\nHi"),
]

LACKS = "it has a character that the encoding of the database, LATIN1, lacks"
LATIN = [
    ("SET client_encoding = 'UTF8'; CREATE EXTENSION qx_messages; SELECT sms_text('00040C91447700091032000862111280510300' || '0200E9'), "
     "octet_length(sms_text('00040C91447700091032000862111280510300' || '0200E9')), (sms_encode('+44', 'é'))[1]", "é|1|000100029144000001" "05"),
    # what it cannot hold: "é" and "Ж", a sender "Φ", and the page "Φ"
    ("SELECT sms_text(p), sms_json(p), (SELECT sms_join(q) FROM (SELECT p) AS two(q)), sms_error(p), sms_address(p), (SELECT count(*) FROM sms_fields(p)) FROM (SELECT "
     "'00040C91447700091032000862111280510300' || '0400E90416' AS p) AS one", f"NULL|NULL|NULL|{LACKS}|+447700900123|0"),
    ("SELECT sms_address(p), sms_text(p), sms_error(p) FROM (SELECT '000402D012' || '00006211128051030002C834' AS p) AS one", f"NULL|Hi|{LACKS}"),
    ("SELECT cbs_text(p), cbs_error(p) FROM (SELECT '4032111201' || '1112' AS p) AS one", f"NULL|{LACKS}"),
    ("SELECT count(*), count(sms_text(p)), count(sms_error(p)) FROM (VALUES ('00040C914477000910320008621112805103000200E9'), "
     "('00040C9144770009103200086211128051030002' || '0416')) AS two(p)", "2|1|1"),
    (f"SET client_encoding = 'UTF8'; SELECT sms_text('{HI}', 'é')", "ERROR:  'é' " + OPTIONS),
    (f"SET client_encoding = 'UTF8'; SELECT sms_join('{HI}'), sms_error('\u00e9')", "Hi|octet 0: octet 0 is no pair of hexadecimal digits"),
]

# Texts in whatever encoding, as octets; and a schema in which somebody has functions of the server's names.
ASCII = [
    ("CREATE EXTENSION qx_messages; SELECT encode(convert_to(sms_text('00040491447700086211128051030002' || '0416'), 'SQL_ASCII'), 'hex'), "
     "sms_error('00040491447700086211128051030002' || '0416')", "d096|NULL"),
    (r"SELECT sms_encode('+44', convert_from('\xd096', 'SQL_ASCII'))", "{0001000291440008020416}"),
    (r"SELECT sms_encode('+44', convert_from('\xd0', 'SQL_ASCII'))", 'ERROR:  invalid byte sequence for encoding "UTF8": 0xd0'),
]
SHADOW = [
    ("CREATE FUNCTION array_append(bytea[], bytea) RETURNS bytea[] LANGUAGE sql AS 'SELECT NULL::bytea[]'; "
     f"CREATE EXTENSION qx_messages; SELECT sms_join('\\x{HI}'::bytea)", "Hi"),
    # types of the caller's, which would run their checks with the rights of whoever made the function that calls
    ("CREATE ROLE guest; "
     f"CREATE FUNCTION public.definer(pdu text) RETURNS text LANGUAGE sql SECURITY DEFINER SET search_path = public AS "
     "'SELECT string_agg(value, '','') || count(mask) || (sms_encode(''+44'', ''Hi''))[1] || (sms_encode(''+44'', ''Hi'', 5))[1] "
     "FROM sms_fields(pdu, ''smsc=yes'') WHERE name IN (''TP-OA'', ''TP-UD'')'", ""),
    ("SET ROLE guest; CREATE FUNCTION pg_temp.evil(value pg_catalog.text) RETURNS bool LANGUAGE plpgsql AS "
     "$$BEGIN RAISE 'evil runs as %', current_user; END$$; " +
     "".join(f"CREATE DOMAIN pg_temp.{type} AS pg_catalog.{type} CHECK (pg_temp.evil(value::pg_catalog.text)); "
             for type in ("text", "json", "bytea", "int4")) +
     f"SELECT public.definer('{HI}')", "+447700900123,Hi2" + 2 * "0001000291440000" "02C834"),
    ("CREATE SCHEMA others; CREATE TYPE others.text AS ENUM ('a'); CREATE TYPE others.json AS ENUM ('a'); "
     "CREATE TYPE others.int4 AS ENUM ('a'); SET search_path = others, public, pg_catalog; "
     f"SELECT count(value) FROM sms_fields('{HI}'); SELECT count(value) FROM sms_fields('\\x{HI}'::bytea, 'smsc=yes'); "
     "SELECT sms_encode('+44', 'Hi')", "12\n12\n{000100029144000002C834}"),
    ("DROP FUNCTION public.definer; DROP ROLE guest", ""),
]

# What is told beside the octets, to all functions but sms_encode and sms_join.
FUNCTIONS = {"sms": ("text", "address", "time", "type", "reference", "part", "parts", "json", "remarks", "error"),
             "cbs": ("text", "json", "error")}
TOLD = {"sms": ("", "smsc=no", "smsc=yes direction=from-mobile", "direction=to-mobile, failure-cause=yes", "length=20"),
        "cbs": ("", "gsm", "umts", "etws")}


def questions():
    """Statements for both databases, of a table everything(id, digits, octets); ARRAY makes an array of JSON."""
    for kind, names in FUNCTIONS.items():
        for told in TOLD[kind]:
            for pdu in ("digits", "octets"):
                values = ", ".join(f"CAST({kind}_{name}({pdu}, '{told}') AS text)" for name in names)
                yield f"SELECT ARRAY(digits, {values}) FROM everything ORDER BY id"
    for told in TOLD["sms"]:
        yield (f"SELECT ARRAY(digits, name, CAST(value AS text), meaning, octet, length, mask) FROM everything, sms_fields(octets, '{told}') "
               "ORDER BY id, octet, mask, name, length")


class Sqlite:
    def __init__(self, folder):
        self.file = folder / "sqlite.db"

    def rows(self, script):
        run = subprocess.run(["sqlite3", self.file, "-cmd", f".load {sqlite_extension.resolve()}"], input=script, stdout=subprocess.PIPE,
                             stderr=subprocess.STDOUT, text=True, encoding="utf-8", timeout=600)
        return run.stdout.rstrip("\n")


def differences_of_databases(server, sqlite, octets):
    """What one database gives and the other one does not; the server has U+FFFD for U+0000."""
    table = "CREATE TABLE everything(id integer, digits text, octets {type}); INSERT INTO everything VALUES " + ", ".join(
        f"({number}, '{digits}', {{before}}{digits}')" for number, digits in enumerate(octets))
    faults = [server.rows(table.format(type="bytea", before="'\\x")), sqlite.rows(table.format(type="blob", before="x'") + ";")]
    compared = 0
    for question in questions():
        copied = f"COPY ({question.replace('ARRAY', 'json_build_array')}) TO STDOUT WITH (FORMAT csv, QUOTE E'\\x01', DELIMITER E'\\x02')"
        given = server.rows(copied).split("\n")
        expected = sqlite.rows(question.replace("ARRAY", "json_array") + ";").replace("\\u0000", "\ufffd").split("\n")
        rows = [(json.loads(one), json.loads(other.replace("\\\ufffd", "\ufffd"))) for one, other in zip(given, expected, strict=True)]
        faults += [f"{question}\n  gives    {one}\n  SQLite's {other}" for one, other in rows if one != other]
        compared += len(rows)
    if compared < 100000:
        faults.append(f"no more than {compared} rows")
    return [fault for fault in faults if fault]


# What stands on the functions, and is the same once it is restored.
DUMPED = [
    (f"CREATE EXTENSION qx_messages; CREATE TABLE archive(pdu text, text text GENERATED ALWAYS AS (sms_text(pdu)) STORED, CHECK (sms_error(pdu) IS NULL)); "
     f"INSERT INTO archive VALUES ('{HI}'); CREATE INDEX senders ON archive(sms_address(pdu)); "
     "CREATE VIEW fields AS SELECT name FROM archive, sms_fields(pdu)", ""),
]
RESTORED = [
    ("SET enable_seqscan = off; EXPLAIN (COSTS OFF) SELECT 1 FROM archive WHERE sms_address(pdu) = '+447700900123'",
     "Index Scan using senders on archive\n  Index Cond: (sms_address(pdu) = '+447700900123'::text)"),
    ("SELECT text, (SELECT count(*) FROM fields) FROM archive WHERE sms_address(pdu) = '+447700900123'", "Hi|13"),
    ("INSERT INTO archive VALUES ('00')", 'ERROR:  new row for relation "archive" violates check constraint "archive_pdu_check"'),
]

installation = Installation(extension, source / "sql/postgresql", libraries)
server = Server(installation)
try:
    server.start()
    if refusal := server.rows("CREATE EXTENSION qx_messages"):
        raise SystemExit(refusal)
    faults = []
    statements = 0

    def check(cases, database):
        global statements
        statements += len(cases)
        for statement, expected in cases:
            given = server.rows(statement, database)
            given = re.sub(r"^psql:[^ ]*: ", "", given, flags=re.MULTILINE)
            if not (given.startswith(expected) if expected.startswith("ERROR") else given == expected):
                faults.append(f"{statement[:300]}\n  gives {given[:1500]}\n  not   {expected[:1500]}")

    # One session through all that ends badly, in one process of the server.
    begun = server.rows("SELECT pg_postmaster_start_time()")
    every = "".join(f"{statement};\n" for statement, expected in CASES if expected.startswith("ERROR") or "repeat(" in statement)
    session = server.rows(f"SELECT 'process ' || pg_backend_pid();\n{every}\nRESET statement_timeout; SELECT 'process ' || pg_backend_pid()")
    processes = re.findall(r"^process \d+$", session, re.MULTILINE)
    if len(processes) != 2 or processes[0] != processes[1]:
        faults.append(f"the session ended in another process: {session[-2000:]}")
    check(CASES, "postgres")
    check(LATIN, "latin")
    check(ASCII, "ascii")
    check(SHADOW, "shadow")
    check(DUMPED, "dumped")
    # An index on an expression and all that stands on the functions goes over into another database.
    dumped = subprocess.run(["/usr/lib/postgresql/15/bin/pg_dump", "-h", installation.folder, "-U", "postgres", "-d", "dumped"], stdout=subprocess.PIPE,
                            text=True, encoding="utf-8", env=server.environment, timeout=60, check=True).stdout
    server.rows(dumped, "restored")
    check(RESTORED, "restored")
    # The archive on two servers, which says itself what is wrong with it.
    cluster = subprocess.run([source / "sql/postgresql/cluster.sh", "2000"], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                             env={**server.environment, "QX_POSTGRESQL": str(installation.bin)}, timeout=300)
    if cluster.returncode or 'afterwards: ERROR:  could not connect to server "two"' not in cluster.stdout:
        faults.append(f"cluster.sh: {cluster.stdout}")

    # The server holds no U+0000, and the functions give U+FFFD for it.
    vectors = installation.folder / "vectors.jsonl"
    files = sorted((source / "tests/vectors").glob("*.jsonl"))
    vectors.write_text("".join(file.read_text(encoding="utf-8") for file in files).replace("\\u0000", "\ufffd"), encoding="utf-8")
    differing = server.rows("CREATE TABLE vectors(line json);\n"
                            f"\\copy vectors FROM '{vectors}' WITH (FORMAT csv, QUOTE E'\\x01', DELIMITER E'\\x02')\n"
                            + (source / "tests/sql/vectors.sql").read_text(encoding="utf-8"))
    if differing:
        faults.append(f"vectors: {differing[:3000]}")
    octets = sorted({json.loads(line).get("octets") for file in files for line in file.open(encoding="utf-8")} - {None})
    faults += differences_of_databases(server, Sqlite(installation.folder), octets)[:5]
    if server.rows("SELECT pg_postmaster_start_time()") != begun:
        faults.append("the server has started again")
    if faults:
        raise SystemExit("\n".join(faults) + f"\n{len(faults)} differ")
    print(f"{statements} statements and the vectors: as expected, and as in SQLite")
finally:
    server.stop()
    installation.remove()
