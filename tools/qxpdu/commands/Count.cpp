// qxpdu count
#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <tuple>
#include <utility>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "Messages/Parts.h"
#include "Messages/Words.h"
#include "characters/Unicode.h"
#include "commands/Commands.h"
#include "commands/CountedText.h"
#include "commands/HostCount.h"
#include "commands/Languages.h"
#include "commands/Numbers.h"
#include "commands/Options.h"
#include "commands/Writing.h"
#include "show/CodeUnits.h"
#include "show/Json.h"
#include "show/Plural.h"

namespace qxpdu {

namespace {

using Messages::Choice;
using Messages::CutOptions;
using Messages::CutText;
using Messages::Language;
using Messages::Languages;
using Messages::SeptetTables;

struct CountOptions : ConversionOptions, WritingOptions {
    std::string host; ///< "libQX_Encoding", or empty
    bool greek = false;
    bool lines = false;
};

/// Where a part of the text ends and the next begins.
struct Break {
    std::size_t position; ///< of the first character after it, from 1
    std::string before;   ///< some characters
    std::string after;
};

/// What a text costs, or why it cannot go out.
struct Cost {
    Choice choice;
    std::size_t room = 0; ///< units that the last part still takes
    std::vector<Break> breaks;
    std::optional<std::string> fault;

    bool IsCheaperThan(const Cost& other) const {
        const auto rank = [](const Cost& cost) {
            return std::tuple(cost.fault.has_value(), cost.choice.parts, cost.choice.octets);
        };
        return rank(*this) < rank(other);
    }
};

/// What the text would cost with their tables.
struct WithLanguages {
    std::vector<std::string> codes; ///< "tr"
    bool replacesNear;              ///< as well
    Cost cost;
};

/// The characters of a text by what they do to it.
struct Sorting {
    Characters foreign; ///< in no table that may be used
    Characters tabled;  ///< in one of a language alone
    Characters escaped; ///< take two septets
};

bool IsUcs2(const Choice& choice) {
    return choice.alphabet == Messages::Alphabet::Ucs2;
}

/// Units that a part still takes.
std::size_t RoomIn(const Messages::UserData& part, const Choice& choice) {
    constexpr std::size_t c_octetBits = 8;
    const std::size_t unitBits = IsUcs2(choice) ? 16 : 7;
    const std::size_t octets = Messages::TextRoom().octets - part.textOffset;
    return octets * c_octetBits / unitBits - part.textUnits; // fill bits are less than a septet
}

std::vector<Break> BreaksIn(const CutText& cut) {
    constexpr std::size_t c_shown = 12; // characters on either side; every part has more
    const std::u32string text = show::CodePoints(FromUtf8(cut.text));
    const auto shown = [&text](std::size_t begin, std::size_t end) {
        return show::ToUtf8(show::Units(std::u32string_view(text).substr(begin, end - begin)));
    };
    std::vector<Break> breaks;
    std::size_t at = 0;
    for (std::size_t part = 1; part < cut.offsets.size(); ++part) {
        const std::size_t begin = cut.offsets[part - 1];
        at += show::CharactersIn(std::string_view(cut.text).substr(begin, cut.offsets[part] - begin));
        breaks.push_back({at + 1, shown(at - c_shown, at), shown(at, at + c_shown)});
    }
    return breaks;
}

/// Of valid UTF-8 with a reference that is given, there are two.
std::string FaultOf(const CutText& cut) {
    using Messages::CutFaultCode;
    if (cut.fault->code == CutFaultCode::TooManyParts)
        return fmt::format("the text needs {} parts, {} at most", cut.choice.parts, Messages::c_mostParts);
    const std::string_view before = std::string_view(cut.text).substr(0, cut.fault->offset);
    return fmt::format("{} at {} is in no table that may be used", Described({cut.fault->character}),
                       show::CharactersIn(before) + 1);
}

Cost CostOf(const CutText& cut) {
    if (cut.fault)
        return {cut.choice, 0, {}, FaultOf(cut)};
    return {cut.choice, RoomIn(cut.parts.back(), cut.choice), BreaksIn(cut), std::nullopt};
}

Cost CostWith(const std::string& text, CutOptions options, Languages languages) {
    options.choice.languages = languages;
    return CostOf(CutIntoParts(text, options));
}

/// Calls `visit` with each language that has tables.
template <typename Visit>
void ForEachLanguage(Visit visit) {
    for (std::uint8_t number = 1; number <= Messages::c_lastLanguage; ++number)
        visit(static_cast<Language>(number));
}

Languages LanguagesWith(const Messages::CostlyCharacter& costly) {
    Languages languages;
    ForEachLanguage([&](Language language) {
        if (costly.locking.Has(language) || costly.single.Has(language))
            languages.Add(language);
    });
    return languages;
}

bool HaveCommon(Languages some, Languages others) {
    return (some.Bits() & others.Bits()) != Languages().Bits();
}

/// What languages save of a text.
class Savings {
public:
    Savings(const std::string& text, const CutOptions& options, const Cost& without)
        : m_Text(text), m_Options(options), m_Without(without) {
        std::vector<Messages::Replacement> replacements;
        const std::string near = ReplaceNear(text, Languages::All(), replacements);
        Explain(near, {}, m_Explanation);
        if (!replacements.empty())
            m_WithNear = CostWith({}, true);
    }

