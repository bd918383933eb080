// Names of what cell broadcast has as numbers, out of the standards' tables.
#include "Messages/Cell.h"
#include "Messages/Words.h"
#include "tables/Values.h"

namespace Messages {
namespace {

std::string_view NameOfClass(const CellCoding& coding) {
    const Tables::ClassRow& row = Tables::c_messageClasses[*coding.messageClass & 0x03U];
    return coding.group == CellCodingGroup::DataCodingAndClass ? row.cellUserDefined : row.cellName;
}

/// Where the text's language comes from, or what else the group says; may be empty.
std::string_view DetailOf(const CellCoding& coding) {
    switch (coding.group) {
    case CellCodingGroup::Language:
        return coding.language.empty() ? "language unspecified" : NameOfCellLanguage(coding.language);
    case CellCodingGroup::LanguageInText:
        return "language before the text";
    case CellCodingGroup::UserDataHeader:
        return "user-data header";
    case CellCodingGroup::I1Protocol:
        return "I1 protocol message";
    case CellCodingGroup::Wap:
        return "laid down by the WAP Forum";
    default:
        return {};
    }
}

std::string EuAlertOf(std::string_view level) {
    if (level == Tables::c_nothing)
        return {};
    if (level == "amber" || level == "test" || level == "info")
        return ", EU-" + std::string(1, static_cast<char>(level[0] - 'a' + 'A')) +
               std::string(level.substr(1));
    return ", EU-Alert " + std::string(level);
}

} // namespace

std::string_view NameOf(CellFormat format) noexcept {
    constexpr std::string_view names[] = {"", "GSM page", "UMTS message", "ETWS primary notification"};
    return names[static_cast<std::size_t>(format)];
}

std::string MeaningOf(GeographicalScope scope) {
    const Tables::ScopeRow& row = Tables::c_scopes[static_cast<std::size_t>(scope)];
    return std::string(row.scope) + " wide" + (row.display == "immediate" ? ", displayed at once" : "");
}

std::string_view NameOfWarningType(std::uint8_t type) noexcept {
    return Tables::RowWith(Tables::c_warningTypes, type).name;
}

std::string_view NameOfCellLanguage(std::string_view code) noexcept {
    for (const Tables::CellCodingRow& row : Tables::c_cellCodings)
        if (row.code == code && row.language != Tables::c_nothing)
            return row.language;
    return {};
}

std::string MeaningOfMessageIdentifier(std::uint16_t identifier) {
    const Tables::IdentifierRow& row = Tables::RowWith(Tables::c_messageIdentifiers, identifier);
    std::string meaning;
    if (row.family != Tables::c_nothing && row.family != row.name.substr(0, row.family.size()))
        meaning = std::string(row.family) + ' ';
    meaning += row.name;
    return meaning + EuAlertOf(row.euAlert);
}

std::string MeaningOf(SerialNumber serial, std::uint16_t messageIdentifier) {
    std::string meaning = "scope " + std::to_string(static_cast<int>(serial.Scope())) + ": " +
                          MeaningOf(serial.Scope()) + ", message code " +
                          std::to_string(serial.MessageCode()) + ", update number " +
                          std::to_string(serial.UpdateNumber());
    if (HasEmergencyAlert(serial, messageIdentifier))
        meaning += ", emergency user alert";
    if (HasPopup(serial, messageIdentifier))
        meaning += ", popup";
    return meaning;
}

std::string MeaningOf(const CellCoding& coding) {
    const bool isText = coding.group != CellCodingGroup::I1Protocol && coding.group != CellCodingGroup::Wap;
    std::string meaning(isText ? NameOf(coding.alphabet) : "no text");
    const auto add = [&](std::string_view more) { meaning += ", " + std::string(more); };
    if (const std::string_view detail = DetailOf(coding); !detail.empty())
        add(detail);
    if (coding.isCompressed)
        add("compressed");
    if (coding.messageClass)
        add("class " + std::to_string(*coding.messageClass) + ": " + std::string(NameOfClass(coding)));
    if (coding.isReserved)
        add("reserved");
    return meaning;
}

std::string_view MeaningOf(CellDraftFault fault) noexcept {
    constexpr std::string_view sentences[] = {
        "nothing is wrong",
        "the text is not UTF-8",
        "the text has a character that the alphabet lacks",
        "the text takes more than 15 pages",
        "a language is two letters from a to z",
        "no data coding scheme has both a language and a class",
        "a class is 0 to 3",
        "text goes into GSM pages or a UMTS message",
        "text is GSM 7-bit or UCS2",
    };
    return sentences[static_cast<std::size_t>(fault)];
}

} // namespace Messages
