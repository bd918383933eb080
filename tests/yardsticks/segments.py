"""Holds qxpdu count beside the npm package sms-segments-calculator: segments.py QXPDU FOLDER TEXTS [SEED]

Random texts, without languages, go to both. Alphabet, units, the text of each part and the room of the last have to be the same,
but for what DIFFERENCES names. FOLDER is where the package is installed.
"""
import collections
import json
import os
import random
import subprocess
import sys

QXPDU, FOLDER, COUNT = sys.argv[1], sys.argv[2], int(sys.argv[3])
SEED = int(sys.argv[4]) if len(sys.argv) > 4 else random.SystemRandom().randrange(2**32)

DIFFERENCES = {
    "grapheme": "a part ends before characters that are shown as one: the package keeps them together, by the standards only pairs are",
}

PLAIN = "@£$¥èéùìòØøÅåΔ_ΦΓΛΩΠΨΣΘΞÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüàÇ"
EXTENSION = "^{}\\[~]|€"
OTHERS = "çáşжα’“”—…中한あ😀🎉"
TOGETHER = ["e\u0301", "👍🏽", "👩\u200d💻", "🇩🇪", "न\u093f", "\u1100\u1161"]

source = random.Random(SEED)


def text():
    most = source.choice([20, 70, 160, 170, 320, 700])
    characters = [PLAIN, EXTENSION] + ([OTHERS, TOGETHER] if source.random() < 0.4 else [])
    if source.random() < 0.1:
        characters = [OTHERS]
    return "".join(source.choice(source.choice([PLAIN] * source.randrange(8) + characters)) for _ in range(source.randrange(1, most)))


def lines_of(command, lines):
    run = subprocess.run(command, input="".join(line + "\n" for line in lines), text=True, encoding="utf-8", stdout=subprocess.PIPE,
                         check=True)
    return [json.loads(line) for line in run.stdout.split("\n") if line]


def parts_of(whole, item):
    begins = [1] + [one["position"] for one in item.get("breaks", [])] + [len(whole) + 1]
    return [whole[begin - 1:end - 1] for begin, end in zip(begins, begins[1:])]


def ends_inside_grapheme(whole, mine, theirs):
    """Whether the first part that is not the same ends inside characters that belong together."""
    same = next((i for i, (one, other) in enumerate(zip(mine, theirs)) if one != other), None)
    if same is None:
        return False
    end = sum(map(len, mine[:same + 1]))
    return any(whole.startswith(one, end - before) for one in TOGETHER for before in range(1, len(one)))


def main():
    print(f"seed {SEED}")
    texts = [text() for _ in range(COUNT)]
    ours = lines_of([QXPDU, "count", "--lines", "--jsonl"], texts)
    theirs = lines_of(["node", os.path.join(os.path.dirname(__file__), "segments.js"), os.path.abspath(FOLDER)], map(json.dumps, texts))
    assert len(ours) == len(theirs) == COUNT, f"{len(ours)} and {len(theirs)} of {COUNT} texts"
    named, counted, faults = collections.Counter(), collections.Counter(), []
    for whole, mine, other in zip(texts, ours, theirs):
        counted[mine["alphabet"]] += 1
        read = (mine["alphabet"].removesuffix(" 7-bit").replace("GSM", "GSM-7").replace("UCS2", "UCS-2"),
                mine.get("septets", mine.get("characters")), parts_of(whole, mine), mine["room"])
        if read == (other["alphabet"], other["units"], other["parts"], other["room"]):
            continue
        if read[:2] == (other["alphabet"], other["units"]) and ends_inside_grapheme(whole, read[2], other["parts"]):
            named["grapheme"] += 1
        else:
            faults.append(f"{whole!r}: {read}, the package {other}")
    print(", ".join(f"{count} in {alphabet}" for alphabet, count in sorted(counted.items())))
    for difference, why in DIFFERENCES.items():
        print(f"{named[difference]} times {why}")
    print("\n".join(faults[:5]))
    sys.exit(f"{len(faults)} differences without a name" if faults else 0)


main()
