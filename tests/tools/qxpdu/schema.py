"""Validates what qxpdu writes against the JSON Schemas: schema.py SCHEMA_FOLDER COMMAND..."""
import functools
import json
import subprocess
import sys
import tempfile

import jsonschema

FOLDER, QXPDU = sys.argv[1], sys.argv[2:]
HELLO = "0791214365870921040B912143658709F100002120312143658005C8329BFD06"
LOWER = "0791214365870921440B912143658709F100082120312143658008050003060202DE00"
UPPER = "0791214365870921440B912143658709F100082120312143658008050003060201D83D"
SUBMIT = "0001070491214300000161"
TIMED = "001907049121430000212031214365800161"
REPORT = "00060704912143212031214365802120312143658000"
# What each kind of field adds, and what differs from libQX_Encoding.
KINDS = [
    "0041070491214300040C0B05040B8423F024010107" + "00", "0041070491214300000B062401012501019BE901",
    "0041070491214300040403240501", "00010704912143002000", "00010704912143006000", "00010704912143008400",
    "0001070491214300E800", "000907049121430000421E0000000000" + "00", "001107049121430000A7017F7F",
    "00010704912143000C0141", "000404912143000021203121436522" + "00", "00140491214300002120312143658000",
    "00060704912143212031214365802120312143658007000401" + "41", REPORT + "FF", "00040491214300402120312143658000",
]
REPORTS = ["0000D0020400", "00020100020704912143" + "0141", "000000"]
CLASSED = "0001070491214300100161"
PAGE = "403211120111C8329BFD06"
FIRST_PAGE = "403211120112C8329BFD06"
WARNING = "403211000111C8329BFD06"
# A page of a header, its tables, a language before the text, data, all of a coding; a message; a notification.
CELL_KINDS = ["0010003298110E0003070201" + "240101" + "220404912143" + "0048", "0010003298110200030048",
              "00100032911106240101250101", "0010003210116577039906", "001000327511C8", "001000328011C8", "001000324411FF", "00100032C111C800",
              "0010003201" + "00C8" + "00" * 82, "01111243210101C8" + "00" * 81 + "01",
              "300011000180" + "62111280510300" + "AA" * 43]
FIRST_HALF, SECOND_HALF = "403311124812D83D", "4033111248220048"
CELL_LOG = "+CBM: 11\n" + FIRST_PAGE + "\n+CBM: 11\n" + FIRST_PAGE + "\n"
LIST = "\n".join([HELLO, UPPER, UPPER, LOWER, LOWER, SUBMIT, TIMED, REPORT, "0G", CLASSED, REPORT[2:], REPORT[2:10],
                  "00" + "FF" * 175])
LOG = "\n".join(["+CMT: ,24", HELLO, "+CMT: ,9", "OK", "+CBM: 11", PAGE, "+CBM: 88", WARNING, "+CMT: ,26", UPPER,
                 "+CMT: ,25", LOWER, "+CMT: ,9", REPORT[:8], "AT+CMGS=10", SUBMIT, '+CMGS: 7,"010021203121436580"',
                 "+CDS: 21", REPORT, ""])
LOG_FILE = tempfile.NamedTemporaryFile("w", encoding="utf-8", suffix=".log")
LOG_FILE.write(LOG)
LOG_FILE.flush()

