// qxpdu decode
#include <algorithm>
#include <cctype>
#include <cstdio>

#include <gtest/gtest.h>

#include "support/Octets.h"
#include "tools/qxpdu/RunTool.h"

namespace {

using tests::HasLine;
using tests::Outcome;
using tests::Qxpdu;
using tests::Repeated;

constexpr const char* c_deliver = "0791214365870921040B912143658709F100002120312143658005C8329BFD06";
constexpr const char* c_deliverText =
    "service centre 0791214365870921: +123456789012, international, ISDN or telephone (E.164)\n"
    "        TP-MTI 0: SMS-DELIVER\n"
    "        TP-MMS 1: no more messages are waiting\n"
    "         TP-LP 0: not forwarded or spawned\n"
    "        TP-SRI 0: no status report to the sender\n"
    "       TP-UDHI 0: no user-data header\n"
    "         TP-RP 0: no reply path\n"
    "         TP-OA 0B912143658709F1: +12345678901, international, ISDN or telephone (E.164)\n"
    "        TP-PID 0x00: mobile to mobile\n"
    "        TP-DCS 0x00: GSM 7-bit\n"
    "       TP-SCTS 21203121436580: 2012-02-13T12:34:56+02:00\n"
    "        TP-UDL 0x05: 5 septets\n"
    "         TP-UD C8329BFD06\n"
    "          text Hello\n";

/// Expects that decoding a PDU succeeds and shows this line, the blanks before names left out.
void ExpectLine(const std::vector<std::string>& arguments, const std::string& line) {
    const Outcome run = Qxpdu(arguments);
    EXPECT_EQ(run.status, 0) << run;
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(HasLine(run.out, line)) << line << " in\n" << run.out;
}

TEST(QxpduDecode, DeliverIsShownFieldByField) {
    EXPECT_EQ(Qxpdu({"decode", c_deliver}), (Outcome{0, c_deliverText, ""}));
}

TEST(QxpduDecode, UnusedBitsOnBothSidesOfAFieldAreOneMember) {
    const std::string json = Qxpdu({"decode", "--jsonl", "--direction", "from-mobile", "009000"}).out;
    const std::string member = R"("unused_bits":{"raw":144,"meaning":""},"tp_udhi")";
    const std::size_t place = json.find(member);
    ASSERT_NE(place, std::string::npos) << json;
    EXPECT_EQ(json.find("\"unused_bits\"", place + 1), std::string::npos) << json;
    ExpectLine({"decode", "--direction", "from-mobile", "008400"}, "unused bits 132");
    ExpectLine({"decode", "--direction", "from-mobile", "000400"}, "unused bits 4");
}

TEST(QxpduDecode, SubmitIsShownFieldByField) {
    EXPECT_EQ(Qxpdu({"decode", "00B52A0791149721F30019A70400480069"}),
              (Outcome{0,
                       "service centre 00: none\n"
                       "        TP-MTI 1: SMS-SUBMIT\n"
                       "         TP-RD 1: duplicates rejected\n"
                       "        TP-VPF 2: relative validity period\n"
                       "        TP-SRR 1: status report requested\n"
                       "       TP-UDHI 0: no user-data header\n"
                       "         TP-RP 1: reply path\n"
                       "         TP-MR 0x2A: 42\n"
                       "         TP-DA 0791149721F3: +4179123, international, ISDN or telephone (E.164)\n"
                       "        TP-PID 0x00: mobile to mobile\n"
                       "        TP-DCS 0x19: UCS2, class 1: mobile equipment\n"
                       "         TP-VP 0xA7: relative, 1 day\n"
                       "        TP-UDL 0x04: 4 octets\n"
                       "         TP-UD 00480069\n"
                       "          text Hi\n",
                       ""}));
}

TEST(QxpduDecode, StatusReportIsShownWithWhatFollowsItsStatus) {
    // TP-PI announces TP-PID, TP-DCS and TP-UDL; the zone of TP-DT is six hours west.
    EXPECT_EQ(Qxpdu({"decode", "--no-smsc",
                     "262A0B912143658709F1212031214365802120312143654A41073904034142"
                     "43"}),
              (Outcome{0,
                       " TP-MTI 2: SMS-STATUS-REPORT\n"
                       " TP-MMS 1: no more messages are waiting\n"
                       "  TP-LP 0: not forwarded or spawned\n"
                       " TP-SRQ 1: on an SMS-COMMAND\n"
                       "TP-UDHI 0: no user-data header\n"
                       "  TP-MR 0x2A: 42\n"
                       "  TP-RA 0B912143658709F1: +12345678901, international, ISDN or telephone (E.164)\n"
                       "TP-SCTS 21203121436580: 2012-02-13T12:34:56+02:00\n"
                       "  TP-DT 2120312143654A: 2012-02-13T12:34:56-06:00\n"
                       "  TP-ST 0x41: incompatible destination (permanent error)\n"
                       "  TP-PI 0x07: TP-PID, TP-DCS, TP-UDL announced\n"
                       " TP-PID 0x39: agreed with the service centre\n"
                       "        ~ libQX_Encoding m_ProtocolId 0\n"
                       " TP-DCS 0x04: 8-bit data\n"
                       "        ~ libQX_Encoding m_DataCoding 0\n"
                       "        ~ libQX_Encoding m_Alphabet 0: ALPHABET_GSM7\n"
                       " TP-UDL 0x03: 3 octets\n"
                       "        ~ libQX_Encoding m_UserDataLength 0\n"
                       "  TP-UD 414243\n"
                       "   data 414243: ABC\n"
                       "        ~ libQX_Encoding m_Text \"\"\n",
                       ""}));
}

TEST(QxpduDecode, EveryTypeIsShownByItsDirection) {
    const struct {
        const char* direction;
        const char* pdu;
        std::vector<std::string> lines;
    } rows[] = {
        {"to-mobile",
         "01"
         "00"
         "21203121436580",
         {"TP-MTI 1: SMS-SUBMIT-REPORT", "TP-PI 0x00: nothing announced",
          "TP-SCTS 21203121436580: 2012-02-13T12:34:56+02:00"}},
        {"from-mobile",
         "00"
         "D0"
         "02"
         "04",
         {"TP-MTI 0: SMS-DELIVER-REPORT", "TP-FCS 0xD0: (U)SIM storage full", "TP-PI 0x02: TP-DCS announced",
          "TP-DCS 0x04: 8-bit data"}},
        {"from-mobile",
         "22"
         "2A"
         "00"
         "02"
         "07"
         "04912143"
         "00",
         {"TP-MTI 2: SMS-COMMAND", "TP-SRR 1: status report requested", "TP-MR 0x2A: 42",
          "TP-CT 0x02: delete a message", "TP-MN 0x07: 7",
          "TP-DA 04912143: +1234, international, ISDN or telephone (E.164)", "TP-CDL 0x00: 0 octets"}},
        {"from-mobile", "010004912143000000", {"TP-MTI 1: SMS-SUBMIT"}},
        {"to-mobile", "040491214300002120312143658000", {"TP-MTI 0: SMS-DELIVER"}},
        {"to-mobile",
         "06000491214321203121436580212031214365800"
         "0",
         {"TP-MTI 2: SMS-STATUS-REPORT"}},
        {"to-mobile", "070491214300002120312143658000", {"TP-MTI 3: reserved, read as SMS-DELIVER"}},
    };
    for (const auto& row : rows) {
        const Outcome run = Qxpdu({"decode", "--no-smsc", "--direction", row.direction, row.pdu});
        EXPECT_EQ(run.status, 0) << run;
        for (const std::string& line : row.lines)
            EXPECT_TRUE(HasLine(run.out, line)) << line << " in\n" << run.out;
    }
}

TEST(QxpduDecode, UnknownDirectionAndReaderAreRefused) {
    EXPECT_EQ(Qxpdu({"decode", "--direction", "up", "00"})
                  .err.rfind("qxpdu: --direction: up is neither to-mobile nor from-mobile\n", 0),
              0U);
    EXPECT_EQ(
        Qxpdu({"decode", "--as", "others", "00"}).err.rfind("qxpdu: --as: others is not libQX_Encoding\n", 0),
        0U);
}

TEST(QxpduDecode, ConcatenatedPartShowsHeaderAndPlace) {
    EXPECT_EQ(
        Qxpdu({"decode", "0041000791149721F300000A0500038E0201F0783C"}),
        (Outcome{
            0,
            "service centre 00: none\n"
            "        TP-MTI 1: SMS-SUBMIT\n"
            "         TP-RD 0: duplicates accepted\n"
            "        TP-VPF 0: no validity period\n"
            "        TP-SRR 0: no status report requested\n"
            "       TP-UDHI 1: user-data header\n"
            "         TP-RP 0: no reply path\n"
            "         TP-MR 0x00: 0\n"
            "         TP-DA 0791149721F3: +4179123, international, ISDN or telephone (E.164)\n"
            "        TP-PID 0x00: mobile to mobile\n"
            "        TP-DCS 0x00: GSM 7-bit\n"
            "        TP-UDL 0x0A: 10 septets\n"
            "        TP-UDH 0500038E0201: concatenation, 8-bit reference: reference 142, total 2, part 1\n"
            "         TP-UD F0783C\n"
            "          part 1 of 2, reference 142\n"
            "          text xxx\n",
            ""}));
}

TEST(QxpduDecode, EachHeaderElementIsALine) {
    const Outcome run = Qxpdu({"decode", "--no-smsc",
                               "41000491214300040C"
                               "0B"
                               "0003010302"
                               "05040B8423F0"
                               "414243"});
    EXPECT_NE(
        run.out.find(
            " TP-UDH 0B000301030205040B8423F0: concatenation, 8-bit reference: reference 1, total 3, part 2\n"
            "        application ports, 16-bit: destination port 2948"),
        std::string::npos)
        << run;
}

TEST(QxpduDecode, TextOfANationalLanguageIsReadWithItsTables) {
    // Turkish single shift and locking shift tables; escape and 0x53 are capital S with cedilla, 0x07 is the
    // dotless i.
    const Outcome run = Qxpdu({"decode", "--no-smsc",
                               "4100049121430000"
                               "0B"
                               "06240101250101"
                               "9BE901"});
    EXPECT_EQ(run.status, 0) << run;
    EXPECT_TRUE(HasLine(run.out, "locking shift Turkish")) << run;
    EXPECT_TRUE(HasLine(run.out, "single shift Turkish")) << run;
    EXPECT_TRUE(HasLine(run.out, "text \u015E\u0131")) << run;
}

TEST(QxpduDecode, WithoutSmscThePduBeginsWithTheFirstOctet) {
    const Outcome run = Qxpdu({"decode", "--no-smsc", std::string(c_deliver).substr(16)});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out.find("service centre"), std::string::npos);
    EXPECT_TRUE(HasLine(run.out, "text Hello")) << run.out;
}

