// Each type: its fields in their order, its values, and where everything stands.
#include <gtest/gtest.h>

#include "messages/Readings.h"

namespace {

using namespace Messages;
using tests::FaultOf;
using tests::FromMobile;
using tests::PlacesOf;
using tests::RemarksOf;
using tests::ToMobile;

TEST(Deliver, EveryField) {
    // TP-MMS 0, TP-LP, TP-SRI, TP-UDHI, TP-RP; a header with concatenation 42, 2 of 3; "Hi" after one fill
    // bit.
    const Reading reading = ReadHex("E8"
                                    "0B912143658709F1"
                                    "3C"
                                    "00"
                                    "21203121436580"
                                    "09"
                                    "0500032A0302"
                                    "9069",
                                    ToMobile());
    EXPECT_EQ(FaultOf(reading) + RemarksOf(reading), "");
    const Deliver& deliver = std::get<Deliver>(reading.tpdu);
    EXPECT_TRUE(deliver.moreMessages);
    EXPECT_TRUE(deliver.loopPrevention);
    EXPECT_TRUE(deliver.statusReportIndication);
    EXPECT_TRUE(deliver.replyPath);
    EXPECT_EQ(deliver.originator.ToString(), "+12345678901");
    EXPECT_EQ(deliver.protocol, 0x3C);
    EXPECT_EQ(deliver.coding.value, 0);
    EXPECT_EQ(deliver.timestamp.ToString(), "2012-02-13T12:34:56+02:00");
    const UserData& data = deliver.userData;
    EXPECT_EQ(data.length, 9);
    EXPECT_EQ(ToHex(data.octets), "0500032A03029069");
    EXPECT_TRUE(data.hasHeader);
    EXPECT_FALSE(data.isHeaderIgnored);
    ASSERT_EQ(data.elements.size(), 1U);
    EXPECT_TRUE(data.elements[0].Is(ElementId::Concatenation8));
    EXPECT_EQ(ToHex(data.elements[0].Data(data.octets)), "2A0302");
    EXPECT_EQ(data.concatenation, (Concatenation{false, 42, 3, 2}));
    EXPECT_EQ(data.textOffset, 6);
    EXPECT_EQ(data.fillBits, 1);
    EXPECT_EQ(data.textUnits, 2);
    EXPECT_EQ(data.text, "Hi");
    EXPECT_EQ(ToHex(data.Content()), "9069");
    EXPECT_EQ(
        PlacesOf(reading),
        "TP-MTI 0/03=0, TP-MMS 0/04=0, TP-LP 0/08=1, unused bits 0/10=0, TP-SRI 0/20=1, TP-UDHI 0/40=1, "
        "TP-RP 0/80=1, TP-OA 1 length, TP-OA 2 type, TP-OA 3+6 digits, TP-PID 9, TP-DCS 10, TP-SCTS 11+7, "
        "TP-UDL 18, header length 19, header element 20 identifier, header element 21 length, header element "
        "22+3 content, fill bits 25/01=0, TP-UD 25/FE=0+2");
}

TEST(Deliver, TypeThreeTowardsTheMobileIsOne) {
    const Reading reading = ReadHex("070B912143658709F100002120312143658005C8329BFD06", ToMobile());
    EXPECT_EQ(RemarksOf(reading), "reserved-type at 0");
    EXPECT_EQ(std::get<Deliver>(reading.tpdu).userData.text, "Hello");
}

TEST(Submit, EveryField) {
    // TP-RD, TP-VPF relative, TP-SRR, TP-RP.
    const Reading reading = ReadHex("B52A04811032"
                                    "0004"
                                    "0B"
                                    "01AA",
                                    FromMobile());
    EXPECT_EQ(FaultOf(reading) + RemarksOf(reading), "");
    const Submit& submit = std::get<Submit>(reading.tpdu);
    EXPECT_TRUE(submit.rejectDuplicates);
    EXPECT_TRUE(submit.statusReportRequest);
    EXPECT_TRUE(submit.replyPath);
    EXPECT_EQ(submit.reference, 42);
    EXPECT_EQ(submit.destination.ToString(), "0123");
    EXPECT_EQ(submit.protocol, 0);
    EXPECT_EQ(submit.coding.alphabet, Alphabet::Data);
    EXPECT_EQ(submit.validity.format, ValidityFormat::Relative);
    EXPECT_EQ(submit.validity.Seconds(), 3600U);
    EXPECT_EQ(submit.userData.text, "");
    EXPECT_EQ(ToHex(submit.userData.Content()), "AA");
    EXPECT_EQ(PlacesOf(reading),
              "TP-MTI 0/03=1, TP-RD 0/04=1, TP-VPF 0/18=2, TP-SRR 0/20=1, TP-UDHI 0/40=0, TP-RP "
              "0/80=1, TP-MR 1, TP-DA 2 length, TP-DA 3 type, TP-DA 4+2 digits, TP-PID 6, TP-DCS 7, "
              "TP-VP 8, TP-UDL 9, TP-UD 10");
}

TEST(Submit, HasNoValidityPeriodWithoutAFormat) {
    const Reading reading = ReadHex("012A04811032000400", FromMobile());
    EXPECT_EQ(FaultOf(reading) + RemarksOf(reading), "");
    EXPECT_EQ(std::get<Submit>(reading.tpdu).validity.format, ValidityFormat::None);
}

TEST(StatusReport, EveryField) {
    // TP-SRQ; TP-PI with all three fields.
    const Reading reading = ReadHex("222A04811032"
                                    "21203121436580"
                                    "21203131436580"
                                    "46"
                                    "07"
                                    "1504"
                                    "02AABB",
                                    ToMobile());
    EXPECT_EQ(FaultOf(reading) + RemarksOf(reading), "");
    const StatusReport& report = std::get<StatusReport>(reading.tpdu);
    EXPECT_TRUE(report.moreMessages);
    EXPECT_FALSE(report.loopPrevention);
    EXPECT_TRUE(report.isForCommand);
    EXPECT_EQ(report.reference, 42);
    EXPECT_EQ(report.recipient.ToString(), "0123");
    EXPECT_EQ(report.timestamp.ToString(), "2012-02-13T12:34:56+02:00");
    EXPECT_EQ(report.discharge.ToString(), "2012-02-13T13:34:56+02:00");
    EXPECT_EQ(report.status, 0x46);
    EXPECT_EQ(report.parameterIndicator, 7);
    EXPECT_EQ(report.protocol, 0x15);
    EXPECT_EQ(report.coding, DataCoding(4));
    ASSERT_TRUE(report.userData);
    EXPECT_EQ(ToHex(report.userData->octets), "AABB");
    EXPECT_EQ(PlacesOf(reading), "TP-MTI 0/03=2, TP-MMS 0/04=0, TP-LP 0/08=0, unused bits 0/10=0, TP-SRQ "
                                 "0/20=1, TP-UDHI 0/40=0, unused "
                                 "bits 0/80=0, TP-MR 1, TP-RA 2 length, TP-RA 3 type, TP-RA 4+2 digits, "
                                 "TP-SCTS 6+7, TP-DT 13+7, TP-ST "
                                 "20, TP-PI 21, TP-PID 22, TP-DCS 23, TP-UDL 24, TP-UD 25+2");
}

TEST(StatusReport, MayEndAfterTheStatus) {
    const Reading reading = ReadHex("062A048110322120312143658021203131436580"
                                    "00",
                                    ToMobile());
    EXPECT_EQ(FaultOf(reading) + RemarksOf(reading), "");
    EXPECT_FALSE(std::get<StatusReport>(reading.tpdu).parameterIndicator);
    EXPECT_FALSE(std::get<StatusReport>(reading.tpdu).userData);
}

TEST(StatusReport, WithoutADataCodingTheTextIsInTheDefaultAlphabet) {
    const Reading reading = ReadHex("062A048110322120312143658021203131436580"
                                    "00"
                                    "04"
                                    "05C8329BFD06",
                                    ToMobile());
    EXPECT_EQ(FaultOf(reading) + RemarksOf(reading), "");
    const StatusReport& report = std::get<StatusReport>(reading.tpdu);
    EXPECT_FALSE(report.protocol);
    EXPECT_FALSE(report.coding);
    EXPECT_EQ(report.userData->text, "Hello");
}

TEST(DeliverReport, OfAnAcknowledgement) {
    const Reading reading = ReadHex("00"
                                    "05"
                                    "15"
                                    "05C8329BFD06",
                                    FromMobile());
    EXPECT_EQ(FaultOf(reading) + RemarksOf(reading), "");
    const DeliverReport& report = std::get<DeliverReport>(reading.tpdu);
    EXPECT_FALSE(report.failureCause);
    EXPECT_EQ(report.parameterIndicator, 5);
    EXPECT_EQ(report.protocol, 0x15);
    EXPECT_FALSE(report.coding);
    EXPECT_EQ(report.userData->text, "Hello");
    EXPECT_EQ(PlacesOf(reading),
              "TP-MTI 0/03=0, unused bits 0/3C=0, TP-UDHI 0/40=0, unused bits 0/80=0, TP-PI 1, "
              "TP-PID 2, TP-UDL 3, TP-UD 4+5");
}

TEST(DeliverReport, OfAnError) {
    const Reading reading = ReadHex("00D300", FromMobile());
    EXPECT_EQ(FaultOf(reading) + RemarksOf(reading), "");
    EXPECT_EQ(std::get<DeliverReport>(reading.tpdu).failureCause, 0xD3);
    EXPECT_EQ(PlacesOf(reading),
              "TP-MTI 0/03=0, unused bits 0/3C=0, TP-UDHI 0/40=0, unused bits 0/80=0, TP-FCS 1, "
              "TP-PI 2");
}

TEST(DeliverReport, TheCallerSaysWhetherThereIsAFailureCause) {
    ReadOptions options = FromMobile();
    options.failureCause = Presence::No;
    // TP-PI with its extension bit, and what follows it.
    const Reading without = ReadHex("00810015", options);
    EXPECT_EQ(FaultOf(without), "");
    EXPECT_EQ(RemarksOf(without), "extended-parameter-indicator 2 at 1");
    EXPECT_EQ(std::get<DeliverReport>(without.tpdu).parameterIndicator, 0x81);
    EXPECT_EQ(std::get<DeliverReport>(without.tpdu).protocol, 0x15);
    EXPECT_EQ(PlacesOf(without),
              "TP-MTI 0/03=0, unused bits 0/3C=0, TP-UDHI 0/40=0, unused bits 0/80=0, TP-PI 1, "
              "TP-PI 2, TP-PID 3");
    options.failureCause = Presence::Yes;
    const Reading with = ReadHex("007F00", options);
    EXPECT_EQ(RemarksOf(with), "reserved-failure-cause 127 at 1");
    EXPECT_EQ(std::get<DeliverReport>(with.tpdu).failureCause, 0x7F);
}

TEST(SubmitReport, OfAnAcknowledgement) {
    const Reading reading = ReadHex("01"
                                    "00"
                                    "21203121436580",
                                    ToMobile());
    EXPECT_EQ(FaultOf(reading) + RemarksOf(reading), "");
    const SubmitReport& report = std::get<SubmitReport>(reading.tpdu);
    EXPECT_FALSE(report.failureCause);
    EXPECT_EQ(report.parameterIndicator, 0);
    EXPECT_EQ(report.timestamp.ToString(), "2012-02-13T12:34:56+02:00");
}

TEST(SubmitReport, OfAnErrorWithData) {
    const Reading reading = ReadHex("01"
                                    "C0"
                                    "06"
                                    "21203121436580"
                                    "08"
                                    "020041",
                                    ToMobile());
    EXPECT_EQ(FaultOf(reading) + RemarksOf(reading), "");
    const SubmitReport& report = std::get<SubmitReport>(reading.tpdu);
    EXPECT_EQ(report.failureCause, 0xC0);
    EXPECT_FALSE(report.protocol);
    EXPECT_EQ(report.coding->alphabet, Alphabet::Ucs2);
    EXPECT_EQ(report.userData->text, "A");
}

TEST(Command, EveryField) {
    const Reading reading = ReadHex("222A"
                                    "1502"
                                    "11"
                                    "04811032"
                                    "03AABBCC",
                                    FromMobile());
    EXPECT_EQ(FaultOf(reading) + RemarksOf(reading), "");
    const Command& command = std::get<Command>(reading.tpdu);
    EXPECT_TRUE(command.statusReportRequest);
    EXPECT_EQ(command.reference, 42);
    EXPECT_EQ(command.protocol, 0x15);
    EXPECT_EQ(command.commandType, 2);
    EXPECT_EQ(command.messageNumber, 17);
    EXPECT_EQ(command.destination.ToString(), "0123");
    EXPECT_EQ(ToHex(command.data.octets), "AABBCC");
    EXPECT_EQ(command.data.text, "");
    EXPECT_EQ(PlacesOf(reading),
              "TP-MTI 0/03=2, unused bits 0/1C=0, TP-SRR 0/20=1, TP-UDHI 0/40=0, unused bits 0/80=0, TP-MR "
              "1, TP-PID 2, "
              "TP-CT 3, TP-MN 4, TP-DA 5 length, TP-DA 6 type, TP-DA 7+2 digits, TP-CDL 9, TP-CD 10+3");
}

TEST(Command, ItsDataMayHaveAHeader) {
    const Reading reading = ReadHex("422A0000000481103204020700AA", FromMobile());
    EXPECT_EQ(RemarksOf(reading), "element-length 7 at 11");
    const UserData& data = std::get<Command>(reading.tpdu).data;
    EXPECT_EQ(ToHex(data.Content()), "AA");
    EXPECT_EQ(data.fillBits, 0) << "octets follow a header at once";
}

TEST(WhatTypesHaveInCommon, IsNullWhereTheyLackIt) {
    const Tpdu none;
    EXPECT_EQ(PartyOf(none), nullptr);
    EXPECT_EQ(UserDataOf(none), nullptr);
    EXPECT_EQ(CodingOf(none), nullptr);
    EXPECT_EQ(TimestampOf(none), nullptr);
    const Tpdu report = DeliverReport();
    EXPECT_EQ(PartyOf(report), nullptr);
    EXPECT_EQ(UserDataOf(report), nullptr);
    EXPECT_EQ(CodingOf(report), nullptr);
    EXPECT_EQ(TimestampOf(report), nullptr);
    const Tpdu command = Command();
    EXPECT_EQ(PartyOf(command), &std::get<Command>(command).destination);
    EXPECT_EQ(UserDataOf(command), &std::get<Command>(command).data);
    EXPECT_EQ(CodingOf(command), nullptr);
    const Tpdu status = StatusReport();
    EXPECT_EQ(PartyOf(status), &std::get<StatusReport>(status).recipient);
    EXPECT_EQ(TimestampOf(status), &std::get<StatusReport>(status).timestamp);
    const Tpdu deliver = Deliver();
    EXPECT_EQ(PartyOf(deliver), &std::get<Deliver>(deliver).originator);
    EXPECT_EQ(UserDataOf(deliver), &std::get<Deliver>(deliver).userData);
    EXPECT_EQ(CodingOf(deliver), &std::get<Deliver>(deliver).coding);
}

} // namespace
