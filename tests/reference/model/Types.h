// What the model's parts have in common. The model is a second, plain reading of the rules by which messages
// are coded: slow, step by step, and sharing nothing with the library, neither code nor tables nor types.
#ifndef TESTS_REFERENCE_MODEL_TYPES_H
#define TESTS_REFERENCE_MODEL_TYPES_H

#include <cstdint>
#include <string>
#include <vector>

namespace model {

using Text = std::u32string;
using Octets = std::vector<std::uint8_t>;

/// What a field reader returns that could not read its field.
inline constexpr std::uint32_t FAILED = 0xFFFFFFFF;

/// The 16 bits of a character that a codec looks at.
inline std::uint16_t Low16(char32_t character) {
    return static_cast<std::uint16_t>(character % 0x10000);
}

/// The 8 bits of a number that go on the wire.
inline std::uint8_t Low8(std::int64_t number) {
    return static_cast<std::uint8_t>(number & 0xFF);
}

} // namespace model

#endif
