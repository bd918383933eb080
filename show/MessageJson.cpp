#include "show/MessageJson.h"

#include <string>
#include <utility>

#include "Messages/Words.h"
#include "show/Record.h"
#include "show/Subfields.h"
#include "show/Values.h"

namespace show {

namespace {

using Messages::Field;

/// A number with what it means.
void WriteNumber(std::string_view name, unsigned int value, std::string_view meaning, JsonText& object) {
    object.Object(name, [&] {
        object.Member("raw", value);
        object.Member("meaning", meaning);
    });
}

void WriteElement(const Messages::HeaderElement& element, Messages::OctetView data, JsonText& object) {
    object.Member("identifier", element.identifier);
    object.Member("meaning", Messages::NameOfElement(element.identifier));
    object.Octets("data", data);
    const auto write = [&](std::string_view name, unsigned int value, std::string_view meaning) {
        if (meaning.empty())
            object.Member(KeyOf(name), value);
        else
            WriteNumber(KeyOf(name), value, meaning, object);
    };
    for (const Subfield& subfield : SubfieldsOf(element, data)) {
        if (subfield.bits.empty())
            write(subfield.name, subfield.value, subfield.meaning);
        for (const OctetBits& bits : subfield.bits)
            write(bits.name, bits.value, bits.meaning);
    }
    if (!element.Is(Messages::ElementId::ReplyAddress))
        return;
    if (const auto address = Messages::ReadReplyAddress(data))
        object.Object("address", [&] { WriteAddress(*address, object); });
}

/// Writes what a field has beside its octets and their meaning.
struct DetailWriter {
    const MessageField& field;
    std::string_view meaning;
    JsonText& object;

    void operator()(PlainOctets) const {}
    void operator()(unsigned int) const {}

    void operator()(const Messages::Address* address) const {
        if (!field.IsAbsent())
            WriteAddress(*address, object);
    }

    void operator()(const Messages::Timestamp& time) const {
        if (time.isValid)
            object.Member("time", meaning);
    }

    void operator()(const Messages::Validity* validity) const {
        (*this)(validity->Absolute());
        if (const auto seconds = validity->Seconds())
            object.Member("seconds", *seconds);
        if (validity->IsSingleShot())
            object.Bool("single_shot", true);
    }

    void operator()(const Messages::DataCoding* coding) const {
        object.Member("alphabet", Messages::NameOf(coding->alphabet));
        if (coding->messageClass)
            object.Member("class", *coding->messageClass);
        if (coding->isCompressed)
            object.Bool("compressed", true);
        if (coding->IsAutomaticDeletion())
            object.Bool("automatic_deletion", true);
        if (coding->isReserved)
            object.Bool("reserved", true);
        if (const auto& waiting = coding->waiting) {
            object.Object("waiting", [&] {
                object.Member("type", Messages::NameOf(waiting->type));
                object.Bool("active", waiting->isActive);
                object.Bool("stored", waiting->isStored);
            });
        }
    }

