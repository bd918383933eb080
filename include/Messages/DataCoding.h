/// @file
/// What a data coding scheme says of a text, 3GPP TS 23.038 clause 4.
#ifndef MESSAGES_DATACODING_H
#define MESSAGES_DATACODING_H

#include <cstdint>
#include <optional>

#include "Messages/Export.h"

namespace Messages {

/// In which units the user data is written.
enum class Alphabet : std::uint8_t {
    Gsm7, ///< septets of the default alphabet or of a national language
    Data, ///< octets that are no text
    Ucs2  ///< UTF-16, most significant octet first
};

/// The groups of data coding schemes, by bits 7 to 4.
enum class CodingGroup : std::uint8_t {
    General,           ///< 00xx
    AutomaticDeletion, ///< 01xx
    Reserved,          ///< 1000 to 1011
    WaitingDiscard,    ///< 1100
    WaitingStore,      ///< 1101
    WaitingStoreUcs2,  ///< 1110
    DataCodingAndClass ///< 1111
};

/// What waits for the receiver.
enum class WaitingType : std::uint8_t { Voice = 0, Fax = 1, Email = 2, Other = 3 };

/// The indication of a data coding scheme that messages wait.
struct WaitingIndication {
    bool isStored = false;                 ///< the message is kept after the indication is updated
    bool isActive = false;                 ///< messages wait; otherwise none do
    WaitingType type = WaitingType::Voice; ///< what waits
};

/// One data coding scheme, every value of 0 to 255.
struct MESSAGES_API DataCoding {
    std::uint8_t value = 0;                   ///< TP-DCS
    CodingGroup group = CodingGroup::General; ///< by bits 7 to 4
    Alphabet alphabet = Alphabet::Gsm7;       ///< of a reserved scheme, the one to assume: GSM 7-bit
    std::optional<std::uint8_t> messageClass = std::nullopt; ///< 0 to 3
    std::optional<WaitingIndication> waiting = std::nullopt; ///< in the groups 1100 to 1110
    bool isCompressed = false; ///< by TS 23.042: TP-UDL counts octets, and no text is made
    bool isReserved = false;   ///< holds reserved bits or values

    DataCoding() noexcept = default;
    /// What TP-DCS says, clause 4.
    explicit DataCoding(std::uint8_t dcs) noexcept;

    /// Whether the message is deleted once it is read.
    bool IsAutomaticDeletion() const noexcept { return group == CodingGroup::AutomaticDeletion; }
    /// Whether TP-UDL counts septets.
    bool CountsSeptets() const noexcept { return alphabet == Alphabet::Gsm7 && !isCompressed; }

    /// By their values.
    friend bool operator==(const DataCoding& left, const DataCoding& right) noexcept {
        return left.value == right.value;
    }
    /// The opposite.
    friend bool operator!=(const DataCoding& left, const DataCoding& right) noexcept {
        return !(left == right);
    }
};

} // namespace Messages

#endif
