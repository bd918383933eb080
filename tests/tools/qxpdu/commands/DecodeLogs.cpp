// Logs of modems, as the commands take them.
#include <algorithm>

#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"
#include "tools/qxpdu/Samples.h"

namespace {

using tests::AsLines;
using tests::c_cellPage;
using tests::c_hello;
using tests::c_report;
using tests::c_submit;
using tests::JsonLines;
using tests::Outcome;
using tests::Qxpdu;

using Arguments = std::vector<std::string>;

TEST(QxpduLogs, LogOfAModemIsReadAsItIs) {
    const Outcome run = Qxpdu({"decode", "--jsonl"}, AsLines({"AT+CMGL=4\r",
                                                              "+CMGL: 1,1,,24\r",
                                                              std::string(c_hello) + '\r',
                                                              "\r",
                                                              "OK\r",
                                                              "+CMTI: \"SM\",3",
                                                              "> ",
                                                              "+CMGR: 0,,24",
                                                              c_hello,
                                                              "+CMT: ,24",
                                                              "",
                                                              c_hello,
                                                              "+CDS: 21",
                                                              c_report,
                                                              "+CBM: 11",
                                                              c_cellPage,
                                                              "ERROR",
                                                              "RING",
                                                              "NO CARRIER",
                                                              "BUSY",
                                                              "NO ANSWER",
                                                              "CONNECT",
                                                              "^RSSI: 17",
                                                              "+CMGR: 0,,0",
                                                              "OK",
                                                              "at",
                                                              "NO DIALTONE",
                                                              "CONNECT 9600",
                                                              "ok",
                                                              "%CSQ: 1",
                                                              "*PSUTTZ: 1",
                                                              "#CREG",
                                                              "$QCSQ",
                                                              "_OSIGQ: 1"}));
    EXPECT_EQ(run.status, 0) << run.out;
    EXPECT_EQ(run.err, "");
    const auto objects = JsonLines(run.out);
    ASSERT_EQ(objects.size(), 5U) << run.out;
    const int lines[] = {3, 9, 12, 14, 16};
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(objects[i]["line"], lines[i]);
    EXPECT_EQ(objects[3]["tp_mr"]["raw"], 7);
    EXPECT_EQ(objects[4]["page_parameter"]["pages"], 1);
    EXPECT_EQ(objects[4]["text"], "Hello");
}

TEST(QxpduLogs, LengthThatDisagreesIsAWarning) {
    struct Row {
        Arguments arguments;
        std::string input;
        const char* warning;
    };
    const std::string hello = c_hello;
    const Row rows[] = {
        {{"decode"}, "+CMGL: 1,1,,25\n" + hello, "+CMGL announces 25 octets, here are 24"},
        {{"decode"}, "+CMT: ,1\n" + hello, "+CMT announces 1 octet, here are 24"},
        {{"decode"}, "+CMT: ,32\n" + hello, "+CMT announces 32 octets, the service centre counted"},
        {{"inspect"}, "+CMT: ,25\n" + hello, "+CMT announces 25 octets, here are 24"},
        {{"decode", "--no-smsc"}, "+CMT: ,25\n" + hello.substr(16), "+CMT announces 25 octets, here are 24"},
        {{"decode", "--smsc", "no"},
         "+CMT: ,25\n" + hello.substr(16),
         "+CMT announces 25 octets, here are 24"},
        {{"decode"}, std::string("+CBM: 88\n") + c_cellPage, "+CBM announces 88 octets, here are 11"},
        {{"cell"}, std::string("+CBM: 88\n") + c_cellPage, "+CBM announces 88 octets, here are 11"},
    };
    for (const Row& row : rows) {
        const Outcome text = Qxpdu(row.arguments, row.input);
        EXPECT_EQ(text.status, 0) << row.warning;
        EXPECT_EQ(text.err, std::string("qxpdu: line 2: warning: ") + row.warning + "\n");
        EXPECT_NE(text.out, "");
        Arguments arguments = row.arguments;
        arguments.emplace_back("--jsonl");
        const Outcome lines = Qxpdu(arguments, row.input);
        EXPECT_EQ(lines.err, "");
        EXPECT_EQ(JsonLines(lines.out).at(0)["warnings"], nlohmann::json::array({row.warning}));
    }
    const nlohmann::json broken = Qxpdu({"decode", "--jsonl"}, "+CBM: 6\n0010003248\n").Json();
    EXPECT_EQ(broken["fault"]["code"], "field-cut");
    EXPECT_EQ(broken["warnings"], nlohmann::json::array({"+CBM announces 6 octets, here are 5"}));
}

TEST(QxpduLogs, ServiceCentreIsWhereItMakesSenseUnlessAnOptionSettlesIt) {
    const std::string tpdu = std::string(c_hello).substr(16);
    const auto warningsOf = [](const Arguments& arguments) {
        const nlohmann::json object = JsonLines(Qxpdu(arguments).out).at(0);
        EXPECT_EQ(object.value("text", ""), "Hello") << object;
        return object.value("warnings", nlohmann::json::array());
    };
    EXPECT_EQ(warningsOf({"decode", "--jsonl", c_hello}), nlohmann::json::array());
    EXPECT_EQ(warningsOf({"decode", "--jsonl", "--smsc", "yes", c_hello}), nlohmann::json::array());
    EXPECT_EQ(warningsOf({"decode", "--jsonl", "--smsc", "no", tpdu}), nlohmann::json::array());
    EXPECT_EQ(warningsOf({"decode", "--jsonl", tpdu}).size(), 1U);
    EXPECT_TRUE(
        tests::HasLine(Qxpdu({"decode", "--smsc", "yes", tpdu}).err,
                       "qxpdu: argument 1: warning: makes sense without a service centre: --smsc no"));
    EXPECT_EQ(Qxpdu({"decode", "--smsc", "maybe", tpdu}).status, 2);
    EXPECT_EQ(Qxpdu({"decode", "--smsc", "no", "--no-smsc", tpdu}).status, 2);
}

TEST(QxpduLogs, ReferenceThatTheModemGaveFindsTheReport) {
    const std::string log = std::string("AT+CMGS=10\n> ") + "0001000491214300000161" + // TP-MR 0
                            "\x1A\n+CMGS: 7,\"010021203121436580\"\nOK\n+CDS: 21\n" + c_report + "\n";
    const auto objects = JsonLines(Qxpdu({"decode", "--join", "--jsonl"}, log).out);
    ASSERT_EQ(objects.size(), 3U);
    EXPECT_EQ(objects[0]["type"], "SMS-SUBMIT");
    EXPECT_EQ(objects[1]["type"], "SMS-SUBMIT-REPORT");
    EXPECT_EQ(objects[1]["line"], 3);
    EXPECT_EQ(objects[2]["type"], "SMS-STATUS-REPORT");
    EXPECT_EQ(objects[2]["report_on"], 2);
    EXPECT_TRUE(tests::HasLine(Qxpdu({"decode", "--join"}, log).out, "report on line 2"));
}

/// The last object that decode --join gives for the files, each made of what printf is told.
nlohmann::json LastOf(const std::string& a, const std::string& b = "") {
    const Outcome run = tests::Shell("d=$(mktemp -d) && cd $d && printf '" + a + "' >a.log && printf '" + b +
                                     "' >b.log && $QXPDU decode --jsonl --join --file a.log b.log; rm -r $d");
    return tests::JsonLines(run.out).back();
}

TEST(QxpduLogs, ReferenceIsThatOfTheMessageThatWasSentBeforeIt) {
    const std::string submit = "0001000491214300000161"; // TP-MR 0
    const std::string sent = "AT+CMGS=10\\n" + submit + "\\n";
    const std::string broken = "AT+CMGS=10\\n" + submit.substr(0, 20) + "\\n";
    const std::string stored = "AT+CMGW=10\\n" + submit + "\\n";
    const std::string report = "+CDS: 21\\n" + std::string(c_report) + "\\n"; // on the message 7
    EXPECT_EQ(LastOf(sent + "+CMGS: 7\\n" + report)["report_on"], 2);
    EXPECT_EQ(LastOf(sent + stored + "+CMGS: 7\\n" + report)["report_on"], 2) << "the other was not sent";
    EXPECT_FALSE(LastOf(sent + "+CMGS: 6\\n+CMGS: 7\\n" + report).contains("report_on"))
        << "of a message that was sent otherwise";
    EXPECT_FALSE(LastOf(sent + broken + "+CMGS: 7\\n" + report).contains("report_on"));
    EXPECT_FALSE(LastOf(sent, broken + "+CMGS: 7\\n" + report).contains("report_on")) << "of another file";
    const nlohmann::json other = LastOf(sent + "+CMGS: 7\\n", report);
    EXPECT_EQ(other["report_on"], 2);
    EXPECT_EQ(other["report_on_file"], "a.log");
    EXPECT_FALSE(
        LastOf("+CMGS: 7\\n+CDS: 19\\n0006070091212031214365802120312143658000\\n").contains("report_on"))
        << "no message came before";
}

TEST(QxpduLogs, ReferenceIsNothingToInspect) {
    const std::string sent = std::string("AT+CMGS=10\n") + c_submit + "\n";
    EXPECT_EQ(Qxpdu({"inspect"}, sent + "+CMGS: 7\nOK\n"), Qxpdu({"inspect"}, sent + "OK\n"));
}

TEST(QxpduLogs, InspectShowsPagesAmongMessages) {
    const Outcome run = Qxpdu({"inspect", "--jsonl"},
                              std::string("+CBM: 11\n") + c_cellPage + "\n+CMT: ,24\n" + c_hello + '\n');
    EXPECT_EQ(run.err, "");
    ASSERT_EQ(JsonLines(run.out).size(), 2U);
    EXPECT_EQ(JsonLines(run.out)[0]["type"], "GSM page");
    EXPECT_EQ(JsonLines(run.out)[1]["line"], 4);
}

TEST(QxpduLogs, ModemMaySpeakUnaskedBetweenAHeadingAndItsPdu) {
    EXPECT_EQ(JsonLines(Qxpdu({"decode", "--jsonl"},
                              std::string("+CBM: 11\n\n+CREG: 1\nRING\n^RSSI: 1\n") + c_cellPage)
                            .out)
                  .at(0)["text"],
              "Hello");
    EXPECT_EQ(Qxpdu({"decode"}, std::string("+CMT: ,23\n+CREG: 1\n") + c_hello + '\n').err,
              "qxpdu: line 3: warning: +CMT announces 23 octets, here are 24\n");
}

TEST(QxpduLogs, PromptAloneMayStandBetweenAHeadingAndItsPdu) {
    for (const char* prompt : {">", "> ", ">\r"}) {
        const Outcome run = Qxpdu({"decode", "--brief"}, AsLines({"AT+CMGS=10", prompt, c_submit, "OK"}));
        EXPECT_EQ(run, (Outcome{0, "to +1234 a\n", ""})) << prompt;
    }
    EXPECT_EQ(Qxpdu({"decode", "--brief"}, AsLines({"+CMT: ,24", ">", c_hello})).out,
              "2012-02-13T12:34:56+02:00 from +12345678901 Hello\n");
}

TEST(QxpduLogs, MessagesInTextModeArePassedOverAndCounted) {
    const struct {
        const char* name;
        const char* values;
    } rows[] = {
        {"+CMGL", "1,\"REC READ\",\"+41\""},
        {"+CMGR", "\"REC READ\",\"+1\",,\"24/01/01,10:00:00+04\",145,4,0,0,\"+1\",145,24"},
        {"+CMGL", "1,\"REC READ\",\"+1\",,\"24/01/01,10:00:00+04\",145,24"},
        {"+CMT", "\"+1\",,\"24/01/01,10:00:00+04\",145,4,0,0,\"+1\",145,24"},
        {"+CDS", "6,24"},
        {"+CBM", "1,50,0,1,24"},
    };
    const std::string passed = " in text mode passed over; PDU mode is AT+CMGF=0\n";
    for (const auto& row : rows) {
        const std::string message = std::string(row.name) + ": " + row.values + '\n' + c_hello + '\n';
        EXPECT_EQ(Qxpdu({"decode"}, message),
                  (Outcome{0, "", "qxpdu: standard input: warning: 1 message" + passed}));
        EXPECT_EQ(Qxpdu({"decode", "--jsonl"}, message + message),
                  (Outcome{0, "", "qxpdu: standard input: warning: 2 messages" + passed}));
    }
    for (const char* heading : {"+CMGR: 1,\"a,b\",24", "+CMGL: 1,1,\"a,b\",24", "+CMT: \"a,b\",24"})
        EXPECT_EQ(Qxpdu({"decode"}, std::string(heading) + '\n' + c_hello + '\n').status, 0) << heading;
}

TEST(QxpduLogs, DigitsOutsideAMessageAreNoPduInALog) {
    EXPECT_EQ(Qxpdu({"decode"}, "AT+CGMM\nEC25\nOK\n"),
              (Outcome{0, "",
                       "qxpdu: standard input: warning: the log of a modem without a message; 1 line of "
                       "hexadecimal digits stand in none\n"}));
}

TEST(QxpduLogs, PdusThatNoHeadingAnnouncesAreTold) {
    const std::string hello = c_hello;
    const Outcome run =
        Qxpdu({"decode", "--brief"}, "+CMT: ,24\n" + hello + '\n' + hello + '\n' + hello + '\n');
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "qxpdu: standard input: warning: 2 PDUs that no heading announces passed over\n");
}

