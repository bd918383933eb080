#include <algorithm>
#include <bit>
#include <map>
#include <tuple>

#include "alphabet/Choosing.h"

namespace Messages {
namespace {

constexpr std::uint16_t Bit(std::size_t language) {
    return static_cast<std::uint16_t>(1U << language);
}

/// Calls `visit` with each bit of a set, the lowest first.
template <class Visit>
void VisitBits(unsigned int bits, Visit visit) {
    for (; bits != 0; bits &= bits - 1)
        visit(static_cast<std::size_t>(std::countr_zero(bits)));
}

/// What one pass over a text finds out. How many septets a text takes depends on its locking table alone:
/// each character that the table lacks is a pair, whatever single shift table holds it.
struct Survey {
    std::size_t characters = 0;
    std::size_t utf16Units = 0;
    std::size_t plain = 0;                            ///< characters that were seen to be plain
    std::array<std::size_t, c_languageCount> pairs{}; ///< by locking table: characters that it lacks
    std::array<std::uint16_t, c_languageCount>
        single{}; ///< by locking table: the single shift tables that hold them
    std::uint16_t locking =
        0; ///< the locking tables that are left, as some single shift table holds what they lack
    std::optional<MisfitCharacter> misfit; ///< after which none was left
};

/// What no table holds is counted alone.
std::optional<MisfitCharacter> CountRest(Characters characters, Survey& survey) {
    std::size_t units = survey.utf16Units;
    std::size_t count = survey.characters;
    while (!characters.AtEnd()) {
        const std::size_t threes = characters.TakeThrees();
        count += threes;
        units += threes;
        if (characters.AtEnd())
            break;
        const std::size_t offset = characters.Offset();
        const char32_t character = characters.Next();
        if (character == c_notUtf8)
            return MisfitCharacter{offset, character};
        ++count;
        units += character < 0x10000 ? 1 : 2;
    }
    survey.characters = count;
    survey.utf16Units = units;
    return std::nullopt;
}

/// REQUIRES the tables that may be used, a bit for each language.
std::optional<MisfitCharacter> Look(std::string_view text, std::uint16_t languages, Survey& survey) {
    survey.locking =
        static_cast<std::uint16_t>(languages & ~Bit(static_cast<std::size_t>(Language::Spanish)));
    survey.single.fill(languages);
    for (Characters characters(text); !characters.AtEnd();) {
        if ((survey.locking & ~c_plainLocking) == 0) {
            const std::size_t plain = characters.TakePlain().size();
            survey.characters += plain;
            survey.utf16Units += plain;
            survey.plain += plain;
            if (characters.AtEnd())
                break;
        }
        const std::size_t offset = characters.Offset();
        const char32_t character = characters.Next();
        if (character == c_notUtf8)
            return MisfitCharacter{offset, character};
        ++survey.characters;
        survey.utf16Units += character < 0x10000 ? 1 : 2;
        const HoldingTables holding = c_codes.tables[c_codes.NumberOf(character)];
        VisitBits(survey.locking & ~unsigned{holding.locking}, [&](std::size_t locking) {
            ++survey.pairs[locking];
            survey.single[locking] = survey.single[locking] & holding.single;
            if (survey.single[locking] == 0)
                survey.locking = static_cast<std::uint16_t>(survey.locking & ~Bit(locking));
        });
        if (survey.locking == 0) {
            survey.misfit = MisfitCharacter{offset, character};
            return CountRest(characters, survey);
        }
    }
    return std::nullopt;
}

/// Units are there; parts and octets are worked out.
void Count(const SeenText& text, const TextRoom& room, Choice& choice) {
    const PartRoom one = RoomOfOne(choice, room);
    choice.parts = 1;
    choice.octets = one.OctetsOf(choice.units);
    if (one.Holds(choice.units))
        return;
    const PartRoom many = RoomOfMany(choice, room);
    choice.parts = c_noParts;
    choice.octets = c_noParts;
    if (many.Units() < 2)
        return;
    choice.parts = 0;
    choice.octets = 0;
    VisitParts(text, choice, many.Units(), [&](std::size_t, std::size_t units) {
        ++choice.parts;
        choice.octets += many.OctetsOf(units);
    });
}

/// The fewest parts that so many units can take.
std::size_t FewestParts(const Choice& choice, const TextRoom& room) {
    if (RoomOfOne(choice, room).Holds(choice.units))
        return 1;
    const std::size_t most = RoomOfMany(choice, room).Units();
    return most < 2 ? c_noParts : (choice.units + most - 1) / most;
}

/// What comes first is chosen.
auto Rank(const Choice& choice) {
    const bool isUcs2 = choice.alphabet == Alphabet::Ucs2;
    const bool hasLocking = choice.tables.locking != Language::Default;
    const bool hasSingle = choice.tables.single != Language::Default;
    const int kind = isUcs2 ? 4 : 2 * static_cast<int>(hasLocking) + static_cast<int>(hasSingle);
    return std::tuple(choice.parts, choice.octets, kind, choice.tables.locking, choice.tables.single);
}

/// Calls `visit` with each choice that the options allow and that holds the text; its parts and octets are
/// still to be counted. `singleOf` picks from the single shift tables that go with a locking one.
template <class SingleOf, class Visit>
void VisitChoices(const Survey& survey, const ChoiceOptions& options, SingleOf singleOf, Visit visit) {
    if (options.alphabet != Alphabet::Ucs2)
        VisitBits(survey.locking, [&](std::size_t locking) {
            VisitBits(singleOf(survey.single[locking]), [&](std::size_t single) {
                visit({Alphabet::Gsm7,
                       {static_cast<Language>(locking), static_cast<Language>(single)},
                       survey.characters + survey.pairs[locking],
                       0,
                       0});
            });
        });
    if (options.alphabet != Alphabet::Gsm7)
        visit({Alphabet::Ucs2, {}, survey.utf16Units, 0, 0});
}

/// The cheapest single shift table: the extension of the default alphabet, which needs no element, or else
/// that of the lowest language.
unsigned int Lowest(unsigned int languages) {
    return languages & -languages;
}

unsigned int Each(unsigned int languages) {
    return languages;
}

class Best {
public:
    Best(const SeenText& text, const TextRoom& room) : m_Text(text), m_Room(room) {}

