"""The vectors of tests/vectors through Python, member by member."""
import json
import pathlib
import unittest
from datetime import timedelta

import qxpdu

FOLDER = pathlib.Path(__file__).parent.parent / "vectors"
MESSAGES = ("addresses alphabets by-hand cuts data-coding headers times types user-data validity values").split()
PRESENCES = {"yes": True, "no": False, "unknown": None}
DIRECTIONS = {"to-mobile": qxpdu.Direction.TO_MOBILE, "from-mobile": qxpdu.Direction.FROM_MOBILE, "unknown": None}
FORMATS = {"gsm": qxpdu.CellFormat.GSM_PAGE, "umts": qxpdu.CellFormat.UMTS_MESSAGE, "etws": qxpdu.CellFormat.ETWS_NOTIFICATION}
ALPHABETS = {"gsm7": qxpdu.Alphabet.GSM7, "octets": qxpdu.Alphabet.DATA, "ucs2": qxpdu.Alphabet.UCS2}
WAITING = {"voicemail": qxpdu.WaitingType.VOICE, "fax": qxpdu.WaitingType.FAX, "e-mail": qxpdu.WaitingType.EMAIL,
           "other": qxpdu.WaitingType.OTHER}
FLAGS = {"TP-LP": "loop_prevention", "TP-RD": "reject_duplicates", "TP-SRI": "status_report_indication",
         "TP-SRR": "status_report_request", "TP-SRQ": "is_for_command", "TP-RP": "reply_path"}
OCTETS = {"TP-MR": "reference", "TP-ST": "status", "TP-CT": "command_type", "TP-MN": "message_number", "TP-PID": "protocol",
          "TP-FCS": "failure_cause"}


def field_of(said):
    """The library's name of a field."""
    return said if said.startswith("TP-") else said.replace("-", " ").replace("warning signature", "signature")


def vectors_of(file):
    with open(FOLDER / f"{file}.jsonl", encoding="utf-8") as lines:
        return [json.loads(line) for line in lines]


def address_of(address, is_centre=False):
    """As a vector tells it. The digits of a service centre are no name, whatever it says."""
    if address is None:
        return None
    key = "text" if address.type == qxpdu.TypeOfNumber.ALPHANUMERIC and not is_centre else "digits"
    return {key: address.text, "ton": int(address.type), "npi": address.plan, "length": address.length}


def told_address_of(said):
    return said and {key: value for key, value in said.items() if key != "octets"}


def coding_of(coding):
    told = {"alphabet": next(name for name, alphabet in ALPHABETS.items() if alphabet == coding.alphabet)}
    if coding.message_class is not None:
        told["class"] = coding.message_class
    if coding.waiting is not None:
        told |= {"waiting": "store" if coding.waiting.is_stored else "discard", "sense": "active" if coding.waiting.is_active else "inactive",
                 "indication": next(name for name, kind in WAITING.items() if kind == coding.waiting.type)}
    return told | {name: True for name, holds in (("compressed", coding.is_compressed), ("reserved", coding.is_reserved),
                                                  ("automatic-deletion", coding.is_automatic_deletion)) if holds}


