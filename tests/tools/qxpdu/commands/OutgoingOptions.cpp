// qxpdu encode: options that do not go together, and options as members of an object
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::JsonLines;
using tests::Outcome;
using tests::Qxpdu;

TEST(QxpduOutgoingOptions, WhatDoesNotGoTogetherIsAnErrorThatNamesTheOption) {
    struct Row {
        std::vector<std::string> arguments;
        const char* error;
    };
    const Row rows[] = {
        {{"--type", "sms"},
         "--type: sms is neither submit, deliver, status-report, command, deliver-report nor submit-report"},
        {{"--to", "1", "--from", "2"}, "--from: SMS-SUBMIT has none"},
        {{"--to", "1", "--time", "2026-12-24T18:00:00Z"}, "--time: SMS-SUBMIT has none"},
        {{"--to", "1", "--status", "0"}, "--status: SMS-SUBMIT has none"},
        {{"--to", "1", "--failure-cause", "128"}, "--failure-cause: SMS-SUBMIT has none"},
        {{"--to", "1", "--command-type", "0"}, "--command-type: SMS-SUBMIT has none"},
        {{"--to", "1", "--message-number", "0"}, "--message-number: SMS-SUBMIT has none"},
        {{"--to", "1", "--more-messages"}, "--more-messages: SMS-SUBMIT has none"},
        {{"--to", "1", "--loop-prevention"}, "--loop-prevention: SMS-SUBMIT has none"},
        {{"--to", "1", "--for-command"}, "--for-command: SMS-SUBMIT has none"},
        {{"--to", "1", "--discharge-time", "2026-12-24T18:00:00Z"}, "--discharge-time: SMS-SUBMIT has none"},
        {{"--type", "deliver", "--from", "1", "--to", "1"}, "--to: SMS-DELIVER has none"},
        {{"--type", "deliver", "--from", "1", "--validity", "1h"}, "--validity: SMS-DELIVER has none"},
        {{"--type", "deliver", "--from", "1", "--reference", "0"}, "--reference: SMS-DELIVER has none"},
        {{"--type", "deliver", "--from", "1", "--reject-duplicates"},
         "--reject-duplicates: SMS-DELIVER has none"},
        {{"--type", "status-report", "--to", "1", "--reply-path"},
         "--reply-path: SMS-STATUS-REPORT has none"},
        {{"--type", "status-report", "--to", "1", "--concat-reference", "1"},
         "--concat-reference: SMS-STATUS-REPORT has none"},
        {{"--type", "status-report", "--to", "1", "--concat-bits", "8"},
         "--concat-bits: SMS-STATUS-REPORT has none"},
        {{"--type", "command", "--to", "1", "--class", "1"}, "--class: SMS-COMMAND has none"},
        {{"--type", "command", "--to", "1", "--language", "tr"}, "--language: SMS-COMMAND has none"},
        {{"--type", "command", "--to", "1", "--time", "2026-12-24T18:00:00Z"},
         "--time: SMS-COMMAND has none"},
        {{"--type", "deliver-report", "--time", "2026-12-24T18:00:00Z"},
         "--time: SMS-DELIVER-REPORT has none"},
        {{"--type", "submit-report", "--to", "1"}, "--to: SMS-SUBMIT-REPORT has none"},
        {{}, "--to is required"},
        {{"--type", "deliver"}, "--from is required"},
        {{"--type", "command"}, "--to is required"},
        {{"--type", "status-report"}, "--to or --from is required"},
        {{"--type", "status-report", "--to", "1", "--from", "1"}, "--from excludes --to"},
        {{"--to", "1", "--alphabet", "utf8"}, "--alphabet: utf8 is neither gsm, ucs2 nor 8bit"},
        {{"--to", "1", "--language", "tr,de"},
         "--language: 'de' is no language with tables: tr, es, pt, bn, gu, hi, kn, ml, or, pa, ta, te, ur or "
         "all"},
        {{"--to", "1", "--language", "tr,"}, "--language: a language is missing"},
        {{"--to", "1", "--language", ""}, "--language: a language is missing"},
        {{"--to", "1", "--language", "tr,all"},
         "--language: 'all' is no language with tables: tr, es, pt, bn, gu, hi, kn, ml, or, pa, ta, te, ur "
         "or "
         "all"},
        {{"--to", "1", "--alphabet", "8bit", "--language", "tr"}, "--language: 8-bit data has no tables"},
        {{"--to", "1", "--alphabet", "8bit", "--replace"}, "--replace: 8-bit data has no tables"},
        {{"--to", "1", "--concat-bits", "7"}, "--concat-bits: 7 is neither 8 nor 16"},
        {{"--to", "1", "--concat-reference", "256"}, "--concat-reference: 256 takes --concat-bits 16"},
        {{"--to", "1", "--concat-reference", "65536"},
         "--concat-reference: Value 65536 not in range 0 to 65535"},
        {{"--to", "1", "--port-bits", "8"}, "--port-bits: --port is required"},
        {{"--to", "1", "--port", "256", "--port-bits", "8"}, "--port: 256 takes --port-bits 16"},
        {{"--to", "1", "--port", "1:256", "--port-bits", "8"}, "--port: 1:256 takes --port-bits 16"},
        {{"--to", "1", "--port", "65536"},
         "--port: 65536 is neither a port from 0 to 65535 nor two with a colon between"},
        {{"--to", "1", "--port", "1:"},
         "--port: 1: is neither a port from 0 to 65535 nor two with a colon between"},
        {{"--to", "1", "--port", "1:2:3"},
         "--port: 1:2:3 is neither a port from 0 to 65535 nor two with a colon between"},
        {{"--to", "1", "--pid", "256"}, "--pid: 256 is no number from 0 to 255"},
        {{"--to", "1", "--pid", "0x100"}, "--pid: 0x100 is no number from 0 to 255"},
        {{"--to", "1", "--pid", "007"}, "--pid: 007 is no number from 0 to 255"},
        {{"--to", "1", "--pid", "1x"}, "--pid: 1x is no number from 0 to 255"},
        {{"--type", "deliver-report", "--failure-cause", "127"},
         "--failure-cause: 127 is no number from 128 to 255"},
        {{"--type", "deliver", "--from", "1", "--time", "2026-12-24T18:00:00"},
         "--time: 2026-12-24T18:00:00 is no time of the years 2000 to 2099 with its zone, as "
         "2026-12-24T18:00:00+01:00"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.error);
        std::vector<std::string> arguments = {"encode"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        arguments.emplace_back("text");
        EXPECT_EQ(Qxpdu(arguments),
                  (Outcome{2, "",
                           std::string("qxpdu: ") + row.error + "\nUsage: qxpdu encode [OPTIONS] [TEXT]\n"}));
    }
}

TEST(QxpduOutgoingOptions, DataStandsInPlaceOfAText) {
    struct Row {
        std::vector<std::string> arguments;
        const char* error;
    };
    const Row rows[] = {
        {{"--data", "00", "text"}, "--data excludes TEXT"},
        {{"--data", "00", "-"}, "--data excludes TEXT"},
        {{"--data", "00", "--lines"}, "--data excludes --lines"},
        {{"--data", "0"}, "--data: odd number of hexadecimal digits, 1"},
        {{"--data", "00", "--alphabet", "gsm"}, "--data excludes --alphabet"},
        {{"--data", "00", "--language", "tr"}, "--data excludes --language"},
        {{"--data", "00", "--replace"}, "--data excludes --replace"},
    };
    for (const Row& row : rows) {
        std::vector<std::string> arguments = {"encode", "--to", "1"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const Outcome run = Qxpdu(arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.err.substr(0, run.err.find('\n')), std::string("qxpdu: ") + row.error);
    }
    EXPECT_EQ(Qxpdu({"encode", "--to", "1", "--data", "00", "--alphabet", "8bit"}).status, 0);
}

TEST(QxpduOutgoingOptions, EveryOptionIsAMember) {
    struct Row {
        const char* object;
        const char* pdu;
    };
    const Row rows[] = {
        {R"({"to":"1","text":"ğğğğğğ","language":"tr","alphabet":"gsm"})",
         "0041000181F100000B032501016030180C0603"},
        {R"({"to":"1","text":"’","replace":true})", "0001000181F100000127"},
        {R"({"to":"1","data":"00FF","pid":65})", "0001000181F141040200FF"},
        {R"({"to":"1","data":"00FF","pid":"0x41"})", "0001000181F141040200FF"},
        {R"({"to":"1","text":"hi","port":5,"port-bits":16})", "0041000181F100000A06050400050000E834"},
        {R"({"to":"1","text":"hi","port":"240:241","port-bits":"8"})", "0041000181F1000008040402F0F1A0D3"},
        {R"({"to":"1","text":"a","validity":"90m"})", "0011000181F10000110161"},
        {R"({"to":"1","text":"a","validity":17})", "0011000181F10000110161"},
        {R"({"to":"1","text":"a","validity":"30s","validity-format":"enhanced","single-shot":true})",
         "0009000181F10000421E00000000000161"},
        {R"({"to":"1","text":"a","status-report":true})", "0021000181F100000161"},
        {R"({"to":"1","text":"a","status-report":false})", "0001000181F100000161"},
        {R"({"to":"1","text":"a","status-report":"all"})", "0021000181F100000161"},
        {R"({"to":"1","text":"ça","as":"libQX_Encoding"})", "0001000181F10000028930"},
        {R"({"type":"deliver","from":"ACME","time":"2026-11-22T13:00:05Z","more-messages":true,)"
         R"("loop-prevention":true,"text":"hi"})",
         "000807D0C161B30800006211223100500002E834"},
        {R"({"type":"status-report","to":"1","time":"2026-11-22T13:00:05Z","reference":7,"status":"0x46",)"
         R"("discharge-time":"2026-11-22T13:01:00Z","for-command":true})",
         "0026070181F16211223100500062112231100000"
         "46"},
        {R"({"type":"command","to":"1","command-type":2,"message-number":9})", "0002000002090181F100"},
        {R"({"type":"deliver-report","failure-cause":208})", "0000D000"},
        {R"({"type":"submit-report","time":"2026-11-22T13:00:05Z"})", "00010062112231005000"},
    };
    std::string input;
    for (const Row& row : rows)
        input += std::string(row.object) + '\n';
    const Outcome run = Qxpdu({"encode", "--jsonl"}, input);
    const std::vector<nlohmann::json> objects = JsonLines(run.out);
    ASSERT_EQ(objects.size(), std::size(rows));
    for (std::size_t i = 0; i < objects.size(); ++i) {
        ASSERT_TRUE(objects[i].contains("pdus")) << objects[i];
        EXPECT_EQ(objects[i]["pdus"][0]["octets"], rows[i].pdu) << rows[i].object;
    }
    EXPECT_EQ(run.status, 0);
}

TEST(QxpduOutgoingOptions, ReferenceOfAnObjectIsItsOwn) {
    const std::string text = tests::Repeated("a", 161);
    const std::string input =
        R"({"to":"1","text":")" + text + "\"}\n" + R"({"to":"1","concat-reference":7,"text":")" + text +
        "\"}\n" + R"({"to":"1","text":")" + text + "\"}\n" +
        R"({"to":"1","concat-bits":16,"concat-reference":65535,"text":")" + text + "\"}\n";
    std::vector<int> references;
    for (const auto& object : JsonLines(Qxpdu({"encode", "--jsonl", "--concat-reference", "255"}, input).out))
        references.push_back(object["pdus"][0]["concatenation"]["reference"].get<int>());
    EXPECT_EQ(references, (std::vector<int>{255, 7, 1, 65535}));
}

