// The tables of values, row by row as the standards have them.
#ifndef TABLES_VALUES_H
#define TABLES_VALUES_H

#include <algorithm>
#include <iterator>
#include <string_view>

#include "Messages/DataCoding.h"
#include "tables/Cells.h"

namespace Messages::Tables {

struct ProtocolRow {
    Hexadecimal from;
    Hexadecimal to;
    std::string_view group;
    std::string_view name;
};
constexpr ProtocolRow c_protocols[] = {
#include "rows/protocol-identifiers.inc"
};

struct CodingRow {
    Hexadecimal value;
    std::string_view group;
    std::string_view alphabet;
    YesNo isCompressed;
    Decimal messageClass;
    std::string_view waiting;
    std::string_view indication;
    std::string_view sense;
    YesNo isReserved;
};
constexpr CodingRow c_codings[] = {
#include "rows/data-coding.inc"
};

struct StatusRow {
    Hexadecimal from;
    Hexadecimal to;
    std::string_view outcome;
    std::string_view name;
};
constexpr StatusRow c_statuses[] = {
#include "rows/statuses.inc"
};

struct CauseRow {
    Hexadecimal from;
    Hexadecimal to;
    std::string_view about;
    std::string_view name;
};
constexpr CauseRow c_failureCauses[] = {
#include "rows/failure-causes.inc"
};

struct CommandRow {
    Hexadecimal from;
    Hexadecimal to;
    YesNo isAboutMessage;
    std::string_view name;
};
constexpr CommandRow c_commandTypes[] = {
#include "rows/command-types.inc"
};

struct PlanRow {
    Decimal from;
    Decimal to;
    std::string_view name;
};
constexpr PlanRow c_numberingPlans[] = {
#include "rows/numbering-plans.inc"
};

struct TypeOfNumberRow {
    Decimal value;
    std::string_view name;
};
constexpr TypeOfNumberRow c_typesOfNumber[] = {
#include "rows/types-of-number.inc"
};

struct ElementRow {
    Hexadecimal from;
    Hexadecimal to;
    std::string_view kind;
    std::string_view times;
    Decimal least;
    Decimal most;
    Hexadecimal excludes;
    YesNo isReserved;
    std::string_view name;
};
constexpr ElementRow c_headerElements[] = {
#include "rows/header-elements.inc"
};

struct RelativeValidityRow {
    Hexadecimal from;
    Hexadecimal to;
    Decimal first;
    Decimal step;
};
constexpr RelativeValidityRow c_relativeValidity[] = {
#include "rows/relative-validity.inc"
};

struct ValidityFormatRow {
    Decimal value;
    Decimal octets;
    std::string_view name;
};
constexpr ValidityFormatRow c_validityFormats[] = {
#include "rows/validity-formats.inc"
};

struct EnhancedValidityRow {
    Decimal value;
    Decimal octets;
    std::string_view name;
};
constexpr EnhancedValidityRow c_enhancedValidity[] = {
#include "rows/enhanced-validity.inc"
};

struct LanguageRow {
    Decimal value;
    std::string_view name;
    YesNo hasLocking;
    YesNo hasSingle;
    std::string_view code;
};
constexpr LanguageRow c_languages[] = {
#include "rows/languages.inc"
};

struct PortRow {
    Hexadecimal element;
    Decimal from;
    Decimal to;
    std::string_view name;
};
constexpr PortRow c_ports[] = {
#include "rows/ports.inc"
};

struct ClassRow {
    Decimal value;
    std::string_view name;
    std::string_view cellName;
    std::string_view cellUserDefined;
};
constexpr ClassRow c_messageClasses[] = {
#include "rows/message-classes.inc"
};

struct MessageTypeRow {
    Decimal value;
    std::string_view direction;
    std::string_view name;
    YesNo isReserved;
};
constexpr MessageTypeRow c_messageTypes[] = {
#include "rows/message-types.inc"
};

struct FieldsRow {
    std::string_view type;
    std::string_view report;
    std::string_view fields;
};
constexpr FieldsRow c_fields[] = {
#include "rows/fields.inc"
};

struct FirstOctetRow {
    std::string_view type;
    Bits bits;
    std::string_view field;
    std::string_view meaning;
};
constexpr FirstOctetRow c_firstOctets[] = {
#include "rows/first-octet.inc"
};

struct IndicatorRow {
    Decimal bit;
    std::string_view name;
};
constexpr IndicatorRow c_parameterIndicator[] = {
#include "rows/parameter-indicator.inc"
};

struct CellCodingRow {
    Hexadecimal value;
    std::string_view group;
    std::string_view alphabet;
    YesNo isCompressed;
    Decimal messageClass;
    std::string_view language;
    std::string_view code;
    YesNo hasHeader;
    YesNo isReserved;
};
constexpr CellCodingRow c_cellCodings[] = {
#include "rows/cbs-data-coding.inc"
};

struct IdentifierRow {
    Decimal from;
    Decimal to;
    std::string_view family;
    std::string_view name;
    std::string_view euAlert;
    std::string_view kpas;
};
constexpr IdentifierRow c_messageIdentifiers[] = {
#include "rows/cbs-message-identifiers.inc"
};

struct CodeBitRow {
    Decimal bit;
    std::string_view name;
};
constexpr CodeBitRow c_messageCodeBits[] = {
#include "rows/cbs-message-code.inc"
};

struct ScopeRow {
    Decimal value;
    std::string_view display;
    std::string_view scope;
};
constexpr ScopeRow c_scopes[] = {
#include "rows/cbs-scopes.inc"
};

struct WarningTypeRow {
    Decimal from;
    Decimal to;
    std::string_view name;
};
constexpr WarningTypeRow c_warningTypes[] = {
#include "rows/etws-warning-types.inc"
};

constexpr std::string_view c_reserved = "reserved";

/// What a word in a cell stands for.
template <class Value>
struct Meaning {
    std::string_view cell;
    Value value;
};

template <class Value, std::size_t Count>
constexpr Value ValueOf(std::string_view cell, const Meaning<Value> (&meanings)[Count]) {
    for (const Meaning<Value>& meaning : meanings)
        if (meaning.cell == cell)
            return meaning.value;
    throw std::invalid_argument("no such cell");
}

constexpr Alphabet AlphabetOf(std::string_view cell) {
    return ValueOf<Alphabet>(
        cell, {{"gsm7", Alphabet::Gsm7}, {"octets", Alphabet::Data}, {"ucs2", Alphabet::Ucs2}});
}

/// The row whose range a value is in; the last one of a value beyond them.
template <class Row, std::size_t Count>
constexpr const Row& RowWith(const Row (&rows)[Count], int value) noexcept {
    return *std::find_if(std::begin(rows), std::end(rows) - 1,
                         [&](const Row& row) { return value <= row.to; });
}

/// Whether a row names what the standard reserves.
template <class Row>
constexpr bool IsReserved(const Row& row) {
    return row.name.substr(0, c_reserved.size()) == c_reserved;
}

} // namespace Messages::Tables

#endif
