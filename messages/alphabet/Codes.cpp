#include "alphabet/Codes.h"

#include "alphabet/Rows.h"

namespace Messages {
namespace {

/// Numbers characters as they come.
struct Numbering {
    CharacterCodes codes;
    std::size_t blocks = 1;
    std::size_t characters = 1;

    constexpr std::size_t NumberOf(char16_t character) {
        std::uint8_t& block = codes.blocks[character / CharacterCodes::c_blockSize];
        if (block == 0)
            block = static_cast<std::uint8_t>(blocks++);
        std::uint16_t& number = codes.numbers.at(block)[character % CharacterCodes::c_blockSize];
        if (number == 0)
            number = static_cast<std::uint16_t>(characters++);
        return number;
    }
};

/// Takes a column's characters in. Of two septets with the same one the lower is written.
template <std::size_t Columns, std::size_t Count>
constexpr void AddColumn(const char* const (&rows)[Count][Columns], std::size_t column, std::size_t language,
                         Numbering& numbering, std::array<CharacterCodes::Codes, c_languageCount>& codes,
                         std::uint16_t HoldingTables::*tables) {
    for (const auto& row : rows) {
        const Tables::Character cell(row[column]);
        if (!cell.isWritten)
            continue;
        const std::size_t number = numbering.NumberOf(cell.value);
        CodeBesideNone& code = codes[language].at(number);
        if (code == 0)
            code = static_cast<CodeBesideNone>(Tables::Hexadecimal(row[0]).value + 1);
        std::uint16_t& holding = numbering.codes.tables[number].*tables;
        holding = static_cast<std::uint16_t>(holding | 1U << language);
    }
}

constexpr CharacterCodes MakeCodes() {
    Numbering numbering;
    CharacterCodes& codes = numbering.codes;
    VisitColumns(&Tables::LanguageRow::hasLocking, [&](std::size_t language, std::size_t column) {
        AddColumn(c_lockingRows, column, language, numbering, codes.locking, &HoldingTables::locking);
    });
    VisitColumns(&Tables::LanguageRow::hasSingle, [&](std::size_t language, std::size_t column) {
        AddColumn(c_singleShiftRows, column, language, numbering, codes.single, &HoldingTables::single);
    });
    codes.locking[static_cast<std::size_t>(Language::Spanish)] = codes.locking[0];
    return codes;
}

} // namespace

constexpr CharacterCodes c_codes = MakeCodes();

} // namespace Messages
