// qxpdu encode
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::LinesOf;
using tests::Outcome;
using tests::Qxpdu;
using tests::Repeated;

/// encode --to +4179123 with these arguments.
Outcome Encode(std::vector<std::string> arguments, const std::string& input = "") {
    arguments.insert(arguments.begin(), {"encode", "--to", "+4179123"});
    return Qxpdu(arguments, input);
}

/// The texts of PDUs, decoded and put together.
std::string DecodedTogether(const std::string& pdus) {
    std::string text;
    for (const nlohmann::json& message : Qxpdu({"decode", "--json"}, pdus).Json())
        text += message["text"].get<std::string>();
    return text;
}

TEST(QxpduEncode, EveryOptionHasItsPlaceInThePdu) {
    struct Row {
        std::vector<std::string> arguments;
        const char* pdu;
    };
    const Row rows[] = {
        {{"hello"}, "0001000791149721F3000005E8329BFD06"},
        {{"--smsc", "+123456789012", "hello"}, "079121436587092101000791149721F3000005E8329BFD06"},
        {{"--smsc", "12345", "hello"}, "04812143F501000791149721F3000005E8329BFD06"},
        {{"--class", "0", "hello"}, "0001000791149721F3001005E8329BFD06"},
        {{"--class", "1", "hello"}, "0001000791149721F3001105E8329BFD06"},
        {{"--class", "2", "hello"}, "0001000791149721F3001205E8329BFD06"},
        {{"--class", "3", "hello"}, "0001000791149721F3001305E8329BFD06"},
        {{"--validity", "1h", "hello"}, "0011000791149721F300000B05E8329BFD06"},
        {{"--validity", "2h", "hello"}, "0011000791149721F300001705E8329BFD06"},
        {{"--validity", "6h", "hello"}, "0011000791149721F300004705E8329BFD06"},
        {{"--validity", "12h", "hello"}, "0011000791149721F300008F05E8329BFD06"},
        {{"--validity", "1d", "hello"}, "0011000791149721F30000A705E8329BFD06"},
        {{"--validity", "1w", "hello"}, "0011000791149721F30000AD05E8329BFD06"},
        {{"--validity", "max", "hello"}, "0011000791149721F30000FF05E8329BFD06"},
        {{"--validity", "0", "hello"}, "0011000791149721F300000005E8329BFD06"},
        {{"--validity", "100", "hello"}, "0011000791149721F300006405E8329BFD06"},
        {{"--validity", "255", "hello"}, "0011000791149721F30000FF05E8329BFD06"},
        {{"--status-report", "hello"}, "0021000791149721F3000005E8329BFD06"},
        {{"--reject-duplicates", "hello"}, "0005000791149721F3000005E8329BFD06"},
        {{"--reply-path", "hello"}, "0081000791149721F3000005E8329BFD06"},
        {{"--status-report", "--reject-duplicates", "--reply-path", "--validity", "1d", "hello"},
         "00B5000791149721F30000A705E8329BFD06"},
        {{"--reference", "0", "hello"}, "0001000791149721F3000005E8329BFD06"},
        {{"--reference", "42", "hello"}, "00012A0791149721F3000005E8329BFD06"},
        {{"--reference", "255", "hello"}, "0001FF0791149721F3000005E8329BFD06"},
        {{"--as", "libQX_Encoding", "--greek", "αβ"}, "0001000791149721F30000024121"},
        {{"αβ"}, "0001000791149721F300080403B103B2"},
        {{"--class", "1", "αβ"}, "0001000791149721F300190403B103B2"},
        {{"😀"}, "0001000791149721F3000804D83DDE00"},
        {{"[ok]"}, "0001000791149721F30000061BDE7BBDF101"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.pdu);
        EXPECT_EQ(Encode(row.arguments), (Outcome{0, std::string(row.pdu) + "\n", ""}));
    }
}

