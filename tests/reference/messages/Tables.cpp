// The data files in `tables`: whole, and the rows that other tests take for granted.
#include "model/Tables.h"

#include <gtest/gtest.h>

namespace plain {
namespace {

struct Ranges {
    const char* table;
    int base, last;
};

class RangeTable : public testing::TestWithParam<Ranges> {};

TEST_P(RangeTable, HasEveryValueOnce) {
    int next = 0;
    for (Row& row : ReadTable(GetParam().table)) {
        EXPECT_EQ(std::stoi(row["from"], nullptr, GetParam().base), next) << row["from"];
        next = std::stoi(row["to"], nullptr, GetParam().base) + 1;
    }
    EXPECT_EQ(next, GetParam().last + 1);
}

INSTANTIATE_TEST_SUITE_P(
    Tables, RangeTable,
    testing::Values(Ranges{"numbering-plans", 10, 15}, Ranges{"protocol-identifiers", 16, 255},
                    Ranges{"statuses", 16, 255}, Ranges{"failure-causes", 16, 255},
                    Ranges{"relative-validity", 16, 255}, Ranges{"command-types", 16, 255},
                    Ranges{"header-elements", 16, 255}, Ranges{"header-sources", 16, 255},
                    Ranges{"cbs-message-identifiers", 10, 65535}, Ranges{"etws-warning-types", 10, 127}),
    [](const auto& ranges) {
        std::string name = ranges.param.table;
        for (char& c : name)
            c = c == '-' ? '_' : c;
        return name;
    });

TEST(ReadTable, HasAllValuesOfADataCodingScheme) {
    for (const char* table : {"data-coding", "cbs-data-coding"}) {
        int next = 0;
        for (Row& row : ReadTable(table))
            EXPECT_EQ(std::stoi(row["value"], nullptr, 16), next++) << table;
        EXPECT_EQ(next, 256) << table;
    }
}

TEST(ReadTable, HasAllSeptetsOfThirteenLockingTables) {
    const std::vector<Row> rows = ReadTable("locking-shift");
    ASSERT_EQ(rows.size(), 128U);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(std::stoul(rows[i].at("septet"), nullptr, 16), i);
        EXPECT_EQ(rows[i].size(), 14U);
        for (const auto& [column, cell] : rows[i])
            if (column != "septet") {
                EXPECT_EQ(cell == "ESC", i == 0x1B) << column << " " << i;
            }
    }
}

TEST(ReadTable, EverySingleShiftTableHasAPageBreakAControlAndAnEscape) {
    for (const auto& [language, alphabet] : TheTables().single) {
        EXPECT_EQ(alphabet[0x0A].character, U'\f') << language;
        EXPECT_EQ(alphabet[0x0D].kind, Cell::CONTROL) << language;
        EXPECT_EQ(alphabet[0x1B].kind, Cell::ESCAPE) << language;
        EXPECT_EQ(alphabet[0x65].character, U'€') << language;
        EXPECT_EQ(alphabet[0x65].readOnly, language == 12) << language;
    }
    EXPECT_EQ(TheTables().single.size(), 14U);
    EXPECT_EQ(TheTables().locking.size(), 13U);
}

TEST(ReadTable, MisprintsSayWhatTheAlphabetsHold) {
    for (Row& row : ReadTable("misprints"))
        for (Row& septet : ReadTable(row["table"] == "locking" ? "locking-shift" : "single-shift"))
            if (septet["septet"] == row["septet"]) {
                EXPECT_EQ(septet[row["language"]].substr(0, 4), row["taken"])
                    << row["language"] << " " << row["septet"];
            }
}

TEST(ReadTable, SaysWhichFileIsMissing) {
    EXPECT_THROW(ReadTable("no-such-table"), std::runtime_error);
}

} // namespace
} // namespace plain