    /// Each of the languages whose tables make it cheaper, the cheapest first; before these two whose tables
    /// do more together.
    std::vector<WithLanguages> Of(Languages languages) const {
        std::vector<WithLanguages> savings;
        ForEachLanguage([&](Language language) {
            if (languages.Has(language))
                AddTo(savings, {language}, m_Without);
        });
        std::stable_sort(savings.begin(), savings.end(), [](const auto& one, const auto& other) {
            return one.cost.IsCheaperThan(other.cost);
        });
        std::vector<WithLanguages> all;
        AddTo(all, languages, savings.empty() ? m_Without : savings.front().cost);
        all.insert(all.end(), std::make_move_iterator(savings.begin()),
                   std::make_move_iterator(savings.end()));
        return all;
    }

private:
    Cost CostWith(Languages languages, bool replacesNear) const {
        CutOptions options = m_Options;
        options.replacesNear = replacesNear;
        return qxpdu::CostWith(m_Text, options, languages);
    }

    /// Whether tables of these languages have every character that the default alphabet lacks, and one
    /// better than it does.
    bool MaySave(Languages languages) const {
        bool isBetter = false;
        for (const Messages::CostlyCharacter& costly : m_Explanation.characters) {
            if (HaveCommon(costly.isInExtension ? costly.locking : LanguagesWith(costly), languages))
                isBetter = true;
            else if (!costly.isInExtension)
                return false;
        }
        return isBetter;
    }

    void AddTo(std::vector<WithLanguages>& savings, Languages languages, const Cost& most) const {
        if (!MaySave(languages))
            return;
        Cost cost = CostWith(languages, m_Options.replacesNear);
        bool replacesNear = false;
        if (m_WithNear && !m_Options.replacesNear) {
            Cost near = CostWith(languages, true);
            replacesNear = near.IsCheaperThan(*m_WithNear);
            if (replacesNear)
                cost = std::move(near);
        }
        if (!cost.IsCheaperThan(most))
            return;
        const SeptetTables& tables = cost.choice.tables;
        savings.push_back({CodesOf({tables.locking, tables.single}), replacesNear, std::move(cost)});
    }

