// qxpdu cell encode
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using nlohmann::json;
using tests::HasLine;
using tests::Outcome;
using tests::Qxpdu;

/// The first octets of what the command writes for "Hi", whose digits are "Hi" in septets, then CR: C874.
std::string HeadOf(std::vector<std::string> options) {
    options.insert(options.begin(), {"cell", "encode"});
    options.emplace_back("Hi");
    const Outcome run = Qxpdu(options);
    EXPECT_EQ(run.status, 0) << run;
    EXPECT_EQ(run.err, "");
    return run.out.substr(0, 16);
}

TEST(QxpduCellEncode, PageHasTheHeaderThatIsAskedFor) {
    EXPECT_EQ(HeadOf({}), "000000000F11C874");
    EXPECT_EQ(HeadOf({"--id", "4370"}), "000011120F11C874");
    EXPECT_EQ(HeadOf({"--id", "0x1112"}), "000011120F11C874");
    EXPECT_EQ(HeadOf({"--id", "0X1112"}), "000011120F11C874");
    EXPECT_EQ(HeadOf({"--id", "ETWS earthquake"}), "000011000F11C874");
    EXPECT_EQ(HeadOf({"--id", "reserved, a (U)SIM's mark for an empty entry"}), "0000FFFF0F11C874");
    EXPECT_EQ(HeadOf({"--scope", "1", "--code", "50", "--update", "1"}), "432100000F11C874");
    EXPECT_EQ(HeadOf({"--scope", "3", "--code", "1023", "--update", "15"}), "FFFF00000F11C874");
    EXPECT_EQ(HeadOf({"--id", "65535", "--serial", "65535"}), "FFFFFFFF0F11C874");
    EXPECT_EQ(HeadOf({"--scope", "0", "--code", "0", "--update", "0", "--class", "0"}), "000000005011C874");
    EXPECT_EQ(HeadOf({"--class", "3"}).substr(8, 2), "53");
    EXPECT_EQ(HeadOf({"--serial", "0x4321"}), "432100000F11C874");
    EXPECT_EQ(HeadOf({"--serial", "17185"}), "432100000F11C874");
    EXPECT_EQ(HeadOf({"--language", "en"}), "000000000111C874");
    EXPECT_EQ(HeadOf({"--class", "1"}).substr(10), "11C874");
    EXPECT_EQ(HeadOf({"--alphabet", "gsm"}), "000000000F11C874");
    EXPECT_EQ(HeadOf({"--alphabet", "ucs2"}), "0000000048110048");
    EXPECT_EQ(HeadOf({"--umts", "--id", "0x1112", "--serial", "0x4321"}), "01111243210F01C8");
}

TEST(QxpduCellEncode, PagesAreWholeAndReadBack) {
    const std::string text(100, 'a');
    const Outcome run = Qxpdu({"cell", "encode"}, text + "\n");
    const std::size_t c_digits = 2 * std::size_t{88};
    ASSERT_EQ(run.out.size(), 2 * (c_digits + 1));
    EXPECT_EQ(run.out.substr(10, 2), "12");
    EXPECT_EQ(run.out.substr(c_digits + 11, 2), "22");
    EXPECT_EQ(Qxpdu({"cell", "--join", "--brief"}, run.out).out, "from 0 " + text + "\n");
    const Outcome message = Qxpdu({"cell", "encode", "--umts", text});
    EXPECT_EQ(message.out.size(), 2 * (7 + 2 * std::size_t{83}) + 1);
    EXPECT_EQ(Qxpdu({"cell", "--brief"}, message.out).out, "from 0 " + text + "\n");
}

