"""Holds the libraries beside those of another commit: beside.py COMMIT [PAGE].

The same program runs with either in turn, round after round, so that what the machine does besides falls on both: medians of
its processor time. Instructions are those of the whole process, by callgrind; what they are inside the libraries stands in
instructions.json. The tables go to standard output, and into PAGE where it is given, as report.py does it.
"""
import json
import os
import pathlib
import re
import statistics
import subprocess
import sys

import report

ROOT = pathlib.Path(__file__).resolve().parent.parent
NOW = ROOT / "build/bench"
OTHER = ROOT / "build/beside"
PROGRAM = NOW / "bench/qx_bench"
COUNTED = NOW / "bench/qx_instructions"
ROUNDS = 9
FEW, MANY = 50, 150  # messages; the difference is free of what starting and stopping takes
WORKS = [(work, form) for work in report.MEANING for form in report.FORMS]


def run(*command, **options):
    return subprocess.run(command, check=True, cwd=ROOT, capture_output=True, text=True, **options).stdout


def build(commit):
    """The libraries of the other commit, under whose sources nothing else is built."""
    source = OTHER / "source"
    source.mkdir(parents=True, exist_ok=True)
    archive = subprocess.run(["git", "archive", commit], check=True, cwd=ROOT, capture_output=True).stdout
    subprocess.run(["tar", "-x", "-C", source], check=True, input=archive)
    run("cmake", "-S", source, "-B", OTHER / "build", "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release", "-DQX_BUILD_TOOLS=OFF",
        "-DQX_BUILD_TESTS=OFF")
    run("cmake", "--build", OTHER / "build", "--target", "QX_Encoding", "QX_Toolkit")
    run("cmake", "--build", NOW, "--target", "qx_bench", "qx_instructions")
    libraries = [OTHER / f"build/{path}.so" for path in ("src/libQX_Encoding", "toolkit/libQX_Toolkit")]
    return dict(os.environ, LD_PRELOAD=" ".join(map(str, libraries)))


def nanoseconds(environments):
    """Of each environment a median for each benchmark's name."""
    found = [{} for _ in environments]
    for _ in range(ROUNDS):
        for rows, environment in zip(found, environments):
            figures = json.loads(run(PROGRAM, "--benchmark_filter=W[1-5]/.*/(reused|fresh|Messages)", "--benchmark_min_time=0.05",
                                     "--benchmark_format=json", env=environment))
            for row in figures["benchmarks"]:
                rows.setdefault(row["name"], []).append(row["cpu_time"])
    return [{name: statistics.median(times) for name, times in rows.items()} for rows in found]


def instructions(environment, work, form, library=()):
    def total(messages):
        out = NOW / "callgrind.out"
        run("valgrind", "--tool=callgrind", f"--callgrind-out-file={out}", COUNTED, work, form, str(messages), *library, env=environment)
        return int(re.search(r"^totals: (\d+)", out.read_text(), re.M)[1])
    return (total(MANY) - total(FEW)) / (MANY - FEW)


def outside(counted, *work):
    """What the allocator, the mutexes, copies in memory and the program take of these instructions."""
    recorded = json.loads((ROOT / "bench/instructions.json").read_text())
    return counted - sum(recorded[" ".join(work)].values())


def row(work, form, *figures):
    return "| " + " | ".join([work, report.FORMS.get(form, "octets, wide, fresh decoder"), *figures]) + " |"


def tables(commit):
    """Of libQX_Encoding then and now, and of libQX_Messages beside what libQX_Encoding was then."""
    other = build(commit)
    before, now = nanoseconds([other, os.environ])
    heading = (f"| work | PDUs and texts as | {commit}, ns | now, ns | ratio | {commit}, instructions | now | ratio | of these outside the libraries |\n"
               "|---|---|---|---|---|---|---|---|---|")
    encoding, messages = [heading], [heading.replace("now, ns", "libQX_Messages, ns").replace("| now |", "| libQX_Messages |")]
    for work, form in WORKS + [("W1", "fresh"), ("W2", "fresh")]:
        name = f"{work}/wide/fresh" if form == "fresh" else f"{work}/{form}/reused"
        then = instructions(other, work, form)
        for rows, key, library in ((encoding, name, []), (messages, f"{work}/{form}/Messages", ["messages"])):
            if key in now:
                counted = instructions(os.environ, work, form, library)
                rows.append(row(work, form, f"{before[name]:,.0f}", f"{now[key]:,.0f}", f"{before[name] / now[key]:.2f}", f"{then:,.0f}",
                                f"{counted:,.0f}", f"{then / counted:.2f}", f"{outside(counted, work, form, *library):,.0f}"))
    return {"beside": "\n".join(encoding), "messages": "\n".join(messages)}


def main():
    made = tables(sys.argv[1])
    print("\n\n".join(made.values()))
    if len(sys.argv) > 2:
        report.put(pathlib.Path(sys.argv[2]), made)


main()
