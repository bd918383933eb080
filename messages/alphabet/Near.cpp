#include <algorithm>
#include <stdexcept>

#include "alphabet/Codes.h"
#include "alphabet/Utf8.h"
#include "tables/Cells.h"

namespace Messages {
namespace {

struct CompositionRow {
    Tables::Hexadecimal base;
    Tables::Hexadecimal mark;
    Tables::Hexadecimal composed;
};
constexpr CompositionRow c_compositions[] = {
#include "rows/compositions.inc"
};

/// Code points with a plus sign between two, all of them ASCII.
struct NearText {
    std::array<char, 5> octets{};
    std::size_t length = 0;
    // NOLINTNEXTLINE(google-explicit-constructor): a row is a list of strings.
    constexpr NearText(const char* cell) {
        constexpr std::size_t digits = 4;
        for (std::string_view text = cell == Tables::c_nothing ? "" : cell; !text.empty();) {
            octets.at(length++) = static_cast<char>(Tables::NumberIn<16>(text.substr(0, digits)));
            text.remove_prefix(std::min(text.size(), digits + 1));
        }
    }
    constexpr std::string_view View() const { return {octets.data(), length}; }
};

struct NearRow {
    Tables::Hexadecimal character;
    NearText near;
    std::string_view kind;
};
constexpr NearRow c_near[] = {
#include "rows/near-characters.inc"
};

constexpr bool AreInOrder() {
    for (std::size_t i = 1; i < std::size(c_near); ++i)
        if (c_near[i - 1].character >= c_near[i].character)
            return false;
    return true;
}
static_assert(AreInOrder());

const NearRow* FindNear(char32_t character) {
    const auto value = static_cast<std::int64_t>(character);
    const NearRow* const row =
        std::lower_bound(std::begin(c_near), std::end(c_near), value,
                         [](const NearRow& one, std::int64_t wanted) { return one.character < wanted; });
    return row != std::end(c_near) && row->character == value ? row : nullptr;
}

/// 0 where the two are no one character.
char16_t Composed(char32_t base, char32_t mark) {
    for (const CompositionRow& row : c_compositions)
        if (static_cast<char32_t>(row.mark.value) == mark && static_cast<char32_t>(row.base.value) == base)
            return static_cast<char16_t>(row.composed.value);
    return 0;
}

class Replacing {
public:
    Replacing(std::string_view text, Languages languages, std::vector<Replacement>& replacements)
        : m_Text(text), m_Languages(languages.Bits()), m_Replacements(replacements) {}

    std::string Replaced() {
        Characters characters(m_Text);
        while (!characters.AtEnd()) {
            const std::size_t offset = characters.Offset();
            const char32_t character = characters.Next();
            if (character == c_notUtf8)
                return m_Out.append(m_Text.substr(offset));
            const char32_t composed = Compose(character, characters);
            if (composed != character)
                Put(offset, characters.Offset(), ToUtf8(static_cast<char16_t>(composed)));
            else if (const NearRow* const row = IsHeld(character) ? nullptr : FindNear(character))
                Put(offset, characters.Offset(), row->near.View());
            else
                m_Out += m_Text.substr(offset, characters.Offset() - offset);
        }
        return std::move(m_Out);
    }

private:
    /// A single shift table of a language may be used with any locking table, so a character is held or not.
    bool IsHeld(char32_t character) const {
        const HoldingTables holding = c_codes.tables[c_codes.NumberOf(character)];
        return ((holding.locking | holding.single) & m_Languages) != 0;
    }

    /// Takes marks in that make another character of the one before, as long as that one is held.
    char32_t Compose(char32_t character, Characters& characters) const {
        while (!characters.AtEnd()) {
            Characters after = characters;
            const char16_t composed = Composed(character, after.Next());
            if (composed == 0 || !IsHeld(composed))
                break;
            character = composed;
            characters = after;
        }
        return character;
    }

    void Put(std::size_t begin, std::size_t end, const Utf8Character& character) {
        Put(begin, end, std::string_view(character.octets, character.length));
    }
    void Put(std::size_t begin, std::size_t end, std::string_view replacement) {
        m_Replacements.push_back({begin, end - begin, std::string(replacement)});
        m_Out += replacement;
    }

    std::string_view m_Text;
    unsigned int m_Languages;
    std::vector<Replacement>& m_Replacements;
    std::string m_Out;
};

} // namespace

std::string ReplaceNear(std::string_view text, Languages languages, std::vector<Replacement>& replacements) {
    return Replacing(text, languages, replacements).Replaced();
}

} // namespace Messages
