/// @file
/// Numbers and names of the parties, 3GPP TS 23.040 clause 9.1.2.5.
#ifndef MESSAGES_ADDRESS_H
#define MESSAGES_ADDRESS_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Messages/Alphabet.h"
#include "Messages/Export.h"

namespace Messages {

/// Bits 6 to 4 of the type-of-address octet.
enum class TypeOfNumber : std::uint8_t {
    Unknown = 0,
    International = 1,
    National = 2,
    NetworkSpecific = 3,
    Subscriber = 4,
    Alphanumeric = 5,
    Abbreviated = 6,
    Reserved = 7
};

/// Bits 3 to 0 of the type-of-address octet; values without a name are reserved.
enum class NumberingPlan : std::uint8_t {
    Unknown = 0,
    Isdn = 1, ///< E.164, E.163
    Data = 3, ///< X.121
    Telex = 4,
    ServiceCentreSpecific5 = 5,
    ServiceCentreSpecific6 = 6,
    National = 8,
    Private = 9,
    Ermes = 10,
    ReservedForExtension = 15
};

/// One address. A value: copied, compared and moved as it likes, owned by whoever holds it.
struct MESSAGES_API Address {
    std::uint8_t typeOfAddress = 0x80; ///< the octet as it is sent: bit 7 set, type of number, numbering plan
    /// The length octet as it is sent: useful semi-octets, or for a service centre octets with the one of the
    /// type.
    std::uint8_t length = 0;
    /// The digits `0`–`9`, `*`, `#`, `a`, `b`, `c`, without a plus sign; a name in UTF-8 where the type is
    /// alphanumeric.
    std::string text;

    /// Bits 6 to 4 of the type-of-address octet.
    TypeOfNumber Type() const noexcept { return static_cast<TypeOfNumber>(typeOfAddress >> 4 & 0x07); }
    /// Bits 3 to 0 of the type-of-address octet.
    NumberingPlan Plan() const noexcept { return static_cast<NumberingPlan>(typeOfAddress & 0x0F); }
    /// Whether the text is a name.
    bool IsAlphanumeric() const noexcept { return Type() == TypeOfNumber::Alphanumeric; }

    /// The text as people write it: a plus sign before an international number that has digits.
    std::string ToString() const;

    /// By all members.
    friend bool operator==(const Address& left, const Address& right) noexcept {
        return left.typeOfAddress == right.typeOfAddress && left.length == right.length &&
               left.text == right.text;
    }
    /// The opposite.
    friend bool operator!=(const Address& left, const Address& right) noexcept { return !(left == right); }
};

/// Makes an address of a number as people write it: digits, `*`, `#`, `a`, `b`, `c`, with or without a plus
/// sign first, which makes it international. Blanks, `-`, `.`, `/`, `(` and `)` are passed over. Returns the
/// first other character; `address` is then as it was. Nothing is too long, and no digit at all too short: it
/// is for Write() to say what a PDU holds; the length is 255 at most. Throws std::bad_alloc alone.
MESSAGES_API std::optional<MisfitCharacter> ToNumber(std::string_view written, Address& address);

/// Makes an address of a name, of any length as ToNumber() does. Returns the first character that the default
/// alphabet lacks; `address` is then as it was. Throws std::bad_alloc alone.
MESSAGES_API std::optional<MisfitCharacter> ToName(std::string_view written, Address& address);

} // namespace Messages

#endif