TEST(QxpduDecode, TimesAreShownWithAndWithoutTheirZone) {
    const std::string before = "040B912143658709F10000";
    const std::string after = "05C8329BFD06";
    ExpectLine({"decode", "--no-smsc", "--ignore-time-zone", before + "21203121436580" + after},
               "TP-SCTS 21203121436580: 2012-02-13T12:34:56");
    struct Row {
        const char* octets;
        const char* meaning;
    };
    const Row rows[] = {
        {"21203121436500", "2012-02-13T12:34:56+00:00"},
        {"2120312143654A", "2012-02-13T12:34:56-06:00"},
        {"21203121436522", "2012-02-13T12:34:56+05:30"},
        {"2120312143652A", "2012-02-13T12:34:56-05:30"},
        {"21203121436512", "2012-02-13T12:34:56+05:15"},
        {"21203121436510", "2012-02-13T12:34:56+00:15"},
        {"21203121436518", "2012-02-13T12:34:56-00:15"},
        {"21313121436580", "no time"},
        {"21202321436580", "no time"},
        {"21203152436580", "no time"},
        {"00000000000000", "no time"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.octets);
        ExpectLine({"decode", "--no-smsc", before + row.octets + after},
                   std::string("TP-SCTS ") + row.octets + ": " + row.meaning);
    }
    ExpectLine({"decode", "--no-smsc", "--ignore-time-zone", before + "21203121436522" + after},
               "TP-SCTS 21203121436522: 2012-02-13T12:34:56");
}

