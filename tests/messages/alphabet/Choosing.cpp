// The cheapest way to write a text, where its parts begin, and near characters.
#include <gtest/gtest.h>

#include "Messages/Alphabet.h"
#include "messages/Readings.h"

namespace {

using namespace Messages;
using tests::Times;

/// "0/1, 5 septets, 1 part, 9 octets", "UCS2, …", or "misfit OFFSET CHARACTER".
std::string Chosen(std::string_view text, const ChoiceOptions& options = {}) {
    Choice choice;
    if (const auto misfit = Choose(text, options, choice))
        return "misfit " + std::to_string(misfit->offset) + ' ' +
               std::to_string(static_cast<std::uint32_t>(misfit->character));
    const auto number = [](Language language) { return std::to_string(static_cast<int>(language)); };
    const std::string alphabet = choice.alphabet == Alphabet::Ucs2
                                     ? "UCS2"
                                     : number(choice.tables.locking) + '/' + number(choice.tables.single);
    if (choice.parts == c_noParts)
        return alphabet + " without room";
    return alphabet + ' ' + std::to_string(choice.units) + " units " + std::to_string(choice.parts) +
           " parts " + std::to_string(choice.octets) + " octets";
}

std::string ChosenIn(Languages languages, std::string_view text) {
    ChoiceOptions options;
    options.languages = languages;
    return Chosen(text, options);
}

TEST(Choose, TheDefaultAlphabetOrUcs2WithoutALanguage) {
    EXPECT_EQ(Chosen(""), "0/0 0 units 1 parts 0 octets");
    EXPECT_EQ(Chosen("Hello"), "0/0 5 units 1 parts 5 octets");
    EXPECT_EQ(Chosen("5 €"), "0/0 4 units 1 parts 4 octets");
    EXPECT_EQ(Chosen("ş"), "UCS2 1 units 1 parts 2 octets");
    EXPECT_EQ(Chosen("😀ş"), "UCS2 3 units 1 parts 6 octets");
}

TEST(Choose, AsManyPartsAsAreNeeded) {
    EXPECT_EQ(Chosen(Times(160, "a")), "0/0 160 units 1 parts 140 octets");
    EXPECT_EQ(Chosen(Times(161, "a")), "0/0 161 units 2 parts 154 octets"); // 153 in 140, 8 and 7 in 14
    EXPECT_EQ(Chosen(Times(306, "a")), "0/0 306 units 2 parts 280 octets");
    EXPECT_EQ(Chosen(Times(307, "a")), "0/0 307 units 3 parts 287 octets");
    EXPECT_EQ(Chosen(Times(70, "ş")), "UCS2 70 units 1 parts 140 octets");
    EXPECT_EQ(Chosen(Times(71, "ş")), "UCS2 71 units 2 parts 154 octets");
    EXPECT_EQ(Chosen(Times(135, "ş")), "UCS2 135 units 3 parts 288 octets");
}

TEST(Choose, NoPairIsCut) {
    // 152 septets, then a pair: the first part holds 152.
    EXPECT_EQ(Chosen(Times(152, "a") + "€" + Times(10, "a")), "0/0 164 units 2 parts 157 octets");
    EXPECT_EQ(Chosen(Times(66, "ş") + "😀" + Times(4, "ş")), "UCS2 72 units 2 parts 156 octets");
}

TEST(Choose, TheRoomOfEveryRow) {
    // Other header, then septets of one part, of parts with an 8-bit reference and with a 16-bit one, by no,
    // one and two tables of languages; and UCS2 units.
    const struct {
        std::size_t elements;
        std::size_t septets[3][3];
        std::size_t units[3];
    } rows[] = {{0, {{160, 153, 152}, {155, 149, 148}, {152, 146, 145}}, {70, 67, 66}},
                {6, {{152, 146, 145}, {148, 142, 141}, {145, 139, 138}}, {66, 64, 63}}};
    const SeptetTables tables[] = {
        {}, {Language::Turkish, Language::Default}, {Language::Turkish, Language::Spanish}};
    const auto partsOf = [](std::size_t length, std::size_t one, std::size_t many) {
        return length <= one ? 1 : (length + many - 1) / many;
    };
    for (const auto& row : rows)
        for (std::size_t length = 0; length <= 400; ++length)
            for (const bool isWide : {false, true}) {
                ChoiceOptions options;
                options.room = {140, row.elements, isWide};
                Choice choice;
                for (std::size_t i = 0; i < 3; ++i) {
                    options.tables = tables[i];
                    ASSERT_FALSE(Choose(Times(length, "a"), options, choice));
                    ASSERT_EQ(choice.parts,
                              partsOf(length, row.septets[i][0], row.septets[i][isWide ? 2 : 1]))
                        << length << ' ' << i;
                }
                options.tables.reset();
                options.alphabet = Alphabet::Ucs2;
                ASSERT_FALSE(Choose(Times(length, "a"), options, choice));
                ASSERT_EQ(choice.parts, partsOf(length, row.units[0], row.units[isWide ? 2 : 1])) << length;
            }
}

TEST(Choose, ALanguageWhereItIsCheaper) {
    EXPECT_EQ(ChosenIn({Language::Turkish}, "Hello"), "0/0 5 units 1 parts 5 octets");
    // One letter: UCS2 takes 2 octets, a table at least 6.
    EXPECT_EQ(ChosenIn({Language::Turkish}, "ş"), "UCS2 1 units 1 parts 2 octets");
    // Turkish's locking table lacks the letter è: 4 octets of header and 12 septets are 15, UCS2 takes 22.
    EXPECT_EQ(ChosenIn({Language::Turkish}, Times(10, "è") + "ş"), "0/1 12 units 1 parts 15 octets");
    // Ten of Turkish: as pairs 25 septets with the header, as single ones 15.
    EXPECT_EQ(ChosenIn({Language::Turkish}, Times(10, "ş")), "1/0 10 units 1 parts 14 octets");
    EXPECT_EQ(ChosenIn({Language::Spanish}, Times(20, "a") + "Á"), "0/2 22 units 1 parts 24 octets");
    EXPECT_EQ(ChosenIn({Language::Turkish, Language::Spanish}, Times(20, "ş") + "Á"),
              "1/2 22 units 1 parts 27 octets");
    EXPECT_EQ(ChosenIn(Languages::All(), Times(20, "न")), "6/0 20 units 1 parts 22 octets");
}

TEST(Choose, TheEarlierKindAndTheLowerLanguageOfEqualOnes) {
    EXPECT_EQ(ChosenIn({Language::Turkish}, "aaş"), "UCS2 3 units 1 parts 6 octets");
    EXPECT_EQ(ChosenIn({Language::Turkish}, "aaaş"), "1/0 4 units 1 parts 8 octets")
        << "UCS2 takes 8 as well";
    EXPECT_EQ(ChosenIn({Language::Turkish}, "abcdefghiş"), "0/1 11 units 1 parts 14 octets")
        << "the locking table takes 14 as well";
    EXPECT_EQ(ChosenIn({Language::Portuguese, Language::Turkish}, Times(20, "ç")),
              "1/0 20 units 1 parts 22 octets");
    EXPECT_EQ(ChosenIn({Language::Spanish, Language::Turkish}, Times(10, "è") + "ç"),
              "0/1 12 units 1 parts 15 octets");
    EXPECT_EQ(ChosenIn({Language::Spanish}, Times(10, "è") + "ç"), "0/2 12 units 1 parts 15 octets");
}

TEST(Choose, WhatIsForcedHoldsOrNamesTheFirstMisfit) {
    ChoiceOptions options;
    options.alphabet = Alphabet::Ucs2;
    EXPECT_EQ(Chosen("Hello", options), "UCS2 5 units 1 parts 10 octets");
    options.alphabet = Alphabet::Gsm7;
    EXPECT_EQ(Chosen("aş😀", options), "misfit 1 351");
    options.languages = {Language::Turkish};
    EXPECT_EQ(Chosen("aş😀", options), "misfit 3 128512");
    EXPECT_EQ(Chosen("ş", options), "1/0 1 units 1 parts 6 octets");
    options.tables = {Language::Default, Language::Default};
    EXPECT_EQ(Chosen("aş😀", options), "misfit 1 351");
    options.tables = {Language::Turkish, Language::Hindi};
    EXPECT_EQ(Chosen("ab", options), "1/6 2 units 1 parts 9 octets") << "whether it is needed or not";
    options.tables = {Language::Default, Language::Turkish};
    EXPECT_EQ(Chosen("ş", options), "0/1 2 units 1 parts 7 octets");
    options.tables = {Language::Spanish, Language::Default};
    EXPECT_EQ(Chosen("ab", options), "0/0 2 units 1 parts 2 octets") << "Spanish has no locking table";
    EXPECT_EQ(Chosen("a\xFF"), "misfit 1 4294967295");
    EXPECT_EQ(Chosen("a\xFF", options), "misfit 1 4294967295");
}

TEST(Choose, NoPairOfTablesHoldsWhatEachOfThemDoesInPart) {
    ChoiceOptions options;
    options.alphabet = Alphabet::Gsm7;
    options.languages = {Language::Hindi, Language::Tamil, Language::Urdu};
    EXPECT_EQ(Chosen("न௮", options), "6/11 3 units 1 parts 10 octets");
    EXPECT_EQ(Chosen("न௮ٻ", options), "misfit 6 1659") << "three would need three tables";
}

TEST(Choose, WithoutRoom) {
    ChoiceOptions options;
    options.room = {7, 0, false};
    EXPECT_EQ(Chosen(Times(8, "a"), options), "0/0 8 units 1 parts 7 octets");
    EXPECT_EQ(Chosen(Times(9, "a"), options), "0/0 without room") << "one septet after a header of 6 octets";
    options.room = {8, 0, false};
    EXPECT_EQ(Chosen(Times(10, "a"), options), "0/0 10 units 5 parts 40 octets");
    options.room = {140, 140, false};
    EXPECT_EQ(Chosen("a", options), "0/0 without room");
    EXPECT_EQ(Chosen("", options), "0/0 without room") << "not even for the header, of 141 octets";
    options.room = {140, 139, false};
    EXPECT_EQ(Chosen("", options), "0/0 0 units 1 parts 140 octets");
}

TEST(PartOffsets, AreWhereThePartsBegin) {
    const std::string text = Times(152, "a") + "€" + Times(151, "é") + "€b";
    Choice choice;
    ASSERT_FALSE(Choose(text, {}, choice));
    EXPECT_EQ(choice.parts, 3U);
    // 152 and the pair would be 154; then the pair and 151 letters fill the second.
    EXPECT_EQ(PartOffsets(text, choice, {}), (std::vector<std::size_t>{0, 152, 152 + 3 + 302}));
    ASSERT_FALSE(Choose("Hello", {}, choice));
    EXPECT_EQ(PartOffsets("Hello", choice, {}), std::vector<std::size_t>{0});
}

/// The text, then each "OFFSET+LENGTH=REPLACEMENT".
std::string Replaced(std::string_view text, Languages languages = {}) {
    std::vector<Replacement> replacements;
    std::string shown = ReplaceNear(text, languages, replacements);
    for (const Replacement& one : replacements)
        shown += '|' + std::to_string(one.offset) + '+' + std::to_string(one.length) + '=' + one.replacement;
    return shown;
}

TEST(ReplaceNear, WhatLooksAlike) {
    EXPECT_EQ(Replaced("Hello"), "Hello");
    EXPECT_EQ(Replaced("“it’s”"), "\"it's\"|0+3=\"|5+3='|9+3=\"");
    EXPECT_EQ(Replaced("a–b—c…"), "a-b-c...|1+3=-|5+3=-|9+3=...");
    EXPECT_EQ(Replaced("œﬁ"), "oefi|0+2=oe|2+3=fi");
    EXPECT_EQ(Replaced("a\xC2\xA0\xE2\x80\x8B"), "a |1+2= |3+3=");
    EXPECT_EQ(Replaced("ş😀"), "ş😀") << "nothing is near";
    EXPECT_EQ(Replaced("€"), "€");
    EXPECT_EQ(Replaced("’\xFF’"), "'\xFF’|0+3='") << "what is no UTF-8 ends it";
}

TEST(ReplaceNear, AccentsAreComposedWhereATableHoldsTheResult) {
    EXPECT_EQ(Replaced("e\xCC\x81"), "é|0+3=é");
    EXPECT_EQ(Replaced("s\xCC\xA7"), "s\xCC\xA7") << "in no table that may be used";
    EXPECT_EQ(Replaced("s\xCC\xA7", {Language::Turkish}), "ş|0+3=ş");
    EXPECT_EQ(Replaced("\xE0\xB3\x86\xE0\xB3\x82\xE0\xB3\x95", {Language::Kannada}),
              "\xE0\xB3\x8B|0+9=\xE0\xB3\x8B")
        << "in two steps";
    EXPECT_EQ(Replaced("é"), "é") << "nothing is taken apart";
}

TEST(ReplaceNear, WhatALanguageHoldsStays) {
    EXPECT_EQ(Replaced("×÷"), "x/|0+2=x|2+2=/");
    EXPECT_EQ(Replaced("`«", {Language::Portuguese}), "`\"|1+2=\"") << "Portuguese has a grave accent";
}

} // namespace
