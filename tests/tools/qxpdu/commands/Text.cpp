// qxpdu text, ucs2 and gsm
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
              nlohmann::json::parse(R"([{"argument": 1, "alphabet": 2, "text": "H"}])"));
}

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
              nlohmann::json::parse(R"([{"argument": 1, "text": "A", "ucs2": "0041"}])"));
    EXPECT_EQ(Qxpdu({"ucs2", "decode", "--json", "00e9"}).Json(),
              nlohmann::json::parse(R"([{"argument": 1, "ucs2": "00E9", "text": "é"}])"));
    EXPECT_EQ(Qxpdu({"ucs2", "check", "--json"}, "00410042\n0041\n").Json(),
              nlohmann::json::parse(R"([{"line": 1, "is_ucs2": true}, {"line": 2, "is_ucs2": false}])"));
}

TEST(QxpduGsm, EncodeWritesUnpackedCodes) {
    EXPECT_EQ(Qxpdu({"gsm", "encode", "@A€", "Σ", ""}), (Outcome{0, "00411B65\n18\n\n", ""}));
}

TEST(QxpduGsm, DroppedCharactersAreMentioned) {
    EXPECT_EQ(Qxpdu({"gsm", "encode", "aÇ", "😀b", "α"}),
              (Outcome{0, "61\n62\n\n",
                       "qxpdu: argument 1: warning: character 2, U+00C7, has no GSM code and is dropped\n"
                       "qxpdu: argument 2: warning: character 1, U+1F600, has no GSM code and is dropped\n"
                       "qxpdu: argument 3: warning: character 1, U+03B1, has no GSM code and is dropped\n"}));
}

TEST(QxpduGsm, GreekSelectsTheTable) {
    EXPECT_EQ(Qxpdu({"gsm", "encode", "--greek", "αβσς"}), (Outcome{0, "41421818\n", ""}));
    EXPECT_EQ(Qxpdu({"gsm", "decode", "--greek", "4118"}), (Outcome{0, "AΣ\n", ""}));
}

TEST(QxpduGsm, DecodeReadsUnpackedCodes) {
    EXPECT_EQ(Qxpdu({"gsm", "decode", "00411B65", "18", "1B41", "1b"}), (Outcome{0, "@A€\nΣ\nA\n\n", ""}));
}

TEST(QxpduGsm, DecodeChecksItsInput) {
    EXPECT_EQ(Qxpdu({"gsm", "decode"}, "4180\n41F\n4 1\n42\n"),
              (Outcome{1, "B\n",
                       "qxpdu: line 1: octet 1, 0x80, is no GSM code\n"
                       "qxpdu: line 2: odd number of hexadecimal digits, 3\n"
                       "qxpdu: line 3: character 2, ' ', is no hexadecimal digit\n"}));
    EXPECT_EQ(Qxpdu({"gsm", "decode", "7F"}), (Outcome{0, "à\n", ""}));
}

TEST(QxpduGsm, JsonHasBothFormsAndWhatWasDropped) {
    EXPECT_EQ(Qxpdu({"gsm", "encode", "--json", "a€"}).Json(), nlohmann::json::parse(R"([{
        "argument": 1, "text": "a€", "gsm": "611B65", "septets": 3, "dropped": []
    }])"));
    EXPECT_EQ(Qxpdu({"gsm", "encode", "--json", "aÇ😀"}).Json()[0]["dropped"], nlohmann::json::parse(R"([
        {"position": 2, "code_point": "U+00C7"}, {"position": 3, "code_point": "U+1F600"}
    ])"));
    EXPECT_EQ(Qxpdu({"gsm", "decode", "--json", "1b65"}).Json(),
              nlohmann::json::parse(R"([{"argument": 1, "gsm": "1B65", "text": "€"}])"));
}

} // namespace
