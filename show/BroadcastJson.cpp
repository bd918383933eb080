#include "show/BroadcastJson.h"

#include "Messages/Words.h"
#include "show/MessageJson.h"

namespace show {

namespace {

using Messages::Field;

/// What the fields of a serial number are.
void WriteSerialDetails(Messages::SerialNumber serial, std::uint16_t messageIdentifier, JsonText& object) {
    object.Object("geographical_scope", [&] {
        object.Member("raw", static_cast<int>(serial.Scope()));
        object.Member("meaning", std::string_view(Messages::MeaningOf(serial.Scope())));
    });
    object.Member("message_code", serial.MessageCode());
    object.Member("update_number", serial.UpdateNumber());
    if (!Messages::IsEtws(messageIdentifier))
        return;
    object.Bool("emergency_alert", Messages::HasEmergencyAlert(serial, messageIdentifier));
    object.Bool("popup", Messages::HasPopup(serial, messageIdentifier));
}

void WriteCodingDetails(const Messages::CellCoding& coding, JsonText& object) {
    if (HasAlphabet(coding))
        object.Member("alphabet", Messages::NameOf(coding.alphabet));
    if (!coding.language.empty())
        object.Member("language", coding.language);
    if (coding.messageClass)
        object.Member("class", *coding.messageClass);
    if (coding.isCompressed)
        object.Bool("compressed", true);
    if (coding.hasHeader)
        object.Bool("header", true);
    if (coding.isReserved)
        object.Bool("reserved", true);
}

void WriteWarningDetails(const Messages::EtwsWarning& warning, JsonText& object) {
    object.Member("type", warning.type);
    object.Bool("emergency_alert", warning.hasEmergencyAlert);
    object.Bool("popup", warning.hasPopup);
}

/// What a field of one format alone has beside its octets and their meaning.
void WriteDetails(const BroadcastField& field, const Messages::CellReading& reading, JsonText& object) {
    switch (field.field) {
    case Field::PageParameter:
        object.Member("page", reading.pages.front().number);
        object.Member("pages", reading.total);
        return;
    case Field::WarningType:
        return WriteWarningDetails(*reading.warning, object);
    case Field::WarningTime:
        if (reading.warning->time->isValid)
            object.Member("time", std::string_view(reading.warning->time->ToString()));
        return;
    default:
        return;
    }
}

unsigned int NumberIn(Messages::OctetView octets) {
    unsigned int number = 0;
    for (const std::uint8_t octet : octets)
        number = number << 8 | octet;
    return number;
}

void WriteField(const BroadcastField& field, const Broadcast& broadcast, JsonText& object) {
    const Messages::CellReading& reading = broadcast.reading;
    switch (field.field) {
    case Field::SerialNumber:
        return WriteSerialNumber(reading.serialNumber, reading.messageIdentifier, object);
    case Field::MessageIdentifier:
        return WriteMessageIdentifier(reading.messageIdentifier, object);
    case Field::CellDataCoding:
        return WriteDataCoding(reading.coding, object);
    default:
        break;
    }
    const Messages::OctetView octets = broadcast.Octets(field.octet, field.count);
    object.Object(MemberOf(field.field), [&] {
        if (field.IsNumber())
            object.Member("raw", NumberIn(octets));
        else
            object.Octets("raw", octets);
        object.Member("meaning", std::string_view(MeaningOf(field, broadcast)));
        WriteDetails(field, reading, object);
    });
}

void WriteContent(const Messages::CellPage& page, const Messages::CellCoding& coding, JsonText& object) {
    if (!page.elements.empty() || page.isHeaderIgnored)
        object.Object("header", [&] {
            if (page.isHeaderIgnored)
                object.Bool("ignored", true);
            WriteElements(page.elements, page.octets, object);
        });
    WriteTables(page.tables, object);
    if (!page.language.empty())
        object.Member("language", std::string_view(page.language));
    if (coding.HasText())
        object.Member("text", std::string_view(page.text));
    else
        object.Octets("data", page.Content());
    if (page.paddingUnits != 0)
        object.Member("padding", page.paddingUnits);
    if (page.isCut)
        object.Bool("cut", true);
}

void WritePages(const Messages::CellReading& reading, JsonText& object) {
    object.Array("pages", [&] {
        for (const Messages::CellPage& page : reading.pages)
            object.Element([&] {
                object.Member("page", page.number);
                object.Octets("octets", page.octets);
                WriteContent(page, reading.coding, object);
            });
    });
    if (const std::string_view language = reading.Language(); !language.empty())
        object.Member("language", language);
    if (reading.coding.HasText())
        object.Member("text", std::string_view(reading.text));
    else
        object.Octets("data", DataOf(reading.pages));
}

} // namespace

void Write(const ComparedBroadcast& compared, JsonText& object) {
    const auto& [broadcast, host] = compared;
    const Messages::CellReading& reading = broadcast.reading;
    object.Octets("octets", broadcast.octets);
    object.Member("type", Messages::NameOf(reading.format));
    for (const BroadcastField& field : FieldsOf(broadcast)) {
        if (field.page == nullptr)
            WriteField(field, broadcast, object);
    }
    if (!reading.warning)
        WritePages(reading, object);
    WriteWarnings(broadcast.warnings, object);
    WriteRemarks(reading.remarks, object);
    WriteDifferences(host, false, object);
}

void WriteSerialNumber(Messages::SerialNumber serial, std::uint16_t messageIdentifier, JsonText& object) {
    object.Object(MemberOf(Field::SerialNumber), [&] {
        object.Member("raw", serial.value);
        object.Member("meaning", std::string_view(Messages::MeaningOf(serial, messageIdentifier)));
        WriteSerialDetails(serial, messageIdentifier, object);
    });
}

void WriteDataCoding(const Messages::CellCoding& coding, JsonText& object) {
    object.Object(MemberOf(Field::CellDataCoding), [&] {
        object.Member("raw", coding.value);
        object.Member("meaning", std::string_view(Messages::MeaningOf(coding)));
        WriteCodingDetails(coding, object);
    });
}

void WriteMessageIdentifier(std::uint16_t messageIdentifier, JsonText& object) {
    object.Object(MemberOf(Field::MessageIdentifier), [&] {
        object.Member("raw", messageIdentifier);
        object.Member("meaning", std::string_view(Messages::MeaningOfMessageIdentifier(messageIdentifier)));
    });
}

} // namespace show
