// Rows of docs/departures.md: the alphabet.
#include <gtest/gtest.h>

#include "Encoding/GSMCharSet.h"
#include "departures/Messages.h"
#include "encoder/OpenEncoder.h"

namespace {

using namespace Encoding;
using tests::Bytes;
using tests::Decoded;
using tests::Deliver;
using tests::OpenEncoder;
using tests::Wide;

TString<wchar_t> TextOf(const Bytes& codes) {
    return GSMCharSet().GsmToUnicode(codes.data(), static_cast<unsigned int>(codes.size()));
}

TString<char> CodesOf(const TString<wchar_t>& text) {
    return GSMCharSet().UnicodeToGsmString(text);
}

/// TP-DCS and all after it of the PDU that takes a text to no destination.
std::string SentFor(const TString<wchar_t>& text, int table) {
    OpenEncoder encoder;
    encoder.AddTranslateTable(static_cast<TranslateTable::TT>(table));
    encoder.SetText(text);
    return encoder.Pdu().substr(std::string_view("00 01 00 00 80 00 ").size());
}

TEST(Departures, SmallCedilla) {
    EXPECT_EQ(TextOf({0x09}), Wide({0x00E7}));
    EXPECT_EQ(CodesOf(Wide({0x00E7})), "\x09");
    EXPECT_EQ(CodesOf(Wide({0x00C7})), "");
}

TEST(Departures, DoubleEscape) {
    EXPECT_EQ(TextOf({0x1B, 0x1B, 0x65}), Wide({0x20AC}));
    EXPECT_EQ(TextOf({0x1B, 0x1B}), L"");
}

TEST(Departures, EscapedReturn) {
    EXPECT_EQ(TextOf({0x1B, 0x0D}), L"\r");
}

TEST(Departures, NarrowEscape) {
    EXPECT_EQ(GSMCharSet().GsmToUnicode(TString<char>("\x1B\x41")), Wide({0x0000}));
    EXPECT_EQ(TextOf({0x1B, 0x41}), L"A");
}

TEST(Departures, ZeroAsEscape) {
    EXPECT_EQ(GSMCharSet::m_GsmDefaultTable[0x1B], 0x0000);
    EXPECT_EQ(CodesOf(Wide({0x0000, 0x0065})), "\x1B\x65");
}

TEST(Departures, DiaeresisAsSpace) {
    EXPECT_EQ(CodesOf(Wide({0x00A8})), " ");
}

TEST(Departures, DroppedCharacters) {
    EXPECT_EQ(CodesOf(Wide({0x0041, 0x4E2D, 0x0042})), "AB");
}

TEST(Departures, GreekCapitals) {
    EXPECT_EQ(SentFor(Wide({0x03B1, 0x03AC, 0x03C3}), 1), "00 03 C1 20 06"); // 41 41 18
    EXPECT_EQ(SentFor(Wide({0x03B1, 0x00EA, 0x03B1}), 1), "00 02 C1 20"); // 41 41, and no letter for U+00EA
}

TEST(Departures, TableZero) {
    EXPECT_EQ(SentFor(Wide({0x0041, 0x00EA, 0x0041}), 0), "00 02 C1 20"); // 41 41
}

/// Both Turkish tables are asked for. There the two characters are U+0131 and U+011F.
TEST(Departures, NationalLanguages) {
    const Decoded message(Deliver("44", "00", "0B 06 24 01 01 25 01 01 87 CD 19")); // 07 1B 67
    ASSERT_EQ(message.m_Result, 1);
    EXPECT_EQ(message.m_Text, Wide({0x00EC, 0x0067}));
}

} // namespace
