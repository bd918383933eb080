#include "Encoding/Pdu.h"

#include <algorithm>

#include "Encoding/PduCommon.h"
#include "pdu/Octets.h"
#include "wire/Hexadecimal.h"

namespace Encoding {

Pdu::Pdu() : m_Bytes{}, m_Length(0) {}

Pdu::Pdu(const unsigned char* data, unsigned int length) : m_Bytes{}, m_Length(data != nullptr ? length : 0) {
    if (data != nullptr)
        std::copy_n(data, std::min(length, CAPACITY), m_Bytes);
}

Pdu::Pdu(const TString<char>& hex)
    : m_Bytes{}, m_Length(static_cast<unsigned int>(std::min<std::size_t>(hex.size() / 2, CAPACITY))) {
    if (Wire::ReadHexadecimal(hex.data(), m_Length, m_Bytes))
        return;
    const auto* digits = reinterpret_cast<const unsigned char*>(hex.data());
    for (unsigned int i = 0; i < m_Length; ++i)
        m_Bytes[i] = static_cast<unsigned char>(PduCommon::HexaToInt(digits + 2 * i));
}

void Pdu::SetBytes(const unsigned char* data, unsigned int length) {
    if (data == nullptr || length == 0 || length > CAPACITY)
        return;
    m_Length = length;
    std::copy_n(data, length, m_Bytes);
}

void Pdu::Write(const unsigned char* data, unsigned int length) {
    if (data == nullptr || length == 0 || m_Length > APPEND_LIMIT || length > APPEND_LIMIT - m_Length)
        return;
    std::copy_n(data, length, m_Bytes + m_Length);
    m_Length += length;
}

void Pdu::Write(unsigned char octet) {
    Append(*this, octet);
}

void Pdu::Clear() {
    std::fill_n(m_Bytes, CAPACITY, static_cast<unsigned char>(0));
    m_Length = 0;
}

TString<char> Pdu::GetString() const {
    const unsigned int length = std::min(m_Length, CAPACITY);
    TString<char> hex(std::size_t{2} * length, '0');
    Wire::WriteHexadecimal(m_Bytes, length, hex.data());
    return hex;
}

} // namespace Encoding
