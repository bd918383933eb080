// Pages put together.
#include <gtest/gtest.h>

#include "Messages/Cell.h"

namespace {

using namespace Messages;

/// A page whose text is one letter, of message code 2.
CellReading Page(char letter, int number, int total, std::uint8_t update = 0, std::uint16_t identifier = 50) {
    const std::vector<std::uint8_t> octets = {0x40,
                                              static_cast<std::uint8_t>(0x20 | update),
                                              static_cast<std::uint8_t>(identifier >> 8),
                                              static_cast<std::uint8_t>(identifier & 0xFF),
                                              0x0F,
                                              static_cast<std::uint8_t>(number << 4 | total),
                                              static_cast<std::uint8_t>(letter)};
    return ReadCell(octets);
}

TEST(CellJoiner, JoinsPagesInAnyOrder) {
    CellJoiner joiner;
    EXPECT_FALSE(joiner.Take(Page('c', 3, 3)).complete);
    EXPECT_FALSE(joiner.Take(Page('a', 1, 3)).complete);
    const CellTaken taken = joiner.Take(Page('b', 2, 3));
    ASSERT_TRUE(taken.complete);
    EXPECT_EQ(taken.complete->Text(), "abc");
    EXPECT_TRUE(taken.complete->IsComplete());
    EXPECT_TRUE(taken.complete->Missing().empty());
    EXPECT_TRUE(taken.givenUp.empty());
    EXPECT_FALSE(joiner.TakeOldest());
}

TEST(CellJoiner, KnowsAPageThatComesAgain) {
    CellJoiner joiner;
    EXPECT_FALSE(joiner.Take(Page('a', 1, 2)).isDuplicate);
    EXPECT_TRUE(joiner.Take(Page('a', 1, 2)).isDuplicate);
    EXPECT_TRUE(joiner.Take(Page('b', 2, 2)).complete);
    const CellTaken again = joiner.Take(Page('a', 1, 2));
    EXPECT_TRUE(again.isDuplicate);
    EXPECT_FALSE(again.complete);
    EXPECT_FALSE(joiner.TakeOldest());
}

TEST(CellJoiner, ReplacesAnOlderUpdate) {
    CellJoiner joiner;
    joiner.Take(Page('a', 1, 2, 15));
    const CellTaken taken = joiner.Take(Page('x', 1, 2, 0)); // goes around
    ASSERT_EQ(taken.givenUp.size(), 1U);
    EXPECT_EQ(taken.givenUp[0].Text(), "a");
    EXPECT_EQ(taken.givenUp[0].Missing(), (std::vector<std::uint8_t>{2}));
    EXPECT_EQ(joiner.Take(Page('y', 2, 2, 0)).complete->Text(), "xy");
    EXPECT_TRUE(joiner.Take(Page('n', 1, 1, 8)).complete) << "eight numbers on is newer";
}

TEST(CellJoiner, GivesUpAPageOfAnOlderUpdateByItself) {
    CellJoiner joiner;
    joiner.Take(Page('x', 1, 2, 9));
    for (const int update : {8, 2}) {
        const CellTaken taken = joiner.Take(Page('a', 2, 2, static_cast<std::uint8_t>(update)));
        ASSERT_EQ(taken.givenUp.size(), 1U);
        EXPECT_EQ(taken.givenUp[0].Text(), "a");
        EXPECT_FALSE(taken.complete);
    }
    EXPECT_EQ(joiner.Take(Page('y', 2, 2, 9)).complete->Text(), "xy");
}

TEST(CellJoiner, ForgetsACompleteMessageWithANewerUpdate) {
    CellJoiner joiner;
    joiner.Take(Page('a', 1, 1, 1));
    const CellTaken taken = joiner.Take(Page('b', 1, 1, 2));
    EXPECT_TRUE(taken.givenUp.empty());
    EXPECT_EQ(taken.complete->Text(), "b");
}

TEST(CellJoiner, BeginsANewMessageWithOtherOctetsOrAnotherNumberOfPages) {
    CellJoiner joiner;
    joiner.Take(Page('a', 1, 2));
    EXPECT_EQ(joiner.Take(Page('b', 1, 2)).givenUp.at(0).Text(), "a");
    EXPECT_EQ(joiner.Take(Page('c', 2, 3)).givenUp.at(0).Text(), "b");
    EXPECT_EQ(joiner.TakeOldest()->Text(), "c");
}

TEST(CellJoiner, KeepsMessagesOfOtherIdentifiersApart) {
    CellJoiner joiner;
    joiner.Take(Page('a', 1, 2, 0, 50));
    EXPECT_TRUE(joiner.Take(Page('x', 1, 2, 0, 51)).givenUp.empty());
    EXPECT_EQ(joiner.Take(Page('b', 2, 2, 0, 50)).complete->Text(), "ab");
}

TEST(CellJoiner, KeepsMessagesOfOtherScopesAndCodesApart) {
    CellJoiner joiner;
    joiner.Take(ReadCellHex("402000320F12"
                            "61"));
    EXPECT_TRUE(joiner
                    .Take(ReadCellHex("802000320F22"
                                      "62"))
                    .givenUp.empty());
    EXPECT_TRUE(joiner
                    .Take(ReadCellHex("403000320F22"
                                      "63"))
                    .givenUp.empty());
    EXPECT_EQ(joiner
                  .Take(ReadCellHex("402000320F22"
                                    "64"))
                  .complete->Text(),
              "ad");
}

TEST(CellJoiner, BeginsANewMessageWithAnotherCoding) {
    CellJoiner joiner;
    joiner.Take(ReadCellHex("402000320F12"
                            "61"));
    EXPECT_EQ(joiner
                  .Take(ReadCellHex("402000320112"
                                    "62"))
                  .givenUp.at(0)
                  .Text(),
              "a");
    EXPECT_EQ(joiner.TakeOldest()->Text(), "b");
}

TEST(CellJoiner, GivesUpTheOldestToMakeRoom) {
    CellJoiner joiner(2);
    joiner.Take(Page('a', 1, 2, 0, 1));
    joiner.Take(Page('b', 1, 2, 0, 2));
    const CellTaken taken = joiner.Take(Page('c', 1, 2, 0, 3));
    ASSERT_EQ(taken.givenUp.size(), 1U);
    EXPECT_EQ(taken.givenUp[0].Text(), "a");
    EXPECT_EQ(joiner.TakeOldest()->Text(), "b");
    EXPECT_EQ(joiner.TakeOldest()->Text(), "c");
    EXPECT_FALSE(joiner.TakeOldest());
}

TEST(CellJoiner, ForgetsCompleteMessagesBeforeItGivesUpOthers) {
    CellJoiner joiner(2);
    joiner.Take(Page('a', 1, 2, 0, 1));
    joiner.Take(Page('b', 1, 1, 0, 2));
    EXPECT_TRUE(joiner.Take(Page('c', 1, 2, 0, 3)).givenUp.empty());
    EXPECT_FALSE(joiner.Take(Page('b', 1, 1, 0, 2)).isDuplicate);
}

TEST(CellJoiner, GivesUpAPageBeyondTheTotal) {
    CellJoiner joiner;
    const CellTaken taken = joiner.Take(Page('a', 3, 2));
    ASSERT_EQ(taken.givenUp.size(), 1U);
    EXPECT_EQ(taken.givenUp[0].Text(), "a");
    EXPECT_FALSE(joiner.TakeOldest());
    const CellTaken second = joiner.Take(Page('a', 2, 1));
    ASSERT_EQ(second.givenUp.size(), 1U);
    EXPECT_FALSE(second.givenUp[0].IsComplete()) << "page 1 is missing";
}

TEST(CellJoiner, TakesAMessageWhole) {
    CellJoiner joiner;
    const std::string rest(160, '0');
    const CellTaken taken =
        joiner.Take(ReadCellHex("01003240200F02" + ("C834" + rest + "02") + ("21" + rest + "0001")));
    EXPECT_EQ(taken.complete->Text(), "Hi!");
}

/// A page of septets, each below 128.
CellReading SeptetsPage(const std::vector<std::uint8_t>& septets, int number, int total) {
    std::vector<std::uint8_t> octets = {0x40, 0x20, 0x00,
                                        0x32, 0x0F, static_cast<std::uint8_t>(number << 4 | total)};
    const std::size_t head = octets.size();
    octets.resize(head + septets.size());
    octets.resize(head + PackSeptets(septets, 0, octets.data() + head));
    return ReadCell(octets);
}

constexpr std::uint8_t c_euro = 0x65; ///< after an escape; "e" by itself
constexpr std::uint8_t c_escape = c_escapeSeptet;

TEST(CellJoiner, LeavesTheSpaceOfTwoEscapes) {
    CellJoiner joiner;
    joiner.Take(SeptetsPage({'a', 'b', 'c', 'd', 'e', 'f', c_escape, c_escape}, 1, 2));
    EXPECT_EQ(joiner.Take(SeptetsPage({c_escape, c_euro}, 2, 2)).complete->Text(), "abcdef €");
}

TEST(CellJoiner, JoinsNothingAcrossAMissingPage) {
    CellJoiner septets;
    septets.Take(SeptetsPage({'a', 'b', 'c', 'd', 'e', 'f', 'g', c_escape}, 1, 3));
    septets.Take(SeptetsPage({c_euro}, 3, 3));
    EXPECT_EQ(septets.TakeOldest()->Text(), "abcdefge");
    CellJoiner units;
    units.Take(ReadCellHex("402000324813D83D"));
    units.Take(ReadCellHex("402000324833DE00"));
    EXPECT_EQ(units.TakeOldest()->Text(), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(CellJoiner, TakesNoCharacterForALanguageThatTheFirstPageDoesNotHave) {
    // U+6137 looks like "an" in septets, and U+0D0A, a letter of Malayalam, like a line break; ja is EA30.
    const std::string first = "402000321113EA305730";
    const std::string letters = "40200032112361379707";
    const std::string language = "402000321133EA300D05";
    CellJoiner joiner;
    EXPECT_EQ(joiner.Take(ReadCellHex(letters)).givenUp.size(), 0U);
    joiner.Take(ReadCellHex(first));
    const CellTaken taken = joiner.Take(ReadCellHex(language));
    ASSERT_TRUE(taken.complete);
    EXPECT_EQ(taken.complete->Text(), "\u5730\u6137\u9707\u0D05");
    EXPECT_EQ(taken.complete->pages[1].language, "");
    EXPECT_EQ(taken.complete->pages[1].text, "\u6137\u9707");
    EXPECT_EQ(taken.complete->pages[2].language, "ja");
    EXPECT_TRUE(joiner.Take(ReadCellHex(letters)).isDuplicate);

    CellJoiner other;
    other.Take(ReadCellHex("402000321112EA305730"));
    EXPECT_EQ(other.Take(ReadCellHex("4020003211220D0A0D05")).complete->Text(), "\u5730\u0D0A\u0D05");
    CellJoiner breaks;
    breaks.Take(ReadCellHex("4020003211120D0A5730"));
    EXPECT_EQ(breaks.Take(ReadCellHex("4020003211220D0A9707")).complete->Text(), "\u5730\u9707");
    CellJoiner none;
    none.Take(ReadCellHex("4020003211125730"));
    EXPECT_EQ(none.Take(ReadCellHex("402000321122613730")).complete->Text(), "\u5730\u6137");
    CellJoiner waiting;
    waiting.Take(ReadCellHex(letters));
    waiting.Take(ReadCellHex(language));
    EXPECT_EQ(waiting.TakeOldest()->Text(), "\u9707\u0D05") << "the first page has not come";
}

TEST(CellJoiner, LeavesTheLanguagesOfSeptets) {
    // "en", a return, "a"; "fr", a return, "b".
    CellJoiner joiner;
    joiner.Take(ReadCellHex("4020003210126577230C"));
    const CellTaken taken = joiner.Take(ReadCellHex("4020003210226679430C"));
    ASSERT_TRUE(taken.complete);
    EXPECT_EQ(taken.complete->pages[1].language, "fr");
}

TEST(CellJoiner, TakesAPageWithOtherPaddingForTheSame) {
    CellJoiner joiner;
    joiner.Take(ReadCellHex("402000320F12C834"));
    EXPECT_TRUE(joiner.Take(ReadCellHex("402000320F12C874A3D168341A")).isDuplicate) << "returns";
    EXPECT_TRUE(joiner.Take(ReadCellHex("402000320F12C83400000000000000")).isDuplicate) << "zeros";
    EXPECT_FALSE(joiner.Take(ReadCellHex("402000320F12C974A3D168341A")).isDuplicate) << "first bit";
    joiner.Take(ReadCellHex("402000320F12C834"));
    EXPECT_FALSE(joiner.Take(ReadCellHex("402000320F12C854A3D168341A")).isDuplicate) << "last bit";
    EXPECT_FALSE(joiner.Take(ReadCellHex("402000320F12C8B40D")).isDuplicate) << "a character more";
    joiner.Take(ReadCellHex("402000334812"
                            "0416"));
    EXPECT_TRUE(joiner.Take(ReadCellHex("4020003348120416000D0000")).isDuplicate);
    EXPECT_FALSE(joiner.Take(ReadCellHex("4020003348120417000D")).isDuplicate);
    joiner.Take(ReadCellHex("402000344412"
                            "0D0D"));
    EXPECT_FALSE(joiner.Take(ReadCellHex("4020003444120D0D0D")).isDuplicate) << "data is not padded";
}

const std::string c_slotFilling(160, '0'); // NOLINT(cert-err58-cpp)

TEST(CellJoiner, WaitsForThePageThatAMessageEndsIn) {
    CellJoiner joiner;
    const std::string head = "01003240200F02C834" + c_slotFilling + "02";
    const CellReading cut = ReadCellHex(head + "21", CellFormat::UmtsMessage);
    EXPECT_FALSE(cut.pages[0].isCut);
    EXPECT_TRUE(cut.pages[1].isCut);
    EXPECT_FALSE(joiner.Take(cut).complete);
    EXPECT_TRUE(joiner.Take(cut).isDuplicate);
    const CellTaken whole = joiner.Take(ReadCellHex(head + "2110" + c_slotFilling + "02"));
    ASSERT_TRUE(whole.complete);
    EXPECT_EQ(whole.complete->Text(), "Hi! ");
    EXPECT_TRUE(whole.givenUp.empty());
    EXPECT_TRUE(joiner.Take(cut).isDuplicate) << "the whole page has come";
    EXPECT_FALSE(joiner.TakeOldest());
}

TEST(CellJoiner, GivesUpTheMessageOfACutPageAsIncomplete) {
    CellJoiner joiner;
    joiner.Take(ReadCellHex("01003240200F01" + std::string("C834") + c_slotFilling, CellFormat::UmtsMessage));
    const auto message = joiner.TakeOldest();
    ASSERT_TRUE(message);
    EXPECT_FALSE(message->IsComplete());
    EXPECT_EQ(message->Missing(), (std::vector<std::uint8_t>{1}));
    EXPECT_EQ(message->Text(), "Hi");
}

TEST(CellJoiner, JoinsNothingToACutPage) {
    // Half of a character at the end of the first page, the other half at the beginning of the second one.
    CellMessage message;
    message.coding = CellCoding(0x48);
    message.pages = {ReadCellHex("402000324812D83D").pages[0], ReadCellHex("402000324822DEA8").pages[0]};
    EXPECT_EQ(message.Text(), "\xF0\x9F\x9A\xA8");
    message.pages[0].isCut = true;
    EXPECT_EQ(message.Text(), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(CellPage, IsComparedWithinItsOctets) {
    CellPage page;
    page.octets = {0xC8};
    page.textUnits = 93;
    EXPECT_TRUE(page.IsSameAs(page, CellCoding()));
    CellPage other = page;
    other.octets = {0xC9};
    EXPECT_FALSE(page.IsSameAs(other, CellCoding()));
    other = page;
    other.number = 2;
    EXPECT_FALSE(page.IsSameAs(other, CellCoding()));
}

TEST(CellJoiner, PassesOverNotificationsAndFaults) {
    CellJoiner joiner;
    EXPECT_FALSE(joiner.Take(ReadCellHex("300011000180", CellFormat::EtwsNotification)).complete);
    EXPECT_FALSE(joiner.Take(ReadCellHex("4020")).complete);
    EXPECT_FALSE(joiner.TakeOldest());
}

} // namespace
