"""Compiles or runs every fenced block of a document.

usage: check.py DOCUMENT SOURCE-TREE QXPDU COMPILER LIBRARY-FOLDER…
"""
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile

from blocks import WAYS, blocks_of, programs_of

document, source, qxpdu, compiler, *libraries = sys.argv[1:]
source = pathlib.Path(source)
# A block of C++ that is no whole program stands inside a function, below the includes that it names itself.
every_header = "".join(f'#include "{path.relative_to(source / "include")}"\n' for path in sorted((source / "include").rglob("*.h")))


def run(command, **options):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=300, **options)
    return done.returncode, done.stdout


def check(good, block, complaint):
    if not good:
        raise SystemExit(f"{document}:{block.line}: {complaint}")


def compile_cpp(block, folder):
    text = block.text
    if "int main(" not in text:
        includes = "".join(re.findall(r"^#include .*\n", text, re.MULTILINE))
        rest = re.sub(r"^#include .*\n", "", text, flags=re.MULTILINE)
        text = f"{includes}{every_header}#include <iostream>\nvoid Fragment();\nvoid Fragment() {{\n{rest}}}\nint main() {{}}\n"
    (folder / "block.cpp").write_text(text, encoding="utf-8")
    paths = [option for library in libraries for option in (f"-L{library}", f"-Wl,-rpath,{library}")]
    status, output = run([compiler, "-std=c++17", "-Wall", "-Wextra", "-Werror", "-Wno-unused-variable", f"-I{source}/include",
                          "block.cpp", *paths, "-lQX_Encoding", "-lQX_Toolkit", "-lQX_Messages", "-pthread", "-o", "block"], cwd=folder)
    check(status == 0, block, f"does not compile:\n{output}")


def compile_c(block, folder):
    (folder / "block.c").write_text(block.text, encoding="utf-8")
    where = libraries[-1]
    status, output = run(["cc", "-std=c99", "-pedantic", "-Wall", "-Wextra", "-Werror", f"-I{source}/include", "block.c", f"-L{where}",
                          f"-Wl,-rpath,{where}", "-lQX_Messages", "-o", "block"], cwd=folder)
    check(status == 0, block, f"does not compile:\n{output}")


def check_program(block, shown, folder):
    compilers[block.language](block, folder)
    status, output = run([folder / "block"])
    check(status == 0, block, f"exit status {status}, prints\n{output}")
    check(shown is None or output == shown.text, block, f"prints\n{output}")


def shown_commands(block):
    """Pairs of a command, which may go on over lines that end in a backslash, and the output shown below it."""
    pairs = []
    for line in block.text.splitlines(keepends=True):
        if pairs and pairs[-1][0].endswith("\\\n") and not pairs[-1][1]:
            pairs[-1][0] += line
        elif line.startswith("$ "):
            pairs.append([line[2:], ""])
        else:
            check(pairs, block, "output without a command")
            pairs[-1][1] += line
    return pairs


def workplace(folder):
    """A folder that looks like the clone, in which script/qxpdu and qxpdu are the tool under test."""
    (folder / "script").mkdir()
    for path in source.iterdir():
        if path.name not in ("script", "build", ".git"):
            (folder / path.name).symlink_to(path)
    (folder / "script/qxpdu").symlink_to(qxpdu)
    return {**os.environ, "PATH": f"{pathlib.Path(qxpdu).parent}:{os.environ['PATH']}", "LC_ALL": "C.UTF-8",
            "LD_LIBRARY_PATH": ":".join(libraries)}


def check_console(block, folder):
    environment = workplace(folder)
    for command, expected in shown_commands(block):
        _, output = run(["bash", "-c", command], cwd=folder, env=environment, stdin=subprocess.DEVNULL)
        check(output == expected, block, f"$ {command}prints\n{output}")


def check_sh(block, folder):
    status, output = run(["bash", "-n", "-c", block.text])
    check(status == 0, block, output)
    for script in re.findall(r"\b(?:script|bench)/[\w.]+", block.text):
        check((source / script).is_file(), block, f"no {script}")
    if re.match(r"(script/)?qxpdu \w", block.text):
        status, output = run(["bash", "-ec", block.text], cwd=folder, env=workplace(folder), stdin=subprocess.DEVNULL)
        check(status == 0, block, f"exit status {status}, prints\n{output}")


def check_cmake(block, _):
    check(pathlib.Path(document).name == "README.md" and any(mark in block.text for mark in WAYS.values()), block,
          "only the README's ways to the library are built, by tests/package")


def check_binding(block, _):
    check(pathlib.Path(document).name == "bindings.md", block, "only the programs of docs/bindings.md are built, by tests/package")


def check_text(block, _):
    check(False, block, "what is shown here is held to nothing: no program stands right before it")


def check_pycon(block, _):
    check(pathlib.Path(document).name == "python.md", block, "only docs/python.md is run in Python, by tests/python")


compilers = {"cpp": compile_cpp, "c": compile_c}
checks = {**compilers, "console": check_console, "sh": check_sh, "cmake": check_cmake, "rust": check_binding, "go": check_binding,
          "json": lambda block, _: json.loads(block.text), "text": check_text,
          "pycon": check_pycon}

programs = dict(programs_of(document))
for block in blocks_of(document):
    if block in programs.values():
        continue  # compared with what its program prints
    with tempfile.TemporaryDirectory() as name:
        if block in programs and block.language in compilers:
            check_program(block, programs[block], pathlib.Path(name))
        else:
            check(block.language in checks, block, f"language '{block.language}': CONTRIBUTING.md names those that are checked")
            checks[block.language](block, pathlib.Path(name))