TEST(QxpduOutgoingOptions, MembersThatAreWrongGiveErrors) {
    struct Row {
        const char* object;
        const char* error;
    };
    const Row rows[] = {
        {R"({"to":"1","text":"a","data":"00"})", "data: not with text"},
        {R"({"to":"1","data":"00","text":"a"})", "data: not with text"},
        {R"({"to":"1","text":"a","time":"2026-11-22T13:00:05Z"})", "--time: SMS-SUBMIT has none"},
        {R"({"to":"1","text":"a","pid":256})", "pid: no number from 0 to 255"},
        {R"({"to":"1","text":"a","pid":1.5})", "pid: no number from 0 to 255"},
        {R"({"to":"1","text":"a","pid":-1})", "pid: no number from 0 to 255"},
        {R"({"to":"1","text":"a","reference":"0x1"})", "reference: no number from 0 to 255"},
        {R"({"to":"1","text":"a","status-report":"none"})", "status-report: none is neither first nor all"},
        {R"({"to":"1","text":"a","status-report":1})", "status-report: no string"},
        {R"({"to":1,"text":"a"})", "to: no string"},
        {R"({"to":true,"text":"a"})", "to: no string"},
        {R"({"to":"1x","text":"a"})", "to: character 2, 'x', is no digit of a number"},
        {R"({"to":"1","text":"a","at":true})", "at: no such member"},
        {R"({"to":"1","text":"a","port-bits":8})", "--port-bits: --port is required"},
        {R"({"type":"deliver","text":"a"})", "--from is required"},
        {R"({"to":"1"})", "text is required"},
        {R"({"to":"1","text":"a","validity":"25h","strict":true})",
         "--validity: 25h goes out as 2 days, the nearest relative period that is not shorter"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(
            Qxpdu({"encode", "--jsonl"}, row.object),
            (Outcome{1,
                     nlohmann::ordered_json{{"format", 2}, {"line", 1}, {"error", row.error}}.dump() + '\n',
                     ""}));
    }
}

} // namespace
