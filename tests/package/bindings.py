"""Builds a program of docs/bindings.md with the commands that stand there, beside an installation, and compares what it prints.

usage: bindings.py LANGUAGE COMPILER SOURCE-TREE PREFIX WORK-FOLDER
Without the compiler nothing can be said: the exit status is 77, but 1 where the checks run.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

language, compiler, source, prefix, work = sys.argv[1:]
sys.path.append(str(pathlib.Path(source, "tests/documents")))
from blocks import blocks_of  # noqa: E402

SUFFIX = {"c": "c", "rust": "rs", "go": "go"}
BESIDE = {"rust": ["bindgen"]}
DEBIANS = "/usr/bin"  # not one that was built or fetched otherwise, and may be newer


def run(command, **environment):
    done = subprocess.run(["bash", "-ec", command], cwd=work, env={**os.environ, "PATH": f"{DEBIANS}:{os.environ['PATH']}", **environment},
                          text=True, encoding="utf-8", timeout=300, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if done.returncode != 0:
        raise SystemExit(f"{command}\n{done.stdout}")
    return done.stdout


for needed in (compiler, *BESIDE.get(language, ())):
    if not pathlib.Path(DEBIANS, needed).exists():
        print(f"no {needed} here: script/bootstrap bindings")
        sys.exit(1 if os.environ.get("CI") == "true" else 77)
shutil.rmtree(work, ignore_errors=True)
os.makedirs(work)
blocks = blocks_of(pathlib.Path(source, "docs/bindings.md"))
(at,) = [number for number, block in enumerate(blocks) if block.language == language]
program, printed, commands = blocks[at:at + 3]
if (printed.language, commands.language) != ("text", "sh"):
    raise SystemExit(f"docs/bindings.md:{program.line}: what it prints and how it is built do not follow")
pathlib.Path(work, f"read.{SUFFIX[language]}").write_text(program.text, encoding="utf-8")
with tempfile.TemporaryDirectory() as folder:  # the shell would cut what pkg-config says at a blank
    installed = pathlib.Path(folder, "installed")
    installed.symlink_to(prefix)
    places = {"PKG_CONFIG_PATH": f"{installed}/lib/pkgconfig", "GOCACHE": f"{work}/cache", "GOFLAGS": ""}
    said = run(commands.text, **places)
    if language == "rust":
        run(blocks[at + 3].text + "rustc --crate-type lib -A warnings qx.rs", **places)
if said:
    raise SystemExit(f"the compiler says\n{said}")
output = run("./read", LD_LIBRARY_PATH=f"{prefix}/lib")
if output != printed.text:
    raise SystemExit(f"prints\n{output}instead of\n{printed.text}")
