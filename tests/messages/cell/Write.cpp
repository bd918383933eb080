// Pages written. What is expected was worked out from the layouts; what is long is read back.
#include <random>

#include <gtest/gtest.h>

#include "Messages/Cell.h"

namespace {

using namespace Messages;

CellDraft Draft(const std::string& text, const std::string& language = {},
                CellFormat format = CellFormat::GsmPage) {
    CellDraft draft;
    draft.format = format;
    draft.serialNumber = {0x4020};
    draft.messageIdentifier = 4370;
    draft.text = text;
    draft.language = language;
    return draft;
}

std::string Hex(const CellWritten& written, std::size_t i = 0) {
    return ToHex(written.octets.at(i));
}

std::string ReadBack(const CellWritten& written) {
    CellJoiner joiner;
    std::string text;
    for (const auto& octets : written.octets)
        if (const CellTaken taken = joiner.Take(ReadCell(octets)); taken.complete)
            text = taken.complete->Text();
    return text;
}

std::string Repeated(std::string_view text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}

TEST(WriteCell, PadsAPageOfSeptetsWithReturns) {
    // 48 69, then 91 times 0D: eight of them are 8D 46 A3 D1 68 34 1A.
    const CellWritten written = WriteCell(Draft("Hi", "en"));
    ASSERT_EQ(written.fault, CellDraftFault::None);
    EXPECT_EQ(written.pages, 1U);
    EXPECT_EQ(Hex(written).substr(0, 26), "402011120111C874A3D168341A");
    EXPECT_EQ(Hex(written).substr(26, 14), "8D46A3D168341A") << "the same septets, two bits further on";
    EXPECT_EQ(written.octets[0].size(), 88U);
    EXPECT_EQ(ReadBack(written), "Hi");
}

TEST(WriteCell, PadsAPageOfUnitsWithReturns) {
    EXPECT_EQ(Hex(WriteCell(Draft("\xD0\x96"))), "402011124811"
                                                 "0416" +
                                                     Repeated("000D", 40));
}

TEST(WriteCell, NamesTheLanguageByTheCodingOrInTheText) {
    EXPECT_EQ(WriteCell(Draft("Hi", "de")).coding.value, 0x00);
    EXPECT_EQ(WriteCell(Draft("Hi", "is")).coding.value, 0x24);
    // 75 6B 0D 48 69 in septets.
    const CellWritten septets = WriteCell(Draft("Hi", "uk"));
    EXPECT_EQ(Hex(septets).substr(0, 18), "402011121011"
                                          "F57503");
    // 75 6B in 14 bits.
    const CellWritten units = WriteCell(Draft("\xD0\x96", "uk"));
    EXPECT_EQ(Hex(units), "402011121111"
                          "F535"
                          "0416" +
                              Repeated("000D", 39));
}

TEST(WriteCell, TakesAClass) {
    CellDraft draft = Draft("Hi");
    draft.messageClass = 1;
    EXPECT_EQ(WriteCell(draft).coding.value, 0x51);
    draft.text = "\xD0\x96";
    EXPECT_EQ(WriteCell(draft).coding.value, 0x59);
}

TEST(WriteCell, TakesAnAlphabet) {
    CellDraft draft = Draft("Hi");
    draft.alphabet = Alphabet::Ucs2;
    EXPECT_EQ(WriteCell(draft).coding.alphabet, Alphabet::Ucs2);
    draft.alphabet = Alphabet::Gsm7;
    EXPECT_EQ(WriteCell(draft).coding.value, 0x0F);
}

TEST(WriteCell, SaysHowManyOctetsOfAMessageAreUsed) {
    const std::string zeros(2 * 80, '0');
    EXPECT_EQ(Hex(WriteCell(Draft("Hi", {}, CellFormat::UmtsMessage))), "01111240200F01"
                                                                        "C834" +
                                                                            zeros + "02");
    EXPECT_EQ(Hex(WriteCell(Draft("\xD0\x96", {}, CellFormat::UmtsMessage))), "01111240204801"
                                                                              "0416" +
                                                                                  zeros + "02");
}

TEST(WriteCell, LeavesNoWholeSeptetAfterTheTextOfAMessage) {
    // Seven septets take seven octets, whose last bits would be an eighth one: a return stands there.
    const CellWritten written = WriteCell(Draft("aaaaaaa", {}, CellFormat::UmtsMessage));
    EXPECT_EQ(Hex(written).substr(14, 14), "E170381C0E871B");
    EXPECT_EQ(written.octets[0].back(), 7);
    EXPECT_EQ(ReadBack(written), "aaaaaaa");
}

TEST(WriteCell, PadsAMessageThatEndsInAnAtSign) {
    const CellWritten written = WriteCell(Draft("a@", {}, CellFormat::UmtsMessage));
    EXPECT_EQ(written.octets[0].back(), 3);
    EXPECT_TRUE(ReadCell(written.octets[0]).remarks.empty());
    EXPECT_EQ(ReadBack(written), "a@");
    const std::string seven = "aaaaa@"; // and the return, which would leave a whole septet of filling
    EXPECT_EQ(ReadBack(WriteCell(Draft(seven, {}, CellFormat::UmtsMessage))), seven);
}

TEST(WriteCell, WritesAPageForNoText) {
    const CellWritten page = WriteCell(Draft(""));
    EXPECT_EQ(page.pages, 1U);
    EXPECT_EQ(ReadCell(page.octets[0]).text, "");
    const CellWritten message = WriteCell(Draft("", {}, CellFormat::UmtsMessage));
    EXPECT_EQ(message.octets[0].back(), 1);
    CellDraft units = Draft("", {}, CellFormat::UmtsMessage);
    units.alphabet = Alphabet::Ucs2;
    EXPECT_EQ(WriteCell(units).octets[0].back(), 2);
}

TEST(WriteCell, FillsPagesFromTheFront) {
    const struct {
        const char* character;
        const char* language;
        std::size_t room;
    } cases[] = {{"x", "en", 93}, {"x", "uk", 90}, {"\xD0\x96", "", 41}, {"\xD0\x96", "uk", 40}};
    for (const auto& one : cases)
        for (const CellFormat format : {CellFormat::GsmPage, CellFormat::UmtsMessage}) {
            EXPECT_EQ(WriteCell(Draft(Repeated(one.character, one.room), one.language, format)).pages, 1U);
            const std::string text = Repeated(one.character, one.room + 1);
            const CellWritten written = WriteCell(Draft(text, one.language, format));
            EXPECT_EQ(written.pages, 2U);
            EXPECT_EQ(ReadBack(written), text);
            EXPECT_EQ(WriteCell(Draft(Repeated(one.character, 15 * one.room), one.language, format)).pages,
                      15U);
            EXPECT_EQ(
                WriteCell(Draft(Repeated(one.character, 15 * one.room + 1), one.language, format)).fault,
                CellDraftFault::TooLong);
        }
}

TEST(WriteCell, CutsNoPair) {
    for (const CellFormat format : {CellFormat::GsmPage, CellFormat::UmtsMessage}) {
        const std::string euro = Repeated("x", 92) + "\xE2\x82\xAC";
        const CellWritten septets = WriteCell(Draft(euro, "en", format));
        EXPECT_EQ(septets.pages, 2U);
        EXPECT_EQ(ReadBack(septets), euro);
        const std::string siren = Repeated("\xD0\x96", 40) + "\xF0\x9F\x9A\xA8";
        EXPECT_EQ(ReadBack(WriteCell(Draft(siren, {}, format))), siren);
    }
    const CellWritten written = WriteCell(Draft(Repeated("x", 92) + "\xE2\x82\xAC"));
    EXPECT_EQ(ReadCell(written.octets[0]).text, Repeated("x", 92));
    EXPECT_EQ(ReadCell(written.octets[1]).text, "\xE2\x82\xAC");
}

TEST(WriteCell, LosesNothingThatLooksLikePadding) {
    for (const CellFormat format : {CellFormat::GsmPage, CellFormat::UmtsMessage})
        for (const std::string& text :
             {Repeated("x", 91) + "\r\r\ry", Repeated("x", 85) + Repeated("@", 10), Repeated("@", 93),
              Repeated("\xD0\x96", 40) + "\r\ry", Repeated("\xD0\x96", 40) + std::string(1, '\0') + "y"})
            EXPECT_EQ(ReadBack(WriteCell(Draft(text, {}, format))), text);
    // Zeros in UCS2 are padding before the end of the text alone, and take no page of their own.
    EXPECT_EQ(WriteCell(Draft(Repeated("\xD0\x96", 40) + std::string(1, '\0'))).pages, 1U);
    // A text of more returns than a page holds is cut all the same.
    EXPECT_EQ(WriteCell(Draft(Repeated("\r", 94) + "x")).pages, 2U);
}

TEST(WriteCell, LosesNoReturnBeforeAnAtSign) {
    // 91 characters, a return and an at sign: the page ends before both, as the return would be padding.
    const std::string full = Repeated("x", 91) + "\r@";
    const CellWritten written = WriteCell(Draft(full));
    ASSERT_EQ(written.pages, 2U);
    EXPECT_EQ(ReadCell(written.octets[0]).text, Repeated("x", 91));
    EXPECT_EQ(ReadCell(written.octets[1]).text, "\r@");
    for (const CellFormat format : {CellFormat::GsmPage, CellFormat::UmtsMessage})
        for (const std::string& text :
             {full, Repeated("x", 92) + "@", Repeated("x", 90) + "\r@y", std::string("a\r@"),
              std::string("a\r\r@@"), std::string("aaaaa\r@"), Repeated("x", 89) + "\r@\r@"})
            EXPECT_EQ(ReadBack(WriteCell(Draft(text, {}, format))), text);
}

TEST(WriteCell, LosesNoAtSignAfterAPageOfReturns) {
    for (const CellFormat format : {CellFormat::GsmPage, CellFormat::UmtsMessage}) {
        // The at sign begins the second page, as no return can follow it on the first.
        const CellWritten written = WriteCell(Draft(Repeated("\r", 92) + "@", {}, format));
        EXPECT_EQ(written.pages, 2U);
        EXPECT_EQ(ReadBack(written), "@");
        EXPECT_EQ(ReadBack(WriteCell(Draft(Repeated("\r", 89) + "@x", "uk", format))), "@x");
        EXPECT_EQ(ReadBack(WriteCell(Draft(Repeated("\r", 91) + "@", {}, format))), Repeated("\r", 91) + "@");
    }
    const CellWritten message = WriteCell(Draft(Repeated("\r", 92) + "@", {}, CellFormat::UmtsMessage));
    ASSERT_EQ(message.octets[0].size(), 7U + 2 * 83U);
    EXPECT_EQ(message.octets[0][7 + 82], 81) << "92 septets";
}

TEST(WriteCell, LosesNothingButReturnsAtTheEndOfTheText) {
    const std::vector<std::string> characters = {"@", "@", "\r", "x", "\xE2\x82\xAC"};
    std::mt19937 random(20261122); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same every time
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (auto length = random() % 200; length != 0; --length)
            text += characters[random() % characters.size()];
        const CellFormat format = random() % 2 == 0 ? CellFormat::GsmPage : CellFormat::UmtsMessage;
        const std::string back = ReadBack(WriteCell(Draft(text, random() % 2 == 0 ? "uk" : "", format)));
        text.erase(text.find_last_not_of('\r') + 1);
        ASSERT_EQ(back, text);
    }
}

