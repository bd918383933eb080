#include "commands/CountedText.h"

#include <iterator>
#include <utility>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "characters/Unicode.h"
#include "characters/UnicodeNames.h"
#include "show/CodeUnits.h"

namespace qxpdu {

namespace {

/// What `tell` says of each, with this between.
template <typename Tell>
std::string ForEach(const std::u32string& characters, const char* between, Tell tell) {
    std::string all;
    for (const char32_t character : characters)
        all.append(all.empty() ? "" : between).append(tell(character));
    return all;
}

} // namespace

std::string Described(const std::u32string& character) {
    return ForEach(character, " + ", [](char32_t one) {
        const std::string_view name = NameOfCharacter(one);
        return fmt::format("{}{}{}", CodePointName(one), name.empty() ? "" : " ", name);
    });
}

show::Json ToJson(const std::u32string& character) {
    show::Json object = {{"code_point", ForEach(character, " ", CodePointName)}};
    if (const std::string name = ForEach(character, " + ", NameOfCharacter); !name.empty())
        object["name"] = name;
    return object;
}

show::Json ToJson(const Characters& characters, const char* becomes) {
    show::Json list = show::Json::array();
    for (const auto& [character, occurrence] : characters) {
        show::Json object = ToJson(character);
        object["positions"] = occurrence.positions;
        if (becomes != nullptr)
            object[becomes] = *occurrence.becomes;
        if (!occurrence.languages.empty())
            object["languages"] = occurrence.languages;
        list.push_back(std::move(object));
    }
    return list;
}

std::string Shown(const Characters& characters, bool withChange) {
    std::string text;
    for (const auto& [character, occurrence] : characters) {
        fmt::format_to(std::back_inserter(text), "{}{} at {}", text.empty() ? "" : "\n", Described(character),
                       fmt::join(occurrence.positions, ", "));
        if (!withChange)
            continue;
        if (occurrence.becomes->empty())
            text += ", left out";
        else // a line feed would begin a line of the record
            fmt::format_to(std::back_inserter(text), " -> '{}'",
                           *occurrence.becomes == "\n" ? "\\n" : *occurrence.becomes);
    }
    return text;
}

void Counted::Add(std::string name, std::string meaning) {
    if (!meaning.empty())
        entries.push_back({std::move(name), {}, std::move(meaning)});
}

void Show(const Input& input, const Counted& counted, Console& console) {
    if (console.WantsJson())
        console.Object(counted.object);
    else
        console.Block(show::ToText(counted.entries));
    if (!counted.fault)
        return;
    if (console.WantsJsonLines())
        console.Failed(); // the object says why
    else
        console.Error(NameOf(input), *counted.fault);
}

} // namespace qxpdu
