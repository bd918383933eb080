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
                       "     0  07                       SC address length 7: 7 octets\n"
                       "     1  91                       SC address type 0x91\n"
                       "        1... ....                  extension 1: none\n"
                       "        .001 ....                  type of number 1: international\n"
                       "        .... 0001                  numbering plan 1: ISDN\n"
                       "     2  21 43 65 87 09 21        SC address digits +123456789012\n"
                       "     8  04                       first octet 0x04\n"
                       "        0... ....                  TP-RP 0: no reply path\n"
                       "        .0.. ....                  TP-UDHI 0: no user-data header\n"
                       "        ..0. ....                  TP-SRI 0: no status report to the sender\n"
                       "        ...0 ....                  unused 0\n"
                       "        .... 0...                  TP-LP 0: not forwarded or spawned\n"
                       "        .... .1..                  TP-MMS 1: no more messages are waiting\n"
                       "        .... ..00                  TP-MTI 0: SMS-DELIVER\n"
                       "     9  0B                       TP-OA length 11: 11 digits\n"
                       "    10  91                       TP-OA type 0x91\n"
                       "        1... ....                  extension 1: none\n"
                       "        .001 ....                  type of number 1: international\n"
                       "        .... 0001                  numbering plan 1: ISDN\n"
                       "    11  21 43 65 87 09 F1        TP-OA digits +12345678901\n"
                       "    17  00                       TP-PID 0x00: plain short message\n"
                       "        00.. ....                  group 0: by the next bit\n"
                       "        ..0. ....                  interworking 0: none\n"
                       "        ...0 0000                  protocol 0\n"
                       "    18  00                       TP-DCS 0x00: GSM 7-bit\n"
                       "        00.. ....                  group 0: general data coding\n"
                       "        ..0. ....                  compression 0: none\n"
                       "        ...0 ....                  class 0: none\n"
                       "        .... 00..                  alphabet 0: GSM 7-bit\n"
                       "        .... ..00                  without meaning 0\n"
                       "    19  21                       TP-SCTS year 12: 2012-02-13T12:34:56+02:00\n"
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
    EXPECT_EQ(Qxpdu({"inspect", "--no-smsc", "41FF0491214300000E0500032A0302906536FB0DBA03"}),
              (Outcome{0,
                       "     0  41                       first octet 0x41\n"
                       "        0... ....                  TP-RP 0: no reply path\n"
                       "        .1.. ....                  TP-UDHI 1: user-data header\n"
                       "        ..0. ....                  TP-SRR 0: no status report requested\n"
                       "        ...0 0...                  TP-VPF 0: no validity period\n"
                       "        .... .0..                  TP-RD 0: duplicates accepted\n"
                       "        .... ..01                  TP-MTI 1: SMS-SUBMIT\n"
                       "     1  FF                       TP-MR 255\n"
                       "     2  04                       TP-DA length 4: 4 digits\n"
                       "     3  91                       TP-DA type 0x91\n"
                       "        1... ....                  extension 1: none\n"
                       "        .001 ....                  type of number 1: international\n"
                       "        .... 0001                  numbering plan 1: ISDN\n"
                       "     4  21 43                    TP-DA digits +1234\n"
                       "     6  00                       TP-PID 0x00: plain short message\n"
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
                       "    10  00                       TP-UDH element 0: concatenation, 8-bit reference\n"
                       "    11  03                       TP-UDH element length 3: 3 octets\n"
                       "    12  2A                       TP-UDH reference 42\n"
                       "    13  03                       TP-UDH total 3\n"
                       "    14  02                       TP-UDH sequence 2\n"
                       "    15  90                       TP-UD \"H\"\n"
                       "        1001 000.                  septet 72\n"
                       "        .... ...0                  fill bit 0\n"
                       "    16  65 36 FB 0D BA 03        TP-UD \"ello w\"\n",
                       ""}));
}

