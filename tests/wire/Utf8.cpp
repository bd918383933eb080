// One character in UTF-8, there and back: every value, and what is no UTF-8.
#include "wire/Utf8.h"

#include <string>

#include <gtest/gtest.h>

#include "support/Guarded.h"
#include "support/Octets.h"

namespace {

using tests::Guarded;

std::string Written(char32_t character) {
    char octets[5] = {'?', '?', '?', '?', '?'};
    return {octets, static_cast<std::size_t>(Wire::WriteUtf8(character, octets) - octets)};
}

struct Reading {
    std::ptrdiff_t length; ///< 0: no UTF-8
    char32_t character;
};

Reading Read(const std::string& octets) {
    const Guarded<char> source(octets.data(), octets.size());
    Reading reading{0, 0};
    if (const char* const next =
            Wire::ReadUtf8(source.Data(), source.Data() + octets.size(), reading.character))
        reading.length = next - source.Data();
    return reading;
}

std::string Octets(const char* hex) {
    const tests::Bytes octets = tests::Octets(hex);
    return {octets.begin(), octets.end()};
}

struct Edge {
    char32_t character;
    const char* octets;
};

/// First and last of each length, the pattern of the bits, and both sides of the surrogates.
constexpr Edge c_edges[] = {{0x00, "00"},
                            {0x7F, "7F"},
                            {0x80, "C2 80"},
                            {0x7FF, "DF BF"},
                            {0x555, "D5 95"},
                            {0x2AA, "CA AA"},
                            {0x800, "E0 A0 80"},
                            {0xD7FF, "ED 9F BF"},
                            {0xE000, "EE 80 80"},
                            {0xFFFF, "EF BF BF"},
                            {0x5555, "E5 95 95"},
                            {0xAAAA, "EA AA AA"},
                            {0xFFFD, "EF BF BD"},
                            {0x10000, "F0 90 80 80"},
                            {0x10FFFF, "F4 8F BF BF"},
                            {0x55555, "F1 95 95 95"},
                            {0xAAAAA, "F2 AA AA AA"},
                            {0xFFFFF, "F3 BF BF BF"},
                            {0x100000, "F4 80 80 80"}};

TEST(Utf8, WritesAndReadsTheEdges) {
    for (const Edge& edge : c_edges) {
        SCOPED_TRACE(edge.octets);
        const std::string octets = Octets(edge.octets);
        EXPECT_EQ(Written(edge.character), octets);
        const Reading reading = Read(octets);
        EXPECT_EQ(reading.character, edge.character);
        EXPECT_EQ(reading.length, static_cast<std::ptrdiff_t>(octets.size()));
        EXPECT_EQ(Read(octets + '\x80').length, reading.length) << "what follows is not looked at";
    }
}

TEST(Utf8, ReadsBackWhatItWrites) {
    for (char32_t character = 0; character <= 0x10FFFF; character += character == 0xD7FF ? 0x801 : 1) {
        char octets[4];
        const char* const end = Wire::WriteUtf8(character, octets);
        char32_t read = 0;
        ASSERT_EQ(Wire::ReadUtf8(octets, end, read), end);
        ASSERT_EQ(read, character);
    }
}

TEST(Utf8, RefusesWhatIsMissingAndReadsNothingAfterTheEnd) {
    for (const Edge& edge : c_edges) {
        const std::string octets = Octets(edge.octets);
        for (std::size_t length = 1; length < octets.size(); ++length)
            EXPECT_EQ(Read(octets.substr(0, length)).length, 0) << edge.octets << " cut at " << length;
    }
}

TEST(Utf8, RefusesATrailOctetThatIsNone) {
    for (const char* const hex : {"C3 A9", "E2 82 AC", "F0 9F 98 80"}) {
        const std::string octets = Octets(hex);
        for (std::size_t place = 1; place < octets.size(); ++place) {
            for (const int wrong : {0x00, 0x7F, 0xC0, 0xFF}) {
                std::string broken = octets;
                broken[place] = static_cast<char>(wrong);
                EXPECT_EQ(Read(broken).length, 0) << hex << ": " << wrong << " at " << place;
            }
        }
    }
}

TEST(Utf8, RefusesOverlongFormsSurrogatesAndWhatIsAboveTheLast) {
    for (const char* const hex :
         {"80",          "BF",          "80 80",       "BF BF BF",    "C0 80",          "C0 AF",
          "C1 BF",       "E0 80 80",    "E0 9F BF",    "ED A0 80",    "ED BF BF",       "F0 80 80 80",
          "F0 8F BF BF", "F4 90 80 80", "F5 80 80 80", "F7 BF BF BF", "F8 88 80 80 80", "FE",
          "FF",          "FF BF BF BF"})
        EXPECT_EQ(Read(Octets(hex)).length, 0) << hex;
}

/// Four characters of three octets each, which take every bit through both of its values.
constexpr char32_t c_block[] = {0x5555, 0xAAAA, 0x0800, 0xFFFF};
const std::string c_blockOctets = Octets("E5 95 95 EA AA AA E0 A0 80 EF BF BF");

std::string WrittenBlock(const char32_t* block) {
    const Guarded<char32_t> source(block, Wire::c_utf8Block);
    const std::string unset(Wire::c_utf8Block * Wire::c_longestUtf8, '?');
    const Guarded<char> room(unset.data(), unset.size());
    return Wire::WriteBlockOfThree(source.Data(), room.Data())
               ? std::string(room.Data(), c_blockOctets.size())
               : std::string();
}

/// The characters; none where one of them is not of three octets.
std::u32string ReadBlock(const std::string& octets) {
    const Guarded<char> source(octets.data(), octets.size());
    std::u32string characters(Wire::c_utf8Block, U'?');
    return Wire::ReadBlockOfThree(source.Data(), characters.data()) ? characters : std::u32string();
}

TEST(Utf8, WritesAndReadsBlocksOfThree) {
    EXPECT_EQ(WrittenBlock(c_block), c_blockOctets);
    EXPECT_EQ(ReadBlock(c_blockOctets + '!'), std::u32string(c_block, 4));
    ASSERT_EQ(c_blockOctets.size() + 1, Wire::c_blockOfThreeReach);
}

TEST(Utf8, ABlockIsOfThreeOnlyWhenEachCharacterIs) {
    struct Row {
        char32_t character;
        bool isOfThree;
    };
    constexpr Row rows[] = {{0, false},        {0x7F, false},      {0x80, false},    {0x7FF, false},
                            {0x800, true},     {0xD7FF, true},     {0xD800, false},  {0xDFFF, false},
                            {0xE000, true},    {0xFFFF, true},     {0x10000, false}, {0x14E2D, false},
                            {0x10FFFF, false}, {0x80004E2D, false}};
    for (const Row& row : rows) {
        for (std::size_t place = 0; place < Wire::c_utf8Block; ++place) {
            char32_t block[] = {0x4E2D, 0x4E2D, 0x4E2D, 0x4E2D};
            block[place] = row.character;
            EXPECT_EQ(!WrittenBlock(block).empty(), row.isOfThree)
                << static_cast<unsigned int>(row.character) << " at " << place;
        }
    }
}

TEST(Utf8, ABlockIsReadOnlyWhenEachOctetIsRight) {
    for (std::size_t place = 0; place < c_blockOctets.size(); ++place) {
        for (unsigned int octet = 0; octet < 0x100; ++octet) {
            std::string octets = c_blockOctets + '!';
            octets[place] = static_cast<char>(octet);
            const char* const first = octets.data() + place / 3 * 3;
            char32_t character = 0;
            const bool isOfThree = Wire::ReadUtf8(first, first + 3, character) == first + 3;
            const std::u32string characters = ReadBlock(octets);
            ASSERT_EQ(!characters.empty(), isOfThree) << octet << " at " << place;
            if (isOfThree) {
                ASSERT_EQ(characters[place / 3], character) << octet << " at " << place;
            }
        }
    }
}

} // namespace
