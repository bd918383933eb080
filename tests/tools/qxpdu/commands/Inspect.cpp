// qxpdu inspect
#include <sstream>

#include <gtest/gtest.h>

#include "support/Octets.h"
#include "support/PseudoTerminal.h"
#include "tools/qxpdu/RunTool.h"

namespace {

using tests::HasLine;
using tests::Outcome;
using tests::Qxpdu;
using tests::Shell;

TEST(QxpduInspect, DeliverIsShownOctetByOctet) {
    EXPECT_EQ(Qxpdu({"inspect", "0791214365870921040B912143658709F100002120312143658005C8329BFD06"}),
              (Outcome{0,
                       "     0  07                       service centre length 7: 7 octets\n"
                       "     1  91                       service centre type 0x91\n"
                       "        1... ....                  extension 1: none\n"
                       "        .001 ....                  type of number 1: international\n"
                       "        .... 0001                  numbering plan 1: ISDN or telephone (E.164)\n"
                       "     2  21 43 65 87 09 21        service centre digits +123456789012\n"
                       "     8  04                       first octet 0x04\n"
                       "        0... ....                  TP-RP 0: no reply path\n"
                       "        .0.. ....                  TP-UDHI 0: no user-data header\n"
                       "        ..0. ....                  TP-SRI 0: no status report to the sender\n"
                       "        ...0 ....                  unused bits 0\n"
                       "        .... 0...                  TP-LP 0: not forwarded or spawned\n"
                       "        .... .1..                  TP-MMS 1: no more messages are waiting\n"
                       "        .... ..00                  TP-MTI 0: SMS-DELIVER\n"
                       "     9  0B                       TP-OA length 11: 11 semi-octets\n"
                       "    10  91                       TP-OA type 0x91\n"
                       "        1... ....                  extension 1: none\n"
                       "        .001 ....                  type of number 1: international\n"
                       "        .... 0001                  numbering plan 1: ISDN or telephone (E.164)\n"
                       "    11  21 43 65 87 09 F1        TP-OA digits +12345678901\n"
                       "    17  00                       TP-PID 0x00: mobile to mobile\n"
                       "        00.. ....                  group 0: by the next bit\n"
                       "        ..0. ....                  interworking 0: none\n"
                       "        ...0 0000                  protocol 0\n"
                       "    18  00                       TP-DCS 0x00: GSM 7-bit\n"
                       "        00.. ....                  group 0: general data coding\n"
                       "        ..0. ....                  compression 0: none\n"
                       "        ...0 ....                  class 0: none\n"
                       "        .... 00..                  alphabet 0: GSM 7-bit\n"
                       "        .... ..00                  without meaning 0\n"
                       "    19  21                       TP-SCTS year 2012: 2012-02-13T12:34:56+02:00\n"
                       "    20  20                       TP-SCTS month 2\n"
                       "    21  31                       TP-SCTS day 13\n"
                       "    22  21                       TP-SCTS hour 12\n"
                       "    23  43                       TP-SCTS minute 34\n"
                       "    24  65                       TP-SCTS second 56\n"
                       "    25  80                       TP-SCTS time zone 8: quarter hours, +02:00\n"
                       "        1000 ....                  units 8\n"
                       "        .... 0...                  sign 0: east of Greenwich\n"
                       "        .... .000                  tens 0\n"
                       "    26  05                       TP-UDL 5: 5 septets\n"
                       "    27  C8 32 9B FD 06           TP-UD \"Hello\"\n",
                       ""}));
}

TEST(QxpduInspect, PartOfAMessageShowsItsHeaderAndItsFillBit) {
    // Seven septets of header with the fill bit, then "Hello w", whose second to seventh septet end with
    // octets.
    EXPECT_EQ(
        Qxpdu({"inspect", "--no-smsc", "41FF0491214300000E0500032A0302906536FB0DBA03"}),
        (Outcome{0,
                 "     0  41                       first octet 0x41\n"
                 "        0... ....                  TP-RP 0: no reply path\n"
                 "        .1.. ....                  TP-UDHI 1: user-data header\n"
                 "        ..0. ....                  TP-SRR 0: no status report requested\n"
                 "        ...0 0...                  TP-VPF 0: no validity period\n"
                 "        .... .0..                  TP-RD 0: duplicates accepted\n"
                 "        .... ..01                  TP-MTI 1: SMS-SUBMIT\n"
                 "     1  FF                       TP-MR 255\n"
                 "     2  04                       TP-DA length 4: 4 semi-octets\n"
                 "     3  91                       TP-DA type 0x91\n"
                 "        1... ....                  extension 1: none\n"
                 "        .001 ....                  type of number 1: international\n"
                 "        .... 0001                  numbering plan 1: ISDN or telephone (E.164)\n"
                 "     4  21 43                    TP-DA digits +1234\n"
                 "     6  00                       TP-PID 0x00: mobile to mobile\n"
                 "        00.. ....                  group 0: by the next bit\n"
                 "        ..0. ....                  interworking 0: none\n"
                 "        ...0 0000                  protocol 0\n"
                 "     7  00                       TP-DCS 0x00: GSM 7-bit\n"
                 "        00.. ....                  group 0: general data coding\n"
                 "        ..0. ....                  compression 0: none\n"
                 "        ...0 ....                  class 0: none\n"
                 "        .... 00..                  alphabet 0: GSM 7-bit\n"
                 "        .... ..00                  without meaning 0\n"
                 "     8  0E                       TP-UDL 14: 14 septets\n"
                 "     9  05                       TP-UDH length 5: 5 octets\n"
                 "    10  00                       TP-UDH element 0x00: concatenation, 8-bit reference\n"
                 "    11  03                       TP-UDH element length 3: 3 octets\n"
                 "    12  2A                       TP-UDH reference 42\n"
                 "    13  03                       TP-UDH total 3\n"
                 "    14  02                       TP-UDH part 2\n"
                 "    15  90                       TP-UD \"H\"\n"
                 "        1001 000.                  septets 72\n"
                 "        .... ...0                  fill bits 0\n"
                 "    16  65 36 FB 0D BA 03        TP-UD \"ello w\"\n",
                 ""}));
}

TEST(QxpduInspect, BrokenPduIsShownAsFarAsItGoes) {
    EXPECT_EQ(
        Qxpdu({"inspect", "0002FF04912143212031"}),
        (Outcome{
            1,
            "     0  00                       service centre length 0: 0 octets\n"
            "     1  02                       first octet 0x02\n"
            "        0... ....                  unused bits 0\n"
            "        .0.. ....                  TP-UDHI 0: no user-data header\n"
            "        ..0. ....                  TP-SRQ 0: on an SMS-SUBMIT\n"
            "        ...0 ....                  unused bits 0\n"
            "        .... 0...                  TP-LP 0: not forwarded or spawned\n"
            "        .... .0..                  TP-MMS 0: more messages are waiting\n"
            "        .... ..10                  TP-MTI 2: SMS-STATUS-REPORT\n"
            "     2  FF                       TP-MR 255\n"
            "     3  04                       TP-RA length 4: 4 semi-octets\n"
            "     4  91                       TP-RA type 0x91\n"
            "        1... ....                  extension 1: none\n"
            "        .001 ....                  type of number 1: international\n"
            "        .... 0001                  numbering plan 1: ISDN or telephone (E.164)\n"
            "     5  21 43                    TP-RA digits +1234\n"
            "     7  21 20 31                 TP-SCTS: cut\n"
            "                                 ! octet 7: the octets end in TP-SCTS, which takes 7 octets: 3 "
            "are there\n",
            "qxpdu: argument 1: octet 7: the octets end in TP-SCTS, which takes 7 octets: 3 are there\n"}));
}

TEST(QxpduInspect, HeaderThatDoesNotAddUpIsShownAsOctets) {
    const Outcome run = Qxpdu({"inspect", "0041000491214300000A0600038E02010141"});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find(
                  "    10  06                       TP-UDH length 6: 6 octets\n"
                  "    11  00 03 8E 02 01 01        TP-UDH: octets of a user-data header that do not add up\n"
                  "                                 ! 1 octet left over in the header, which is ignored\n"),
              std::string::npos)
        << run;
}

