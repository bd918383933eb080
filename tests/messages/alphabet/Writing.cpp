// Text made septets and UTF-16, and septets packed.
#include <algorithm>

#include <gtest/gtest.h>

#include "Messages/Alphabet.h"

namespace {

using namespace Messages;

using Octets = std::vector<std::uint8_t>;

constexpr SeptetTables In(Language locking, Language single) {
    return {locking, single};
}
constexpr SeptetTables c_default{};

/// The septets of a text; "misfit OFFSET CHARACTER" where one has none.
std::string SeptetsOf(std::string_view text, SeptetTables tables = c_default) {
    Octets septets = {0x55};
    if (const auto misfit = AppendSeptets(text, tables, septets)) {
        EXPECT_EQ(ToHex(septets), "55") << "as it was";
        return "misfit " + std::to_string(misfit->offset) + ' ' +
               std::to_string(static_cast<std::uint32_t>(misfit->character));
    }
    return ToHex(septets).substr(2);
}

std::string Ucs2Of(std::string_view text) {
    Octets octets = {0x55};
    if (const auto misfit = AppendUcs2(text, octets)) {
        EXPECT_EQ(ToHex(octets), "55") << "as it was";
        return "misfit " + std::to_string(misfit->offset);
    }
    return ToHex(octets).substr(2);
}

TEST(AppendSeptets, OfEachKindOfCharacter) {
    EXPECT_EQ(SeptetsOf(""), "");
    EXPECT_EQ(SeptetsOf("@A\r\nà"), "00410D0A7F");
    EXPECT_EQ(SeptetsOf("€[\f"), "1B651B3C1B0A");
    EXPECT_EQ(SeptetsOf("€", In(Language::Turkish, Language::Default)), "04") << "one septet is fewer";
    EXPECT_EQ(SeptetsOf("ç", In(Language::Default, Language::Turkish)), "1B63");
    EXPECT_EQ(SeptetsOf("ç", In(Language::Turkish, Language::Turkish)), "60");
    EXPECT_EQ(SeptetsOf("नमस्ते", In(Language::Hindi, Language::Default)), "2F424C5F2759");
    EXPECT_EQ(SeptetsOf("ì", In(Language::Spanish, Language::Default)), "07") << "the default alphabet";
}

/// What is not its own septet, at each place of texts of many blocks.
TEST(AppendSeptets, OfPlainTextWithAnotherAtEachPlace) {
    for (const std::size_t length : {1U, 15U, 16U, 17U, 63U, 64U, 65U, 80U, 127U, 128U, 129U, 140U}) {
        for (std::size_t place = 0; place < length; ++place) {
            std::string text(length, 'a');
            Octets expected(length, 0x61);
            text[place] = '@';
            expected[place] = 0x00;
            Octets septets;
            EXPECT_FALSE(AppendSeptets(text, c_default, septets));
            EXPECT_EQ(septets, expected) << place << " of " << length;
        }
    }
}

TEST(AppendSeptets, WriteTheLowerOfTwoSeptets) {
    EXPECT_EQ(SeptetsOf("¡", In(Language::Default, Language::Hindi)), "40") << "in the default alphabet";
    EXPECT_EQ(SeptetsOf("¡*", In(Language::Hindi, Language::Hindi)), "1B131B0B") << "not 15 and 18";
}

TEST(AppendSeptets, NeverWriteTelugusEuroSign) {
    EXPECT_EQ(SeptetsOf("A€", In(Language::Default, Language::Telugu)), "misfit 1 8364");
    EXPECT_EQ(SeptetsOf("A€", In(Language::Default, Language::Tamil)), "411B65");
}

TEST(AppendSeptets, TellTheFirstCharacterThatHasNone) {
    EXPECT_EQ(SeptetsOf("Aç€"), "misfit 1 231");
    EXPECT_EQ(SeptetsOf("😀"), "misfit 0 128512");
    EXPECT_EQ(SeptetsOf(std::string_view("\0", 1)), "misfit 0 0");
    EXPECT_EQ(SeptetsOf("\x1B"), "misfit 0 27") << "an escape is no character";
    EXPECT_EQ(SeptetsOf("AB\xFF"), "misfit 2 4294967295");
}

TEST(AppendSeptets, AndTheTextOfThemAreOneInEveryPairOfTables) {
    for (std::uint8_t locking = 0; locking <= c_lastLanguage; ++locking)
        for (std::uint8_t single = 0; single <= c_lastLanguage; ++single) {
            const SeptetTables tables = In(static_cast<Language>(locking), static_cast<Language>(single));
            for (std::uint8_t septet = 0; septet < 128; ++septet)
                for (const Octets& written : {Octets{septet}, Octets{c_escapeSeptet, septet}}) {
                    const bool isEscaped = written.size() == 2;
                    const char16_t character = isEscaped ? SingleShiftCharacter(tables.single, septet)
                                                         : LockingCharacter(tables.locking, septet);
                    if (character == 0)
                        continue;
                    std::string text;
                    AppendSeptetText(written, tables, text);
                    Octets again;
                    const auto misfit = AppendSeptets(text, tables, again);
                    const bool isTelugusEuro = misfit && single == 12 && isEscaped && septet == 0x65;
                    ASSERT_EQ(misfit.has_value(), isTelugusEuro) << ToHex(written);
                    if (misfit)
                        continue;
                    // No more septets, and no higher one; and they are the same character.
                    ASSERT_LE(again.size(), written.size());
                    ASSERT_TRUE(again.size() < written.size() || again.back() <= written.back());
                    std::string back;
                    AppendSeptetText(again, tables, back);
                    ASSERT_EQ(back, text) << ToHex(written);
                }
        }
}

TEST(AppendUcs2, OfEveryLengthInUtf8) {
    EXPECT_EQ(Ucs2Of(""), "");
    EXPECT_EQ(Ucs2Of(std::string_view("\0A", 2)), "00000041");
    EXPECT_EQ(Ucs2Of("\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF"), "007F008007FF0800FFFF");
    EXPECT_EQ(Ucs2Of("\xED\x9F\xBF\xEE\x80\x80"), "D7FFE000");
    EXPECT_EQ(Ucs2Of("\xF0\x90\x80\x80😀\xF4\x8F\xBF\xBF"), "D800DC00D83DDE00DBFFDFFF");
}

TEST(AppendUcs2, TellsWhereTheTextIsNoUtf8) {
    for (const std::string_view octets :
         {"\x80", "\xBF", "\xC1\xBF", "\xC3", "\xC3\x41", "\xE0\x9F\xBF", "\xE2\x82", "\xE2\x82\x41",
          "\xED\xA0\x80", "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF", "\xF0\x9F\x98", "\xF0\x9F\x98\xC0",
          "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF"}) {
        EXPECT_EQ(Ucs2Of("Aé" + std::string(octets)), "misfit 3")
            << ToHex({reinterpret_cast<const std::uint8_t*>(octets.data()), octets.size()});
    }
}

/// Bit by bit.
Octets PackPlainly(const Octets& septets, unsigned int firstBit) {
    Octets octets((firstBit + 7 * septets.size() + 7) / 8);
    for (std::size_t bit = 0; bit < 7 * septets.size(); ++bit)
        if ((septets[bit / 7] >> bit % 7 & 1U) != 0)
            octets[(firstBit + bit) / 8] =
                static_cast<std::uint8_t>(octets[(firstBit + bit) / 8] | 1U << (firstBit + bit) % 8);
    return octets;
}

TEST(PackSeptets, OfEveryLengthFromEveryBit) {
    for (std::size_t count = 0; count <= 160; ++count) {
        Octets septets(count);
        for (std::size_t i = 0; i < count; ++i)
            septets[i] = static_cast<std::uint8_t>((i * 89 + 41) % 128);
        for (unsigned int firstBit = 0; firstBit < 8; ++firstBit) {
            const Octets expected = PackPlainly(septets, firstBit);
            Octets octets(expected.size() + 1, 0xAA);
            ASSERT_EQ(PackSeptets(septets, firstBit, octets.data()), expected.size());
            EXPECT_EQ(octets.back(), 0xAA) << "nothing is written after the last one";
            octets.pop_back();
            ASSERT_EQ(octets, expected) << count << ' ' << firstBit;
        }
    }
}

} // namespace
