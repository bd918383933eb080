"""Builds one of the README's host programs in one of the ways that the README shows, runs it and compares what it prints.

usage: host.py WAY SOURCE-TREE PREFIX COMPILER STANDARD WORK-FOLDER
WAY is package, subdirectory, fetched, cloned or pkg-config; fetched takes the tree as it is in place of the repository, and
cloned takes PREFIX for the repository. messages-package and messages-pkg-config build the second program, that of
libQX_Messages, which needs no other library.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

way, source, prefix, compiler, standard, work = sys.argv[1:]
source, prefix, work = pathlib.Path(source), pathlib.Path(prefix), pathlib.Path(work)
sys.path.append(str(source / "tests/documents"))
from blocks import WAYS, blocks_of, programs_of  # noqa: E402

README = source / "README.md"
# Here the README's lines must do by themselves.
USUAL = (pathlib.Path("/usr"), pathlib.Path("/usr/local"))
environment = {**os.environ, "LC_ALL": "C.UTF-8", "CMAKE_BUILD_PARALLEL_LEVEL": str(os.cpu_count())}
environment.pop("CMAKE_GENERATOR", None)  # what CMake takes by itself must do


def run(*command):
    done = subprocess.run(command, cwd=work, env=environment, text=True, encoding="utf-8", timeout=900,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if done.returncode != 0:
        raise SystemExit(f"{' '.join(map(str, command))}\n{done.stdout}")
    return done.stdout


def build_by_cmake(lists):
    (work / "CMakeLists.txt").write_text(lists)
    if way == "subdirectory":
        (work / "libQX_Encoding").symlink_to(source)
    where = {"package": [] if prefix in USUAL else [f"-DCMAKE_PREFIX_PATH={prefix}"],
             "messages-package": [] if prefix in USUAL else [f"-DCMAKE_PREFIX_PATH={prefix}"],
             "subdirectory": [],
             "cloned": [f"-DQX_REPOSITORY={prefix}"],
             "fetched": ["-DQX_REPOSITORY=unused", f"-DFETCHCONTENT_SOURCE_DIR_QX_ENCODING={source}"]}[way]
    run("cmake", "-S", ".", "-B", "build", f"-DCMAKE_CXX_COMPILER={compiler}", f"-DCMAKE_CXX_STANDARD={standard}", *where)
    run("cmake", "--build", "build")
    if not way.endswith("package"):  # what a host takes in as sources adds nothing to what the host installs
        run("cmake", "--install", "build", "--prefix", "installed")
        if (work / "installed").exists():
            raise SystemExit("the host's installation holds files of the library")
    return work / "build/host"


def build_by_pkg_config(line):
    written = {"20": "c++20", "23": "c++2b"}.get(standard, f"c++{standard}")
    with tempfile.TemporaryDirectory() as folder:
        if prefix not in USUAL:
            installed = pathlib.Path(folder) / "installed"  # the shell would cut what pkg-config says at a blank
            installed.symlink_to(prefix)
            environment["PKG_CONFIG_PATH"] = str(installed / "lib/pkgconfig")
            environment["LD_LIBRARY_PATH"] = str(prefix / "lib")
        run("bash", "-ec", line.replace("g++ ", f"{compiler} ").replace("c++17", written))
    return work / "host"


shutil.rmtree(work, ignore_errors=True)
work.mkdir(parents=True)
encoding, messages = list(programs_of(README))[:2]
program, output = messages if way.startswith("messages") else encoding
(work / "host.cpp").write_text(program.text, encoding="utf-8")
language = "sh" if way.endswith("pkg-config") else "cmake"
(shown,) = [block.text for block in blocks_of(README) if block.language == language and WAYS[way] in block.text]
host = build_by_pkg_config(shown) if language == "sh" else build_by_cmake(shown)
printed = run(host)
if printed != output.text:
    raise SystemExit(f"prints\n{printed}instead of\n{output.text}")