/// Expects that the map of a PDU has this line, the blanks before it left out.
void ExpectLine(const std::string& pdu, const std::string& line) {
    const Outcome run = Qxpdu({"inspect", pdu});
    EXPECT_TRUE(HasLine(run.out, line)) << pdu << ": no " << line << " in\n" << run.out;
}

TEST(QxpduInspect, EachOctetOfBitsIsShownBitByBit) {
    const struct {
        const char* pdu;
        std::vector<std::string> lines;
    } rows[] = {
        // First octets.
        {"00B5000491214300A70400480069",
         {"1... ....                  TP-RP 1: reply path",
          "..1. ....                  TP-SRR 1: status report requested",
          "...1 0...                  TP-VPF 2: relative validity period",
          ".... .1..                  TP-RD 1: duplicates rejected"}},
        {"00030491214300",
         {"...0 ....                  unused bits 0", ".... ..11                  TP-MTI 3: SMS-DELIVER"}},
        // Types of address.
        {"000100047A21430000",
         {"0... ....                  extension 0: another octet",
          ".111 ....                  type of number 7: reserved for extension",
          ".... 1010                  numbering plan 10: ERMES"}},
        // TP-PID.
        {"00010004912143320000",
         {"00.. ....                  group 0: by the next bit",
          "..1. ....                  interworking 1: telematic", "...1 0010                  device 18"}},
        {"000100049121431F0000",
         {"..0. ....                  interworking 0: none", "...1 1111                  protocol 31"}},
        {"00010004912143410000",
         {"01.. ....                  group 1: kinds of short messages",
          "..00 0001                  value 1"}},
        {"00010004912143800000", {"10.. ....                  group 2: reserved"}},
        {"00010004912143FF0000",
         {"11.. ....                  group 3: service-centre specific",
          "..11 1111                  value 63"}},
        // TP-DCS.
        {"00010004912143007600",
         {"01.. ....                  group 1: automatic deletion",
          "..1. ....                  compression 1: compressed",
          "...1 ....                  class 1: in the two lowest bits",
          ".... 01..                  alphabet 1: 8-bit data", ".... ..10                  class 2: (U)SIM"}},
        {"0001000491214300A000",
         {"1010 ....                  group 10: reserved", ".... 0000                  reserved 0"}},
        {"00010004912143001000", {".... ..00                  class 0: immediate display"}},
        {"00010004912143001100", {".... ..01                  class 1: mobile equipment"}},
        {"0001000491214300C900",
         {"1100 ....                  group 12: message waiting, discard",
          ".... 1...                  indication 1: active", ".... .0..                  reserved 0",
          ".... ..01                  kind 1: fax"}},
        {"0001000491214300D200",
         {"1101 ....                  group 13: message waiting, store",
          ".... 0...                  indication 0: inactive", ".... ..10                  kind 2: e-mail"}},
        {"0001000491214300E000",
         {"1110 ....                  group 14: message waiting, store, UCS2",
          ".... ..00                  kind 0: voice"}},
        {"0001000491214300F700",
         {"1111 ....                  group 15: data coding, message class",
          ".... 0...                  reserved 0", ".... .1..                  alphabet 1: 8-bit data",
          ".... ..11                  class 3: terminal equipment"}},
        // Time zones.
        {"00040491214300002120312143654A00",
         {"14  4A                       TP-SCTS time zone -24: quarter hours, -06:00",
          "0100 ....                  units 4", ".... 1...                  sign 1: west of Greenwich",
          ".... .010                  tens 2"}},
    };
    for (const auto& row : rows) {
        for (const std::string& line : row.lines)
            ExpectLine(row.pdu, line);
    }
}

