// What a caller gives, checked and made values. A Refusal is thrown for what breaks the header's rules, and
// becomes QX_ARGUMENT.
#ifndef C_GIVEN_H
#define C_GIVEN_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>
#include <type_traits>

#include "Messages/Cell.h"
#include "Messages/Parts.h"
#include "Messages/Read.h"
#include "Messages/Tpdu.h"
#include "Messages/qx_messages.h"

namespace Messages {

/// An argument that breaks what is required of it.
struct Refusal {};

inline void Require(bool holds) {
    if (!holds)
        throw Refusal();
}

/// What the header had of a structure at first: up to its last member of then, whatever comes to stand after
/// that. A new member has to begin after the whole structure of before, not in octets at its end that were
/// padding: callers of before leave anything there.
template <class Struct>
struct FirstSize;
#define QX_FIRST_SIZE(structure, last)                                                                       \
    template <>                                                                                              \
    struct FirstSize<structure> {                                                                            \
        static constexpr std::size_t c_octets = (offsetof(structure, last) + sizeof(structure::last));       \
    }
// NOLINTBEGIN(bugprone-sizeof-expression): some of the last ones are pointers
QX_FIRST_SIZE(qx_address, written);
QX_FIRST_SIZE(qx_timestamp, unix_seconds);
QX_FIRST_SIZE(qx_validity, until);
QX_FIRST_SIZE(qx_coding, waiting_type);
QX_FIRST_SIZE(qx_concatenation, part);
QX_FIRST_SIZE(qx_ports, originator);
QX_FIRST_SIZE(qx_element, octet);
QX_FIRST_SIZE(qx_user_data, content);
QX_FIRST_SIZE(qx_message, user_data);
QX_FIRST_SIZE(qx_read_options, announced_length);
QX_FIRST_SIZE(qx_cut_options, message_class);
QX_FIRST_SIZE(qx_join_limits, seconds);
QX_FIRST_SIZE(qx_cell_draft, message_class);
// NOLINTEND(bugprone-sizeof-expression)
#undef QX_FIRST_SIZE

/// A structure as this library has it: members that the caller's lacks are 0.
template <class Struct>
Struct Given(const Struct* given) {
    Require(given != nullptr && given->size >= FirstSize<Struct>::c_octets);
    Struct result{};
    std::memcpy(&result, given, std::min(given->size, sizeof(Struct)));
    return result;
}

/// The same; all 0 for null.
template <class Struct>
Struct GivenOrNothing(const Struct* given) {
    return given == nullptr ? Struct{} : Given(given);
}

/// Writes a structure to the caller's, as much of it as that has.
template <class Struct>
void Fill(Struct* filled, Struct value) {
    value.size = std::min(filled->size, sizeof(Struct));
    std::memcpy(filled, &value, value.size);
}

/// Whether the members are those of a time, as the header has their ranges.
inline bool IsTime(const Timestamp& time) {
    const auto isWithin = [](int value, int first, int last) { return value >= first && value <= last; };
    return time.isValid && isWithin(time.year, 2000, 2099) && isWithin(time.month, 1, 12) &&
           isWithin(time.day, 1, 31) && isWithin(time.hour, 0, 23) && isWithin(time.minute, 0, 59) &&
           isWithin(time.second, 0, 59) && isWithin(time.quarters, -85, 85);
}

/// An enumerator up to `last`.
template <class Enum>
Enum Named(unsigned int number, Enum last) {
    Require(number <= static_cast<unsigned int>(last));
    return static_cast<Enum>(number);
}

inline OctetView GivenOctets(const std::uint8_t* data, std::size_t size) {
    Require(data != nullptr || size == 0);
    return {data, size};
}
inline std::string_view GivenText(const char* data, std::size_t size) {
    Require(data != nullptr || size == 0);
    return {data, size};
}

std::optional<std::uint8_t> ValueOf(qx_optional_octet octet) noexcept;
Languages LanguagesOf(std::uint16_t bits);
Address ValueOf(const qx_address* given);
Timestamp ValueOf(const qx_timestamp* given);
Validity ValueOf(const qx_validity* given);
DataCoding ValueOf(const qx_coding* given);
UserData ValueOf(const qx_user_data* given);
Tpdu ValueOf(const qx_message* given);
ReadOptions ValueOf(const qx_read_options* given);
CutOptions ValueOf(const qx_cut_options* given);
CellDraft ValueOf(const qx_cell_draft* given);

} // namespace Messages

#endif
