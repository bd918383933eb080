"""Microseconds that a message takes from Python, beside python3-gammu and a reading in plain Python, in one run.

usage: PYTHONPATH=build/release/python /usr/bin/python3 bench/python.py

Each is timed in turn, 15 rounds; the least of the rounds stands, in processor time, so that other work on the machine counts
little. libgammu is left out where python3-gammu is not installed.
"""
import time
from datetime import datetime, timedelta, timezone

import qxpdu

try:
    import gammu
except ImportError:
    gammu = None

ROUNDS, CALLS = 15, 2000
TEXT = "It takes 160 characters to fill a message, and this one has as many: the quick brown fox jumps over the lazy dog, twice, and " \
       "then it goes home to sleep, sir."
SEPTETS = bytes.fromhex("0791214365870921040B912143658709F1000021203121436580") + qxpdu.cut(TEXT).parts[0].length.to_bytes(1, "big") + \
    qxpdu.cut(TEXT).parts[0].octets
DEFAULT = "@£$¥èéùìòÇ\nØø\rÅåΔ_ΦΓΛΩΠΨΣΘΞ\x1bÆæßÉ !\"#¤%&'()*+,-./0123456789:;<=>?¡ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÑÜ§¿abcdefghijklmnopqrstuvwxyzäöñüà"


def plain(pdu):
    """An SMS-DELIVER in the default alphabet, and nothing else: sender, time, text."""
    at = pdu[0] + 2
    digits = pdu[at]
    number = "".join(f"{octet & 15:X}{octet >> 4:X}" for octet in pdu[at + 2:at + 2 + (digits + 1) // 2])[:digits]
    at += 4 + (digits + 1) // 2
    year, month, day, hour, minute, second, zone = ((octet & 15) * 10 + (octet >> 4) for octet in pdu[at:at + 7])
    when = datetime(2000 + year, month, day, hour, minute, second, tzinfo=timezone(timedelta(minutes=15 * zone)))
    bits = int.from_bytes(pdu[at + 8:], "little")
    return number, when, "".join(DEFAULT[bits >> 7 * index & 127] for index in range(pdu[at + 7]))


def read_all(pdu):
    message = qxpdu.decode(pdu)
    return message.address, message.time, message.text


DIGITS = SEPTETS.hex().upper()
LIST = [SEPTETS] * CALLS
WAYS = {
    "qxpdu.decode(), octets": lambda: [qxpdu.decode(SEPTETS) for _ in range(CALLS)],
    "qxpdu.decode(), hexadecimal": lambda: [qxpdu.decode(DIGITS) for _ in range(CALLS)],
    "the same, then address, time and text": lambda: [read_all(DIGITS) for _ in range(CALLS)],
    "qxpdu.decode_many(), with these": lambda: qxpdu.decode_many(LIST),
    "plain Python, an SMS-DELIVER in the default alphabet alone": lambda: [plain(SEPTETS) for _ in range(CALLS)],
}
if gammu:
    WAYS["python3-gammu, DecodePDU()"] = lambda: [gammu.DecodePDU(SEPTETS) for _ in range(CALLS)]

address, when, text = read_all(SEPTETS)
assert plain(SEPTETS) == (address.text, when, text) and text == TEXT
if gammu:
    assert gammu.DecodePDU(SEPTETS)["Text"] == TEXT

least = {}
for _ in range(ROUNDS):
    for name, way in WAYS.items():
        begun = time.process_time()
        way()
        least[name] = min(least.get(name, 1e9), time.process_time() - begun)
print("| from Python, a message of 160 septets | µs |\n|---|---|")
for name, seconds in least.items():
    print(f"| {name} | {seconds / CALLS * 1e6:.2f} |")
