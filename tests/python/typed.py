"""How the types are used; mypy holds it to them, and never runs it."""
from array import array
from datetime import datetime
from typing import Optional

import qxpdu


def sender(message: qxpdu.Message) -> Optional[str]:
    return message.address.written if message.address else None


def summary(pdu: bytes) -> str:
    message: qxpdu.Message = qxpdu.decode(pdu, direction=qxpdu.Direction.TO_MOBILE)
    time: Optional[datetime] = message.time
    value = message.header[0].value if message.header else None
    if isinstance(value, qxpdu.Concatenation):
        return f"{value.part} of {value.total}"
    return f"{sender(message)} {time}: {message.text}"


def sound(pdus: list[str]) -> list[qxpdu.Message]:
    messages: list[qxpdu.Message] = qxpdu.decode_many(pdus)
    for item in qxpdu.decode_many(pdus, return_errors=True):
        if isinstance(item, qxpdu.PduError):
            print(item.field, item.octet)
        else:
            print(item.text)
    return messages


def either(pdus: list[array[int]], errors: bool) -> int:
    return len(qxpdu.decode_many(pdus, return_errors=errors))


def without_validity(message: qxpdu.Message) -> bytes:
    return qxpdu.encode(like=message, validity=None, ports=None, wide_reference=None)[0].octets


def written(text: str) -> list[str]:
    return [str(pdu) for pdu in qxpdu.encode(text, "+4179123", languages=[qxpdu.Language.TURKISH], ports=qxpdu.Ports(1, 2))]
