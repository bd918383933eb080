"""Short messages and cell broadcast by 3GPP TS 23.038, TS 23.040 and TS 23.041, read, written, cut and joined.

    >>> import qxpdu
    >>> message = qxpdu.decode("0791214365870921040B912143658709F1000021203121436580" "05C8329BFD06")
    >>> print(message.address, message.time, message.text)
    +12345678901 2012-02-13 12:34:56+02:00 Hello
    >>> [str(pdu) for pdu in qxpdu.encode("hello", "+4179123")]
    ['0001000791149721F3000005E8329BFD06']

Begin with these; help() of each says more:

    decode(), decode_many()         read: they give a Message, whose attributes say all that the octets do
    encode()                        writes: it gives as many Pdu as the text takes
    count(), explain()              tell what a text costs, and why
    cut(), replace_near()           cut a text, and put near characters in
    Joiner                          joins the parts of long messages
    number(), name(), coding(), validity()  make what encode() takes
    decode_cell(), encode_cell(), PageJoiner    do the like for cell broadcast
    qxpdu.words                     says in English what numbers mean

What cannot be read or written raises PduError, a ValueError; str() of an enumeration's member is what people call it.

Results cannot be changed. Functions may be called by any number of threads at once, a joiner by one at a time.
"""
from . import words
from ._core import (Joiner, Message, PageJoiner, coding, count, cut, decode, decode_cell, decode_many, encode, encode_cell, explain,
                    library_version, name, number, replace_near, validity)
from ._records import (Address, Alphabet, CellCoding, CellCodingGroup, CellFormat, CellMessage, CellReading, Choice, Coding, CodingGroup,
                       Concatenation, CostlyCharacter, Cut, Direction, Element, EtwsWarning, Explanation, Fault, Gap, Hyperlink, Joined,
                       Language, NearText, ObjectDistribution, Outcome, Page, PagesTaken, Part, Pdu, PduError, Piece, Place, Ports,
                       PredefinedObject, Remark, Replacement, Scope, SerialNumber, SpecialMessageIndication, TextFormatting, Type,
                       TypeOfNumber, UserData, Validity, ValidityFormat, Waiting, WaitingType, WrittenCell)

__version__ = library_version

__all__ = [
    "Address", "Alphabet", "CellCoding", "CellCodingGroup", "CellFormat", "CellMessage", "CellReading", "Choice", "Coding", "CodingGroup",
    "Concatenation", "CostlyCharacter", "Cut", "Direction", "Element", "EtwsWarning", "Explanation", "Fault", "Gap", "Hyperlink", "Joined",
    "Joiner", "Language", "Message", "NearText", "ObjectDistribution", "Outcome", "Page", "PageJoiner", "PagesTaken", "Part", "Pdu",
    "PduError", "Piece", "Place", "Ports", "PredefinedObject", "Remark", "Replacement", "Scope", "SerialNumber",
    "SpecialMessageIndication", "TextFormatting", "Type", "TypeOfNumber", "UserData", "Validity", "ValidityFormat", "Waiting",
    "WaitingType", "WrittenCell", "coding", "count", "cut", "decode", "decode_cell", "decode_many", "encode", "encode_cell", "explain",
    "library_version", "name", "number", "replace_near", "validity", "words",
]
