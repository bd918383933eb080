// Septets out of octets, and text of septets and of UTF-16.
#include <algorithm>

#include <gtest/gtest.h>

#include "Messages/Alphabet.h"

namespace {

using namespace Messages;

using Octets = std::vector<std::uint8_t>;

std::string TextOf(const Octets& septets, SeptetTables tables = {}) {
    std::string text = ">";
    AppendSeptetText(septets, tables, text);
    return text.substr(1);
}

std::string Ucs2TextOf(const Octets& octets) {
    std::string text = ">";
    AppendUcs2Text(octets, text);
    return text.substr(1);
}

/// Bit by bit.
Octets UnpackPlainly(const Octets& octets, unsigned int firstBit, std::size_t count) {
    Octets septets;
    for (std::size_t bit = firstBit; septets.size() < count && bit + 7 <= 8 * octets.size(); bit += 7) {
        unsigned int septet = 0;
        for (unsigned int i = 0; i < 7; ++i)
            septet |= (octets[(bit + i) / 8] >> (bit + i) % 8 & 1U) << i;
        septets.push_back(static_cast<std::uint8_t>(septet));
    }
    return septets;
}

TEST(UnpackSeptets, OfEveryLengthFromEveryBit) {
    for (std::size_t size = 0; size <= 40; ++size) {
        Octets octets(size);
        for (std::size_t i = 0; i < size; ++i)
            octets[i] = static_cast<std::uint8_t>(i * 89 + 41);
        for (unsigned int firstBit = 0; firstBit < 8; ++firstBit)
            for (std::size_t count = 0; count <= 50; ++count) {
                Octets septets(count + 1, 0xAA);
                const std::size_t written = UnpackSeptets(octets, firstBit, count, septets.data());
                EXPECT_EQ(septets[written], 0xAA) << "nothing is written after the last one";
                septets.resize(written);
                ASSERT_EQ(septets, UnpackPlainly(octets, firstBit, count))
                    << size << ' ' << firstBit << ' ' << count;
            }
    }
}

TEST(SeptetText, GapOfALockingTable) {
    EXPECT_EQ(TextOf({0x0C, 0x61}, {Language::Kannada, Language::Default}), "\uFFFDa");
    EXPECT_EQ(TextOf({0x1B, 0x00}, {Language::Kannada, Language::Kannada}), "@")
        << "the single shift table has it";
}

TEST(SeptetText, Escapes) {
    EXPECT_EQ(TextOf({}), "");
    EXPECT_EQ(TextOf({0x1B, 0x65}), "€");
    EXPECT_EQ(TextOf({0x41, 0x1B}), "A");
    EXPECT_EQ(TextOf({0x1B, 0x1B, 0x1B, 0x1B, 0x65}), "  e") << "two pairs";
    EXPECT_EQ(TextOf({0x1B, 0x41}), "A");
    EXPECT_EQ(TextOf({0x1B, 0x0D, 0x42}), "B");
    EXPECT_EQ(TextOf({0x1B, 0x0A}), "\f");
    EXPECT_EQ(TextOf({0x1B, 0x63}, {Language::Default, Language::Turkish}), "ç");
    EXPECT_EQ(TextOf({0x1B, 0x07}, {Language::Turkish, Language::Default}), "ı") << "of the locking table";
    EXPECT_EQ(TextOf({0x00}, {Language::Kannada, Language::Default}), "\xEF\xBF\xBD");
}

TEST(SeptetText, IsTheSameWhereverOthersStand) {
    // Blocks of eight are copied at once where they can be.
    for (std::size_t before = 0; before < 20; ++before)
        for (std::size_t after = 0; after < 20; ++after) {
            Octets septets(before, 0x61);
            septets.insert(septets.end(), {0x1B, 0x65, 0x04, 0x00, 0x24});
            septets.insert(septets.end(), after, 0x7A);
            EXPECT_EQ(TextOf(septets), std::string(before, 'a') + "€è@¤" + std::string(after, 'z'));
        }
}

TEST(SeptetText, LongerThanAnyMessage) {
    // A pair at every place of a long text.
    for (std::size_t before = 505; before < 520; ++before) {
        Octets septets(before + 1802, 0x1B);
        std::fill_n(septets.begin(), before, std::uint8_t{0x61});
        septets[before + 1] = 0x65;
        std::fill(septets.end() - 700, septets.end(), std::uint8_t{0x62});
        EXPECT_EQ(TextOf(septets),
                  std::string(before, 'a') + "€" + std::string(550, ' ') + std::string(700, 'b'));
    }
}

TEST(Ucs2Text, Characters) {
    EXPECT_EQ(Ucs2TextOf({}), "");
    EXPECT_EQ(Ucs2TextOf({0x00, 0x41, 0x00, 0xE9, 0x20, 0xAC}), "Aé€");
    EXPECT_EQ(Ucs2TextOf({0x00, 0x7F, 0x00, 0x80, 0x07, 0xFF, 0x08, 0x00, 0xFF, 0xFF}),
              "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
    EXPECT_EQ(Ucs2TextOf({0x00, 0x00, 0x00, 0x41}), std::string("\0A", 2));
    EXPECT_EQ(Ucs2TextOf({0xD8, 0x3D, 0xDE, 0x00}), "😀");
    EXPECT_EQ(Ucs2TextOf({0xD8, 0x00, 0xDC, 0x00, 0xDB, 0xFF, 0xDF, 0xFF}),
              "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");
    EXPECT_EQ(Ucs2TextOf({0xD8, 0x3D}), "\xEF\xBF\xBD");
    EXPECT_EQ(Ucs2TextOf({0xDE, 0x00, 0xD8, 0x3D}), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(Ucs2TextOf({0xD8, 0x3D, 0xD8, 0x3D, 0xDE, 0x00}), "\xEF\xBF\xBD😀");
    EXPECT_EQ(Ucs2TextOf({0xE0, 0x00, 0xD7, 0xFF}), "\xEE\x80\x80\xED\x9F\xBF");
    EXPECT_EQ(Ucs2TextOf({0x00, 0x41, 0x00}), "A");
    EXPECT_EQ(Ucs2TextOf({0x00}), "");
}

TEST(Ucs2Text, LongerThanAnyMessage) {
    for (std::size_t before = 505; before < 520; ++before) {
        Octets octets;
        for (std::size_t i = 0; i < before; ++i)
            octets.insert(octets.end(), {0x00, 0x61});
        std::string expected(before, 'a');
        for (int i = 0; i < 600; ++i) {
            octets.insert(octets.end(), {0xD8, 0x3D, 0xDE, 0x00});
            expected += "😀";
        }
        EXPECT_EQ(Ucs2TextOf(octets), expected);
    }
}

TEST(Ucs2Text, LongerThanAnyMessageWithAHalfBeforeAPair) {
    for (std::size_t before = 505; before < 520; ++before) {
        Octets octets(2 * before);
        octets.insert(octets.end(), {0xD8, 0x3D, 0xD8, 0x3D, 0xDE, 0x00});
        EXPECT_EQ(Ucs2TextOf(octets), std::string(before, '\0') + "\xEF\xBF\xBD😀") << before;
    }
}

TEST(Ucs2Text, LongerThanAnyMessageThatEndsInAHalf) {
    for (std::size_t before = 505; before < 520; ++before) {
        Octets octets(2 * before);
        octets.insert(octets.end(), {0xD8, 0x3D});
        EXPECT_EQ(Ucs2TextOf(octets), std::string(before, '\0') + "\xEF\xBF\xBD") << before;
    }
}

} // namespace
