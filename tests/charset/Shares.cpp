// What a character set asks of the support library: the byte order, through a share that is given back.
#include <cstring>

#include <gtest/gtest.h>

#include "Encoding/GSMCharSet.h"
#include "Toolkit/SystemInfo.h"
#include "support/Octets.h"
#include "support/Shares.h"

namespace {

using Encoding::GSMCharSet;
using tests::s_byteOrder;

TEST(ByteOrder, IsAskedOnceWithAShareHeld) {
    const int before = tests::CountOf(*Toolkit::SystemInfo::s_pInstance);
    s_byteOrder = {};
    const GSMCharSet charSet;
    EXPECT_EQ(s_byteOrder.m_Asked, 1);
    EXPECT_EQ(s_byteOrder.m_FewestShares, before + 1);
    EXPECT_EQ(tests::CountOf(*Toolkit::SystemInfo::s_pInstance), before);
    charSet.UnicodeToGsmString(tests::Wide({0x41, 0x42}));
    EXPECT_EQ(s_byteOrder.m_Asked, 1);
}

/// The codes of characters in memory, for a character set that was told this byte order.
tests::Bytes CodesOf(const unsigned char* memory, unsigned int length, int endian) {
    s_byteOrder.m_Answer = endian;
    GSMCharSet charSet;
    s_byteOrder = {};
    unsigned int count = 0xEE;
    EXPECT_TRUE(charSet.GetGsmBytes(memory, length, &count, nullptr));
    tests::Bytes codes(count);
    unsigned char* out = codes.data();
    EXPECT_TRUE(charSet.GetGsmBytes(memory, length, &count, &out));
    return codes;
}

TEST(ByteOrder, OneMeansThatTheCharacterLiesInBytesTwoAndThree) {
    const unsigned char memory[] = {0x11, 0x22, 0x20, 0xAC, 0x41, 0x00, 0x00, 0x42};
    EXPECT_EQ(CodesOf(memory, 8, 1), (tests::Bytes{0x1B, 0x65, 0x42}));
    for (const int other : {0, 2, -1})
        EXPECT_EQ(CodesOf(memory, 8, other), (tests::Bytes{0x41})) << other;
}

TEST(ByteOrder, HoldsForEightCharactersThatAreReadTogether) {
    unsigned char atTheEnd[32] =
        {}; // U+0042 eight times in the one order, an ideograph without a code in the other
    unsigned char atTheStart[32] = {}; // the other way round
    for (unsigned int i = 0; i < 32; i += 4) {
        atTheEnd[i] = atTheStart[i + 3] = 0x11;
        atTheEnd[i + 1] = atTheStart[i + 2] = 0x4E;
        atTheEnd[i + 3] = atTheStart[i] = 0x42;
    }
    const tests::Bytes eight(8, 0x42);
    EXPECT_EQ(CodesOf(atTheEnd, 32, 1), eight);
    EXPECT_EQ(CodesOf(atTheStart, 32, 1), tests::Bytes());
    EXPECT_EQ(CodesOf(atTheEnd, 32, 0), tests::Bytes());
    EXPECT_EQ(CodesOf(atTheStart, 32, 0), eight);
}

TEST(ByteOrder, IsNotLookedAtByTheStringConversion) {
    s_byteOrder.m_Answer = 1;
    const GSMCharSet charSet;
    s_byteOrder = {};
    EXPECT_EQ(charSet.UnicodeToGsmString(tests::Wide({0x41})), "A");
}

} // namespace
