"""Makes tables and plots of a run: report.py WORKS BLOCKS THREADS MEMORY [PAGE].

WORKS and BLOCKS are what the benchmark program wrote of these, THREADS the same with a second thread, MEMORY the table of
the other program. The tables go to standard output;
with PAGE, a page of docs/, they are put there as well, between <!-- NAME --> and <!-- end NAME -->, and the plots beside
it in plots/.
"""
import json
import pathlib
import re
import subprocess
import sys

YARDSTICK = "libgammu"
MEANING = {
    "W1": "decode an SMS-DELIVER of 160 septets", "W2": "decode an SMS-DELIVER of 70 UCS2 characters",
    "W3": "encode 160 GSM characters", "W4": "encode 1,000 GSM characters into 7 parts", "W5": "encode 70 UCS2 characters"}
FORMS = {"wide": "octets, wide", "octets": "octets, UTF-8", "hexadecimal": "hexadecimal, UTF-8"}
PLOTS = {
    "EncodingByTextLength": ("length", "encoding by the length of the text", "characters"),
    "EncodingBySelectedTables": ("tables", "encoding a Greek text by the number of selected tables", "tables"),
    "DecodingByHeaderElements": ("elements", "decoding by the number of header elements", "elements"),
}


class Figures:
    def __init__(self, path):
        run = json.loads(pathlib.Path(path).read_text())
        self.context = run["context"]
        self.medians = {row["run_name"]: row for row in run["benchmarks"] if row.get("aggregate_name") == "median"}

    def nanoseconds(self, name):
        return self.medians[name]["cpu_time"]

    def series(self, name):
        """(argument, nanoseconds) of a benchmark that has arguments."""
        found = [(int(key.split("/")[1]), self.nanoseconds(key)) for key in self.medians if key.startswith(name + "/")]
        return sorted(found)


def works(figures):
    yield (f"| work | PDUs and texts as | {YARDSTICK}, ns | libQX_Encoding, ns | ratio | fresh decoder, ns | ratio | "
           "libQX_Messages, ns | ratio |")
    yield "|---|---|---|---|---|---|---|---|---|"
    for work, meaning in MEANING.items():
        for form, names in FORMS.items():
            peer, ours = (figures.nanoseconds(f"{work}/{form}/{who}") for who in (YARDSTICK, "reused"))
            row = f"| {work}: {meaning} | {names} | {peer:,.0f} | {ours:,.0f} | {peer / ours:.1f} |"
            for who in ("fresh", "Messages"):
                if f"{work}/{form}/{who}" in figures.medians:
                    other = figures.nanoseconds(f"{work}/{form}/{who}")
                    row += f" {other:,.0f} | {peer / other:.1f} |"
                else:
                    row += " | |"
            yield row


def reading(figures):
    yield "| an SMS-DELIVER of | told what it is, ns | what it is found out, ns | a new `Reading` each time, ns |"
    yield "|---|---|---|---|"
    for name, meaning in (("septets", "160 septets"), ("UCS2", "70 UCS2 characters"),
                          ("Turkish", "146 septets in Turkish, part 2 of 3")):
        yield "| " + " | ".join([meaning] + [f"{figures.nanoseconds(f'Reading/{name}/{way}'):,.0f}"
                                             for way in ("told", "guessed", "anew")]) + " |"


def septets(figures):
    yield "| 160 septets | unpacking, ns | packing, ns |"
    yield "|---|---|---|"
    for way in ("bit deposit", "portable", "one by one", "libosmocore"):
        if f"Unpacking/{way}" in figures.medians:
            yield f"| {way} | {figures.nanoseconds(f'Unpacking/{way}'):.1f} | {figures.nanoseconds(f'Packing/{way}'):.1f} |"


def conversions(figures):
    yield "| 160 characters | ns | ns a character |"
    yield "|---|---|---|"
    for name, row in figures.medians.items():
        if "per character" in row:
            yield f"| {name} | {row['cpu_time']:.1f} | {row['per character'] * 1e9:.2f} |"


def objects(figures):
    yield "| made and destroyed | ns |"
    yield "|---|---|"
    for name in ("MakingADecoder", "MakingAnEncoder", "MakingACharacterSet", "ShareTakenAndReleased", "MutexTakenAndReleased"):
        yield f"| {name} | {figures.nanoseconds(name):.1f} |"


def threads(figures):
    yield "| messages a second | 1 thread | 2 threads | ratio |"
    yield "|---|---|---|---|"
    for name in ("DecodingOnThreads", "EncodingOnThreads"):
        one, two = (figures.medians[f"{name}/real_time/threads:{count}"]["items_per_second"] for count in (1, 2))
        yield f"| {name} | {one:,.0f} | {two:,.0f} | {two / one:.2f} |"


