"""Holds the reading by the standard, as qxpdu shows it, beside tshark's: standard.py QXPDU MESSAGES [SEED]

Random messages of all six types go to tshark in the carriers of 3GPP TS 24.011: RP-DATA, and reports in RP-ACK or, with TP-FCS,
RP-ERROR. What both read has to be the same, but for what DIFFERENCES names.
"""
import collections
import json
import random
import struct
import subprocess
import sys
import tempfile

QXPDU, COUNT = sys.argv[1], int(sys.argv[2])
SEED = int(sys.argv[3]) if len(sys.argv) > 3 else random.SystemRandom().randrange(2**32)

DIFFERENCES = {
    "national": "a text in the tables of a national language: tshark 4.0 does not know them and reads the default alphabet",
    "enhanced": "an enhanced validity period that is relative: tshark 4.0 takes its octet for TP-UDL as well",
    "coding": "a text whose TP-DCS is left out: tshark 4.0 shows none; by TS 23.040 it is in the default alphabet",
    "zone sign": "the sign of a zone: tshark 4.0 has it in no field",
}

CENTRE = bytes.fromhex("91214365870921")
EXTENSION = bytes.fromhex("0A14282 92F3C3D3E4065".replace(" ", ""))
GSM_CODINGS = [0x00, 0x10, 0x11, 0x12, 0x13, 0xF0, 0xF1, 0xF2, 0xF3, 0xC0, 0xC8, 0xD0, 0xD9, 0xDA]
UCS2_CODINGS = [0x08, 0x18, 0x19, 0x1A, 0x1B, 0xE0, 0xE8]
DATA_CODINGS = [0x04, 0x14, 0x15, 0xF4, 0xF5, 0xF6, 0xF7]

source = random.Random(SEED)
chance, below, pick = (lambda percent: source.random() * 100 < percent), source.randrange, source.choice


def octets(count):
    return bytes(below(256) for _ in range(count))


