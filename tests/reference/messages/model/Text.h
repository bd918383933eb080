// Characters out of septets and octets (3GPP TS 23.038, 6).
#ifndef TESTS_REFERENCE_MESSAGES_MODEL_TEXT_H
#define TESTS_REFERENCE_MESSAGES_MODEL_TEXT_H

#include <functional>
#include <string>
#include <vector>

#include "model/Reading.h"

namespace plain {

/// Told of what is odd in a text: the remark, the bit of the octets at which it begins, and its numbers.
using TextRemark =
    std::function<void(std::string_view code, std::size_t bit, std::size_t number, std::size_t other)>;

/// Appends a character in UTF-8.
void Append(std::string& text, char32_t character);

/// The text of the septets that stand whole in `octets` from the bit `firstBit` on, at most `count`.
std::string SeptetText(const Octets& octets, std::size_t firstBit, std::size_t count, int locking, int single,
                       const TextRemark& remark);

/// The text of octets from `first` on, as UTF-16 with the high octet first.
std::string UnitText(const Octets& octets, std::size_t first, const TextRemark& remark);

} // namespace plain

#endif
