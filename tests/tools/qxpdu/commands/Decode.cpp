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
constexpr const char* c_deliverText = "SC address 0791214365870921: +123456789012, international, ISDN\n"
                                      "    TP-MTI 0: SMS-DELIVER\n"
                                      "    TP-MMS 1: no more messages are waiting\n"
                                      "     TP-LP 0: not forwarded or spawned\n"
                                      "    TP-SRI 0: no status report to the sender\n"
                                      "   TP-UDHI 0: no user-data header\n"
                                      "     TP-RP 0: no reply path\n"
                                      "     TP-OA 0B912143658709F1: +12345678901, international, ISDN\n"
                                      "    TP-PID 0x00: plain short message\n"
                                      "    TP-DCS 0x00: GSM 7-bit\n"
                                      "   TP-SCTS 21203121436580: 2012-02-13T12:34:56+02:00\n"
                                      "    TP-UDL 0x05: 5 septets\n"
                                      "     TP-UD C8329BFD06\n"
                                      "      text Hello\n";

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

TEST(QxpduDecode, SubmitIsShownFieldByField) {
    EXPECT_EQ(Qxpdu({"decode", "00B52A0791149721F30019A70400480069"}),
              (Outcome{0,
                       "SC address 00: none\n"
                       "    TP-MTI 1: SMS-SUBMIT\n"
                       "     TP-RD 1: duplicates rejected\n"
                       "    TP-VPF 2: relative validity period\n"
                       "    TP-SRR 1: status report requested\n"
                       "   TP-UDHI 0: no user-data header\n"
                       "     TP-RP 1: reply path\n"
                       "     TP-MR 0x2A: 42\n"
                       "     TP-DA 0791149721F3: +4179123, international, ISDN\n"
                       "    TP-PID 0x00: plain short message\n"
                       "    TP-DCS 0x19: UCS2, class 1\n"
                       "     TP-VP 0xA7: 1 day\n"
                       "    TP-UDL 0x04: 4 octets\n"
                       "     TP-UD 00480069\n"
                       "      text Hi\n",
                       ""}));
}

TEST(QxpduDecode, StatusReportIsShownFieldByField) {
    EXPECT_EQ(Qxpdu({"decode", "--no-smsc", "662A0B912143658709F1212031214365802120312143654A41FF"}),
              (Outcome{0,
                       " TP-MTI 2: SMS-STATUS-REPORT\n"
                       " TP-MMS 1: no more messages are waiting\n"
                       "  TP-LP 0: not forwarded or spawned\n"
                       " TP-SRQ 1: on an SMS-COMMAND\n"
                       "TP-UDHI 1: user-data header\n"
                       "  TP-MR 0x2A: 42\n"
                       "  TP-RA 0B912143658709F1: +12345678901, international, ISDN\n"
                       "TP-SCTS 21203121436580: 2012-02-13T12:34:56+02:00\n"
                       "  TP-DT 2120312143654A: 2012-02-13T12:34:56-06:00\n"
                       "  TP-ST 0x41: incompatible destination (permanent error)\n",
                       ""}));
}

TEST(QxpduDecode, ReservedTypeEndsAfterItsAddress) {
    EXPECT_EQ(Qxpdu({"decode", "--no-smsc", "030491214300"}),
              (Outcome{0,
                       "TP-MTI 3: reserved\n"
                       " TP-OA 04912143: +1234, international, ISDN\n",
                       ""}));
}

TEST(QxpduDecode, ConcatenatedPartShowsHeaderAndPlace) {
    EXPECT_EQ(Qxpdu({"decode", "0041000791149721F300000A0500038E0201F0783C01"}),
              (Outcome{0,
                       "SC address 00: none\n"
                       "    TP-MTI 1: SMS-SUBMIT\n"
                       "     TP-RD 0: duplicates accepted\n"
                       "    TP-VPF 0: no validity period\n"
                       "    TP-SRR 0: no status report requested\n"
                       "   TP-UDHI 1: user-data header\n"
                       "     TP-RP 0: no reply path\n"
                       "     TP-MR 0x00: 0\n"
                       "     TP-DA 0791149721F3: +4179123, international, ISDN\n"
                       "    TP-PID 0x00: plain short message\n"
                       "    TP-DCS 0x00: GSM 7-bit\n"
                       "    TP-UDL 0x0A: 10 septets in 9 octets, but 10 left\n"
                       "    TP-UDH 0500038E0201: concatenation, 8-bit reference\n"
                       "     TP-UD F0783C\n"
                       "      part 1 of 2, reference 142\n"
                       "      text xxx\n",
                       ""}));
}