TEST(QxpduEncode, NationalNumberHasNoTypeAndAnOddOneAFiller) {
    EXPECT_EQ(Qxpdu({"encode", "--to", "4179123", "hello"}),
              (Outcome{0, "0001000781149721F3000005E8329BFD06\n", ""}));
    EXPECT_EQ(Qxpdu({"encode", "--to", "12345678901234567890", "hello"}),
              (Outcome{0,
                       "0001001481214365870921436587090000"
                       "05E8329BFD06\n",
                       ""}));
}

TEST(QxpduEncode, AllOfStandardInputIsOneTextWithoutItsLastLineFeed) {
    EXPECT_EQ(Encode({}, "hello"), (Outcome{0, "0001000791149721F3000005E8329BFD06\n", ""}));
    EXPECT_EQ(Encode({}, "hello\n"), (Outcome{0, "0001000791149721F3000005E8329BFD06\n", ""}));
    EXPECT_EQ(Encode({"-"}, "hello\n"), (Outcome{0, "0001000791149721F3000005E8329BFD06\n", ""}));
    EXPECT_EQ(Encode({}, "hello\n\n"), (Outcome{0, "0001000791149721F3000006E8329BFD5600\n", ""}));
    EXPECT_EQ(Encode({}, "a\nb"), (Outcome{0, "0001000791149721F3000003618518\n", ""}));
}

TEST(QxpduEncode, TextOf161CharactersGivesTwoPdusThatDecodeToIt) {
    std::string text;
    for (int i = 0; i < 161; ++i)
        text += static_cast<char>('a' + i % 26);
    const Outcome run = Encode({text});
    EXPECT_EQ(run.status, 0);
    const std::vector<std::string> pdus = LinesOf(run.out);
    ASSERT_EQ(pdus.size(), 2U);
    EXPECT_EQ(pdus[0].substr(0, 30), "0041000791149721F30000A0050003");
    EXPECT_EQ(pdus[0].substr(32, 4), "0201");
    EXPECT_EQ(pdus[1].substr(0, 30), "0041000791149721F300000F050003");
    EXPECT_EQ(pdus[1].substr(32, 4), "0202");
    EXPECT_EQ(pdus[0].substr(30, 2), pdus[1].substr(30, 2)) << "one reference";
    EXPECT_EQ(DecodedTogether(run.out), text);
}

TEST(QxpduEncode, TextOf160CharactersGivesOnePdu) {
    const Outcome run = Encode({Repeated("a", 160)});
    EXPECT_EQ(LinesOf(run.out).size(), 1U);
    EXPECT_EQ(DecodedTogether(run.out), Repeated("a", 160));
}

TEST(QxpduEncode, StatusReportIsAskedForOnTheFirstPartOnly) {
    const std::vector<std::string> pdus = LinesOf(Encode({"--status-report", Repeated("a", 161)}).out);
    ASSERT_EQ(pdus.size(), 2U);
    EXPECT_EQ(pdus[0].substr(0, 4), "0061");
    EXPECT_EQ(pdus[1].substr(0, 4), "0041");
}

TEST(QxpduEncode, EmojiSurvives) {
    EXPECT_EQ(DecodedTogether(Encode({"see 😀 you"}).out), "see 😀 you");
}

TEST(QxpduEncode, SeparatorsInANumberAreAWarningOrWithStrictAnError) {
    const std::string hello = "0001000791149721F3000005E8329BFD06\n";
    EXPECT_EQ(Qxpdu({"encode", "--to", "+41 79-123", "hello"}),
              (Outcome{0, hello, "qxpdu: --to: warning: '+41 79-123' goes out as +4179123\n"}));
    EXPECT_EQ(Encode({"--smsc", "(1)2", "hello"}),
              (Outcome{0, "028121" + hello.substr(2), "qxpdu: --smsc: warning: '(1)2' goes out as 12\n"}));
    EXPECT_EQ(Qxpdu({"encode", "--strict", "--to", "+41 79123", "--smsc", "1 2", "hello"}),
              (Outcome{1, "",
                       "qxpdu: --to: '+41 79123' goes out as +4179123\n"
                       "qxpdu: --smsc: '1 2' goes out as 12\n"}));
    EXPECT_EQ(Encode({"--strict", "hello"}), (Outcome{0, hello, ""}));
}

