#include "model/Charset.h"

#include <algorithm>

namespace model {

const std::vector<std::uint16_t>& DefaultTable() {
    // 0x09 is the small c with cedilla and 0x1B code point zero, as is required.
    static const std::vector<std::uint16_t> table = {
        0x0040, 0x00A3, 0x0024, 0x00A5, 0x00E8, 0x00E9, 0x00F9, 0x00EC, // 00
        0x00F2, 0x00E7, 0x000A, 0x00D8, 0x00F8, 0x000D, 0x00C5, 0x00E5, // 08
        0x0394, 0x005F, 0x03A6, 0x0393, 0x039B, 0x03A9, 0x03A0, 0x03A8, // 10
        0x03A3, 0x0398, 0x039E, 0x0000, 0x00C6, 0x00E6, 0x00DF, 0x00C9, // 18
        ' ',    '!',    '"',    '#',    0x00A4, '%',    '&',    '\'',   // 20
        '(',    ')',    '*',    '+',    ',',    '-',    '.',    '/',    // 28
        '0',    '1',    '2',    '3',    '4',    '5',    '6',    '7',    // 30
        '8',    '9',    ':',    ';',    '<',    '=',    '>',    '?',    // 38
        0x00A1, 'A',    'B',    'C',    'D',    'E',    'F',    'G',    // 40
        'H',    'I',    'J',    'K',    'L',    'M',    'N',    'O',    // 48
        'P',    'Q',    'R',    'S',    'T',    'U',    'V',    'W',    // 50
        'X',    'Y',    'Z',    0x00C4, 0x00D6, 0x00D1, 0x00DC, 0x00A7, // 58
        0x00BF, 'a',    'b',    'c',    'd',    'e',    'f',    'g',    // 60
        'h',    'i',    'j',    'k',    'l',    'm',    'n',    'o',    // 68
        'p',    'q',    'r',    's',    't',    'u',    'v',    'w',    // 70
        'x',    'y',    'z',    0x00E4, 0x00F6, 0x00F1, 0x00FC, 0x00E0, // 78
    };
    return table;
}

const std::map<std::uint8_t, std::uint16_t>& EscapeTable() {
    static const std::map<std::uint8_t, std::uint16_t> table = {
        {0x0A, 0x000C}, {0x14, '^'}, {0x28, '{'}, {0x29, '}'}, {0x2F, '\\'},
        {0x3C, '['},    {0x3D, '~'}, {0x3E, ']'}, {0x40, '|'}, {0x65, 0x20AC},
    };
    return table;
}

const std::map<std::uint16_t, std::uint16_t>& GreekTable() {
    static const std::map<std::uint16_t, std::uint16_t> table = {
        // Small letters, alpha to omega, with the final sigma.
        {0x03B1, 'A'},
        {0x03B2, 'B'},
        {0x03B3, 0x0393},
        {0x03B4, 0x0394},
        {0x03B5, 'E'},
        {0x03B6, 'Z'},
        {0x03B7, 'H'},
        {0x03B8, 0x0398},
        {0x03B9, 'I'},
        {0x03BA, 'K'},
        {0x03BB, 0x039B},
        {0x03BC, 'M'},
        {0x03BD, 'N'},
        {0x03BE, 0x039E},
        {0x03BF, 'O'},
        {0x03C0, 0x03A0},
        {0x03C1, 'P'},
        {0x03C2, 0x03A3},
        {0x03C3, 0x03A3},
        {0x03C4, 'T'},
        {0x03C5, 'Y'},
        {0x03C6, 0x03A6},
        {0x03C7, 'X'},
        {0x03C8, 0x03A8},
        {0x03C9, 0x03A9},
        // Small letters with tonos.
        {0x03AC, 'A'},
        {0x03AD, 'E'},
        {0x03AE, 'H'},
        {0x03AF, 'I'},
        {0x03CC, 'O'},
        {0x03CD, 'Y'},
        {0x03CE, 0x03A9},
        // Small iota and upsilon with dialytika, without and with tonos.
        {0x03CA, 'I'},
        {0x0390, 'I'},
        {0x03CB, 'Y'},
        {0x03B0, 'Y'},
        // Capital letters, alpha to omega; there is none at 03A2.
        {0x0391, 'A'},
        {0x0392, 'B'},
        {0x0393, 0x0393},
        {0x0394, 0x0394},
        {0x0395, 'E'},
        {0x0396, 'Z'},
        {0x0397, 'H'},
        {0x0398, 0x0398},
        {0x0399, 'I'},
        {0x039A, 'K'},
        {0x039B, 0x039B},
        {0x039C, 'M'},
        {0x039D, 'N'},
        {0x039E, 0x039E},
        {0x039F, 'O'},
        {0x03A0, 0x03A0},
        {0x03A1, 'P'},
        {0x03A3, 0x03A3},
        {0x03A4, 'T'},
        {0x03A5, 'Y'},
        {0x03A6, 0x03A6},
        {0x03A7, 'X'},
        {0x03A8, 0x03A8},
        {0x03A9, 0x03A9},
        // Capital letters with tonos.
        {0x0386, 'A'},
        {0x0388, 'E'},
        {0x0389, 'H'},
        {0x038A, 'I'},
        {0x038C, 'O'},
        {0x038E, 'Y'},
        {0x038F, 0x03A9},
        // Capital iota and upsilon with dialytika.
        {0x03AA, 'I'},
        {0x03AB, 'Y'},
        // Accents standing alone.
        {0x0060, ' '},
        {0x0384, ' '},
        {0x0385, ' '},
    };
    return table;
}

namespace {

/// Codes of the characters that need no transliteration; a negative one is that of an extension character.
const std::map<std::uint16_t, int>& ReverseTable() {
    static const std::map<std::uint16_t, int> table = [] {
        std::map<std::uint16_t, int> codes;
        for (int code = 0; code < 128; ++code)
            codes[DefaultTable().at(static_cast<std::size_t>(code))] = code;
        for (const auto& [code, unicode] : EscapeTable())
            codes[unicode] = -code;
        return codes;
    }();
    return table;
}

} // namespace

bool Charset::FindTable(int table) const {
    return std::find(m_Selected.begin(), m_Selected.end(), table) != m_Selected.end();
}

std::uint16_t Charset::GreekToUnicode(std::uint16_t unicode) const {
    const auto row = GreekTable().find(unicode);
    return row == GreekTable().end() ? NO_REPLACEMENT : row->second;
}

std::uint16_t Charset::FindUnicodeCharFromEscapeChar(std::uint8_t code) const {
    const auto row = EscapeTable().find(code);
    return row == EscapeTable().end() ? std::uint16_t{0} : row->second;
}

int Charset::UnicodeToGsm(std::uint16_t unicode) {
    if (unicode == 0x00A8)
        return ' ';
    const auto row = ReverseTable().find(unicode);
    if (row != ReverseTable().end())
        return row->second;
    if (unicode <= 0x0100)
        return UNMAPPABLE;
    return Translate(unicode);
}

int Charset::Translate(std::uint16_t unicode) {
    if (!FindTable(GREEK))
        return UNMAPPABLE;
    const std::uint16_t replacement = GreekToUnicode(unicode);
    if (replacement == NO_REPLACEMENT)
        return UNMAPPABLE;
    m_Translated = 1;
    if (replacement <= 0x0100)
        return replacement;
    return UnicodeToGsm(replacement);
}

bool Charset::GetGsmBytes(const Text& text, std::uint32_t srcBytes, std::uint32_t& ioLen, Octets* out) {
    m_Translated = 0;
    if (srcBytes < 2)
        return false;
    const bool fills = out != nullptr && static_cast<std::int32_t>(ioLen) > 0;
    if (fills)
        std::fill_n(out->begin(), ioLen, std::uint8_t{0});
    std::uint32_t count = 0;
    const auto put = [&](int code) {
        if (fills)
            out->at(count) = static_cast<std::uint8_t>(code);
        ++count;
    };
    for (std::uint32_t offset = 0; offset < srcBytes; offset += 4) {
        const int code = UnicodeToGsm(Low16(text.at(offset / 4)));
        if (code == UNMAPPABLE)
            continue;
        if (code < 0)
            put(ESCAPE);
        put(code < 0 ? -code : code);
    }
    if (!fills)
        ioLen = count;
    return true;
}

Text Charset::GsmToUnicode(const Octets& codes) const {
    Text text;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        if (codes[i] >= 0x80)
            continue;
        if (codes[i] == ESCAPE) {
            if (i + 1 == codes.size())
                break;
            const std::uint16_t unicode = FindUnicodeCharFromEscapeChar(codes[i + 1]);
            if (unicode != 0) {
                text += unicode;
                ++i;
            }
            continue;
        }
        text += DefaultTable().at(codes[i]);
    }
    return text;
}

Text Charset::GsmStringToUnicode(const Octets& codes) const {
    Text text;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        if (codes[i] == ESCAPE) {
            if (i + 1 < codes.size()) {
                text += FindUnicodeCharFromEscapeChar(codes[i + 1]);
                ++i;
            }
        } else if (codes[i] < 0x80) {
            text += DefaultTable().at(codes[i]);
        }
    }
    return text;
}

Octets Charset::UnicodeToGsmString(const Text& text) {
    Octets codes;
    for (const char32_t character : text) {
        const int code = UnicodeToGsm(Low16(character));
        if (code >= 0) {
            codes.push_back(static_cast<std::uint8_t>(code));
        } else if (code != UNMAPPABLE) {
            codes.push_back(ESCAPE);
            codes.push_back(static_cast<std::uint8_t>(-code));
        }
    }
    return codes;
}

} // namespace model
