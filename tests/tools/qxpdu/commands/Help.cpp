// How help is laid out, and which name is near another.
#include "commands/Help.h"

#include <gtest/gtest.h>

namespace {

using qxpdu::Nearest;
using qxpdu::Wrapped;

const std::string c_ten = "123456789 "; ///< eight of them make 80 columns with the last blank

std::string Times(const std::string& text, std::size_t count) {
    std::string repeated;
    while (count-- > 0)
        repeated += text;
    return repeated;
}

TEST(Wrapped, LinesEndAtABlankBefore80Columns) {
    EXPECT_EQ(Wrapped(" " + Times(c_ten, 7) + "123456789"), " " + Times(c_ten, 7) + "123456789\n")
        << "80 columns";
    EXPECT_EQ(Wrapped(" " + Times(c_ten, 7) + "1234567890"),
              " " + Times(c_ten, 6) + "123456789\n 1234567890\n")
        << "81 columns";
    EXPECT_EQ(Wrapped(" " + Times("ä", 79)), " " + Times("ä", 79) + "\n") << "characters, not octets";
    EXPECT_EQ(Wrapped(Times("1", 90) + " 2"), Times("1", 90) + "\n2\n")
        << "a word that is too long stays whole";
}

TEST(Wrapped, RightColumnStaysOne) {
    EXPECT_EQ(Wrapped("  --option N    " + Times(c_ten, 7) + "end"),
              "  --option N    " + Times(c_ten, 5) + "123456789\n" + Times(" ", 16) + "123456789 end\n");
}

TEST(Wrapped, LineAtTheMarginHasNoColumns) {
    EXPECT_EQ(Wrapped("one  " + Times(c_ten, 7) + "12345 end\n"), "one  " + Times(c_ten, 7) + "12345\nend\n");
    EXPECT_EQ(Wrapped(" one  " + Times(c_ten, 7) + "1234 end\n"),
              " one  " + Times(c_ten, 7) + "1234\n      end\n")
        << "one blank before it makes a column";
}

TEST(Wrapped, BlanksStayAsTheyAre) {
    EXPECT_EQ(Wrapped(Times(" ", 90) + "\n"), Times(" ", 90) + "\n");
    EXPECT_EQ(Wrapped("  a" + Times(" ", 90)), "  a" + Times(" ", 90) + "\n");
}

TEST(Wrapped, ParagraphsAtTheMarginAreFilled) {
    EXPECT_EQ(Wrapped("one\ntwo\n\nthree:\n  four\n  five\nsix\n"),
              "one two\n\nthree:\n  four\n  five\nsix\n");
    EXPECT_EQ(Wrapped(""), "");
}

TEST(Nearest, DiffersByTwoLettersAtMost) {
    const std::vector<std::string> known = {"decode", "encode", "cell", "gsm"};
    const struct {
        const char* given;
        const char* nearest;
    } rows[] = {{"decod", "decode"},
                {"deco", "decode"},
                {"acode", "decode"}, // the first of two
                {"deccode", "decode"},
                {"deccodde", "decode"},
                {"encodd", "encode"},
                {"sell", "cell"},
                {"edcode", "encode"},
                {"dcd", ""},
                {"x", ""},
                {"", ""},
                {"gm", "gsm"},
                {"gms", ""},
                {"dodo", ""}};
    for (const auto& row : rows)
        EXPECT_EQ(Nearest(row.given, known), row.nearest) << row.given;
    EXPECT_EQ(Nearest("decode", {}), "");
}

} // namespace