    void operator()(const Messages::UserData* userData) const {
        if (userData->isHeaderIgnored)
            object.Bool("ignored", true);
        WriteElements(userData->elements, userData->octets, object);
    }
};

/// The meaning of a header in one line.
std::string OneLine(std::string text) {
    for (std::size_t feed = text.find('\n'); feed != std::string::npos; feed = text.find('\n'))
        text.replace(feed, 1, "; ");
    return text;
}

/// `digits` are those of all octets.
void WriteField(const MessageField& field, const Message& message, std::string_view digits,
                JsonText& object) {
    object.Object(MemberOf(field.field), [&] {
        const auto* const coding = std::get_if<const Messages::DataCoding*>(&field.value);
        const auto* const validity = std::get_if<const Messages::Validity*>(&field.value);
        if (const auto* number = std::get_if<unsigned int>(&field.value);
            number != nullptr && field.count == 1)
            object.Member("raw", *number);
        else if (coding != nullptr || (validity != nullptr && field.count == 1))
            object.Member("raw", message.octets[field.octet]);
        else
            object.Digits("raw", digits.substr(std::size_t{2} * field.octet, std::size_t{2} * field.count));
        Words meaning = MeaningOf(field, message);
        if (std::holds_alternative<const Messages::UserData*>(field.value))
            meaning = OneLine(std::move(meaning));
        object.Member("meaning", meaning);
        std::visit(DetailWriter{field, meaning, object}, field.value);
    });
}

void WriteUserData(const Message& message, const Messages::UserData& userData, JsonText& object) {
    if (const auto& place = userData.concatenation) {
        object.Object("concatenation", [&] {
            object.Member("reference", place->reference);
            object.Member("reference_bits", place->hasWideReference ? 16 : 8);
            object.Member("total", place->total);
            object.Member("part", place->part);
        });
    }
    if (const auto& ports = userData.ports) {
        object.Object("ports", [&] {
            object.Member("destination", ports->destination);
            object.Member("originator", ports->originator);
            object.Member("bits", ports->areWide ? 16 : 8);
        });
    }
    WriteTables(userData.tables, object);
    if (IsData(message.reading.tpdu))
        object.Octets("data", userData.Content());
    else
        object.Member("text", std::string_view(userData.text));
}

} // namespace

std::string_view MemberOf(Field field) {
    switch (field) {
    case Field::ServiceCentre:
        return "sc_address";
    case Field::MessageType:
        return "tp_mti";
    case Field::MoreMessages:
        return "tp_mms";
    case Field::LoopPrevention:
        return "tp_lp";
    case Field::RejectDuplicates:
        return "tp_rd";
    case Field::ValidityFormat:
        return "tp_vpf";
    case Field::StatusReportIndication:
        return "tp_sri";
    case Field::StatusReportRequest:
        return "tp_srr";
    case Field::StatusReportQualifier:
        return "tp_srq";
    case Field::UserDataHeaderIndicator:
        return "tp_udhi";
    case Field::ReplyPath:
        return "tp_rp";
    case Field::UnusedBits:
        return "unused_bits";
    case Field::MessageReference:
        return "tp_mr";
    case Field::OriginatingAddress:
        return "tp_oa";
    case Field::DestinationAddress:
        return "tp_da";
    case Field::RecipientAddress:
        return "tp_ra";
    case Field::ProtocolIdentifier:
        return "tp_pid";
    case Field::DataCodingScheme:
        return "tp_dcs";
    case Field::ServiceCentreTimestamp:
        return "tp_scts";
    case Field::DischargeTime:
        return "tp_dt";
    case Field::ValidityPeriod:
        return "tp_vp";
    case Field::Status:
        return "tp_st";
    case Field::FailureCause:
        return "tp_fcs";
    case Field::ParameterIndicator:
        return "tp_pi";
    case Field::CommandType:
        return "tp_ct";
    case Field::MessageNumber:
        return "tp_mn";
    case Field::CommandDataLength:
        return "tp_cdl";
    case Field::CommandData:
        return "tp_cd";
    case Field::UserDataLength:
        return "tp_udl";
    case Field::HeaderLength:
    case Field::HeaderElement:
    case Field::IgnoredHeader:
        return "tp_udh";
    case Field::FillBits:
        return "fill_bits";
    case Field::UserData:
        return "tp_ud";
    case Field::Surplus:
        return "surplus";
    case Field::SerialNumber:
        return "serial_number";
    case Field::MessageIdentifier:
        return "message_identifier";
    case Field::CellDataCoding:
        return "data_coding_scheme";
    case Field::PageParameter:
        return "page_parameter";
    case Field::CellMessageType:
        return "message_type";
    case Field::PageCount:
        return "number_of_pages";
    case Field::PageLanguage:
        return "language";
    case Field::PageContent:
        return "content";
    case Field::PageFilling:
        return "filling";
    case Field::PageLength:
        return "page_length";
    case Field::WarningType:
        return "warning_type";
    case Field::WarningTime:
        return "warning_time";
    case Field::WarningSignature:
        return "signature";
    }
    return "other";
}

void Write(const Message& message, const HostReading& host, std::optional<std::size_t> reportOn,
           JsonText& object) {
    const std::string digits = Messages::ToHex(message.octets);
    object.Digits("octets", digits);
    object.Member("type", Messages::NameOf(message.reading.Type()));
    WriteDirection(message.reading.direction, object);
    for (const MessageField& field : FieldsOf(message))
        WriteField(field, message, digits, object);
    if (const Messages::UserData* userData = Messages::UserDataOf(message.reading.tpdu))
        WriteUserData(message, *userData, object);
    if (reportOn)
        object.Member("report_on", *reportOn);
    WriteWarnings(message.warnings, object);
    WriteRemarks(message.reading.remarks, object);
    WriteDifferences(host, message.reading.fault.has_value(), object);
}

void Write(const HostReading& record, JsonText& object) {
    object.Object("libQX_Encoding", [&] {
        object.Member("result", record.isRejected ? 0 : 1);
        for (const RecordMember& member : record.members)
            WriteValue(member, object);
    });
}

void WriteFault(const Messages::Fault& fault, JsonText& object) {
    object.Object("fault", [&] {
        object.Member("code", Messages::CodeOf(fault.code));
        object.Member("octet", fault.octet);
        object.Member("field", ShownNameOf(fault.field));
        object.Member("expected", fault.expected);
        object.Member("found", fault.found);
    });
}

void WriteWarnings(const std::vector<std::string>& warnings, JsonText& object) {
    if (!warnings.empty())
        object.Texts("warnings", warnings);
}

void WriteRemarks(const std::vector<Messages::Remark>& remarks, JsonText& object) {
    if (remarks.empty())
        return;
    object.Array("remarks", [&] {
        for (const Messages::Remark& remark : remarks) {
            object.Element([&] {
                object.Member("code", Messages::CodeOf(remark.code));
                object.Member("octet", remark.octet);
                object.Member("field", ShownNameOf(remark.field));
                object.Member("meaning", std::string_view(Messages::MeaningOf(remark)));
            });
        }
    });
}

void WriteElements(const std::vector<Messages::HeaderElement>& elements, Messages::OctetView userData,
                   JsonText& object) {
    object.Array("elements", [&] {
        for (const Messages::HeaderElement& element : elements)
            object.Element([&] { WriteElement(element, element.Data(userData), object); });
    });
}

void WriteTables(const Messages::SeptetTables& tables, JsonText& object) {
    if (tables.locking != Messages::Language::Default)
        object.Member("locking_shift", Messages::NameOf(tables.locking));
    if (tables.single != Messages::Language::Default)
        object.Member("single_shift", Messages::NameOf(tables.single));
}

void WriteDirection(Messages::Direction direction, JsonText& object) {
    if (direction != Messages::Direction::Unknown)
        object.Member("direction", DirectionName(direction));
}

void WriteAddress(const Messages::Address& address, JsonText& object) {
    object.Member("number", std::string_view(address.ToString()));
    WriteNumber("type_of_number", static_cast<unsigned int>(address.Type()), Messages::NameOf(address.Type()),
                object);
    const auto plan = static_cast<std::uint8_t>(address.Plan());
    WriteNumber("numbering_plan", plan, Messages::NameOfNumberingPlan(plan), object);
}

} // namespace show
