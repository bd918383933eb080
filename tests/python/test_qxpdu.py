"""What the package promises: reading, writing, joining, errors, and what a Python object is expected to do."""
import copy
import doctest
import pathlib
import pickle
import pydoc
import re
import unittest
import weakref
from datetime import datetime, timedelta, timezone

import qxpdu
from qxpdu import Alphabet, CellFormat, Direction, Language, Outcome, PduError, Type, words

ROOT = pathlib.Path(__file__).parent.parent.parent
HELLO = "0791214365870921040B912143658709F100002120312143658005C8329BFD06"


def part(number, total=2, reference=0x2A, text="C8329BFD06", septets=5):
    """An SMS-DELIVER with a header of concatenation, its five septets as eight-bit data."""
    return f"440B912143658709F10004212031214365800B050003{reference:02X}{total:02X}{number:02X}{text}"


class Reading(unittest.TestCase):
    def test_attributes(self):
        message = qxpdu.decode(HELLO)
        self.assertEqual((message.text, str(message.address), message.type), ("Hello", "+12345678901", Type.DELIVER))
        self.assertEqual(message.time, datetime(2012, 2, 13, 12, 34, 56, tzinfo=timezone(timedelta(hours=2))))
        self.assertEqual(message.time.utcoffset(), timedelta(hours=2))
        self.assertEqual(str(message.service_centre), "+123456789012")
        self.assertIs(message.status, None)
        self.assertIs(message.validity, None)
        self.assertEqual((message.header, message.remarks, message.is_sound), ((), (), True))
        self.assertEqual(message.octets, bytes.fromhex(HELLO))

    def test_takes_octets_and_digits(self):
        octets = bytes.fromhex(HELLO)
        for pdu in (octets, bytearray(octets), memoryview(octets), HELLO.lower(), f" {HELLO}\r\n", f"\t{HELLO}"):
            self.assertEqual(qxpdu.decode(pdu), qxpdu.decode(HELLO))
        self.assertEqual(qxpdu.decode(memoryview(b"xx" + octets)[2:]).text, "Hello")
        for pdu in (HELLO[:4] + " " + HELLO[4:], "0x" + HELLO, HELLO[:-1]):
            with self.assertRaisesRegex(PduError, ".") as raised:
                qxpdu.decode(pdu)
            self.assertEqual((raised.exception.code, raised.exception.partial), ("not-hexadecimal", None))

    def test_bytes_of_the_caller_may_change(self):
        octets = bytearray.fromhex(HELLO)
        message = qxpdu.decode(octets)
        octets[-5:] = b"\0\0\0\0\0"
        del octets[:4]
        self.assertEqual(message.text, "Hello")

    def test_options(self):
        tpdu = HELLO[16:]
        self.assertEqual(qxpdu.decode(tpdu, service_centre=False, direction=Direction.TO_MOBILE).text, "Hello")
        self.assertEqual(qxpdu.decode(HELLO, announced=24).remarks, ())
        self.assertEqual([remark.code for remark in qxpdu.decode(HELLO, announced=25).remarks], ["length-disagrees"])
        self.assertEqual(qxpdu.decode("00FF00", service_centre=False, direction=2, failure_cause=True).failure_cause, 0xFF)

    def test_error(self):
        with self.assertRaises(PduError) as raised:
            qxpdu.decode(HELLO[:30])
        error = raised.exception
        self.assertIsInstance(error, ValueError)
        self.assertEqual((error.code, error.field, error.octet, error.expected, error.found), ("field-cut", "TP-OA", 9, 8, 6))
        self.assertEqual((error.partial.type, error.partial.text, error.partial.address), (Type.DELIVER, None, None))
        self.assertEqual((error.partial.fault.code, str(error.partial.service_centre)), ("field-cut", "+123456789012"))
        self.assertEqual(str(error), "octet 9: the octets end in TP-OA, which takes 8 octets: 6 are there")
        again = pickle.loads(pickle.dumps(error))
        self.assertEqual((str(again), again.octet, again.partial), (str(error), 9, error.partial))

    def test_many(self):
        self.assertEqual([message.text for message in qxpdu.decode_many(HELLO for _ in range(1000))], ["Hello"] * 1000)
        self.assertEqual(qxpdu.decode_many([]), [])
        with self.assertRaises(PduError) as raised:
            qxpdu.decode_many([HELLO] * 130 + ["zz", HELLO])
        self.assertEqual((raised.exception.index, raised.exception.code), (130, "not-hexadecimal"))
        for first, index in (("zz", 0), (HELLO[:20], 1)):
            with self.assertRaises(PduError) as raised:
                qxpdu.decode_many([HELLO][:index] + [first, None])
            self.assertEqual(raised.exception.index, index)
        with self.assertRaises(TypeError):
            qxpdu.decode_many(["zz", None], return_errors=True)
        messages = qxpdu.decode_many([HELLO, "", HELLO], return_errors=True)
        self.assertEqual((messages[0], messages[2]), (qxpdu.decode(HELLO), qxpdu.decode(HELLO)))
        self.assertEqual((messages[1].code, messages[1].index), ("empty", 1))

    def test_a_message_is_a_value(self):
        message, other = qxpdu.decode(HELLO), qxpdu.decode(HELLO[16:], service_centre=False)
        self.assertEqual(message, qxpdu.decode(bytes.fromhex(HELLO)))
        self.assertEqual(hash(message), hash(qxpdu.decode(bytes.fromhex(HELLO))))
        self.assertNotEqual(message, other)
        self.assertNotEqual(message, qxpdu.decode(HELLO, announced=24))
        self.assertNotEqual(message, "Hello")
        self.assertEqual(len({message, other, qxpdu.decode(HELLO)}), 2)
        self.assertIs(copy.copy(message), message)
        self.assertIs(copy.deepcopy([message])[0], message)
        for one in (message, other, qxpdu.decode(HELLO, service_centre=True, direction=1, failure_cause=False, announced=24)):
            again = pickle.loads(pickle.dumps(one))
            self.assertEqual((again, again.text), (one, "Hello"))
        self.assertEqual(repr(message), "<qxpdu.Message SMS-DELIVER +12345678901 2012-02-13 12:34:56+02:00 'Hello'>")
        with self.assertRaises(TypeError):
            message < other
        with self.assertRaises(AttributeError):
            message.text = "Bye"
        with self.assertRaises(AttributeError):
            message.colour = "red"
        with self.assertRaises(AttributeError):
            message.address.text = "1"
        with self.assertRaises(TypeError):
            qxpdu.Message()
        with self.assertRaises(TypeError):
            type("Mine", (qxpdu.Message,), {})
        with self.assertRaises(TypeError):
            type("Mine", (qxpdu.Joiner,), {})

    def test_weak_references(self):
        ended = []
        for make in (lambda: qxpdu.decode(HELLO), qxpdu.Joiner, qxpdu.PageJoiner):
            one = make()
            reference = weakref.ref(one, ended.append)
            self.assertIs(reference(), one)
            del one
            self.assertIsNone(reference())
            self.assertEqual(ended.pop(), reference)

    def test_no_time(self):
        message = qxpdu.decode(HELLO.replace("21203121436580", "21203121439980"))
        self.assertEqual((message.time, message.time_octets.hex(), message.discharge_octets), (None, "21203121439980", None))
        report = qxpdu.decode("06090791149721F3621322310050406211223100994000", service_centre=False, direction=1)
        self.assertEqual((report.time, report.time_octets.hex()), (None, "62132231005040"))
        self.assertEqual((str(report.discharge), report.discharge_octets.hex()), ("None", "62112231009940"))

    def test_records_are_pickled(self):
        message = qxpdu.decode(part(1), service_centre=False)
        for record in (message.address, message.coding, message.user_data, message.header, message.places):
            self.assertEqual(pickle.loads(pickle.dumps(record)), record)

    def test_asked_for_later(self):
        messages = [qxpdu.decode(HELLO), qxpdu.decode(part(1), service_centre=False), qxpdu.decode(HELLO)]
        self.assertEqual([message.concatenation and message.concatenation.part for message in messages], [None, 1, None])
        self.assertEqual([message.data for message in messages], [None, b"\xc8\x32\x9b\xfd\x06", None])
        self.assertIs(messages[0].places, messages[0].places)


