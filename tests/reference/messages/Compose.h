// Octets of TPDUs, put together field by field, for the vectors and the random cases.
#ifndef TESTS_REFERENCE_MESSAGES_COMPOSE_H
#define TESTS_REFERENCE_MESSAGES_COMPOSE_H

#include <initializer_list>
#include <string>
#include <vector>

#include "model/Reading.h"

namespace plain {

using Septets = std::vector<int>;

/// Octets out of pieces, in their order.
Octets Join(std::initializer_list<Octets> pieces);
Octets One(int octet);
/// Two octets, the higher one first.
Octets Word(int value);

/// Septets in octets, from the bit `fillBits` of the first octet on.
Octets Packed(const Septets& septets, int fillBits = 0);
/// The septets of a text of digits, letters and spaces: those codes of the default alphabet that are ASCII's.
Septets Plain(const std::string& text);

/// An address of the TPDU: length, type, semi-octets. The digits are those of hexadecimal.
Octets DigitAddress(const std::string& digits, int type = 0x91);
/// An alphanumeric address.
Octets LetterAddress(const Septets& septets, int type = 0xD0);
/// A service centre's address.
Octets CentreAddress(const std::string& digits, int type = 0x91);

/// A header element: identifier, length, octets.
Octets HeaderElement(int identifier, const Octets& octets);
/// A header: its length, and elements.
Octets Header(std::initializer_list<Octets> elements);

/// TP-UDL and TP-UD of septets after a header, which may be empty.
Octets SeptetData(const Octets& header, const Septets& septets);
/// TP-UDL and TP-UD of octets after a header, which may be empty.
Octets OctetData(const Octets& header, const Octets& octets);

/// A time that nothing is odd about: 2026-03-14, 15:09:26, one hour east of UTC.
Octets SomeTime();
/// An address that nothing is odd about.
Octets SomeAddress();
/// TP-UDL and TP-UD of a text of four septets.
Octets SomeData();

} // namespace plain

#endif
