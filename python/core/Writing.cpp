// Messages that are written, and texts that are counted and cut.
#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <optional>
#include <string_view>

#include "Core.h"

namespace qxpdu {
namespace {

using Cutter = Handle<qx_cutter, qx_cutter_free>;
using Maker = Handle<qx_maker, qx_maker_free>;
using ReaderHandle = Handle<qx_reader, qx_reader_free>;
using Writer = Handle<qx_writer, qx_writer_free>;

// How a text is written and cut.

#define QXPDU_CHOICE_NAMES "languages", "alphabet", "tables", "room", "wide_reference", "ports", "elements"
#define QXPDU_CUT_NAMES QXPDU_CHOICE_NAMES, "replace_near", "reference", "message_class"

std::uint16_t LanguageBits(PyObject* languages) {
    const Ref list = Made(PySequence_List(languages));
    std::uint16_t bits = 0;
    for (Py_ssize_t i = 0; i < PyList_Size(list.Get()); ++i) {
        const auto language =
            Number<std::uint8_t>(PyList_GetItem(list.Get(), i), "a language", QX_LANGUAGE_URDU);
        bits = static_cast<std::uint16_t>(bits | 1U << language);
    }
    return bits;
}

qx_ports PortsGiven(const State& state, PyObject* object) {
    PyObject* const record = Instance(state, object, RecordType::Ports, "ports");
    const bool areWide = Flag(PyTuple_GetItem(record, 2), "are_wide");
    const long long most = areWide ? UINT16_MAX : UINT8_MAX;
    return {sizeof(qx_ports), areWide, Number<std::uint16_t>(PyTuple_GetItem(record, 0), "a port", most),
            Number<std::uint16_t>(PyTuple_GetItem(record, 1), "a port", most)};
}

/// The options of a call, with what they point to.
struct CutOptions {
    CutOptions(const State& state, const Arguments& arguments) {
        options.size = sizeof options;
        if (PyObject* const languages = arguments.Told("languages"))
            options.languages = LanguageBits(languages);
        options.alphabet = OptionalGiven(arguments.Told("alphabet"), "alphabet", QX_ALPHABET_UCS2);
        if (PyObject* const tables = arguments.Told("tables"))
            TakeTables(tables);
        if (options.has_tables && options.alphabet.has_value && options.alphabet.value != QX_ALPHABET_GSM7)
            Raise(PyExc_ValueError, "alphabet %s and tables do not agree",
                  qx_alphabet_name(options.alphabet.value));
        if (PyObject* const room = arguments.Told("room"))
            options.octets = Number<std::uint16_t>(room, "room", c_mostRoom);
        options.has_wide_reference = arguments.IsSet("wide_reference");
        options.replaces_near = arguments.IsSet("replace_near");
        if (PyObject* const reference = arguments.Told("reference")) {
            options.has_reference = true;
            options.reference = Number<std::uint16_t>(reference, "reference");
        }
        if (PyObject* const given = arguments.Told("ports")) {
            ports = PortsGiven(state, given);
            options.ports = &ports;
        }
        if (PyObject* const given = arguments.Told("elements")) {
            elements = Bytes(given, "elements");
            options.elements = OctetsOf(elements);
        }
        options.message_class = OptionalGiven(arguments.Told("message_class"), "message_class", 3);
    }
    CutOptions(const CutOptions&) = delete;
    CutOptions& operator=(const CutOptions&) = delete;

    /// As the others count what cutting works out: the octets of ports and of more elements.
    const qx_cut_options& ForChoice() {
        constexpr std::size_t c_head = 2; // identifier and length
        const std::size_t portOctets = options.ports == nullptr ? 0 : c_head + (ports.are_wide ? 4U : 2U);
        options.element_octets =
            static_cast<std::uint16_t>(std::min<std::size_t>(portOctets + options.elements.size, UINT16_MAX));
        return options;
    }

    qx_cut_options options{};
    qx_ports ports{};
    Ref elements;

private:
    static constexpr long long c_mostRoom = 159; // of a report