def element_of(element):
    """The identifier, the data and what it says, as a vector tells it."""
    value = element.value
    told = {"iei": element.identifier, "octets": element.data.hex().upper()}
    if isinstance(value, qxpdu.Concatenation):
        return told | {"reference": value.reference, "total": value.total, "part": value.part}
    if isinstance(value, qxpdu.Ports):
        return told | {"destination": value.destination, "source": value.originator}
    if isinstance(value, qxpdu.SpecialMessageIndication):
        return told | {"store": value.is_stored, "profile": value.profile + 1, "extended": value.extended_type, "kind": value.type,
                       "count": value.messages}
    if isinstance(value, qxpdu.TextFormatting):
        told |= {"start": value.start, "length": value.length, "alignment": value.alignment, "size": value.font_size,
                 "bold": value.is_bold, "italic": value.is_italic, "underlined": value.is_underlined, "struck": value.is_struck}
        return told if value.colour is None else told | {"foreground": value.colour & 15, "background": value.colour >> 4}
    if isinstance(value, qxpdu.PredefinedObject):
        return told | {"position": value.position, "number": value.number}
    if isinstance(value, qxpdu.ObjectDistribution):
        return told | {"count": value.objects, "forbidden": value.forbids_forwarding}
    if isinstance(value, qxpdu.Hyperlink):
        return told | {"position": value.position, "title": value.title_length, "url": value.url_length}
    if isinstance(value, qxpdu.Address):
        return told | {"address": address_of(value)}
    names = {0x06: "control", 0x07: "source", 0x13: "count", 0x20: "length", 0x24: "language", 0x25: "language"}
    return told if value is None else told | {names[element.identifier]: value}


def told_element_of(said):
    told = {key: value for key, value in said.items() if key != "octet"}
    return told | {"address": told_address_of(said["address"])} if "address" in said else told


def remarks_of(remarks):
    return sorted((remark.octet, remark.code, remark.number, remark.other) for remark in remarks)


def told_remarks_of(said):
    return sorted((remark["octet"], remark["code"], remark.get("number", 0), remark.get("other", 0)) for remark in said)


def places_of(places):
    """Pieces of a field put together, as a vector has them."""
    told, last = [], places[0] if places else None
    for place in places:
        begins = place.piece in (qxpdu.Piece.WHOLE, qxpdu.Piece.IDENTIFIER) or (
            place.piece == qxpdu.Piece.LENGTH and last.piece != qxpdu.Piece.IDENTIFIER)
        if not begins:
            told[-1][2] += place.octets
        else:
            told.append([place.field, place.octet, place.octets, place.mask])
        last = place
    return sorted(told)


def told_places_of(said):
    return sorted([field_of(place["field"]), place["octet"], place["count"], place.get("mask", 255)] for place in said)


def iso(time):
    return time and time.isoformat()


