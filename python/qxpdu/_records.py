"""What qxpdu gives: records that cannot be changed, enumerations, and its error.

The members of a record stand in the order in which core/ makes them.
"""
from datetime import datetime, timedelta
from enum import IntEnum
from typing import NamedTuple, Optional, Tuple, Union

from . import _core


class _Named(IntEnum):
    """str() is the name, in small letters and words."""

    def __str__(self) -> str:
        return self.name.lower().replace("_", " ")


class Type(IntEnum):
    """The types of TPDUs, TS 23.040 clause 9.2.2. str() is "SMS-DELIVER" and so on."""

    NONE = 0
    DELIVER = 1
    DELIVER_REPORT = 2
    SUBMIT = 3
    SUBMIT_REPORT = 4
    STATUS_REPORT = 5
    COMMAND = 6

    def __str__(self) -> str:
        return _core.type_name(self)


class Direction(_Named):
    """Which way a TPDU goes; together with TP-MTI it gives the type."""

    UNKNOWN = 0
    TO_MOBILE = 1
    FROM_MOBILE = 2


class Alphabet(IntEnum):
    """In which units user data is written. str() is "GSM 7-bit" and so on."""

    GSM7 = 0
    DATA = 1
    UCS2 = 2

    def __str__(self) -> str:
        return _core.alphabet_name(self)


class Language(IntEnum):
    """The languages that have tables of their own, TS 23.038 clause 6.2.1.2.4. str() is "Turkish" and so on."""

    DEFAULT = 0
    TURKISH = 1
    SPANISH = 2
    PORTUGUESE = 3
    BENGALI = 4
    GUJARATI = 5
    HINDI = 6
    KANNADA = 7
    MALAYALAM = 8
    ORIYA = 9
    PUNJABI = 10
    TAMIL = 11
    TELUGU = 12
    URDU = 13

    def __str__(self) -> str:
        return _core.language_name(self)


class TypeOfNumber(IntEnum):
    """Bits 6 to 4 of the type-of-address octet. str() is "international" and so on."""

    UNKNOWN = 0
    INTERNATIONAL = 1
    NATIONAL = 2
    NETWORK_SPECIFIC = 3
    SUBSCRIBER = 4
    ALPHANUMERIC = 5
    ABBREVIATED = 6
    RESERVED = 7

    def __str__(self) -> str:
        return _core.type_of_number_name(self)


class CodingGroup(_Named):
    """The groups of data coding schemes, TS 23.038 clause 4."""

    GENERAL = 0
    AUTOMATIC_DELETION = 1
    RESERVED = 2
    WAITING_DISCARD = 3
    WAITING_STORE = 4
    WAITING_STORE_UCS2 = 5
    DATA_CODING_AND_CLASS = 6


class WaitingType(IntEnum):
    """What waits for the receiver. str() is "voice" and so on."""

    VOICE = 0
    FAX = 1
    EMAIL = 2
    OTHER = 3

    def __str__(self) -> str:
        return _core.waiting_type_name(self)


class ValidityFormat(_Named):
    """TP-VPF of an SMS-SUBMIT."""

    NONE = 0
    ENHANCED = 1
    RELATIVE = 2
    ABSOLUTE = 3


class Piece(_Named):
    """Which octets of a field a place covers, of the fields that have an inner order."""

    WHOLE = 0
    LENGTH = 1
    TYPE_OF_ADDRESS = 2
    DIGITS = 3
    IDENTIFIER = 4
    CONTENT = 5


class Outcome(IntEnum):
    """Why a joiner hands a message back. str() is "complete" and so on."""

    COMPLETE = 0
    DUPLICATE = 1
    REPLACED = 2
    TIMED_OUT = 3
    DISPLACED = 4
    FINISHED = 5

    def __str__(self) -> str:
        return _core.join_outcome_name(self)


class CellFormat(IntEnum):
    """What cell broadcast sends, TS 23.041 clause 9.4. str() is "GSM page" and so on."""

    UNKNOWN = 0
    GSM_PAGE = 1
    UMTS_MESSAGE = 2
    ETWS_NOTIFICATION = 3

    def __str__(self) -> str:
        return _core.cell_format_name(self)


class Scope(_Named):
    """Where a message of cell broadcast is valid, and how it is displayed."""

    IMMEDIATE_CELL = 0
    NETWORK = 1
    AREA = 2
    CELL = 3


class CellCodingGroup(_Named):
    """The groups of data coding schemes of cell broadcast, TS 23.038 clause 5."""

    LANGUAGE = 0
    LANGUAGE_IN_TEXT = 1
    GENERAL = 2
    USER_DATA_HEADER = 3
    I1_PROTOCOL = 4
    WAP = 5
    DATA_CODING_AND_CLASS = 6
    RESERVED = 7


