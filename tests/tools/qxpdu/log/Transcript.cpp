// Logs of modems.
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

TEST(QxpduTranscript, LogOfAModemIsReadAsItIs) {
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

TEST(QxpduTranscript, AnnouncedLengthIsChecked) {
    struct Row {
        Arguments arguments;
        std::string input;
        const char* err;
    };
    const std::string hello = c_hello;
    const Row rows[] = {
        {{"decode"}, "+CMGL: 1,1,,25\n" + hello, "qxpdu: line 2: +CMGL announces 25 octets, here are 24\n"},
        {{"decode"}, "+CMT: ,1\n" + hello, "qxpdu: line 2: +CMT announces 1 octet, here are 24\n"},
        {{"decode", "--no-smsc"},
         "+CMT: ,25\n" + hello.substr(16),
         "qxpdu: line 2: +CMT announces 25 octets, here are 24\n"},
        {{"decode"},
         std::string("+CBM: 88\n") + c_cellPage,
         "qxpdu: line 2: +CBM announces 88 octets, here are 11\n"},
        {{"cell"},
         std::string("+CBM: 88\n") + c_cellPage,
         "qxpdu: line 2: +CBM announces 88 octets, here are 11\n"},
        {{"decode"},
         "+CMGL: 1,\"REC READ\",\"+41\"\nhello\n",
         "qxpdu: line 2: +CMGL announces no length, as in text mode; PDU mode is AT+CMGF=0\n"},
        {{"decode"},
         "+CMGL: 1,\"REC READ\",\"+41\"\n" + hello,
         "qxpdu: line 2: +CMGL announces no length, as in text mode; PDU mode is AT+CMGF=0\n"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Qxpdu(row.arguments, row.input), (Outcome{1, "", row.err}));
}

TEST(QxpduTranscript, ModemMaySpeakUnaskedBetweenAHeadingAndItsPdu) {
    EXPECT_EQ(JsonLines(Qxpdu({"decode", "--jsonl"},
                              std::string("+CBM: 11\n\n+CREG: 1\nRING\n^RSSI: 1\n") + c_cellPage)
                            .out)
                  .at(0)["text"],
              "Hello");
    EXPECT_EQ(Qxpdu({"decode"}, std::string("+CMT: ,23\n+CREG: 1\n") + c_hello + '\n'),
              (Outcome{1, "", "qxpdu: line 3: +CMT announces 23 octets, here are 24\n"}));
}

TEST(QxpduTranscript, DetailsOfTextModeAreNoLength) {
    const std::string message = " announces no length, as in text mode; PDU mode is AT+CMGF=0\n";
    const struct {
        const char* name;
        const char* values;
    } rows[] = {
        {"+CMGR", "\"REC READ\",\"+1\",,\"24/01/01,10:00:00+04\",145,4,0,0,\"+1\",145,24"},
        {"+CMGL", "1,\"REC READ\",\"+1\",,\"24/01/01,10:00:00+04\",145,24"},
        {"+CMT", "\"+1\",,\"24/01/01,10:00:00+04\",145,4,0,0,\"+1\",145,24"},
        {"+CDS", "6,24"},
        {"+CBM", "1,50,0,1,24"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Qxpdu({"decode"}, std::string(row.name) + ": " + row.values + "\nHello\n"),
                  (Outcome{1, "", "qxpdu: line 2: " + (row.name + message)}));
    for (const char* heading : {"+CMGR: 1,\"a,b\",24", "+CMGL: 1,1,\"a,b\",24", "+CMT: \"a,b\",24"})
        EXPECT_EQ(Qxpdu({"decode"}, std::string(heading) + '\n' + c_hello + '\n').status, 0) << heading;
}

TEST(QxpduTranscript, PduThatWasTypedBehindThePromptIsRead) {
    const std::string submit = c_submit;
    for (const std::string& line :
         {"> " + submit + '\x1A', '>' + submit, submit + "\x1A\r", "> " + submit + " \x1A"}) {
        const auto objects = JsonLines(Qxpdu({"decode", "--jsonl"}, line + '\n').out);
        ASSERT_EQ(objects.size(), 1U) << line;
        EXPECT_EQ(objects[0]["octets"], submit) << line;
    }
    EXPECT_EQ(Qxpdu({"decode"}, "> hello\x1A\n>\n"), (Outcome{0, "", ""}));
}

TEST(QxpduTranscript, WhatOnlyBeginsLikeAnAnswerIsAnError) {
    for (const char* line : {"OKAY", "ERRORS", "NO CARRIERS", "RINGS"})
        EXPECT_EQ(Qxpdu({"decode"}, std::string(line) + '\n').status, 1) << line;
}

TEST(QxpduTranscript, HeadingWithoutItsPduIsAnError) {
    EXPECT_EQ(Qxpdu({"decode"}, "+CMGR: 0,,24\nOK\n"),
              (Outcome{1, "", "qxpdu: line 1: no PDU follows +CMGR\n"}));
    EXPECT_EQ(Qxpdu({"decode"}, "\n+CDS: 24\n+CMT: ,24\n"),
              (Outcome{1, "", "qxpdu: line 2: no PDU follows +CDS\nqxpdu: line 3: no PDU follows +CMT\n"}));
}

TEST(QxpduTranscript, CellReadsOnlyPages) {
    EXPECT_EQ(Qxpdu({"cell"}, std::string("+CMT: ,24\n") + c_hello),
              (Outcome{1, "", "qxpdu: line 2: no cell broadcast page, but the PDU of +CMT\n"}));
    const auto objects = JsonLines(Qxpdu({"cell", "--jsonl"}, std::string("+CBM: 11\n") + c_cellPage).out);
    ASSERT_EQ(objects.size(), 1U);
    EXPECT_EQ(objects[0]["text"], "Hello");
}

} // namespace
