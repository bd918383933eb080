#include "model/Pdu.h"

#include <algorithm>

#include "model/Ucs2Hex.h"

namespace model {

Pdu Pdu::FromOctets(const Octets& octets, std::uint32_t length) {
    Pdu pdu;
    pdu.m_Length = length;
    for (std::size_t i = 0; i < length && i < 512; ++i)
        pdu.m_Bytes.at(i) = octets.at(i);
    return pdu;
}

Pdu Pdu::FromHex(const std::string& hex) {
    Pdu pdu;
    pdu.m_Length = static_cast<std::uint32_t>(std::min<std::size_t>(hex.size() / 2, 512));
    for (std::size_t i = 0; i < pdu.m_Length; ++i)
        pdu.m_Bytes.at(i) = static_cast<std::uint8_t>(HexaToInt(hex[2 * i], hex[2 * i + 1]));
    return pdu;
}

void Pdu::SetBytes(const Octets& octets) {
    if (octets.empty() || octets.size() > 512)
        return;
    m_Length = static_cast<std::uint32_t>(octets.size());
    std::copy(octets.begin(), octets.end(), m_Bytes.begin());
}

void Pdu::Write(const Octets& octets) {
    if (octets.empty() || std::uint64_t{m_Length} + octets.size() > 511)
        return;
    for (const std::uint8_t octet : octets) {
        m_Bytes.at(m_Length) = octet;
        ++m_Length;
    }
}

void Pdu::Write(std::uint8_t octet) {
    Write(Octets{octet});
}

void Pdu::Clear() {
    m_Bytes.fill(0);
    m_Length = 0;
}

std::string Pdu::GetString() const {
    std::string text;
    for (std::size_t i = 0; i < m_Length && i < 512; ++i) {
        text += "0123456789ABCDEF"[m_Bytes.at(i) / 16];
        text += "0123456789ABCDEF"[m_Bytes.at(i) % 16];
    }
    return text;
}

std::uint8_t Pdu::At(std::int64_t position) const {
    return position >= 0 && position < 512 ? m_Bytes.at(static_cast<std::size_t>(position)) : std::uint8_t{0};
}

unsigned int HexaToInt(char first, char second) {
    if (first == '\0')
        return 0;
    const int high = DigitValue(static_cast<unsigned char>(first));
    if (second == '\0')
        return static_cast<unsigned int>(high * 16);
    return static_cast<unsigned int>(high * 16 + DigitValue(static_cast<unsigned char>(second)));
}

int SwapNumber(std::uint8_t octet) {
    return Low8((octet & 0x0F) * 10 + (octet >> 4));
}

} // namespace model
