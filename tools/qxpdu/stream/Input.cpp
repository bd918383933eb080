#include "stream/Input.h"

#include <fmt/format.h>

#include "show/CodeUnits.h"
#include "show/Json.h"

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
        return input.file.empty() ? fmt::format("line {}", input.number)
                                  : fmt::format("{}: line {}", show::Printable(input.file), input.number);
    case Input::Source::Stream:
        break;
    }
    return "standard input";
}

show::Json ObjectFor(const Input& input) {
    show::Json object = {{"format", show::c_jsonFormat}};
    if (!input.file.empty())
        object["file"] = show::Printable(input.file);
    if (const std::string_view member = MemberFor(input); !member.empty())
        object[std::string(member)] = input.number;
    return object;
}

void Begin(show::JsonText& object, const Input& input) {
    if (!input.file.empty())
        object.Member("file", input.file);
    if (const std::string_view member = MemberFor(input); !member.empty())
        object.Member(member, input.number);
}

} // namespace qxpdu
