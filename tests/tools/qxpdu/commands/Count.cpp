// qxpdu count
#include <random>

#include <gtest/gtest.h>

#include "support/Octets.h"
#include "tools/qxpdu/RunTool.h"

namespace {

using nlohmann::json;
using tests::JsonLines;
using tests::Outcome;
using tests::Qxpdu;
using tests::Repeated;

/// The only object that count --json gives for a text.
json CountOf(std::vector<std::string> arguments, const std::string& text = {}) {
    arguments.insert(arguments.begin(), {"count", "--json"});
    return Qxpdu(arguments, text).Json().at(0);
}

// Three characters of which the Turkish tables have the first, the Portuguese ones the second.
constexpr const char* c_turkishAndPortuguese = "şã€";

TEST(QxpduCount, FiguresAtTheEdgesOfParts) {
    struct Row {
        std::string text;
        const char* alphabet;
        const char* units;
        unsigned int length;
        unsigned int parts;
        unsigned int room;
        unsigned int octets;
    };
    const Row rows[] = {
        {"", "GSM 7-bit", "septets", 0, 1, 160, 0},
        {"hello", "GSM 7-bit", "septets", 5, 1, 155, 5},
        {"5 €", "GSM 7-bit", "septets", 4, 1, 156, 4},
        {"Ç", "GSM 7-bit", "septets", 1, 1, 159, 1},
        {Repeated("a", 160), "GSM 7-bit", "septets", 160, 1, 0, 140},
        {Repeated("a", 161), "GSM 7-bit", "septets", 161, 2, 145, 154},
        {Repeated("a", 306), "GSM 7-bit", "septets", 306, 2, 0, 280},
        {Repeated("a", 307), "GSM 7-bit", "septets", 307, 3, 152, 287},
        {"ж", "UCS2", "characters", 1, 1, 69, 2},
        {"😀", "UCS2", "characters", 2, 1, 68, 4},
        {Repeated("ж", 70), "UCS2", "characters", 70, 1, 0, 140},
        {Repeated("ж", 71), "UCS2", "characters", 71, 2, 63, 154},
        {Repeated("ж", 134), "UCS2", "characters", 134, 2, 0, 280},
        {Repeated("ж", 135), "UCS2", "characters", 135, 3, 66, 288},
        {Repeated("a", 255 * 153), "GSM 7-bit", "septets", 39015, 255, 0, 35700},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text.substr(0, 8) + " " + std::to_string(row.length));
        const json count = CountOf({}, row.text);
        EXPECT_EQ(count["alphabet"], row.alphabet);
        EXPECT_EQ(count[row.units], row.length);
        EXPECT_EQ(count["parts"], row.parts);
        EXPECT_EQ(count["room"], row.room);
        EXPECT_EQ(count["user_data_octets"], row.octets);
        EXPECT_EQ(count.value("breaks", json::array()).size(), row.parts - 1);
    }
}

TEST(QxpduCount, ReferenceOf16BitsTakesRoom) {
    EXPECT_EQ(CountOf({"--concat-bits", "8"}, Repeated("a", 161))["room"], 145);
    EXPECT_EQ(CountOf({"--concat-bits", "16"}, Repeated("a", 161))["room"], 2 * 152 - 161);
    EXPECT_EQ(CountOf({"--concat-bits", "16"}, Repeated("ж", 71))["room"], 2 * 66 - 71);
    EXPECT_EQ(Qxpdu({"count", "--concat-bits", "12", "a"}).status, 2);
}

TEST(QxpduCount, PortsTakeRoom) {
    EXPECT_EQ(CountOf({"--port", "2948", "a"})["room"], 151) << "7 octets of header";
    EXPECT_EQ(CountOf({"--port", "2948:9200", "ж"})["room"], 65);
    EXPECT_EQ(CountOf({"--port", "240", "--port-bits", "8", "a"})["room"], 153) << "5 octets";
    EXPECT_EQ(CountOf({"--port", "2948"}, Repeated("a", 153))["room"], 2 * 146 - 153);
    EXPECT_EQ(Qxpdu({"count", "--port", "65536", "a"}).status, 2);
    EXPECT_EQ(Qxpdu({"count", "--port", "256", "--port-bits", "8", "a"}).err,
              "qxpdu: --port: 256 takes --port-bits 16\nUsage: qxpdu count [OPTIONS] [TEXT]\n");
    EXPECT_EQ(Qxpdu({"count", "--port-bits", "8", "a"}).status, 2);
}

