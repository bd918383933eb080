#include "commands/HostCount.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <variant>

#include <fmt/format.h>

#include "Encoding/GSMCharSet.h"
#include "Messages/Read.h"
#include "characters/InputError.h"
#include "characters/Replacements.h"
#include "characters/Unicode.h"
#include "commands/CountedText.h"
#include "commands/OutgoingText.h"
#include "show/CodeUnits.h"
#include "show/Plural.h"

namespace qxpdu {

namespace {

using Encoding::GSMCharSet;
using Encoding::PduDecoder;
using Encoding::PduEncoder;

constexpr auto c_greekTable = Encoding::TranslateTable::GREEK;

/// A character of the text that a part boundary cuts in two.
struct Cut {
    std::size_t part; ///< the one before the boundary, from 1
    const char* pair;
    char32_t character;
};

/// What a text costs.
struct Cost {
    Encoding::Alphabet::Encoding alphabet;
    const char* units;
    std::size_t length; ///< in units
    std::size_t parts;
    unsigned int room; ///< units that the last part still takes
    std::vector<Cut> cuts;
};

unsigned int Capacity(Encoding::Alphabet::Encoding alphabet, std::size_t parts) {
    if (alphabet == Encoding::Alphabet::ALPHABET_GSM7)
        return parts == 1 ? PduEncoder::MAX_7BITDATA_LEN : PduEncoder::MAX_GSM_LEN_WITH_HEADER;
    return (parts == 1 ? PduEncoder::MAX_DATA_LEN : PduEncoder::MAX_DATA_LEN_WITH_HEADER) / 2;
}

/// One part as the decoder reads what the encoder made.
struct Part {
    Encoding::Alphabet::Encoding alphabet;
    const char* units;
    unsigned int length;               ///< in units
    std::vector<std::uint8_t> septets; ///< none in UCS2
    std::wstring text;
};

/// None in UCS2.
std::vector<std::uint8_t> SeptetsIn(const Messages::Tpdu& tpdu) {
    const Messages::UserData& userData = *Messages::UserDataOf(tpdu);
    std::vector<std::uint8_t> septets;
    if (Messages::CodingOf(tpdu)->CountsSeptets()) {
        septets.resize(userData.textUnits);
        Messages::UnpackSeptets(userData.Content(), userData.fillBits, septets.size(), septets.data());
    }
    return septets;
}

Part PartOf(const Toolkit::smart_ptr<Encoding::Pdu>& pdu) {
    PduDecoder decoder;
    decoder.Decode(pdu, false, false);
    const Messages::Reading reading = Messages::Read(
        {pdu->m_Bytes, pdu->m_Length}, {Messages::Presence::Yes, Messages::Direction::FromMobile});
    return {decoder.m_Alphabet, UnitsOf(decoder), TextLength(decoder), SeptetsIn(reading.tpdu),
            decoder.m_Text};
}

/// The character that the boundary between the two parts cuts; `number` is that of the first.
std::optional<Cut> CutBetween(const Part& first, const Part& second, std::size_t number) {
    if (!first.septets.empty()) {
        if (first.septets.back() != Messages::c_escapeSeptet)
            return std::nullopt;
        return Cut{number, "escape", GSMCharSet().FindUnicodeCharFromEscapeChar(second.septets.front())};
    }
    const std::u32string joined = show::CodePoints({first.text.back(), second.text.front()});
    if (joined.size() != 1)
        return std::nullopt;
    return Cut{number, "surrogate", joined.front()};
}

/// Throws InputError where the text needs too many parts.
Cost CostOf(const TString<wchar_t>& text, bool isGreek) {
    PduEncoder encoder(Encoding::MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    if (isGreek)
        encoder.AddTranslateTable(c_greekTable);
    const Pdus pdus = EncodeText(encoder, text);
    Part part = PartOf(pdus.front());
    Cost cost{part.alphabet, part.units, part.length, pdus.size(), 0, {}};
    for (std::size_t i = 1; i < pdus.size(); ++i) {
        Part next = PartOf(pdus[i]);
        cost.length += next.length;
        if (const auto cut = CutBetween(part, next, i))
            cost.cuts.push_back(*cut);
        part = std::move(next);
    }
    cost.room = Capacity(cost.alphabet, cost.parts) - part.length;
    return cost;
}

/// The characters of a text as the alphabet has them.
struct Sorting {
    Characters escaped; ///< take two septets
    Characters changed; ///< do not survive the way to GSM and back, with what comes back
};

Sorting Sort(const std::u32string& text, bool isGreek) {
    GSMCharSet charSet;
    if (isGreek)
        charSet.AddTranslateTable(c_greekTable);
    Sorting sorting;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto [codes, received] = ToGsm(text[i], charSet);
        if (received != show::Units({&text[i], 1})) {
            Occurrence& occurrence = sorting.changed[{text[i]}];
            occurrence.positions.push_back(i + 1);
            occurrence.becomes = show::ToUtf8(received);
        } else if (codes.size() > 1) {
            sorting.escaped[{text[i]}].positions.push_back(i + 1);
        }
    }
    return sorting;
}

/// Those of the characters that have a replacement, with it.
Characters Replaceable(const Characters& characters) {
    Characters replaceable;
    for (const auto& [character, occurrence] : characters) {
        if (const auto replacement = ReplacementOf(character.front()))
            replaceable[character] = {occurrence.positions, show::ToUtf8(show::Units(*replacement))};
    }
    return replaceable;
}

TString<wchar_t> Replaced(const std::u32string& text, const Characters& replaceable) {
    std::u32string replaced;
    for (const char32_t character : text) {
        if (replaceable.contains({character}))
            replaced += *ReplacementOf(character);
        else
            replaced += character;
    }
    return show::Units(replaced);
}

/// What a text costs, or why it cannot be sent.
using CostOrFault = std::variant<Cost, std::string>;

CostOrFault CostOrFaultOf(const TString<wchar_t>& text, bool isGreek) {
    try {
        return CostOf(text, isGreek);
    } catch (const InputError& error) {
        return error.what();
    }
}

/// What the text would cost otherwise.
struct Alternative {
    CostOrFault cost;
    Characters changes;
};

std::optional<Alternative> WithReplacements(const std::u32string& text, const Characters& changed,
                                            bool isGreek) {
    Characters replaceable = Replaceable(changed);
    if (replaceable.empty())
        return std::nullopt;
    const TString<wchar_t> replaced = Replaced(text, replaceable);
    return Alternative{CostOrFaultOf(replaced, isGreek), std::move(replaceable)};
}

/// Where the cost is not known, by the rule: a text of which the Greek table changed a letter goes out in
/// GSM.
bool GoesOutInGsm(const CostOrFault& cost, const Characters& changed, bool isGreek) {
    if (const auto* known = std::get_if<Cost>(&cost))
        return known->alphabet == Encoding::Alphabet::ALPHABET_GSM7;
    const auto isLetter = [](const auto& character) { return !character.second.becomes->empty(); };
    return isGreek && std::any_of(changed.begin(), changed.end(), isLetter);
}

/// Nothing where the Greek table changes nothing.
std::optional<Alternative> WithGreek(const TString<wchar_t>& text, const std::u32string& characters) {
    Alternative greek{CostOrFaultOf(text, true), Sort(characters, true).changed};
    if (!GoesOutInGsm(greek.cost, greek.changes, true))
        return std::nullopt;
    return greek;
}

void AddTo(show::Json& object, const Cost& cost) {
    object["alphabet"] = AlphabetName(cost.alphabet);
    object[cost.units] = cost.length;
    object["parts"] = cost.parts;
    object["room"] = cost.room;
    for (const Cut& cut : cost.cuts) {
        show::Json member = {{"after_part", cut.part}, {"pair", cut.pair}};
        member.update(ToJson(std::u32string{cut.character}));
        object["cuts"].push_back(std::move(member));
    }
}

void AddTo(show::Json& object, const CostOrFault& cost) {
    if (const auto* fault = std::get_if<std::string>(&cost))
        object["error"] = *fault;
    else
        AddTo(object, std::get<Cost>(cost));
}

show::Json ToJson(const Alternative& alternative, const char* list, const char* becomes) {
    show::Json object = show::Json::object();
    AddTo(object, alternative.cost);
    object[list] = ToJson(alternative.changes, becomes);
    return object;
}

std::string Shown(const Cost& cost) {
    std::string_view unit = cost.units;
    unit.remove_suffix(1);
    std::string text =
        fmt::format("{}, {}, {}, room for {}", AlphabetName(cost.alphabet), show::Counted(cost.length, unit),
                    show::Counted(cost.parts, "part"), show::Counted(cost.room, unit));
    for (const Cut& cut : cost.cuts) {
        fmt::format_to(std::back_inserter(text),
                       "\nwarning: the {} pair of {} is cut between parts {} and {}", cut.pair,
                       Described({cut.character}), cut.part, cut.part + 1);
    }
    return text;
}

std::string Shown(const CostOrFault& cost) {
    const auto* fault = std::get_if<std::string>(&cost);
    return fault != nullptr ? *fault : Shown(std::get<Cost>(cost));
}

std::string Shown(const Alternative& alternative) {
    return Shown(alternative.cost) + "\n" + Shown(alternative.changes, true);
}

/// Everything there is to say about one text.
struct Report {
    CostOrFault cost;
    Sorting characters;
    bool isGsm; ///< characters that are changed do not force UCS2 then
    std::optional<Alternative> replaced;
    std::optional<Alternative> greek;
};

Report ReportOn(const std::string& utf8, bool isGreek) {
    const TString<wchar_t> text = FromUtf8(utf8);
    const std::u32string characters = show::CodePoints(text);
    Report report{CostOrFaultOf(text, isGreek), Sort(characters, isGreek), false, std::nullopt, std::nullopt};
    report.isGsm = GoesOutInGsm(report.cost, report.characters.changed, isGreek);
    report.replaced = WithReplacements(characters, report.characters.changed, isGreek);
    if (!report.characters.changed.empty() && !isGreek)
        report.greek = WithGreek(text, characters);
    return report;
}

show::Json ToJson(const Report& report, show::Json object) {
    AddTo(object, report.cost);
    const auto& [escaped, changed] = report.characters;
    if (!changed.empty() && report.isGsm)
        object["changed"] = ToJson(changed, "becomes");
    else if (!changed.empty())
        object["forces_ucs2"] = ToJson(changed, nullptr);
    if (!escaped.empty())
        object["two_septets"] = ToJson(escaped, nullptr);
    if (report.replaced)
        object["replaced"] = ToJson(*report.replaced, "replacements", "by");
    if (report.greek)
        object["greek"] = ToJson(*report.greek, "changed", "becomes");
    return object;
}

void AddEntries(const Report& report, Counted& counted) {
    counted.Add(counted.fault ? "cannot go out" : "goes out as", Shown(report.cost));
    const auto& [escaped, changed] = report.characters;
    counted.Add(report.isGsm ? "changed" : "forces UCS2", Shown(changed, report.isGsm));
    counted.Add("two septets", Shown(escaped, false));
    if (report.replaced)
        counted.Add("replaced", Shown(*report.replaced));
    if (report.greek)
        counted.Add("with --greek", Shown(*report.greek));
}

} // namespace

void CountAsHost(const Input& input, bool isGreek, Console& console) {
    const Report report = ReportOn(input.text, isGreek);
    Counted counted{{}, ToJson(report, ObjectFor(input)), std::nullopt};
    if (const auto* fault = std::get_if<std::string>(&report.cost))
        counted.fault = *fault;
    AddEntries(report, counted);
    Show(input, counted, console);
}

} // namespace qxpdu
