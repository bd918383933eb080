// A text that is cut, written, read and joined again; or parts of any messages, in a joiner with little room.
// Input: which of both, then see Options() and AnyPart().
#include <algorithm>
#include <map>
#include <string>
#include <tuple>

#include "Input.h"
#include "Messages/Parts.h"
#include "Messages/Write.h"
#include "Property.h"

namespace {

using namespace Messages;
using namespace fuzz;

Languages AnyLanguages(Input& input) {
    Languages languages;
    const std::uint32_t bits = input.Word(2);
    for (std::uint8_t language = 0; language <= c_lastLanguage; ++language)
        if ((bits >> language & 1U) != 0)
            languages.Add(static_cast<Language>(language));
    return languages;
}

Language AnyLanguage(Input& input) {
    return static_cast<Language>(input.Octet() % (c_lastLanguage + 1U));
}

CutOptions Options(Input& input) {
    const unsigned int what = input.Octet();
    const auto has = [what](unsigned int bit) { return (what >> bit & 1U) != 0; };
    CutOptions options;
    options.choice.languages = AnyLanguages(input);
    options.choice.room.hasWideReference = has(0);
    options.reference = static_cast<std::uint16_t>(has(0) ? input.Word(2) : input.Octet());
    options.replacesNear = has(1);
    if (has(2))
        options.ports = Ports{true, 2948, 9200};
    if (has(3))
        options.elements = std::vector<std::uint8_t>(2 + input.Octet() % 128U, 0);
    if (has(3)) {
        options.elements[0] = 0x70; // for a card's application, of any length
        options.elements[1] = static_cast<std::uint8_t>(options.elements.size() - 2);
    }
    if (has(4))
        options.choice.room.octets = input.Octet() % 141U;
    if (has(5))
        options.choice.alphabet = has(6) ? Alphabet::Ucs2 : Alphabet::Gsm7;
    else if (has(6))
        options.choice.tables = SeptetTables{AnyLanguage(input), AnyLanguage(input)};
    if (has(7))
        options.messageClass = static_cast<std::uint8_t>(input.Octet() % 4U);
    return options;
}

/// As it comes out of a network.
Reading Delivered(const UserData& userData, const DataCoding& coding) {
    Deliver deliver;
    ToNumber("+4179123", deliver.originator);
    deliver.timestamp = *MakeTimestamp(2026, 3, 14, 15, 9, 26);
    deliver.coding = coding;
    deliver.userData = userData;
    const Written written = Write(deliver);
    Require(!written.fault, "a part can be written");
    Reading reading =
        Read(written.octets, {Presence::No, Direction::ToMobile, Presence::Unknown, std::nullopt});
    Require(!reading.fault, "a part can be read");
    Require(UserDataOf(reading.tpdu)->octets == userData.octets, "user data is read as it was written");
    return reading;
}

bool AreSame(const Choice& left, const Choice& right) {
    const auto members = [](const Choice& choice) {
        return std::tuple(choice.alphabet, choice.tables.locking, choice.tables.single, choice.units,
                          choice.parts, choice.octets);
    };
    return members(left) == members(right);
}

void CheckExplanation(const std::string& text, const ChoiceOptions& options) {
    Choice choice;
    Explanation explanation;
    const bool isChosen = !Choose(text, options, choice);
    Require(isChosen == !Explain(text, options, explanation), "what can be chosen can be explained");
    if (!isChosen)
        return;
    Require(AreSame(explanation.choices.front(), choice), "the first choice is the one that is chosen");
    Require(explanation.offsets.size() == (choice.parts == c_noParts ? 0 : choice.parts),
            "each part begins somewhere");
    Require(std::all_of(explanation.characters.begin(), explanation.characters.end(),
                        [&](const CostlyCharacter& costly) {
                            return costly.offset < text.size() && costly.count > 0;
                        }),
            "each character is in the text");
}

void CheckCut(Input& input) {
    const CutOptions options = Options(input);
    const std::size_t first = input.Octet();
    const auto octets = input.Octets(input.Left());
    const std::string text(octets.data(), octets.size());
    CheckExplanation(text, options.choice);

    const CutText cut = CutIntoParts(text, options);
    if (cut.fault) {
        Require(cut.parts.empty(), "there are parts or a fault");
        return;
    }
    const std::size_t total = cut.parts.size();
    Require(total == cut.choice.parts && cut.offsets.size() == total,
            "there are as many parts as were chosen");
    Joiner joiner;
    std::vector<Joined> all;
    for (std::size_t i = 0; i < total; ++i) {
        const Reading part = Delivered(cut.parts[(first + i) % total], cut.coding);
        Require(part.remarks.empty(), "nothing is odd about a part");
        const std::vector<Joined> joined = joiner.Add(part, 0);
        all.insert(all.end(), joined.begin(), joined.end());
    }
    Require(all.size() == 1 && all.front().outcome == JoinOutcome::Complete, "the parts are one message");
    Require(all.front().text == cut.text, "the parts together are the text");
    Require(joiner.Finish().empty(), "nothing is left");
}

/// A part of few different messages.
Reading AnyPart(Input& input) {
    const unsigned int what = input.Octet();
    const auto reference = static_cast<std::uint8_t>(what & 1U);
    const auto total = static_cast<std::uint8_t>(what >> 1 & 3U);
    const auto number = static_cast<std::uint8_t>(what >> 3 & 3U);
    const bool isWide = (what >> 5 & 1U) != 0;
    const DataCoding coding(static_cast<std::uint8_t>((what >> 6) << 2U & 8U));
    const std::vector<std::uint8_t> element =
        isWide ? std::vector<std::uint8_t>{0x08, 4, 0, reference, total, number}
               : std::vector<std::uint8_t>{0x00, 3, reference, total, number};
    std::vector<std::uint8_t> content(input.Octet() % 64U, input.Octet());
    for (std::uint8_t& septet : content)
        septet &= 0x7FU;
    return Delivered(*MakeUserData(coding, element, content), coding);
}

void CheckJoiner(Input& input) {
    JoinLimits limits;
    limits.messages = input.Octet() % 4U;
    limits.octets = input.Octet();
    limits.seconds = input.Octet();
    Joiner joiner(limits);
    std::map<std::uint64_t, unsigned int> back; // how often each part was handed back
    const auto count = [&back](const std::vector<Joined>& all) {
        for (const Joined& one : all)
            for (const JoinedPart& part : one.parts)
                ++back[part.tag];
    };
    std::uint64_t added = 0;
    for (std::int64_t now = 0; input.Left() > 0; now += input.Octet() % 32)
        count(joiner.Add(AnyPart(input), now, added++));
    count(joiner.Finish());
    Require(back.size() == added &&
                std::all_of(back.begin(), back.end(), [](const auto& one) { return one.second == 1; }),
            "whatever is added is handed back once");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    if ((input.Octet() & 1U) != 0)
        CheckJoiner(input);
    else
        CheckCut(input);
    return 0;
}
