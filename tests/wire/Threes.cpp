// Every way that this machine has to read and write characters of three octets.
#include "wire/Threes.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/Guarded.h"

namespace {

using tests::Guarded;
using Units = std::vector<unsigned char>;

struct Way {
    const char* name;
    std::size_t (*read)(const char*, unsigned char*);
    std::size_t (*write)(const unsigned char*, char*);
};

constexpr Way c_ways[] = {
    {"plainly", Wire::Plainly::ReadThreesBlock, Wire::Plainly::WriteThreesBlock},
#ifdef __SSE2__
    {"by SSE2", Wire::BySse2::ReadThreesBlock, Wire::BySse2::WriteThreesBlock},
#endif
};

/// U+4E2D, U+0800, U+FFFF, U+D7FF, U+E000, U+0FFF, U+1000 and U+20AC: the ends of what has three octets.
const std::string c_text = "\xE4\xB8\xAD"
                           "\xE0\xA0\x80"
                           "\xEF\xBF\xBF"
                           "\xED\x9F\xBF"
                           "\xEE\x80\x80"
                           "\xE0\xBF\xBF"
                           "\xE1\x80\x80"
                           "\xE2\x82\xAC";
const Units c_units = {0x4E, 0x2D, 0x08, 0x00, 0xFF, 0xFF, 0xD7, 0xFF,
                       0xE0, 0x00, 0x0F, 0xFF, 0x10, 0x00, 0x20, 0xAC};

/// Copies are read and written where a page ends that nobody may touch after.
std::size_t Read(const Way& way, const std::string& text, Units& units) {
    static const Guarded<char> source(c_text.data(), c_text.size());
    static const Guarded<unsigned char> room(c_units.data(), c_units.size());
    std::copy(text.begin(), text.end(), source.Data());
    const std::size_t threes = way.read(source.Data(), room.Data());
    units.assign(room.Data(), room.Data() + 2 * threes);
    return threes;
}

std::size_t Write(const Way& way, const Units& units, std::string& text) {
    static const std::string empty(24 + Wire::c_threesSlack, '?');
    static const Guarded<unsigned char> source(c_units.data(), c_units.size());
    static const Guarded<char> room(empty.data(), empty.size());
    std::copy(units.begin(), units.end(), source.Data());
    const std::size_t threes = way.write(source.Data(), room.Data());
    text.assign(room.Data(), 3 * threes);
    return threes;
}

TEST(Threes, EveryWayReadsAndWritesEach) {
    for (const Way& way : c_ways) {
        Units units;
        EXPECT_EQ(Read(way, c_text, units), 8U) << way.name;
        EXPECT_EQ(units, c_units) << way.name;
        std::string text;
        EXPECT_EQ(Write(way, c_units, text), 8U) << way.name;
        EXPECT_EQ(text, c_text) << way.name;
    }
}

/// Three octets at a place of the block.
void ExpectStopsAt(const Way& way, std::size_t place, const std::string& other) {
    std::string text = c_text;
    text.replace(3 * place, 3, other);
    Units units;
    ASSERT_EQ(Read(way, text, units), place) << way.name << testing::PrintToString(other);
    ASSERT_EQ(units, Units(c_units.begin(), c_units.begin() + static_cast<std::ptrdiff_t>(2 * place)));
}

TEST(Threes, EveryWayStopsAtOctetsThatAreNoThree) {
    const std::string others[] = {
        {"\xE0\x9F\xBF", 3}, {"\xE0\x80\x80", 3},                                           // overlong
        {"\xED\xA0\x80", 3}, {"\xED\xBF\xBF", 3},                                           // surrogates
        {"\xE4\x38\xAD", 3}, {"\xE4\xF8\xAD", 3}, {"\xE4\xB8\x2D", 3}, {"\xE4\xB8\xED", 3}, // no marks
        {"\xF4\xB8\xAD", 3}, {"\xC4\xB8\xAD", 3}, {"\x64\xB8\xAD", 3}, {"abc", 3},          // another form
        {"\xC3\xA9z", 3},    {"z\xC3\xA9", 3},
    };
    for (const Way& way : c_ways)
        for (const std::string& other : others)
            for (std::size_t place = 0; place < 8; ++place)
                ExpectStopsAt(way, place, other);
}

TEST(Threes, EveryWayKnowsEachFirstAndSecondOctet) {
    for (const Way& way : c_ways)
        for (unsigned int first = 0; first < 0x100; ++first)
            for (unsigned int second = 0; second < 0x100; ++second) {
                std::string text = c_text;
                text[9] = static_cast<char>(first);
                text[10] = static_cast<char>(second);
                const bool isThree = first >= 0xE0 && first <= 0xEF && second >= 0x80 && second <= 0xBF &&
                                     (first != 0xE0 || second >= 0xA0) && (first != 0xED || second < 0xA0);
                Units units;
                ASSERT_EQ(Read(way, text, units), isThree ? 8U : 3U) << way.name << first << ' ' << second;
            }
}

TEST(Threes, EveryWayKnowsEachUnitAtEachPlace) {
    for (const Way& way : c_ways)
        for (unsigned int unit = 0; unit < 0x10000; ++unit) {
            const std::size_t place = unit % 8;
            Units units = c_units;
            units[2 * place] = static_cast<unsigned char>(unit >> 8);
            units[2 * place + 1] = static_cast<unsigned char>(unit);
            const bool isThree = unit >= 0x800 && (unit < 0xD800 || unit > 0xDFFF);
            std::string text;
            ASSERT_EQ(Write(way, units, text), isThree ? 8U : place) << way.name << ' ' << unit;
            std::string expected = c_text.substr(0, isThree ? 24 : 3 * place);
            if (isThree) {
                expected[3 * place] = static_cast<char>(0xE0 + unit / 0x1000);
                expected[3 * place + 1] = static_cast<char>(0x80 + unit / 0x40 % 0x40);
                expected[3 * place + 2] = static_cast<char>(0x80 + unit % 0x40);
            }
            ASSERT_EQ(text, expected) << way.name << ' ' << unit;
            Units back;
            if (isThree) {
                ASSERT_EQ(Read(way, text, back), 8U) << way.name << ' ' << unit;
                ASSERT_EQ(back, units) << way.name << ' ' << unit;
            }
        }
}

// Runs: the last block may begin in the one before, and one alone takes eight characters.

TEST(Threes, RunsOfEachLength) {
    for (std::size_t length = 0; length <= 40; ++length)
        for (std::size_t run = 0; run <= length; ++run) {
            std::string text;
            Units units;
            for (std::size_t i = 0; i < length; ++i) {
                text += i == run ? std::string("abc") : c_text.substr(3 * (i % 8), 3);
                units.insert(units.end(), c_units.begin() + static_cast<std::ptrdiff_t>(2 * (i % 8)),
                             c_units.begin() + static_cast<std::ptrdiff_t>(2 * (i % 8) + 2));
            }
            if (run < length)
                units[2 * run] = units[2 * run + 1] = 0;
            const std::size_t expected = length < 8 ? 0 : run;

            const Guarded<char> source(text.data(), text.size());
            const Guarded<unsigned char> room(Units(2 * length).data(), 2 * length);
            ASSERT_EQ(Wire::ReadThrees(source.Data(), text.size(), room.Data()), expected) << length;
            ASSERT_TRUE(std::equal(units.begin(), units.begin() + static_cast<std::ptrdiff_t>(2 * expected),
                                   room.Data()));
            ASSERT_EQ(Wire::CountThrees(source.Data(), text.size()), expected) << length;

            const Guarded<unsigned char> from(units.data(), units.size());
            const std::size_t size = 3 * length + Wire::c_threesSlack;
            const Guarded<char> to(std::string(size, '?').data(), size);
            ASSERT_EQ(Wire::WriteThrees(from.Data(), length, to.Data()), expected) << length;
            ASSERT_EQ(std::string(to.Data(), 3 * expected), text.substr(0, 3 * expected));
        }
}

TEST(Threes, OctetsAfterTheLastWholeCharacterAreLeft) {
    const std::string text = c_text + "\xE4\xB8";
    unsigned char units[20];
    EXPECT_EQ(Wire::ReadThrees(text.data(), text.size(), units), 8U);
    EXPECT_EQ(Wire::CountThrees(text.data(), text.size()), 8U);
}

} // namespace
