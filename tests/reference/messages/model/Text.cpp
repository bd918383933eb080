#include "model/Text.h"

#include "model/Codes.h"
#include "model/Tables.h"

namespace plain {

namespace {

constexpr char32_t c_replacement = 0xFFFD;

/// Bit 0 of the first octet is the first; a septet's lowest bit comes first.
unsigned int BitAt(const Octets& octets, std::size_t bit) {
    return (octets[bit / 8] >> (bit % 8)) & 1U;
}

unsigned int SeptetAt(const Octets& octets, std::size_t bit) {
    unsigned int septet = 0;
    for (std::size_t i = 0; i < 7; ++i)
        septet |= BitAt(octets, bit + i) << i;
    return septet;
}

char32_t UnitAt(const Octets& octets, std::size_t i) {
    return static_cast<char32_t>(octets[i] << 8 | octets[i + 1]);
}

bool IsHigh(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLow(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

} // namespace

void Append(std::string& text, char32_t character) {
    const auto octet = [&text](char32_t value) { text += static_cast<char>(value); };
    if (character < 0x80) {
        octet(character);
    } else if (character < 0x800) {
        octet(0xC0 | character >> 6);
        octet(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        octet(0xE0 | character >> 12);
        octet(0x80 | (character >> 6 & 0x3F));
        octet(0x80 | (character & 0x3F));
    } else {
        octet(0xF0 | character >> 18);
        octet(0x80 | (character >> 12 & 0x3F));
        octet(0x80 | (character >> 6 & 0x3F));
        octet(0x80 | (character & 0x3F));
    }
}

std::string SeptetText(const Octets& octets, std::size_t firstBit, std::size_t count, int locking, int single,
                       const TextRemark& remark) {
    const Alphabet& main = TheTables().locking.at(locking);
    const Alphabet& extension = TheTables().single.at(single);
    const std::size_t bits = 8 * octets.size();

    std::string text;
    const auto show = [&](unsigned int septet, std::size_t i) {
        const Cell& cell = main[septet];
        if (cell.kind == Cell::NONE)
            remark(code::NO_CHARACTER, firstBit + 7 * i, septet, i);
        Append(text, cell.kind == Cell::NONE ? c_replacement : cell.character);
    };

    bool escaped = false;
    std::size_t i = 0;
    for (; i < count && firstBit + 7 * i + 7 <= bits; ++i) {
        const unsigned int septet = SeptetAt(octets, firstBit + 7 * i);
        if (!escaped && main[septet].kind == Cell::ESCAPE) {
            escaped = true;
            continue;
        }
        if (!escaped) {
            show(septet, i);
            continue;
        }
        escaped = false;
        const std::size_t escapeBit = firstBit + 7 * (i - 1);
        switch (extension[septet].kind) {
        case Cell::CHARACTER:
            Append(text, extension[septet].character);
            break;
        case Cell::ESCAPE:
            remark(code::UNKNOWN_ESCAPE, escapeBit, septet, i - 1);
            Append(text, U' ');
            break;
        case Cell::CONTROL:
            remark(code::CONTROL_ESCAPE, escapeBit, septet, i - 1);
            break;
        case Cell::NONE:
            remark(code::UNKNOWN_ESCAPE, escapeBit, septet, i - 1);
            show(septet, i);
            break;
        }
    }
    if (escaped)
        remark(code::ESCAPE_AT_END, firstBit + 7 * (i - 1), 0, 0);
    return text;
}

std::string UnitText(const Octets& octets, std::size_t first, const TextRemark& remark) {
    std::string text;
    std::size_t i = first;
    while (i + 2 <= octets.size()) {
        const char32_t unit = UnitAt(octets, i);
        if (IsHigh(unit) && i + 4 <= octets.size() && IsLow(UnitAt(octets, i + 2))) {
            Append(text, 0x10000 + ((unit - 0xD800) << 10) + (UnitAt(octets, i + 2) - 0xDC00));
            i += 4;
            continue;
        }
        const bool half = IsHigh(unit) || IsLow(unit);
        if (half)
            remark(code::UNPAIRED_SURROGATE, 8 * i, unit, (i - first) / 2);
        Append(text, half ? c_replacement : unit);
        i += 2;
    }
    if (i < octets.size())
        remark(code::ODD_OCTET, 8 * i, octets[i], 0);
    return text;
}

} // namespace plain
