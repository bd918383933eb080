// Addresses in semi-octets, with a word on whatever is odd in them.
#ifndef TPDU_ADDRESSES_H
#define TPDU_ADDRESSES_H

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "Messages/Address.h"
#include "Messages/Remarks.h"
#include "alphabet/Text.h"

namespace Messages {

constexpr std::size_t c_mostSemiOctets = 255 * 2; ///< that a length octet can announce
constexpr std::size_t c_mostDigits = 20;          ///< that an address may have
constexpr std::size_t c_addressHeadOctets = 2;    ///< the length, and the type of address
constexpr std::uint8_t c_typeExtension = 0x80;    ///< bit 7 of the type of address, always set
constexpr std::string_view c_digits = "0123456789*#abc";
constexpr std::uint8_t c_filler = 0x0F;
constexpr unsigned int c_semiOctetBits = 4;
constexpr std::size_t c_semiOctetsOfOctet = 2;

constexpr std::size_t OctetsOfSemiOctets(std::size_t semiOctets) {
    return (semiOctets + 1) / c_semiOctetsOfOctet;
}

/// Semi-octets of a name, which are the fewest that hold its septets.
constexpr std::size_t SemiOctetsOfName(std::size_t septets) {
    constexpr std::size_t septetBits = 7;
    return (septets * septetBits + c_semiOctetBits - 1) / c_semiOctetBits;
}

/// Whether these octets are one address: no longer than one may be, and none left over.
inline bool IsReplyAddress(OctetView data) {
    return data.size() >= c_addressHeadOctets && data[0] <= c_mostDigits &&
           data.size() == c_addressHeadOctets + OctetsOfSemiOctets(data[0]);
}

inline std::uint8_t SemiOctet(OctetView octets, std::size_t place) {
    return static_cast<std::uint8_t>(octets[place / 2] >> (place % 2 == 0 ? 0U : c_semiOctetBits) & 0x0FU);
}

/// What each character is worth as a digit; c_filler where it is none.
constexpr auto c_digitValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(c_filler);
    for (std::size_t value = 0; value < c_digits.size(); ++value)
        values.at(static_cast<unsigned char>(c_digits[value])) = static_cast<std::uint8_t>(value);
    return values;
}();

/// The digits of each octet; NUL where a semi-octet is a filler.
constexpr auto c_digitPairs = [] {
    std::array<std::array<char, c_semiOctetsOfOctet>, 256> pairs{};
    for (std::size_t octet = 0; octet < pairs.size(); ++octet)
        for (std::size_t i = 0; i < c_semiOctetsOfOctet; ++i)
            if (const std::size_t digit = octet >> i * c_semiOctetBits & 0x0FU; digit != c_filler)
                pairs.at(octet).at(i) = c_digits[digit];
    return pairs;
}();

/// Writes the digits of `semiOctets` semi-octets to `out`, which has room for as many. Returns its end.
/// Calls `odd(code, value, place)`.
template <class Odd>
char* WriteDigits(OctetView octets, std::size_t semiOctets, char* out, Odd odd) {
    std::size_t place = 0;
    const std::uint8_t* octet = octets.begin();
    for (; place + 1 < semiOctets; place += c_semiOctetsOfOctet) {
        const auto& pair = c_digitPairs[*octet++];
        if (pair[0] == '\0' || pair[1] == '\0')
            break;
        std::memcpy(out, pair.data(), pair.size());
        out += pair.size();
    }
    for (; place < semiOctets; ++place) {
        const std::uint8_t digit = SemiOctet(octets, place);
        if (digit == c_filler) {
            if (place + 1 < semiOctets)
                odd(RemarkCode::FillerInside, place, place);
            break;
        }
        *out++ = c_digits[digit];
    }
    if (semiOctets % c_semiOctetsOfOctet != 0 && SemiOctet(octets, semiOctets) != c_filler)
        odd(RemarkCode::FillerMissing, SemiOctet(octets, semiOctets), semiOctets);
    return out;
}

/// Writes a name in the default alphabet, as WriteDigits() does digits; three octets a septet and
/// c_utf8Slack. A place is that of a semi-octet; of a septet `odd` is told its own as well.
template <class Odd>
char* WriteName(OctetView octets, std::size_t semiOctets, char* out, Odd odd) {
    constexpr std::size_t septetBits = 7;
    constexpr std::size_t octetBits = 8;
    std::array<std::uint8_t, c_mostSemiOctets> septets;
    const std::size_t count =
        UnpackSeptets(octets, 0, semiOctets * c_semiOctetBits / septetBits, septets.data());
    out = WriteSeptetText({septets.data(), count}, {}, out,
                          [&](RemarkCode code, std::size_t septet, std::size_t place) {
                              odd(code, septet, place * septetBits / c_semiOctetBits, place);
                          });
    if (count != 0 && count % octetBits == 0 && septets[count - 1] == 0)
        odd(RemarkCode::PossibleFilling, std::size_t{0}, (count - 1) * septetBits / c_semiOctetBits);
    // Up to ten bits: an odd number of semi-octets leaves four more.
    const std::size_t bitsUsed = count * septetBits;
    const OctetView left = octets.Sub(bitsUsed / octetBits);
    if (!left.empty() && (left[0] >> bitsUsed % octetBits != 0 || (left.size() > 1 && left[1] != 0)))
        odd(RemarkCode::AddressBitsLeft, std::size_t{0}, bitsUsed / c_semiOctetBits);
    return out;
}

/// Room for the text of any address.
class AddressText {
public:
    /// The digits or the name, which stay until the next call. Calls `odd` as WriteDigits() does.
    template <class Odd>
    std::string_view Write(TypeOfNumber type, OctetView octets, std::size_t semiOctets, Odd odd) {
        char* const begin = m_Room.data();
        const char* const end = type == TypeOfNumber::Alphanumeric
                                    ? WriteName(octets, semiOctets, begin, odd)
                                    : WriteDigits(octets, semiOctets, begin, odd);
        return {begin, static_cast<std::size_t>(end - begin)};
    }

private:
    static constexpr std::size_t c_longestName = 255 * c_semiOctetBits / 7 * c_mostUtf8OfUnit + c_utf8Slack;
    std::array<char, std::max(c_longestName, c_mostSemiOctets)> m_Room;
};

} // namespace Messages

#endif
