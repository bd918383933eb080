#include "Messages/Words.h"

#include <gtest/gtest.h>

namespace {

using namespace Messages;

TEST(NameOf, Types) {
    EXPECT_EQ(NameOf(TpduType::None), "");
    EXPECT_EQ(NameOf(TpduType::Deliver), "SMS-DELIVER");
    EXPECT_EQ(NameOf(TpduType::DeliverReport), "SMS-DELIVER-REPORT");
    EXPECT_EQ(NameOf(TpduType::Submit), "SMS-SUBMIT");
    EXPECT_EQ(NameOf(TpduType::SubmitReport), "SMS-SUBMIT-REPORT");
    EXPECT_EQ(NameOf(TpduType::StatusReport), "SMS-STATUS-REPORT");
    EXPECT_EQ(NameOf(TpduType::Command), "SMS-COMMAND");
}

TEST(NameOf, Fields) {
    const struct {
        Field field;
        const char* name;
        const char* description;
    } cases[] = {
        {Field::ServiceCentre, "service centre", "service-centre address"},
        {Field::MessageType, "TP-MTI", "message type indicator"},
        {Field::MoreMessages, "TP-MMS", "more messages to send"},
        {Field::LoopPrevention, "TP-LP", "loop prevention"},
        {Field::RejectDuplicates, "TP-RD", "reject duplicates"},
        {Field::ValidityFormat, "TP-VPF", "validity period format"},
        {Field::StatusReportIndication, "TP-SRI", "status report indication"},
        {Field::StatusReportRequest, "TP-SRR", "status report request"},
        {Field::StatusReportQualifier, "TP-SRQ", "status report qualifier"},
        {Field::UserDataHeaderIndicator, "TP-UDHI", "user-data header indicator"},
        {Field::ReplyPath, "TP-RP", "reply path"},
        {Field::UnusedBits, "unused bits", "bits that the type does not use"},
        {Field::MessageReference, "TP-MR", "message reference"},
        {Field::OriginatingAddress, "TP-OA", "originating address"},
        {Field::DestinationAddress, "TP-DA", "destination address"},
        {Field::RecipientAddress, "TP-RA", "recipient address"},
        {Field::ProtocolIdentifier, "TP-PID", "protocol identifier"},
        {Field::DataCodingScheme, "TP-DCS", "data coding scheme"},
        {Field::ServiceCentreTimestamp, "TP-SCTS", "service-centre time stamp"},
        {Field::DischargeTime, "TP-DT", "discharge time"},
        {Field::ValidityPeriod, "TP-VP", "validity period"},
        {Field::Status, "TP-ST", "status"},
        {Field::FailureCause, "TP-FCS", "failure cause"},
        {Field::ParameterIndicator, "TP-PI", "parameter indicator"},
        {Field::CommandType, "TP-CT", "command type"},
        {Field::MessageNumber, "TP-MN", "message number"},
        {Field::CommandDataLength, "TP-CDL", "command data length"},
        {Field::CommandData, "TP-CD", "command data"},
        {Field::UserDataLength, "TP-UDL", "user data length"},
        {Field::HeaderLength, "header length", "length of the user-data header"},
        {Field::HeaderElement, "header element", "information element of the user-data header"},
        {Field::IgnoredHeader, "ignored header", "octets of a user-data header that do not add up"},
        {Field::FillBits, "fill bits", "bits between the header and the first septet"},
        {Field::UserData, "TP-UD", "user data"},
        {Field::Surplus, "surplus", "octets after the end"},
        {Field::SerialNumber, "serial number", "scope, message code and update number"},
        {Field::MessageIdentifier, "message identifier", "what the message is about"},
        {Field::CellDataCoding, "data coding scheme", "data coding scheme of cell broadcast"},
        {Field::PageParameter, "page parameter", "number of the page, and of pages"},
        {Field::CellMessageType, "message type", "type of a message of cell broadcast"},
        {Field::PageCount, "number of pages", "pages of the message"},
        {Field::PageLanguage, "language", "language before the text of a page"},
        {Field::PageContent, "content", "content of a page"},
        {Field::PageFilling, "filling", "octets of a page that are not used"},
        {Field::PageLength, "page length", "octets of a page that are used"},
        {Field::WarningType, "warning type", "type of a warning, and how it is shown"},
        {Field::WarningTime, "warning time", "when the warning was signed"},
        {Field::WarningSignature, "signature", "signature of a warning"},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(NameOf(one.field), one.name);
        EXPECT_EQ(DescriptionOf(one.field), one.description);
    }
}

TEST(NameOf, Languages) {
    const char* const names[] = {"default alphabet", "Turkish", "Spanish", "Portuguese", "Bengali",
                                 "Gujarati",         "Hindi",   "Kannada", "Malayalam",  "Oriya",
                                 "Punjabi",          "Tamil",   "Telugu",  "Urdu"};
    for (std::uint8_t i = 0; i <= c_lastLanguage; ++i)
        EXPECT_EQ(NameOf(static_cast<Language>(i)), names[i]);
}

TEST(NameOf, Alphabets) {
    EXPECT_EQ(NameOf(Alphabet::Gsm7), "GSM 7-bit");
    EXPECT_EQ(NameOf(Alphabet::Data), "8-bit data");
    EXPECT_EQ(NameOf(Alphabet::Ucs2), "UCS2");
}

TEST(NameOf, TypesOfNumber) {
    const char* const names[] = {"unknown",    "international", "national",    "network specific",
                                 "subscriber", "alphanumeric",  "abbreviated", "reserved for extension"};
    for (std::uint8_t i = 0; i < 8; ++i)
        EXPECT_EQ(NameOf(static_cast<TypeOfNumber>(i)), names[i]);
}

TEST(NameOf, NumberingPlans) {
    const char* const names[] = {"unknown",
                                 "ISDN or telephone (E.164)",
                                 "reserved",
                                 "data (X.121)",
                                 "telex",
                                 "service-centre specific",
                                 "service-centre specific",
                                 "reserved",
                                 "national",
                                 "private",
                                 "ERMES",
                                 "reserved",
                                 "reserved",
                                 "reserved",
                                 "reserved",
                                 "reserved for extension"};
    for (std::uint8_t i = 0; i < 16; ++i)
        EXPECT_EQ(NameOfNumberingPlan(i), names[i]);
}

TEST(NameOf, WhatWaits) {
    EXPECT_EQ(NameOf(WaitingType::Voice), "voice");
    EXPECT_EQ(NameOf(WaitingType::Fax), "fax");
    EXPECT_EQ(NameOf(WaitingType::Email), "e-mail");
    EXPECT_EQ(NameOf(WaitingType::Other), "other");
}

// Both ends of ranges, so that each value finds its own row.

TEST(Meaning, Protocols) {
    EXPECT_EQ(MeaningOfProtocol(0x00), "mobile to mobile");
    EXPECT_EQ(MeaningOfProtocol(0x01), "protocol between the mobiles, in bits 4 to 0");
    EXPECT_EQ(MeaningOfProtocol(0x1F), "protocol between the mobiles, in bits 4 to 0");
    EXPECT_EQ(MeaningOfProtocol(0x22), "group 3 telefax");
    EXPECT_EQ(MeaningOfProtocol(0x40), "short message type 0");
    EXPECT_EQ(MeaningOfProtocol(0x7F), "(U)SIM data download");
    EXPECT_EQ(MeaningOfProtocol(0x80), "reserved");
    EXPECT_EQ(MeaningOfProtocol(0xBF), "reserved");
    EXPECT_EQ(MeaningOfProtocol(0xC0), "service-centre specific");
    EXPECT_EQ(MeaningOfProtocol(0xFF), "service-centre specific");
}

TEST(Meaning, Statuses) {
    const struct {
        std::uint8_t status;
        const char* meaning;
        const char* outcome;
    } cases[] = {
        {0x00, "received by the recipient", "completed"},
        {0x1F, "service-centre specific", "completed"},
        {0x20, "congestion", "temporary error, the service centre tries on"},
        {0x3F, "service-centre specific", "temporary error, the service centre tries on"},
        {0x46, "validity period expired", "permanent error"},
        {0x60, "congestion", "temporary error, the service centre tries no more"},
        {0x7F, "service-centre specific", "temporary error, the service centre tries no more"},
        {0x80, "reserved", "reserved"},
        {0xFF, "reserved", "reserved"},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(MeaningOfStatus(one.status), one.meaning);
        EXPECT_EQ(ClassOfStatus(one.status), one.outcome);
    }
}

TEST(Meaning, FailureCauses) {
    EXPECT_EQ(MeaningOfFailureCause(0x00), "reserved");
    EXPECT_EQ(MeaningOfFailureCause(0x80), "telematic interworking not supported");
    EXPECT_EQ(MeaningOfFailureCause(0xD3), "memory full");
    EXPECT_EQ(MeaningOfFailureCause(0xFE), "application specific");
    EXPECT_EQ(MeaningOfFailureCause(0xFF), "unspecified");
}

TEST(Meaning, CommandTypes) {
    EXPECT_EQ(MeaningOfCommandType(0x00), "enquire about a message");
    EXPECT_EQ(MeaningOfCommandType(0x02), "delete a message");
    EXPECT_EQ(MeaningOfCommandType(0x04), "reserved");
    EXPECT_EQ(MeaningOfCommandType(0xFF), "service-centre specific");
}

TEST(NameOf, HeaderElements) {
    EXPECT_EQ(NameOfElement(0x00), "concatenation, 8-bit reference");
    EXPECT_EQ(NameOfElement(0x12), "variable picture");
    EXPECT_EQ(NameOfElement(0x25), "national language locking shift");
    EXPECT_EQ(NameOfElement(0x70), "(U)SIM toolkit security header");
    EXPECT_EQ(NameOfElement(0xDF), "service-centre specific");
    EXPECT_EQ(NameOfElement(0xFF), "reserved");
}

TEST(Meaning, Ports) {
    const Ports narrow{false, 0, 0};
    const Ports wide{true, 0, 0};
    EXPECT_EQ(MeaningOfPort(narrow, 239), "reserved");
    EXPECT_EQ(MeaningOfPort(narrow, 240), "free for applications");
    EXPECT_EQ(MeaningOfPort(narrow, 256), "") << "no port of 8 bits";
    EXPECT_EQ(MeaningOfPort(wide, 240), "assigned by IANA");
    EXPECT_EQ(MeaningOfPort(wide, 16000), "free for applications");
    EXPECT_EQ(MeaningOfPort(wide, 65535), "reserved");
}

TEST(Meaning, Classes) {
    EXPECT_EQ(MeaningOfClass(0), "immediate display");
    EXPECT_EQ(MeaningOfClass(1), "mobile equipment");
    EXPECT_EQ(MeaningOfClass(2), "(U)SIM");
    EXPECT_EQ(MeaningOfClass(3), "terminal equipment");
}

} // namespace
