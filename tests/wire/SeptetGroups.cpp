// Every way that this machine has to work on groups of eight septets, beside bits moved one by one. The
// library chooses among them by itself, so this is the one test that looks behind its public headers.
#include "wire/SeptetGroups.h"

#include <random>

#include <gtest/gtest.h>

#include "support/Bits.h"
#include "support/Octets.h"

namespace {

using namespace Wire;
using tests::Bytes;
using tests::Hex;

struct Way {
    const char* name;
    const SeptetGroups* groups;
};

std::vector<Way> Ways() {
    std::vector<Way> ways = {{"portable", &c_portableGroups}, {"fastest", &FastestGroups()}};
    if (BitDepositGroups() != nullptr)
        ways.push_back({"bit deposit", BitDepositGroups()});
    return ways;
}

Bytes Unpack(const Way& way, const Bytes& octets, unsigned int startBit, unsigned int groups) {
    Bytes septets(groups * c_groupSeptets + 1U, 0xAA);
    way.groups->unpack(octets.data(), startBit, groups, septets.data());
    EXPECT_EQ(septets.back(), 0xAA) << "no septet after the last group";
    septets.pop_back();
    return septets;
}

/// The octets of the groups, and the bits that are handed back as one octet more.
Bytes Pack(const Way& way, const Bytes& septets, unsigned int startBit) {
    const auto groups = static_cast<unsigned int>(septets.size()) / c_groupSeptets;
    Bytes octets(groups * c_groupOctets + 2U, 0xAA);
    const std::uint64_t pending = way.groups->pack(septets.data(), groups, startBit, octets.data());
    EXPECT_LT(pending, std::uint64_t{1} << startBit) << "the bits handed back";
    EXPECT_EQ(octets.back(), 0xAA) << "no octet after the reach of the last group";
    octets.pop_back();
    EXPECT_EQ(octets.back(), pending) << "they stand after the last group already";
    return octets;
}

TEST(SeptetGroups, SeptetsOfEightLettersFillSevenOctets) {
    for (const Way& way : Ways()) {
        SCOPED_TRACE(way.name);
        const Bytes letters = tests::Octets("41 42 43 44 45 46 47 48"); // A to H
        EXPECT_EQ(Hex(Pack(way, letters, 0)), "41 E1 90 58 34 1E 91 00");
        EXPECT_EQ(Hex(Pack(way, letters, 1)), "82 C2 21 B1 68 3C 22 01");
        EXPECT_EQ(Hex(Unpack(way, tests::Octets("41 E1 90 58 34 1E 91 FF"), 0, 1)),
                  "41 42 43 44 45 46 47 48");
        EXPECT_EQ(Hex(Unpack(way, tests::Octets("83 C2 21 B1 68 3C 22 FF"), 1, 1)),
                  "41 42 43 44 45 46 47 48");
    }
}

TEST(SeptetGroups, EveryWayMovesEveryBitToItsPlace) {
    for (const Way& way : Ways()) {
        for (unsigned int startBit = 0; startBit < 8; ++startBit) {
            for (unsigned int bit = 0; bit < 112; ++bit) {
                Bytes septets(16);
                septets[bit / 7] = static_cast<unsigned char>(1 << bit % 7);
                Bytes octets = tests::LayBits(septets, startBit);
                octets.resize(15);
                ASSERT_EQ(Hex(Pack(way, septets, startBit)), Hex(octets))
                    << way.name << startBit << " " << bit;
                ASSERT_EQ(Hex(Unpack(way, octets, startBit, 2)), Hex(septets))
                    << way.name << startBit << " " << bit;
            }
        }
    }
}

TEST(SeptetGroups, EveryWayAgreesOverRandomInput) {
    std::mt19937_64 random(23038);
    for (int round = 0; round < 20000; ++round) {
        const auto groups = static_cast<unsigned int>(1 + random() % 24);
        const auto startBit = static_cast<unsigned int>(random() % 8);
        Bytes septets(groups * c_groupSeptets);
        for (unsigned char& septet : septets)
            septet = static_cast<unsigned char>(random() & 0x7F);
        Bytes octets = tests::LayBits(septets, startBit);
        octets.resize(groups * c_groupOctets + 1U);
        Bytes noise = octets; // below the first septet and above the last one
        noise.front() = static_cast<unsigned char>(noise.front() | random() % (1U << startBit));
        noise.back() = static_cast<unsigned char>(noise.back() | random() << startBit);
        for (const Way& way : Ways()) {
            ASSERT_EQ(Pack(way, septets, startBit), octets) << way.name << " round " << round;
            ASSERT_EQ(Unpack(way, noise, startBit, groups), septets) << way.name << " round " << round;
        }
    }
}

/// Octets above 0x7F are no septets; what lies above their seven bits is left out by each way.
TEST(SeptetGroups, BitsAboveASeptetAreLeftOut) {
    for (const Way& way : Ways())
        EXPECT_EQ(Hex(Pack(way, Bytes(8, 0x80), 0)), "00 00 00 00 00 00 00 00") << way.name;
}

} // namespace
