// qxpdu count --as libQX_Encoding
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using nlohmann::json;
using tests::Outcome;
using tests::Repeated;

Outcome Count(std::vector<std::string> arguments, const std::string& text = {}) {
    arguments.insert(arguments.begin(), {"count", "--as", "libQX_Encoding"});
    return tests::Qxpdu(arguments, text);
}

/// The only object that count --json gives for a text.
json CountOf(std::vector<std::string> arguments, const std::string& text) {
    arguments.insert(arguments.begin(), "--json");
    return Count(std::move(arguments), text).Json().at(0);
}

TEST(QxpduHostCount, FiguresAtTheEdgesOfParts) {
    struct Row {
        std::string text;
        const char* alphabet;
        const char* units;
        unsigned int length;
        unsigned int parts;
        unsigned int room;
    };
    const Row rows[] = {
        {"", "UCS2", "characters", 0, 1, 70},
        {"hello", "GSM 7-bit", "septets", 5, 1, 155},
        {"5 €", "GSM 7-bit", "septets", 4, 1, 156},
        {Repeated("a", 160), "GSM 7-bit", "septets", 160, 1, 0},
        {Repeated("a", 161), "GSM 7-bit", "septets", 161, 2, 145},
        {Repeated("a", 306), "GSM 7-bit", "septets", 306, 2, 0},
        {Repeated("a", 307), "GSM 7-bit", "septets", 307, 3, 152},
        {"ж", "UCS2", "characters", 1, 1, 69},
        {"😀", "UCS2", "characters", 2, 1, 68},
        {Repeated("ж", 70), "UCS2", "characters", 70, 1, 0},
        {Repeated("ж", 71), "UCS2", "characters", 71, 2, 63},
        {Repeated("ж", 134), "UCS2", "characters", 134, 2, 0},
        {Repeated("ж", 135), "UCS2", "characters", 135, 3, 66},
        {Repeated("a", 255 * 153), "GSM 7-bit", "septets", 39015, 255, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text.substr(0, 8) + " " + std::to_string(row.length));
        const json count = CountOf({}, row.text);
        EXPECT_EQ(count["alphabet"], row.alphabet);
        EXPECT_EQ(count[row.units], row.length);
        EXPECT_EQ(count["parts"], row.parts);
        EXPECT_EQ(count["room"], row.room);
        EXPECT_FALSE(count.contains("cuts"));
    }
}

TEST(QxpduHostCount, PlainTextTakesOneLine) {
    EXPECT_EQ(Count({"hello"}),
              (Outcome{0, "goes out as GSM 7-bit, 5 septets, 1 part, room for 155 septets\n", ""}));
    EXPECT_EQ(Count({"a"}),
              (Outcome{0, "goes out as GSM 7-bit, 1 septet, 1 part, room for 159 septets\n", ""}));
    EXPECT_EQ(Count({}, "a\nb\n"),
              (Outcome{0, "goes out as GSM 7-bit, 3 septets, 1 part, room for 157 septets\n", ""}));
}

TEST(QxpduHostCount, CharactersAreNamedWithTheirPositionsAndReplacements) {
    EXPECT_EQ(Count({"😀 “a” €"}), (Outcome{0,
                                           "goes out as UCS2, 8 characters, 1 part, room for 62 characters\n"
                                           "forces UCS2 U+201C LEFT DOUBLE QUOTATION MARK at 3\n"
                                           "            U+201D RIGHT DOUBLE QUOTATION MARK at 5\n"
                                           "            U+1F600 GRINNING FACE at 1\n"
                                           "two septets U+20AC EURO SIGN at 7\n"
                                           "   replaced UCS2, 8 characters, 1 part, room for 62 characters\n"
                                           "            U+201C LEFT DOUBLE QUOTATION MARK at 3 -> '\"'\n"
                                           "            U+201D RIGHT DOUBLE QUOTATION MARK at 5 -> '\"'\n",
                                           ""}));
    EXPECT_EQ(Count({"α…α"}), (Outcome{0,
                                       " goes out as UCS2, 3 characters, 1 part, room for 67 characters\n"
                                       " forces UCS2 U+03B1 GREEK SMALL LETTER ALPHA at 1, 3\n"
                                       "             U+2026 HORIZONTAL ELLIPSIS at 2\n"
                                       "    replaced UCS2, 5 characters, 1 part, room for 65 characters\n"
                                       "             U+2026 HORIZONTAL ELLIPSIS at 2 -> '...'\n"
                                       "with --greek GSM 7-bit, 2 septets, 1 part, room for 158 septets\n"
                                       "             U+03B1 GREEK SMALL LETTER ALPHA at 1, 3 -> 'A'\n"
                                       "             U+2026 HORIZONTAL ELLIPSIS at 2, left out\n",
                                       ""}));
}

