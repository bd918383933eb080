#include "characters/Dump.h"

#include <gtest/gtest.h>

#include "characters/Hexadecimal.h"

namespace {

using qxpdu::EndsDump;
using qxpdu::ReadDump;
using qxpdu::ReadDumpLine;

constexpr std::size_t c_others = 0x1000; ///< octets before a line, which none of these tells

TEST(Dump, LineIsKnownByTheCharactersAfterItsOctets) {
    const struct {
        const char* line;
        std::size_t offset;
        const char* digits;
    } rows[] = {
        {"00000000  07 91 21 43 65 87 09 21  04 0b 91                |..!Ce..!...|", 0,
         "07912143658709210"
         "40b91"},
        {"00000010  41 42 7c                                          |AB||", 16, "41427c"},
        {"00000000: 0791 2143 6587 0921 040b 91              ..!Ce..!...", 0, "0791214365870921040b91"},
        {"00000000: 0791 2143 6587 0921 040b 91              ..!Ce..!...\r", 0, "0791214365870921040b91"},
        {"00000020: 07912143 65870921  ..!Ce..!", 32, "0791214365870921"},
        {"0010  20 41 7e 7f 1f   A~..", 16, "20417e7f1f"},
        {"000a  41  A", 10, "41"},
        {"000a  41  |A|", 10, "41"},
        {"000a  4142    AB", 10, "4142"},
        {"000a  7c 7c  ||", 10, "7c7c"},
        {"000a  41 7c  A|", 10, "417c"},
    };
    for (const auto& row : rows) {
        const auto read = ReadDumpLine(row.line, c_others);
        ASSERT_TRUE(read) << row.line;
        EXPECT_EQ(read->offset, row.offset) << row.line;
        EXPECT_EQ(read->digits, row.digits) << row.line;
    }
}

TEST(Dump, NothingElseIsTakenForALine) {
    for (const char* line : {
             "",
             "00000000",
             "00000000  ",
             "00000000  x",
             "00000000      ",
             "00000000  07   x", // another character
             "000000000 07  .",
             "00000000007  .",
             "00000000  07 91 21 43",          // no characters
             "00000000  07 91 21 43  ..!",     // one is missing
             "00000000  07 91 21 43  ..!CC",   // one is left
             "00000000  07 91 21 43  ..!D",    // another one
             "00000000  07 91 21 43  |..!D|",  // between bars
             "00000000  07 91 21 43  |..!C",   // one bar
             "00000000  07 91 21 43  x|..!C|", // something else as well
             "00000000  07 91 21 43 ..!C",     // one blank
             "00000000  07 91 21 43 |..!C|",   // before the bar
             "000  07 91 21 43  ..!C",         // an offset too short
             "000000000  07 91 21 43  ..!C",   // too long
             "0000000G  07 91 21 43  ..!C",    // no offset
             "00000000= 07 91 21 43  ..!C",    // another mark
             "00000000:07 91 21 43  ..!C",     // no blank
             "00000000  079 12143  ..!C",      // half an octet
             "00000000  07 91,21 43  ..!C",    // something between the octets
             "00000000  80  \x80",             // no character of ASCII
             "rx 00000000  07 91 21 43  ..!C", // something before it
             "10:00:00  07 91 21 43  ..!C",    // a time
             "2026-11-22  07 91 21 43  ..!C",  // a date
         }) {
        EXPECT_FALSE(ReadDumpLine(line, c_others)) << line;
    }
}

TEST(Dump, LineWithoutCharactersIsKnownByItsOffset) {
    const struct {
        const char* line;
        std::size_t octets;
        const char* digits;
    } rows[] = {
        {"0000  07 91 21 43", 0, "07912143"},
        {"00000010  07 91", 16, "0791"},
        {"000010 07 91", 16, "0791"},
        {"0000020 07 91", 16, "0791"}, // octal
        {"0000  07 91  21 43\r", 0, "07912143"},
        {"0010  0791", 16, nullptr},
        {"0010  07 91 x", 16, nullptr},
        {"0010  07", 16, "07"},
        {"0010  07 91 ", 16, "0791"},
        {"0010: 07 91", 16, "0791"},
        {"0010  07 91", 17, nullptr},
        {"010  07 91", 16, nullptr},
        {"0010  07-91", 16, nullptr},
        {"0010", 16, nullptr},
    };
    for (const auto& row : rows) {
        const auto read = ReadDumpLine(row.line, row.octets);
        ASSERT_EQ(read.has_value(), row.digits != nullptr) << row.line;
        if (read) {
            EXPECT_EQ(read->offset, row.octets) << row.line;
            EXPECT_EQ(read->digits, row.digits) << row.line;
        }
    }
    EXPECT_TRUE(EndsDump("0000040", 32)) << "octal";
    EXPECT_TRUE(EndsDump("0000020", 32)) << "hexadecimal";
    EXPECT_EQ(ReadDump("0000  07 91\n0002  21 43\n0004\n"), "07912143");
    EXPECT_EQ(ReadDump("0000  07 91\n0002\n"), "0791");
    EXPECT_FALSE(ReadDump("0000  07 91\n"));
}

TEST(Dump, LineHasUpTo64Octets) {
    const auto lineOf = [](std::size_t octets) {
        std::string line = "00000000: ";
        for (std::size_t i = 0; i < octets; ++i)
            line += "41 ";
        return line + ' ' + std::string(octets, 'A');
    };
    const auto longest = ReadDumpLine(lineOf(64), c_others);
    ASSERT_TRUE(longest);
    EXPECT_EQ(longest->digits.size(), 128U);
    EXPECT_FALSE(ReadDumpLine(lineOf(65), c_others));
}

TEST(Dump, LinesFollowEachOther) {
    const std::string first =
        "00000000  41 42 43 44 45 46 47 48  49 4a 4b 4c 4d 4e 4f 50  |ABCDEFGHIJKLMNOP|\n";
    const std::string second = "00000010  51 52                                             |QR|\n";
    const std::string digits = "4142434445464748494a4b4c4d4e4f505152";
    EXPECT_EQ(ReadDump(first + second), digits);
    EXPECT_EQ(ReadDump(first + second + "00000012\n"), digits);
    EXPECT_EQ(ReadDump(first + second + "00000012"), digits);
    for (const std::string& text : {std::string(), second, first + first, first + second + "00000011\n",
                                    first + second + "12\n", first + second + "00000012\n00000012\n",
                                    std::string("00000000\n"), first + "\n" + second, first + "Q"})
        EXPECT_FALSE(ReadDump(text)) << text;
}

TEST(Dump, EndsWithTheNumberOfItsOctets) {
    EXPECT_TRUE(EndsDump("00000012", 18));
    EXPECT_TRUE(EndsDump("0012\r", 18));
    for (const char* line : {"", "12", "00000013", "00000012 ", "00000012:", "000000012"})
        EXPECT_FALSE(EndsDump(line, 18)) << line;
    EXPECT_FALSE(EndsDump("", 0));
}

TEST(Dump, IsHexadecimalAsItIsPasted) {
    EXPECT_EQ(qxpdu::ReadHex("00000000: 4142 ab61  AB.a\n00000004: 07  .\n"),
              (std::vector<unsigned char>{0x41, 0x42, 0xAB, 0x61, 0x07}));
    EXPECT_EQ(qxpdu::ReadHex("0000 41 42"), (std::vector<unsigned char>{0x00, 0x00, 0x41, 0x42}))
        << "nothing tells that it is one";
    EXPECT_EQ(qxpdu::ReadHex("0001 61 62  ab"), (std::vector<unsigned char>{0x00, 0x01, 0x61, 0x62, 0xAB}))
        << "of which the first octet is not there";
}

} // namespace
