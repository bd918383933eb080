// qxpdu cell
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"
#include "tools/qxpdu/Samples.h"

namespace {

using nlohmann::json;
using tests::HasLine;
using tests::Outcome;
using tests::Qxpdu;

constexpr const char* c_page = "432111120111C8329BFD06"; // "Hello", page 1 of 1

/// A page of a UMTS message: its octets, the rest of 82 as filling, and how many are used.
std::string Slot(std::string octets, const char* length) {
    octets.resize(2 * std::size_t{82}, '0');
    return octets + length;
}

/// ETWS earthquake, to be alerted and shown, signed on 2026-11-21 at 08:15:30 UTC.
std::string Notification() {
    return "3000"
           "1100"
           "0180"
           "62111280510300" +
           std::string(86, 'A');
}

/// Of 88 octets, as modems keep them.
std::string StoredPage() {
    std::string page = c_page;
    page.resize(2 * std::size_t{88}, '0');
    return page;
}

TEST(QxpduCell, PageIsShownFieldByField) {
    EXPECT_EQ(Qxpdu({"cell", c_page}),
              (Outcome{0,
                       "     serial number 0x4321: scope 1: network wide, message code 50, update number 1\n"
                       "message identifier 0x1112: CMAS presidential, EU-Alert level 1\n"
                       "data coding scheme 0x01: GSM 7-bit, English\n"
                       "    page parameter 0x11: page 1 of 1\n"
                       "              text Hello\n",
                       ""}));
}

TEST(QxpduCell, MessageIsShownWithTheLengthOfEachPage) {
    const std::string message = "01"
                                "1112"
                                "4321"
                                "01"
                                "02" +
                                Slot("C8329BFD06", "05") + Slot("E8329BFD06", "05");
    const Outcome run = Qxpdu({"cell", message});
    EXPECT_EQ(run.out.substr(0, run.out.find("              text")),
              "      message type 0x01: CBS message\n"
              "message identifier 0x1112: CMAS presidential, EU-Alert level 1\n"
              "                   ~ libQX_Encoding m_MessageIdentifier 4675\n"
              "     serial number 0x4321: scope 1: network wide, message code 50, update number 1\n"
              "                   ~ libQX_Encoding m_SerialNumber 273\n"
              "data coding scheme 0x01: GSM 7-bit, English\n"
              "                   ~ libQX_Encoding m_DataCodingScheme 33\n"
              "   number of pages 0x02: 2 pages\n"
              "       page length 0x05: page 1, 5 octets\n"
              "       page length 0x05: page 2, 5 octets\n");
    EXPECT_TRUE(HasLine(run.out, "text Hellohello")) << run.out;
    EXPECT_EQ(run.err, "");
}

TEST(QxpduCell, NotificationIsShownWithWarningTimeAndSignature) {
    EXPECT_EQ(
        Qxpdu({"cell", Notification()}).out.substr(0, 519),
        "     serial number 0x3000: scope 0: cell wide, displayed at once, message code 768, update "
        "number 0, emergency user alert, popup\n"
        "message identifier 0x1100: ETWS earthquake\n"
        "      warning type 0x0180: earthquake, emergency user alert, popup\n"
        "      warning time 62111280510300: 2026-11-21T08:15:30+00:00\n"
        "         signature AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA"
        "AAAAAAAA\n"
        "                   ~ libQX_Encoding m_DataCodingScheme 1\n"
        "                   ~ libQX_Encoding m_PageParameter 128\n")
        << "and its text";
    const std::string timeless = "3000"
                                 "1100"
                                 "0180" +
                                 std::string(100, '0');
    EXPECT_TRUE(HasLine(Qxpdu({"cell", timeless}).out, "warning time 00000000000000: no time"));
}

TEST(QxpduCell, LanguageBeforeTheTextIsAField) {
    // "en", CR, "Hi": 65 6E 0D 48 69 in septets
    EXPECT_EQ(
        Qxpdu({"cell", "0010003210116577039906"}).out,
        "     serial number 0x0010: scope 0: cell wide, displayed at once, message code 1, update number "
        "0\n"
        "message identifier 0x0032: assigned by the GSM Association\n"
        "data coding scheme 0x10: GSM 7-bit, language before the text\n"
        "    page parameter 0x11: page 1 of 1\n"
        "          language 657703: en, English\n"
        "              text Hi\n"
        "                   ~ libQX_Encoding m_Text \"en\\u000DHi\"\n");
    EXPECT_TRUE(HasLine(Qxpdu({"cell", "0010003211110D0A0048"}).out, "language 0D0A: none"));
    EXPECT_TRUE(HasLine(Qxpdu({"cell", "001000321111F83C0048"}).out, "language F83C: xy"));
}

TEST(QxpduCell, PartsOfAHeaderAreLines) {
    // a concatenation header before UCS2 "Hi"
    const Outcome run = Qxpdu({"cell", "00100032981105000307020100480069"});
    EXPECT_TRUE(
        HasLine(run.out, "TP-UDH 050003070201: concatenation, 8-bit reference: reference 7, total 2, part 1"))
        << run.out;
    EXPECT_TRUE(HasLine(run.out, "text Hi")) << run.out;
    EXPECT_TRUE(HasLine(Qxpdu({"cell", "0010003298110200030048"}).out, "TP-UDH 020003: ignored"));
}

TEST(QxpduCell, DataAreShownAsOctets) {
    EXPECT_TRUE(HasLine(Qxpdu({"cell", "001000324411004869FF"}).out, "data 004869FF: .Hi."));
}

TEST(QxpduCell, FormatIsAsTold) {
    EXPECT_TRUE(
        HasLine(Qxpdu({"cell", "--type", "gsm", Notification()}).out, "page parameter 0x80: page 1 of 1"));
    EXPECT_TRUE(HasLine(Qxpdu({"cell", "--type", "etws", "300011000180"}).out,
                        "warning type 0x0180: earthquake, "
                        "emergency user alert, popup"));
    EXPECT_TRUE(HasLine(Qxpdu({"cell", "--type", "umts",
                               "01111243210101"
                               "C8329BFD06"})
                            .out,
                        "text Hello"));
    EXPECT_TRUE(HasLine(Qxpdu({"cell", "--type", "umts",
                               "02111243210101"
                               "C8329BFD06"})
                            .out,
                        "message type 0x02: reserved"));
    EXPECT_EQ(Qxpdu({"cell", "--type", "lte", c_page}).status, 2);
}

TEST(QxpduCell, FaultNamesTheFieldThatIsCut) {
    const Outcome run = Qxpdu({"cell"}, "4321111201\n43\n432111120111\n432111120111g\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err,
              "qxpdu: line 1: octet 5: the octets end in page parameter, which takes 1 octet: 0 are there\n"
              "qxpdu: line 2: octet 0: the octets end in serial number, which takes 2 octets: 1 are there\n"
              "qxpdu: line 4: character 13, 'g', is no hexadecimal digit\n");
    EXPECT_TRUE(HasLine(run.out, "text")) << run.out;
    EXPECT_EQ(Qxpdu({"cell", "--type", "umts", "0111124321"}).err,
              "qxpdu: argument 1: octet 5: the octets end in data coding scheme, which takes 1 octet: 0 are "
              "there\n");
    EXPECT_EQ(
        Qxpdu({"cell", "--type", "umts", "011112432101"}).err,
        "qxpdu: argument 1: octet 6: the octets end in number of pages, which takes 1 octet: 0 are there; "
        "libQX_Encoding decodes this PDU\n");
    const json object = json::parse(Qxpdu({"cell", "--jsonl", "4321111201"}).out);
    EXPECT_EQ(object, json::parse(R"({
        "format": 2,
        "argument": 1,
        "error": "octet 5: the octets end in page parameter, which takes 1 octet: 0 are there",
        "fault": {"code": "field-cut", "octet": 5, "field": "page parameter", "expected": 1, "found": 0}
    })"));
}

TEST(QxpduCell, WhatConcernsTheTextIsAWarningOrWithStrictAnError) {
    struct Row {
        const char* octets;
        const char* words;
    };
    const Row rows[] = {
        {"00100032481148", "content at octet 6: octet 48 is half a unit of UCS2 text, and is passed over"},
        {"001000324811D83D", "content at octet 6: D83D is half of a character, without the other half"},
        {"001000326011C8329BFD06", "content at octet 6: the text is compressed, and is not made"},
        {"0010003201111B", "content at octet 6: a lone escape ends the text"},
    };
    for (const Row& row : rows) {
        const Outcome run = Qxpdu({"cell", row.octets});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, std::string("qxpdu: argument 1: warning: ") + row.words + "\n");
        EXPECT_EQ(Qxpdu({"cell", "--jsonl", row.octets}).err, "");
        EXPECT_EQ(Qxpdu({"cell", "--strict", row.octets}),
                  (Outcome{1, "", std::string("qxpdu: argument 1: ") + row.words + "\n"}));
    }
    EXPECT_EQ(Qxpdu({"cell", "--strict", "001000320100C8329BFD06"}).status, 0) << "of the page parameter";
    EXPECT_EQ(Qxpdu({"cell", "--strict", "0010003248110416000D00"}).status, 0) << "after the text";
    EXPECT_EQ(Qxpdu({"cell", "--type", "umts", "01111243210102" + Slot("C8329BFD06", "05")}).err,
              "qxpdu: argument 1: warning: number of pages at octet 6: 2 pages announced, 1 wholly there\n");
}

