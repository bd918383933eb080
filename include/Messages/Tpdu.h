/// @file
/// The six TPDU types as values, 3GPP TS 23.040 clause 9.2.2.
#ifndef MESSAGES_TPDU_H
#define MESSAGES_TPDU_H

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "Messages/Address.h"
#include "Messages/Alphabet.h"
#include "Messages/DataCoding.h"
#include "Messages/Export.h"
#include "Messages/Header.h"
#include "Messages/Octets.h"
#include "Messages/Time.h"

namespace Messages {

/// The types, in the order of the alternatives of Tpdu, which begins with none.
enum class TpduType : std::uint8_t {
    None,
    Deliver,
    DeliverReport,
    Submit,
    SubmitReport,
    StatusReport,
    Command
};

/// TP-UD, or TP-CD, with what its header and its coding make of it. The text alone does not say which septets
/// it came from, so the octets stay beside it.
struct MESSAGES_API UserData {
    std::uint8_t length = 0; ///< TP-UDL as received: septets where the coding counts them, else octets
    std::vector<std::uint8_t> octets;    ///< TP-UD, as much of it as is there
    bool hasHeader = false;              ///< TP-UDHI is set and octets[0] is the header's length
    bool isHeaderIgnored = false;        ///< the elements do not add up, or reach beyond the user data
    std::vector<HeaderElement> elements; ///< all of them, in their order; none where the header is ignored
    std::optional<Concatenation> concatenation; ///< of the last valid element
    std::optional<Ports> ports;                 ///< of the last valid element
    SeptetTables tables;                        ///< that the text is read with
    std::uint16_t textOffset = 0;               ///< where the text begins: octets[textOffset]
    std::uint8_t fillBits = 0;                  ///< bits between the header and the first septet, 0 to 6
    std::uint16_t textUnits = 0; ///< septets, octets or UTF-16 units of the text that are there

    /// In UTF-8; empty for 8-bit data, for compressed text and where a header reaches beyond the user data.
    std::string text;

    /// The octets of 8-bit data, after the header; of UCS2 and compressed text too. For septets, the packed
    /// octets from the one that holds the first of them on.
    OctetView Content() const noexcept { return OctetView(octets).Sub(textOffset); }
};

/// SMS-DELIVER, service centre to mobile, clause 9.2.2.1.
struct Deliver {
    bool moreMessages = false;           ///< more messages wait: TP-MMS is 0
    bool loopPrevention = false;         ///< TP-LP: forwarded or spawned; stop a loop
    bool statusReportIndication = false; ///< TP-SRI: the sender gets a status report
    bool replyPath = false;              ///< TP-RP
    Address originator;                  ///< TP-OA
    std::uint8_t protocol = 0;           ///< TP-PID
    DataCoding coding;                   ///< TP-DCS
    Timestamp timestamp;                 ///< TP-SCTS
    UserData userData;                   ///< TP-UDL and TP-UD
};

/// SMS-DELIVER-REPORT, mobile to service centre, clause 9.2.2.1a. TP-FCS where it reports an error.
struct DeliverReport {
    std::optional<std::uint8_t> failureCause;       ///< TP-FCS
    std::optional<std::uint8_t> parameterIndicator; ///< the first octet of TP-PI
    std::optional<std::uint8_t> protocol;           ///< TP-PID
    std::optional<DataCoding> coding;               ///< TP-DCS
    std::optional<UserData> userData;               ///< TP-UDL and TP-UD
};

/// SMS-SUBMIT, mobile to service centre, clause 9.2.2.2.
struct Submit {
    bool rejectDuplicates = false;    ///< TP-RD
    bool statusReportRequest = false; ///< TP-SRR
    bool replyPath = false;           ///< TP-RP
    std::uint8_t reference = 0;       ///< TP-MR
    Address destination;              ///< TP-DA
    std::uint8_t protocol = 0;        ///< TP-PID
    DataCoding coding;                ///< TP-DCS
    Validity validity;                ///< TP-VPF and TP-VP
    UserData userData;                ///< TP-UDL and TP-UD
};

/// SMS-SUBMIT-REPORT, service centre to mobile, clause 9.2.2.2a. TP-FCS where it reports an error.
struct SubmitReport {
    std::optional<std::uint8_t> failureCause;       ///< TP-FCS
    std::optional<std::uint8_t> parameterIndicator; ///< the first octet of TP-PI
    Timestamp timestamp;                            ///< TP-SCTS
    std::optional<std::uint8_t> protocol;           ///< TP-PID
    std::optional<DataCoding> coding;               ///< TP-DCS
    std::optional<UserData> userData;               ///< TP-UDL and TP-UD
};

/// SMS-STATUS-REPORT, service centre to mobile, clause 9.2.2.3.
struct StatusReport {
    bool moreMessages = false;   ///< more messages wait: TP-MMS is 0
    bool loopPrevention = false; ///< TP-LP: forwarded or spawned; stop a loop
    bool isForCommand = false;   ///< the result of an SMS-COMMAND, not of an SMS-SUBMIT: TP-SRQ
    std::uint8_t reference = 0;  ///< TP-MR
    Address recipient;           ///< TP-RA
    Timestamp timestamp;         ///< when the service centre received the message
    Timestamp discharge;         ///< when it was delivered, or last tried
    std::uint8_t status = 0;     ///< TP-ST
    std::optional<std::uint8_t> parameterIndicator; ///< the first octet of TP-PI
    std::optional<std::uint8_t> protocol;           ///< TP-PID
    std::optional<DataCoding> coding;               ///< TP-DCS
    std::optional<UserData> userData;               ///< TP-UDL and TP-UD
};

/// SMS-COMMAND, mobile to service centre, clause 9.2.2.4.
struct Command {
    bool statusReportRequest = false; ///< TP-SRR
    std::uint8_t reference = 0;       ///< TP-MR
    std::uint8_t protocol = 0;        ///< TP-PID
    std::uint8_t commandType = 0;     ///< TP-CT
    std::uint8_t messageNumber = 0;   ///< TP-MN: the TP-MR of the message that the command is about
    Address destination;              ///< TP-DA
    UserData data;                    ///< TP-CDL and TP-CD, as 8-bit data, with a header where TP-UDHI is set
};

/// One TPDU. The alternatives have the order of TpduType.
using Tpdu =
    std::variant<std::monostate, Deliver, DeliverReport, Submit, SubmitReport, StatusReport, Command>;

/// Which alternative it is.
inline TpduType TypeOf(const Tpdu& tpdu) noexcept {
    return static_cast<TpduType>(tpdu.index());
}

/// What all types have in common, where they have it; null where the type, or this PDU, lacks it. What is
/// returned belongs to `tpdu`.
/// @{
MESSAGES_API const Address* PartyOf(const Tpdu& tpdu) noexcept; ///< originator, destination or recipient
/// TP-UD, or a command's data.
MESSAGES_API const UserData* UserDataOf(const Tpdu& tpdu) noexcept;
/// TP-DCS.
MESSAGES_API const DataCoding* CodingOf(const Tpdu& tpdu) noexcept;
MESSAGES_API const Timestamp* TimestampOf(const Tpdu& tpdu) noexcept; ///< TP-SCTS
/// @}

} // namespace Messages

#endif
