// Plain characters, which the default alphabet has where ASCII has them: nearly all of most texts. A septet
// of theirs, the octet of UTF-8 and the character are one number, so that many are looked at and copied
// together.
#ifndef ALPHABET_PLAIN_H
#define ALPHABET_PLAIN_H

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Messages/Alphabet.h"
#include "Messages/Octets.h"
#include "wire/OwnCodes.h"

namespace Messages {

/// The locking tables that have all plain characters where the default alphabet has them: a bit for each
/// language.
extern const std::uint16_t c_plainLocking;

inline bool HoldsPlain(Language locking) {
    return (c_plainLocking >> static_cast<unsigned int>(locking) & 1U) != 0;
}

/// Plain characters are their own septets.
inline OctetView OctetsOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// How many octets at the beginning are plain. Where none is, that is found out at once: most texts that are
/// not plain hardly ever are.
inline std::size_t PlainRun(OctetView text) {
    if (text.empty() || text[0] >= 0x80)
        return 0;
    const std::uint8_t* const octets = text.data();
    const std::size_t size = text.size();
    std::size_t run = 0;
    if (size < Wire::c_codeBlock) {
        while (run < size && Wire::IsOwnCode(octets[run]))
            ++run;
        return run;
    }
    while (size - run > Wire::c_codeBlocks && Wire::AreOwnCodes(octets + run))
        run += Wire::c_codeBlocks;
    run = std::min(run, size - Wire::c_codeBlock);
    Wire::BlockBits others = Wire::OtherCodes(octets + run);
    while (others == 0 && run < size - Wire::c_codeBlock) {
        // The last block may begin in the one before.
        run = std::min(run + Wire::c_codeBlock, size - Wire::c_codeBlock);
        others = Wire::OtherCodes(octets + run);
    }
    return run + (others == 0 ? Wire::c_codeBlock : static_cast<std::size_t>(std::countr_zero(others)));
}

} // namespace Messages

#endif
