// The tool's walk over a PDU and its map of the octets, against PduDecoder::Decode. Input: flags (1 the TPDU
// alone, 2 times without zone), the PDU.
#include <bit>
#include <map>

#include "Encoding/PduDecoder.h"
#include "Input.h"
#include "Property.h"
#include "show/CodeUnits.h"
#include "show/OctetMap.h"
#include "show/PduWalk.h"

namespace {

using namespace Encoding;
using namespace fuzz;

/// Each octet up to the end of the last field belongs to one field, or its bits to one each.
void RequireCoveredOnce(const qxpdu::PduWalk& walk, unsigned int length) {
    unsigned int covered = 0;
    std::map<unsigned int, unsigned int> bits; // by octet
    for (const qxpdu::PduField& field : walk.fields) {
        Require(field.length > 0, "a field has octets");
        if (field.mask != qxpdu::c_wholeOctet) {
            Require(field.length == 1 && (bits[field.offset] & field.mask) == 0,
                    "a bit belongs to one field");
            bits[field.offset] |= field.mask;
            Require(field.offset == covered || field.offset + 1 == covered,
                    "bit fields stand in their place");
            covered = field.offset + 1;
            continue;
        }
        Require(field.offset == covered, "a field begins where the one before it ends");
        covered += field.length;
    }
    Require(covered <= length, "fields lie within the PDU");
    if (walk.stop)
        Require(walk.stop->offset <= length && !walk.stop->expected.empty() && !walk.stop->found.empty(),
                "a stop has a place and a reason");
}

/// The numbers of a walk are those that the decoder read.
void RequireSameValues(const qxpdu::PduWalk& walk, const PduDecoder& decoder) {
    const std::map<std::string_view, int> numbers = {{"TP-MR", decoder.m_MessageReference},
                                                     {"TP-PID", decoder.m_ProtocolId},
                                                     {"TP-UDL", decoder.m_UserDataLength}};
    for (const qxpdu::PduField& field : walk.fields) {
        if (const auto number = numbers.find(field.name); number != numbers.end())
            Require(std::get<qxpdu::NumberValue>(field.value).number ==
                        static_cast<unsigned int>(number->second),
                    "walk and decoder read the same numbers");
        if (const auto* coding = std::get_if<qxpdu::DataCodingValue>(&field.value))
            Require(coding->number == static_cast<unsigned int>(decoder.m_DataCoding) &&
                        (walk.stop ||
                         (coding->alphabet == decoder.m_Alphabet && coding->messageClass == decoder.m_Class)),
                    "walk and decoder read the same data coding");
    }
}

/// Each octet belongs to one row, and of an octet of bits, each bit to one entry.
void RequireMappedOnce(const std::vector<qxpdu::OctetRow>& rows, const Pdu& pdu) {
    unsigned int end = 0;
    for (const qxpdu::OctetRow& row : rows) {
        Require(row.offset == end && row.length > 0, "a row begins where the one before it ends");
        end += row.length;
        unsigned int masks = 0;
        unsigned int octet = 0;
        for (const qxpdu::OctetBits& bits : row.bits) {
            Require((masks & bits.mask) == 0, "a bit has one entry");
            masks |= bits.mask;
            octet |= bits.value << std::countr_zero(bits.mask);
        }
        Require(row.bits.empty() || (masks == 0xFF && octet == pdu.m_Bytes[row.offset]),
                "the bits make the octet");
    }
    Require(end == pdu.m_Length, "the rows hold the whole PDU");
}

/// The text of the rows is where the decoder's begins.
void RequireSameText(const std::vector<qxpdu::OctetRow>& rows, const PduDecoder& decoder) {
    std::string text;
    for (const qxpdu::OctetRow& row : rows) {
        if (row.isText && row.field == "TP-UD")
            text += row.value.get<std::string>();
    }
    Require(qxpdu::ToUtf8(decoder.m_Text).starts_with(text), "map and decoder read the same text");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    const unsigned int flags = input.Octet();
    const bool noSmsc = (flags & 1) != 0;
    const bool ignoreTimeZone = (flags & 2) != 0;
    const Toolkit::smart_ptr<Pdu> pdu = input.Pdu();

    PduDecoder walker;
    const qxpdu::PduWalk walk = qxpdu::WalkPdu(walker, pdu, noSmsc, ignoreTimeZone);
    PduDecoder decoder;
    Require((decoder.Decode(pdu, noSmsc, ignoreTimeZone) == 0) == walk.stop.has_value(),
            "a walk stops exactly where the decoder rejects the PDU");
    RequireCoveredOnce(walk, pdu->m_Length);
    RequireSameValues(walk, decoder);

    const std::vector<qxpdu::OctetRow> rows = qxpdu::MapOctets(*pdu, walk, noSmsc);
    RequireMappedOnce(rows, *pdu);
    if (!walk.stop)
        RequireSameText(rows, decoder);
    return 0;
}