TEST(QxpduInspect, ElementsOfTheHeaderAreShownByTheirParts) {
    const struct {
        const char* header; ///< with its length
        std::vector<std::string> lines;
    } rows[] = {
        {"0500032A0302", {"TP-UDH reference 42", "TP-UDH total 3", "TP-UDH part 2"}},
        {"06080412340301", {"TP-UDH reference 4660", "TP-UDH total 3", "TP-UDH part 1"}},
        {"040102C205",
         {"TP-UDH message kind 0xC2", "1... ....                  storage 1: store",
          ".10. ....                  profile 2: profile 3",
          "...0 00..                  extended kind 0: none", ".... ..10                  kind 2: e-mail",
          "TP-UDH message count 5"}},
        {"0401021F01",
         {"0... ....                  storage 0: discard",
          "...1 11..                  extended kind 7: reserved",
          ".... ..11                  kind 3: other"}},
        {"0404022301", {"TP-UDH destination port 35: reserved", "TP-UDH originator port 1: reserved"}},
        {"0605040B8423F0",
         {"TP-UDH destination port 2948: assigned by IANA", "TP-UDH originator port 9200: assigned by IANA"}},
        {"030601A5",
         {"TP-UDH control 0xA5", "1... ....                  header in the report 1: on",
          ".0.. ....                  cancel the other report requests 0: off",
          "..10 ....                  reserved 2",
          ".... 0...                  report on temporary errors while trying 0: off",
          ".... .1..                  report on temporary errors when given up 1: on",
          ".... ..0.                  report on permanent errors 0: off",
          ".... ...1                  report on completion 1: on"}},
        {"03070102", {"TP-UDH source 2: receiver"}},
        {"03070104", {"TP-UDH source 4: reserved"}},
        {"050A030204A6",
         {"TP-UDH start 2", "TP-UDH characters 4", "TP-UDH style 0xA6",
          "1... ....                  strikethrough 1: on", ".0.. ....                  underlined 0: off",
          "..1. ....                  italic 1: on", "...0 ....                  bold 0: off",
          ".... 01..                  size 1: large", ".... ..10                  alignment 2: right"}},
        {"060A0402043907",
         {"TP-UDH style 0x39", "TP-UDH colour 0x07", "0000 ....                  background 0",
          ".... 0111                  foreground 7"}},
        {"03240101", {"TP-UDH language 1: Turkish"}},
        {"0325010D", {"TP-UDH language 13: Urdu"}},
        {"0325010E", {"TP-UDH language 14: reserved"}},
        {"040B020307", {"TP-UDH position 3", "TP-UDH number 7"}},
        {"03130105", {"TP-UDH objects 5"}},
        {"0417020301",
         {"TP-UDH objects 3", "TP-UDH distribution 0x01", "0000 000.                  reserved 0",
          ".... ...1                  forwarding 1: forbidden"}},
        {"0320010A", {"TP-UDH characters of the header 10"}},
        {"06210400010203",
         {"TP-UDH position 1", "TP-UDH characters of the title 2", "TP-UDH characters of the link 3"}},
        {"06220404912143", {"TP-UDH data: reply address: +1234, international, ISDN or telephone (E.164)"}},
        {"03000101", {"TP-UDH data: concatenation, 8-bit reference"}},
    };
    for (const auto& row : rows) {
        const std::string header = row.header;
        const Outcome run = Qxpdu({"inspect", "--no-smsc", "41000491214300048C" + header});
        for (const std::string& line : row.lines) {
            EXPECT_NE(run.out.find("  " + line + "\n"), std::string::npos)
                << header << ": no " << line << " in\n"
                << run;
        }
    }
}