class Vectors(unittest.TestCase):
    maxDiff = None

    def check_fault(self, error, said):
        self.assertEqual((error.code, error.octet, error.expected, error.found),
                         (said["code"], said["octet"], said["expected"], said["found"]))
        self.assertEqual(error.field, field_of(said["field"]))

    def check_header(self, message, said):
        user_data = message.user_data
        self.assertEqual([element_of(element) for element in message.header], [told_element_of(element) for element in said["elements"]])
        self.assertEqual(user_data.is_header_ignored, said.get("ignored", False))
        self.assertEqual((int(user_data.locking), int(user_data.single)), (said.get("locking", 0), said.get("single", 0)))
        self.assertEqual(user_data.fill_bits, said.get("fill-bits", 0))
        place, ports = message.concatenation, message.ports
        self.assertEqual(place and {"reference": place.reference, "total": place.total, "part": place.part, "bits": 16 if place.is_wide else 8},
                         said.get("concatenation"))
        self.assertEqual(ports and {"destination": ports.destination, "source": ports.originator, "bits": 16 if ports.are_wide else 8},
                         said.get("ports"))

    def check_validity(self, validity, said):
        self.assertEqual(validity.octets.hex().upper(), said["octets"])
        self.assertEqual(validity.period, timedelta(seconds=said["seconds"]) if "seconds" in said else None)
        self.assertEqual(iso(validity.until), said.get("time"))
        self.assertEqual(validity.is_single_shot, said.get("single-shot", False))

    def check_message(self, message, said):
        self.assertEqual(str(message.type), said.get("type", ""))
        self.assertEqual(address_of(message.service_centre, True), told_address_of(said.get("service-centre")))
        self.assertEqual(address_of(message.address), told_address_of(next((said[name] for name in ("TP-OA", "TP-DA", "TP-RA") if name in said), None)))
        self.assertEqual(message.more_messages, said["TP-MMS"] == 0 if "TP-MMS" in said else None)
        for name, attribute in FLAGS.items():
            self.assertEqual(getattr(message, attribute), bool(said[name]) if name in said else None, attribute)
        for name, attribute in OCTETS.items():
            self.assertEqual(getattr(message, attribute), said.get(name), attribute)
        self.assertEqual(message.parameter_indicator, int(said["TP-PI"][:2], 16) if "TP-PI" in said else None)
        self.assertEqual((iso(message.time), iso(message.discharge)), (said.get("TP-SCTS", {}).get("time"), said.get("TP-DT", {}).get("time")))
        if "coding" in said:
            self.assertEqual((message.coding.value, coding_of(message.coding)), (said["TP-DCS"], said["coding"]))
        if "TP-VP" in said:
            self.check_validity(message.validity, said["TP-VP"])
        if "header" in said:
            self.check_header(message, said["header"])
        else:
            self.assertEqual(message.header, ())
        # Where the header leaves no room, there is an empty text.
        is_textless = said.get("data") == "" and message.data is None
        self.assertEqual(message.text, "" if is_textless else said.get("text"))
        self.assertEqual(message.data and message.data.hex().upper(), None if is_textless else said.get("data") or message.data)
        user_data = said.get("TP-UD", said.get("TP-CD"))
        if user_data is not None:
            self.assertEqual(message.user_data.octets.hex().upper(), user_data)
        self.assertEqual(message.is_sound, said["sound"])
        self.assertEqual(remarks_of(message.remarks), told_remarks_of(said["remarks"]))

    def test_messages(self):
        count = 0
        for file in MESSAGES:
            for vector in vectors_of(file):
                count += 1
                said = vector["means"]
                options = {"service_centre": PRESENCES[vector["service-centre"]], "direction": DIRECTIONS[vector["direction"]],
                           "failure_cause": PRESENCES[vector.get("failure-cause", "unknown")], "announced": vector.get("announced")}
                with self.subTest(file=file, vector=vector["name"]):
                    octets = bytes.fromhex(vector["octets"])
                    [read] = qxpdu.decode_many([vector["octets"]], return_errors=True, **options)
                    if "fault" in said:
                        with self.assertRaises(qxpdu.PduError) as raised:
                            qxpdu.decode(octets, **options)
                        self.check_fault(raised.exception, said["fault"])
                        self.check_fault(read, said["fault"])
                        if raised.exception.partial is not None:
                            self.assertEqual(places_of(read.partial.places), told_places_of(said["places"]))
                            self.check_message(raised.exception.partial, said)
                            self.assertEqual(raised.exception.partial, read.partial)
                        continue
                    message = qxpdu.decode(octets, **options)
                    self.assertEqual((message.octets, message), (octets, read))
                    for one in (message, read):
                        self.check_message(one, said)
                    self.assertEqual(places_of(message.places), told_places_of(said["places"]))
        self.assertGreaterEqual(count, 1150)

    def check_page(self, page, said):
        self.assertEqual((page.number, page.octets.hex().upper()), (said["page"], said["octets"]))
        self.assertEqual([element_of(element) for element in page.elements], [told_element_of(element) for element in said.get("elements", [])])
        self.assertEqual(page.is_header_ignored, said.get("ignored", False))
        self.assertEqual((int(page.locking), int(page.single)), (said.get("locking", 0), said.get("single", 0)))
        self.assertEqual((page.language, page.is_cut), (said.get("language"), said.get("cut", False)))
        self.assertEqual((page.text_units, page.padding_units), (said.get("units", 0), said.get("padding", 0)))
        if "text" in said:
            self.assertEqual(page.text, said["text"])
        elif said.get("data"):
            self.assertEqual((page.text, page.content.hex().upper()), ("", said["data"]))

    def check_warning(self, warning, said):
        self.assertEqual((warning.value, warning.type, warning.has_emergency_alert, warning.has_popup),
                         (said["value"], said["type"], said.get("emergency", False), said.get("popup", False)))
        self.assertEqual((iso(warning.time), warning.signature.hex().upper()), (said.get("time", {}).get("time"), said.get("signature", "")))

    def check_broadcast(self, reading, said):
        self.assertEqual(places_of(reading.places), told_places_of(said["places"]))
        serial, told = reading.serial, said["serial"]
        self.assertEqual((serial.value, int(serial.scope), serial.message_code, serial.update_number, serial.has_emergency_alert, serial.has_popup),
                         (told["value"], told["scope"], told["code"], told["update"], told.get("emergency", False), told.get("popup", False)))
        self.assertEqual((FORMATS[said["format"]], said["identifier"]), (reading.format, reading.message_identifier))
        self.assertEqual(remarks_of(reading.remarks), told_remarks_of(said["remarks"]))
        if "warning" in said:
            return self.check_warning(reading.warning, said["warning"])
        coding, told = reading.coding, said["coding"]
        self.assertEqual((coding.value, coding.alphabet, coding.message_class),
                         (said["dcs"], ALPHABETS[told.get("alphabet", "octets")], told.get("class")))
        self.assertEqual((coding.is_compressed, coding.has_header, coding.is_reserved),
                         tuple(told.get(name, False) for name in ("compressed", "header", "reserved")))
        self.assertEqual(coding.language, None if told.get("language") == "text" else told.get("language"))
        self.assertEqual((reading.total, len(reading.pages)), (said["total"], len(said["pages"])))
        for page, told in zip(reading.pages, said["pages"]):
            self.check_page(page, told)

    def test_cell_broadcast(self):
        count = 0
        for file in ("cell-by-hand", "cell"):
            for vector in vectors_of(file):
                count += 1
                said = vector["means"]
                with self.subTest(file=file, vector=vector["name"]):
                    pdu, format = vector["octets"], FORMATS.get(vector.get("format"))
                    if "fault" in said:
                        with self.assertRaises(qxpdu.PduError) as raised:
                            qxpdu.decode_cell(pdu, format=format)
                        self.assertEqual((raised.exception.code, raised.exception.octet), (said["fault"]["code"], said["fault"]["octet"]))
                        continue
                    self.check_broadcast(qxpdu.decode_cell(pdu, format=format), said)
        self.assertGreaterEqual(count, 500)

    def test_texts_that_are_sent(self):
        count = 0
        for file in ("outgoing-by-hand", "outgoing"):
            for vector in vectors_of(file):
                count += 1
                ports = vector.get("ports")
                options = {"languages": vector["languages"], "alphabet": ALPHABETS.get(vector.get("alphabet")), "wide_reference": vector["bits"] == 16,
                           "reference": vector["reference"], "elements": bytes.fromhex(vector.get("elements", "")), "message_class": vector.get("class"),
                           "ports": ports and qxpdu.Ports(ports["destination"], ports["source"], ports["bits"] == 16)}
                with self.subTest(file=file, vector=vector["name"]):
                    sent = vector["sent"]
                    if sent is None:
                        with self.assertRaises(qxpdu.PduError):
                            qxpdu.cut(vector["text"], **options)
                        continue
                    cut = qxpdu.cut(vector["text"], **options)
                    self.assertEqual([f"{part.length:02X}{part.octets.hex().upper()}" for part in cut.parts], sent["parts"])
                    self.assertEqual((cut.coding.value, int(cut.parts[0].has_header), cut.choice.units),
                                     (sent["TP-DCS"], sent["TP-UDHI"], sent["units"]))
                    self.assertEqual("".join(part.text for part in cut.parts), vector["text"])
        self.assertGreaterEqual(count, 200)


if __name__ == "__main__":
    unittest.main()
