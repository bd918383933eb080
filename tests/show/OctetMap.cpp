// The map of a PDU has every octet exactly once and says what the decoder says, for any octets.
#include "show/OctetMap.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "show/CodeUnits.h"
#include "show/Samples.h"
#include "support/Octets.h"

namespace {

using Encoding::Pdu;
using Encoding::PduDecoder;
using qxpdu::OctetBits;
using qxpdu::OctetRow;
using qxpdu::PduWalk;
using tests::Bytes;

using Rows = std::vector<OctetRow>;

/// The value of the last row with this name, or null.
qxpdu::Json ValueOf(const Rows& rows, std::string_view name) {
    qxpdu::Json value;
    for (const OctetRow& row : rows) {
        if (NameOf(row) == name)
            value = row.value;
    }
    return value;
}

void ExpectNumber(const Rows& rows, std::string_view name, int decoded) {
    if (const qxpdu::Json value = ValueOf(rows, name); !value.is_null()) {
        EXPECT_EQ(value.get<int>(), decoded) << name;
    }
}

void ExpectAddress(const Rows& rows, const std::string& field, const TString<wchar_t>& decoded) {
    for (const char* part : {" digits", " text"}) {
        if (const qxpdu::Json value = ValueOf(rows, field + part); !value.is_null()) {
            EXPECT_EQ(value.get<std::string>(), qxpdu::ToUtf8(decoded)) << field;
        }
    }
}

void ExpectTime(const Rows& rows, const std::string& field,
                const Toolkit::smart_ptr<Toolkit::DateTime>& decoded) {
    for (const OctetRow& row : rows) {
        if (NameOf(row) == field + " year") {
            EXPECT_EQ(row.meaning, decoded.get() == nullptr ? "" : std::string(decoded->ToString()));
        }
    }
}

void ExpectEveryOctetOnce(const Rows& rows, unsigned int length) {
    unsigned int end = 0;
    for (const OctetRow& row : rows) {
        EXPECT_EQ(row.offset, end) << NameOf(row);
        EXPECT_GE(row.length, 1U) << NameOf(row);
        end += row.length;
    }
    EXPECT_EQ(end, length);
}

void ExpectEveryBitOnce(const OctetRow& row, const Bytes& octets) {
    if (row.bits.empty())
        return;
    unsigned int covered = 0;
    unsigned int octet = 0;
    unsigned int above = 0x100;
    for (const OctetBits& bits : row.bits) {
        const unsigned int lowest = bits.mask & (~bits.mask + 1);
        EXPECT_EQ(covered & bits.mask, 0U) << NameOf(row) << ": " << bits.name;
        EXPECT_LT(bits.mask, above) << NameOf(row) << ": " << bits.name;
        covered |= bits.mask;
        octet |= bits.value * lowest;
        above = lowest;
    }
    EXPECT_EQ(covered, 0xFFU) << NameOf(row);
    EXPECT_EQ(octet, octets[row.offset]) << NameOf(row);
}

/// The rows of user data hold the decoder's text one after the other, as far as the PDU holds it.
void ExpectText(const Rows& rows, const PduDecoder& decoder) {
    std::string shown;
    bool isWhole = true;
    for (const OctetRow& row : rows) {
        if (row.isText && row.field == "TP-UD")
            shown += row.value.get<std::string>();
        for (const std::string& fault : row.unusual)
            isWhole = isWhole && fault.find("missing") == std::string::npos &&
                      fault.find("after the PDU") == std::string::npos;
    }
    const std::string text = qxpdu::ToUtf8(decoder.m_Text);
    if (isWhole) {
        EXPECT_EQ(shown, text);
    } else {
        EXPECT_LE(shown.size(), text.size());
    }
}

/// Elements that the standard's length makes readable agree with the decoder, where one sets its values.
void ExpectConcatenation(const Rows& rows, const PduWalk& walk, const PduDecoder& decoder) {
    for (const qxpdu::PduField& field : walk.fields) {
        const auto* header = std::get_if<qxpdu::HeaderValue>(&field.value);
        if (header == nullptr || walk.stop)
            continue;
        const auto setsValues = [](const qxpdu::HeaderElement& element) {
            return IsConcatenation(element) || element.identifier == 1;
        };
        if (std::count_if(header->elements.begin(), header->elements.end(), setsValues) != 1)
            continue;
        ExpectNumber(rows, "TP-UDH reference", decoder.m_ConcatReference);
        ExpectNumber(rows, "TP-UDH total", decoder.m_ConcatTotal);
        ExpectNumber(rows, "TP-UDH sequence", decoder.m_ConcatSequence);
        ExpectNumber(rows, "TP-UDH message count", decoder.m_ConcatTotal);
    }
}

void ExpectMapAgrees(const Bytes& octets, bool noSmsc) {
    SCOPED_TRACE(tests::Hex(octets));
    const auto pdu = tests::MakePdu(octets);
    PduDecoder decoder;
    const bool isDecoded = decoder.Decode(pdu, noSmsc, false) != 0;
    PduDecoder walking;
    const PduWalk walk = qxpdu::WalkPdu(walking, pdu, noSmsc, false);
    const Rows rows = qxpdu::MapOctets(*pdu, walk, noSmsc);
    EXPECT_EQ(tests::Hex(pdu->m_Bytes, pdu->m_Length), tests::Hex(octets)) << "the PDU stays as it is";
    ExpectEveryOctetOnce(rows, static_cast<unsigned int>(octets.size()));
    for (const OctetRow& row : rows)
        ExpectEveryBitOnce(row, octets);
    ExpectAddress(rows, "SC address", decoder.m_Smsc);
    ExpectAddress(rows, "TP-OA", decoder.m_Originator);
    ExpectAddress(rows, "TP-DA", decoder.m_Recipient);
    ExpectAddress(rows, "TP-RA", decoder.m_Recipient);
    ExpectNumber(rows, "TP-MR", decoder.m_MessageReference);
    ExpectNumber(rows, "TP-PID", decoder.m_ProtocolId);
    ExpectNumber(rows, "TP-DCS", decoder.m_DataCoding);
    ExpectNumber(rows, "TP-UDL", decoder.m_UserDataLength);
    if (decoder.m_ValidityFormat == 1)
        ExpectNumber(rows, "TP-VP", decoder.m_ValidityPeriod);
    ExpectTime(rows, "TP-SCTS", decoder.m_ServiceCentreTime);
    ExpectTime(rows, "TP-DT", decoder.m_DischargeTime);
    ExpectTime(rows, "TP-VP", decoder.m_ValidityTime);
    ExpectConcatenation(rows, walk, decoder);
    if (isDecoded)
        ExpectText(rows, decoder);
}

void ExpectMapsAgree(const Bytes& octets) {
    for (const bool noSmsc : {false, true})
        ExpectMapAgrees(octets, noSmsc);
}

TEST(OctetMap, HasEveryOctetOnceAndAgreesWithTheDecoderOnEveryTruncation) {
    for (const char* sample : tests::c_samplePdus) {
        for (Bytes octets = tests::Octets(sample); !octets.empty() && !HasFailure(); octets.pop_back())
            ExpectMapsAgree(octets);
    }
}

TEST(OctetMap, HasEveryOctetOnceAndAgreesWithTheDecoderOnEveryFlippedBit) {
    for (const char* sample : tests::c_samplePdus) {
        const Bytes octets = tests::Octets(sample);
        for (std::size_t bit = 0; bit < 8 * octets.size() && !HasFailure(); ++bit) {
            Bytes flipped = octets;
            flipped[bit / 8] = static_cast<unsigned char>(flipped[bit / 8] ^ (1U << bit % 8));
            ExpectMapsAgree(flipped);
        }
    }
}

TEST(OctetMap, HasEveryOctetOnceAndAgreesWithTheDecoderOnRandomOctets) {
    const unsigned int seed = std::random_device{}();
    std::mt19937 random(seed);
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        ExpectMapsAgree(tests::RandomPdu(random));
    }
}

} // namespace