TEST(QxpduCell, WhatThePagesOfAMessageHealIsNoWarning) {
    // 15 and 0 of 82 octets, an escape at the end of the first page; its code, "<", begins the second
    const std::string escaped = "01"
                                "1112"
                                "4321"
                                "01"
                                "02" +
                                Slot("1B", "01") + Slot("3C", "01");
    EXPECT_EQ(Qxpdu({"cell", escaped}).err, "");
    EXPECT_TRUE(HasLine(Qxpdu({"cell", escaped}).out, "text ["));
    const std::string paired = "01"
                               "1112"
                               "4321"
                               "48"
                               "02" +
                               Slot("D83D", "02") + Slot("DE00", "02");
    EXPECT_EQ(Qxpdu({"cell", paired}).err, "");
    EXPECT_TRUE(HasLine(Qxpdu({"cell", paired}).out, "text \xF0\x9F\x98\x80"));
    const std::string last = "01"
                             "1112"
                             "4321"
                             "01"
                             "02" +
                             Slot("C834", "02") + Slot("1B", "01");
    EXPECT_EQ(Qxpdu({"cell", last}).err,
              "qxpdu: argument 1: warning: content at octet 90: a lone escape ends the text\n");
}

TEST(QxpduCell, JsonOfAPageHasFieldsPagesAndTheOtherReading) {
    EXPECT_EQ(Qxpdu({"cell", "--json", "21231100591100480069000D"}).Json(), json::parse(R"([{
        "format": 2,
        "argument": 1,
        "octets": "21231100591100480069000D",
        "type": "GSM page",
        "serial_number": {
            "raw": 8483,
            "meaning": "scope 0: cell wide, displayed at once, message code 530, update number 3, emergency user alert",
            "geographical_scope": {"raw": 0, "meaning": "cell wide, displayed at once"},
            "message_code": 530,
            "update_number": 3,
            "emergency_alert": true,
            "popup": false
        },
        "message_identifier": {"raw": 4352, "meaning": "ETWS earthquake"},
        "data_coding_scheme": {"raw": 89, "meaning": "UCS2, class 1: mobile equipment", "alphabet": "UCS2", "class": 1},
        "page_parameter": {"raw": 17, "meaning": "page 1 of 1", "page": 1, "pages": 1},
        "pages": [{"page": 1, "octets": "00480069000D", "text": "Hi", "padding": 1}],
        "text": "Hi",
        "libQX_Encoding": {"m_Text": "@\u0394\u00A3H\u00F9"}
    }])"));
}

