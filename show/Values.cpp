#include "show/Values.h"

#include <array>

#include "Messages/Words.h"

namespace show {

using Messages::Field;

std::string_view MeaningOfFlag(Field field, unsigned int value) {
    constexpr std::array<std::string_view, 4> c_formats = {"no validity period", "enhanced validity period",
                                                           "relative validity period",
                                                           "absolute validity period"};
    switch (field) {
    case Field::MoreMessages:
        return value == 0 ? "more messages are waiting" : "no more messages are waiting";
    case Field::LoopPrevention:
        return value == 0 ? "not forwarded or spawned" : "forwarded or spawned";
    case Field::RejectDuplicates:
        return value == 0 ? "duplicates accepted" : "duplicates rejected";
    case Field::ValidityFormat:
        return c_formats[value & 3];
    case Field::StatusReportIndication:
        return value == 0 ? "no status report to the sender" : "status report to the sender";
    case Field::StatusReportRequest:
        return value == 0 ? "no status report requested" : "status report requested";
    case Field::StatusReportQualifier:
        return value == 0 ? "on an SMS-SUBMIT" : "on an SMS-COMMAND";
    case Field::UserDataHeaderIndicator:
        return value == 0 ? "no user-data header" : "user-data header";
    case Field::ReplyPath:
        return value == 0 ? "no reply path" : "reply path";
    default:
        return {};
    }
}

std::string_view DirectionName(Messages::Direction direction) {
    switch (direction) {
    case Messages::Direction::ToMobile:
        return "to-mobile";
    case Messages::Direction::FromMobile:
        return "from-mobile";
    case Messages::Direction::Unknown:
        break;
    }
    return {};
}

std::string MeaningOf(const Messages::Address& address) {
    constexpr std::size_t c_usual = 64; // characters
    std::string text;
    text.reserve(c_usual);
    text += address.ToString();
    if (!text.empty())
        text += ", ";
    if (address.Type() == Messages::TypeOfNumber::Unknown)
        text += "type ";
    text += Messages::NameOf(address.Type());
    text += address.Plan() == Messages::NumberingPlan::Isdn ? ", " : ", plan ";
    text += Messages::NameOfNumberingPlan(static_cast<std::uint8_t>(address.Plan()));
    return text;
}

std::string DataText(Messages::OctetView data) {
    std::string text;
    for (const std::uint8_t octet : data)
        text += octet >= 0x20 && octet < 0x7F ? static_cast<char>(octet) : '.';
    return text;
}

} // namespace show