TEST(QxpduInspect, RemarksStandAtTheirOctet) {
    // The type of address lacks bit 7, TP-PID is reserved, and the zone has a semi-octet above 9.
    const Outcome run = Qxpdu({"inspect", "--no-smsc",
                               "0404112143490021203121436580"
                               "00"});
    EXPECT_NE(run.out.find("        .... 0001                  numbering plan 1: ISDN or telephone (E.164)\n"
                           "                                 ! bit 7 of the type of address is 0\n"
                           "     3  21 43 "),
              std::string::npos)
        << run;
    EXPECT_NE(run.out.find("        ..00 1001                  value 9\n"
                           "                                 ! TP-PID 49 is reserved\n"
                           "     6  00 "),
              std::string::npos)
        << run;
    EXPECT_EQ(Qxpdu({"inspect", "--no-smsc", "--jsonl",
                     "0404112143490021203121436580"
                     "00"})
                  .Json()["remarks"],
              nlohmann::json::parse(R"([{"code": "extension-bit-clear", "octet": 2, "field": "TP-OA",
                                         "meaning": "bit 7 of the type of address is 0"},
                                        {"code": "reserved-protocol", "octet": 5, "field": "TP-PID",
                                         "meaning": "TP-PID 49 is reserved"}])"));
}

TEST(QxpduInspect, WhatAHostGetsInsteadStandsBelowTheMap) {
    const std::string zone = "04049121430000"
                             "21203121436522"
                             "05C8329BFD06";
    const Outcome run = Qxpdu({"inspect", "--no-smsc", zone});
    EXPECT_TRUE(run.out.ends_with("    15  C8 32 9B FD 06           TP-UD \"Hello\"\n"
                                  "                                 ~ libQX_Encoding m_ServiceCentreTime "
                                  "\"2012-02-13T12:34:56+05:00\"\n"))
        << run;
    EXPECT_EQ(Qxpdu({"inspect", "--no-smsc", "--jsonl", zone}).Json()["libQX_Encoding"],
              (nlohmann::json{{"m_ServiceCentreTime", "2012-02-13T12:34:56+05:00"}}));
    EXPECT_TRUE(HasLine(Qxpdu({"inspect", "0001000491214300"
                                          "0C"
                                          "0141"})
                            .out,
                        "~ libQX_Encoding rejects this PDU"));
}

