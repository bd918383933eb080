// qxpdu decode --join
#include <gtest/gtest.h>

#include "support/Octets.h"
#include "tools/qxpdu/RunTool.h"
#include "tools/qxpdu/Samples.h"

namespace {

using tests::AsLines;
using tests::c_codePart;
using tests::c_escapePart;
using tests::c_report;
using tests::c_submit;
using tests::HasLine;
using tests::JsonLines;
using tests::Outcome;
using tests::Qxpdu;

constexpr const char* c_highPart = "0791214365870921440B912143658709F100082120312143658008050003060201D83D";
constexpr const char* c_lowPart = "0791214365870921440B912143658709F100082120312143658008050003060202DE00";
constexpr const char* c_widePart = "0791214365870921440B912143658709F10008212031214365800906080400060202DE00";

/// The lines that a message was put together from.
std::vector<int> InputsOf(const nlohmann::json& joined) {
    std::vector<int> lines;
    for (const nlohmann::json& part : joined["joined"])
        lines.push_back(part["line"].get<int>());
    return lines;
}

/// UCS2, from +12345678901, under reference 5, with this header and text after the header's length.
std::string Deliver(const std::string& userData) {
    return "0791214365870921440B912143658709F1000821203121436580" + userData;
}

/// One character is "0416", "0436" or "044F": Ж, ж, я.
std::string Part(const std::string& total, const std::string& number, const std::string& character) {
    return Deliver((character.empty() ? "06" : "08") + ("05000305" + total) + number + character);
}

/// A row for each message: the parts that came where some are missing, and the text.
Outcome Join(const std::vector<std::string>& pdus) {
    return tests::Qxpdu({"decode", "--join", "--columns", "part,text", "--no-heading"}, AsLines(pdus));
}

TEST(QxpduJoin, EachMessageThatLacksPartsIsABlock) {
    const Outcome run = Qxpdu({"decode", "--join"}, AsLines({c_highPart, c_widePart}));
    EXPECT_TRUE(run.out.starts_with("Parts joined 1 of 2; missing 2\n")) << run.out;
    EXPECT_NE(run.out.find("\n\nParts joined 2 of 2; missing 1\n"), std::string::npos) << run.out;
}

TEST(QxpduJoin, PairsThatWereCutBetweenPartsAreWhole) {
    struct Row {
        std::vector<std::string> parts;
        const char* text;
    };
    const Row rows[] = {
        {{c_escapePart, c_codePart}, "a€b"},
        {{c_codePart, c_escapePart}, "a€b"},
        {{c_highPart, c_lowPart}, "😀"},
    };
    for (const Row& row : rows) {
        const Outcome run = Qxpdu({"decode", "--join", "--jsonl"}, AsLines(row.parts));
        EXPECT_EQ(run.status, 0);
        const auto objects = JsonLines(run.out);
        ASSERT_EQ(objects.size(), 1U) << run.out;
        EXPECT_EQ(objects[0]["text"], row.text);
        EXPECT_EQ(objects[0]["format"], 2);
        EXPECT_EQ(objects[0]["type"], "SMS-DELIVER");
        EXPECT_EQ(objects[0]["direction"], "to-mobile");
        EXPECT_EQ(objects[0]["time"], "2012-02-13T12:34:56+02:00");
        EXPECT_EQ(objects[0]["address"]["number"], "+12345678901");
        EXPECT_EQ(InputsOf(objects[0]).size(), 2U);
        EXPECT_EQ(objects[0]["joined"][0]["part"], 1);
        EXPECT_EQ(objects[0]["parts_missing"], nlohmann::json::array());
        EXPECT_FALSE(objects[0].contains("gaps"));
    }
}

TEST(QxpduJoin, TextNamesThePartsAndWhereTheyCameFrom) {
    EXPECT_EQ(
        Qxpdu({"decode", "--join"}, AsLines({c_codePart, c_escapePart, c_lowPart})),
        (Outcome{
            0,
            "Parts joined 1, 2 of 2\n"
            "        from line 2, line 1\n"
            "     address +12345678901, international, ISDN or telephone (E.164)\n"
            "        time 2012-02-13T12:34:56+02:00\n"
            "   reference 5\n"
            "        text a€b\n"
            "\n"
            "Parts joined 2 of 2; missing 1\n"
            "        from line 3\n"
            "     address +12345678901, international, ISDN or telephone (E.164)\n"
            "        time 2012-02-13T12:34:56+02:00\n"
            "   reference 6\n"
            "        text [part 1 missing]\xEF\xBF\xBD\n"
            "             ! line 3: TP-UD at octet 33: DE00 is half of a character, without the other half\n",
            "qxpdu: line 3: warning: part 1 of 2 is missing\n"
            "qxpdu: line 3: warning: TP-UD at octet 33: DE00 is half of a character, without the other "
            "half\n"}));
}

TEST(QxpduJoin, ReferencesOf8And16BitsAreDistinct) {
    const auto objects =
        JsonLines(Qxpdu({"decode", "--join", "--jsonl"}, AsLines({c_highPart, c_widePart})).out);
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[0]["reference_bits"], 8);
    EXPECT_EQ(objects[0]["parts_missing"], nlohmann::json{2});
    EXPECT_EQ(objects[1]["reference_bits"], 16);
    EXPECT_EQ(objects[1]["parts_missing"], nlohmann::json{1});
}

