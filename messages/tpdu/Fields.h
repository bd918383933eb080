// What each field is called and how it is coded.
#ifndef TPDU_FIELDS_H
#define TPDU_FIELDS_H

#include <stdexcept>
#include <string_view>

#include "Messages/Remarks.h"
#include "Messages/Tpdu.h"

namespace Messages {

/// How the octets of a field are read.
enum class Coding {
    Inside,     ///< a part of another field
    FirstOctet, ///< bits of the first octet
    Octet,
    DataCoding,
    Cause,     ///< TP-FCS
    Indicator, ///< TP-PI
    Address,
    Time,
    Validity,
    UserData, ///< TP-UDL and TP-UD
    Cell,     ///< of cell broadcast
    Command   ///< TP-CDL and TP-CD
};

struct FieldFacts {
    Field field;
    std::string_view name;
    std::string_view description;
    Coding coding;
};

/// In the order of the enumerators.
constexpr FieldFacts c_fieldFacts[] = {
    {Field::ServiceCentre, "service centre", "service-centre address", Coding::Address},
    {Field::MessageType, "TP-MTI", "message type indicator", Coding::FirstOctet},
    {Field::MoreMessages, "TP-MMS", "more messages to send", Coding::FirstOctet},
    {Field::LoopPrevention, "TP-LP", "loop prevention", Coding::FirstOctet},
    {Field::RejectDuplicates, "TP-RD", "reject duplicates", Coding::FirstOctet},
    {Field::ValidityFormat, "TP-VPF", "validity period format", Coding::FirstOctet},
    {Field::StatusReportIndication, "TP-SRI", "status report indication", Coding::FirstOctet},
    {Field::StatusReportRequest, "TP-SRR", "status report request", Coding::FirstOctet},
    {Field::StatusReportQualifier, "TP-SRQ", "status report qualifier", Coding::FirstOctet},
    {Field::UserDataHeaderIndicator, "TP-UDHI", "user-data header indicator", Coding::FirstOctet},
    {Field::ReplyPath, "TP-RP", "reply path", Coding::FirstOctet},
    {Field::UnusedBits, "unused bits", "bits that the type does not use", Coding::FirstOctet},
    {Field::MessageReference, "TP-MR", "message reference", Coding::Octet},
    {Field::OriginatingAddress, "TP-OA", "originating address", Coding::Address},
    {Field::DestinationAddress, "TP-DA", "destination address", Coding::Address},
    {Field::RecipientAddress, "TP-RA", "recipient address", Coding::Address},
    {Field::ProtocolIdentifier, "TP-PID", "protocol identifier", Coding::Octet},
    {Field::DataCodingScheme, "TP-DCS", "data coding scheme", Coding::DataCoding},
    {Field::ServiceCentreTimestamp, "TP-SCTS", "service-centre time stamp", Coding::Time},
    {Field::DischargeTime, "TP-DT", "discharge time", Coding::Time},
    {Field::ValidityPeriod, "TP-VP", "validity period", Coding::Validity},
    {Field::Status, "TP-ST", "status", Coding::Octet},
    {Field::FailureCause, "TP-FCS", "failure cause", Coding::Cause},
    {Field::ParameterIndicator, "TP-PI", "parameter indicator", Coding::Indicator},
    {Field::CommandType, "TP-CT", "command type", Coding::Octet},
    {Field::MessageNumber, "TP-MN", "message number", Coding::Octet},
    {Field::CommandDataLength, "TP-CDL", "command data length", Coding::Command},
    {Field::CommandData, "TP-CD", "command data", Coding::Inside},
    {Field::UserDataLength, "TP-UDL", "user data length", Coding::UserData},
    {Field::HeaderLength, "header length", "length of the user-data header", Coding::Inside},
    {Field::HeaderElement, "header element", "information element of the user-data header", Coding::Inside},
    {Field::IgnoredHeader, "ignored header", "octets of a user-data header that do not add up",
     Coding::Inside},
    {Field::FillBits, "fill bits", "bits between the header and the first septet", Coding::Inside},
    {Field::UserData, "TP-UD", "user data", Coding::Inside},
    {Field::Surplus, "surplus", "octets after the end", Coding::Inside},
    {Field::SerialNumber, "serial number", "scope, message code and update number", Coding::Cell},
    {Field::MessageIdentifier, "message identifier", "what the message is about", Coding::Cell},
    {Field::CellDataCoding, "data coding scheme", "data coding scheme of cell broadcast", Coding::Cell},
    {Field::PageParameter, "page parameter", "number of the page, and of pages", Coding::Cell},
    {Field::CellMessageType, "message type", "type of a message of cell broadcast", Coding::Cell},
    {Field::PageCount, "number of pages", "pages of the message", Coding::Cell},
    {Field::PageLanguage, "language", "language before the text of a page", Coding::Cell},
    {Field::PageContent, "content", "content of a page", Coding::Cell},
    {Field::PageFilling, "filling", "octets of a page that are not used", Coding::Cell},
    {Field::PageLength, "page length", "octets of a page that are used", Coding::Cell},
    {Field::WarningType, "warning type", "type of a warning, and how it is shown", Coding::Cell},
    {Field::WarningTime, "warning time", "when the warning was signed", Coding::Cell},
    {Field::WarningSignature, "signature", "signature of a warning", Coding::Cell},
};

constexpr const FieldFacts& FactsOf(Field field) {
    return c_fieldFacts[static_cast<std::size_t>(field)];
}

constexpr const FieldFacts& FieldNamed(std::string_view name) {
    for (const FieldFacts& facts : c_fieldFacts)
        if (facts.name == name)
            return facts;
    throw std::invalid_argument("no such field");
}

/// In the order of the enumerators.
constexpr std::string_view c_typeNames[] = {"",           "SMS-DELIVER",       "SMS-DELIVER-REPORT",
                                            "SMS-SUBMIT", "SMS-SUBMIT-REPORT", "SMS-STATUS-REPORT",
                                            "SMS-COMMAND"};

/// TpduType::None for no name of a type.
constexpr TpduType TypeNamed(std::string_view name) {
    for (std::size_t i = 0; i < std::size(c_typeNames); ++i)
        if (c_typeNames[i] == name)
            return static_cast<TpduType>(i);
    return TpduType::None;
}

} // namespace Messages

#endif