TEST(QxpduCell, JsonOfAMessageHasAnObjectForEachPage) {
    const std::string message = "01"
                                "1112"
                                "4321"
                                "11"
                                "02" +
                                Slot("E5370048", "04") + Slot("0069", "02");
    const json object = Qxpdu({"cell", "--json", message}).Json()[0];
    EXPECT_EQ(object["type"], "UMTS message");
    EXPECT_EQ(object["message_type"], json::parse(R"({"raw": 1, "meaning": "CBS message"})"));
    EXPECT_EQ(object["number_of_pages"], json::parse(R"({"raw": 2, "meaning": "2 pages"})"));
    EXPECT_EQ(object["pages"],
              json::parse(R"([{"page": 1, "octets": "E5370048", "language": "eo", "text": "H"},
                                               {"page": 2, "octets": "0069", "text": "i"}])"));
    EXPECT_EQ(object["language"], "eo");
    EXPECT_EQ(object["text"], "Hi");
    EXPECT_FALSE(object.contains("page_length")) << "it is of a page";
}

TEST(QxpduCell, JsonOfANotificationHasNoText) {
    const json object = Qxpdu({"cell", "--json", Notification()}).Json()[0];
    EXPECT_EQ(object["type"], "ETWS primary notification");
    EXPECT_EQ(object["warning_type"],
              json::parse(R"({"raw": 384, "meaning": "earthquake, emergency user alert, popup",
                                                      "type": 0, "emergency_alert": true, "popup": true})"));
    EXPECT_EQ(object["warning_time"],
              json::parse(R"({"raw": "62111280510300", "meaning": "2026-11-21T08:15:30+00:00",
                                                      "time": "2026-11-21T08:15:30+00:00"})"));
    EXPECT_EQ(object["signature"]["raw"], std::string(86, 'A'));
    EXPECT_FALSE(object.contains("text"));
    EXPECT_FALSE(object.contains("pages"));
}

