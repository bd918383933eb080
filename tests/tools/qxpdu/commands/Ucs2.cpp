// qxpdu ucs2
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::Outcome;
using tests::Qxpdu;

TEST(QxpduUcs2, EncodeWritesFourDigitsAUnit) {
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "A€", "😀", ""}), (Outcome{0, "004120AC\nD83DDE00\n\n", ""}));
}

TEST(QxpduUcs2, CharactersAboveTheBasicPlaneTakeTwoUnits) {
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "\uE000\uFFFF", "\U00010000", "\U0010FFFF"}),
              (Outcome{0, "E000FFFF\nD800DC00\nDBFFDFFF\n", ""}));
    EXPECT_EQ(Qxpdu({"ucs2", "decode", "E000FFFF", "D800DC00", "DBFFDFFF", "DC00D800"}),
              (Outcome{0, "\uE000\uFFFF\n\U00010000\n\U0010FFFF\n\uFFFD\uFFFD\n", ""}));
}

TEST(QxpduUcs2, DecodeReadsEitherCaseAndJoinsSurrogates) {
    EXPECT_EQ(Qxpdu({"ucs2", "decode", "004120ac", "D83DDE00", "D83D0041"}),
              (Outcome{0, "A€\n😀\n\uFFFDA\n", ""}));
}

TEST(QxpduUcs2, DecodeChecksItsInput) {
    EXPECT_EQ(Qxpdu({"ucs2", "decode"}, "00G1\n004\n004100\n\n0042\n"),
              (Outcome{1, "B\n",
                       "qxpdu: line 1: character 3, 'G', is no hexadecimal digit\n"
                       "qxpdu: line 2: odd number of hexadecimal digits, 3\n"
                       "qxpdu: line 3: 6 hexadecimal digits, which is no multiple of 4\n"}));
    EXPECT_EQ(Qxpdu({"ucs2", "decode", ""}), (Outcome{1, "", "qxpdu: argument 1: no hexadecimal digits\n"}));
}

TEST(QxpduUcs2, TextMayBeLongerThanAPdu) {
    EXPECT_EQ(Qxpdu({"ucs2", "decode", tests::Repeated("0041", 1000)}),
              (Outcome{0, tests::Repeated("A", 1000) + "\n", ""}));
}

TEST(QxpduUcs2, CheckAnswersAndTellsByItsStatus) {
    EXPECT_EQ(Qxpdu({"ucs2", "check", "00410042"}), (Outcome{0, "yes\n", ""}));
    EXPECT_EQ(
        Qxpdu({"ucs2", "check", "00410042", "0041", "004100420", "ABCDEF12", "ZZZZ0000", "00410a42", ""}),
        (Outcome{1, "yes\nno\nno\nno\nyes\nno\nno\n", ""}));
    EXPECT_EQ(Qxpdu({"ucs2", "check"}, " 00410042 \r\n\n"), (Outcome{1, "yes\nno\n", ""}));
}

TEST(QxpduUcs2, JsonHasBothForms) {
    EXPECT_EQ(Qxpdu({"ucs2", "encode", "--json", "A"}).Json(),
              nlohmann::json::parse(R"([{"format": 2, "argument": 1, "text": "A", "ucs2": "0041"}])"));
    EXPECT_EQ(Qxpdu({"ucs2", "decode", "--json", "00e9"}).Json(),
              nlohmann::json::parse(R"([{"format": 2, "argument": 1, "ucs2": "00E9", "text": "é"}])"));
    EXPECT_EQ(
        Qxpdu({"ucs2", "check", "--json"}, "00410042\n0041\n").Json(),
        nlohmann::json::parse(
            R"([{"format": 2, "line": 1, "is_ucs2": true}, {"format": 2, "line": 2, "is_ucs2": false}])"));
}

} // namespace
