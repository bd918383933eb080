#include "messages/c/Agreement.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "Messages/Words.h"
#include "Messages/Write.h"
#include "Messages/qx_messages.h"
#include "messages/c/Require.h"

namespace tests {
namespace {

using namespace Messages;

template <class Handle, void (*Free)(Handle*)>
struct Freeing {
    void operator()(Handle* handle) const { Free(handle); }
};
using Reader = std::unique_ptr<qx_reader, Freeing<qx_reader, qx_reader_free>>;
using Writer = std::unique_ptr<qx_writer, Freeing<qx_writer, qx_writer_free>>;
using Cutter = std::unique_ptr<qx_cutter, Freeing<qx_cutter, qx_cutter_free>>;
using CJoiner = std::unique_ptr<qx_joiner, Freeing<qx_joiner, qx_joiner_free>>;
using Maker = std::unique_ptr<qx_maker, Freeing<qx_maker, qx_maker_free>>;
using PageJoiner = std::unique_ptr<qx_page_joiner, Freeing<qx_page_joiner, qx_page_joiner_free>>;

bool IsSame(qx_text c, std::string_view text) {
    return std::string_view(c.data, c.size) == text && c.data[c.size] == '\0';
}
bool IsSame(qx_octets c, OctetView octets) {
    return std::equal(octets.begin(), octets.end(), c.data, c.data + c.size);
}
bool IsSame(qx_optional_octet c, std::optional<std::uint8_t> octet) {
    return c.has_value == octet.has_value() && c.value == octet.value_or(0);
}
template <class Enum>
bool IsSame(std::uint8_t c, Enum value) {
    return c == static_cast<std::uint8_t>(value);
}

void Compare(const qx_address* c, const Address& address) {
    Require(c != nullptr && c->size == sizeof(*c) && IsSame(c->text, address.text) &&
                c->type_of_address == address.typeOfAddress && c->length == address.length &&
                IsSame(c->type, address.Type()) && IsSame(c->plan, address.Plan()) &&
                IsSame(c->written, address.ToString()),
            "an address");
}

void Compare(const qx_timestamp* c, const Timestamp& time) {
    Require(c != nullptr && c->size == sizeof(*c) &&
                std::equal(time.octets.begin(), time.octets.end(), c->octets) &&
                c->is_valid == time.isValid && c->year == time.year && c->month == time.month &&
                c->day == time.day && c->hour == time.hour && c->minute == time.minute &&
                c->second == time.second && c->quarters == time.quarters &&
                c->unix_seconds == time.UnixSeconds(),
            "a time");
    char text[26];
    const std::size_t size = qx_timestamp_text(c, text, sizeof(text));
    Require(std::string_view(text, size) == time.ToString(), "a time's text");
}

void Compare(const qx_validity* c, const Validity& validity) {
    const bool isEnhanced = validity.format == ValidityFormat::Enhanced;
    Require(c != nullptr && c->size == sizeof(*c) && IsSame(c->format, validity.format) &&
                std::equal(validity.octets.begin(), validity.octets.end(), c->octets) &&
                c->enhanced == (isEnhanced ? static_cast<unsigned int>(validity.Enhanced()) : 0) &&
                c->is_single_shot == validity.IsSingleShot() &&
                c->has_seconds == validity.Seconds().has_value() &&
                c->seconds == validity.Seconds().value_or(0) &&
                (c->until != nullptr) == (validity.format == ValidityFormat::Absolute),
            "a validity");
    if (c->until != nullptr)
        Compare(c->until, validity.Absolute());
    std::string text(300, '-');
    text.resize(qx_validity_meaning(c, text.data(), text.size()));
    Require(text == MeaningOf(validity), "a validity's meaning");
}

void Compare(const qx_coding* c, const DataCoding& coding) {
    const WaitingIndication waiting = coding.waiting.value_or(WaitingIndication());
    Require(c != nullptr && c->size == sizeof(*c) && c->value == coding.value &&
                IsSame(c->group, coding.group) && IsSame(c->alphabet, coding.alphabet) &&
                IsSame(c->message_class, coding.messageClass) && c->is_compressed == coding.isCompressed &&
                c->is_reserved == coding.isReserved &&
                c->is_automatic_deletion == coding.IsAutomaticDeletion() &&
                c->counts_septets == coding.CountsSeptets() && c->has_waiting == coding.waiting.has_value() &&
                c->waiting_is_stored == waiting.isStored && c->waiting_is_active == waiting.isActive &&
                IsSame(c->waiting_type, waiting.type),
            "a data coding scheme");
}

bool IsSame(const qx_concatenation* c, const std::optional<Concatenation>& value) {
    return (c != nullptr) == value.has_value() &&
           (c == nullptr ||
            (c->size == sizeof(*c) && c->has_wide_reference == value->hasWideReference &&
             c->reference == value->reference && c->total == value->total && c->part == value->part));
}
bool IsSame(const qx_ports* c, const std::optional<Ports>& value) {
    return (c != nullptr) == value.has_value() &&
           (c == nullptr || (c->size == sizeof(*c) && c->are_wide == value->areWide &&
                             c->destination == value->destination && c->originator == value->originator));
}
bool IsSame(const qx_special_message_indication* c, const std::optional<SpecialMessageIndication>& value) {
    return (c != nullptr) == value.has_value() &&
           (c == nullptr ||
            (c->size == sizeof(*c) && c->is_stored == value->isStored && c->profile == value->profile &&
             c->type == value->type && c->extended_type == value->extendedType && c->count == value->count));
}
bool IsSame(const qx_text_formatting* c, const std::optional<TextFormatting>& value) {
    return (c != nullptr) == value.has_value() &&
           (c == nullptr ||
            (c->size == sizeof(*c) && c->start == value->start && c->length == value->length &&
             c->alignment == value->alignment && c->font_size == value->size && c->is_bold == value->isBold &&
             c->is_italic == value->isItalic && c->is_underlined == value->isUnderlined &&
             c->is_struck == value->isStruck && IsSame(c->colour, value->colour)));
}
bool IsSame(const qx_predefined_object* c, const std::optional<PredefinedObject>& value) {
    return (c != nullptr) == value.has_value() &&
           (c == nullptr ||
            (c->size == sizeof(*c) && c->position == value->position && c->number == value->number));
}
bool IsSame(const qx_object_distribution* c, const std::optional<ObjectDistribution>& value) {
    return (c != nullptr) == value.has_value() &&
           (c == nullptr || (c->size == sizeof(*c) && c->count == value->count &&
                             c->forbids_forwarding == value->forbidsForwarding));
}
bool IsSame(const qx_hyperlink* c, const std::optional<Hyperlink>& value) {
    return (c != nullptr) == value.has_value() &&
           (c == nullptr || (c->size == sizeof(*c) && c->position == value->position &&
                             c->title_length == value->titleLength && c->url_length == value->urlLength));
}

/// What `read` gives, where the identifier is one of these.
template <class Read>
auto Decoded(const HeaderElement& element, std::initializer_list<ElementId> ids, Read read) {
    const bool isOne =
        std::any_of(ids.begin(), ids.end(), [&](const ElementId id) { return element.Is(id); });
    return isOne ? read() : std::nullopt;
}

void Compare(const qx_element* c, const HeaderElement& element, OctetView octets) {
    using Id = ElementId;
    const OctetView data = element.Data(octets);
    Require(c != nullptr && c->size == sizeof(*c) && c->identifier == element.identifier &&
                c->length == element.length && c->offset == element.offset && IsSame(c->data, data),
            "an element");
    Require(
        IsSame(c->concatenation, Decoded(element, {Id::Concatenation8, Id::Concatenation16},
                                         [&] { return ReadConcatenation(element.identifier, data); })) &&
            IsSame(c->ports, Decoded(element, {Id::Ports8, Id::Ports16},
                                     [&] { return ReadPorts(element.identifier, data); })) &&
            IsSame(c->indication, Decoded(element, {Id::SpecialMessageIndication},
                                          [&] { return ReadSpecialMessageIndication(data); })) &&
            IsSame(c->formatting,
                   Decoded(element, {Id::TextFormatting}, [&] { return ReadTextFormatting(data); })) &&
            IsSame(c->object, Decoded(element, {Id::PredefinedSound, Id::PredefinedAnimation},
                                      [&] { return ReadPredefinedObject(data); })) &&
            IsSame(c->distribution, Decoded(element, {Id::ObjectDistribution},
                                            [&] { return ReadObjectDistribution(data); })) &&
            IsSame(c->hyperlink, Decoded(element, {Id::Hyperlink}, [&] { return ReadHyperlink(data); })) &&
            IsSame(c->octet, Decoded(element,
                                     {Id::ServiceCentreControl, Id::HeaderSource, Id::UserPrompt,
                                      Id::EmailHeader, Id::SingleShift, Id::LockingShift},
                                     [&] { return ReadSingleOctet(data); })),
        "what an element says");
    const auto address = Decoded(element, {Id::ReplyAddress}, [&] { return ReadReplyAddress(data); });
    Require((c->reply_address != nullptr) == address.has_value(), "a reply address");
    if (address)
        Compare(c->reply_address, *address);
}

void Compare(const qx_element* const* c, std::size_t count, const std::vector<HeaderElement>& elements,
             OctetView octets) {
    Require(count == elements.size(), "the number of elements");
    for (std::size_t i = 0; i < count; ++i)
        Compare(c[i], elements[i], octets);
}

void Compare(const qx_user_data* c, const UserData& data) {
    Require(c != nullptr && c->size == sizeof(*c) && c->length == data.length &&
                IsSame(c->octets, data.octets) && c->has_header == data.hasHeader &&
                c->is_header_ignored == data.isHeaderIgnored &&
                IsSame(c->concatenation, data.concatenation) && IsSame(c->ports, data.ports) &&
                IsSame(c->locking, data.tables.locking) && IsSame(c->single, data.tables.single) &&
                c->text_offset == data.textOffset && c->fill_bits == data.fillBits &&
                c->text_units == data.textUnits && IsSame(c->text, data.text) &&
                IsSame(c->content, data.Content()),
            "user data");
    Compare(c->elements, c->element_count, data.elements, data.octets);
}

void Compare(const qx_fault* c, const Fault& fault);
void Compare(const qx_etws_warning* c, const EtwsWarning& warning);
void Compare(const qx_misfit* c, const MisfitCharacter& misfit);
void Compare(const qx_cut_fault* c, const CutFault& fault);

/// A member that the type has, or has not.
/// @{
template <class Struct, class Value>
void CompareOptional(const Struct* c, const Value* value) {
    Require((c != nullptr) == (value != nullptr), "a member that is there");
    if (value != nullptr)
        Compare(c, *value);
}
template <class Value>
const Value* Pointer(const std::optional<Value>& value) {
    return value ? &*value : nullptr;
}
/// @}

/// The members that only some types have; as a type has not got them, they are 0.
qx_message Expected(const Tpdu& tpdu) {
    qx_message m{};
    m.type = static_cast<std::uint8_t>(TypeOf(tpdu));
    const auto octet = [](std::optional<std::uint8_t> value) {
        return qx_optional_octet{value.has_value(), value.value_or(0)};
    };
    if (const auto* deliver = std::get_if<Deliver>(&tpdu)) {
        m.more_messages = deliver->moreMessages;
        m.loop_prevention = deliver->loopPrevention;
        m.status_report_indication = deliver->statusReportIndication;
        m.reply_path = deliver->replyPath;
        m.protocol = octet(deliver->protocol);
    } else if (const auto* deliverReport = std::get_if<DeliverReport>(&tpdu)) {
        m.failure_cause = octet(deliverReport->failureCause);
        m.parameter_indicator = octet(deliverReport->parameterIndicator);
        m.protocol = octet(deliverReport->protocol);
    } else if (const auto* submit = std::get_if<Submit>(&tpdu)) {
        m.reject_duplicates = submit->rejectDuplicates;
        m.status_report_request = submit->statusReportRequest;
        m.reply_path = submit->replyPath;
        m.reference = submit->reference;
        m.protocol = octet(submit->protocol);
    } else if (const auto* submitReport = std::get_if<SubmitReport>(&tpdu)) {
        m.failure_cause = octet(submitReport->failureCause);
        m.parameter_indicator = octet(submitReport->parameterIndicator);
        m.protocol = octet(submitReport->protocol);
    } else if (const auto* report = std::get_if<StatusReport>(&tpdu)) {
        m.more_messages = report->moreMessages;
        m.loop_prevention = report->loopPrevention;
        m.is_for_command = report->isForCommand;
        m.reference = report->reference;
        m.status = report->status;
        m.parameter_indicator = octet(report->parameterIndicator);
        m.protocol = octet(report->protocol);
    } else if (const auto* command = std::get_if<Command>(&tpdu)) {
        m.status_report_request = command->statusReportRequest;
        m.reference = command->reference;
        m.protocol = octet(command->protocol);
        m.command_type = command->commandType;
        m.message_number = command->messageNumber;
    }
    return m;
}

bool IsSame(qx_optional_octet left, qx_optional_octet right) {
    return left.has_value == right.has_value && left.value == right.value;
}

void Compare(const qx_message* c, const Tpdu& tpdu) {
    Require((c != nullptr) == (TypeOf(tpdu) != TpduType::None), "whether there is a message");
    if (c == nullptr)
        return;
    const qx_message m = Expected(tpdu);
    Require(c->size == sizeof(*c) && c->type == m.type && c->more_messages == m.more_messages &&
                c->loop_prevention == m.loop_prevention && c->reject_duplicates == m.reject_duplicates &&
                c->status_report_indication == m.status_report_indication &&
                c->status_report_request == m.status_report_request &&
                c->is_for_command == m.is_for_command && c->reply_path == m.reply_path,
            "the bits of the first octet");
    Require(c->reference == m.reference && c->status == m.status && c->command_type == m.command_type &&
                c->message_number == m.message_number && IsSame(c->failure_cause, m.failure_cause) &&
                IsSame(c->parameter_indicator, m.parameter_indicator) && IsSame(c->protocol, m.protocol),
            "a field of one octet");
    CompareOptional(c->party, PartyOf(tpdu));
    CompareOptional(c->coding, CodingOf(tpdu));
    CompareOptional(c->timestamp, TimestampOf(tpdu));
    CompareOptional(c->user_data, UserDataOf(tpdu));
    const auto* const report = std::get_if<StatusReport>(&tpdu);
    CompareOptional(c->discharge, report != nullptr ? &report->discharge : nullptr);
    const auto* const submit = std::get_if<Submit>(&tpdu);
    CompareOptional(c->validity, submit != nullptr ? &submit->validity : nullptr);
}

void Compare(const qx_fault* c, const Fault& fault) {
    Require(c->size == sizeof(*c) && IsSame(c->code, fault.code) && IsSame(c->field, fault.field) &&
                c->octet == fault.octet && c->expected == fault.expected && c->found == fault.found &&
                IsSame(c->name, CodeOf(fault.code)) && IsSame(c->meaning, MeaningOf(fault)),
            "a fault");
}

/// Places, remarks and the fault, of messages and of cell broadcast.
template <class Struct, class Reading>
void CompareFindings(const Struct* c, const Reading& reading) {
    Require(c->place_count == reading.places.size() && c->remark_count == reading.remarks.size(),
            "the number of places or remarks");
    for (std::size_t i = 0; i < c->place_count; ++i) {
        const qx_place& place = *c->places[i];
        const FieldPlace& expected = reading.places[i];
        Require(place.size == sizeof(place) && IsSame(place.field, expected.field) &&
                    IsSame(place.piece, expected.piece) && place.mask == expected.mask &&
                    place.value == expected.value && place.octet == expected.octet &&
                    place.count == expected.count,
                "a place");
    }
    for (std::size_t i = 0; i < c->remark_count; ++i) {
        const qx_remark& remark = *c->remarks[i];
        const Remark& expected = reading.remarks[i];
        Require(remark.size == sizeof(remark) && IsSame(remark.code, expected.code) &&
                    IsSame(remark.field, expected.field) && remark.octet == expected.octet &&
                    remark.number == expected.number && remark.other == expected.other &&
                    IsSame(remark.name, CodeOf(expected.code)) && IsSame(remark.meaning, MeaningOf(expected)),
                "a remark");
    }
    CompareOptional(c->fault, Pointer(reading.fault));
}

void Compare(const qx_reading* c, const Reading& reading) {
    Require(c->size == sizeof(*c) && c->is_service_centre_guessed == reading.isServiceCentreGuessed &&
                IsSame(c->direction, reading.direction) && c->is_sound == reading.IsSound(),
            "a reading");
    CompareOptional(c->service_centre, Pointer(reading.serviceCentre));
    Compare(c->message, reading.tpdu);
    CompareFindings(c, reading);
}

void CheckWritten(const qx_reading* c, const Reading& reading) {
    const Writer writer(qx_writer_new());
    const qx_written* written = nullptr;
    const Written expected = Write(reading.tpdu, reading.serviceCentre);
    const qx_result result = qx_write(writer.get(), c->message, c->service_centre, &written);
    Require(result == (expected.fault ? QX_FAULT : QX_OK) && written->size == sizeof(*written) &&
                IsSame(written->octets, expected.octets) && written->tpdu_octets == expected.tpduOctets &&
                (written->fault != nullptr) == expected.fault.has_value(),
            "what is written");
    if (expected.fault)
        Require(written->fault->size == sizeof(*written->fault) &&
                    IsSame(written->fault->code, expected.fault->code) &&
                    IsSame(written->fault->field, expected.fault->field) &&
                    written->fault->number == expected.fault->number &&
                    written->fault->other == expected.fault->other &&
                    IsSame(written->fault->name, CodeOf(expected.fault->code)) &&
                    IsSame(written->fault->meaning, MeaningOf(*expected.fault)),
                "why nothing is written");
}

void Compare(const qx_joined_list* c, const std::vector<Joined>& all) {
    Require(c->size == sizeof(*c) && c->message_count == all.size(), "the number of joined messages");
    for (std::size_t i = 0; i < all.size(); ++i) {
        const qx_joined& joined = *c->messages[i];
        const Joined& expected = all[i];
        Require(joined.size == sizeof(joined) && IsSame(joined.outcome, expected.outcome) &&
                    joined.total == expected.total && joined.part_count == expected.parts.size() &&
                    IsSame(joined.text, expected.text) && IsSame(joined.data, expected.data) &&
                    joined.gap_count == expected.gaps.size() && joined.before == expected.before,
                "a joined message");
        for (std::size_t part = 0; part < joined.part_count; ++part) {
            Require(joined.parts[part]->size == sizeof(qx_joined_part) &&
                        joined.parts[part]->number == expected.parts[part].number &&
                        joined.parts[part]->tag == expected.parts[part].tag,
                    "a joined part");
            Compare(joined.parts[part]->message, expected.parts[part].tpdu);
        }
        for (std::size_t gap = 0; gap < joined.gap_count; ++gap)
            Require(joined.gaps[gap]->size == sizeof(qx_joined_gap) &&
                        joined.gaps[gap]->first == expected.gaps[gap].first &&
                        joined.gaps[gap]->last == expected.gaps[gap].last &&
                        joined.gaps[gap]->text_offset == expected.gaps[gap].textOffset &&
                        joined.gaps[gap]->data_offset == expected.gaps[gap].dataOffset,
                    "a gap");
    }
}

void CheckJoined(const qx_reader* reader, const Reading& reading) {
    const CJoiner c(qx_joiner_new(nullptr));
    Joiner joiner;
    const qx_joined_list* joined = nullptr;
    for (std::uint64_t tag = 1; tag <= 2; ++tag) { // the second time it is a duplicate, or one more
        Require(qx_joiner_add(c.get(), reader, 7, tag, &joined) == QX_OK, "whether a part is taken");
        Compare(joined, joiner.Add(reading, 7, tag));
    }
    Require(qx_joiner_expire(c.get(), 86400, &joined) == QX_OK, "whether time passes");
    Compare(joined, joiner.Expire(86400));
    Require(qx_joiner_finish(c.get(), &joined) == QX_OK, "whether all is given up");
    Compare(joined, joiner.Finish());
}

void Compare(const qx_cell_coding* c, const CellCoding& coding) {
    Require(c->size == sizeof(*c) && c->value == coding.value && IsSame(c->group, coding.group) &&
                IsSame(c->alphabet, coding.alphabet) && IsSame(c->message_class, coding.messageClass) &&
                c->is_compressed == coding.isCompressed && c->has_header == coding.hasHeader &&
                c->is_reserved == coding.isReserved && IsSame(c->language, coding.language),
            "a data coding scheme of cell broadcast");
}

void Compare(const qx_serial_number* c, SerialNumber serial, std::uint16_t identifier) {
    Require(c->size == sizeof(*c) && c->value == serial.value && IsSame(c->scope, serial.Scope()) &&
                c->message_code == serial.MessageCode() && c->update_number == serial.UpdateNumber() &&
                c->has_emergency_alert == HasEmergencyAlert(serial, identifier) &&
                c->has_popup == HasPopup(serial, identifier),
            "a serial number");
}

void Compare(const qx_page* const* c, std::size_t count, const std::vector<CellPage>& pages) {
    Require(count == pages.size(), "the number of pages");
    for (std::size_t i = 0; i < count; ++i) {
        const qx_page& page = *c[i];
        const CellPage& expected = pages[i];
        Require(page.size == sizeof(page) && page.number == expected.number &&
                    IsSame(page.octets, expected.octets) &&
                    page.is_header_ignored == expected.isHeaderIgnored &&
                    IsSame(page.locking, expected.tables.locking) &&
                    IsSame(page.single, expected.tables.single) && IsSame(page.language, expected.language) &&
                    page.text_offset == expected.textOffset && page.text_bit == expected.textBit &&
                    page.text_units == expected.textUnits && page.padding_units == expected.paddingUnits &&
                    page.is_cut == expected.isCut && IsSame(page.text, expected.text) &&
                    IsSame(page.content, expected.Content()),
                "a page");
        Compare(page.elements, page.element_count, expected.elements, expected.octets);
    }
}

void Compare(const qx_etws_warning* c, const EtwsWarning& warning) {
    Require(c->size == sizeof(*c) && c->value == warning.value && c->type == warning.type &&
                c->has_emergency_alert == warning.hasEmergencyAlert && c->has_popup == warning.hasPopup &&
                IsSame(c->signature, warning.signature),
            "a warning");
    CompareOptional(c->time, Pointer(warning.time));
}

void Compare(const qx_cell_reading* c, const CellReading& reading) {
    Require(c->size == sizeof(*c) && IsSame(c->format, reading.format) &&
                c->message_identifier == reading.messageIdentifier && c->total == reading.total &&
                IsSame(c->text, reading.text) && IsSame(c->language, reading.Language()),
            "a reading of cell broadcast");
    Compare(c->serial, reading.serialNumber, reading.messageIdentifier);
    Compare(c->coding, reading.coding);
    Compare(c->pages, c->page_count, reading.pages);
    CompareOptional(c->warning, Pointer(reading.warning));
    CompareFindings(c, reading);
}

void Compare(const qx_cell_message* c, const CellMessage& message, bool isGivenUp) {
    Require(c->size == sizeof(*c) && c->is_given_up == isGivenUp &&
                c->message_identifier == message.messageIdentifier && c->total == message.total &&
                IsSame(c->missing, message.Missing()) && IsSame(c->text, message.Text()),
            "a message of cell broadcast");
    Compare(c->serial, message.serialNumber, message.messageIdentifier);
    Compare(c->coding, message.coding);
    Compare(c->pages, c->page_count, message.pages);
}

void Compare(const qx_pages_taken* c, const CellTaken& taken) {
    Require(c->size == sizeof(*c) && c->is_duplicate == taken.isDuplicate &&
                c->message_count == taken.givenUp.size() + (taken.complete ? 1 : 0),
            "what a page did");
    for (std::size_t i = 0; i < taken.givenUp.size(); ++i)
        Compare(c->messages[i], taken.givenUp[i], true);
    if (taken.complete)
        Compare(c->messages[taken.givenUp.size()], *taken.complete, false);
}

bool IsSame(const qx_choice& c, const Choice& choice) {
    return c.size == sizeof(c) && IsSame(c.alphabet, choice.alphabet) &&
           IsSame(c.locking, choice.tables.locking) && IsSame(c.single, choice.tables.single) &&
           c.units == choice.units && c.parts == choice.parts && c.octets == choice.octets;
}

void Compare(const qx_misfit* c, const MisfitCharacter& misfit) {
    Require(c->size == sizeof(*c) && c->offset == misfit.offset && c->character == misfit.character,
            "a misfit");
}

void Compare(const qx_replacement* const* c, std::size_t count,
             const std::vector<Replacement>& replacements) {
    Require(count == replacements.size(), "the number of replacements");
    for (std::size_t i = 0; i < count; ++i)
        Require(c[i]->size == sizeof(qx_replacement) && c[i]->offset == replacements[i].offset &&
                    c[i]->length == replacements[i].length &&
                    IsSame(c[i]->replacement, replacements[i].replacement),
                "a replacement");
}

void Compare(const qx_cut_fault* c, const CutFault& fault) {
    Require(c->size == sizeof(*c) && IsSame(c->code, fault.code) && c->offset == fault.offset &&
                c->character == fault.character && IsSame(c->name, CodeOf(fault.code)) &&
                IsSame(c->meaning, MeaningOf(fault)),
            "why a text is not cut");
}

void Compare(const qx_cut_text* c, const CutText& cut) {
    Require(c->size == sizeof(*c) && c->part_count == cut.parts.size() && IsSame(*c->choice, cut.choice) &&
                std::equal(cut.offsets.begin(), cut.offsets.end(), c->offsets) && IsSame(c->text, cut.text),
            "a text that is cut");
    for (std::size_t i = 0; i < c->part_count; ++i)
        Compare(c->parts[i], cut.parts[i]);
    Compare(c->coding, cut.coding);
    Compare(c->replacements, c->replacement_count, cut.replacements);
    CompareOptional(c->fault, Pointer(cut.fault));
}

void Compare(const qx_cell_written* c, const CellWritten& written) {
    Require(c->size == sizeof(*c) && IsSame(c->fault, written.fault) &&
                IsSame(c->meaning, MeaningOf(written.fault)) && c->pages == written.pages &&
                c->octets_count == written.octets.size() &&
                std::equal(written.octets.begin(), written.octets.end(), c->octets,
                           [](OctetView page, qx_octets told) { return IsSame(told, page); }),
            "pages that are written");
    CompareOptional(c->misfit, Pointer(written.misfit));
    Compare(c->coding, written.coding);
}

/// What was made, or why not.
void CompareMade(qx_result result, const qx_made* made, const std::optional<MisfitCharacter>& misfit,
                 const Address& address) {
    Require(result == (misfit ? QX_FAULT : QX_OK) && made->size == sizeof(*made) &&
                made->user_data == nullptr,
            "whether an address is made");
    CompareOptional(made->misfit, Pointer(misfit));
    CompareOptional(made->address, misfit ? nullptr : &address);
}

/// What is written where the caller says, by `fill(structure)`.
template <class Struct, class Value, class Fill>
void CompareFilled(const std::optional<Value>& value, Fill fill) {
    Struct filled{};
    filled.size = sizeof(filled);
    Require(fill(&filled) == (value ? QX_OK : QX_FAULT), "whether something is made");
    if (value)
        Compare(&filled, *value);
}

void CheckExplained(qx_cutter* cutter, std::string_view text, const qx_cut_options& c,
                    const ChoiceOptions& options) {
    Explanation explanation;
    const auto misfit = Explain(text, options, explanation);
    const qx_explanation* explained = nullptr;
    Require(qx_explain(cutter, text.data(), text.size(), &c, &explained) == (misfit ? QX_FAULT : QX_OK) &&
                explained->size == sizeof(*explained) &&
                explained->choice_count == explanation.choices.size() &&
                explained->offset_count == explanation.offsets.size() &&
                std::equal(explanation.offsets.begin(), explanation.offsets.end(), explained->offsets) &&
                explained->character_count == explanation.characters.size(),
            "an explanation");
    CompareOptional(explained->misfit, Pointer(misfit));
    for (std::size_t i = 0; i < explanation.choices.size(); ++i)
        Require(IsSame(*explained->choices[i], explanation.choices[i]), "a choice");
    for (std::size_t i = 0; i < explanation.characters.size(); ++i) {
        const qx_costly_character& costly = *explained->characters[i];
        const CostlyCharacter& expected = explanation.characters[i];
        Require(costly.size == sizeof(costly) && costly.character == expected.character &&
                    costly.offset == expected.offset && costly.count == expected.count &&
                    costly.is_in_extension == expected.isInExtension &&
                    costly.locking == expected.locking.Bits() && costly.single == expected.single.Bits(),
                "a costly character");
    }
    Require(qx_choose(cutter, text.data(), text.size(), &c, &explained) == (misfit ? QX_FAULT : QX_OK) &&
                explained->choice_count == (misfit ? 0 : 1) && explained->character_count == 0 &&
                (misfit || IsSame(*explained->choices[0], explanation.choices[0])),
            "what is chosen");
}

void CheckNear(qx_cutter* cutter, std::string_view text, Languages languages) {
    std::vector<Replacement> replacements;
    const std::string replaced = ReplaceNear(text, languages, replacements);
    const qx_near_text* near = nullptr;
    Require(qx_replace_near(cutter, text.data(), text.size(), languages.Bits(), &near) == QX_OK &&
                near->size == sizeof(*near) && IsSame(near->text, replaced),
            "a text of near characters");
    Compare(near->replacements, near->replacement_count, replacements);
}

qx_cut_options COptions(const CutOptions& options, qx_ports& ports) {
    qx_cut_options c{};
    c.size = sizeof(c);
    c.languages = options.choice.languages.Bits();
    if (options.choice.alphabet)
        c.alphabet = {true, static_cast<std::uint8_t>(*options.choice.alphabet)};
    if (options.choice.tables) {
        c.has_tables = true;
        c.locking = static_cast<std::uint8_t>(options.choice.tables->locking);
        c.single = static_cast<std::uint8_t>(options.choice.tables->single);
    }
    c.octets = static_cast<std::uint16_t>(options.choice.room.octets);
    c.element_octets = static_cast<std::uint16_t>(options.choice.room.elementOctets);
    c.has_wide_reference = options.choice.room.hasWideReference;
    c.replaces_near = options.replacesNear;
    c.has_reference = options.reference.has_value();
    c.reference = options.reference.value_or(0);
    if (options.ports) {
        ports = {sizeof(ports), options.ports->areWide, options.ports->destination,
                 options.ports->originator};
        c.ports = &ports;
    }
    c.elements = {options.elements.data(), options.elements.size()};
    c.message_class = {options.messageClass.has_value(), options.messageClass.value_or(0)};
    return c;
}

} // namespace

void CheckCAgreement(OctetView pdu, const ReadOptions& options) {
    const Reader reader(qx_reader_new());
    const qx_reading* c = nullptr;
    qx_read_options known{};
    known.size = sizeof(known);
    known.service_centre = static_cast<std::uint8_t>(options.serviceCentre);
    known.direction = static_cast<std::uint8_t>(options.direction);
    known.failure_cause = static_cast<std::uint8_t>(options.failureCause);
    known.has_announced_length = options.announcedLength.has_value();
    known.announced_length = options.announcedLength.value_or(0);
    const Reading reading = Read(pdu, options);
    const qx_result expected = reading.fault ? QX_FAULT : QX_OK;
    const std::string digits = ToHex(pdu);
    Require(qx_read_hex(reader.get(), digits.data(), digits.size(), &known, &c) == expected, "a result");
    Compare(c, reading);
    Require(qx_read(reader.get(), pdu.data(), pdu.size(), &known, &c) == expected, "a result");
    Compare(c, reading);
    if (reading.Type() == TpduType::None)
        return;
    CheckWritten(c, reading);
    CheckJoined(reader.get(), reading);
}

void CheckCCellAgreement(OctetView octets, CellFormat format) {
    const Reader reader(qx_reader_new());
    const qx_cell_reading* c = nullptr;
    const CellReading reading = ReadCell(octets, format);
    const qx_result expected = reading.fault ? QX_FAULT : QX_OK;
    const std::string digits = ToHex(octets);
    const auto wanted = static_cast<std::uint8_t>(format);
    Require(qx_read_cell_hex(reader.get(), digits.data(), digits.size(), wanted, &c) == expected, "a result");
    Compare(c, reading);
    Require(qx_read_cell(reader.get(), octets.data(), octets.size(), wanted, &c) == expected, "a result");
    Compare(c, reading);

    const PageJoiner pages(qx_page_joiner_new(0));
    CellJoiner joiner;
    const qx_pages_taken* taken = nullptr;
    for (int time = 0; time < 2; ++time) {
        Require(qx_page_joiner_take(pages.get(), reader.get(), &taken) == QX_OK, "whether a page is taken");
        Compare(taken, joiner.Take(reading));
    }
    CellTaken oldest;
    if (auto message = joiner.TakeOldest())
        oldest.givenUp.push_back(*message);
    Require(qx_page_joiner_take_oldest(pages.get(), &taken) == QX_OK, "whether a page is given up");
    Compare(taken, oldest);
}

void CheckCCutAgreement(std::string_view text, const CutOptions& options) {
    const Cutter cutter(qx_cutter_new());
    qx_ports ports{};
    const qx_cut_options c = COptions(options, ports);
    CheckExplained(cutter.get(), text, c, options.choice);
    CheckNear(cutter.get(), text, options.choice.languages);
    const qx_cut_text* cut = nullptr;
    const CutText expected = CutIntoParts(text, options);
    Require(qx_cut(cutter.get(), text.data(), text.size(), &c, &cut) == (expected.fault ? QX_FAULT : QX_OK),
            "a result");
    Compare(cut, expected);
    const OctetView data(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    const CutText expectedData = CutIntoParts(data, options);
    Require(qx_cut_data(cutter.get(), data.data(), data.size(), &c, &cut) ==
                (expectedData.fault ? QX_FAULT : QX_OK),
            "a result");
    Compare(cut, expectedData);
}

void CheckCDraftAgreement(const CellDraft& draft) {
    const Writer writer(qx_writer_new());
    qx_cell_draft c{};
    c.size = sizeof(c);
    c.format = static_cast<std::uint8_t>(draft.format);
    c.serial_number = draft.serialNumber.value;
    c.message_identifier = draft.messageIdentifier;
    c.text = {draft.text.data(), draft.text.size()};
    c.language = {draft.language.data(), draft.language.size()};
    if (draft.alphabet)
        c.alphabet = {true, static_cast<std::uint8_t>(*draft.alphabet)};
    c.message_class = {draft.messageClass.has_value(), draft.messageClass.value_or(0)};
    const CellWritten expected = WriteCell(draft);
    const qx_cell_written* written = nullptr;
    Require(qx_write_cell(writer.get(), &c, &written) ==
                (expected.fault == CellDraftFault::None ? QX_OK : QX_FAULT),
            "whether pages are written");
    Compare(written, expected);
}

void CheckCAddressAgreement(std::string_view text) {
    const Maker maker(qx_maker_new());
    const qx_made* made = nullptr;
    Address address;
    auto misfit = ToNumber(text, address);
    qx_result result = qx_make_number(maker.get(), text.data(), text.size(), &made);
    CompareMade(result, made, misfit, address);
    misfit = ToName(text, address);
    result = qx_make_name(maker.get(), text.data(), text.size(), &made);
    CompareMade(result, made, misfit, address);
}

void CheckCUserDataAgreement(std::uint8_t coding, OctetView elements, OctetView content) {
    const Maker maker(qx_maker_new());
    const qx_made* made = nullptr;
    const DataCoding scheme(coding);
    const qx_result result = qx_make_user_data(maker.get(), coding, {elements.data(), elements.size()},
                                               {content.data(), content.size()}, &made);
    if (scheme.CountsSeptets() &&
        std::any_of(content.begin(), content.end(), [](std::uint8_t septet) { return septet > 127; })) {
        Require(result == QX_ARGUMENT && made == nullptr, "the refusal of a septet");
        return;
    }
    const auto expected = MakeUserData(scheme, elements, content);
    Require(result == (expected ? QX_OK : QX_FAULT) && made->size == sizeof(*made) &&
                made->address == nullptr && made->misfit == nullptr,
            "whether user data is made");
    CompareOptional(made->user_data, Pointer(expected));
}

void CheckCTimeAgreement(std::int64_t seconds, int quarters) {
    CompareFilled<qx_timestamp>(MakeTimestamp(seconds, quarters), [&](qx_timestamp* filled) {
        return qx_make_unix_timestamp(seconds, quarters, filled);
    });
    const auto period = static_cast<std::uint32_t>(seconds);
    CompareFilled<qx_validity>(MakeRelativeValidity(period), [&](qx_validity* filled) {
        return qx_make_relative_validity(period, filled);
    });
    for (const bool isSingleShot : {false, true})
        CompareFilled<qx_validity>(MakeEnhancedValidity(period, isSingleShot), [&](qx_validity* filled) {
            return qx_make_enhanced_validity(period, isSingleShot, filled);
        });
    CompareFilled<qx_coding>(
        std::optional(DataCoding(static_cast<std::uint8_t>(seconds))),
        [&](qx_coding* filled) { return qx_make_coding(static_cast<std::uint8_t>(seconds), filled); });
}

void CheckCTimeAgreement(int year, int month, int day, int hour, int minute, int second, int quarters) {
    const auto expected = MakeTimestamp(year, month, day, hour, minute, second, quarters);
    qx_timestamp c{};
    c.size = sizeof(c);
    CompareFilled<qx_timestamp>(expected, [&](qx_timestamp* filled) {
        const qx_result result = qx_make_timestamp(year, month, day, hour, minute, second, quarters, filled);
        c = *filled;
        return result;
    });
    if (expected)
        CompareFilled<qx_validity>(std::optional(MakeAbsoluteValidity(*expected)), [&](qx_validity* filled) {
            return qx_make_absolute_validity(&c, filled);
        });
}

} // namespace tests
