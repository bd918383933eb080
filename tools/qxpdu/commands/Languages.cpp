#include "commands/Languages.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <sstream>
#include <string_view>
#include <utility>

#include <fmt/format.h>

namespace qxpdu {

namespace {

using Messages::Language;

constexpr std::string_view c_all = "all";

/// By ISO 639.
constexpr std::pair<std::string_view, Language> c_codes[] = {
    {"tr", Language::Turkish}, {"es", Language::Spanish},   {"pt", Language::Portuguese},
    {"bn", Language::Bengali}, {"gu", Language::Gujarati},  {"hi", Language::Hindi},
    {"kn", Language::Kannada}, {"ml", Language::Malayalam}, {"or", Language::Oriya},
    {"pa", Language::Punjabi}, {"ta", Language::Tamil},     {"te", Language::Telugu},
    {"ur", Language::Urdu},
};

std::optional<Language> LanguageOf(std::string_view code) {
    const auto* const found = std::find_if(std::begin(c_codes), std::end(c_codes),
                                           [code](const auto& row) { return row.first == code; });
    return found == std::end(c_codes) ? std::nullopt : std::optional(found->second);
}

/// Calls `take` with each code of a list.
template <typename Take>
void ForEachCode(const std::string& names, Take take) {
    std::istringstream list(names);
    for (std::string code; std::getline(list, code, ',');)
        take(code);
}

} // namespace

std::string FaultOfLanguages(const std::string& names) {
    if (names == c_all)
        return {};
    std::string fault = names.empty() || names.ends_with(',') ? "a language is missing" : "";
    ForEachCode(names, [&fault](const std::string& code) {
        if (!LanguageOf(code) && fault.empty())
            fault =
                fmt::format("'{}' is no language with tables: tr, es, pt, bn, gu, hi, kn, ml, or, pa, ta, "
                            "te, ur or all",
                            code);
    });
    return fault;
}

Messages::Languages LanguagesIn(const std::string& names) {
    if (names == c_all)
        return Messages::Languages::All();
    Messages::Languages languages;
    ForEachCode(names, [&languages](const std::string& code) { languages.Add(*LanguageOf(code)); });
    return languages;
}

std::vector<std::string> CodesOf(Messages::Languages languages) {
    std::vector<std::string> codes;
    for (const auto& [code, language] : c_codes) {
        if (languages.Has(language))
            codes.emplace_back(code);
    }
    return codes;
}

} // namespace qxpdu
