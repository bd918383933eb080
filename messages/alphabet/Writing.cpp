#include <algorithm>

#include "alphabet/Codes.h"
#include "alphabet/Packing.h"
#include "alphabet/Utf8.h"
#include "wire/SeptetGroups.h"

namespace Messages {
namespace {

/// Appends what `append(character)` makes of each character of a text, until it makes nothing of one.
template <class Append>
std::optional<MisfitCharacter> AppendEach(std::string_view text, std::vector<std::uint8_t>& octets,
                                          Append append) {
    const std::size_t before = octets.size();
    for (Characters characters(text); !characters.AtEnd();) {
        const std::size_t offset = characters.Offset();
        const char32_t character = characters.Next();
        if (character == c_notUtf8 || !append(character)) {
            octets.resize(before);
            return MisfitCharacter{offset, character};
        }
    }
    return std::nullopt;
}

} // namespace

std::size_t PackSeptets(OctetView septets, unsigned int firstBit, std::uint8_t* packed) noexcept {
    const std::size_t octets = (firstBit + septets.size() * c_septetBits + c_octetBits - 1) / c_octetBits;
    std::size_t groups = 0;
    if (octets >= Wire::c_groupReach)
        groups = std::min<std::size_t>(septets.size() / Wire::c_groupSeptets,
                                       (octets - Wire::c_groupReach) / Wire::c_groupOctets + 1);
    const Wire::SeptetGroups& ways = Wire::FastestGroups();
    const std::uint64_t pending = ways.pack(septets.data(), groups, firstBit, packed);

    // What is left is one group, which has no room to be written as one.
    const OctetView rest = septets.Sub(groups * Wire::c_groupSeptets);
    std::array<std::uint8_t, Wire::c_groupSeptets> last{};
    std::array<std::uint8_t, Wire::c_groupReach> tail{};
    std::copy(rest.begin(), rest.end(), last.begin());
    ways.pack(last.data(), 1, firstBit, tail.data());
    tail[0] = static_cast<std::uint8_t>(tail[0] | pending);
    const std::size_t done = groups * Wire::c_groupOctets;
    std::copy_n(tail.begin(), octets - done, packed + done);
    return octets;
}

std::optional<MisfitCharacter> AppendSeptets(std::string_view text, SeptetTables tables,
                                             std::vector<std::uint8_t>& septets) {
    const CharacterCodes::Codes& locking = c_codes.locking[static_cast<std::size_t>(tables.locking)];
    const CharacterCodes::Codes& single = c_codes.single[static_cast<std::size_t>(tables.single)];
    septets.reserve(septets.size() + text.size());
    return AppendEach(text, septets, [&](char32_t character) {
        const std::uint16_t number = c_codes.NumberOf(character);
        if (locking[number] != 0) {
            septets.push_back(static_cast<std::uint8_t>(locking[number] - 1));
            return true;
        }
        if (single[number] == 0)
            return false;
        septets.push_back(c_escapeSeptet);
        septets.push_back(static_cast<std::uint8_t>(single[number] - 1));
        return true;
    });
}

std::optional<MisfitCharacter> AppendUcs2(std::string_view text, std::vector<std::uint8_t>& octets) {
    const auto appendUnit = [&](char32_t unit) {
        octets.push_back(static_cast<std::uint8_t>(unit >> c_octetBits));
        octets.push_back(static_cast<std::uint8_t>(unit));
    };
    octets.reserve(octets.size() + 2 * text.size());
    return AppendEach(text, octets, [&](char32_t character) {
        constexpr char32_t firstOfPairs = 0x10000;
        if (character < firstOfPairs) {
            appendUnit(character);
        } else {
            appendUnit(0xD800U | (character - firstOfPairs) >> 10U);
            appendUnit(0xDC00U | (character & 0x3FFU));
        }
        return true;
    });
}

} // namespace Messages
