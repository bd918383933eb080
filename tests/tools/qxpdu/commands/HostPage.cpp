// qxpdu cell --as libQX_Encoding
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::HasLine;
using tests::Outcome;
using tests::Qxpdu;

void ExpectLine(const std::string& page, const std::string& line) {
    const Outcome run = Qxpdu({"cell", "--as", "libQX_Encoding", page});
    EXPECT_EQ(run.status, 0) << run;
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(HasLine(run.out, line)) << line << " in\n" << run.out;
}

TEST(QxpduHostPage, PageIsShownFieldByField) {
    EXPECT_EQ(
        Qxpdu({"cell", "--as", "libQX_Encoding", "432111120111C8329BFD06"}),
        (Outcome{
            0,
            "     Serial number 0x4321: geographical scope 1 (PLMN wide), message code 50, update number 1\n"
            "Message identifier 0x1112: CMAS/WEA national (presidential) alert, EU-Alert level 1\n"
            "Data coding scheme 0x01: GSM 7-bit, English\n"
            "    Page parameter 0x11: page 1 of 1\n"
            "              text Hello\n",
            ""}));
}

TEST(QxpduHostPage, SerialNumberIsTakenApart) {
    ExpectLine("000000320111", "Serial number 0x0000: geographical scope 0 (cell wide, immediate display), "
                               "message code 0, update number 0");
    ExpectLine("7FFF00320111",
               "Serial number 0x7FFF: geographical scope 1 (PLMN wide), message code 1023, update number 15");
    ExpectLine("801000320111", "Serial number 0x8010: geographical scope 2 (location, service or tracking "
                               "area wide), message code 1, update number 0");
    ExpectLine("E00F00320111",
               "Serial number 0xE00F: geographical scope 3 (cell wide), message code 512, update number 15");
    ExpectLine("2000"
               "1100"
               "0111",
               "Serial number 0x2000: geographical scope 0 (cell wide, immediate display), message code 512, "
               "update number 0, emergency alert, no popup");
    ExpectLine("1000"
               "1107"
               "0111",
               "Serial number 0x1000: geographical scope 0 (cell wide, immediate display), message code 256, "
               "update number 0, no emergency alert, popup");
    ExpectLine("1000"
               "1108"
               "0111",
               "Serial number 0x1000: geographical scope 0 (cell wide, immediate display), message code 256, "
               "update number 0");
}

TEST(QxpduHostPage, MessageIdentifiersAreNamed) {
    struct Row {
        const char* octets;
        const char* name;
    };
    const Row rows[] = {
        {"0000", "assigned by the GSM Association"},
        {"03E7", "assigned by the GSM Association"},
        {"03E8", "location services, E-OTD assistance data"},
        {"03EC", "not assigned"},
        {"1000", "data download to the (U)SIM, unsecured"},
        {"1080", "data download to the (U)SIM, secured"},
        {"1100", "ETWS, earthquake warning"},
        {"1101", "ETWS, tsunami warning"},
        {"1102", "ETWS, earthquake and tsunami warning"},
        {"1103", "ETWS, test message"},
        {"1104", "ETWS, other emergency"},
        {"1105", "ETWS, for future extension"},
        {"1107", "ETWS, for future extension"},
        {"1108", "not assigned"},
        {"1111", "not assigned"},
        {"1113", "CMAS/WEA extreme alert, immediate, observed, EU-Alert level 2"},
        {"1114", "CMAS/WEA extreme alert, immediate, likely, EU-Alert level 2"},
        {"1115", "CMAS/WEA severe alert, severity extreme, expected, observed, EU-Alert level 3"},
        {"111A", "CMAS/WEA severe alert, expected, likely, EU-Alert level 3"},
        {"111B", "CMAS/WEA child abduction emergency (AMBER), EU-Amber"},
        {"111C", "CMAS/WEA required monthly test, EU-Alert test"},
        {"111D", "CMAS/WEA exercise, EU-Alert exercise"},
        {"111F", "CMAS/WEA national (presidential) alert, EU-Alert level 1, additional languages"},
        {"1127", "CMAS/WEA severe alert, expected, likely, EU-Alert level 3, additional languages"},
        {"112C", "CMAS/WEA public safety message, EU-Alert level 4"},
        {"1130", "CMAS/WEA geo-fencing trigger"},
        {"1131", "public warning, for future extension"},
        {"18FF", "public warning, for future extension"},
        {"1900", "not assigned"},
        {"A000", "operator-specific"},
        {"AFFF", "operator-specific"},
        {"B000", "not assigned"},
        {"FFFF", "reserved"},
        {"03E9", "location services, DGPS correction data"},
        {"03EA", "location services, GPS ephemeris and clock correction data"},
        {"03EB", "location services, GPS almanac and other data"},
        {"107F", "data download to the (U)SIM, unsecured"},
        {"10FF", "data download to the (U)SIM, secured"},
        {"1112", "CMAS/WEA national (presidential) alert, EU-Alert level 1"},
        {"1116", "CMAS/WEA severe alert, severity extreme, expected, likely, EU-Alert level 3"},
        {"1117", "CMAS/WEA severe alert, immediate, observed, EU-Alert level 3"},
        {"1118", "CMAS/WEA severe alert, immediate, likely, EU-Alert level 3"},
        {"1119", "CMAS/WEA severe alert, expected, observed, EU-Alert level 3"},
        {"111E", "CMAS/WEA operator-defined use"},
        {"1120", "CMAS/WEA extreme alert, immediate, observed, EU-Alert level 2, additional languages"},
        {"1121", "CMAS/WEA extreme alert, immediate, likely, EU-Alert level 2, additional languages"},
        {"1122", "CMAS/WEA severe alert, severity extreme, expected, observed, EU-Alert level 3, additional "
                 "languages"},
        {"1123",
         "CMAS/WEA severe alert, severity extreme, expected, likely, EU-Alert level 3, additional languages"},
        {"1124", "CMAS/WEA severe alert, immediate, observed, EU-Alert level 3, additional languages"},
        {"1125", "CMAS/WEA severe alert, immediate, likely, EU-Alert level 3, additional languages"},
        {"1126", "CMAS/WEA severe alert, expected, observed, EU-Alert level 3, additional languages"},
        {"1128", "CMAS/WEA child abduction emergency (AMBER), EU-Amber, additional languages"},
        {"1129", "CMAS/WEA required monthly test, EU-Alert test, additional languages"},
        {"112A", "CMAS/WEA exercise, EU-Alert exercise, additional languages"},
        {"112B", "CMAS/WEA operator-defined use, additional languages"},
        {"112D", "CMAS/WEA public safety message, EU-Alert level 4, additional languages"},
        {"112E", "CMAS/WEA state or local test"},
        {"112F", "CMAS/WEA state or local test, additional languages"},
    };
    for (const Row& row : rows)
        ExpectLine(std::string("0000") + row.octets + "0111",
                   std::string("Message identifier 0x") + row.octets + ": " + row.name);
}

