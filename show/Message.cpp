#include "show/Message.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

#include "Messages/Words.h"
#include "show/OctetBits.h"
#include "show/Plural.h"
#include "show/Subfields.h"
#include "show/Values.h"

namespace show {

namespace {

using Messages::Field;
using Messages::FieldPlace;
using Messages::RemarkCode;
using Messages::Tpdu;

/// All of these are one field to a person: the header.
bool IsOfHeader(Field field) {
    return field == Field::HeaderLength || field == Field::HeaderElement || field == Field::IgnoredHeader;
}

Messages::Timestamp DischargeOf(const Tpdu& tpdu) {
    const auto* report = std::get_if<Messages::StatusReport>(&tpdu);
    return report != nullptr ? report->discharge : Messages::Timestamp();
}

const Messages::Validity* ValidityOf(const Tpdu& tpdu) {
    const auto* submit = std::get_if<Messages::Submit>(&tpdu);
    return submit != nullptr ? &submit->validity : nullptr;
}

template <class T>
MessageField::Value ValueAt(const T* value) {
    return value != nullptr ? MessageField::Value(value) : MessageField::Value(PlainOctets());
}

MessageField::Value ValueOf(const MessageField& field, const Message& message) {
    const Tpdu& tpdu = message.reading.tpdu;
    switch (field.field) {
    case Field::ServiceCentre:
        return ValueAt(message.reading.serviceCentre ? &*message.reading.serviceCentre : nullptr);
    case Field::OriginatingAddress:
    case Field::DestinationAddress:
    case Field::RecipientAddress:
        return ValueAt(Messages::PartyOf(tpdu));
    case Field::DataCodingScheme:
        return ValueAt(Messages::CodingOf(tpdu));
    case Field::ServiceCentreTimestamp:
        return *Messages::TimestampOf(tpdu);
    case Field::DischargeTime:
        return DischargeOf(tpdu);
    case Field::ValidityPeriod:
        return ValueAt(ValidityOf(tpdu));
    case Field::HeaderLength:
        return ValueAt(Messages::UserDataOf(tpdu));
    case Field::UserData:
    case Field::CommandData:
    case Field::Surplus:
        return PlainOctets();
    default:
        return static_cast<unsigned int>(message.octets[field.octet]);
    }
}

/// TP-PI has a bit for each field that may follow.
Words MeaningOfParameterIndicator(unsigned int octet) {
    constexpr std::array<Field, 3> c_announced = {Field::ProtocolIdentifier, Field::DataCodingScheme,
                                                  Field::UserDataLength};
    std::string names;
    for (std::size_t bit = 0; bit < c_announced.size(); ++bit) {
        if ((octet >> bit & 1) != 0)
            names += fmt::format("{}{}", names.empty() ? "" : ", ", ShownNameOf(c_announced[bit]));
    }
    if (names.empty())
        return "nothing announced";
    return names + " announced";
}

Words MeaningOfStatusOctet(unsigned int octet) {
    const auto status = static_cast<std::uint8_t>(octet);
    const std::string_view meaning = Messages::MeaningOfStatus(status);
    const std::string_view outcome = Messages::ClassOfStatus(status);
    if (meaning == outcome)
        return meaning;
    return fmt::format("{} ({})", meaning, outcome);
}

Words MeaningOfLength(unsigned int length, const Message& message) {
    const Messages::DataCoding* coding = Messages::CodingOf(message.reading.tpdu);
    const bool isSeptets = coding == nullptr || coding->CountsSeptets();
    return Counted(length, isSeptets ? "septet" : "octet");
}

Words MeaningOfOctet(Field field, unsigned int octet, const Message& message) {
    const auto value = static_cast<std::uint8_t>(octet);
    switch (field) {
    case Field::ProtocolIdentifier:
        return Messages::MeaningOfProtocol(value);
    case Field::Status:
        return MeaningOfStatusOctet(octet);
    case Field::FailureCause:
        return Messages::MeaningOfFailureCause(value);
    case Field::CommandType:
        return Messages::MeaningOfCommandType(value);
    case Field::ParameterIndicator:
        return MeaningOfParameterIndicator(octet);
    case Field::UserDataLength:
        return MeaningOfLength(octet, message);
    case Field::CommandDataLength:
        return Counted(octet, "octet");
    default:
        return std::to_string(octet);
    }
}

/// TP-MTI says what the type is together with the direction.
Words MeaningOfType(unsigned int value, const Message& message) {
    constexpr unsigned int c_reserved = 3;
    const std::string_view type = Messages::NameOf(message.reading.Type());
    if (value == c_reserved)
        return fmt::format("reserved, read as {}", type);
    return type;
}

struct MeaningMaker {
    const MessageField& field;
    const Message& message;

