// The fields that are more than one number: addresses, times, validity, headers.
#ifndef TESTS_REFERENCE_MESSAGES_MODEL_FIELDS_H
#define TESTS_REFERENCE_MESSAGES_MODEL_FIELDS_H

#include "model/Reading.h"

namespace plain {

/// The remarks made on a field whose first octet is at a known place of the input.
class Remarks {
public:
    Remarks(std::vector<Remark>& remarks, std::string_view field, std::size_t base)
        : m_Remarks(remarks), m_Field(field), m_Base(base) {}
    /// `octet` counts from the field's first one.
    void operator()(std::string_view code, std::size_t octet, std::size_t number = 0, std::size_t other = 0) {
        m_Remarks.push_back({code, m_Field, m_Base + octet, number, other});
    }
    std::size_t Base() const { return m_Base; } ///< where the field begins
    /// The same remarks for what begins `octets` further on.
    Remarks From(std::size_t octets) const { return Remarks(m_Remarks, m_Field, m_Base + octets); }
    Remarks For(std::string_view field) const { return Remarks(m_Remarks, field, m_Base); }

private:
    std::vector<Remark>& m_Remarks;
    std::string_view m_Field;
    std::size_t m_Base;
};

/// An address of the TPDU: its length in semi-octets, its type, its octets. `field` is that long.
Address ReadAddress(const Octets& field, Remarks remarks);
/// How many octets the field has whose first octet, the length, is this one.
std::size_t AddressOctets(std::uint8_t length);
/// A service centre's address: its length in octets, its type, its octets; the length is not 0.
Address ReadCentre(const Octets& field, Remarks remarks);

/// A time in seven octets.
Time ReadTime(const Octets& field, Remarks remarks);
/// TP-VP of the given format, in one octet or seven.
Validity ReadValidity(int format, const Octets& field, Remarks remarks);

/// Splits the elements of a header into `reading`; `header` is without its length.
void ReadHeader(const Octets& header, Reading& reading, Remarks remarks);

} // namespace plain

#endif
