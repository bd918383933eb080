"""The lines of docs/captures.md, tried on captures made here by text2pcap: captures.py DOCUMENT QXPDU..."""
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

DELIVER = bytes.fromhex("040B912143658709F100002120312143658005C8329BFD06")  # from +12345678901: Hello
SUBMIT = bytes.fromhex("01070491214300000161")  # to +1234: a
REPORT = bytes.fromhex("060804912143212031214365802120312143658000")  # on number 8, to +1234
SUBMIT_REPORT = bytes.fromhex("010021203121436580")  # reads as an SMS-SUBMIT, cut
CENTRE = bytes.fromhex("0791214365870921")
NOBODY = b"\0"


def counted(octets):
    return bytes([len(octets)]) + octets


def to_mobile(tpdu):
    return b"\x01\x05" + CENTRE + NOBODY + counted(tpdu)


def from_mobile(tpdu):
    return b"\x00\x06" + NOBODY + CENTRE + counted(tpdu)


def acknowledgement(tpdu):
    return b"\x03\x06\x41" + counted(tpdu)


class Radio:
    """GSMTAP of one channel: CP-DATA in frames of LAPDm, which hold 20 octets each."""

    def __init__(self):
        self.number = {False: 0, True: 0}

    def frames(self, is_uplink, rp):
        message = b"\x09\x01" + counted(rp)
        for begin in range(0, len(message), 20):
            piece = message[begin:begin + 20]
            is_cut = begin + 20 < len(message)
            tap = bytes([2, 4, 1, 0, 0x40 if is_uplink else 0, 1, 0, 0, 0, 0, 0, 0, 8, 0, 0, 0])  # on SDCCH/8
            frame = bytes([0x0D, self.number[is_uplink] << 1, len(piece) << 2 | is_cut << 1 | 1])
            self.number[is_uplink] += 1
            yield tap + frame + piece.ljust(20, b"\x2B")


def radio():
    channel = Radio()
    messages = [(False, to_mobile(DELIVER)), (True, from_mobile(SUBMIT)), (False, acknowledgement(SUBMIT_REPORT)),
                (False, to_mobile(REPORT))]
    return [frame for message in messages for frame in channel.frames(*message)]


def sip(rp):
    head = ("MESSAGE sip:a@example.com SIP/2.0\r\nVia: SIP/2.0/UDP 192.0.2.1;branch=z9hG4bK1\r\n"
            "From: <sip:b@example.com>;tag=1\r\nTo: <sip:a@example.com>\r\nCall-ID: 1\r\nCSeq: 1 MESSAGE\r\n"
            f"Content-Type: application/vnd.3gpp.sms\r\nContent-Length: {len(rp)}\r\n\r\n")
    return head.encode() + rp


def submit_sm(esm_class, data_coding, message):
    """The body has the service type, both addresses, seven octets of parameters and the message."""
    body = (b"\0\x01\x01417\0\x01\x01418\0" + bytes([esm_class, 0, 0]) + b"\0\0"
            + bytes([0, 0, data_coding, 0]) + counted(message))
    return (16 + len(body)).to_bytes(4, "big") + bytes.fromhex("000000040000000000000001") + body


def write_capture(path, ports, payloads):
    dump = "".join(f"000000 {payload.hex(' ')}\n" for payload in payloads)
    subprocess.run(["text2pcap", "-q", *ports, "-", path], input=dump, text=True, check=True)


HEADING = "frame.number\tgsm_a.rp.msg_type\tdirection\ttype\taddress\tpart\ttext\n"
ROW = {"deliver": "{}\t0x01\tto-mobile\tSMS-DELIVER\t+12345678901\t\tHello\n",
       "submit": "{}\t0x00\tfrom-mobile\tSMS-SUBMIT\t+1234\t\ta\n",
       "report": "{}\t0x01\tto-mobile\tSMS-STATUS-REPORT\t+1234\t\t\n"}
TO_MOBILE = "2012-02-13T12:34:56+02:00 from +12345678901 Hello\n"
ABOUT = "2012-02-13T12:34:56+02:00 to +1234 received by the recipient\n"
FROM_MOBILE = "to +1234 a\n"

# The payloads of each capture, and what each line of the document gives, in their order.
CAPTURES = {
    "radio": (["-u", "4729,4729"], radio(),
              [HEADING + ROW["deliver"].format(2) + ROW["submit"].format(4) + ROW["report"].format(7),
               TO_MOBILE + ABOUT, FROM_MOBILE, "", ""]),
    "sip": (["-u", "5060,5060"],
            [sip(to_mobile(DELIVER)), sip(from_mobile(SUBMIT)), sip(acknowledgement(SUBMIT_REPORT))],
            [HEADING + ROW["deliver"].format(1) + ROW["submit"].format(2), TO_MOBILE, FROM_MOBILE, "", ""]),
    "smpp": (["-T", "2775,2775"],
             [submit_sm(0, 8, bytes.fromhex("00480069")), submit_sm(0, 0, b"Hello"),
              submit_sm(0x40, 0, bytes.fromhex("05000301020141"))],
             [HEADING, "", "", "Hi\n", "Hello\n"]),
}


def main():
    document, *tool = sys.argv[1:]
    text = pathlib.Path(document).read_text(encoding="utf-8")
    lines = [line for block in re.findall(r"```sh\n(.*?)```", text, re.DOTALL) for line in block.splitlines()]
    failures = 0
    with tempfile.TemporaryDirectory() as folder:
        for name, (ports, payloads, outputs) in CAPTURES.items():
            write_capture(f"{folder}/capture.pcap", ports, payloads)
            for line, expected in zip(lines, outputs, strict=True):
                command = line.replace("| qxpdu ", f"| {shlex.join(tool)} ")
                assert command != line
                run = subprocess.run(["sh", "-c", command], cwd=folder, capture_output=True, text=True, check=False)
                if (run.returncode, run.stdout) != (0, expected):
                    failures += 1
                    print(f"{name}: {line}\n  gives {run.stdout!r}, not {expected!r}\n{run.stderr}")
    return 1 if failures else 0


sys.exit(main())
