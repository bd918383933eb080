#include "characters/Unicode.h"

#include <gtest/gtest.h>

namespace {

TEST(FirstCharacter, IsQuotedSoThatItCanBeRead) {
    const struct {
        const char* text;
        const char* shown;
    } rows[] = {{"a'", "'a'"},        {"'a", "\"'\""},  {"\"a", "'\"'"},           {"éa", "'é'"},
                {"😀a", "'😀'"},        {" a", "' '"},    {"\x1F", "0x1F"},          {"\x7F", "0x7F"},
                {"\xFF\xFF", "0xFF"}, {"\xC2", "0xC2"}, {"\xC2\x9F", "'\\u009F'"}, {"\xF0\x9F\x98", "0xF0"}};
    for (const auto& row : rows)
        EXPECT_EQ(qxpdu::FirstCharacter(row.text), row.shown) << row.text;
}

} // namespace
