"""The rules by which script/slips finds places for slips: each takes a line and tells what it may become.

A rule may look at the lines that follow; one that changes them as well tells how many lines its result stands for.

A rule sees the code of a line, with comments and string literals blanked out, so that places in it are places in the line.
"""

import re

import reasons

NUMBER = re.compile(r"(?<![\w.'])(0x[0-9A-Fa-f]+|\d+)(?=(?:[uUlL]*)(?![\w.'\"]))")
SWAPS = [
    (r" <= ", " < "), (r" < ", " <= "), (r" >= ", " > "), (r" > ", " >= "), (r" == ", " != "), (r" != ", " == "),
    (r" \+ ", " - "), (r" - ", " + "), (r" \* (?!const)", " + "), (r" / ", " * "), (r" % ", " / "),
    (r" << (?!\")", " >> "), (r" >> ", " << "), (r" \| ", " & "), (r" & ", " | "), (r" && ", " || "), (r" \|\| ", " && "),
    (r" \+= ", " = "), (r" -= ", " = "), (r" \|= ", " = "), (r"\+\+", "--"), (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
    (r"(?<=[( ])!(?=[\w(])", ""), (r" (?:[+-]) [\w:]+(?=[;,)\]])", ""), (r" % [\w:]+(?=[;,)\]])", ""),
    (r">> 4\b", "& 0x0F"), (r"& 0x0F\b", ">> 4"), (r"\bHigh(?=Octet)", "Low"), (r"\bLow(?=Octet)", "High"),
    (r"\bstd::min\b", "std::max"), (r"\bcontinue;", "break;"), (r"\bbreak;", ";"), (r"\bnotify_all\b", "notify_one"),
]
STATEMENT = re.compile(r"^\s+(?!return\b|const\b|case\b|else\b|using\b|constexpr\b|auto\b|static\b|unsigned\b|int\b|"
                       r"if\b|for\b|switch\b|TString|Toolkit::smart_ptr|std::\w+ )(?:[\w*]|\+\+|--).*;$")
# An object that is there for what its constructor and its destructor do.
LOCK = re.compile(r"^\s+(?!return\b|void\b)(?:const )?[\w:]+(?:<.*>)? \w*(?:lock|guard|share)\w*\b.*;$", re.IGNORECASE)
IF = re.compile(r"\bif (?:constexpr )?\(")
LEAVES = re.compile(r"\s*(?:return|throw|continue|break)\b")
JOINT = re.compile(r" (?:&&|\|\|) ")
LIST = re.compile(r"(?:\bstd::(?:make_tuple|make_pair|tuple|pair)\(|\{)([A-Za-z_*&][^{}()0-9]*(?:, [A-Za-z_*&][^{}()0-9]*)+)[)}]")
TIE = re.compile(r"\bstd::tie\(([^()]*)\)")
ROW = re.compile(r"^\s*(?:\{.*\},?|case .*: .*;)$")


def number(line, code, _):
    numbers = list(NUMBER.finditer(code))
    is_row = len(numbers) > 4  # of a table: one slip a number
    for match in numbers:
        text = match.group(1)
        value = int(text, 0)
        for other in ([value + 1] if value == 0 or is_row else [value - 1, value + 1]):
            after = f"0x{other:0{len(text) - 2}X}" if text.startswith("0x") else str(other)
            yield line[:match.start(1)] + after + line[match.end(1):]


def swap(line, code, _):
    for pattern, replacement in SWAPS:
        for match in re.finditer(pattern, code):
            yield line[:match.start()] + replacement + line[match.end():]


def statement(_, code, __):
    if STATEMENT.match(code) and code.count("(") == code.count(")") and not code.endswith("= delete;"):
        yield ""


def lock(_, code, __):
    if LOCK.match(code) and code.count("(") == code.count(")"):
        yield ""


def guard(line, code, following):
    """What leaves a function or a loop early does not."""
    match = IF.search(code)
    if match and LEAVES.match(following[0]):
        end = closing(code, match.end())
        if end is not None:
            start = max(match.end(), code.rfind("; ", match.end(), end) + 2)
            yield line[:start] + "false" + line[end:]


def key(line, code, _):
    """A part of a condition or of a key is left out."""
    for match in JOINT.finditer(code):
        yield line[:match.start()] + line[operand_end(code, match.end()):]
        yield line[:operand_start(code, match.start())] + line[match.end():]
    for match in LIST.finditer(code):
        for start, end in parts_of(code, *match.span(1)):
            yield line[:start] + line[end:]


def tie(line, code, following):
    """A member is left out of both keys that are compared, wherever the lines are broken."""
    if "std::tie" not in code:
        return
    lines = [line, *following]
    whole = "\n".join(lines)
    ties = [parts_of(whole, *match.span(1)) for match in TIE.finditer("\n".join(map(reasons.without_literals, lines)))]
    if len(ties) >= 2 and len(ties[0]) == len(ties[1]):
        for (start, end), (other_start, other_end) in zip(*ties[:2]):
            yield whole[:start] + whole[end:other_start] + whole[other_end:], len(lines)


def row(_, code, __):
    """A row of a table or a case of a switch is left out."""
    if ROW.match(code) and all(code.count(left) == code.count(right) for left, right in ("{}", "()")) \
            or len(NUMBER.findall(code)) > 4 and code.rstrip().endswith(","):
        yield ""


RULES = {rule.__name__: rule for rule in (number, swap, statement, lock, guard, key, tie, row)}


def parts_of(code, start, end):
    """Where each part of a list lies, with a comma that goes with it."""
    commas = [comma for comma in re.finditer(r",\s+", code) if start <= comma.start() < end]
    starts = [start, *(comma.end() for comma in commas)]
    return [*zip(starts, starts[1:]), (commas[-1].start(), end)] if commas else []


def closing(code, start):
    """Where the bracket that was opened before `start` is closed; None on a later line."""
    depth = 0
    for i in range(start, len(code)):
        depth += (code[i] in "([{") - (code[i] in ")]}")
        if depth < 0:
            return i
    return None


def operand_end(code, start):
    end = closing(code, start)
    end = len(code.rstrip()) if end is None else end
    depth = 0
    for i in range(start, end):
        depth += (code[i] in "([{") - (code[i] in ")]}")
        if depth == 0 and (code[i] in ";," or re.match(r" (?:&&|\|\||\?) ", code[i:])):
            return i
    return end


def operand_start(code, end):
    depth = 0
    for i in range(end - 1, -1, -1):
        depth += (code[i] in ")]}") - (code[i] in "([{")
        if depth < 0 or depth == 0 and code[i] in ";,":
            return i + 1 + (code[i] in ";,")
        before = re.match(r" (?:&&|\|\||=|\?|:) |\breturn ", code[i:]) if depth == 0 else None
        if before:
            return i + before.end()
    return len(code) - len(code.lstrip())


def slips_of(line, following, rules):
    """What the line may become, and how many lines that stands for."""
    code = reasons.without_literals(line).rstrip()
    if not code.strip() or code.lstrip().startswith(("#", "static_assert", "namespace", "using ", "template", "extern ")):
        return
    for name in rules:
        for after in RULES[name](line, code, following):
            yield after if isinstance(after, tuple) else (after, 1)