TEST(QxpduJoin, GapsSayWhereTheTextLacksParts) {
    const auto part = [](int number, const std::string& unit) {
        return "0791214365870921440B912143658709F10008212031214365800805000307050" + std::to_string(number) +
               unit;
    };
    const std::string input = AsLines({part(2, "0416"), part(5, "0436")});
    const auto object = Qxpdu({"decode", "--join", "--jsonl"}, input).Json();
    EXPECT_EQ(object["text"], "Жж");
    EXPECT_EQ(object["parts_missing"], (nlohmann::json{1, 3, 4}));
    EXPECT_EQ(object["gaps"], nlohmann::json::parse(R"([{"position": 0, "parts_missing": [1]},
                                                        {"position": 1, "parts_missing": [3, 4]}])"));
    EXPECT_TRUE(
        HasLine(Qxpdu({"decode", "--join"}, input).out, "text [part 1 missing]Ж[parts 3, 4 missing]ж"));
}

/// A part with these octets after its header, in UCS2.
std::string Ucs2Part(int number, int total, const std::string& octets) {
    const auto pair = [](std::size_t value) { return tests::Hex({static_cast<unsigned char>(value)}); };
    return "0791214365870921440B912143658709F1000821203121436580" + pair(6 + octets.size() / 2) + "0500030A" +
           pair(static_cast<std::size_t>(total)) + pair(static_cast<std::size_t>(number)) + octets;
}

constexpr const char* c_hello =
    "0791214365870921440B912143658709F10000212031214365800D0500030A0301906536FB0D02";
constexpr const char* c_octets = "0791214365870921440B912143658709F1000421203121436580090500030A03020102FF";

TEST(QxpduJoin, TextAndDataAreBothShown) {
    const std::string input = AsLines({c_hello, c_octets, Ucs2Part(3, 3, "00E9D83DDE00")});
    const auto object = Qxpdu({"decode", "--join", "--jsonl"}, input).Json();
    EXPECT_EQ(object["text"], "Hello é😀");
    EXPECT_EQ(object["data"], "0102FF");
    const Outcome run = Qxpdu({"decode", "--join"}, input);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(HasLine(run.out, "text Hello é😀"));
    EXPECT_TRUE(HasLine(run.out, "data 0102FF: ..."));
}

TEST(QxpduJoin, GapBetweenDataAndTextIsAPlaceOfTheText) {
    const auto object =
        Qxpdu({"decode", "--join", "--jsonl"}, AsLines({c_octets, Ucs2Part(3, 3, "00E9")})).Json();
    EXPECT_EQ(object["gaps"], nlohmann::json::parse(R"([{"position": 0, "parts_missing": [1]}])"));
    const auto alone = Qxpdu({"decode", "--join", "--jsonl"}, AsLines({c_octets})).Json();
    EXPECT_FALSE(alone.contains("text"));
    EXPECT_EQ(alone["gaps"], nlohmann::json::parse(R"([{"position": 0, "parts_missing": [1]},
                                                       {"position": 3, "parts_missing": [3]}])"));
}

TEST(QxpduJoin, DataOfACommandAreOctets) {
    const std::string input = AsLines(
        {"62070002050A9194515510320A05000305020101020304", "62070002050A91945155103208050003050202AABB"});
    const auto object =
        Qxpdu({"decode", "--smsc", "no", "--direction", "from-mobile", "--join", "--jsonl"}, input).Json();
    EXPECT_EQ(object["type"], "SMS-COMMAND");
    EXPECT_EQ(object["data"], "01020304AABB");
    EXPECT_FALSE(object.contains("text"));
}