TEST(QxpduDecode, ValidityPeriodIsShownByItsFormat) {
    struct Row {
        const char* octet;
        const char* meaning;
    };
    const Row rows[] = {
        {"00", "5 minutes"}, {"0C", "1 hour 5 minutes"}, {"90", "12 hours 30 minutes"},
        {"A7", "1 day"},     {"AD", "1 week"},           {"C5", "5 weeks"},
        {"FF", "63 weeks"},
    };
    for (const Row& row : rows) {
        ExpectLine({"decode", "--no-smsc", std::string("11000491214300") + "00" + row.octet + "00"},
                   std::string("TP-VP 0x") + row.octet + ": relative, " + row.meaning);
    }
    const std::string absolute = "1900049121430000"
                                 "21203121436580"
                                 "00";
    ExpectLine({"decode", "--no-smsc", absolute}, "TP-VPF 3: absolute validity period");
    ExpectLine({"decode", "--no-smsc", absolute}, "TP-VP 21203121436580: 2012-02-13T12:34:56+02:00");
    // 30 seconds, to be tried once.
    const std::string enhanced = "0900049121430000"
                                 "421E0000000000"
                                 "05E8329BFD06";
    ExpectLine({"decode", "--no-smsc", enhanced}, "TP-VPF 1: enhanced validity period");
    ExpectLine({"decode", "--no-smsc", enhanced}, "TP-VP 421E0000000000: enhanced, 30 seconds, single shot");
    ExpectLine({"decode", "--no-smsc", enhanced}, "text hello");
}

TEST(QxpduDecode, AddressesAreShownWithTypeAndPlan) {
    struct Row {
        const char* octets;
        const char* meaning;
    };
    const Row rows[] = {
        {"06D041E110", "ABC, alphanumeric, plan unknown"},
        {"04812143", "1234, type unknown, ISDN or telephone (E.164)"},
        {"03A121F3", "123, national, ISDN or telephone (E.164)"},
        {"03B321F3", "123, network specific, plan data (X.121)"},
        {"03C421F3", "123, subscriber, plan telex"},
        {"03E821F3", "123, abbreviated, plan national"},
        {"0381B1FA", "1#*, type unknown, ISDN or telephone (E.164)"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.octets);
        ExpectLine({"decode", "--no-smsc", std::string("01") + "00" + row.octets + "000000"},
                   std::string("TP-DA ") + row.octets + ": " + row.meaning);
    }
}

