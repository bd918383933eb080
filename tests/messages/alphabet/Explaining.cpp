// What each way to write a text costs, the characters that make it so, and where the parts of the cheapest
// begin.
#include <gtest/gtest.h>

#include "Messages/Alphabet.h"
#include "messages/Readings.h"

namespace {

using namespace Messages;
using tests::Times;

std::string NumberOf(Language language) {
    return std::to_string(static_cast<int>(language));
}

/// "0/1 2 in 1: 7" of locking and single shift table: units, parts, octets.
std::string InALine(const Choice& choice) {
    const std::string alphabet = choice.alphabet == Alphabet::Ucs2
                                     ? "UCS2"
                                     : NumberOf(choice.tables.locking) + '/' + NumberOf(choice.tables.single);
    return alphabet + ' ' + std::to_string(choice.units) + " in " +
           (choice.parts == c_noParts ? "none"
                                      : std::to_string(choice.parts) + ": " + std::to_string(choice.octets));
}

/// "0 1 3" of the numbers of languages; the default alphabet is in every set.
std::string InALine(Languages languages) {
    std::string line = "0";
    for (std::uint8_t language = 1; language <= c_lastLanguage; ++language)
        if (languages.Has(static_cast<Language>(language)))
            line += ' ' + std::to_string(language);
    return line;
}

std::string ChoicesOf(std::string_view text, const ChoiceOptions& options) {
    Explanation explanation;
    EXPECT_FALSE(Explain(text, options, explanation));
    std::string all;
    for (const Choice& choice : explanation.choices)
        all += (all.empty() ? "" : ", ") + InALine(choice);
    return all;
}

ChoiceOptions In(Languages languages) {
    ChoiceOptions options;
    options.languages = languages;
    return options;
}

TEST(Explain, EveryChoiceThatHoldsTheTextTheCheapestFirst) {
    EXPECT_EQ(ChoicesOf("Hello", {}), "0/0 5 in 1: 5, UCS2 5 in 1: 10");
    EXPECT_EQ(ChoicesOf("\u015F", In({Language::Turkish})), // a header of one table takes 5 septets, of two 8
              "UCS2 1 in 1: 2, 1/0 1 in 1: 6, 0/1 2 in 1: 7, 1/1 1 in 1: 8");
    EXPECT_EQ(ChoicesOf("ab", In({Language::Turkish, Language::Spanish})), // Spanish has no locking table
              "0/0 2 in 1: 2, UCS2 2 in 1: 4, 0/1 2 in 1: 7, 0/2 2 in 1: 7, 1/0 2 in 1: 7, 1/1 2 in 1: 9, "
              "1/2 2 in 1: 9");
}

TEST(Explain, NoChoiceButThoseThatMayBe) {
    ChoiceOptions options = In({Language::Turkish});
    options.alphabet = Alphabet::Ucs2;
    EXPECT_EQ(ChoicesOf("a", options), "UCS2 1 in 1: 2");
    options.alphabet = Alphabet::Gsm7;
    EXPECT_EQ(ChoicesOf("\u015F", options), "1/0 1 in 1: 6, 0/1 2 in 1: 7, 1/1 1 in 1: 8");
    options = In({Language::Turkish});
    options.tables = SeptetTables{Language::Default, Language::Turkish};
    EXPECT_EQ(ChoicesOf("\u015F", options), "0/1 2 in 1: 7");
}

TEST(Explain, WithTheHeadersThatThereAre) {
    ChoiceOptions options;
    options.room.elementOctets = 6;
    EXPECT_EQ(ChoicesOf("a", options), "0/0 1 in 1: 8, UCS2 1 in 1: 9");
    options.room.octets = 8;
    EXPECT_EQ(ChoicesOf("a", options), "0/0 1 in 1: 8, UCS2 1 in none");
}

TEST(Explain, EachChoiceAsWhenItIsTheOnlyOne) {
    const std::string text = Times(40, "\u015Fi\u20AC\u00E3") + "!";
    Explanation explanation;
    ASSERT_FALSE(Explain(text, In(Languages::All()), explanation));
    EXPECT_GT(explanation.choices.size(), 2U);
    for (const Choice& choice : explanation.choices) {
        ChoiceOptions only;
        if (choice.alphabet == Alphabet::Gsm7)
            only.tables = choice.tables;
        else
            only.alphabet = choice.alphabet;
        Choice chosen;
        ASSERT_FALSE(Choose(text, only, chosen));
        EXPECT_EQ(InALine(choice), InALine(chosen));
    }
    Choice cheapest;
    ASSERT_FALSE(Choose(text, In(Languages::All()), cheapest));
    EXPECT_EQ(InALine(explanation.choices.front()), InALine(cheapest));
}

TEST(Explain, TheCharactersThatTheDefaultAlphabetLacks) {
    Explanation explanation;
    ASSERT_FALSE(Explain("a\u015Fb\u015F\u20AC\U0001F600\u015F", {}, explanation));
    const struct {
        char32_t character;
        std::size_t offset;
        std::size_t count;
        bool isInExtension;
        const char* locking;
        const char* single;
    } expected[] = {
        {0x15F, 1, 3, false, "0 1", "0 1"},
        {0x20AC, 6, 1, true, "0 1 3", "0 1 2 3 4 5 6 7 8 9 10 11 13"}, // Telugu has none
        {0x1F600, 9, 1, false, "0", "0"},
    };
    ASSERT_EQ(explanation.characters.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const CostlyCharacter& costly = explanation.characters[i];
        EXPECT_EQ(costly.character, expected[i].character);
        EXPECT_EQ(costly.offset, expected[i].offset);
        EXPECT_EQ(costly.count, expected[i].count);
        EXPECT_EQ(costly.isInExtension, expected[i].isInExtension);
        EXPECT_EQ(InALine(costly.locking), expected[i].locking);
        EXPECT_EQ(InALine(costly.single), expected[i].single);
    }
}

TEST(Explain, WhereThePartsOfTheCheapestBegin) {
    const auto offsets = [](std::string_view text, std::size_t octets) {
        ChoiceOptions options;
        options.room.octets = octets;
        Explanation explanation;
        EXPECT_FALSE(Explain(text, options, explanation));
        return explanation.offsets;
    };
    EXPECT_EQ(offsets("", 140), (std::vector<std::size_t>{0}));
    EXPECT_EQ(offsets(Times(160, "a"), 140), (std::vector<std::size_t>{0}));
    EXPECT_EQ(offsets(Times(152, "a") + "\u20AC" + Times(7, "a"), 140), (std::vector<std::size_t>{0, 152}));
    EXPECT_TRUE(offsets("\u015F\u015F\u015F\u015F\u015F", 8).empty()) << "no room beside a concatenation";
}

TEST(Explain, FailsAsChoosingDoesAndLeavesWhatWasThere) {
    ChoiceOptions gsm7;
    gsm7.alphabet = Alphabet::Gsm7;
    ChoiceOptions forced;
    forced.tables = SeptetTables{};
    const struct {
        const char* text;
        ChoiceOptions options;
        std::size_t offset;
        char32_t character;
    } cases[] = {
        {"ab\xFF", {}, 2, c_notUtf8},
        {"a\u015F", gsm7, 1, 0x15F},
        {"\u20AC\u015F", forced, 3, 0x15F},
    };
    for (const auto& one : cases) {
        Explanation explanation{{Choice{}}, {7}, {}};
        const auto misfit = Explain(one.text, one.options, explanation);
        ASSERT_TRUE(misfit) << one.text;
        EXPECT_EQ(misfit->offset, one.offset);
        EXPECT_EQ(misfit->character, one.character);
        EXPECT_EQ(explanation.choices.size(), 1U);
        EXPECT_EQ(explanation.offsets, (std::vector<std::size_t>{7}));
        EXPECT_TRUE(explanation.characters.empty());
    }
}

} // namespace
