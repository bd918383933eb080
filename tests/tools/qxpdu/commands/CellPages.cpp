// qxpdu cell --join
#include <array>
#include <cstdio>

#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using nlohmann::json;
using tests::HasLine;
using tests::Outcome;
using tests::Qxpdu;

TEST(QxpduCellPages, AreJoinedInTheirOrder) {
    // Page 2 comes first, with a page of another message between the two.
    EXPECT_EQ(Qxpdu({"cell", "--join"}, "432111120122C8329BFD06\n"
                                        "433111120111C8329BFD06\n"
                                        "432111120112E8329BFD06\n"),
              (Outcome{0,
                       "     serial number 0x4331: scope 1: network wide, message code 51, update number 1\n"
                       "message identifier 0x1112: CMAS presidential, EU-Alert level 1\n"
                       "data coding scheme 0x01: GSM 7-bit, English\n"
                       "    page parameter 0x11: page 1 of 1\n"
                       "              text Hello\n"
                       "\n"
                       "      Pages joined 1, 2 of 2\n"
                       "              from line 3, line 1\n"
                       "     serial number 0x4321: scope 1: network wide, message code 50, update number 1\n"
                       "message identifier 0x1112: CMAS presidential, EU-Alert level 1\n"
                       "data coding scheme 0x01: GSM 7-bit, English\n"
                       "              text helloHello\n",
                       ""}));
}

TEST(QxpduCellPages, AreShownByThemselvesWithEach) {
    const Outcome run = Qxpdu({"cell", "--join", "--each", "--brief", "432111120112E8329BFD06",
                               "432111120122C8329BFD06", "433111120111C8329BFD06"});
    EXPECT_EQ(run.out,
              "from 4370 [1/2] hello\nfrom 4370 [2/2] Hello\nfrom 4370 helloHello\nfrom 4370 Hello\n");
    EXPECT_EQ(Qxpdu({"cell", "--each", "432111120112E8329BFD06"}).status, 2);
}

TEST(QxpduCellPages, AreNotJoinedUnlessAskedFor) {
    EXPECT_EQ(Qxpdu({"cell", "--brief", "432111120112E8329BFD06", "432111120122C8329BFD06"}).out,
              "from 4370 [1/2] hello\nfrom 4370 [2/2] Hello\n");
}

TEST(QxpduCellPages, ThatAreMissingAreToldInTheEnd) {
    const std::string pages = "432111120114E8329BFD06\n432111120134C8329BFD06\n";
    const Outcome run = Qxpdu({"cell", "--join"}, pages);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "qxpdu: line 1: warning: pages 2, 4 of 4 are missing\n");
    EXPECT_TRUE(HasLine(run.out, "Pages joined 1, 3 of 4; missing 2, 4")) << run.out;
    EXPECT_TRUE(HasLine(run.out, "text hello[page 2 missing]Hello[page 4 missing]")) << run.out;
    EXPECT_TRUE(HasLine(Qxpdu({"cell", "--join", "432111120144C8329BFD06"}).out,
                        "text [pages 1, 2, 3 missing]Hello"));
    EXPECT_EQ(Qxpdu({"cell", "--join", "--brief"}, pages).out, "from 4370 [1,3/4] helloHello\n");
    const Outcome strict = Qxpdu({"cell", "--join", "--strict"}, pages);
    EXPECT_EQ(strict.status, 1);
    EXPECT_EQ(strict.err, "qxpdu: line 1: pages 2, 4 of 4 are missing\n");
    const Outcome lines = Qxpdu({"cell", "--join", "--strict", "--jsonl"}, pages);
    EXPECT_EQ(lines.status, 1);
    EXPECT_EQ(lines.err, "");
    EXPECT_EQ(Qxpdu({"cell", "--join", "--jsonl"}, pages).status, 0);
    EXPECT_EQ(Qxpdu({"cell", "--join", "432111120122C8329BFD06"}).err,
              "qxpdu: argument 1: warning: page 1 of 2 is missing\n");
}

TEST(QxpduCellPages, ThatComeAgainAreDuplicates) {
    const std::string pages = "432111120112E8329BFD06\n432111120112E8329BFD06\n432111120122C8329BFD06\n"
                              "432111120122C8329BFD06\n";
    const Outcome run = Qxpdu({"cell", "--join"}, pages);
    EXPECT_EQ(run.err, "qxpdu: line 2: warning: page 1 of 2 has come before\n"
                       "qxpdu: line 4: warning: page 2 of 2 has come before\n");
    EXPECT_TRUE(HasLine(run.out, "from line 1, line 3")) << run.out;
    const Outcome lines = Qxpdu({"cell", "--join", "--jsonl"}, pages);
    EXPECT_EQ(json::parse(lines.out.substr(0, lines.out.find('\n'))),
              json::parse(R"({"format": 2, "line": 2, "duplicate_pages": [1]})"));
}

