"""Holds what qxpdu shows against the vectors, member by member: vectors.py FOLDER COMMAND..."""
import collections
import glob
import json
import subprocess
import sys

FOLDER, QXPDU = sys.argv[1], sys.argv[2:]

NAMES = {"service-centre": "service centre", "unused-bits": "unused bits", "surplus": "surplus", "fill-bits": "fill bits",
         "header-length": "TP-UDH", "header-element": "TP-UDH", "ignored-header": "TP-UDH"}
ADDRESSES = {"service-centre": "sc_address", "TP-OA": "tp_oa", "TP-DA": "tp_da", "TP-RA": "tp_ra"}
TIMES = {"TP-SCTS": "tp_scts", "TP-DT": "tp_dt"}
NUMBERS = ("TP-MTI TP-MMS TP-LP TP-RD TP-VPF TP-SRI TP-SRR TP-SRQ TP-UDHI TP-RP TP-MR TP-PID TP-DCS TP-ST TP-FCS TP-CT "
           "TP-MN TP-UDL TP-CDL").split()
ALPHABETS = {"gsm7": "GSM 7-bit", "octets": "8-bit data", "ucs2": "UCS2"}
WAITING = {"voicemail": "voice", "fax": "fax", "e-mail": "e-mail", "other": "other"}
# What a vector calls otherwise than the tool does, by element.
ELEMENTS = {
    0x01: {"store": "storage", "profile": "profile", "extended": "extended_kind", "kind": "kind", "count": "message_count"},
    0x04: {"destination": "destination_port", "source": "originator_port"},
    0x05: {"destination": "destination_port", "source": "originator_port"},
    0x0A: {"length": "characters", "alignment": "alignment", "size": "size", "bold": "bold", "italic": "italic",
           "underlined": "underlined", "struck": "strikethrough"},
    0x13: {"count": "objects"},
    0x17: {"count": "objects", "forbidden": "forwarding"},
    0x20: {"length": "characters_of_the_header"},
    0x21: {"title": "characters_of_the_title", "url": "characters_of_the_link"},
}


def key_of(name):
    return name.lower().replace("-", "_")


def value_of(member):
    """The number of a member with or without its meaning."""
    return member["raw"] if isinstance(member, dict) else member


def address_of(said):
    name = said.get("text")
    number = name if name is not None else ("+" if said["ton"] == 1 and said["digits"] else "") + said["digits"]
    return {"number": number, "type_of_number": said["ton"], "numbering_plan": said["npi"]}


def expect_address(shown, said, expect):
    if said["length"] == 0 and "number" not in shown:
        return expect("raw", shown["raw"], "00")
    expect("raw", shown["raw"][4:], said["octets"])
    expect("address", {key: value_of(shown[key]) for key in address_of(said)}, address_of(said))


def expect_coding(shown, said, expect):
    told = {"alphabet": ALPHABETS[said["alphabet"]]}
    told |= {key.replace("-", "_"): True for key in ("compressed", "automatic-deletion", "reserved") if said.get(key)}
    if "class" in said:
        told["class"] = said["class"]
    if "waiting" in said:
        told["waiting"] = {"type": WAITING[said["indication"]], "active": said["sense"] == "active",
                           "stored": said["waiting"] == "store"}
    expect("coding", {key: value for key, value in shown.items() if key not in ("raw", "meaning")}, told)


def expect_validity(shown, said, expect):
    raw = shown["raw"] if isinstance(shown["raw"], str) else f"{shown['raw']:02X}"
    expect("TP-VP", raw, said["octets"])
    for key in ("seconds", "time"):
        expect(f"TP-VP {key}", shown.get(key), said.get(key))
    expect("TP-VP single-shot", shown.get("single_shot", False), said.get("single-shot", False))


def expect_element(shown, said, expect):
    expect("identifier", shown["identifier"], said["iei"])
    expect("data", shown["data"], said["octets"])
    names = ELEMENTS.get(said["iei"], {})
    for key, value in said.items():
        if key in ("iei", "octet", "octets", "control"):
            continue  # the last one is shown bit by bit
        if key == "address":
            expect("reply address", {name: value_of(shown["address"][name]) for name in address_of(value)},
                   address_of(value))
            continue
        member = value_of(shown.get(names.get(key, key)))
        if said["iei"] == 0x01 and key == "profile":
            member += 1
        expect(f"element {said['iei']:02X} {key}", int(member) if member is not None else None, int(value))


def expect_header(item, said, expect):
    expect("elements", len(item["tp_udh"]["elements"]), len(said["elements"]))
    for shown, element in zip(item["tp_udh"]["elements"], said["elements"]):
        expect_element(shown, element, expect)
    expect("ignored", item["tp_udh"].get("ignored", False), said.get("ignored", False))
    if not said.get("ignored"):
        expect("header", item["tp_udh"]["raw"][2:], said["octets"])
    place, ports = item.get("concatenation"), item.get("ports")
    expect("concatenation", place and {**place, "bits": place["reference_bits"]} | {"reference_bits": None},
           said.get("concatenation") and said["concatenation"] | {"reference_bits": None})
    expect("ports", ports and {"destination": ports["destination"], "source": ports["originator"], "bits": ports["bits"]},
           said.get("ports"))
    for key in ("locking", "single"):
        expect(key, f"{key}_shift" in item, key in said)


