// What all commands of qxpdu have in common: the reading of arguments and standard input, help, and exit
// statuses.
#include <algorithm>
#include <sstream>

#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::Outcome;
using tests::Qxpdu;

constexpr const char* c_hello = "0001000791149721F3000005E8329BFD06";

TEST(QxpduCommandLine, VersionIsPrinted) {
    EXPECT_EQ(Qxpdu({"--version"}), (Outcome{0, "qxpdu 1.0.0\n", ""}));
}

TEST(QxpduCommandLine, EveryCommandHasHelpWithUsageAndExample) {
    struct Row {
        std::vector<std::string> command;
        const char* usage;
        const char* example;
    };
    const Row rows[] = {
        {{"encode"},
         "Usage: qxpdu encode [OPTIONS] [TEXT]\n",
         "Examples:\n  qxpdu encode --to +4179123 hello\n"},
        {{"count"}, "Usage: qxpdu count [OPTIONS] [TEXT]\n", "Examples:\n  qxpdu count 'It’s 5 €'\n"},
        {{"explain"}, "Usage: qxpdu count [OPTIONS] [TEXT]\n", "Examples:\n  qxpdu count 'It’s 5 €'\n"},
        {{"decode"}, "Usage: qxpdu decode [OPTIONS] [PDU...]\n", "Example:\n  qxpdu decode 0791214365870921"},
        {{"cell"},
         "Usage: qxpdu cell [OPTIONS] [PAGE...] [SUBCOMMAND]\n",
         "Example:\n  qxpdu cell 403211120111C8329BFD06\n"},
        {{"text"},
         "Usage: qxpdu text [OPTIONS] [TEXT...]\n",
         "Example:\n  qxpdu text --alphabet ucs2 00480069\n"},
        {{"ucs2", "encode"},
         "Usage: qxpdu ucs2 encode [OPTIONS] [TEXT...]\n",
         "Example:\n  qxpdu ucs2 encode 'Hi €'\n"},
        {{"ucs2", "decode"},
         "Usage: qxpdu ucs2 decode [OPTIONS] [HEX...]\n",
         "Example:\n  qxpdu ucs2 decode 0048006920AC\n"},
        {{"ucs2", "check"},
         "Usage: qxpdu ucs2 check [OPTIONS] [STRING...]\n",
         "Example:\n  qxpdu ucs2 check 00480069\n"},
        {{"gsm", "encode"},
         "Usage: qxpdu gsm encode [OPTIONS] [TEXT...]\n",
         "Example:\n  qxpdu gsm encode '5 €'\n"},
        {{"gsm", "decode"},
         "Usage: qxpdu gsm decode [OPTIONS] [HEX...]\n",
         "Example:\n  qxpdu gsm decode 35201B65\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.usage);
        std::vector<std::string> arguments = row.command;
        arguments.push_back("--help");
        const Outcome run = Qxpdu(arguments);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_NE(run.out.find(row.usage), std::string::npos) << run.out;
        EXPECT_NE(run.out.find(row.example), std::string::npos) << run.out;
    }
}

TEST(QxpduCommandLine, HelpIsACommandToo) {
    EXPECT_EQ(Qxpdu({"help"}), Qxpdu({"--help"}));
    EXPECT_EQ(Qxpdu({"help", "help"}), Qxpdu({"--help"}));
    EXPECT_EQ(Qxpdu({"help", "decode"}), Qxpdu({"decode", "--help"}));
    EXPECT_EQ(Qxpdu({"help", "explain"}), Qxpdu({"explain", "--help"})) << "another name of count";
    EXPECT_EQ(Qxpdu({"help", "gsm"}), Qxpdu({"gsm", "--help"}));
    EXPECT_EQ(Qxpdu({"help", "gsm", "encode"}), Qxpdu({"gsm", "encode", "--help"}));
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "help"}).out, "00680065006C0070\n") << "a text";
}

TEST(QxpduCommandLine, HelpFitsInto80Columns) {
    for (const char* command :
         {"--help", "encode", "decode", "count", "inspect", "cell", "text", "ucs2", "gsm"}) {
        std::istringstream lines(Qxpdu({"help", command}).out);
        for (std::string line; std::getline(lines, line);) {
            const auto columns = std::count_if(line.begin(), line.end(), [](char octet) {
                return (static_cast<unsigned char>(octet) & 0xC0) != 0x80;
            });
            EXPECT_LE(columns, 80) << command << ": " << line;
        }
    }
}

