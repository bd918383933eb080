// What the map of octets says of single bits and values is what the standards' tables say.
#include <gtest/gtest.h>

#include "model/Tables.h"
#include "show/OctetBits.h"
#include "show/OctetMap.h"
#include "show/Subfields.h"
#include "show/Values.h"
#include "support/Octets.h"

namespace {

using plain::ReadTable;
using plain::Row;
using show::OctetBits;

using BitsOf = std::vector<OctetBits> (*)(unsigned int octet);

/// Bits as the tables name them: "3", or "0-1".
struct Range {
    explicit Range(const std::string& cell)
        : first(std::stoi(cell)), last(std::stoi(cell.substr(cell.find('-') + 1))) {}
    unsigned int Mask() const { return (2U << last) - (1U << first); }

    int first;
    int last;
};

/// The entry whose bits these are, or that has them among others.
OctetBits EntryAt(const Range& range, const std::vector<OctetBits>& all) {
    for (const OctetBits& bits : all)
        if ((bits.mask & range.Mask()) == range.Mask())
            return bits;
    return {0, "not there", 0, ""};
}

/// A row names a bit, or what some bits mean from one value to another.
void ExpectRow(Row row, BitsOf bitsOf) {
    const Range range(row["bits"]);
    for (int value = std::stoi(row["from"]); value <= std::stoi(row["to"]); ++value) {
        const OctetBits entry = EntryAt(range, bitsOf(static_cast<unsigned int>(value) << range.first));
        EXPECT_EQ(entry.mask, range.Mask()) << row["name"];
        EXPECT_EQ(entry.value, static_cast<unsigned int>(value)) << row["name"];
        const bool isNamed = range.first == range.last && row["from"] == row["to"] && entry.meaning == "on";
        EXPECT_EQ(isNamed ? entry.name : entry.meaning, row["name"]) << row["bits"] << ' ' << value;
    }
}

TEST(ShownTables, TextFormatting) {
    for (Row& row : ReadTable("text-formatting")) {
        if (row["octet"] == "3")
            ExpectRow(row, show::TextFormattingBits);
        else
            EXPECT_EQ(EntryAt(Range(row["bits"]), show::ColourBits(0)).name, row["name"]);
    }
    for (const OctetBits& bits : show::TextFormattingBits(0x0F))
        EXPECT_EQ(bits.meaning == "off", bits.mask >= 0x10) << bits.name;
}

TEST(ShownTables, MessageWaiting) {
    for (const Row& row : ReadTable("message-waiting"))
        if (row.at("octet") == "1")
            ExpectRow(row, show::SpecialMessageBits);
}

TEST(ShownTables, ServiceCentreControl) {
    for (Row& row : ReadTable("service-centre-control")) {
        const Range bit(row["bit"]);
        const OctetBits entry = EntryAt(bit, show::ServiceCentreControlBits(bit.Mask()));
        EXPECT_EQ(entry.name, row["name"]);
        EXPECT_EQ(entry.meaning, row["name"] == "reserved" ? "" : "on") << row["name"];
        const OctetBits off = EntryAt(bit, show::ServiceCentreControlBits(~bit.Mask() & 0xFF));
        EXPECT_EQ(off.meaning, row["name"] == "reserved" ? "" : "off") << row["name"];
    }
}

TEST(ShownTables, HeaderSources) {
    for (Row& row : ReadTable("header-sources")) {
        for (int value = std::stoi(row["from"], nullptr, 16); value <= std::stoi(row["to"], nullptr, 16);
             ++value) {
            const std::vector<std::uint8_t> data = {static_cast<std::uint8_t>(value)};
            const show::Subfields subfields = show::SubfieldsOf({0x07, 1, 0}, data);
            ASSERT_EQ(subfields.size(), 1U);
            EXPECT_EQ(subfields[0].meaning, row["name"]) << value;
        }
    }
}

TEST(ShownTables, ParameterIndicator) {
    for (Row& row : ReadTable("parameter-indicator")) {
        const Range bit(row["bit"]);
        const OctetBits entry = EntryAt(bit, show::ParameterIndicatorBits(bit.Mask()));
        const std::string& meaning = row["name"];
        if (bit.first < 3) {
            EXPECT_EQ(meaning.rfind(entry.name, 0), 0U) << meaning;
            EXPECT_EQ(entry.meaning, "there");
        } else {
            EXPECT_EQ(meaning.rfind(entry.name == "extension" ? entry.meaning : entry.name, 0), 0U)
                << meaning;
        }
    }
}

TEST(ShownTables, ValidityFormats) {
    for (Row& row : ReadTable("validity-formats")) {
        const auto value = static_cast<unsigned int>(std::stoi(row["value"]));
        EXPECT_EQ(show::MeaningOfFlag(Messages::Field::ValidityFormat, value), row["name"]);
    }
}

/// Octets of the subfield of an enhanced validity whose indicator this is; 0 where it is not there.
std::uint32_t OctetsOfSubfield(std::uint8_t indicator, std::string_view name) {
    show::Message message;
    message.octets = tests::Octets("092A048110320000" + tests::Hex({indicator}) + "000000000000" + "00");
    message.reading =
        Messages::Read(message.octets, {Messages::Presence::No, Messages::Direction::FromMobile});
    for (const show::OctetRow& row : show::MapOctets(message))
        if (row.field == "TP-VP" && row.subfield == name)
            return row.count;
    return 0;
}

TEST(ShownTables, EnhancedValidity) {
    for (Row& row : ReadTable("enhanced-validity")) {
        const auto format = static_cast<std::uint8_t>(std::stoi(row["value"]));
        const auto octets = static_cast<std::uint32_t>(std::stoi(row["octets"]));
        EXPECT_EQ(EntryAt(Range("0-2"), show::EnhancedValidityBits(format)).meaning, row["name"]);
        EXPECT_EQ(OctetsOfSubfield(format, "period"), octets) << row["name"];
        EXPECT_EQ(OctetsOfSubfield(format, "unused"), 6 - octets) << row["name"];
    }
}

} // namespace