TEST(QxpduHostPage, DataCodingIsShownInWordsWithARemarkWhereItIsNot7Bit) {
    struct Row {
        const char* octet;
        const char* meaning;
    };
    const Row rows[] = {
        {"00", "GSM 7-bit, German"},
        {"01", "GSM 7-bit, English"},
        {"02", "GSM 7-bit, Italian"},
        {"03", "GSM 7-bit, French"},
        {"04", "GSM 7-bit, Spanish"},
        {"05", "GSM 7-bit, Dutch"},
        {"06", "GSM 7-bit, Swedish"},
        {"07", "GSM 7-bit, Danish"},
        {"08", "GSM 7-bit, Portuguese"},
        {"09", "GSM 7-bit, Finnish"},
        {"0A", "GSM 7-bit, Norwegian"},
        {"0B", "GSM 7-bit, Greek"},
        {"0C", "GSM 7-bit, Turkish"},
        {"0D", "GSM 7-bit, Hungarian"},
        {"21", "GSM 7-bit, Hebrew"},
        {"22", "GSM 7-bit, Arabic"},
        {"23", "GSM 7-bit, Russian"},
        {"0E", "GSM 7-bit, Polish"},
        {"0F", "GSM 7-bit, language unspecified"},
        {"10", "GSM 7-bit, language named at the start of the text"},
        {"11", "UCS2, language named at the start of the text; the text is read as GSM 7-bit all the same"},
        {"12", "reserved; the text is read as GSM 7-bit all the same"},
        {"20", "GSM 7-bit, Czech"},
        {"24", "GSM 7-bit, Icelandic"},
        {"25", "GSM 7-bit, reserved language"},
        {"3F", "GSM 7-bit, reserved language"},
        {"40", "GSM 7-bit"},
        {"43", "GSM 7-bit"},
        {"44", "8-bit data; the text is read as GSM 7-bit all the same"},
        {"48", "UCS2; the text is read as GSM 7-bit all the same"},
        {"4C", "reserved alphabet; the text is read as GSM 7-bit all the same"},
        {"50", "GSM 7-bit, class 0"},
        {"5B", "UCS2, class 3; the text is read as GSM 7-bit all the same"},
        {"60", "GSM 7-bit, compressed; the text is read as GSM 7-bit all the same"},
        {"71", "GSM 7-bit, class 1, compressed; the text is read as GSM 7-bit all the same"},
        {"80", "reserved; the text is read as GSM 7-bit all the same"},
        {"91", "GSM 7-bit, class 1, user-data header; the text is read as GSM 7-bit all the same"},
        {"A0", "reserved; the text is read as GSM 7-bit all the same"},
        {"D0", "I1 protocol message; the text is read as GSM 7-bit all the same"},
        {"E0", "WAP protocol message; the text is read as GSM 7-bit all the same"},
        {"F0", "GSM 7-bit"},
        {"F1", "GSM 7-bit, class 1"},
        {"F7", "8-bit data, class 3; the text is read as GSM 7-bit all the same"},
    };
    for (const Row& row : rows)
        ExpectLine(std::string("00000032") + row.octet + "11",
                   std::string("Data coding scheme 0x") + row.octet + ": " + row.meaning);
}

