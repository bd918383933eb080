#include "Parts.h"

namespace qxpdu {

namespace {

/// Septet `index` of those that begin with the lowest bit of an octet. Septets behind the PDU are 0.
unsigned char SeptetAt(const Encoding::Pdu& pdu, unsigned int begin, unsigned int index) {
    const unsigned int bit = 7 * index;
    const unsigned int octet = begin + bit / 8;
    const auto at = [&pdu](unsigned int offset) -> unsigned int {
        return offset < pdu.m_Length ? pdu.m_Bytes[offset] : 0;
    };
    return static_cast<unsigned char>((at(octet) | at(octet + 1) << 8) >> bit % 8 & 0x7F);
}

} // namespace

std::optional<bool> HasWideReference(const PduWalk& walk) {
    std::optional<bool> isWide;
    for (const PduField& field : walk.fields) {
        const auto* header = std::get_if<HeaderValue>(&field.value);
        if (header == nullptr)
            continue;
        for (const HeaderElement& element : header->elements) {
            if (IsConcatenation(element))
                isWide = element.identifier == c_concatenation16;
        }
    }
    return isWide;
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
            headerSeptets = (8 * field.length + 6) / 7; // with fill bits
    }
    if (count <= headerSeptets)
        return std::nullopt;
    return EdgeCodes{SeptetAt(pdu, begin, headerSeptets), SeptetAt(pdu, begin, count - 1)};
}

} // namespace qxpdu
