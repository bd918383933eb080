// The octet buffer and its hexadecimal text.
#include "Encoding/Pdu.h"

#include <algorithm>
#include <cstddef>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/Allocations.h"
#include "support/Octets.h"

namespace {

using Encoding::Pdu;
using tests::Bytes;
using tests::OctetsOf;

static_assert(std::is_standard_layout_v<Pdu> && !std::is_polymorphic_v<Pdu>);
static_assert(offsetof(Pdu, m_Bytes) == 0 && offsetof(Pdu, m_Length) == 512 && sizeof(Pdu) == 516);

/// 1, 2, 3, … 255, 0, 1, …
Bytes Counting(std::size_t count) {
    Bytes octets(count);
    for (std::size_t i = 0; i < count; ++i)
        octets[i] = static_cast<unsigned char>(i + 1);
    return octets;
}

bool IsZeroFrom(const Pdu& pdu, unsigned int first) {
    return std::all_of(pdu.m_Bytes + first, pdu.m_Bytes + 512,
                       [](unsigned char octet) { return octet == 0; });
}

TEST(Pdu, StartsEmptyAndZero) {
    const Pdu pdu;
    EXPECT_EQ(pdu.m_Length, 0U);
    EXPECT_TRUE(IsZeroFrom(pdu, 0));
}

TEST(Pdu, TakesOctets) {
    const Bytes octets = tests::Octets("07 91 AB");
    const Pdu pdu(octets.data(), 3);
    EXPECT_EQ(OctetsOf(pdu), octets);
    EXPECT_TRUE(IsZeroFrom(pdu, 3));
}

TEST(Pdu, NullDataGivesAnEmptyPdu) {
    const Pdu pdu(nullptr, 10);
    EXPECT_EQ(pdu.m_Length, 0U);
    EXPECT_TRUE(IsZeroFrom(pdu, 0));
}

TEST(Pdu, LengthAboveCapacityIsKeptThoughOnly512OctetsAreCopied) {
    const Bytes octets = Counting(600);
    const Pdu pdu(octets.data(), 600);
    EXPECT_EQ(pdu.m_Length, 600U);
    EXPECT_TRUE(std::equal(pdu.m_Bytes, pdu.m_Bytes + 512, octets.begin()));
}

TEST(Pdu, SetBytesTakesOneTo512Octets) {
    const Bytes octets = Counting(513);
    for (const unsigned int length : {1U, 511U, 512U}) {
        SCOPED_TRACE(length);
        Pdu pdu;
        pdu.SetBytes(octets.data(), length);
        EXPECT_EQ(OctetsOf(pdu), Counting(length));
    }
}

TEST(Pdu, SetBytesIgnoresNullNothingAndTooMuch) {
    const Bytes octets = Counting(513);
    const struct {
        const unsigned char* data;
        unsigned int length;
    } rows[] = {{nullptr, 3}, {octets.data(), 0}, {octets.data(), 513}, {octets.data(), 0xFFFFFFFF}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.length);
        Pdu pdu(TString<char>("0791AB"));
        pdu.SetBytes(row.data, row.length);
        EXPECT_EQ(pdu.GetString(), "0791AB");
    }
}

TEST(Pdu, SetBytesLeavesTheTailInPlace) {
    Pdu pdu(Counting(10).data(), 10);
    const Bytes octets = tests::Octets("A1 A2 A3");
    pdu.SetBytes(octets.data(), 3);
    EXPECT_EQ(pdu.m_Length, 3U);
    EXPECT_EQ(tests::Hex(pdu.m_Bytes, 10), "A1 A2 A3 04 05 06 07 08 09 0A");
    EXPECT_EQ(pdu.GetString(), "A1A2A3");
    pdu.Write(0xB4);
    EXPECT_EQ(pdu.GetString(), "A1A2A3B4");
    EXPECT_EQ(tests::Hex(pdu.m_Bytes, 10), "A1 A2 A3 B4 05 06 07 08 09 0A");
}

TEST(Pdu, WriteAppendsOctetAndRun) {
    Pdu pdu;
    pdu.Write(0x07);
    const Bytes run = tests::Octets("91 AB");
    pdu.Write(run.data(), 2);
    pdu.Write(0x00);
    EXPECT_EQ(pdu.GetString(), "0791AB00");
}

TEST(Pdu, WriteIgnoresNullAndNothing) {
    Pdu pdu(TString<char>("07"));
    const Bytes run = tests::Octets("91");
    pdu.Write(nullptr, 1);
    pdu.Write(run.data(), 0);
    EXPECT_EQ(pdu.GetString(), "07");
}

TEST(Pdu, WriteFillsUpTo511OctetsAndNotOneMore) {
    const Bytes octets = Counting(512);
    Pdu whole;
    whole.Write(octets.data(), 511);
    EXPECT_EQ(whole.m_Length, 511U);
    Pdu tooMuch;
    tooMuch.Write(octets.data(), 512);
    EXPECT_EQ(tooMuch.m_Length, 0U);

    Pdu pdu(octets.data(), 510);
    pdu.Write(0xEE);
    EXPECT_EQ(pdu.m_Length, 511U);
    EXPECT_EQ(pdu.m_Bytes[510], 0xEE);
    pdu.Write(0xEE);
    EXPECT_EQ(pdu.m_Length, 511U);
    EXPECT_EQ(pdu.m_Bytes[511], 0);
}

TEST(Pdu, WriteDropsARunThatDoesNotFitWhole) {
    const Bytes octets = Counting(510);
    Pdu pdu(octets.data(), 510);
    pdu.Write(octets.data(), 2);
    EXPECT_EQ(pdu.m_Length, 510U);
    EXPECT_TRUE(IsZeroFrom(pdu, 510));
}

