// Which name a code point has, up to the last one.
#include "characters/UnicodeNames.h"

#include <cstdint>

#include <gtest/gtest.h>

namespace {

TEST(NameOfCharacter, IsEmptyBetweenAndAfterThoseThatHaveOne) {
    const struct {
        char32_t codePoint;
        const char* name;
    } rows[] = {{0x20AC, "EURO SIGN"},
                {0x377, "GREEK SMALL LETTER PAMPHYLIAN DIGAMMA"},
                {0x378, ""},
                {0x379, ""},
                {0x37A, "GREEK YPOGEGRAMMENI"},
                {0x9FFF, "CJK Ideograph"},
                {0x10FFFD, "Plane 16 Private Use"},
                {0x10FFFE, ""},
                {0x10FFFF, ""}};
    for (const auto& row : rows)
        EXPECT_EQ(qxpdu::NameOfCharacter(row.codePoint), row.name)
            << static_cast<std::uint32_t>(row.codePoint);
}

} // namespace
