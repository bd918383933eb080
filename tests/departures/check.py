"""Each row of docs/departures.md has four cells, a clause and a test that shows it, and each test has a row. So has each name
by which another document, or the comparison with other codecs, refers to one.

usage: check.py SOURCE-TREE TEST-PROGRAM
"""
import pathlib
import re
import subprocess
import sys

source = pathlib.Path(sys.argv[1])
page = source / "docs/departures.md"
listed = subprocess.run([sys.argv[2], "--gtest_list_tests"], check=True, capture_output=True, text=True).stdout
shown = [line.strip() for line in listed.splitlines() if line.startswith("  ")]


def test_of(row):
    """The test of the row "zone-zero" is ZoneZero."""
    return "".join(word.capitalize() for word in row.split("-"))


faults, rows = [], []
for number, line in enumerate(page.read_text(encoding="utf-8").splitlines(), 1):
    if not line.startswith("|") or line.startswith(("| row |", "|---")):
        continue
    cells = [cell.strip() for cell in line.strip("|").split(" | ")]
    anchor = re.fullmatch(r'<a id="([a-z0-9-]+)"></a>([a-z0-9-]+)', cells[0])
    if not anchor or anchor[1] != anchor[2]:
        faults.append(f"{page}:{number}: no anchor of the row's name")
        continue
    rows.append(anchor[1])
    if len(cells) != 4 or not all(cells):
        faults.append(f"{page}:{number}: {len(cells)} cells, of which none may be empty")
    elif not re.match(r"2[34]\.0\d\d, \d+(\.\d+)*: \S", cells[1]):
        faults.append(f"{page}:{number}: no standard with its clause")

faults += [f"{page}: two rows {row}" for row in sorted(set(rows)) if rows.count(row) > 1]
tests = {test_of(row) for row in rows}
faults += [f"{page}: no test Departures.{name} shows its row" for name in sorted(tests - set(shown))]
faults += [f"{page}: no row for Departures.{name}" for name in sorted(set(shown) - tests)]
for path in sorted([*source.glob("*.md"), *source.glob("docs/*.md")]):
    named = re.findall(r"departures\.md#([\w-]+)", path.read_text(encoding="utf-8"))
    faults += [f"{path}: no row {name}" for name in named if name not in rows]
path = source / "tests/yardsticks/Differences.h"
named = re.findall(r"(?<!\S)([a-z]+(?:-[a-z]+)+)(?=[:,] )", "".join(re.findall(r"^///.*\n", path.read_text(encoding="utf-8"), re.M)))
faults += [f"{path}: no row {name}" for name in named if name not in rows]
if not rows or not named:
    faults.append(f"{page}: no rows, or no names of them")
if faults:
    raise SystemExit("\n".join(faults))
