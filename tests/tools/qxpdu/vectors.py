"""Holds what qxpdu shows against the vectors, member by member: vectors.py FOLDER COMMAND..."""
import collections
import glob
import json
import subprocess
import sys

FOLDER, QXPDU = sys.argv[1], sys.argv[2:]

FORMATS = {"gsm": "GSM page", "umts": "UMTS message", "etws": "ETWS primary notification"}
NAMES = {"serial-number": "serial number", "message-identifier": "message identifier", "page-parameter": "page parameter",
         "data-coding-scheme": "data coding scheme", "message-type": "message type", "number-of-pages": "number of pages",
         "page-language": "language", "page-length": "page length", "warning-type": "warning type",
         "warning-time": "warning time", "warning-signature": "signature", "service-centre": "service centre", "unused-bits": "unused bits", "surplus": "surplus", "fill-bits": "fill bits",
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


def expect_page(shown, said, coding, expect):
    expect("page", shown["page"], said["page"])
    expect("octets of the page", shown["octets"], said["octets"])
    header = shown.get("header", {"elements": []})
    expect("elements", len(header["elements"]), len(said.get("elements", [])))
    for element, told in zip(header["elements"], said.get("elements", [])):
        expect_element(element, told, expect)
    expect("ignored", header.get("ignored", False), said.get("ignored", False))
    for key in ("locking", "single"):
        expect(key, f"{key}_shift" in shown, key in said)
    for key in ("language", "padding", "cut"):
        expect(key, shown.get(key), said.get(key))
    # As of messages: where the header leaves no room, there is an empty text.
    is_textless = said.get("data") == "" and "data" not in shown
    expect("text", shown.get("text"), "" if is_textless else said.get("text"))
    expect("data", shown.get("data"), None if is_textless else said.get("data"))


def expect_warning(item, said, expect):
    shown = item["warning_type"]
    expect("warning", (shown["raw"], shown["type"], shown["emergency_alert"], shown["popup"]),
           (said["value"], said["type"], said.get("emergency", False), said.get("popup", False)))
    time, told = item.get("warning_time", {}), said.get("time", {})
    expect("warning time", (time.get("raw"), time.get("time")), (told.get("octets"), told.get("time")))
    expect("signature", item.get("signature", {}).get("raw"), said.get("signature"))


def expect_broadcast(item, said, expect):
    """Of a page, a message or a notification."""
    serial, told = item["serial_number"], said["serial"]
    expect("serial number", (serial["raw"], serial["geographical_scope"]["raw"], serial["message_code"], serial["update_number"]),
           (told["value"], told["scope"], told["code"], told["update"]))
    expect("alert and popup", (serial.get("emergency_alert", False), serial.get("popup", False)),
           (told.get("emergency", False), told.get("popup", False)))
    expect("identifier", item["message_identifier"]["raw"], said["identifier"])
    if "warning" in said:
        expect_warning(item, said["warning"], expect)
        return
    coding, told = item["data_coding_scheme"], said["coding"]
    expect("data coding scheme", coding["raw"], said["dcs"])
    expect("alphabet", coding.get("alphabet"), ALPHABETS.get(told.get("alphabet")))
    expect("class", coding.get("class"), told.get("class"))
    expect("language of the coding", coding.get("language"), None if told.get("language") == "text" else told.get("language"))
    for key in ("compressed", "header", "reserved"):
        expect(key, coding.get(key, False), told.get(key, False))
    expect("pages", len(item["pages"]), len(said["pages"]))
    total = item["page_parameter"]["pages"] if "page_parameter" in item else int(item["number_of_pages"]["meaning"].split()[0])
    expect("total", total, said["total"])
    for page, told in zip(item["pages"], said["pages"]):
        expect_page(page, told, coding, expect)


def findings_of(item):
    return sorted((remark["octet"], remark["code"], remark["field"]) for remark in item.get("remarks", []))


def told_findings_of(said):
    return sorted((remark["octet"], remark["code"], NAMES.get(remark["field"], remark["field"]))
                  for remark in said["remarks"])


def has_cause(vector):
    """Whether a report has TP-FCS for who reads its octets alone."""
    octets = bytes.fromhex(vector["octets"])[vector["means"].get("tpdu", 0):]
    return "yes" if len(octets) > 1 and octets[1] >= 0x80 else "no"


def options_of(group):
    if len(group) == 1:
        return ["--type", *group] if group[0] else []
    centre, direction = group
    return ([] if centre == "unknown" else ["--smsc", centre]) + ([] if direction == "unknown" else ["--direction", direction])


def objects_of(command, group, vectors):
    lines = "".join(vector["octets"] + "\n" for vector in vectors)
    run = subprocess.run(QXPDU + [*command.split(), "--jsonl"] + options_of(group), input=lines, capture_output=True, text=True,
                         encoding="utf-8", timeout=120)
    return [json.loads(line) for line in run.stdout.splitlines()]


faults = []
groups, pages = collections.defaultdict(list), collections.defaultdict(list)
left = collections.Counter()
for file in sorted(glob.glob(f"{FOLDER}/*.jsonl")):
    with open(file, encoding="utf-8") as lines:
        for vector in map(json.loads, lines):
            if "sent" in vector:
                left["a text to send"] += 1
            elif not vector["octets"]:
                left["no octets: no input"] += 1
            elif "service-centre" not in vector:
                pages[vector.get("format"),].append(vector)
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

compared_pages = 0
for group, vectors in pages.items():
    shown, mapped = objects_of("cell", group, vectors), objects_of("inspect --cell", group, vectors)
    assert len(shown) == len(mapped) == len(vectors), f"{group}: {len(shown)} and {len(mapped)} objects of {len(vectors)}"
    for vector, item, rows in zip(vectors, shown, mapped):
        said, fault = vector["means"], vector["means"].get("fault")

        def expect(what, shown, told):
            if shown != told:
                faults.append(f"{vector['name']}, {vector['octets']}: {what} {shown!r}, {told!r} expected")

        compared_pages += 1
        expect("type of the map", rows["type"], FORMATS[said["format"]])
        expect("remarks of the map", findings_of(rows), told_findings_of(said))
        expect("octets of the map", "".join(row["octets"] for row in rows["map"]), vector["octets"])
        for one in (item, rows):
            expect("fault", one.get("fault"), fault and {**fault, "field": NAMES.get(fault["field"], fault["field"])})
        if not fault:
            expect("type", item["type"], FORMATS[said["format"]])
            expect("remarks", findings_of(item), told_findings_of(said))
            expect_broadcast(item, said, expect)

print(f"{compared} vectors of messages and {compared_pages} of cell broadcast compared;", "; ".join(f"{count} not: {why}" for why, count in sorted(left.items())))
print("\n".join(faults[:20]))
assert not faults, f"{len(faults)} members differ"
assert compared >= 1150 and compared_pages >= 500, "fewer vectors than there are"