    Words operator()(PlainOctets) const { return ""; }
    Words operator()(unsigned int value) const {
        if (field.field == Field::MessageType)
            return MeaningOfType(value, message);
        if (IsFlag(field.field))
            return MeaningOfFlag(field.field, value);
        return MeaningOfOctet(field.field, value, message);
    }
    Words operator()(const Messages::Address* address) const {
        if (field.IsAbsent())
            return "none";
        return MeaningOf(*address);
    }
    Words operator()(const Messages::Timestamp& time) const {
        if (time.isValid)
            return TimeOf(time, message);
        return "no time";
    }
    Words operator()(const Messages::Validity* validity) const {
        const Messages::Timestamp time = validity->Absolute();
        return time.isValid ? TimeOf(time, message) : Messages::MeaningOf(*validity);
    }
    Words operator()(const Messages::DataCoding* coding) const { return Messages::MeaningOf(*coding); }
    Words operator()(const Messages::UserData* userData) const {
        return MeaningOfHeader(userData->elements, userData->octets, userData->isHeaderIgnored);
    }
};

/// A type may have some on both sides of a field.
void AddUnusedBits(const FieldPlace& place, unsigned int octet, std::vector<MessageField>& fields) {
    auto field = std::find_if(fields.begin(), fields.end(),
                              [](const MessageField& one) { return one.field == Field::UnusedBits; });
    if (field == fields.end())
        field = fields.insert(field, {place.field, place.octet, place.count, {}, 0});
    field->mask |= place.mask;
    field->value = octet & field->mask;
}

} // namespace

std::vector<MessageField> FieldsOf(const Message& message) {
    std::vector<MessageField> fields;
    fields.reserve(message.reading.places.size());
    for (const FieldPlace& place : message.reading.places) {
        const bool isFlag = IsFlag(place.field);
        if (place.count == 0 || place.field == Field::FillBits ||
            (place.field == Field::UnusedBits && place.value == 0))
            continue;
        if (place.field == Field::UnusedBits) {
            AddUnusedBits(place, message.octets[place.octet], fields);
            continue;
        }
        if (!isFlag && !fields.empty() && AreOneField(fields.back().field, place.field)) {
            fields.back().count += place.count;
            continue;
        }
        MessageField& field =
            fields.emplace_back(MessageField{place.field, place.octet, place.count, {}, place.mask});
        if (isFlag)
            field.value = unsigned{place.value};
        else if (!IsCut(place, message))
            field.value = ValueOf(field, message);
    }
    return fields;
}

Words MeaningOf(const MessageField& field, const Message& message) {
    return std::visit(MeaningMaker{field, message}, field.value);
}

bool IsCut(const FieldPlace& place, const Message& message) {
    const auto& fault = message.reading.fault;
    return fault && fault->code == Messages::FaultCode::FieldCut && fault->field == place.field &&
           fault->octet == place.octet;
}

bool AreOneField(Field one, Field other) {
    return one == other || (IsOfHeader(one) && IsOfHeader(other));
}

std::string_view ShownNameOf(Field field) {
    return IsOfHeader(field) ? "TP-UDH" : Messages::NameOf(field);
}

std::string TimeOf(const Messages::Timestamp& time, const Message& message) {
    constexpr std::size_t c_zone = 6; ///< characters of "+02:00"
    std::string text = time.ToString();
    if (message.isZoneIgnored && time.isValid)
        text.resize(text.size() - c_zone);
    return text;
}

bool IsData(const Messages::Tpdu& tpdu) {
    const Messages::DataCoding* coding = Messages::CodingOf(tpdu);
    if (coding == nullptr)
        return std::holds_alternative<Messages::Command>(tpdu);
    return coding->isCompressed || coding->alphabet == Messages::Alphabet::Data;
}

const std::string* TextOf(const Tpdu& tpdu) {
    const Messages::UserData* const userData = Messages::UserDataOf(tpdu);
    return userData == nullptr || IsData(tpdu) ? nullptr : &userData->text;
}

bool HasServiceCentre(const Messages::Reading& reading) {
    const bool endsInIt = reading.fault && reading.fault->field == Field::ServiceCentre;
    return reading.serviceCentre || endsInIt;
}

bool ConcernsText(const Messages::Remark& remark) {
    switch (remark.code) {
    case RemarkCode::UserDataMissing:
    case RemarkCode::Compressed:
    case RemarkCode::HeaderMissing:
    case RemarkCode::HeaderBeyondUserData:
        return true;
    case RemarkCode::EscapeAtEnd:
    case RemarkCode::NoCharacter:
    case RemarkCode::UnpairedSurrogate:
    case RemarkCode::OddOctet:
        return remark.field == Field::UserData ||
               remark.field == Field::PageContent; // and no name of a sender
    default:
        return false;
    }
}

std::string ToText(const Messages::Remark& remark) {
    return fmt::format("{} at octet {}: {}", ShownNameOf(remark.field), remark.octet,
                       Messages::MeaningOf(remark));
}

std::string ToText(const Messages::Fault& fault) {
    return fmt::format("octet {}: {}", fault.octet, Messages::MeaningOf(fault));
}

} // namespace show
