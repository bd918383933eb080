// Octets in hexadecimal digits, in each way. Pdu takes both directions, but the digits that it reads need not
// be any.
#include "wire/Hexadecimal.h"

#include <string>

#include <gtest/gtest.h>

#include "support/Guarded.h"
#include "support/Octets.h"

namespace {

using tests::Bytes;
using tests::Guarded;

constexpr std::size_t c_longest = 70; ///< octets: several vectors, and every number left over after them

/// Digits and octets that follow no pattern of a vector's length.
const std::string c_digits = "00112233445566778899AABBCCDDEEFF102132435465768798A9BACBDCEDFE0F"
                             "203142536475869708192A3B4C5D6E7F8091A2B3C4D5E6F7A0B1C2D3E4F50617"
                             "28394A5B6C7D";
const Bytes c_octets = {0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xAA, 0xBB, 0xCC, 0xDD,
                        0xEE, 0xFF, 0x10, 0x21, 0x32, 0x43, 0x54, 0x65, 0x76, 0x87, 0x98, 0xA9, 0xBA, 0xCB,
                        0xDC, 0xED, 0xFE, 0x0F, 0x20, 0x31, 0x42, 0x53, 0x64, 0x75, 0x86, 0x97, 0x08, 0x19,
                        0x2A, 0x3B, 0x4C, 0x5D, 0x6E, 0x7F, 0x80, 0x91, 0xA2, 0xB3, 0xC4, 0xD5, 0xE6, 0xF7,
                        0xA0, 0xB1, 0xC2, 0xD3, 0xE4, 0xF5, 0x06, 0x17, 0x28, 0x39, 0x4A, 0x5B, 0x6C, 0x7D};

struct Way {
    const char* name;
    void (*write)(const unsigned char*, std::size_t, char*);
    bool (*read)(const char*, std::size_t, unsigned char*);
};

constexpr Way c_ways[] = {
    {"plainly", Wire::Plainly::WriteHexadecimal, Wire::Plainly::ReadHexadecimal},
    {"as this machine does", Wire::WriteHexadecimal, Wire::ReadHexadecimal},
};

std::string Written(const Way& way, const Bytes& octets) {
    const Guarded<unsigned char> source(octets.data(), octets.size());
    const std::string room(2 * octets.size(), '?');
    const Guarded<char> digits(room.data(), room.size());
    way.write(source.Data(), octets.size(), digits.Data());
    return {digits.Data(), room.size()};
}

/// Whether all were digits; the octets then.
bool Read(const Way& way, const std::string& digits, Bytes& octets) {
    const Guarded<char> source(digits.data(), digits.size());
    octets.assign(digits.size() / 2, 0xAA);
    const Guarded<unsigned char> room(octets.data(), octets.size());
    const bool areDigits = way.read(source.Data(), octets.size(), room.Data());
    octets.assign(room.Data(), room.Data() + octets.size());
    return areDigits;
}

TEST(WriteHexadecimal, WritesEveryLength) {
    for (const Way& way : c_ways)
        for (std::size_t length = 0; length <= c_longest; ++length)
            ASSERT_EQ(
                Written(way, Bytes(c_octets.begin(), c_octets.begin() + static_cast<std::ptrdiff_t>(length))),
                c_digits.substr(0, 2 * length))
                << way.name;
}

TEST(WriteHexadecimal, WritesEveryOctet) {
    const std::string digits = "0123456789ABCDEF";
    for (const Way& way : c_ways)
        for (unsigned int octet = 0; octet < 0x100; ++octet)
            for (const std::size_t length : {1U, 17U}) // by itself, and in a vector
                ASSERT_EQ(Written(way, Bytes(length, static_cast<unsigned char>(octet))).substr(0, 2),
                          (std::string{digits[octet / 16], digits[octet % 16]}))
                    << way.name;
}

TEST(ReadHexadecimal, ReadsEveryLength) {
    Bytes octets;
    for (const Way& way : c_ways)
        for (std::size_t length = 0; length <= c_longest; ++length) {
            ASSERT_TRUE(Read(way, c_digits.substr(0, 2 * length), octets)) << way.name;
            ASSERT_EQ(octets, Bytes(c_octets.begin(), c_octets.begin() + static_cast<std::ptrdiff_t>(length)))
                << way.name;
        }
}

TEST(ReadHexadecimal, LooksAtPairsOnly) {
    Bytes octets(1);
    for (const Way& way : c_ways) {
        EXPECT_TRUE(way.read("7Fx", 1, octets.data())) << way.name;
        EXPECT_EQ(octets, (Bytes{0x7F})) << way.name;
    }
}

/// The value of a character, 0 to 15, or 16 for what is no digit.
unsigned int ValueOf(unsigned int character) {
    const std::string digits = "0123456789ABCDEF0123456789abcdef";
    const std::size_t at = digits.find(static_cast<char>(character));
    return at == std::string::npos ? 16 : static_cast<unsigned int>(at % 16);
}

TEST(ReadHexadecimal, KnowsTheTwentyTwoDigitsInEveryPlace) {
    for (const Way& way : c_ways)
        for (const std::size_t length : {1U, 15U, 16U, 33U})
            for (std::size_t place = 0; place < 2 * length; ++place)
                for (unsigned int character = 0; character < 0x100; ++character) {
                    std::string digits(2 * length, '0');
                    digits[place] = static_cast<char>(character);
                    const unsigned int value = ValueOf(character);
                    Bytes octets(length);
                    ASSERT_EQ(way.read(digits.data(), length, octets.data()), value < 16)
                        << way.name << ' ' << character << " at " << place << " of " << 2 * length;
                    if (value < 16) {
                        Bytes expected(length);
                        expected[place / 2] = static_cast<unsigned char>(place % 2 == 0 ? value << 4 : value);
                        ASSERT_EQ(octets, expected)
                            << way.name << ' ' << character << " at " << place << " of " << 2 * length;
                    }
                }
}

} // namespace