TEST(QxpduInspect, ReportsAndCommandsAreShownOctetByOctet) {
    const Outcome report = Qxpdu({"inspect", "--no-smsc", "--direction", "from-mobile",
                                  "00D00404"
                                  "48656C6C"});
    EXPECT_EQ(report, (Outcome{0,
                               "     0  00                       first octet 0x00\n"
                               "        0... ....                  unused bits 0\n"
                               "        .0.. ....                  TP-UDHI 0: no user-data header\n"
                               "        ..00 00..                  unused bits 0\n"
                               "        .... ..00                  TP-MTI 0: SMS-DELIVER-REPORT\n"
                               "     1  D0                       TP-FCS 208: (U)SIM storage full\n"
                               "     2  04                       TP-PI 0x04: TP-UDL announced\n"
                               "        0... ....                  extension 0: none\n"
                               "        .000 0...                  reserved 0\n"
                               "        .... .1..                  TP-UDL 1: there\n"
                               "        .... ..0.                  TP-DCS 0: not there\n"
                               "        .... ...0                  TP-PID 0: not there\n"
                               "     3  04                       TP-UDL 4: 4 septets\n"
                               "     4  48 65 6C 6C              TP-UD \"HJ1c\"\n"
                               "                                 ! bits after the last septet are set\n"
                               "                                 ~ libQX_Encoding rejects this PDU\n",
                               ""}));
    const Outcome command =
        Qxpdu({"inspect", "--no-smsc", "--direction", "from-mobile", "022A000207049121430341427F"});
    EXPECT_TRUE(HasLine(command.out, "3  02                       TP-CT 2: delete a message")) << command;
    EXPECT_TRUE(HasLine(command.out, "4  07                       TP-MN 7")) << command;
    EXPECT_TRUE(HasLine(command.out, "9  03                       TP-CDL 3: 3 octets")) << command;
    EXPECT_TRUE(HasLine(command.out, "10  41 42 7F                 TP-CD: AB.")) << command;
}

