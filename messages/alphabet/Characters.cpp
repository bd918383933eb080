#include "alphabet/Characters.h"

#include "tables/Values.h"

namespace Messages {
namespace {

/// The septet, then the default alphabet, then the languages that have such a table, in their order.
constexpr const char* c_lockingRows[][14] = {
#include "rows/locking-shift.inc"
};
constexpr const char* c_singleShiftRows[][15] = {
#include "rows/single-shift.inc"
};

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
    std::size_t column = 1;
    tables.fill(Column(rows, column));
    for (const Tables::LanguageRow& language : Tables::c_languages)
        if (language.*hasTable)
            tables[static_cast<std::size_t>(language.value.value)] = Column(rows, ++column);
    return tables;
}

} // namespace

constexpr std::array<CharacterTable, c_languageCount> c_lockingTables =
    TablesByLanguage(c_lockingRows, &Tables::LanguageRow::hasLocking);

constexpr std::array<CharacterTable, c_languageCount> c_singleShiftTables =
    TablesByLanguage(c_singleShiftRows, &Tables::LanguageRow::hasSingle);

} // namespace Messages
