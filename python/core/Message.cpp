// Messages that are read. A Message keeps its octets and what its reader was told; what it says is read from
// them, once it is asked for, and kept. The reader that has read a message last is asked without reading
// again.
#include "Core.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <type_traits>

namespace qxpdu {
namespace {

/// More octets than any message or page has, with all that may follow it. Nothing is copied of more.
constexpr Py_ssize_t c_mostOctets = 65536;

/// What is read, and by which options.
struct Message {
    PyObject_HEAD PyObject* source; ///< bytes, or the digits as str
    PyObject** values; ///< of the attributes that have been asked for; null before the first one is
    PyObject* weakly;  ///< those who refer to it so
    qx_read_options options;
};

Message& MessageOf(PyObject* object) noexcept {
    return *reinterpret_cast<Message*>(object);
}

/// Digits without white space around them.
std::string_view DigitsOf(PyObject* source) {
    constexpr std::string_view c_white = " \t\n\v\f\r";
    const std::string_view text = View(Utf8(source, "a PDU"));
    const std::size_t first = std::min(text.find_first_not_of(c_white), text.size());
    const std::size_t last = text.find_last_not_of(c_white);
    return last == std::string_view::npos ? std::string_view() : text.substr(first, last + 1 - first);
}

/// What the library is called with, without the GIL if need be: the source stays as it is.
class Call {
public:
    /// Of no octets where there is no source.
    explicit Call(PyObject* source) : m_isHex(source != nullptr && PyUnicode_Check(source)) {
        if (m_isHex)
            m_digits = DigitsOf(source);
        else if (source != nullptr)
            m_octets = OctetsOf(source);
    }

