/// @file
/// Reads a PDU, 3GPP TS 23.040: Read() is all that most need.
///
/// \code
/// const std::string_view digits = "0791214365870921040B912143658709F100002120312143658005C8329BFD06";
/// const Messages::Reading reading = Messages::ReadHex(digits);
/// if (const auto* deliver = std::get_if<Messages::Deliver>(&reading.tpdu))
///     std::cout << deliver->originator.ToString() << ": " << deliver->userData.text;
/// \endcode
///
/// Any octets may be given, of any number. A fault ends the reading, and there is at most one; a remark says
/// that something is unusual and ends nothing. What was read before a fault is there.
#ifndef MESSAGES_READ_H
#define MESSAGES_READ_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "Messages/Address.h"
#include "Messages/Export.h"
#include "Messages/Octets.h"
#include "Messages/Remarks.h"
#include "Messages/Tpdu.h"

namespace Messages {

/// Which way a TPDU goes; together with TP-MTI it gives the type, clause 9.2.3.1.
enum class Direction : std::uint8_t { Unknown, ToMobile, FromMobile };

/// Whether something is there, where the octets alone do not say so.
enum class Presence : std::uint8_t { Unknown, Yes, No };

/// What the reader knows beside the octets.
struct ReadOptions {
    /// Whether the TPDU stands after a service-centre address, as modems have it. Unknown: an announced
    /// length decides, else the sound reading; where both or neither are sound, the one with a service
    /// centre.
    Presence serviceCentre = Presence::Unknown;
    /// Unknown: the first sound reading of SMS-DELIVER, SMS-SUBMIT, SMS-STATUS-REPORT and then the other type
    /// of the same TP-MTI, which is remarked as guessed; where none is sound, one of these three.
    Direction direction = Direction::Unknown;
    /// Whether a DELIVER-REPORT or SUBMIT-REPORT has TP-FCS. Unknown: an octet of 0x80 or above after the
    /// first one is one.
    Presence failureCause = Presence::Unknown;
    /// Octets of the TPDU as a modem announces them, without the service-centre address.
    std::optional<std::uint32_t> announcedLength = std::nullopt;
};

/// What a PDU says.
struct MESSAGES_API Reading {
    /// There, but empty, where its length is 0. Its text is digits, whatever its type.
    std::optional<Address> serviceCentre;
    bool isServiceCentreGuessed = false;      ///< neither the options nor an announced length told
    Direction direction = Direction::Unknown; ///< as given, or as the type has it where there is one
    Tpdu tpdu;                                ///< as much of it as was read
    /// In the order of the octets; those of the first octet by their bits, from bit 0 on. Each bit of each
    /// octet is in one of them; but what comes after a reserved type is in none.
    std::vector<FieldPlace> places;
    std::vector<Remark> remarks; ///< in the order in which they were met
    std::optional<Fault> fault;  ///< that ended the reading

    /// Which type the TPDU has; none where a fault came before it.
    TpduType Type() const noexcept { return TypeOf(tpdu); }

    /// Without a fault, nothing missing or left over, every type of address with bit 7 set, no address of
    /// more than 20 digits, times in range, a header that adds up.
    bool IsSound() const noexcept;
};

/// Reads one PDU. Takes time linear in the number of octets, reads none outside, keeps none of them.
///
/// Threads: any number at once; there are no locks and no state. Failure: in the result; std::bad_alloc alone
/// is thrown.
MESSAGES_API Reading Read(OctetView pdu, const ReadOptions& options = {});

/// The same into a reading that was used before, whose memory is used again. REQUIRES that `pdu` is no part
/// of it.
MESSAGES_API void Read(OctetView pdu, const ReadOptions& options, Reading& reading);

/// Told of each field, remark and fault as it is met. Nothing is kept, and nothing is allocated.
class MESSAGES_API Visitor {
public:
    virtual ~Visitor();
    /// A field, or a piece of one, in the order of Reading::places.
    virtual void OnPlace(const FieldPlace& place);
    /// A remark, in the order of Reading::remarks.
    virtual void OnRemark(const Remark& remark);
    /// The fault, at most once and last.
    virtual void OnFault(const Fault& fault);
};

/// Walks over the octets without making values: as Read() in everything else. What the visitor throws passes
/// through.
MESSAGES_API void Walk(OctetView pdu, const ReadOptions& options, Visitor& visitor);

/// Read() of hexadecimal digits, see FromHex(). Any other text gives a reading with the fault
/// `NotHexadecimal`, and nothing else.
MESSAGES_API Reading ReadHex(std::string_view digits, const ReadOptions& options = {});

} // namespace Messages

#endif
