// The tables of the GSM 7-bit default alphabet, one character at a time.
#include "Encoding/GSMCharSet.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <optional>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "Toolkit/SystemInfo.h"
#include "charset/Alphabet.h"
#include "support/Allocations.h"
#include "support/Octets.h"

namespace {

using Encoding::GSMCharSet;
using Encoding::TranslateTable;

static_assert(!std::is_polymorphic_v<GSMCharSet> && !std::is_copy_constructible_v<GSMCharSet>);
static_assert(!std::is_copy_assignable_v<GSMCharSet>);

TEST(GSMCharSet, DefaultTableIsTheStandardsWithTwoDeviations) {
    for (unsigned int gsm = 0; gsm < 128; ++gsm)
        EXPECT_EQ(GSMCharSet::m_GsmDefaultTable[gsm], tests::c_defaultAlphabet[gsm]) << "code " << gsm;
    EXPECT_EQ(GSMCharSet::m_GsmDefaultTable[0x09], 0x00E7);
    EXPECT_EQ(GSMCharSet::m_GsmDefaultTable[0x1B], 0x0000);
}

/// What each code point gives by the tables written out for the tests.
std::map<unsigned int, int> ExpectedCodes() {
    std::map<unsigned int, int> codes;
    for (unsigned int gsm = 0; gsm < 128; ++gsm)
        codes[tests::c_defaultAlphabet[gsm]] = static_cast<int>(gsm);
    for (const auto& [code, unicode] : tests::c_extension)
        codes[unicode] = -code;
    codes[0x00A8] = 0x20;
    return codes;
}

TEST(UnicodeToGsm, GivesEveryCharacterItsCodeAndAllOthersNone) {
    const GSMCharSet charSet;
    const std::map<unsigned int, int> codes = ExpectedCodes();
    for (unsigned int unicode = 0; unicode <= 0xFFFF; ++unicode) {
        const auto code = codes.find(unicode);
        ASSERT_EQ(charSet.UnicodeToGsm(static_cast<unsigned short>(unicode)),
                  code == codes.end() ? -1 : code->second)
            << "U+" << std::hex << unicode;
    }
    EXPECT_EQ(charSet.m_Translated, 0);
}

TEST(UnicodeToGsm, KnowsTheGreekTableAboveU0100Only) {
    GSMCharSet charSet;
    charSet.AddTranslateTable(TranslateTable::GREEK);
    std::map<unsigned int, int> codes = ExpectedCodes();
    std::map<unsigned int, bool> translated;
    for (const auto& [unicode, gsm] : tests::c_greek) {
        if (unicode > 0x0100 && codes.count(unicode) == 0) {
            codes[unicode] = gsm;
            translated[unicode] = true;
        }
    }
    for (unsigned int unicode = 0; unicode <= 0xFFFF; ++unicode) {
        charSet.m_Translated = 0;
        const auto code = codes.find(unicode);
        ASSERT_EQ(charSet.UnicodeToGsm(static_cast<unsigned short>(unicode)),
                  code == codes.end() ? -1 : code->second)
            << "U+" << std::hex << unicode;
        ASSERT_EQ(charSet.m_Translated, translated.count(unicode) != 0 ? 1 : 0)
            << "U+" << std::hex << unicode;
    }
}

TEST(UnicodeToGsm, LiteralExamples) {
    GSMCharSet charSet;
    const struct {
        unsigned short unicode;
        int gsm;
    } rows[] = {{0x0040, 0},     {0x0000, 0x1B},  {0x00E7, 9},    {0x00C7, -1},   {0x007B, -0x28},
                {0x20AC, -0x65}, {0x000C, -0x0A}, {0x00A8, 0x20}, {0x0060, -1},   {0x00A0, -1},
                {0x0100, -1},    {0x0101, -1},    {0x03A3, 0x18}, {0x0041, 0x41}, {0x00FF, -1},
                {0x00FC, 0x7E},  {0x0394, 0x10},  {0x039E, 0x1A}, {0xFFFF, -1},   {0xD83D, -1}};
    for (const auto& row : rows)
        EXPECT_EQ(charSet.UnicodeToGsm(row.unicode), row.gsm) << std::hex << row.unicode;
    EXPECT_EQ(charSet.UnicodeToGsm(0x03C3), -1);
    charSet.AddTranslateTable(TranslateTable::GREEK);
    EXPECT_EQ(charSet.UnicodeToGsm(0x00A8), 0x20);
    EXPECT_EQ(charSet.UnicodeToGsm(0x0060), -1);
    EXPECT_EQ(charSet.UnicodeToGsm(0x0100), -1);
    EXPECT_EQ(charSet.m_Translated, 0);
    EXPECT_EQ(charSet.UnicodeToGsm(0x03C3), 0x18);
    EXPECT_EQ(charSet.m_Translated, 1);
    EXPECT_EQ(charSet.UnicodeToGsm(0x03B1), 0x41);
}

TEST(UnicodeToGsm, CapitalsOfTheAlphabetAreNotTransliterated) {
    GSMCharSet charSet;
    charSet.AddTranslateTable(TranslateTable::GREEK);
    for (const int capital : {0x0393, 0x0394, 0x0398, 0x039B, 0x039E, 0x03A0, 0x03A3, 0x03A6, 0x03A8, 0x03A9})
        EXPECT_GT(charSet.UnicodeToGsm(static_cast<unsigned short>(capital)), 0);
    EXPECT_EQ(charSet.m_Translated, 0);
}

TEST(GreekToUnicode, LooksAtTheTableWhetherSelectedOrNot) {
    const GSMCharSet charSet;
    EXPECT_EQ(charSet.GreekToUnicode(0x03C2), 0x03A3);
    EXPECT_EQ(charSet.GreekToUnicode(0x0041), 0xFFFF);
    EXPECT_EQ(charSet.GreekToUnicode(0x0060), 0x0020);
    std::size_t rows = 0;
    for (unsigned int unicode = 0; unicode <= 0xFFFF; ++unicode) {
        const unsigned short replacement = charSet.GreekToUnicode(static_cast<unsigned short>(unicode));
        const auto row = tests::c_greek.find(static_cast<unsigned short>(unicode));
        if (row == tests::c_greek.end()) {
            ASSERT_EQ(replacement, 0xFFFF) << std::hex << unicode;
            continue;
        }
        ++rows;
        ASSERT_EQ(replacement, tests::c_defaultAlphabet[static_cast<std::size_t>(row->second)])
            << std::hex << unicode;
    }
    EXPECT_EQ(rows, 72U);
    EXPECT_EQ(charSet.m_Translated, 0);
}

TEST(FindUnicodeCharFromEscapeChar, KnowsTenCodes) {
    const GSMCharSet charSet;
    for (unsigned int code = 0; code <= 0xFF; ++code) {
        const auto row = tests::c_extension.find(static_cast<int>(code));
        EXPECT_EQ(charSet.FindUnicodeCharFromEscapeChar(static_cast<unsigned char>(code)),
                  row == tests::c_extension.end() ? 0 : row->second)
            << "code " << code;
    }
    EXPECT_EQ(charSet.FindUnicodeCharFromEscapeChar(0x65), 0x20AC);
    EXPECT_EQ(charSet.FindUnicodeCharFromEscapeChar(0x1B), 0);
    EXPECT_EQ(charSet.FindUnicodeCharFromEscapeChar(0x0D), 0);
}

/// Four tables, and a reference block for each of the three pointers when it is made and when it is filled.
TEST(GSMCharSet, AllocatesItsTablesAndNothingElse) {
    const unsigned long allocations = tests::Allocations();
    const unsigned long bytes = tests::AllocatedBytes();
    const GSMCharSet charSet;
    EXPECT_EQ(tests::Allocations() - allocations, 10U);
    EXPECT_EQ(tests::AllocatedBytes() - bytes,
              10 * 4 + 256 + 64 * 4 + 72 * 4 + 6 * sizeof(Toolkit::ReferenceBlock));
}

TEST(GSMCharSet, GivesBackEverythingWhenConstructionFailsAtAnyAllocation) {
    for (unsigned long n = 1;; ++n) {
        const unsigned long open = tests::Allocations() - tests::Deallocations();
        bool failed = false;
        {
            const tests::FailAllocation fail(n);
            try {
                const GSMCharSet charSet;
            } catch (const std::bad_alloc&) {
                failed = true;
            }
        }
        EXPECT_EQ(tests::Allocations() - tests::Deallocations(), open + (failed ? 1 : 0))
            << "allocation " << n;
        if (!failed) {
            EXPECT_GT(n, 4U);
            return;
        }
    }
}

/// The members in their binding order, as they lie in memory.
struct Members {
    const Encoding::UniCodeToGsmChar* greek;
    const void* greekBlock;
    short greekCount;
    int translated;
    const Encoding::GsmUnicodeChar* extension;
    const void* extensionBlock;
    const signed char* direct;
    const Encoding::GsmUnicodeChar* high;
    const void* highBlock;
    short highCount;
    const void* selected[3];
    int endian;
};

TEST(GSMCharSet, MembersLieInTheirBindingOrder) {
    static_assert(sizeof(Members) == sizeof(GSMCharSet));
    GSMCharSet charSet;
    charSet.m_Translated = 7;
    Members members;
    std::memcpy(&members, static_cast<const void*>(&charSet), sizeof members);
    EXPECT_EQ(members.greekCount, 72);
    EXPECT_EQ(members.greek[0].unicode, 0x03B1);
    EXPECT_EQ(members.greek[71].unicode, 0x0385);
    EXPECT_EQ(members.translated, 7);
    EXPECT_EQ(members.extension[0].gsm, 0x0A);
    EXPECT_EQ(members.extension[9].unicode, 0x20AC);
    EXPECT_EQ(members.direct[0x40], 0);
    EXPECT_EQ(members.direct[0x7B], -0x28);
    EXPECT_EQ(members.highCount, 11);
    EXPECT_EQ(members.high[0].unicode, 0x0394);
    EXPECT_EQ(members.high[10].gsm, -0x65);
    EXPECT_EQ(members.high[11].gsm, -1);
    EXPECT_EQ(members.high[63].unicode, 0);
    EXPECT_EQ(members.selected[0], nullptr);
    EXPECT_EQ(members.endian, Toolkit::SystemInfo::GetEndian());
}

TEST(GSMCharSet, DirectTableHoldsTheAlphabetsCodesAndNoneForTheDiaeresis) {
    std::map<unsigned int, int> codes = ExpectedCodes();
    codes.erase(0x00A8);
    const GSMCharSet charSet;
    Members members;
    std::memcpy(&members, static_cast<const void*>(&charSet), sizeof members);
    for (unsigned int unicode = 0; unicode <= 0xFF; ++unicode) {
        const auto code = codes.find(unicode);
        EXPECT_EQ(members.direct[unicode], code == codes.end() ? -1 : code->second)
            << "U+" << std::hex << unicode;
    }
}

TEST(GSMCharSet, FreesTheDirectTableFirstAndThenTheMembersFromTheLastToTheFirst) {
    std::optional<GSMCharSet> charSet(std::in_place);
    charSet->AddTranslateTable(TranslateTable::GREEK);
    Members members;
    std::memcpy(&members, static_cast<const void*>(&*charSet), sizeof members);
    const auto* table = static_cast<const void* const*>(members.selected[0]); // the pointer's two words

    const std::vector<const void*> expected = {
        members.direct, table[0],          table[1],          members.selected[0],
        members.high,   members.highBlock, members.extension, members.extensionBlock,
        members.greek,  members.greekBlock};
    const tests::NoteDeallocations notes;
    charSet.reset();
    ASSERT_EQ(notes.m_Count, expected.size());
    EXPECT_TRUE(std::equal(expected.begin(), expected.end(), notes.m_Memory.begin()));
}

TEST(GSMCharSet, ElementsStartAsNoCode) {
    const Encoding::GsmUnicodeChar code;
    EXPECT_EQ(code.gsm, -1);
    EXPECT_EQ(code.unicode, 0);
    const Encoding::UniCodeToGsmChar replacement;
    EXPECT_EQ(replacement.gsmUnicode, 0xFFFF);
    EXPECT_EQ(replacement.unicode, 0);
}

} // namespace