class Writing(unittest.TestCase):
    def test_submit(self):
        [pdu] = qxpdu.encode("hello", "+4179123")
        self.assertEqual((str(pdu), pdu.tpdu_octets, bytes(pdu)),
                         ("0001000791149721F3000005E8329BFD06", 16, bytes.fromhex("0001000791149721F3000005E8329BFD06")))
        self.assertEqual(str(qxpdu.encode("hello", "+4179123", service_centre=None)[0]), "01000791149721F3000005E8329BFD06")
        self.assertEqual(str(qxpdu.encode("hello", "+4179123", service_centre="+417")[0])[:8], "039114F7")

    def test_everything_a_submit_has(self):
        until = datetime(2026, 11, 22, 13, 0, 5, tzinfo=timezone(timedelta(hours=1)))
        [pdu] = qxpdu.encode("Hi", "+4179123", service_centre=None, reject_duplicates=True, status_report_request=True, reply_path=True,
                             message_reference=7, protocol=0x41, validity=until, message_class=1)
        self.assertEqual(str(pdu), "BD" + "07" + "0791149721F3" + "4111" + "62112231005040" + "02C834")

    def test_validity(self):
        for validity, octets in ((timedelta(minutes=5), "00"), (timedelta(days=1), "A7"), (timedelta(weeks=63), "FF"),
                                 (timedelta(minutes=6), "01")):
            [pdu] = qxpdu.encode("Hi", "+4179123", service_centre=None, validity=validity)
            self.assertEqual(str(pdu), f"11000791149721F30000{octets}02C834")
        enhanced = qxpdu.validity(timedelta(seconds=30), enhanced=True)
        self.assertEqual((enhanced.octets.hex(), enhanced.period), ("021e0000000000", timedelta(seconds=30)))
        self.assertEqual(str(qxpdu.encode("Hi", "+4179123", service_centre=None, validity=enhanced)[0]), "09000791149721F30000021E000000000002C834")
        self.assertTrue(qxpdu.validity(timedelta(seconds=30), single_shot=True).is_single_shot)
        self.assertEqual(str(qxpdu.validity(timedelta(hours=3))), "relative, 3 hours")
        for wrong in (timedelta(weeks=64), timedelta(seconds=-1)):
            with self.assertRaises(ValueError):
                qxpdu.validity(wrong)

    def test_all_types(self):
        time = datetime(2026, 11, 22, 13, 0, 5, tzinfo=timezone(timedelta(hours=1)))
        written = {
            Type.DELIVER: (qxpdu.encode("Hi", "+4179123", type=Type.DELIVER, time=time), "00040791149721F300006211223100504002C834"),
            Type.DELIVER_REPORT: (qxpdu.encode(type=Type.DELIVER_REPORT, failure_cause=0xD3), "0000D300"),
            Type.SUBMIT_REPORT: (qxpdu.encode(type=Type.SUBMIT_REPORT, time=time), "00010062112231005040"),
            Type.STATUS_REPORT: (qxpdu.encode(address="+4179123", type=Type.STATUS_REPORT, message_reference=9, time=time, discharge=time, status=0),
                                 "0006090791149721F3621122310050406211223100504000"),
            Type.COMMAND: (qxpdu.encode(address="+4179123", type=Type.COMMAND, message_reference=9, command_type=2, message_number=5, data=b"\1\2"),
                           "00020900" + "0205" + "0791149721F3" + "020102"),
        }
        for type, (pdus, expected) in written.items():
            with self.subTest(type=type):
                self.assertEqual([str(pdu) for pdu in pdus], [expected])
                direction = Direction.FROM_MOBILE if type in (Type.DELIVER_REPORT, Type.COMMAND) else Direction.TO_MOBILE
                self.assertEqual(qxpdu.decode(pdus[0].octets, service_centre=True, direction=direction).type, type)

    def test_like(self):
        message = qxpdu.decode("0041000791149721F30000210325010138F2E5FE4EBBBC06F9F5657999054AE7D3A0F0BA136EB3C372", direction=2)
        self.assertEqual(message.text, "Görüşmek üzere, iyi akşamlar")
        self.assertEqual(qxpdu.encode(like=message)[0].octets, message.octets)
        self.assertEqual(str(qxpdu.encode(address="+4179124", like=message)[0]), message.octets.hex().upper().replace("149721F3", "149721F4"))
        self.assertEqual(str(qxpdu.encode("Hi", like=message)[0]), "0001000791149721F3000002C834")
        self.assertEqual(qxpdu.encode(like=qxpdu.decode(HELLO))[0].octets, bytes.fromhex(HELLO))

    def test_like_with_another_text(self):
        like = qxpdu.decode(qxpdu.encode("Hi", "1", ports=qxpdu.Ports(1, 2), message_class=0, validity=timedelta(hours=3))[0].octets)
        written = "00" + "{}0001" + "81F1" + "00{}" + "{}"
        head = "060504" + "00010002"
        for arguments, expected in (
                ({}, "0051000181F10010230A" + head + "C834"), ({"ports": None}, "0011000181F100102302C834"),
                ({"message_class": None}, "0051000181F10000230A" + head + "C834"), ({"validity": None}, "0041000181F100100A" + head + "C834"),
                ({"ports": qxpdu.Ports(3, 4, False), "message_class": 1}, "0051000181F100112308" + "040402" + "0304" + "20D3"),
                ({"coding": 0}, "0051000181F10000230A" + head + "C834"), ({"protocol": None}, "0051000181F10010230A" + head + "C834")):
            with self.subTest(arguments=arguments):
                self.assertEqual(str(qxpdu.encode("Hi", like=like, **arguments)[0]), expected)
        self.assertEqual(str(qxpdu.encode(like=like, validity=None)[0])[:4], "0041")

    def test_languages_and_names(self):
        [pdu] = qxpdu.encode("Görüşmek üzere, iyi akşamlar", "+4179123", languages=[Language.TURKISH])
        self.assertEqual(str(pdu), "0041000791149721F30000210325010138F2E5FE4EBBBC06F9F5657999054AE7D3A0F0BA136EB3C372")
        name = qxpdu.name("Bank")
        self.assertEqual((name.text, str(name), name.type), ("Bank", "Bank", qxpdu.TypeOfNumber.ALPHANUMERIC))
        [pdu] = qxpdu.encode("Your code is 1234", name, type=Type.DELIVER,
                             time=datetime(2026, 11, 22, 13, 0, 5, tzinfo=timezone(timedelta(hours=1))))
        self.assertEqual(str(pdu), "000407D0C2B07B0D00006211223100504011D9775D0E1ABFC965507A0E8AC96634")
        self.assertEqual(str(qxpdu.number("+41 (79) 123-4")), "+41791234")

    def test_ports_data_and_units(self):
        [pdu] = qxpdu.encode(data=b"\1\2", address="1", service_centre=None, ports=qxpdu.Ports(2948, 9200))
        self.assertEqual(str(pdu), "4100" + "0181F1" + "0004" + "09" + "0605040B8423F0" + "0102")
        [pdu] = qxpdu.encode(units=b"\x48\x69", address="1", service_centre=None)
        self.assertEqual(str(pdu), "01000181F1000002C834")
        [pdu] = qxpdu.encode(units=b"\1", elements=b"\x70\1\xff", coding=4, address="1", service_centre=None)
        self.assertEqual(str(pdu), "41000181F1" + "0004" + "05" + "037001FF" + "01")
        [pdu] = qxpdu.encode("Hi", "1", coding=0xC8, service_centre=None)
        self.assertEqual(str(pdu), "01000181F100C802C834")

    def test_long_texts(self):
        pdus = qxpdu.encode("a" * 161, "+4179123", reference=42, service_centre=None)
        # 153 septets and 7 of the header with its fill bit; 8 and 7.
        self.assertEqual([pdu.octets[9:17].hex() for pdu in pdus], ["00a00500032a0201", "000f0500032a0202"])
        self.assertEqual("".join(qxpdu.decode(pdu.octets, service_centre=False, direction=2).text for pdu in pdus), "a" * 161)
        wide = qxpdu.encode("a" * 161, "+4179123", reference=0x1234, wide_reference=True, service_centre=None)
        self.assertEqual([qxpdu.decode(pdu.octets, service_centre=False, direction=2).concatenation for pdu in wide],
                         [qxpdu.Concatenation(0x1234, 2, 1, True), qxpdu.Concatenation(0x1234, 2, 2, True)])

    def test_what_cannot_be_written(self):
        time = datetime(2026, 11, 22, tzinfo=timezone.utc)
        for arguments, members in (
                ({"text": "x", "type": Type.DELIVER}, {"code": "no-time", "field": "TP-SCTS"}),
                ({"text": "aЖ", "alphabet": Alphabet.GSM7}, {"code": "no-character", "index": 1}),
                ({"text": "a" * 39016}, {"code": "too-many-parts", "index": None}),
                ({"text": "a" * 161, "reference": 256}, {"code": "reference"}),
                ({"text": "x", "address": "12x"}, {"code": "address-character", "index": 2}),
                ({"text": "x", "address": "1" * 21}, {"code": "address-too-long", "field": "TP-DA", "number": 21, "other": 20}),
                ({"units": b"\1" * 256}, {"code": "user-data-too-long"}),
                ({"type": Type.SUBMIT_REPORT, "time": time, "failure_cause": 1}, {"code": "failure-cause-too-low"})):
            if arguments.get("type") != Type.SUBMIT_REPORT:
                arguments.setdefault("address", "1")
            with self.subTest(arguments=str(arguments)[:60]), self.assertRaises(PduError) as raised:
                qxpdu.encode(**arguments)
            self.assertEqual({name: getattr(raised.exception, name) for name in members}, members)
        for arguments in ({"text": "x", "data": b"x"}, {"units": b"\x80"}, {"text": "x", "time": datetime(2026, 1, 1)},
                          {"text": "x", "time": datetime(1999, 1, 1, tzinfo=timezone.utc)}, {"text": "x", "type": 7},
                          {"text": "x", "time": datetime(2026, 1, 1, tzinfo=timezone(timedelta(minutes=7)))},
                          {"text": "x", "message_reference": 256}, {"text": "x", "message_class": 4}, {"text": "x", "alphabet": Alphabet.DATA},
                          {"text": "x", "tables": (1,)}, {"text": "x", "languages": [14]}, {"text": "x", "room": 200}):
            with self.subTest(arguments=arguments), self.assertRaises(ValueError):
                qxpdu.encode(**{"address": "1", **arguments})

    def test_what_is_told_has_a_place(self):
        time = datetime(2026, 11, 22, tzinfo=timezone.utc)
        like = qxpdu.decode("0001000791149721F3000002C834", direction=2)
        deliver, command = {"type": Type.DELIVER, "time": time}, {"type": Type.COMMAND, "text": None}
        for arguments, said in (
                ({"address": None}, "SMS-SUBMIT needs an address"), ({"address": None, "text": None}, "SMS-SUBMIT needs an address"),
                ({"time": time}, "SMS-SUBMIT has no time"), ({"status": 5}, "SMS-SUBMIT has no status"),
                ({"discharge": time}, "SMS-SUBMIT has no discharge"), ({"more_messages": True}, "SMS-SUBMIT has no more_messages"),
                ({"loop_prevention": True}, "SMS-SUBMIT has no loop_prevention"), ({"is_for_command": True}, "SMS-SUBMIT has no is_for_command"),
                ({"status_report_indication": True}, "SMS-SUBMIT has no status_report_indication"),
                ({"command_type": 0}, "SMS-SUBMIT has no command_type"), ({"message_number": 0}, "SMS-SUBMIT has no message_number"),
                ({"failure_cause": 0xD3}, "SMS-SUBMIT has no failure_cause"), ({"parameter_indicator": 0}, "SMS-SUBMIT has no parameter_indicator"),
                ({**deliver, "validity": timedelta(hours=1)}, "SMS-DELIVER has no validity"),
                ({**deliver, "reject_duplicates": True}, "SMS-DELIVER has no reject_duplicates"),
                ({**deliver, "status_report_request": True}, "SMS-DELIVER has no status_report_request"),
                ({**deliver, "message_reference": 1}, "SMS-DELIVER has no message_reference"),
                ({"type": Type.STATUS_REPORT, "reply_path": True}, "SMS-STATUS-REPORT has no reply_path"),
                ({"type": Type.SUBMIT_REPORT, "time": time}, "SMS-SUBMIT-REPORT has no address"),
                ({"type": Type.COMMAND}, "SMS-COMMAND has no text"), ({**command, "coding": 0}, "SMS-COMMAND has no coding"),
                ({**command, "data": b"a", "ports": qxpdu.Ports(1, 2)}, "ports"), ({**command, "data": b"a", "message_class": 1}, "message_class"),
                ({"text": None, "units": b"Hi", "ports": qxpdu.Ports(1, 2)}, "ports"), ({"text": None, "units": b"Hi", "reference": 1}, "reference"),
                ({"text": None, "units": b"Hi", "wide_reference": True}, "wide_reference"), ({"text": None, "units": b"Hi", "room": 9}, "room"),
                ({"text": None, "ports": qxpdu.Ports(1, 2)}, "ports"), ({"text": None, "elements": b"\x70\0"}, "elements"),
                ({"text": None, "message_class": 0}, "message_class"), ({"text": None, "like": like, "ports": qxpdu.Ports(1, 2)}, "ports"),
                ({"text": None, "data": b"a", "languages": [1]}, "languages"), ({"text": None, "data": b"a", "alphabet": 0}, "alphabet"),
                ({"text": None, "data": b"a", "tables": (0, 1)}, "tables"), ({"text": None, "data": b"a", "replace_near": True}, "replace_near"),
                ({"coding": 4}, "coding 4 and text do not agree"), ({"coding": 0x20}, "coding 32 and text do not agree"),
                ({"coding": 0, "text": None, "data": b"a"}, "coding 0 and data do not agree"),
                ({"coding": 8, "alphabet": Alphabet.GSM7}, "coding 8 and alphabet do not agree"),
                ({"coding": 0, "message_class": 0}, "coding 0 and message_class do not agree"),
                ({"coding": 0xF1, "message_class": 0}, "coding 241 and message_class do not agree"),
                ({"type": Type.NONE}, "type is 1 to 6, not 0")):
            with self.subTest(arguments=arguments), self.assertRaisesRegex(ValueError, rf"\b{said}\b"):
                qxpdu.encode(**{"text": "Hi", "address": "1", **arguments})
        self.assertEqual(str(qxpdu.encode("Hi", "1", coding=0xF1, message_class=1, alphabet=0, service_centre=None)[0]), "01000181F100F102C834")
        with self.assertRaises(PduError) as raised:
            qxpdu.decode("")
        with self.assertRaises(ValueError):
            qxpdu.encode("Hi", "1", like=qxpdu._core._restore("", None, 0, None, None))

    def test_tables_are_of_gsm_7_bit(self):
        for call in (lambda **told: qxpdu.encode("Ho", "1", **told), lambda **told: qxpdu.cut("Ho", **told),
                     lambda **told: qxpdu.count("Ho", **told), lambda **told: qxpdu.explain("Ho", **told)):
            for alphabet, named in ((Alphabet.UCS2, "UCS2"), (Alphabet.DATA, "8-bit data")):
                with self.assertRaisesRegex(ValueError, f"^alphabet {named} and tables do not agree$"):
                    call(alphabet=alphabet, tables=(0, 0))
            call(alphabet=Alphabet.GSM7, tables=(0, 1))
        with self.assertRaisesRegex(ValueError, "^coding 8 and tables do not agree$"):
            qxpdu.encode("Ho", "1", coding=8, tables=(0, 0))
        self.assertEqual(str(qxpdu.encode("Hi", "1", coding=0, tables=(0, 0), service_centre=None)[0]), "01000181F1000002C834")

    def test_like_what_was_not_read(self):
        time = datetime(2026, 11, 22, 13, 0, 5, tzinfo=timezone(timedelta(hours=1)))
        octets, address = "62112231005040", "0791149721F3"
        whole = {
            Type.DELIVER: (0, "04", ((address, "TP-OA", {"address": "+4179123"}), ("00", "TP-PID", {"protocol": 0}),
                                     ("00", "TP-DCS", {"coding": 0}), (octets, "TP-SCTS", {"time": time}), ("02C834", "TP-UDL", {"units": b"Hi"}))),
            Type.SUBMIT: (2, "11", (("07", "TP-MR", {"message_reference": 7}), (address, "TP-DA", {"address": "+4179123"}),
                                    ("00", "TP-PID", {"protocol": None}), ("00", "TP-DCS", {"coding": 0}), ("A7", "TP-VP", {"validity": timedelta(days=1)}),
                                    ("02C834", "TP-UDL", {"units": b"Hi"}))),
            Type.STATUS_REPORT: (1, "06", (("07", "TP-MR", {"message_reference": 7}), (address, "TP-RA", {"address": "+4179123"}),
                                           (octets, "TP-SCTS", {"time": time}), (octets, "TP-DT", {"discharge": time}),
                                           ("00", "TP-ST", {"status": 0}))),
            Type.COMMAND: (2, "02", (("07", "TP-MR", {"message_reference": 7}), ("00", "TP-PID", {"protocol": 0}),
                                     ("02", "TP-CT", {"command_type": 2}), ("05", "TP-MN", {"message_number": 5}),
                                     (address, "TP-DA", {"address": "+4179123"}), ("020102", "TP-CDL", {"data": b"\1\2"}))),
            Type.SUBMIT_REPORT: (1, "01", (("07", "TP-PI", {"parameter_indicator": 0}), (octets, "TP-SCTS", {"time": time}),
                                           ("00", "TP-PID", {"protocol": 0}), ("00", "TP-DCS", {"coding": 0}), ("02C834", "TP-UDL", {"units": b"Hi"}))),
        }
        for type, (direction, head, fields) in whole.items():
            complete = head + "".join(field for field, _, _ in fields)
            for end in range(len(fields)):
                with self.assertRaises(PduError) as raised:
                    qxpdu.decode(head + "".join(field for field, _, _ in fields[:end]), service_centre=False, direction=direction)
                like, told = raised.exception.partial, {}
                # A report does not say what it has before TP-PI is read.
                unread = fields[end:2] if type == Type.SUBMIT_REPORT and end == 0 else fields[end:]
                for _, name, arguments in reversed(unread):
                    said = name if name == fields[end][1] else "TP-"
                    with self.subTest(type=type, end=end, name=name), self.assertRaisesRegex(ValueError, f"^the message that like is ends before {said}"):
                        qxpdu.encode(like=like, **told)
                    told.update(arguments)
                if unread == fields[end:]:
                    self.assertEqual(str(qxpdu.encode(like=like, **told)[0]), complete)
        with self.assertRaises(PduError) as raised:
            qxpdu.decode("040B9121", service_centre=False, direction=1)
        with self.assertRaisesRegex(ValueError, "TP-PID, and no protocol"):
            qxpdu.encode("Hi", "1", like=raised.exception.partial, type=Type.SUBMIT)
        self.assertEqual(str(qxpdu.encode("Hi", "1", like=raised.exception.partial, type=Type.SUBMIT, protocol=0)[0]), "01000181F1000002C834")
        with self.assertRaisesRegex(ValueError, "TP-OA, and no address"):
            qxpdu.encode("Hi", like=raised.exception.partial, type=Type.SUBMIT)

    def test_what_was_read_is_written_again(self):
        # The zones -00:00, E1 and FF, and digits above 9.
        for octets in ("62304151906208", "623041519062E1", "623041B1906200", "623041519062FF", "62404151906208", "62304151906200"):
            submit = qxpdu.decode("1900" + "0791149721F3" + f"0000{octets}02C834", service_centre=False, direction=2)
            report = qxpdu.decode("0607" + "0791149721F3" + octets + octets + "00", service_centre=False, direction=1)
            with self.subTest(octets=octets):
                self.assertIsNotNone(submit.validity.until)
                self.assertEqual(qxpdu.encode(like=submit, validity=submit.validity)[0].octets, submit.octets)
                self.assertEqual(qxpdu.encode(like=report, time=report.time, discharge=report.discharge)[0].octets, report.octets)
        report = qxpdu.decode("0607" + "0791149721F3" + "62304151906208" * 2 + "00", service_centre=False, direction=1)
        told = report.time.astimezone(timezone(timedelta(hours=1)))
        self.assertEqual(str(qxpdu.encode(like=report, time=told)[0]), "0607" + "0791149721F3" + "62304161906240" + "62304151906208" + "00")
        with self.assertRaises(TypeError):
            qxpdu.encode(like=report, time="62304151906208")

    def test_parameter_indicator_says_what_is_there(self):
        time = datetime(2026, 11, 22, 13, 0, 5, tzinfo=timezone(timedelta(hours=1)))
        report = {"type": Type.SUBMIT_REPORT, "time": time}
        for told, fields, there in ((7, {}, 0), (0, {"protocol": 1}, 1), (1, {"coding": 0}, 2), (3, {"units": b"a"}, 4), (4, {"text": "a"}, 6)):
            with self.assertRaisesRegex(ValueError, f"^parameter_indicator {told} does .* three bits are {there}$"):
                qxpdu.encode(parameter_indicator=told, **fields, **report)
            pdus = qxpdu.encode(parameter_indicator=there, **fields, **report)
            self.assertEqual(pdus, qxpdu.encode(**fields, **report))

    def test_what_is_not_taken_away(self):
        like = qxpdu.encode("Hi", "1", ports=qxpdu.Ports(1, 2), message_class=0)[0].octets
        like = qxpdu.decode(like, direction=2)
        for arguments, said in (({"ports": None}, "ports"), ({"message_class": None}, "message_class"),
                                ({"message_class": None, "units": b"Hi"}, "message_class")):
            with self.subTest(arguments=arguments), self.assertRaisesRegex(ValueError, f"^{said} of like"):
                qxpdu.encode(like=like, **arguments)
        self.assertEqual(str(qxpdu.encode(like=like, units=b"Hi", ports=None)[0]), "0001000181F1001002C834")
        self.assertEqual(str(qxpdu.encode(like=like, units=b"Hi", message_class=None, coding=0)[0]), "0001000181F1000002C834")
        plain = qxpdu.decode("0001000181F1000002C834", direction=2)
        self.assertEqual(qxpdu.encode(like=plain, ports=None, message_class=None)[0].octets, plain.octets)

    def test_room_and_characters_are_named(self):
        for call in (lambda **told: qxpdu.encode("Ho", "1", **told), lambda **told: qxpdu.cut("Ho", **told),
                     lambda **told: qxpdu.count("Ho", **told), lambda **told: qxpdu.explain("Ho", **told)):
            call(room=159)
            with self.assertRaisesRegex(ValueError, "^room is 0 to 159, not 160$"):
                call(room=160)
        for call in (lambda text: qxpdu.encode(text, "1", alphabet=0), lambda text: qxpdu.cut(text, alphabet=0),
                     lambda text: qxpdu.count(text, alphabet=0), lambda text: qxpdu.encode_cell(text, alphabet=0)):
            with self.assertRaisesRegex(PduError, "^nothing holds 'Ж' at 2$") as raised:
                call("éàЖ")
            self.assertEqual(raised.exception.index, 2)

    def test_a_record_agrees_with_itself(self):
        hours, until = qxpdu.validity(timedelta(hours=3)), qxpdu.validity(datetime(2026, 11, 22, tzinfo=timezone.utc))
        national = qxpdu.number("1")._replace(type=qxpdu.TypeOfNumber.NATIONAL)
        for wrong in (hours._replace(octets=b""), hours._replace(octets=b"\1\2"), hours._replace(period=timedelta(days=1)),
                      until._replace(octets=until.octets[:6]), until._replace(until=datetime(2026, 11, 23, tzinfo=timezone.utc)),
                      hours._replace(format=qxpdu.ValidityFormat.NONE), hours._replace(format=qxpdu.ValidityFormat.NONE, octets=b"")):
            with self.subTest(wrong=wrong), self.assertRaises(ValueError):
                qxpdu.encode("Hi", "1", validity=wrong)
        enhanced, coding = qxpdu.validity(timedelta(seconds=30), enhanced=True), qxpdu.coding(0xF1)
        for wrong in (enhanced._replace(period=timedelta(seconds=31)), enhanced._replace(is_single_shot=True), enhanced._replace(enhanced=3),
                      until._replace(period=timedelta(days=1)), hours._replace(until=until.until)):
            with self.subTest(wrong=wrong), self.assertRaisesRegex(ValueError, "^a validity's members"):
                qxpdu.encode("Hi", "1", validity=wrong)
        for wrong in (coding._replace(message_class=0), coding._replace(alphabet=Alphabet.UCS2), coding._replace(value=0xF2)):
            with self.subTest(wrong=wrong), self.assertRaisesRegex(ValueError, f"are not those of its value, {wrong.value}$"):
                qxpdu.encode("Hi", "1", coding=wrong)
        self.assertEqual(str(qxpdu.encode("Hi", "1", coding=coding, service_centre=None)[0]), "01000181F100F102C834")
        for name, value in (("languages", [1]), ("alphabet", 0), ("tables", (0, 1)), ("replace_near", True)):
            with self.assertRaisesRegex(ValueError, name):
                qxpdu.cut(b"a", **{name: value})
        for address in (national, qxpdu.number("1")._replace(plan=0)):
            with self.assertRaisesRegex(ValueError, "type_of_address, 129"):
                qxpdu.encode("Hi", address)
        for right in (hours, until, enhanced, hours._replace(period=None), until._replace(until=None)):
            [pdu] = qxpdu.encode("Hi", "1", validity=right)
            self.assertEqual(qxpdu.decode(pdu.octets).validity.octets, right.octets)


