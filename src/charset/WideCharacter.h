// A wide character as it lies in memory.
#ifndef CHARSET_WIDECHARACTER_H
#define CHARSET_WIDECHARACTER_H

#include <bit>
#include <cstdint>
#include <cstring>

#include "Toolkit/SystemInfo.h"
#include "Toolkit/smart_ptr.h"

namespace Encoding {

static_assert(sizeof(wchar_t) == 4, "wide text holds one 32-bit unit per character");

constexpr unsigned int c_wideSize = 4; ///< octets of a wide character in memory
constexpr int c_bigEndian = 1;         ///< the byte order as the support library tells it

/// A share of the process-wide SystemInfo, without which nobody may ask for the byte order.
class SystemShare {
public:
    int GetEndian() const { return Toolkit::SystemInfo::GetEndian(); }

private:
    Toolkit::smart_ptr<Toolkit::SystemInfo> m_Share{*Toolkit::SystemInfo::s_pInstance};
};

/// Whether the byte order that the support library tells is the machine's, so that characters may be taken as
/// numbers.
constexpr bool IsNative(int endian) {
    return (endian == c_bigEndian) == (std::endian::native == std::endian::big);
}

/// Bits 7 to 0 of the character whose four octets begin here.
inline unsigned char LowOctet(const unsigned char* character, int endian) {
    return character[endian == c_bigEndian ? 3 : 0];
}

/// Bits 15 to 0 of the character whose four octets begin here. Those of the other bits are not read: of the
/// last character they may not be there.
inline unsigned short LowUnit(const unsigned char* character, int endian) {
    std::uint16_t unit = 0;
    std::memcpy(&unit, character + (endian == c_bigEndian ? 2 : 0), sizeof unit);
    return IsNative(endian) ? unit : static_cast<unsigned short>(unit << 8 | unit >> 8);
}

} // namespace Encoding

#endif
