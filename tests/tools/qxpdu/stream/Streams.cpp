// qxpdu on many lines: JSON Lines, threads, logs of modems, parts put together.
#include <sstream>

#include <gtest/gtest.h>

#include "support/Octets.h"
#include "support/PseudoTerminal.h"
#include "tools/qxpdu/RunTool.h"

namespace {

using tests::HasLine;
using tests::Outcome;
using tests::Qxpdu;
using tests::Repeated;
using tests::Shell;

using Arguments = std::vector<std::string>;

// 19 octets of a TPDU stand before the user data of the first four.
constexpr const char* c_hello = "0791214365870921040B912143658709F100002120312143658005C8329BFD06";
constexpr const char* c_escapePart = "0791214365870921440B912143658709F100002120312143658009050003050201C21B";
constexpr const char* c_codePart = "0791214365870921440B912143658709F100002120312143658009050003050202CA62";
constexpr const char* c_highPart = "0791214365870921440B912143658709F100082120312143658008050003060201D83D";
constexpr const char* c_lowPart = "0791214365870921440B912143658709F100082120312143658008050003060202DE00";
constexpr const char* c_widePart = "0791214365870921440B912143658709F10008212031214365800906080400060202DE00";
constexpr const char* c_submit = "0001070491214300000161";
constexpr const char* c_report = "00060704912143212031214365802120312143658000";
constexpr const char* c_cellPage = "403211120111C8329BFD06";

std::vector<nlohmann::json> JsonLines(const std::string& text) {
    std::vector<nlohmann::json> objects;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        objects.push_back(nlohmann::json::parse(line));
    return objects;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + '\n';
    return text;
}

TEST(QxpduStreams, JsonLinesGiveAnObjectForEachInputInOrderWithErrorsAmongThem) {
    const Outcome run = Qxpdu({"decode", "--jsonl"}, Joined({c_hello, "0G", "", c_hello}));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "");
    const auto objects = JsonLines(run.out);
    ASSERT_EQ(objects.size(), 3U);
    EXPECT_EQ(objects[0]["line"], 1);
    EXPECT_EQ(objects[0]["text"], "Hello");
    EXPECT_EQ(objects[1],
              (nlohmann::json{{"line", 2}, {"error", "character 2, 'G', is no hexadecimal digit"}}));
    EXPECT_EQ(objects[2]["line"], 4);
}

TEST(QxpduStreams, JsonLinesOfArgumentsAreNumbered) {
    const auto objects = JsonLines(Qxpdu({"cell", "--jsonl", "00", c_cellPage}).out);
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[0], (nlohmann::json{{"argument", 1}, {"error", "1 octet, a page has 6 at least"}}));
    EXPECT_EQ(objects[1]["argument"], 2);
    EXPECT_EQ(objects[1]["text"], "Hello");
}

TEST(QxpduStreams, ThreadsChangeNothingInTheOutput) {
    const std::string input =
        Repeated(Joined({c_hello, "0G", "+CMT: ,27", c_escapePart, "", c_codePart, c_cellPage}), 700);
    for (const Arguments& command :
         {Arguments{"decode", "--jsonl"}, Arguments{"decode"}, Arguments{"decode", "--json", "--join"},
          Arguments{"decode", "--jsonl", "--join"}, Arguments{"cell", "--jsonl"}}) {
        SCOPED_TRACE(testing::PrintToString(command));
        const Outcome one = Qxpdu(command, input);
        EXPECT_FALSE(one.out.empty());
        for (const char* threads : {"1", "2", "8"}) {
            Arguments arguments = command;
            arguments.insert(arguments.end(), {"-j", threads});
            EXPECT_EQ(Qxpdu(arguments, input), one) << threads;
        }
        Arguments arguments = command;
        arguments.insert(arguments.end(), {"--threads", "3", "--line-buffered"});
        EXPECT_EQ(Qxpdu(arguments, input), one);
    }
}