class Counting(unittest.TestCase):
    def test_count(self):
        count = qxpdu.count("It’s 5 €")
        self.assertEqual((count.alphabet, count.units, count.parts, count.characters), (Alphabet.UCS2, 8, 1, ()))
        self.assertEqual((len(count.choices), qxpdu.count("a" * 160).parts, qxpdu.count("a" * 161).parts), (1, 1, 2))
        self.assertEqual(qxpdu.explain("a" * 161).offsets, (0, 153))

    def test_headers_are_counted(self):
        for options in ({"ports": qxpdu.Ports(1, 2)}, {"ports": qxpdu.Ports(1, 2, False)}, {"elements": b"\x70\1\xff"},
                        {"ports": qxpdu.Ports(1, 2), "elements": b"\x70\1\xff"}, {"wide_reference": True}, {"room": 60}):
            for text in ("a" * 149, "a" * 150, "a" * 152, "a" * 160, "a" * 161, "a" * 300, "ж" * 66):
                with self.subTest(options=options, octets=len(text)):
                    parts = len(qxpdu.encode(text, "1", **options))
                    self.assertEqual((qxpdu.count(text, **options).parts, qxpdu.explain(text, **options).parts), (parts, parts))
        # 160 septets less 8 for a header of 7 octets.
        self.assertEqual([qxpdu.count("a" * size, ports=qxpdu.Ports(1, 2)).parts for size in (152, 153)], [1, 2])
        self.assertIsNone(qxpdu.count("a", elements=b"\x70\xff" + b"\0" * 255 + b"\x70\xff" + b"\0" * 70000).parts)
        for function in (qxpdu.count, qxpdu.explain):
            for name in ("replace_near", "reference", "message_class", "element_octets"):
                with self.assertRaises(TypeError):
                    function("a", **{name: 1})

    def test_no_room(self):
        count = qxpdu.count("aaaa", room=1)
        self.assertEqual((count.parts, count.choices[0].parts, count.choices[0].octets), (None, None, None))

    def test_offsets_are_characters(self):
        # Two UTF-16 units each, 67 in a part: 33 characters fit.
        self.assertEqual(qxpdu.explain("😀" * 40).offsets, (0, 33))
        self.assertEqual(qxpdu.cut("😀" * 40).offsets, (0, 33))
        self.assertEqual(qxpdu.cut(b"\1" * 141).offsets, (0, 134))

    def test_explain(self):
        said = qxpdu.explain("é €ğ", languages=[Language.TURKISH])
        self.assertEqual([(one.character, one.position, one.occurrences, one.is_in_extension) for one in said.characters],
                         [("€", 2, 1, True), ("ğ", 3, 1, False)])
        self.assertIn(Language.TURKISH, said.characters[1].locking)
        self.assertGreater(len(said.choices), 1)

    def test_near(self):
        near = qxpdu.replace_near("“é” 😀’")
        self.assertEqual(near.text[:4], '"é" ')
        self.assertEqual(near.replacements[0], qxpdu.Replacement(0, 1, '"'))
        self.assertEqual(near.replacements[-1], qxpdu.Replacement(5, 1, "'"))
        self.assertEqual([one.position for one in qxpdu.replace_near("а’е\u0301’’").replacements if one.replacement == "'"], [1, 4, 5])
        self.assertEqual(qxpdu.cut("It’s", replace_near=True).text, "It's")