TEST(QxpduDecode, HeaderElementsAreNamed) {
    const std::string submit = "41000491214300040A"; // 8-bit data, 10 octets
    ExpectLine({"decode", "--no-smsc",
                submit + "0608041234030141424"
                         "3"},
               "TP-UDH 06080412340301: concatenation, 16-bit reference");
    ExpectLine({"decode", "--no-smsc", submit + "06080412340301414243"}, "part 1 of 3, reference 4660");
    ExpectLine({"decode", "--no-smsc",
                submit + "0401020003"
                         "4142434445"},
               "TP-UDH 0401020003: special message indication");
    ExpectLine({"decode", "--no-smsc", submit + "04000003004142434445"},
               "TP-UDH 0400000300: concatenation, 8-bit reference; reserved element");
}

TEST(QxpduDecode, EveryHeaderElementHasItsName) {
    struct Row {
        const char* octet;
        const char* name;
    };
    const Row rows[] = {
        {"00", "concatenation, 8-bit reference"},
        {"01", "special message indication"},
        {"02", "reserved element"},
        {"03", "reserved element"},
        {"04", "application ports, 8-bit"},
        {"05", "application ports, 16-bit"},
        {"06", "service-centre control parameters"},
        {"07", "source of the header"},
        {"08", "concatenation, 16-bit reference"},
        {"09", "wireless control message protocol"},
        {"0A", "text formatting"},
        {"0B", "predefined sound"},
        {"0C", "user-defined sound"},
        {"0D", "predefined animation"},
        {"0E", "large animation"},
        {"0F", "small animation"},
        {"10", "large picture"},
        {"11", "small picture"},
        {"12", "variable picture"},
        {"13", "user prompt"},
        {"14", "extended object"},
        {"15", "reused extended object"},
        {"16", "compression control"},
        {"17", "object distribution"},
        {"18", "standard WVG object"},
        {"19", "character-size WVG object"},
        {"1A", "extended object data request"},
        {"1B", "reserved element"},
        {"1F", "reserved element"},
        {"20", "RFC 822 e-mail header"},
        {"21", "hyperlink"},
        {"22", "reply address"},
        {"23", "enhanced voice mail"},
        {"24", "national language, single shift"},
        {"25", "national language, locking shift"},
        {"26", "reserved element"},
        {"6F", "reserved element"},
        {"70", "(U)SIM toolkit security header"},
        {"7F", "(U)SIM toolkit security header"},
        {"80", "SME-to-SME element"},
        {"9F", "SME-to-SME element"},
        {"A0", "reserved element"},
        {"BF", "reserved element"},
        {"C0", "service-centre specific element"},
        {"DF", "service-centre specific element"},
        {"E0", "reserved element"},
    };
    for (const Row& row : rows) {
        ExpectLine({"decode", "--no-smsc", std::string("41000491214300040302") + row.octet + "00"},
                   std::string("TP-UDH 02") + row.octet + "00: " + row.name);
    }
}

TEST(QxpduDecode, EveryTelematicDeviceHasItsName) {
    const char* const devices[] = {
        "any device",
        "telex",
        "group 3 telefax",
        "group 4 telefax",
        "voice telephone",
        "ERMES",
        "national paging system",
        "videotex",
        "teletex, carrier unspecified",
        "teletex in PSPDN",
        "teletex in CSPDN",
        "teletex in analogue PSTN",
        "teletex in digital ISDN",
        "UCI",
        "reserved device",
        "reserved device",
        "message handling facility",
        "public X.400 message handling system",
        "Internet electronic mail",
        "reserved device",
        "reserved device",
        "reserved device",
        "reserved device",
        "reserved device",
        "service-centre specific device",
        "service-centre specific device",
        "service-centre specific device",
        "service-centre specific device",
        "service-centre specific device",
        "service-centre specific device",
        "service-centre specific device",
        "mobile station",
    };
    unsigned int pid = 0x20;
    for (const char* device : devices) {
        char octet[3];
        std::snprintf(octet, sizeof octet, "%02X", pid++);
        ExpectLine({"decode", "--no-smsc", std::string("010004912143") + octet + "0000"},
                   std::string("TP-PID 0x") + octet + ": telematic interworking, " + device);
    }
    EXPECT_EQ(pid, 0x40U);
}

