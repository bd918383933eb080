// What libQX_Messages chooses and sends beside trying everything: on the vectors, and on random texts of
// every language.
#include <algorithm>

#include <gtest/gtest.h>

#include "../Cases.h"
#include "Messages/Parts.h"
#include "Messages/Write.h"
#include "OutgoingVectors.h"
#include "VectorText.h"
#include "model/Choosing.h"
#include "model/Tables.h"
#include "model/Text.h"

namespace plain {
namespace {

using reference::Difference;
using reference::Random;

constexpr auto c_cases = static_cast<reference::Share>(30'000);
constexpr auto c_sentCases = static_cast<reference::Share>(10'000);

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
        Append(utf8, character);
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
        return reference::Between("chosen:   " + Shown(chosen) + "\nexpected: " + Shown(expected),
                                  std::to_string(space.octets) + " octets, " +
                                      std::to_string(space.elements) + " of elements, " + Utf8Of(text));
    });
}

Messages::CutOptions OptionsOf(const Outgoing& outgoing) {
    Messages::CutOptions options;
    for (const int language : outgoing.languages)
        options.choice.languages.Add(static_cast<Messages::Language>(language));
    if (!outgoing.alphabet.empty())
        options.choice.alphabet =
            outgoing.alphabet == "ucs2" ? Messages::Alphabet::Ucs2 : Messages::Alphabet::Gsm7;
    options.choice.room.hasWideReference = outgoing.isWide;
    options.reference = static_cast<std::uint16_t>(outgoing.reference);
    if (outgoing.ports)
        options.ports =
            Messages::Ports{outgoing.ports->isWide, static_cast<std::uint16_t>(outgoing.ports->destination),
                            static_cast<std::uint16_t>(outgoing.ports->source)};
    options.elements = outgoing.elements;
    if (outgoing.messageClass >= 0)
        options.messageClass = static_cast<std::uint8_t>(outgoing.messageClass);
    return options;
}

/// What the library sends, as the second reading has it.
Json SentBy(const Outgoing& outgoing) {
    const Messages::CutText cut = CutIntoParts(Utf8Of(outgoing.text), OptionsOf(outgoing));
    if (cut.fault)
        return nullptr;
    Json parts = Json::array();
    for (const Messages::UserData& part : cut.parts)
        parts.push_back(Hex(Octets{part.length}) + Hex(part.octets));
    return {{"TP-DCS", cut.coding.value},
            {"TP-UDHI", cut.parts.front().hasHeader ? 1 : 0},
            {"units", cut.choice.units},
            {"parts", parts}};
}

TEST(SentTexts, AreTheVectors) {
    for (const std::string& file : {c_outgoingFile, std::string("outgoing-by-hand")})
        for (const Json& vector : VectorsOf(file))
            EXPECT_EQ(Unordered(SentBy(OutgoingOf(vector))), Unordered(vector.at("sent")))
                << vector.at("name");
}

TEST(SentTexts, AreWhatTheSecondReadingSends) {
    reference::RunCases(c_sentCases, [](Random& random) -> Difference {
        Outgoing outgoing;
        outgoing.text = RandomText(random);
        outgoing.languages = RandomLanguages(random);
        outgoing.isWide = random.Chance(50);
        outgoing.reference = static_cast<int>(random.Below(outgoing.isWide ? 0x10000 : 0x100));
        if (random.Chance(20))
            outgoing.alphabet = random.Chance(50) ? "gsm7" : "ucs2";
        if (random.Chance(30)) {
            const bool isWide = random.Chance(50);
            const auto port = [&] { return static_cast<int>(random.Below(isWide ? 0x10000 : 0x100)); };
            outgoing.ports = PortPair{port(), port(), isWide};
        }
        if (random.Chance(30))
            outgoing.elements = {0x70, 0x01, static_cast<std::uint8_t>(random.Below(0x100))};
        if (random.Chance(30))
            outgoing.messageClass = static_cast<int>(random.Below(4));
        const Json expected = ToJson(Send(outgoing));
        const Json sent = SentBy(outgoing);
        if (Unordered(sent) == Unordered(expected))
            return {};
        return reference::Between("sent:     " + sent.dump() + "\nexpected: " + expected.dump(),
                                  Utf8Of(outgoing.text));
    });
}

} // namespace
} // namespace plain
