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

TEST(QxpduFiles, FileGivenAsAPduIsAskedAbout) {
    EXPECT_EQ(InFolder("$QXPDU decode a.log").err,
              "qxpdu: argument 1: character 2, '.', is no hexadecimal digit; did you mean --file?\n");
    EXPECT_EQ(InFolder("$QXPDU ucs2 decode a.log").err,
              "qxpdu: argument 1: character 2, '.', is no hexadecimal digit\n");
    EXPECT_EQ(InFolder("$QXPDU decode c.log").err,
              "qxpdu: argument 1: character 2, '.', is no hexadecimal digit\n");
}

} // namespace
