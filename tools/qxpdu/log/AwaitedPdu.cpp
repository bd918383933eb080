#include "log/AwaitedPdu.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "Messages/Octets.h"

namespace qxpdu {

namespace {

constexpr std::size_t c_digitsInOctet = 2;
constexpr std::size_t c_mostDigits = 2048; ///< of a PDU, whatever is announced

/// Octets of the service centre before a TPDU, as the first octet tells; none where that is no length of one.
std::size_t ServiceCentreOctets(const std::string& firstOctet) {
    constexpr std::size_t c_longest = 12; // the type, and 20 digits with one octet more than anybody sends
    std::vector<std::uint8_t> octets;
    if (!Messages::FromHex(firstOctet, octets) || octets.empty() || octets[0] > c_longest)
        return 0;
    return octets[0] + std::size_t{1};
}

} // namespace

/// Digits of the whole PDU, with its service centre and without.
std::array<std::size_t, 2> AwaitedPdu::Sizes(std::string_view more) const {
    std::string firstOctet = m_Digits.substr(0, c_digitsInOctet);
    firstOctet += more.substr(0, c_digitsInOctet - firstOctet.size());
    const std::size_t before = m_Kind == Heading::Kind::Tpdu ? ServiceCentreOctets(firstOctet) : 0;
    return {(before + m_Announced) * c_digitsInOctet, m_Announced * c_digitsInOctet};
}

std::array<std::size_t, 2> AwaitedPdu::Lacking(std::string_view more) const {
    std::array<std::size_t, 2> sizes = Sizes(more);
    for (std::size_t& size : sizes)
        size -= std::min(size, m_Digits.size());
    return sizes;
}

bool AwaitedPdu::IsComplete(std::string_view more) const {
    const std::size_t size = m_Digits.size() + more.size();
    const auto [with, without] = Sizes(more);
    if (size == 0)
        return false;
    if (size == with && with != without)
        return true;
    return size == without && (m_Kind != Heading::Kind::Tpdu || IsSound(more));
}

bool AwaitedPdu::IsTooLong(std::string_view more) const {
    return m_Digits.size() + more.size() > Sizes(more)[0];
}

bool AwaitedPdu::IsFull() const {
    return m_Digits.size() >= c_mostDigits;
}

bool AwaitedPdu::IsSound(std::string_view more) const {
    std::vector<std::uint8_t> octets;
    if (IsPage() || !Messages::FromHex(m_Digits + std::string(more), octets))
        return false;
    Messages::ReadOptions options;
    options.direction = m_Direction;
    return Messages::Read(octets, options).IsSound();
}

bool AwaitedPdu::IsWhole(std::string_view more) const {
    return IsComplete(more) && (IsPage() || IsSound(more));
}

} // namespace qxpdu
