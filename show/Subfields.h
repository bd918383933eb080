// What the data of a header element are made of, 3GPP TS 23.040 clause 9.2.3.24.
#ifndef SHOW_SUBFIELDS_H
#define SHOW_SUBFIELDS_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Messages/Header.h"
#include "show/OctetBits.h"

namespace show {

/// Neighbouring octets of an element's data that say one thing.
struct Subfield {
    std::string_view name;
    std::uint8_t octets;
    unsigned int value;
    std::string_view meaning = {};    ///< may be empty
    std::vector<OctetBits> bits = {}; ///< of an octet of bits
};
using Subfields = std::vector<Subfield>;

/// All subfields of the data, in their order; none where they are not known, or have another length than they
/// should. A reply address has none either: it is an address.
Subfields SubfieldsOf(const Messages::HeaderElement& element, Messages::OctetView data);

/// "concatenation, 8-bit reference: reference 42, total 3, part 2"
std::string MeaningOf(const Messages::HeaderElement& element, Messages::OctetView data);

/// The same of all elements of a header in octets of user data, a line for each; "ignored" of a header that
/// is.
std::string MeaningOfHeader(const std::vector<Messages::HeaderElement>& elements,
                            Messages::OctetView userData, bool isIgnored);

} // namespace show

#endif
