// PDUs that held something longer before. SetBytes() leaves the old octets after the new length in the
// array: no field may end there, but user data and the walks that go past their field see them.
#include <new>
#include <utility>

#include <gtest/gtest.h>

#include "Encoding/CBMDecoder.h"
#include "Encoding/PduDecoder.h"
#include "decoder/Samples.h"
#include "support/Bits.h"
#include "support/Octets.h"

namespace {

using namespace Encoding;
using tests::Bytes;
using tests::MakePdu;
using tests::operator+;
using tests::Octets;
using tests::Wide;

/// What is left of `before` when `after` has been set over it.
Toolkit::smart_ptr<Pdu> Refill(const Bytes& before, const Bytes& after) {
    const Toolkit::smart_ptr<Pdu> pdu = MakePdu(before);
    pdu->SetBytes(after.data(), static_cast<unsigned int>(after.size()));
    return pdu;
}

const Bytes c_ones(512, 0xFF);

TEST(Refills, NoFieldEndsBehindTheNewLength) {
    const Bytes whole = Octets(tests::c_deliver);
    for (std::size_t length = 1; length <= whole.size(); ++length) {
        SCOPED_TRACE(length);
        PduDecoder decoder;
        decoder.m_Text = L"before";
        const int result = decoder.Decode(
            Refill(whole, Bytes(whole.begin(), whole.begin() + static_cast<long>(length))), false, false);
        EXPECT_EQ(result, length < 27 ? 0 : 1);
        EXPECT_EQ(decoder.m_Smsc, length < 8 ? L"" : L"+123456789012");
        EXPECT_EQ(decoder.m_Originator, length < 17 ? L"" : L"+12345678901");
        EXPECT_EQ(decoder.m_ServiceCentreTime.get() == nullptr, length < 27);
        // With TP-UDL as its last octet the text is empty; from the first octet of user data on, the old ones
        // count.
        EXPECT_EQ(decoder.m_Text, length < 27 ? L"before" : length == 27 ? L"" : L"Hello");
    }
}

TEST(Refills, UserDataGoOnIntoTheOldOctetsUnlessThePduWasCleared) {
    const struct {
        const char* what;
        const char* octets;
        TString<wchar_t> overOnes;
        TString<wchar_t> cleared;
    } rows[] = {
        {"7-bit", "00 00 04 81 21 43 00 00 21 20 31 21 43 65 00 05 C8 32", L"Heöàà", L"He@@@"},
        {"8-bit", "00 00 04 81 21 43 00 04 21 20 31 21 43 65 00 03 48 69", Wide({'H', 'i', 0xFF}),
         Wide({'H', 'i', 0})},
        {"UCS2", "00 00 04 81 21 43 00 08 21 20 31 21 43 65 00 04 00 48 20", Wide({'H', 0x20FF}),
         Wide({'H', 0x2000})},
        {"UCS2, odd count", "00 00 04 81 21 43 00 08 21 20 31 21 43 65 00 03 00 48 20", Wide({'H', 0x20FF}),
         Wide({'H', 0x2000})},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Bytes octets = Octets(row.octets);
        const Toolkit::smart_ptr<Pdu> pdu = Refill(c_ones, octets);
        PduDecoder decoder;
        EXPECT_EQ(decoder.Decode(pdu, false, false), 1);
        EXPECT_EQ(decoder.m_Text, row.overOnes);
        pdu->Clear();
        pdu->SetBytes(octets.data(), static_cast<unsigned int>(octets.size()));
        EXPECT_EQ(decoder.Decode(pdu, false, false), 1);
        EXPECT_EQ(decoder.m_Text, row.cleared);
    }
}

TEST(Refills, HeaderIsReadFromTheOldOctets) {
    const Bytes whole = Octets(tests::c_part);
    PduDecoder decoder;
    // The last octet that is left is the length of the user-data header.
    ASSERT_EQ(decoder.Decode(Refill(whole, Bytes(whole.begin(), whole.begin() + 17)), false, false), 1);
    EXPECT_EQ(decoder.m_ConcatReference, 0x2A);
    EXPECT_EQ(decoder.m_ConcatTotal, 3);
    EXPECT_EQ(decoder.m_ConcatSequence, 2);
    EXPECT_EQ(decoder.m_Text, L"ello");
}

TEST(Refills, LettersOfAnAddressTakeTheOctetBehindTheirField) {
    const Bytes field = Octets("06 D0 41 E1 10");
    for (const auto& [before, letters] : {std::pair(c_ones, L"ABCx"), std::pair(Bytes(512, 0), L"ABC")}) {
        PduDecoder decoder;
        TString<wchar_t> number;
        NumberingPlan::NPI npi{};
        TypeOfNumber::TON ton{};
        EXPECT_EQ(decoder.ReadNumber(Refill(before, field), 0, true, number, npi, ton), 5U);
        EXPECT_EQ(number, letters);
    }
}

TEST(Refills, TimeThatReachesTheNewLengthFails) {
    const Bytes octets = Octets("21 20 31 21 43 65 80 00");
    PduDecoder decoder;
    Toolkit::smart_ptr<Toolkit::DateTime> time;
    EXPECT_EQ(decoder.ReadTimeStamp(Refill(c_ones, Bytes(octets.begin(), octets.end() - 1)), 0, time, false),
              0xFFFFFFFFU);
    EXPECT_EQ(time.get(), nullptr);
    EXPECT_EQ(decoder.ReadTimeStamp(Refill(c_ones, octets), 0, time, false), 7U);
    EXPECT_EQ(time->ToString(), "2012-02-13T12:34:56+02:00");
}

TEST(Refills, TextOfAPageEndsWithTheNewLength) {
    for (std::size_t octets = 0; octets <= 82; ++octets) {
        Bytes content = tests::LayBits(Bytes(octets, 'A'), 0);
        content.resize(octets);
        CBMDecoder decoder;
        EXPECT_TRUE(decoder.Decode(Refill(c_ones, Octets("12 34 11 12 48 21") + content)));
        EXPECT_EQ(decoder.m_Text, TString<wchar_t>(octets, L'A'));
    }
}

TEST(Refills, HeaderOfAShortPageIsReadFromTheOldOctets) {
    CBMDecoder decoder;
    EXPECT_THROW(decoder.Decode(Refill(c_ones, Octets("12 34 11"))), std::bad_alloc);
    EXPECT_EQ(decoder.m_SerialNumber, 0x1234);
    EXPECT_EQ(decoder.m_MessageIdentifier, 0x11FF);
    EXPECT_EQ(decoder.m_DataCodingScheme, 0xFF);
    EXPECT_EQ(decoder.m_PageParameter, 0xFF);
}

} // namespace
