// A message of several parts as it is shown.
#ifndef SHOW_JOINEDMESSAGE_H
#define SHOW_JOINEDMESSAGE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "show/JsonText.h"
#include "show/compare/Comparison.h"

namespace show {

/// Where parts are missing.
struct Gap {
    std::size_t position;     ///< characters of the text, or octets of the data, before it
    std::vector<int> missing; ///< the numbers of the parts
};

/// What the parts say together: a text, or octets where they hold 8-bit data.
struct JoinedContent {
    std::string text;
    std::vector<std::uint8_t> data;
    std::vector<Gap> gaps; ///< in their order

    bool IsData() const { return text.empty() && !data.empty(); }
};

/// Characters of a text in UTF-8.
std::size_t CharactersIn(std::string_view text);

struct JoinedPart {
    int number;         ///< from 1
    std::string source; ///< "line 3"
    bool isArgument;    ///< or a line
    std::size_t input;  ///< its number
    std::shared_ptr<const ComparedMessage> message;
    std::string_view file = {}; ///< that the line stands in
};

struct JoinedMessage {
    bool hasWideReference; ///< 16 bits
    int reference;
    int total;
    std::vector<JoinedPart> parts; ///< those that have come, at least one
    JoinedContent content;
};

/// For a person, lines as those of a message.
std::string ToText(const JoinedMessage& joined);

/// For a program.
void Write(const JoinedMessage& joined, JsonText& object);

} // namespace show

#endif