def expect_fields(item, said, expect):
    for name in NUMBERS:
        shown = item.get(key_of(name))
        expect(name, shown and shown["raw"], said.get(name))
    for name, key in ADDRESSES.items():
        expect(name, key in item, name in said)
        if key in item:
            expect_address(item[key], said[name], expect)
    for name, key in TIMES.items():
        shown = item.get(key, {})
        expect(name, (shown.get("raw"), shown.get("time")), (said.get(name, {}).get("octets"), said.get(name, {}).get("time")))
    if "coding" in said:
        expect_coding(item["tp_dcs"], said["coding"], expect)
    if "TP-VP" in said:
        expect_validity(item["tp_vp"], said["TP-VP"], expect)
    if "header" in said:
        expect_header(item, said["header"], expect)
    indicator = item.get("tp_pi", {}).get("raw")
    expect("TP-PI", f"{indicator:02X}" if isinstance(indicator, int) else indicator, said.get("TP-PI"))
    # Where the header leaves no room, the tool shows an empty text.
    is_textless = said.get("data") == "" and "data" not in item
    expect("text", item.get("text"), "" if is_textless else said.get("text"))
    expect("data", item.get("data"), None if is_textless else said.get("data"))


def findings_of(item):
    return sorted((remark["octet"], remark["code"], remark["field"]) for remark in item.get("remarks", []))


def told_findings_of(said):
    return sorted((remark["octet"], remark["code"], NAMES.get(remark["field"], remark["field"]))
                  for remark in said["remarks"])


def has_cause(vector):
    """Whether a report has TP-FCS for who reads its octets alone."""
    octets = bytes.fromhex(vector["octets"])[vector["means"].get("tpdu", 0):]
    return "yes" if len(octets) > 1 and octets[1] >= 0x80 else "no"


def objects_of(command, group, vectors):
    centre, direction = group
    options = ([] if centre == "unknown" else ["--smsc", centre]) + ([] if direction == "unknown" else ["--direction", direction])
    lines = "".join(vector["octets"] + "\n" for vector in vectors)
    run = subprocess.run(QXPDU + [command, "--jsonl"] + options, input=lines, capture_output=True, text=True,
                         encoding="utf-8", timeout=120)
    return [json.loads(line) for line in run.stdout.splitlines()]


faults = []
groups = collections.defaultdict(list)
left = collections.Counter()
for file in sorted(glob.glob(f"{FOLDER}/*.jsonl")):
    with open(file, encoding="utf-8") as lines:
        for vector in map(json.loads, lines):
            if "sent" in vector:
                left["a text to send"] += 1
            elif "service-centre" not in vector:
                left["a page, which the tool reads by libQX_Encoding"] += 1
            elif not vector["octets"]:
                left["no octets: no input"] += 1
            elif "announced" in vector:
                left["an announced length, which stands in a log"] += 1
            elif vector.get("failure-cause", has_cause(vector)) != has_cause(vector):
                left["TP-FCS told against the octets"] += 1
            else:
                groups[vector["service-centre"], vector["direction"]].append(vector)

compared = 0
for group, vectors in groups.items():
    decoded, mapped = objects_of("decode", group, vectors), objects_of("inspect", group, vectors)
    assert len(decoded) == len(mapped) == len(vectors), f"{group}: {len(decoded)} and {len(mapped)} objects of {len(vectors)}"
    for vector, item, rows in zip(vectors, decoded, mapped):
        said = vector["means"]

        def expect(what, shown, told):
            if shown != told:
                faults.append(f"{vector['name']}, {vector['octets']}: {what} {shown!r}, {told!r} expected")

        if item.get("octets", vector["octets"]) != vector["octets"]:
            left["filling left out, as the tool's warning says"] += 1
            expect("warnings", bool(item.get("warnings")), True)
            continue
        compared += 1
        expect("type", rows.get("type", ""), said.get("type", ""))
        expect("remarks", findings_of(rows), told_findings_of(said))
        expect("octets of the map", "".join(row["octets"] for row in rows["map"]), vector["octets"])
        fault = said.get("fault")
        told_fault = fault and {**fault, "field": NAMES.get(fault["field"], fault["field"])}
        for shown in (item, rows):
            expect("fault", shown.get("fault"), told_fault)
        if not fault:
            expect("remarks of decode", findings_of(item), told_findings_of(said))
            expect_fields(item, said, expect)

print(f"{compared} vectors compared;", "; ".join(f"{count} not: {why}" for why, count in sorted(left.items())))
print("\n".join(faults[:20]))
assert not faults, f"{len(faults)} members differ"
assert compared >= 1150, "fewer vectors than there are"