    qx_result Read(qx_reader* reader, const qx_read_options& options,
                   const qx_reading*& reading) const noexcept {
        return m_isHex ? qx_read_hex(reader, m_digits.data(), m_digits.size(), &options, &reading)
                       : qx_read(reader, m_octets.data, m_octets.size, &options, &reading);
    }
    qx_result ReadCell(qx_reader* reader, std::uint8_t format,
                       const qx_cell_reading*& reading) const noexcept {
        return m_isHex ? qx_read_cell_hex(reader, m_digits.data(), m_digits.size(), format, &reading)
                       : qx_read_cell(reader, m_octets.data, m_octets.size, format, &reading);
    }

private:
    bool m_isHex;
    std::string_view m_digits;
    qx_octets m_octets{};
};

Ref NewMessage(const State& state, const Ref& source, const qx_read_options& options) {
    Ref object = Allocated(reinterpret_cast<PyTypeObject*>(state.messageType));
    Message& message = MessageOf(object.Get());
    message.source = Shared(source.Get()).Release();
    message.options = options;
    return object;
}

// What attributes are made of.

using Make = Ref (*)(State&, const qx_reading&);

/// A member of the message that is there where its field is.
template <auto Member, std::uint8_t Field>
Ref MemberAt(State&, const qx_reading& reading) {
    if (reading.message == nullptr || !Has(reading, Field))
        return None();
    if constexpr (std::is_same_v<decltype(reading.message->*Member), const bool&>)
        return Truth(reading.message->*Member);
    else
        return Integer(reading.message->*Member);
}

/// Whether the reading came to one of these fields, and no fault was before it.
template <std::uint8_t... Fields>
bool Reached(const qx_reading& reading) {
    return reading.message != nullptr && (reading.fault == nullptr || (Has(reading, Fields) || ...));
}

template <auto Member, std::uint8_t Field>
Ref OptionalOctet(State&, const qx_reading& reading) {
    return Reached<Field>(reading) ? Integer(reading.message->*Member) : None();
}

/// What a pointer of the message points to, once one of the fields is reached.
template <auto Member, auto Of, std::uint8_t... Fields>
Ref Part(State& state, const qx_reading& reading) {
    return Reached<Fields...>(reading) ? Optional(state, reading.message->*Member, +Of) : None();
}

const qx_user_data* UserDataIn(const qx_reading& reading) {
    return Reached<QX_FIELD_USER_DATA_LENGTH, QX_FIELD_COMMAND_DATA_LENGTH>(reading)
               ? reading.message->user_data
               : nullptr;
}

/// What a pointer of its user data points to.
template <auto Member, auto Of>
Ref PartOfUserData(State& state, const qx_reading& reading) {
    const qx_user_data* const userData = UserDataIn(reading);
    return userData != nullptr ? Optional(state, userData->*Member, +Of) : None();
}

Ref OctetsOfTime(State&, const qx_timestamp& timestamp) {
    return Octets({timestamp.octets, sizeof timestamp.octets});
}

/// Reports without TP-DCS are in the default alphabet; a command has no text.
bool HasText(const qx_message& message) {
    return message.coding != nullptr
               ? message.coding->alphabet != QX_ALPHABET_DATA && !message.coding->is_compressed
               : message.type != QX_TYPE_COMMAND;
}

Ref TextOfMessage(State&, const qx_reading& reading) {
    const qx_user_data* const userData = UserDataIn(reading);
    return userData != nullptr && HasText(*reading.message) ? Text(userData->text) : None();
}

Ref DataOfMessage(State&, const qx_reading& reading) {
    const qx_user_data* const userData = UserDataIn(reading);
    return userData != nullptr && !HasText(*reading.message) ? Octets(userData->content) : None();
}

Ref HeaderOfMessage(State& state, const qx_reading& reading) {
    const qx_user_data* const userData = UserDataIn(reading);
    return userData != nullptr ? List(state, userData->elements, userData->element_count, ElementOf)
                               : Made(PyTuple_New(0));
}

Ref UserDataOfMessage(State& state, const qx_reading& reading) {
    return Optional(state, UserDataIn(reading), UserDataOf);
}

Ref TypeOfMessage(State& state, const qx_reading& reading) {
    return Member(state, EnumType::Type,
                  reading.message != nullptr ? reading.message->type : std::uint8_t{0});
}

Ref DirectionOfMessage(State& state, const qx_reading& reading) {
    return Member(state, EnumType::Direction, reading.direction);
}

Ref ServiceCentreOfMessage(State& state, const qx_reading& reading) {
    return reading.fault == nullptr || reading.message != nullptr
               ? Optional(state, reading.service_centre, AddressOf)
               : None();
}

Ref IsServiceCentreGuessed(State&, const qx_reading& reading) {
    return Truth(reading.is_service_centre_guessed);
}

Ref IsSound(State&, const qx_reading& reading) {
    return Truth(reading.is_sound);
}

Ref PlacesOfMessage(State& state, const qx_reading& reading) {
    return List(state, reading.places, reading.place_count, PlaceOf);
}

Ref RemarksOfMessage(State& state, const qx_reading& reading) {
    return List(state, reading.remarks, reading.remark_count, RemarkOf);
}

Ref FaultOfMessage(State& state, const qx_reading& reading) {
    return Optional(state, reading.fault, FaultOf);
}

struct Attribute {
    const char* name;
    Make make;
    const char* doc;
};

constexpr std::size_t c_text = 0;
constexpr std::size_t c_address = 1;
constexpr std::size_t c_time = 2;
constexpr std::size_t c_type = 3;

using M = qx_message;

// The first three are those that are asked for most.
constexpr Attribute c_attributes[] = {
    {"text", TextOfMessage, "The text; None where the type or its coding has none."},
    {"address",
     Part<&M::party, AddressOf, QX_FIELD_ORIGINATING_ADDRESS, QX_FIELD_DESTINATION_ADDRESS,
          QX_FIELD_RECIPIENT_ADDRESS>,
     "Whom the message is from or for: TP-OA, TP-DA or TP-RA."},
    {"time", Part<&M::timestamp, TimeOf, QX_FIELD_SERVICE_CENTRE_TIMESTAMP>,
     "TP-SCTS as a datetime with its zone; None where the octets are no time too."},
    {"type", TypeOfMessage, "The type, a Type; Type.NONE where a fault came before it."},
    {"time_octets", Part<&M::timestamp, OctetsOfTime, QX_FIELD_SERVICE_CENTRE_TIMESTAMP>,
     "TP-SCTS as it is sent: seven octets, also of what is no time."},
    {"direction", DirectionOfMessage, "Which way it goes, as told or as the type has it."},
    {"data", DataOfMessage, "The octets after the header, where there is no text."},
    {"service_centre", ServiceCentreOfMessage,
     "The service centre's address; it has no digits where its length is 0, and is None where none is "
     "there."},
    {"service_centre_guessed", IsServiceCentreGuessed,
     "Whether nothing but the octets told that there is a service centre, or none."},
    {"discharge", Part<&M::discharge, TimeOf, QX_FIELD_DISCHARGE_TIME>,
     "TP-DT, of a status report: when it was delivered or given up."},
    {"discharge_octets", Part<&M::discharge, OctetsOfTime, QX_FIELD_DISCHARGE_TIME>,
     "TP-DT as it is sent: seven octets, also of what is no time."},
    {"more_messages", MemberAt<&M::more_messages, QX_FIELD_MORE_MESSAGES>,
     "More messages wait: TP-MMS is 0."},
    {"loop_prevention", MemberAt<&M::loop_prevention, QX_FIELD_LOOP_PREVENTION>, "TP-LP."},
    {"reject_duplicates", MemberAt<&M::reject_duplicates, QX_FIELD_REJECT_DUPLICATES>, "TP-RD."},
    {"status_report_indication", MemberAt<&M::status_report_indication, QX_FIELD_STATUS_REPORT_INDICATION>,
     "TP-SRI: the sender gets a status report."},
    {"status_report_request", MemberAt<&M::status_report_request, QX_FIELD_STATUS_REPORT_REQUEST>, "TP-SRR."},
    {"is_for_command", MemberAt<&M::is_for_command, QX_FIELD_STATUS_REPORT_QUALIFIER>,
     "TP-SRQ: the result of an SMS-COMMAND."},
    {"reply_path", MemberAt<&M::reply_path, QX_FIELD_REPLY_PATH>, "TP-RP."},
    {"reference", MemberAt<&M::reference, QX_FIELD_MESSAGE_REFERENCE>, "TP-MR."},
    {"status", MemberAt<&M::status, QX_FIELD_STATUS>, "TP-ST; see words.status_meaning()."},
    {"command_type", MemberAt<&M::command_type, QX_FIELD_COMMAND_TYPE>,
     "TP-CT; see words.command_type_meaning()."},
    {"message_number", MemberAt<&M::message_number, QX_FIELD_MESSAGE_NUMBER>, "TP-MN."},
    {"failure_cause", OptionalOctet<&M::failure_cause, QX_FIELD_FAILURE_CAUSE>,
     "TP-FCS, of a report of an error; see words.failure_cause_meaning()."},
    {"parameter_indicator", OptionalOctet<&M::parameter_indicator, QX_FIELD_PARAMETER_INDICATOR>,
     "The first octet of TP-PI."},
    {"protocol", OptionalOctet<&M::protocol, QX_FIELD_PROTOCOL_IDENTIFIER>,
     "TP-PID; see words.protocol_meaning()."},
    {"coding", Part<&M::coding, CodingOf, QX_FIELD_DATA_CODING_SCHEME>, "TP-DCS, a Coding."},
    {"validity", Part<&M::validity, ValidityOf, QX_FIELD_VALIDITY_PERIOD>,
     "TP-VP, a Validity, of an SMS-SUBMIT."},
    {"user_data", UserDataOfMessage, "TP-UD or TP-CD, with what its header and coding make of it."},
    {"header", HeaderOfMessage, "The elements of the user-data header, a tuple of Element."},
    {"concatenation", PartOfUserData<&qx_user_data::concatenation, ConcatenationOf>,
     "Which part of which long message it is, a Concatenation."},
    {"ports", PartOfUserData<&qx_user_data::ports, PortsOf>,
     "The applications that it is from and for, Ports."},
    {"places", PlacesOfMessage, "Where each field stands, a tuple of Place in the order of the octets."},
    {"remarks", RemarksOfMessage, "What is unusual, a tuple of Remark."},
    {"fault", FaultOfMessage,
     "The Fault that ended the reading: of what PduError.partial is; None of what decode() gives."},
    {"is_sound", IsSound, "Nothing is wrong, missing or left over."},
};
constexpr std::size_t c_attributeCount = std::size(c_attributes);

Ref Attributed(State& state, PyObject* object, std::size_t index, const qx_reading& reading) {
    Message& message = MessageOf(object);
    if (message.values == nullptr) {
        message.values = static_cast<PyObject**>(PyMem_Calloc(c_attributeCount, sizeof(PyObject*)));
        if (message.values == nullptr)
            throw std::bad_alloc();
    }
    Ref made = c_attributes[index].make(state, reading);
    // Another thread may have been faster: what one has been given is the same for all.
    if (message.values[index] == nullptr)
        message.values[index] = made.Release();
    return Shared(message.values[index]);
}

Ref AttributeOf(PyObject* object, std::size_t index) {
    const Message& message = MessageOf(object);
    if (message.values != nullptr && message.values[index] != nullptr)
        return Shared(message.values[index]);
    State& state = StateOfObject(object);
    const Reading reading(state, object);
    return Attributed(state, object, index, reading.Get());
}

PyObject* Get(PyObject* object, void* attribute) noexcept {
    return Guarded([&] {
        return AttributeOf(object,
                           static_cast<std::size_t>(static_cast<const Attribute*>(attribute) - c_attributes));
    });
}

PyObject* GetOctets(PyObject* object, void*) noexcept {
    return Guarded([&] { return OctetsOfSource(StateOfObject(object), MessageOf(object).source); });
}

void Deallocate(PyObject* object) noexcept {
    Message& message = MessageOf(object);
    State& state = StateOfObject(object);
    EndWeakly(object, message.weakly);
    for (std::size_t i = 0; i < state.readerCount; ++i)
        if (state.readers[i].owner == object)
            state.readers[i].owner = nullptr;
    if (message.values != nullptr)
        for (std::size_t i = 0; i < c_attributeCount; ++i)
            Py_XDECREF(message.values[i]);
    PyMem_Free(message.values);
    Py_XDECREF(message.source);
    Free(object);
}

/// "<qxpdu.Message SMS-DELIVER +12345678901 2012-02-13 12:34:56+02:00 'Hello'>"
PyObject* Represent(PyObject* object) noexcept {
    return Guarded([&] {
        const Ref type = Made(PyObject_Str(AttributeOf(object, c_type).Get()));
        Ref text = Made(PyUnicode_FromFormat("<qxpdu.Message %U", type.Get()));
        for (const std::size_t index : {c_address, c_time}) {
            const Ref value = AttributeOf(object, index);
            if (value.Get() != Py_None)
                text = Made(PyUnicode_FromFormat("%U %S", text.Get(), value.Get()));
        }
        const Ref said = AttributeOf(object, c_text);
        return said.Get() != Py_None ? Made(PyUnicode_FromFormat("%U %R>", text.Get(), said.Get()))
                                     : Made(PyUnicode_FromFormat("%U>", text.Get()));
    });
}

bool SameOptions(const qx_read_options& one, const qx_read_options& other) {
    return one.service_centre == other.service_centre && one.direction == other.direction &&
           one.failure_cause == other.failure_cause &&
           one.has_announced_length == other.has_announced_length &&
           one.announced_length == other.announced_length;
}

/// Messages are equal where their octets are, read alike.
PyObject* Compare(PyObject* object, PyObject* other, int operation) noexcept {
    return Guarded([&] {
        if ((operation != Py_EQ && operation != Py_NE) || Py_TYPE(other) != Py_TYPE(object))
            return Shared(Py_NotImplemented);
        const State& state = StateOfObject(object);
        const Ref octets = OctetsOfSource(state, MessageOf(object).source);
        const Ref others = OctetsOfSource(state, MessageOf(other).source);
        const bool equal = SameOptions(MessageOf(object).options, MessageOf(other).options) &&
                           Done(PyObject_RichCompareBool(octets.Get(), others.Get(), Py_EQ)) != 0;
        return Truth(equal == (operation == Py_EQ));
    });
}

Py_hash_t Hash(PyObject* object) noexcept {
    return Guarded<Py_hash_t>(-1, [&] {
        return PyObject_Hash(OctetsOfSource(StateOfObject(object), MessageOf(object).source).Get());
    });
}

Ref PresenceOf(std::uint8_t presence) {
    return presence == QX_PRESENCE_UNKNOWN ? None() : Truth(presence == QX_PRESENCE_YES);
}

/// Pickled as its octets, and read again when it is asked.
PyObject* Reduce(PyObject* object, PyObject*) noexcept {
    return Guarded([&] {
        const Message& message = MessageOf(object);
        const Ref module = Made(PyImport_ImportModule("qxpdu._core"));
        const Ref restore = Made(PyObject_GetAttrString(module.Get(), "_restore"));
        const Ref octets = OctetsOfSource(StateOfObject(object), message.source);
        const qx_read_options& options = message.options;
        return Made(
            Py_BuildValue("O(OOBOO)", restore.Get(), octets.Get(), PresenceOf(options.service_centre).Get(),
                          options.direction, PresenceOf(options.failure_cause).Get(),
                          (options.has_announced_length ? Integer(options.announced_length) : None()).Get()));
    });
}

PyObject* Same(PyObject* object, PyObject*) noexcept {
    return Shared(object).Release();
}

// What the reader is told.

std::uint8_t PresenceGiven(PyObject* given, const char* what) {
    if (given == nullptr)
        return QX_PRESENCE_UNKNOWN;
    return Flag(given, what) ? QX_PRESENCE_YES : QX_PRESENCE_NO;
}

const Arguments::Signature c_decode = {
    "decode", {"pdu", "service_centre", "direction", "failure_cause", "announced"}, 1, 1};
const Arguments::Signature c_decodeMany = {
    "decode_many",
    {"pdus", "service_centre", "direction", "failure_cause", "announced", "return_errors"},
    1,
    1};
const Arguments::Signature c_restore = {
    "_restore", {"pdu", "service_centre", "direction", "failure_cause", "announced"}, 5, 5};

qx_read_options OptionsOf(const Arguments& arguments) {
    qx_read_options options{};
    options.size = sizeof options;
    options.service_centre = PresenceGiven(arguments[1], "service_centre");
    if (arguments[2] != nullptr)
        options.direction = Number<std::uint8_t>(arguments[2], "direction", QX_DIRECTION_FROM_MOBILE);
    options.failure_cause = PresenceGiven(arguments[3], "failure_cause");
    if (arguments[4] != nullptr) {
        options.has_announced_length = true;
        options.announced_length = Number<std::uint32_t>(arguments[4], "announced");
    }
    return options;
}

/// The PduError of a reading, with as much of the message as was read.
Ref ErrorOf(State& state, const Ref& message, const qx_reading& reading) {
    return PduErrorOf(state, *reading.fault, reading.message != nullptr ? message : None());
}

/// Reads without the interpreter's lock, so many at once. Where another thread is busy, each giving up of the
/// lock costs 5 ms: more than a thousand PDUs take.
class Batch {
public:
    static constexpr std::size_t c_most = 1024;

