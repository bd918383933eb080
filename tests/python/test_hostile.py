"""Whatever is given, there is a result or an exception: wrong types, huge values, threads, re-entered calls, no memory."""
import _thread
import gc
import itertools
import mmap
import signal
import subprocess
import sys
import threading
import unittest
from datetime import datetime, timedelta, timezone, tzinfo

import qxpdu

try:
    import _testcapi
except ImportError:  # Debian has it in libpython3.11-testsuite and in its debug build
    _testcapi = None

HELLO = "0791214365870921040B912143658709F100002120312143658005C8329BFD06"
FIRST = "440B912143658709F100042120312143658008050003010201C832"
NOON = datetime(2026, 11, 22, 12, tzinfo=timezone.utc)


class Odd(int):
    """What Python takes for a number and is none that fits."""


class Angry:
    def __index__(self):
        raise ZeroDivisionError

    def __bool__(self):
        raise ZeroDivisionError

    def __iter__(self):
        raise ZeroDivisionError

    __float__ = __index__


class BadZone(tzinfo):
    def __init__(self, offset):
        self.offset = offset

    def utcoffset(self, when):
        return self.offset


THINGS = [None, 0, -1, 2**31, 2**63, 2**64, -2**63, 10**400, 1.5, float("nan"), float("inf"), "", "x", "\0", "\ud800", "😀", "a" * 70000, b"",
          b"\0", b"\xff" * 70000, bytearray(b"\1"), memoryview(b"\1\2\3")[::2], [], [None], ["\ud800"], (), (1, 2), {}, object(), Angry(), Odd(300),
          True, NOON, datetime(1, 1, 1), datetime(9999, 12, 31, tzinfo=timezone.utc), timedelta.max, timedelta.min, timedelta(seconds=1),
          qxpdu.Ports(70000, -1), qxpdu.Ports("a", None), qxpdu.Address("a", 1, 1, "", 500, -1), qxpdu.Address(None, None, None, None, None, None),
          qxpdu.Validity(9, None, None, None, False, 0), qxpdu.coding(0xF5), qxpdu.Coding(*"abcdefghi"), qxpdu.decode(HELLO), qxpdu.Type.COMMAND,
          iter([1]), type, qxpdu]
FUNCTIONS = [qxpdu.decode, qxpdu.decode_many, qxpdu.encode, qxpdu.count, qxpdu.explain, qxpdu.cut, qxpdu.replace_near, qxpdu.number, qxpdu.name,
             qxpdu.coding, qxpdu.validity, qxpdu.decode_cell, qxpdu.encode_cell, qxpdu.words.status_meaning, qxpdu.words.serial_number_meaning,
             qxpdu.words.port_meaning, qxpdu.words.message_identifier_meaning, qxpdu.words.coding_meaning, qxpdu.PageJoiner().add]
KEYWORDS = {
    qxpdu.decode: ("service_centre", "direction", "failure_cause", "announced"),
    qxpdu.decode_many: ("service_centre", "direction", "failure_cause", "announced", "return_errors"),
    qxpdu.encode: ("text", "address", "type", "data", "units", "like", "service_centre", "coding", "time", "discharge", "validity", "more_messages",
                   "loop_prevention", "reject_duplicates", "status_report_indication", "status_report_request", "is_for_command", "reply_path",
                   "message_reference", "status", "command_type", "message_number", "failure_cause", "parameter_indicator", "protocol"),
    qxpdu.cut: ("languages", "alphabet", "tables", "room", "wide_reference", "replace_near", "reference", "ports", "elements",
                "message_class"),
    qxpdu.encode_cell: ("serial_number", "message_identifier", "format", "language", "alphabet", "message_class"),
    qxpdu.validity: ("enhanced", "single_shot"),
    qxpdu.decode_cell: ("format",),
    qxpdu.replace_near: ("languages",),
    qxpdu.Joiner: ("messages", "octets", "seconds"),
    qxpdu.PageJoiner: ("messages",),
}
FIRSTS = {qxpdu.decode: [HELLO], qxpdu.decode_many: [[HELLO]], qxpdu.cut: ["a" * 161], qxpdu.encode_cell: ["a"], qxpdu.replace_near: ["a"],
          qxpdu.validity: [timedelta(hours=1)], qxpdu.decode_cell: ["402000320111C834"]}
# Of the values and types of arguments, and those that an object of the caller's throws.
EXPECTED = (TypeError, ValueError, OverflowError, BufferError, ZeroDivisionError)