TEST(QxpduCount, PlainTextTakesOneLine) {
    EXPECT_EQ(Qxpdu({"count", "hello"}),
              (Outcome{0, "goes out as GSM 7-bit, 5 septets, 1 part, room for 155 septets\n", ""}));
    EXPECT_EQ(Qxpdu({"explain", "a"}),
              (Outcome{0, "goes out as GSM 7-bit, 1 septet, 1 part, room for 159 septets\n", ""}));
    EXPECT_EQ(Qxpdu({"count"}, "a\nb\n"),
              (Outcome{0, "goes out as GSM 7-bit, 3 septets, 1 part, room for 157 septets\n", ""}));
}

TEST(QxpduCount, CharactersAreNamedWithTheirPositions) {
    EXPECT_EQ(Qxpdu({"count", "😀 “a” €"}),
              (Outcome{0,
                       "goes out as UCS2, 8 characters, 1 part, room for 62 characters\n"
                       "forces UCS2 U+201C LEFT DOUBLE QUOTATION MARK at 3\n"
                       "            U+201D RIGHT DOUBLE QUOTATION MARK at 5\n"
                       "            U+1F600 GRINNING FACE at 1\n"
                       "two septets U+20AC EURO SIGN at 7\n",
                       ""}));
    const auto nameOf = [](const std::string& text) { return CountOf({}, text)["forces_ucs2"][0]; };
    EXPECT_EQ(nameOf("\x01")["name"], "START OF HEADING");
    EXPECT_EQ(nameOf("一")["name"], "CJK Ideograph") << "the first of the range";
    EXPECT_EQ(nameOf("中")["name"], "CJK Ideograph");
    EXPECT_EQ(nameOf("\uD7A3")["name"], "Hangul Syllable") << "the last of the range";
    EXPECT_EQ(nameOf("\u0378"), json::parse(R"({"code_point": "U+0378", "positions": [1]})")) << "no name";
}

TEST(QxpduCount, NoPairIsCutAndEachBreakIsShown) {
    EXPECT_EQ(Qxpdu({"count", Repeated("a", 152) + "€" + Repeated("b", 7)}),
              (Outcome{0,
                       "goes out as GSM 7-bit, 161 septets, 2 parts, room for 144 septets\n"
                       "     breaks part 2 at 153: 'aaaaaaaaaaaa|€bbbbbbb'\n"
                       "two septets U+20AC EURO SIGN at 153\n",
                       ""}));
    EXPECT_EQ(CountOf({Repeated("a", 152) + "€" + Repeated("b", 153) + "\nc"})["breaks"], json::parse(R"([
        {"after_part": 1, "position": 153, "before": "aaaaaaaaaaaa", "after": "€bbbbbbbbbbb"},
        {"after_part": 2, "position": 305, "before": "bbbbbbbbbbbb", "after": "bb\nc"}])"));
    EXPECT_EQ(CountOf({Repeated("ж", 66) + "😀" + Repeated("b", 3)})["breaks"], json::parse(R"([
        {"after_part": 1, "position": 67, "before": "жжжжжжжжжжжж", "after": "😀bbb"}])"));
    EXPECT_NE(Qxpdu({"count", Repeated("a", 153) + "\nbcdefgh"}).out.find("'aaaaaaaaaaaa|\\u000Abcdefgh'"),
              std::string::npos);
}

TEST(QxpduCount, NearCharactersAreToldWhereTheyMakeTheTextCheaper) {
    EXPECT_EQ(Qxpdu({"count", "It’s 5 €"}),
              (Outcome{0,
                       "   goes out as UCS2, 8 characters, 1 part, room for 62 characters\n"
                       "   forces UCS2 U+2019 RIGHT SINGLE QUOTATION MARK at 3\n"
                       "   two septets U+20AC EURO SIGN at 8\n"
                       "with --replace GSM 7-bit, 9 septets, 1 part, room for 151 septets\n"
                       "               U+2019 RIGHT SINGLE QUOTATION MARK at 3 -> '''\n",
                       ""}));
    EXPECT_EQ(CountOf({"It’s 5 €"})["replaced"], json::parse(R"({
        "alphabet": "GSM 7-bit", "septets": 9, "parts": 1, "room": 151, "user_data_octets": 8,
        "replacements": [{"code_point": "U+2019", "name": "RIGHT SINGLE QUOTATION MARK", "positions": [3],
                          "by": "'"}]})"));
    EXPECT_FALSE(CountOf({"“ж”"}).contains("replaced")) << "it stays UCS2";
    EXPECT_EQ(CountOf({"“ж\u200B”"})["replaced"]["replacements"].size(), 1U) << "what cannot be seen alone";
    EXPECT_FALSE(CountOf({"…"}).contains("replaced")) << "three septets are more than two octets";
    EXPECT_FALSE(CountOf({"…a"}).contains("replaced")) << "four octets either way";
    EXPECT_TRUE(CountOf({"…ab"}).contains("replaced"));
    EXPECT_FALSE(CountOf({"é"}).contains("replaced")) << "the default alphabet has it";
    EXPECT_EQ(CountOf({"--as", "libQX_Encoding", "“ж”"})["replaced"]["parts"], 1);
}

