// What the numbers of cell broadcast say: coding, identifier, message code.
#include <array>

#include "Messages/Cell.h"
#include "tables/Values.h"

namespace Messages {
namespace {

constexpr CellCodingGroup GroupOf(std::string_view cell) {
    return Tables::ValueOf<CellCodingGroup>(cell, {{"language", CellCodingGroup::Language},
                                                   {"language in text", CellCodingGroup::LanguageInText},
                                                   {"general", CellCodingGroup::General},
                                                   {"user-data header", CellCodingGroup::UserDataHeader},
                                                   {"I1 protocol", CellCodingGroup::I1Protocol},
                                                   {"WAP Forum", CellCodingGroup::Wap},
                                                   {"coding and class", CellCodingGroup::DataCodingAndClass},
                                                   {"reserved", CellCodingGroup::Reserved}});
}

/// One row of the table as enumerators.
struct Scheme {
    CellCodingGroup group = CellCodingGroup::Reserved;
    Alphabet alphabet = Alphabet::Gsm7;
    std::int8_t messageClass = -1;
    bool isCompressed = false;
    bool hasHeader = false;
    bool isReserved = false;
    std::string_view language;
};

constexpr Scheme SchemeOf(const Tables::CellCodingRow& row) {
    Scheme scheme;
    scheme.group = GroupOf(row.group);
    if (row.alphabet == Tables::c_nothing)
        scheme.alphabet = Alphabet::Data;
    else
        scheme.alphabet = Tables::AlphabetOf(row.alphabet);
    scheme.messageClass = static_cast<std::int8_t>(static_cast<int>(row.messageClass));
    scheme.isCompressed = row.isCompressed;
    scheme.hasHeader = row.hasHeader;
    scheme.isReserved = row.isReserved;
    if (row.code != Tables::c_nothing && scheme.group == CellCodingGroup::Language)
        scheme.language = row.code;
    return scheme;
}

constexpr std::array<Scheme, std::size(Tables::c_cellCodings)> MakeSchemes() {
    std::array<Scheme, std::size(Tables::c_cellCodings)> schemes{};
    for (const Tables::CellCodingRow& row : Tables::c_cellCodings)
        schemes.at(static_cast<std::size_t>(row.value.value)) = SchemeOf(row);
    return schemes;
}

constexpr std::array<Scheme, 256> c_schemes = MakeSchemes();

/// The bit of a serial number that is the named one of the message code.
constexpr std::uint16_t CodeBit(std::string_view name) {
    constexpr int updateNumberBits = 4;
    for (const Tables::CodeBitRow& row : Tables::c_messageCodeBits)
        if (row.name == name)
            return static_cast<std::uint16_t>(1U << (updateNumberBits + row.bit));
    throw std::invalid_argument("no such bit");
}
constexpr std::uint16_t c_emergencyAlert = CodeBit("emergency user alert");
constexpr std::uint16_t c_popup = CodeBit("popup");

} // namespace

CellCoding::CellCoding(std::uint8_t dcs) noexcept : value(dcs) {
    const Scheme& scheme = c_schemes[dcs];
    group = scheme.group;
    alphabet = scheme.alphabet;
    if (scheme.messageClass >= 0)
        messageClass = static_cast<std::uint8_t>(scheme.messageClass);
    isCompressed = scheme.isCompressed;
    hasHeader = scheme.hasHeader;
    isReserved = scheme.isReserved;
    language = scheme.language;
}

bool IsEtws(std::uint16_t messageIdentifier) noexcept {
    return Tables::RowWith(Tables::c_messageIdentifiers, messageIdentifier).family == "ETWS";
}

bool HasEmergencyAlert(SerialNumber serial, std::uint16_t messageIdentifier) noexcept {
    return IsEtws(messageIdentifier) && (serial.value & c_emergencyAlert) != 0;
}

bool HasPopup(SerialNumber serial, std::uint16_t messageIdentifier) noexcept {
    return IsEtws(messageIdentifier) && (serial.value & c_popup) != 0;
}

} // namespace Messages