TEST(QxpduHostPage, TextOfAnotherAlphabetIsReadAs7Bit) {
    ExpectLine("000000324811C8329BFD06", "text Hello");
}

TEST(QxpduHostPage, PageParameterGivesPageAndPages) {
    ExpectLine("000000320123", "Page parameter 0x23: page 2 of 3");
    ExpectLine("0000003201FF", "Page parameter 0xFF: page 15 of 15");
    ExpectLine("000000320100", "Page parameter 0x00: page 1 of 1");
    ExpectLine("000000320103", "Page parameter 0x03: page 1 of 1");
    ExpectLine("000000320120", "Page parameter 0x20: page 1 of 1");
}

TEST(QxpduHostPage, PageBelowSixOctetsIsAnErrorAndTheOthersAreShown) {
    const Outcome run =
        Qxpdu({"cell", "--as", "libQX_Encoding"}, "4321111201\n43\n432111120111\n432111120111g\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "qxpdu: line 1: 5 octets, a page has 6 at least\n"
                       "qxpdu: line 2: 1 octet, a page has 6 at least\n"
                       "qxpdu: line 4: character 13, 'g', is no hexadecimal digit\n");
    EXPECT_TRUE(HasLine(run.out, "text")) << run.out;
}

TEST(QxpduHostPage, JsonHasRawValuesAndMeanings) {
    EXPECT_EQ(Qxpdu({"cell", "--as", "libQX_Encoding", "--json", "212311004811C8329BFD06"}).Json(),
              nlohmann::json::parse(R"([{
        "format": 2,
        "argument": 1,
        "octets": "212311004811C8329BFD06",
        "serial_number": {
            "raw": 8483,
            "meaning": "geographical scope 0 (cell wide, immediate display), message code 530, update number 3, emergency alert, no popup",
            "geographical_scope": {"raw": 0, "meaning": "cell wide, immediate display"},
            "message_code": 530,
            "update_number": 3,
            "emergency_alert": true,
            "popup": false
        },
        "message_identifier": {"raw": 4352, "meaning": "ETWS, earthquake warning"},
        "data_coding_scheme": {"raw": 72, "meaning": "UCS2; the text is read as GSM 7-bit all the same"},
        "page_parameter": {"raw": 17, "meaning": "page 1 of 1", "page": 1, "pages": 1},
        "text": "Hello"
    }])"));
}

TEST(QxpduHostPage, LengthThatDisagreesIsAWarning) {
    const std::string log = "+CBM: 88\n432111120111C8329BFD06\n";
    EXPECT_EQ(Qxpdu({"cell", "--as", "libQX_Encoding"}, log).err,
              "qxpdu: line 2: warning: +CBM announces 88 octets, here are 11\n");
    const Outcome lines = Qxpdu({"cell", "--as", "libQX_Encoding", "--jsonl"}, log);
    EXPECT_EQ(lines.err, "");
    EXPECT_EQ(nlohmann::json::parse(lines.out)["warnings"],
              nlohmann::json::array({"+CBM announces 88 octets, here are 11"}));
    EXPECT_EQ(Qxpdu({"decode", "--as", "libQX_Encoding"}, log).out,
              Qxpdu({"cell", "--as", "libQX_Encoding", "432111120111C8329BFD06"}).out);
}

TEST(QxpduHostPage, OctetsBeyondThoseOfAPduAreLeft) {
    const std::string page = "432111120111C8329BFD06" + std::string(2 * (512 - 11), '0');
    EXPECT_EQ(Qxpdu({"cell", "--as", "libQX_Encoding", page}).err, "");
    const Outcome run = Qxpdu({"cell", "--as", "libQX_Encoding", page + "C8"});
    EXPECT_EQ(run.status, 0) << run;
    EXPECT_EQ(run.err, "qxpdu: argument 1: warning: libQX_Encoding takes the first 512 of 513 octets\n");
    EXPECT_EQ(run.out, Qxpdu({"cell", "--as", "libQX_Encoding", page}).out);
    const auto object = Qxpdu({"cell", "--as", "libQX_Encoding", "--json", page + "C8"}).Json()[0];
    EXPECT_EQ(object["octets"], page);
    EXPECT_EQ(object["warnings"],
              nlohmann::json::array({"libQX_Encoding takes the first 512 of 513 octets"}));
}

TEST(QxpduHostPage, KnowsPagesOfGsmAlone) {
    for (const char* command : {"cell", "inspect"}) {
        const Outcome run =
            Qxpdu({command, "--as", "libQX_Encoding", "--type", "umts", "432111120111C8329BFD06"});
        EXPECT_EQ(run.status, 2) << run;
        EXPECT_TRUE(HasLine(run.err, "qxpdu: --as excludes --type")) << run.err;
    }
}

TEST(QxpduHostPage, NothingIsJoined) {
    EXPECT_EQ(Qxpdu({"cell", "--as", "libQX_Encoding", "--join", "432111120112C8329BFD06"}).out,
              Qxpdu({"cell", "--as", "libQX_Encoding", "432111120112C8329BFD06"}).out);
}

} // namespace
