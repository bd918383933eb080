// The alphabets: a character from each table that no other table has at its place, holes, and whose tables
// there are.
#include <gtest/gtest.h>

#include "Messages/Alphabet.h"

namespace {

using namespace Messages;

TEST(LockingTable, OfEachLanguage) {
    const struct {
        Language language;
        std::uint8_t septet;
        char16_t character;
    } cases[] = {
        {Language::Default, 0x00, u'@'},     {Language::Default, 0x09, u'Ç'},
        {Language::Default, 0x10, u'Δ'},     {Language::Default, 0x24, u'¤'},
        {Language::Default, 0x7F, u'à'},     {Language::Turkish, 0x07, u'ı'},
        {Language::Turkish, 0x04, u'€'},     {Language::Turkish, 0x40, u'İ'},
        {Language::Portuguese, 0x0C, u'ô'},  {Language::Bengali, 0x00, 0x0981},
        {Language::Gujarati, 0x01, 0x0A82},  {Language::Hindi, 0x03, 0x0905},
        {Language::Kannada, 0x01, 0x0C82},   {Language::Kannada, 0x24, 0x0CA1},
        {Language::Malayalam, 0x03, 0x0D05}, {Language::Oriya, 0x03, 0x0B05},
        {Language::Punjabi, 0x01, 0x0A02},   {Language::Tamil, 0x03, 0x0B85},
        {Language::Telugu, 0x03, 0x0C05},    {Language::Urdu, 0x00, 0x0627},
        {Language::Urdu, 0x03, 0x067B},      {Language::Spanish, 0x07, u'ì'}, // the default alphabet
    };
    for (const auto& one : cases)
        EXPECT_EQ(LockingCharacter(one.language, one.septet), one.character)
            << static_cast<int>(one.language) << ' ' << static_cast<int>(one.septet);
    EXPECT_EQ(LockingCharacter(Language::Default, c_escapeSeptet), u'\0');
    EXPECT_EQ(LockingCharacter(Language::Kannada, 0x00), u'\0') << "no character";
}

TEST(SingleShiftTable, OfEachLanguage) {
    const struct {
        Language language;
        std::uint8_t septet;
        char16_t character;
    } cases[] = {
        {Language::Default, 0x0A, u'\f'},   {Language::Default, 0x14, u'^'},  {Language::Default, 0x28, u'{'},
        {Language::Default, 0x40, u'|'},    {Language::Default, 0x65, u'€'},  {Language::Turkish, 0x53, u'Ş'},
        {Language::Turkish, 0x63, u'ç'},    {Language::Spanish, 0x41, u'Á'},  {Language::Spanish, 0x09, u'ç'},
        {Language::Portuguese, 0x05, u'ê'}, {Language::Bengali, 0x00, u'@'},  {Language::Tamil, 0x24, 0x0BEE},
        {Language::Telugu, 0x22, 0x0C6C},   {Language::Telugu, 0x23, 0x0C6D}, {Language::Telugu, 0x65, u'€'},
    };
    for (const auto& one : cases)
        EXPECT_EQ(SingleShiftCharacter(one.language, one.septet), one.character)
            << static_cast<int>(one.language) << ' ' << static_cast<int>(one.septet);
    EXPECT_EQ(SingleShiftCharacter(Language::Default, 0x41), u'\0') << "no entry";
    EXPECT_EQ(SingleShiftCharacter(Language::Default, 0x0D), u'\0') << "a control code";
    EXPECT_EQ(SingleShiftCharacter(Language::Default, c_escapeSeptet), u'\0');
}

TEST(Languages, SpanishHasNoLockingTable) {
    for (std::uint8_t i = 0; i <= c_lastLanguage; ++i) {
        const auto language = static_cast<Language>(i);
        EXPECT_EQ(HasLockingTable(language), language != Language::Spanish);
        EXPECT_TRUE(HasSingleShiftTable(language));
    }
    EXPECT_FALSE(HasLockingTable(static_cast<Language>(c_lastLanguage + 1)));
    EXPECT_FALSE(HasSingleShiftTable(static_cast<Language>(c_lastLanguage + 1)));
    EXPECT_FALSE(HasLockingTable(static_cast<Language>(255)));
}

} // namespace
