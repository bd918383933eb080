#include "commands/Parts.h"

namespace qxpdu {

namespace {

/// Octets after the PDU are 0.
unsigned int OctetAt(const Encoding::Pdu& pdu, unsigned int offset) {
    return offset < pdu.m_Length ? pdu.m_Bytes[offset] : 0;
}

/// Septet `index` of those that begin with the lowest bit of an octet.
unsigned char SeptetAt(const Encoding::Pdu& pdu, unsigned int begin, unsigned int index) {
    const unsigned int bit = 7 * index;
    const unsigned int octet = begin + bit / 8;
    return static_cast<unsigned char>((OctetAt(pdu, octet) | OctetAt(pdu, octet + 1) << 8) >> bit % 8 & 0x7F);
}

/// Total and sequence stand after the reference, which is one octet or two.
Concatenation ConcatenationIn(const HeaderElement& element, const Encoding::Pdu& pdu) {
    const bool isWide = element.identifier == c_concatenation16;
    const auto at = [&](unsigned int index) {
        return static_cast<int>(OctetAt(pdu, element.offset + index));
    };
    return isWide ? Concatenation{true, at(0) << 8 | at(1), at(2), at(3)}
                  : Concatenation{false, at(0), at(1), at(2)};
}

} // namespace

std::optional<Concatenation> ConcatenationOf(const Encoding::Pdu& pdu, const PduWalk& walk) {
    std::optional<Concatenation> last;
    for (const PduField& field : walk.fields) {
        const auto* header = std::get_if<HeaderValue>(&field.value);
        if (header == nullptr)
            continue;
        for (const HeaderElement& element : header->elements) {
            if (IsConcatenation(element))
                last = ConcatenationIn(element, pdu);
        }
    }
    return last;
}

std::optional<EdgeCodes> EdgeCodesOf(const Encoding::Pdu& pdu, const PduWalk& walk) {
    unsigned int begin = 0;
    unsigned int count = 0;
    unsigned int headerSeptets = 0;
    for (const PduField& field : walk.fields) {
        if (const auto* coding = std::get_if<DataCodingValue>(&field.value);
            coding != nullptr && coding->alphabet != Encoding::Alphabet::ALPHABET_GSM7)
            return std::nullopt;
        if (field.name == "TP-UDL") {
            begin = field.offset + 1;
            count = std::get<NumberValue>(field.value).number;
        }
        if (field.name == "TP-UDH")
            headerSeptets = HeaderSeptets(field.length);
    }
    if (count <= headerSeptets)
        return std::nullopt;
    return EdgeCodes{SeptetAt(pdu, begin, headerSeptets), SeptetAt(pdu, begin, count - 1)};
}

} // namespace qxpdu