TEST(QxpduHostCount, JsonHasTheSame) {
    EXPECT_EQ(CountOf({"[€’ α]"}, ""), json::parse(R"({
        "format": 2, "argument": 1, "alphabet": "UCS2", "characters": 6, "parts": 1, "room": 64,
        "forces_ucs2": [
            {"code_point": "U+03B1", "name": "GREEK SMALL LETTER ALPHA", "positions": [5]},
            {"code_point": "U+2019", "name": "RIGHT SINGLE QUOTATION MARK", "positions": [3]}],
        "two_septets": [
            {"code_point": "U+005B", "name": "LEFT SQUARE BRACKET", "positions": [1]},
            {"code_point": "U+005D", "name": "RIGHT SQUARE BRACKET", "positions": [6]},
            {"code_point": "U+20AC", "name": "EURO SIGN", "positions": [2]}],
        "replaced": {
            "alphabet": "UCS2", "characters": 6, "parts": 1, "room": 64,
            "replacements": [{"code_point": "U+2019", "name": "RIGHT SINGLE QUOTATION MARK",
                              "positions": [3], "by": "'"}]},
        "greek": {
            "alphabet": "GSM 7-bit", "septets": 8, "parts": 1, "room": 152,
            "changed": [
                {"code_point": "U+03B1", "name": "GREEK SMALL LETTER ALPHA", "positions": [5],
                 "becomes": "A"},
                {"code_point": "U+2019", "name": "RIGHT SINGLE QUOTATION MARK", "positions": [3],
                 "becomes": ""}]}
    })"));
}

TEST(QxpduHostCount, GreekIsCountedAsItGoesOut) {
    EXPECT_EQ(CountOf({"--greek", "αж–"}, ""), json::parse(R"({
        "format": 2, "argument": 1, "alphabet": "GSM 7-bit", "septets": 1, "parts": 1, "room": 159,
        "changed": [
            {"code_point": "U+03B1", "name": "GREEK SMALL LETTER ALPHA", "positions": [1], "becomes": "A"},
            {"code_point": "U+0436", "name": "CYRILLIC SMALL LETTER ZHE", "positions": [2], "becomes": ""},
            {"code_point": "U+2013", "name": "EN DASH", "positions": [3], "becomes": ""}],
        "replaced": {
            "alphabet": "GSM 7-bit", "septets": 2, "parts": 1, "room": 158,
            "replacements": [
                {"code_point": "U+2013", "name": "EN DASH", "positions": [3], "by": "-"}]}
    })"));
    EXPECT_EQ(CountOf({"--greek", "ж"}, "")["alphabet"], "UCS2") << "the Greek table changes nothing";
    EXPECT_FALSE(CountOf({"ж"}, "").contains("greek"));
}

TEST(QxpduHostCount, NearCharactersReplaceThoseThatForceUcs2) {
    struct Row {
        const char* text;
        const char* by;
    };
    const Row rows[] = {
        {"‘", "'"},      {"’", "'"},      {"`", "'"},       {"´", "'"},     {"“", "\""},    {"”", "\""},
        {"«", "\""},     {"‐", "-"},      {"–", "-"},       {"—", "-"},     {"…", "..."},   {"−", "-"},
        {"\u00A0", " "}, {"\u202F", " "}, {"\u2028", "\n"}, {"\u00AD", ""}, {"\u200B", ""}, {"\t", " "},
        {"\u0301", ""},  {"•", "*"},      {"·", "."},       {"©", "(c)"},   {"™", "(TM)"},  {"½", "1/2"},
        {"À", "A"},      {"Ç", "C"},      {"á", "a"},       {"ç", nullptr}, {"é", nullptr}, {"ï", "i"},
        {"İ", "I"},      {"ı", "i"},      {"ł", "l"},       {"ő", "ö"},     {"Ű", "Ü"},     {"ș", "s"},
        {"ÿ", "y"},      {"ž", "z"},      {"œ", "oe"},      {"Þ", "Th"},    {"ẞ", "ß"},     {"ж", nullptr},
        {"😀", nullptr},  {"α", nullptr},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        const json count = CountOf({row.text}, "");
        ASSERT_EQ(count.contains("replaced"), row.by != nullptr);
        if (row.by == nullptr)
            continue;
        EXPECT_EQ(count["replaced"]["replacements"][0]["by"], row.by);
        if (*row.by != '\0') {
            EXPECT_EQ(count["replaced"]["alphabet"], "GSM 7-bit");
        }
    }
}

