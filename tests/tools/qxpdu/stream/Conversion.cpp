// Many inputs: JSON Lines, threads, progress, closed pipes.
#include <gtest/gtest.h>

#include "support/PseudoTerminal.h"
#include "tools/qxpdu/RunTool.h"
#include "tools/qxpdu/Samples.h"

namespace {

using tests::AsLines;
using tests::c_cellPage;
using tests::c_codePart;
using tests::c_escapePart;
using tests::c_hello;
using tests::HasLine;
using tests::JsonLines;
using tests::Outcome;
using tests::Qxpdu;
using tests::Repeated;
using tests::Shell;

using Arguments = std::vector<std::string>;

TEST(QxpduStreams, JsonLinesGiveAnObjectForEachInputInOrderWithErrorsAmongThem) {
    const Outcome run = Qxpdu({"decode", "--jsonl"}, AsLines({c_hello, "0G", "", c_hello}));
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "");
    const auto objects = JsonLines(run.out);
    ASSERT_EQ(objects.size(), 3U);
    EXPECT_EQ(objects[0]["line"], 1);
    EXPECT_EQ(objects[0]["text"], "Hello");
    EXPECT_EQ(
        objects[1],
        (nlohmann::json{{"format", 2}, {"line", 2}, {"error", "character 2, 'G', is no hexadecimal digit"}}));
    EXPECT_EQ(objects[2]["line"], 4);
}

TEST(QxpduStreams, JsonLinesOfArgumentsAreNumbered) {
    const auto objects = JsonLines(Qxpdu({"cell", "--jsonl", "00", c_cellPage}).out);
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(objects[0]["argument"], 1);
    EXPECT_EQ(objects[0]["error"],
              "octet 0: the octets end in serial number, which takes 2 octets: 1 are there");
    EXPECT_EQ(objects[1]["argument"], 2);
    EXPECT_EQ(objects[1]["text"], "Hello");
}

/// Whatever the threads, and whether lines are buffered.
void ExpectSameOutput(const Arguments& command, const std::string& input) {
    SCOPED_TRACE(testing::PrintToString(command));
    const Outcome one = Qxpdu(command, input);
    EXPECT_FALSE(one.out.empty());
    for (const Arguments& options :
         {Arguments{"-j", "1"}, {"-j", "2"}, {"-j", "8"}, {"--threads", "3", "--line-buffered"}}) {
        Arguments arguments = command;
        arguments.insert(arguments.end(), options.begin(), options.end());
        EXPECT_EQ(Qxpdu(arguments, input), one) << options[1];
    }
}

TEST(QxpduStreams, ThreadsChangeNothingInTheOutput) {
    constexpr std::size_t c_times = 450; // more inputs than eight threads get in a batch of 256 each
    const std::string list =
        Repeated(AsLines({c_hello, "0G", c_escapePart, "", c_codePart, c_cellPage}), c_times);
    const std::string log = Repeated(AsLines({c_hello, "0G", "+CMT: ,27", c_escapePart, "+CMT: ,27", "",
                                              c_codePart, "+CBM: 11", c_cellPage}),
                                     c_times);
    for (const std::string& input : {list, log}) {
        for (const Arguments& command : {Arguments{"decode", "--jsonl"},
                                         {"decode"},
                                         {"decode", "--json", "--join"},
                                         {"decode", "--jsonl", "--join"},
                                         {"cell", "--jsonl"}})
            ExpectSameOutput(command, input);
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
        "{\"format\":2,\"line\":1,\"error\":\"octet 1: the octets end in TP-MTI, which takes 1 octet: 0 are "
        "there\","
        "\"fault\":{\"code\":\"field-cut\",\"octet\":1,\"field\":\"TP-MTI\",\"expected\":1,\"found\":0}}\n"
        "{\"format\":2,\"line\":2,\"error\":\"odd number of hexadecimal digits, 1\"}\n");
}

/// Runs qxpdu between two pipes, $d/in as 3 and $d/out as 4, and the script beside it.
Outcome Beside(const std::string& arguments, const std::string& script) {
    return Shell("d=$(mktemp -d) && mkfifo $d/in $d/out && { $QXPDU " + arguments +
                 " <$d/in >$d/out & } && exec 3>$d/in 4<$d/out && " + script + "; rm -r $d");
}

