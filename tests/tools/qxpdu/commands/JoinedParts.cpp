// Which parts qxpdu decode --join takes for one message.
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::AsLines;
using tests::Outcome;

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

TEST(QxpduJoinedParts, NumberAboveTheTotalIsNoPart) {
    EXPECT_EQ(Join({Part("02", "03", "0416"), Part("02", "01", "0436")}).out, "\tЖ\n1/2\tж\n");
}

TEST(QxpduJoinedParts, PartOneOfOneIsAMessage) {
    EXPECT_EQ(Join({Part("02", "01", "0436"), Part("01", "01", "0416")}).out, "\tЖ\n1/2\tж\n");
}

TEST(QxpduJoinedParts, AnotherTotalTypeOrWidthOfReferenceIsAnotherMessage) {
    const std::string first = Part("02", "01", "0416");
    EXPECT_EQ(Join({first, Part("03", "02", "0436")}).out, "1/2\tЖ\n2/3\tж\n");
    EXPECT_EQ(Join({first, "0041070B912143658709F100080805000305"
                           "02020436"})
                  .out,
              "1/2\tЖ\n2/2\tж\n");
    EXPECT_EQ(Join({first, Deliver("09060804000502020436")}).out, "1/2\tЖ\n2/2\tж\n");
    EXPECT_EQ(Join({first, Part("02", "02", "0436")}).out, "\tЖж\n");
}

TEST(QxpduJoinedParts, LastOfTwoConcatenationElementsCounts) {
    EXPECT_EQ(Join({Deliver("0D0A000305020200030502010416"), Part("02", "02", "0436")}).out, "\tЖж\n");
}

TEST(QxpduJoinedParts, AnotherTextUnderTheSameNumberBeginsAnotherMessage) {
    EXPECT_EQ(Join({Part("02", "01", "0416"), Part("02", "01", "0436"), Part("02", "02", "044F")}).out,
              "1/2\tЖ\n\tжя\n");
}

TEST(QxpduJoinedParts, HeaderAloneIsAPartWithoutText) {
    EXPECT_EQ(Join({Part("02", "01", "0416"), Part("02", "02", "")}).out, "\tЖ\n");
    EXPECT_EQ(Join({Part("02", "01", ""), Part("02", "02", "0416")}).out, "\tЖ\n");
}

TEST(QxpduJoinedParts, MessageSentAgainWhileItsCopyWaitsIsOne) {
    std::string again = Part("02", "01", "0416");
    again.replace(again.find("2120312143"), 10, "2120312153"); // a minute later
    EXPECT_EQ(Join({Part("02", "01", "0416"), again, Part("02", "02", "0436")}),
              (Outcome{0, "\tЖж\n", "qxpdu: line 2: warning: part 1 of 2 has come before, in line 1\n"}));
}

} // namespace
