// Values as C has them, in memory that is given back all at once. Texts and octets stay where they are, in
// the values, which have to live as long; words and what is made of two values are copied.
#ifndef C_RESULTS_H
#define C_RESULTS_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Messages/Cell.h"
#include "Messages/Parts.h"
#include "Messages/Read.h"
#include "Messages/Write.h"
#include "Messages/qx_messages.h"
#include "c/Arena.h"

namespace Messages {

/// An array of pointers, so that what they point to can grow.
template <class Struct>
class ResultList {
public:
    ResultList(const Struct* const* items, std::size_t count) noexcept : m_Items(items), m_Count(count) {}

    /// Hands it out, as the two members that a list is in C.
    void To(const Struct* const*& items, std::size_t& count) const noexcept {
        items = m_Items;
        count = m_Count;
    }

private:
    const Struct* const* m_Items;
    std::size_t m_Count;
};

/// The structures that hold nothing but values.
/// @{
qx_optional_octet OctetOf(std::optional<std::uint8_t> octet) noexcept;
qx_timestamp StructOf(const Timestamp& timestamp) noexcept;
qx_validity StructOf(const Validity& validity) noexcept; ///< without `until`
qx_coding StructOf(const DataCoding& coding) noexcept;
/// @}

class Results {
public:
    /// Ends the life of all results.
    void Clear() noexcept { m_Arena.Clear(); }

    /// A structure, all 0 but for its size.
    template <class Struct>
    Struct* Make() {
        auto* const made = m_Arena.Make<Struct>();
        made->size = sizeof(Struct);
        return made;
    }

    /// A copy of a structure that holds nothing but values, or of what points into this memory.
    template <class Struct>
    Struct* Kept(const Struct& value) {
        auto* const kept = Make<Struct>();
        *kept = value;
        return kept;
    }

    const qx_address* Of(const Address& address);
    const qx_timestamp* Of(const Timestamp& timestamp);
    const qx_validity* Of(const Validity& validity);
    const qx_coding* Of(const DataCoding& coding);
    const qx_concatenation* Of(const Concatenation& concatenation);
    const qx_ports* Of(const Ports& ports);
    const qx_user_data* Of(const UserData& userData);
    const qx_message* Of(const Tpdu& tpdu); ///< null where there is none
    const qx_place* Of(const FieldPlace& place);
    const qx_remark* Of(const Remark& remark);
    const qx_fault* Of(const Fault& fault);
    const qx_reading* Of(const Reading& reading);
    const qx_write_fault* Of(const WriteFault& fault);
    const qx_written* Of(const Written& written);
    const qx_misfit* Of(const MisfitCharacter& misfit);
    const qx_choice* Of(const Choice& choice);
    const qx_costly_character* Of(const CostlyCharacter& character);
    const qx_explanation* Of(const Explanation& explanation, const std::optional<MisfitCharacter>& misfit);
    const qx_replacement* Of(const Replacement& replacement);
    const qx_cut_fault* Of(const CutFault& fault);
    const qx_cut_text* Of(const CutText& cut);
    const qx_joined_part* Of(const JoinedPart& part);
    const qx_joined_gap* Of(const JoinedGap& gap);
    const qx_joined* Of(const Joined& joined);
    const qx_serial_number* Of(SerialNumber serial, std::uint16_t messageIdentifier);
    const qx_cell_coding* Of(const CellCoding& coding);
    const qx_page* Of(const CellPage& page);
    const qx_etws_warning* Of(const EtwsWarning& warning);
    const qx_cell_reading* Of(const CellReading& reading);
    const qx_cell_message* Of(const CellMessage& message, bool isGivenUp);
    const qx_cell_written* Of(const CellWritten& written);

    /// Null where there is no value.
    template <class Value>
    auto Of(const std::optional<Value>& value) -> decltype(Of(*value)) {
        return value ? Of(*value) : nullptr;
    }

    /// One of each value, by `make`.
    template <class Values, class Make>
    auto ListBy(const Values& values, Make make) {
        using Pointer = decltype(make(*values.begin()));
        const std::size_t count = values.size();
        auto* const items = m_Arena.Make<Pointer>(count);
        Pointer* item = items;
        for (const auto& value : values)
            *item++ = make(value);
        return ResultList<std::remove_const_t<std::remove_pointer_t<Pointer>>>(items, count);
    }
    template <class Values>
    auto List(const Values& values) {
        return ListBy(values, [this](const auto& value) { return this->Of(value); });
    }

private:
    qx_text Copied(std::string_view text);
    const qx_element* Of(const HeaderElement& element, OctetView octets);
    ResultList<qx_element> ListOf(const std::vector<HeaderElement>& elements, OctetView octets);
    void Decode(const HeaderElement& element, OctetView data, qx_element& result);

    Arena m_Arena;
};

/// A text that stays where it is, with a NUL after it: a whole string, or constant text.
inline qx_text TextOf(std::string_view text) noexcept {
    return {text.data() == nullptr ? "" : text.data(), text.size()};
}

inline qx_octets OctetsOf(OctetView octets) noexcept {
    return {octets.data(), octets.size()};
}

} // namespace Messages

#endif