TEST(QxpduDecode, WithoutSmscThePduBeginsWithTheFirstOctet) {
    const Outcome run = Qxpdu({"decode", "--no-smsc", std::string(c_deliver).substr(16)});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out.find("SC address"), std::string::npos);
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
        {"21203121436500", "2012-02-13T12:34:56"},
        {"2120312143654A", "2012-02-13T12:34:56-06:00"},
        {"21203121436522", "2012-02-13T12:34:56+05:00 (zone +05:30, given in whole hours)"},
        {"2120312143652A", "2012-02-13T12:34:56-05:00 (zone -05:30, given in whole hours)"},
        {"21203121436512", "2012-02-13T12:34:56+05:00 (zone +05:15, given in whole hours)"},
        {"21203121436510", "2012-02-13T12:34:56+00:00 (zone +00:15, given in whole hours)"},
        {"21203121436518", "2012-02-13T12:34:56 (zone -00:15, given in whole hours)"},
        {"21313121436580", "out of range"},
        {"21202321436580", "out of range"},
        {"21203152436580", "out of range"},
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
        {"00", "5 minutes"},
        {"0B", "1 hour"},
        {"0C", "1 hour 5 minutes"},
        {"8F", "12 hours"},
        {"90", "12 hours 30 minutes"},
        {"A6", "23 hours 30 minutes"},
        {"A7", "1 day"},
        {"A8", "2 days"},
        {"AD", "7 days"},
        {"C4", "30 days"},
        {"C5", "5 weeks"},
        {"FF", "63 weeks"},
    };
    for (const Row& row : rows) {
        ExpectLine({"decode", "--no-smsc", std::string("11000491214300") + "00" + row.octet + "00"},
                   std::string("TP-VP 0x") + row.octet + ": " + row.meaning);
    }
    ExpectLine({"decode", "--no-smsc",
                "110004912143000000"
                "00"},
               "TP-VPF 2: relative validity period");
    ExpectLine({"decode", "--no-smsc",
                "1900049121430000"
                "21203121436580"
                "00"},
               "TP-VP 21203121436580: 2012-02-13T12:34:56+02:00");
    ExpectLine({"decode", "--no-smsc",
                "1900049121430000"
                "21203121436580"
                "00"},
               "TP-VPF 3: absolute validity period");
    const std::string enhanced = "0900049121430000"
                                 "05E8329BFD06";
    ExpectLine({"decode", "--no-smsc", enhanced},
               "TP-VPF 1: enhanced validity period, which the decoder does not skip");
    ExpectLine({"decode", "--no-smsc", enhanced}, "TP-UDL 0x05: 5 septets");
}

TEST(QxpduDecode, AddressesAreShownWithTypeAndPlan) {
    struct Row {
        const char* octets;
        const char* meaning;
    };
    const Row rows[] = {
        {"06D041E110", "ABC, alphanumeric, plan unknown"},
        {"04812143", "1234, type unknown, ISDN"},
        {"03A121F3", "123, national, ISDN"},
        {"03B321F3", "123, network-specific, data (X.121)"},
        {"03C421F3", "123, subscriber number, telex"},
        {"03E821F3", "123, abbreviated, national plan"},
        {"03F921F3", "123, type reserved, private plan"},
        {"03DA0000", "alphanumeric, ERMES"},
        {"038F21F3", "123, type unknown, plan reserved for extension"},
        {"02852A", ":2, type unknown, service-centre specific plan"},
        {"0091", "+, international, ISDN"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.octets);
        ExpectLine({"decode", "--no-smsc", std::string("01") + "00" + row.octets + "000000"},
                   std::string("TP-DA ") + row.octets + ": " + row.meaning);
    }
}

