// Which digits of a line are those of a PDU, what a program writes before its lines, and what is talk.
#include "log/Digits.h"

#include <gtest/gtest.h>

namespace {

using qxpdu::AwaitedPdu;
using qxpdu::Beside;
using qxpdu::DigitsIn;
using qxpdu::EndOfPrefix;
using qxpdu::MayBePdu;

const std::string c_centre = "0791214365870921";
const std::string c_pdu =
    c_centre + "040B912143658709F100002120312143658005C8329BFD06"; // 24 octets after the centre

/// The digits for a PDU of that length, of which nothing has come.
std::string Digits(const std::string& text, Beside beside) {
    qxpdu::Heading heading;
    heading.length = 24;
    return DigitsIn(text, beside, AwaitedPdu(heading));
}

TEST(EndOfPrefix, OtherNumbersAndWordsArePassed) {
    const struct {
        const char* text;
        const char* prefix;
        std::size_t end;
    } rows[] = {{"", "", 0},
                {"0791", "", 0},
                {"10:00:02 0791", "10:00:01 ", 9},
                {"9:00:02 0791", "10:00:01 ", 8},
                {"[ 9.25] 0791", "[12.5] ", 8},
                {"[12.5] 0791", "[ 9.25] ", 7},
                {"[info]  0791", "[debug] ", 8},
                {"modem7: 0791", "modem12: ", 8},
                {"modem8 RX0791", "modem7 RX", 9}};
    for (const auto& row : rows)
        EXPECT_EQ(EndOfPrefix(row.text, row.prefix), row.end) << row.text;
}

TEST(EndOfPrefix, ArrowsAreAlike) {
    for (const char* const prefix : {"-> ", "<- ", "=> ", "<< ", ">>> ", "= ", "-"})
        EXPECT_EQ(EndOfPrefix("<- 0791", prefix), std::string(prefix).ends_with(' ') ? 3 : 2) << prefix;
    EXPECT_EQ(EndOfPrefix(">> 0791", "-> "), 3);
    EXPECT_EQ(EndOfPrefix("== 0791", "-> "), 3);
}

TEST(EndOfPrefix, OtherSignsAreNot) {
    const struct {
        const char* text;
        const char* prefix;
    } rows[] = {{"10.00.02 0791", "10:00:01 "},
                {"10:00:0", "10:00:01 "},
                {"", "x "},
                {"# 0791", "-> "},
                {"a 0791", "\xFF "},
                {"\xFF\xFF 0791", "\xFF "},
                {"  ", "1 "},
                {"modem8 TX0791", "modem7 RX"},
                {"[[12] 0791", "[12] "},
                {"  x: 0791", "x: "}, // a blank before a number alone may be missing
                {"12 0791", "12: "}};
    for (const auto& row : rows)
        EXPECT_EQ(EndOfPrefix(row.text, row.prefix), std::nullopt) << row.text;
}

TEST(DigitsIn, LineOfItsOwn) {
    const struct {
        std::string text;
        std::string digits;
    } rows[] = {{c_pdu, c_pdu},
                {"7", "7"},
                {"07 9\t1", "0791"},
                {"0x07 0X91", "0791"},
                {"0x", ""},
                {"--", ""},
                {"0x 07", ""},
                {"07' x", "07"},
                {"7] x", "7"},
                {"7 'x", "7"},
                {"b\"07\"", ""},
                {"  \"" + c_pdu + "\",", c_pdu},
                {"07,91,21,43,65,87,09,21", "0791214365870921"}, // eight octets
                {"07,91,21,43,65,87,09", ""},                    // a time may have seven
                {"07,91,21,43,65,87,09:21", ""},
                {"07,91,21,43,65,87,09,2", ""},
                {"07 [x]", "07"},
                {"07 (x", "07"},
                {"07 x", ""},
                {"'', 07 [x]", ""}, // another argument
                {"', 07 [x]", ""},
                {"12, 07 [x]", ""},
                {"b'07'", ""}};
    for (const auto& row : rows)
        EXPECT_EQ(Digits(row.text, Beside::Nothing), row.digits) << row.text;
}

TEST(DigitsIn, LineOfADumpCountsTheOctetsBefore) {
    qxpdu::Heading heading;
    heading.length = 24;
    AwaitedPdu pdu(heading);
    pdu.Add(c_pdu.substr(0, 32));
    EXPECT_EQ(DigitsIn("0010  20 31", Beside::Nothing, pdu), "2031");
    EXPECT_EQ(DigitsIn("0020  20 31", Beside::Nothing, pdu), "00202031") << "of other octets";
}

TEST(DigitsIn, LineThatCompletesThePduIsNoneOfADumpWithoutCharacters) {
    qxpdu::Heading heading;
    heading.length = 12; // 20 octets with the service centre
    AwaitedPdu pdu(heading);
    pdu.Add(c_pdu.substr(0, 32));
    EXPECT_EQ(DigitsIn("0010  20 31", Beside::Nothing, pdu), "00102031");
    heading.length = 7; // eight octets with an empty service centre
    EXPECT_EQ(DigitsIn("0000  41 42 43 44  ABCD", Beside::Nothing, AwaitedPdu(heading)), "41424344")
        << "with characters";
}

TEST(DigitsIn, AnswerAtTheEndOfALongLine) {
    EXPECT_EQ(Digits(c_pdu + "OK", Beside::Nothing), c_pdu);
    EXPECT_EQ(Digits("079121436587092OK", Beside::Nothing), "079121436587092");
    EXPECT_EQ(Digits("07912143658709OK", Beside::Nothing), "");
}

TEST(DigitsIn, BesideWords) {
    const struct {
        std::string text;
        std::string digits;
    } rows[] = {{"at 12:00 " + c_pdu, c_pdu},
                {"12:00 " + c_pdu, c_pdu},
                {"12:00 " + c_pdu.substr(0, 32) + " " + c_pdu.substr(32) + " 5", c_pdu},
                {"12:00 '" + c_pdu.substr(0, 32) + "', '" + c_pdu.substr(32) + "'", c_pdu},
                {"12:00 '" + c_pdu.substr(0, 32) + "' , '" + c_pdu.substr(32) + "'", c_pdu.substr(0, 32)},
                {"sms 07", ""},
                {"07", ""},
                {"sms " + c_centre + " 12", c_centre},
                {"sms 079121436587092", ""}};
    for (const auto& row : rows)
        EXPECT_EQ(Digits(row.text, Beside::Words), row.digits) << row.text;
}

TEST(DigitsIn, PageIsOfTheFewestWordsWhateverItSays) {
    qxpdu::Heading heading;
    heading.kind = qxpdu::Heading::Kind::Page;
    heading.length = 8;
    EXPECT_EQ(DigitsIn("12:00 4321 1112 0111 C832", Beside::Words, AwaitedPdu(heading)), "432111120111C832");
}

TEST(DigitsIn, LineThatMayBeOthers) {
    EXPECT_EQ(Digits("07", Beside::Others), "07");
    EXPECT_EQ(Digits("7", Beside::Others), "");
    EXPECT_EQ(Digits("07 x", Beside::Others), "");
    EXPECT_EQ(Digits("sms " + c_centre, Beside::Others), "");
    EXPECT_EQ(Digits("sms " + c_pdu, Beside::Others), c_pdu);
}

TEST(MayBePdu, NotWhereItIsTalk) {
    for (const char* const line : {"0791", "07 9", "x 07", "k9 07", "said 0791214365870921", "ab"})
        EXPECT_TRUE(MayBePdu(line)) << line;
    for (const char* const line : {"", " - ", "hello there", "say 07", "call 079121436587092"})
        EXPECT_FALSE(MayBePdu(line)) << line;
}

} // namespace