TEST(QxpduJoin, WhatNoOtherPartMakesWholeIsToldAndAnErrorWhereItIsStrict) {
    const std::string escape = "0791214365870921440B912143658709F100002120312143658009050003"
                               "0A0201C21B"; // a, escape
    const struct {
        const char* name;
        std::vector<std::string> parts;
        std::string text;
        std::string where;
        std::string told; ///< a warning, or an error where it is strict
    } cases[] = {
        {"two first halves",
         {Ucs2Part(1, 2, "0061D83D"), Ucs2Part(2, 2, "D83D0062")},
         "a\uFFFD\uFFFDb",
         "line 1",
         "TP-UD at octet 35: D83D is half of a character, without the other half\n"},
        {"two second halves",
         {Ucs2Part(1, 2, "0061DE00"), Ucs2Part(2, 2, "DE000062")},
         "a\uFFFD\uFFFDb",
         "line 2",
         "TP-UD at octet 33: DE00 is half of a character, without the other half\n"},
        {"an escape before UCS2",
         {escape, Ucs2Part(2, 2, "00780079")},
         "axy",
         "line 1",
         "TP-UD at octet 34: a lone escape ends the text\n"},
        {"half a character at the end",
         {Ucs2Part(1, 2, "0061"), Ucs2Part(2, 2, "0062D83D")},
         "ab\uFFFD",
         "line 2",
         "TP-UD at octet 35: D83D is half of a character, without the other half\n"},
        {"a part that is missing",
         {Ucs2Part(1, 3, "0061"), Ucs2Part(3, 3, "0062")},
         "ab",
         "line 1",
         "part 2 of 3 is missing\n"},
        {"parts that are missing", {Ucs2Part(2, 3, "0061")}, "a", "line 1", "parts 1, 3 of 3 are missing\n"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.name);
        const std::string input = AsLines(one.parts);
        const Outcome mild = Qxpdu({"decode", "--join"}, input);
        EXPECT_EQ(mild.status, 0);
        EXPECT_NE(mild.err.find("qxpdu: " + one.where + ": warning: " + one.told), std::string::npos)
            << mild.err;
        const Outcome strict = Qxpdu({"decode", "--join", "--strict"}, input);
        EXPECT_EQ(strict.status, 1);
        EXPECT_NE(strict.err.find("qxpdu: " + one.where + ": " + one.told), std::string::npos) << strict.err;
        EXPECT_EQ(strict.out, mild.out);
        const Outcome lines = Qxpdu({"decode", "--join", "--jsonl"}, input);
        EXPECT_EQ(lines.status, 0);
        EXPECT_EQ(lines.err, "");
        EXPECT_EQ(lines.Json()["text"], one.text);
        EXPECT_EQ(Qxpdu({"decode", "--join", "--jsonl", "--strict"}, input).status, 1);
    }
}

TEST(QxpduJoin, EscapeAtTheEndOfANameIsNotOfTheText) {
    const auto part = [](const std::string& number) { // from A and an escape, with half of "ab"
        return "004404D0C10D00086230415190624008050003"
               "0A02" +
               number + "006" + number.substr(1);
    };
    const Outcome run = Qxpdu({"decode", "--join", "--strict", "--jsonl"}, AsLines({part("01"), part("02")}));
    EXPECT_EQ(run.status, 0) << run.out;
    const auto object = run.Json();
    EXPECT_EQ(object["text"], "ab");
    for (const nlohmann::json& one : object["joined"])
        EXPECT_EQ(one["remarks"][0]["code"], "escape-at-end");
}

TEST(QxpduJoin, RemarksStayOnWhatIsNotHealed) {
    const auto remarks = [](const std::vector<std::string>& parts) {
        const auto object = Qxpdu({"decode", "--join", "--jsonl"}, AsLines(parts)).Json();
        std::string codes;
        for (const nlohmann::json& part : object["joined"])
            for (const nlohmann::json& remark : part.value("remarks", nlohmann::json::array()))
                codes +=
                    std::to_string(part["part"].get<int>()) + ' ' + remark["code"].get<std::string>() + ';';
        return codes;
    };
    EXPECT_EQ(remarks({Ucs2Part(1, 2, "0061D83D"), Ucs2Part(2, 2, "DE000062")}), "");
    EXPECT_EQ(remarks({Ucs2Part(1, 2, "0061D83D"), Ucs2Part(2, 2, "D83D0062")}),
              "1 unpaired-surrogate;2 unpaired-surrogate;");
    EXPECT_EQ(remarks({c_escapePart, c_codePart}), "");
}