class Joining(unittest.TestCase):
    def test_parts(self):
        joiner = qxpdu.Joiner()
        second, first = (qxpdu.decode(part(number), service_centre=False) for number in (2, 1))
        self.assertEqual((joiner.add(second), len(joiner)), ([], 1))
        [joined] = joiner.add(first)
        self.assertEqual((joined.outcome, joined.total, joined.data), (Outcome.COMPLETE, 2, b"\xc8\x32\x9b\xfd\x06" * 2))
        self.assertIs(joined.parts[0].message, first)
        self.assertIs(joined.parts[1].message, second)
        self.assertEqual((len(joiner), joined.gaps, joined.before), (0, (), None))

    def test_no_part(self):
        joiner, message = qxpdu.Joiner(), qxpdu.decode(HELLO)
        [joined] = joiner.add(message)
        self.assertEqual((joined.text, joined.outcome, joined.parts), ("Hello", Outcome.COMPLETE, (qxpdu.Part(1, message),)))

    def test_what_does_not_come(self):
        joiner = qxpdu.Joiner(seconds=10)
        first, third = (qxpdu.decode(part(number, 3), service_centre=False) for number in (1, 3))
        joiner.add(first, now=100)
        joiner.add(third, 101.5)
        [duplicate] = joiner.add(qxpdu.decode(part(3, 3), service_centre=False), now=102)
        self.assertEqual((duplicate.outcome, str(duplicate.outcome)), (Outcome.DUPLICATE, "duplicate"))
        self.assertIs(duplicate.before, third)
        self.assertEqual((joiner.expire(now=110), len(joiner)), ([], 2))
        [joined] = joiner.expire(now=111)
        self.assertEqual((joined.outcome, joined.gaps), (Outcome.TIMED_OUT, (qxpdu.Gap(2, 2, 0, 5),)))
        joiner.add(first)
        [joined] = joiner.finish()
        self.assertEqual((joined.outcome, len(joiner), joiner.finish()), (Outcome.FINISHED, 0, []))

    def test_limits(self):
        joiner = qxpdu.Joiner(messages=1)
        joiner.add(qxpdu.decode(part(1), service_centre=False))
        [joined] = joiner.add(qxpdu.decode(part(1, reference=1), service_centre=False))
        self.assertEqual(joined.outcome, Outcome.DISPLACED)


