// What is told of a text that is counted, by either library.
#ifndef QXPDU_COUNTEDTEXT_H
#define QXPDU_COUNTEDTEXT_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "show/Json.h"
#include "show/Record.h"
#include "stream/Console.h"
#include "stream/Input.h"

namespace qxpdu {

/// A character of the text, and what becomes of it.
struct Occurrence {
    std::vector<std::size_t> positions; ///< from 1
    std::optional<std::string> becomes;
    std::vector<std::string> languages = {}; ///< in whose tables it is: "tr"
};

/// Distinct characters in rising order; one that is composed of several stands as these.
using Characters = std::map<std::u32string, Occurrence>;

/// "U+20AC EURO SIGN"
std::string Described(const std::u32string& character);

/// {"code_point": "U+20AC", "name": "EURO SIGN"}
show::Json ToJson(const std::u32string& character);

/// `becomes` is the name of the member that tells what becomes of each; null leaves it out.
show::Json ToJson(const Characters& characters, const char* becomes);

/// A line for each character: "U+2019 RIGHT SINGLE QUOTATION MARK at 4, 9 -> '".
std::string Shown(const Characters& characters, bool withChange);

/// Everything that is told of one text.
struct Counted {
    std::vector<show::Entry> entries; ///< for a person
    show::Json object;                ///< for a program
    std::optional<std::string> fault; ///< why the text cannot go out

    /// Nothing is added where there is no meaning.
    void Add(std::string name, std::string meaning);
};

void Show(const Input& input, const Counted& counted, Console& console);

} // namespace qxpdu

#endif
