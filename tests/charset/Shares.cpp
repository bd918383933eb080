// What a character set asks of the support library: the byte order, through a share that is given back.
#include <cstring>

#include <gtest/gtest.h>

#include "Encoding/GSMCharSet.h"
#include "Toolkit/SystemInfo.h"
#include "support/Octets.h"

namespace {

int s_endian = 0;
int s_asked = 0;
int s_shares = 0; ///< of the instance while it was asked

} // namespace

int Toolkit::SystemInfo::GetEndian() {
    ++s_asked;
    s_shares = tests::CountOf(*s_pInstance);
    return s_endian;
}

namespace {

using Encoding::GSMCharSet;

TEST(ByteOrder, IsAskedOnceWithAShareHeld) {
    const int before = tests::CountOf(*Toolkit::SystemInfo::s_pInstance);
    s_asked = 0;
    const GSMCharSet charSet;
    EXPECT_EQ(s_asked, 1);
    EXPECT_EQ(s_shares, before + 1);
    EXPECT_EQ(tests::CountOf(*Toolkit::SystemInfo::s_pInstance), before);
    charSet.UnicodeToGsmString(tests::Wide({0x41, 0x42}));
    EXPECT_EQ(s_asked, 1);
}

TEST(ByteOrder, OneMeansThatTheCharacterLiesInBytesTwoAndThree) {
    const unsigned char memory[] = {0x11, 0x22, 0x20, 0xAC, 0x41, 0x00, 0x00, 0x42};
    const struct {
        int endian;
        tests::Bytes codes;
    } rows[] = {{1, {0x1B, 0x65, 0x42}}, {0, {0x41}}, {2, {0x41}}, {-1, {0x41}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.endian);
        s_endian = row.endian;
        GSMCharSet charSet;
        s_endian = 0;
        unsigned int count = 0;
        ASSERT_TRUE(charSet.GetGsmBytes(memory, 8, &count, nullptr));
        EXPECT_EQ(count, row.codes.size());
        tests::Bytes codes(count);
        unsigned char* out = codes.data();
        ASSERT_TRUE(charSet.GetGsmBytes(memory, 8, &count, &out));
        EXPECT_EQ(codes, row.codes);
    }
}

TEST(ByteOrder, HoldsForEightCharactersThatAreReadTogether) {
    const unsigned char atTheEnd[] = {0x11, 0x4E, 0x00, 0x42};   // U+0042, or an ideograph without a code
    const unsigned char atTheStart[] = {0x42, 0x00, 0x4E, 0x11}; // the same the other way round
    const struct {
        int endian;
        const unsigned char* character;
        tests::Bytes codes;
    } rows[] = {{1, atTheEnd, tests::Bytes(8, 0x42)},
                {1, atTheStart, {}},
                {0, atTheEnd, {}},
                {0, atTheStart, tests::Bytes(8, 0x42)}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.endian << ", first octet " << int{*row.character});
        unsigned char memory[32];
        for (unsigned int i = 0; i < 32; ++i)
            memory[i] = row.character[i % 4];
        s_endian = row.endian;
        GSMCharSet charSet;
        s_endian = 0;
        unsigned int count = 0xEE;
        ASSERT_TRUE(charSet.GetGsmBytes(memory, 32, &count, nullptr));
        EXPECT_EQ(count, row.codes.size());
        tests::Bytes codes(count);
        unsigned char* out = codes.data();
        ASSERT_TRUE(charSet.GetGsmBytes(memory, 32, &count, &out));
        EXPECT_EQ(codes, row.codes);
    }
}

TEST(ByteOrder, IsNotLookedAtByTheStringConversion) {
    s_endian = 1;
    const GSMCharSet charSet;
    s_endian = 0;
    EXPECT_EQ(charSet.UnicodeToGsmString(tests::Wide({0x41})), "A");
}

} // namespace
