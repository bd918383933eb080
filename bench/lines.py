"""Writes PDUs: lines.py COUNT mixed|deliver|hexdump

mixed: six of ten lines are SMS-DELIVER, then SMS-SUBMIT, SMS-STATUS-REPORT, and one of twenty is broken: cut off, or no
hexadecimal. deliver: SMS-DELIVER alone; hexdump: the same without the service centre, for text2pcap. Texts, alphabets,
concatenation, classes and addresses vary; the same count gives the same lines every time.
"""
import random
import sys

SMSC = "0791214365870921"
TIME = "21203121436580"
WORDS = "the quick brown fox jumps over a lazy dog while rain falls on green hills and night comes".split()


def packed(codes, first_bit):
    bits = sum(code << (first_bit + 7 * i) for i, code in enumerate(codes))
    return bits.to_bytes((first_bit + 7 * len(codes) + 7) // 8, "little")


def text_of(source, longest):
    text = " ".join(source.choices(WORDS, k=30))
    return text[: source.randint(1, longest)]


def user_data(source):
    """First-octet bit for the header, TP-DCS, TP-UDL and what follows, the last two as octets."""
    has_header = source.random() < 0.25
    header = bytes([5, 0, 3, source.randrange(256), 2, source.randint(1, 2)]) if has_header else b""
    if source.random() < 0.7:
        dcs = source.choice([0x00, 0x10, 0x11, 0xF1])
        text = text_of(source, 153 if has_header else 160)
        begin = (8 * len(header) + 6) // 7
        data = packed(text.encode("ascii"), 7 * begin)
        data = header + data[len(header):]
        count = begin + len(text)
    else:
        dcs = source.choice([0x08, 0x18])
        text = text_of(source, 67 if has_header else 70).replace("e", "é").replace("o", "ο")
        data = header + text.encode("utf-16-be")
        count = len(data)
    return 0x40 if has_header else 0, dcs, bytes([count]) + data


def address(source):
    digits = "".join(source.choices("0123456789", k=11)) + "F"
    return "0B91" + "".join(digits[i + 1] + digits[i] for i in range(0, 12, 2))


def deliver(source):
    header, dcs, data = user_data(source)
    return f"{header | 0x04:02X}{address(source)}00{dcs:02X}{TIME}{data.hex().upper()}"


def submit(source):
    header, dcs, data = user_data(source)
    return f"{header | 0x11:02X}{source.randrange(256):02X}{address(source)}00{dcs:02X}A7{data.hex().upper()}"


def report(source):
    status = source.choice([0x00, 0x01, 0x20, 0x41, 0x46])
    return f"06{source.randrange(256):02X}{address(source)}{TIME}{TIME}{status:02X}"


def broken(source):
    line = deliver(source)
    return source.choice([line[: 2 * source.randint(1, 20)], "no PDU", line[:-1]])


def mixed(source):
    return source.choices([deliver, submit, report, broken], [60, 25, 10, 5])[0](source)


def main():
    source = random.Random(1)
    make = mixed if sys.argv[2] == "mixed" else deliver
    for _ in range(int(sys.argv[1])):
        tpdu = make(source)
        if sys.argv[2] == "hexdump":
            print("0000 " + " ".join(tpdu[i:i + 2] for i in range(0, len(tpdu), 2)) + "\n")
        else:
            print(SMSC + tpdu)


main()
