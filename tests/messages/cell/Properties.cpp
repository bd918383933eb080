// What holds whatever the octets are: tried on damaged and cut pages, messages and notifications.
#include <random>

#include <gtest/gtest.h>

#include "messages/Agreement.h"

namespace {

using namespace Messages;

std::vector<std::string> Samples() {
    const std::string rest(160, '0');
    return {"40200032901203240101D84C1B",
            "402000321111F27A041F0440043E000D000D",
            "40200032101165B703C8B41A8D46A3D1",
            "4020003201F1C834000000000000000000",
            "01003240204802" + ("D83D" + rest + "02") + ("DEA8" + rest + "02"),
            "01003240200F02" + ("C10D" + rest + "02") + ("65" + rest + "0001"),
            "4020003201F1E170381C6E001A007103D00034000DC018", // returns and at signs in the text
            "300011000180" + std::string(100, '1')};
}

constexpr unsigned int c_formats = 4;

TEST(CellProperties, HoldForCutPages) {
    for (const std::string& sample : Samples()) {
        std::vector<std::uint8_t> octets;
        ASSERT_TRUE(FromHex(sample, octets));
        for (std::size_t length = 0; length <= octets.size(); ++length)
            for (unsigned int format = 0; format < c_formats; ++format)
                tests::CheckCellAgreement({octets.data(), length}, static_cast<CellFormat>(format));
    }
}

TEST(CellProperties, HoldForDamagedPages) {
    std::mt19937 random(20261122); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same every time
    const std::vector<std::string> samples = Samples();
    for (int round = 0; round < 10000; ++round) {
        std::vector<std::uint8_t> octets;
        ASSERT_TRUE(FromHex(samples[random() % samples.size()], octets));
        for (auto changes = random() % 6; changes != 0; --changes)
            octets[random() % octets.size()] = static_cast<std::uint8_t>(random());
        octets.resize(octets.size() - random() % 3);
        tests::CheckCellAgreement(octets, static_cast<CellFormat>(random() % c_formats));
    }
}

TEST(CellProperties, HoldForTextsThatLookLikePadding) {
    std::mt19937 random(20261122); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same every time
    for (int round = 0; round < 5000; ++round) {
        std::vector<std::uint8_t> runs(random() % 8);
        for (std::uint8_t& run : runs)
            run = static_cast<std::uint8_t>(random());
        tests::CheckCellText(runs);
    }
    // A page of 92 returns, and one of 89 after a language, before an at sign.
    tests::CheckCellText(std::vector<std::uint8_t>{0xFD, 27 << 2 | 1, 0});
    tests::CheckCellText(std::vector<std::uint8_t>{0xFD, 24 << 2 | 1, 0, 2});
}

} // namespace
