#include <algorithm>

#include "alphabet/Codes.h"
#include "alphabet/Packing.h"
#include "alphabet/Utf8.h"
#include "wire/SeptetGroups.h"

namespace Messages {
namespace {

/// Appends what `put(character, out)` writes for each character of a text, and returns the end of, until it
/// is null; before each, what `putRun(characters, out)` takes at once. An octet of the text gives `most` at
/// most.
template <class Put, class PutRun>
std::optional<MisfitCharacter> AppendEach(std::string_view text, std::size_t most,
                                          std::vector<std::uint8_t>& octets, Put put, PutRun putRun) {
    const std::size_t before = octets.size();
    octets.resize(before + most * text.size());
    std::uint8_t* out = octets.data() + before;
    for (Characters characters(text); !characters.AtEnd();) {
        out = putRun(characters, out);
        if (characters.AtEnd())
            break;
        const std::size_t offset = characters.Offset();
        const char32_t character = characters.Next();
        out = character == c_notUtf8 ? nullptr : put(character, out);
        if (out == nullptr) {
            octets.resize(before);
            return MisfitCharacter{offset, character};
        }
    }
    octets.resize(static_cast<std::size_t>(out - octets.data()));
    return std::nullopt;
}

std::uint8_t* PutUnit(char32_t unit, std::uint8_t* out) {
    *out++ = static_cast<std::uint8_t>(unit >> c_octetBits);
    *out++ = static_cast<std::uint8_t>(unit);
    return out;
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
    constexpr std::size_t mostSeptets = 2;
    const CharacterCodes::Codes& locking = c_codes.locking[static_cast<std::size_t>(tables.locking)];
    const CharacterCodes::Codes& single = c_codes.single[static_cast<std::size_t>(tables.single)];
    const bool holdsPlain = HoldsPlain(tables.locking);
    const auto putPlain = [&](Characters& characters, std::uint8_t* out) {
        if (!holdsPlain)
            return out;
        const std::string_view plain = characters.TakePlain();
        return std::copy(plain.begin(), plain.end(), out);
    };
    const auto put = [&](char32_t character, std::uint8_t* out) -> std::uint8_t* {
        const std::uint16_t number = c_codes.NumberOf(character);
        if (locking[number] != 0) {
            *out++ = static_cast<std::uint8_t>(locking[number] - 1);
            return out;
        }
        if (single[number] == 0)
            return nullptr;
        *out++ = c_escapeSeptet;
        *out++ = static_cast<std::uint8_t>(single[number] - 1);
        return out;
    };
    return AppendEach(text, mostSeptets, septets, put, putPlain);
}

std::optional<MisfitCharacter> AppendUcs2(std::string_view text, std::vector<std::uint8_t>& octets) {
    const auto putRun = [](Characters& characters, std::uint8_t* out) {
        out += Wire::c_unitOctets * characters.TakeThrees(out);
        for (const char character : characters.TakePlain())
            out = PutUnit(static_cast<std::uint8_t>(character), out);
        return out;
    };
    const auto put = [](char32_t character, std::uint8_t* out) {
        constexpr char32_t firstOfPairs = 0x10000;
        if (character < firstOfPairs)
            return PutUnit(character, out);
        out = PutUnit(0xD800U | (character - firstOfPairs) >> 10U, out);
        return PutUnit(0xDC00U | (character & 0x3FFU), out);
    };
    return AppendEach(text, Wire::c_unitOctets, octets, put, putRun);
}

} // namespace Messages
