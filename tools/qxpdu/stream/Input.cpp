#include "stream/Input.h"

#include <fmt/format.h>

namespace qxpdu {

namespace {

/// The member that names the input; none for the whole of standard input.
std::string_view MemberFor(const Input& input) {
    switch (input.source) {
    case Input::Source::Argument:
        return "argument";
    case Input::Source::Line:
        return "line";
    case Input::Source::Stream:
        break;
    }
    return {};
}

} // namespace

std::string NameOf(const Input& input) {
    switch (input.source) {
    case Input::Source::Argument:
        return fmt::format("argument {}", input.number);
    case Input::Source::Line:
        return fmt::format("line {}", input.number);
    case Input::Source::Stream:
        break;
    }
    return "standard input";
}

Json ObjectFor(const Input& input) {
    Json object = {{"format", c_jsonFormat}};
    if (const std::string_view member = MemberFor(input); !member.empty())
        object[std::string(member)] = input.number;
    return object;
}

void Begin(JsonText& object, const Input& input) {
    if (const std::string_view member = MemberFor(input); !member.empty())
        object.Member(member, input.number);
}

} // namespace qxpdu
