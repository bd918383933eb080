// Texts as they are sent: written the cheapest way, cut into parts, each part's user data.
#ifndef TESTS_REFERENCE_MESSAGES_OUTGOING_H
#define TESTS_REFERENCE_MESSAGES_OUTGOING_H

#include <optional>
#include <string>
#include <vector>

#include "model/Choosing.h"
#include "model/Reading.h"

namespace plain {

struct PortPair {
    int destination = 0, source = 0;
    bool isWide = false;
};

/// A text, and how it is to be sent.
struct Outgoing {
    std::u32string text;
    std::vector<int> languages = {0}; ///< that may be used, the default alphabet among them
    std::string alphabet;             ///< the only one that may be: "gsm7", "ucs2"; else empty
    int reference = 0;                ///< of several parts
    bool isWide = false;              ///< the reference
    std::optional<PortPair> ports = std::nullopt;
    Octets elements;       ///< more of them, as they are sent
    int messageClass = -1; ///< none
};

struct Sent {
    Way way;
    int coding = 0; ///< TP-DCS
    bool hasHeader = false;
    std::vector<Octets> parts; ///< TP-UDL and TP-UD of each
};

/// Nothing where the alphabet lacks a character, a part has no room, or there are more than 255 parts.
std::optional<Sent> Send(const Outgoing& outgoing);

} // namespace plain

#endif
