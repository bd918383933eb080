// What programs write for line ends, quotation marks and the end of typing.
#include "log/Printed.h"

#include <gtest/gtest.h>

namespace {

using qxpdu::Unprinted;

TEST(Printed, LineEnds) {
    for (const std::string print :
         {"\\r",   "\\n",   "\\R",          "\\x0d",        "\\x0A",        "\\u000d", "\\u000A", "\\015",
          "\\012", "\\013", "\\010",        "\\13",         "\\10",         "#015",    "#012",    "<CR><LF>",
          "<cr>",  "<LF>",  "<0d>",         "<0A>",         "<0x0D>",       "<0x0a>",  "[CR]",    "[lf]",
          "[0D]",  "[0A]",  "{CR}",         "{LF}",         "{0D}",         "{0A}",    "$0D",     "$0a",
          "^M",    "^J",    "\xE2\x90\x8D", "\xE2\x90\x8A", "\xE2\x86\xB5", "%0D",     "%0a",     "&#13;",
          "&#10;", "&#xD;", "&#xA;",        "<br>",         "<br/>",        "<BR />",  "\r"})
        EXPECT_EQ(Unprinted("OK" + print + "07"), "OK\n07") << print;
}

TEST(Printed, EndOfTyping) {
    for (const std::string print :
         {"\\x1a",  "\\u001A",  "\\032",    "\\026",    "\\26",         "#032",    "<1A>",
          "<0x1a>", "<SUB>",    "<Ctrl-Z>", "<CTRL+Z>", "<ctrl z>",     "<CtrlZ>", "<^Z>",
          "[1A]",   "[Ctrl-Z]", "[CTRL+Z]", "^Z",       "\xE2\x90\x9A", "%1A"})
        EXPECT_EQ(Unprinted("07" + print + " OK"), "07\x1A OK") << print;
}

TEST(Printed, BlanksAndMarks) {
    const struct {
        const char* print;
        const char* meant;
    } rows[] = {{"\\t", " "},           {"&nbsp;", " "},   {"\xC2\xA0", " "},     {"\xE2\x80\x8B", " "},
                {"\\\"", "\""},         {"\\u0022", "\""}, {"&quot;", "\""},      {"\xE2\x80\x9C", "\""},
                {"\xE2\x80\x9D", "\""}, {"\\'", "'"},      {"\xE2\x80\x98", "'"}, {"\xE2\x80\x99", "'"},
                {"&gt;", ">"},          {"&lt;", "<"}};
    for (const auto& row : rows)
        EXPECT_EQ(Unprinted(std::string("07") + row.print + "91"), std::string("07") + row.meant + "91")
            << row.print;
}

TEST(Printed, WithinWhatWasPrinted) {
    EXPECT_EQ(Unprinted("OK\\\\r\\\\\\n07"), "OK\n\n07");
    EXPECT_EQ(Unprinted("a\\\\b"), "a\\\\b");
}

TEST(Printed, ControlSequencesAndNulAreGone) {
    EXPECT_EQ(Unprinted("\x1B[32m0791\x1B[0m"), "0791");
    EXPECT_EQ(Unprinted("\x1B[1;32@0791"), "0791");
    EXPECT_EQ(Unprinted("\x1B[2~0791"), "0791");
    EXPECT_EQ(Unprinted("07\x1B[32"), "07");
    EXPECT_EQ(Unprinted("\x1B(07"), "\x1B(07");
    EXPECT_EQ(Unprinted(std::string("07\0"
                                    "91",
                                    5)),
              "0791");
}

TEST(Printed, OthersStay) {
    for (const std::string line : {"", "^MODE: 1", "^MX", "\\q", "<C", "[12]", "#", "%41", "&amp;", "é"})
        EXPECT_EQ(Unprinted(line), line);
    EXPECT_EQ(Unprinted("^M1"), "\n1");
    EXPECT_EQ(Unprinted("^M^J"), "\n\n");
}

} // namespace