    const std::string& m_Text;
    const CutOptions& m_Options;
    const Cost& m_Without;
    std::optional<Cost> m_WithNear; ///< where it has such characters
    Messages::Explanation m_Explanation;
};

Characters ReplacementsIn(const std::string& text, const std::vector<Messages::Replacement>& replacements) {
    Characters characters;
    std::size_t offset = 0;
    std::size_t position = 1;
    for (const Messages::Replacement& one : replacements) {
        position += show::CharactersIn(std::string_view(text).substr(offset, one.offset - offset));
        offset = one.offset;
        Occurrence& occurrence = characters[show::CodePoints(FromUtf8(text.substr(offset, one.length)))];
        occurrence.positions.push_back(position);
        occurrence.becomes = one.replacement;
    }
    return characters;
}

bool TakesTwoSeptets(char32_t character, const Choice& choice) {
    std::vector<std::uint8_t> septets;
    AppendSeptets(show::ToUtf8(show::Units({&character, 1})), choice.tables, septets);
    return septets.size() > 1;
}

Sorting Sort(const std::string& text, const Choice& choice, Languages allowed) {
    std::map<char32_t, Occurrence> occurrences;
    const std::u32string characters = show::CodePoints(FromUtf8(text));
    for (std::size_t i = 0; i < characters.size(); ++i)
        occurrences[characters[i]].positions.push_back(i + 1);
    Sorting sorting;
    for (const auto& [character, occurrence] : occurrences)
        if (TakesTwoSeptets(character, choice))
            sorting.escaped[{character}] = occurrence;
    Messages::Explanation explanation;
    Explain(text, {}, explanation);
    for (const Messages::CostlyCharacter& costly : explanation.characters) {
        if (costly.isInExtension)
            continue;
        const Languages languages = LanguagesWith(costly);
        Characters& alike = HaveCommon(languages, allowed) ? sorting.tabled : sorting.foreign;
        Occurrence& occurrence = alike[{costly.character}];
        occurrence.positions = occurrences[costly.character].positions;
        occurrence.languages = CodesOf(languages);
    }
    return sorting;
}

// For a person.

std::string Shown(const Choice& choice) {
    std::string text = IsUcs2(choice) ? "UCS2" : "GSM 7-bit";
    if (choice.tables.locking != Language::Default)
        text += fmt::format(", {} locking shift", NameOf(choice.tables.locking));
    if (choice.tables.single != Language::Default)
        text += fmt::format(", {} single shift", NameOf(choice.tables.single));
    return text;
}

std::string Shown(const Cost& cost) {
    if (cost.fault)
        return *cost.fault;
    const char* const unit = IsUcs2(cost.choice) ? "character" : "septet";
    return fmt::format("{}, {}, {}, room for {}", Shown(cost.choice), show::Counted(cost.choice.units, unit),
                       show::Counted(cost.choice.parts, "part"), show::Counted(cost.room, unit));
}

std::string Shown(const std::vector<Break>& breaks) {
    std::string text;
    for (std::size_t i = 0; i < breaks.size(); ++i) {
        fmt::format_to(std::back_inserter(text), "{}part {} at {}: '{}|{}'", i == 0 ? "" : "\n", i + 2,
                       breaks[i].position, show::Printable(breaks[i].before),
                       show::Printable(breaks[i].after));
    }
    return text;
}

std::string SavingShown(const Cost& cost, const Cost& without) {
    if (without.fault)
        return {};
    const std::size_t parts = without.choice.parts - cost.choice.parts;
    return "; saves " + (parts != 0 ? show::Counted(parts, "part")
                                    : show::Counted(without.choice.octets - cost.choice.octets, "octet"));
}

// For a program.

void AddTo(show::Json& object, const Cost& cost) {
    if (cost.fault) {
        object["error"] = *cost.fault;
        return;
    }
    const Choice& choice = cost.choice;
    object["alphabet"] = IsUcs2(choice) ? "UCS2" : "GSM 7-bit";
    AddTables(choice.tables, object);
    object[IsUcs2(choice) ? "characters" : "septets"] = choice.units;
    object["parts"] = choice.parts;
    object["room"] = cost.room;
    object["user_data_octets"] = choice.octets;
}

void AddTo(show::Json& object, const std::vector<Break>& breaks) {
    for (std::size_t i = 0; i < breaks.size(); ++i)
        object["breaks"].push_back({{"after_part", i + 1},
                                    {"position", breaks[i].position},
                                    {"before", breaks[i].before},
                                    {"after", breaks[i].after}});
}

// What is told, one thing after the other.

void TellCost(const Cost& cost, Counted& counted) {
    counted.fault = cost.fault;
    AddTo(counted.object, cost);
    AddTo(counted.object, cost.breaks);
    counted.Add(cost.fault ? "cannot go out" : "goes out as", Shown(cost));
    counted.Add("breaks", Shown(cost.breaks));
}

void TellCharacters(const Sorting& sorting, bool mayBeUcs2, Counted& counted) {
    const auto tell = [&counted](const char* member, const char* name, const Characters& characters) {
        if (!characters.empty())
            counted.object[member] = ToJson(characters, nullptr);
        counted.Add(name, Shown(characters, false));
    };
    tell("forces_ucs2", mayBeUcs2 ? "forces UCS2" : "in no table allowed", sorting.foreign);
    tell("needs_table", "needs a table", sorting.tabled);
    tell("two_septets", "two septets", sorting.escaped);
}

/// `near` is the text with near characters, which `isSent` or could be.
void TellNear(const std::string& text, const CutText& near, bool isSent, Counted& counted) {
    const Characters replacements = ReplacementsIn(text, near.replacements);
    if (isSent) {
        counted.object["text"] = near.text;
        counted.object["replacements"] = ToJson(replacements, "by");
        counted.Add("replaced", Shown(replacements, true));
        counted.Add("text", show::Printable(near.text));
    } else if (!replacements.empty()) {
        const Cost cost = CostOf(near);
        show::Json& object = counted.object["replaced"];
        AddTo(object, cost);
        object["replacements"] = ToJson(replacements, "by");
        counted.Add("with --replace", Shown(cost) + "\n" + Shown(replacements, true));
    }
}

void TellLanguages(const std::string& text, const CutOptions& options, bool areGiven, const Cost& cost,
                   Counted& counted) {
    const Cost without = areGiven ? CostWith(text, options, {}) : cost;
    if (cost.IsCheaperThan(without)) {
        AddTo(counted.object["without_languages"], without);
        counted.Add("without --language", Shown(without));
    }
    const Languages languages = areGiven ? options.choice.languages : Languages::All();
    for (const WithLanguages& one : Savings(text, options, without).Of(languages)) {
        show::Json object = {{"languages", one.codes}};
        if (one.replacesNear)
            object["replace"] = true;
        AddTo(object, one.cost);
        if (!without.fault) {
            object["parts_saved"] = without.choice.parts - one.cost.choice.parts;
            object["octets_saved"] = static_cast<std::int64_t>(without.choice.octets) -
                                     static_cast<std::int64_t>(one.cost.choice.octets);
        }
        counted.object["with_languages"].push_back(std::move(object));
        if (one.cost.choice.tables == cost.choice.tables)
            continue; // said already
        counted.Add(fmt::format("with {}--language {}", one.replacesNear ? "--replace " : "",
                                fmt::join(one.codes, ",")),
                    Shown(one.cost) + SavingShown(one.cost, without));
    }
}

bool IsPlain(const std::string& text) {
    Messages::Explanation explanation;
    Explain(text, {}, explanation);
    return explanation.characters.empty();
}

/// By the standards.
void Count(const CountOptions& options, const Input& input, Console& console) {
    FromUtf8(input.text); // says which octet is not UTF-8
    CutOptions how = CuttingOf(options);
    how.reference = 0;                        // whichever it is, it costs the same
    const bool isPlain = IsPlain(input.text); // and nothing makes it cheaper
    how.replacesNear = !isPlain;
    const CutText near = CutIntoParts(input.text, how);
    how.replacesNear = options.replacesNear;
    const CutText sent = near.replacements.empty() || how.replacesNear ? near : CutIntoParts(input.text, how);

    const Cost cost = CostOf(sent);
    Counted counted{{}, ObjectFor(input), std::nullopt};
    TellCost(cost, counted);
    const bool mayBeGsm = !isPlain && how.choice.alphabet != Messages::Alphabet::Ucs2;
    if (mayBeGsm)
        TellCharacters(Sort(sent.text, sent.choice, how.choice.languages),
                       how.choice.alphabet != Messages::Alphabet::Gsm7, counted);
    TellNear(input.text, near, options.replacesNear, counted);
    if (mayBeGsm)
        TellLanguages(input.text, how, !options.languages.empty(), cost, counted);
    Show(input, counted, console);
}

int Count(const CountOptions& options, const Streams& streams) {
    return ConvertAll(options.Settings(), streams, options.lines ? LineKind::Message : LineKind::Whole,
                      [&options](const Input& input, Console& console) {
                          if (!options.host.empty())
                              CountAsHost(input, options.greek, console);
                          else
                              Count(options, input, console);
                      });
}

void AddOptions(const Command& command, CountOptions& options) {
    const Option standards[] = {
        command.AddText("--language", options.languages, c_languagesMeaning)
            .Check(FaultOfLanguages)
            .Named("CODES"),
        command.AddText("--alphabet", options.alphabet, "gsm or ucs2; without it, the cheaper one")
            .Check(FaultOfAlphabet)
            .Named("NAME"),
        command.AddFlag("--replace", options.replacesNear,
                        "Count, and print, the text with near characters where that is cheaper"),
        command
            .AddText("--concat-bits", options.concatBits,
                     "Bits of the reference of several parts; 8 without it")
            .Check(FaultOfBits)
            .Named("8|16"),
        command.AddText("--port", options.ports, "Port of the application that it is for, and is from")
            .Check(FaultOfPorts)
            .Named("TO[:FROM]"),
        command.AddText("--port-bits", options.portBits, "Bits of the ports; 16 without it")
            .Check(FaultOfBits)
            .Named("8|16"),
    };
    Option host = command.AddText("--as", options.host, "Count as the encoder of that library sends the text")
                      .Check(FaultOfHost)
                      .Named(c_host);
    for (const Option& option : standards)
        host.Excludes(option);
    command.AddFlag("--greek", options.greek, "With --as: count as encode --greek sends the text")
        .Needs(host);
    AddJson(command, options);
    AddStreaming(command, options);
    AddSentText(command, options, options.lines);
}

} // namespace

void AddCount(const Command& parent) {
    const Command command = parent.AddCommand("count", "Tell how a text would go out, before it is sent");
    command.AddAlias("explain");
    auto options = std::make_shared<CountOptions>();
    AddOptions(command, *options);
    command.SetFooter(
        "Says the alphabet and the tables, the septets or characters (one above U+FFFF counts two), the\n"
        "parts, how much the last part still takes, and where each part begins, with the characters on\n"
        "either side; which characters force UCS2, are in a table of a language alone, or take two\n"
        "septets, each with its positions; and what would make the text cheaper: near characters, and\n"
        "languages whose tables the receiver knows. encode sends it so with the same options.\n"
        "\n"
        "With --as libQX_Encoding as that library's encoder sends the text, which may cut a character in\n"
        "two, and with near characters and with --greek whether that is cheaper or not.\n"
        "\n"
        "Examples:\n"
        "  qxpdu count 'It’s 5 €'\n"
        "  qxpdu count --language tr,es 'Yarın şubemizden alınız'");
    command.SetAction([options](const Streams& streams) {
        const std::string fault = FaultOfPortsWithBits(*options);
        if (!fault.empty())
            throw CommandLineError(fault);
        return Count(*options, streams);
    });
}

} // namespace qxpdu
