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
    std::size_t characters;   ///< of the text before it
    std::size_t octets;       ///< of the data before it
    std::vector<int> missing; ///< the numbers of the parts
};

/// What the parts say together: a text, octets of those that hold 8-bit data, or both.
struct JoinedContent {
    std::string text;
    std::vector<std::uint8_t> data;
    std::vector<Gap> gaps; ///< in their order

    bool HasText() const { return !text.empty() || data.empty(); }
};

/// Whether what the remark is about, at the end or the beginning of a part, may be whole in the message.
bool MayBeHealed(const Messages::Remark& remark);

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

/// What is missing from the message though its parts by themselves do not say so, and the part, or the first
/// one that has come.
struct JoinedFlaw {
    std::string source; ///< "line 3"
    std::string words;
};
std::vector<JoinedFlaw> FlawsOf(const JoinedMessage& joined);

/// For a person, lines as those of a message.
std::string ToText(const JoinedMessage& joined);

/// For a program.
void Write(const JoinedMessage& joined, JsonText& object);

} // namespace show

#endif