TEST(QxpduDecode, DataCodingIsShownInWords) {
    struct Row {
        const char* octet;
        const char* meaning;
    };
    const Row rows[] = {
        {"00", "GSM 7-bit"},
        {"04", "8-bit data"},
        {"08", "UCS2"},
        {"0C", "reserved alphabet"},
        {"10", "GSM 7-bit, class 0"},
        {"19", "UCS2, class 1"},
        {"16", "8-bit data, class 2"},
        {"13", "GSM 7-bit, class 3"},
        {"03", "GSM 7-bit"},
        {"20", "GSM 7-bit, compressed"},
        {"40", "GSM 7-bit, automatic deletion"},
        {"59", "UCS2, class 1, automatic deletion"},
        {"60", "GSM 7-bit, compressed, automatic deletion"},
        {"80", "GSM 7-bit, reserved coding group"},
        {"A0", "GSM 7-bit, reserved coding group"},
        {"B0", "GSM 7-bit, class 0, reserved coding group"},
        {"C0", "GSM 7-bit, voicemail message waiting inactive, discard message"},
        {"C9", "GSM 7-bit, fax message waiting active, discard message"},
        {"DA", "GSM 7-bit, e-mail message waiting active, store message"},
        {"E3", "UCS2, other message waiting inactive, store message"},
        {"F4", "8-bit data, class 0"},
        {"F2", "GSM 7-bit, class 2"},
    };
    for (const Row& row : rows) {
        ExpectLine({"decode", "--no-smsc", std::string("0100049121430") + "0" + row.octet + "00"},
                   std::string("TP-DCS 0x") + row.octet + ": " + row.meaning);
    }
}

TEST(QxpduDecode, ProtocolIdentifierIsShownInWords) {
    struct Row {
        const char* octet;
        const char* meaning;
    };
    const Row rows[] = {
        {"00", "plain short message"},
        {"01", "SME-to-SME protocol 1"},
        {"1F", "SME-to-SME protocol 31"},
        {"20", "telematic interworking, any device"},
        {"22", "telematic interworking, group 3 telefax"},
        {"32", "telematic interworking, Internet electronic mail"},
        {"3F", "telematic interworking, mobile station"},
        {"40", "short message type 0"},
        {"41", "replace short message type 1"},
        {"42", "replace short message type 2"},
        {"43", "replace short message type 3"},
        {"44", "replace short message type 4"},
        {"45", "replace short message type 5"},
        {"46", "replace short message type 6"},
        {"47", "replace short message type 7"},
        {"48", "device triggering"},
        {"49", "reserved"},
        {"5E", "enhanced message service"},
        {"5F", "return call message"},
        {"60", "reserved"},
        {"7C", "ANSI-136 R-DATA"},
        {"7D", "ME data download"},
        {"7E", "ME de-personalization"},
        {"7F", "(U)SIM data download"},
        {"80", "reserved"},
        {"BF", "reserved"},
        {"C0", "service-centre specific"},
        {"FF", "service-centre specific"},
    };
    for (const Row& row : rows) {
        ExpectLine({"decode", "--no-smsc", std::string("010004912143") + row.octet + "0000"},
                   std::string("TP-PID 0x") + row.octet + ": " + row.meaning);
    }
}