TEST(QxpduCell, JsonOfDataAndHeader) {
    const json data = Qxpdu({"cell", "--json", "0010003294110500030702014869"}).Json()[0];
    EXPECT_EQ(data["data"], "4869");
    EXPECT_EQ(data["data_coding_scheme"]["header"], true);
    EXPECT_EQ(data["pages"][0]["header"]["elements"][0]["total"], 2);
    EXPECT_EQ(data["pages"][0]["data"], "4869");
    const json ignored = Qxpdu({"cell", "--json", "0010003298110200030048"}).Json()[0];
    EXPECT_EQ(ignored["pages"][0]["header"]["ignored"], true);
    const json compressed = Qxpdu({"cell", "--json", "001000327511C8"}).Json()[0]["data_coding_scheme"];
    EXPECT_EQ(compressed["compressed"], true);
    EXPECT_EQ(compressed["alphabet"], "8-bit data");
    const json reserved = Qxpdu({"cell", "--json", "001000328011C8"}).Json()[0]["data_coding_scheme"];
    EXPECT_EQ(reserved["reserved"], true);
    EXPECT_FALSE(
        Qxpdu({"cell", "--json", "00100032D011C8"}).Json()[0]["data_coding_scheme"].contains("alphabet"));
}

TEST(QxpduCell, PagesAreRowsAndLines) {
    EXPECT_EQ(Qxpdu({"cell", "--brief", c_page, Notification(), "001000324411004869"}).out,
              "from 4370 Hello\n"
              "2026-11-21T08:15:30+00:00 from 4352 earthquake\n"
              "from 50 004869\n");
    EXPECT_EQ(Qxpdu({"cell", "--brief", "3000110003FF", "--type", "etws"}).out, "from 4352 tsunami\n");
    EXPECT_EQ(Qxpdu({"cell", "--columns", "type,address,part,alphabet,text", "432111120123C8329BFD06"}).out,
              "type\taddress\tpart\talphabet\ttext\nGSM page\t4370\t2/3\tGSM 7-bit\tHello\n");
    const std::string table = std::string("id\tpage\n7\t") + c_page + "\n8\t43\n9\t0010003201111B\n";
    EXPECT_EQ(
        Qxpdu({"cell", "--columns", "text,error", "--input-column", "2"}, table),
        (Outcome{1,
                 "id\ttext\terror\n7\tHello\t\n8\t\toctet 0: the octets end in serial number, which takes 2 "
                 "octets: 1 are there\n9\t\t\n",
                 "qxpdu: line 3: octet 0: the octets end in serial number, which takes 2 octets: 1 are "
                 "there\nqxpdu: line 4: warning: content at octet 6: a lone escape ends the text\n"}));
}

TEST(QxpduCell, EachLineIsALine) {
    EXPECT_EQ(
        Qxpdu({"cell", "--columns", "text", "--each-line"}, std::string("+CBM: 11\n") + c_page + "\n\n43\n"),
        (Outcome{
            0,
            "\tcharacter 1, '+', is no hexadecimal digit\nHello\t\n\n\toctet 0: the octets end in serial "
            "number, which takes 2 octets: 1 are there\n",
            ""}));
    const Outcome joined = Qxpdu({"cell", "--columns", "text", "--each-line", "--join"});
    EXPECT_EQ(joined.status, 2);
    EXPECT_TRUE(tests::HasLine(joined.err, "qxpdu: --join excludes --each-line")) << joined.err;
}