TEST(QxpduDecode, SurrogatePairIsOneCharacterAndALoneSurrogateTheReplacement) {
    const Outcome run = Qxpdu({"decode", "--no-smsc", "01000491214300080AD83DDE00D83D0041DE00"});
    EXPECT_TRUE(HasLine(run.out, "text 😀\uFFFDA\uFFFD")) << run;
    EXPECT_EQ(
        run.err,
        "qxpdu: argument 1: warning: TP-UD at octet 13: D83D is half of a character, without the other half\n"
        "qxpdu: argument 1: warning: TP-UD at octet 17: DE00 is half of a character, without the other "
        "half\n");
}

TEST(QxpduDecode, WhatConcernsTheTextIsAWarningAndWithStrictAnError) {
    const struct {
        const char* pdu;
        const char* message;
    } rows[] = {
        {"0100049121430000"
         "0A"
         "C8329B",
         "TP-UDL at octet 8: TP-UDL announces 10, and 3 are there"},
        {"0100049121430020"
         "02"
         "C832",
         "TP-UD at octet 9: the text is compressed, and is not made"},
        {"0100049121430000"
         "01"
         "1B",
         "TP-UD at octet 9: a lone escape ends the text"},
        {"0100049121430008"
         "03"
         "004841",
         "TP-UD at octet 11: octet 41 is half a unit of UCS2 text, and is passed over"},
    };
    for (const auto& row : rows) {
        const std::string message = std::string(row.message) + '\n';
        const Outcome run = Qxpdu({"decode", "--no-smsc", row.pdu});
        EXPECT_EQ(run.status, 0) << run;
        EXPECT_EQ(run.err, "qxpdu: argument 1: warning: " + message);
        EXPECT_EQ(Qxpdu({"decode", "--no-smsc", "--strict", row.pdu}),
                  (Outcome{1, "", "qxpdu: argument 1: " + message}));
        const Outcome inspected = Qxpdu({"inspect", "--no-smsc", "--strict", row.pdu});
        EXPECT_EQ(inspected.status, 1);
        EXPECT_EQ(inspected.err, "qxpdu: argument 1: " + message);
        const Outcome lines = Qxpdu({"decode", "--no-smsc", "--jsonl", row.pdu});
        EXPECT_EQ(lines.err, "") << "the object says so";
        EXPECT_FALSE(lines.Json()["remarks"].empty());
    }
}

TEST(QxpduDecode, RemarksStandBelowTheirField) {
    const Outcome run = Qxpdu({"decode", "--no-smsc", "01000412214300000000"});
    EXPECT_NE(run.out.find("  TP-DA 04122143: +1234, international, plan reserved\n"
                           "        ! octet 3: bit 7 of the type of address is 0\n"
                           "        ! octet 3: numbering plan 2 is reserved\n"),
              std::string::npos)
        << run;
}

TEST(QxpduDecode, ReadingOfTheOtherLibraryIsShownByItsMembers) {
    const Outcome run = Qxpdu({"decode", "--as", "libQX_Encoding", c_deliver});
    EXPECT_EQ(run.status, 0) << run;
    EXPECT_TRUE(HasLine(run.out, "result 1")) << run;
    EXPECT_TRUE(HasLine(run.out, "m_Originator \"+12345678901\"")) << run;
    EXPECT_TRUE(HasLine(run.out, "m_NumberTon 2: TON_INTERNATIONAL")) << run;
    EXPECT_TRUE(HasLine(run.out, "m_DischargeTime null")) << run;
    const auto json = Qxpdu({"inspect", "--as", "libQX_Encoding", "--jsonl", c_deliver}).Json();
    EXPECT_EQ(json["format"], 2);
    EXPECT_EQ(json["octets"], c_deliver);
    EXPECT_EQ(json["libQX_Encoding"]["result"], 1);
    EXPECT_EQ(json["libQX_Encoding"]["m_Text"], "Hello");
    EXPECT_EQ(json["libQX_Encoding"]["m_DischargeTime"], nullptr);
    EXPECT_EQ(json["libQX_Encoding"].size(), 31U);
    const Outcome rejected = Qxpdu({"decode", "--as", "libQX_Encoding",
                                    "0001000491214300"
                                    "0C"
                                    "0141"});
    EXPECT_EQ(rejected.status, 1);
    EXPECT_TRUE(HasLine(rejected.out, "result 0")) << rejected;
    EXPECT_TRUE(HasLine(rejected.out, "m_Recipient \"+1234\"")) << rejected;
    EXPECT_EQ(rejected.err, "qxpdu: argument 1: rejected by libQX_Encoding\n");
    const Outcome object = Qxpdu({"decode", "--as", "libQX_Encoding", "--jsonl", "000300"});
    EXPECT_EQ(object.status, 1);
    EXPECT_EQ(object.err, "") << "the object says so";
}

