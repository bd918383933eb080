/// @file
/// Where fields stand, what is unusual in them, and what is wrong: enumerators and numbers. Words.h has the
/// English.
#ifndef MESSAGES_REMARKS_H
#define MESSAGES_REMARKS_H

#include <cstdint>

#include "Messages/Export.h"

namespace Messages {

/// The fields of all TPDUs, 3GPP TS 23.040 clause 9.2.3, and of cell broadcast, TS 23.041 clause 9.4, in no
/// order that means anything.
enum class Field : std::uint8_t {
    ServiceCentre, ///< the service-centre address before the TPDU
    // in the first octet
    MessageType,             ///< TP-MTI
    MoreMessages,            ///< TP-MMS
    LoopPrevention,          ///< TP-LP
    RejectDuplicates,        ///< TP-RD
    ValidityFormat,          ///< TP-VPF
    StatusReportIndication,  ///< TP-SRI
    StatusReportRequest,     ///< TP-SRR
    StatusReportQualifier,   ///< TP-SRQ
    UserDataHeaderIndicator, ///< TP-UDHI
    ReplyPath,               ///< TP-RP
    UnusedBits,              ///< bits of the first octet that the type does not use
    // after it
    MessageReference,       ///< TP-MR
    OriginatingAddress,     ///< TP-OA
    DestinationAddress,     ///< TP-DA
    RecipientAddress,       ///< TP-RA
    ProtocolIdentifier,     ///< TP-PID
    DataCodingScheme,       ///< TP-DCS
    ServiceCentreTimestamp, ///< TP-SCTS
    DischargeTime,          ///< TP-DT
    ValidityPeriod,         ///< TP-VP
    Status,                 ///< TP-ST
    FailureCause,           ///< TP-FCS
    ParameterIndicator,     ///< TP-PI, one place an octet
    CommandType,            ///< TP-CT
    MessageNumber,          ///< TP-MN
    CommandDataLength,      ///< TP-CDL
    CommandData,            ///< TP-CD, without its header
    UserDataLength,         ///< TP-UDL
    HeaderLength,           ///< the length octet of the user-data header
    HeaderElement,          ///< one element
    IgnoredHeader,          ///< octets of a header whose elements do not add up
    FillBits,               ///< between the header and the first septet
    UserData,               ///< TP-UD after its header
    Surplus,                ///< octets after the TPDU, or after what cell broadcast sends
    // of cell broadcast
    SerialNumber,      ///< scope, message code and update number
    MessageIdentifier, ///< what the message is about
    CellDataCoding,    ///< the data coding scheme
    PageParameter,     ///< page and pages, of a GSM page
    CellMessageType,   ///< of a UMTS message
    PageCount,         ///< of a UMTS message
    PageLanguage,      ///< that stands before the text of a page
    PageContent,       ///< of a page, after its header and its language; with the padding
    PageFilling,       ///< octets of a UMTS message's page that are not used
    PageLength,        ///< octets that are used of it
    WarningType,       ///< of an ETWS primary notification
    WarningTime,       ///< when it was signed
    WarningSignature   ///< octets
};

/// Which octets of a field a place covers, for the fields that have an inner order.
enum class Piece : std::uint8_t {
    Whole,         ///< the field, or of the first octet its bits
    Length,        ///< of an address, or of a header element
    TypeOfAddress, ///< of an address
    Digits,        ///< of an address, or its name in septets
    Identifier,    ///< of a header element
    Content        ///< of a header element
};

/// Where a field, or a piece of one, stands.
struct FieldPlace {
    Field field = Field::MessageType; ///< that it is about
    Piece piece = Piece::Whole;       ///< of the field
    std::uint8_t mask = 0xFF;         ///< its bits of `octet`, where it is not all of them
    std::uint8_t value = 0;           ///< of a field in the TPDU's first octet: its bits, moved to the right
    std::uint32_t octet = 0;          ///< the first one, from 0
    std::uint32_t count = 0;          ///< octets
};

/// What is unusual in a PDU that can be read. None of them stops the reading. The comment says what the
/// remark's `number` and `other` are, where they are anything but 0.
enum class RemarkCode : std::uint8_t {
    // the whole
    TypeGuessed, ///< without a direction: the type is the less likely one of its TP-MTI, as that one is sound
    ReservedType,    ///< TP-MTI 3 towards the mobile, read as an SMS-DELIVER
    LengthDisagrees, ///< number: octets announced for the TPDU; other: octets found
    UnusedBitsSet,   ///< number: the bits of the first octet that the type does not use and that are set
    SurplusOctets,   ///< number: octets after the TPDU
    // addresses
    ExtensionBitClear,     ///< bit 7 of the type of address is 0
    ReservedTypeOfNumber,  ///< type of number 7
    ReservedNumberingPlan, ///< number: the numbering plan
    AddressTooLong,        ///< number: semi-octets, over 20
    FillerInside,    ///< number: the position, from 0, of a filler 1111 among the digits, which ends them
    FillerMissing,   ///< number: the semi-octet after an odd number of digits, which is not 1111
    PossibleFilling, ///< the last septet of a name is 0: "@", or filling
    AddressBitsLeft, ///< bits after the last septet of a name are set
    // times
    TimeSemiOctet,  ///< number: the octet of the field, from 0, that has a semi-octet above 9
    TimeOutOfRange, ///< number: the octet of the field, from 0, whose part is out of range
    TimeAllZero,    ///< all octets of the time are 0
    // validity
    ReservedValidity,  ///< number: the first octet of the enhanced format, with a reserved format or reserved
                       ///< bits
    ValidityExtension, ///< number: the same octet, which says that another one of its kind follows
    ValiditySecondsZero, ///< the enhanced format's seconds are 0, which is reserved
    ValidityOctetsSet,   ///< unused octets of the enhanced format are not 0
    // values
    ReservedProtocol,           ///< number: TP-PID
    ReservedDataCoding,         ///< number: the data coding scheme
    ReservedStatus,             ///< number: TP-ST
    ReservedFailureCause,       ///< number: TP-FCS
    ReservedCommandType,        ///< number: TP-CT
    ReservedParameterBits,      ///< number: the bits of TP-PI that are reserved and set
    ExtendedParameterIndicator, ///< number: octets of TP-PI, more than one
    // user data
    UserDataMissing, ///< number: septets or octets announced; other: those that are there
    UserDataTooLong, ///< number: octets of TP-UD; other: the most that the type allows
    Compressed,      ///< no text is made
    SpareBitsSet,    ///< number: the bits after the last septet, which are not 0
    FillBitsSet,     ///< number: the fill bits, which are not 0
    // user-data header
    HeaderMissing,        ///< a header is announced and there is no user data
    HeaderBeyondUserData, ///< number: octets of the header; other: octets of the user data that are there. No
                          ///< text
    HeaderOverrun,        ///< number: octets that the last element lacks; the header is ignored
    HeaderLeftOver,       ///< number: octets after the last element that are none; the header is ignored
    ElementRepeated,   ///< number: the identifier of an element that may stand once; the last valid one holds
    ElementsExclusive, ///< number, other: identifiers that exclude each other; the last valid one holds
    ElementLength,     ///< number: the identifier; other: the length, which its kind does not have
    ReservedElement,   ///< number: an identifier that is reserved
    ConcatenationInvalid, ///< number: the part; other: the total. The element is ignored
    UnknownLanguage,      ///< number: the language; other: the identifier of the element, which is ignored
    // text
    EscapeAtEnd,   ///< a lone escape is the last septet; it shows nothing
    UnknownEscape, ///< number: the septet after an escape that the single shift table lacks; other: the place
                   ///< of
                   ///< the escape, in septets of the text from 0
    ControlEscape, ///< escape, 0D: a control code, which shows nothing; other: as above
    NoCharacter,   ///< number: a septet without a character in the locking table; other: its place
    UnpairedSurrogate, ///< number: the UTF-16 unit; other: its place, in units of the text from 0
    OddOctet,          ///< UCS2 text of an odd number of octets; number: the last octet, which is passed over
    // user-data header, once more
    HeaderNotCounted, ///< number: septets announced; other: those of the header with its fill bits, one more
    // cell broadcast
    PageSurplus,           ///< number: octets after the page, message or notification
    PageParameterZero,     ///< number: the page parameter, half of which is 0; read as page 1 of 1
    PageBeyondTotal,       ///< number: the page; other: the pages
    ReservedCellType,      ///< number: the message type, which is not that of a CBS message
    ReservedPageCount,     ///< number: the number of pages; 0 is read as 1, and more than 15 as 15
    PagesMissing,          ///< number: pages announced; other: pages wholly there
    ReservedPageLength,    ///< number: the octets said to be used, 0 or more than 82
    LanguageMissing,       ///< the first page has no language where its coding says that there is one
    PagePossibleFilling,   ///< number: septets of 0 at the end, "@" or filling
    NoWarningIdentifier,   ///< number: the message identifier of a notification, which is none of ETWS
    ReservedWarningType,   ///< number: the warning type
    WarningFillingSet,     ///< number: bits 6 to 0 of the warning type, which are not 0
    WarningSecurityMissing ///< a notification without time and signature
};

/// One remark.
struct Remark {
    RemarkCode code = RemarkCode::TypeGuessed; ///< what it is
    Field field = Field::MessageType;          ///< that it is about
    std::uint32_t octet = 0;                   ///< of the PDU, from 0, that it is about
    std::uint32_t number = 0;                  ///< see the code
    std::uint32_t other = 0;                   ///< see the code
};

/// What ends the reading.
enum class FaultCode : std::uint8_t {
    Empty,         ///< there is not one octet
    FieldCut,      ///< the octets end inside a field that must be there
    ReservedType,  ///< TP-MTI 3 from the mobile
    NotHexadecimal ///< octet: the pair of digits, from 0, that is none, or lacks one
};

/// The fault of a PDU. What was read before it holds.
struct Fault {
    FaultCode code = FaultCode::Empty; ///< what it is
    Field field = Field::MessageType;  ///< that it is about
    std::uint32_t octet = 0;           ///< of the PDU, from 0, where the field begins
    std::uint32_t expected = 0;        ///< octets that the field takes
    std::uint32_t found = 0;           ///< octets of it that are there
};

} // namespace Messages

#endif
