// What each TPDU type is made of: the bits of its first octet and the row of fields after it, made of the
// standards' tables while this is compiled.
#ifndef TPDU_ROWS_H
#define TPDU_ROWS_H

#include <algorithm>
#include <array>

#include "Messages/Read.h"
#include "tables/Values.h"
#include "tpdu/Fields.h"

namespace Messages {

/// A list without memory of its own.
template <class Value, std::size_t Most>
struct FixedList {
    std::array<Value, Most> values{};
    std::size_t count = 0;

    constexpr void Add(const Value& value) { values.at(count++) = value; }
    constexpr const Value* begin() const { return values.data(); }
    constexpr const Value* end() const { return values.data() + count; }
};

/// Bits of the first octet.
struct BitField {
    Field field = Field::UnusedBits;
    std::uint8_t mask = 0;
    std::uint8_t shift = 0;
};

/// A field after the first octet.
struct RowField {
    Field field = Field::UserData;
    Coding coding = Coding::Inside;
    std::uint8_t indicatedBy = 0; ///< the bit of TP-PI that says that it is there; 0: always there
    bool mayEnd = false;          ///< the TPDU may end before it
};

struct TpduRow {
    TpduType type = TpduType::None;
    bool hasFailureCause = false;
    FixedList<BitField, 8> bits; ///< from bit 0 on, those of no use among them
    std::uint8_t unusedBits = 0xFF;
    FixedList<RowField, 9> fields;
    std::size_t mostUserData = 0; ///< octets of TP-UD, or TP-CD; 0: what the other fields leave room for
};

constexpr std::uint8_t c_commandCoding = 0x04; ///< of TP-CD: octets

constexpr std::size_t c_longestTpdu = 164;
constexpr std::size_t c_longestPdu = c_longestTpdu + 12; ///< with a service centre of 20 digits

/// Octets of user data that a TPDU can hold; 0: what its other fields leave room for.
constexpr std::size_t MostUserData(TpduType type, bool hasFailureCause) {
    switch (type) {
    case TpduType::DeliverReport:
        return hasFailureCause ? 158 : 159;
    case TpduType::SubmitReport:
        return hasFailureCause ? 151 : 152;
    case TpduType::Command:
        return 156;
    case TpduType::StatusReport:
        return 0;
    default:
        return 140;
    }
}

/// Octets of user data that fit after so many octets of the TPDU.
constexpr std::size_t RoomForUserData(const TpduRow& row, std::size_t used) {
    const std::size_t room = c_longestTpdu - std::min(used, c_longestTpdu);
    return row.mostUserData != 0 ? std::min(row.mostUserData, room) : room;
}

/// The bit of TP-PI whose meaning begins so; 0 where there is none.
constexpr std::uint8_t IndicatorBit(std::string_view beginning) {
    for (const Tables::IndicatorRow& row : Tables::c_parameterIndicator)
        if (row.name.substr(0, beginning.size()) == beginning)
            return static_cast<std::uint8_t>(1U << row.bit);
    return 0;
}

constexpr std::uint8_t ReservedIndicatorBits() {
    unsigned int bits = 0;
    for (const Tables::IndicatorRow& row : Tables::c_parameterIndicator)
        if (Tables::IsReserved(row))
            bits |= 1U << row.bit;
    return static_cast<std::uint8_t>(bits);
}
constexpr std::uint8_t c_reservedIndicatorBits = ReservedIndicatorBits();
constexpr std::uint8_t c_indicatorExtension = IndicatorBit("another octet");

/// The bits from `bit` on: a field's, or a run of those that the type does not use.
constexpr BitField BitsAt(const TpduRow& row, unsigned int bit) {
    for (const Tables::FirstOctetRow& one : Tables::c_firstOctets)
        if (TypeNamed(one.type) == row.type && one.bits.lowest == bit)
            return {FieldNamed(one.field).field, one.bits.mask, static_cast<std::uint8_t>(bit)};
    unsigned int mask = 0;
    for (unsigned int next = bit; (row.unusedBits >> next & 1U) != 0; ++next)
        mask |= 1U << next;
    return {Field::UnusedBits, static_cast<std::uint8_t>(mask), static_cast<std::uint8_t>(bit)};
}

constexpr void AddFirstOctet(TpduRow& row) {
    for (const Tables::FirstOctetRow& one : Tables::c_firstOctets)
        if (TypeNamed(one.type) == row.type)
            row.unusedBits = static_cast<std::uint8_t>(row.unusedBits & ~one.bits.mask);
    unsigned int covered = 0;
    for (unsigned int bit = 0; bit < 8; ++bit)
        if ((covered >> bit & 1U) == 0) {
            row.bits.Add(BitsAt(row, bit));
            covered |= row.bits.values[row.bits.count - 1].mask;
        }
}

constexpr void AddFields(TpduRow& row, std::string_view fields) {
    bool isIndicated = false;
    while (!fields.empty()) {
        std::string_view name = fields.substr(0, fields.find(' '));
        fields.remove_prefix(name.size() < fields.size() ? name.size() + 1 : name.size());
        const bool begins = name.front() == '[';
        const bool ends = name.back() == ']';
        name.remove_prefix(begins ? 1 : 0);
        name.remove_suffix(ends ? 1 : 0);
        isIndicated = isIndicated || begins;
        if (name != "first") {
            const FieldFacts& facts = FieldNamed(name);
            if (facts.coding != Coding::Inside)
                row.fields.Add({facts.field, facts.coding,
                                isIndicated ? IndicatorBit(name) : static_cast<std::uint8_t>(0),
                                row.type == TpduType::StatusReport && facts.coding == Coding::Indicator});
            row.hasFailureCause = row.hasFailureCause || facts.coding == Coding::Cause;
        }
        isIndicated = isIndicated && !ends;
    }
}

constexpr std::array<TpduRow, std::size(Tables::c_fields)> MakeRows() {
    std::array<TpduRow, std::size(Tables::c_fields)> rows{};
    std::size_t count = 0;
    for (const Tables::FieldsRow& one : Tables::c_fields) {
        TpduRow& row = rows[count++];
        row.type = TypeNamed(one.type);
        AddFirstOctet(row);
        AddFields(row, one.fields);
        row.mostUserData = MostUserData(row.type, row.hasFailureCause);
    }
    return rows;
}
constexpr std::array<TpduRow, std::size(Tables::c_fields)> c_rows = MakeRows();

/// Where the rows of a type stand: without TP-FCS, and with it. Only reports have two.
constexpr auto c_rowPlaces = [] {
    std::array<std::array<std::uint8_t, 2>, std::size(c_typeNames)> places{};
    for (const bool hasFailureCause : {false, true})
        for (std::size_t place = 0; place < c_rows.size(); ++place) {
            const TpduRow& row = c_rows[place];
            auto& found = places.at(static_cast<std::size_t>(row.type)).at(hasFailureCause ? 1 : 0);
            if (c_rows[found].type != row.type || row.hasFailureCause == hasFailureCause)
                found = static_cast<std::uint8_t>(place);
        }
    return places;
}();

/// REQUIRES a type other than None.
constexpr const TpduRow& RowOf(TpduType type, bool hasFailureCause) {
    return c_rows[c_rowPlaces[static_cast<std::size_t>(type)][hasFailureCause ? 1 : 0]];
}

constexpr std::uint8_t c_messageTypeMask = 0x03;

/// What TP-MTI says in a direction.
struct TypeMeaning {
    TpduType type = TpduType::None;
    bool isReserved = false;
};

constexpr std::array<TypeMeaning, c_messageTypeMask + 1> TypesTowards(std::string_view direction) {
    std::array<TypeMeaning, c_messageTypeMask + 1> types{};
    for (const Tables::MessageTypeRow& row : Tables::c_messageTypes)
        if (row.direction == direction)
            types.at(static_cast<std::size_t>(row.value.value)) = {TypeNamed(row.name), row.isReserved};
    return types;
}

constexpr TypeMeaning MeaningOfType(std::uint8_t firstOctet, Direction direction) {
    constexpr auto toMobile = TypesTowards("to-mobile");
    constexpr auto fromMobile = TypesTowards("from-mobile");
    return (direction == Direction::FromMobile ? fromMobile : toMobile)[firstOctet & c_messageTypeMask];
}

} // namespace Messages

#endif