TEST(QxpduDecode, WhatAHostGetsInsteadIsTold) {
    const std::string zone = "04049121430000"
                             "21203121436522"
                             "05C8329BFD06";
    ExpectLine({"decode", "--no-smsc", zone},
               "~ libQX_Encoding m_ServiceCentreTime \"2012-02-13T12:34:56+05:00\"");
    EXPECT_EQ(Qxpdu({"decode", "--no-smsc", "--jsonl", zone}).Json()["libQX_Encoding"],
              (nlohmann::json{{"m_ServiceCentreTime", "2012-02-13T12:34:56+05:00"}}));
    EXPECT_FALSE(Qxpdu({"decode", "--jsonl", c_deliver}).Json().contains("libQX_Encoding"));
    const std::string reserved = "0001000491214300"
                                 "0C"
                                 "0141";
    ExpectLine({"decode", reserved}, "~ libQX_Encoding rejects this PDU");
    EXPECT_EQ(Qxpdu({"decode", "--jsonl", reserved}).Json()["libQX_Encoding"],
              (nlohmann::json{{"rejected", true}}));
}

TEST(QxpduDecode, EveryCharacterAboveTheBasicPlaneIsShown) {
    const struct {
        const char* units;
        const char* text;
    } rows[] = {
        {"D800DC00", "\xF0\x90\x80\x80"}, // U+10000
        {"D836DCCF", "\xF0\x9D\xA3\x8F"}, // U+1D8CF, whose low bits are those of a surrogate
        {"D872DC00", "\xF0\xAC\xA0\x80"}, // U+2C800
        {"D876DC00", "\xF0\xAD\xA0\x80"}, // U+2D800
        {"DBFFDFFF", "\xF4\x8F\xBF\xBF"}, // U+10FFFF
    };
    for (const auto& row : rows)
        ExpectLine({"decode", std::string("00010004912143000804") + row.units},
                   std::string("text ") + row.text);
}

TEST(QxpduDecode, EightBitDataAreShownAsOctetsAndAscii) {
    ExpectLine({"decode", "--no-smsc",
                "010004912143000403"
                "41E9FF"},
               "data 41E9FF: A..");
    const auto json = Qxpdu({"decode", "--no-smsc", "--jsonl",
                             "010004912143000403"
                             "41E9FF"})
                          .Json();
    EXPECT_EQ(json["data"], "41E9FF");
    EXPECT_FALSE(json.contains("text"));
}

TEST(QxpduDecode, ControlCharactersCannotReachTheTerminal) {
    ExpectLine({"decode", "--no-smsc",
                "01000491214300080A"
                "0041001B005B009B007F"},
               "text A\\u001B[\\u009B\\u007F");
    ExpectLine({"decode", "--no-smsc",
                "01000491214300080E"
                "00852028202A202E20662069200E"},
               "text \\u0085\\u2028\\u202A\\u202E\\u2066\\u2069\u200E");
    const std::string lines = "010004912143000808"
                              "0041000A000D0042";
    const Outcome run = Qxpdu({"decode", "--no-smsc", lines});
    EXPECT_TRUE(HasLine(run.out, "text A")) << run.out;
    EXPECT_TRUE(HasLine(run.out, "\\u000DB")) << run.out;
    EXPECT_EQ(Qxpdu({"decode", "--json", "--no-smsc", lines}).Json()[0]["text"], "A\n\rB");
}

TEST(QxpduDecode, MarksAreEscapedInJson) {
    const std::string pdu = "01000491214300080E"
                            "00852028202A202E20662069007F";
    const std::string escaped = "\"text\":\"\\u0085\\u2028\\u202A\\u202E\\u2066\\u2069\\u007F\"";
    const Outcome run = Qxpdu({"decode", "--no-smsc", "--jsonl", pdu});
    EXPECT_NE(run.out.find(escaped), std::string::npos) << run;
    EXPECT_EQ(run.Json()["text"], "\u0085\u2028\u202A\u202E\u2066\u2069\x7F");
    EXPECT_EQ(Qxpdu({"decode", "--no-smsc", "--json", pdu}).Json()[0]["text"], run.Json()["text"]);
}

TEST(QxpduDecode, UserDataThatDisagreeWithTheirLengthAreToldSo) {
    const Outcome missing = Qxpdu({"decode", "--no-smsc",
                                   "0100049121430004"
                                   "02"
                                   "C8"});
    EXPECT_TRUE(HasLine(missing.out, "! octet 8: TP-UDL announces 2, and 1 are there")) << missing;
    EXPECT_TRUE(HasLine(missing.out, "~ libQX_Encoding m_Text \"È\\u0000\"")) << missing;
    const Outcome more = Qxpdu({"decode", "--no-smsc",
                                "0100049121430000"
                                "01"
                                "C8329B"});
    EXPECT_EQ(more.status, 0) << more;
    EXPECT_TRUE(HasLine(more.out, "surplus 329B")) << more;
    EXPECT_TRUE(HasLine(more.out, "! octet 10: 2 octets after the TPDU")) << more;
}

