#include "c/Results.h"

#include <algorithm>

#include "Messages/Words.h"
#include "c/Pairs.h"

namespace Messages {
namespace {

/// An enumerator, or an enumeration, as a number.
template <class Enum>
constexpr std::uint8_t NumberOf(Enum value) noexcept {
    return static_cast<std::uint8_t>(value);
}

/// Writes the members of a TPDU to those of its structure.
class Teller {
public:
    explicit Teller(Results& results) : m_Results(results) {}

    void operator()(bool value, bool& told) const { told = value; }
    void operator()(std::uint8_t value, std::uint8_t& told) const { told = value; }
    void operator()(std::optional<std::uint8_t> value, qx_optional_octet& told) const {
        told = OctetOf(value);
    }
    template <class Value, class Struct>
    void operator()(const Value& value, const Struct*& told) const {
        told = m_Results.Of(value);
    }

private:
    Results& m_Results;
};

} // namespace

qx_optional_octet OctetOf(std::optional<std::uint8_t> octet) noexcept {
    return {octet.has_value(), octet.value_or(0)};
}

qx_timestamp StructOf(const Timestamp& timestamp) noexcept {
    qx_timestamp result{};
    result.size = sizeof(result);
    std::copy(timestamp.octets.begin(), timestamp.octets.end(), std::begin(result.octets));
    result.is_valid = timestamp.isValid;
    result.year = timestamp.year;
    result.month = timestamp.month;
    result.day = timestamp.day;
    result.hour = timestamp.hour;
    result.minute = timestamp.minute;
    result.second = timestamp.second;
    result.quarters = timestamp.quarters;
    result.unix_seconds = timestamp.UnixSeconds();
    return result;
}

qx_validity StructOf(const Validity& validity) noexcept {
    qx_validity result{};
    result.size = sizeof(result);
    result.format = NumberOf(validity.format);
    std::copy(validity.octets.begin(), validity.octets.end(), std::begin(result.octets));
    if (validity.format == ValidityFormat::Enhanced)
        result.enhanced = NumberOf(validity.Enhanced());
    result.is_single_shot = validity.IsSingleShot();
    const std::optional<std::uint32_t> seconds = validity.Seconds();
    result.has_seconds = seconds.has_value();
    result.seconds = seconds.value_or(0);
    return result;
}

qx_coding StructOf(const DataCoding& coding) noexcept {
    qx_coding result{};
    result.size = sizeof(result);
    result.value = coding.value;
    result.group = NumberOf(coding.group);
    result.alphabet = NumberOf(coding.alphabet);
    result.message_class = OctetOf(coding.messageClass);
    result.is_compressed = coding.isCompressed;
    result.is_reserved = coding.isReserved;
    result.is_automatic_deletion = coding.IsAutomaticDeletion();
    result.counts_septets = coding.CountsSeptets();
    result.has_waiting = coding.waiting.has_value();
    if (coding.waiting) {
        result.waiting_is_stored = coding.waiting->isStored;
        result.waiting_is_active = coding.waiting->isActive;
        result.waiting_type = NumberOf(coding.waiting->type);
    }
    return result;
}

qx_text Results::Copied(std::string_view text) {
    auto* const octets = m_Arena.Make<char>(text.size() + 1);
    std::copy(text.begin(), text.end(), octets);
    return {octets, text.size()};
}

const qx_address* Results::Of(const Address& address) {
    auto* const result = Make<qx_address>();
    result->type_of_address = address.typeOfAddress;
    result->length = address.length;
    result->text = TextOf(address.text);
    result->type = NumberOf(address.Type());
    result->plan = NumberOf(address.Plan());
    result->written = Copied(address.ToString());
    return result;
}

const qx_timestamp* Results::Of(const Timestamp& timestamp) {
    return Kept(StructOf(timestamp));
}

const qx_validity* Results::Of(const Validity& validity) {
    auto* const result = Kept(StructOf(validity));
    if (validity.format == ValidityFormat::Absolute)
        result->until = Of(validity.Absolute());
    return result;
}

const qx_coding* Results::Of(const DataCoding& coding) {
    return Kept(StructOf(coding));
}

const qx_concatenation* Results::Of(const Concatenation& concatenation) {
    auto* const result = Make<qx_concatenation>();
    result->has_wide_reference = concatenation.hasWideReference;
    result->reference = concatenation.reference;
    result->total = concatenation.total;
    result->part = concatenation.part;
    return result;
}

const qx_ports* Results::Of(const Ports& ports) {
    auto* const result = Make<qx_ports>();
    result->are_wide = ports.areWide;
    result->destination = ports.destination;
    result->originator = ports.originator;
    return result;
}

void Results::Decode(const HeaderElement& element, OctetView data, qx_element& result) {
    switch (static_cast<ElementId>(element.identifier)) {
    case ElementId::Concatenation8:
    case ElementId::Concatenation16:
        result.concatenation = Of(ReadConcatenation(element.identifier, data));
        break;
    case ElementId::SpecialMessageIndication:
        if (const auto indication = ReadSpecialMessageIndication(data)) {
            auto* const told = Make<qx_special_message_indication>();
            told->is_stored = indication->isStored;
            told->profile = indication->profile;
            told->type = indication->type;
            told->extended_type = indication->extendedType;
            told->count = indication->count;
            result.indication = told;
        }
        break;
    case ElementId::Ports8:
    case ElementId::Ports16:
        result.ports = Of(ReadPorts(element.identifier, data));
        break;
    case ElementId::TextFormatting:
        if (const auto formatting = ReadTextFormatting(data)) {
            auto* const told = Make<qx_text_formatting>();
            told->start = formatting->start;
            told->length = formatting->length;
            told->alignment = formatting->alignment;
            told->font_size = formatting->size;
            told->is_bold = formatting->isBold;
            told->is_italic = formatting->isItalic;
            told->is_underlined = formatting->isUnderlined;
            told->is_struck = formatting->isStruck;
            told->colour = OctetOf(formatting->colour);
            result.formatting = told;
        }
        break;
    case ElementId::PredefinedSound:
    case ElementId::PredefinedAnimation:
        if (const auto object = ReadPredefinedObject(data)) {
            auto* const told = Make<qx_predefined_object>();
            told->position = object->position;
            told->number = object->number;
            result.object = told;
        }
        break;
    case ElementId::ObjectDistribution:
        if (const auto distribution = ReadObjectDistribution(data)) {
            auto* const told = Make<qx_object_distribution>();
            told->count = distribution->count;
            told->forbids_forwarding = distribution->forbidsForwarding;
            result.distribution = told;
        }
        break;
    case ElementId::Hyperlink:
        if (const auto hyperlink = ReadHyperlink(data)) {
            auto* const told = Make<qx_hyperlink>();
            told->position = hyperlink->position;
            told->title_length = hyperlink->titleLength;
            told->url_length = hyperlink->urlLength;
            result.hyperlink = told;
        }
        break;
    case ElementId::ReplyAddress:
        if (const auto address = ReadReplyAddress(data)) {
            auto* const told = Kept(*Of(*address));
            told->text = Copied(address->text); // the address goes
            result.reply_address = told;
        }
        break;
    case ElementId::ServiceCentreControl:
    case ElementId::HeaderSource:
    case ElementId::UserPrompt:
    case ElementId::EmailHeader:
    case ElementId::SingleShift:
    case ElementId::LockingShift:
        result.octet = OctetOf(ReadSingleOctet(data));
        break;
    default:
        break;
    }
}

const qx_element* Results::Of(const HeaderElement& element, OctetView octets) {
    auto* const result = Make<qx_element>();
    const OctetView data = element.Data(octets);
    result->identifier = element.identifier;
    result->length = element.length;
    result->offset = element.offset;
    result->data = OctetsOf(data);
    Decode(element, data, *result);
    return result;
}

ResultList<qx_element> Results::ListOf(const std::vector<HeaderElement>& elements, OctetView octets) {
    return ListBy(elements, [&](const HeaderElement& element) { return Of(element, octets); });
}

const qx_user_data* Results::Of(const UserData& userData) {
    auto* const result = Make<qx_user_data>();
    result->length = userData.length;
    result->octets = OctetsOf(userData.octets);
    result->has_header = userData.hasHeader;
    result->is_header_ignored = userData.isHeaderIgnored;
    ListOf(userData.elements, userData.octets).To(result->elements, result->element_count);
    result->concatenation = Of(userData.concatenation);
    result->ports = Of(userData.ports);
    result->locking = NumberOf(userData.tables.locking);
    result->single = NumberOf(userData.tables.single);
    result->text_offset = userData.textOffset;
    result->fill_bits = userData.fillBits;
    result->text_units = userData.textUnits;
    result->text = TextOf(userData.text);
    result->content = OctetsOf(userData.Content());
    return result;
}

const qx_message* Results::Of(const Tpdu& tpdu) {
    if (TypeOf(tpdu) == TpduType::None)
        return nullptr;
    auto* const result = Make<qx_message>();
    result->type = NumberOf(TypeOf(tpdu));
    std::visit(
        [&](const auto& typed) {
            if constexpr (!std::is_same_v<decltype(typed), const std::monostate&>)
                VisitPairs(typed, *result, Teller(*this));
        },
        tpdu);
    return result;
}

const qx_place* Results::Of(const FieldPlace& place) {
    auto* const result = Make<qx_place>();
    result->field = NumberOf(place.field);
    result->piece = NumberOf(place.piece);
    result->mask = place.mask;
    result->value = place.value;
    result->octet = place.octet;
    result->count = place.count;
    return result;
}

const qx_remark* Results::Of(const Remark& remark) {
    auto* const result = Make<qx_remark>();
    result->code = NumberOf(remark.code);
    result->field = NumberOf(remark.field);
    result->octet = remark.octet;
    result->number = remark.number;
    result->other = remark.other;
    result->name = TextOf(CodeOf(remark.code));
    result->meaning = Copied(MeaningOf(remark));
    return result;
}

const qx_fault* Results::Of(const Fault& fault) {
    auto* const result = Make<qx_fault>();
    result->code = NumberOf(fault.code);
    result->field = NumberOf(fault.field);
    result->octet = fault.octet;
    result->expected = fault.expected;
    result->found = fault.found;
    result->name = TextOf(CodeOf(fault.code));
    result->meaning = Copied(MeaningOf(fault));
    return result;
}

const qx_reading* Results::Of(const Reading& reading) {
    auto* const result = Make<qx_reading>();
    result->service_centre = Of(reading.serviceCentre);
    result->is_service_centre_guessed = reading.isServiceCentreGuessed;
    result->direction = NumberOf(reading.direction);
    result->message = Of(reading.tpdu);
    List(reading.places).To(result->places, result->place_count);
    List(reading.remarks).To(result->remarks, result->remark_count);
    result->fault = Of(reading.fault);
    result->is_sound = reading.IsSound();
    return result;
}

const qx_write_fault* Results::Of(const WriteFault& fault) {
    auto* const result = Make<qx_write_fault>();
    result->code = NumberOf(fault.code);
    result->field = NumberOf(fault.field);
    result->number = fault.number;
    result->other = fault.other;
    result->name = TextOf(CodeOf(fault.code));
    result->meaning = Copied(MeaningOf(fault));
    return result;
}

const qx_written* Results::Of(const Written& written) {
    auto* const result = Make<qx_written>();
    result->octets = OctetsOf(written.octets);
    result->tpdu_octets = written.tpduOctets;
    result->fault = Of(written.fault);
    return result;
}

const qx_misfit* Results::Of(const MisfitCharacter& misfit) {
    auto* const result = Make<qx_misfit>();
    result->offset = misfit.offset;
    result->character = misfit.character;
    return result;
}

const qx_choice* Results::Of(const Choice& choice) {
    auto* const result = Make<qx_choice>();
    result->alphabet = NumberOf(choice.alphabet);
    result->locking = NumberOf(choice.tables.locking);
    result->single = NumberOf(choice.tables.single);
    result->units = choice.units;
    result->parts = choice.parts;
    result->octets = choice.octets;
    return result;
}

const qx_costly_character* Results::Of(const CostlyCharacter& character) {
    auto* const result = Make<qx_costly_character>();
    result->character = character.character;
    result->offset = character.offset;
    result->count = character.count;
    result->is_in_extension = character.isInExtension;
    result->locking = character.locking.Bits();
    result->single = character.single.Bits();
    return result;
}

const qx_explanation* Results::Of(const Explanation& explanation,
                                  const std::optional<MisfitCharacter>& misfit) {
    auto* const result = Make<qx_explanation>();
    List(explanation.choices).To(result->choices, result->choice_count);
    result->offsets = explanation.offsets.data();
    result->offset_count = explanation.offsets.size();
    List(explanation.characters).To(result->characters, result->character_count);
    result->misfit = Of(misfit);
    return result;
}

const qx_replacement* Results::Of(const Replacement& replacement) {
    auto* const result = Make<qx_replacement>();
    result->offset = replacement.offset;
    result->length = replacement.length;
    result->replacement = TextOf(replacement.replacement);
    return result;
}

const qx_cut_fault* Results::Of(const CutFault& fault) {
    auto* const result = Make<qx_cut_fault>();
    result->code = NumberOf(fault.code);
    result->offset = fault.offset;
    result->character = fault.character;
    result->name = TextOf(CodeOf(fault.code));
    result->meaning = Copied(MeaningOf(fault));
    return result;
}

const qx_cut_text* Results::Of(const CutText& cut) {
    auto* const result = Make<qx_cut_text>();
    List(cut.parts).To(result->parts, result->part_count);
    result->coding = Of(cut.coding);
    result->choice = Of(cut.choice);
    result->offsets = cut.offsets.data();
    result->text = TextOf(cut.text);
    List(cut.replacements).To(result->replacements, result->replacement_count);
    result->fault = Of(cut.fault);
    return result;
}

const qx_joined_part* Results::Of(const JoinedPart& part) {
    auto* const result = Make<qx_joined_part>();
    result->number = part.number;
    result->tag = part.tag;
    result->message = Of(part.tpdu);
    return result;
}

const qx_joined_gap* Results::Of(const JoinedGap& gap) {
    auto* const result = Make<qx_joined_gap>();
    result->first = gap.first;
    result->last = gap.last;
    result->text_offset = gap.textOffset;
    result->data_offset = gap.dataOffset;
    return result;
}

const qx_joined* Results::Of(const Joined& joined) {
    auto* const result = Make<qx_joined>();
    result->outcome = NumberOf(joined.outcome);
    result->total = joined.total;
    List(joined.parts).To(result->parts, result->part_count);
    result->text = TextOf(joined.text);
    result->data = OctetsOf(joined.data);
    List(joined.gaps).To(result->gaps, result->gap_count);
    result->before = joined.before;
    return result;
}

const qx_serial_number* Results::Of(SerialNumber serial, std::uint16_t messageIdentifier) {
    auto* const result = Make<qx_serial_number>();
    result->value = serial.value;
    result->scope = NumberOf(serial.Scope());
    result->message_code = serial.MessageCode();
    result->update_number = serial.UpdateNumber();
    result->has_emergency_alert = HasEmergencyAlert(serial, messageIdentifier);
    result->has_popup = HasPopup(serial, messageIdentifier);
    return result;
}

const qx_cell_coding* Results::Of(const CellCoding& coding) {
    auto* const result = Make<qx_cell_coding>();
    result->value = coding.value;
    result->group = NumberOf(coding.group);
    result->alphabet = NumberOf(coding.alphabet);
    result->message_class = OctetOf(coding.messageClass);
    result->is_compressed = coding.isCompressed;
    result->has_header = coding.hasHeader;
    result->is_reserved = coding.isReserved;
    result->language = TextOf(coding.language);
    return result;
}

const qx_page* Results::Of(const CellPage& page) {
    auto* const result = Make<qx_page>();
    result->number = page.number;
    result->octets = OctetsOf(page.octets);
    result->is_header_ignored = page.isHeaderIgnored;
    ListOf(page.elements, page.octets).To(result->elements, result->element_count);
    result->locking = NumberOf(page.tables.locking);
    result->single = NumberOf(page.tables.single);
    result->language = TextOf(page.language);
    result->text_offset = page.textOffset;
    result->text_bit = page.textBit;
    result->text_units = page.textUnits;
    result->padding_units = page.paddingUnits;
    result->is_cut = page.isCut;
    result->text = TextOf(page.text);
    result->content = OctetsOf(page.Content());
    return result;
}

const qx_etws_warning* Results::Of(const EtwsWarning& warning) {
    auto* const result = Make<qx_etws_warning>();
    result->value = warning.value;
    result->type = warning.type;
    result->has_emergency_alert = warning.hasEmergencyAlert;
    result->has_popup = warning.hasPopup;
    result->time = Of(warning.time);
    result->signature = OctetsOf(warning.signature);
    return result;
}

const qx_cell_reading* Results::Of(const CellReading& reading) {
    auto* const result = Make<qx_cell_reading>();
    result->format = NumberOf(reading.format);
    result->serial = Of(reading.serialNumber, reading.messageIdentifier);
    result->message_identifier = reading.messageIdentifier;
    result->coding = Of(reading.coding);
    result->total = reading.total;
    List(reading.pages).To(result->pages, result->page_count);
    result->warning = Of(reading.warning);
    result->text = TextOf(reading.text);
    result->language = TextOf(reading.Language());
    List(reading.places).To(result->places, result->place_count);
    List(reading.remarks).To(result->remarks, result->remark_count);
    result->fault = Of(reading.fault);
    return result;
}

const qx_cell_message* Results::Of(const CellMessage& message, bool isGivenUp) {
    auto* const result = Make<qx_cell_message>();
    result->is_given_up = isGivenUp;
    result->serial = Of(message.serialNumber, message.messageIdentifier);
    result->message_identifier = message.messageIdentifier;
    result->coding = Of(message.coding);
    result->total = message.total;
    List(message.pages).To(result->pages, result->page_count);
    const std::vector<std::uint8_t> missing = message.Missing();
    auto* const numbers = m_Arena.Make<std::uint8_t>(missing.size());
    std::copy(missing.begin(), missing.end(), numbers);
    result->missing = {numbers, missing.size()};
    result->text = Copied(message.Text());
    return result;
}

const qx_cell_written* Results::Of(const CellWritten& written) {
    auto* const result = Make<qx_cell_written>();
    result->fault = NumberOf(written.fault);
    result->meaning = TextOf(MeaningOf(written.fault));
    result->misfit = Of(written.misfit);
    result->coding = Of(written.coding);
    result->pages = written.pages;
    auto* const octets = m_Arena.Make<qx_octets>(written.octets.size());
    std::transform(written.octets.begin(), written.octets.end(), octets,
                   [](const std::vector<std::uint8_t>& page) { return OctetsOf(page); });
    result->octets = octets;
    result->octets_count = written.octets.size();
    return result;
}

} // namespace Messages