TEST(QxpduInspect, BrokenPduIsShownAsFarAsItGoes) {
    EXPECT_EQ(
        Qxpdu({"inspect", "0002FF04912143212031"}),
        (Outcome{1,
                 "     0  00                       SC address length 0: 0 octets\n"
                 "     1  02                       first octet 0x02\n"
                 "        0... ....                  unused 0\n"
                 "        .0.. ....                  TP-UDHI 0: no user-data header\n"
                 "        ..0. ....                  TP-SRQ 0: on an SMS-SUBMIT\n"
                 "        ...0 ....                  unused 0\n"
                 "        .... 0...                  TP-LP 0: not forwarded or spawned\n"
                 "        .... .0..                  TP-MMS 0: more messages are waiting\n"
                 "        .... ..10                  TP-MTI 2: SMS-STATUS-REPORT\n"
                 "     2  FF                       TP-MR 255\n"
                 "     3  04                       TP-RA length 4: 4 digits\n"
                 "     4  91                       TP-RA type 0x91\n"
                 "        1... ....                  extension 1: none\n"
                 "        .001 ....                  type of number 1: international\n"
                 "        .... 0001                  numbering plan 1: ISDN\n"
                 "     5  21 43                    TP-RA digits +1234\n"
                 "     7  21 20 31                 TP-SCTS: not decoded\n"
                 "                                 ! TP-SCTS at octet 7: expected 7 octets, found 3 octets\n",
                 "qxpdu: argument 1: TP-SCTS at octet 7: expected 7 octets, found 3 octets\n"}));
}

TEST(QxpduInspect, HeaderThatOverrunsIsShownUpToTheElement) {
    const Outcome run = Qxpdu({"inspect", "0041000491214300000A0600038E02010141"});
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(HasLine(run.out, "15  01                       TP-UDH sequence 1")) << run;
    EXPECT_TRUE(HasLine(run.out, "16  01 41                    TP-UDH: not decoded")) << run;
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
         {"0000 00..                  unused 0", ".... ..11                  TP-MTI 3: reserved"}},
        // Types of address.
        {"000100047A21430000",
         {"0... ....                  extension 0: another octet",
          ".111 ....                  type of number 7: type reserved",
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
          ".... 01..                  alphabet 1: 8-bit data",
          ".... ..10                  class 2: stored on the SIM"}},
        {"0001000491214300A000",
         {"10.. ....                  group 2: reserved, read as general data coding",
          "..1. ....                  without meaning 1"}},
        {"00010004912143001000", {".... ..00                  class 0: shown at once, not stored"}},
        {"00010004912143001100", {".... ..01                  class 1: stored in the device"}},
        {"0001000491214300C900",
         {"1100 ....                  group 12: message waiting, discard",
          ".... 1...                  indication 1: active", ".... .0..                  reserved 0",
          ".... ..01                  kind 1: fax"}},
        {"0001000491214300D200",
         {"1101 ....                  group 13: message waiting, store",
          ".... 0...                  indication 0: inactive", ".... ..10                  kind 2: e-mail"}},
        {"0001000491214300E000",
         {"1110 ....                  group 14: message waiting, store, UCS2",
          ".... ..00                  kind 0: voicemail"}},
        {"0001000491214300F700",
         {"1111 ....                  group 15: data coding, message class",
          ".... 0...                  reserved 0", ".... .1..                  alphabet 1: 8-bit data",
          ".... ..11                  class 3: passed on to the terminal equipment"}},
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
        {"0500032A0302", {"TP-UDH reference 42", "TP-UDH total 3", "TP-UDH sequence 2"}},
        {"06080412340301", {"TP-UDH reference 4660", "TP-UDH total 3", "TP-UDH sequence 1"}},
        {"040102C205",
         {"TP-UDH message kind 0xC2", "1... ....                  storage 1: store",
          ".10. ....                  profile 2", "...0 00..                  extended kind 0",
          ".... ..10                  kind 2: e-mail", "TP-UDH message count 5"}},
        {"0401021F01",
         {"0... ....                  storage 0: discard", "...1 11..                  extended kind 7",
          ".... ..11                  kind 3: other"}},
        {"0404022301", {"TP-UDH destination port 35", "TP-UDH originator port 1"}},
        {"0605040B8423F0", {"TP-UDH destination port 2948", "TP-UDH originator port 9200"}},
        {"030601A5",
         {"TP-UDH control 0xA5", "1... ....                  header in the report 1: on",
          ".0.. ....                  cancel the other report requests 0: off",
          "..10 ....                  reserved 2",
          ".... 0...                  report on temporary errors, still trying 0: off",
          ".... .1..                  report on temporary errors, given up 1: on",
          ".... ..0.                  report on permanent errors 0: off",
          ".... ...1                  report on completion 1: on"}},
        {"03070102", {"TP-UDH source 2: original receiver"}},
        {"03070104", {"TP-UDH source 4: reserved"}},
        {"050A030204A6",
         {"TP-UDH start 2", "TP-UDH characters 4", "TP-UDH style 0xA6",
          "1... ....                  strikethrough 1: on", ".0.. ....                  underlined 0: off",
          "..1. ....                  italic 1: on", "...0 ....                  bold 0: off",
          ".... 01..                  size 1: large", ".... ..10                  alignment 2: right"}},
        {"060A0402043907", {"TP-UDH style 0x39", "TP-UDH colour 7"}},
        {"03240101", {"TP-UDH language 1: Turkish"}},
        {"0325010D", {"TP-UDH language 13: Urdu"}},
        {"0325010E", {"TP-UDH language 14: reserved"}},
        {"040B020307", {"TP-UDH data 0307"}},
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