    explicit Batch(std::size_t count) {
        m_readers.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            m_readers.push_back({qx_reader_new(), nullptr, QX_OK});
            if (m_readers.back().handle == nullptr) {
                Free();
                throw std::bad_alloc();
            }
        }
    }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;
    ~Batch() { Free(); }

    void Read(const std::vector<Call>& calls, const qx_read_options& options) {
        PyThreadState* const thread = PyEval_SaveThread();
        for (std::size_t i = 0; i < calls.size(); ++i)
            m_readers[i].result = calls[i].Read(m_readers[i].handle, options, m_readers[i].reading);
        PyEval_RestoreThread(thread);
    }

    const qx_reading& At(std::size_t index) const {
        Check(m_readers[index].result);
        return *m_readers[index].reading;
    }

private:
    struct Used {
        qx_reader* handle;
        const qx_reading* reading;
        qx_result result;
    };

    void Free() noexcept {
        for (const Used& used : m_readers)
            qx_reader_free(used.handle);
    }

    std::vector<Used> m_readers;
};

/// Python's exception, taken away.
class Raised {
public:
    Raised() {
        PyObject* type = nullptr;
        PyObject* error = nullptr;
        PyObject* traceback = nullptr;
        PyErr_Fetch(&type, &error, &traceback);
        PyErr_NormalizeException(&type, &error, &traceback);
        m_type = Ref(type);
        m_error = Ref(error);
        m_traceback = Ref(traceback);
    }