TEST(QxpduEncode, EmptyTextIsAWarningOrWithStrictAnError) {
    EXPECT_EQ(Encode({""}),
              (Outcome{0, "0001000791149721F3000000\n",
                       "qxpdu: argument 1: warning: the text is empty; a message without text goes out\n"}));
    EXPECT_EQ(
        Encode({}, "\n"),
        (Outcome{0, "0001000791149721F3000000\n",
                 "qxpdu: standard input: warning: the text is empty; a message without text goes out\n"}));
    EXPECT_EQ(Encode({"--class", "1", ""}).out, "0001000791149721F3001100\n")
        << "it has a coding all the same";
    EXPECT_EQ(Encode({"--strict", ""}),
              (Outcome{1, "", "qxpdu: argument 1: the text is empty; a message without text goes out\n"}));
}

TEST(QxpduEncode, CharactersThatGreekTextLeavesOutAreAWarningOrWithStrictAnError) {
    const std::string ab = "000100049121430000024121\n";
    const std::string message = "1 character lost, which GSM 7-bit has not; the first is character 2, U+4E2D";
    EXPECT_EQ(Qxpdu({"encode", "--to", "+1234", "--as", "libQX_Encoding", "--greek", "α中β"}),
              (Outcome{0, ab, "qxpdu: argument 1: warning: " + message + "\n"}));
    EXPECT_EQ(Qxpdu({"encode", "--to", "+1234", "--as", "libQX_Encoding", "--greek", "--strict", "α中β"}),
              (Outcome{1, "", "qxpdu: argument 1: " + message + "\n"}));
    EXPECT_EQ(
        Qxpdu({"encode", "--to", "+1234", "--as", "libQX_Encoding", "--greek"}, "αβ😀中"),
        (Outcome{0, ab,
                 "qxpdu: standard input: warning: 2 characters lost, which GSM 7-bit has not; the first "
                 "is character 3, U+1F600\n"}));
    EXPECT_EQ(Qxpdu({"encode", "--to", "+1234", "--as", "libQX_Encoding", "--greek", "--strict", "αβ"}),
              (Outcome{0, ab, ""}));
    EXPECT_EQ(Qxpdu({"encode", "--to", "+1234", "--as", "libQX_Encoding", "--greek", "中αβ"}).err,
              "qxpdu: argument 1: warning: 1 character lost, which GSM 7-bit has not; the first is character "
              "1, U+4E2D\n");
    EXPECT_EQ(Qxpdu({"encode", "--to", "+1234", "--as", "libQX_Encoding", "--greek", "α¨"}).err,
              "qxpdu: argument 1: warning: 1 character lost, which GSM 7-bit has not; the first is character "
              "2, U+00A8\n");
    EXPECT_EQ(
        Qxpdu({"encode", "--to", "+1234", "--as", "libQX_Encoding", "--greek"}, std::string("\xCE\xB1\0", 3))
            .err,
        "qxpdu: standard input: warning: 1 character lost, which GSM 7-bit has not; the first is "
        "character 2, U+0000\n");
    EXPECT_EQ(Qxpdu({"encode", "--to", "+1234", "--as", "libQX_Encoding", "--greek", "--strict", "Ω中"}),
              (Outcome{0, "0001000491214300080403A94E2D\n", ""}))
        << "UCS2 leaves nothing out";
}