    void TakeTables(PyObject* given) {
        const Ref tables = Made(PySequence_Tuple(given));
        if (PyTuple_Size(tables.Get()) != 2)
            Raise(PyExc_ValueError, "tables are two languages, of the locking and of the single shift table");
        options.has_tables = true;
        options.locking =
            Number<std::uint8_t>(PyTuple_GetItem(tables.Get(), 0), "a language", QX_LANGUAGE_URDU);
        options.single =
            Number<std::uint8_t>(PyTuple_GetItem(tables.Get(), 1), "a language", QX_LANGUAGE_URDU);
    }
};

Ref ChoiceOf(State& state, const qx_choice& choice) {
    return RecordOf(state, RecordType::Choice,
                    {Member(state, EnumType::Alphabet, choice.alphabet),
                     Member(state, EnumType::Language, choice.locking),
                     Member(state, EnumType::Language, choice.single), Integer(std::uint64_t{choice.units}),
                     choice.parts != SIZE_MAX ? Integer(std::uint64_t{choice.parts}) : None(),
                     choice.octets != SIZE_MAX ? Integer(std::uint64_t{choice.octets}) : None()});
}

Ref LanguagesOf(const State& state, std::uint16_t bits) {
    Ref list = Made(PyList_New(0));
    for (std::uint8_t language = 0; language <= QX_LANGUAGE_URDU; ++language)
        if ((bits >> language & 1) != 0)
            Done(PyList_Append(list.Get(), Member(state, EnumType::Language, language).Get()));
    return Made(PyList_AsTuple(list.Get()));
}

Ref CostlyCharacterOf(const State& state, CharacterIndex& index, const qx_costly_character& costly) {
    return RecordOf(state, RecordType::CostlyCharacter,
                    {CharacterOf(costly.character), index.At(costly.offset),
                     Integer(std::uint64_t{costly.count}), Truth(costly.is_in_extension),
                     LanguagesOf(state, costly.locking), LanguagesOf(state, costly.single)});
}

/// Places in a text, counted in characters.
Ref IndicesOf(qx_text text, const std::size_t* offsets, std::size_t count) {
    CharacterIndex index(text);
    return Tuple(count, [&](std::size_t i) { return index.At(offsets[i]); });
}

Ref ReplacementsOf(const State& state, qx_text text, const qx_replacement* const* replacements,
                   std::size_t count) {
    CharacterIndex index(text);
    return Tuple(count, [&](std::size_t i) {
        const qx_replacement& put = *replacements[i];
        const std::size_t first = index.Of(put.offset);
        return RecordOf(state, RecordType::Replacement,
                        {Integer(std::uint64_t{first}),
                         Integer(std::uint64_t{index.Of(put.offset + put.length) - first}),
                         Text(put.replacement)});
    });
}

[[noreturn]] void RaiseMisfit(const State& state, qx_text text, const qx_misfit* misfit) {
    if (misfit == nullptr)
        RaisePduError(state, PduErrorOf(state, Made(PyUnicode_FromString("a part has no room for the text")),
                                        {{"code", Made(PyUnicode_FromString("no-room"))}}));
    RaiseNotHeld(state, text, misfit->offset, misfit->character, Made(PyUnicode_FromString("no-character")));
}

[[noreturn]] void RaiseCutFault(const State& state, qx_text text, const qx_cut_fault& fault) {
    if (fault.code == QX_CUT_FAULT_NO_CHARACTER)
        RaiseNotHeld(state, text, fault.offset, fault.character, Text(fault.name));
    RaisePduError(state,
                  PduErrorOf(state, Text(fault.meaning), {{"code", Text(fault.name)}, {"index", None()}}));
}

using Explanation = qx_result (*)(qx_cutter*, const char*, std::size_t, const qx_cut_options*,
                                  const qx_explanation**);

const Arguments::Signature c_explain = {"explain", {"text", QXPDU_CHOICE_NAMES}, 1, 1};
const Arguments::Signature c_count = {"count", {"text", QXPDU_CHOICE_NAMES}, 1, 1};

Ref Explained(PyObject* module, const Arguments& arguments, Explanation explain) {
    State& state = StateOf(module);
    const qx_text text = Utf8(arguments.First(), "text");
    CutOptions options(state, arguments);
    const Cutter cutter(qx_cutter_new());
    const qx_explanation* explanation = nullptr;
    const qx_result result = explain(cutter.Get(), text.data, text.size, &options.ForChoice(), &explanation);
    Check(result);
    if (result == QX_FAULT)
        RaiseMisfit(state, text, explanation->misfit);
    CharacterIndex index(text);
    const Ref characters = Tuple(explanation->character_count, [&](std::size_t i) {
        return CostlyCharacterOf(state, index, *explanation->characters[i]);
    });
    return RecordOf(state, RecordType::Explanation,
                    {List(state, explanation->choices, explanation->choice_count, ChoiceOf),
                     IndicesOf(text, explanation->offsets, explanation->offset_count), characters});
}

/// Cuts what is given, a text or data.
const qx_cut_text& Cut(const State& state, const Cutter& cutter, PyObject* text, PyObject* data,
                       const qx_cut_options& options) {
    const qx_cut_text* cut = nullptr;
    if (data != nullptr) {
        const Ref bytes = Bytes(data, "data");
        const qx_octets octets = OctetsOf(bytes);
        Check(qx_cut_data(cutter.Get(), octets.data, octets.size, &options, &cut));
    } else {
        const qx_text utf8 = Utf8(text, "text");
        Check(qx_cut(cutter.Get(), utf8.data, utf8.size, &options, &cut));
    }
    if (cut->fault != nullptr)
        RaiseCutFault(state, text != nullptr ? Utf8(text, "text") : qx_text{}, *cut->fault);
    return *cut;
}

/// What is written.
struct Content {
    bool isText;
    bool isCut;    ///< into parts
    bool isWanted; ///< any user data
};

/// Refuses what is told of texts, of parts or of user data, where there are none.
void RefuseUnused(const Arguments& arguments, const qx_cut_options& options, const Content& content) {
    const struct {
        bool isUsed;
        bool isTold;
        const char* name;
    } all[] = {
        {content.isText, options.languages != 0, "languages"},
        {content.isText, arguments.Told("alphabet") != nullptr, "alphabet"},
        {content.isText, options.has_tables, "tables"},
        {content.isText, options.replaces_near, "replace_near"},
        {content.isCut, arguments.Told("room") != nullptr, "room"},
        {content.isCut, options.has_wide_reference, "wide_reference"},
        {content.isCut, options.has_reference, "reference"},
        {content.isCut, options.ports != nullptr, "ports"},
        {content.isCut, options.message_class.has_value, "message_class"},
        {content.isWanted, options.elements.size != 0, "elements"},
    };
    for (const auto& one : all)
        if (one.isTold && !one.isUsed)
            Raise(PyExc_ValueError, "nothing is written that %s could be used for", one.name);
}

// What a message is written of.

Ref MadeAddress(State& state, PyObject* written,
                qx_result (*make)(qx_maker*, const char*, std::size_t, const qx_made**)) {
    const qx_text text = Utf8(written, "an address");
    const Maker maker(qx_maker_new());
    const qx_made* made = nullptr;
    const qx_result result = make(maker.Get(), text.data, text.size, &made);
    Check(result);
    if (result == QX_FAULT) {
        const std::size_t index = CharacterIndex(text).Of(made->misfit->offset);
        const Ref character = CharacterOf(made->misfit->character);
        const Ref message = Made(PyUnicode_FromFormat("no address has %R at %zu", character.Get(), index));
        RaisePduError(state, PduErrorOf(state, message,
                                        {{"code", Made(PyUnicode_FromString("address-character"))},
                                         {"index", Integer(std::uint64_t{index})}}));
    }
    return AddressOf(state, *made->address);
}

/// An address, with what it points to.
class GivenAddress {
public:
    /// A number as people write it, or an Address.
    GivenAddress(State& state, PyObject* object) {
        m_record = PyUnicode_Check(object)
                       ? MadeAddress(state, object, qx_make_number)
                       : Shared(Instance(state, object, RecordType::Address, "an address"));
        address.size = sizeof address;
        address.text = Utf8(PyTuple_GetItem(m_record.Get(), 0), "the text of an address");
        address.type_of_address = Number<std::uint8_t>(PyTuple_GetItem(m_record.Get(), 4), "type_of_address");
        address.length = Number<std::uint8_t>(PyTuple_GetItem(m_record.Get(), 5), "length");
        RefuseDisagreement();
    }

