/// @file
/// Octets that somebody else owns, and their hexadecimal form.
#ifndef MESSAGES_OCTETS_H
#define MESSAGES_OCTETS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Messages/Export.h"

namespace Messages {

/// A run of octets, borrowed: whoever made it sees to it that they live as long as it is used. May be empty,
/// with or without an address.
///
/// Threads: as many readers as like, while nobody writes the octets.
class OctetView {
public:
    constexpr OctetView() noexcept = default;
    /// `size` octets from `data` on.
    constexpr OctetView(const std::uint8_t* data, std::size_t size) noexcept : m_Data(data), m_Size(size) {}
    /// All octets of a vector, until it changes.
    OctetView(const std::vector<std::uint8_t>& octets) noexcept : OctetView(octets.data(), octets.size()) {}

    /// The first octet; may be null where there is none.
    constexpr const std::uint8_t* data() const noexcept { return m_Data; }
    /// How many octets there are.
    constexpr std::size_t size() const noexcept { return m_Size; }
    /// Whether there is none.
    constexpr bool empty() const noexcept { return m_Size == 0; }
    /// The first octet.
    constexpr const std::uint8_t* begin() const noexcept { return m_Data; }
    /// After the last octet.
    constexpr const std::uint8_t* end() const noexcept { return m_Data + m_Size; }

    /// REQUIRES index < size().
    constexpr std::uint8_t operator[](std::size_t index) const noexcept { return m_Data[index]; }

    /// At most `count` octets from `offset` on: fewer, or none, where there are no more.
    constexpr OctetView Sub(std::size_t offset,
                            std::size_t count = static_cast<std::size_t>(-1)) const noexcept {
        if (offset >= m_Size)
            return {};
        const std::size_t left = m_Size - offset;
        return {m_Data + offset, count < left ? count : left};
    }

private:
    const std::uint8_t* m_Data = nullptr;
    std::size_t m_Size = 0;
};

/// Reads digit pairs, upper or lower case, nothing between them, into `octets`, which is written anew and
/// keeps its capacity. False, with `octets` empty, for any other character and for an odd number of digits;
/// no digits give no octets and true. Throws std::bad_alloc alone.
MESSAGES_API bool FromHex(std::string_view digits, std::vector<std::uint8_t>& octets);

/// Two upper-case digits an octet. Throws std::bad_alloc alone.
MESSAGES_API std::string ToHex(OctetView octets);

} // namespace Messages

#endif
