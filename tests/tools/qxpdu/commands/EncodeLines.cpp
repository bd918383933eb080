// qxpdu encode, a message a line
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::JsonLines;
using tests::Outcome;
using tests::Qxpdu;
using tests::Repeated;

TEST(QxpduEncodeLines, EachLineIsATextOfItsOwn) {
    EXPECT_EQ(Qxpdu({"encode", "--to", "+4179123", "--lines"}, "hello\nhello\n"),
              (Outcome{0,
                       "0001000791149721F3000005E8329BFD06\n"
                       "0001000791149721F3000005E8329BFD06\n",
                       ""}));
    const auto objects = JsonLines(Qxpdu({"encode", "--to", "1", "--lines", "--jsonl"}, "{}\n").out);
    ASSERT_EQ(objects.size(), 1U);
    EXPECT_EQ(objects[0]["pdus"].size(), 1U);
}

TEST(QxpduEncodeLines, ObjectsHaveTheNamesOfTheOptions) {
    const std::string line =
        R"({"to":"+4179123","smsc":"+41","class":0,"validity":"1h","status-report":true,)"
        R"("reject-duplicates":true,"reply-path":true,"reference":5,"as":"libQX_Encoding","greek":true,"strict":true,"text":"hello"})";
    const Outcome run =
        Qxpdu({"encode", "--jsonl"}, line + "\n{\"to\":\"1\",\"validity\":11,\"text\":\"a\"}\n");
    EXPECT_EQ(run.status, 0) << run.out;
    const auto objects = JsonLines(run.out);
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[0]["line"], 1);
    ASSERT_EQ(objects[0]["pdus"].size(), 1U);
    EXPECT_EQ(objects[0]["pdus"][0]["octets"], "029114B5050791149721F300100B05E8329BFD06");
    EXPECT_EQ(objects[0]["pdus"][0]["septets"], 5);
    EXPECT_EQ(objects[1]["pdus"][0]["octets"], "0011000181F100000B0161");
}

TEST(QxpduEncodeLines, ObjectsThatAreWrongGiveErrors) {
    struct Row {
        const char* line;
        const char* error;
    };
    const Row rows[] = {
        {"hello", "no JSON object"},
        {"[]", "no JSON object"},
        {R"({"to":"1"})", "text is required"},
        {R"({"text":"a"})", "--to is required"},
        {R"({"text":"a","to":"1","to":"2"})", "to: given twice"},
        {R"({"text":1})", "text: no string"},
        {R"({"text":"a","to":"x"})", "to: character 1, 'x', is no digit of a number"},
        {R"({"text":"a","to":"1","smsc":"123456789012345678901"})", "smsc: 21 digits, 20 at most"},
        {R"({"text":"a","to":"1","class":4})", "class: no number from 0 to 3"},
        {R"({"text":"a","to":"1","class":-1})", "class: no number from 0 to 3"},
        {R"({"text":"a","to":"1","class":"1"})", "class: no number from 0 to 3"},
        {R"({"text":"a","to":"1","concat-reference":"1"})", "concat-reference: no number from 0 to 65535"},
        {R"({"text":"a","to":"1","reference":256})", "reference: no number from 0 to 255"},
        {R"({"text":"a","to":"1","reference":"1"})", "reference: no number from 0 to 255"},
        {R"({"text":"a","to":"1","validity":"3x"})", "validity: 3x is neither a period of at most 63 weeks, "
                                                     "as 90m, 3h, 1d12h or max, nor an octet, nor a "
                                                     "time with its zone, as 2026-12-24T18:00:00+01:00"},
        {R"({"text":"a","to":"1","greek":1})", "greek: neither true nor false"},
        {R"({"text":"a","to":"1","colour":1})", "colour: no such member"},
        {R"({"text":"","to":"1","strict":true})", "the text is empty; a message without text goes out"},
    };
    for (const Row& row : rows) {
        const Outcome run = Qxpdu({"encode", "--jsonl"}, row.line);
        EXPECT_EQ(
            run,
            (Outcome{1,
                     nlohmann::ordered_json{{"format", 2}, {"line", 1}, {"error", row.error}}.dump() + '\n',
                     ""}));
    }
}

