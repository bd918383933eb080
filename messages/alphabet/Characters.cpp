#include "alphabet/Characters.h"

#include "alphabet/Rows.h"

namespace Messages {
namespace {

template <std::size_t Columns, std::size_t Count>
constexpr CharacterTable Column(const char* const (&rows)[Count][Columns], std::size_t column) {
    CharacterTable table;
    for (const auto& row : rows)
        table.Set(static_cast<std::size_t>(Tables::Hexadecimal(row[0]).value),
                  Tables::Character(row[column]).value);
    return table;
}

template <std::size_t Columns, std::size_t Count>
constexpr auto TablesByLanguage(const char* const (&rows)[Count][Columns],
                                Tables::YesNo Tables::LanguageRow::*hasTable) {
    std::array<CharacterTable, c_languageCount> tables{};
    tables.fill(Column(rows, 1));
    VisitColumns(hasTable,
                 [&](std::size_t language, std::size_t column) { tables[language] = Column(rows, column); });
    return tables;
}

} // namespace

constexpr std::array<CharacterTable, c_languageCount> c_lockingTables =
    TablesByLanguage(c_lockingRows, &Tables::LanguageRow::hasLocking);

constexpr std::uint16_t c_plainLocking = [] {
    const auto holdsPlain = [](const CharacterTable& table) {
        for (unsigned int septet = 0; septet < c_septetCount; ++septet)
            if (Wire::IsOwnCode(septet) && table.characters[septet] != septet)
                return false;
        return true;
    };
    unsigned int languages = 0;
    for (std::size_t language = 0; language < c_languageCount; ++language)
        if (holdsPlain(c_lockingTables[language]))
            languages |= 1U << language;
    return static_cast<std::uint16_t>(languages);
}();
static_assert((c_plainLocking & 1U) != 0, "of the default alphabet");

constexpr std::array<CharacterTable, c_languageCount> c_singleShiftTables =
    TablesByLanguage(c_singleShiftRows, &Tables::LanguageRow::hasSingle);

} // namespace Messages
