#include "Messages/DataCoding.h"

#include <array>

#include "tables/Values.h"

namespace Messages {
namespace {

/// One row of the table as enumerators.
struct Scheme {
    CodingGroup group = CodingGroup::General;
    Alphabet alphabet = Alphabet::Gsm7;
    std::int8_t messageClass = -1;
    bool isWaiting = false;
    WaitingIndication waiting;
    bool isCompressed = false;
    bool isReserved = false;
};

struct Meaning {
    std::string_view cell;
    int value;
};

template <std::size_t Count>
constexpr int ValueOf(std::string_view cell, const Meaning (&meanings)[Count]) {
    for (const Meaning& meaning : meanings)
        if (meaning.cell == cell)
            return meaning.value;
    throw std::invalid_argument("no such cell");
}

constexpr Alphabet AlphabetOf(std::string_view cell) {
    return static_cast<Alphabet>(ValueOf(cell, {{"gsm7", static_cast<int>(Alphabet::Gsm7)},
                                                {"octets", static_cast<int>(Alphabet::Data)},
                                                {"ucs2", static_cast<int>(Alphabet::Ucs2)}}));
}

constexpr WaitingType WaitingTypeOf(std::string_view cell) {
    return static_cast<WaitingType>(ValueOf(cell, {{"voicemail", static_cast<int>(WaitingType::Voice)},
                                                   {"fax", static_cast<int>(WaitingType::Fax)},
                                                   {"e-mail", static_cast<int>(WaitingType::Email)},
                                                   {"other", static_cast<int>(WaitingType::Other)}}));
}

constexpr CodingGroup GroupOf(const Tables::CodingRow& row) {
    if (row.group == "message waiting") {
        if (row.waiting == "discard")
            return CodingGroup::WaitingDiscard;
        return row.alphabet == "ucs2" ? CodingGroup::WaitingStoreUcs2 : CodingGroup::WaitingStore;
    }
    return static_cast<CodingGroup>(
        ValueOf(row.group, {{"general", static_cast<int>(CodingGroup::General)},
                            {"automatic deletion", static_cast<int>(CodingGroup::AutomaticDeletion)},
                            {"reserved", static_cast<int>(CodingGroup::Reserved)},
                            {"coding and class", static_cast<int>(CodingGroup::DataCodingAndClass)}}));
}

constexpr Scheme SchemeOf(const Tables::CodingRow& row) {
    Scheme scheme;
    scheme.group = GroupOf(row);
    scheme.alphabet = AlphabetOf(row.alphabet);
    scheme.messageClass = static_cast<std::int8_t>(static_cast<int>(row.messageClass));
    scheme.isWaiting = row.waiting != Tables::c_nothing;
    if (scheme.isWaiting)
        scheme.waiting = {row.waiting == "store", row.sense == "active", WaitingTypeOf(row.indication)};
    scheme.isCompressed = row.isCompressed;
    scheme.isReserved = row.isReserved;
    return scheme;
}

constexpr std::array<Scheme, std::size(Tables::c_codings)> MakeSchemes() {
    std::array<Scheme, std::size(Tables::c_codings)> schemes{};
    for (const Tables::CodingRow& row : Tables::c_codings)
        schemes.at(static_cast<std::size_t>(row.value.value)) = SchemeOf(row);
    return schemes;
}

constexpr std::array<Scheme, 256> c_schemes = MakeSchemes();

} // namespace

DataCoding::DataCoding(std::uint8_t dcs) noexcept : value(dcs) {
    const Scheme& scheme = c_schemes[dcs];
    group = scheme.group;
    alphabet = scheme.alphabet;
    if (scheme.messageClass >= 0)
        messageClass = static_cast<std::uint8_t>(scheme.messageClass);
    if (scheme.isWaiting)
        waiting = scheme.waiting;
    isCompressed = scheme.isCompressed;
    isReserved = scheme.isReserved;
}

} // namespace Messages