TEST(QxpduEncode, MoreThan255PartsAreRefused) {
    EXPECT_EQ(LinesOf(Encode({}, Repeated("a", 255 * 153)).out).size(), 255U);
    EXPECT_EQ(Encode({}, Repeated("a", 255 * 153 + 1)),
              (Outcome{1, "", "qxpdu: standard input: the text needs 256 parts, 255 at most\n"}));
    EXPECT_EQ(LinesOf(Encode({}, Repeated("я", 255 * 67)).out).size(), 255U);
    EXPECT_EQ(Encode({}, Repeated("я", 255 * 67 + 1)),
              (Outcome{1, "", "qxpdu: standard input: the text needs 256 parts, 255 at most\n"}));
    EXPECT_EQ(Encode({"--as", "libQX_Encoding", "--greek"}, Repeated("α", 255 * 153)).status, 0)
        << "counted as it goes out";
}

TEST(QxpduEncode, InvalidUtf8IsAnErrorThatNamesTheByte) {
    EXPECT_EQ(Encode({"a\xFF"}), (Outcome{1, "", "qxpdu: argument 1: byte 2 (0xFF) is not valid UTF-8\n"}));
    EXPECT_EQ(Encode({}, "\x80"),
              (Outcome{1, "", "qxpdu: standard input: byte 1 (0x80) is not valid UTF-8\n"}));
}

TEST(QxpduEncode, JsonTellsAboutEachPart) {
    const nlohmann::json one = Encode({"--json", "--smsc", "+123456789012", "hello"}).Json();
    EXPECT_EQ(one, nlohmann::json::parse(R"([{
        "format": 2,
        "argument": 1,
        "octets": "079121436587092101000791149721F3000005E8329BFD06",
        "tpdu_length": 16,
        "alphabet": "GSM 7-bit",
        "septets": 5,
        "part": 1,
        "parts": 1
    }])"));
    const nlohmann::json ucs2 = Encode({"--json"}, "😀я").Json();
    EXPECT_EQ(ucs2, nlohmann::json::parse(R"([{
        "format": 2,
        "octets": "0001000791149721F3000806D83DDE00044F",
        "tpdu_length": 17,
        "alphabet": "UCS2",
        "characters": 3,
        "part": 1,
        "parts": 1
    }])"));
}

TEST(QxpduEncode, JsonTellsTheShareOfEachPartAndItsReference) {
    const nlohmann::json gsm = Encode({"--json", Repeated("a", 161)}).Json();
    ASSERT_EQ(gsm.size(), 2U);
    EXPECT_EQ(gsm[0]["septets"], 153);
    EXPECT_EQ(gsm[1]["septets"], 8);
    EXPECT_EQ(gsm[0]["tpdu_length"], 11 + 6 + 134);
    const nlohmann::json ucs2 = Encode({"--json", Repeated("я", 71)}).Json();
    ASSERT_EQ(ucs2.size(), 2U);
    EXPECT_EQ(ucs2[0]["characters"], 67);
    EXPECT_EQ(ucs2[1]["characters"], 4);
    for (const nlohmann::json& parts : {gsm, ucs2}) {
        for (const std::size_t i : {0U, 1U}) {
            EXPECT_EQ(parts[i]["part"], i + 1);
            EXPECT_EQ(parts[i]["parts"], 2);
            EXPECT_EQ(parts[i]["concatenation"]["sequence"], i + 1);
            EXPECT_EQ(parts[i]["concatenation"]["total"], 2);
            EXPECT_EQ(parts[i]["concatenation"]["reference"],
                      std::stoi(parts[i]["octets"].get<std::string>().substr(30, 2), nullptr, 16));
        }
    }
}

TEST(QxpduEncode, AtWritesTheCommandForTheModem) {
    EXPECT_EQ(Qxpdu({"encode", "--to", "+4179123", "--smsc", "+41", "--at", "hello"}),
              (Outcome{0, "AT+CMGS=16\n02911401000791149721F3000005E8329BFD06\n", ""}));
}

} // namespace
