// qxpdu text
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::Outcome;
using tests::Qxpdu;

TEST(QxpduText, AlphabetChoosesTheForm) {
    struct Row {
        const char* alphabet;
        const char* text;
        const char* decoded;
    };
    const Row rows[] = {
        {"0", "Hi", "Hi"},
        {"4", "Hi", "Hi"},
        {"0",
         "\x1B"
         "e",
         "€"},
        {"0", "\u0141", "A"},
        {"1", "00480069", "Hi"},
        {"2", "00480069", "Hi"},
        {"3", "00480069", "Hi"},
        {"-1", "00480069", "Hi"},
        {"5", "00480069", "Hi"},
        {"2", "d83dDE00", "😀"},
        {"2", "00G1", "\x01"},
        {"2", "0048006", "H"},
        {"gsm", "Hi", "Hi"},
        {"UCS2", "00480069", "Hi"},
        {"0", "", ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.alphabet) + " " + row.text);
        EXPECT_EQ(Qxpdu({"text", "--alphabet", row.alphabet, row.text}),
                  (Outcome{0, std::string(row.decoded) + "\n", ""}));
    }
}

TEST(QxpduText, LinesAreDecodedOneByOne) {
    EXPECT_EQ(Qxpdu({"text", "--alphabet", "2"}, "0048\n\n0069\n"), (Outcome{0, "H\n\ni\n", ""}));
    EXPECT_EQ(Qxpdu({"text", "--alphabet", "2"}, "\xFF\n0069\n"),
              (Outcome{1, "i\n", "qxpdu: line 1: byte 1 (0xFF) is not valid UTF-8\n"}));
}

TEST(QxpduText, VerboseShowsTheLogLineOnStandardError) {
    const Outcome run = Qxpdu({"text", "--alphabet", "2", "--verbose", "0041"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "A\n");
    EXPECT_NE(run.err.find("TextDecoder( 2, 00000030000000300000003400000031 )\n"), std::string::npos)
        << run.err;
    EXPECT_EQ(Qxpdu({"text", "--alphabet", "2", "0041"}).err, "");
}

TEST(QxpduText, JsonHasAlphabetAndText) {
    EXPECT_EQ(Qxpdu({"text", "--alphabet", "2", "--json", "0048"}).Json(),
              nlohmann::json::parse(R"([{"format": 2, "argument": 1, "alphabet": 2, "text": "H"}])"));
}

} // namespace
