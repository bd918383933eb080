// What is near enough to be sent in place of a character.
#include "characters/Replacements.h"

#include <gtest/gtest.h>

namespace {

using qxpdu::ReplacementOf;

TEST(ReplacementOf, CharactersOfEachKind) {
    const struct {
        char32_t character;
        std::u32string_view replacement;
    } cases[] = {
        {U'‹', U"'"},       {U'″', U"\""},    {U'\u2015', U"-"}, {U'…', U"..."}, {U'\u3000', U" "},
        {U'\u2029', U"\n"}, {U'\uFEFF', U""}, {U'\u0328', U""},  {U'•', U"*"},   {U'·', U"."},
        {U'©', U"(c)"},     {U'®', U"(R)"},   {U'™', U"(TM)"},   {U'№', U"No."}, {U'×', U"x"},
        {U'⁄', U"/"},       {U'¦', U"|"},     {U'¹', U"1"},      {U'²', U"2"},   {U'³', U"3"},
        {U'¼', U"1/4"},     {U'½', U"1/2"},   {U'¾', U"3/4"},    {U'←', U"<-"},  {U'→', U"->"},
        {U'Ą', U"A"},       {U'ª', U"a"},     {U'Č', U"C"},      {U'č', U"c"},   {U'Ð', U"D"},
        {U'ð', U"d"},       {U'Ě', U"E"},     {U'ě', U"e"},      {U'Ģ', U"G"},   {U'ģ', U"g"},
        {U'Ħ', U"H"},       {U'ħ', U"h"},     {U'Į', U"I"},      {U'į', U"i"},   {U'Ĵ', U"J"},
        {U'ĵ', U"j"},       {U'Ķ', U"K"},     {U'ķ', U"k"},      {U'Ł', U"L"},   {U'ŀ', U"l"},
        {U'Ň', U"N"},       {U'ň', U"n"},     {U'Ŏ', U"O"},      {U'º', U"o"},   {U'Ő', U"Ö"},
        {U'ő', U"ö"},       {U'Ř', U"R"},     {U'ř', U"r"},      {U'Ș', U"S"},   {U'ſ', U"s"},
        {U'Ţ', U"T"},       {U'ť', U"t"},     {U'Ų', U"U"},      {U'ų', U"u"},   {U'Ű', U"Ü"},
        {U'ű', U"ü"},       {U'Ŵ', U"W"},     {U'ŵ', U"w"},      {U'Ÿ', U"Y"},   {U'ŷ', U"y"},
        {U'Ž', U"Z"},       {U'ź', U"z"},     {U'ẞ', U"ß"},      {U'Œ', U"OE"},  {U'œ', U"oe"},
        {U'Ĳ', U"IJ"},      {U'ĳ', U"ij"},    {U'ŉ', U"'n"},     {U'Þ', U"Th"},  {U'þ', U"th"},
    };
    for (const auto& one : cases)
        EXPECT_TRUE(ReplacementOf(one.character) == one.replacement)
            << std::hex << static_cast<std::uint32_t>(one.character);
    for (const char32_t character : {U'ж', U'α', U'ç', U'a', U'\U0001F600'})
        EXPECT_FALSE(ReplacementOf(character)) << std::hex << static_cast<std::uint32_t>(character);
}

} // namespace