TEST(QxpduHostCount, BoundaryThatCutsAPairIsAWarning) {
    EXPECT_EQ(
        Count({Repeated("a", 152) + "€" + Repeated("b", 7)}),
        (Outcome{0,
                 "goes out as GSM 7-bit, 161 septets, 2 parts, room for 145 septets\n"
                 "            warning: the escape pair of U+20AC EURO SIGN is cut between parts 1 and 2\n"
                 "two septets U+20AC EURO SIGN at 153\n",
                 ""}));
    EXPECT_FALSE(CountOf({Repeated("a", 151) + "€" + Repeated("b", 8)}, "").contains("cuts"));
    EXPECT_FALSE(CountOf({Repeated("a", 153) + "€" + Repeated("b", 8)}, "").contains("cuts"));
    EXPECT_EQ(CountOf({Repeated("a", 153 + 152) + "{b"}, "")["cuts"], json::parse(R"([
        {"after_part": 2, "pair": "escape", "code_point": "U+007B", "name": "LEFT CURLY BRACKET"}])"));
    EXPECT_EQ(CountOf({Repeated("ж", 66) + "😀" + Repeated("b", 3)}, "")["cuts"], json::parse(R"([
        {"after_part": 1, "pair": "surrogate", "code_point": "U+1F600", "name": "GRINNING FACE"}])"));
    EXPECT_FALSE(CountOf({Repeated("ж", 65) + "😀😀" + Repeated("b", 3)}, "").contains("cuts"));
    EXPECT_EQ(CountOf({Repeated("ж", 66) + "😀" + Repeated("ж", 65) + "😀"}, "")["cuts"].size(), 2U)
        << "half a character is all of the last part";
}

TEST(QxpduHostCount, MoreThan255PartsAreRefused) {
    EXPECT_EQ(Count({}, Repeated("a", 255 * 153 + 1)),
              (Outcome{1, "cannot go out the text needs 256 parts, 255 at most\n",
                       "qxpdu: standard input: the text needs 256 parts, 255 at most\n"}));
    const json count = CountOf({}, Repeated("…", 255 * 67));
    EXPECT_EQ(count["parts"], 255);
    EXPECT_EQ(count["replaced"]["error"], "the text needs 335 parts, 255 at most");
}

TEST(QxpduHostCount, TextThatIsTooLongIsExplainedAllTheSame) {
    const Outcome run = Count({"--lines", "--jsonl"}, Repeated("a", 20000) + "’\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "");
    const json forced = run.Json();
    EXPECT_EQ(forced["error"], "the text needs 299 parts, 255 at most");
    EXPECT_EQ(forced["forces_ucs2"][0]["positions"], json{20001});
    EXPECT_EQ(forced["replaced"]["parts"], 131);
    EXPECT_FALSE(forced.contains("greek"));
    const json letters = Count({"--lines", "--jsonl"}, Repeated("α", 40000) + "\n").Json();
    EXPECT_EQ(letters["error"], "the text needs 598 parts, 255 at most");
    EXPECT_EQ(letters["greek"]["error"], "the text needs 262 parts, 255 at most");
    const json greek = Count({"--greek", "--lines", "--jsonl"}, Repeated("α", 40000) + "中\n").Json();
    EXPECT_EQ(greek["error"], "the text needs 262 parts, 255 at most");
    EXPECT_EQ(greek["changed"].size(), 2U);
    EXPECT_FALSE(greek.contains("forces_ucs2"));
}

TEST(QxpduHostCount, InvalidUtf8IsAnErrorThatNamesTheByte) {
    EXPECT_EQ(Count({"a\xFF"}), (Outcome{1, "", "qxpdu: argument 1: byte 2 (0xFF) is not valid UTF-8\n"}));
}

} // namespace