TEST(QxpduStreams, LineBufferedAnswersEachLineBeforeTheNextIsThere) {
    // The shell sends the second line only when the answer to the first has come.
    const Outcome run = tests::Shell("d=$(mktemp -d) && mkfifo $d/in $d/out && "
                                     "{ $QXPDU decode --jsonl --line-buffered <$d/in >$d/out & } && exec "
                                     "3>$d/in 4<$d/out && echo 00 >&3 && "
                                     "read -r first <&4 && echo 0 >&3 && read -r second <&4 && "
                                     "echo \"$first\" && echo \"$second\"; rm -r $d");
    EXPECT_EQ(
        run.out,
        "{\"line\":1,\"error\":\"first octet at octet 1: expected an octet, found the end of the PDU\"}\n"
        "{\"line\":2,\"error\":\"odd number of hexadecimal digits, 1\"}\n");
}

TEST(QxpduStreams, ClosedPipeEndsTheToolQuietly) {
    const struct {
        const char* trap;
        const char* status; ///< of the tool: ended by SIGPIPE, or nothing amiss where that is ignored
    } rows[] = {{"", "141\n"}, {"trap '' PIPE; ", "0\n"}};
    for (const auto& row : rows) {
        const Outcome run =
            tests::Shell(std::string(row.trap) + "yes " + c_hello +
                         " 2>/dev/null | { $QXPDU decode --jsonl; echo $? >&2; } | head -n 1");
        EXPECT_EQ(run.err, row.status);
        EXPECT_EQ(JsonLines(run.out).size(), 1U) << run.out;
    }
}

TEST(QxpduStreams, ProgressIsShownOnATerminalUnlessResultsGoThereToo) {
    if (!tests::HasPseudoTerminals())
        GTEST_SKIP() << tests::c_noPseudoTerminals;
    const std::string decode = "printf '00\\n' | $QXPDU decode --jsonl";
    const auto onTerminal = [](const std::string& command) {
        return tests::Shell("script -qec \"" + command + "\" /dev/null").out;
    };
    EXPECT_NE(onTerminal(decode + " >/dev/null").find("1 line, "), std::string::npos);
    EXPECT_EQ(onTerminal(decode + " --no-progress >/dev/null"), "");
    EXPECT_EQ(onTerminal(decode).find("1 line, "), std::string::npos);
    EXPECT_NE(onTerminal(decode + " --progress").find("1 line, "), std::string::npos);
}

TEST(QxpduStreams, ProgressTellsLinesAndErrorsOnStandardError) {
    const Outcome shown = Qxpdu({"decode", "--jsonl", "--progress"}, Joined({c_hello, "0G", c_hello}));
    const std::string start = "qxpdu: 3 lines, ";
    const std::size_t begin = shown.err.rfind(start);
    ASSERT_NE(begin, std::string::npos) << shown.err;
    const std::size_t rate = begin + start.size();
    const std::size_t end = shown.err.find_first_not_of("0123456789", rate);
    EXPECT_GT(end, rate) << "a rate";
    EXPECT_EQ(shown.err.substr(end), " a second, 1 error\n");
    for (const Arguments& arguments :
         {Arguments{"decode", "--jsonl"}, {"decode", "--jsonl", "--no-progress"}})
        EXPECT_EQ(Qxpdu(arguments, Joined({c_hello})).err, "");
}

TEST(QxpduStreams, WrongStreamOptionsAreRefused) {
    struct Row {
        Arguments arguments;
        const char* message;
    };
    const Row rows[] = {
        {{"decode", "-j", "0"}, "qxpdu: --threads: Value 0 not in range 1 to 256"},
        {{"decode", "-j", "257"}, "qxpdu: --threads: Value 257 not in range 1 to 256"},
        {{"decode", "--progress", "--no-progress"}, "qxpdu: --progress excludes --no-progress"},
        {{"decode", "--json", "--jsonl"}, "qxpdu: --json excludes --jsonl"},
        {{"encode", "--to", "1", "--at", "--json", "a"}, "qxpdu: --json excludes --at"},
        {{"encode", "--to", "1", "--at", "--jsonl", "a"}, "qxpdu: --jsonl excludes --at"},
    };
    for (const Row& row : rows) {
        const Outcome run = Qxpdu(row.arguments);
        EXPECT_EQ(run.status, 2) << row.message;
        EXPECT_TRUE(HasLine(run.err, row.message)) << run.err;
    }
}