def packed(septets, first_bit=0):
    bits = sum(septet << (first_bit + 7 * i) for i, septet in enumerate(septets))
    return bits.to_bytes((first_bit + 7 * len(septets) + 7) // 8, "little")


def letters(count):
    septets = []
    while len(septets) < count:
        if chance(8):
            septets += [0x1B, pick(EXTENSION)]
        else:
            septets.append(pick([code for code in range(128) if code not in (0x00, 0x0D, 0x1B)]))
    return septets[:count] if septets[count - 1:count] != [0x1B] else septets[:count - 1] + [0x20]


def digits_octet(number):
    return number % 10 << 4 | number // 10


def address():
    if chance(20):
        name = [pick(range(0x21, 0x5B)) for _ in range(below(10) + 1)]
        return bytes([(len(name) * 7 + 3) // 4, 0xD0]) + packed(name)
    kind = pick([0, 1, 2, 3, 4, 6, 7]) << 4 | pick([0, 1, 3, 4, 5, 6, 8, 9, 10, 15])
    count = below(20) + 1
    nibbles = [below(10) if chance(95) else 10 + below(5) for _ in range(count)] + [15] * (count % 2)
    return bytes([count, 0x80 | kind]) + bytes(nibbles[i] | nibbles[i + 1] << 4 for i in range(0, len(nibbles), 2))


def time():
    return bytes(map(digits_octet, (below(100), 1 + below(12), 1 + below(28), below(24), below(60), below(60)))) + bytes(
        [digits_octet(below(57)) | (0x08 if chance(40) else 0)])


def header():
    element = pick([lambda: bytes([0x00, 3]) + bytes([below(256), 3, 1 + below(3)]),
                    lambda: bytes([0x08, 4]) + octets(2) + bytes([3, 1 + below(3)]),
                    lambda: bytes([0x05, 4]) + octets(4),
                    lambda: bytes([0x04, 2]) + octets(2),
                    lambda: bytes([0x01, 2]) + octets(2),
                    lambda: bytes([0x24, 1, 1 + below(13)]),
                    lambda: bytes([0x25, 1, 1 + below(13)]),
                    lambda: bytes([0x70 + below(0x10), 2]) + octets(2)])
    elements = element()
    return bytes([len(elements)]) + elements


def user_data(most, has_header):
    """TP-DCS, and TP-UDL with what it counts."""
    start = header() if has_header else b""
    kind = source.random()
    if kind < 0.6:
        septets = letters(below((most - len(start)) * 8 // 7))
        fill = -len(start) * 8 % 7
        length = (len(start) * 8 + fill) // 7 + len(septets)
        return pick(GSM_CODINGS), bytes([length]) + start + packed(septets, fill)
    if kind < 0.85:
        units = "".join(chr(pick([below(0x250) + 0x20, 0x400 + below(0x100), 0x4E00 + below(0x5000)]))
                        for _ in range(below((most - len(start)) // 2)))
        data = start + units.encode("utf-16-be")
        return pick(UCS2_CODINGS), bytes([len(data)]) + data
    data = start + octets(below(most - len(start)))
    return pick(DATA_CODINGS), bytes([len(data)]) + data


def optional(most, has_header):
    """TP-PI and what it announces; a header wants user data."""
    indicator = below(8) | (0x04 if has_header else 0)
    coding, data = user_data(most, has_header)
    if not indicator & 0x02:
        coding, data = None, bytes([4]) + packed(list(b"Test")) if not has_header else b"\x04\x03\x24\x01\x01"
    return (bytes([indicator]) + (octets(1) if indicator & 1 else b"") + (bytes([coding]) if coding is not None else b"")
            + (data if indicator & 4 else b""))


def rp_data(tpdu, is_to_mobile):
    addresses = bytes([7]) + CENTRE + b"\0" if is_to_mobile else b"\0" + bytes([7]) + CENTRE
    return bytes([1 if is_to_mobile else 0, 1]) + addresses + bytes([len(tpdu)]) + tpdu


def rp_ack(tpdu, is_to_mobile):
    return bytes([3 if is_to_mobile else 2, 1, 0x41, len(tpdu)]) + tpdu


def rp_error(tpdu, is_to_mobile):
    return bytes([5 if is_to_mobile else 4, 1, 1, 0x16, 0x41, len(tpdu)]) + tpdu


def deliver(udhi):
    coding, data = user_data(140, udhi)
    return rp_data, bytes([below(256) & 0xBC | udhi << 6]) + address() + octets(1) + bytes([coding]) + time() + data


def submit(udhi):
    coding, data = user_data(140, udhi)
    first = below(256) & 0xBC | 1 | udhi << 6
    period = [b"", bytes([pick([0x01, 0x02, 0x03]), below(256)]) + bytes(5), octets(1), time()][first >> 3 & 3]
    return rp_data, bytes([first]) + octets(1) + address() + octets(1) + bytes([coding]) + period + data


def status_report(udhi):
    return rp_data, (bytes([below(256) & 0xBC | 2 | udhi << 6]) + octets(1) + address() + time() + time() + octets(1)
                     + (optional(120, udhi) if udhi or chance(60) else b""))


def command(_):
    data = octets(below(100))
    return rp_data, bytes([0x02 | below(2) << 5]) + octets(4) + address() + bytes([len(data)]) + data


def deliver_report(udhi):
    first = bytes([udhi << 6])
    if chance(50):
        return rp_ack, first + optional(140, udhi)
    return rp_error, first + bytes([0x80 + below(0x80)]) + optional(140, udhi)


def submit_report(udhi):
    first = bytes([1 | udhi << 6])
    cause = chance(50)
    after = optional(130, udhi)
    return (rp_error if cause else rp_ack), first + (bytes([0x80 + below(0x80)]) if cause else b"") + after[:1] + time() + after[1:]


TO_MOBILE, FROM_MOBILE = [deliver, status_report, submit_report], [submit, command, deliver_report]


def dissected(packets):
    with tempfile.NamedTemporaryFile(suffix=".pcap") as capture:
        capture.write(struct.pack("<IHHIIII", 0xA1B2C3D4, 2, 4, 0, 0, 65535, 147))
        for packet in packets:
            capture.write(struct.pack("<IIII", 0, 0, len(packet), len(packet)) + packet)
        capture.flush()
        command_line = ["tshark", "-r", capture.name, "-o", "gsm_sms.reassemble:FALSE", "-o",
                        'uat:user_dlts:"User 0 (DLT=147)","gsm_a_rp","0","","0",""', "-T", "ek", "-J", "gsm_sms"]
        lines = subprocess.run(command_line, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True).stdout
    found = []
    for line in lines.decode("utf-8").split("\n"):
        if '"layers"' not in line:
            continue
        layer = json.loads(line)["layers"].get("gsm_sms") or {}
        fields = {}
        for part in layer if isinstance(layer, list) else [layer]:
            fields |= {name.removeprefix("gsm_sms_gsm_sms_"): value for name, value in part.items()}
        found.append(fields)
    return found


def decoded(tpdus, direction):
    run = subprocess.run([QXPDU, "decode", "--jsonl", "--smsc", "no", "--direction", direction], text=True, encoding="utf-8",
                         input="".join(tpdu.hex() + "\n" for tpdu in tpdus), stdout=subprocess.PIPE, check=False)
    return [json.loads(line) for line in run.stdout.split("\n") if line]


def number(value):
    value = value[0] if isinstance(value, list) else value
    return None if value is None else int(value) if isinstance(value, bool) else int(value, 0)


NUMBERS = {name.replace("-", "_"): name for name in
           "tp-mti tp-mms tp-lp tp-rd tp-vpf tp-sri tp-srr tp-srq tp-udhi tp-rp tp-mr tp-pid tp-dcs tp-fcs".split()}
NUMBERS |= {"tp_pi": "tp_parameter_indicator", "tp_ct": "tp_command_type", "tp_mn": "tp_message_number",
            "tp_cdl": "tp_command_data_length", "tp_udl": "tp_user_data_length"}
CLOCK = ["scts_year", "scts_month", "scts_day", "scts_hour", "scts_minutes", "scts_seconds", "scts_timezone"]


def all_of(value):
    return value if isinstance(value, list) else [] if value is None else [value]


def clock_of(shown):
    """The numbers of a time, its zone in quarters without a sign, and whether it has one."""
    said = shown["time"]
    quarters = int(said[20:22]) * 4 + int(said[23:25]) // 15
    return [int(said[2:4]), int(said[5:7]), int(said[8:10]), int(said[11:13]), int(said[14:16]), int(said[17:19]), quarters]


def pairs_of(item, fields):
    """What both read, by name."""
    for member, name in NUMBERS.items():
        yield name, item[member]["raw"] if member in item else None, number(fields.get(name))
    for member in ("tp_oa", "tp_da", "tp_ra"):
        if member in item:
            shown = item[member]
            sign = "+" if shown["type_of_number"]["raw"] == 1 else ""
            yield member, shown["number"].removeprefix(sign), fields.get(member.replace("_", "-"), "")
            yield "type of number", shown["type_of_number"]["raw"], number(fields.get("dis_field_addr_num_type"))
            yield "numbering plan", shown["numbering_plan"]["raw"], number(fields.get("dis_field_addr_num_plan"))
    times = [item[member] for member in ("tp_scts", "tp_dt") if member in item]
    times += [item["tp_vp"]] if item.get("tp_vpf", {}).get("raw") == 3 else []
    theirs = list(zip(*(map(int, all_of(fields.get(name))) for name in CLOCK)))
    yield "times", [tuple(clock_of(shown)) for shown in times], theirs
    if item.get("tp_vpf", {}).get("raw") == 2:
        yield "validity period", item["tp_vp"]["raw"], number(fields.get("vp_validity_period"))
    if "tp_st" in item:
        status = item["tp_st"]["raw"]
        yield "TP-ST", [status >> 5 & 3, status & 0x1F], [number(fields.get("dis_field_st_error")),
                                                          number(fields.get("dis_field_st_reason"))]
    if place := item.get("concatenation"):
        yield "concatenation", [place["reference"], place["total"], place["part"]], [
            number(fields.get("udh_mm_msg_" + name)) for name in ("id", "parts", "part")]
    if item.get("text"):
        yield "text", item["text"], fields.get("sms_text", "")


def difference_of(item, name):
    if item.get("tp_vpf", {}).get("raw") == 1 and item["tp_vp"]["raw"].startswith("01"):
        return "enhanced"
    if name == "text" and ("locking_shift" in item or "single_shift" in item):
        return "national"
    if name == "text" and "tp_dcs" not in item:
        return "coding"
    return None


def main():
    print(f"seed {SEED}")
    makers = [(maker, True) for maker in TO_MOBILE] + [(maker, False) for maker in FROM_MOBILE]
    messages = []
    for _ in range(COUNT):
        maker, is_to_mobile = pick(makers)
        carrier, tpdu = maker(maker is not command and chance(40))
        messages.append((maker.__name__, tpdu, carrier(tpdu, is_to_mobile), is_to_mobile))
    theirs = dissected([packet for _, _, packet, _ in messages])
    assert len(theirs) == COUNT, f"tshark read {len(theirs)} of {COUNT} messages"
    ours = {to_mobile: iter(decoded([tpdu for _, tpdu, _, way in messages if way == to_mobile],
                                    "to-mobile" if to_mobile else "from-mobile")) for to_mobile in (True, False)}
    named, counted, faults = collections.Counter(), collections.Counter(), []
    for (kind, tpdu, _, to_mobile), fields in zip(messages, theirs):
        item = next(ours[to_mobile])
        counted[kind] += 1
        if "error" in item:
            faults.append(f"{kind} {tpdu.hex()}: {item['error']}")
            continue
        if any(shown.get("time", "")[19:20] == "-" for shown in item.values() if isinstance(shown, dict)):
            named["zone sign"] += 1
        for name, mine, other in pairs_of(item, fields):
            if mine == other:
                continue
            difference = difference_of(item, name)
            named[difference] += difference is not None
            if difference is None:
                faults.append(f"{kind} {tpdu.hex()}: {name} {mine!r}, tshark {other!r}")
    print(", ".join(f"{count} {kind}" for kind, count in sorted(counted.items())))
    for difference, why in DIFFERENCES.items():
        print(f"{named[difference]} times {why}")
    print("\n".join(faults[:20]))
    sys.exit(f"{len(faults)} differences without a name" if faults else 0)


main()