    const Ref& Error() const noexcept { return m_error; }
    [[noreturn]] void Throw() {
        PyErr_Restore(m_type.Release(), m_error.Release(), m_traceback.Release());
        throw PythonError();
    }

private:
    Ref m_type;
    Ref m_error;
    Ref m_traceback;
};

/// What is read, or the PduError that says why it is not.
Ref SourceOrError(const State& state, PyObject* pdu) {
    try {
        return SourceOf(state, pdu);
    } catch (const PythonError&) {
        if (PyErr_ExceptionMatches(state.pduError) == 0)
            throw;
    }
    return Raised().Error();
}

bool IsSource(const Ref& source) {
    return PyUnicode_Check(source.Get()) || PyBytes_Check(source.Get());
}

/// A message, or the PduError of what stands at `index`.
Ref ItemOf(State& state, const Ref& source, const qx_reading& reading, const qx_read_options& options,
           Py_ssize_t index) {
    Ref item = IsSource(source) ? NewMessage(state, source, options) : source;
    if (IsSource(source) && reading.fault != nullptr)
        item = ErrorOf(state, item, reading);
    if (reinterpret_cast<PyObject*>(Py_TYPE(item.Get())) == state.messageType)
        for (const std::size_t attribute : {c_text, c_address, c_time})
            Attributed(state, item.Get(), attribute, reading);
    else
        Done(PyObject_SetAttrString(item.Get(), "index", Integer(static_cast<std::uint64_t>(index)).Get()));
    return item;
}

/// Appends the messages, or errors, of a batch.
void Append(State& state, const Ref& list, const std::vector<Ref>& sources, const Batch& batch,
            const qx_read_options& options, bool returnsErrors) {
    for (std::size_t i = 0; i < sources.size(); ++i) {
        const Ref item = ItemOf(state, sources[i], batch.At(i), options, PyList_Size(list.Get()));
        if (!returnsErrors && reinterpret_cast<PyObject*>(Py_TYPE(item.Get())) != state.messageType)
            RaisePduError(state, item);
        Done(PyList_Append(list.Get(), item.Get()));
    }
}

Ref Restored(PyObject* module, const Arguments& arguments) {
    const State& state = StateOf(module);
    return NewMessage(state, SourceOf(state, arguments.First()), OptionsOf(arguments));
}

void RefuseMoreThan(const State& state, Py_ssize_t size, Py_ssize_t most, const char* what) {
    if (size > most)
        RaisePduError(state, PduErrorOf(state, Made(PyUnicode_FromFormat("%zd %s are no PDU", size, what)),
                                        {{"code", Made(PyUnicode_FromString("too-long"))}}));
}

/// Surrogates have no UTF-8; what stands for them is no digit either.
Ref DigitsGiven(const State& state, PyObject* text) {
    RefuseMoreThan(state, PyUnicode_GetLength(text), 2 * c_mostOctets, "characters");
    Ref digits = Made(PyUnicode_FromObject(text));
    if (PyUnicode_AsUTF8AndSize(digits.Get(), nullptr) != nullptr)
        return digits;
    if (PyErr_ExceptionMatches(PyExc_UnicodeEncodeError) == 0)
        throw PythonError();
    PyErr_Clear();
    const Ref replaced = Made(PyUnicode_AsEncodedString(digits.Get(), "utf-8", "replace"));
    return Made(PyUnicode_FromEncodedObject(replaced.Get(), "utf-8", "strict"));
}

PyGetSetDef* Properties() {
    static std::array<PyGetSetDef, c_attributeCount + 2> properties{};
    for (std::size_t i = 0; i < c_attributeCount; ++i)
        properties[i] = {c_attributes[i].name, Get, nullptr, c_attributes[i].doc,
                         const_cast<Attribute*>(&c_attributes[i])};
    properties[c_attributeCount] = {"octets", GetOctets, nullptr, "The octets that were read.", nullptr};
    return properties.data();
}

PyMethodDef c_methods[] = {
    {"__reduce__", Reduce, METH_NOARGS, "For pickle: a Message is kept as its octets."},
    {"__copy__", Same, METH_NOARGS, "The same: it cannot change."},
    {"__deepcopy__", Same, METH_O, "The same: it cannot change."},
    {nullptr, nullptr, 0, nullptr},
};

} // namespace

