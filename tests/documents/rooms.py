"""Holds the sources to the rooms of docs/architecture.md: each room includes from itself and from what its row names.

usage: rooms.py SOURCE-TREE

The rows are those whose first cell is a folder; its subfolders belong to it unless they have rows of their own.
"""
import pathlib
import re
import sys

source = pathlib.Path(sys.argv[1])
page = source / "docs/architecture.md"
# Whatever stands below these belongs to a room.
HOUSE = ["include", "src", "toolkit", "wire", "messages", "show", "sql", "tools", "web"]
# Where an include is looked for after the folder of the file itself; what is nowhere there, the build makes.
ROOTS = ["include", "src", "messages", "tools/qxpdu", "."]


def rooms_of(text):
    """The folders that each room may include from."""
    rows = re.findall(r"^\| `([\w/]+)` \|.*\|([^|]*)\|$", text, re.MULTILINE)
    return {room: {room, *re.findall(r"`([\w/]+)`", uses)} for room, uses in rows}


def room_of(file, rooms):
    return max((room for room in rooms if file.startswith(room + "/")), key=len, default=None)


def included(file, name, files):
    here = file.rpartition("/")[0]
    candidates = [f"{here}/{name}", *(name if root == "." else f"{root}/{name}" for root in ROOTS)]
    return next((path for path in candidates if path in files), None)


def faults_of(files, rooms):
    """What is wrong, given the text of each file."""
    faults = [f"{room}: a room without sources" for room in rooms if not any(room_of(file, rooms) == room for file in files)]
    for file, text in sorted(files.items()):
        room = room_of(file, rooms)
        if room is None:
            faults.append(f"{file}: in no room")
            continue
        for name in re.findall(r'^\s*#\s*include\s+"([^"]+)"', text, re.MULTILINE):
            path = included(file, name, files)
            if path is None and not name.endswith(".inc"):
                faults.append(f"{file}: {name} is nowhere")
            elif path is not None and room_of(path, rooms) not in rooms[room]:
                faults.append(f"{file}: {name} is in {room_of(path, rooms)}, which {room} may not use")
    return faults


def check_itself():
    """One fault of each kind is noticed, and what is allowed is not."""
    rooms = rooms_of("| room | what | uses |\n|---|---|---|\n| `show` | all | |\n| `tools/qxpdu/log` | logs | `show` |\n")
    good = {"show/A.h": "", "show/B.cpp": '#include "A.h"\n', "tools/qxpdu/log/C.h": '#include "show/A.h"\n#include "rows.inc"\n'}
    assert rooms == {"show": {"show"}, "tools/qxpdu/log": {"tools/qxpdu/log", "show"}}
    assert faults_of(good, rooms) == []
    assert len(faults_of(good | {"show/D.h": '#include "log/C.h"\n'}, rooms)) == 1
    assert len(faults_of(good | {"show/D.h": '  # include "missing.h"\n'}, rooms)) == 1
    assert len(faults_of(good | {"tools/qxpdu/Loose.cpp": ""}, rooms)) == 1
    assert len(faults_of({"show/A.h": ""}, rooms)) == 1


check_itself()
tree = {str(path.relative_to(source)): path.read_text(encoding="utf-8")
        for top in HOUSE for path in (source / top).rglob("*") if path.suffix in (".h", ".cpp")}
faults = faults_of(tree, rooms_of(page.read_text(encoding="utf-8")))
if faults:
    raise SystemExit("\n".join(faults))