TEST(QxpduCellPages, WithOtherOctetsBeginANewMessage) {
    const Outcome run =
        Qxpdu({"cell", "--join", "--brief"}, "432111120112E8329BFD06\n432111120112C8329BFD06\n"
                                             "432111120122C8329BFD06\n");
    EXPECT_EQ(run.out, "from 4370 [1/2] hello\nfrom 4370 HelloHello\n");
    EXPECT_EQ(run.err, "qxpdu: line 1: warning: page 2 of 2 is missing\n");
}

TEST(QxpduCellPages, OfAnotherKindBeginANewMessage) {
    const std::string first = "432111120112C8329BFD06\n"; // page 1 of 2
    for (const std::string other : {"432111120113C8329BFD06\n", "432111120F12C8329BFD06\n"}) {
        const Outcome run = Qxpdu({"cell", "--join", "--jsonl"}, first + other);
        const auto objects = tests::JsonLines(run.out);
        ASSERT_EQ(objects.size(), 2U) << run;
        for (const json& object : objects) {
            EXPECT_TRUE(object.contains("pages_missing")) << object;
            EXPECT_FALSE(object.contains("warnings")) << object;
        }
    }
}

TEST(QxpduCellPages, OfAnotherIdentifierThatIsGivenUpAreNotTheNewOnes) {
    std::string pages;
    for (int identifier = 0x1000; identifier <= 0x1100; ++identifier) {
        std::array<char, 8> digits{};
        std::snprintf(digits.data(), digits.size(), "%04X", static_cast<unsigned int>(identifier));
        pages += "4321" + std::string(digits.data()) + "0112C8329BFD06\n";
    }
    const auto objects = tests::JsonLines(Qxpdu({"cell", "--join", "--jsonl"}, pages).out);
    ASSERT_EQ(objects.size(), 257U);
    for (const json& object : objects)
        EXPECT_FALSE(object.contains("warnings")) << object;
}

TEST(QxpduCellPages, OfANewerUpdateReplaceThoseOfAnOlderOne) {
    const Outcome run = Qxpdu({"cell", "--join"}, "432111120112E8329BFD06\n432211120112C8329BFD06\n"
                                                  "432111120122E8329BFD06\n432211120122C8329BFD06\n");
    EXPECT_EQ(run.err, "qxpdu: line 1: warning: page 2 of 2 is missing\n"
                       "qxpdu: line 3: warning: a newer update of the message has come before\n");
    EXPECT_TRUE(HasLine(run.out, "from line 2, line 4")) << run.out;
    EXPECT_TRUE(HasLine(run.out, "text HelloHello")) << run.out;
    EXPECT_EQ(Qxpdu({"cell", "--join", "--brief"}, "432211120111E8329BFD06\n432111120111C8329BFD06\n").out,
              "from 4370 hello\nfrom 4370 Hello\n")
        << "an older one by itself";
    const Outcome same =
        Qxpdu({"cell", "--join", "--brief"}, "432111120112C8329BFD06\n432211120112C8329BFD06\n");
    EXPECT_EQ(same, (Outcome{0, "from 4370 [1/2] Hello\nfrom 4370 [1/2] Hello\n",
                             "qxpdu: line 1: warning: page 2 of 2 is missing\n"
                             "qxpdu: line 2: warning: page 2 of 2 is missing\n"}))
        << "whatever it says";
}

TEST(QxpduCellPages, OfAnOlderUpdateAreToldAndShownByThemselves) {
    const std::string pages = "432211120111E8329BFD06\n432111120111C8329BFD06\n432111120112C8329BFD06\n";
    const std::string words = "a newer update of the message has come before";
    const Outcome run = Qxpdu({"cell", "--join", "--brief"}, pages);
    EXPECT_EQ(run.out, "from 4370 hello\nfrom 4370 Hello\nfrom 4370 [1/2] Hello\n");
    EXPECT_EQ(run.err, "qxpdu: line 2: warning: " + words + "\nqxpdu: line 3: warning: " + words + "\n");
    EXPECT_EQ(Qxpdu({"cell", "--join", "--each", "--brief"}, pages).out, run.out) << "once";
    const Outcome lines = Qxpdu({"cell", "--join", "--jsonl"}, pages);
    EXPECT_EQ(lines.err, "");
    const std::vector<json> objects = tests::JsonLines(lines.out);
    ASSERT_EQ(objects.size(), 3U);
    EXPECT_FALSE(objects[0].contains("warnings"));
    EXPECT_EQ(objects[1]["warnings"], json({words}));
    EXPECT_EQ(objects[2]["warnings"], json({words}));
}

