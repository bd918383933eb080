// The codec, as it was built, on a support library of the host's own: when it asks for the byte order, and
// what it does with the answer.
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Encoding/GSMCharSet.h"
#include "Encoding/PduEncoder.h"
#include "Encoding/TextDecoder.h"
#include "Recording.h"
#include "Toolkit/SystemInfo.h"
#include "support/Octets.h"

namespace {

using tests::Recording;
using tests::TheRecording;
using tests::Wide;

/// A text of the one character that these octets are in memory, whatever this host's byte order.
TString<wchar_t> CharacterInMemory(const unsigned char (&octets)[4]) {
    TString<wchar_t> text(1, L'\0');
    std::memcpy(text.data(), octets, sizeof octets);
    return text;
}

class ReplacedToolkit : public testing::Test {
protected:
    ReplacedToolkit() { TheRecording() = Recording(); }

    int Asked() const {
        return static_cast<int>(
            std::count(m_Recording.m_Events.begin(), m_Recording.m_Events.end(), "GetEndian"));
    }

    Recording& m_Recording = TheRecording();
};

TEST_F(ReplacedToolkit, CharacterSetAsksForTheByteOrderOnceAndHoldsAShare) {
    const int count = tests::CountOf(*Toolkit::SystemInfo::s_pInstance);
    const Encoding::GSMCharSet charSet;
    EXPECT_EQ(m_Recording.m_SystemShares, std::vector<int>{count + 1});
    EXPECT_EQ(tests::CountOf(*Toolkit::SystemInfo::s_pInstance), count);
}

TEST_F(ReplacedToolkit, CharacterSetReadsTheLowUnitWhereTheByteOrderPutsIt) {
    const unsigned char source[] = {0x41, 0x00, 0x00, 0x42};
    const struct {
        int endian;
        unsigned char code;
    } rows[] = {{0, 'A'}, {2, 'A'}, {1, 'B'}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.endian);
        m_Recording.m_Endian = row.endian;
        Encoding::GSMCharSet charSet;
        unsigned int length = 1;
        unsigned char code = 0;
        unsigned char* pCode = &code;
        EXPECT_TRUE(charSet.GetGsmBytes(source, sizeof source, &length, &pCode));
        EXPECT_EQ(code, row.code);
    }
}

TEST_F(ReplacedToolkit, TextDecoderAsksOncePerCharacterWithAShareForEach) {
    const int count = tests::CountOf(*Toolkit::SystemInfo::s_pInstance);
    const Encoding::TextDecoder decoder(L"ABC", 0);
    EXPECT_EQ(decoder.m_DecodedText, L"ABC");
    // Once for its character set, then once per character.
    EXPECT_EQ(m_Recording.m_SystemShares, (std::vector<int>{count + 1, count + 1, count + 1, count + 1}));
    const std::vector<std::string> share{"Lock(FFFFFFFF)", "Unlock", "GetEndian", "Lock(FFFFFFFF)", "Unlock"};
    ASSERT_GE(m_Recording.m_Events.size(), 15U);
    const auto first =
        std::search(m_Recording.m_Events.begin(), m_Recording.m_Events.end(), share.begin(), share.end());
    ASSERT_NE(first, m_Recording.m_Events.end());
    int shares = 0;
    for (auto at = first; at != m_Recording.m_Events.end(); ++shares)
        at = std::search(at + 5, m_Recording.m_Events.end(), share.begin(), share.end());
    EXPECT_EQ(shares, 4);
    EXPECT_EQ(tests::CountOf(*Toolkit::SystemInfo::s_pInstance), count);
}

TEST_F(ReplacedToolkit, TextDecoderOfHexAsksForItsCharacterSetOnly) {
    const Encoding::TextDecoder decoder(L"00410042", 2);
    EXPECT_EQ(decoder.m_DecodedText, L"AB");
    EXPECT_EQ(Asked(), 1);
}

TEST_F(ReplacedToolkit, TextDecoderTakesTheLastByteOfACharacterOnABigEndianHost) {
    const TString<wchar_t> text = CharacterInMemory({'A', 0x00, 0x00, 'B'});
    m_Recording.m_Endian = 0;
    EXPECT_EQ(Encoding::TextDecoder(text, 0).m_DecodedText, L"A");
    m_Recording.m_Endian = 1;
    EXPECT_EQ(Encoding::TextDecoder(text, 0).m_DecodedText, L"B");
}

TEST_F(ReplacedToolkit, GetSubStringAsksOncePerCharacterWhileItHoldsAShare) {
    Encoding::PduEncoder encoder(Encoding::MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    const int count = tests::CountOf(*Toolkit::SystemInfo::s_pInstance);
    TheRecording() = Recording();
    unsigned int length = 0;
    unsigned char* pBytes = nullptr;
    ASSERT_EQ(encoder.GetSubString(L"ABCD", 1, 2, &length, &pBytes), 1);
    const std::unique_ptr<unsigned char[]> owner(pBytes);
    EXPECT_EQ(tests::Hex(pBytes, length), "00 42 00 43");
    ASSERT_EQ(m_Recording.m_SystemShares.size(), 2U);
    for (const int shares : m_Recording.m_SystemShares)
        EXPECT_GT(shares, count);
    EXPECT_EQ(tests::CountOf(*Toolkit::SystemInfo::s_pInstance), count);
}

TEST_F(ReplacedToolkit, GetSubStringReadsTheBytesThatTheByteOrderNames) {
    Encoding::PduEncoder encoder(Encoding::MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    const struct {
        int endian;
        const char* octets;
    } rows[] = {{0, "03 04"}, {1, "02 01"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.endian);
        m_Recording.m_Endian = row.endian;
        unsigned int length = 0;
        unsigned char* pBytes = nullptr;
        ASSERT_EQ(encoder.GetSubString(CharacterInMemory({0x04, 0x03, 0x02, 0x01}), 0, 1, &length, &pBytes),
                  1);
        const std::unique_ptr<unsigned char[]> owner(pBytes);
        EXPECT_EQ(tests::Hex(pBytes, length), row.octets);
    }
}

} // namespace