TEST(QxpduCell, PagesOfALogAreShownAndItsMessagesPassedOver) {
    const std::string stored = StoredPage();
    const std::string log = std::string("+CMT: ,24\n") + tests::c_hello + "\n+CBM: 11\n" + c_page +
                            "\n+CMGL: 1,1,,88\n" + stored + "\n+CMGL: 2,1,,88\n" + tests::c_hello + "\nOK\n";
    EXPECT_EQ(Qxpdu({"cell", "--brief"}, log), (Outcome{0, "from 4370 Hello\nfrom 4370 Hello\n", ""}));
}

TEST(QxpduCell, PageThatAModemKeepsIsAPageToEveryCommand) {
    const std::string log = "+CMGL: 1,1,,88\n" + StoredPage() + "\nOK\n";
    EXPECT_EQ(Qxpdu({"decode", "--brief"}, log), (Outcome{0, "from 4370 Hello\n", ""}));
    EXPECT_EQ(Qxpdu({"inspect"}, log).out, Qxpdu({"inspect", "--cell", StoredPage()}).out);
}

TEST(QxpduCell, MessageOfTheLengthOfAPageIsAMessageWhereItIsSound) {
    // An SMS-DELIVER without a service centre: 8-bit data, 69 octets after 19. As a page, it is page 1 of 2.
    std::string sound = "040B914411122233F40004"
                        "62111280510300"
                        "45";
    sound.resize(2 * std::size_t{88}, '1');
    const std::string log = "+CMGL: 1,1,,88\n" + sound + "\nOK\n";
    EXPECT_EQ(Qxpdu({"cell"}, log), (Outcome{0, "", ""}));
    EXPECT_TRUE(HasLine(Qxpdu({"decode"}, log).out, "TP-MTI 0: SMS-DELIVER"));
    EXPECT_TRUE(HasLine(Qxpdu({"cell"}, "+CMGL: 1,3,,88\n" + sound + "\nOK\n").out,
                        "page parameter 0x12: page 1 of 2"))
        << "an SMS-DELIVER is never sent";
}

TEST(QxpduCell, MessageOfTheLengthOfAPageMayHaveAServiceCentreThatIsCounted) {
    // A service centre of 8 octets, and an SMS-DELIVER: 8-bit data, 61 octets after 19.
    std::string sound = "0791214365870921"
                        "040B914411122233F40004"
                        "62111280510300"
                        "3D";
    sound.resize(2 * std::size_t{88}, '1');
    const std::string log = "+CMGL: 1,1,,88\n" + sound + "\nOK\n";
    EXPECT_EQ(Qxpdu({"cell"}, log), (Outcome{0, "", ""}));
    EXPECT_TRUE(HasLine(Qxpdu({"decode"}, log).out, "TP-MTI 0: SMS-DELIVER"));
}

TEST(QxpduCell, PagesAreKeptUnderTheirOwnHeadings) {
    for (const char* heading : {"+CMT: ,88", "+CDS: 88", "AT+CMGS=88", "AT+CMGW=88"})
        EXPECT_EQ(Qxpdu({"cell"}, std::string(heading) + '\n' + StoredPage() + "\nOK\n").out, "") << heading;
    EXPECT_NE(Qxpdu({"cell"}, "+CMGR: 1,,88\n" + StoredPage() + "\nOK\n").out, "");
    EXPECT_EQ(Qxpdu({"cell"}, std::string("+CMGR: 1,,88\n") + c_page + "\nOK\n").out, "") << "and whole";
}

TEST(QxpduCell, OctetsThatAreNeitherAPageNorAMessageAreNoPage) {
    // Page 0 of 1, page 2 of 1, and a reserved data coding.
    for (const char* head : {"432111120101", "432111120121", "432111128011"}) {
        std::string octets = head;
        octets.resize(2 * std::size_t{88}, '0');
        EXPECT_EQ(Qxpdu({"cell"}, "+CMGL: 1,1,,88\n" + octets + "\nOK\n"), (Outcome{0, "", ""})) << head;
    }
}

} // namespace