TEST(QxpduJoin, PartThatComesAgainIsADuplicateBeforeAndAfterCompletion) {
    const Outcome run =
        Qxpdu({"decode", "--join", "--jsonl"}, AsLines({c_escapePart, c_escapePart, c_codePart, c_codePart}));
    const auto objects = JsonLines(run.out);
    ASSERT_EQ(objects.size(), 3U) << run.out;
    EXPECT_EQ(objects[0], (nlohmann::json{{"format", 2}, {"line", 2}, {"duplicate_of", "line 1"}}));
    EXPECT_EQ(objects[1]["text"], "a€b");
    EXPECT_EQ(objects[2], (nlohmann::json{{"format", 2}, {"line", 4}, {"duplicate_of", "line 3"}}));
    EXPECT_EQ(Qxpdu({"decode", "--join"}, AsLines({c_escapePart, c_escapePart})).err,
              "qxpdu: line 2: warning: part 1 of 2 has come before, in line 1\n"
              "qxpdu: line 1: warning: part 2 of 2 is missing\n"
              "qxpdu: line 1: warning: TP-UD at octet 34: a lone escape ends the text\n");
}

TEST(QxpduJoin, LaterMessageUnderTheSameReferenceIsWholeThoughItBeginsAlike) {
    const auto later = [](std::string part) {
        return part.replace(part.find("2120312143"), 10, "2120313143");
    };
    const auto objects =
        JsonLines(Qxpdu({"decode", "--join", "--jsonl"},
                        AsLines({c_escapePart, c_codePart, later(c_escapePart), later(c_codePart)}))
                      .out);
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[0]["text"], "a€b");
    EXPECT_EQ(objects[1]["text"], "a€b");
    EXPECT_EQ(InputsOf(objects[1]), (std::vector<int>{3, 4}));
}

TEST(QxpduJoin, PlaceIsThatOfTheConcatenationWhateverOtherElementsSay) {
    // Parts 1 and 2 of 2 of message 7 as 8-bit data; an indication of 5 waiting messages stands in the header
    // too.
    const std::string start = "0791214365870921440B912143658709F1000421203121436580";
    const auto objects = JsonLines(
        Qxpdu({"decode", "--join", "--jsonl"},
              AsLines({start + "0B09000307020101028005" + "41", start + "0B09000307020201028005" + "42"}))
            .out);
    ASSERT_EQ(objects.size(), 1U);
    EXPECT_EQ(objects[0]["data"], "4142");
    EXPECT_EQ(objects[0]["total"], 2);
    EXPECT_EQ(objects[0]["reference"], 7);
}

TEST(QxpduJoin, StatusReportFindsTheMessageByReferenceAndAddress) {
    const auto objects = JsonLines(Qxpdu({"decode", "--join", "--jsonl"}, AsLines({c_submit, c_report})).out);
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_FALSE(objects[0].contains("report_on"));
    EXPECT_EQ(objects[1]["report_on"], 1);
    std::string other = c_report;
    other[5] = '8'; // TP-MR
    EXPECT_FALSE(JsonLines(Qxpdu({"decode", "--join", "--jsonl"}, AsLines({c_submit, other})).out)
                     .at(1)
                     .contains("report_on"));
    EXPECT_TRUE(HasLine(Qxpdu({"decode", "--join"}, AsLines({c_submit, c_report})).out, "report on line 1"));
    EXPECT_TRUE(HasLine(Qxpdu({"decode", "--join", c_submit, c_report}).out, "report on argument 1"));
    const std::string national = "0001070481214300000161"; // the service centre adds the plus sign
    EXPECT_EQ(JsonLines(Qxpdu({"decode", "--join", "--jsonl"}, AsLines({national, c_report})).out)
                  .at(1)["report_on"],
              1);
}

