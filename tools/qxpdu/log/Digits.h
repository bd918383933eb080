// Where in a line of a log the digits of a PDU stand.
#ifndef QXPDU_DIGITS_H
#define QXPDU_DIGITS_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "log/AwaitedPdu.h"

namespace qxpdu {

/// Where the text goes on after what a program wrote before each of its lines, the same as this but for
/// numbers and words, and for the blanks that pad a number; nothing where it begins otherwise.
std::optional<std::size_t> EndOfPrefix(std::string_view text, std::string_view prefix);

/// How much may stand beside the digits.
enum class Beside {
    Nothing, ///< the line is theirs, but for quotation marks and the like
    Words,   ///< only as many digits as nothing else has, or those that complete the PDU
    Others   ///< the line may be another's: it is all digits, or has those that complete the PDU
};

/// The digits of a PDU, or of a piece of one, in what a line says; empty where there are none. A line that
/// is nothing but digits is taken whole. Digits of it are left out only where the PDU has more than were
/// announced with them, and is sound without.
std::string DigitsIn(std::string_view text, Beside beside, const AwaitedPdu& pdu);

/// Whether somebody may have meant the line as a PDU. One with words in it that are no digits, nor a label
/// of digits, is talk.
bool MayBePdu(const std::string& line);

} // namespace qxpdu

#endif
