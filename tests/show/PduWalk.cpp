// The walk over a PDU says the same as the decoder, for any octets.
#include "show/PduWalk.h"

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "show/Samples.h"
#include "support/Octets.h"

namespace {

using Encoding::NumberingPlan;
using Encoding::Pdu;
using Encoding::PduDecoder;
using Encoding::TypeOfNumber;
using qxpdu::PduField;
using qxpdu::PduWalk;
using tests::Bytes;

const PduField* FieldNamed(const PduWalk& walk, std::string_view name) {
    const auto field = std::find_if(walk.fields.begin(), walk.fields.end(),
                                    [name](const PduField& candidate) { return candidate.name == name; });
    return field == walk.fields.end() ? nullptr : &*field;
}

/// A number that the walk and the decoder both know; a field that is not there says nothing.
void ExpectNumber(const PduWalk& walk, std::string_view name, int decoded) {
    if (const PduField* field = FieldNamed(walk, name)) {
        EXPECT_EQ(std::get<qxpdu::NumberValue>(field->value).number, static_cast<unsigned int>(decoded))
            << name;
    }
}

/// The bits that stand for a type of number; 0 stands for those without a name of their own.
constexpr std::pair<unsigned int, TypeOfNumber::TON> c_typesOfNumber[] = {
    {1, TypeOfNumber::TON_INTERNATIONAL},
    {5, TypeOfNumber::TON_ALPHANUMERIC},
    {7, TypeOfNumber::TON_RESERVED}};
constexpr std::pair<unsigned int, NumberingPlan::NPI> c_numberingPlans[] = {
    {1, NumberingPlan::NPI_ISDN},     {3, NumberingPlan::NPI_DATA},    {4, NumberingPlan::NPI_TELEX},
    {8, NumberingPlan::NPI_NATIONAL}, {9, NumberingPlan::NPI_PRIVATE}, {10, NumberingPlan::NPI_ERMES},
    {15, NumberingPlan::NPI_RESERVED}};

/// The bits of TP-VPF, and how the decoder numbers what they stand for.
constexpr std::pair<unsigned int, int> c_validityFormats[] = {{2, 1}, {1, 2}, {3, 3}};

template <class Table, class Value>
Value ValueIn(const Table& table, unsigned int bits, Value others) {
    for (const auto& [key, value] : table) {
        if (key == bits)
            return value;
    }
    return others;
}

void ExpectAddress(const PduWalk& walk, std::string_view name, const TString<wchar_t>& decoded,
                   TypeOfNumber::TON type, NumberingPlan::NPI plan) {
    if (const PduField* field = FieldNamed(walk, name)) {
        const auto& address = std::get<qxpdu::AddressValue>(field->value);
        EXPECT_EQ(address.number, std::string(decoded.begin(), decoded.end())) << name;
        EXPECT_EQ(ValueIn(c_typesOfNumber, address.typeOfNumber, TypeOfNumber::TON_UNKNOWN), type) << name;
        EXPECT_EQ(ValueIn(c_numberingPlans, address.numberingPlan, NumberingPlan::NPI_UNKNOWN), plan) << name;
    }
}

void ExpectTime(const PduWalk& walk, std::string_view name,
                const Toolkit::smart_ptr<Toolkit::DateTime>& decoded) {
    if (const PduField* field = FieldNamed(walk, name)) {
        EXPECT_EQ(std::get<qxpdu::TimeValue>(field->value).time,
                  decoded.get() == nullptr ? "" : std::string(decoded->ToString()));
    }
}

/// Fields lie inside the PDU, without gap or overlap, and those of the first octet share no bit.
void ExpectInOrder(const PduWalk& walk, unsigned int length) {
    unsigned int end = 0;
    unsigned int bits = 0;
    for (const PduField& field : walk.fields) {
        const bool sharesOctet = bits != 0 && field.mask != 0xFF;
        EXPECT_EQ(field.offset, sharesOctet ? end - 1 : end) << field.name;
        EXPECT_EQ(sharesOctet ? bits & field.mask : 0U, 0U) << field.name;
        bits = field.mask == 0xFF ? 0 : (sharesOctet ? bits : 0) | field.mask;
        EXPECT_GE(field.length, 1U) << field.name;
        end = field.offset + field.length;
        EXPECT_LE(end, length) << field.name;
    }
    if (walk.stop) {
        EXPECT_LE(walk.stop->offset, length) << walk.stop->field;
    }
}

void ExpectSameAsDecoder(const Bytes& octets, bool noSmsc, bool ignoreTimeZone) {
    SCOPED_TRACE(tests::Hex(octets));
    const auto pdu = tests::MakePdu(octets);
    PduDecoder decoder;
    const int decoded = decoder.Decode(pdu, noSmsc, ignoreTimeZone);
    PduDecoder walking;
    const PduWalk walk = qxpdu::WalkPdu(walking, pdu, noSmsc, ignoreTimeZone);
    EXPECT_EQ(decoded != 0, !walk.stop.has_value());
    ExpectInOrder(walk, static_cast<unsigned int>(octets.size()));
    ExpectAddress(walk, "SC address", decoder.m_Smsc, decoder.m_SmscTon, decoder.m_SmscNpi);
    ExpectAddress(walk, "TP-OA", decoder.m_Originator, decoder.m_NumberTon, decoder.m_NumberNpi);
    ExpectAddress(walk, "TP-DA", decoder.m_Recipient, decoder.m_NumberTon, decoder.m_NumberNpi);
    ExpectAddress(walk, "TP-RA", decoder.m_Recipient, decoder.m_NumberTon, decoder.m_NumberNpi);
    ExpectNumber(walk, "TP-RP", decoder.m_ReplyPath);
    if (!walk.stop && FieldNamed(walk, "TP-UDL") != nullptr) // the decoder reads it with the user data only
        ExpectNumber(walk, "TP-UDHI", decoder.m_HasUserDataHeader);
    if (const PduField* format = FieldNamed(walk, "TP-VPF")) {
        const unsigned int bits = std::get<qxpdu::NumberValue>(format->value).number;
        EXPECT_EQ(ValueIn(c_validityFormats, bits, 0), decoder.m_ValidityFormat);
    }
    if (const PduField* status = FieldNamed(walk, "TP-ST")) {
        const unsigned int octet = std::get<qxpdu::NumberValue>(status->value).number;
        EXPECT_EQ(PduDecoder().ReadStatus(static_cast<unsigned char>(octet)), decoder.m_Status);
    }
    ExpectNumber(walk, "TP-MR", decoder.m_MessageReference);
    ExpectNumber(walk, "TP-PID", decoder.m_ProtocolId);
    ExpectNumber(walk, "TP-UDL", decoder.m_UserDataLength);
    ExpectNumber(walk, "TP-RD", decoder.m_RejectDuplicates);
    ExpectNumber(walk, "TP-SRR", decoder.m_StatusReport);
    ExpectTime(walk, "TP-SCTS", decoder.m_ServiceCentreTime);
    ExpectTime(walk, "TP-DT", decoder.m_DischargeTime);
    if (const PduField* coding = FieldNamed(walk, "TP-DCS"); coding != nullptr && !walk.stop) {
        const auto& value = std::get<qxpdu::DataCodingValue>(coding->value);
        EXPECT_EQ(value.number, static_cast<unsigned int>(decoder.m_DataCoding));
        EXPECT_EQ(value.alphabet, decoder.m_Alphabet);
        EXPECT_EQ(value.messageClass, decoder.m_Class);
    }
    if (const PduField* validity = FieldNamed(walk, "TP-VP")) {
        if (decoder.m_ValidityFormat == 1)
            ExpectNumber(walk, "TP-VP", decoder.m_ValidityPeriod);
        else
            ExpectTime(walk, "TP-VP", decoder.m_ValidityTime);
        EXPECT_EQ(validity->length, decoder.m_ValidityFormat == 1 ? 1U : 7U);
    }
    const PduField* header = FieldNamed(walk, "TP-UDH");
    const bool concatenated =
        header != nullptr && std::get<qxpdu::HeaderValue>(header->value).HasConcatenation();
    if (!concatenated && !walk.stop) {
        EXPECT_EQ(decoder.m_ConcatReference, 0);
    }
}

void ExpectSameInEveryWay(const Bytes& octets) {
    for (const bool noSmsc : {false, true}) {
        for (const bool ignoreTimeZone : {false, true})
            ExpectSameAsDecoder(octets, noSmsc, ignoreTimeZone);
    }
}

TEST(PduWalk, AgreesWithTheDecoderOnEveryTruncationOfEverySample) {
    for (const char* sample : tests::c_samplePdus) {
        for (Bytes octets = tests::Octets(sample); !octets.empty() && !HasFailure(); octets.pop_back())
            ExpectSameInEveryWay(octets);
    }
}

TEST(PduWalk, AgreesWithTheDecoderOnEveryFlippedBitOfEverySample) {
    for (const char* sample : tests::c_samplePdus) {
        const Bytes octets = tests::Octets(sample);
        for (std::size_t bit = 0; bit < 8 * octets.size() && !HasFailure(); ++bit) {
            Bytes flipped = octets;
            flipped[bit / 8] = static_cast<unsigned char>(flipped[bit / 8] ^ (1U << bit % 8));
            ExpectSameInEveryWay(flipped);
        }
    }
}

TEST(PduWalk, AgreesWithTheDecoderOnRandomOctets) {
    const unsigned int seed = std::random_device{}();
    std::mt19937 random(seed);
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        ExpectSameInEveryWay(tests::RandomPdu(random));
    }
}

