// The selection of translation tables, and transliteration.
#include <gtest/gtest.h>

#include "Encoding/GSMCharSet.h"
#include "charset/Alphabet.h"
#include "support/Allocations.h"
#include "support/Octets.h"

namespace {

using Encoding::GSMCharSet;
using Encoding::TranslateTable;

TEST(TranslateTables, NothingIsSelectedAtFirst) {
    const GSMCharSet charSet;
    EXPECT_TRUE(charSet.m_TranslateTables.empty());
    EXPECT_FALSE(charSet.FindTable(TranslateTable::GREEK));
    EXPECT_EQ(charSet.Translate(0x03B1), -1);
    EXPECT_EQ(charSet.m_Translated, 0);
}

TEST(TranslateTables, EverySelectionIsKeptInOrderWithOneShare) {
    GSMCharSet charSet;
    const int values[] = {1, 7, -3, 1, 0};
    for (const int value : values)
        charSet.AddTranslateTable(static_cast<TranslateTable::TT>(value));
    ASSERT_EQ(charSet.m_TranslateTables.size(), 5U);
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(charSet.m_TranslateTables[i]->type, values[i]);
        EXPECT_EQ(tests::CountOf(charSet.m_TranslateTables[i]), 1);
    }
    for (const int value : values)
        EXPECT_TRUE(charSet.FindTable(static_cast<TranslateTable::TT>(value)));
    EXPECT_FALSE(charSet.FindTable(static_cast<TranslateTable::TT>(2)));
}

TEST(TranslateTables, ClearingLeavesNothingSelected) {
    GSMCharSet charSet;
    charSet.ClearTranslateTable();
    charSet.AddTranslateTable(TranslateTable::GREEK);
    charSet.AddTranslateTable(TranslateTable::GREEK);
    const unsigned long open = tests::Allocations() - tests::Deallocations();
    charSet.ClearTranslateTable();
    EXPECT_EQ(open - (tests::Allocations() - tests::Deallocations()), 4U) << "two tables, two blocks";
    EXPECT_FALSE(charSet.FindTable(TranslateTable::GREEK));
    EXPECT_EQ(charSet.Translate(0x03B1), -1);
}

TEST(TranslateTables, FailedSelectionLeavesTheListUnchanged) {
    for (unsigned long n = 1;; ++n) {
        GSMCharSet charSet;
        charSet.AddTranslateTable(static_cast<TranslateTable::TT>(5));
        const unsigned long open = tests::Allocations() - tests::Deallocations();
        bool failed = false;
        {
            const tests::FailAllocation fail(n);
            try {
                charSet.AddTranslateTable(TranslateTable::GREEK);
            } catch (const std::bad_alloc&) {
                failed = true;
            }
        }
        if (!failed) {
            EXPECT_EQ(n, 4U) << "a table, its block, the list";
            return;
        }
        EXPECT_EQ(tests::Allocations() - tests::Deallocations(), open + 1) << "the failed one alone";
        ASSERT_EQ(charSet.m_TranslateTables.size(), 1U);
        EXPECT_FALSE(charSet.FindTable(TranslateTable::GREEK));
        EXPECT_TRUE(charSet.FindTable(static_cast<TranslateTable::TT>(5)));
    }
}

TEST(Translate, GoesThroughTheGreekTableAlone) {
    GSMCharSet charSet;
    charSet.AddTranslateTable(TranslateTable::GREEK);
    for (unsigned int unicode = 0; unicode <= 0xFFFF; ++unicode) {
        charSet.m_Translated = 0;
        const auto row = tests::c_greek.find(static_cast<unsigned short>(unicode));
        ASSERT_EQ(charSet.Translate(static_cast<unsigned short>(unicode)),
                  row == tests::c_greek.end() ? -1 : row->second)
            << std::hex << unicode;
        ASSERT_EQ(charSet.m_Translated, row == tests::c_greek.end() ? 0 : 1);
    }
}

TEST(Translate, LiteralExamples) {
    GSMCharSet charSet;
    charSet.AddTranslateTable(TranslateTable::GREEK);
    EXPECT_EQ(charSet.Translate(0x03B1), 0x41);
    EXPECT_EQ(charSet.Translate(0x03C9), 0x15);
    EXPECT_EQ(charSet.Translate(0x0041), -1);
    EXPECT_EQ(charSet.Translate(0x0385), 0x20);
    EXPECT_EQ(charSet.Translate(0x0060), 0x20) << "though UnicodeToGsm does not know it";
}

TEST(Translate, OtherTablesChangeNothing) {
    GSMCharSet charSet;
    charSet.AddTranslateTable(static_cast<TranslateTable::TT>(2));
    charSet.AddTranslateTable(static_cast<TranslateTable::TT>(0));
    EXPECT_TRUE(charSet.FindTable(static_cast<TranslateTable::TT>(2)));
    for (const auto& [unicode, gsm] : tests::c_greek)
        EXPECT_EQ(charSet.Translate(unicode), -1) << gsm;
    EXPECT_EQ(charSet.UnicodeToGsm(0x03C3), -1);
    EXPECT_EQ(charSet.m_Translated, 0);
}

} // namespace
