// English for numbers. A number that names nothing has the empty text.
#include "Messages/Words.h"

#include "c/Calls.h"

using namespace Messages;

namespace {

/// Constant text has a NUL after it.
const char* Constant(std::string_view text) noexcept {
    return TextOf(text).data;
}

/// The name of an enumerator up to `last`.
template <class Enum, class Name>
const char* NameUpTo(Enum last, std::uint8_t number, Name name) noexcept {
    return number <= static_cast<std::uint8_t>(last) ? Constant(name(static_cast<Enum>(number))) : "";
}

/// Writes as much of a text as there is room for, and a NUL.
void Copy(std::string_view text, char* written, std::size_t room) {
    Require(written != nullptr || room == 0);
    if (room != 0)
        written[text.copy(written, room - 1)] = '\0';
}

/// Writes what `make()` makes, as far as there is room; returns its length.
template <class Make>
std::size_t Put(char* written, std::size_t room, Make make) noexcept {
    std::size_t size = 0;
    Guarded([&] {
        Copy({}, written, room);
        const std::string text = make();
        size = text.size();
        Copy(text, written, room);
        return QX_OK;
    });
    return size;
}

} // namespace

const char* qx_result_text(int result) {
    switch (result) {
    case QX_OK:
        return "done";
    case QX_FAULT:
        return "what was given cannot be used, as the result says";
    case QX_ARGUMENT:
        return "an argument breaks what is required of it";
    case QX_NO_MEMORY:
        return "there was no memory";
    default:
        return "";
    }
}

const char* qx_version(void) {
    return QX_VERSION;
}

const char* qx_type_name(uint8_t type) {
    return NameUpTo(TpduType::Command, type, [](TpduType named) { return NameOf(named); });
}
const char* qx_field_name(uint8_t field) {
    return NameUpTo(Field::WarningSignature, field, [](Field named) { return NameOf(named); });
}
const char* qx_field_description(uint8_t field) {
    return NameUpTo(Field::WarningSignature, field, DescriptionOf);
}
const char* qx_language_name(uint8_t language) {
    return NameUpTo(static_cast<Language>(c_lastLanguage), language,
                    [](Language named) { return NameOf(named); });
}
const char* qx_alphabet_name(uint8_t alphabet) {
    return NameUpTo(Alphabet::Ucs2, alphabet, [](Alphabet named) { return NameOf(named); });
}
const char* qx_type_of_number_name(uint8_t type) {
    return NameUpTo(TypeOfNumber::Reserved, type, [](TypeOfNumber named) { return NameOf(named); });
}
const char* qx_numbering_plan_name(uint8_t plan) {
    return NameUpTo(NumberingPlan::ReservedForExtension, plan,
                    [plan](NumberingPlan) { return NameOfNumberingPlan(plan); });
}
const char* qx_protocol_meaning(uint8_t protocol) {
    return Constant(MeaningOfProtocol(protocol));
}
const char* qx_status_meaning(uint8_t status) {
    return Constant(MeaningOfStatus(status));
}
const char* qx_status_class(uint8_t status) {
    return Constant(ClassOfStatus(status));
}
const char* qx_failure_cause_meaning(uint8_t cause) {
    return Constant(MeaningOfFailureCause(cause));
}
const char* qx_command_type_meaning(uint8_t type) {
    return Constant(MeaningOfCommandType(type));
}
const char* qx_element_name(uint8_t identifier) {
    return Constant(NameOfElement(identifier));
}
const char* qx_port_meaning(bool are_wide, uint16_t port) {
    return Constant(MeaningOfPort({are_wide, port, port}, port));
}
const char* qx_class_meaning(uint8_t message_class) {
    return message_class <= 3 ? Constant(MeaningOfClass(message_class)) : "";
}
const char* qx_waiting_type_name(uint8_t type) {
    return NameUpTo(WaitingType::Other, type, [](WaitingType named) { return NameOf(named); });
}
const char* qx_join_outcome_name(uint8_t outcome) {
    return NameUpTo(JoinOutcome::Finished, outcome, [](JoinOutcome named) { return CodeOf(named); });
}
const char* qx_join_outcome_meaning(uint8_t outcome) {
    return NameUpTo(JoinOutcome::Finished, outcome, [](JoinOutcome named) { return MeaningOf(named); });
}
const char* qx_cell_format_name(uint8_t format) {
    return NameUpTo(CellFormat::EtwsNotification, format, [](CellFormat named) { return NameOf(named); });
}
const char* qx_warning_type_name(uint8_t type) {
    return type <= 0x7F ? Constant(NameOfWarningType(type)) : "";
}

size_t qx_timestamp_text(const qx_timestamp* timestamp, char* text, size_t room) {
    return Put(text, room, [&] {
        const Timestamp time = ValueOf(timestamp);
        return IsTime(time) ? time.ToString() : std::string();
    });
}
size_t qx_validity_meaning(const qx_validity* validity, char* text, size_t room) {
    return Put(text, room, [&] { return MeaningOf(ValueOf(validity)); });
}
size_t qx_coding_meaning(uint8_t coding, char* text, size_t room) {
    return Put(text, room, [&] { return MeaningOf(DataCoding(coding)); });
}
size_t qx_cell_coding_meaning(uint8_t coding, char* text, size_t room) {
    return Put(text, room, [&] { return MeaningOf(CellCoding(coding)); });
}
size_t qx_message_identifier_meaning(uint16_t identifier, char* text, size_t room) {
    return Put(text, room, [&] { return MeaningOfMessageIdentifier(identifier); });
}
size_t qx_serial_number_meaning(uint16_t serial, uint16_t identifier, char* text, size_t room) {
    return Put(text, room, [&] { return MeaningOf(SerialNumber{serial}, identifier); });
}
