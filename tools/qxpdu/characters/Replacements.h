// Characters that stand near enough to one without a GSM code to be sent in its place.
#ifndef QXPDU_REPLACEMENTS_H
#define QXPDU_REPLACEMENTS_H

#include <optional>
#include <string_view>

namespace qxpdu {

/// What may be sent in place of a character; empty where the character may be left out, nothing where it has
/// no replacement. Every replacement has GSM codes.
std::optional<std::u32string_view> ReplacementOf(char32_t character);

} // namespace qxpdu

#endif