TEST(QxpduCommandLine, HelpHasTwoColumnsBelowItsUsage) {
    const std::string help = Qxpdu({"help", "decode"}).out;
    EXPECT_TRUE(help.starts_with("Show the fields and the text of SMS PDUs\n"
                                 "\n"
                                 "Usage: qxpdu decode [OPTIONS] [PDU...]\n"))
        << help;
    EXPECT_NE(help.find("\n  --no-smsc Excludes: --smsc   The same as --smsc no\n"), std::string::npos)
        << "the longest name that leaves two blanks";
    EXPECT_FALSE(help.ends_with("\n\n"));
}

TEST(QxpduCommandLine, HelpNamesTheValuesThatAnOptionTakes) {
    const auto helpOf = [](const char* command) {
        std::istringstream words(Qxpdu({"help", command}).out);
        std::string help;
        for (std::string word; words >> word;)
            help += word + ' ';
        return help;
    };
    const std::string encode = helpOf("encode");
    const std::string languages = " tr, es, pt, bn, gu, hi, kn, ml, or, pa, ta, te, ur; or all ";
    for (const std::string& piece :
         {languages, std::string(" --status-report[=first|all] TP-SRR"), std::string(" --pid N|0xN TP-PID"),
          std::string(" max, a bare number for the octet, or "), std::string(" --message-number N TP-MN")})
        EXPECT_NE(encode.find(piece), std::string::npos) << piece;
    EXPECT_NE(helpOf("count").find(languages), std::string::npos);
}

