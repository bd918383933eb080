// The fields of a PDU one after the other, each with its place, and the point where decoding stops.
#ifndef QXPDU_PDUWALK_H
#define QXPDU_PDUWALK_H

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "Encoding/PduDecoder.h"

namespace qxpdu {

/// A number in one octet, or in some bits of one.
struct NumberValue {
    unsigned int number;
};

/// TP-DCS.
struct DataCodingValue {
    unsigned int number;
    Encoding::Alphabet::Encoding alphabet;
    Encoding::MessageClass::Class messageClass;
};

/// An address; both numbers are the bits of the type-of-address octet, 0 where there is none.
struct AddressValue {
    std::string number;
    unsigned int typeOfNumber = 0;
    unsigned int numberingPlan = 0;
};

/// A time stamp in ISO 8601, or empty where it is out of range.
struct TimeValue {
    std::string time;
};

/// One element of the user-data header.
struct HeaderElement {
    unsigned int identifier;
    unsigned int offset;  ///< of its data
    unsigned int length;  ///< of its data as it says
    unsigned int present; ///< octets of that which the PDU holds; the others count as zeros
};

constexpr unsigned int c_concatenation8 = 0x00;
constexpr unsigned int c_concatenation16 = 0x08;
bool IsConcatenation(const HeaderElement& element);

struct HeaderValue {
    std::vector<HeaderElement> elements;
    /// Whether an element sets the decoder's concatenation values.
    bool HasConcatenation() const;
};

/// The octets of the user data after the header, as far as the PDU holds them.
struct UserDataValue {
    unsigned int units;    ///< septets in GSM 7-bit, else octets, that the decoder makes text of
    unsigned int fillBits; ///< before the first septet
};

/// The mask of a field that is no bit field.
constexpr unsigned int c_wholeOctet = 0xFF;

/// One field. Fields stand in the order of the PDU; those of the first octet share its offset.
struct PduField {
    std::string_view name; ///< by the standard, "TP-DCS"
    unsigned int offset;   ///< of the first octet, from 0
    unsigned int length;   ///< in octets
    unsigned int mask;     ///< its bits in its octet, or c_wholeOctet
    std::string meaning;
    std::variant<NumberValue, DataCodingValue, AddressValue, TimeValue, HeaderValue, UserDataValue> value;
};

/// Where and why the decoder rejects a PDU.
struct PduStop {
    std::string_view field;
    unsigned int offset; ///< of the octet where it stops
    std::string expected;
    std::string found;

    /// "expected 7 octets, found 3"
    std::string Reason() const;
};

struct PduWalk {
    std::vector<PduField> fields;
    std::optional<PduStop> stop; ///< set exactly when PduDecoder::Decode rejects the PDU
};

/// The octets that hold so many units of the alphabet: septets in GSM 7-bit, else octets.
unsigned int OctetsFor(Encoding::Alphabet::Encoding alphabet, unsigned int units);

/// Septets that a user-data header of so many octets takes, its length and its fill bits included.
unsigned int HeaderSeptets(unsigned int octets);

/// Walks over a PDU of at most Pdu::CAPACITY octets in the steps of PduDecoder::Decode. What a field says
/// comes from the field readers of `decoder`; of its members, only the coding group is written.
PduWalk WalkPdu(Encoding::PduDecoder& decoder, const Toolkit::smart_ptr<Encoding::Pdu>& pdu, bool noSmsc,
                bool ignoreTimeZone);

} // namespace qxpdu

#endif