TEST(QxpduInspect, ValidityIsShownByItsFormat) {
    // Enhanced: 30 seconds, to be tried once; then 1 hour 2 minutes 3 seconds.
    const Outcome seconds = Qxpdu({"inspect", "--no-smsc",
                                   "0900049121430000"
                                   "421E0000000000"
                                   "00"});
    EXPECT_NE(seconds.out.find(
                  "     8  42                       TP-VP indicator 0x42: enhanced, 30 seconds, single shot\n"
                  "        0... ....                  extension 0: none\n"
                  "        .1.. ....                  single shot 1: one try\n"
                  "        ..00 0...                  reserved 0\n"
                  "        .... .010                  format 2: seconds\n"
                  "     9  1E                       TP-VP period\n"
                  "    10  00 00 00 00 00           TP-VP unused\n"),
              std::string::npos)
        << seconds;
    const Outcome clock = Qxpdu({"inspect", "--no-smsc",
                                 "0900049121430000"
                                 "03102030000000"
                                 "00"});
    EXPECT_TRUE(HasLine(
        clock.out, "8  03                       TP-VP indicator 0x03: enhanced, 1 hour 2 minutes 3 seconds"))
        << clock;
    EXPECT_TRUE(HasLine(clock.out, "9  10 20 30                 TP-VP period")) << clock;
    EXPECT_TRUE(HasLine(clock.out, "12  00 00 00                 TP-VP unused")) << clock;
    const Outcome none = Qxpdu({"inspect", "--no-smsc",
                                "0900049121430000"
                                "00000000000000"
                                "00"});
    EXPECT_TRUE(HasLine(none.out, "9  00 00 00 00 00 00        TP-VP unused")) << none;
    ExpectLine("0011000491214300"
               "00"
               "A7"
               "00",
               "9  A7                       TP-VP 167: relative, 1 day");
    ExpectLine("0019000491214300"
               "00"
               "21203121436580"
               "00",
               "9  21                       TP-VP year 2012: 2012-02-13T12:34:56+02:00");
}

TEST(QxpduInspect, NationalTextIsShownRowByRow) {
    // Escape and 53 are one character, whose second septet ends in the next row of septets: seven letters,
    // the pair, two letters.
    const Outcome run = Qxpdu({"inspect", "--no-smsc",
                               "4100049121430000"
                               "0F"
                               "03240101"
                               "C26150309B7F86C3"
                               "01"});
    EXPECT_EQ(run.status, 0) << run;
    EXPECT_TRUE(HasLine(run.out, "12  01                       TP-UDH language 1: Turkish")) << run;
}

TEST(QxpduInspect, SurrogatePairStaysInOneRow) {
    // The eighth octet of the text ends the first half of U+1F600.
    const Outcome run = Qxpdu({"inspect", "0001000491214300080C004100420043D83DDE000044"});
    EXPECT_TRUE(HasLine(run.out, "10  00 41 00 42 00 43 D8 3D  TP-UD \"ABC\xF0\x9F\x98\x80\"")) << run;
    EXPECT_TRUE(HasLine(run.out, "18  DE 00")) << run;
    EXPECT_TRUE(HasLine(run.out, "20  00 44                    TP-UD \"D\"")) << run;
    // Where the PDU ends within the second half, there is but the first.
    ExpectLine("0001000491214300080C004100420043D83DDE", "18  DE                       TP-UD \"\"");
    // Where another first half follows, the row ends as any other.
    ExpectLine("0001000491214300080C004100420043D83DD83DDE00",
               "18  D8 3D DE 00              TP-UD \"\xF0\x9F\x98\x80\"");
}

TEST(QxpduInspect, LongFieldsGoOnInTheNextLines) {
    const Outcome run = Qxpdu({"inspect", "0B911111111111111111111101000491214300"
                                          "0000"});
    EXPECT_NE(run.out.find("     2  11 11 11 11 11 11 11 11  service centre digits +11111111111111111111\n"
                           "    10  11 11\n"
                           "    12  01 "),
              std::string::npos)
        << run;
}