TEST(QxpduCount, TwoCharactersThatAreOneStandTogether) {
    EXPECT_EQ(CountOf({"cafe\u0301 e\u0301"})["replaced"]["replacements"], json::parse(R"([
        {"code_point": "U+0065 U+0301", "name": "LATIN SMALL LETTER E + COMBINING ACUTE ACCENT",
         "positions": [4, 7], "by": "é"}])"));
}

TEST(QxpduCount, CheaperTextIsPrintedOnRequest) {
    EXPECT_EQ(Qxpdu({"count", "--replace", "It’s\n5 …"}),
              (Outcome{0,
                       "goes out as GSM 7-bit, 10 septets, 1 part, room for 150 septets\n"
                       "   replaced U+2019 RIGHT SINGLE QUOTATION MARK at 3 -> '''\n"
                       "            U+2026 HORIZONTAL ELLIPSIS at 8 -> '...'\n"
                       "       text It's\\u000A5 ...\n",
                       ""}));
    const json replaced = CountOf({"--replace", "It’s\n5 …"});
    EXPECT_EQ(replaced["text"], "It's\n5 ...");
    EXPECT_EQ(replaced["replacements"].size(), 2U);
    EXPECT_FALSE(replaced.contains("replaced"));
    const json stays = CountOf({"--replace", "“ж”"});
    EXPECT_EQ(stays["text"], "“ж”") << "no cheaper one";
    EXPECT_EQ(stays["replacements"], json::array());
    EXPECT_EQ(stays["characters"], 3);
}

TEST(QxpduCount, LanguagesThatWouldSaveAreToldTheCheapestFirst) {
    const std::string text = Repeated("ş", 71);
    EXPECT_NE(Qxpdu({"count", text})
                  .out.find("\nwith --language tr GSM 7-bit, Turkish locking shift, 71 septets, 1 part, "
                            "room for 84 septets; saves 1 part\n"),
              std::string::npos);
    EXPECT_EQ(CountOf({text})["with_languages"], json::parse(R"([
        {"languages": ["tr"], "alphabet": "GSM 7-bit", "locking_shift": "Turkish", "septets": 71, "parts": 1,
         "room": 84, "user_data_octets": 67, "parts_saved": 1, "octets_saved": 87}])"));
    // Turkish and Portuguese have the euro sign in their locking shift tables.
    EXPECT_NE(Qxpdu({"count", Repeated("€", 8)})
                  .out.find("with --language tr GSM 7-bit, Turkish locking shift, 8 septets, 1 part, room "
                            "for 147 septets; saves 2 octets\nwith --language pt "),
              std::string::npos);
    const std::string given = Qxpdu({"count", "--language", "tr,pt", Repeated("ç", 10)}).out;
    EXPECT_EQ(given.find("with --language tr"), std::string::npos) << "as it goes out";
    EXPECT_NE(given.find("\nwith --language pt GSM 7-bit, Portuguese locking shift, 10 septets, 1 part, room "
                         "for 145 septets; saves 6 octets\n"),
              std::string::npos);
    EXPECT_FALSE(CountOf({"ş"}).contains("with_languages")) << "a header is longer";
    EXPECT_FALSE(CountOf({Repeated("a", 200)}).contains("with_languages"));
    EXPECT_FALSE(CountOf({"--alphabet", "ucs2", text}).contains("with_languages"));
}