# The command, standard input, and how many objects come of it.
CASES = [
    (["decode"], LIST, 13),
    (["decode", "--join"], LIST, 12),
    (["decode", "--file", LOG_FILE.name], "", 10),
    (["decode", "--join", "--file", LOG_FILE.name], "", 9),
    (["inspect", "--file", LOG_FILE.name], "", 10),
    (["cell", "--file", LOG_FILE.name], "", 3),
    (["cell", "--join", "--file", LOG_FILE.name], "", 3),
    (["decode", "--join"], CELL_LOG, 2),
    (["decode"], "\n".join(KINDS), len(KINDS)),
    (["decode", "--direction", "from-mobile"], "\n".join(REPORTS), len(REPORTS)),
    (["decode", "--as", "libQX_Encoding"], HELLO, 1),
    (["decode", "--join"], UPPER, 1),
    (["inspect"], "\n".join(KINDS), len(KINDS)),
    (["inspect", "--as", "libQX_Encoding"], HELLO + "\n0002", 2),
    (["inspect", "--cell"], "\n".join(CELL_KINDS + ["43"]), len(CELL_KINDS) + 1),
    (["inspect", "--cell", "--as", "libQX_Encoding"], PAGE, 1),
    (["count", "--lines"], "\n".join(["a€", "ж", "α’", "…" * 17085, "a" * 152 + "€" * 5, "ж" * 66 + "😀" * 3, "\t",
                                      "a" * 39016]), 8),
    (["count", "--lines"], "€" + "ж" * 17086 + "’", 1),
    (["count", "--lines", "--language", "tr,pt", "--concat-bits", "16"], "şã\n" + "ş€" * 40 + "\n" + "ş" * 71, 3),
    (["count", "--lines", "--replace"], "It’s 5\ne\u0301\nж\n" + "…" * 17085, 4),
    (["count", "--lines"], "şã" * 40 + "\ncafe\u0301\n“" + "ş" * 70 + "”", 3),
    (["count", "--lines", "--alphabet", "gsm"], "ж\nş", 2),
    (["count", "--as", "libQX_Encoding", "--lines"], "\n".join(["a€", "ж", "α’", "…" * 17085, "a" * 152 + "€" * 5, "ж" * 66 + "😀" * 3, "\t",
                                      "a" * 39016]), 8),
    (["count", "--as", "libQX_Encoding", "--lines", "--greek"], "α’", 1),
    (["count", "--as", "libQX_Encoding", "--lines"], "€" + "ж" * 17086 + "’", 1),
    (["inspect"], "\n".join([HELLO, LOWER, SUBMIT, TIMED, REPORT, REPORT + "FF", "0002", "0G", HELLO + "00", "FFFF"]), 10),
    (["cell"], "\n".join([PAGE, FIRST_PAGE, WARNING, *CELL_KINDS, "00"]), 4 + len(CELL_KINDS)),
    (["cell", "--type", "umts"], "01111243210100", 1),
    (["cell", "--type", "umts"], "011112432101", 1),
    (["cell", "--type", "umts"], "01111243210101C8", 1),
    (["cell", "--join"], "\n".join([FIRST_PAGE, FIRST_PAGE, "4032111244" + "22" + "48", SECOND_HALF, FIRST_HALF]), 4),
    (["cell", "encode"], '{"text": "a"}\n{"text": "\u0436", "umts": true}\n{"text": 1}\n', 3),
    (["cell", "--as", "libQX_Encoding"], PAGE + "\n" + WARNING, 2),
    (["encode"], '{"to": "1-2", "text": "a"}\n{"to": "1"}\n{"to": "1", "text": "' + "ж" * 100 + '"}\n', 3),
    (["encode"], '{"type": "deliver", "from": "1", "data": "01", "port": 5}\n{"type": "deliver-report"}\n'
     '{"to": "1", "text": "' + "ğ" * 9 + '", "language": "tr", "concat-bits": 16}\n'
     '{"to": "1", "text": "' + "aaaáaaaaaa" + '", "language": "es", "strict": false}\n'
     '{"to": "1", "text": "' + "’" * 9 + '", "replace": true}\n', 5),
]


def objects_of(arguments, text):
    run = subprocess.run(QXPDU + arguments, input=text, capture_output=True, text=True, encoding="utf-8", timeout=60)
    return run.stdout


@functools.cache
def schema_of(command):
    with open(f"{FOLDER}/{command}.schema.json", encoding="utf-8") as file:
        schema = json.load(file)
    jsonschema.Draft202012Validator.check_schema(schema)
    if command in ("decode", "inspect"):  # the pages of a log are in the other file
        schema["$defs"]["cell"] = {"$id": "cell.schema.json", **schema_of("cell").schema}
    return jsonschema.Draft202012Validator(schema)


def members_of(value):
    """The names of all members in a value, at any depth."""
    if isinstance(value, dict):
        return set(value).union(*map(members_of, value.values()))
    return set().union(*map(members_of, value)) if isinstance(value, list) else set()


def properties_of(schema):
    """The names of all members that a schema knows, but those of another file."""
    if isinstance(schema, list):
        return set().union(*map(properties_of, schema))
    if not isinstance(schema, dict) or "$id" in schema:
        return set()
    return set(schema.get("properties", {})).union(*map(properties_of, schema.values()))


seen = {}
for arguments, text, count in CASES:
    objects = [json.loads(line) for line in objects_of(arguments + ["--jsonl"], text).splitlines()]
    assert len(objects) == count, f"{arguments}: {len(objects)} objects, {count} expected"
    for item in objects:
        seen.setdefault(arguments[0], set()).update(members_of(item))
        schema_of(arguments[0]).validate(item)
        assert not schema_of(arguments[0]).is_valid({**item, "other": 1}), "a member more must be refused"
for item in json.loads(objects_of(["cell", "encode", "--json"], "a" * 100)):
    schema_of("cell").validate(item)
array = json.loads(objects_of(["encode", "--to", "1", "--json"], "ж" * 100))
assert len(array) == 2
for item in array:
    schema_of("encode").validate(item)

# What no case shows, no case has validated.
for command, members in seen.items():
    unseen = properties_of(schema_of(command).schema) - members - {"argument"}
    assert not unseen, f"{command}: no case has {sorted(unseen)}"