    qx_address address{};

private:
    /// What is sent is the octet, which says the type and the plan.
    void RefuseDisagreement() const {
        const auto type = Number<unsigned>(PyTuple_GetItem(m_record.Get(), 1), "type", 7);
        const auto plan = Number<unsigned>(PyTuple_GetItem(m_record.Get(), 2), "plan", 15);
        if (type != (address.type_of_address >> 4U & 7U) || plan != (address.type_of_address & 15U))
            Raise(PyExc_ValueError, "type and plan of an address are not those of its type_of_address, %d",
                  int{address.type_of_address});
    }

    Ref m_record;
};

qx_coding CodingOfValue(std::uint8_t value) {
    qx_coding coding{};
    coding.size = sizeof coding;
    Check(qx_make_coding(value, &coding));
    return coding;
}

bool AreEqual(PyObject* one, PyObject* other) {
    return Done(PyObject_RichCompareBool(one, other, Py_EQ)) != 0;
}

/// What is sent is the value, which says all the others.
std::uint8_t ValueOfCoding(State& state, PyObject* record) {
    const auto value = Number<std::uint8_t>(PyTuple_GetItem(record, 0), "coding");
    if (!AreEqual(record, CodingOf(state, CodingOfValue(value)).Get()))
        Raise(PyExc_ValueError, "the members of a coding are not those of its value, %d", int{value});
    return value;
}

std::uint8_t CodingGiven(State& state, PyObject* object) {
    if (Done(PyObject_IsInstance(object, state.records[static_cast<std::size_t>(RecordType::Coding)].type)) !=
        0)
        return ValueOfCoding(state, Instance(state, object, RecordType::Coding, "coding"));
    return Number<std::uint8_t>(object, "coding");
}

#define QXPDU_ENCODE_NAMES                                                                                   \
    "text", "address", "type", "data", "units", "like", "service_centre", "coding", "time", "discharge",     \
        "validity", "more_messages", "loop_prevention", "reject_duplicates", "status_report_indication",     \
        "status_report_request", "is_for_command", "reply_path", "message_reference", "status",              \
        "command_type", "message_number", "failure_cause", "parameter_indicator", "protocol"

const Arguments::Signature c_encode = {"encode", {QXPDU_ENCODE_NAMES, QXPDU_CUT_NAMES}, 2, 0};

struct FlagArgument {
    const char* name;
    bool qx_message::*member;
};
constexpr FlagArgument c_flags[] = {
    {"more_messages", &qx_message::more_messages},
    {"loop_prevention", &qx_message::loop_prevention},
    {"reject_duplicates", &qx_message::reject_duplicates},
    {"status_report_indication", &qx_message::status_report_indication},
    {"status_report_request", &qx_message::status_report_request},
    {"is_for_command", &qx_message::is_for_command},
    {"reply_path", &qx_message::reply_path},
};

struct OctetArgument {
    const char* name;
    std::uint8_t qx_message::*member;
};
constexpr OctetArgument c_octets[] = {
    {"message_reference", &qx_message::reference},
    {"status", &qx_message::status},
    {"command_type", &qx_message::command_type},
    {"message_number", &qx_message::message_number},
};

struct OptionalArgument {
    const char* name;
    qx_optional_octet qx_message::*member;
};
constexpr OptionalArgument c_optionals[] = {
    {"failure_cause", &qx_message::failure_cause},
    {"parameter_indicator", &qx_message::parameter_indicator},
    {"protocol", &qx_message::protocol},
};

constexpr unsigned Bit(qx_type type) {
    return 1U << type;
}
constexpr unsigned c_deliver = Bit(QX_TYPE_DELIVER);
constexpr unsigned c_submit = Bit(QX_TYPE_SUBMIT);
constexpr unsigned c_submitReport = Bit(QX_TYPE_SUBMIT_REPORT);
constexpr unsigned c_statusReport = Bit(QX_TYPE_STATUS_REPORT);
constexpr unsigned c_command = Bit(QX_TYPE_COMMAND);
constexpr unsigned c_reports = Bit(QX_TYPE_DELIVER_REPORT) | c_submitReport;
constexpr unsigned c_allButCommand = c_deliver | c_submit | c_statusReport | c_reports;
constexpr unsigned c_withParty = c_deliver | c_submit | c_statusReport | c_command;

/// Arguments that not all types have a field for.
struct FieldArgument {
    const char* name;
    unsigned types;
};
constexpr FieldArgument c_fields[] = {
    {"text", c_allButCommand},
    {"address", c_withParty},
    {"coding", c_allButCommand},
    {"time", c_deliver | c_submitReport | c_statusReport},
    {"discharge", c_statusReport},
    {"validity", c_submit},
    {"more_messages", c_deliver | c_statusReport},
    {"loop_prevention", c_deliver | c_statusReport},
    {"reject_duplicates", c_submit},
    {"status_report_indication", c_deliver},
    {"status_report_request", c_submit | c_command},
    {"is_for_command", c_statusReport},
    {"reply_path", c_deliver | c_submit},
    {"message_reference", c_submit | c_statusReport | c_command},
    {"status", c_statusReport},
    {"command_type", c_command},
    {"message_number", c_command},
    {"failure_cause", c_reports},
    {"parameter_indicator", c_reports | c_statusReport},
};

/// Fields after the first octet, and the arguments that tell what stands in them.
struct LikeField {
    std::uint8_t field;
    const char* argument;
    unsigned always;    ///< types that have it always
    unsigned indicated; ///< types that have it where TP-PI says so
    unsigned indicator; ///< its bit of TP-PI
};
constexpr LikeField c_likeFields[] = {
    {QX_FIELD_MESSAGE_REFERENCE, "message_reference", c_submit | c_statusReport | c_command, 0, 0},
    {QX_FIELD_ORIGINATING_ADDRESS, "address", c_deliver, 0, 0},
    {QX_FIELD_DESTINATION_ADDRESS, "address", c_submit | c_command, 0, 0},
    {QX_FIELD_RECIPIENT_ADDRESS, "address", c_statusReport, 0, 0},
    {QX_FIELD_FAILURE_CAUSE, "failure_cause", 0, c_reports, 0},
    {QX_FIELD_COMMAND_TYPE, "command_type", c_command, 0, 0},
    {QX_FIELD_MESSAGE_NUMBER, "message_number", c_command, 0, 0},
    {QX_FIELD_SERVICE_CENTRE_TIMESTAMP, "time", c_deliver | c_submitReport | c_statusReport, 0, 0},
    {QX_FIELD_DISCHARGE_TIME, "discharge", c_statusReport, 0, 0},
    {QX_FIELD_STATUS, "status", c_statusReport, 0, 0},
    {QX_FIELD_PARAMETER_INDICATOR, "parameter_indicator", c_reports, c_statusReport, 0},
    {QX_FIELD_PROTOCOL_IDENTIFIER, "protocol", c_deliver | c_submit | c_command, c_reports | c_statusReport,
     1},
    {QX_FIELD_DATA_CODING_SCHEME, "coding", c_deliver | c_submit, c_reports | c_statusReport, 2},
    {QX_FIELD_USER_DATA_LENGTH, "data", c_deliver | c_submit, c_reports | c_statusReport, 4},
    {QX_FIELD_COMMAND_DATA_LENGTH, "data", c_command, 0, 0},
};

/// A message that is put together from what is given, and from the one that it is to be like.
class Draft {
public:
    Draft(State& state, const Arguments& arguments)
        : m_state(state), m_arguments(arguments), m_cut(state, arguments) {
        TakeLike();
        TakeValues();
        TakeAddresses();
        TakeTimes();
        TakeCoding();
        RefuseFieldsOfOthers();
        RefuseUnusedOptions();
        RefuseUnread();
    }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    /// The PDUs: as many as the text, or the data, takes.
    Ref Written() {
        PyObject* const text = m_arguments.Told("text");
        PyObject* const data = m_arguments.Told("data");
        PyObject* const units = m_arguments.Told("units");
        if ((text != nullptr) + (data != nullptr) + (units != nullptr) > 1)
            Raise(PyExc_ValueError, "a message has text, data or units, one of them");
        if (m_message.party == nullptr && IsOneOf(c_withParty))
            Raise(PyExc_ValueError, "%s needs an address", qx_type_name(m_message.type));
        Ref pdus = Made(PyList_New(0));
        if (units != nullptr || (data != nullptr && IsOneOf(c_command)))
            AppendUnits(pdus, units != nullptr ? units : data);
        else if (text != nullptr || data != nullptr)
            AppendParts(pdus, text, data);
        else
            Append(pdus);
        return pdus;
    }

private:
    void TakeLike() {
        m_message.size = sizeof m_message;
        m_message.type = QX_TYPE_SUBMIT;
        m_modemsOwn.size = sizeof m_modemsOwn;
        m_modemsOwn.type_of_address = c_noType;
        m_serviceCentre = &m_modemsOwn;
        if (PyObject* const like = m_arguments.Told("like")) {
            m_like.emplace(m_state, MessageGiven(m_state, like, "like"));
            const qx_reading& reading = m_like->Get();
            if (reading.message == nullptr)
                Raise(PyExc_ValueError, "like was not read as far as its type");
            m_message = *reading.message;
            m_serviceCentre = reading.service_centre;
        }
    }