TEST(QxpduDecode, CutPduIsAnErrorThatNamesFieldAndOctet) {
    struct Row {
        const char* pdu;
        const char* error;
    };
    const Row rows[] = {
        {"07912143", "octet 0: the octets end in service centre, which takes 8 octets: 4 are there"},
        {"00", "octet 1: the octets end in TP-MTI, which takes 1 octet: 0 are there"},
        {"0001", "octet 2: the octets end in TP-MR, which takes 1 octet: 0 are there"},
        {"00010007911497", "octet 3: the octets end in TP-DA, which takes 6 octets: 4 are there"},
        {"0001000491214300", "octet 8: the octets end in TP-DCS, which takes 1 octet: 0 are there"},
        {"000100049121430000", "octet 9: the octets end in TP-UDL, which takes 1 octet: 0 are there"},
        {"001900049121430000212031", "octet 9: the octets end in TP-VP, which takes 7 octets: 3 are there"},
        {"0004049121430000212031214365",
         "octet 8: the octets end in TP-SCTS, which takes 7 octets: 6 are there"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pdu);
        EXPECT_EQ(Qxpdu({"decode", row.pdu}),
                  (Outcome{1, "", std::string("qxpdu: argument 1: ") + row.error + "\n"}));
    }
    const std::string accepted = "00060004912143212031214365802120312143658000FF";
    EXPECT_EQ(Qxpdu({"decode", accepted}).err,
              "qxpdu: argument 1: octet 22: the octets end in TP-PI, which takes 2 octets: 1 are there; "
              "libQX_Encoding decodes this PDU\n");
    EXPECT_EQ(Qxpdu({"decode", "--jsonl", accepted}).Json()["libQX_Encoding"],
              (nlohmann::json{{"result", 1}}));
    EXPECT_EQ(
        Qxpdu({"decode", "--jsonl", "001900049121430000212031"}).Json(),
        (nlohmann::json{
            {"format", 2},
            {"argument", 1},
            {"error", rows[6].error},
            {"fault",
             {{"code", "field-cut"}, {"octet", 9}, {"field", "TP-VP"}, {"expected", 7}, {"found", 3}}}}));
}

TEST(QxpduDecode, HexadecimalInputIsChecked) {
    struct Row {
        std::string input;
        const char* error;
    };
    const Row rows[] = {
        {"", "no hexadecimal digits"},
        {"  \t", "no hexadecimal digits"},
        {"079", "odd number of hexadecimal digits, 3"},
        {"07zz", "character 3, 'z', is no hexadecimal digit"},
        {"  07g", "character 5, 'g', is no hexadecimal digit"},
        {"07/1", "character 3, '/', is no hexadecimal digit"},
        {"07@1", "character 3, '@', is no hexadecimal digit"},
        {"07G1", "character 3, 'G', is no hexadecimal digit"},
        {"0é", "character 2, 'é', is no hexadecimal digit"},
        {"0\xFF", "character 2, 0xFF, is no hexadecimal digit"},
        {"0\x1B", "character 2, 0x1B, is no hexadecimal digit"},
        {tests::Repeated("00", 513), "513 octets, 512 at most"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.error);
        EXPECT_EQ(Qxpdu({"decode", row.input}),
                  (Outcome{1, "", std::string("qxpdu: argument 1: ") + row.error + "\n"}));
    }
    EXPECT_EQ(Qxpdu({"decode", c_deliver + tests::Repeated("00", 512 - 32)}).status, 0);
}

TEST(QxpduDecode, LowerCaseAndBlanksAroundAreAccepted) {
    std::string lower = c_deliver;
    for (char& digit : lower)
        digit = static_cast<char>(std::tolower(digit));
    EXPECT_EQ(Qxpdu({"decode"}, " \t" + lower + " \r\n"), (Outcome{0, c_deliverText, ""}));
}

TEST(QxpduDecode, RemainingLinesAreDecodedAndBlankOnesSkippedButCounted) {
    const std::string deliver = c_deliver;
    EXPECT_EQ(
        Qxpdu({"decode"}, deliver + "\n\n \r\nzz\n0001\n" + deliver + "\n"),
        (Outcome{1, std::string(c_deliverText) + "\n" + c_deliverText,
                 "qxpdu: line 4: character 1, 'z', is no hexadecimal digit\n"
                 "qxpdu: line 5: octet 2: the octets end in TP-MR, which takes 1 octet: 0 are there\n"}));
}

