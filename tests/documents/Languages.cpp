// The rows of docs/languages.md: what a text costs with and without the tables of its language.
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Messages/Alphabet.h"
#include "Messages/Words.h"

namespace {

using Messages::Choice;
using Messages::Language;

/// The cells of a table's row, without the blanks around them.
std::vector<std::string> CellsOf(const std::string& row) {
    std::vector<std::string> cells;
    for (std::size_t at = row.find('|'), end; (end = row.find('|', at + 1)) != std::string::npos; at = end)
        cells.push_back(row.substr(at + 2, end - at - 3));
    return cells;
}

/// "UCS2: 2 messages, 224 octets"
std::string ToText(const Choice& choice) {
    std::string text(Messages::NameOf(choice.alphabet));
    if (choice.tables.locking != Language::Default)
        text += ", locking shift";
    if (choice.tables.single != Language::Default)
        text += ", single shift";
    return text + ": " + std::to_string(choice.parts) + (choice.parts == 1 ? " message, " : " messages, ") +
           std::to_string(choice.octets) + " octets";
}

std::string CostOf(const std::string& text, Messages::Languages languages) {
    Messages::ChoiceOptions options;
    options.languages = languages;
    Choice choice;
    return Messages::Choose(text, options, choice) ? "cannot be sent" : ToText(choice);
}

TEST(Documents, LanguagesCostWhatIsSaid) {
    std::ifstream page(QX_LANGUAGES);
    std::size_t rows = 0;
    for (std::string line; std::getline(page, line);) {
        const std::vector<std::string> cells = CellsOf(line);
        const auto language = static_cast<Language>(rows + 1);
        if (cells.size() != 4 || rows == Messages::c_lastLanguage || cells[0] != Messages::NameOf(language))
            continue;
        ++rows;
        EXPECT_EQ(cells[2], CostOf(cells[1], {})) << cells[0];
        EXPECT_EQ(cells[3], CostOf(cells[1], {language})) << cells[0];
    }
    EXPECT_EQ(rows, Messages::c_lastLanguage);
}

} // namespace