TEST(QxpduCount, LanguageThatSavesMoreComesFirst) {
    const auto languagesOf = [](const std::string& text) {
        std::vector<std::string> codes;
        for (const json& one : CountOf({text}).value("with_languages", json::array()))
            codes.push_back(one["languages"].dump());
        return codes;
    };
    using Codes = std::vector<std::string>;
    // The Portuguese locking shift table has the bar, which takes two septets in Turkish.
    EXPECT_EQ(languagesOf(Repeated("ç|", 10)), (Codes{R"(["pt"])", R"(["tr"])"}));
    EXPECT_EQ(languagesOf(Repeated("ş", 71) + "{"), (Codes{R"(["tr"])"}))
        << "no table is needed for the brace";
    EXPECT_EQ(languagesOf(Repeated("ا", 71)), (Codes{R"(["ur"])"})) << "the last of the languages";
}

TEST(QxpduCount, LanguagesOfACharacterAreThoseOfEitherTable) {
    const auto needed = [](const std::string& language, const std::string& text) {
        return CountOf({"--language", language, text})["needs_table"][0]["languages"];
    };
    EXPECT_EQ(needed("es", "Í"), json::parse(R"(["es", "pt"])")) << "in single shift tables alone";
    EXPECT_EQ(needed("hi", "न"), json::parse(R"(["hi"])")) << "in a locking shift table alone";
}

TEST(QxpduCount, RoomAfterAnyHeaderIsThatOfWholeSeptets) {
    // 9 octets of header and 5 fill bits leave 149 septets of a part.
    const json count = CountOf({"--language", "tr", Repeated("ş", 160)});
    EXPECT_EQ(count["parts"], 2);
    EXPECT_EQ(count["room"], 2 * 149 - 160);
}

TEST(QxpduCount, TwoLanguagesMaySaveTogether) {
    const json count = CountOf({Repeated(c_turkishAndPortuguese, 20)});
    ASSERT_EQ(count["with_languages"].size(), 1U);
    EXPECT_EQ(count["with_languages"][0]["languages"], json::parse(R"(["tr", "pt"])"));
    EXPECT_EQ(count["with_languages"][0]["parts"], 1);
    EXPECT_FALSE(
        CountOf({Repeated(std::string(c_turkishAndPortuguese) + "न", 20)}).contains("with_languages"))
        << "a message has two tables";
}

TEST(QxpduCount, LanguagesAndNearCharactersMaySaveTogether) {
    const std::string text = "“" + Repeated("ş", 70) + "”";
    const json count = CountOf({text});
    EXPECT_FALSE(count.contains("replaced"));
    EXPECT_EQ(count["with_languages"], json::parse(R"([
        {"languages": ["tr"], "replace": true, "alphabet": "GSM 7-bit", "locking_shift": "Turkish",
         "septets": 72, "parts": 1, "room": 83, "user_data_octets": 68, "parts_saved": 1,
         "octets_saved": 88}])"));
    EXPECT_NE(Qxpdu({"count", text})
                  .out.find("\nwith --replace --language tr GSM 7-bit, Turkish locking shift, 72 "
                            "septets, 1 part, room for 83 septets; saves 1 part\n"),
              std::string::npos);
    const json replaced = CountOf({"--replace", text});
    EXPECT_EQ(replaced["text"], text);
    EXPECT_FALSE(replaced["with_languages"][0].contains("replace")) << "it was asked for";
    EXPECT_EQ(replaced["with_languages"][0]["septets"], 72);
    EXPECT_EQ(CountOf({"--replace", "--language", "tr", text})["septets"], 72);
    EXPECT_FALSE(CountOf({"“a”"}).contains("with_languages")) << "near characters do it alone";
}

