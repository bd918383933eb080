// Random input, most of it plausible.
#ifndef TESTS_REFERENCE_INPUTS_H
#define TESTS_REFERENCE_INPUTS_H

#include "Random.h"
#include "model/Pdu.h"
#include "model/Types.h"

namespace reference {

/// Of GSM, extension, Greek and foreign characters, surrogates, controls and values above U+FFFF; or of one
/// of these kinds alone. The length is often one where a part ends.
model::Text RandomText(Random& random);
/// Shorter than that, for tests where a length means nothing.
model::Text RandomShortText(Random& random);
/// One character of any kind, in 16 bits.
std::uint16_t RandomCharacter(Random& random);
/// Unpacked GSM codes, escapes and stray octets among them.
model::Octets RandomGsmCodes(Random& random);
/// Something that is, or nearly is, hexadecimal text.
std::string RandomHexText(Random& random, std::uint32_t maxLength);
/// A telephone number as people write it, or worse.
model::Text RandomNumber(Random& random);
/// Selected translation tables: mostly none or the Greek one, at times others, twice and zero.
std::vector<int> RandomTables(Random& random);

/// Octets of any length up to this one.
model::Octets RandomOctets(Random& random, std::uint32_t maxLength);
/// A PDU of these octets; at times with remains of an earlier one after them, or a length beyond them.
model::Pdu PduOfOctets(Random& random, const model::Octets& octets);

struct Message {
    model::Pdu pdu;
    bool noSmsc;
};
/// A message of any type, its fields random; at times cut off, altered, or noise.
Message RandomMessage(Random& random);
/// An address field at `offset`, other octets around it.
model::Pdu RandomAddressPdu(Random& random, std::uint32_t& offset, bool semiOctets);
/// A time stamp at `offset`, other octets around it.
model::Pdu RandomTimeStampPdu(Random& random, std::uint32_t& offset);
/// A cell broadcast page, mostly of 88 octets and mostly padded.
model::Pdu RandomPage(Random& random);

} // namespace reference

#endif