bool Has(const qx_reading& reading, std::uint8_t field) {
    return (reading.fault == nullptr || reading.fault->field != field) &&
           std::any_of(reading.places, reading.places + reading.place_count,
                       [&](const qx_place* place) { return place->field == field; });
}

Lease::Lease(State& state, const PyObject* owner) : m_state(state) {
    const auto end = state.readers.begin() + static_cast<std::ptrdiff_t>(state.readerCount);
    const auto found =
        std::find_if(state.readers.begin(), end, [&](const Reader& reader) { return reader.owner == owner; });
    if (state.readerCount == 0) {
        m_reader.handle = qx_reader_new();
        if (m_reader.handle == nullptr)
            throw std::bad_alloc();
        return;
    }
    m_reader = found != end ? *found : *(end - 1);
    if (found != end)
        *found = *(end - 1);
    --state.readerCount;
}

Lease::~Lease() {
    if (IsEndedByAnother() || m_state.readerCount == m_state.readers.size())
        qx_reader_free(m_reader.handle);
    else
        m_state.readers[m_state.readerCount++] = m_reader;
}

Reading::Reading(State& state, PyObject* message) : m_message(Shared(message)), m_reader(state, message) {
    if (m_reader->owner == message)
        return;
    m_reader->owner = nullptr; // until it has been read
    const Call call(MessageOf(message).source);
    Check(call.Read(m_reader->handle, MessageOf(message).options, m_reader->reading));
    m_reader->owner = message;
}

