#include "c/Given.h"

#include <utility>

#include "c/Pairs.h"

namespace Messages {
namespace {

/// Of user data: TP-UDL of an SMS-DELIVER-REPORT, the roomiest, leaves 159.
constexpr std::uint16_t c_mostOctets = 159;

Language LanguageOf(std::uint8_t number) {
    return Named(number, static_cast<Language>(c_lastLanguage));
}

Ports ValueOf(const qx_ports* given) {
    const qx_ports ports = Given(given);
    return {ports.are_wide, ports.destination, ports.originator};
}

Concatenation ValueOf(const qx_concatenation* given) {
    const qx_concatenation concatenation = Given(given);
    return {concatenation.has_wide_reference, concatenation.reference, concatenation.total,
            concatenation.part};
}

std::vector<std::uint8_t> Copied(qx_octets octets) {
    const OctetView view = GivenOctets(octets.data, octets.size);
    return {view.begin(), view.end()};
}

/// Takes the members of a TPDU from those of its structure. What is not given stays as it is.
class Taker {
public:
    void operator()(bool& value, bool given) const { value = given; }
    void operator()(std::uint8_t& value, std::uint8_t given) const { value = given; }
    void operator()(std::uint8_t& value, qx_optional_octet given) const {
        value = Messages::ValueOf(given).value_or(0);
    }
    void operator()(std::optional<std::uint8_t>& value, qx_optional_octet given) const {
        value = Messages::ValueOf(given);
    }
    template <class Value, class Struct>
    void operator()(Value& value, const Struct* given) const {
        if (given != nullptr)
            value = Messages::ValueOf(given);
    }
};

template <std::size_t Type>
Tpdu TpduOfType([[maybe_unused]] const qx_message& message) {
    std::variant_alternative_t<Type, Tpdu> typed;
    if constexpr (!std::is_same_v<decltype(typed), std::monostate>)
        VisitPairs(typed, message, Taker());
    return typed;
}

/// REQUIRES a type that has a name.
template <std::size_t... Types>
Tpdu TpduOf(const qx_message& message, std::index_sequence<Types...>) {
    constexpr Tpdu (*c_makers[])(const qx_message&) = {TpduOfType<Types>...};
    return c_makers[message.type](message);
}

} // namespace

std::optional<std::uint8_t> ValueOf(qx_optional_octet octet) noexcept {
    return octet.has_value ? std::optional(octet.value) : std::nullopt;
}

Languages LanguagesOf(std::uint16_t bits) {
    Require((bits & ~Languages::All().Bits()) == 0);
    Languages languages;
    for (std::uint8_t number = 0; number <= c_lastLanguage; ++number)
        if ((bits >> number & 1U) != 0)
            languages.Add(static_cast<Language>(number));
    return languages;
}

Address ValueOf(const qx_address* given) {
    const qx_address address = Given(given);
    Address value;
    value.typeOfAddress = address.type_of_address;
    value.length = address.length;
    value.text = GivenText(address.text.data, address.text.size);
    return value;
}

Timestamp ValueOf(const qx_timestamp* given) {
    const qx_timestamp timestamp = Given(given);
    Timestamp value;
    std::copy(std::begin(timestamp.octets), std::end(timestamp.octets), value.octets.begin());
    value.isValid = timestamp.is_valid;
    value.year = timestamp.year;
    value.month = timestamp.month;
    value.day = timestamp.day;
    value.hour = timestamp.hour;
    value.minute = timestamp.minute;
    value.second = timestamp.second;
    value.quarters = timestamp.quarters;
    return value;
}

Validity ValueOf(const qx_validity* given) {
    const qx_validity validity = Given(given);
    Validity value;
    value.format = Named(validity.format, ValidityFormat::Absolute);
    std::copy(std::begin(validity.octets), std::end(validity.octets), value.octets.begin());
    return value;
}

DataCoding ValueOf(const qx_coding* given) {
    return DataCoding(Given(given).value);
}

UserData ValueOf(const qx_user_data* given) {
    const qx_user_data userData = Given(given);
    UserData value;
    value.length = userData.length;
    value.octets = Copied(userData.octets);
    value.hasHeader = userData.has_header;
    value.isHeaderIgnored = userData.is_header_ignored;
    Require(userData.elements != nullptr || userData.element_count == 0);
    for (std::size_t i = 0; i < userData.element_count; ++i) {
        const qx_element element = Given(userData.elements[i]);
        value.elements.push_back({element.identifier, element.length, element.offset});
    }
    if (userData.concatenation != nullptr)
        value.concatenation = ValueOf(userData.concatenation);
    if (userData.ports != nullptr)
        value.ports = ValueOf(userData.ports);
    value.tables = {LanguageOf(userData.locking), LanguageOf(userData.single)};
    value.textOffset = userData.text_offset;
    value.fillBits = userData.fill_bits;
    value.textUnits = userData.text_units;
    value.text = GivenText(userData.text.data, userData.text.size);
    return value;
}

Tpdu ValueOf(const qx_message* given) {
    const qx_message message = Given(given);
    Named(message.type, TpduType::Command);
    return TpduOf(message, std::make_index_sequence<std::variant_size_v<Tpdu>>());
}

ReadOptions ValueOf(const qx_read_options* given) {
    const qx_read_options options = GivenOrNothing(given);
    ReadOptions value;
    value.serviceCentre = Named(options.service_centre, Presence::No);
    value.direction = Named(options.direction, Direction::FromMobile);
    value.failureCause = Named(options.failure_cause, Presence::No);
    if (options.has_announced_length)
        value.announcedLength = options.announced_length;
    return value;
}

CutOptions ValueOf(const qx_cut_options* given) {
    const qx_cut_options options = GivenOrNothing(given);
    CutOptions value;
    value.choice.languages = LanguagesOf(options.languages);
    if (options.alphabet.has_value) {
        value.choice.alphabet = Named(options.alphabet.value, Alphabet::Ucs2);
        Require(value.choice.alphabet != Alphabet::Data);
    }
    if (options.has_tables)
        value.choice.tables = SeptetTables{LanguageOf(options.locking), LanguageOf(options.single)};
    Require(options.octets <= c_mostOctets);
    if (options.octets != 0)
        value.choice.room.octets = options.octets;
    value.choice.room.elementOctets = options.element_octets;
    value.choice.room.hasWideReference = options.has_wide_reference;
    value.replacesNear = options.replaces_near;
    if (options.has_reference)
        value.reference = options.reference;
    if (options.ports != nullptr)
        value.ports = ValueOf(options.ports);
    value.elements = Copied(options.elements);
    value.messageClass = ValueOf(options.message_class);
    Require(value.messageClass.value_or(0) <= 3);
    return value;
}

CellDraft ValueOf(const qx_cell_draft* given) {
    const qx_cell_draft draft = Given(given);
    CellDraft value;
    value.format = Named(draft.format, CellFormat::EtwsNotification);
    value.serialNumber.value = draft.serial_number;
    value.messageIdentifier = draft.message_identifier;
    value.text = GivenText(draft.text.data, draft.text.size);
    value.language = GivenText(draft.language.data, draft.language.size);
    if (draft.alphabet.has_value)
        value.alphabet = Named(draft.alphabet.value, Alphabet::Ucs2);
    value.messageClass = ValueOf(draft.message_class);
    return value;
}

} // namespace Messages