class PduError(ValueError):
    """A PDU cannot be read, or a message not be written. str() says why; these are None where they say nothing.

    code: the name that programs know it by, "field-cut"
    field: the field that it is about, "TP-OA"
    octet: where that begins in the PDU, from 0; of hexadecimal digits, the pair that is none
    expected, found: octets that the field takes, and those that are there
    partial: the Message as far as it was read
    index: the character of the text, from 0, that cannot be written; of decode_many(), the PDU
    number, other: of what cannot be written, what the code needs, 0 where it needs nothing
    """

    code: Optional[str] = None
    field: Optional[str] = None
    octet: Optional[int] = None
    expected: Optional[int] = None
    found: Optional[int] = None
    partial: Optional[_core.Message] = None
    index: Optional[int] = None
    number: Optional[int] = None
    other: Optional[int] = None


class Address(NamedTuple):
    """The number or name of a party. number() and name() make one; str() is as people write it.

    text: the digits 0-9, *, #, a, b, c without a plus sign; or the name
    type, plan: of the number; words.numbering_plan_name() names the plan
    written: as people write it, with a plus sign before an international number
    type_of_address, length: the octets as they are sent
    """

    text: str
    type: TypeOfNumber
    plan: int
    written: str
    type_of_address: int
    length: int

    def __str__(self) -> str:
        return self.written


class Waiting(NamedTuple):
    """An indication that messages wait, or that none do; is_stored: the message is kept after it is shown."""

    type: WaitingType
    is_active: bool
    is_stored: bool


class Coding(NamedTuple):
    """A data coding scheme, TS 23.038 clause 4. coding() makes one; str() says what it means.

    value: TP-DCS
    alphabet: of a reserved scheme, the one to assume
    message_class: 0 to 3, or None
    counts_septets: TP-UDL counts septets, not octets
    waiting: an indication that messages wait, or None
    """

    value: int
    group: CodingGroup
    alphabet: Alphabet
    message_class: Optional[int]
    is_compressed: bool
    is_reserved: bool
    is_automatic_deletion: bool
    counts_septets: bool
    waiting: Optional[Waiting]

    def __str__(self) -> str:
        return _core.coding_meaning(self.value)


class Validity(NamedTuple):
    """How long a message is valid. validity() makes one; str() says what it means.

    octets: TP-VP as it is sent
    period: how long, a timedelta, or None
    until: of the absolute format, the end
    enhanced: of the enhanced format, bits 2 to 0 of its first octet
    """

    format: ValidityFormat
    octets: bytes
    period: Optional[timedelta]
    until: Optional[datetime]
    is_single_shot: bool
    enhanced: int

    def __str__(self) -> str:
        return _core._validity_meaning(self)


class Concatenation(NamedTuple):
    """Which part, from 1, of how many a message is; the reference is the same in all parts."""

    reference: int
    total: int
    part: int
    is_wide: bool


class Ports(NamedTuple):
    """The applications that a message is for and from, in 16 bits each, or in 8."""

    destination: int
    originator: int = 0
    are_wide: bool = True


class SpecialMessageIndication(NamedTuple):
    """Element 01: how many messages of a kind wait. type is 0 voice, 1 fax, 2 e-mail, 3 the extended type."""

    is_stored: bool
    profile: int
    type: int
    extended_type: int
    messages: int


class TextFormatting(NamedTuple):
    """Element 0A: how a run of characters is shown.

    alignment: 0 left, 1 centre, 2 right, 3 as the language has it
    font_size: 0 normal, 1 large, 2 small
    colour: foreground in bits 3 to 0, background in bits 7 to 4; or None
    """

    start: int
    length: int
    alignment: int
    font_size: int
    is_bold: bool
    is_italic: bool
    is_underlined: bool
    is_struck: bool
    colour: Optional[int]


class PredefinedObject(NamedTuple):
    """Elements 0B and 0D: a sound or an animation at a character of the text."""

    position: int
    number: int


class ObjectDistribution(NamedTuple):
    """Element 17: how many objects follow, and whether they may be forwarded."""

    objects: int
    forbids_forwarding: bool


class Hyperlink(NamedTuple):
    """Element 21: characters from position on are a title, those after it a link."""

    position: int
    title_length: int
    url_length: int


ElementValue = Union[Concatenation, Ports, SpecialMessageIndication, TextFormatting, PredefinedObject,
                     ObjectDistribution, Hyperlink, Address, int, None]