class AnyArgument(unittest.TestCase):
    def call(self, function, *arguments, **keywords):
        """A result or an exception; nothing else."""
        try:
            function(*arguments, **keywords)
        except EXPECTED:
            pass

    def test_positional(self):
        joiner = qxpdu.Joiner()
        for function in [*FUNCTIONS, joiner.add, joiner.expire]:
            for thing in THINGS:
                self.call(function, thing)
                self.call(function, thing, thing)
            with self.assertRaises(TypeError):
                function(1, 2, 3, 4, 5, 6)
        for now in THINGS:
            self.call(joiner.add, qxpdu.decode(HELLO), now)

    def test_keywords(self):
        for function, names in KEYWORDS.items():
            for name in names:
                for thing in THINGS:
                    self.call(function, *FIRSTS.get(function, []), **{name: thing})
                    if function is qxpdu.encode:
                        for text in ({"text": "a" * 161}, {"data": b"a"}, {"units": b"a"}, {"like": qxpdu.decode(HELLO)}):
                            self.call(function, **{**text, name: thing})
            with self.assertRaises(TypeError):
                function(*FIRSTS.get(function, []), nothing=1)
        with self.assertRaises(TypeError):
            qxpdu.decode()
        with self.assertRaises(TypeError):
            qxpdu.decode(HELLO, pdu=HELLO)
        self.assertEqual(qxpdu.decode(direction=1, pdu=HELLO).text, "Hello")

    def test_wrong_types_are_named(self):
        for thing in (None, 1, 1.5, [], object()):
            with self.assertRaisesRegex(TypeError, "a PDU"):
                qxpdu.decode(thing)
        for message, call in (("direction is an int, not str", lambda: qxpdu.decode(HELLO, direction="to")),
                              ("service_centre is True or False, not int", lambda: qxpdu.decode(HELLO, service_centre=1)),
                              ("wide_reference is True or False, not int", lambda: qxpdu.cut("a", wide_reference=1)),
                              ("reply_path is True or False, not str", lambda: qxpdu.encode("a", "1", reply_path="no")),
                              ("return_errors is True or False, not int", lambda: qxpdu.decode_many([], return_errors=0)),
                              ("are_wide is True or False, not int", lambda: qxpdu.encode("a", "1", ports=qxpdu.Ports(1, 2, 1))),
                              ("ports is Ports, not tuple", lambda: qxpdu.encode("a", "1", ports=(1, 2))),
                              ("what is joined is a Message, not str", lambda: qxpdu.Joiner().add(HELLO)),
                              ("what is joined is a Message, not another class Message", lambda: qxpdu.Joiner().add(type("Message", (), {})())),
                              ("a period is a timedelta, not int", lambda: qxpdu.validity(5, enhanced=True)),
                              ("a time is a datetime, not str", lambda: qxpdu.encode("a", "1", type=1, time="now")),
                              ("what decode_many.. reads is a list of PDUs, not str", lambda: qxpdu.decode_many(HELLO)),
                              ("what decode_many.. reads is a list of PDUs, not bytes", lambda: qxpdu.decode_many(b"\0"))):
            with self.assertRaisesRegex(TypeError, f"^{message}$"):
                call()

    def test_wrong_values_are_named(self):
        for message, call in (("announced is 0 to 4294967295", lambda: qxpdu.decode(HELLO, announced=10**5000)),
                              ("announced is 0 to 4294967295, not -1", lambda: qxpdu.decode(HELLO, announced=-1)),
                              ("a validity is of 1 second to 63 weeks: .*", lambda: qxpdu.validity(timedelta.max)),
                              ("a validity is of 1 second to 63 weeks: .*", lambda: qxpdu.validity(timedelta.min, enhanced=True)),
                              ("no address has 'x' at 3", lambda: qxpdu.number("111" + "x" * 10**6))):
            with self.assertRaisesRegex(ValueError, f"^{message}$"):
                call()

    def test_texts(self):
        self.assertEqual(qxpdu.decode(qxpdu.encode("a\0😀", "1")[0].octets).text, "a\0😀")
        for surrogate in ("\ud83d", "a\ude00b"):
            for function in (qxpdu.encode, qxpdu.count, qxpdu.encode_cell, qxpdu.number):
                with self.assertRaises(ValueError):
                    function(surrogate)
            with self.assertRaises(qxpdu.PduError) as raised:
                qxpdu.decode("00" + surrogate)
            self.assertEqual(raised.exception.code, "not-hexadecimal")
        with self.assertRaises(qxpdu.PduError):
            qxpdu.decode("07\0" + HELLO)

    def test_huge_input_is_refused(self):
        huge = mmap.mmap(-1, 2**30)  # which takes no memory until it is touched
        self.addCleanup(huge.close)
        for function in (qxpdu.decode, qxpdu.decode_cell):
            with self.assertRaises(qxpdu.PduError) as raised:
                function(huge)
            self.assertEqual(raised.exception.code, "too-long")
            with self.assertRaises(qxpdu.PduError):
                function("0" * 131073)
        with self.assertRaises(qxpdu.PduError) as raised:
            qxpdu.decode_many([HELLO, huge])
        self.assertEqual([raised.exception.code, raised.exception.index], ["too-long", 1])
        self.assertIsInstance(qxpdu.decode_many([huge], return_errors=True)[0], qxpdu.PduError)
        with self.assertRaises(qxpdu.PduError):
            qxpdu.cut(b"\0" * 10**6)
        with self.assertRaises(qxpdu.PduError):
            qxpdu.encode("a" * 10**6, "1")
        self.assertEqual(qxpdu.decode(bytes.fromhex(HELLO) + b"\0" * 60000).text, "Hello")

    def test_zones(self):
        for offset in (timedelta(hours=1, seconds=1), timedelta(hours=20), timedelta(microseconds=1), "x", 5, object()):
            with self.assertRaises((TypeError, ValueError)):
                qxpdu.encode("a", "1", type=qxpdu.Type.DELIVER, time=datetime(2026, 1, 1, tzinfo=BadZone(offset)))
        [pdu] = qxpdu.encode("", "1", type=1, time=datetime(2026, 1, 1, tzinfo=timezone(timedelta(hours=-3, minutes=-30))))
        self.assertEqual(qxpdu.decode(pdu.octets).time.utcoffset(), timedelta(hours=-3, minutes=-30))

    def test_pickles_of_others(self):
        for arguments in ((b"", None, 0, None, None), ("zz", True, 1, None, 5), ("", None, 2, False, None)):
            message = qxpdu._core._restore(*arguments)
            for name in dir(message):
                self.call(getattr, message, name)
            self.assertEqual((message.type, message.text), (qxpdu.Type.NONE, None))
            self.assertIsNotNone(message.fault)