TEST(QxpduDecode, FreeSimRecordIsAWarningAndNoResult) {
    const std::string free = "00" + tests::Repeated("FF", 175);
    const std::string warning = "qxpdu: line 1: warning: a free SIM record, without a message\n";
    for (const char* command : {"decode", "inspect"}) {
        EXPECT_EQ(Qxpdu({command, "--strict"}, free + '\n'), (Outcome{0, "", warning})) << command;
        EXPECT_EQ(Qxpdu({command, "--json"}, free + '\n'), (Outcome{0, "[]\n", warning})) << command;
        EXPECT_EQ(Qxpdu({command, "--jsonl"}, free + '\n'),
                  (Outcome{0,
                           R"({"format":2,"line":1,"warnings":["a free SIM record, without a message"]})"
                           "\n",
                           ""}))
            << command;
        EXPECT_NE(Qxpdu({command, "--as", "libQX_Encoding"}, free + '\n').out, "") << command;
    }
    EXPECT_EQ(Qxpdu({"decode", "--join", "--brief"},
                    free + "\n0791214365870921040B912143658709F100002120312143658005C8329BFD06\n"),
              (Outcome{0, "2012-02-13T12:34:56+02:00 from +12345678901 Hello\n", warning}));
    EXPECT_EQ(Qxpdu({"decode", "--columns", "text,error", "--input-column", "2", "--no-heading"},
                    "1\t" + free + "\tx\n"),
              (Outcome{0, "1\t\ta free SIM record, without a message\tx\n", warning}));
}

TEST(QxpduDecode, NothingIsKeptFromOnePduToTheNext) {
    const Outcome run = Qxpdu(
        {"decode", "--json", "--no-smsc", "41000491214300000A0500038E0201F0783C", "010004912143000000"});
    ASSERT_EQ(run.status, 0) << run;
    EXPECT_TRUE(run.Json()[0].contains("concatenation"));
    EXPECT_FALSE(run.Json()[1].contains("concatenation"));
    EXPECT_EQ(run.Json()[1]["text"], "");
}

TEST(QxpduDecode, JsonHasEveryFieldWithRawValueAndMeaning) {
    EXPECT_EQ(Qxpdu({"decode", "--json", c_deliver}).Json(), nlohmann::json::parse(R"json([{
        "format": 2,
        "argument": 1,
        "octets": "0791214365870921040B912143658709F100002120312143658005C8329BFD06",
        "type": "SMS-DELIVER",
        "direction": "to-mobile",
        "sc_address": {
            "raw": "0791214365870921",
            "meaning": "+123456789012, international, ISDN or telephone (E.164)",
            "number": "+123456789012",
            "type_of_number": {"raw": 1, "meaning": "international"},
            "numbering_plan": {"raw": 1, "meaning": "ISDN or telephone (E.164)"}
        },
        "tp_mti": {"raw": 0, "meaning": "SMS-DELIVER"},
        "tp_mms": {"raw": 1, "meaning": "no more messages are waiting"},
        "tp_lp": {"raw": 0, "meaning": "not forwarded or spawned"},
        "tp_sri": {"raw": 0, "meaning": "no status report to the sender"},
        "tp_udhi": {"raw": 0, "meaning": "no user-data header"},
        "tp_rp": {"raw": 0, "meaning": "no reply path"},
        "tp_oa": {
            "raw": "0B912143658709F1",
            "meaning": "+12345678901, international, ISDN or telephone (E.164)",
            "number": "+12345678901",
            "type_of_number": {"raw": 1, "meaning": "international"},
            "numbering_plan": {"raw": 1, "meaning": "ISDN or telephone (E.164)"}
        },
        "tp_pid": {"raw": 0, "meaning": "mobile to mobile"},
        "tp_dcs": {"raw": 0, "meaning": "GSM 7-bit", "alphabet": "GSM 7-bit"},
        "tp_scts": {
            "raw": "21203121436580",
            "meaning": "2012-02-13T12:34:56+02:00",
            "time": "2012-02-13T12:34:56+02:00"
        },
        "tp_udl": {"raw": 5, "meaning": "5 septets"},
        "tp_ud": {"raw": "C8329BFD06", "meaning": ""},
        "text": "Hello"
    }])json"));
}

TEST(QxpduDecode, JsonHasClassHeaderAndConcatenationWherePresent) {
    const auto json =
        Qxpdu({"decode", "--json", "-"}, "\n0041000491214300190B0608041234030100480069\n").Json();
    ASSERT_EQ(json.size(), 1U);
    EXPECT_EQ(json[0]["line"], 2);
    EXPECT_EQ(json[0]["direction"], "from-mobile");
    EXPECT_EQ(json[0]["sc_address"], nlohmann::json::parse(R"({"raw": "00", "meaning": "none"})"));
    EXPECT_EQ(
        json[0]["tp_dcs"],
        nlohmann::json::parse(
            R"({"raw": 25, "meaning": "UCS2, class 1: mobile equipment", "alphabet": "UCS2", "class": 1})"));
    EXPECT_EQ(json[0]["tp_udh"], nlohmann::json::parse(R"({
        "raw": "06080412340301",
        "meaning": "concatenation, 16-bit reference: reference 4660, total 3, part 1",
        "elements": [{"identifier": 8, "meaning": "concatenation, 16-bit reference", "data": "12340301",
                      "reference": 4660, "total": 3, "part": 1}]
    })"));
    EXPECT_EQ(json[0]["concatenation"],
              nlohmann::json::parse(R"({"reference": 4660, "reference_bits": 16, "total": 3, "part": 1})"));
    EXPECT_FALSE(Qxpdu({"decode", "--json", c_deliver}).Json()[0].contains("tp_udh"));
}

