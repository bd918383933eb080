// The words of cell broadcast.
#include <gtest/gtest.h>

#include "Messages/Cell.h"
#include "Messages/Words.h"

namespace {

using namespace Messages;

TEST(CellNames, Formats) {
    EXPECT_EQ(NameOf(CellFormat::Unknown), "");
    EXPECT_EQ(NameOf(CellFormat::GsmPage), "GSM page");
    EXPECT_EQ(NameOf(CellFormat::UmtsMessage), "UMTS message");
    EXPECT_EQ(NameOf(CellFormat::EtwsNotification), "ETWS primary notification");
}

TEST(CellNames, Scopes) {
    EXPECT_EQ(MeaningOf(GeographicalScope::ImmediateCell), "cell wide, displayed at once");
    EXPECT_EQ(MeaningOf(GeographicalScope::Network), "network wide");
    EXPECT_EQ(MeaningOf(GeographicalScope::Area), "area wide");
    EXPECT_EQ(MeaningOf(GeographicalScope::Cell), "cell wide");
}

TEST(CellNames, MessageIdentifiers) {
    const struct {
        std::uint16_t identifier;
        const char* meaning;
    } cases[] = {{0, "assigned by the GSM Association"},
                 {1000, "LCS E-OTD assistance data"},
                 {4095, "not assigned"},
                 {4096, "(U)SIM data download"},
                 {4352, "ETWS earthquake"},
                 {4370, "CMAS presidential, EU-Alert level 1"},
                 {4379, "CMAS child abduction (AMBER), EU-Amber"},
                 {4398, "CMAS local test, EU-Test"},
                 {4402, "ePWS without ETWS earthquake"},
                 {6400, "PWS information, local language, EU-Info"},
                 {40960, "operator specific"},
                 {45056, "operator not assigned"},
                 {65535, "reserved, a (U)SIM's mark for an empty entry"}};
    for (const auto& one : cases)
        EXPECT_EQ(MeaningOfMessageIdentifier(one.identifier), one.meaning) << one.identifier;
}

TEST(CellNames, SerialNumbers) {
    EXPECT_EQ(MeaningOf(SerialNumber{0x4023}, 50), "scope 1: network wide, message code 2, update number 3");
    EXPECT_EQ(
        MeaningOf(SerialNumber{0x3000}, 4352),
        "scope 0: cell wide, displayed at once, message code 768, update number 0, emergency user alert, "
        "popup");
    EXPECT_EQ(MeaningOf(SerialNumber{0x1000}, 4352),
              "scope 0: cell wide, displayed at once, message code 256, update number 0, popup");
}

TEST(CellNames, DataCodings) {
    const struct {
        std::uint8_t dcs;
        const char* meaning;
    } cases[] = {{0x00, "GSM 7-bit, German"},
                 {0x0F, "GSM 7-bit, language unspecified"},
                 {0x10, "GSM 7-bit, language before the text"},
                 {0x11, "UCS2, language before the text"},
                 {0x12, "GSM 7-bit, reserved"},
                 {0x24, "GSM 7-bit, Icelandic"},
                 {0x48, "UCS2"},
                 {0x50, "GSM 7-bit, class 0: immediate display"},
                 {0x64, "8-bit data, compressed"},
                 {0x91, "GSM 7-bit, user-data header, class 1: mobile equipment"},
                 {0xD0, "no text, I1 protocol message"},
                 {0xE0, "no text, laid down by the WAP Forum"},
                 {0xF1, "GSM 7-bit, class 1: user defined 1"}};
    for (const auto& one : cases)
        EXPECT_EQ(MeaningOf(CellCoding(one.dcs)), one.meaning) << int{one.dcs};
}

TEST(CellNames, WarningTypes) {
    EXPECT_EQ(NameOfWarningType(0), "earthquake");
    EXPECT_EQ(NameOfWarningType(4), "other");
    EXPECT_EQ(NameOfWarningType(5), "reserved");
    EXPECT_EQ(NameOfWarningType(127), "reserved");
}

TEST(CellNames, Languages) {
    EXPECT_EQ(NameOfCellLanguage("de"), "German");
    EXPECT_EQ(NameOfCellLanguage("is"), "Icelandic");
    EXPECT_EQ(NameOfCellLanguage("text"), "");
    EXPECT_EQ(NameOfCellLanguage("xx"), "");
}

TEST(CellNames, FaultsOfDrafts) {
    EXPECT_EQ(MeaningOf(CellDraftFault::None), "nothing is wrong");
    EXPECT_EQ(MeaningOf(CellDraftFault::NotUtf8), "the text is not UTF-8");
    EXPECT_EQ(MeaningOf(CellDraftFault::NotInAlphabet), "the text has a character that the alphabet lacks");
    EXPECT_EQ(MeaningOf(CellDraftFault::TooLong), "the text takes more than 15 pages");
    EXPECT_EQ(MeaningOf(CellDraftFault::NoSuchLanguage), "a language is two letters from a to z");
    EXPECT_EQ(MeaningOf(CellDraftFault::LanguageAndClass),
              "no data coding scheme has both a language and a class");
    EXPECT_EQ(MeaningOf(CellDraftFault::NoSuchClass), "a class is 0 to 3");
    EXPECT_EQ(MeaningOf(CellDraftFault::NoSuchFormat), "text goes into GSM pages or a UMTS message");
    EXPECT_EQ(MeaningOf(CellDraftFault::NoSuchAlphabet), "text is GSM 7-bit or UCS2");
}

} // namespace