    void TakeValues() {
        if (PyObject* const type = m_arguments.Told("type"))
            m_message.type =
                static_cast<std::uint8_t>(Integer(type, QX_TYPE_DELIVER, QX_TYPE_COMMAND, "type"));
        for (const FlagArgument& flag : c_flags)
            m_message.*flag.member = m_arguments.IsSet(flag.name, m_message.*flag.member);
        for (const OctetArgument& octet : c_octets)
            if (PyObject* const told = m_arguments.Told(octet.name))
                m_message.*octet.member = Number<std::uint8_t>(told, octet.name);
        for (const OptionalArgument& octet : c_optionals)
            if (m_arguments.Given(octet.name) != nullptr)
                m_message.*octet.member = OptionalGiven(m_arguments.Told(octet.name), octet.name, UINT8_MAX);
    }

    void TakeAddresses() {
        if (PyObject* const address = m_arguments.Told("address"))
            m_message.party = &m_party.emplace(m_state, address).address;
        PyObject* const serviceCentre = m_arguments.Given("service_centre");
        if (serviceCentre == Py_None)
            m_serviceCentre = nullptr;
        else if (serviceCentre != nullptr)
            TakeServiceCentre(serviceCentre);
    }

    void TakeServiceCentre(PyObject* serviceCentre) {
        m_serviceCentre = &m_modemsOwn;
        if (PyUnicode_Check(serviceCentre) && PyUnicode_GetLength(serviceCentre) == 0)
            return;
        m_serviceCentre = &m_givenCentre.emplace(m_state, serviceCentre).address;
    }

