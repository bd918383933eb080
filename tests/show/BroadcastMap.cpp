// The map of what cell broadcast sends has every octet exactly once and says what the reading says, for any
// octets.
#include <random>

#include <gtest/gtest.h>

#include "show/MapProperties.h"
#include "support/Octets.h"

namespace {

using Messages::CellFormat;
using show::Broadcast;
using show::OctetRow;
using tests::Bytes;

constexpr const char* c_samples[] = {
    "432111120111C8329BFD06",                         // septets
    "0010003210116577039906",                         // a language before them
    "00100032981105000307020100480069000DD83DDE00",   // a header before units, padding inside and none
    "00100032911106240101250101C8329BFD06",           // a header with tables before septets
    "001000321111F27A0048000D000D",                   // a language before units, padding
    "001000324411004869FF00112233",                   // data
    "300011000180621112805103000102030405060708090A", // cut in the signature
    "01111243210102C8329BFD060000",                   // cut in a page
};

void ExpectMapAgrees(const Bytes& octets, CellFormat format) {
    SCOPED_TRACE(tests::Hex(octets));
    Broadcast broadcast;
    broadcast.octets = octets;
    broadcast.reading = Messages::ReadCell(octets, format);
    const std::vector<OctetRow> rows = show::MapOctets(broadcast);
    EXPECT_TRUE(tests::HasEveryOctetOnce(rows, octets.size()));
    for (const OctetRow& row : rows) {
        const bool isWide = !row.bits.empty() && row.bits.front().isWide;
        const unsigned int number =
            isWide ? unsigned{octets[row.octet]} << 8 | octets[row.octet + 1] : unsigned{octets[row.octet]};
        EXPECT_TRUE(tests::HasEveryBitOnce(row, number, true)) << row.field << " at " << row.octet;
    }
    if (broadcast.reading.coding.HasText() && broadcast.reading.pages.size() == 1) {
        EXPECT_EQ(tests::TextOf(rows), broadcast.reading.pages.front().text);
    }
}

void ExpectMapsAgree(const Bytes& octets) {
    for (const CellFormat format :
         {CellFormat::GsmPage, CellFormat::UmtsMessage, CellFormat::EtwsNotification})
        ExpectMapAgrees(octets, format);
}

TEST(BroadcastMap, HasEveryOctetOnceAndAgreesWithTheReadingOnEveryTruncation) {
    for (const char* sample : c_samples) {
        for (Bytes octets = tests::Octets(sample); !octets.empty() && !HasFailure(); octets.pop_back())
            ExpectMapsAgree(octets);
    }
}

TEST(BroadcastMap, HasEveryOctetOnceAndAgreesWithTheReadingOnEveryFlippedBit) {
    for (const char* sample : c_samples) {
        const Bytes octets = tests::Octets(sample);
        for (std::size_t bit = 0; bit < 8 * octets.size() && !HasFailure(); ++bit) {
            Bytes flipped = octets;
            flipped[bit / 8] = static_cast<unsigned char>(flipped[bit / 8] ^ (1U << bit % 8));
            ExpectMapsAgree(flipped);
        }
    }
}

TEST(BroadcastMap, HasEveryOctetOnceAndAgreesWithTheReadingOnRandomPages) {
    const unsigned int seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    for (int i = 0; i < 5000 && !HasFailure(); ++i) {
        Bytes octets(6 + random() % 200);
        for (unsigned char& octet : octets)
            octet = static_cast<unsigned char>(random());
        ExpectMapsAgree(octets);
    }
}

/// "name: meaning" of each of the bits of a data coding scheme.
std::string BitsOf(std::uint8_t dcs) {
    std::string all;
    for (const show::OctetBits& bits : show::CellCodingBits(Messages::CellCoding(dcs))) {
        const std::string separator = bits.meaning.empty() ? "" : ": ";
        all += (all.empty() ? "" : "; ") + std::string(bits.name) + separator + std::string(bits.meaning);
    }
    return all;
}

TEST(BroadcastMap, DataCodingIsShownBitByBit) {
    EXPECT_EQ(BitsOf(0x00), "group: language; language: German");
    EXPECT_EQ(BitsOf(0x0F), "group: language; language");
    EXPECT_EQ(BitsOf(0x11), "group: language before the text; alphabet: UCS2");
    EXPECT_EQ(BitsOf(0x48),
              "group: general data coding; compression: none; class: none; alphabet: UCS2; without meaning");
    EXPECT_EQ(BitsOf(0x75),
              "group: general data coding; compression: compressed; class: in the two lowest bits; "
              "alphabet: 8-bit data; class");
    EXPECT_EQ(BitsOf(0x99), "group: user-data header; alphabet: UCS2; class");
    EXPECT_EQ(BitsOf(0xD1), "group: I1 protocol message; value");
    EXPECT_EQ(BitsOf(0xE1), "group: laid down by the WAP Forum; value");
    EXPECT_EQ(BitsOf(0xF4), "group: data coding, message class; reserved; alphabet: 8-bit data; class");
    EXPECT_EQ(BitsOf(0x80), "group: reserved; reserved");
}

} // namespace