TEST(QxpduCount, LanguagesThatMayBeUsedAreWhereThatIsCheaper) {
    EXPECT_EQ(
        Qxpdu({"count", "--language", "tr", "Yarın şubemizde €"}),
        (Outcome{0,
                 "       goes out as GSM 7-bit, Turkish locking shift, 17 septets, 1 part, room for 138 "
                 "septets\n"
                 "     needs a table U+0131 LATIN SMALL LETTER DOTLESS I at 4\n"
                 "                   U+015F LATIN SMALL LETTER S WITH CEDILLA at 7\n"
                 "without --language UCS2, 17 characters, 1 part, room for 53 characters\n",
                 ""}));
    const json count = CountOf({"--language", "tr,es", "Yarın şubemizde €"});
    EXPECT_EQ(count["locking_shift"], "Turkish");
    EXPECT_FALSE(count.contains("single_shift"));
    EXPECT_FALSE(count.contains("two_septets")) << "the locking shift table has the euro sign";
    EXPECT_EQ(count["needs_table"][0], json::parse(R"({"code_point": "U+0131", "positions": [4],
        "name": "LATIN SMALL LETTER DOTLESS I", "languages": ["tr"]})"));
    EXPECT_EQ(count["without_languages"], json::parse(R"({
        "alphabet": "UCS2", "characters": 17, "parts": 1, "room": 53, "user_data_octets": 34})"));
    EXPECT_EQ(count["with_languages"].size(), 1U);
    const json other = CountOf({"--language", "hi", "Yarın şubemizde"});
    EXPECT_EQ(other["alphabet"], "UCS2");
    EXPECT_EQ(other["forces_ucs2"].size(), 2U);
    EXPECT_FALSE(other.contains("without_languages"));
    EXPECT_FALSE(other.contains("with_languages"));
    const json single = CountOf({"--language", "es", "recójalo mañana, está aquí"});
    EXPECT_EQ(single["single_shift"], "Spanish");
    EXPECT_EQ(single["two_septets"][0]["code_point"], "U+00E1");
}

TEST(QxpduCount, ListOfLanguagesIsChecked) {
    for (const char* const wrong : {"", "xx", "tr,", ",tr", "tr,,pt", "all,tr", "TR"})
        EXPECT_EQ(Qxpdu({"count", "--language", wrong, "a"}).status, 2) << wrong;
    EXPECT_EQ(CountOf({"--language", "all", Repeated("न", 71)})["locking_shift"], "Hindi");
}

TEST(QxpduCount, AlphabetMayBeGiven) {
    EXPECT_EQ(CountOf({"--alphabet", "ucs2", "a"})["alphabet"], "UCS2");
    EXPECT_EQ(CountOf({"--alphabet", "gsm", "a"})["alphabet"], "GSM 7-bit");
    EXPECT_EQ(CountOf({"--alphabet", "gsm", "--language", "tr", "ş"})["locking_shift"], "Turkish")
        << "though UCS2 is cheaper";
    const Outcome run = Qxpdu({"count", "--alphabet", "gsm", "aж"});
    EXPECT_EQ(run, (Outcome{1,
                            "      cannot go out U+0436 CYRILLIC SMALL LETTER ZHE at 2 is in no table that "
                            "may be used\n"
                            "in no table allowed U+0436 CYRILLIC SMALL LETTER ZHE at 2\n",
                            "qxpdu: argument 1: U+0436 CYRILLIC SMALL LETTER ZHE at 2 is in no table that "
                            "may be used\n"}));
    EXPECT_EQ(CountOf({"--alphabet", "gsm", "--replace", "“а”"})["error"],
              "U+0430 CYRILLIC SMALL LETTER A at 2 is in no table that may be used");
    EXPECT_NE(Qxpdu({"count", "--alphabet", "gsm", "ş"})
                  .out.find("with --language tr GSM 7-bit, Turkish locking shift, 1 septet, 1 part, room for "
                            "154 septets\n"),
              std::string::npos);
    EXPECT_EQ(Qxpdu({"count", "--alphabet", "8bit", "a"}).status, 2);
}