TEST(QxpduTranscript, LogOfAModemIsReadAsItIs) {
    const Outcome run = Qxpdu({"decode", "--jsonl"}, Joined({"AT+CMGL=4\r",
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

TEST(QxpduTranscript, EncodeWritesTheCommandForTheModem) {
    EXPECT_EQ(Qxpdu({"encode", "--to", "+4179123", "--smsc", "+41", "--at", "hello"}),
              (Outcome{0, "AT+CMGS=16\n02911401000791149721F3000005E8329BFD06\n", ""}));
}

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
        R"("reject-duplicates":true,"reply-path":true,"reference":5,"greek":true,"strict":true,"text":"hello"})";
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
        {R"({"text":"a","to":"x"})", "to: a number without digits"},
        {R"({"text":"a","to":"1","smsc":"123456789012345678901"})", "smsc: 21 digits, 20 at most"},
        {R"({"text":"a","to":"1","class":4})", "class: no number from 0 to 3"},
        {R"({"text":"a","to":"1","class":-1})", "class: no number from 0 to 3"},
        {R"({"text":"a","to":"1","reference":256})", "reference: no number from 0 to 255"},
        {R"({"text":"a","to":"1","reference":"1"})", "reference: no number from 0 to 255"},
        {R"({"text":"a","to":"1","validity":"3h"})",
         "validity: 3h is neither 1h, 2h, 6h, 12h, 1d, 1w, max nor an octet"},
        {R"({"text":"a","to":"1","greek":1})", "greek: neither true nor false"},
        {R"({"text":"a","to":"1","colour":1})", "colour: no such member"},
        {R"({"text":"","to":"1","strict":true})", "the text is empty; a message without text goes out"},
    };
    for (const Row& row : rows) {
        const Outcome run = Qxpdu({"encode", "--jsonl"}, row.line);
        EXPECT_EQ(run,
                  (Outcome{1, nlohmann::ordered_json{{"line", 1}, {"error", row.error}}.dump() + '\n', ""}));
    }
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
              (nlohmann::json{{"line", 1}, {"error", empty}}));
}

TEST(QxpduStreams, StandardInputThatCannotBeReadIsAnError) {
    const char* const message = "qxpdu: standard input: cannot be read\n";
    for (const char* command : {"decode", "encode --to 1", "encode --lines --to 1", "count", "cell -j 2"}) {
        EXPECT_EQ(Shell(std::string("$QXPDU ") + command + " </"), (Outcome{1, "", message})) << command;
        EXPECT_EQ(Shell(std::string("$QXPDU ") + command + " <&-"), (Outcome{1, "", message})) << command;
    }
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
        const Outcome run = Qxpdu({"decode", "--join", "--jsonl"}, Joined(row.parts));
        EXPECT_EQ(run.status, 0);
        const auto objects = JsonLines(run.out);
        ASSERT_EQ(objects.size(), 1U) << run.out;
        EXPECT_EQ(objects[0]["text"], row.text);
        EXPECT_EQ(objects[0]["address"], "+12345678901");
        EXPECT_EQ(objects[0]["parts_joined"], (nlohmann::json{1, 2}));
        EXPECT_EQ(objects[0]["parts_missing"], nlohmann::json::array());
    }
}

TEST(QxpduJoin, TextNamesThePartsAndWhereTheyCameFrom) {
    EXPECT_EQ(Qxpdu({"decode", "--join"}, Joined({c_codePart, c_escapePart, c_lowPart})),
              (Outcome{0,
                       "Parts joined 1, 2 of 2\n"
                       "        from line 2, line 1\n"
                       "     address +12345678901\n"
                       "   reference 5\n"
                       "        text a€b\n"
                       "\n"
                       "Parts joined 2 of 2; missing 1\n"
                       "        from line 3\n"
                       "     address +12345678901\n"
                       "   reference 6\n"
                       "        text \xEF\xBF\xBD\n",
                       ""}));
}

TEST(QxpduJoin, ReferencesOf8And16BitsAreDistinct) {
    const auto objects =
        JsonLines(Qxpdu({"decode", "--join", "--jsonl"}, Joined({c_highPart, c_widePart})).out);
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[0]["reference_bits"], 8);
    EXPECT_EQ(objects[0]["parts_missing"], nlohmann::json{2});
    EXPECT_EQ(objects[1]["reference_bits"], 16);
    EXPECT_EQ(objects[1]["parts_missing"], nlohmann::json{1});
}