TEST(QxpduCommandLine, HelpOfTheToolNamesTheCommandsAndTheExitStatuses) {
    const Outcome run = Qxpdu({"--help"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    for (const char* piece : {"Usage: qxpdu [OPTIONS] SUBCOMMAND\n", "\n  encode ", "\n  count, explain ",
                              "\n  decode ", "\n  cell ", "\n  text ", "\n  ucs2 ", "\n  gsm ",
                              "Exit status: 0 all inputs good, 1 some input failed, 2 command line wrong.\n"})
        EXPECT_NE(run.out.find(piece), std::string::npos) << piece << " in\n" << run.out;
}

TEST(QxpduCommandLine, WrongCommandLineGivesStatus2AndUsage) {
    struct Row {
        std::vector<std::string> arguments;
        const char* err;
    };
    constexpr const char* c_encodeUsage = "Usage: qxpdu encode [OPTIONS] [TEXT]\n";
    const Row rows[] = {
        {{}, "qxpdu: A subcommand is required\nUsage: qxpdu [OPTIONS] SUBCOMMAND\n"},
        {{"frob"}, "qxpdu: frob is no command\nUsage: qxpdu [OPTIONS] SUBCOMMAND\n"},
        {{"decod"}, "qxpdu: decod is no command; did you mean decode?\nUsage: qxpdu [OPTIONS] SUBCOMMAND\n"},
        {{"\x1B[2J"}, "qxpdu: \\u001B[2J is no command\nUsage: qxpdu [OPTIONS] SUBCOMMAND\n"},
        {{"\xFF\xFE"}, "qxpdu: \\xFF\\xFE is no command\nUsage: qxpdu [OPTIONS] SUBCOMMAND\n"},
        {{"a\u009F😀"}, "qxpdu: a\\u009F😀 is no command\nUsage: qxpdu [OPTIONS] SUBCOMMAND\n"},
        {{"ucs2"}, "qxpdu: A subcommand is required\nUsage: qxpdu ucs2 [OPTIONS] SUBCOMMAND\n"},
        {{"ucs2", "chek"},
         "qxpdu: chek is no command of ucs2; did you mean check?\nUsage: qxpdu ucs2 [OPTIONS] SUBCOMMAND\n"},
        {{"gsm"}, "qxpdu: A subcommand is required\nUsage: qxpdu gsm [OPTIONS] SUBCOMMAND\n"},
        {{"gsm", "frob"}, "qxpdu: frob is no command of gsm\nUsage: qxpdu gsm [OPTIONS] SUBCOMMAND\n"},
        {{"help", "decod"},
         "qxpdu: decod is no command; did you mean decode?\nUsage: qxpdu [OPTIONS] SUBCOMMAND\n"},
        {{"help", "gsm", "encod"},
         "qxpdu: encod is no command of gsm; did you mean encode?\nUsage: qxpdu gsm [OPTIONS] "
         "SUBCOMMAND\n"},
        {{"decod", "--help"},
         "qxpdu: decod is no command; did you mean decode?\nUsage: qxpdu [OPTIONS] SUBCOMMAND\n"},
        {{"decod", "--version"},
         "qxpdu: decod is no command; did you mean decode?\nUsage: qxpdu [OPTIONS] SUBCOMMAND\n"},
        {{"decode", "--frob"},
         "qxpdu: The following argument was not expected: --frob\nUsage: qxpdu decode [OPTIONS] [PDU...]\n"},
        {{"decode", "--\x1B"},
         "qxpdu: The following argument was not expected: --\\u001B\nUsage: qxpdu decode [OPTIONS] "
         "[PDU...]\n"},
        {{"text", "x"}, "qxpdu: --alphabet is required\nUsage: qxpdu text [OPTIONS] [TEXT...]\n"},
        {{"text", "--alphabet", "greek", "x"},
         "qxpdu: Could not convert: --alphabet = greek\nUsage: qxpdu text [OPTIONS] [TEXT...]\n"},
        {{"encode", "--reference", "010", "hello"},
         "qxpdu: --reference: 010 is not decimal without leading zeros\nUsage: qxpdu encode [OPTIONS] "
         "[TEXT]\n"},
        {{"decode", "-j", "0x2"},
         "qxpdu: --threads: 0x2 is not decimal without leading zeros\nUsage: qxpdu decode [OPTIONS] "
         "[PDU...]\n"},
        {{"encode", "hello"}, "qxpdu: --to is required\nUsage: qxpdu encode [OPTIONS] [TEXT]\n"},
        {{"encode", "--to", "1", "a", "b"},
         "qxpdu: The following argument was not expected: b\nUsage: qxpdu encode [OPTIONS] [TEXT]\n"},
        {{"encode", "--to", "1", "--", "a", "-b"},
         "qxpdu: The following argument was not expected: -b\nUsage: qxpdu encode [OPTIONS] [TEXT]\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.err);
        EXPECT_EQ(Qxpdu(row.arguments), (Outcome{2, "", row.err}));
    }
    const Row encodeRows[] = {
        {{"--to", ""}, "qxpdu: --to: a number without digits\n"},
        {{"--to", "+"}, "qxpdu: --to: a number without digits\n"},
        {{"--to", "home"}, "qxpdu: --to: character 1, 'h', is no digit of a number\n"},
        {{"--to", "123456789012345678901"}, "qxpdu: --to: 21 digits, 20 at most\n"},
        {{"--to", "1", "--smsc", "-"}, "qxpdu: --smsc: a number without digits\n"},
        {{"--to", "1", "--smsc", "+123456789012345678901"}, "qxpdu: --smsc: 21 digits, 20 at most\n"},
        {{"--to", "1", "--class", "4"}, "qxpdu: --class: Value 4 not in range 0 to 3\n"},
        {{"--to", "1", "--class", "-1"}, "qxpdu: --class: Value -1 not in range 0 to 3\n"},
        {{"--to", "1", "--class", "one"}, "qxpdu: --class: Value one not in range 0 to 3\n"},
        {{"--to", "1", "--reference", "256"}, "qxpdu: --reference: Value 256 not in range 0 to 255\n"},
    };
    for (const Row& row : encodeRows) {
        SCOPED_TRACE(row.err);
        std::vector<std::string> arguments = {"encode"};
        arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
        arguments.push_back("text");
        EXPECT_EQ(Qxpdu(arguments), (Outcome{2, "", std::string(row.err) + c_encodeUsage}));
    }
}

TEST(QxpduCommandLine, ArgumentsBehindTwoDashesAreInputs) {
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "--", "-A"}), (Outcome{0, "002D0041\n", ""}));
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "A", "--", "--json", "B"}),
              (Outcome{0, "0041\n002D002D006A0073006F006E\n0042\n", ""}));
    EXPECT_EQ(Qxpdu({"encode", "--to", "+4179123", "--", "hello"}),
              (Outcome{0, std::string(c_hello) + "\n", ""}));
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "--", "--"}), (Outcome{0, "002D002D\n", ""}));
}

