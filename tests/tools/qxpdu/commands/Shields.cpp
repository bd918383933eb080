// What the parser of the command line is kept from taking for something else.
#include "commands/Shields.h"

#include <gtest/gtest.h>

namespace {

using qxpdu::Shielded;
using qxpdu::Unshielded;
using qxpdu::WithoutShields;
using Arguments = std::vector<std::string>;

TEST(Shields, StandBeforeWhatTheParserWouldTakeForMore) {
    struct Row {
        Arguments given;
        Arguments shielded;
    };
    const Row rows[] = {
        {{}, {}},
        {{"decode", "--json", "-", "07"}, {"decode", "--json", "-", "07"}},
        {{"[a,b]"}, {"\1[a,b]"}},
        {{"[a", "a]"}, {"[a", "a]"}},
        {{"++"}, {"\1++"}},
        {{"\1x"}, {"\1\1x"}},
        {{"--", "-x", "--", "a"}, {"\1-x", "\1--", "\1a"}},
        {{"--status-report", "first", "a"}, {"--status-report=first", "a"}},
        {{"--status-report", "all"}, {"--status-report=all"}},
        {{"--status-report", "none"}, {"--status-report", "none"}},
        {{"--status-report", "--", "all"}, {"--status-report", "\1all"}},
        {{"--", "--status-report", "all"}, {"\1--status-report", "\1all"}},
        {{"--strict", "first"}, {"--strict", "first"}},
        {{"first"}, {"first"}},
        {{"--file", "a", "b", "c"}, {"--file", "a", "--file", "b", "--file", "c"}},
        {{"--file", "a", "-"}, {"--file", "a", "--file", "-"}},
        {{"--file", "a", "--json", "b"}, {"--file", "a", "--json", "b"}},
        {{"--file", "a", "--file", "b"}, {"--file", "a", "--file", "b"}},
        {{"--file", "[a]", "b"}, {"--file", "\1[a]", "--file", "b"}},
        {{"--file", "a", "--", "b"}, {"--file", "a", "\1b"}},
        {{"--", "--file", "a", "b"}, {"\1--file", "\1a", "\1b"}},
        {{"file", "a", "b"}, {"file", "a", "b"}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Shielded(row.given), row.shielded);
}

TEST(Shields, AreTakenOffAgain) {
    EXPECT_EQ(Unshielded("\1a"), "a");
    EXPECT_EQ(Unshielded("\1\1a"), "\1a");
    EXPECT_EQ(Unshielded("a\1"), "a\1");
    EXPECT_EQ(Unshielded(""), "");
    EXPECT_EQ(WithoutShields("\1a and \1b"), "a and b");
    EXPECT_EQ(WithoutShields("a"), "a");
}

} // namespace
