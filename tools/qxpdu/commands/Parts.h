// What a PDU tells about the message that it is a part of.
#ifndef QXPDU_PARTS_H
#define QXPDU_PARTS_H

#include <optional>

#include "show/PduWalk.h"

namespace qxpdu {

/// The GSM code that stands before one of the extension table.
constexpr unsigned char c_escape = 0x1B;

/// The place of a PDU in its message. The decoder's values may come from other elements as well.
struct Concatenation {
    bool hasWideReference; ///< 16 bits
    int reference;
    int total;
    int sequence; ///< from 1
};

/// By the last concatenation in the user-data header; nothing where there is none.
std::optional<Concatenation> ConcatenationOf(const Encoding::Pdu& pdu, const PduWalk& walk);

/// The codes that a text begins and ends with.
struct EdgeCodes {
    unsigned char first;
    unsigned char last;
};

/// Nothing where the text is not in GSM 7-bit, or empty.
std::optional<EdgeCodes> EdgeCodesOf(const Encoding::Pdu& pdu, const PduWalk& walk);

} // namespace qxpdu

#endif