/// Expects that the map of a PDU says that this is unusual, and nothing else.
void ExpectUnusual(const std::string& pdu, const std::vector<std::string>& faults) {
    const Outcome run = Qxpdu({"inspect", "--jsonl", pdu});
    const nlohmann::json object = run.Json();
    std::vector<std::string> found;
    for (const nlohmann::json& row : object["map"]) {
        if (row.contains("unusual"))
            found.insert(found.end(), row["unusual"].begin(), row["unusual"].end());
    }
    EXPECT_EQ(found, faults) << pdu;
}

TEST(QxpduInspect, UnusualFirstOctets) {
    ExpectUnusual("00010004912143000000", {});
    ExpectUnusual("00030491214300", {"a reserved type, of which the decoder reads the address only"});
    ExpectUnusual("00FF0491214300", {"a reserved type, of which the decoder reads the address only"});
    ExpectUnusual("00140491214300002120312143658000", {"an unused bit is set"});
    ExpectUnusual("0009000491214300000148",
                  {"an enhanced validity period: the decoder does not skip its seven octets, "
                   "but takes the first for TP-UDL"});
    ExpectUnusual("000C0491214300002120312143658000", {}); // TP-LP and TP-MMS of a deliver, no TP-VPF
}

TEST(QxpduInspect, UnusualAddresses) {
    const struct {
        const char* address;
        std::vector<std::string> faults;
    } rows[] = {
        {"0080", {}},
        {"04912143", {}},
        {"039121F3", {}},
        {"04112143", {"bit 7 is 0; the decoder reads no further octet"}},
        {"04F12143", {"a reserved type of number"}},
        {"049B2143", {"a reserved numbering plan"}},
        {"149111111111111111111111", {}},
        {"16911111111111111111111111", {"more than 20 digits"}},
        {"03912143", {"octet 6: 4 instead of the filler F; the decoder takes it for a digit"}},
        {"049121F3", {"octet 6: a filler where a digit belongs"}},
        {"0491F143", {"octet 5: a filler where a digit belongs"}},
        {"0391F1F3", {"octet 5: a filler where a digit belongs"}},
        {"04912F43", {"octet 5: a filler in the low semi-octet, which the decoder shows as ?"}},
        {"0491BADC",
         {"octet 5: semi-octet A is * by the standard, which the decoder shows as :",
          "octet 5: semi-octet B is # by the standard, which the decoder shows as ;",
          "octet 6: semi-octet C is a by the standard, which the decoder shows as <",
          "octet 6: semi-octet D is b by the standard, which the decoder shows as ="}},
        {"03911EF3", {"octet 5: semi-octet E is c by the standard, which the decoder shows as >"}},
        {"02D041", {}},
        {"02D011", {"in the GSM default alphabet it is _; the decoder takes the codes as they are"}},
        {"02D141", {"an alphanumeric address with a numbering plan"}},
        {"04D04100", {"septet 2 is 0, where the decoder ends the text"}},
        {"03D04100", {}},
        {"03D04101", {"the decoder adds 1 character from the bits after it"}},
        {"0ED041E19058341E91", {}},
        {"11D041E19058341E91494F", {"the decoder adds 2 characters from the bits after it"}},
        {"04D01B19", {"in the GSM default alphabet it is 2; the decoder takes the codes as they are"}},
    };
    for (const auto& row : rows)
        ExpectUnusual("000100" + std::string(row.address) + "000000", row.faults);
}

