// A short message as it is shown: what was read of its octets, field by field.
#ifndef SHOW_MESSAGE_H
#define SHOW_MESSAGE_H

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Messages/Read.h"
#include "show/Words.h"

namespace show {

/// The octets of a PDU and what they say by the standard.
struct Message {
    std::vector<std::uint8_t> octets;
    Messages::Reading reading;
    bool hasServiceCentre = true;      ///< before the TPDU
    bool isZoneIgnored = false;        ///< times are shown without their zone
    std::vector<std::string> warnings; ///< of what had to be assumed to read it

    Messages::OctetView Octets(std::uint32_t octet, std::uint32_t count) const {
        return Messages::OctetView(octets).Sub(octet, count);
    }
};

/// A field that is nothing but its octets.
struct PlainOctets {};

/// A field as people speak of it: the subfields of an address are one field, and so are the length and the
/// elements of a header, and all unused bits that are set. What it points to belongs to the message.
struct MessageField {
    /// The number of a field of one octet, or of some bits of one; an address; and so on.
    using Value =
        std::variant<PlainOctets, unsigned int, const Messages::Address*, Messages::Timestamp,
                     const Messages::Validity*, const Messages::DataCoding*, const Messages::UserData*>;

    Messages::Field field;
    std::uint32_t octet = 0; ///< the first one
    std::uint32_t count = 0; ///< octets
    Value value; ///< user data stand for their header; unused bits are where they stand in the octet
    std::uint8_t mask = 0xFF; ///< bits of the first octet

    /// Whether it is a service centre that is not given.
    bool IsAbsent() const { return field == Messages::Field::ServiceCentre && count == 1; }
};

/// The fields in the order of their octets; those of the first octet from bit 0 on.
std::vector<MessageField> FieldsOf(const Message& message);

/// What the value of a field means, for a person; may be empty. An element of a header is a line.
Words MeaningOf(const MessageField& field, const Message& message);

/// Whether the field is some bits of the first octet.
constexpr bool IsFlag(Messages::Field field) {
    return field >= Messages::Field::MessageType && field <= Messages::Field::UnusedBits;
}

/// Whether the place holds what is there of the field that the reading ends in.
bool IsCut(const Messages::FieldPlace& place, const Message& message);

/// Whether a person takes both for one field: all that a header is made of.
bool AreOneField(Messages::Field one, Messages::Field other);

/// By the standard, "TP-OA".
std::string_view ShownNameOf(Messages::Field field);

/// ISO 8601; empty where it is no time.
std::string TimeOf(const Messages::Timestamp& time, const Message& message);

/// Whether the user data are octets and no text: 8-bit data, and what is compressed.
bool IsData(const Messages::Tpdu& tpdu);

/// The text of its user data; null where it has none, or data.
const std::string* TextOf(const Messages::Tpdu& tpdu);

/// Whether octets of a service centre stand before the TPDU, though the reading may end in them.
bool HasServiceCentre(const Messages::Reading& reading);

/// Whether something of the text is missing or is no whole character, which a reader of the text alone would
/// not see.
bool ConcernsText(const Messages::Remark& remark);

/// "TP-UDL at octet 26: …"
std::string ToText(const Messages::Remark& remark);

/// "octet 19: the octets end in TP-SCTS, …"
std::string ToText(const Messages::Fault& fault);

} // namespace show

#endif