TEST(WriteCell, SaysWhichCharacterDoesNotFit) {
    CellDraft draft = Draft("ab\xD0\x96\xD0\x97");
    draft.alphabet = Alphabet::Gsm7;
    const CellWritten lacking = WriteCell(draft);
    ASSERT_TRUE(lacking.misfit);
    EXPECT_EQ(lacking.misfit->offset, 2U);
    EXPECT_EQ(lacking.misfit->character, U'\u0416');
    const CellWritten broken = WriteCell(Draft("ab\xD0\x96\xC3"));
    ASSERT_TRUE(broken.misfit);
    EXPECT_EQ(broken.misfit->offset, 4U);
    EXPECT_EQ(broken.misfit->character, c_notUtf8);
    EXPECT_FALSE(WriteCell(Draft("\xD0\x96")).misfit);
    EXPECT_FALSE(WriteCell(Draft("Hi", "d")).misfit);
}

TEST(WriteCell, SaysWhyADraftCannotBeSent) {
    EXPECT_EQ(WriteCell(Draft("\xC3")).fault, CellDraftFault::NotUtf8);
    CellDraft draft = Draft("\xC3");
    draft.alphabet = Alphabet::Ucs2;
    EXPECT_EQ(WriteCell(draft).fault, CellDraftFault::NotUtf8);
    draft = Draft("\xD0\x96");
    draft.alphabet = Alphabet::Gsm7;
    EXPECT_EQ(WriteCell(draft).fault, CellDraftFault::NotInAlphabet);
    draft.alphabet = Alphabet::Data;
    EXPECT_EQ(WriteCell(draft).fault, CellDraftFault::NoSuchAlphabet);
    for (const char* language : {"d", "deu", "DE", "d`", "{e"})
        EXPECT_EQ(WriteCell(Draft("Hi", language)).fault, CellDraftFault::NoSuchLanguage) << language;
    draft = Draft("Hi", "de");
    draft.messageClass = 0;
    EXPECT_EQ(WriteCell(draft).fault, CellDraftFault::LanguageAndClass);
    draft.messageClass = 4;
    EXPECT_EQ(WriteCell(draft).fault, CellDraftFault::NoSuchClass);
    EXPECT_EQ(WriteCell(Draft("Hi", {}, CellFormat::EtwsNotification)).fault, CellDraftFault::NoSuchFormat);
    EXPECT_EQ(WriteCell(Draft("Hi", {}, CellFormat::Unknown)).fault, CellDraftFault::NoSuchFormat);
    EXPECT_TRUE(WriteCell(Draft("\xC3")).octets.empty());
}

} // namespace