    /// The time of `like`, told again, stays as it was sent: octets can say it that are not made of any.
    qx_timestamp TimeGiven(PyObject* object, const qx_timestamp* like) const {
        if (like != nullptr && like->is_valid && Done(PyObject_IsInstance(object, m_state.datetime)) != 0) {
            const Ref read = TimeOf(m_state, *like);
            const Ref zone = Made(PyObject_CallMethod(object, "utcoffset", nullptr));
            const Ref zoneRead = Made(PyObject_CallMethod(read.Get(), "utcoffset", nullptr));
            if (AreEqual(object, read.Get()) && AreEqual(zone.Get(), zoneRead.Get()))
                return *like;
        }
        return TimestampOf(m_state, object);
    }

    void TakeTimes() {
        if (PyObject* const time = m_arguments.Told("time")) {
            m_time = TimeGiven(time, m_message.timestamp);
            m_message.timestamp = &m_time;
        }
        if (PyObject* const discharge = m_arguments.Told("discharge")) {
            m_discharge = TimeGiven(discharge, m_message.discharge);
            m_message.discharge = &m_discharge;
        }
        if (m_arguments.Given("validity") == Py_None)
            m_message.validity = nullptr;
        if (PyObject* const validity = m_arguments.Told("validity")) {
            FillValidity(m_state, validity, m_validity);
            m_message.validity = &m_validity.validity;
        }
    }

    void TakeCoding() {
        PyObject* const coding = m_arguments.Told("coding");
        if (coding == nullptr)
            return;
        m_coding = CodingOfValue(CodingGiven(m_state, coding));
        m_message.coding = &m_coding;
        m_hasCoding = true;
        const bool isOfData = m_coding.alphabet == QX_ALPHABET_DATA || m_coding.is_compressed;
        if (isOfData ? m_arguments.Told("text") != nullptr : m_arguments.Told("data") != nullptr)
            RaiseDisagreement(isOfData ? "text" : "data");
        qx_cut_options& options = m_cut.options;
        if (options.alphabet.has_value && options.alphabet.value != m_coding.alphabet)
            RaiseDisagreement("alphabet");
        if (options.has_tables && m_coding.alphabet != QX_ALPHABET_GSM7)
            RaiseDisagreement("tables");
        if (options.message_class.has_value && (!m_coding.message_class.has_value ||
                                                options.message_class.value != m_coding.message_class.value))
            RaiseDisagreement("message_class");
        // A text is written as the scheme says.
        if (!isOfData)
            options.alphabet = {true, m_coding.alphabet};
    }

    [[noreturn]] void RaiseDisagreement(const char* argument) const {
        Raise(PyExc_ValueError, "coding %d and %s do not agree", int{m_coding.value}, argument);
    }

    bool IsOneOf(unsigned types) const { return (types >> m_message.type & 1U) != 0; }

