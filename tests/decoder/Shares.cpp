// What the decoders ask of the support library: the byte order for each character, and a share of each object
// while it is in use.
#include <gtest/gtest.h>

#include "Encoding/CBMDecoder.h"
#include "Encoding/PduDecoder.h"
#include "Encoding/TextDecoder.h"
#include "Toolkit/SystemInfo.h"
#include "decoder/Samples.h"
#include "support/Octets.h"
#include "support/Shares.h"

namespace {

using namespace Encoding;
using tests::s_byteOrder;
using tests::Watch;

TEST(TextDecoder, AsksForTheByteOrderOncePerCharacter) {
    const int before = tests::CountOf(*Toolkit::SystemInfo::s_pInstance);
    for (const int alphabet : {0, 4}) {
        s_byteOrder = {};
        const TextDecoder decoder(L"ABCDE", alphabet);
        EXPECT_EQ(s_byteOrder.m_Asked, 1 + 5) << "the character set's own question comes first";
        EXPECT_EQ(s_byteOrder.m_FewestShares, before + 1);
        EXPECT_EQ(tests::CountOf(*Toolkit::SystemInfo::s_pInstance), before);
    }
    s_byteOrder = {};
    const TextDecoder hex(L"00410042", 2);
    EXPECT_EQ(s_byteOrder.m_Asked, 1);
    const TextDecoder empty(L"", 0);
    EXPECT_EQ(s_byteOrder.m_Asked, 2);
}

TEST(TextDecoder, TakesAndReleasesOneShareOfTheSystemInformationPerCharacter) {
    const struct {
        const wchar_t* text;
        int alphabet;
        int shares; ///< the character set takes one as well
    } rows[] = {{L"", 0, 1}, {L"A", 0, 2}, {L"ABCDE", 0, 6}, {L"ABCDE", 4, 6}, {L"00410042", 2, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const Watch watch(*Toolkit::SystemInfo::s_pInstance);
        const TextDecoder decoder(row.text, row.alphabet);
        EXPECT_EQ(watch.m_Locks, 2 * row.shares);
        EXPECT_EQ(watch.m_MostShares, tests::CountOf(*Toolkit::SystemInfo::s_pInstance) + 1);
        EXPECT_TRUE(watch.m_WaitedForever);
    }
}

TEST(TextDecoder, TakesTheLastByteOnABigEndianHost) {
    // The octets 0x41 and 0x42 at the two ends of one character, whatever this host's byte order.
    TString<wchar_t> text(1, L'\0');
    auto* memory = reinterpret_cast<unsigned char*>(text.data());
    memory[0] = 0x41;
    memory[3] = 0x42;
    const struct {
        int endian;
        const wchar_t* decoded;
    } rows[] = {{1, L"B"}, {0, L"A"}, {2, L"A"}, {-1, L"A"}};
    for (const auto& row : rows) {
        s_byteOrder.m_Answer = row.endian;
        EXPECT_EQ(TextDecoder(text, 0).m_DecodedText, row.decoded) << row.endian;
    }
    s_byteOrder = {};
}

TEST(Decode, TakesAShareOfTheCharacterSetForSeptetsOnly) {
    const struct {
        const char* pdu;
        int shares;
    } rows[] = {{tests::c_deliver, 1},        {tests::c_part, 1},   {tests::c_submit, 0},
                {tests::c_submitAbsolute, 0}, {tests::c_report, 0}, {tests::c_reserved, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pdu);
        PduDecoder decoder;
        const Toolkit::smart_ptr<Pdu> pdu = tests::MakePdu(row.pdu);
        const Watch watch(decoder.m_CharSet);
        EXPECT_EQ(decoder.Decode(pdu, false, false), 1);
        EXPECT_EQ(watch.m_Locks, 2 * row.shares);
        EXPECT_EQ(watch.m_MostShares, row.shares == 0 ? 0 : 2);
        EXPECT_EQ(tests::CountOf(decoder.m_CharSet), 1);
        EXPECT_TRUE(watch.m_WaitedForever);
    }
}

TEST(Decode, GivesEachFieldReaderAShareOfThePdu) {
    const struct {
        const char* pdu;
        int readers;
    } rows[] = {
        {tests::c_deliver, 3}, {tests::c_submit, 2}, {tests::c_submitAbsolute, 3}, {tests::c_report, 4}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pdu);
        PduDecoder decoder;
        const Toolkit::smart_ptr<Pdu> pdu = tests::MakePdu(row.pdu);
        const Watch watch(pdu);
        EXPECT_EQ(decoder.Decode(pdu, false, false), 1);
        EXPECT_EQ(watch.m_Locks, 2 * (1 + row.readers)) << "one share of Decode's own";
        EXPECT_EQ(watch.m_MostShares, 3);
        EXPECT_EQ(tests::CountOf(pdu), 1);
    }
}

TEST(CBMDecoder, TakesAShareOfTheCharacterSetForEveryPage) {
    for (const char* page : {"12 34 11 12 00 11 41 E1 10", "12 34 11 12 00 11"}) {
        SCOPED_TRACE(page);
        CBMDecoder decoder;
        const Toolkit::smart_ptr<Pdu> pdu = tests::MakePdu(page);
        const Watch watch(decoder.m_CharSet);
        EXPECT_TRUE(decoder.Decode(pdu));
        EXPECT_EQ(watch.m_Locks, 2);
        EXPECT_EQ(watch.m_MostShares, 2);
        EXPECT_EQ(tests::CountOf(decoder.m_CharSet), 1);
    }
    CBMDecoder decoder;
    const Watch watch(decoder.m_CharSet);
    EXPECT_FALSE(decoder.Decode(Toolkit::smart_ptr<Pdu>()));
    EXPECT_THROW(decoder.Decode(tests::MakePdu("12 34")), std::bad_alloc);
    EXPECT_EQ(watch.m_Locks, 0);
}

} // namespace