TEST(QxpduDecode, JsonHasWhatEachKindOfFieldAdds) {
    const auto decoded = [](const std::string& pdu) {
        return Qxpdu({"decode", "--jsonl", "--no-smsc", pdu}).Json();
    };
    const auto json = [](const char* text) { return nlohmann::json::parse(text); };
    EXPECT_EQ(decoded("11000491214300E8A700")["tp_vp"],
              json(R"({"raw": 167, "meaning": "relative, 1 day", "seconds": 86400})"));
    EXPECT_EQ(decoded("1900049121430000"
                      "21203121436580"
                      "00")["tp_vp"],
              json(R"({"raw": "21203121436580", "meaning": "2012-02-13T12:34:56+02:00",
                       "time": "2012-02-13T12:34:56+02:00"})"));
    EXPECT_EQ(decoded("0900049121430000"
                      "421E0000000000"
                      "00")["tp_vp"],
              json(R"({"raw": "421E0000000000", "meaning": "enhanced, 30 seconds, single shot", "seconds": 30,
                       "single_shot": true})"));
    EXPECT_EQ(decoded("01000491214300E800")["tp_dcs"]["waiting"],
              json(R"({"type": "voice", "active": true, "stored": true})"));
    const auto compressed = decoded("010004912143006000")["tp_dcs"];
    EXPECT_EQ(compressed["compressed"], true);
    EXPECT_EQ(compressed["automatic_deletion"], true);
    EXPECT_EQ(decoded("010004912143008000")["tp_dcs"]["reserved"], true);
    EXPECT_EQ(decoded("41000491214300040A"
                      "09"
                      "05040B8423F0"
                      "240101")["ports"],
              json(R"({"destination": 2948, "originator": 9200, "bits": 16})"));
    EXPECT_EQ(decoded("410004912143000404"
                      "03"
                      "240501")["tp_udh"],
              json(R"({"raw": "03240501", "meaning": "ignored", "ignored": true, "elements": []})"));
    EXPECT_EQ(decoded("410004912143000408"
                      "07"
                      "2205"
                      "04A12143"
                      "00")["tp_udh"]["elements"][0]
                  .size(),
              3U)
        << "an octet too many for an address";
    EXPECT_EQ(decoded("410004912143000407"
                      "06"
                      "2204"
                      "04A12143")["tp_udh"]["elements"][0]["address"]["number"],
              "1234");
    const auto turkish = decoded("4100049121430000"
                                 "0B"
                                 "06240101250101"
                                 "9BE901");
    EXPECT_EQ(turkish["locking_shift"], "Turkish");
    EXPECT_EQ(turkish["single_shift"], "Turkish");
    EXPECT_EQ(turkish["tp_udh"]["elements"][0]["language"], json(R"({"raw": 1, "meaning": "Turkish"})"));
    EXPECT_EQ(decoded("01000412214300000000")["remarks"],
              json(R"([{"code": "extension-bit-clear", "octet": 3, "field": "TP-DA",
                        "meaning": "bit 7 of the type of address is 0"},
                       {"code": "reserved-numbering-plan", "octet": 3, "field": "TP-DA",
                        "meaning": "numbering plan 2 is reserved"},
                       {"code": "surplus-octets", "octet": 9, "field": "surplus",
                        "meaning": "1 octet after the TPDU"}])"));
}

TEST(QxpduDecode, JsonOfATimeOutOfRangeHasNoTime) {
    const auto json = Qxpdu({"decode", "--json", "--no-smsc",
                             "04049121430000"
                             "21313121436580"
                             "00"})
                          .Json();
    EXPECT_EQ(json[0]["tp_scts"],
              nlohmann::json::parse(R"({"raw": "21313121436580", "meaning": "no time"})"));
}

TEST(QxpduDecode, EveryControlCharacterIsEscapedInJson) {
    // Each in the middle of sixteen octets of a longer text, where a writer may look at many together.
    for (unsigned int code = 0; code < 0x20; ++code) {
        const unsigned char octets[] = {0x00, static_cast<unsigned char>(code)};
        const std::string pdu = "00010004912143000826" + Repeated("0041", 9) + tests::Hex(octets, 1) +
                                tests::Hex(octets + 1, 1) + Repeated("0042", 9);
        const std::string text = "AAAAAAAAA" + std::string(1, static_cast<char>(code)) + "BBBBBBBBB";
        const Outcome run = Qxpdu({"decode", "--jsonl", pdu});
        EXPECT_EQ(std::count_if(run.out.begin(), run.out.end(),
                                [](unsigned char character) { return character < 0x20; }),
                  1)
            << code << ": the line feed alone";
        EXPECT_EQ(run.Json()["text"], text) << code;
        EXPECT_EQ(Qxpdu({"decode", "--json", pdu}).Json()[0]["text"], text) << code;
    }
}

} // namespace
