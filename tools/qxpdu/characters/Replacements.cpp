#include "characters/Replacements.h"

#include <algorithm>

namespace qxpdu {

namespace {

struct Row {
    std::u32string_view characters;
    std::u32string_view replacement;
};

// Characters that cannot be seen, or not told apart, are written by their code points.
constexpr Row c_rows[] = {
    {U"‘’‚‛′‹›`´", U"'"},
    {U"“”„‟″«»", U"\""},
    {U"\u2010\u2011\u2012\u2013\u2014\u2015\u2212", U"-"}, // hyphens, dashes, minus
    {U"…", U"..."},
    {U"\u0009\u00A0\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200A\u202F\u205F\u3000", U" "},
    {U"\u2028\u2029", U"\n"},
    {U"\u00AD\u200B\u200C\u200D\u200E\u200F\u2060\uFE0E\uFE0F\uFEFF", U""}, // nothing to see
    {U"\u0300\u0301\u0302\u0303\u0304\u0306\u0307\u0308\u030A\u030B\u030C\u0327\u0328", U""}, // combining
    {U"•", U"*"},
    {U"·", U"."},
    {U"©", U"(c)"},
    {U"®", U"(R)"},
    {U"™", U"(TM)"},
    {U"№", U"No."},
    {U"×", U"x"},
    {U"÷⁄", U"/"},
    {U"¦", U"|"},
    {U"¹", U"1"},
    {U"²", U"2"},
    {U"³", U"3"},
    {U"¼", U"1/4"},
    {U"½", U"1/2"},
    {U"¾", U"3/4"},
    {U"←", U"<-"},
    {U"→", U"->"},
    {U"ÀÁÂÃĀĂĄ", U"A"},
    {U"áâãāăąª", U"a"},
    {U"ÇĆĈĊČ", U"C"},
    {U"ćĉċč¢", U"c"},
    {U"ĎĐÐ", U"D"},
    {U"ďđð", U"d"},
    {U"ÈÊËĒĔĖĘĚ", U"E"},
    {U"êëēĕėęě", U"e"},
    {U"ĜĞĠĢ", U"G"},
    {U"ĝğġģ", U"g"},
    {U"ĤĦ", U"H"},
    {U"ĥħ", U"h"},
    {U"ÌÍÎÏĨĪĬĮİ", U"I"},
    {U"íîïĩīĭįı", U"i"},
    {U"Ĵ", U"J"},
    {U"ĵ", U"j"},
    {U"Ķ", U"K"},
    {U"ķĸ", U"k"},
    {U"ĹĻĽĿŁ", U"L"},
    {U"ĺļľŀł", U"l"},
    {U"ŃŅŇŊ", U"N"},
    {U"ńņňŋ", U"n"},
    {U"ÒÓÔÕŌŎ", U"O"},
    {U"óôõōŏº", U"o"},
    {U"Ő", U"Ö"},
    {U"ő", U"ö"},
    {U"ŔŖŘ", U"R"},
    {U"ŕŗř", U"r"},
    {U"ŚŜŞŠȘ", U"S"},
    {U"śŝşšșſ", U"s"},
    {U"ŢŤŦȚ", U"T"},
    {U"ţťŧț", U"t"},
    {U"ÙÚÛŨŪŬŮŲ", U"U"},
    {U"úûũūŭůų", U"u"},
    {U"Ű", U"Ü"},
    {U"ű", U"ü"},
    {U"Ŵ", U"W"},
    {U"ŵ", U"w"},
    {U"ÝŶŸ", U"Y"},
    {U"ýŷÿ", U"y"},
    {U"ŹŻŽ", U"Z"},
    {U"źżž", U"z"},
    {U"ẞ", U"ß"},
    {U"Œ", U"OE"},
    {U"œ", U"oe"},
    {U"Ĳ", U"IJ"},
    {U"ĳ", U"ij"},
    {U"ŉ", U"'n"},
    {U"Þ", U"Th"},
    {U"þ", U"th"},
};

} // namespace

std::optional<std::u32string_view> ReplacementOf(char32_t character) {
    const auto* const row = std::find_if(std::begin(c_rows), std::end(c_rows), [character](const Row& each) {
        return each.characters.find(character) != std::u32string_view::npos;
    });
    if (row == std::end(c_rows))
        return std::nullopt;
    return row->replacement;
}

} // namespace qxpdu