    void RefuseFieldsOfOthers() const {
        for (const FieldArgument& field : c_fields)
            if (m_arguments.Told(field.name) != nullptr && !IsOneOf(field.types))
                Raise(PyExc_ValueError, "%s has no %s", qx_type_name(m_message.type), field.name);
    }

    /// What belongs to user data that stays as it is cannot be taken away from it.
    void RefuseTakingAway(const Content& content) const {
        if (!m_like)
            return;
        const qx_message& like = *m_like->Get().message;
        if (!content.isWanted && m_arguments.Given("ports") == Py_None && like.user_data != nullptr &&
            like.user_data->ports != nullptr)
            Raise(PyExc_ValueError, "ports of like are taken away with another text or data only");
        if (!content.isCut && !m_hasCoding && m_arguments.Given("message_class") == Py_None &&
            like.coding != nullptr && like.coding->message_class.has_value)
            Raise(PyExc_ValueError, "message_class of like is taken away with another text or coding only");
    }

    void RefuseUnusedOptions() const {
        const bool hasText = m_arguments.Told("text") != nullptr;
        const bool hasData = m_arguments.Told("data") != nullptr;
        const bool hasUnits = m_arguments.Told("units") != nullptr;
        const Content content = {hasText, hasText || (hasData && !IsOneOf(c_command)),
                                 hasText || hasData || hasUnits};
        RefuseUnused(m_arguments, m_cut.options, content);
        RefuseTakingAway(content);
    }

    /// Refuses a message that ends before a field which the new one needs, too, and which is not told.
    void RefuseUnread() const {
        if (!m_like || m_like->Get().fault == nullptr)
            return;
        const qx_reading& like = m_like->Get();
        for (const LikeField& field : c_likeFields)
            if (HadToRead(like, field) && !Has(like, field.field) && HasArgument(field.argument) &&
                !IsTold(field))
                Raise(PyExc_ValueError, "the message that like is ends before %U, and no %s is told",
                      FieldName(m_state, field.field).Get(), field.argument);
        if (like.message->type == QX_TYPE_SUBMIT && IsOneOf(c_submit) && HasValidityFormat(like) &&
            !Has(like, QX_FIELD_VALIDITY_PERIOD) && m_arguments.Given("validity") == nullptr)
            Raise(PyExc_ValueError, "the message that like is ends before TP-VP, and no validity is told");
    }

    static bool HadToRead(const qx_reading& like, const LikeField& field) {
        const unsigned type = 1U << like.message->type;
        return (field.always & type) != 0 ||
               ((field.indicated & type) != 0 &&
                (like.fault->field == field.field ||
                 (Has(like, QX_FIELD_PARAMETER_INDICATOR) &&
                  (like.message->parameter_indicator.value & field.indicator) != 0)));
    }

    static bool HasValidityFormat(const qx_reading& like) {
        return std::any_of(like.places, like.places + like.place_count, [](const qx_place* place) {
            return place->field == QX_FIELD_VALIDITY_FORMAT && place->value != QX_VALIDITY_NONE;
        });
    }

    /// Whether messages of the type may have what the argument tells.
    bool HasArgument(const char* argument) const {
        return std::all_of(std::begin(c_fields), std::end(c_fields), [&](const FieldArgument& field) {
            return std::string_view(field.name) != argument || IsOneOf(field.types);
        });
    }

    /// A text, or data, brings its coding along.
    bool IsTold(const LikeField& field) const {
        const bool isCut = m_arguments.Told("text") != nullptr || m_arguments.Told("data") != nullptr;
        if (field.field == QX_FIELD_DATA_CODING_SCHEME && isCut)
            return true;
        if (std::string_view(field.argument) == "data")
            return isCut || m_arguments.Told("units") != nullptr;
        const bool isOptional = std::any_of(std::begin(c_optionals), std::end(c_optionals),
                                            [&](const OptionalArgument& optional) {
                                                return std::string_view(optional.name) == field.argument;
                                            });
        return (isOptional ? m_arguments.Given(field.argument) : m_arguments.Told(field.argument)) != nullptr;
    }

    /// A text for a message like another one keeps its ports and its class.
    void KeepOfLike() {
        if (!m_like)
            return;
        const qx_message& like = *m_like->Get().message;
        if (m_arguments.Given("ports") == nullptr && like.user_data != nullptr)
            m_cut.options.ports = like.user_data->ports;
        if (m_arguments.Given("message_class") == nullptr && !m_hasCoding && like.coding != nullptr)
            m_cut.options.message_class = like.coding->message_class;
    }

    void AppendUnits(const Ref& pdus, PyObject* units) {
        const Ref content = Bytes(units, "units");
        constexpr std::uint8_t c_eightBits = 4; // a command's data are octets
        const std::uint8_t coding = m_message.type == QX_TYPE_COMMAND ? c_eightBits
                                    : m_message.coding != nullptr     ? m_message.coding->value
                                                                      : std::uint8_t{0};
        const Maker maker(qx_maker_new());
        const qx_made* made = nullptr;
        const qx_result result =
            qx_make_user_data(maker.Get(), coding, m_cut.options.elements, OctetsOf(content), &made);
        Check(result);
        if (result == QX_FAULT)
            RaisePduError(m_state,
                          PduErrorOf(m_state, Made(PyUnicode_FromString("TP-UDL cannot count so many units")),
                                     {{"code", Made(PyUnicode_FromString("user-data-too-long"))}}));
        m_message.user_data = made->user_data;
        Append(pdus);
    }