class CellBroadcast(unittest.TestCase):
    def test_reading(self):
        reading = qxpdu.decode_cell("402000320111C834")
        self.assertEqual((reading.text, reading.language, reading.format, reading.serial.message_code), ("Hi", "en", CellFormat.GSM_PAGE, 2))
        self.assertEqual((reading.octets.hex(), reading.message_identifier, str(reading.coding)), ("402000320111c834", 50, "GSM 7-bit, English"))
        with self.assertRaises(PduError) as raised:
            qxpdu.decode_cell("4020003201")
        self.assertEqual((raised.exception.field, raised.exception.octet), ("page parameter", 5))

    def test_pages(self):
        written = qxpdu.encode_cell("a" * 100, serial_number=0x4020, message_identifier=50, language="de")
        self.assertEqual((written.pages, [len(page) for page in written.octets]), (2, [88, 88]))
        self.assertEqual(written.octets[0][:6].hex(), "402000320012")
        joiner = qxpdu.PageJoiner()
        second, first = (qxpdu.decode_cell(written.octets[index]) for index in (1, 0))
        self.assertEqual(joiner.add(second), qxpdu.PagesTaken(False, ()))
        self.assertTrue(joiner.add(second).is_duplicate)
        [message] = joiner.add(first).messages
        self.assertEqual((message.text, message.is_given_up, message.missing), ("a" * 100, False, ()))
        joiner.add(qxpdu.decode_cell(written.octets[1][:3] + b"\x33" + written.octets[1][4:]))
        given_up = joiner.take_oldest()
        self.assertEqual((given_up.is_given_up, given_up.missing, joiner.take_oldest()), (True, (1,), None))

    def test_other_octets_than_were_read(self):
        with self.assertRaises(PduError) as raised:
            qxpdu.PageJoiner().add(qxpdu.decode_cell("402000320111C834")._replace(octets=b"\x40"))
        self.assertEqual((raised.exception.code, raised.exception.field), ("field-cut", "serial number"))

    def test_one_message(self):
        written = qxpdu.encode_cell("Hi", format=CellFormat.UMTS_MESSAGE, message_identifier=4370)
        self.assertEqual((written.pages, len(written.octets)), (1, 1))
        self.assertEqual(qxpdu.decode_cell(written.octets[0], format=CellFormat.UMTS_MESSAGE).text, "Hi")

    def test_what_cannot_be_written(self):
        for arguments in ({"text": "aЖ", "alphabet": Alphabet.GSM7}, {"text": "a", "language": "deu"},
                          {"text": "a" * 1396}, {"text": "a", "language": "de", "message_class": 1}):
            with self.subTest(arguments=str(arguments)[:50]), self.assertRaises(PduError):
                qxpdu.encode_cell(**arguments)


