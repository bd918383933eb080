// One input: what a command turns into one result.
#ifndef QXPDU_INPUT_H
#define QXPDU_INPUT_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "log/Headings.h"
#include "show/JsonForward.h"
#include "show/JsonText.h"

namespace qxpdu {

/// One input and where it came from.
struct Input {
    enum class Source { Argument, Line, Stream };

    Source source = Source::Argument;
    std::size_t number = 0; ///< of the argument or of the line, from 1; 0 for the whole stream
    std::string text;
    std::optional<Heading> heading = std::nullopt; ///< of the modem, where there is one
    std::string_view file = {}; ///< that the line stands in; none where that is standard input
};

/// "line 3", "modem.log: line 3", "argument 1" or "standard input".
std::string NameOf(const Input& input);

/// {"line": 3}, {"file": "modem.log", "line": 3} or {"argument": 1}: how every object of a result begins.
show::Json ObjectFor(const Input& input);
void Begin(show::JsonText& object, const Input& input);

} // namespace qxpdu

#endif
