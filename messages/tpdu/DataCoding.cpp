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

constexpr WaitingType WaitingTypeOf(std::string_view cell) {
    return Tables::ValueOf<WaitingType>(cell, {{"voicemail", WaitingType::Voice},
                                               {"fax", WaitingType::Fax},
                                               {"e-mail", WaitingType::Email},
                                               {"other", WaitingType::Other}});
}

constexpr CodingGroup GroupOf(const Tables::CodingRow& row) {
    if (row.group == "message waiting") {
        if (row.waiting == "discard")
            return CodingGroup::WaitingDiscard;
        return row.alphabet == "ucs2" ? CodingGroup::WaitingStoreUcs2 : CodingGroup::WaitingStore;
    }
    return Tables::ValueOf<CodingGroup>(row.group, {{"general", CodingGroup::General},
                                                    {"automatic deletion", CodingGroup::AutomaticDeletion},
                                                    {"reserved", CodingGroup::Reserved},
                                                    {"coding and class", CodingGroup::DataCodingAndClass}});
}

constexpr Scheme SchemeOf(const Tables::CodingRow& row) {
    Scheme scheme;
    scheme.group = GroupOf(row);
    scheme.alphabet = Tables::AlphabetOf(row.alphabet);
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