CellReading::CellReading(State& state, PyObject* source, std::uint8_t format)
    : m_source(Shared(source)), m_reader(state, nullptr) {
    m_reader->owner = nullptr; // what it had read is gone
    const Call call(source);
    Check(call.ReadCell(m_reader->handle, format, m_reading));
}

Ref SourceOf(const State& state, PyObject* pdu) {
    if (PyUnicode_Check(pdu))
        return DigitsGiven(state, pdu);
    const char* const what = "a PDU, where it is no str of hexadecimal digits,";
    if (!PyObject_CheckBuffer(pdu))
        return Bytes(pdu, what);
    Py_buffer buffer;
    Done(PyObject_GetBuffer(pdu, &buffer, PyBUF_SIMPLE));
    const Py_ssize_t octets = buffer.len;
    PyBuffer_Release(&buffer);
    RefuseMoreThan(state, octets, c_mostOctets, "octets");
    return Bytes(pdu, what);
}

Ref OctetsOfSource(const State& state, PyObject* source) {
    if (PyBytes_Check(source))
        return Shared(source);
    const std::string_view digits = DigitsOf(source);
    const Ref text = Made(PyUnicode_FromStringAndSize(digits.data(), static_cast<Py_ssize_t>(digits.size())));
    return Made(PyObject_CallFunctionObjArgs(state.bytesFromHex, text.Get(), nullptr));
}