TEST(QxpduDecode, StatusIsShownInWords) {
    struct Row {
        const char* octet;
        const char* meaning;
    };
    const Row rows[] = {
        {"00", "received by the recipient"},
        {"01", "forwarded, delivery not confirmed"},
        {"02", "replaced by the service centre"},
        {"03", "unknown"},
        {"10", "service-centre specific"},
        {"1F", "service-centre specific"},
        {"20", "congestion (temporary error, still trying)"},
        {"21", "recipient busy (temporary error, still trying)"},
        {"22", "no response from the recipient (temporary error, still trying)"},
        {"23", "service rejected (temporary error, still trying)"},
        {"24", "quality of service not available (temporary error, still trying)"},
        {"25", "error in the recipient's device (temporary error, still trying)"},
        {"26", "unknown (temporary error, still trying)"},
        {"30", "service-centre specific (temporary error, still trying)"},
        {"40", "remote procedure error (permanent error)"},
        {"41", "incompatible destination (permanent error)"},
        {"42", "connection rejected by the recipient (permanent error)"},
        {"43", "not obtainable (permanent error)"},
        {"44", "quality of service not available (permanent error)"},
        {"45", "no interworking available (permanent error)"},
        {"46", "validity period expired (permanent error)"},
        {"47", "deleted by the sender (permanent error)"},
        {"48", "deleted by the service centre's administration (permanent error)"},
        {"49", "message does not exist (permanent error)"},
        {"4A", "unknown (permanent error)"},
        {"5F", "service-centre specific (permanent error)"},
        {"60", "congestion (temporary error, no more attempts)"},
        {"65", "error in the recipient's device (temporary error, no more attempts)"},
        {"66", "unknown (temporary error, no more attempts)"},
        {"70", "service-centre specific (temporary error, no more attempts)"},
        {"80", "unknown"},
        {"90", "unknown"},
        {"FF", "unknown"},
    };
    for (const Row& row : rows) {
        ExpectLine({"decode", "--no-smsc",
                    std::string("020004912143") + "21203121436580" + "21203121436580" + row.octet},
                   std::string("TP-ST 0x") + row.octet + ": " + row.meaning);
    }
}