TEST(QxpduLogs, LogWithoutAMessageInWhichPdusStandIsAnError) {
    EXPECT_EQ(Qxpdu({"decode"}, std::string("AT+CGMM\nEC25\nOK\n") + c_hello + '\n'),
              (Outcome{1, "",
                       "qxpdu: standard input: the log of a modem without a message; 2 lines of "
                       "hexadecimal digits stand in none\n"}));
}

TEST(QxpduLogs, ListAfterMoreTalkThanIsKeptIsAnError) {
    const std::string talk = tests::Repeated("gatewayd: started\n", 20000);
    const Outcome run = Qxpdu({"decode", "--brief"}, talk + c_hello + '\n');
    EXPECT_EQ(run.status, 1);
    EXPECT_TRUE(run.out.ends_with("2012-02-13T12:34:56+02:00 from +12345678901 Hello\n")) << run.out;
    EXPECT_TRUE(run.err.ends_with(" lines passed over, before anything like a PDU or the line of a modem\n"))
        << run.err.substr(run.err.size() - std::min<std::size_t>(run.err.size(), 200));
    EXPECT_EQ(Qxpdu({"decode", "--brief"}, talk + "+CMT: ,24\n" + c_hello + '\n'),
              (Outcome{0, "2012-02-13T12:34:56+02:00 from +12345678901 Hello\n", ""}));
}

