#include "show/OctetRow.h"

#include <bit>

namespace qxpdu {

std::string NameOf(const OctetRow& row) {
    std::string name(row.field);
    if (!row.part.empty())
        name += ' ' + row.part;
    return name;
}

std::string BitPattern(const OctetBits& bits) {
    const unsigned int octet = bits.value << std::countr_zero(bits.mask);
    std::string pattern;
    for (unsigned int mask = 0x80; mask != 0; mask >>= 1) {
        if (mask == 0x08)
            pattern += ' ';
        pattern += (bits.mask & mask) == 0 ? '.' : (octet & mask) == 0 ? '0' : '1';
    }
    return pattern;
}

} // namespace qxpdu
