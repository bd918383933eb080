#include "show/OctetBits.h"

#include <algorithm>
#include <array>
#include <bit>

#include "Messages/Words.h"

namespace show {

namespace {

std::string_view OnOff(unsigned int octet, unsigned int mask) {
    return (octet & mask) != 0 ? "on" : "off";
}

/// TP-DCS of a general group, or of one that marks the message for deletion.
std::vector<OctetBits> GeneralCodingBits(const Messages::DataCoding& coding, std::string_view group) {
    const unsigned int dcs = coding.value;
    const bool hasClass = coding.messageClass.has_value();
    return {BitsIn(dcs, 0xC0, "group", group),
            BitsIn(dcs, 0x20, "compression", coding.isCompressed ? "compressed" : "none"),
            BitsIn(dcs, 0x10, "class", hasClass ? "in the two lowest bits" : "none"),
            BitsIn(dcs, 0x0C, "alphabet", Messages::NameOf(coding.alphabet)),
            BitsIn(dcs, 0x03, hasClass ? "class" : "without meaning",
                   hasClass ? Messages::MeaningOfClass(*coding.messageClass) : "")};
}

std::vector<OctetBits> WaitingBits(const Messages::DataCoding& coding, std::string_view group) {
    const unsigned int dcs = coding.value;
    return {BitsIn(dcs, 0xF0, "group", group),
            BitsIn(dcs, 0x08, "indication", (dcs & 0x08) != 0 ? "active" : "inactive"),
            BitsIn(dcs, 0x04, "reserved", ""),
            BitsIn(dcs, 0x03, "kind",
                   coding.waiting ? Messages::NameOf(coding.waiting->type) : std::string_view())};
}

std::vector<OctetBits> ClassBits(const Messages::DataCoding& coding) {
    const unsigned int dcs = coding.value;
    return {BitsIn(dcs, 0xF0, "group", "data coding, message class"), BitsIn(dcs, 0x08, "reserved", ""),
            BitsIn(dcs, 0x04, "alphabet", Messages::NameOf(coding.alphabet)),
            BitsIn(dcs, 0x03, "class", Messages::MeaningOfClass(dcs & 0x03))};
}

} // namespace

OctetBits BitsIn(unsigned int octet, std::uint8_t mask, std::string_view name, std::string_view meaning) {
    return {mask, name, (octet & mask) >> std::countr_zero(mask), meaning};
}

OctetBits WideBitsIn(unsigned int number, std::uint16_t mask, std::string_view name,
                     std::string_view meaning) {
    return {mask, name, (number & mask) >> std::countr_zero(mask), meaning, true};
}

std::string BitPattern(const OctetBits& bits) {
    const unsigned int number = bits.value << std::countr_zero(bits.mask);
    const unsigned int width = bits.isWide ? 16 : 8;
    std::string pattern;
    for (unsigned int mask = 1U << (width - 1); mask != 0; mask >>= 1) {
        if (!pattern.empty() && std::countr_zero(mask) % 4 == 3)
            pattern += ' ';
        if ((bits.mask & mask) == 0)
            pattern += '.';
        else
            pattern += (number & mask) == 0 ? '0' : '1';
    }
    return pattern;
}

std::vector<OctetBits> TypeOfAddressBits(unsigned int octet) {
    return {
        BitsIn(octet, 0x80, "extension", (octet & 0x80) != 0 ? "none" : "another octet"),
        BitsIn(octet, 0x70, "type of number",
               Messages::NameOf(static_cast<Messages::TypeOfNumber>(octet >> 4 & 0x07))),
        BitsIn(octet, 0x0F, "numbering plan",
               Messages::NameOfNumberingPlan(static_cast<std::uint8_t>(octet & 0x0F))),
    };
}

std::vector<OctetBits> ProtocolBits(unsigned int pid) {
    constexpr std::array<std::string_view, 4> c_groups = {"by the next bit", "kinds of short messages",
                                                          "reserved", "service-centre specific"};
    std::vector<OctetBits> bits = {BitsIn(pid, 0xC0, "group", c_groups[pid >> 6 & 0x03])};
    if (pid >> 6 != 0) {
        bits.push_back(BitsIn(pid, 0x3F, "value", ""));
        return bits;
    }
    const bool isTelematic = (pid & 0x20) != 0;
    bits.push_back(BitsIn(pid, 0x20, "interworking", isTelematic ? "telematic" : "none"));
    bits.push_back(BitsIn(pid, 0x1F, isTelematic ? "device" : "protocol", ""));
    return bits;
}

std::vector<OctetBits> DataCodingBits(const Messages::DataCoding& coding) {
    switch (coding.group) {
    case Messages::CodingGroup::General:
        return GeneralCodingBits(coding, "general data coding");
    case Messages::CodingGroup::AutomaticDeletion:
        return GeneralCodingBits(coding, "automatic deletion");
    case Messages::CodingGroup::WaitingDiscard:
        return WaitingBits(coding, "message waiting, discard");
    case Messages::CodingGroup::WaitingStore:
        return WaitingBits(coding, "message waiting, store");
    case Messages::CodingGroup::WaitingStoreUcs2:
        return WaitingBits(coding, "message waiting, store, UCS2");
    case Messages::CodingGroup::DataCodingAndClass:
        return ClassBits(coding);
    case Messages::CodingGroup::Reserved:
        break;
    }
    return {BitsIn(coding.value, 0xF0, "group", "reserved"), BitsIn(coding.value, 0x0F, "reserved", "")};
}

std::vector<OctetBits> ZoneBits(unsigned int octet) {
    return {BitsIn(octet, 0xF0, "units", ""),
            BitsIn(octet, 0x08, "sign", (octet & 0x08) != 0 ? "west of Greenwich" : "east of Greenwich"),
            BitsIn(octet, 0x07, "tens", "")};
}

std::vector<OctetBits> EnhancedValidityBits(unsigned int octet) {
    constexpr std::array<std::string_view, 8> c_formats = {
        "no validity period", "relative, an octet", "seconds",  "hours, minutes, seconds",
        "reserved",           "reserved",           "reserved", "reserved"};
    return {BitsIn(octet, 0x80, "extension", (octet & 0x80) != 0 ? "another octet" : "none"),
            BitsIn(octet, 0x40, "single shot", (octet & 0x40) != 0 ? "one try" : "no"),
            BitsIn(octet, 0x38, "reserved", ""), BitsIn(octet, 0x07, "format", c_formats[octet & 0x07])};
}

std::vector<OctetBits> ParameterIndicatorBits(unsigned int octet) {
    const auto follows = [octet](unsigned int mask) { return (octet & mask) != 0 ? "there" : "not there"; };
    return {BitsIn(octet, 0x80, "extension", (octet & 0x80) != 0 ? "another octet" : "none"),
            BitsIn(octet, 0x78, "reserved", ""), BitsIn(octet, 0x04, "TP-UDL", follows(0x04)),
            BitsIn(octet, 0x02, "TP-DCS", follows(0x02)), BitsIn(octet, 0x01, "TP-PID", follows(0x01))};
}

std::vector<OctetBits> SpecialMessageBits(unsigned int octet) {
    constexpr std::array<std::string_view, 4> c_profiles = {"profile 1", "profile 2", "profile 3",
                                                            "profile 4"};
    constexpr std::array<std::string_view, 3> c_extended = {"none", "video", "reserved"};
    return {BitsIn(octet, 0x80, "storage", (octet & 0x80) != 0 ? "store" : "discard"),
            BitsIn(octet, 0x60, "profile", c_profiles[octet >> 5 & 3]),
            BitsIn(octet, 0x1C, "extended kind", c_extended[std::min(octet >> 2 & 7, 2U)]),
            BitsIn(octet, 0x03, "kind", Messages::NameOf(static_cast<Messages::WaitingType>(octet & 0x03)))};
}

std::vector<OctetBits> ServiceCentreControlBits(unsigned int octet) {
    return {BitsIn(octet, 0x80, "header in the report", OnOff(octet, 0x80)),
            BitsIn(octet, 0x40, "cancel the other report requests", OnOff(octet, 0x40)),
            BitsIn(octet, 0x30, "reserved", ""),
            BitsIn(octet, 0x08, "report on temporary errors while trying", OnOff(octet, 0x08)),
            BitsIn(octet, 0x04, "report on temporary errors when given up", OnOff(octet, 0x04)),
            BitsIn(octet, 0x02, "report on permanent errors", OnOff(octet, 0x02)),
            BitsIn(octet, 0x01, "report on completion", OnOff(octet, 0x01))};
}

std::vector<OctetBits> TextFormattingBits(unsigned int octet) {
    constexpr std::array<std::string_view, 4> c_alignments = {"left", "centre", "right",
                                                              "as the language has it"};
    constexpr std::array<std::string_view, 4> c_sizes = {"normal", "large", "small", "reserved"};
    return {BitsIn(octet, 0x80, "strikethrough", OnOff(octet, 0x80)),
            BitsIn(octet, 0x40, "underlined", OnOff(octet, 0x40)),
            BitsIn(octet, 0x20, "italic", OnOff(octet, 0x20)),
            BitsIn(octet, 0x10, "bold", OnOff(octet, 0x10)),
            BitsIn(octet, 0x0C, "size", c_sizes[octet >> 2 & 3]),
            BitsIn(octet, 0x03, "alignment", c_alignments[octet & 3])};
}

std::vector<OctetBits> ColourBits(unsigned int octet) {
    return {BitsIn(octet, 0xF0, "background", ""), BitsIn(octet, 0x0F, "foreground", "")};
}

std::vector<OctetBits> ObjectDistributionBits(unsigned int octet) {
    return {BitsIn(octet, 0xFE, "reserved", ""),
            BitsIn(octet, 0x01, "forwarding", (octet & 0x01) != 0 ? "forbidden" : "allowed")};
}

std::vector<OctetBits> SerialNumberBits(Messages::SerialNumber serial, std::uint16_t messageIdentifier) {
    constexpr std::array<std::string_view, 4> c_requests = {"", "popup", "emergency user alert",
                                                            "emergency user alert, popup"};
    const unsigned int requests = (Messages::HasEmergencyAlert(serial, messageIdentifier) ? 2U : 0U) |
                                  (Messages::HasPopup(serial, messageIdentifier) ? 1U : 0U);
    return {WideBitsIn(serial.value, 0xC000, "scope", ""),
            WideBitsIn(serial.value, 0x3FF0, "message code", c_requests.at(requests)),
            WideBitsIn(serial.value, 0x000F, "update number", "")};
}

std::vector<OctetBits> CellCodingBits(const Messages::CellCoding& coding) {
    using Messages::CellCodingGroup;
    const unsigned int dcs = coding.value;
    const std::string_view alphabet = Messages::NameOf(coding.alphabet);
    switch (coding.group) {
    case CellCodingGroup::Language:
        return {BitsIn(dcs, 0xF0, "group", "language"),
                BitsIn(dcs, 0x0F, "language", Messages::NameOfCellLanguage(coding.language))};
    case CellCodingGroup::LanguageInText:
        return {BitsIn(dcs, 0xF0, "group", "language before the text"),
                BitsIn(dcs, 0x0F, "alphabet", alphabet)};
    case CellCodingGroup::General:
        return {BitsIn(dcs, 0xC0, "group", "general data coding"),
                BitsIn(dcs, 0x20, "compression", coding.isCompressed ? "compressed" : "none"),
                BitsIn(dcs, 0x10, "class", coding.messageClass ? "in the two lowest bits" : "none"),
                BitsIn(dcs, 0x0C, "alphabet", alphabet),
                BitsIn(dcs, 0x03, coding.messageClass ? "class" : "without meaning", "")};
    case CellCodingGroup::UserDataHeader:
        return {BitsIn(dcs, 0xF0, "group", "user-data header"), BitsIn(dcs, 0x0C, "alphabet", alphabet),
                BitsIn(dcs, 0x03, "class", "")};
    case CellCodingGroup::I1Protocol:
        return {BitsIn(dcs, 0xF0, "group", "I1 protocol message"), BitsIn(dcs, 0x0F, "value", "")};
    case CellCodingGroup::Wap:
        return {BitsIn(dcs, 0xF0, "group", "laid down by the WAP Forum"), BitsIn(dcs, 0x0F, "value", "")};
    case CellCodingGroup::DataCodingAndClass:
        return {BitsIn(dcs, 0xF0, "group", "data coding, message class"), BitsIn(dcs, 0x08, "reserved", ""),
                BitsIn(dcs, 0x04, "alphabet", alphabet), BitsIn(dcs, 0x03, "class", "")};
    case CellCodingGroup::Reserved:
        break;
    }
    return {BitsIn(dcs, 0xF0, "group", "reserved"), BitsIn(dcs, 0x0F, "reserved", "")};
}

std::vector<OctetBits> PageParameterBits(unsigned int octet) {
    return {BitsIn(octet, 0xF0, "page", ""), BitsIn(octet, 0x0F, "pages", "")};
}

std::vector<OctetBits> WarningTypeBits(const Messages::EtwsWarning& warning) {
    return {
        WideBitsIn(warning.value, 0xFE00, "type", Messages::NameOfWarningType(warning.type)),
        WideBitsIn(warning.value, 0x0100, "emergency user alert", warning.hasEmergencyAlert ? "on" : "off"),
        WideBitsIn(warning.value, 0x0080, "popup", warning.hasPopup ? "on" : "off"),
        WideBitsIn(warning.value, 0x007F, "filling", "")};
}

} // namespace show