TEST(QxpduDecode, SurrogatePairIsOneCharacterAndALoneSurrogateTheReplacement) {
    ExpectLine({"decode", "--no-smsc", "01000491214300080AD83DDE00D83D0041DE00"}, "text 😀\uFFFDA\uFFFD");
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

TEST(QxpduDecode, EightBitDataAreShownAsCharacters) {
    ExpectLine({"decode", "--no-smsc",
                "010004912143000403"
                "41E9FF"},
               "text Aéÿ");
}

TEST(QxpduDecode, ControlCharactersCannotReachTheTerminal) {
    ExpectLine({"decode", "--no-smsc",
                "010004912143000405"
                "411B5B9B7F"},
               "text A\\u001B[\\u009B\\u007F");
    const Outcome run = Qxpdu({"decode", "--no-smsc",
                               "010004912143000404"
                               "410A0D42"});
    EXPECT_TRUE(HasLine(run.out, "text A")) << run.out;
    EXPECT_TRUE(HasLine(run.out, "\\u000DB")) << run.out;
    const auto json = Qxpdu({"decode", "--json", "--no-smsc",
                             "010004912143000404"
                             "410A0D42"})
                          .Json();
    EXPECT_EQ(json[0]["text"], "A\n\rB");
}

TEST(QxpduDecode, UserDataThatDisagreeWithTheirLengthAreToldSo) {
    ExpectLine({"decode", "--no-smsc",
                "0100049121430000"
                "0A"
                "C8329B"},
               "TP-UDL 0x0A: 10 septets in 9 octets, but 3 left");
    ExpectLine({"decode", "--no-smsc",
                "0100049121430000"
                "01"
                "C8329B"},
               "TP-UDL 0x01: 1 septet in 1 octet, but 3 left");
    ExpectLine({"decode", "--no-smsc",
                "0100049121430004"
                "02"
                "C8"},
               "TP-UDL 0x02: 2 octets, but 1 left");
    ExpectLine({"decode", "--no-smsc",
                "0100049121430004"
                "0A"},
               "TP-UDL 0x0A: 10 octets, but 0 left");
}

TEST(QxpduDecode, RejectedPduIsAnErrorThatNamesFieldAndOctet) {
    struct Row {
        const char* pdu;
        const char* error;
    };
    const Row rows[] = {
        {"07912143", "SC address at octet 0: expected 7 octets, found 3 octets"},
        {"00", "first octet at octet 1: expected an octet, found the end of the PDU"},
        {"0791214365870921", "first octet at octet 8: expected an octet, found the end of the PDU"},
        {"0004", "TP-OA at octet 2: expected an octet, found the end of the PDU"},
        {"0001", "TP-MR at octet 2: expected an octet, found the end of the PDU"},
        {"0002", "TP-MR at octet 2: expected an octet, found the end of the PDU"},
        {"000100", "TP-DA at octet 3: expected an octet, found the end of the PDU"},
        {"000200", "TP-RA at octet 3: expected an octet, found the end of the PDU"},
        {"00010007911497", "TP-DA at octet 3: expected 5 octets for the type and 7 digits, found 3 octets"},
        {"000401", "TP-OA at octet 2: expected 2 octets for the type and 1 digit, found 0 octets"},
        {"0001000491214"
         "3",
         "TP-PID at octet 7: expected an octet, found the end of the PDU"},
        {"000100049121"
         "4300",
         "TP-DCS at octet 8: expected an octet, found the end of the PDU"},
        {"000100049121430000", "TP-UDL at octet 9: expected an octet, found the end of the PDU"},
        {"001100049121430000", "TP-VP at octet 9: expected an octet, found the end of the PDU"},
        {"0011000491214300000B", "TP-UDL at octet 10: expected an octet, found the end of the PDU"},
        {"001900049121430000212031", "TP-VP at octet 9: expected 7 octets, found 3 octets"},
        {"00190004912143000021203121436580",
         "TP-UDL at octet 16: expected an octet, found the end of the PDU"},
        {"0004049121430000", "TP-SCTS at octet 8: expected an octet, found the end of the PDU"},
        {"0004049121430000212031214365", "TP-SCTS at octet 8: expected 7 octets, found 6 octets"},
        {"000404912143000021203121436580", "TP-UDL at octet 15: expected an octet, found the end of the PDU"},
        {"00020004912143", "TP-SCTS at octet 7: expected an octet, found the end of the PDU"},
        {"0002000491214321203121436580", "TP-DT at octet 14: expected an octet, found the end of the PDU"},
        {"0002000491214321203121436580212031", "TP-DT at octet 14: expected 7 octets, found 3 octets"},
        {"000200049121432120312143658021203121436580",
         "TP-ST at octet 21: expected an octet, found the end of the PDU"},
        {"000304912143", "octet after the address at octet 6: expected an octet, found the end of the PDU"},
        {"0041000491214300000A0041", "TP-UDH at octet 11: expected at most 0 octets up to the end of the "
                                     "header, found element 0x41 of 2 octets"},
        {"0041000491214300000A0500048E020141", "TP-UDH at octet 11: expected at most 5 octets up to the end "
                                               "of the header, found element 0x00 of 6 octets"},
        {"0041000491214300000A0600038E02010141", "TP-UDH at octet 16: expected at most 1 octet up to the end "
                                                 "of the header, found element 0x01 of 67 octets"},
        {"004100049121430000050500038E020141",
         "TP-UDL at octet 9: expected at least 6, for the header, found 5"},
        {"0001000491214300"
         "0C"
         "0141",
         "TP-DCS at octet 8: expected GSM 7-bit, 8-bit data or UCS2, found the reserved alphabet"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pdu);
        EXPECT_EQ(Qxpdu({"decode", row.pdu}),
                  (Outcome{1, "", std::string("qxpdu: argument 1: ") + row.error + "\n"}));
    }
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
        {"07 91", "character 3, ' ', is no hexadecimal digit"},
        {"07/1", "character 3, '/', is no hexadecimal digit"},
        {"07:1", "character 3, ':', is no hexadecimal digit"},
        {"07@1", "character 3, '@', is no hexadecimal digit"},
        {"07G1", "character 3, 'G', is no hexadecimal digit"},
        {"07`1", "character 3, '`', is no hexadecimal digit"},
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
    EXPECT_EQ(Qxpdu({"decode"}, deliver + "\n\n \r\nzz\n0001\n" + deliver + "\n"),
              (Outcome{1, std::string(c_deliverText) + "\n" + c_deliverText,
                       "qxpdu: line 4: character 1, 'z', is no hexadecimal digit\n"
                       "qxpdu: line 5: TP-MR at octet 2: expected an octet, found the end of the PDU\n"}));
}

TEST(QxpduDecode, NothingIsKeptFromOnePduToTheNext) {
    const Outcome run = Qxpdu(
        {"decode", "--json", "--no-smsc", "41000491214300000A0500038E0201F0783C01", "010004912143000000"});
    ASSERT_EQ(run.status, 0) << run;
    EXPECT_TRUE(run.Json()[0].contains("concatenation"));
    EXPECT_FALSE(run.Json()[1].contains("concatenation"));
    EXPECT_EQ(run.Json()[1]["text"], "");
}

TEST(QxpduDecode, JsonHasEveryFieldWithRawValueAndMeaning) {
    EXPECT_EQ(Qxpdu({"decode", "--json", c_deliver}).Json(), nlohmann::json::parse(R"([{
        "argument": 1,
        "octets": "0791214365870921040B912143658709F100002120312143658005C8329BFD06",
        "sc_address": {
            "raw": "0791214365870921",
            "meaning": "+123456789012, international, ISDN",
            "number": "+123456789012",
            "type_of_number": {"raw": 1, "meaning": "international"},
            "numbering_plan": {"raw": 1, "meaning": "ISDN"}
        },
        "tp_mti": {"raw": 0, "meaning": "SMS-DELIVER"},
        "tp_mms": {"raw": 1, "meaning": "no more messages are waiting"},
        "tp_lp": {"raw": 0, "meaning": "not forwarded or spawned"},
        "tp_sri": {"raw": 0, "meaning": "no status report to the sender"},
        "tp_udhi": {"raw": 0, "meaning": "no user-data header"},
        "tp_rp": {"raw": 0, "meaning": "no reply path"},
        "tp_oa": {
            "raw": "0B912143658709F1",
            "meaning": "+12345678901, international, ISDN",
            "number": "+12345678901",
            "type_of_number": {"raw": 1, "meaning": "international"},
            "numbering_plan": {"raw": 1, "meaning": "ISDN"}
        },
        "tp_pid": {"raw": 0, "meaning": "plain short message"},
        "tp_dcs": {"raw": 0, "meaning": "GSM 7-bit", "alphabet": "GSM 7-bit"},
        "tp_scts": {
            "raw": "21203121436580",
            "meaning": "2012-02-13T12:34:56+02:00",
            "time": "2012-02-13T12:34:56+02:00"
        },
        "tp_udl": {"raw": 5, "meaning": "5 septets"},
        "tp_ud": {"raw": "C8329BFD06", "meaning": ""},
        "text": "Hello"
    }])"));
}

