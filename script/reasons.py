"""The data files that say of single places in the code why no test runs or notices them.

Each paragraph names a place by its file and function, quotes the code, and gives the reason:

    src/pdu/Septets.cpp  GroupsWithin
        if (offset > limit - c_groupReach)
        # a group that ends with the array goes septet by septet, with the same result

So an entry stays right when lines move, comments change or the code next to it does.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LITERAL = re.compile(r'"(?:[^"\\]|\\.)*"')
COMMENT = re.compile(r"//.*")
ATTRIBUTE = re.compile(r"^\[\[[^\]]*\]\] ")
NO_NAME = re.compile(r"(namespace|using|template|public|private|protected)\b")


def blanked(match):
    return " " * len(match.group())


def without_literals(line):
    """The line with comments and string literals blanked out, so that places in it stay places in the line."""
    return COMMENT.sub(blanked, LITERAL.sub(blanked, line))


def code_of(line):
    """The line without indentation and comment."""
    comment = COMMENT.search(LITERAL.sub(blanked, line))
    return line[:comment.start() if comment else None].strip()


def functions_of(lines):
    """For each line the function, class or table that it belongs to: the last name that begins a line of its own."""
    name = "-"
    for line in lines:
        line = ATTRIBUTE.sub("", line)
        if re.match(r"[A-Za-z_]", line) and not NO_NAME.match(line):
            declared = re.split(r"[({;\[]| =\s| =$| : ", line)[0].split()
            name = declared[-1].lstrip("*&") if declared else name
        yield name


def read(path):
    """The reason for each (file, function, code, …) of a data file."""
    reasons = {}
    for paragraph in (ROOT / path).read_text(encoding="utf-8").split("\n\n"):
        lines = [line.strip() for line in paragraph.splitlines() if not line.startswith("#")]
        if not lines:
            continue
        place, *code, reason = lines if len(lines) > 2 else ("", "", "")
        if not reason.startswith("# ") or len(place.split()) != 2:
            sys.exit(f"{path}: FILE FUNCTION, the code and its reason are expected:\n{paragraph}")
        reasons[(*place.split(), *code)] = reason[2:]
    return reasons


def written(file, function, *code):
    """A place as the data files hold it, but for the reason."""
    return "\n    ".join((f"{file}  {function}", *code))
