// The PDU that a heading announces, while its digits come.
#ifndef QXPDU_AWAITEDPDU_H
#define QXPDU_AWAITEDPDU_H

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "log/Headings.h"

namespace qxpdu {

/// Everything is asked of the digits that have come and of more that would follow them.
class AwaitedPdu {
public:
    AwaitedPdu() = default;
    explicit AwaitedPdu(const Heading& heading)
        : m_Kind(heading.kind), m_Direction(heading.direction), m_Announced(heading.length.value_or(0)) {}

    const std::string& Digits() const { return m_Digits; }
    bool IsEmpty() const { return m_Digits.empty(); }
    void Add(std::string_view digits) { m_Digits += digits; }

    /// Digits that lack until the PDU has the announced length, with the service centre before it and
    /// without; 0 where it has as many, or more.
    std::array<std::size_t, 2> Lacking(std::string_view more) const;

    /// Whether it has the announced length. That of a TPDU without a service centre says so only where the
    /// PDU is sound, as it may be the beginning of one with a service centre.
    bool IsComplete(std::string_view more = {}) const;

    bool IsTooLong(std::string_view more = {}) const;

    /// So long that no more digits can belong to it.
    bool IsFull() const;

    /// Whether the digits can stand for themselves. A page has nothing that could tell.
    bool IsSound(std::string_view more = {}) const;

    /// Whether it is complete, and sound where that can be told.
    bool IsWhole(std::string_view more) const;

    bool IsPage() const { return m_Kind == Heading::Kind::Page; }

private:
    std::array<std::size_t, 2> Sizes(std::string_view more) const;

    Heading::Kind m_Kind = Heading::Kind::Tpdu;
    Messages::Direction m_Direction = Messages::Direction::Unknown;
    std::size_t m_Announced = 0; ///< octets
    std::string m_Digits;
};

} // namespace qxpdu

#endif
