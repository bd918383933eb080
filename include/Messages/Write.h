/// @file
/// Writes a PDU, 3GPP TS 23.040: the way back from Read.h.
///
/// \code
/// Messages::Submit submit;
/// Messages::ToNumber("+49 170 1234567", submit.destination);
/// std::vector<std::uint8_t> septets;
/// Messages::AppendSeptets("Hello", {}, septets);
/// submit.userData = *Messages::MakeUserData(submit.coding, {}, septets);
/// const Messages::Written written = Messages::Write(submit, Messages::Address{});
/// std::cout << "AT+CMGS=" << written.tpduOctets << '\n' << Messages::ToHex(written.octets);
/// \endcode
///
/// What a message may hold is checked: there is a fault instead of a PDU that would be read as another one.
/// What Read() gave without a remark is written as it was, octet for octet.
#ifndef MESSAGES_WRITE_H
#define MESSAGES_WRITE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "Messages/Address.h"
#include "Messages/DataCoding.h"
#include "Messages/Export.h"
#include "Messages/Octets.h"
#include "Messages/Remarks.h"
#include "Messages/Tpdu.h"

namespace Messages {

/// Why a PDU is not written. The comment says what the fault's `number` and `other` are, where they are
/// anything but 0.
enum class WriteFaultCode : std::uint8_t {
    NoType, ///< there is no message
    // addresses
    ExtensionBitClear, ///< bit 7 of the type of address is 0
    AddressCharacter,  ///< number: a character that no number, or no name, has; other: its octet in the text
    AddressTooLong,    ///< number: semi-octets; other: the most that there may be
    // times
    NoTime,          ///< the octets are none
    TimeDisagrees,   ///< the members say another time than the octets
    ValidityInvalid, ///< number: the octet of the field, from 0, that is reserved or out of range
    // values
    FailureCauseTooLow,    ///< number: TP-FCS, below 0x80, which would be taken for TP-PI
    ReservedParameterBits, ///< number: the bits of TP-PI that are reserved and set
    // user data
    UserDataLength,  ///< number: octets that TP-UDL announces; other: those that are there
    UserDataTooLong, ///< number: octets; other: the most that there is room for
    HeaderInvalid,   ///< the header is ignored, lies beyond the user data or is missing
    TextDisagrees    ///< the text, or what the header is said to hold, is not what the octets say
};

/// Why a PDU is not written, and which field is to blame.
struct WriteFault {
    WriteFaultCode code = WriteFaultCode::NoType; ///< what it is
    Field field = Field::MessageType;             ///< that it is about
    std::uint32_t number = 0;                     ///< see the code
    std::uint32_t other = 0;                      ///< see the code
};

/// A PDU, or why there is none.
struct Written {
    std::vector<std::uint8_t>
        octets; ///< of the service centre, where there is one, and the TPDU; none with a fault
    std::size_t tpduOctets = 0; ///< those of the TPDU, as modems want to be told; 0 with a fault
    std::optional<WriteFault> fault = std::nullopt; ///< why there is no PDU
};

/// Writes one PDU. Without a service centre the TPDU stands alone; one without digits is the octet 0, for
/// which a modem takes its own.
///
/// Whatever a value holds twice, the octets count: those of times and of user data. The length of an address
/// is used where it announces the text, and worked out elsewhere; so are TP-PI and TP-VPF. Reserved values
/// are written as they are.
///
/// Threads: any number at once; there are no locks and no state. Failure: in the result; std::bad_alloc alone
/// is thrown.
MESSAGES_API Written Write(const Tpdu& tpdu, const std::optional<Address>& serviceCentre = std::nullopt);

/// The same into a result that was used before, whose memory is used again. REQUIRES that `tpdu` and
/// `serviceCentre` are no part of it.
MESSAGES_API void Write(const Tpdu& tpdu, const std::optional<Address>& serviceCentre, Written& written);

/// User data of header elements and content: septets, one an octet, where the coding counts septets, and
/// octets elsewhere. `elements` has the elements, each its identifier, its length and its data, without the
/// octet of the header's length; none where there is no header. A command's data has the data coding 4.
/// Nothing where TP-UDL cannot count it. Elements that do not add up are for Write() to refuse. REQUIRES
/// septets < 128. Throws std::bad_alloc alone.
MESSAGES_API std::optional<UserData> MakeUserData(const DataCoding& coding, OctetView elements,
                                                  OctetView content);

} // namespace Messages

#endif
