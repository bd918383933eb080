#include "show/MapJson.h"

#include <optional>
#include <vector>

#include "Messages/Words.h"
#include "show/BroadcastJson.h"
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

void WriteRow(const OctetRow& row, Messages::OctetView all, JsonText& object) {
    object.Member("offset", row.octet);
    object.Member("length", row.count);
    const Messages::OctetView octets = all.Sub(row.octet, row.count);
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

void WriteRows(const std::vector<OctetRow>& rows, Messages::OctetView octets, JsonText& object) {
    object.Array("map", [&] {
        for (const OctetRow& row : rows)
            object.Element([&] { WriteRow(row, octets, object); });
    });
}

/// What stands after the map.
void WriteFindings(const std::vector<Messages::Remark>& remarks, const std::optional<Messages::Fault>& fault,
                   const HostReading& host, JsonText& object) {
    WriteRemarks(remarks, object);
    if (fault) {
        object.Member("error", std::string_view(ToText(*fault)));
        WriteFault(*fault, object);
    }
    WriteDifferences(host, fault.has_value(), object);
}

} // namespace

void WriteMap(const Message& message, const HostReading& host, JsonText& object) {
    object.Octets("octets", message.octets);
    if (message.reading.Type() != Messages::TpduType::None)
        object.Member("type", Messages::NameOf(message.reading.Type()));
    WriteDirection(message.reading.direction, object);
    WriteRows(MapOctets(message), message.octets, object);
    WriteWarnings(message.warnings, object);
    WriteFindings(message.reading.remarks, message.reading.fault, host, object);
}

void WriteMap(const ComparedBroadcast& compared, JsonText& object) {
    const auto& [broadcast, host] = compared;
    object.Octets("octets", broadcast.octets);
    object.Member("type", Messages::NameOf(broadcast.reading.format));
    WriteRows(MapOctets(broadcast), broadcast.octets, object);
    WriteWarnings(broadcast.warnings, object);
    WriteFindings(broadcast.reading.remarks, broadcast.reading.fault, host, object);
}

} // namespace show