TEST(QxpduDecode, JsonHasClassHeaderAndConcatenationWherePresent) {
    const auto json =
        Qxpdu({"decode", "--json", "-"}, "\n0041000491214300190A0608041234030100480069\n").Json();
    ASSERT_EQ(json.size(), 1U);
    EXPECT_EQ(json[0]["line"], 2);
    EXPECT_EQ(json[0]["sc_address"], nlohmann::json::parse(R"({"raw": "00", "meaning": "none"})"));
    EXPECT_EQ(
        json[0]["tp_dcs"],
        nlohmann::json::parse(R"({"raw": 25, "meaning": "UCS2, class 1", "alphabet": "UCS2", "class": 1})"));
    EXPECT_EQ(json[0]["tp_udh"], nlohmann::json::parse(R"({
        "raw": "06080412340301",
        "meaning": "concatenation, 16-bit reference",
        "elements": [{"identifier": 8, "meaning": "concatenation, 16-bit reference", "data": "12340301"}]
    })"));
    EXPECT_EQ(json[0]["concatenation"],
              nlohmann::json::parse(R"({"reference": 4660, "total": 3, "sequence": 1})"));
    EXPECT_FALSE(Qxpdu({"decode", "--json", c_deliver}).Json()[0].contains("tp_udh"));
}

TEST(QxpduDecode, JsonOfATimeOutOfRangeHasNoTime) {
    const auto json = Qxpdu({"decode", "--json", "--no-smsc",
                             "04049121430000"
                             "21313121436580"
                             "00"})
                          .Json();
    EXPECT_EQ(json[0]["tp_scts"],
              nlohmann::json::parse(R"({"raw": "21313121436580", "meaning": "out of range"})"));
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