TEST(QxpduInspect, UnusualServiceCentres) {
    const struct {
        const char* address;
        std::vector<std::string> faults;
    } rows[] = {
        {"0191", {}},
        {"03912143", {}},
        {"039121F3", {}}, // octets are counted here, so that a filler may end any number
        {"0391F143", {"octet 2: a filler where a digit belongs"}},
        {"0291A1", {"octet 2: semi-octet A is * by the standard, which the decoder shows as :"}},
        {"0B9111111111111111111111", {}},
        {"0C911111111111111111111111", {"more than 11 octets"}},
        // Three and eight characters, after which the decoder reads the first octet as well.
        {"04D041E110", {"the decoder adds 1 character from the bits after it"}},
        {"08D041E19058341E91", {"the decoder adds 1 character from the bits after it"}},
    };
    for (const auto& row : rows)
        ExpectUnusual(row.address + std::string("01000491214300") + "0000", row.faults);
    for (const char* address : {"04D041E110", "08D041E19058341E91"})
        ExpectUnusual(address + std::string("000491214300002120312143658000"), {});
}

TEST(QxpduInspect, UnusualProtocolsCodingsAndStatuses) {
    for (const char* pid : {"00", "3F", "44", "5F", "7C", "C0"})
        ExpectUnusual("00010004912143" + std::string(pid) + "0000", {});
    for (const char* pid : {"2E", "49", "80", "BF"})
        ExpectUnusual("00010004912143" + std::string(pid) + "0000", {"a reserved value"});
    const struct {
        const char* dcs;
        std::vector<std::string> faults;
    } codings[] = {
        {"00", {}},
        {"5B", {}},
        {"CB", {}},
        {"F7", {}},
        {"80", {"a reserved coding group"}},
        {"BB", {"a reserved coding group"}},
        {"A0", {"a reserved coding group"}},
        {"01", {"reserved bits are set, as there is no class"}},
        {"42", {"reserved bits are set, as there is no class"}},
        {"20",
         {"compressed text, of which TP-UDL counts the octets; the decoder takes it for text as it is"}},
        {"0C", {"the reserved alphabet"}},
        {"C4", {"a reserved bit is set"}},
        {"E4", {"a reserved bit is set"}},
        {"F8", {"a reserved bit is set"}},
        {"70",
         {"compressed text, of which TP-UDL counts the octets; the decoder takes it for text as it is"}},
    };
    for (const auto& row : codings)
        ExpectUnusual("0001000491214300" + std::string(row.dcs) + "00", row.faults);
    const std::string report = "000200049121432120312143658021203121436580";
    for (const char* status : {"00", "02", "10", "1F", "20", "25", "30", "40", "49", "50", "60", "65", "7F"})
        ExpectUnusual(report + status, {});
    for (const char* status : {"03", "0F", "26", "4A", "66", "6F", "80", "FF"})
        ExpectUnusual(report + status, {"a reserved value"});
}

TEST(QxpduInspect, UnusualTimes) {
    const std::string outOfRange = "out of range; the decoder passes over this time";
    const struct {
        const char* time;
        std::vector<std::string> faults;
    } rows[] = {
        {"21203121436580", {}},
        {"00101032959565", {}},
        {"21313121436580", {outOfRange, "month 13; 1 to 12 by the standard"}},
        {"21003121436580", {"month 0; 1 to 12 by the standard"}},
        {"21202321436580", {outOfRange, "day 32; 1 to 31 by the standard"}},
        {"21200021436580", {"day 0; 1 to 31 by the standard"}},
        {"21200321436580", {"month 2 has no day 30"}},
        {"21203142436580", {"hour 24; 0 to 23 by the standard"}},
        {"21203152436580", {outOfRange, "hour 25; 0 to 23 by the standard"}},
        {"21203121066580", {outOfRange, "minute 60; 0 to 59 by the standard"}},
        {"21203121430680", {outOfRange, "second 60; 0 to 59 by the standard"}},
        {"A1203121436580", {"not two decimal digits"}},
        {"1A203121436580", {"not two decimal digits"}},
        {"212031214365A0", {"not two decimal digits", "no whole hours; the decoder drops the rest"}},
        {"21203121436575", {"more than 14 hours", "no whole hours; the decoder drops the rest"}},
        {"21203121436585", {"more than 14 hours", "no whole hours; the decoder drops the rest"}},
        {"21203121436522", {"no whole hours; the decoder drops the rest"}},
    };
    for (const auto& row : rows)
        ExpectUnusual("0004049121430000" + std::string(row.time) + "00", row.faults);
    ExpectUnusual("000404912143000021203121436580", {}); // the PDU ends too early, but the time is a time
}