class Element(NamedTuple):
    """One element of a user-data header.

    offset: of its data, in the octets of the user data or of the page
    value: what the data says, a record or a number; None where the identifier says nothing, or not in that length
    """

    identifier: int
    offset: int
    data: bytes
    value: ElementValue

    @property
    def name(self) -> str:
        """What it is, "hyperlink"."""
        return _core.element_name(self.identifier)


class UserData(NamedTuple):
    """TP-UD, or TP-CD, with what its header and its coding make of it.

    length: TP-UDL, septets where the coding counts them, else octets
    octets: TP-UD, as much of it as is there
    text: empty where the coding has none
    content: the octets after the header; of septets, from the one with the first of them on
    is_header_ignored: the elements do not add up, or reach beyond the user data
    concatenation, ports: of the last valid element
    locking, single: whose shift tables the text is in
    text_offset: the octet where the text begins, after fill_bits bits
    text_units: septets, octets or UTF-16 units of the text that are there
    """

    length: int
    octets: bytes
    text: str
    content: bytes
    has_header: bool
    is_header_ignored: bool
    elements: Tuple[Element, ...]
    concatenation: Optional[Concatenation]
    ports: Optional[Ports]
    locking: Language
    single: Language
    text_offset: int
    fill_bits: int
    text_units: int


class Place(NamedTuple):
    """Where a field, or a piece of one, stands: so many octets, from octet on.

    mask: its bits of the octet, 255 where it is all of them
    value: of a field in the TPDU's first octet: its bits, moved to the right
    """

    field: str
    piece: Piece
    octet: int
    octets: int
    mask: int
    value: int


class Remark(NamedTuple):
    """What is unusual in a PDU, and ended nothing. str() says where and what.

    code: the name that programs know it by, "filler-inside"
    number, other: what the code needs, 0 where it needs nothing
    """

    code: str
    field: str
    octet: int
    number: int
    other: int
    meaning: str

    def __str__(self) -> str:
        return f"{self.field} at octet {self.octet}: {self.meaning}"


class Fault(NamedTuple):
    """What ended the reading, of the partial message of a PduError."""

    code: str
    field: str
    octet: int
    expected: int
    found: int
    meaning: str


class Choice(NamedTuple):
    """A way to write a text: its units are septets or UTF-16 units.

    parts: messages that it takes; None where one has no room for a pair of units
    octets: of user data in all parts, headers included; None where parts is
    """

    alphabet: Alphabet
    locking: Language
    single: Language
    units: int
    parts: Optional[int]
    octets: Optional[int]


class CostlyCharacter(NamedTuple):
    """A character that is no single septet of the default alphabet.

    position, occurrences: of the first one in the text, from 0, and how often it stands there
    is_in_extension: it is a pair of septets of the default alphabet
    locking, single: the languages in whose locking shift tables it is one septet, and in whose single shift tables a pair
    """

    character: str
    position: int
    occurrences: int
    is_in_extension: bool
    locking: Tuple[Language, ...]
    single: Tuple[Language, ...]


class Explanation(NamedTuple):
    """What a text costs. The members of its cheapest choice are its own as well.

    choices: the cheapest first
    offsets: the characters where the parts of the cheapest begin
    characters: those that force a choice
    """

    choices: Tuple[Choice, ...]
    offsets: Tuple[int, ...]
    characters: Tuple[CostlyCharacter, ...]

    @property
    def alphabet(self) -> Alphabet:
        """Of the cheapest choice."""
        return self.choices[0].alphabet

    @property
    def parts(self) -> Optional[int]:
        """Messages that the cheapest choice takes."""
        return self.choices[0].parts

    @property
    def units(self) -> int:
        """Septets or UTF-16 units of the cheapest choice."""
        return self.choices[0].units


class Replacement(NamedTuple):
    """What stands for so many characters from position on; empty where they are left out."""

    position: int
    length: int
    replacement: str


class NearText(NamedTuple):
    """A text with near characters."""

    text: str
    replacements: Tuple[Replacement, ...]


class Cut(NamedTuple):
    """The parts of a text, or of data.

    offsets: where each part begins, in characters of the text, or in octets of the data
    text: as it is sent, with the near characters that were put in
    """

    parts: Tuple[UserData, ...]
    coding: Coding
    choice: Choice
    offsets: Tuple[int, ...]
    text: str
    replacements: Tuple[Replacement, ...]


class Pdu(NamedTuple):
    """What is sent: the service centre, where there is one, and the TPDU. str() is hexadecimal, bytes() the octets.

    tpdu_octets: those of the TPDU, as modems want to be told: AT+CMGS=tpdu_octets
    """

    octets: bytes
    tpdu_octets: int

    def __str__(self) -> str:
        return self.octets.hex().upper()

    def __bytes__(self) -> bytes:
        return self.octets


