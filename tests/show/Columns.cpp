// Messages as lines and as rows.
#include "show/Columns.h"

#include <gtest/gtest.h>

namespace {

using namespace show;

Row RowOfHex(std::string_view digits) {
    Message message;
    EXPECT_TRUE(Messages::FromHex(digits, message.octets));
    message.reading = Messages::Read(message.octets, {Messages::Presence::Yes});
    return RowOf(message);
}

TEST(Columns, TellWhatAMessageHas) {
    const Row deliver = RowOfHex("0791214365870921040B912143658709F100002120312143658005C8329BFD06");
    const std::pair<Column, const char*> rows[] = {
        {Column::Input, ""},
        {Column::Time, "2012-02-13T12:34:56+02:00"},
        {Column::Direction, "to-mobile"},
        {Column::Type, "SMS-DELIVER"},
        {Column::Address, "+12345678901"},
        {Column::ServiceCentre, "+123456789012"},
        {Column::Reference, ""},
        {Column::Part, ""},
        {Column::Status, ""},
        {Column::Alphabet, "GSM 7-bit"},
        {Column::Text, "Hello"},
        {Column::Data, ""},
        {Column::Octets, "0791214365870921040B912143658709F100002120312143658005C8329BFD06"},
        {Column::Error, ""},
    };
    EXPECT_EQ(std::size(rows), c_columnCount);
    for (const auto& [column, value] : rows)
        EXPECT_EQ(deliver[column], value) << NameOf(column);
    const Row submit = RowOfHex("0001070491214300040161");
    EXPECT_EQ(submit[Column::Direction], "from-mobile");
    EXPECT_EQ(submit[Column::Reference], "7");
    EXPECT_EQ(submit[Column::Data], "61");
    EXPECT_EQ(submit[Column::Text], "");
    const Row report = RowOfHex("00060704912143212031214365802120312143658000");
    EXPECT_EQ(report[Column::Reference], "7");
    EXPECT_NE(report[Column::Status], "");
    const Row part = RowOfHex("0791214365870921440B912143658709F100002120312143658009050003050201C21B");
    EXPECT_EQ(part[Column::Part], "1/2");
}

TEST(Columns, HaveNames) {
    EXPECT_EQ(ColumnOf("input"), Column::Input);
    EXPECT_EQ(ColumnOf("service-centre"), Column::ServiceCentre);
    EXPECT_EQ(ColumnOf("error"), Column::Error);
    EXPECT_EQ(ColumnOf(""), std::nullopt);
    EXPECT_EQ(ColumnOf("Text"), std::nullopt);
    EXPECT_EQ(ColumnNames(),
              "input, time, direction, type, address, service-centre, reference, part, status, alphabet, "
              "text, data, octets, error");
}

TEST(Columns, BriefLineLeavesOutWhatIsNotThere) {
    Row row;
    row[Column::Type] = "SMS-SUBMIT-REPORT";
    EXPECT_EQ(BriefLine(row), "SMS-SUBMIT-REPORT");
    row[Column::Text] = "a\nb\rc\x1B";
    EXPECT_EQ(BriefLine(row), "a\\nb\\rc\\u001B");
    row[Column::Address] = "+41";
    EXPECT_EQ(BriefLine(row), "from +41 a\\nb\\rc\\u001B");
    row[Column::Direction] = "from-mobile";
    row[Column::Part] = "1/2";
    row[Column::Time] = "2012-02-13T12:34:56+02:00";
    EXPECT_EQ(BriefLine(row), "2012-02-13T12:34:56+02:00 to +41 [1/2] a\\nb\\rc\\u001B");
}

TEST(Columns, ValuesOfATableAreEscaped) {
    EXPECT_EQ(TabEscaped("a\tb\nc\rd\\e"), "a\\tb\\nc\\rd\\\\e");
    EXPECT_EQ(TabEscaped("\x1B\xFF"), "\\u001B\\xFF");
    Row row;
    row[Column::Text] = "a\tb";
    row[Column::Address] = "+41";
    EXPECT_EQ(TabSeparated(row, {Column::Text, Column::Time, Column::Address}), "a\\tb\t\t+41");
    EXPECT_EQ(TabSeparatedNames({Column::Text, Column::Address}), "text\taddress");
}

} // namespace