TEST(QxpduInspect, UnusualUserData) {
    const struct {
        const char* pdu; ///< from TP-DCS on
        std::vector<std::string> faults;
    } rows[] = {
        {"0000", {}},
        {"0005C8329BFD06", {}},
        {"0008C8329BFD06DDDF", {}},
        {"0005", {"no user data; the decoder gives an empty text"}},
        {"0005C8329BFD",
         {"1 octet missing; the decoder reads zeros instead",
          "1 character more after the PDU; the decoder reads zeros there"}},
        {"0005C8329BFD0600", {"1 octet too many"}},
        {"0005C8329BFD86", {"5 bits after the last septet not zero"}},
        {"0005C8329BFD0E", {"5 bits after the last septet not zero"}},
        {"080400480069", {}},
        {"080300480069", {"1 octet too many", "an odd number of octets; the decoder takes one more"}},
        {"0403414243", {}},
        {"0802D83D", {"half a surrogate pair"}},
        {"0804DE000041", {"half a surrogate pair"}},
        {"0804D83DDE00", {}},
        {"080C004100420043D83DDE000044", {}}, // the pair stands at the end of a row
    };
    const std::string submit = "0001000491214300";
    for (const auto& row : rows)
        ExpectUnusual(submit + row.pdu, row.faults);
    const auto octets = [](std::size_t count) { return std::string(2 * count, '0'); };
    ExpectUnusual(submit + "00A0" + octets(140), {});
    ExpectUnusual(submit + "00A1" + octets(141), {"more than 160"});
    ExpectUnusual(submit + "048C" + octets(140), {});
    ExpectUnusual(submit + "048D" + octets(141), {"more than 140"});
    ExpectUnusual(submit + "088E" + octets(142), {"more than 140"});
}

TEST(QxpduInspect, UnusualHeaders) {
    const struct {
        const char* header; ///< as 8-bit data, so that no septets matter
        std::vector<std::string> faults;
    } rows[] = {
        {"0500032A0302", {}},
        {"0500032A0300", {"part 0 of 3"}},
        {"0500032A0304", {"part 4 of 3"}},
        {"0500032A0303", {}},
        {"0500032A0000", {"a message of no parts", "part 0 of 0"}},
        {"06080412340304", {"part 4 of 3"}},
        {"0600042A030200", {"4 octets of data, other than the standard has them"}},
        {"0A00032A030200032A0302", {"more than one concatenation, of which the decoder keeps the last"}},
        {"020200", {"the decoder passes over it"}},
        {"0401020005", {"the decoder takes the message count for the total of a concatenation"}},
        {"03070103", {}},
        {"03070104", {"a reserved value"}},
        {"03060185", {}},
        {"030601A5", {"a reserved value"}},
        {"03240101", {}}, // no GSM text, which is what the language is of
        {"0324010E", {"a reserved value"}},
    };
    for (const auto& row : rows) {
        const std::string header = row.header;
        const unsigned char length[] = {static_cast<unsigned char>(header.size() / 2)};
        ExpectUnusual("004100049121430004" + tests::Hex(length, 1) + header, row.faults);
    }
    ExpectUnusual("0041000491214300040C0A70082A03",
                  {"7 octets missing; the decoder reads zeros instead",
                   "6 octets missing; the decoder reads zeros there",
                   "its data go on after the PDU; the decoder reads zeros there"});
    // Elements made of the zeros after the PDU are no further concatenations.
    ExpectUnusual("0041000491214300040B0A00032A0302", {"5 octets missing; the decoder reads zeros instead",
                                                       "5 octets missing; the decoder reads zeros there"});
    const std::string language = "the decoder shows the text in the default alphabet";
    ExpectUnusual("0041000491214300000806240101250101", {language, language});
    ExpectUnusual("00410004912143000004050003010201",
                  {"2 octets too many", "it takes 7 septets, more than TP-UDL has"});
    ExpectUnusual("00410004912143000405050003010201",
                  {"1 octet too many", "it takes 6 octets, more than TP-UDL has"});
}

