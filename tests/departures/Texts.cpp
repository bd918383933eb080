// Rows of docs/departures.md: user data.
#include <gtest/gtest.h>

#include "departures/Messages.h"

namespace {

using tests::Decoded;
using tests::Deliver;
using tests::Wide;

TEST(Departures, TextPastEnd) {
    EXPECT_EQ(Decoded(Deliver("04", "00", "05 C8 32")).m_Text, L"He@@@");
    EXPECT_EQ(Decoded(Deliver("04", "04", "03 48")).m_Text, Wide({0x0048, 0x0000, 0x0000}));
    EXPECT_EQ(Decoded(Deliver("04", "08", "04 00 48")).m_Text, Wide({0x0048, 0x0000}));
}

TEST(Departures, TextMissing) {
    const Decoded message(Deliver("44", "00", "0A"));
    EXPECT_EQ(message.m_Result, 1);
    EXPECT_EQ(message.m_UserDataLength, 10);
    EXPECT_EQ(message.m_Text, L"");
}

TEST(Departures, TextLength) {
    const std::string octets(2 * 200, '4');
    const Decoded message(Deliver("04", "04", "C8" + octets));
    EXPECT_EQ(message.m_Result, 1);
    EXPECT_EQ(message.m_Text, TString<wchar_t>(200, L'D'));
}

TEST(Departures, OctetsAsText) {
    EXPECT_EQ(Decoded(Deliver("04", "04", "03 48 00 E9")).m_Text, Wide({0x0048, 0x0000, 0x00E9}));
}

TEST(Departures, OddUcs2) {
    EXPECT_EQ(Decoded(Deliver("04", "08", "03 00 48 00 69")).m_Text, L"Hi");
    EXPECT_EQ(Decoded(Deliver("04", "08", "03 00 48 00")).m_Text, Wide({0x0048, 0x0000}));
}

TEST(Departures, Surrogates) {
    EXPECT_EQ(Decoded(Deliver("04", "08", "04 D8 3D DE 00")).m_Text, Wide({0xD83D, 0xDE00}));
    EXPECT_EQ(Decoded(Deliver("04", "08", "02 D8 3D")).m_Text, Wide({0xD83D}));
}

} // namespace