class Words(unittest.TestCase):
    def test_words(self):
        self.assertEqual(words.status_meaning(0x46), "validity period expired")
        self.assertEqual(words.numbering_plan_name(1), "ISDN or telephone (E.164)")
        self.assertEqual(words.port_meaning(80), words.port_meaning(port=80, is_wide=True))
        self.assertEqual(words.message_identifier_meaning(0x1112), "CMAS presidential, EU-Alert level 1")
        self.assertEqual(words.serial_number_meaning(0x4023, 50), "scope 1: network wide, message code 2, update number 3")
        self.assertEqual(words.type_name(200), "")
        self.assertEqual([words.field_description(field) for field in ("TP-OA", "TP-VP", "", "TP-O")],
                         ["originating address", "validity period", "", ""])
        for place in qxpdu.decode(HELLO).places:
            self.assertTrue(words.field_description(place.field), place.field)
        self.assertEqual(qxpdu.decode(HELLO).coding.alphabet, Alphabet.GSM7)
        for function in words.__all__:
            self.assertTrue(getattr(words, function).__doc__, function)

    def test_enumerations_are_words(self):
        self.assertEqual([str(member) for member in (Direction.TO_MOBILE, qxpdu.CodingGroup.DATA_CODING_AND_CLASS, qxpdu.ValidityFormat.ABSOLUTE,
                                                     qxpdu.Piece.TYPE_OF_ADDRESS, qxpdu.Scope.CELL, qxpdu.CellCodingGroup.LANGUAGE)],
                         ["to mobile", "data coding and class", "absolute", "type of address", "cell", "language"])
        for enum in vars(qxpdu).values():
            for member in enum if isinstance(enum, type) and issubclass(enum, int) else ():
                self.assertFalse(str(member).isdigit(), repr(member))

    def test_help(self):
        for record in (qxpdu.Address, qxpdu.Part, qxpdu.Joined):
            text = pydoc.plain(pydoc.render_doc(record))
            for noise in ("ForwardRef", "Alias for field number"):
                self.assertNotIn(noise, text)
        self.assertEqual(qxpdu.Address.type_of_address.__doc__, "the octets as they are sent")
        self.assertEqual(qxpdu.Concatenation.total.__doc__, "int")
        self.assertIs(qxpdu.Part.__annotations__["message"], qxpdu.Message)

    def test_every_value_of_the_c_interface_has_its_name(self):
        header = (ROOT / "include/Messages/qx_codes.h").read_text(encoding="utf-8")
        enums = {"type": qxpdu.Type, "type_of_number": qxpdu.TypeOfNumber, "language": qxpdu.Language, "alphabet": qxpdu.Alphabet,
                 "coding_group": qxpdu.CodingGroup, "waiting_type": qxpdu.WaitingType, "validity_format": qxpdu.ValidityFormat,
                 "direction": qxpdu.Direction, "piece": qxpdu.Piece, "join_outcome": qxpdu.Outcome, "cell_format": qxpdu.CellFormat,
                 "geographical_scope": qxpdu.Scope, "cell_coding_group": qxpdu.CellCodingGroup}
        for name, enum in enums.items():
            body = re.search(rf"enum qx_{name} {{(.*?)}};", header, re.DOTALL)[1]
            values = {int(value): key for key, value in re.findall(r"QX_(\w+)\s*=\s*(\d+)", body)}
            self.assertEqual(sorted(values), [int(member) for member in enum], name)
            for member in enum:
                self.assertTrue(values[member].endswith(member.name), member)


def load_tests(loader, tests, pattern):
    """The documents' examples too."""
    tests.addTests(doctest.DocTestSuite(qxpdu))
    tests.addTests(doctest.DocFileSuite(str(ROOT / "docs/python.md"), module_relative=False, encoding="utf-8"))
    return tests


if __name__ == "__main__":
    unittest.main()