TEST(QxpduStreams, ResultIsWrittenAsSoonAsNoInputWaits) {
    const std::string first = "read -r result <&4 && echo \"$result\"";
    const char* const odd = "{\"format\":2,\"line\":1,\"error\":\"odd number of hexadecimal digits, 1\"}\n";
    for (const char* threads : {"1", "3"}) {
        const std::string decode = std::string("decode --jsonl -j ") + threads;
        EXPECT_EQ(Beside(decode, "echo 0 >&3 && " + first).out, odd);
        EXPECT_EQ(Beside(decode, "printf '0\\n0' >&3 && " + first).out, odd) << "a piece of a line waits";
        EXPECT_EQ(Beside(decode, "printf '0\\n\\n' >&3 && " + first).out, odd)
            << "a line without a PDU waits";
        EXPECT_EQ(Beside(decode, "printf '+CMT: ,1\\n0\\nOK\\n' >&3 && " + first).out,
                  "{\"format\":2,\"line\":2,\"error\":\"odd number of hexadecimal digits, 1\"}\n")
            << "in a log";
        EXPECT_EQ(
            Beside(decode, "{ yes OK | head -n 40000; printf '+CMT: ,1\\n0\\nOK\\n'; } >&3 && " + first).out,
            "{\"format\":2,\"line\":40002,\"error\":\"odd number of hexadecimal digits, 1\"}\n");
        EXPECT_EQ(Beside(decode, "{ yes 0 | head -n 256; echo; } >&3 && head -n 256 <&4 | tail -n 1").out,
                  "{\"format\":2,\"line\":256,\"error\":\"odd number of hexadecimal digits, 1\"}\n")
            << "a full batch, and a line without a PDU";
    }
}

TEST(QxpduStreams, SignalEndsTheInputAndThenTheToolWhenWhatWasReadIsWritten) {
    const struct {
        const char* signal;
        const char* status;
    } rows[] = {{"INT", "130"}, {"TERM", "143"}, {"HUP", "129"}};
    for (const auto& row : rows) {
        // The shell starts what stands in the background with SIGINT ignored; env undoes that.
        const Outcome run =
            Shell("d=$(mktemp -d) && mkfifo $d/in && { env --default-signal=INT $QXPDU decode --join --jsonl "
                  "<$d/in >$d/out & } && exec 3>$d/in && printf '0\\n" +
                  std::string(c_escapePart) +
                  "\\n000' >&3 && while ! [ -s $d/out ]; do sleep 0.01; done && kill -" + row.signal +
                  " $! ; wait $!; echo $?; cat $d/out; rm -r $d");
        const std::size_t end = run.out.find('\n');
        EXPECT_EQ(run.out.substr(0, end), row.status);
        const auto objects = JsonLines(run.out.substr(end + 1));
        ASSERT_EQ(objects.size(), 3U) << run;
        EXPECT_EQ(objects[0]["line"], 1);
        EXPECT_EQ(objects[1]["error"], "odd number of hexadecimal digits, 3") << "the piece of a line";
        EXPECT_EQ(objects[2]["parts_missing"], nlohmann::json{2}) << "the part that waited";
    }
}

TEST(QxpduStreams, SignalWhileATextIsReadEndsTheToolWithoutAResult) {
    const Outcome run =
        Shell("d=$(mktemp -d) && mkfifo $d/in && { $QXPDU encode --to 1 <$d/in & } && exec 3>$d/in && "
              "echo hello >&3 && kill -TERM $!; wait $!; echo $?; rm -r $d");
    EXPECT_EQ(run.out, "143\n");
}

TEST(QxpduStreams, OutputThatCannotBeWrittenIsAnErrorWithItsReason) {
    if (!Shell("test -c /dev/full").status) {
        EXPECT_EQ(Shell(std::string("$QXPDU decode ") + c_hello + " >/dev/full"),
                  (Outcome{1, "", "qxpdu: standard output: cannot be written: No space left on device\n"}));
    }
    EXPECT_EQ(Shell(std::string("$QXPDU decode ") + c_hello + " >&-"),
              (Outcome{1, "", "qxpdu: standard output: cannot be written: Bad file descriptor\n"}));
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
    const Outcome shown = Qxpdu({"decode", "--jsonl", "--progress"}, AsLines({c_hello, "0G", c_hello}));
    const std::string start = "qxpdu: 3 lines, ";
    const std::size_t begin = shown.err.rfind(start);
    ASSERT_NE(begin, std::string::npos) << shown.err;
    const std::size_t rate = begin + start.size();
    const std::size_t end = shown.err.find_first_not_of("0123456789", rate);
    EXPECT_GT(end, rate) << "a rate";
    EXPECT_EQ(shown.err.substr(end), " a second, 1 error\n");
    for (const Arguments& arguments :
         {Arguments{"decode", "--jsonl"}, {"decode", "--jsonl", "--no-progress"}})
        EXPECT_EQ(Qxpdu(arguments, AsLines({c_hello})).err, "");
}

TEST(QxpduStreams, ProgressCountsArguments) {
    const Outcome shown = Qxpdu({"decode", "--jsonl", "--progress", c_hello, "0G", c_hello});
    EXPECT_NE(shown.err.find("qxpdu: 3 inputs, "), std::string::npos) << shown.err;
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

TEST(QxpduStreams, StandardInputThatCannotBeReadIsAnError) {
    const char* const message = "qxpdu: standard input: cannot be read\n";
    for (const char* command : {"decode", "encode --to 1", "encode --lines --to 1", "count", "cell -j 2"}) {
        EXPECT_EQ(Shell(std::string("$QXPDU ") + command + " </"), (Outcome{1, "", message})) << command;
        EXPECT_EQ(Shell(std::string("$QXPDU ") + command + " <&-"), (Outcome{1, "", message})) << command;
    }
}

} // namespace