TEST(QxpduInspect, OctetsAfterTheTpduAreShown) {
    ExpectLine("00010004912143000001617F", "11  7F                       surplus: octets after the end");
    ExpectLine("00020004912143212031214365802120312143658000FF", "22  FF                       TP-PI: cut");
    ExpectLine("00020004912143212031214365802120312143658000FF", "~ libQX_Encoding decodes this PDU");
    ExpectLine("07912143", "0  07 91 21 43              service centre: cut");
}

TEST(QxpduInspect, JsonHasOffsetAndLengthOfEachRow) {
    const Outcome run = Qxpdu({"inspect", "--json", "--no-smsc", "01000080000001E1"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.Json(), nlohmann::json::parse(R"([{"format":2,"argument":1,"octets":"01000080000001E1",
        "type":"SMS-SUBMIT","direction":"from-mobile","map":[
        {"offset":0,"length":1,"octets":"01","field":"first octet","value":1,"bits":[
            {"bits":"0... ....","name":"TP-RP","value":0,"meaning":"no reply path"},
            {"bits":".0.. ....","name":"TP-UDHI","value":0,"meaning":"no user-data header"},
            {"bits":"..0. ....","name":"TP-SRR","value":0,"meaning":"no status report requested"},
            {"bits":"...0 0...","name":"TP-VPF","value":0,"meaning":"no validity period"},
            {"bits":".... .0..","name":"TP-RD","value":0,"meaning":"duplicates accepted"},
            {"bits":".... ..01","name":"TP-MTI","value":1,"meaning":"SMS-SUBMIT"}]},
        {"offset":1,"length":1,"octets":"00","field":"TP-MR","value":0},
        {"offset":2,"length":1,"octets":"00","field":"TP-DA","subfield":"length","value":0,"meaning":"0 semi-octets"},
        {"offset":3,"length":1,"octets":"80","field":"TP-DA","subfield":"type","value":128,"bits":[
            {"bits":"1... ....","name":"extension","value":1,"meaning":"none"},
            {"bits":".000 ....","name":"type of number","value":0,"meaning":"unknown"},
            {"bits":".... 0000","name":"numbering plan","value":0,"meaning":"unknown"}]},
        {"offset":4,"length":1,"octets":"00","field":"TP-PID","value":0,"meaning":"mobile to mobile","bits":[
            {"bits":"00.. ....","name":"group","value":0,"meaning":"by the next bit"},
            {"bits":"..0. ....","name":"interworking","value":0,"meaning":"none"},
            {"bits":"...0 0000","name":"protocol","value":0}]},
        {"offset":5,"length":1,"octets":"00","field":"TP-DCS","value":0,"meaning":"GSM 7-bit","bits":[
            {"bits":"00.. ....","name":"group","value":0,"meaning":"general data coding"},
            {"bits":"..0. ....","name":"compression","value":0,"meaning":"none"},
            {"bits":"...0 ....","name":"class","value":0,"meaning":"none"},
            {"bits":".... 00..","name":"alphabet","value":0,"meaning":"GSM 7-bit"},
            {"bits":".... ..00","name":"without meaning","value":0}]},
        {"offset":6,"length":1,"octets":"01","field":"TP-UDL","value":1,"meaning":"1 septet"},
        {"offset":7,"length":1,"octets":"E1","field":"TP-UD","value":"a"}],
        "remarks":[{"code":"spare-bits-set","octet":7,"field":"TP-UD",
            "meaning":"bits after the last septet are set"}]}])"));
}

