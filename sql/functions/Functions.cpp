#include "sql/functions/Functions.h"

#include "Messages/Words.h"
#include "show/BroadcastJson.h"
#include "show/MessageJson.h"
#include "show/compare/BroadcastComparison.h"
#include "show/compare/Comparison.h"

namespace sql {

namespace {

const Messages::Concatenation* PlaceOf(const show::Message& message) {
    const Messages::UserData* const userData = Messages::UserDataOf(message.reading.tpdu);
    return userData != nullptr && userData->concatenation ? &*userData->concatenation : nullptr;
}

Value TextOf(const show::Message& message) {
    const std::string* const text = show::TextOf(message.reading.tpdu);
    return text == nullptr ? Value() : *text;
}

Value AddressOf(const show::Message& message) {
    const Messages::Address* const party = Messages::PartyOf(message.reading.tpdu);
    return party == nullptr ? Value() : party->ToString();
}

Value TimeOf(const show::Message& message) {
    const Messages::Timestamp* const time = Messages::TimestampOf(message.reading.tpdu);
    return time == nullptr || !time->isValid ? Value() : time->ToString();
}

Value TypeOf(const show::Message& message) {
    return std::string(Messages::NameOf(message.reading.Type()));
}

Value ReferenceOf(const show::Message& message) {
    const Messages::Concatenation* const place = PlaceOf(message);
    return place == nullptr ? Value() : std::int64_t{place->reference};
}

Value PartOf(const show::Message& message) {
    const Messages::Concatenation* const place = PlaceOf(message);
    return place == nullptr ? Value() : std::int64_t{place->part};
}

Value PartsOf(const show::Message& message) {
    const Messages::Concatenation* const place = PlaceOf(message);
    return place == nullptr ? Value() : std::int64_t{place->total};
}

Value JsonOf(const show::Message& message) {
    show::JsonText object;
    show::Write(message, show::CompareWithHost(message), std::nullopt, object);
    return std::string(object.Finish());
}

/// The array that the object of sms_json has.
Value RemarksOf(const show::Message& message) {
    if (message.reading.remarks.empty())
        return "[]";
    show::JsonText object;
    show::WriteRemarks(message.reading.remarks, object);
    return std::string(ArrayIn(object.Finish()));
}

Value BroadcastTextOf(show::Broadcast& broadcast) {
    const Messages::CellReading& reading = broadcast.reading;
    const bool hasText = reading.format != Messages::CellFormat::EtwsNotification && reading.coding.HasText();
    return hasText ? Value(reading.text) : Value();
}

Value BroadcastJsonOf(show::Broadcast& broadcast) {
    show::HostReading host = show::CompareWithHost(broadcast);
    show::JsonText object;
    show::Write({std::move(broadcast), std::move(host)}, object);
    return std::string(object.Finish());
}

} // namespace

const std::array<MessageFunction, 9> c_messageFunctions = {{{"sms_text", TextOf},
                                                            {"sms_address", AddressOf},
                                                            {"sms_time", TimeOf},
                                                            {"sms_type", TypeOf},
                                                            {"sms_reference", ReferenceOf},
                                                            {"sms_part", PartOf},
                                                            {"sms_parts", PartsOf},
                                                            {"sms_json", JsonOf},
                                                            {"sms_remarks", RemarksOf}}};

const std::array<BroadcastFunction, 2> c_broadcastFunctions = {
    {{"cbs_text", BroadcastTextOf}, {"cbs_json", BroadcastJsonOf}}};

std::string_view ArrayIn(std::string_view object) {
    const std::size_t begin = object.find('[');
    return object.substr(begin, object.rfind(']') + 1 - begin);
}

Value Call(const MessageFunction& function, PduReader& reader, const Given& given, std::string_view options) {
    const show::Message* const message = reader.Read(given, options);
    return message == nullptr || message->reading.fault ? Value() : function.valueOf(*message);
}

Value Call(const BroadcastFunction& function, const Given& given, std::string_view format) {
    std::optional<show::Broadcast> broadcast = ReadBroadcast(given, format);
    return !broadcast || broadcast->reading.fault ? Value() : function.valueOf(*broadcast);
}

Value ErrorOf(PduReader& reader, const Given& given, std::string_view options) {
    const show::Message* const message = reader.Read(given, options);
    if (message == nullptr)
        return TooLongText();
    return message->reading.fault ? show::ToText(*message->reading.fault) : Value();
}

Value BroadcastErrorOf(const Given& given, std::string_view format) {
    const std::optional<show::Broadcast> broadcast = ReadBroadcast(given, format);
    if (!broadcast)
        return TooLongText();
    return broadcast->reading.fault ? show::ToText(*broadcast->reading.fault) : Value();
}

} // namespace sql
