// qxpdu gsm
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::Outcome;
using tests::Qxpdu;

TEST(QxpduGsm, EncodeWritesUnpackedCodes) {
    EXPECT_EQ(Qxpdu({"gsm", "encode", "@A€", "Σ", ""}), (Outcome{0, "00411B65\n18\n\n", ""}));
}

TEST(QxpduGsm, DroppedCharactersAreMentioned) {
    EXPECT_EQ(
        Qxpdu({"gsm", "encode", "aÇ", "😀b", "α", "\U00010041"}),
        (Outcome{0, "61\n62\n\n\n",
                 "qxpdu: argument 1: warning: character 2, U+00C7, has no GSM code and is dropped\n"
                 "qxpdu: argument 2: warning: character 1, U+1F600, has no GSM code and is dropped\n"
                 "qxpdu: argument 3: warning: character 1, U+03B1, has no GSM code and is dropped\n"
                 "qxpdu: argument 4: warning: character 1, U+10041, has no GSM code and is dropped\n"}));
}

TEST(QxpduGsm, GreekSelectsTheTable) {
    EXPECT_EQ(Qxpdu({"gsm", "encode", "--greek", "αβσς"}), (Outcome{0, "41421818\n", ""}));
    EXPECT_EQ(Qxpdu({"gsm", "decode", "--greek", "4118"}), (Outcome{0, "AΣ\n", ""}));
}

TEST(QxpduGsm, DecodeReadsUnpackedCodes) {
    EXPECT_EQ(Qxpdu({"gsm", "decode", "00411B65", "18", "1B41", "1b"}), (Outcome{0, "@A€\nΣ\nA\n\n", ""}));
}

TEST(QxpduGsm, DecodeChecksItsInput) {
    EXPECT_EQ(Qxpdu({"gsm", "decode"}, "4180\n41F\n4.1\n42\n"),
              (Outcome{1, "B\n",
                       "qxpdu: line 1: octet 1, 0x80, is no GSM code\n"
                       "qxpdu: line 2: odd number of hexadecimal digits, 3\n"
                       "qxpdu: line 3: character 2, '.', is no hexadecimal digit\n"}));
    EXPECT_EQ(Qxpdu({"gsm", "decode", "7F"}), (Outcome{0, "à\n", ""}));
}

TEST(QxpduGsm, JsonHasBothFormsAndWhatWasDropped) {
    EXPECT_EQ(Qxpdu({"gsm", "encode", "--json", "a€"}).Json(), nlohmann::json::parse(R"([{
        "format": 2, "argument": 1, "text": "a€", "gsm": "611B65", "septets": 3, "dropped": []
    }])"));
    EXPECT_EQ(Qxpdu({"gsm", "encode", "--json", "aÇ😀"}).Json()[0]["dropped"], nlohmann::json::parse(R"([
        {"position": 2, "code_point": "U+00C7"}, {"position": 3, "code_point": "U+1F600"}
    ])"));
    EXPECT_EQ(Qxpdu({"gsm", "decode", "--json", "1b65"}).Json(),
              nlohmann::json::parse(R"([{"format": 2, "argument": 1, "gsm": "1B65", "text": "€"}])"));
}

} // namespace