    void AppendParts(const Ref& pdus, PyObject* text, PyObject* data) {
        KeepOfLike();
        const Cutter cutter(qx_cutter_new());
        const qx_cut_text& cut = Cut(m_state, cutter, text, data, m_cut.options);
        if (!m_hasCoding)
            m_message.coding = cut.coding;
        for (std::size_t i = 0; i < cut.part_count; ++i) {
            m_message.user_data = cut.parts[i];
            Append(pdus);
        }
    }

    void Append(const Ref& pdus) {
        RefuseIndicator();
        const qx_written* written = nullptr;
        Check(qx_write(m_writer.Get(), &m_message, m_serviceCentre, &written));
        if (written->fault != nullptr)
            RaiseWriteFault(*written->fault);
        Done(PyList_Append(pdus.Get(),
                           RecordOf(m_state, RecordType::Pdu,
                                    {Octets(written->octets), Integer(std::uint64_t{written->tpdu_octets})})
                               .Get()));
    }

    /// The lowest bits of TP-PI say which of three fields are there.
    void RefuseIndicator() const {
        if (m_arguments.Told("parameter_indicator") == nullptr)
            return;
        const unsigned there = (m_message.protocol.has_value ? 1U : 0U) |
                               (m_message.coding != nullptr ? 2U : 0U) |
                               (m_message.user_data != nullptr ? 4U : 0U);
        if ((m_message.parameter_indicator.value & 7U) != there)
            Raise(PyExc_ValueError,
                  "parameter_indicator %d does not say what is there: its lowest three bits are %u",
                  int{m_message.parameter_indicator.value}, there);
    }

    [[noreturn]] void RaiseWriteFault(const qx_write_fault& fault) {
        const Ref field = FieldName(m_state, fault.field);
        RaisePduError(m_state,
                      PduErrorOf(m_state,
                                 Made(PyUnicode_FromFormat("%U: %s", field.Get(), fault.meaning.data)),
                                 {{"code", Text(fault.name)},
                                  {"field", field},
                                  {"number", Integer(std::uint64_t{fault.number})},
                                  {"other", Integer(std::uint64_t{fault.other})}}));
    }

    static constexpr std::uint8_t c_noType = 0x80;

