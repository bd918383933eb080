// Choosing for those who go on with the text: what was seen of it need not be looked for again.
#ifndef ALPHABET_CHOOSING_H
#define ALPHABET_CHOOSING_H

#include "alphabet/Room.h"

namespace Messages {

/// Choose(), which also finds out whether all characters are plain.
std::optional<MisfitCharacter> Choose(SeenText& text, const ChoiceOptions& options, Choice& choice) noexcept;

/// PartOffsets() of a text that was seen.
std::vector<std::size_t> PartOffsets(const SeenText& text, const Choice& choice, const TextRoom& room);

} // namespace Messages

#endif
