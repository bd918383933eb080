// What a reading of cell broadcast holds beside what the vectors show.
#include "Messages/Cell.h"

#include <gtest/gtest.h>

namespace {

using namespace Messages;

TEST(ReadCell, RecognisesWhatIsNotTold) {
    const std::string slot = "C834" + std::string(160, '0') + "02";
    EXPECT_EQ(ReadCellHex("402000320111C834").format, CellFormat::GsmPage);
    EXPECT_EQ(ReadCellHex("01003240200F01" + slot).format, CellFormat::UmtsMessage);
    EXPECT_EQ(ReadCellHex("01003240200F02" + slot).format, CellFormat::GsmPage);
    const std::string security(100, '1');
    EXPECT_EQ(ReadCellHex("300011000180" + security).format, CellFormat::EtwsNotification);
    EXPECT_EQ(ReadCellHex("300011080180" + security).format, CellFormat::GsmPage);
    EXPECT_EQ(ReadCellHex("300011000180" + security + "00").format, CellFormat::GsmPage);
}

TEST(ReadCell, TakesWhatIsToldForSettled) {
    EXPECT_EQ(ReadCellHex("300011000180", CellFormat::EtwsNotification).warning->type, 0);
    EXPECT_EQ(ReadCellHex("300011000180", CellFormat::GsmPage).format, CellFormat::GsmPage);
}

TEST(ReadCell, SaysWhichPairIsNotHexadecimal) {
    const CellReading reading = ReadCellHex("4020x0");
    ASSERT_TRUE(reading.fault);
    EXPECT_EQ(reading.fault->code, FaultCode::NotHexadecimal);
    EXPECT_EQ(reading.fault->octet, 2U);
    EXPECT_TRUE(reading.pages.empty());
}

TEST(ReadCell, SplitsTheSerialNumber) {
    const SerialNumber serial = ReadCellHex("B5A700320111C834").serialNumber;
    EXPECT_EQ(serial.value, 0xB5A7);
    EXPECT_EQ(serial.Scope(), GeographicalScope::Area);
    EXPECT_EQ(serial.MessageCode(), 0x35A);
    EXPECT_EQ(serial.UpdateNumber(), 7);
}

TEST(ReadCell, TakesTheLanguageFromTheTextBeforeThatOfTheCoding) {
    EXPECT_EQ(ReadCellHex("402000320B11C834").Language(), "el");
    EXPECT_EQ(ReadCellHex("402000321111EA3057309707").Language(), "ja");
    EXPECT_EQ(ReadCellHex("402000320F11C834").Language(), "");
    EXPECT_EQ(ReadCellHex("4020").Language(), "") << "no page";
}

TEST(ReadCell, LanguageElementOfAnotherLengthThanOneChoosesNoTable) {
    const CellReading reading = ReadCellHex("402000329011042402010120D3"); // Hi, from bit 2 on
    EXPECT_EQ(reading.text, "Hi");
    ASSERT_EQ(reading.remarks.size(), 1U);
    EXPECT_EQ(reading.remarks[0].code, RemarkCode::ElementLength);
    EXPECT_EQ(reading.remarks[0].octet, 7U);
}

TEST(ReadCell, JoinsWhatStandsBetweenTwoPagesOfAMessage) {
    // Each page ends in half of a character, the next begins with the other half.
    const std::string rest(160, '0');
    const CellReading units = ReadCellHex("01003240204802" + ("D83D" + rest + "02") + ("DEA8" + rest + "02"));
    EXPECT_EQ(units.text, "\xF0\x9F\x9A\xA8");
    EXPECT_EQ(units.pages[0].text, "\xEF\xBF\xBD");
    // 41 1B, then 65: an A and the euro sign.
    const CellReading septets =
        ReadCellHex("01003240200F02" + ("C10D" + rest + "02") + ("65" + rest + "0001"));
    EXPECT_EQ(septets.text, "A\xE2\x82\xAC");
    // Both pages have the escape: 41 1B, then 1B 65.
    const CellReading twice = ReadCellHex("01003240200F02" + ("C10D" + rest + "02") + ("9B32" + rest + "02"));
    EXPECT_EQ(twice.text, "A\xE2\x82\xAC");
}

TEST(ReadCell, KnowsTheBitsOfTheMessageCodeInMessagesOfEtwsAlone) {
    const SerialNumber alert{0x2000};
    const SerialNumber popup{0x1000};
    EXPECT_TRUE(HasEmergencyAlert(alert, 4352));
    EXPECT_FALSE(HasEmergencyAlert(popup, 4352));
    EXPECT_FALSE(HasEmergencyAlert(alert, 4370));
    EXPECT_TRUE(HasPopup(popup, 4359));
    EXPECT_FALSE(HasPopup(alert, 4359));
    EXPECT_FALSE(HasPopup(popup, 4360));
}

TEST(ReadCell, KeepsTheLockingTableOfEachPage) {
    // 04 in the Turkish locking shift table on the first page, and with none on the second.
    const std::string turkish = "032501012000" + std::string(152, '0') + "06";
    const std::string none = "000001" + std::string(158, '0') + "03";
    EXPECT_EQ(ReadCellHex("01003240209002" + turkish + none).text, "\xE2\x82\xAC\xC3\xA8");
}

TEST(ReadCell, KeepsTheTablesOfEachPage) {
    // 1B 63 with the Turkish single shift table on the first page, and with none on the second.
    const std::string turkish = "03240101D88C01" + std::string(150, '0') + "07";
    const std::string none = "00C0660C" + std::string(156, '0') + "04";
    const CellReading reading = ReadCellHex("01003240209002" + turkish + none);
    EXPECT_EQ(reading.text, "\xC3\xA7@c");
}

} // namespace