    void Offer(Choice choice) {
        if (m_Choice && FewestParts(choice, m_Room) > m_Choice->parts)
            return;
        Count(m_Text, m_Room, choice);
        if (!m_Choice || Rank(choice) < Rank(*m_Choice))
            m_Choice = choice;
    }
    const std::optional<Choice>& Found() const { return m_Choice; }

private:
    const SeenText& m_Text;
    const TextRoom& m_Room;
    std::optional<Choice> m_Choice;
};

Languages LanguagesIn(unsigned int bits) {
    Languages languages;
    VisitBits(bits, [&](std::size_t language) { languages.Add(static_cast<Language>(language)); });
    return languages;
}

/// REQUIRES UTF-8.
std::vector<CostlyCharacter> CostlyIn(std::string_view text) {
    std::vector<CostlyCharacter> costly;
    std::map<char32_t, std::size_t> known;
    for (Characters characters(text); !characters.AtEnd();) {
        const std::size_t offset = characters.Offset();
        const char32_t character = characters.Next();
        const HoldingTables holding = c_codes.tables[c_codes.NumberOf(character)];
        if ((holding.locking & Bit(0)) != 0)
            continue;
        const auto [place, isNew] = known.try_emplace(character, costly.size());
        if (isNew)
            costly.push_back({character, offset, 0, (holding.single & Bit(0)) != 0,
                              LanguagesIn(holding.locking), LanguagesIn(holding.single)});
        ++costly[place->second].count;
    }
    return costly;
}

/// The tables given are to hold the text.
std::optional<MisfitCharacter> Force(std::string_view text, SeptetTables tables, const TextRoom& room,
                                     Choice& choice) {
    if (tables.locking == Language::Spanish)
        tables.locking = Language::Default;
    Choice forced{Alphabet::Gsm7, tables, 0, 0, 0};
    const unsigned int locking = Bit(static_cast<std::size_t>(tables.locking));
    const unsigned int single = Bit(static_cast<std::size_t>(tables.single));
    for (Characters characters(text); !characters.AtEnd();) {
        const std::size_t offset = characters.Offset();
        const char32_t character = characters.Next();
        const HoldingTables holding = c_codes.tables[c_codes.NumberOf(character)];
        if ((holding.locking & locking) == 0 && (holding.single & single) == 0)
            return MisfitCharacter{offset, character};
        forced.units += UnitsOf(character, forced);
    }
    Count({text}, room, forced);
    choice = forced;
    return std::nullopt;
}

} // namespace

std::optional<MisfitCharacter> Choose(std::string_view text, const ChoiceOptions& options,
                                      Choice& choice) noexcept {
    SeenText seen{text};
    return Choose(seen, options, choice);
}

std::optional<MisfitCharacter> Choose(SeenText& text, const ChoiceOptions& options, Choice& choice) noexcept {
    if (options.tables)
        return Force(text.octets, *options.tables, options.room, choice);
    Survey survey;
    const std::uint16_t languages = options.languages.Bits();
    if (const auto misfit = Look(text.octets, languages, survey))
        return misfit;
    text.isPlain = survey.plain == text.octets.size();
    Best best(text, options.room);
    VisitChoices(survey, options, Lowest, [&](const Choice& one) { best.Offer(one); });
    if (!best.Found())
        return survey.misfit;
    choice = *best.Found();
    return std::nullopt;
}

std::optional<MisfitCharacter> Explain(std::string_view text, const ChoiceOptions& options,
                                       Explanation& explanation) {
    Explanation found;
    if (options.tables) {
        if (const auto misfit = Force(text, *options.tables, options.room, found.choices.emplace_back()))
            return misfit;
    } else {
        Survey survey;
        if (const auto misfit = Look(text, options.languages.Bits(), survey))
            return misfit;
        VisitChoices(survey, options, Each, [&](Choice one) {
            Count({text}, options.room, one);
            found.choices.push_back(one);
        });
        if (found.choices.empty())
            return survey.misfit;
        std::sort(found.choices.begin(), found.choices.end(),
                  [](const Choice& left, const Choice& right) { return Rank(left) < Rank(right); });
    }
    if (const Choice& cheapest = found.choices.front(); cheapest.parts != c_noParts)
        found.offsets = PartOffsets(text, cheapest, options.room);
    found.characters = CostlyIn(text);
    explanation = std::move(found);
    return std::nullopt;
}

std::vector<std::size_t> PartOffsets(std::string_view text, const Choice& choice, const TextRoom& room) {
    return PartOffsets(SeenText{text}, choice, room);
}

std::vector<std::size_t> PartOffsets(const SeenText& text, const Choice& choice, const TextRoom& room) {
    if (choice.parts == 1)
        return {0};
    std::vector<std::size_t> offsets;
    offsets.reserve(choice.parts);
    VisitParts(text, choice, RoomOfMany(choice, room).Units(),
               [&](std::size_t offset, std::size_t) { offsets.push_back(offset); });
    return offsets;
}

} // namespace Messages