    State& m_state;
    const Arguments& m_arguments;
    CutOptions m_cut;
    std::optional<Reading> m_like;
    qx_message m_message{};
    const qx_address* m_serviceCentre = nullptr;
    qx_address m_modemsOwn{};
    std::optional<GivenAddress> m_party;
    std::optional<GivenAddress> m_givenCentre;
    qx_timestamp m_time{};
    qx_timestamp m_discharge{};
    GivenValidity m_validity{};
    qx_coding m_coding{};
    bool m_hasCoding = false;
    Writer m_writer{qx_writer_new()};
};

/// The record of what the octets of a validity say: they are read as those of an SMS-SUBMIT.
Ref ValidityRead(State& state, const qx_validity& validity) {
    const auto first = static_cast<std::uint8_t>(1U | unsigned{validity.format} << 3U);
    std::array<std::uint8_t, 14> submit = {first, 0, 0, 0x91, 0, 0}; // TP-MR, TP-DA, TP-PID and TP-DCS
    constexpr std::size_t c_head = 6;
    std::copy_n(validity.octets, OctetsOfFormat(validity.format), submit.begin() + c_head);
    qx_read_options options{};
    options.size = sizeof options;
    options.service_centre = QX_PRESENCE_NO;
    options.direction = QX_DIRECTION_FROM_MOBILE;
    const ReaderHandle reader(qx_reader_new());
    const qx_reading* reading = nullptr;
    Check(qx_read(reader.Get(), submit.data(), c_head + OctetsOfFormat(validity.format) + 1, &options,
                  &reading));
    return ValidityOf(state, reading->message->validity != nullptr ? *reading->message->validity : validity);
}

/// The octets are what is sent: the members of a record are to be what they say, or None.
void FillRecord(State& state, PyObject* record, qx_validity& validity) {
    const Ref bytes = Bytes(PyTuple_GetItem(record, 1), "octets");
    const qx_octets octets = OctetsOf(bytes);
    const std::size_t size = OctetsOfFormat(validity.format);
    if (octets.size != size)
        Raise(PyExc_ValueError, "the octets of a validity of this format are %zu, not %zu", size,
              octets.size);
    std::copy_n(octets.data, size, validity.octets);
    const Ref read = ValidityRead(state, validity);
    for (Py_ssize_t i = 2; i < PyTuple_Size(read.Get()); ++i) {
        PyObject* const member = PyTuple_GetItem(record, i);
        if (member != Py_None && !AreEqual(member, PyTuple_GetItem(read.Get(), i)))
            Raise(PyExc_ValueError, "a validity's members are not what its octets say: %R", record);
    }
}

} // namespace

void RaiseNoValidity(PyObject* object) {
    Raise(PyExc_ValueError, "a validity is of 1 second to 63 weeks: %R", object);
}

void FillValidity(State& state, PyObject* object, GivenValidity& filled) {
    filled = {};
    filled.validity.size = sizeof filled.validity;
    qx_result result = QX_OK;
    if (Done(PyObject_IsInstance(object, state.datetime)) != 0) {
        filled.until = TimestampOf(state, object);
        result = qx_make_absolute_validity(&filled.until, &filled.validity);
    } else if (Done(PyObject_IsInstance(object, state.timedelta)) != 0) {
        result = qx_make_relative_validity(SecondsOf(state, object), &filled.validity);
    } else {
        PyObject* const record =
            Instance(state, object, RecordType::Validity, "validity, else a timedelta or a datetime,");
        filled.validity.format =
            Number<std::uint8_t>(PyTuple_GetItem(record, 0), "format", QX_VALIDITY_ABSOLUTE);
        FillRecord(state, record, filled.validity);
    }
    if (result == QX_FAULT)
        RaiseNoValidity(object);
    Check(result);
}

PyObject* MakeNumber(PyObject* module, PyObject* written) noexcept {
    return Guarded([&] { return MadeAddress(StateOf(module), written, qx_make_number); });
}

PyObject* MakeName(PyObject* module, PyObject* written) noexcept {
    return Guarded([&] { return MadeAddress(StateOf(module), written, qx_make_name); });
}

PyObject* MakeCoding(PyObject* module, PyObject* value) noexcept {
    return Guarded([&] {
        State& state = StateOf(module);
        return CodingOf(state, CodingOfValue(Number<std::uint8_t>(value, "coding")));
    });
}

PyObject* MakeValidity(PyObject* module, PyObject* const* values, Py_ssize_t count,
                       PyObject* keywords) noexcept {
    static const Arguments::Signature c_signature = {"validity", {"of", "enhanced", "single_shot"}, 1, 1};
    return Guarded([&] {
        State& state = StateOf(module);
        const Arguments arguments(c_signature, values, count, keywords);
        const bool isSingleShot = arguments.IsSet("single_shot");
        GivenValidity given;
        if (isSingleShot || arguments.IsSet("enhanced")) {
            given = {};
            given.validity.size = sizeof given.validity;
            const std::uint32_t seconds = SecondsOf(state, arguments.First());
            const qx_result result = qx_make_enhanced_validity(seconds, isSingleShot, &given.validity);
            if (result == QX_FAULT)
                RaiseNoValidity(arguments.First());
            Check(result);
        } else {
            FillValidity(state, arguments.First(), given);
        }
        return ValidityOf(state, given.validity);
    });
}

PyObject* Encode(PyObject* module, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept {
    return Guarded([&] {
        const Arguments arguments(c_encode, values, count, keywords);
        return Draft(StateOf(module), arguments).Written();
    });
}

PyObject* Choose(PyObject* module, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept {
    return Guarded([&] { return Explained(module, Arguments(c_count, values, count, keywords), qx_choose); });
}

PyObject* Explain(PyObject* module, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept {
    return Guarded(
        [&] { return Explained(module, Arguments(c_explain, values, count, keywords), qx_explain); });
}

PyObject* CutText(PyObject* module, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept {
    static const Arguments::Signature c_signature = {"cut", {"text", QXPDU_CUT_NAMES}, 1, 1};
    return Guarded([&] {
        State& state = StateOf(module);
        const Arguments arguments(c_signature, values, count, keywords);
        PyObject* const given = arguments.First();
        const bool isText = PyUnicode_Check(given);
        const CutOptions options(state, arguments);
        RefuseUnused(arguments, options.options, {isText, true, true});
        const Cutter cutter(qx_cutter_new());
        const qx_cut_text& cut =
            Cut(state, cutter, isText ? given : nullptr, isText ? nullptr : given, options.options);
        const Ref offsets = isText ? IndicesOf(cut.text, cut.offsets, cut.part_count)
                                   : Tuple(cut.part_count, [&](std::size_t i) {
                                         return Integer(std::uint64_t{cut.offsets[i]});
                                     });
        const qx_text before = isText ? Utf8(given, "text") : qx_text{};
        return RecordOf(state, RecordType::Cut,
                        {List(state, cut.parts, cut.part_count, UserDataOf),
                         Optional(state, cut.coding, CodingOf), Optional(state, cut.choice, ChoiceOf),
                         offsets, Text(cut.text),
                         ReplacementsOf(state, before, cut.replacements, cut.replacement_count)});
    });
}

PyObject* ReplaceNear(PyObject* module, PyObject* const* values, Py_ssize_t count,
                      PyObject* keywords) noexcept {
    static const Arguments::Signature c_signature = {"replace_near", {"text", "languages"}, 2, 1};
    return Guarded([&] {
        State& state = StateOf(module);
        const Arguments arguments(c_signature, values, count, keywords);
        const qx_text text = Utf8(arguments.First(), "text");
        const std::uint16_t languages = arguments.Told("languages") != nullptr
                                            ? LanguageBits(arguments.Told("languages"))
                                            : std::uint16_t{0};
        const Cutter cutter(qx_cutter_new());
        const qx_near_text* nearText = nullptr;
        Check(qx_replace_near(cutter.Get(), text.data, text.size, languages, &nearText));
        return RecordOf(state, RecordType::NearText,
                        {Text(nearText->text),
                         ReplacementsOf(state, text, nearText->replacements, nearText->replacement_count)});
    });
}

} // namespace qxpdu
