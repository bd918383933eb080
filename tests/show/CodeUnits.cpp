// Text as it is shown on a terminal.
#include "show/CodeUnits.h"

#include <gtest/gtest.h>

namespace {

using show::Printable;

TEST(Printable, EachOctetThatIsNoUtf8IsShownByItself) {
    EXPECT_EQ(Printable("a\xFF\xFE"), "a\\xFF\\xFE");
    EXPECT_EQ(Printable("\xFB"
                        "a\xFC"),
              "\\xFBa\\xFC")
        << "a second one after a character";
    EXPECT_EQ(Printable("\xF0\x9F\x98"), "\\xF0\\x9F\\x98") << "a character of four octets without the last";
    EXPECT_EQ(Printable("\xED\xA0\x80"), "\\xED\\xA0\\x80") << "a surrogate";
}

TEST(Printable, CharactersOfUpToFourOctetsStay) {
    EXPECT_EQ(Printable("aé€😀"), "aé€😀");
    EXPECT_EQ(Printable("\xF4\x8F\xBF\xBF"), "\xF4\x8F\xBF\xBF") << "U+10FFFF";
}

TEST(Printable, ControlCharactersEndBeforeNoBreakSpace) {
    EXPECT_EQ(Printable("\x1F ~\x7F"), "\\u001F ~\\u007F");
    EXPECT_EQ(Printable("\xC2\x80"), "\\u0080");
    EXPECT_EQ(Printable("\xC2\x9F"), "\\u009F");
    EXPECT_EQ(Printable("\xC2\xA0"), "\xC2\xA0");
}

} // namespace
