"""Writes mixed SMS-DELIVER PDUs, each with the service centre in front: lines.py COUNT pdus|hexdump

The hexadecimal dump holds the same PDUs without the service centre, for text2pcap. Texts, alphabets, concatenation,
classes and addresses vary; the same count gives the same PDUs every time.
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


def deliver(source):
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
    digits = "".join(source.choices("0123456789", k=11)) + "F"
    address = "0B91" + "".join(digits[i + 1] + digits[i] for i in range(0, 12, 2))
    return f"{0x44 if has_header else 0x04:02X}{address}00{dcs:02X}{TIME}{count:02X}{data.hex().upper()}"


def main():
    source = random.Random(1)
    for _ in range(int(sys.argv[1])):
        tpdu = deliver(source)
        if sys.argv[2] == "pdus":
            print(SMSC + tpdu)
        else:
            print("0000 " + " ".join(tpdu[i:i + 2] for i in range(0, len(tpdu), 2)) + "\n")


main()