TEST(QxpduInspect, TextBehindAHeaderOfAnotherLengthBeginsElsewhereByTheStandard) {
    // Nine octets of header take eleven septets with five fill bits.
    ExpectUnusual(
        "00410004912143000010080A0300041070010341E19058341E",
        {"1 octet too many",
         "by the standard 5 septets after 5 fill bits; the decoder reads 6 septets after 0 fill bits"});
    ExpectUnusual("0041000491214300000E0500032A0302916536FB0DBA03", {"the fill bit is set"});
    ExpectUnusual("0041000491214300000B0608041234030141E130", {"3 bits after the last septet not zero"});
}

TEST(QxpduInspect, SurrogatePairStaysInOneRow) {
    // The eighth octet of the text ends the first half of U+1F600.
    const Outcome run = Qxpdu({"inspect", "0001000491214300080C004100420043D83DDE000044"});
    EXPECT_TRUE(HasLine(run.out, "10  00 41 00 42 00 43 D8 3D  TP-UD \"ABC\xF0\x9F\x98\x80\"")) << run;
    EXPECT_TRUE(HasLine(run.out, "18  DE 00")) << run;
    EXPECT_TRUE(HasLine(run.out, "20  00 44                    TP-UD \"D\"")) << run;
    // Where the PDU ends within the second half, the decoder reads a zero after it.
    ExpectLine("0001000491214300080C004100420043D83DDE",
               "10  00 41 00 42 00 43 D8 3D  TP-UD \"ABC\xF0\x9F\x98\x80\"");
    // Where another first half follows, the row ends as any other.
    ExpectLine("0001000491214300080C004100420043D83DD83DDE00",
               "18  D8 3D DE 00              TP-UD \"\xF0\x9F\x98\x80\"");
}

TEST(QxpduInspect, LongFieldsGoOnInTheNextLines) {
    const Outcome run = Qxpdu({"inspect", "0B911111111111111111111101000491214300"
                                          "0000"});
    EXPECT_NE(run.out.find("     2  11 11 11 11 11 11 11 11  SC address digits +11111111111111111111\n"
                           "    10  11 11\n"
                           "    12  01 "),
              std::string::npos)
        << run;
}

TEST(QxpduInspect, OctetsBehindWhatIsDecodedAreShown) {
    ExpectLine("00010004912143000001617F",
               "11  7F                       not decoded: what follows the user data");
    ExpectLine("00030491214300", "6  00                       not decoded: what follows the address");
    ExpectLine("00020004912143212031214365802120312143658000FF",
               "22  FF                       not decoded: TP-PI and what it announces");
    ExpectLine("00010004912143000C0141", "10  41                       TP-UD: not decoded");
}

