// Rows of docs/departures.md: the user-data header.
#include <gtest/gtest.h>

#include "departures/Messages.h"

namespace {

using tests::Decoded;
using tests::Deliver;
using tests::Wide;

/// 40 bits of header take six septets and leave two fill bits before "Hi", which are read as text.
TEST(Departures, HeaderFill) {
    const Decoded message(Deliver("44", "00", "08 04 04 02 00 00 20 D3"));
    ASSERT_EQ(message.m_Result, 1);
    EXPECT_EQ(message.m_Text, L" &");
}

/// 112 bits of header are 16 septets; one less is taken off, so that a character follows "Hi".
TEST(Departures, HeaderSeptets) {
    const Decoded message(Deliver("44", "00", "12 0D 08 04 12 34 02 01 70 05 00 00 00 00 00 C8 34"));
    ASSERT_EQ(message.m_Result, 1);
    EXPECT_EQ(message.m_Text, L"Hi@");
}

TEST(Departures, HeaderEmpty) {
    EXPECT_EQ(Decoded(Deliver("44", "04", "03 00 48 69")).m_Result, 0);
}

TEST(Departures, HeaderOverrun) {
    EXPECT_EQ(Decoded(Deliver("44", "04", "08 05 00 04 2A 03 02 48 69")).m_Result, 0);    // an octet too few
    EXPECT_EQ(Decoded(Deliver("44", "04", "09 06 00 03 2A 03 02 00 48 69")).m_Result, 0); // and one too many
}

TEST(Departures, HeaderPastText) {
    EXPECT_EQ(Decoded(Deliver("44", "04", "03 05 00 03 2A 03 02")).m_Result, 0);
}

TEST(Departures, ElementLength) {
    const Decoded message(Deliver("44", "04", "06 04 00 02 2A 03 48"));
    ASSERT_EQ(message.m_Result, 1);
    EXPECT_EQ(message.m_ConcatTotal, 3);
    EXPECT_EQ(message.m_ConcatSequence, 0x48);
    EXPECT_EQ(message.m_Text, L"H");
}

TEST(Departures, ElementConcatenation) {
    const Decoded zero(Deliver("44", "04", "07 05 00 03 2A 00 00 48"));
    EXPECT_EQ(zero.m_ConcatReference, 0x2A);
    EXPECT_EQ(zero.m_ConcatTotal, 0);
    const Decoded above(Deliver("44", "04", "07 05 00 03 2A 02 03 48"));
    EXPECT_EQ(above.m_ConcatTotal, 2);
    EXPECT_EQ(above.m_ConcatSequence, 3);
    const Decoded second(Deliver("44", "04", "0C 0A 00 03 2A 02 01 00 03 2B 00 00 48"));
    EXPECT_EQ(second.m_ConcatReference, 0x2B);
    EXPECT_EQ(second.m_ConcatTotal, 0);
}

TEST(Departures, ElementWaiting) {
    const Decoded message(Deliver("44", "04", "06 04 01 02 80 05 48"));
    ASSERT_EQ(message.m_Result, 1);
    EXPECT_EQ(message.m_ConcatTotal, 5);
    EXPECT_EQ(message.m_ConcatSequence, 0);
}

TEST(Departures, ElementOthers) {
    const Decoded message(Deliver("44", "04", "08 06 05 04 0B 84 23 F0 48"));
    ASSERT_EQ(message.m_Result, 1);
    EXPECT_EQ(message.m_ConcatReference, 0);
    EXPECT_EQ(message.m_ConcatTotal, 0);
    EXPECT_EQ(message.m_Text, L"H");
}

} // namespace
