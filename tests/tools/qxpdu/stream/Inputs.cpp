// Arguments and lines of standard input.
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::Outcome;
using tests::Qxpdu;
using tests::Repeated;

TEST(QxpduInputs, LinesOfStandardInputAreReadWithoutArgumentsAndForADash) {
    EXPECT_EQ(Qxpdu({"ucs2", "encode"}, "A\nB\n"), (Outcome{0, "0041\n0042\n", ""}));
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "-"}, "A\nB\n"), (Outcome{0, "0041\n0042\n", ""}));
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "C", "-", "D"}, "A\nB\n"),
              (Outcome{0, "0043\n0041\n0042\n0044\n", ""}));
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "C"}, "A\n"), (Outcome{0, "0043\n", ""}));
    EXPECT_EQ(Qxpdu({"ucs2", "encode"}, "A\nB"), (Outcome{0, "0041\n0042\n", ""}))
        << "last line without a line feed";
    EXPECT_EQ(Qxpdu({"ucs2", "encode"}, ""), (Outcome{0, "", ""}));
}

TEST(QxpduInputs, EveryLineOfTextCountsAsItStands) {
    EXPECT_EQ(Qxpdu({"ucs2", "encode"}, " A\r\n\nB \n"), (Outcome{0, "00200041000D\n\n00420020\n", ""}));
}

TEST(QxpduInputs, LinesLongerThanTheReadersPiecesStayWhole) {
    for (const std::size_t length : {4094U, 4095U, 4096U, 8190U, 8191U, 100000U}) {
        SCOPED_TRACE(length);
        const std::string line = Repeated("A", length);
        const std::string hex = Repeated("0041", length);
        EXPECT_EQ(Qxpdu({"ucs2", "encode"}, line + "\nB\n"), (Outcome{0, hex + "\n0042\n", ""}));
        EXPECT_EQ(Qxpdu({"ucs2", "encode"}, line), (Outcome{0, hex + "\n", ""}));
    }
}

TEST(QxpduInputs, LineOfMoreThanAMebibyteIsAnErrorAndTheNextIsRead) {
    const std::string longest = Repeated("A", 1048576);
    EXPECT_EQ(Qxpdu({"ucs2", "encode"}, longest + "\n").status, 0);
    EXPECT_EQ(Qxpdu({"ucs2", "encode"}, longest + "A\nB\n"),
              (Outcome{1, "0042\n", "qxpdu: line 1: longer than 1048576 bytes\n"}));
    EXPECT_EQ(Qxpdu({"ucs2", "encode"}, longest + Repeated("A", 5000)),
              (Outcome{1, "", "qxpdu: line 1: longer than 1048576 bytes\n"}));
}

TEST(QxpduInputs, StandardInputOfMoreThanAMebibyteIsTooLongForOneText) {
    const std::string longest(std::size_t{1} << 20, 'a');
    EXPECT_EQ(Qxpdu({"encode", "--to", "1"}, longest + '\n').err,
              "qxpdu: standard input: the text needs 6854 parts, 255 at most\n");
    EXPECT_EQ(Qxpdu({"encode", "--to", "1"}, longest + "a"),
              (Outcome{1, "", "qxpdu: standard input: longer than 1048576 bytes\n"}));
}

} // namespace
