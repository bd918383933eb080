// Rows of octets put together one after the other.
#ifndef SHOW_OCTETROWS_H
#define SHOW_OCTETROWS_H

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "Messages/Alphabet.h"
#include "Messages/Remarks.h"
#include "Messages/Time.h"
#include "show/OctetRow.h"

namespace show {

/// Septets in octets, and what they are read with.
struct SeptetRun {
    Messages::OctetView octets;
    Messages::SeptetTables tables;
    unsigned int firstBit; ///< of the first octet
    std::size_t septets;
    std::string_view before = "fill bits"; ///< the first septet
};

/// The octets outlive the rows.
class OctetRows {
protected:
    OctetRows(Messages::OctetView octets, std::size_t places) : m_Octets(octets) {
        m_Rows.reserve(2 * places);
    }

    std::uint32_t End() const { return m_Rows.empty() ? 0 : m_Rows.back().octet + m_Rows.back().count; }

    /// The next octets of a field.
    OctetRow& Add(Messages::Field field, std::uint32_t count, std::string_view subfield = {});
    OctetRow& AddNumber(Messages::Field field, std::string_view subfield = {});
    void AddTime(Messages::Field field, const Messages::Timestamp& time);
    void AddElement(const Messages::FieldPlace& place);

    /// So many octets. A row of septets ends where septets and octets end together.
    void AddSeptets(Messages::Field field, const SeptetRun& run, std::uint32_t count);

    /// UCS2 up to an octet. A character above U+FFFF stays in one row.
    void AddUnits(Messages::Field field, std::uint32_t end);

    /// What the fault ends the reading before.
    void AddRest(const std::optional<Messages::Fault>& fault);

    Messages::OctetView m_Octets;
    std::vector<OctetRow> m_Rows;

private:
    void AddContent(const Messages::FieldPlace& place);

    std::uint8_t m_Element = 0; ///< identifier of the last one
};

} // namespace show

#endif
