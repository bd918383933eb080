// What the library hands out, as the records of qxpdu/_records.py: the members in their order there.
#include <algorithm>
#include <iterator>

#include "Core.h"

namespace qxpdu {
namespace {

Ref WaitingOf(const State& state, const qx_coding& coding) {
    if (!coding.has_waiting)
        return None();
    return RecordOf(state, RecordType::Waiting,
                    {Member(state, EnumType::WaitingType, coding.waiting_type),
                     Truth(coding.waiting_is_active), Truth(coding.waiting_is_stored)});
}

Ref IndicationOf(State& state, const qx_special_message_indication& indication) {
    return RecordOf(state, RecordType::SpecialMessageIndication,
                    {Truth(indication.is_stored), Integer(indication.profile), Integer(indication.type),
                     Integer(indication.extended_type), Integer(indication.count)});
}

Ref FormattingOf(State& state, const qx_text_formatting& formatting) {
    return RecordOf(state, RecordType::TextFormatting,
                    {Integer(formatting.start), Integer(formatting.length), Integer(formatting.alignment),
                     Integer(formatting.font_size), Truth(formatting.is_bold), Truth(formatting.is_italic),
                     Truth(formatting.is_underlined), Truth(formatting.is_struck),
                     Integer(formatting.colour)});
}

Ref ObjectOf(State& state, const qx_predefined_object& object) {
    return RecordOf(state, RecordType::PredefinedObject, {Integer(object.position), Integer(object.number)});
}

Ref DistributionOf(State& state, const qx_object_distribution& distribution) {
    return RecordOf(state, RecordType::ObjectDistribution,
                    {Integer(distribution.count), Truth(distribution.forbids_forwarding)});
}

Ref HyperlinkOf(State& state, const qx_hyperlink& hyperlink) {
    return RecordOf(
        state, RecordType::Hyperlink,
        {Integer(hyperlink.position), Integer(hyperlink.title_length), Integer(hyperlink.url_length)});
}

/// The one member that an element's identifier is of.
Ref ValueOf(State& state, const qx_element& element) {
    if (element.concatenation != nullptr)
        return ConcatenationOf(state, *element.concatenation);
    if (element.indication != nullptr)
        return IndicationOf(state, *element.indication);
    if (element.ports != nullptr)
        return PortsOf(state, *element.ports);
    if (element.formatting != nullptr)
        return FormattingOf(state, *element.formatting);
    if (element.object != nullptr)
        return ObjectOf(state, *element.object);
    if (element.distribution != nullptr)
        return DistributionOf(state, *element.distribution);
    if (element.hyperlink != nullptr)
        return HyperlinkOf(state, *element.hyperlink);
    if (element.reply_address != nullptr)
        return AddressOf(state, *element.reply_address);
    return Integer(element.octet);
}

/// A zone, made when it is first asked for.
Ref ZoneOf(State& state, int quarters) {
    const int index = quarters + State::c_mostQuarters;
    PyObject*& zone = state.zones[static_cast<std::size_t>(index)];
    if (zone == nullptr) {
        const Ref offset = Made(PyObject_CallFunction(state.timedelta, "ii", 0, quarters * 900));
        Ref made = Made(PyObject_CallFunctionObjArgs(state.timezone, offset.Get(), nullptr));
        if (zone == nullptr) // another thread may have been faster
            zone = made.Release();
    }
    return Shared(zone);
}

} // namespace

Ref AddressOf(State& state, const qx_address& address) {
    return RecordOf(state, RecordType::Address,
                    {Text(address.text), Member(state, EnumType::TypeOfNumber, address.type),
                     Integer(address.plan), Text(address.written), Integer(address.type_of_address),
                     Integer(address.length)});
}

Ref TimeOf(State& state, const qx_timestamp& timestamp) {
    if (!timestamp.is_valid)
        return None();
    const Ref zone = ZoneOf(state, timestamp.quarters);
    const Ref year = Integer(timestamp.year);
    const Ref month = Integer(timestamp.month);
    const Ref day = Integer(timestamp.day);
    const Ref hour = Integer(timestamp.hour);
    const Ref minute = Integer(timestamp.minute);
    const Ref second = Integer(timestamp.second);
    const Ref microsecond = Integer(0);
    return Made(PyObject_CallFunctionObjArgs(state.datetime, year.Get(), month.Get(), day.Get(), hour.Get(),
                                             minute.Get(), second.Get(), microsecond.Get(), zone.Get(),
                                             nullptr));
}

Ref CodingOf(State& state, const qx_coding& coding) {
    return RecordOf(state, RecordType::Coding,
                    {Integer(coding.value), Member(state, EnumType::CodingGroup, coding.group),
                     Member(state, EnumType::Alphabet, coding.alphabet), Integer(coding.message_class),
                     Truth(coding.is_compressed), Truth(coding.is_reserved),
                     Truth(coding.is_automatic_deletion), Truth(coding.counts_septets),
                     WaitingOf(state, coding)});
}

Ref ValidityOf(State& state, const qx_validity& validity) {
    const Ref period = validity.has_seconds
                           ? Made(PyObject_CallFunction(state.timedelta, "iI", 0, validity.seconds))
                           : None();
    return RecordOf(state, RecordType::Validity,
                    {Member(state, EnumType::ValidityFormat, validity.format),
                     Octets({validity.octets, OctetsOfFormat(validity.format)}), period,
                     Optional(state, validity.until, TimeOf), Truth(validity.is_single_shot),
                     Integer(validity.enhanced)});
}

Ref ConcatenationOf(State& state, const qx_concatenation& concatenation) {
    return RecordOf(state, RecordType::Concatenation,
                    {Integer(concatenation.reference), Integer(concatenation.total),
                     Integer(concatenation.part), Truth(concatenation.has_wide_reference)});
}

Ref PortsOf(State& state, const qx_ports& ports) {
    return RecordOf(state, RecordType::Ports,
                    {Integer(ports.destination), Integer(ports.originator), Truth(ports.are_wide)});
}

Ref ElementOf(State& state, const qx_element& element) {
    return RecordOf(state, RecordType::Element,
                    {Integer(element.identifier), Integer(element.offset), Octets(element.data),
                     ValueOf(state, element)});
}

Ref UserDataOf(State& state, const qx_user_data& userData) {
    return RecordOf(state, RecordType::UserData,
                    {Integer(userData.length), Octets(userData.octets), Text(userData.text),
                     Octets(userData.content), Truth(userData.has_header), Truth(userData.is_header_ignored),
                     List(state, userData.elements, userData.element_count, ElementOf),
                     Optional(state, userData.concatenation, ConcatenationOf),
                     Optional(state, userData.ports, PortsOf),
                     Member(state, EnumType::Language, userData.locking),
                     Member(state, EnumType::Language, userData.single), Integer(userData.text_offset),
                     Integer(userData.fill_bits), Integer(userData.text_units)});
}

Ref PlaceOf(State& state, const qx_place& place) {
    return RecordOf(state, RecordType::Place,
                    {FieldName(state, place.field), Member(state, EnumType::Piece, place.piece),
                     Integer(place.octet), Integer(place.count), Integer(place.mask), Integer(place.value)});
}

Ref RemarkOf(State& state, const qx_remark& remark) {
    return RecordOf(state, RecordType::Remark,
                    {Text(remark.name), FieldName(state, remark.field), Integer(remark.octet),
                     Integer(remark.number), Integer(remark.other), Text(remark.meaning)});
}

Ref FaultOf(State& state, const qx_fault& fault) {
    return RecordOf(state, RecordType::Fault,
                    {Text(fault.name), FieldName(state, fault.field), Integer(fault.octet),
                     Integer(fault.expected), Integer(fault.found), Text(fault.meaning)});
}

} // namespace qxpdu
