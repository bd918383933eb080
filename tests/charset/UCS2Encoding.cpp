// The UCS2 hex form.
#include "Encoding/UCS2Encoding.h"

#include <cstring>

#include <gtest/gtest.h>

#include "support/Octets.h"

namespace {

using Encoding::UCS2Encoding;
using tests::Wide;

TString<wchar_t> Widened(const TString<char>& text) {
    return TString<wchar_t>(text.begin(), text.end());
}

TEST(UCS2Encoding, DigitTables) {
    EXPECT_EQ(sizeof UCS2Encoding::c_toHex, 17U);
    EXPECT_STREQ(UCS2Encoding::c_toHex, "0123456789ABCDEF");
    const char* digits = "0123456789ABCDEFabcdef";
    for (int code = 0; code < 256; ++code) {
        const char* digit = code == 0 ? nullptr : std::strchr(digits, code);
        const auto place = digit == nullptr ? 0 : digit - digits;
        EXPECT_EQ(UCS2Encoding::c_fromHex[code], place > 15 ? place - 6 : place) << "character " << code;
    }
}

TEST(ToUCS2, WritesFourUpperCaseDigitsForTheLow16Bits) {
    const struct {
        TString<wchar_t> text;
        const char* hex;
    } rows[] = {{Wide({0x0041, 0x20AC}), "004120AC"},
                {Wide({}), ""},
                {Wide({0x00E9}), "00E9"},
                {Wide({0xFFFF}), "FFFF"},
                {Wide({0x1F600}), "F600"},
                {Wide({0x1234, 0xABCD}), "1234ABCD"}};
    for (const auto& row : rows) {
        EXPECT_EQ(UCS2Encoding::ToUCS2(row.text), Widened(row.hex));
        EXPECT_EQ(UCS2Encoding::ToUCS2S(row.text), row.hex);
    }
}

TEST(ToUString, ReadsGroupsOfFourLeniently) {
    const struct {
        const char* hex;
        TString<wchar_t> text;
    } rows[] = {{"00410042", Wide({0x41, 0x42})},
                {"004", {}},
                {"", {}},
                {"00e9", Wide({0xE9})},
                {"00G1", Wide({1})},
                {"0041004", Wide({0x41})},
                {"00410", Wide({0x41})},
                {"00 1", Wide({1})},
                {"abCD", Wide({0xABCD})},
                {"G234", Wide({0x0234})},
                {"1g34", Wide({0x1034})},
                {"123/", Wide({0x1230})}};
    for (const auto& row : rows) {
        EXPECT_EQ(UCS2Encoding::ToUString(TString<char>(row.hex)), row.text) << row.hex;
        EXPECT_EQ(UCS2Encoding::ToUString(Widened(row.hex)), row.text) << row.hex;
    }
}

TEST(ToUString, BytesFrom0x80OnReadAsZero) {
    EXPECT_EQ(UCS2Encoding::ToUString(TString<char>("0\xFF"
                                                    "41")),
              Wide({0x0041}));
    EXPECT_EQ(UCS2Encoding::ToUString(TString<char>("\x80\xE1\xC2"
                                                    "4")),
              Wide({0x0004}));
}

TEST(ToUString, WideTextIsConvertedToUtf8First) {
    // U+00E9 is two octets of UTF-8, so that the group ends one character sooner.
    EXPECT_EQ(UCS2Encoding::ToUString(Wide({'0', 0xE9, '1', '2', '3', '4'})), Wide({0x0001}));
    EXPECT_EQ(UCS2Encoding::ToUString(Wide({'0', 0xE9, '1'})), Wide({0x0001}));
}

TEST(ToUString, GivesBackEvery16BitCharacter) {
    TString<wchar_t> text;
    for (unsigned int unit = 0; unit <= 0xFFFF; ++unit)
        text += static_cast<wchar_t>(unit);
    EXPECT_EQ(UCS2Encoding::ToUString(UCS2Encoding::ToUCS2(text)), text);
    EXPECT_EQ(UCS2Encoding::ToUString(UCS2Encoding::ToUCS2S(text)), text);
    EXPECT_EQ(UCS2Encoding::ToUCS2(text).size(), 4 * text.size());
}

TEST(IsUCS2, LiteralExamples) {
    const struct {
        const char* hex;
        bool is;
    } rows[] = {{"00410042", true},
                {"0041", false},
                {"004100420", false},
                {"ABCDEF12", false},
                {"ZZZZ0000", true},
                {"00410a42", false},
                {"004100420043", true},
                {"abcd0041", false},
                {"", false},
                {"0000000", false},
                {"00000000", true},
                {"AAAAA000", false},
                {"AAAA0000", true},
                {"0041 042", false},
                {"0041/042", false},
                {"0041:042", false},
                {"0041@042", false},
                {"0041[042", false},
                {"0041\xC1"
                 "042",
                 false}};
    for (const auto& row : rows)
        EXPECT_EQ(UCS2Encoding::IsUCS2(TString<char>(row.hex)), row.is) << row.hex;
    EXPECT_TRUE(UCS2Encoding::IsUCS2(Widened("00410042")));
    EXPECT_FALSE(UCS2Encoding::IsUCS2(Widened("0041004")));
    EXPECT_FALSE(UCS2Encoding::IsUCS2(Wide({'0', '0', '0', '0', '0', '0', 0xE9})));
}

TEST(IsUCS2, ClassifiesEveryStringOverASmallAlphabet) {
    const char characters[] = {'7', 'Q', 'f'};
    for (std::size_t length = 0; length <= 12; ++length) {
        std::size_t strings = 1;
        for (std::size_t i = 0; i < length; ++i)
            strings *= 3;
        for (std::size_t n = 0; n < strings; ++n) {
            TString<char> text;
            std::size_t digits = 0;
            bool hasJunk = false;
            for (std::size_t i = 0, rest = n; i < length; ++i, rest /= 3) {
                text += characters[rest % 3];
                digits += rest % 3 == 0 ? 1 : 0;
                hasJunk = hasJunk || rest % 3 == 2;
            }
            const bool expected = (length == 8 || length == 12) && !hasJunk && digits >= 4;
            ASSERT_EQ(UCS2Encoding::IsUCS2(text), expected) << text;
        }
    }
}

} // namespace