class Part(NamedTuple):
    """One part of a message, its number from 1: the Message that was given to the joiner."""

    number: int
    message: _core.Message


class Gap(NamedTuple):
    """Parts first to last, which have not come: where they belong in the text, in characters, and in the data."""

    first: int
    last: int
    text_offset: int
    data_offset: int


class Joined(NamedTuple):
    """A message, whole or as much of it as has come.

    text, data: of all parts that have come
    outcome: why it is handed back
    total: parts that it has
    parts: those that have come
    gaps: those that have not
    before: of a duplicate, the Message that came before, as long as the joiner has it
    """

    text: str
    data: bytes
    outcome: Outcome
    total: int
    parts: Tuple[Part, ...]
    gaps: Tuple[Gap, ...]
    before: Optional[_core.Message]


class SerialNumber(NamedTuple):
    """Tells messages of cell broadcast of one identifier from each other.

    has_emergency_alert, has_popup: in messages of ETWS the message code asks for these
    """

    value: int
    scope: Scope
    message_code: int
    update_number: int
    has_emergency_alert: bool
    has_popup: bool


class CellCoding(NamedTuple):
    """A data coding scheme of cell broadcast. str() says what it means.

    language: ISO 639, "de"; None where the scheme names none
    has_header: a user-data header begins each page
    """

    value: int
    group: CellCodingGroup
    alphabet: Alphabet
    message_class: Optional[int]
    is_compressed: bool
    has_header: bool
    is_reserved: bool
    language: Optional[str]

    def __str__(self) -> str:
        return _core.cell_coding_meaning(self.value)


class Page(NamedTuple):
    """The content of one page of cell broadcast.

    text: without padding; empty where there is no text
    octets: as far as they are used and there, padding among them
    content: the octets from the text on; of a page without text, its data
    language: that stands before the text, or None
    text_offset, text_bit: where the text begins
    text_units, padding_units: septets, octets or UTF-16 units of the text, and of padding after it
    is_cut: a UMTS message ends before the length of the page
    """

    number: int
    text: str
    octets: bytes
    content: bytes
    elements: Tuple[Element, ...]
    is_header_ignored: bool
    locking: Language
    single: Language
    language: Optional[str]
    text_offset: int
    text_bit: int
    text_units: int
    padding_units: int
    is_cut: bool


class EtwsWarning(NamedTuple):
    """What an ETWS primary notification says beside serial number and identifier. words.warning_type_name() names the type."""

    value: int
    type: int
    has_emergency_alert: bool
    has_popup: bool
    time: Optional[datetime]
    signature: bytes


class CellReading(NamedTuple):
    """What octets of cell broadcast say.

    octets: that were read
    format: as told or as recognised
    text, language: of all pages that are there
    coding: of pages and messages; None of a notification
    total: pages of the message
    pages: one of a GSM page, of a message as many as are there
    warning: of a notification
    places, remarks: as of a Message
    """

    octets: bytes
    format: CellFormat
    text: str
    language: Optional[str]
    serial: Optional[SerialNumber]
    message_identifier: int
    coding: Optional[CellCoding]
    total: int
    pages: Tuple[Page, ...]
    warning: Optional[EtwsWarning]
    places: Tuple[Place, ...]
    remarks: Tuple[Remark, ...]


class CellMessage(NamedTuple):
    """A message of cell broadcast, of the pages that have come.

    is_given_up: it is handed back as it is not held any more, not as it is complete
    missing: the numbers of the pages that have not come whole
    """

    text: str
    is_given_up: bool
    serial: SerialNumber
    message_identifier: int
    coding: CellCoding
    total: int
    pages: Tuple[Page, ...]
    missing: Tuple[int, ...]


class PagesTaken(NamedTuple):
    """What a page did: messages given up, and the one that it completes. A duplicate has come before."""

    is_duplicate: bool
    messages: Tuple[CellMessage, ...]


class WrittenCell(NamedTuple):
    """What a text has become: the octets of each GSM page, or of the one UMTS message, of so many pages."""

    octets: Tuple[bytes, ...]
    pages: int
    coding: CellCoding


def _describe_members() -> None:
    """Has help() say of each member of a record what its class says."""
    for record in globals().values():
        if isinstance(record, type) and issubclass(record, tuple):
            for name, kind in record.__annotations__.items():
                getattr(record, name).__doc__ = str(getattr(kind, "__name__", kind)).replace("typing.", "")
            for line in (record.__doc__ or "").splitlines():
                names, separator, said = line.strip().partition(": ")
                for name in names.split(", "):
                    if separator and name in record.__annotations__:
                        getattr(record, name).__doc__ = said


_describe_members()