TEST(Pdu, WriteTakesTheSumOfLengthsWithoutWrapping) {
    const Bytes octets = Counting(16);
    Pdu pdu(octets.data(), 16);
    pdu.Write(octets.data(), 0xFFFFFFF8);
    EXPECT_EQ(pdu.m_Length, 16U);
    for (const unsigned int length : {512U, 600U, 0xFFFFFFFFU}) {
        Pdu oversized(octets.data(), 16);
        oversized.m_Length = length;
        oversized.Write(0xEE);
        oversized.Write(octets.data(), 2);
        EXPECT_EQ(oversized.m_Length, length);
    }
}

TEST(Pdu, ClearZeroesEverything) {
    Pdu pdu(Counting(512).data(), 512);
    pdu.Clear();
    EXPECT_EQ(pdu.m_Length, 0U);
    EXPECT_TRUE(IsZeroFrom(pdu, 0));
}

TEST(Pdu, ReadsHexadecimalTextLeniently) {
    const struct {
        const char* hex;
        Bytes octets;
    } rows[] = {
        {"0791", {0x07, 0x91}},
        {"079", {0x07}},
        {"0g", {0x00}},
        {"ab", {0xAB}},
        {"AB", {0xAB}},
        {"aB", {0xAB}},
        {"", {}},
        {"f", {}},
        {"G1", {0x01}},
        {"07 91", {0x07, 0x09}},
        {"0x12", {0x00, 0x12}},
        {"/:", {0x00}},
        {"@`1Gg9", {0, 0x10, 0x09}},
        {"fF0A", {0xFF, 0x0A}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.hex);
        const Pdu pdu{TString<char>(row.hex)};
        EXPECT_EQ(OctetsOf(pdu), row.octets);
        EXPECT_TRUE(IsZeroFrom(pdu, pdu.m_Length));
    }
}

TEST(Pdu, HexadecimalTextWithNulEndsThePairThere) {
    TString<char> hex("A");
    hex += '\0';
    hex += std::string("\0B", 2);
    hex += "0C";
    EXPECT_EQ(OctetsOf(Pdu(hex)), (Bytes{0xA0, 0x00, 0x0C}));
}

/// However long the text is, what is no digit takes nothing from the other digits.
TEST(Pdu, HexadecimalTextLosesNoDigitToWhatIsNone) {
    for (std::size_t place = 0; place < 80; ++place) {
        std::string hex(80, '7');
        hex[place] = '\xC3';
        Bytes octets(40, 0x77);
        octets[place / 2] = place % 2 == 0 ? 0x07 : 0x70;
        ASSERT_EQ(OctetsOf(Pdu(TString<char>(hex))), octets) << place;
        hex[place] = '\0';
        octets[place / 2] = place % 2 == 0 ? 0x00 : 0x70;
        ASSERT_EQ(OctetsOf(Pdu(TString<char>(hex))), octets) << place;
    }
}

TEST(Pdu, HexadecimalTextKeepsTheFirst512Octets) {
    const TString<char> hex(std::string(1022, '1') + "ABCDEF");
    const Pdu pdu(hex);
    EXPECT_EQ(pdu.m_Length, 512U);
    EXPECT_EQ(pdu.m_Bytes[510], 0x11);
    EXPECT_EQ(pdu.m_Bytes[511], 0xAB);
    const Pdu full{TString<char>(hex.substr(0, 1024))};
    EXPECT_EQ(full.m_Length, 512U);
    const Pdu odd{TString<char>(hex.substr(0, 1023))};
    EXPECT_EQ(odd.m_Length, 511U);
}

TEST(Pdu, WritesTwoUpperCaseDigitsAnOctet) {
    EXPECT_EQ(Pdu().GetString(), "");
    const Bytes octets = tests::Octets("0A");
    EXPECT_EQ(Pdu(octets.data(), 1).GetString(), "0A");
    EXPECT_EQ(Pdu(TString<char>("0791abcdef00")).GetString(), "0791ABCDEF00");
}

TEST(Pdu, EveryOctetIsWrittenAndReadBack) {
    const Bytes octets = Counting(256);
    const TString<char> hex = Pdu(octets.data(), 256).GetString();
    EXPECT_EQ(hex.substr(0, 8), "01020304");
    EXPECT_EQ(hex.substr(2 * 158, 4), "9FA0");
    EXPECT_EQ(hex.substr(508), "FF00");
    EXPECT_EQ(OctetsOf(Pdu(hex)), octets);
}

TEST(Pdu, WritesAtMost512Octets) {
    const Bytes octets = Counting(600);
    EXPECT_EQ(Pdu(octets.data(), 600).GetString().size(), 1024U);
}

TEST(Pdu, TextIsAskedForAtOnce) {
    const Pdu pdu(Counting(512).data(), 512);
    const unsigned long before = tests::Allocations();
    const unsigned long bytes = tests::AllocatedBytes();
    const TString<char> hex = pdu.GetString();
    EXPECT_EQ(tests::Allocations() - before, 1U);
    EXPECT_EQ(tests::AllocatedBytes() - bytes, 1025U) << "two digits an octet, and the end of the string";
}

TEST(Pdu, OnlyTheTextIsAllocated) {
    const Bytes octets = Counting(512);
    const TString<char> hex("0791");
    const unsigned long before = tests::Allocations();
    Pdu pdu(octets.data(), 512);
    Pdu parsed(hex);
    pdu.Clear();
    pdu.Write(octets.data(), 100);
    pdu.Write(0x01);
    pdu.SetBytes(octets.data(), 512);
    EXPECT_EQ(tests::Allocations(), before);
}

} // namespace
