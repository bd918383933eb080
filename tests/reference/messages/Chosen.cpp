// What libQX_Messages chooses beside trying everything, on random texts of every language.
#include <algorithm>

#include <gtest/gtest.h>

#include "../Cases.h"
#include "Messages/Alphabet.h"
#include "model/Choosing.h"
#include "model/Tables.h"

namespace plain {
namespace {

using reference::Difference;
using reference::Random;

constexpr auto c_cases = static_cast<reference::Share>(30'000);

/// Plainly.
std::string Utf8Of(char32_t character) {
    const auto octet = [](char32_t value) { return static_cast<char>(value); };
    if (character < 0x80)
        return {octet(character)};
    if (character < 0x800)
        return {octet(0xC0U | character >> 6U), octet(0x80U | (character & 0x3FU))};
    if (character < 0x10000)
        return {octet(0xE0U | character >> 12U), octet(0x80U | (character >> 6U & 0x3FU)),
                octet(0x80U | (character & 0x3FU))};
    return {octet(0xF0U | character >> 18U), octet(0x80U | (character >> 12U & 0x3FU)),
            octet(0x80U | (character >> 6U & 0x3FU)), octet(0x80U | (character & 0x3FU))};
}

/// The characters of a table that may be written.
std::u32string CharactersOf(const Alphabet& alphabet) {
    std::u32string characters;
    for (const Cell& cell : alphabet)
        if (cell.kind == Cell::CHARACTER && !cell.readOnly)
            characters += cell.character;
    return characters;
}

/// Most characters of one or two tables, some of the default alphabet, at times any.
std::u32string RandomText(Random& random) {
    const auto table = [&] {
        const auto& alphabets = random.Chance(60) ? TheTables().locking : TheTables().single;
        return CharactersOf(
            std::next(alphabets.begin(), random.Below(static_cast<std::uint32_t>(alphabets.size())))->second);
    };
    const std::u32string first = table();
    const std::u32string second = table();
    const std::u32string plain = CharactersOf(TheTables().locking.at(0));
    const std::u32string rare = U"€[😀中àŞ";
    const std::uint32_t ofSecond = random.Below(40);
    const std::uint32_t ofPlain = random.Below(100);
    const std::uint32_t ofRare = random.Chance(70) ? 0 : random.Below(5);
    // About the lengths at which a part more begins, more often than elsewhere.
    const std::uint32_t length = random.Chance(60) ? random.Below(170) : random.Below(500);
    std::u32string text;
    while (text.size() < length) {
        const std::u32string& from = random.Chance(ofRare)     ? rare
                                     : random.Chance(ofPlain)  ? plain
                                     : random.Chance(ofSecond) ? second
                                                               : first;
        text += from[random.Below(static_cast<std::uint32_t>(from.size()))];
    }
    return text;
}

std::vector<int> RandomLanguages(Random& random) {
    std::vector<int> languages = {0};
    const std::uint32_t each = random.Below(101);
    for (int language = 1; language <= 13; ++language)
        if (random.Chance(each))
            languages.push_back(language);
    return languages;
}

std::string Shown(const std::optional<Way>& way) {
    if (!way)
        return "none";
    std::string shown =
        way->isUcs2 ? "UCS2" : std::to_string(way->locking) + '/' + std::to_string(way->single);
    shown +=
        ' ' + std::to_string(way->units) + " units, " + std::to_string(way->octets) + " octets, parts at";
    for (const std::size_t begin : way->begins)
        shown += ' ' + std::to_string(begin);
    return shown;
}

/// What the library chooses, parts by their characters.
std::optional<Way> ChosenBy(const std::u32string& text, const Messages::ChoiceOptions& options) {
    std::string utf8;
    std::vector<std::size_t> offsets;
    for (const char32_t character : text) {
        offsets.push_back(utf8.size());
        utf8 += Utf8Of(character);
    }
    offsets.push_back(utf8.size());
    Messages::Choice choice;
    if (Messages::Choose(utf8, options, choice) || choice.parts == Messages::c_noParts)
        return {};
    Way way{choice.alphabet == Messages::Alphabet::Ucs2,
            static_cast<int>(choice.tables.locking),
            static_cast<int>(choice.tables.single),
            static_cast<int>(choice.units),
            static_cast<int>(choice.octets),
            {}};
    for (const std::size_t offset : PartOffsets(utf8, choice, options.room))
        way.begins.push_back(static_cast<std::size_t>(
            std::lower_bound(offsets.begin(), offsets.end(), offset) - offsets.begin()));
    EXPECT_EQ(way.begins.size(), choice.parts);
    return way;
}

TEST(Chosen, IsTheCheapestOfAllWays) {
    reference::RunCases(c_cases, [](Random& random) -> Difference {
        const std::u32string text = RandomText(random);
        const std::vector<int> languages = RandomLanguages(random);
        Space space;
        space.isWide = random.Chance(50);
        space.elements = random.Chance(50) ? 0 : random.Chance(80) ? 6 : static_cast<int>(random.Below(140));
        space.octets = random.Chance(80) ? 140 : static_cast<int>(random.Between(10, 160));
        Messages::ChoiceOptions options;
        for (const int language : languages)
            options.languages.Add(static_cast<Messages::Language>(language));
        options.room = {static_cast<std::size_t>(space.octets), static_cast<std::size_t>(space.elements),
                        space.isWide};
        const std::uint32_t forced = random.Below(10);
        if (forced == 0)
            options.alphabet = Messages::Alphabet::Gsm7;
        if (forced == 1)
            options.alphabet = Messages::Alphabet::Ucs2;
        std::optional<Way> expected = Cheapest(text, languages, space, forced != 1, forced != 0);
        if (forced == 2) {
            const int locking = random.Of(languages);
            const int single = random.Of(languages);
            options.tables = {static_cast<Messages::Language>(locking),
                              static_cast<Messages::Language>(single)};
            expected = WriteIn(text, false, locking == 2 ? 0 : locking, single, space);
        }
        const std::optional<Way> chosen = ChosenBy(text, options);
        if (chosen == expected)
            return {};
        std::string utf8;
        for (const char32_t character : text)
            utf8 += Utf8Of(character);
        return reference::Between("chosen:   " + Shown(chosen) + "\nexpected: " + Shown(expected),
                                  std::to_string(space.octets) + " octets, " +
                                      std::to_string(space.elements) + " of elements, " + utf8);
    });
}

} // namespace
} // namespace plain
