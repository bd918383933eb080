// Where a host of libQX_Encoding gets something else than the standard says.
#include "show/compare/Comparison.h"

#include <thread>

#include <gtest/gtest.h>

#include "support/Octets.h"

namespace {

using show::HostReading;
using show::Message;
using show::RecordMember;

Message Read(const std::string& pdu, Messages::Direction direction = Messages::Direction::Unknown) {
    Message message;
    message.octets = tests::Octets(pdu);
    message.reading = Messages::Read(message.octets, {Messages::Presence::No, direction});
    message.hasServiceCentre = false;
    return message;
}

/// "m_Status 7: ST_…; m_Text \"\"", or "rejected".
std::string DifferencesOf(const Message& message) {
    const HostReading host = CompareWithHost(message);
    if (host.isRejected)
        return "rejected";
    std::string text;
    for (const RecordMember& member : host.members)
        text += (text.empty() ? "" : "; ") + std::string(member.name) + ' ' + ValueText(member);
    return text;
}

const std::string c_time = "21203121436580";
const std::string c_hello = "05C8329BFD06";

std::string Deliver(const std::string& first, const std::string& address, const std::string& coding,
                    const std::string& rest) {
    return first + address + "00" + coding + c_time + rest;
}

TEST(Comparison, NothingDiffersInWhatBothReadAlike) {
    for (const std::string& pdu : {
             Deliver("04", "0B912143658709F1", "00", c_hello),
             Deliver("84", "04812143", "08", "0400480069"),
             Deliver("44", "04812143", "04", "080500032A02014142"),
             Deliver("44", "04812143", "00", "080500032A0201C2"),
             Deliver("44", "04812143", "00", "080608041234020141"),
             std::string("B52A049121430019A70400480069"),
             std::string("19070491214300F221203121436580") + c_hello,
             "062A04912143" + c_time + c_time + "00",
             "062A04912143" + c_time + c_time + "49",
         }) {
        EXPECT_EQ(DifferencesOf(Read(pdu)), "") << pdu;
    }
}

TEST(Comparison, EachMemberThatDiffersIsTold) {
    const struct {
        std::string pdu;
        const char* differences;
    } rows[] = {
        {Deliver("04", "04812A43", "00", c_hello), "m_Originator \":234\""},
        {Deliver("04", "04A12143", "00", c_hello), "m_NumberTon 1: TON_UNKNOWN"},
        {Deliver("04", "04852143", "00", c_hello), "m_NumberNpi 0: NPI_UNKNOWN"},
        {"0404812143000021203121436500" + c_hello, "m_ServiceCentreTime \"2012-02-13T12:34:56\""},
        {"0404812143000021203121436522" + c_hello, "m_ServiceCentreTime \"2012-02-13T12:34:56+05:00\""},
        {"0404812143000021200321436580" + c_hello, "m_ServiceCentreTime \"2012-02-30T12:34:56+02:00\""},
        {"0404812143000021203142436580" + c_hello, "m_ServiceCentreTime \"2012-02-13T24:34:56+02:00\""},
        {"062A0491214321203121436500" + c_time + "00", "m_ServiceCentreTime \"2012-02-13T12:34:56\""},
        {"062A04912143" + c_time + "2120312143650000", "m_DischargeTime \"2012-02-13T12:34:56\""},
        {"19070481214300002120312143650000", "m_ValidityTime \"2012-02-13T12:34:56\""},
        {"062A04912143" + c_time + c_time + "44", "m_Status 7: ST_QUALITY_OF_SERVICE_UNAVAILABLE"},
        {"062A04912143" + c_time + c_time + "60", "m_Status 18: ST_UNKNOWN"},
        {"062A04912143" + c_time + c_time + "00" + "07" + "39" + "04" + "0141",
         "m_ProtocolId 0; m_DataCoding 0; m_UserDataLength 0; m_Alphabet 0: ALPHABET_GSM7; m_Text \"\""},
        {Deliver("04", "04812143", "40", c_hello), "m_CodingGroup 0"},
        {Deliver("04", "04812143", "20", c_hello), "m_Text \"Hello\""},
        {Deliver("04", "04812143", "00", "0141C2"), ""},
        {Deliver("04", "04812143", "00", "0109"), "m_Text \"\xC3\xA7\""},
        {Deliver("44", "04812143", "04",
                 "060401028005"
                 "48"),
         "m_ConcatTotal 5"},
        {Deliver("44", "04812143", "04", "070500032A020348"),
         "m_ConcatReference 42; m_ConcatTotal 2; m_ConcatSequence 3"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(DifferencesOf(Read(row.pdu, Messages::Direction::Unknown)), row.differences) << row.pdu;
}

TEST(Comparison, RejectedIsToldAlone) {
    EXPECT_EQ(DifferencesOf(Read(Deliver("44", "04812143", "04", "03004869"))), "rejected");
    EXPECT_EQ(DifferencesOf(Read("0000", Messages::Direction::FromMobile)), "rejected");
}

TEST(Comparison, OtherTypesAreNoneOfTheRecords) {
    EXPECT_EQ(DifferencesOf(Read(Deliver("07", "04812143", "00", c_hello), Messages::Direction::ToMobile))
                  .substr(0, 11),
              "m_SmsType 0");
}

TEST(Comparison, WhatACommandHasInCommonWithTheRecordIsCompared) {
    // The host reads an SMS-STATUS-REPORT: an address of length 0, then times out of what is left.
    EXPECT_EQ(DifferencesOf(
                  Read("22CD00022A0A9194515510320A01020304050607080910", Messages::Direction::FromMobile)),
              "m_Recipient \"\"; m_NumberNpi 0: NPI_UNKNOWN; m_NumberTon 1: TON_UNKNOWN; "
              "m_SmsType 3: TP_MTI_SMS_STATUS_REPORT; m_StatusReport 0; m_UserDataLength 0; "
              "m_Status 18: ST_UNKNOWN; m_Text \"\"");
}

TEST(Comparison, ProtocolOfAReportIsCompared) {
    EXPECT_NE(
        DifferencesOf(Read("01DC010000000000000055", Messages::Direction::ToMobile)).find("m_ProtocolId 0"),
        std::string::npos);
}

TEST(Comparison, IgnoredZonesDoNotDiffer) {
    Message message = Read("0404812143000021203121436522" + c_hello);
    message.isZoneIgnored = true;
    EXPECT_EQ(DifferencesOf(message), "");
}

TEST(Comparison, KeepsNothingOfThePduBefore) {
    const Message concatenated = Read("400B912143658709F10000"
                                      "21203121436580"
                                      "0A"
                                      "0500032A0302"
                                      "A8E539");
    const Message plain = Read(Deliver("04", "0B912143658709F1", "00", c_hello));
    EXPECT_EQ(DifferencesOf(concatenated), "");
    EXPECT_EQ(DifferencesOf(plain), "");
    EXPECT_EQ(ReadAsHost(concatenated).members.back().value, show::MemberValue(2));
    EXPECT_EQ(ReadAsHost(plain).members.back().value, show::MemberValue(0));
}

TEST(Comparison, NoMemberKeepsWhatThePduBeforeHad) {
    const auto recordOf = [](const Message& message) {
        std::string text;
        for (const RecordMember& member : ReadAsHost(message).members)
            text += std::string(member.name) + ' ' + ValueText(member) + '\n';
        return text;
    };
    const Message rejected = Read("03"); // before anything but the type is read
    std::string fresh;
    std::thread([&] { fresh = recordOf(rejected); }).join();
    EXPECT_NE(fresh.find("m_ValidityTime null\n"), std::string::npos);
    for (const std::string& pdu : {
             Deliver("C4", "0B912143658709F1", "F5", "0A0500032A0302A8E539"),
             Deliver("04", "0B912143658709F1", "18", "0400480069"),
             "FD070B912143658709F27FF5" + c_time + "0A0500032A0302A8E539",
             std::string("71070B912143658709F27FE1A70A0500032A0302A8E539"),
             "062A0B912143658709F1" + c_time + c_time + "49",
         }) {
        EXPECT_FALSE(ReadAsHost(Read(pdu)).isRejected) << pdu;
        EXPECT_EQ(recordOf(rejected), fresh) << pdu;
    }
    Message withServiceCentre = rejected;
    withServiceCentre.octets = tests::Octets("0791214365870921" + Deliver("04", "04812143", "00", c_hello));
    withServiceCentre.hasServiceCentre = true;
    EXPECT_FALSE(ReadAsHost(withServiceCentre).isRejected);
    EXPECT_EQ(recordOf(rejected), fresh);
}

TEST(Comparison, ShortPduReadsNothingOfALongerOneBefore) {
    const Message shorter = Read(Deliver("04", "04812143", "04", "05414243")); // two octets are missing
    std::string fresh;
    const auto textOf = [&] { return ValueText(ReadAsHost(shorter).members[25]); };
    std::thread([&] { fresh = textOf(); }).join();
    EXPECT_EQ(ReadAsHost(Read(Deliver("04", "04812143", "04", "085A5A5A5A5A5A5A5A"))).isRejected, false);
    EXPECT_EQ(textOf(), fresh);
    EXPECT_EQ(fresh, R"("ABC\u0000\u0000")");
}

TEST(Comparison, TextsOfAnyLengthAreComparedToTheLastCharacter) {
    constexpr std::size_t c_longest = 60;
    for (std::size_t length = 0; length <= c_longest; ++length) {
        std::string units;
        for (std::size_t i = 0; i < length; ++i)
            units += "0041";
        const char octets[] = {"0123456789ABCDEF"[2 * length / 16], "0123456789ABCDEF"[2 * length % 16],
                               '\0'};
        Message message = Read(Deliver("04", "04812143", "08", octets + units));
        ASSERT_EQ(DifferencesOf(message), "") << length;
        std::string& text = std::get<Messages::Deliver>(message.reading.tpdu).userData.text;
        for (std::size_t place = 0; place < length; ++place) {
            for (const char other : {'B', '\xC1'}) {
                text[place] = other;
                ASSERT_EQ(DifferencesOf(message), "m_Text \"" + std::string(length, 'A') + '"')
                    << length << ' ' << place;
            }
            text[place] = 'A';
        }
        text += 'A';
        ASSERT_EQ(DifferencesOf(message), "m_Text \"" + std::string(length, 'A') + '"') << length;
    }
}

TEST(Comparison, TextsBeyondAsciiAreComparedByCharacters) {
    EXPECT_EQ(DifferencesOf(Read(Deliver("04", "04812143", "08", "0A007F008007FF0800FFFF"))), "");
    EXPECT_EQ(DifferencesOf(Read(Deliver("04", "04812143", "08", "060041D83DDE00"))), "");
}

TEST(Comparison, RecordHasEveryMemberInTheOrderOfTheHeader) {
    const HostReading record = ReadAsHost(Read(Deliver("04", "0B912143658709F1", "00", c_hello)));
    EXPECT_FALSE(record.isRejected);
    std::string text;
    for (const RecordMember& member : record.members)
        text += std::string(member.name) + ' ' + ValueText(member) + '\n';
    EXPECT_EQ(text, "m_Smsc \"\"\n"
                    "m_Originator \"+12345678901\"\n"
                    "m_Recipient \"\"\n"
                    "m_SmscNpi 0: NPI_UNKNOWN\n"
                    "m_SmscTon 1: TON_UNKNOWN\n"
                    "m_NumberNpi 1: NPI_ISDN\n"
                    "m_NumberTon 2: TON_INTERNATIONAL\n"
                    "m_SmsType 2: TP_MTI_SMS_DELIVER\n"
                    "m_ReplyPath 0\n"
                    "m_HasUserDataHeader 0\n"
                    "m_StatusReport 0\n"
                    "m_ValidityFormat 0\n"
                    "m_RejectDuplicates 0\n"
                    "m_MessageReference 0\n"
                    "m_ProtocolId 0\n"
                    "m_DataCoding 0\n"
                    "m_ValidityPeriod 0\n"
                    "m_ValidityTime null\n"
                    "m_DischargeTime null\n"
                    "m_ServiceCentreTime \"2012-02-13T12:34:56+02:00\"\n"
                    "m_UserDataLength 5\n"
                    "m_Status 0: ST_RECEIVED\n"
                    "m_CodingGroup 0\n"
                    "m_Class 4: CLASS_NONE\n"
                    "m_Alphabet 0: ALPHABET_GSM7\n"
                    "m_Text \"Hello\"\n"
                    "m_WorkText \"\"\n"
                    "m_ConcatReference 0\n"
                    "m_ConcatTotal 0\n"
                    "m_ConcatSequence 0\n");
}

} // namespace