TEST(QxpduInspect, JsonHasOffsetAndLengthOfEachRow) {
    const Outcome run = Qxpdu({"inspect", "--json", "--no-smsc", "01000080000001E1"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.Json(), nlohmann::json::parse(R"([{"argument":1,"octets":"01000080000001E1","map":[
        {"offset":0,"length":1,"octets":"01","field":"first octet","value":1,"bits":[
            {"bits":"0... ....","name":"TP-RP","value":0,"meaning":"no reply path"},
            {"bits":".0.. ....","name":"TP-UDHI","value":0,"meaning":"no user-data header"},
            {"bits":"..0. ....","name":"TP-SRR","value":0,"meaning":"no status report requested"},
            {"bits":"...0 0...","name":"TP-VPF","value":0,"meaning":"no validity period"},
            {"bits":".... .0..","name":"TP-RD","value":0,"meaning":"duplicates accepted"},
            {"bits":".... ..01","name":"TP-MTI","value":1,"meaning":"SMS-SUBMIT"}]},
        {"offset":1,"length":1,"octets":"00","field":"TP-MR","value":0},
        {"offset":2,"length":1,"octets":"00","field":"TP-DA","part":"length","value":0,"meaning":"0 digits"},
        {"offset":3,"length":1,"octets":"80","field":"TP-DA","part":"type","value":128,"bits":[
            {"bits":"1... ....","name":"extension","value":1,"meaning":"none"},
            {"bits":".000 ....","name":"type of number","value":0,"meaning":"type unknown"},
            {"bits":".... 0000","name":"numbering plan","value":0,"meaning":"plan unknown"}]},
        {"offset":4,"length":1,"octets":"00","field":"TP-PID","value":0,"meaning":"plain short message","bits":[
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
        {"offset":7,"length":1,"octets":"E1","field":"TP-UD","value":"a",
            "unusual":["1 bit after the last septet not zero"]}]}])"));
}

TEST(QxpduInspect, JsonOfABrokenPduSaysWhatWasExpected) {
    const Outcome run = Qxpdu({"inspect", "--jsonl", "0002"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "");
    const nlohmann::json object = run.Json();
    EXPECT_EQ(object["error"], "TP-MR at octet 2: expected an octet, found the end of the PDU");
    EXPECT_EQ(object["stop"], nlohmann::json::parse(R"({"field":"TP-MR","offset":2,"expected":"an octet",
                                                       "found":"the end of the PDU"})"));
    EXPECT_EQ(object["map"].size(), 2U);
    const Outcome array = Qxpdu({"inspect", "--json", "0002"});
    EXPECT_EQ(array.err,
              "qxpdu: argument 1: TP-MR at octet 2: expected an octet, found the end of the PDU\n");
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
    EXPECT_EQ(lines, (std::vector<std::pair<int, bool>>{{1, true}, {3, false}, {4, true}}));
}

TEST(QxpduInspect, ColoursArePutOnFieldsAndFaults) {
    const Outcome run = Qxpdu({"inspect", "--color", "always", "--no-smsc", "01"});
    EXPECT_EQ(run.out.rfind("     0  \x1B[32m01                     \x1B[0m  first octet 0x01\n"
                            "        \x1B[32m0... ....              \x1B[0m    TP-RP 0: no reply path\n",
                            0),
              0U)
        << run;
    EXPECT_NE(
        run.out.find("\x1B[31m! TP-MR at octet 1: expected an octet, found the end of the PDU\x1B[0m\n"),
        std::string::npos)
        << run;
}

TEST(QxpduInspect, ColoursGoToTerminalsOnlyAndNotAgainstTheUsersWish) {
    if (!tests::HasPseudoTerminals())
        GTEST_SKIP() << tests::c_noPseudoTerminals;
    const char escape = '\x1B';
    const auto isColoured = [&](const std::string& script) {
        return Shell(script).out.find(escape) != std::string::npos;
    };
    EXPECT_FALSE(isColoured("$QXPDU inspect 00030491214300"));
    EXPECT_FALSE(isColoured("$QXPDU inspect --color never 00030491214300"));
    EXPECT_TRUE(isColoured("$QXPDU inspect --color always 00030491214300"));
    EXPECT_TRUE(isColoured("NO_COLOR=1 $QXPDU inspect --color always 00030491214300"));
    // script(1) gives the tool a terminal.
    EXPECT_TRUE(isColoured("TERM=xterm script -qec \"$QXPDU inspect 00030491214300\" /dev/null"));
    EXPECT_TRUE(isColoured("TERM=xterm NO_COLOR= script -qec \"$QXPDU inspect 00030491214300\" /dev/null"));
    EXPECT_FALSE(isColoured("TERM=xterm NO_COLOR=1 script -qec \"$QXPDU inspect 00030491214300\" /dev/null"));
    EXPECT_FALSE(isColoured("TERM=dumb script -qec \"$QXPDU inspect 00030491214300\" /dev/null"));
    EXPECT_FALSE(
        isColoured("TERM=xterm script -qec \"$QXPDU inspect --color never 00030491214300\" /dev/null"));
}

TEST(QxpduInspect, UnknownColourIsRefused) {
    const Outcome run = Qxpdu({"inspect", "--color", "red", "00"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err.rfind("qxpdu: --color: red is neither auto, always nor never\n", 0), 0U) << run;
}

TEST(QxpduInspect, ControlCharactersDoNotReachTheTerminal) {
    ExpectLine("0001000491214300040103", "10  03                       TP-UD \"\\u0003\"");
}

} // namespace