TEST(QxpduCommandLine, TextThatLooksLikeSomethingElseIsText) {
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "[A,B]"}), (Outcome{0, "005B0041002C0042005D\n", ""}));
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "", "{}"}), (Outcome{0, "\n007B007D\n", ""}));
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "decode"}), (Outcome{0, "006400650063006F00640065\n", ""}));
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "\1"}), (Outcome{0, "0001\n", ""}));
    EXPECT_EQ(Qxpdu({"encode", "--to", "1", "++"}), (Outcome{0, "0001000181F1000002AB15\n", ""}));
    EXPECT_EQ(Qxpdu({"count", "++"}),
              (Outcome{0, "goes out as GSM 7-bit, 2 septets, 1 part, room for 158 septets\n", ""}));
    EXPECT_EQ(Qxpdu({"gsm", "encode", "++", "a"}), (Outcome{0, "2B2B\n61\n", ""}));
    EXPECT_EQ(Qxpdu({"++", "encode"}).err.substr(0, 27), "qxpdu: ++ is no command\nUsa");
}

TEST(QxpduCommandLine, InvalidUtf8IsAnErrorThatNamesTheByte) {
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "A\xC3(", "\xFF", "B"}),
              (Outcome{1, "0042\n",
                       "qxpdu: argument 1: byte 2 (0xC3) is not valid UTF-8\n"
                       "qxpdu: argument 2: byte 1 (0xFF) is not valid UTF-8\n"}));
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "\xED\xA0\x80"}),
              (Outcome{1, "", "qxpdu: argument 1: byte 1 (0xED) is not valid UTF-8\n"}));
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "A\xE2\x82"}),
              (Outcome{1, "", "qxpdu: argument 1: byte 2 (0xE2) is not valid UTF-8\n"}));
}

TEST(QxpduCommandLine, NoInputGivesAnEmptyArray) {
    EXPECT_EQ(Qxpdu({"decode", "--json"}), (Outcome{0, "[]\n", ""}));
    EXPECT_EQ(Qxpdu({"decode", "--json", "zz"}),
              (Outcome{1, "[]\n", "qxpdu: argument 1: character 1, 'z', is no hexadecimal digit\n"}));
}

TEST(QxpduCommandLine, JsonObjectsNameTheirInput) {
    EXPECT_EQ(
        Qxpdu({"ucs2", "encode", "--json", "A", "-"}, "\xFF\nB\n"),
        (Outcome{
            1,
            "[\n"
            "  {\n    \"format\": 2,\n    \"argument\": 1,\n    \"text\": \"A\",\n    \"ucs2\": \"0041\"\n  "
            "},\n"
            "  {\n    \"format\": 2,\n    \"line\": 2,\n    \"text\": \"B\",\n    \"ucs2\": \"0042\"\n  }\n"
            "]\n",
            "qxpdu: line 1: byte 1 (0xFF) is not valid UTF-8\n"}));
}

TEST(QxpduCommandLine, ResultsThatCannotBeWrittenAreAnError) {
    EXPECT_EQ(tests::QxpduInto("/dev/full", {"ucs2", "encode", "A"}), 1);
    EXPECT_EQ(tests::QxpduInto("/dev/full", {"--version"}), 1);
    EXPECT_EQ(tests::QxpduInto("/dev/null", {"ucs2", "encode", "A"}), 0);
}

TEST(QxpduCommandLine, HelpThatCannotBeWrittenSaysWhy) {
    for (const std::string arguments : {"help", "decode --help", "--version"}) {
        EXPECT_EQ(tests::Shell("$QXPDU " + arguments + " >/dev/full"),
                  (Outcome{1, "", "qxpdu: standard output: cannot be written: No space left on device\n"}))
            << arguments;
    }
}

} // namespace
