// What holds whatever the octets are: tried on damaged and cut PDUs.
#include <random>

#include <gtest/gtest.h>

#include "messages/Agreement.h"

namespace {

using namespace Messages;

const char* const c_samples[] = {
    ("0791214365870921440B912143658709F1000021203121436580"
     "1C0325010120BE19F536E8EC77FBDDA0759DCEAE83DEEC79DD0D"),
    "0791214365870921440B912143658709F10000212031214365800F0B00032A03020804010203010401",
    "0791214365870921C40DD0C2B07B1D140E01000821203121436580080500032A0302D83D",
    "001D2A0481103200002120312143658005C8329BFD06",
    "00092A04811032000403100600000000000401020304",
    "00262A0481103221203121436580212031314365804607150405AABBCCDDEE",
    "00422A00020011048110320B0A05040B8423F00402F0F1",
    "0000D3070004020102",
    "0001C006212031214365800802004100",
};

TEST(Properties, HoldForCutPdus) {
    for (const char* const sample : c_samples) {
        std::vector<std::uint8_t> octets;
        ASSERT_TRUE(FromHex(sample, octets));
        for (std::size_t length = 0; length <= octets.size(); ++length)
            tests::CheckAgreement(
                {octets.data(), length}); // from memory that ends there under the sanitizers
    }
}

TEST(Properties, AVisitorMayLeaveOutWhatItDoesNotWant) {
    class Places : public Visitor {
    public:
        std::size_t count = 0;
        void OnPlace(const FieldPlace& /*place*/) override { ++count; }
    };
    class Nothing : public Visitor {};
    const std::uint8_t cut[] = {0x00, 0x04, 0x03, 0xD0, 0xC1, 0x00}; // a bit left in the name, and no TP-PID
    Places places;
    ReadOptions options;
    options.direction = Direction::ToMobile;
    const Reading reading = Read({cut, sizeof cut}, options);
    ASSERT_TRUE(reading.fault && !reading.remarks.empty());
    Walk({cut, sizeof cut}, options, places);
    EXPECT_NE(places.count, 0U);
    Nothing nothing;
    Walk({cut, sizeof cut}, options, nothing);
}

TEST(Properties, HoldForDamagedPdus) {
    std::mt19937 random(20261121); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same every time
    for (int round = 0; round < 20000; ++round) {
        std::vector<std::uint8_t> octets;
        ASSERT_TRUE(FromHex(c_samples[random() % std::size(c_samples)], octets));
        for (auto changes = random() % 4; changes != 0; --changes)
            octets[random() % octets.size()] = static_cast<std::uint8_t>(random());
        octets.resize(octets.size() - std::min<std::size_t>(octets.size(), random() % 3));
        tests::CheckAgreement(octets, static_cast<unsigned int>(random() % tests::c_ways));
    }
}

} // namespace