TEST(PduWalk, LargestHeaderAtTheEndOfTheLargestPduIsReadAsZerosBehindIt) {
    // The user data begin with the last octet; the header claims 255 octets and is all zeros.
    Bytes octets = tests::Octets("FD81");
    octets.resize(1 + 0xFD, 0x11);
    const Bytes submit = tests::Octets("41 00 FF 91");
    octets.insert(octets.end(), submit.begin(), submit.end());
    octets.resize(octets.size() + 128, 0x11);
    const Bytes coding = tests::Octets("00 00 FF");
    octets.insert(octets.end(), coding.begin(), coding.end());
    octets.push_back(0xFE);
    ASSERT_LE(octets.size(), std::size_t{Pdu::CAPACITY});
    const auto pdu = tests::MakePdu(octets);
    PduDecoder decoder;
    const PduWalk walk = qxpdu::WalkPdu(decoder, pdu, false, false);
    ASSERT_FALSE(walk.stop.has_value()) << walk.stop->field << walk.stop->Reason();
    const PduField* header = FieldNamed(walk, "TP-UDH");
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(header->length, 1U);
    const auto& elements = std::get<qxpdu::HeaderValue>(header->value).elements;
    ASSERT_EQ(elements.size(), 127U);
    EXPECT_EQ(elements.front().present, 0U);
    EXPECT_EQ(FieldNamed(walk, "TP-UD"), nullptr);
    ExpectSameAsDecoder(octets, false, false);
}

} // namespace
