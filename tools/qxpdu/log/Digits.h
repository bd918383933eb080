// Where in a line of a log the digits of a PDU stand.
#ifndef QXPDU_DIGITS_H
#define QXPDU_DIGITS_H

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qxpdu {

/// Where the text goes on after what a program wrote before each of its lines, the same as this but for
/// numbers and words; nothing where it begins otherwise.
std::optional<std::size_t> EndOfPrefix(std::string_view text, std::string_view prefix);

/// Whether a PDU would be whole with these digits more.
using IsWhole = std::function<bool(const std::string& digits)>;

/// How much may stand beside the digits.
enum class Beside {
    Nothing, ///< the line is theirs, but for quotation marks and the like
    Words    ///< only as many digits as nothing else has, or those that make the PDU whole
};

/// The digits of a PDU, or of a piece of one, in what a line says; empty where there are none.
std::string DigitsIn(std::string_view text, Beside beside, const IsWhole& isWhole);

} // namespace qxpdu

#endif
