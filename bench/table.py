"""Prints the medians of a run: whole messages as multiples of the yardstick, and the building blocks."""
import json
import sys

YARDSTICK = "libgammu"

with open(sys.argv[1], encoding="utf-8") as file:
    rows = json.load(file)["benchmarks"]
medians = {row["run_name"]: row for row in rows if row.get("aggregate_name") == "median"}


def nanoseconds(row):
    return row["cpu_time"]


print("| work | " + YARDSTICK + ", ns | one decoder or encoder, ns | ratio | fresh decoder, ns | ratio |")
print("|---|---|---|---|---|---|")
for work in ("W1", "W2", "W3", "W4", "W5"):
    peer, reused, fresh = (nanoseconds(medians[f"{work}/{name}"]) for name in (YARDSTICK, "reused", "fresh"))
    decodes = work in ("W1", "W2")
    print(f"| {work} | {peer:,.0f} | {reused:,.0f} | {peer / reused:.1f} | "
          + (f"{fresh:,.0f} | {peer / fresh:.1f} |" if decodes else "| |"))

print("\n| building block | ns | ns per character |")
print("|---|---|---|")
for name, row in medians.items():
    if not name.startswith("W"):
        per = row.get("per character")
        print(f"| {name} | {nanoseconds(row):,.1f} | " + (f"{per * 1e9:.2f} |" if per else "|"))
