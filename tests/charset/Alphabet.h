// The alphabet as the tests have it: written out again, by character rather than by row.
#ifndef TESTS_CHARSET_ALPHABET_H
#define TESTS_CHARSET_ALPHABET_H

#include <map>
#include <string_view>

namespace tests {

using namespace std::string_view_literals;

/// The 128 default codes, 16 to a line; the escape stands as U+0000.
constexpr std::u16string_view c_defaultAlphabet = u"@£$¥èéùìòç\nØø\rÅå"
                                                  u"Δ_ΦΓΛΩΠΨΣΘΞ\0ÆæßÉ"
                                                  u" !\"#¤%&'()*+,-./"
                                                  u"0123456789:;<=>?"
                                                  u"¡ABCDEFGHIJKLMNO"
                                                  u"PQRSTUVWXYZÄÖÑÜ§"
                                                  u"¿abcdefghijklmno"
                                                  u"pqrstuvwxyzäöñüà"sv;

/// Codes after the escape.
const std::map<int, unsigned short> c_extension = {{0x0A, u'\f'}, {0x14, u'^'}, {0x28, u'{'}, {0x29, u'}'},
                                                   {0x2F, u'\\'}, {0x3C, u'['}, {0x3D, u'~'}, {0x3E, u']'},
                                                   {0x40, u'|'},  {0x65, u'€'}};

/// The code that each character of the Greek table goes out as.
const std::map<unsigned short, int> c_greek = {
    {u'α', 'A'},  {u'β', 'B'},  {u'γ', 0x13}, {u'δ', 0x10}, {u'ε', 'E'},  {u'ζ', 'Z'}, {u'η', 'H'},
    {u'θ', 0x19}, {u'ι', 'I'},  {u'κ', 'K'},  {u'λ', 0x14}, {u'μ', 'M'},  {u'ν', 'N'}, {u'ξ', 0x1A},
    {u'ο', 'O'},  {u'π', 0x16}, {u'ρ', 'P'},  {u'ς', 0x18}, {u'σ', 0x18}, {u'τ', 'T'}, {u'υ', 'Y'},
    {u'φ', 0x12}, {u'χ', 'X'},  {u'ψ', 0x17}, {u'ω', 0x15}, {u'ά', 'A'},  {u'έ', 'E'}, {u'ή', 'H'},
    {u'ί', 'I'},  {u'ό', 'O'},  {u'ύ', 'Y'},  {u'ώ', 0x15}, {u'ϊ', 'I'},  {u'ΐ', 'I'}, {u'ϋ', 'Y'},
    {u'ΰ', 'Y'},  {u'Α', 'A'},  {u'Β', 'B'},  {u'Γ', 0x13}, {u'Δ', 0x10}, {u'Ε', 'E'}, {u'Ζ', 'Z'},
    {u'Η', 'H'},  {u'Θ', 0x19}, {u'Ι', 'I'},  {u'Κ', 'K'},  {u'Λ', 0x14}, {u'Μ', 'M'}, {u'Ν', 'N'},
    {u'Ξ', 0x1A}, {u'Ο', 'O'},  {u'Π', 0x16}, {u'Ρ', 'P'},  {u'Σ', 0x18}, {u'Τ', 'T'}, {u'Υ', 'Y'},
    {u'Φ', 0x12}, {u'Χ', 'X'},  {u'Ψ', 0x17}, {u'Ω', 0x15}, {u'Ά', 'A'},  {u'Έ', 'E'}, {u'Ή', 'H'},
    {u'Ί', 'I'},  {u'Ό', 'O'},  {u'Ύ', 'Y'},  {u'Ώ', 0x15}, {u'Ϊ', 'I'},  {u'Ϋ', 'Y'}, {u'`', ' '},
    {u'΄', ' '},  {u'΅', ' '}};

} // namespace tests

#endif
