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

constexpr std::array<bool, c_languageCount> c_holdsPlain = [] {
    std::array<bool, c_languageCount> holds{};
    for (std::size_t language = 0; language < c_languageCount; ++language)
        holds[language] = c_lockingTables[language].HoldsPlain();
    return holds;
}();
static_assert(c_holdsPlain[static_cast<std::size_t>(Language::Default)]);

constexpr std::array<CharacterTable, c_languageCount> c_singleShiftTables =
    TablesByLanguage(c_singleShiftRows, &Tables::LanguageRow::hasSingle);

} // namespace Messages