TEST(QxpduInspect, JsonOfABrokenPduSaysWhatWasExpected) {
    const Outcome run = Qxpdu({"inspect", "--jsonl", "0002"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "");
    const nlohmann::json object = run.Json();
    EXPECT_EQ(object["error"], "octet 2: the octets end in TP-MR, which takes 1 octet: 0 are there");
    EXPECT_EQ(
        object["fault"],
        nlohmann::json::parse(R"({"code":"field-cut","field":"TP-MR","octet":2,"expected":1,"found":0})"));
    EXPECT_EQ(object["map"].size(), 2U);
    const Outcome array = Qxpdu({"inspect", "--json", "0002"});
    EXPECT_EQ(array.err,
              "qxpdu: argument 1: octet 2: the octets end in TP-MR, which takes 1 octet: 0 are there\n");
    EXPECT_EQ(array.Json().size(), 1U);
}

TEST(QxpduInspect, LinesOfStandardInputAreWorkedOnInOrder) {
    const Outcome run = Qxpdu({"inspect", "--jsonl", "-j", "2"}, "0G\n\n00030491214300\n00\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "");
    std::vector<std::pair<int, bool>> lines; // number, whether broken
    std::istringstream text(run.out);
    for (std::string line; std::getline(text, line);) {
        const auto object = nlohmann::json::parse(line);
        lines.emplace_back(object["line"].get<int>(), object.contains("error"));
    }
    EXPECT_EQ(lines, (std::vector<std::pair<int, bool>>{{1, true}, {3, true}, {4, true}}));
}

TEST(QxpduInspect, ColoursArePutOnFieldsAndFaults) {
    const Outcome run = Qxpdu({"inspect", "--color", "always", "--no-smsc", "01"});
    EXPECT_EQ(run.out.rfind("     0  \x1B[32m01                     \x1B[0m  first octet 0x01\n"
                            "        \x1B[32m0... ....              \x1B[0m    TP-RP 0: no reply path\n",
                            0),
              0U)
        << run;
    EXPECT_NE(
        run.out.find("\x1B[31m! octet 1: the octets end in TP-MR, which takes 1 octet: 0 are there\x1B[0m\n"),
        std::string::npos)
        << run;
}

bool IsColoured(const std::string& script) {
    return Shell(script).out.find('\x1B') != std::string::npos;
}

TEST(QxpduInspect, ColoursGoNowhereElseUnlessTheUserSaysSo) {
    EXPECT_FALSE(IsColoured("$QXPDU inspect 00030491214300"));
    EXPECT_FALSE(IsColoured("$QXPDU inspect --color never 00030491214300"));
    EXPECT_TRUE(IsColoured("$QXPDU inspect --color always 00030491214300"));
    EXPECT_TRUE(IsColoured("NO_COLOR=1 $QXPDU inspect --color always 00030491214300"));
    EXPECT_EQ(Qxpdu({"inspect", "--color", "never", "01"}), Qxpdu({"inspect", "01"}));
    EXPECT_EQ(Qxpdu({"inspect", "--color", "auto", "01"}), Qxpdu({"inspect", "01"}));
}

TEST(QxpduInspect, ColoursGoToTerminalsButNotAgainstTheUsersWish) {
    if (!tests::HasPseudoTerminals())
        GTEST_SKIP() << tests::c_noPseudoTerminals;
    // script(1) gives the tool a terminal.
    EXPECT_TRUE(IsColoured("TERM=xterm script -qec \"$QXPDU inspect 00030491214300\" /dev/null"));
    EXPECT_TRUE(IsColoured("TERM=xterm NO_COLOR= script -qec \"$QXPDU inspect 00030491214300\" /dev/null"));
    EXPECT_FALSE(IsColoured("TERM=xterm NO_COLOR=1 script -qec \"$QXPDU inspect 00030491214300\" /dev/null"));
    EXPECT_TRUE(IsColoured("env -u TERM script -qec \"$QXPDU inspect 00030491214300\" /dev/null"));
    EXPECT_FALSE(IsColoured("TERM=dumb script -qec \"$QXPDU inspect 00030491214300\" /dev/null"));
    EXPECT_FALSE(
        IsColoured("TERM=xterm script -qec \"$QXPDU inspect --color never 00030491214300\" /dev/null"));
}

TEST(QxpduInspect, UnknownColourIsRefused) {
    const Outcome run = Qxpdu({"inspect", "--color", "red", "00"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err.rfind("qxpdu: --color: red is neither auto, always nor never\n", 0), 0U) << run;
}

TEST(QxpduInspect, ControlCharactersDoNotReachTheTerminal) {
    ExpectLine("000100049121430008020003", "10  00 03                    TP-UD \"\\u0003\"");
}

} // namespace
