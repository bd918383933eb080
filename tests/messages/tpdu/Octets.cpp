// Digits made octets and octets made digits.
#include "Messages/Octets.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "Messages/Read.h"

namespace {

using namespace Messages;
using Octets = std::vector<std::uint8_t>;

TEST(FromHex, TakesDigitsOfEitherCase) {
    Octets octets = {1, 2, 3};
    EXPECT_TRUE(FromHex("0123456789abcdefABCDEF", octets));
    EXPECT_EQ(octets, (Octets{0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF, 0xAB, 0xCD, 0xEF}));
    EXPECT_TRUE(FromHex("", octets));
    EXPECT_EQ(octets, Octets{});
}

TEST(FromHex, TakesNoOtherCharacterInEitherPlace) {
    const std::string_view digits = "0123456789ABCDEFabcdef";
    for (int code = 0; code < 256; ++code) {
        const char character = static_cast<char>(code);
        const bool isDigit = digits.find(character) != std::string_view::npos;
        Octets octets = {1};
        EXPECT_EQ(FromHex({"0000", 4}, octets), true);
        EXPECT_EQ(FromHex(std::string("00") + character + "0", octets), isDigit) << code;
        EXPECT_EQ(octets.size(), isDigit ? 2U : 0U) << code;
        EXPECT_EQ(FromHex(std::string("000") + character, octets), isDigit) << code;
        EXPECT_EQ(octets.size(), isDigit ? 2U : 0U) << code;
    }
}

TEST(FromHex, TakesPairsAlone) {
    Octets octets = {1};
    EXPECT_FALSE(FromHex("012", octets));
    EXPECT_EQ(octets, Octets{});
    EXPECT_FALSE(FromHex("0", octets));
}

TEST(ReadHex, SaysWhichPairIsNone) {
    const struct {
        const char* digits;
        std::uint32_t pair;
    } cases[] = {{"G0", 0}, {"0G", 0}, {"00G0", 1}, {"000G", 1}, {"0", 0}, {"0000A", 2}, {"0G0", 0}};
    for (const auto& [digits, pair] : cases) {
        const Reading reading = Messages::ReadHex(digits);
        ASSERT_TRUE(reading.fault.has_value()) << digits;
        EXPECT_EQ(reading.fault->code, FaultCode::NotHexadecimal) << digits;
        EXPECT_EQ(reading.fault->octet, pair) << digits;
    }
}

TEST(ToHex, WritesTwoUpperCaseDigitsAnOctet) {
    const Octets octets = {0x00, 0x09, 0x0A, 0x0F, 0x10, 0x90, 0xA0, 0xF0, 0x1B, 0xFF};
    EXPECT_EQ(ToHex(octets), "00090A0F1090A0F01BFF");
    EXPECT_EQ(ToHex({}), "");
}

} // namespace