TEST(QxpduLogs, DumpIsReadAsAnArgumentAndAsLines) {
    const std::string dump = "00000000: 0791 2143 6587 0921 040b 9121 4365 8709  ..!Ce..!...!Ce..\n"
                             "00000010: f100 0021 2031 2143 6580 05c8 329b fd06  ...! 1!Ce...2...\n";
    const Outcome hello = {0, "2012-02-13T12:34:56+02:00 from +12345678901 Hello\n", ""};
    EXPECT_EQ(Qxpdu({"decode", "--brief", dump}), hello);
    EXPECT_EQ(Qxpdu({"decode", "--brief"}, dump), hello);
}

TEST(QxpduLogs, PduThatWasTypedAfterThePromptIsRead) {
    const std::string submit = c_submit;
    for (const std::string& line :
         {"> " + submit + '\x1A', '>' + submit, submit + "\x1A\r", "> " + submit + " \x1A"}) {
        for (const std::string& before : {std::string(), std::string("AT+CMGS=10\n")}) {
            const auto objects = JsonLines(Qxpdu({"decode", "--jsonl"}, before + line + '\n').out);
            ASSERT_EQ(objects.size(), 1U) << before << line;
            EXPECT_EQ(objects[0]["octets"], submit) << before << line;
        }
    }
    EXPECT_EQ(Qxpdu({"decode"}, ">\n> \n"), (Outcome{0, "", ""}));
}

