// Rows of docs/departures.md: types of messages, flags and status.
#include <gtest/gtest.h>

#include "departures/Messages.h"

namespace {

using namespace Encoding;
using tests::Decoded;
using tests::Deliver;
using tests::Report;

constexpr const char* c_hello = "05 C8 32 9B FD 06";

/// What the first octet of a message is read for.
std::string Flags(const std::string& tpdu) {
    const Decoded message(tpdu);
    return std::to_string(message.m_Result) + " type " + std::to_string(message.m_SmsType) + ", TP-RP " +
           std::to_string(message.m_ReplyPath) + ", TP-UDHI " + std::to_string(message.m_HasUserDataHeader) +
           ", TP-SRR " + std::to_string(message.m_StatusReport) + ", TP-VPF " +
           std::to_string(message.m_ValidityFormat) + ", TP-RD " + std::to_string(message.m_RejectDuplicates);
}

constexpr const char* c_plainDeliver = "1 type 2, TP-RP 0, TP-UDHI 0, TP-SRR 0, TP-VPF 0, TP-RD 0";
constexpr const char* c_plainReport = "1 type 3, TP-RP 0, TP-UDHI 0, TP-SRR 0, TP-VPF 0, TP-RD 0";

TEST(Departures, Direction) {
    const Decoded deliverReport("00 00");
    EXPECT_EQ(deliverReport.m_SmsType, MessageTypeIndicator::TP_MTI_SMS_DELIVER);
    EXPECT_EQ(deliverReport.m_Result, 0);
    const Decoded submitReport("01 00 21 20 31 21 43 65 00");
    EXPECT_EQ(submitReport.m_SmsType, MessageTypeIndicator::TP_MTI_SMS_SUBMIT);
    EXPECT_EQ(submitReport.m_Result, 0);
    const Decoded command("02 01 00 02 2A 04 81 21 43 00");
    EXPECT_EQ(command.m_SmsType, MessageTypeIndicator::TP_MTI_SMS_STATUS_REPORT);
    EXPECT_EQ(command.m_Result, 0);
}

TEST(Departures, ReservedType) {
    const Decoded message(Deliver("07", "00", c_hello));
    EXPECT_EQ(message.m_Result, 1);
    EXPECT_EQ(message.m_SmsType, MessageTypeIndicator::TP_MTI_UNKNOWN);
    EXPECT_EQ(message.m_Originator, L"1234");
    EXPECT_EQ(message.m_Text, L"");
    EXPECT_EQ(message.m_ServiceCentreTime.get(), nullptr);
}

TEST(Departures, MoreMessages) {
    EXPECT_EQ(Flags(Deliver("00", "00", c_hello)), c_plainDeliver);
    EXPECT_EQ(Flags(Deliver("04", "00", c_hello)), c_plainDeliver);
    EXPECT_EQ(Flags(Report("02", "00")), c_plainReport);
    EXPECT_EQ(Flags(Report("06", "00")), c_plainReport);
}

TEST(Departures, LoopPrevention) {
    EXPECT_EQ(Flags(Deliver("0C", "00", c_hello)), c_plainDeliver);
    EXPECT_EQ(Flags(Report("0E", "00")), c_plainReport);
}

TEST(Departures, ReportIndication) {
    EXPECT_EQ(Flags(Deliver("24", "00", c_hello)), c_plainDeliver);
}

TEST(Departures, ReportQualifier) {
    EXPECT_EQ(Flags(Report("26", "00")), c_plainReport);
}

TEST(Departures, ReportRest) {
    const Decoded message(Report("46", "00 07 39 08 08 05 00 03 2A 02 01 00 48")); // TP-PI, TP-PID, TP-DCS, …
    EXPECT_EQ(message.m_Result, 1);
    EXPECT_EQ(message.m_HasUserDataHeader, 0);
    EXPECT_EQ(message.m_ProtocolId, 0);
    EXPECT_EQ(message.m_DataCoding, 0);
    EXPECT_EQ(message.m_UserDataLength, 0);
    EXPECT_EQ(message.m_ConcatTotal, 0);
    EXPECT_EQ(message.m_Text, L"");
}

TEST(Departures, StatusQuality) {
    EXPECT_EQ(Decoded(Report("06", "24")).m_Status, 7);
    EXPECT_EQ(Decoded(Report("06", "44")).m_Status, 7);
}

TEST(Departures, StatusTemporary) {
    for (const char* status : {"60", "61", "62", "63", "64", "65"})
        EXPECT_EQ(Decoded(Report("06", status)).m_Status, DeliveryStatus::ST_UNKNOWN) << status;
}

TEST(Departures, StatusReserved) {
    for (const char* status : {"03", "10", "26", "30", "4A", "50", "66", "70", "80", "FF"})
        EXPECT_EQ(Decoded(Report("06", status)).m_Status, DeliveryStatus::ST_UNKNOWN) << status;
}

/// The first octet of the period, 01, is read as TP-UDL, and the second, A7, as the user data.
TEST(Departures, ValidityEnhanced) {
    const Decoded message("09 00 04 81 21 43 00 04 01 A7 00 00 00 00 00 02 48 69");
    EXPECT_EQ(message.m_Result, 1);
    EXPECT_EQ(message.m_UserDataLength, 1);
    EXPECT_EQ(message.m_Text, L"\u00A7");
}

} // namespace
