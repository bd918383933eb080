"""Reads by tshark what `qxpdu cell encode` makes of a warning in three alphabets: alerts.py QXPDU"""
import json
import struct
import subprocess
import sys
import tempfile

QXPDU = sys.argv[1]
# Where the language stands before UCS2, tshark 4.0 reads a character of its two packed septets.
WARNINGS = [
    ("de", "Achtung, Überschwemmung! Verlassen Sie die Ufer des Flusses und suchen Sie höher gelegenes Gelände auf. "
           "Nehmen Sie Ausweise und Medikamente mit.", ""),
    ("ru", "Внимание, наводнение! Покиньте берега реки и поднимитесь на возвышенность.", "\uF23A"),
    ("ja", "洪水警報。川から離れて、すぐに高い場所へ避難してください。身分証明書と薬を持って行ってください。", "\uEA30"),
]


def pages_of(language, text):
    command = [QXPDU, "cell", "encode", "--id", "4370", "--code", "5", "--language", language, text]
    return list(map(bytes.fromhex, subprocess.run(command, capture_output=True, check=True, text=True).stdout.split()))


def dissected(pages):
    """The fields of each page."""
    link_type = 147
    with tempfile.NamedTemporaryFile() as capture:
        capture.write(struct.pack("<IHHiIII", 0xA1B2C3D4, 2, 4, 0, 0, 65535, link_type))
        for page in pages:
            capture.write(struct.pack("<IIII", 0, 0, len(page), len(page)) + page)
        capture.flush()
        command = ["tshark", "-r", capture.name, "-o", 'uat:user_dlts:"User 0 (DLT=147)","gsm_cbs","0","","0",""',
                   "-T", "ek", "-J", "gsm_cbs"]
        lines = subprocess.run(command, capture_output=True, check=True, text=True).stdout.splitlines()
    pages = []
    for packet in map(json.loads, lines):
        if "layers" in packet:
            parts = packet["layers"]["gsm_cbs"]  # several of them, of what has a subtree
            pages.append({name.removeprefix("gsm_cbs_gsm_cbs_"): value
                          for part in (parts if isinstance(parts, list) else [parts]) for name, value in part.items()})
    return pages


def main():
    for language, text, before in WARNINGS:
        pages = pages_of(language, text)
        fields = dissected(pages)
        assert len(pages) == len(fields) == 2, (language, len(pages), len(fields))
        shown = ""
        for number, page in enumerate(fields, 1):
            assert (page["current_page"], page["total_pages"]) == (str(number), "2"), page
            assert page["message-identifier"] == "4370" and page["message_code"] == "5", page
            content = page["page_content"]
            assert content.startswith(before), (language, content)
            shown += content.removeprefix(before).rstrip("\r\n")
        assert shown == text, (language, shown)
    print(f"{len(WARNINGS)} warnings, read alike")


main()
