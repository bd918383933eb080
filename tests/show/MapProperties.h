// What holds for the map of any octets; for tests and the fuzz target.
#ifndef TESTS_SHOW_MAPPROPERTIES_H
#define TESTS_SHOW_MAPPROPERTIES_H

#include <bit>
#include <string>

#include "show/OctetMap.h"

namespace tests {

/// Each octet belongs to one row, the rows in the order of the octets.
inline bool HasEveryOctetOnce(const std::vector<show::OctetRow>& rows, std::size_t octets) {
    std::size_t end = 0;
    for (const show::OctetRow& row : rows) {
        if (row.octet != end || row.count == 0)
            return false;
        end += row.count;
    }
    return end == octets;
}

/// The entries of an octet of bits, or of a number of two octets, are those bits, from the highest to the
/// lowest, each at most once; and each exactly once where `isWhole`.
inline bool HasEveryBitOnce(const show::OctetRow& row, unsigned int octet, bool isWhole) {
    unsigned int covered = 0;
    const bool isWide = !row.bits.empty() && row.bits.front().isWide;
    const unsigned int above0 = isWide ? 0x10000 : 0x100;
    unsigned int above = above0;
    for (const show::OctetBits& bits : row.bits) {
        const unsigned int value = bits.value << std::countr_zero(bits.mask);
        if (bits.mask >= above || value != (octet & bits.mask))
            return false;
        covered |= bits.mask;
        above = 1U << std::countr_zero(bits.mask);
    }
    return row.bits.empty() || !isWhole || covered == above0 - 1;
}

/// The texts of all rows, one after the other.
inline std::string TextOf(const std::vector<show::OctetRow>& rows) {
    std::string text;
    for (const show::OctetRow& row : rows) {
        const auto* quoted = std::get_if<show::QuotedText>(&row.value);
        if (quoted != nullptr && row.subfield.empty())
            text += quoted->text;
    }
    return text;
}

} // namespace tests

#endif