def threaded_works(figures, threaded):
    yield "| work | ns | ns in a process of two threads |"
    yield "|---|---|---|"
    for work in MEANING:
        yield f"| {work} | {figures.nanoseconds(f'{work}/wide/reused'):,.0f} | {threaded.nanoseconds(f'{work}/wide/reused'):,.0f} |"


def machine(figures):
    model = re.search(r"Model name:\s*(.*)", subprocess.run(["lscpu"], capture_output=True, text=True, check=True).stdout)
    compiler = subprocess.run(["c++", "--version"], capture_output=True, text=True, check=True).stdout.splitlines()[0]
    context = figures.context
    yield f"{model[1] if model else 'a processor'}, {context['num_cpus']} cores at {context['mhz_per_cpu'] / 1000:.1f} GHz; {compiler}, release mode."


def plot(points, title, unit):
    """A line through points, readable on light and on dark ground."""
    width, height, left, top, bottom = 640, 320, 72, 40, 44
    most_x, most_y = (max(axis) for axis in zip(*points))
    place = lambda x, y: (left + x / most_x * (width - left - 24), height - bottom - y / most_y * (height - top - bottom))
    line = " ".join(f"{x:.1f},{y:.1f}" for x, y in (place(*point) for point in points))
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" font-family="sans-serif" font-size="13">',
             "<style>text{fill:#333}.axis{stroke:#888}.line{stroke:#06c}.dot{fill:#06c}"
             "@media(prefers-color-scheme:dark){text{fill:#ddd}.axis{stroke:#888}.line{stroke:#6bf}.dot{fill:#6bf}}</style>",
             f'<text x="{left}" y="22">{title}: microseconds by {unit}</text>']
    for share in (0, 0.25, 0.5, 0.75, 1):
        x, y = place(most_x * share, most_y * share)
        parts.append(f'<line class="axis" x1="{left}" x2="{width - 24}" y1="{y:.1f}" y2="{y:.1f}" stroke-opacity=".3"/>')
        parts.append(f'<text x="{left - 8}" y="{y + 4:.1f}" text-anchor="end">{most_y * share / 1000:.3g}</text>')
        parts.append(f'<text x="{x:.1f}" y="{height - bottom + 20}" text-anchor="middle">{most_x * share:,.0f}</text>')
    parts.append(f'<polyline class="line" fill="none" stroke-width="2" points="{line}"/>')
    parts += [f'<circle class="dot" r="3.5" cx="{x:.1f}" cy="{y:.1f}"/>' for x, y in (place(*point) for point in points)]
    return "\n".join(parts + ["</svg>", ""])


def growth(figures):
    yield "| cost a unit, ns | from | to | first | last |"
    yield "|---|---|---|---|---|"
    for name, (_, title, unit) in PLOTS.items():
        points = figures.series(name)
        slope = lambda a, b: (b[1] - a[1]) / (b[0] - a[0])
        middle = len(points) // 2
        yield (f"| {title} | {points[0][0]:,} | {points[-1][0]:,} {unit} | {slope(points[0], points[middle]):.2f} | "
               f"{slope(points[middle], points[-1]):.2f} |")


def put(page, tables):
    """Puts tables in their places in a page."""
    text = page.read_text()
    for name, table in tables.items():
        text, found = re.subn(rf"(<!-- {name} -->\n).*?(<!-- end {name} -->)", lambda m: f"{m[1]}\n{table}\n\n{m[2]}", text, flags=re.S)
        if found != 1:
            sys.exit(f"{page}: no place for {name}")
    page.write_text(text)


def main():
    messages, blocks, threaded = map(Figures, sys.argv[1:4])
    tables = {make.__name__: make(blocks) for make in (machine, reading, septets, conversions, objects, growth)}
    tables |= {"works": works(messages), "threads": threads(threaded), "threaded": threaded_works(messages, threaded)}
    tables = {name: "\n".join(lines) for name, lines in tables.items()}
    tables["memory"] = pathlib.Path(sys.argv[4]).read_text().strip()
    for name, table in tables.items():
        print(f"{name}\n\n{table}\n")
    if len(sys.argv) > 5:
        page = pathlib.Path(sys.argv[5])
        put(page, tables)
        for name, (file, title, unit) in PLOTS.items():
            (page.parent / "plots" / f"{file}.svg").write_text(plot(blocks.series(name), title, unit))


if __name__ == "__main__":
    main()
