/// @file
/// The user-data header and its elements, 3GPP TS 23.040 clause 9.2.3.24.
#ifndef MESSAGES_HEADER_H
#define MESSAGES_HEADER_H

#include <cstdint>
#include <optional>

#include "Messages/Address.h"
#include "Messages/Alphabet.h"
#include "Messages/Export.h"
#include "Messages/Octets.h"

namespace Messages {

/// Identifiers of the elements whose content is decoded; Words.h has names for all 256.
enum class ElementId : std::uint8_t {
    Concatenation8 = 0x00,
    SpecialMessageIndication = 0x01,
    Ports8 = 0x04,
    Ports16 = 0x05,
    ServiceCentreControl = 0x06,
    HeaderSource = 0x07,
    Concatenation16 = 0x08,
    TextFormatting = 0x0A,
    PredefinedSound = 0x0B,
    PredefinedAnimation = 0x0D,
    UserPrompt = 0x13,
    ObjectDistribution = 0x17,
    EmailHeader = 0x20,
    Hyperlink = 0x21,
    ReplyAddress = 0x22,
    EnhancedVoiceMail = 0x23,
    SingleShift = 0x24,
    LockingShift = 0x25
};

/// The place of a message among the parts of a text, elements 00 and 08.
struct Concatenation {
    bool hasWideReference = false; ///< 16 bits instead of 8
    std::uint16_t reference = 0;   ///< the same in all parts of a text
    std::uint8_t total = 0;        ///< 1 to 255
    std::uint8_t part = 0;         ///< 1 to total

    /// By all members.
    friend bool operator==(const Concatenation& left, const Concatenation& right) noexcept {
        return left.hasWideReference == right.hasWideReference && left.reference == right.reference &&
               left.total == right.total && left.part == right.part;
    }
    /// The opposite.
    friend bool operator!=(const Concatenation& left, const Concatenation& right) noexcept {
        return !(left == right);
    }
};

/// The applications that a message is from and for, elements 04 and 05.
struct Ports {
    bool areWide = false;          ///< 16 bits instead of 8
    std::uint16_t destination = 0; ///< the application that the message is for
    std::uint16_t originator = 0;  ///< the application that it is from

    /// By all members.
    friend bool operator==(const Ports& left, const Ports& right) noexcept {
        return left.areWide == right.areWide && left.destination == right.destination &&
               left.originator == right.originator;
    }
    /// The opposite.
    friend bool operator!=(const Ports& left, const Ports& right) noexcept { return !(left == right); }
};

/// Element 01: how many messages of a kind wait, clause 9.2.3.24.2.
struct SpecialMessageIndication {
    bool isStored = false;         ///< the message is kept after the indication is updated
    std::uint8_t profile = 0;      ///< 0 to 3 for profiles 1 to 4
    std::uint8_t type = 0;         ///< 0 voice, 1 fax, 2 e-mail, 3 the extended type
    std::uint8_t extendedType = 0; ///< 1 video; others reserved
    std::uint8_t count = 0;        ///< messages that wait
};

/// Element 0A: how a run of characters is shown, clause 9.2.3.24.10.1.1.
struct TextFormatting {
    std::uint8_t start = 0;     ///< the first character, from 0
    std::uint8_t length = 0;    ///< characters
    std::uint8_t alignment = 0; ///< 0 left, 1 centre, 2 right, 3 as the language has it
    std::uint8_t size = 0;      ///< 0 normal, 1 large, 2 small, 3 reserved
    bool isBold = false;        ///< bit 4 of the mode
    bool isItalic = false;      ///< bit 5 of the mode
    bool isUnderlined = false;  ///< bit 6 of the mode
    bool isStruck = false;      ///< bit 7 of the mode
    std::optional<std::uint8_t> colour =
        std::nullopt; ///< foreground in bits 3 to 0, background in bits 7 to 4
};

/// Elements 0B and 0D: something predefined at a character of the text.
struct PredefinedObject {
    std::uint8_t position = 0; ///< the character that it belongs to, from 0
    std::uint8_t number = 0;   ///< of the sound or animation
};

/// Element 17: how many objects follow, and whether they may be forwarded.
struct ObjectDistribution {
    std::uint8_t count = 0;         ///< objects
    bool forbidsForwarding = false; ///< bit 0 of the second octet
};

/// Element 21: a run of characters is a title, the next a link, clause 9.2.3.24.12.
struct Hyperlink {
    std::uint16_t position = 0;   ///< the title's first character, from 0
    std::uint8_t titleLength = 0; ///< characters
    std::uint8_t urlLength = 0;   ///< characters, after the title
};

/// One element: its identifier and where its data stands among the octets of the user data, so that no
/// element has memory of its own.
struct MESSAGES_API HeaderElement {
    std::uint8_t identifier = 0; ///< see ElementId
    std::uint8_t length = 0;     ///< of the data, in octets
    std::uint8_t offset = 0;     ///< of the data, in UserData::octets

    /// Whether the identifier is this one.
    bool Is(ElementId id) const noexcept { return identifier == static_cast<std::uint8_t>(id); }
    /// The data, out of the octets of the user data that the element belongs to.
    OctetView Data(OctetView userData) const noexcept { return userData.Sub(offset, length); }
};

/// What the data of an element says. Each gives nothing where the length is another than the element's kind
/// has; which kind it is, the caller has found out by the identifier.
/// @{
MESSAGES_API std::optional<Concatenation> ReadConcatenation(std::uint8_t identifier, OctetView data) noexcept;
/// Elements 04 and 05.
MESSAGES_API std::optional<Ports> ReadPorts(std::uint8_t identifier, OctetView data) noexcept;
/// Element 01.
MESSAGES_API std::optional<SpecialMessageIndication> ReadSpecialMessageIndication(OctetView data) noexcept;
/// Element 0A, three octets or four.
MESSAGES_API std::optional<TextFormatting> ReadTextFormatting(OctetView data) noexcept;
/// Elements 0B and 0D.
MESSAGES_API std::optional<PredefinedObject> ReadPredefinedObject(OctetView data) noexcept;
/// Element 17.
MESSAGES_API std::optional<ObjectDistribution> ReadObjectDistribution(OctetView data) noexcept;
/// Element 21.
MESSAGES_API std::optional<Hyperlink> ReadHyperlink(OctetView data) noexcept;
/// An address as TP-OA is coded. Throws std::bad_alloc alone.
MESSAGES_API std::optional<Address> ReadReplyAddress(OctetView data);
/// The one octet of elements 06, 07 (1 sender, 2 receiver, 3 service centre), 13, 20, 24 and 25.
MESSAGES_API std::optional<std::uint8_t> ReadSingleOctet(OctetView data) noexcept;
/// @}

} // namespace Messages

#endif