TEST(QxpduJoin, PartThatComesAgainIsADuplicateBeforeAndAfterCompletion) {
    const Outcome run =
        Qxpdu({"decode", "--join", "--jsonl"}, Joined({c_escapePart, c_escapePart, c_codePart, c_codePart}));
    const auto objects = JsonLines(run.out);
    ASSERT_EQ(objects.size(), 3U) << run.out;
    EXPECT_EQ(objects[0], (nlohmann::json{{"line", 2}, {"duplicate_of", "line 1"}}));
    EXPECT_EQ(objects[1]["text"], "a€b");
    EXPECT_EQ(objects[2], (nlohmann::json{{"line", 4}, {"duplicate_of", "line 3"}}));
    EXPECT_EQ(Qxpdu({"decode", "--join"}, Joined({c_escapePart, c_escapePart})).err,
              "qxpdu: line 2: warning: part 1 of 2 has come before, in line 1\n");
}

TEST(QxpduJoin, LaterMessageUnderTheSameReferenceIsWholeThoughItBeginsAlike) {
    const auto later = [](std::string part) {
        return part.replace(part.find("2120312143"), 10, "2120313143");
    };
    const auto objects =
        JsonLines(Qxpdu({"decode", "--join", "--jsonl"},
                        Joined({c_escapePart, c_codePart, later(c_escapePart), later(c_codePart)}))
                      .out);
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[0]["text"], "a€b");
    EXPECT_EQ(objects[1]["text"], "a€b");
    EXPECT_EQ(objects[1]["joined"], (nlohmann::json{3, 4}));
}

TEST(QxpduJoin, PlaceIsThatOfTheConcatenationWhateverOtherElementsSay) {
    // Parts 1 and 2 of 2 of message 7 as 8-bit data; an indication of 5 waiting messages stands in the header
    // too.
    const std::string start = "0791214365870921440B912143658709F1000421203121436580";
    const auto objects = JsonLines(
        Qxpdu({"decode", "--join", "--jsonl"},
              Joined({start + "0B09000307020101028005" + "41", start + "0B09000307020201028005" + "42"}))
            .out);
    ASSERT_EQ(objects.size(), 1U);
    EXPECT_EQ(objects[0]["text"], "AB");
    EXPECT_EQ(objects[0]["total"], 2);
    EXPECT_EQ(objects[0]["reference"], 7);
}

TEST(QxpduJoin, StatusReportFindsTheMessageByReferenceAndAddress) {
    const auto objects = JsonLines(Qxpdu({"decode", "--join", "--jsonl"}, Joined({c_submit, c_report})).out);
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_FALSE(objects[0].contains("report_on"));
    EXPECT_EQ(objects[1]["report_on"], 1);
    std::string other = c_report;
    other[5] = '8'; // TP-MR
    EXPECT_FALSE(JsonLines(Qxpdu({"decode", "--join", "--jsonl"}, Joined({c_submit, other})).out)
                     .at(1)
                     .contains("report_on"));
    EXPECT_TRUE(HasLine(Qxpdu({"decode", "--join"}, Joined({c_submit, c_report})).out, "report on line 1"));
    EXPECT_TRUE(HasLine(Qxpdu({"decode", "--join", c_submit, c_report}).out, "report on argument 1"));
    const std::string national = "0001070481214300000161"; // the service centre adds the plus sign
    EXPECT_EQ(JsonLines(Qxpdu({"decode", "--join", "--jsonl"}, Joined({national, c_report})).out)
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
    EXPECT_EQ(objects[0]["joined"], nlohmann::json{1});
    EXPECT_EQ(objects[0]["parts_missing"], nlohmann::json{2});
    EXPECT_EQ(objects[1]["joined"], nlohmann::json{2});
    EXPECT_EQ(objects.back()["joined"], nlohmann::json{c_waiting + 2});
    EXPECT_EQ(objects.back()["parts_missing"], nlohmann::json{1});
}

} // namespace