TEST(QxpduCellPages, LanguageBeforeTheTextIsToldOfTheWholeMessage) {
    // "uk" before each page, У and в.
    const std::vector<std::string> pages = {"001000321112F5350423", "001000321122F5350432"};
    const Outcome run = Qxpdu({"cell", "--join", pages[0], pages[1]});
    EXPECT_TRUE(HasLine(run.out, "data coding scheme 0x11: UCS2, language before the text")) << run.out;
    EXPECT_TRUE(HasLine(run.out, "language uk")) << run.out;
    EXPECT_TRUE(HasLine(run.out, "text Ув")) << run.out;
    EXPECT_EQ(Qxpdu({"cell", "--join", "--json", pages[0], pages[1]}).Json()[0]["language"], "uk");
}

TEST(QxpduCellPages, MessageWithoutAPageIsAnErrorWhereItIsStrict) {
    const Outcome run = Qxpdu({"cell", "--type", "umts", "--join", "--strict", "01111240000F02"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "qxpdu: argument 1: number of pages at octet 6: 2 pages announced, 0 wholly there\n");
    EXPECT_EQ(Qxpdu({"cell", "--type", "umts", "--join", "01111240000F02"}).err,
              "qxpdu: argument 1: warning: number of pages at octet 6: 2 pages announced, 0 wholly there\n");
}

TEST(QxpduCellPages, BeyondTheirNumberAreShownByThemselves) {
    const std::string pages = "432111120112E8329BFD06\n432111120132C8329BFD06\n432111120122C8329BFD06\n";
    const Outcome run = Qxpdu({"cell", "--join", "--brief"}, pages);
    EXPECT_EQ(run.out, "from 4370 [3/2] Hello\nfrom 4370 helloHello\n");
    EXPECT_TRUE(HasLine(Qxpdu({"cell", "--join"}, pages).out, "from line 1, line 3")) << "without that page";
}

TEST(QxpduCellPages, BeyondTheirNumberLoseNoText) {
    const Outcome third = Qxpdu({"cell", "--join", "432111120132C8329BFD06"});
    EXPECT_TRUE(HasLine(third.out, "text [pages 1, 2 missing]Hello")) << third.out;
    const Outcome second = Qxpdu({"cell", "--join", "--strict", "432111120121C8329BFD06"});
    EXPECT_EQ(second.status, 1);
    EXPECT_EQ(second.err, "qxpdu: argument 1: page 1 of 1 is missing\n");
    EXPECT_TRUE(HasLine(second.out, "text [page 1 missing]Hello")) << second.out;
}

TEST(QxpduCellPages, WhatTheyHealIsNoRemark) {
    // UCS2, a high surrogate at the end of the first page and its other half in the second.
    const std::string pages = "432111124812D83D\n432111124822DE00\n";
    const Outcome run = Qxpdu({"cell", "--join"}, pages);
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(HasLine(run.out, "text \xF0\x9F\x98\x80")) << run.out;
    EXPECT_EQ(run.out.find('!'), std::string::npos) << run.out;
    const Outcome half = Qxpdu({"cell", "--join"}, "432111124812D83D\n4321111248220048\n");
    EXPECT_EQ(half.err,
              "qxpdu: line 1: warning: content at octet 6: D83D is half of a character, without the "
              "other half\n");
    EXPECT_TRUE(HasLine(half.out,
                        "! line 1: content at octet 6: D83D is half of a character, without the other half"))
        << half.out;
    EXPECT_TRUE(HasLine(half.out, "~ line 2: libQX_Encoding m_Text \"@\xCE\x94\"")) << half.out;
    EXPECT_EQ(Qxpdu({"cell", "--join"}, "4321111201111B\n").err,
              "qxpdu: line 1: warning: content at octet 6: a lone escape ends the text\n")
        << "no page follows";
    const Outcome escape = Qxpdu({"cell", "--join"}, "4321111201121B\n4321111201223C\n");
    EXPECT_EQ(escape.err, "");
    EXPECT_TRUE(HasLine(escape.out, "text [")) << escape.out;
    EXPECT_EQ(Qxpdu({"cell", "--join"}, "4321111201131B\n4321111201333C\n").err,
              "qxpdu: line 1: warning: page 2 of 3 is missing\n"
              "qxpdu: line 1: warning: content at octet 6: a lone escape ends the text\n");
}

TEST(QxpduCellPages, OfDataAreJoinedAsOctets) {
    const std::string pages = "432111124412FF48\n43211112442269\n";
    EXPECT_TRUE(HasLine(Qxpdu({"cell", "--join"}, pages).out, "data FF4869: .Hi"));
    EXPECT_EQ(Qxpdu({"cell", "--join", "--json"}, pages).Json()[0]["data"], "FF4869");
}

TEST(QxpduCellPages, OfAMessageAreWhole) {
    std::string page = "C8329BFD06";
    page.resize(2 * std::size_t{82}, '0');
    const std::string message = "01111243210101" + page + "05";
    EXPECT_EQ(Qxpdu({"cell", "--join", "--brief", message}).out, "from 4370 Hello\n");
    const std::string cut = "01111243210102" + page + "05";
    const Outcome run = Qxpdu({"cell", "--join", "--type", "umts", cut});
    EXPECT_EQ(run.err, "qxpdu: argument 1: warning: page 2 of 2 is missing\n");
    EXPECT_TRUE(HasLine(run.out, "Pages joined 1 of 2; missing 2")) << run.out;
}

TEST(QxpduCellPages, CutPageIsShownAndWaitsForTheWholeOne) {
    std::string page = "C8329BFD06"; // "Hello"
    page.resize(2 * std::size_t{82}, '0');
    const std::string head = "01111243210102" + page + "05";
    const std::string cut = head + "E832"; // "he" of "hello"
    const Outcome alone = Qxpdu({"cell", "--join", "--type", "umts", cut});
    EXPECT_EQ(alone.err, "qxpdu: argument 1: warning: page 2 of 2 is missing\n");
    EXPECT_TRUE(HasLine(alone.out, "Pages joined 1 of 2; missing 2")) << alone.out;
    EXPECT_TRUE(HasLine(alone.out, "text Hellohe[rest of page 2 missing]")) << alone.out;
    const json object = Qxpdu({"cell", "--join", "--type", "umts", "--json", cut}).Json()[0];
    EXPECT_EQ(object["pages_joined"], json({1}));
    EXPECT_EQ(object["pages_missing"], json({2}));
    EXPECT_EQ(Qxpdu({"cell", "--join", "--type", "umts", "--strict", cut}).status, 1);
    page.replace(0, 2, "E8");
    const std::string whole = head + page + "05";
    EXPECT_EQ(Qxpdu({"cell", "--join", "--type", "umts", "--brief", cut, whole}),
              (Outcome{0, "from 4370 Hellohello\n", ""}));
    const Outcome none = Qxpdu({"cell", "--join", "--type", "umts", "01111243210101C832"});
    EXPECT_TRUE(HasLine(none.out, "Pages joined none of 1; missing 1")) << none.out;
    const json read = Qxpdu({"cell", "--type", "umts", "--json", cut}).Json()[0];
    EXPECT_FALSE(read["pages"][0].contains("cut"));
    EXPECT_EQ(read["pages"][1]["cut"], true);
}

TEST(QxpduCellPages, HalfOfACharacterInACutPageIsHealedByTheWholeOne) {
    std::string page = "D83DDEA8";
    page.resize(2 * std::size_t{82}, '0');
    const std::string head = "01111243214801";
    EXPECT_EQ(Qxpdu({"cell", "--join", "--type", "umts", "--brief", head + "D83D", head + page + "04"}),
              (Outcome{0, "from 4370 \xF0\x9F\x9A\xA8\n", ""}));
}

TEST(QxpduCellPages, OfAMessageThatComesAgainAreNamed) {
    std::string page = "C8329BFD06";
    page.resize(2 * std::size_t{82}, '0');
    const std::string message = "01111243210102" + page + "05" + page + "05";
    EXPECT_EQ(Qxpdu({"cell", "--join", message, message}).err,
              "qxpdu: argument 2: warning: pages 1, 2 of 2 have come before\n");
    const std::string objects = Qxpdu({"cell", "--join", "--jsonl", message, message}).out;
    EXPECT_EQ(json::parse(objects.substr(objects.find('\n'))),
              json::parse(R"({"format": 2, "argument": 2, "duplicate_pages": [1, 2]})"));
}

TEST(QxpduCellPages, HealedHalvesAreNoFlawBesideAReplacementCharacter) {
    // U+FFFD and half of a character; its other half, and U+FFFD
    const std::string high = "432111124812FFFDD83D";
    const std::string low = "432111124822DEA8FFFD";
    EXPECT_EQ(Qxpdu({"cell", "--join", "--strict", "--brief", high, low}),
              (Outcome{0, "from 4370 \xEF\xBF\xBD\xF0\x9F\x9A\xA8\xEF\xBF\xBD\n", ""}));
    const char* const c_broken[][2] = {{"432111124812D83D0041", "432111124822DEA8"}, // not at the end
                                       {"432111124812D83D", "4321111248220041DEA8"}, // nor at the beginning
                                       {"432111124812DEA8", "432111124822D83D"},     // the wrong way round
                                       {"432111124812D83D", "4321111248220041"},     // no other half
                                       {"4321111248120041", "432111124822DEA8"}};
    for (const auto& [first, second] : c_broken)
        EXPECT_EQ(Qxpdu({"cell", "--join", "--strict", first, second}).status, 1) << first;
}

TEST(QxpduCellPages, EscapeIsHealedByTheTablesOfItsPageAlone) {
    // "a" and an escape; then "e", which makes the euro sign of it, or "e" with a Turkish single shift table.
    const std::string escape = "43211112901200407803";
    EXPECT_EQ(Qxpdu({"cell", "--join", "--strict", "--brief", escape, "432111129022004019"}),
              (Outcome{0, "from 4370 a\xE2\x82\xAC\n", ""}));
    EXPECT_EQ(Qxpdu({"cell", "--join", "--strict", escape, "432111129022032401012803"}).status, 1);
}

TEST(QxpduCellPages, NotificationIsShownAtOnce) {
    EXPECT_EQ(Qxpdu({"cell", "--join", "--brief", "--type", "etws", "300011000180"}).out,
              "from 4352 earthquake\n");
}

TEST(QxpduCellPages, OldestThatWaitIsGivenUpWhenThereAreMoreThan256) {
    std::string pages = "000000010113E8329BFD06\n000000010123C8329BFD06\n"; // pages 1 and 2 of 3
    for (int i = 0; i < 256; ++i) {
        char page[32];
        std::snprintf(page, sizeof page, "%04X00020113C8329BFD06\n", static_cast<unsigned int>(i << 4));
        pages += page;
    }
    const auto objects = Qxpdu({"cell", "--join", "--json"}, pages).Json();
    ASSERT_EQ(objects.size(), 257U);
    EXPECT_EQ(objects[0]["pages_joined"], json({1, 2})) << "after the page that needed the room";
    EXPECT_EQ(objects[0]["message_identifier"]["raw"], 1);
}

TEST(QxpduCellPages, OfALogAreJoinedAmongItsMessages) {
    const std::string log = "+CBM: 11\n432111120122C8329BFD06\n+CBM: 12\n432111120112E8329BFD06\n+CBM: 11\n"
                            "433111120122C8329BFD06\n";
    EXPECT_EQ(Qxpdu({"decode", "--join", "--brief"}, log).out,
              "from 4370 helloHello\nfrom 4370 [2/2] Hello\n");
    EXPECT_EQ(Qxpdu({"decode", "--brief"}, log).out,
              "from 4370 [2/2] Hello\nfrom 4370 [1/2] hello\nfrom 4370 [2/2] Hello\n");
}

TEST(QxpduCellPages, JsonNamesTheInputsOfAJoinedMessage) {
    const auto objects =
        Qxpdu({"cell", "--join", "--json", "432100320113E8329BFD06", "432100320133C8329BFD06"}).Json();
    ASSERT_EQ(objects.size(), 1U);
    EXPECT_EQ(objects[0], json::parse(R"({
        "format": 2,
        "joined": [{"pages": [1], "argument": 1}, {"pages": [3], "argument": 2}],
        "serial_number": {
            "raw": 17185,
            "meaning": "scope 1: network wide, message code 50, update number 1",
            "geographical_scope": {"raw": 1, "meaning": "network wide"},
            "message_code": 50,
            "update_number": 1
        },
        "message_identifier": {"raw": 50, "meaning": "assigned by the GSM Association"},
        "data_coding_scheme": {
            "raw": 1, "meaning": "GSM 7-bit, English", "alphabet": "GSM 7-bit", "language": "en"
        },
        "language": "en",
        "pages_joined": [1, 3],
        "pages_missing": [2],
        "text": "helloHello"
    })"));
}

} // namespace