TEST(QxpduLogs, LogMayBeGivenAsOneArgument) {
    const Outcome run = Qxpdu({"decode", "--jsonl", std::string("+CMT: ,24\r\n") + c_hello + "\r\nOK\r\n"});
    const auto objects = JsonLines(run.out);
    ASSERT_EQ(objects.size(), 1U) << run.out;
    EXPECT_EQ(objects[0]["argument"], 1);
    EXPECT_EQ(objects[0]["text"], "Hello");
}

TEST(QxpduLogs, CarriageReturnsAloneEndLinesHoweverLongTheLogIs) {
    const std::string message = std::string("+CMT: ,24\r") + c_hello + "\r";
    const Outcome run = Qxpdu({"decode", "--jsonl"}, tests::Repeated(message, 15000));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 15000);
}

TEST(QxpduLogs, WhatOnlyBeginsLikeAnAnswerIsAnError) {
    for (const char* line : {"OKAY", "ERRORS", "NO CARRIERS", "RINGS"})
        EXPECT_EQ(Qxpdu({"decode"}, std::string(line) + '\n').status, 1) << line;
}

TEST(QxpduLogs, HeadingWithoutItsPduIsAnError) {
    EXPECT_EQ(Qxpdu({"decode"}, "+CMGR: 0,,24\nOK\n"),
              (Outcome{1, "", "qxpdu: line 1: no PDU follows +CMGR\n"}));
    EXPECT_EQ(Qxpdu({"decode"}, "\n+CDS: 24\n+CMT: ,24\n"),
              (Outcome{1, "", "qxpdu: line 2: no PDU follows +CDS\nqxpdu: line 3: no PDU follows +CMT\n"}));
}

TEST(QxpduLogs, CellReadsThePagesOfALog) {
    const auto objects = JsonLines(
        Qxpdu({"cell", "--jsonl"}, std::string("+CMT: ,24\n") + c_hello + "\n+CBM: 11\n" + c_cellPage).out);
    ASSERT_EQ(objects.size(), 1U);
    EXPECT_EQ(objects[0]["line"], 4);
    EXPECT_EQ(objects[0]["text"], "Hello");
}

} // namespace