class AtOnce(unittest.TestCase):
    def run_threads(self, work, count=4):
        faults = []

        def guarded(number):
            try:
                work(number)
            except BaseException as fault:  # told in the thread of the test
                faults.append(fault)

        threads = [threading.Thread(target=guarded, args=(number,)) for number in range(count)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(faults, [])

    def test_many_threads_read(self):
        shared = qxpdu.decode_many([HELLO, FIRST], service_centre=None)

        def work(number):
            for message in qxpdu.decode_many([HELLO, FIRST[:-4]] * 300, return_errors=True)[::2]:
                self.assertEqual((message.text, str(message.address)), ("Hello", "+12345678901"))
            for _ in range(200):
                self.assertEqual((shared[0].text, len(shared[0].places), shared[1].concatenation.total), ("Hello", 18, 2))
                self.assertEqual(str(qxpdu.encode("hello", "+4179123")[0]), "0001000791149721F3000005E8329BFD06")

        self.run_threads(work)

    def test_a_joiner_belongs_to_one_call(self):
        joiner, inside, outside = qxpdu.Joiner(), threading.Event(), threading.Event()
        message = qxpdu.decode(HELLO)

        class Slow:
            def __float__(self):
                inside.set()
                outside.wait(10)
                return 1.0

        refused = []

        def work(number):
            if number == 0:
                self.assertEqual(len(joiner.add(message, Slow())), 1)
                return
            inside.wait(10)
            for call in (lambda: joiner.add(message), joiner.finish, joiner.expire):
                try:
                    call()
                except RuntimeError as error:
                    refused.append(str(error))
            outside.set()

        self.run_threads(work, 2)
        self.assertEqual(len(refused), 3)
        self.assertEqual(len(joiner.add(message)), 1)

    def test_a_collection_may_read_too(self):
        """Whatever runs in the midst of a conversion has a reader of its own."""
        message, seen = qxpdu.decode(FIRST, service_centre=False), []

        def collect(phase, info):
            seen.append(len(qxpdu.decode(HELLO).places))

        threshold = gc.get_threshold()
        gc.callbacks.append(collect)
        gc.set_threshold(1)
        try:
            for _ in range(20):
                [joined] = qxpdu.Joiner().add(qxpdu.decode(HELLO))
                self.assertEqual(joined.text, "Hello")
                self.assertEqual([place.field for place in message.places][:2], ["TP-MTI", "TP-MMS"])
                self.assertEqual([element.data for element in qxpdu.decode(FIRST, service_centre=False).header], [b"\1\2\1"])
        finally:
            gc.set_threshold(*threshold)
            gc.callbacks.remove(collect)
        self.assertEqual(set(seen), {18})


class AtTheEnd(unittest.TestCase):
    """What threads are in the midst of when the interpreter ends, or when a signal comes."""

    def end_within(self, work):
        program = f"import qxpdu, threading, time\n{work}\nfor _ in range(2):\n    threading.Thread(target=work, daemon=True).start()\ntime.sleep(0.1)"
        ended = subprocess.run([sys.executable, "-c", program], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=60)
        self.assertEqual((ended.returncode, ended.stdout), (0, b""))

    def test_reading_without_the_lock(self):
        self.end_within(f"def work():\n    while True:\n        qxpdu.decode_many(['{HELLO}'] * 10000)")

    def test_in_code_of_the_caller(self):
        self.end_within(f"def work():\n    qxpdu.decode_many('{HELLO}' for _ in iter(int, 1))")

    def test_in_code_that_a_reference_runs_at_its_end(self):
        self.end_within("class Last(bytes):\n    def __del__(self):\n        while True:\n            pass\n"
                        "def work():\n    qxpdu.decode_many(Last(b'x') for _ in range(1))")

    def test_a_signal_is_noticed_between_many(self):
        last = bytearray.fromhex(HELLO)

        def handle(*_):
            last[:] = b"x"

        self.addCleanup(signal.signal, signal.SIGALRM, signal.signal(signal.SIGALRM, handle))
        # Sets the signal off where no code of Python's runs that would notice it.
        pdus = itertools.chain(filter(_thread.interrupt_main, [signal.SIGALRM]), [HELLO] * 5000, [last])
        self.assertEqual([error.code for error in qxpdu.decode_many(pdus, return_errors=True)[5000:]], ["field-cut"])


def everything():
    message = qxpdu.decode(HELLO)
    [getattr(message, name) for name in dir(message) if not name.startswith("__")]
    repr(message)
    qxpdu.decode_many([HELLO, FIRST, "00"], return_errors=True)
    qxpdu.encode("Ağrı" * 50, "+4179123", languages=[1], validity=timedelta(hours=1), ports=qxpdu.Ports(1, 2))
    qxpdu.encode(like=message, time=NOON)
    qxpdu.explain("Ağrı €", languages=[1, 2])
    qxpdu.cut("It’s", replace_near=True)
    joiner = qxpdu.Joiner()
    joiner.add(qxpdu.decode(FIRST, service_centre=False))
    joiner.finish()
    pages = qxpdu.PageJoiner()
    pages.add(qxpdu.decode_cell("402000320111C834"))
    qxpdu.encode_cell("Hi")
    qxpdu.words.coding_meaning(0)
    for wrong in ("", "00", HELLO[:40]):
        try:
            qxpdu.decode(wrong)
        except qxpdu.PduError as error:
            str(error)


@unittest.skipIf(_testcapi is None, "this Python has no _testcapi")
class WithoutMemory(unittest.TestCase):
    def test_each_allocation_fails(self):
        """Of Python's memory; the library's own is tried in C."""
        everything()
        for start in range(1, 3000):
            _testcapi.set_nomemory(start, start + 1)
            try:
                everything()
            except MemoryError:
                continue
            except EXPECTED + (SystemError,) as fault:
                _testcapi.remove_mem_hooks()
                self.fail(f"allocation {start}: {fault!r}")
            finally:
                _testcapi.remove_mem_hooks()
        everything()

    def test_a_joiner_loses_nothing(self):
        parts = [qxpdu.decode(FIRST.replace("050003010201", f"050003{number:02}0201"), service_centre=False) for number in range(1, 6)]
        alone = qxpdu.decode(HELLO)
        failed = 0
        for start in range(1, 100):
            joiner = qxpdu.Joiner()
            for part in parts:
                joiner.add(part, now=1)
            given = []
            _testcapi.set_nomemory(start, start + 1)
            try:
                given = joiner.finish()
            except MemoryError:
                failed += 1
            finally:
                _testcapi.remove_mem_hooks()
            if start % 2:
                given += joiner.add(alone, now=1)
                self.assertIs(given.pop().parts[0].message, alone)
            given += joiner.finish()
            self.assertEqual([joined.parts[0].message for joined in given], parts, start)
            self.assertEqual((len(joiner), joiner.finish()), (0, []))
        self.assertGreater(failed, 10)


if __name__ == "__main__":
    unittest.main()
