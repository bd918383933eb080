#include "show/Meanings.h"

#include <bit>

#include <fmt/format.h>

#include "show/Plural.h"

namespace qxpdu {

namespace {

using Encoding::Alphabet;
using Encoding::MessageClass;
using Encoding::MessageTypeIndicator;

constexpr BitField c_messageType = {
    "TP-MTI", 0x03, {"SMS-DELIVER", "SMS-SUBMIT", "SMS-STATUS-REPORT", "reserved"}};
constexpr BitField c_moreMessages = {
    "TP-MMS", 0x04, {"more messages are waiting", "no more messages are waiting"}};
constexpr BitField c_loopPrevention = {"TP-LP", 0x08, {"not forwarded or spawned", "forwarded or spawned"}};
constexpr BitField c_userDataHeader = {
    "TP-UDHI", c_userDataHeaderMask, {"no user-data header", "user-data header"}};
constexpr BitField c_replyPath = {"TP-RP", 0x80, {"no reply path", "reply path"}};

constexpr BitField c_deliver[] = {
    c_moreMessages,
    c_loopPrevention,
    {"TP-SRI", 0x20, {"no status report to the sender", "status report to the sender"}},
    c_userDataHeader,
    c_replyPath,
};
constexpr BitField c_submit[] = {
    {"TP-RD", 0x04, {"duplicates accepted", "duplicates rejected"}},
    {"TP-VPF",
     c_validityFormatMask,
     {"no validity period", "enhanced validity period, which the decoder does not skip",
      "relative validity period", "absolute validity period"}},
    {"TP-SRR", 0x20, {"no status report requested", "status report requested"}},
    c_userDataHeader,
    c_replyPath,
};
constexpr BitField c_statusReport[] = {
    c_moreMessages,
    c_loopPrevention,
    {"TP-SRQ", 0x20, {"on an SMS-SUBMIT", "on an SMS-COMMAND"}},
    c_userDataHeader,
};

constexpr std::array<std::string_view, 8> c_typesOfNumber = {
    "type unknown",      "international", "national",    "network-specific",
    "subscriber number", "alphanumeric",  "abbreviated", "type reserved"};

constexpr std::array<std::string_view, 16> c_numberingPlans = {"plan unknown",
                                                               "ISDN",
                                                               "plan reserved",
                                                               "data (X.121)",
                                                               "telex",
                                                               "service-centre specific plan",
                                                               "service-centre specific plan",
                                                               "plan reserved",
                                                               "national plan",
                                                               "private plan",
                                                               "ERMES",
                                                               "plan reserved",
                                                               "plan reserved",
                                                               "plan reserved",
                                                               "plan reserved",
                                                               "plan reserved for extension"};

constexpr std::array<std::string_view, 32> c_telematicDevices = {"any device",
                                                                 "telex",
                                                                 "group 3 telefax",
                                                                 "group 4 telefax",
                                                                 "voice telephone",
                                                                 "ERMES",
                                                                 "national paging system",
                                                                 "videotex",
                                                                 "teletex, carrier unspecified",
                                                                 "teletex in PSPDN",
                                                                 "teletex in CSPDN",
                                                                 "teletex in analogue PSTN",
                                                                 "teletex in digital ISDN",
                                                                 "UCI",
                                                                 "reserved device",
                                                                 "reserved device",
                                                                 "message handling facility",
                                                                 "public X.400 message handling system",
                                                                 "Internet electronic mail",
                                                                 "reserved device",
                                                                 "reserved device",
                                                                 "reserved device",
                                                                 "reserved device",
                                                                 "reserved device",
                                                                 "service-centre specific device",
                                                                 "service-centre specific device",
                                                                 "service-centre specific device",
                                                                 "service-centre specific device",
                                                                 "service-centre specific device",
                                                                 "service-centre specific device",
                                                                 "service-centre specific device",
                                                                 "mobile station"};

struct Named {
    unsigned int value;
    std::string_view name;
};

constexpr Named c_messageProtocols[] = {{0x40, "short message type 0"},
                                        {0x41, "replace short message type 1"},
                                        {0x42, "replace short message type 2"},
                                        {0x43, "replace short message type 3"},
                                        {0x44, "replace short message type 4"},
                                        {0x45, "replace short message type 5"},
                                        {0x46, "replace short message type 6"},
                                        {0x47, "replace short message type 7"},
                                        {0x48, "device triggering"},
                                        {0x5E, "enhanced message service"},
                                        {0x5F, "return call message"},
                                        {0x7C, "ANSI-136 R-DATA"},
                                        {0x7D, "ME data download"},
                                        {0x7E, "ME de-personalization"},
                                        {0x7F, "(U)SIM data download"}};

constexpr Named c_elements[] = {{0x00, "concatenation, 8-bit reference"},
                                {0x01, "special message indication"},
                                {0x04, "application ports, 8-bit"},
                                {0x05, "application ports, 16-bit"},
                                {0x06, "service-centre control parameters"},
                                {0x07, "source of the header"},
                                {0x08, "concatenation, 16-bit reference"},
                                {0x09, "wireless control message protocol"},
                                {0x0A, "text formatting"},
                                {0x0B, "predefined sound"},
                                {0x0C, "user-defined sound"},
                                {0x0D, "predefined animation"},
                                {0x0E, "large animation"},
                                {0x0F, "small animation"},
                                {0x10, "large picture"},
                                {0x11, "small picture"},
                                {0x12, "variable picture"},
                                {0x13, "user prompt"},
                                {0x14, "extended object"},
                                {0x15, "reused extended object"},
                                {0x16, "compression control"},
                                {0x17, "object distribution"},
                                {0x18, "standard WVG object"},
                                {0x19, "character-size WVG object"},
                                {0x1A, "extended object data request"},
                                {0x20, "RFC 822 e-mail header"},
                                {0x21, "hyperlink"},
                                {0x22, "reply address"},
                                {0x23, "enhanced voice mail"},
                                {0x24, "national language, single shift"},
                                {0x25, "national language, locking shift"}};

/// The name of a value in a table, or `otherwise`.
std::string_view NameIn(std::span<const Named> table, unsigned int value, std::string_view otherwise) {
    for (const Named& row : table) {
        if (row.value == value)
            return row.name;
    }
    return otherwise;
}

constexpr std::array<std::string_view, 19> c_statuses = {"received by the recipient",
                                                         "forwarded, delivery not confirmed",
                                                         "replaced by the service centre",
                                                         "congestion",
                                                         "recipient busy",
                                                         "no response from the recipient",
                                                         "service rejected",
                                                         "quality of service not available",
                                                         "error in the recipient's device",
                                                         "remote procedure error",
                                                         "incompatible destination",
                                                         "connection rejected by the recipient",
                                                         "not obtainable",
                                                         "no interworking available",
                                                         "validity period expired",
                                                         "deleted by the sender",
                                                         "deleted by the service centre's administration",
                                                         "message does not exist",
                                                         "unknown"};

/// By the three highest bits of TP-ST.
constexpr std::array<std::string_view, 8> c_statusKinds = {"",
                                                           " (temporary error, still trying)",
                                                           " (permanent error)",
                                                           " (temporary error, no more attempts)",
                                                           "",
                                                           "",
                                                           "",
                                                           ""};

} // namespace

unsigned int BitField::ValueIn(unsigned int octet) const {
    return (octet & mask) >> std::countr_zero(mask);
}

BitField MessageTypeField() {
    return c_messageType;
}

std::span<const BitField> FirstOctetFields(MessageTypeIndicator::TP_MTI_Type type) {
    switch (type) {
    case MessageTypeIndicator::TP_MTI_SMS_DELIVER:
        return c_deliver;
    case MessageTypeIndicator::TP_MTI_SMS_SUBMIT:
        return c_submit;
    case MessageTypeIndicator::TP_MTI_SMS_STATUS_REPORT:
        return c_statusReport;
    case MessageTypeIndicator::TP_MTI_UNKNOWN:
        break;
    }
    return {};
}

std::string_view TypeOfNumberMeaning(unsigned int bits) {
    return c_typesOfNumber[bits & 7];
}

std::string_view NumberingPlanMeaning(unsigned int bits) {
    return c_numberingPlans[bits & 0xF];
}

std::string_view AlphabetName(Alphabet::Encoding alphabet) {
    switch (alphabet) {
    case Alphabet::ALPHABET_GSM7:
        return "GSM 7-bit";
    case Alphabet::ALPHABET_8BIT:
        return "8-bit data";
    case Alphabet::ALPHABET_UCS2:
        return "UCS2";
    case Alphabet::ALPHABET_RESERVED:
        break;
    }
    return "reserved alphabet";
}

std::string ProtocolMeaning(unsigned int pid) {
    const std::string_view device = c_telematicDevices[pid & 0x1F];
    switch (pid & 0xE0) {
    case 0x00:
        return pid == 0 ? "plain short message" : fmt::format("SME-to-SME protocol {}", pid);
    case 0x20:
        return fmt::format("telematic interworking, {}", device);
    case 0x40:
    case 0x60:
        return std::string(NameIn(c_messageProtocols, pid, "reserved"));
    case 0xC0:
    case 0xE0:
        return "service-centre specific";
    default:
        return "reserved";
    }
}

std::string_view WaitingKind(unsigned int bits) {
    constexpr std::array<std::string_view, 4> c_kinds = {"voicemail", "fax", "e-mail", "other"};
    return c_kinds[bits & 3];
}

std::string DataCodingMeaning(unsigned int dcs, Alphabet::Encoding alphabet,
                              MessageClass::Class messageClass) {
    std::string meaning(AlphabetName(alphabet));
    if (messageClass != MessageClass::CLASS_NONE)
        meaning += fmt::format(", class {}", static_cast<int>(messageClass));
    const unsigned int group = dcs >> 4;
    if (group >= 0xC && group <= 0xE) {
        return meaning + fmt::format(", {} message waiting {}, {} message", WaitingKind(dcs),
                                     (dcs & 0x08) != 0 ? "active" : "inactive",
                                     group == 0xC ? "discard" : "store");
    }
    if (group < 0xC) {
        constexpr std::array<std::string_view, 3> c_handling = {"", ", automatic deletion",
                                                                ", reserved coding group"};
        if ((dcs & 0x20) != 0 && group < 0x8)
            meaning += ", compressed";
        meaning += c_handling[group >> 2];
    }
    return meaning;
}

std::string ValidityMeaning(unsigned int period) {
    if (period > 196)
        return Counted(period - 192, "week");
    if (period > 166)
        return Counted(period - 166, "day");
    const unsigned int minutes = period > 143 ? 12 * 60 + (period - 143) * 30 : (period + 1) * 5;
    if (minutes < 60)
        return Counted(minutes, "minute");
    return Counted(minutes / 60, "hour") + (minutes % 60 != 0 ? " " + Counted(minutes % 60, "minute") : "");
}

std::string StatusMeaning(Encoding::PduDecoder& decoder, unsigned int status) {
    constexpr unsigned int c_firstReserved = 0x80;
    constexpr unsigned int c_specific = 0x10;
    if (status < c_firstReserved && (status & c_specific) != 0)
        return fmt::format("service-centre specific{}", c_statusKinds[status >> 5]);
    // The reasons of 0x20 to 0x25 come back at 0x60 to 0x65, where the codec has no value of its own for
    // them.
    const unsigned int reason = status >= 0x60 && status <= 0x65 ? status - 0x40 : status;
    const auto outcome = static_cast<std::size_t>(decoder.ReadStatus(static_cast<unsigned char>(reason)));
    return fmt::format("{}{}", c_statuses[outcome], c_statusKinds[status >> 5]);
}

std::string_view ElementName(unsigned int identifier) {
    if (identifier >= 0x70 && identifier <= 0x7F)
        return "(U)SIM toolkit security header";
    if (identifier >= 0x80 && identifier <= 0x9F)
        return "SME-to-SME element";
    if (identifier >= 0xC0 && identifier <= 0xDF)
        return "service-centre specific element";
    return NameIn(c_elements, identifier, "reserved element");
}

} // namespace qxpdu
