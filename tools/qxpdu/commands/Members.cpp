#include "commands/Members.h"

#include <set>

#include <fmt/format.h>

#include "characters/InputError.h"
#include "show/Json.h"

namespace qxpdu {

void Refuse(const std::string& name, const std::string& reason) {
    throw InputError(fmt::format("{}: {}", name, reason));
}

std::string StringIn(const std::string& name, const show::Json& value,
                     std::string (*faultOf)(const std::string&)) {
    if (!value.is_string())
        Refuse(name, "no string");
    auto text = value.get<std::string>();
    if (const std::string fault = faultOf != nullptr ? faultOf(text) : std::string(); !fault.empty())
        Refuse(name, fault);
    return text;
}

int NumberIn(const std::string& name, const show::Json& value, int most) {
    if (!value.is_number_integer() || value < 0 || value > most)
        Refuse(name, fmt::format("no number from 0 to {}", most));
    return value.get<int>();
}

bool FlagIn(const std::string& name, const show::Json& value) {
    if (!value.is_boolean())
        Refuse(name, "neither true nor false");
    return value.get<bool>();
}

void ReadMembers(const std::string& line,
                 const std::function<void(const std::string&, const show::Json&)>& set, bool needsText) {
    std::set<std::string> names;
    const auto refuseTwice = [&names](int depth, show::Json::parse_event_t event, const show::Json& name) {
        if (depth == 1 && event == show::Json::parse_event_t::key && !names.insert(name).second)
            Refuse(name, "given twice");
        return true;
    };
    const show::Json object = show::Json::parse(line, refuseTwice, false);
    if (!object.is_object())
        throw InputError("no JSON object");
    if (needsText && !object.contains("text"))
        throw InputError("text is required");
    for (const auto& [name, value] : object.items())
        set(name, value);
}

} // namespace qxpdu
