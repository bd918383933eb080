// The map of a PDU has every octet exactly once and says what the reading says, for any octets.
#include "show/OctetMap.h"

#include <random>

#include <gtest/gtest.h>

#include "show/MapProperties.h"
#include "show/Samples.h"
#include "support/Octets.h"

namespace {

using show::Message;
using show::OctetRow;
using tests::Bytes;

Message Read(const Bytes& octets, Messages::Presence serviceCentre, Messages::Direction direction) {
    Message message;
    message.octets = octets;
    message.reading = Messages::Read(octets, {serviceCentre, direction});
    return message;
}

void ExpectMapAgrees(const Message& message) {
    SCOPED_TRACE(tests::Hex(message.octets));
    const std::vector<OctetRow> rows = show::MapOctets(message);
    EXPECT_TRUE(tests::HasEveryOctetOnce(rows, message.octets.size()));
    for (const OctetRow& row : rows) {
        EXPECT_TRUE(tests::HasEveryBitOnce(row, message.octets[row.octet], !message.reading.fault))
            << row.field << " at " << row.octet;
    }
    const Messages::UserData* const userData = Messages::UserDataOf(message.reading.tpdu);
    if (userData != nullptr && !message.reading.fault) {
        EXPECT_EQ(tests::TextOf(rows), userData->text);
    }
}

void ExpectMapsAgree(const Bytes& octets) {
    for (const auto serviceCentre : {Messages::Presence::Yes, Messages::Presence::No}) {
        for (const auto direction : {Messages::Direction::ToMobile, Messages::Direction::FromMobile})
            ExpectMapAgrees(Read(octets, serviceCentre, direction));
    }
}

TEST(OctetMap, HasEveryOctetOnceAndAgreesWithTheReadingOnEveryTruncation) {
    for (const char* sample : tests::c_samplePdus) {
        for (Bytes octets = tests::Octets(sample); !octets.empty() && !HasFailure(); octets.pop_back())
            ExpectMapsAgree(octets);
    }
}

TEST(OctetMap, HasEveryOctetOnceAndAgreesWithTheReadingOnEveryFlippedBit) {
    for (const char* sample : tests::c_samplePdus) {
        const Bytes octets = tests::Octets(sample);
        for (std::size_t bit = 0; bit < 8 * octets.size() && !HasFailure(); ++bit) {
            Bytes flipped = octets;
            flipped[bit / 8] = static_cast<unsigned char>(flipped[bit / 8] ^ (1U << bit % 8));
            ExpectMapsAgree(flipped);
        }
    }
}

/// "field subfield: meaning" of each row, without the octets' bits.
std::string RowsOf(const std::string& pdu, Messages::Direction direction, std::string_view field) {
    const Message message = Read(tests::Octets(pdu), Messages::Presence::No, direction);
    std::string all;
    for (const OctetRow& row : show::MapOctets(message)) {
        if (row.field == field)
            all += std::to_string(row.octet) + ' ' + std::string(row.subfield) + ": " + row.meaning + '\n';
    }
    return all;
}

TEST(OctetMap, SecondOctetOfTheParameterIndicatorAnnouncesNothing) {
    EXPECT_EQ(RowsOf("06050A9194515510326230415190624062304151906240008007", Messages::Direction::ToMobile,
                     "TP-PI"),
              "24 : nothing announced\n25 extension: reserved\n");
}

TEST(OctetMap, ValidityWithAnotherIndicatorHasNoPeriod) {
    const std::string submit = "0907049121430000";
    EXPECT_EQ(RowsOf(submit + "C310325400000000", Messages::Direction::FromMobile, "TP-VP"),
              "8 indicator: enhanced, no period, single shot\n9 extension: \n");
    EXPECT_EQ(RowsOf(submit + "4310325400000000", Messages::Direction::FromMobile, "TP-VP"),
              "8 indicator: enhanced, 1 hour 23 minutes 45 seconds, single shot\n9 period: \n12 unused: \n");
}

TEST(OctetMap, HasEveryOctetOnceAndAgreesWithTheReadingOnRandomOctets) {
    const unsigned int seed = std::random_device{}();
    std::mt19937 random(seed);
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        ExpectMapsAgree(tests::RandomPdu(random));
    }
}

} // namespace