PyObject* MessageGiven(const State& state, PyObject* object, const char* what) {
    if (reinterpret_cast<PyObject*>(Py_TYPE(object)) != state.messageType)
        RaiseWrongType(what, "a Message", object);
    return object;
}

PyObject* Decode(PyObject* module, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept {
    return Guarded([&] {
        State& state = StateOf(module);
        const Arguments arguments(c_decode, values, count, keywords);
        Ref message = NewMessage(state, SourceOf(state, arguments.First()), OptionsOf(arguments));
        const Reading reading(state, message.Get());
        if (reading.Get().fault != nullptr)
            RaisePduError(state, ErrorOf(state, message, reading.Get()));
        return message;
    });
}

PyObject* DecodeMany(PyObject* module, PyObject* const* values, Py_ssize_t count,
                     PyObject* keywords) noexcept {
    return Guarded([&] {
        State& state = StateOf(module);
        const Arguments arguments(c_decodeMany, values, count, keywords);
        const qx_read_options options = OptionsOf(arguments);
        const bool returnsErrors = arguments.IsSet("return_errors");
        if (PyUnicode_Check(arguments.First()) || PyBytes_Check(arguments.First()))
            RaiseWrongType("what decode_many() reads", "a list of PDUs", arguments.First());
        const Ref pdus = Made(PySequence_List(arguments.First()));
        const auto size = static_cast<std::size_t>(PyList_Size(pdus.Get()));
        Batch batch(std::min(size, Batch::c_most));
        Ref list = Made(PyList_New(0));
        for (std::size_t done = 0; done < size;) {
            std::vector<Ref> sources;
            std::vector<Call> calls;
            std::optional<Raised> raised; // after those before it have been read, one of which may be a fault
            for (; done < size && sources.size() < Batch::c_most; ++done) {
                try {
                    sources.push_back(
                        SourceOrError(state, PyList_GetItem(pdus.Get(), static_cast<Py_ssize_t>(done))));
                } catch (const PythonError&) {
                    raised.emplace();
                    break;
                }
                calls.emplace_back(IsSource(sources.back()) ? sources.back().Get() : nullptr);
            }
            batch.Read(calls, options);
            Append(state, list, sources, batch, options, returnsErrors);
            if (raised)
                raised->Throw();
            Done(PyErr_CheckSignals());
        }
        return list;
    });
}

PyObject* Restore(PyObject* module, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept {
    return Guarded([&] { return Restored(module, Arguments(c_restore, values, count, keywords)); });
}

void AddMessage(PyObject* module, State& state) {
    static PyMemberDef members[] = QXPDU_WEAKLY(Message);
    static PyType_Slot slots[] = {
        {Py_tp_doc,
         const_cast<char*>("What a PDU says, as decode() gives it. What its type does not have is None. It "
                           "cannot be changed, and is equal to a message of the same octets, read alike.")},
        {Py_tp_dealloc, reinterpret_cast<void*>(Deallocate)},
        {Py_tp_repr, reinterpret_cast<void*>(Represent)},
        {Py_tp_richcompare, reinterpret_cast<void*>(Compare)},
        {Py_tp_hash, reinterpret_cast<void*>(Hash)},
        {Py_tp_methods, c_methods},
        {Py_tp_getset, Properties()},
        {Py_tp_members, members},
        {0, nullptr},
    };
    state.messageType = AddType(module, "qxpdu.Message", sizeof(Message), false, slots);
}

void ForgetReaders(State& state) noexcept {
    while (state.readerCount > 0)
        qx_reader_free(state.readers[--state.readerCount].handle);
}

} // namespace qxpdu