TEST(QxpduCount, MoreThan255PartsAreRefused) {
    EXPECT_EQ(Qxpdu({"count"}, Repeated("a", 255 * 153 + 1)),
              (Outcome{1, "cannot go out the text needs 256 parts, 255 at most\n",
                       "qxpdu: standard input: the text needs 256 parts, 255 at most\n"}));
    const Outcome run = Qxpdu({"count", "--lines", "--jsonl"}, Repeated("a", 20000) + "’\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "");
    const json forced = run.Json();
    EXPECT_EQ(forced["error"], "the text needs 299 parts, 255 at most");
    EXPECT_EQ(forced["forces_ucs2"][0]["positions"], json{20001});
    EXPECT_EQ(forced["replaced"]["parts"], 131);
}

TEST(QxpduCount, InvalidUtf8IsAnErrorThatNamesTheByte) {
    EXPECT_EQ(Qxpdu({"count", "a\xFF"}),
              (Outcome{1, "", "qxpdu: argument 1: byte 2 (0xFF) is not valid UTF-8\n"}));
}

TEST(QxpduCount, LinesAreTextsOfTheirOwnInTheirOrder) {
    const std::string lines = "{\"format\":2,\"line\":1,\"alphabet\":\"GSM 7-bit\",\"septets\":1,\"parts\":1,"
                              "\"room\":159,\"user_data_octets\":1}\n"
                              "{\"format\":2,\"line\":2,\"error\":\"byte 1 (0xFF) is not valid UTF-8\"}\n"
                              "{\"format\":2,\"line\":3,\"alphabet\":\"GSM 7-bit\",\"septets\":0,\"parts\":1,"
                              "\"room\":160,\"user_data_octets\":0}\n";
    EXPECT_EQ(Qxpdu({"count", "--lines", "--jsonl"}, "a\n\xFF\n\n"), (Outcome{1, lines, ""}));
    EXPECT_EQ(Qxpdu({"count", "--lines", "--jsonl", "-j", "4", "--line-buffered"}, "a\n\xFF\n\n"),
              (Outcome{1, lines, ""}));
    EXPECT_EQ(Qxpdu({"count", "--lines", "--no-progress"}, "a\nab\n"),
              (Outcome{0,
                       "goes out as GSM 7-bit, 1 septet, 1 part, room for 159 septets\n"
                       "\n"
                       "goes out as GSM 7-bit, 2 septets, 1 part, room for 158 septets\n",
                       ""}));
}

TEST(QxpduCount, OptionsOfEitherLibraryExcludeThoseOfTheOther) {
    EXPECT_EQ(Qxpdu({"count", "--greek", "α"}).err, "qxpdu: --greek requires --as\n"
                                                    "Usage: qxpdu count [OPTIONS] [TEXT]\n");
    for (const char* const option :
         {"--language=tr", "--alphabet=gsm", "--concat-bits=8", "--port=1", "--port-bits=8", "--replace"})
        EXPECT_EQ(Qxpdu({"count", "--as", "libQX_Encoding", option, "a"}).status, 2) << option;
    EXPECT_EQ(Qxpdu({"count", "--as", "libQX_Messages", "a"}).status, 2);
}

TEST(QxpduCount, SecondTextIsAWrongCommandLine) {
    EXPECT_EQ(Qxpdu({"count", "a", "b"}), (Outcome{2, "",
                                                   "qxpdu: The following argument was not expected: b\n"
                                                   "Usage: qxpdu count [OPTIONS] [TEXT]\n"}));
}

constexpr std::size_t c_texts = 300;

/// Lines of about as many characters as one, two or three parts take, all of which both libraries write
/// alike: no ç or Ç, which are one here and two there.
std::string RandomTexts() {
    const std::vector<std::string_view> characters = {"a", "Z", "0", " ", "@", "é", "Ω", "€", "{", "|",
                                                      "ş", "ж", "न", "—", "😀", "…", "á", "x", "y", "z"};
    std::mt19937 random(20261122); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same every time
    const auto below = [&](std::size_t bound) { return random() % bound; };
    std::string lines;
    const std::vector<std::size_t> bounds = {4, 70, 134, 160, 306};
    for (std::size_t i = 0; i < c_texts; ++i) {
        const std::size_t kinds = 1 + below(characters.size());
        for (std::size_t length = bounds[i % bounds.size()] - 3 + below(7); length != 0; --length)
            lines += characters[below(kinds)];
        lines += '\n';
    }
    return lines;
}

TEST(QxpduCount, BothLibrariesAgreeWhereNoCharacterIsCut) {
    const std::string texts = RandomTexts();
    const auto counted = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"count", "--lines", "--jsonl"});
        return JsonLines(Qxpdu(arguments, texts).out);
    };
    const auto standard = counted({});
    const auto host = counted({"--as", "libQX_Encoding"});
    ASSERT_EQ(standard.size(), c_texts);
    ASSERT_EQ(host.size(), c_texts);
    std::size_t agreed = 0;
    for (std::size_t i = 0; i < host.size(); ++i) {
        if (host[i].contains("cuts"))
            continue;
        ++agreed;
        for (const char* const member :
             {"alphabet", "septets", "characters", "parts", "room", "forces_ucs2", "two_septets"}) {
            json mine = standard[i].value(member, json());
            if (mine.is_array())
                for (json& character : mine)
                    character.erase("languages");
            EXPECT_EQ(mine, host[i].value(member, json())) << "line " << i + 1 << ": " << member;
        }
    }
    EXPECT_GT(agreed, 200U);
    EXPECT_LT(agreed, c_texts) << "none was cut";
}

} // namespace
