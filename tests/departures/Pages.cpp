// Rows of docs/departures.md: cell broadcast pages.
#include <new>

#include <gtest/gtest.h>

#include "Encoding/CBMDecoder.h"
#include "support/Bits.h"
#include "support/Octets.h"

namespace {

using namespace Encoding;
using tests::Bytes;
using tests::MakePdu;
using tests::Octets;
using tests::Wide;
using tests::operator+;

/// The text of a page: data coding scheme and content.
TString<wchar_t> TextOf(const char* coding, const Bytes& content) {
    CBMDecoder decoder;
    EXPECT_TRUE(decoder.Decode(MakePdu(Octets("12 34 11 12") + Octets(coding) + Octets("11") + content)));
    return decoder.m_Text;
}

Bytes Septets(std::string_view codes) {
    return tests::LayBits(Bytes(codes.begin(), codes.end()), 0);
}

TEST(Departures, PageCharacters) {
    const Bytes content = Septets(std::string(82, 'a') + std::string(11, 'b'));
    ASSERT_EQ(content.size(), 82U);
    EXPECT_EQ(TextOf("01", content), TString<wchar_t>(82, L'a'));
}

TEST(Departures, PageCoding) {
    EXPECT_EQ(TextOf("48", Octets("00 48 00 69")), Wide({0x0040, 0x0394, 0x00A3, 0x0048})); // 00 10 01 48
    EXPECT_EQ(TextOf("44", Octets("48 69")), Wide({0x0048, 0x0052}));                       // 48 52
}

/// Eight septets in seven octets, of which seven are read.
TEST(Departures, PageLanguage) {
    EXPECT_EQ(TextOf("10", Septets("de\rHello")), L"de\rHell");
}

TEST(Departures, PageHeader) {
    EXPECT_EQ(TextOf("90", Octets("03 25 01 01")), Wide({0x00A5, 0x004A, 0x00E8, 0x00F2})); // 03 4A 04 08
}

TEST(Departures, PagePadding) {
    EXPECT_EQ(TextOf("01", Septets(" a \r")), L"a");
    EXPECT_EQ(TextOf("01", Septets("\n a\r\r")), L" a");
}

TEST(Departures, PageNumber) {
    CBMDecoder decoder;
    ASSERT_TRUE(decoder.Decode(MakePdu("12 34 11 12 01 00 61")));
    EXPECT_EQ(decoder.m_PageParameter, 0x00);
}

TEST(Departures, PageFormats) {
    CBMDecoder decoder;
    ASSERT_TRUE(decoder.Decode(MakePdu("01 11 12 40 00 01 01" + std::string(2 * 82, '0') + "52")));
    EXPECT_EQ(decoder.m_SerialNumber, 0x0111);
    EXPECT_EQ(decoder.m_MessageIdentifier, 0x1240);
}

TEST(Departures, PageSize) {
    CBMDecoder decoder;
    EXPECT_TRUE(decoder.Decode(MakePdu("12 34 11 12 01 11 61")));
    EXPECT_EQ(decoder.m_Text, L"a");
    EXPECT_THROW(decoder.Decode(MakePdu("12 34 11 12 01")), std::bad_alloc);
}

} // namespace
