// Files of logs and lists, --file.
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"
#include "tools/qxpdu/Samples.h"

namespace {

using tests::c_hello;
using tests::JsonLines;
using tests::Outcome;

/// Runs a script in a new folder with a log and a list in it.
Outcome InFolder(const std::string& script) {
    return tests::Shell("d=$(mktemp -d) && cd $d && printf '+CMT: ,24\\n%s\\nOK\\n' " + std::string(c_hello) +
                        " >a.log && printf '\\n%s\\n00\\n' " + c_hello + " >b.txt && " + script +
                        "; rm -r $d");
}

TEST(QxpduFiles, InputsAreNamedByFileAndLine) {
    const Outcome run = InFolder("$QXPDU decode --jsonl --file a.log b.txt");
    const auto objects = JsonLines(run.out);
    ASSERT_EQ(objects.size(), 3U) << run.out << run.err;
    EXPECT_EQ(objects[0]["file"], "a.log");
    EXPECT_EQ(objects[0]["line"], 2);
    EXPECT_EQ(objects[1]["file"], "b.txt");
    EXPECT_EQ(objects[1]["line"], 2);
    EXPECT_TRUE(objects[2].contains("error"));
    EXPECT_EQ(objects[2]["line"], 3);
    EXPECT_EQ(InFolder("$QXPDU decode --file b.txt >out").err.substr(0, 21), "qxpdu: b.txt: line 3:");
}

TEST(QxpduFiles, StandEachForItselfAndComeAfterTheArguments) {
    const Outcome run = InFolder("printf '" + std::string(c_hello) + "\\n' | $QXPDU decode --jsonl " +
                                 c_hello + " --file a.log --file - --file b.txt");
    const auto objects = JsonLines(run.out);
    ASSERT_EQ(objects.size(), 5U) << run.out;
    EXPECT_EQ(objects[0]["argument"], 1);
    EXPECT_EQ(objects[1]["file"], "a.log");
    EXPECT_EQ(objects[2]["line"], 1) << "a list, though the file before it is a log";
    EXPECT_FALSE(objects[2].contains("file"));
    EXPECT_EQ(objects[3]["file"], "b.txt");
}

TEST(QxpduFiles, HeadingAtTheEndOfAFileWaitsForNothingInTheNext) {
    const Outcome run = InFolder("printf '+CMT: ,24\\n' >c.log; $QXPDU decode --file c.log b.txt 2>&1 >out");
    EXPECT_EQ(run.out.substr(0, run.out.find('\n')), "qxpdu: c.log: line 1: no PDU follows +CMT");
}

TEST(QxpduFiles, ThoseThatCannotBeReadAreNamedAndTheOthersRead) {
    const Outcome run = InFolder("$QXPDU decode --jsonl --file none . a.log");
    EXPECT_EQ(run.err, "qxpdu: none: cannot be read\nqxpdu: .: cannot be read\n");
    EXPECT_EQ(JsonLines(run.out).size(), 1U);
}

TEST(QxpduFiles, LineThatNamesOneIsNotAskedAbout) {
    EXPECT_EQ(InFolder("echo a.log | $QXPDU decode").err,
              "qxpdu: line 1: character 2, '.', is no hexadecimal digit\n");
}

TEST(QxpduFiles, ProgressHasAPercentageOfStandardInputAlone) {
    const auto hasPercentage = [](const std::string& rest) {
        return InFolder("$QXPDU decode --jsonl --progress " + rest).err.find(" %, ") != std::string::npos;
    };
    EXPECT_TRUE(hasPercentage("<b.txt"));
    EXPECT_FALSE(hasPercentage("00 <b.txt"));
    EXPECT_FALSE(hasPercentage("--file b.txt <a.log"));
}

TEST(QxpduFiles, FileGivenAsAPduIsAskedAbout) {
    EXPECT_EQ(InFolder("$QXPDU decode a.log").err,
              "qxpdu: argument 1: character 2, '.', is no hexadecimal digit; did you mean --file?\n");
    const std::string named = InFolder("cp a.log feed; $QXPDU decode feed; $QXPDU cell feed").err;
    EXPECT_TRUE(named.ends_with("qxpdu: argument 1: warning: did you mean --file?\n")) << named;
    EXPECT_EQ(InFolder("$QXPDU ucs2 decode a.log").err,
              "qxpdu: argument 1: character 2, '.', is no hexadecimal digit\n");
    EXPECT_EQ(InFolder("$QXPDU decode c.log").err,
              "qxpdu: argument 1: character 2, '.', is no hexadecimal digit\n");
}

/// Runs qxpdu where `in` is a pipe with a name, and beside it the script, for which 4 is the tool's output.
Outcome Beside(const std::string& arguments, const std::string& script) {
    return InFolder("mkfifo in out && { $QXPDU " + arguments + " >out & } && exec 4<out && " + script);
}

TEST(QxpduFiles, ResultOfAPipeIsWrittenAsSoonAsNoInputWaits) {
    const std::string first = "read -r result <&4 && echo \"$result\"";
    const char* const odd =
        R"({"format":2,"file":"in","line":1,"error":"odd number of hexadecimal digits, 1"})"
        "\n";
    for (const char* threads : {"1", "3"}) {
        const std::string decode = std::string("decode --jsonl --file in -j ") + threads;
        EXPECT_EQ(Beside(decode, "exec 3>in && printf '0\\n0' >&3 && " + first).out, odd);
        EXPECT_EQ(Beside(decode, "echo 0 >in && " + first).out, odd);
    }
}

TEST(QxpduFiles, ResultsWaitForNoFileAfterTheirOwn) {
    const std::string log = "head -n 1 a.log >c.log && printf '0791\\n' >>c.log && ";
    const std::string read = "read -r first <&4 && read -r second <&4 && echo \"$second\"; : >in";
    EXPECT_EQ(Beside("decode --jsonl --file b.txt - in </dev/null", read).out.substr(0, 36),
              R"({"format":2,"file":"b.txt","line":3,)");
    EXPECT_EQ(InFolder(log +
                       "mkfifo in out && { $QXPDU decode --jsonl 0 --file c.log none in >out & } && "
                       "exec 4<out && " +
                       read)
                  .out.substr(0, 36),
              R"({"format":2,"file":"c.log","line":2,)")
        << "a PDU that waits for the rest of it";
}

TEST(QxpduFiles, SignalEndsTheWaitForAPipe) {
    const struct {
        const char* script; ///< up to the signal
        const char* found;
    } rows[] = {
        {"", R"({"format":2,"argument":1,"error":"odd number of hexadecimal digits, 1"})"
             "\n"},
        {"exec 3>in && printf '0\\n000' >&3 && while [ $(wc -l <out) -lt 2 ]; do sleep 0.01; done && ",
         R"({"format":2,"argument":1,"error":"odd number of hexadecimal digits, 1"})"
         "\n"
         R"({"format":2,"file":"in","line":1,"error":"odd number of hexadecimal digits, 1"})"
         "\n"
         R"({"format":2,"file":"in","line":2,"error":"odd number of hexadecimal digits, 3"})"
         "\n"},
    };
    for (const auto& row : rows) {
        for (const auto& [signal, status] :
             {std::pair("INT", "130\n"), std::pair("TERM", "143\n"), std::pair("HUP", "129\n")}) {
            // The shell starts what stands in the background with SIGINT ignored; env undoes that.
            EXPECT_EQ(
                InFolder("mkfifo in && { env --default-signal=INT $QXPDU decode --jsonl 0 --file in a.log "
                         ">out & } && while ! [ -s out ]; do sleep 0.01; done && " +
                         std::string(row.script) + "kill -" + signal + " $!; wait $!; echo $?; cat out")
                    .out,
                std::string(status) + row.found);
        }
    }
}

TEST(QxpduFiles, ReadErrorIsToldWhereverTheFileStands) {
    const Outcome run = InFolder("$QXPDU decode --jsonl --file . b.txt .");
    EXPECT_EQ(run.err, "qxpdu: .: cannot be read\nqxpdu: .: cannot be read\n");
    EXPECT_EQ(JsonLines(run.out).size(), 2U);
}

} // namespace
