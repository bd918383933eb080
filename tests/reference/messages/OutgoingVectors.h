// The vectors of texts that are sent (tests/vectors/README.md).
#ifndef TESTS_REFERENCE_MESSAGES_OUTGOINGVECTORS_H
#define TESTS_REFERENCE_MESSAGES_OUTGOINGVECTORS_H

#include <string>
#include <vector>

#include "Json.h"
#include "Outgoing.h"

namespace plain {

struct OutgoingVector {
    std::string name, clause;
    Outgoing outgoing;
};

/// The name of their file in tests/vectors.
inline const std::string c_outgoingFile = "outgoing";

std::vector<OutgoingVector> OutgoingVectors();
/// The file's text: one vector a line, each with what the second reading makes of it.
std::string TextOf(const std::vector<OutgoingVector>& vectors);

/// What a vector asks for.
Outgoing OutgoingOf(const Json& vector);
/// What is sent; `null` where nothing can be.
Json ToJson(const std::optional<Sent>& sent);
/// The text in UTF-8.
std::string Utf8Of(const std::u32string& text);

} // namespace plain

#endif
