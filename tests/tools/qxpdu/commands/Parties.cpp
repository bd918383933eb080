// qxpdu encode --to, --from, --smsc
#include <gtest/gtest.h>

#include "tools/qxpdu/RunTool.h"

namespace {

using tests::Outcome;
using tests::Qxpdu;

TEST(QxpduParties, NumberIsWrittenWithItsType) {
    struct Row {
        const char* number;
        const char* address;
    };
    const Row rows[] = {
        {"+4179123", "0791149721F3"},
        {"4179123", "0781149721F3"},
        {"+41-79.12/3", "0791149721F3"},
        {"*100#", "0581"
                  "1A00FB"},
        {"1a2b3c", "0681"
                   "C1D2E3"},
        {"(0)1", "028110"},
        {" +1 2", "029121"},
        {"12345678901234567890", "148121436587092143658709"},
    };
    for (const Row& row : rows) {
        const Outcome run = Qxpdu({"encode", "--to", row.number, "a"});
        EXPECT_EQ(run.out, "000100" + std::string(row.address) + "00000161\n") << row.number;
    }
}

TEST(QxpduParties, WhatIsNoNumberIsAnErrorThatShowsTheCharacter) {
    struct Row {
        const char* number;
        const char* error;
    };
    const Row rows[] = {
        {"+4179+123", "character 6, '+', is no digit of a number"},
        {"0o79", "character 2, 'o', is no digit of a number"},
        {"1A", "character 2, 'A', is no digit of a number"},
        {"1d", "character 2, 'd', is no digit of a number"},
        {"１２", "character 1, '１', is no digit of a number"},
        {"(é)1", "character 2, 'é', is no digit of a number"},
        {"1\t2", "character 2, 0x09, is no digit of a number"},
        {"+4179\xFB"
         "123",
         "character 6, 0xFB, is no digit of a number"},
        {"[1]", "character 1, '[', is no digit of a number"},
        {"1,2", "character 2, ',', is no digit of a number"},
        {"", "a number without digits"},
        {"+", "a number without digits"},
        {"()", "a number without digits"},
        {"123456789012345678901", "21 digits, 20 at most"},
    };
    for (const Row& row : rows) {
        for (const std::string option : {"--to", "--smsc"}) {
            const Outcome wrong{
                2, "", "qxpdu: " + option + ": " + row.error + "\nUsage: qxpdu encode [OPTIONS] [TEXT]\n"};
            EXPECT_EQ(Qxpdu({"encode", option, row.number, "a"}), wrong);
            EXPECT_EQ(Qxpdu({"encode", "--as", "libQX_Encoding", option, row.number, "a"}), wrong);
        }
    }
}

TEST(QxpduParties, SenderMayBeAName) {
    struct Row {
        const char* party;
        const char* address;
    };
    const Row rows[] = {
        {"+41", "029114"},
        {"41 79", "04811497"},
        {"ACME", "07D0C161B308"},
        {"abc", "06D0"
                "61F118"}, // letters are those of a name
        {"1a", "04D0"
               "B130"},
        {"é", "02D0"
              "05"},
        {"ABCDEFGHIJK", "14D0"
                        "41E19058341E9149E512"},
    };
    for (const Row& row : rows) {
        const Outcome run = Qxpdu(
            {"encode", "--type", "deliver", "--from", row.party, "--time", "2026-11-22T13:00:05Z", "a"});
        EXPECT_EQ(run.out, "0004" + std::string(row.address) +
                               "000062112231005000"
                               "0161\n")
            << row.party;
    }
}

TEST(QxpduParties, SenderWhoseSeparatorsStayBehindIsAWarning) {
    const auto from = [](const std::string& party) {
        return Qxpdu({"encode", "--type", "deliver", "--from", party, "a"}).err;
    };
    EXPECT_EQ(from("+41 79"), "qxpdu: --from: warning: '+41 79' goes out as +4179\n");
    EXPECT_EQ(from("+4179"), "");
    EXPECT_EQ(from("A C"), "") << "a name has blanks";
}

TEST(QxpduParties, NameHasElevenCharactersOfTheDefaultAlphabetAtMost) {
    const auto from = [](const std::string& party) {
        return Qxpdu({"encode", "--type", "deliver", "--from", party, "a"});
    };
    const auto wrong = [](const std::string& error) {
        return Outcome{2, "", "qxpdu: --from: " + error + "\nUsage: qxpdu encode [OPTIONS] [TEXT]\n"};
    };
    EXPECT_EQ(from("ABCDEFGHIJK").status, 0);
    EXPECT_EQ(from("ABCDEFGHIJ€"), wrong("a name of 12 septets, 11 at most"));
    EXPECT_EQ(from("ABCDEFGHIJKL"), wrong("a name of 12 septets, 11 at most"));
    EXPECT_EQ(from("Bänk中"),
              wrong("character 5, '中', is not in the default alphabet, which names are written in"));
    EXPECT_EQ(from("+41x"), wrong("character 4, 'x', is no digit of a number"));
    EXPECT_EQ(from(""), wrong("a number without digits"));
    EXPECT_EQ(from("A\xFF"),
              wrong("character 2, 0xFF, is not in the default alphabet, which names are written in"));
}

} // namespace