TEST(QxpduCellEncode, WhatCannotBeSentIsNamed) {
    struct Row {
        std::vector<std::string> arguments;
        int status;
        const char* words;
    };
    const Row rows[] = {
        {{"--alphabet", "gsm", "\xD0\xB6"}, 1, "argument 1: character 1, U+0436, has no GSM code"},
        {{"--language", "eng", "a"}, 1, "argument 1: a language is two letters from a to z"},
        {{"--language", "en", "--class", "1", "a"},
         1,
         "argument 1: no data coding scheme has both a language and a class"},
        {{std::string(1400, 'a')}, 1, "argument 1: the text takes more than 15 pages"},
        {{"a\xFF"}, 1, "argument 1: byte 2 (0xFF) is not valid UTF-8"},
        {{"--alphabet", "gsm", "€üж"}, 1, "argument 1: character 3, U+0436, has no GSM code"},
        {{"--id", "nothing", "a"},
         2,
         "--id: nothing is neither a number from 0 to 65535 nor the name of an identifier"},
        {{"--id", "operator-specific", "a"}, 2, nullptr},
        {{"--id", "65536", "a"}, 2, nullptr},
        {{"--id", "1x", "a"}, 2, nullptr},
        {{"--serial", "1", "--scope", "1", "a"}, 2, nullptr},
        {{"--serial", "1", "--code", "1", "a"}, 2, nullptr},
        {{"--serial", "1", "--update", "1", "a"}, 2, nullptr},
        {{"--serial", "65536", "a"}, 2, nullptr},
        {{"--scope", "4", "a"}, 2, nullptr},
        {{"--code", "1024", "a"}, 2, nullptr},
        {{"--update", "16", "a"}, 2, nullptr},
        {{"--class", "4", "a"}, 2, nullptr},
        {{"--alphabet", "utf8", "a"}, 2, "--alphabet: utf8 is neither gsm nor ucs2"},
    };
    for (const Row& row : rows) {
        std::vector<std::string> arguments = {"cell", "encode"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        const Outcome run = Qxpdu(arguments);
        EXPECT_EQ(run.status, row.status) << run;
        EXPECT_EQ(run.out, "");
        if (row.words != nullptr) {
            EXPECT_TRUE(HasLine(run.err, std::string("qxpdu: ") + row.words)) << run.err;
        }
    }
}

TEST(QxpduCellEncode, NameOfSeveralIdentifiersIsRefused) {
    const Outcome run = Qxpdu({"cell", "encode", "--id", "assigned by the GSM Association", "a"});
    EXPECT_EQ(run.status, 2);
    EXPECT_TRUE(
        HasLine(run.err, "qxpdu: --id: assigned by the GSM Association is the name of several identifiers"))
        << run.err;
}

TEST(QxpduCellEncode, JsonTellsOfEachPage) {
    const auto pages = Qxpdu({"cell", "encode", "--json", "--id", "50", std::string(94, 'a')}).Json();
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(pages[1]["octets"].get<std::string>().substr(0, 14), "000000320F22E1");
    EXPECT_EQ(pages[1]["type"], "GSM page");
    EXPECT_EQ(pages[1]["data_coding_scheme"], 15);
    EXPECT_EQ(pages[1]["alphabet"], "GSM 7-bit");
    EXPECT_EQ(pages[1]["page"], 2);
    EXPECT_EQ(pages[1]["pages"], 2);
    const json message = Qxpdu({"cell", "encode", "--json", "--umts", "a"}).Json()[0];
    EXPECT_EQ(message["type"], "UMTS message");
    EXPECT_FALSE(message.contains("page"));
}

TEST(QxpduCellEncode, ObjectsSetTheirOptions) {
    const auto encode = [](const std::string& object) {
        return json::parse(Qxpdu({"cell", "encode", "--jsonl"}, object + "\n").out);
    };
    const auto headOf = [&](const std::string& object) {
        return encode(object)["pdus"][0]["octets"].get<std::string>().substr(0, 16);
    };
    EXPECT_EQ(headOf(R"({"text": "Hi", "id": 4370, "serial": 17185})"), "432111120F11C874");
    EXPECT_EQ(headOf(R"({"text": "Hi", "id": "ETWS tsunami", "scope": 1, "code": 50, "update": 1})"),
              "432111010F11C874");
    EXPECT_EQ(headOf(R"({"text": "Hi", "language": "de"})"), "000000000011C874");
    EXPECT_EQ(headOf(R"({"text": "Hi", "alphabet": "ucs2"})"), "0000000048110048");
    EXPECT_EQ(headOf(R"({"text": "Hi", "umts": true, "class": 0})").substr(0, 10), "0100000000");
    EXPECT_EQ(encode(R"({"text": "Hi", "to": "1"})")["error"], "to: no such member");
    EXPECT_EQ(encode(R"({"text": "Hi", "scope": 4})")["error"], "scope: no number from 0 to 3");
    EXPECT_EQ(encode(R"({"text": "Hi", "scope": -1})")["error"], "scope: no number from 0 to 3");
    EXPECT_EQ(encode(R"({"text": "Hi", "scope": 1.5})")["error"], "scope: no number from 0 to 3");
    EXPECT_EQ(encode(R"({"text": "Hi", "scope": "1"})")["error"], "scope: no number from 0 to 3");
    EXPECT_EQ(headOf(R"({"text": "Hi", "scope": 3, "code": 1023, "update": 15})").substr(0, 4), "FFFF");
    EXPECT_EQ(encode(R"({"text": "Hi", "code": 1024})")["error"], "code: no number from 0 to 1023");
    EXPECT_EQ(encode(R"({"text": "Hi", "update": 16})")["error"], "update: no number from 0 to 15");
    EXPECT_EQ(headOf(R"({"text": "Hi", "serial": 65535})").substr(0, 4), "FFFF");
    EXPECT_EQ(encode(R"({"text": "Hi", "serial": 65536})")["error"], "serial: no number from 0 to 65535");
    EXPECT_EQ(headOf(R"({"text": "Hi", "class": 3})").substr(8, 2), "53");
    EXPECT_EQ(encode(R"({"text": "Hi", "class": 4})")["error"], "class: no number from 0 to 3");
    EXPECT_EQ(encode(R"({"text": "Hi", "id": 65536})")["error"],
              "id: 65536 is neither a number from 0 to 65535 nor the name of an identifier");
    EXPECT_EQ(encode(R"({"text": "Hi", "id": true})")["error"], "id: no string");
    EXPECT_EQ(encode(R"({"text": "Hi", "alphabet": "utf8"})")["error"],
              "alphabet: utf8 is neither gsm nor ucs2");
    EXPECT_EQ(encode(R"({"text": "Hi", "umts": 1})")["error"], "umts: neither true nor false");
    EXPECT_EQ(encode(R"({"id": 1})")["error"], "text is required");
    const json line = json::parse(Qxpdu({"cell", "encode", "--lines", "--jsonl"}, "Hi\n").out);
    EXPECT_EQ(line["line"], 1);
    EXPECT_EQ(line["pdus"][0]["octets"].get<std::string>().substr(0, 16), "000000000F11C874") << "a text too";
    const json argument = json::parse(Qxpdu({"cell", "encode", "--jsonl", "Hi"}).out);
    EXPECT_EQ(argument["pdus"][0]["octets"].get<std::string>().substr(0, 16), "000000000F11C874")
        << "an argument is a text";
}

TEST(QxpduCellEncode, EachLineIsATextOfItsOwn) {
    const std::vector<std::string> pages =
        tests::LinesOf(Qxpdu({"cell", "encode", "--lines"}, "Hi\n{}\n").out);
    ASSERT_EQ(pages.size(), 2U);
    EXPECT_EQ(pages[0].substr(0, 16), "000000000F11C874");
    EXPECT_EQ(pages[1].substr(0, 16), "000000000F111BD4") << "escape and 28, escape and 29";
}

TEST(QxpduCellEncode, SerialNumberOfAnObjectIsWholeOrInPieces) {
    const auto serialOf = [](const char* members) {
        const Outcome run = Qxpdu({"cell", "encode", "--jsonl", "--serial", "0x4322"},
                                  std::string(R"({"text": "Hi")") + members + "}\n");
        const json object = json::parse(run.out);
        return object.contains("error") ? object["error"].get<std::string>()
                                        : object["pdus"][0]["octets"].get<std::string>().substr(0, 4);
    };
    EXPECT_EQ(serialOf(""), "4322") << "of the command line";
    EXPECT_EQ(serialOf(R"(, "serial": 3)"), "0003");
    EXPECT_EQ(serialOf(R"(, "scope": 2)"), "8322");
    EXPECT_EQ(serialOf(R"(, "code": 1)"), "4012");
    EXPECT_EQ(serialOf(R"(, "update": 1)"), "4321");
    for (const char* members :
         {R"(, "serial": 3, "scope": 1)", R"(, "code": 1, "serial": 3)", R"(, "update": 1, "serial": 3)"})
        EXPECT_EQ(serialOf(members), "serial: not with scope, code or update");
}

TEST(QxpduCellEncode, PagesAreNoCommands) {
    const Outcome run = Qxpdu({"cell", "432111120111C8329BFD06", "--bogus"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err.find("no command"), std::string::npos) << run.err;
}

} // namespace
