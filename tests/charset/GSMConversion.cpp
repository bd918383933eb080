// Conversion of whole texts to unpacked codes and back.
#include <bit>
#include <random>

#include <gtest/gtest.h>

#include "Encoding/GSMCharSet.h"
#include "support/Allocations.h"
#include "support/Guarded.h"
#include "support/Octets.h"

namespace {

using Encoding::GSMCharSet;
using Encoding::TranslateTable;
using tests::Bytes;
using tests::Wide;

const unsigned char* Raw(const TString<wchar_t>& text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}
unsigned int RawSize(const TString<wchar_t>& text) {
    return static_cast<unsigned int>(4 * text.size());
}

unsigned int Count(GSMCharSet& charSet, const TString<wchar_t>& text) {
    unsigned int count = 0;
    EXPECT_TRUE(charSet.GetGsmBytes(Raw(text), RawSize(text), &count, nullptr));
    return count;
}

/// Counts, then fills a buffer of that size between two guards.
Bytes Convert(GSMCharSet& charSet, const TString<wchar_t>& text) {
    unsigned int count = Count(charSet, text);
    Bytes buffer(count + 2, 0xEE);
    unsigned char* codes = buffer.data() + 1;
    const unsigned int entry = count;
    EXPECT_TRUE(charSet.GetGsmBytes(Raw(text), RawSize(text), &count, &codes));
    EXPECT_EQ(count, entry);
    EXPECT_EQ(buffer.front(), 0xEE);
    EXPECT_EQ(buffer.back(), 0xEE);
    return Bytes(buffer.begin() + 1, buffer.end() - 1);
}

TString<char> Narrow(const Bytes& codes) {
    return TString<char>(codes.begin(), codes.end());
}

TEST(GetGsmBytes, CountsThenFills) {
    GSMCharSet charSet;
    const struct {
        TString<wchar_t> text;
        Bytes codes;
    } rows[] = {
        {Wide({0x41, 0x7B, 0x62}), {0x41, 0x1B, 0x28, 0x62}},
        {Wide({0x41}), {0x41}},
        {Wide({0x00}), {0x1B}},
        {Wide({0x20AC, 0x40, 0x0C}), {0x1B, 0x65, 0x00, 0x1B, 0x0A}},
        {Wide({0x41, 0x4E2D, 0x42}), {0x41, 0x42}},
        {Wide({0x00A8, 0x0100, 0x0394}), {0x20, 0x10}},
        {L"abc\u00A8efgh", {0x61, 0x62, 0x63, 0x20, 0x65, 0x66, 0x67, 0x68}},
        {Wide({0x10041, 0xFFFF0042}), {0x41, 0x42}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Convert(charSet, row.text), row.codes) << tests::Hex(row.codes);
}

/// At each place of texts of each length: where blocks begin, end and are left.
TEST(GetGsmBytes, ConvertsEveryCharacterAtEveryPlace) {
    struct Row {
        unsigned int character;
        Bytes codes;
    };
    const Row fillers[] = {{0x61, {0x61}}, {0x5F, {0x11}}, {0x4E2D, {}}, {0x0430, {}}, {0x7E, {0x1B, 0x3D}}};
    const Row others[] = {
        {0x40, {0x00}},    {0x24, {0x02}},   {0x7B, {0x1B, 0x28}}, {0x20AC, {0x1B, 0x65}}, {0x20AB, {}},
        {0x03A9, {0x15}},  {0x03B1, {}},     {0x4E2D, {}},         {0x00A8, {0x20}},       {0x0000, {0x1B}},
        {0x10061, {0x61}}, {0x80004E61, {}}, {0xFFFF0024, {0x02}}, {0x8041, {}},           {0x7A, {0x7A}}};
    GSMCharSet charSet;
    for (const Row& filler : fillers) {
        for (const Row& other : others) {
            for (const std::size_t length : {1U, 2U, 15U, 16U, 17U, 31U, 33U, 40U}) {
                for (std::size_t place = 0; place < length; ++place) {
                    TString<wchar_t> text(length, static_cast<wchar_t>(filler.character));
                    text[place] = static_cast<wchar_t>(other.character);
                    Bytes codes;
                    for (std::size_t i = 0; i < length; ++i) {
                        const Bytes& these = i == place ? other.codes : filler.codes;
                        codes.insert(codes.end(), these.begin(), these.end());
                    }
                    ASSERT_EQ(Convert(charSet, text), codes)
                        << other.character << " among " << filler.character << " at " << place << " of "
                        << length;
                }
            }
        }
    }
}

TEST(GetGsmBytes, TextOfUnmappableCharactersCountsNothingAndSucceeds) {
    GSMCharSet charSet;
    unsigned int count = 99;
    const TString<wchar_t> text = Wide({0x00C7, 0x4E2D});
    EXPECT_TRUE(charSet.GetGsmBytes(Raw(text), 8, &count, nullptr));
    EXPECT_EQ(count, 0U);
}

TEST(GetGsmBytes, FailsBelowTwoBytesAndTouchesNothingButTheFlag) {
    GSMCharSet charSet;
    const TString<wchar_t> text = Wide({0x41});
    for (const unsigned int srcBytes : {0U, 1U}) {
        unsigned char buffer[3] = {0xEE, 0xEE, 0xEE};
        unsigned char* codes = buffer;
        for (unsigned char** out : {static_cast<unsigned char**>(nullptr), &codes}) {
            unsigned int length = 3;
            charSet.m_Translated = 1;
            EXPECT_FALSE(charSet.GetGsmBytes(Raw(text), srcBytes, &length, out));
            EXPECT_EQ(length, 3U);
            EXPECT_EQ(buffer[0], 0xEE);
            EXPECT_EQ(charSet.m_Translated, 0);
        }
    }
}

TEST(GetGsmBytes, EveryUnitWhoseFirstByteLiesBelowTheLengthCounts) {
    GSMCharSet charSet;
    const TString<wchar_t> text = Wide({0x41, 0x42, 0x43});
    const unsigned int expected[] = {1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3};
    for (unsigned int srcBytes = 2; srcBytes <= 12; ++srcBytes) {
        unsigned int count = 0;
        EXPECT_TRUE(charSet.GetGsmBytes(Raw(text), srcBytes, &count, nullptr));
        EXPECT_EQ(count, expected[srcBytes - 2]) << srcBytes;
    }
}

TEST(GetGsmBytes, CountsWhenTheLengthIsZeroOrNegative) {
    GSMCharSet charSet;
    const TString<wchar_t> text = Wide({0x41, 0x5B});
    for (const unsigned int entry : {0U, 0x80000000U, 0xFFFFFFFFU}) {
        unsigned char buffer[4] = {0xEE, 0xEE, 0xEE, 0xEE};
        unsigned char* codes = buffer;
        unsigned int length = entry;
        EXPECT_TRUE(charSet.GetGsmBytes(Raw(text), 8, &length, &codes));
        EXPECT_EQ(length, 3U);
        EXPECT_EQ(tests::Hex(buffer, 4), "EE EE EE EE");
    }
}

TEST(GetGsmBytes, ZeroesTheBufferAndKeepsTheEntryLength) {
    GSMCharSet charSet;
    const TString<wchar_t> text = Wide({0x41});
    unsigned char buffer[6] = {0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE};
    unsigned char* codes = buffer;
    unsigned int length = 5;
    EXPECT_TRUE(charSet.GetGsmBytes(Raw(text), 4, &length, &codes));
    EXPECT_EQ(length, 5U);
    EXPECT_EQ(codes, buffer);
    EXPECT_EQ(tests::Hex(buffer, 6), "41 00 00 00 00 EE");
}

/// The length says how much is zeroed, and no more than that: all codes are written, and nothing after them.
TEST(GetGsmBytes, WritesEveryCodeHoweverSmallTheLength) {
    GSMCharSet charSet;
    const struct {
        TString<wchar_t> text;
        unsigned int length;
        const char* buffer;
    } rows[] = {
        {L"ABCD", 1, "41 42 43 44 EE EE EE EE EE EE EE EE"},
        {L"ABCD", 3, "41 42 43 44 EE EE EE EE EE EE EE EE"},
        {L"ABCD", 4, "41 42 43 44 EE EE EE EE EE EE EE EE"},
        {L"ABCD", 5, "41 42 43 44 00 EE EE EE EE EE EE EE"},
        {L"A{B", 1, "41 1B 28 42 EE EE EE EE EE EE EE EE"},
        {L"A{B", 2, "41 1B 28 42 EE EE EE EE EE EE EE EE"}, // the length ends inside the pair
        {Wide({0x4E2D}), 1, "00 EE EE EE EE EE EE EE EE EE EE EE"},
        {Wide({0x4E2D, 'A'}), 2, "41 00 EE EE EE EE EE EE EE EE EE EE"},
        {L"abcdefgh", 3, "61 62 63 64 65 66 67 68 EE EE EE EE"},
        {L"abcdefghi", 8, "61 62 63 64 65 66 67 68 69 EE EE EE"},
        {L"abcdefg{i", 8, "61 62 63 64 65 66 67 1B 28 69 EE EE"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.buffer);
        Bytes buffer(12, 0xEE);
        unsigned char* codes = buffer.data();
        unsigned int length = row.length;
        EXPECT_TRUE(charSet.GetGsmBytes(Raw(row.text), RawSize(row.text), &length, &codes));
        EXPECT_EQ(tests::Hex(buffer), row.buffer);
        EXPECT_EQ(length, row.length);
        EXPECT_EQ(codes, buffer.data());
    }
}

/// Eight characters together and one by one, from memory that ends with the text.
TEST(GetGsmBytes, ReadsAndWritesAtAnyAddress) {
    GSMCharSet charSet;
    const TString<wchar_t> text = L"abcdefgh{€\u4E2Dz";
    for (unsigned int start = 0; start < 8; ++start) {
        SCOPED_TRACE(start);
        Bytes memory(start, 0xEE);
        memory.insert(memory.end(), Raw(text), Raw(text) + RawSize(text));
        memory.shrink_to_fit();
        unsigned int count = 0;
        EXPECT_TRUE(charSet.GetGsmBytes(memory.data() + start, RawSize(text), &count, nullptr));
        EXPECT_EQ(count, 13U);
        Bytes buffer(start + 13, 0xEE);
        unsigned char* codes = buffer.data() + start;
        EXPECT_TRUE(charSet.GetGsmBytes(memory.data() + start, RawSize(text), &count, &codes));
        EXPECT_EQ(tests::Hex(codes, 13), "61 62 63 64 65 66 67 68 1B 28 1B 65 7A");
    }
}

TEST(GetGsmBytes, TellsWhetherTheTextNeededTheGreekTable) {
    GSMCharSet charSet;
    const TString<wchar_t> greek = Wide({0x03B1, 0x03B2});
    EXPECT_EQ(Count(charSet, greek), 0U);
    EXPECT_EQ(charSet.m_Translated, 0);
    charSet.AddTranslateTable(TranslateTable::GREEK);
    EXPECT_EQ(Convert(charSet, greek), (Bytes{0x41, 0x42}));
    EXPECT_EQ(charSet.m_Translated, 1);
    EXPECT_EQ(Convert(charSet, Wide({0x41})), (Bytes{0x41}));
    EXPECT_EQ(charSet.m_Translated, 0);
}

TEST(GetGsmBytes, AllocatesNothingInEitherPass) {
    GSMCharSet charSet;
    charSet.AddTranslateTable(TranslateTable::GREEK);
    const TString<wchar_t> text = Wide({0x41, 0x7B, 0x03B1, 0x4E2D});
    unsigned char buffer[8];
    unsigned char* codes = buffer;
    const unsigned long before = tests::Allocations();
    unsigned int length = 0;
    charSet.GetGsmBytes(Raw(text), 16, &length, nullptr);
    charSet.GetGsmBytes(Raw(text), 16, &length, &codes);
    EXPECT_EQ(tests::Allocations(), before);
    EXPECT_EQ(length, 4U);
}

TEST(GetGsmBytes, CountAndFillAndStringAgreeOnRandomText) {
    std::mt19937 random(20261120);
    GSMCharSet charSet;
    charSet.AddTranslateTable(TranslateTable::GREEK);
    for (int round = 0; round < 2000; ++round) {
        TString<wchar_t> text;
        for (auto i = random() % 40 + 1; i != 0; --i)
            text += static_cast<wchar_t>(random() % 4 == 0 ? random() % 0x10000 : random() % 0x400);
        EXPECT_EQ(Narrow(Convert(charSet, text)), charSet.UnicodeToGsmString(text)) << "round " << round;
    }
}

TEST(GsmToUnicode, DecodesUnpackedCodes) {
    GSMCharSet charSet;
    const struct {
        Bytes codes;
        TString<wchar_t> fromBytes;
        TString<wchar_t> fromString;
    } rows[] = {
        {{}, {}, {}},
        {{0x00, 0x02, 0x1B, 0x65}, Wide({0x40, 0x24, 0x20AC}), Wide({0x40, 0x24, 0x20AC})},
        {{0x1B}, {}, {}},
        {{0x41, 0x1B}, Wide({0x41}), Wide({0x41})},
        {{0x1B, 0x0D}, Wide({0x0D}), Wide({0x00})},
        {{0x1B, 0x41}, Wide({0x41}), Wide({0x00})},
        {{0x1B, 0x1B, 0x28}, Wide({0x7B}), Wide({0x00, 0x28})},
        {{0x1B, 0x1B}, {}, Wide({0x00})},
        {{0x1B, 0x80, 0x42}, Wide({0x42}), Wide({0x00, 0x42})},
        {{0x80, 0x41, 0xFF, 0x9B, 0x42}, Wide({0x41, 0x42}), Wide({0x41, 0x42})},
        {{0x1B, 0x28, 0x1B, 0x29}, Wide({0x7B, 0x7D}), Wide({0x7B, 0x7D})},
        {{0x09, 0x10, 0x7F}, Wide({0xE7, 0x394, 0xE0}), Wide({0xE7, 0x394, 0xE0})},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(tests::Hex(row.codes));
        EXPECT_EQ(charSet.GsmToUnicode(row.codes.data(), static_cast<unsigned int>(row.codes.size())),
                  row.fromBytes);
        EXPECT_EQ(charSet.GsmToUnicode(Narrow(row.codes)), row.fromString);
    }
}

TEST(GsmToUnicode, DecodesEveryCodeAtEveryPlace) {
    struct Row {
        Bytes codes;
        TString<wchar_t> text;
    };
    const Row fillers[] = {{{0x61}, L"a"}, {{0x11}, L"_"}, {{0x1B, 0x28}, L"{"}, {{0xFF}, L""}};
    const Row others[] = {{{0x00}, L"@"},
                          {{0x1B, 0x65}, Wide({0x20AC})},
                          {{0x1B, 0x1B, 0x3D}, L"~"},
                          {{0x1B, 0x41}, L"A"},
                          {{0x1B, 0x80}, L""},
                          {{0x80}, L""},
                          {{0x09}, Wide({0xE7})},
                          {{0x7F}, Wide({0xE0})},
                          {{0x24}, Wide({0xA4})},
                          {{0x40}, Wide({0xA1})}};
    GSMCharSet charSet;
    for (const Row& filler : fillers) {
        for (const Row& other : others) {
            for (const std::size_t length : {1U, 2U, 15U, 16U, 17U, 31U, 33U, 40U}) {
                for (std::size_t place = 0; place < length; ++place) {
                    Bytes codes;
                    TString<wchar_t> text;
                    for (std::size_t i = 0; i < length; ++i) {
                        const Row& row = i == place ? other : filler;
                        codes.insert(codes.end(), row.codes.begin(), row.codes.end());
                        text += row.text;
                    }
                    const tests::Guarded<unsigned char> guarded(codes.data(), codes.size());
                    ASSERT_EQ(charSet.GsmToUnicode(guarded.Data(), static_cast<unsigned int>(codes.size())),
                              text)
                        << tests::Hex(other.codes) << " among " << tests::Hex(filler.codes) << " at "
                        << place;
                }
            }
        }
    }
}

TEST(GetGsmBytes, ReadsNoFurtherThanItIsTold) {
    const TString<wchar_t> text(16, L'a');
    const auto* const octets = reinterpret_cast<const unsigned char*>(text.data());
    GSMCharSet charSet;
    // Two octets of the last character do, which hold the code of a little-endian one.
    for (const unsigned int size : {60U, 62U, 63U, 64U}) {
        const tests::Guarded<unsigned char> guarded(octets,
                                                    std::endian::native == std::endian::little ? size : 64);
        unsigned int count = 0;
        ASSERT_TRUE(charSet.GetGsmBytes(guarded.Data(), size, &count, nullptr));
        EXPECT_EQ(count, size == 60 ? 15U : 16U);
        Bytes codes(count);
        unsigned char* out = codes.data();
        ASSERT_TRUE(charSet.GetGsmBytes(guarded.Data(), size, &count, &out));
        EXPECT_EQ(codes, Bytes(count, 'a'));
    }
}

TEST(GsmToUnicode, ReadsCodesAtAnyAddress) {
    GSMCharSet charSet;
    const Bytes codes = tests::Octets("41 42 43 44 45 46 47 48 49 1B 65 00 4A 4B 4C 4D 1B 28");
    for (unsigned int start = 0; start < 8; ++start) {
        Bytes memory(start, 0xEE);
        memory.insert(memory.end(), codes.begin(), codes.end());
        memory.shrink_to_fit();
        EXPECT_EQ(charSet.GsmToUnicode(memory.data() + start, 18), L"ABCDEFGHI€@JKLM{") << start;
    }
}

TEST(GsmToUnicode, EveryDefaultCodeDecodesToItsTableEntry) {
    GSMCharSet charSet;
    for (unsigned int code = 0; code < 0x80; ++code) {
        if (code == 0x1B)
            continue;
        const auto octet = static_cast<unsigned char>(code);
        const TString<wchar_t> expected = Wide({GSMCharSet::m_GsmDefaultTable[code]});
        EXPECT_EQ(charSet.GsmToUnicode(&octet, 1), expected);
        EXPECT_EQ(charSet.GsmToUnicode(TString<char>(1, static_cast<char>(octet))), expected);
    }
}

TEST(GsmToUnicode, AsksForTheTextOfAStringAtOnce) {
    const GSMCharSet charSet;
    const TString<char> codes(100, 'A');
    const unsigned long before = tests::Allocations();
    const unsigned long bytes = tests::AllocatedBytes();
    const TString<wchar_t> text = charSet.GsmToUnicode(codes);
    EXPECT_EQ(tests::Allocations() - before, 1U);
    EXPECT_EQ(tests::AllocatedBytes() - bytes, 404U) << "four octets a character, and the end of the string";
}

TEST(UnicodeToGsmString, WritesCodesAndDropsTheRest) {
    GSMCharSet charSet;
    EXPECT_EQ(charSet.UnicodeToGsmString(Wide({0x61, 0x20AC})), "a\x1B"
                                                                "e");
    EXPECT_EQ(charSet.UnicodeToGsmString(Wide({0x00C7})), "");
    EXPECT_EQ(charSet.UnicodeToGsmString(Wide({})), "");
    EXPECT_EQ(charSet.UnicodeToGsmString(Wide({0x10061, 0x40})), TString<char>("a\0", 2));
}

TEST(UnicodeToGsmString, SetsTheFlagAndNeverClearsIt) {
    GSMCharSet charSet;
    charSet.AddTranslateTable(TranslateTable::GREEK);
    EXPECT_EQ(charSet.UnicodeToGsmString(Wide({0x03B1})), "A");
    EXPECT_EQ(charSet.m_Translated, 1);
    EXPECT_EQ(charSet.UnicodeToGsmString(Wide({0x41})), "A");
    EXPECT_EQ(charSet.m_Translated, 1);
}

} // namespace