TEST(QxpduJoin, OldestMessageIsGivenUpWhenTooManyPartsWait) {
    // 4,097 first parts, which are one more than wait, and then the second part of the very first message.
    constexpr int c_waiting = 4096;
    std::string input;
    for (int reference = 0; reference <= c_waiting; ++reference) {
        const unsigned char octets[] = {static_cast<unsigned char>(reference >> 8),
                                        static_cast<unsigned char>(reference)};
        input += "0791214365870921440B912143658709F100082120312143658009060804" + tests::Hex(octets, 1) +
                 tests::Hex(octets + 1, 1) + "02010061\n";
    }
    input += "0791214365870921440B912143658709F100082120312143658009060804000002020062\n";
    const Outcome run = Qxpdu({"decode", "--join", "--jsonl"}, input);
    EXPECT_EQ(run.status, 0);
    const auto objects = JsonLines(run.out);
    ASSERT_EQ(objects.size(), std::size_t{c_waiting} + 2);
    EXPECT_EQ(InputsOf(objects[0]), (std::vector<int>{1}));
    EXPECT_EQ(objects[0]["parts_missing"], nlohmann::json{2});
    EXPECT_EQ(InputsOf(objects[1]), (std::vector<int>{2}));
    EXPECT_EQ(InputsOf(objects.back()), (std::vector<int>{c_waiting + 2}));
    EXPECT_EQ(objects.back()["parts_missing"], nlohmann::json{1});
}

TEST(QxpduJoin, EachPartIsShownByItselfToo) {
    const auto objects =
        JsonLines(Qxpdu({"decode", "--join", "--each", "--jsonl"}, AsLines({c_escapePart, c_codePart})).out);
    ASSERT_EQ(objects.size(), 3U);
    EXPECT_EQ(objects[0]["line"], 1);
    EXPECT_EQ(objects[1]["line"], 2);
    EXPECT_EQ(objects[2]["joined"][0]["line"], 1);
    EXPECT_EQ(objects[2]["joined"][1]["line"], 2);
    EXPECT_EQ(objects[2]["text"], "a€b");
    EXPECT_EQ(Qxpdu({"decode", "--each", c_escapePart}).status, 2) << "without --join";
}

TEST(QxpduJoin, NumberAboveTheTotalIsNoPart) {
    EXPECT_EQ(Join({Part("02", "03", "0416"), Part("02", "01", "0436")}).out, "\tЖ\n1/2\tж\n");
}

TEST(QxpduJoin, PartOneOfOneIsAMessage) {
    EXPECT_EQ(Join({Part("02", "01", "0436"), Part("01", "01", "0416")}).out, "\tЖ\n1/2\tж\n");
    EXPECT_EQ(Join({Part("01", "01", "0416"), Part("01", "01", "0416")}), (Outcome{0, "\tЖ\n\tЖ\n", ""}))
        << "which may come twice";
}

TEST(QxpduJoin, AnotherTotalTypeOrWidthOfReferenceIsAnotherMessage) {
    const std::string first = Part("02", "01", "0416");
    EXPECT_EQ(Join({first, Part("03", "02", "0436")}).out, "1/2\tЖ\n2/3\tж\n");
    EXPECT_EQ(Join({first, "0041070B912143658709F100080805000305"
                           "02020436"})
                  .out,
              "1/2\tЖ\n2/2\tж\n");
    EXPECT_EQ(Join({first, Deliver("09060804000502020436")}).out, "1/2\tЖ\n2/2\tж\n");
    EXPECT_EQ(Join({first, Part("02", "02", "0436")}).out, "\tЖж\n");
}

TEST(QxpduJoin, LastOfTwoConcatenationElementsCounts) {
    EXPECT_EQ(Join({Deliver("0D0A000305020200030502010416"), Part("02", "02", "0436")}).out, "\tЖж\n");
}

TEST(QxpduJoin, AnotherTextUnderTheSameNumberBeginsAnotherMessage) {
    EXPECT_EQ(Join({Part("02", "01", "0416"), Part("02", "01", "0436"), Part("02", "02", "044F")}).out,
              "1/2\tЖ\n\tжя\n");
}

TEST(QxpduJoin, HeaderAloneIsAPartWithoutText) {
    EXPECT_EQ(Join({Part("02", "01", "0416"), Part("02", "02", "")}).out, "\tЖ\n");
    EXPECT_EQ(Join({Part("02", "01", ""), Part("02", "02", "0416")}).out, "\tЖ\n");
}

TEST(QxpduJoin, MessageSentAgainWhileItsCopyWaitsIsOne) {
    std::string again = Part("02", "01", "0416");
    again.replace(again.find("2120312143"), 10, "2120312153"); // a minute later
    EXPECT_EQ(Join({Part("02", "01", "0416"), again, Part("02", "02", "0436")}),
              (Outcome{0, "\tЖж\n", "qxpdu: line 2: warning: part 1 of 2 has come before, in line 1\n"}));
}

} // namespace