TEST(QxpduEncodeLines, DataThatDoNotFitAreAnErrorOfTheirLine) {
    EXPECT_EQ(
        Qxpdu({"encode", "--jsonl"}, R"({"type":"deliver-report","data":")" + Repeated("5A", 160) + "\"}\n"),
        (Outcome{1,
                 "{\"format\":2,\"line\":1,\"error\":\"159 octets of user data fit into an "
                 "SMS-DELIVER-REPORT, and 2 messages would be needed\"}\n",
                 ""}));
}

TEST(QxpduEncodeLines, ObjectTakesWhatItLacksFromTheCommandLine) {
    const auto encode = [](std::vector<std::string> options, const std::string& line) {
        options.insert(options.begin(), {"encode", "--jsonl", "--to", "1"});
        const nlohmann::json object = JsonLines(Qxpdu(options, line).out).at(0);
        return object.contains("error") ? object["error"] : object["pdus"][0]["octets"];
    };
    EXPECT_EQ(encode({"--data", "00FF"}, "{}"), "0001000181F100040200FF");
    EXPECT_EQ(encode({"--data", "00FF"}, R"({"to":"2"})"), "0001000181F200040200FF");
    EXPECT_EQ(encode({"--data", "00FF"}, R"({"text":"a"})"), "0001000181F100000161")
        << "in place of the data";
    EXPECT_EQ(encode({"--data", "00FF"}, R"({"data":"01"})"), "0001000181F100040101");
    EXPECT_EQ(encode({}, "{}"), "text is required");
    EXPECT_EQ(encode({"--class", "1"}, R"({"text":"a"})"), "0001000181F100110161");
    EXPECT_EQ(encode({"--class", "1"}, R"({"text":"a","class":0})"), "0001000181F100100161");
}

TEST(QxpduEncodeLines, CommandLineMayLackWhatObjectsGive) {
    EXPECT_EQ(Qxpdu({"encode", "--jsonl"}, R"({"to":"1","text":"a"})").status, 0);
    const Outcome wrong{2, "", "qxpdu: --to is required\nUsage: qxpdu encode [OPTIONS] [TEXT]\n"};
    EXPECT_EQ(Qxpdu({"encode", "--lines"}, "a\n"), wrong);
    EXPECT_EQ(Qxpdu({"encode", "--jsonl", "--lines"}, "a\n"), wrong);
}

TEST(QxpduEncodeLines, MessagesHaveReferencesOfTheirOwn) {
    const std::string text = Repeated(Repeated("a", 161) + '\n', 300);
    const Outcome one = Qxpdu({"encode", "--lines", "--jsonl", "-j", "2", "--to", "1"}, text);
    std::vector<int> references;
    for (const auto& object : JsonLines(one.out)) {
        for (const auto& pdu : object["pdus"])
            references.push_back(pdu["concatenation"]["reference"].get<int>());
    }
    ASSERT_EQ(references.size(), 600U);
    for (std::size_t i = 0; i < references.size(); ++i)
        EXPECT_EQ(references[i], (references[0] + static_cast<int>(i) / 2) % 256) << i;
}

TEST(QxpduEncodeLines, CarriageReturnBelongsToTheLineFeed) {
    const std::string a = "0001000181F100000161\n";
    EXPECT_EQ(Qxpdu({"encode", "--lines", "--to", "1"}, "a\r\na\na\r"), (Outcome{0, a + a + a, ""}));
    EXPECT_EQ(Qxpdu({"encode", "--lines", "--to", "1"}, "\ra\r\r\n"),
              (Outcome{0, "0001000181F10000038D7003\n", ""}));
    EXPECT_EQ(Qxpdu({"count", "--lines", "--jsonl"}, "a\r\n").Json()["septets"], 1);
}

TEST(QxpduEncodeLines, WarningsStandInTheObject) {
    const Outcome run = Qxpdu({"encode", "--jsonl", "--to", "1-2"}, "{\"text\":\"a\"}\n");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(JsonLines(run.out).at(0)["warnings"], nlohmann::json::array({"--to: '1-2' goes out as 12"}));
    const char* const empty = "the text is empty; a message without text goes out";
    EXPECT_EQ(JsonLines(Qxpdu({"encode", "--jsonl", "--to", "1"}, "{\"text\":\"\"}\n").out).at(0)["warnings"],
              nlohmann::json::array({empty}));
    EXPECT_EQ(JsonLines(Qxpdu({"encode", "--jsonl", "--strict", "--to", "1"}, "{\"text\":\"\"}\n").out).at(0),
              (nlohmann::json{{"format", 2}, {"line", 1}, {"error", empty}}));
}

} // namespace
