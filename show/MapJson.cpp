#include "show/MapJson.h"

#include "Messages/Words.h"
#include "show/MessageJson.h"
#include "show/OctetMap.h"

namespace show {

namespace {

void WriteBits(const OctetBits& bits, JsonText& object) {
    object.Member("bits", std::string_view(BitPattern(bits)));
    object.Member("name", bits.name);
    object.Member("value", bits.value);
    if (!bits.meaning.empty())
        object.Member("meaning", bits.meaning);
}

void WriteRow(const OctetRow& row, const Message& message, JsonText& object) {
    object.Member("offset", row.octet);
    object.Member("length", row.count);
    const Messages::OctetView octets = message.Octets(row.octet, row.count);
    object.Octets("octets", octets);
    object.Member("field", row.field);
    if (!row.subfield.empty())
        object.Member("subfield", row.subfield);
    if (const int* number = std::get_if<int>(&row.value))
        object.Member("value", *number);
    else if (const auto* text = std::get_if<std::string>(&row.value))
        object.Member("value", std::string_view(*text));
    else if (const auto* quoted = std::get_if<QuotedText>(&row.value))
        object.Member("value", std::string_view(quoted->text));
    if (!row.meaning.empty())
        object.Member("meaning", std::string_view(row.meaning));
    if (row.bits.empty())
        return;
    object.Array("bits", [&] {
        for (const OctetBits& bits : row.bits)
            object.Element([&] { WriteBits(bits, object); });
    });
}

} // namespace

void WriteMap(const Message& message, const HostReading& host, JsonText& object) {
    object.Octets("octets", message.octets);
    if (message.reading.Type() != Messages::TpduType::None)
        object.Member("type", Messages::NameOf(message.reading.Type()));
    WriteDirection(message.reading.direction, object);
    object.Array("map", [&] {
        for (const OctetRow& row : MapOctets(message))
            object.Element([&] { WriteRow(row, message, object); });
    });
    WriteWarnings(message, object);
    WriteRemarks(message.reading.remarks, object);
    if (message.reading.fault) {
        object.Member("error", std::string_view(ToText(*message.reading.fault)));
        WriteFault(*message.reading.fault, object);
    }
    WriteDifferences(host, message.reading.fault.has_value(), object);
}

} // namespace show
