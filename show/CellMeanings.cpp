#include "show/CellMeanings.h"

#include <array>

#include <fmt/format.h>

namespace show {

namespace {

constexpr std::array<std::string_view, 4> c_scopes = {"cell wide, immediate display", "PLMN wide",
                                                      "location, service or tracking area wide", "cell wide"};

constexpr unsigned int c_firstEtws = 0x1100;
constexpr unsigned int c_lastEtws = 0x1107;
constexpr unsigned int c_emergencyAlertBit = 0x2000;
constexpr unsigned int c_popupBit = 0x1000;

struct Range {
    unsigned int first;
    unsigned int last;
    std::string_view name;
};

/// In rising order; what lies between two rows has no name.
constexpr Range c_identifiers[] = {
    {0x0000, 0x03E7, "assigned by the GSM Association"},
    {0x03E8, 0x03E8, "location services, E-OTD assistance data"},
    {0x03E9, 0x03E9, "location services, DGPS correction data"},
    {0x03EA, 0x03EA, "location services, GPS ephemeris and clock correction data"},
    {0x03EB, 0x03EB, "location services, GPS almanac and other data"},
    {0x1000, 0x107F, "data download to the (U)SIM, unsecured"},
    {0x1080, 0x10FF, "data download to the (U)SIM, secured"},
    {0x1100, 0x1100, "ETWS, earthquake warning"},
    {0x1101, 0x1101, "ETWS, tsunami warning"},
    {0x1102, 0x1102, "ETWS, earthquake and tsunami warning"},
    {0x1103, 0x1103, "ETWS, test message"},
    {0x1104, 0x1104, "ETWS, other emergency"},
    {0x1105, 0x1107, "ETWS, for future extension"},
    {0x1112, 0x1112, "CMAS/WEA national (presidential) alert, EU-Alert level 1"},
    {0x1113, 0x1113, "CMAS/WEA extreme alert, immediate, observed, EU-Alert level 2"},
    {0x1114, 0x1114, "CMAS/WEA extreme alert, immediate, likely, EU-Alert level 2"},
    {0x1115, 0x1115, "CMAS/WEA severe alert, severity extreme, expected, observed, EU-Alert level 3"},
    {0x1116, 0x1116, "CMAS/WEA severe alert, severity extreme, expected, likely, EU-Alert level 3"},
    {0x1117, 0x1117, "CMAS/WEA severe alert, immediate, observed, EU-Alert level 3"},
    {0x1118, 0x1118, "CMAS/WEA severe alert, immediate, likely, EU-Alert level 3"},
    {0x1119, 0x1119, "CMAS/WEA severe alert, expected, observed, EU-Alert level 3"},
    {0x111A, 0x111A, "CMAS/WEA severe alert, expected, likely, EU-Alert level 3"},
    {0x111B, 0x111B, "CMAS/WEA child abduction emergency (AMBER), EU-Amber"},
    {0x111C, 0x111C, "CMAS/WEA required monthly test, EU-Alert test"},
    {0x111D, 0x111D, "CMAS/WEA exercise, EU-Alert exercise"},
    {0x111E, 0x111E, "CMAS/WEA operator-defined use"},
    {0x111F, 0x111F, "CMAS/WEA national (presidential) alert, EU-Alert level 1, additional languages"},
    {0x1120, 0x1120, "CMAS/WEA extreme alert, immediate, observed, EU-Alert level 2, additional languages"},
    {0x1121, 0x1121, "CMAS/WEA extreme alert, immediate, likely, EU-Alert level 2, additional languages"},
    {0x1122, 0x1122,
     "CMAS/WEA severe alert, severity extreme, expected, observed, EU-Alert level 3, additional languages"},
    {0x1123, 0x1123,
     "CMAS/WEA severe alert, severity extreme, expected, likely, EU-Alert level 3, additional languages"},
    {0x1124, 0x1124, "CMAS/WEA severe alert, immediate, observed, EU-Alert level 3, additional languages"},
    {0x1125, 0x1125, "CMAS/WEA severe alert, immediate, likely, EU-Alert level 3, additional languages"},
    {0x1126, 0x1126, "CMAS/WEA severe alert, expected, observed, EU-Alert level 3, additional languages"},
    {0x1127, 0x1127, "CMAS/WEA severe alert, expected, likely, EU-Alert level 3, additional languages"},
    {0x1128, 0x1128, "CMAS/WEA child abduction emergency (AMBER), EU-Amber, additional languages"},
    {0x1129, 0x1129, "CMAS/WEA required monthly test, EU-Alert test, additional languages"},
    {0x112A, 0x112A, "CMAS/WEA exercise, EU-Alert exercise, additional languages"},
    {0x112B, 0x112B, "CMAS/WEA operator-defined use, additional languages"},
    {0x112C, 0x112C, "CMAS/WEA public safety message, EU-Alert level 4"},
    {0x112D, 0x112D, "CMAS/WEA public safety message, EU-Alert level 4, additional languages"},
    {0x112E, 0x112E, "CMAS/WEA state or local test"},
    {0x112F, 0x112F, "CMAS/WEA state or local test, additional languages"},
    {0x1130, 0x1130, "CMAS/WEA geo-fencing trigger"},
    {0x1131, 0x18FF, "public warning, for future extension"},
    {0xA000, 0xAFFF, "operator-specific"},
    {0xFFFF, 0xFFFF, "reserved"},
};

constexpr std::array<std::string_view, 16> c_languages = {
    "German",     "English",   "Italian",   "French",
    "Spanish",    "Dutch",     "Swedish",   "Danish",
    "Portuguese", "Finnish",   "Norwegian", "Greek",
    "Turkish",    "Hungarian", "Polish",    "language unspecified"};
constexpr std::array<std::string_view, 5> c_moreLanguages = {"Czech", "Hebrew", "Arabic", "Russian",
                                                             "Icelandic"};

constexpr std::array<std::string_view, 4> c_alphabets = {"GSM 7-bit", "8-bit data", "UCS2",
                                                         "reserved alphabet"};

/// Alphabet and class as in the general data coding groups.
CellCoding GeneralCoding(unsigned int dcs, bool hasClass, std::string_view more) {
    const unsigned int alphabet = dcs >> 2 & 3;
    std::string meaning(c_alphabets[alphabet]);
    if (hasClass)
        meaning += fmt::format(", class {}", dcs & 3);
    meaning += more;
    return {std::move(meaning), alphabet == 0};
}

} // namespace

SerialNumber SplitSerialNumber(unsigned int serialNumber) {
    return {serialNumber >> 14, serialNumber >> 4 & 0x3FF, serialNumber & 0xF};
}

std::string_view GeographicalScopeMeaning(unsigned int scope) {
    return c_scopes[scope & 3];
}

bool IsEtws(unsigned int messageIdentifier) {
    return messageIdentifier >= c_firstEtws && messageIdentifier <= c_lastEtws;
}

bool HasEmergencyAlert(unsigned int serialNumber) {
    return (serialNumber & c_emergencyAlertBit) != 0;
}

bool HasPopup(unsigned int serialNumber) {
    return (serialNumber & c_popupBit) != 0;
}

std::string_view MessageIdentifierMeaning(unsigned int messageIdentifier) {
    for (const Range& range : c_identifiers) {
        if (messageIdentifier >= range.first && messageIdentifier <= range.last)
            return range.name;
    }
    return "not assigned";
}

CellCoding CellCodingOf(unsigned int dcs) {
    const unsigned int low = dcs & 0xF;
    switch (dcs >> 4) {
    case 0x0:
        return {fmt::format("GSM 7-bit, {}", c_languages[low]), true};
    case 0x1:
        if (low == 0)
            return {"GSM 7-bit, language named at the start of the text", true};
        if (low == 1)
            return {"UCS2, language named at the start of the text", false};
        return {"reserved", false};
    case 0x2:
        if (low < c_moreLanguages.size())
            return {fmt::format("GSM 7-bit, {}", c_moreLanguages[low]), true};
        [[fallthrough]];
    case 0x3:
        return {"GSM 7-bit, reserved language", true};
    case 0x4:
    case 0x5:
        return GeneralCoding(dcs, (dcs & 0x10) != 0, "");
    case 0x6:
    case 0x7:
        return {GeneralCoding(dcs, (dcs & 0x10) != 0, ", compressed").meaning, false};
    case 0x9:
        return {GeneralCoding(dcs, true, ", user-data header").meaning, false};
    case 0xD:
        return {"I1 protocol message", false};
    case 0xE:
        return {"WAP protocol message", false};
    case 0xF: {
        const bool is8Bit = (dcs & 0x04) != 0;
        const std::string messageClass = (dcs & 3) != 0 ? fmt::format(", class {}", dcs & 3) : "";
        return {std::string(c_alphabets[is8Bit ? 1 : 0]) + messageClass, !is8Bit};
    }
    default:
        return {"reserved", false};
    }
}

PageNumber PageNumberOf(unsigned int pageParameter) {
    const unsigned int page = pageParameter >> 4 & 0xF;
    const unsigned int pages = pageParameter & 0xF;
    if (page == 0 || pages == 0)
        return {1, 1};
    return {page, pages};
}

} // namespace show
