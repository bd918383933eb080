// The octets of one protocol data unit, and how two hexadecimal or two decimal digits are read.
#ifndef TESTS_REFERENCE_MODEL_PDU_H
#define TESTS_REFERENCE_MODEL_PDU_H

#include <array>
#include <string>

#include "model/Types.h"

namespace model {

struct Pdu {
    std::array<std::uint8_t, 512> m_Bytes{};
    std::uint32_t m_Length = 0;

    static Pdu FromOctets(const Octets& octets, std::uint32_t length);
    static Pdu FromHex(const std::string& hex);

    void SetBytes(const Octets& octets);
    void Write(const Octets& octets);
    void Write(std::uint8_t octet);
    void Clear();
    std::string GetString() const;

    /// The octet at a position, 0 outside of the array.
    std::uint8_t At(std::int64_t position) const;

    bool operator==(const Pdu&) const = default;
};

/// Value of two hexadecimal digits, the second of which is not looked at when the first is NUL.
unsigned int HexaToInt(char first, char second);
/// Value of two decimal digits, the low semi-octet first.
int SwapNumber(std::uint8_t octet);

} // namespace model

#endif
