#include "Toolkit/UTF8.h"

#include <string>

#include <gtest/gtest.h>

#include "support/Octets.h"

namespace {

using tests::Wide;
using Toolkit::UTF8;

struct Pair {
    const char* name;
    TString<wchar_t> wide;
    TString<char> octets;
};

TString<char> Narrow(const char* hex) {
    const tests::Bytes octets = tests::Octets(hex);
    return TString<char>(octets.begin(), octets.end());
}

const Pair c_valid[] = {
    {"nothing", Wide({}), Narrow("")},
    {"U+0000", Wide({0}), Narrow("00")},
    {"a zero inside", Wide({0x61, 0, 0x62}), Narrow("61 00 62")},
    {"last of one octet", Wide({0x7F}), Narrow("7F")},
    {"first of two octets", Wide({0x80}), Narrow("C2 80")},
    {"last of two octets", Wide({0x7FF}), Narrow("DF BF")},
    {"first of three octets", Wide({0x800}), Narrow("E0 A0 80")},
    {"last before the surrogates", Wide({0xD7FF}), Narrow("ED 9F BF")},
    {"first after the surrogates", Wide({0xE000}), Narrow("EE 80 80")},
    {"noncharacter", Wide({0xFFFE}), Narrow("EF BF BE")},
    {"last of three octets", Wide({0xFFFF}), Narrow("EF BF BF")},
    {"first of four octets", Wide({0x10000}), Narrow("F0 90 80 80")},
    {"last of all", Wide({0x10FFFF}), Narrow("F4 8F BF BF")},
    {"mixed", Wide({0x68, 0xE9, 0x20AC, 0x1F600, 0x21}), Narrow("68 C3A9 E282AC F09F9880 21")},
};

TEST(UTF8, ConvertsEveryScalarValueBothWays) {
    for (const Pair& row : c_valid) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(UTF8::ToUTF8(row.wide), row.octets);
        EXPECT_EQ(UTF8::ToUNICODE(row.octets), row.wide);
    }
}

/// What stands among characters of one length, at each place of texts of each length: where blocks begin, end
/// and are left, and around the stretches that long texts are taken in.
TEST(UTF8, ConvertsEveryCharacterAtEveryPlace) {
    const Pair fillers[] = {{"one octet", Wide({0x61}), Narrow("61")},
                            {"two octets", Wide({0xE9}), Narrow("C3 A9")},
                            {"three octets", Wide({0x4E2D}), Narrow("E4 B8 AD")},
                            {"four octets", Wide({0x1F600}), Narrow("F0 9F 98 80")}};
    const auto check = [&](const Pair& filler, const Pair& other, std::size_t before, std::size_t after) {
        TString<wchar_t> wide;
        TString<char> octets;
        for (std::size_t i = 0; i < before; ++i) {
            wide += filler.wide;
            octets += filler.octets;
        }
        wide += other.wide;
        octets += other.octets;
        for (std::size_t i = 0; i < after; ++i) {
            wide += filler.wide;
            octets += filler.octets;
        }
        EXPECT_EQ(UTF8::ToUTF8(wide), octets) << filler.name << ", " << other.name << " after " << before;
        EXPECT_EQ(UTF8::ToUNICODE(octets), wide) << filler.name << ", " << other.name << " after " << before;
    };
    for (const Pair& filler : fillers) {
        for (const Pair& other : fillers) {
            for (std::size_t length = 0; length <= 40; ++length)
                for (std::size_t before = 0; before <= length; ++before)
                    check(filler, other, before, length - before);
            for (std::size_t before = 250; before <= 262; ++before)
                check(filler, other, before, 1030 - before);
        }
    }
}

/// One octet too few or broken makes the whole text invalid, wherever it stands; what is right around it
/// stays.
TEST(UTF8, RepairsAtEveryPlace) {
    for (std::size_t length = 1; length <= 20; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            TString<wchar_t> wide(length, L'\u4E2D');
            TString<char> octets;
            for (std::size_t i = 0; i < length; ++i)
                octets += i == place ? Narrow("E4 B8") : Narrow("E4 B8 AD");
            wide[place] = L'\uFFFD';
            EXPECT_EQ(UTF8::ToUNICODE(octets), wide) << place << " of " << length;
        }
    }
}

TEST(UTF8, WritesWhatIsNoScalarValueAtEveryPlace) {
    const Pair fillers[] = {{"ASCII", Wide({0x61}), Narrow("61")},
                            {"Chinese", Wide({0x4E2D}), Narrow("E4 B8 AD")}};
    constexpr std::size_t length = 35;
    for (const Pair& filler : fillers) {
        for (const unsigned int value :
             {0xD800U, 0xDFFFU, 0x110000U, 0x7FFFFFFFU, 0x80000000U, 0x80000061U, 0xFFFF0061U, 0xFFFFFFFFU}) {
            for (std::size_t place = 0; place < length; ++place) {
                TString<wchar_t> wide;
                TString<char> octets;
                for (std::size_t i = 0; i < length; ++i) {
                    wide += i == place ? Wide({value}) : filler.wide;
                    octets += i == place ? Narrow("EF BF BD") : filler.octets;
                }
                EXPECT_EQ(UTF8::ToUTF8(wide), octets) << filler.name << ", " << value << " at " << place;
            }
        }
    }
}

TEST(UTF8, WritesWhatIsNoScalarValueAsReplacementCharacter) {
    for (const unsigned int value :
         {0xD800U, 0xDBFFU, 0xDC00U, 0xDFFFU, 0x110000U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        SCOPED_TRACE(value);
        EXPECT_EQ(UTF8::ToUTF8(Wide({0x61, value, 0x62})), Narrow("61 EF BF BD 62"));
    }
}

TEST(UTF8, ReadsEveryInvalidSequenceAsOneReplacementCharacter) {
    const Pair rows[] = {
        {"stray trail octet", Wide({0x61, 0xFFFD, 0x62}), Narrow("61 80 62")},
        {"two stray trail octets", Wide({0xFFFD, 0xFFFD}), Narrow("80 BF")},
        {"octet that never occurs", Wide({0xFFFD, 0x61}), Narrow("FF 61")},
        {"lead octet alone", Wide({0xFFFD, 0x61}), Narrow("C3 61")},
        {"two of three octets", Wide({0xFFFD, 0x61}), Narrow("E2 82 61")},
        {"three of four octets", Wide({0xFFFD, 0x61}), Narrow("F0 9F 98 61")},
        {"lead octet after a lead octet", Wide({0xFFFD, 0xE9}), Narrow("E2 C3 A9")},
        {"cut at the end after one", Wide({0x61, 0xFFFD}), Narrow("61 C3")},
        {"cut at the end after two", Wide({0x61, 0xFFFD}), Narrow("61 E2 82")},
        {"cut at the end after three", Wide({0x61, 0xFFFD}), Narrow("61 F0 9F 98")},
        {"overlong", Wide({0xFFFD, 0x61}), Narrow("C0 80 61")},
        {"surrogate", Wide({0xFFFD, 0x61}), Narrow("ED A0 80 61")},
        {"above the last", Wide({0xFFFD, 0x61}), Narrow("F4 90 80 80 61")},
        {"valid around it", Wide({0x20AC, 0xFFFD, 0x20AC}), Narrow("E282AC FE E282AC")},
        {"U+FFFD itself", Wide({0xFFFD}), Narrow("EF BF BD")},
    };
    for (const Pair& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(UTF8::ToUNICODE(row.octets), row.wide);
    }
}

} // namespace
