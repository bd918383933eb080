#include "Core.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstring>

namespace qxpdu {
namespace {

/// The thread in which the interpreter ends; 0 before.
std::atomic<unsigned long> g_ender = 0;

PyObject* NoteEnd(PyObject*, PyObject*) noexcept {
    g_ender = PyThread_get_thread_ident();
    Py_RETURN_NONE;
}

} // namespace

bool IsEndedByAnother() noexcept {
    const unsigned long ender = g_ender.load(std::memory_order_relaxed);
    return ender != 0 && ender != PyThread_get_thread_ident();
}

void Park() noexcept {
    for (;;)
        pause();
}

void WatchEnd() {
    constexpr std::int64_t c_main = 0; // with another interpreter end its own threads alone
    if (PyInterpreterState_GetID(PyInterpreterState_Get()) != c_main)
        return;
    static PyMethodDef end = {"_note_end", NoteEnd, METH_NOARGS, nullptr};
    g_ender = 0;
    const Ref atexit = Made(PyImport_ImportModule("atexit"));
    const Ref note = Made(PyCFunction_New(&end, nullptr));
    Made(PyObject_CallMethod(atexit.Get(), "register", "O", note.Get()));
}

void Check(qx_result result) {
    if (result == QX_NO_MEMORY)
        throw std::bad_alloc();
    if (result == QX_ARGUMENT)
        Raise(PyExc_ValueError, "%s", qx_result_text(result));
}

PyObject* AddType(PyObject* module, const char* name, std::size_t size, bool isCalled, PyType_Slot* slots) {
    const unsigned int called = isCalled ? 0U : Py_TPFLAGS_DISALLOW_INSTANTIATION;
    const auto flags = static_cast<unsigned int>(Py_TPFLAGS_DEFAULT | Py_TPFLAGS_IMMUTABLETYPE | called);
    PyType_Spec type = {name, static_cast<int>(size), 0, flags, slots};
    Ref made = Made(PyType_FromModuleAndSpec(module, &type, nullptr));
    Done(PyModule_AddType(module, reinterpret_cast<PyTypeObject*>(made.Get())));
    return made.Release();
}

Arguments::Arguments(const Signature& signature, PyObject* const* values, Py_ssize_t count,
                     PyObject* keywords)
    : m_signature(signature) {
    const auto given = static_cast<std::size_t>(count);
    if (given > signature.positional)
        Raise(PyExc_TypeError, "%s() takes %zu positional arguments, and %zu were given", signature.function,
              signature.positional, given);
    std::copy_n(values, given, m_values.begin());
    const Py_ssize_t named = keywords != nullptr ? Done(static_cast<int>(PyTuple_Size(keywords))) : 0;
    for (Py_ssize_t i = 0; i < named; ++i) {
        PyObject* const name = PyTuple_GetItem(keywords, i);
        PyObject*& value = m_values[IndexOf(name)];
        if (value != nullptr)
            Raise(PyExc_TypeError, "%s() got two values for %R", signature.function, name);
        value = values[count + i];
    }
    std::replace(m_values.begin(), m_values.end(), Py_Ellipsis, static_cast<PyObject*>(nullptr));
    for (std::size_t i = 0; i < signature.required; ++i)
        if (m_values[i] == nullptr)
            Raise(PyExc_TypeError, "%s() needs '%s'", signature.function, signature.names.begin()[i]);
}

std::size_t Arguments::IndexOf(PyObject* name) const {
    for (std::size_t i = 0; i < m_signature.names.size(); ++i)
        if (PyUnicode_CompareWithASCIIString(name, m_signature.names.begin()[i]) == 0)
            return i;
    Raise(PyExc_TypeError, "%s() has no argument %R", m_signature.function, name);
}

PyObject* Arguments::Given(const char* name) const {
    const auto found = std::find_if(m_signature.names.begin(), m_signature.names.end(),
                                    [&](const char* known) { return std::strcmp(known, name) == 0; });
    return found != m_signature.names.end()
               ? m_values[static_cast<std::size_t>(found - m_signature.names.begin())]
               : nullptr;
}

long long Integer(PyObject* object, long long least, long long most, const char* what) {
    if (PyIndex_Check(object) == 0)
        RaiseWrongType(what, "an int", object);
    const Ref index = Made(PyNumber_Index(object));
    int overflow = 0;
    const long long value = PyLong_AsLongLongAndOverflow(index.Get(), &overflow);
    if (value == -1 && overflow == 0 && PyErr_Occurred() != nullptr)
        throw PythonError();
    if (overflow != 0)
        Raise(PyExc_ValueError, "%s is %lld to %lld", what, least, most);
    if (value < least || value > most)
        Raise(PyExc_ValueError, "%s is %lld to %lld, not %lld", what, least, most, value);
    return value;
}

qx_optional_octet OptionalGiven(PyObject* object, const char* what, long long most) {
    if (object == nullptr || object == Py_None)
        return {};
    return {true, Number<std::uint8_t>(object, what, most)};
}

bool Flag(PyObject* object, const char* what, bool otherwise) {
    if (object == nullptr || object == Py_None)
        return otherwise;
    if (PyBool_Check(object) == 0)
        RaiseWrongType(what, "True or False", object);
    return object == Py_True;
}

bool Arguments::IsSet(const char* name, bool otherwise) const {
    return Flag(Told(name), name, otherwise);
}

qx_text Utf8(PyObject* object, const char* what) {
    if (!PyUnicode_Check(object))
        RaiseWrongType(what, "a str", object);
    Py_ssize_t size = 0;
    const char* const data = PyUnicode_AsUTF8AndSize(object, &size);
    if (data == nullptr)
        throw PythonError();
    return {data, static_cast<std::size_t>(size)};
}

Ref Bytes(PyObject* object, const char* what) {
    if (PyBytes_CheckExact(object))
        return Shared(object);
    if (!PyObject_CheckBuffer(object))
        RaiseWrongType(what, "bytes-like", object);
    Py_buffer buffer;
    Done(PyObject_GetBuffer(object, &buffer, PyBUF_SIMPLE));
    Ref bytes(PyBytes_FromStringAndSize(static_cast<const char*>(buffer.buf), buffer.len));
    PyBuffer_Release(&buffer);
    return Made(bytes.Release());
}

qx_octets OctetsOf(PyObject* bytes) {
    return {reinterpret_cast<const std::uint8_t*>(PyBytes_AsString(bytes)),
            static_cast<std::size_t>(PyBytes_Size(bytes))};
}

void RaiseWrongType(const char* what, const char* wanted, PyObject* object) {
    const Ref name = Made(PyType_GetName(Py_TYPE(object)));
    const std::string_view text = View(Utf8(name.Get(), "a name"));
    const std::string_view known = wanted;
    // A package that is loaded twice has its classes twice.
    const bool isNamesake = known.substr(known.size() - std::min(known.size(), text.size())) == text;
    Raise(PyExc_TypeError, "%s is %s, not %s%U", what, wanted, isNamesake ? "another class " : "",
          name.Get());
}

PyObject* Instance(const State& state, PyObject* object, RecordType type, const char* what) {
    PyObject* const wanted = state.records[static_cast<std::size_t>(type)].type;
    if (Done(PyObject_IsInstance(object, wanted)) == 0) {
        const Ref name = Made(PyType_GetName(reinterpret_cast<PyTypeObject*>(wanted)));
        const Ref utf8 = Made(PyUnicode_AsUTF8String(name.Get()));
        RaiseWrongType(what, PyBytes_AsString(utf8.Get()), object);
    }
    // A class of the caller's may have made it shorter.
    if (PyTuple_Size(object) != state.records[static_cast<std::size_t>(type)].members)
        Raise(PyExc_TypeError, "%s lacks members", what);
    return object;
}

namespace {

long long MemberOf(PyObject* object, const char* name, long long least, long long most) {
    const Ref value = Made(PyObject_GetAttrString(object, name));
    return Integer(value.Get(), least, most, name);
}

/// A timedelta in microseconds, which fit.
long long MicrosecondsOf(const State& state, PyObject* object, const char* what) {
    if (Done(PyObject_IsInstance(object, state.timedelta)) == 0)
        RaiseWrongType(what, "a timedelta", object);
    constexpr long long c_mostDays = 1000000;
    constexpr long long c_second = 1000000;
    const long long seconds =
        MemberOf(object, "days", -c_mostDays, c_mostDays) * 86400 + MemberOf(object, "seconds", 0, 86399);
    return seconds * c_second + MemberOf(object, "microseconds", 0, c_second - 1);
}

} // namespace

qx_timestamp TimestampOf(const State& state, PyObject* object) {
    if (Done(PyObject_IsInstance(object, state.datetime)) == 0)
        RaiseWrongType("a time", "a datetime", object);
    const Ref offset = Made(PyObject_CallMethod(object, "utcoffset", nullptr));
    if (offset.Get() == Py_None)
        Raise(PyExc_ValueError, "a time needs its zone: %R has none", object);
    constexpr long long c_quarter = 900000000;
    const long long zone = MicrosecondsOf(state, offset.Get(), "the zone");
    if (zone % c_quarter != 0)
        Raise(PyExc_ValueError, "a zone is whole quarters of an hour: %R", offset.Get());
    const auto part = [&](const char* name) { return static_cast<int>(MemberOf(object, name, 0, 9999)); };
    qx_timestamp timestamp{};
    timestamp.size = sizeof timestamp;
    const qx_result result =
        qx_make_timestamp(part("year"), part("month"), part("day"), part("hour"), part("minute"),
                          part("second"), static_cast<int>(zone / c_quarter), &timestamp);
    if (result == QX_FAULT)
        Raise(PyExc_ValueError, "a time is of the years 2000 to 2099, less than 20 hours from UTC: %R",
              object);
    Check(result);
    return timestamp;
}

std::uint32_t SecondsOf(const State& state, PyObject* object) {
    if (Done(PyObject_IsInstance(object, state.timedelta)) == 0)
        RaiseWrongType("a period", "a timedelta", object);
    const long long days = MemberOf(object, "days", INT32_MIN, INT32_MAX);
    if (days < 0 || days > INT16_MAX)
        RaiseNoValidity(object);
    const bool hasRest = MemberOf(object, "microseconds", 0, 999999) != 0;
    return static_cast<std::uint32_t>(days * 86400 + MemberOf(object, "seconds", 0, 86399) +
                                      (hasRest ? 1 : 0));
}

Ref Text(qx_text text) {
    return Made(PyUnicode_FromStringAndSize(text.data, static_cast<Py_ssize_t>(text.size)));
}

Ref TextOrNone(qx_text text) {
    return text.size != 0 ? Text(text) : None();
}

Ref Octets(qx_octets octets) {
    return Made(PyBytes_FromStringAndSize(reinterpret_cast<const char*>(octets.data),
                                          static_cast<Py_ssize_t>(octets.size)));
}

Ref Member(const State& state, EnumType type, std::uint8_t value) {
    PyObject* const members = state.enums[static_cast<std::size_t>(type)];
    return value < PyTuple_Size(members) ? Shared(PyTuple_GetItem(members, value))
                                         : Integer(std::uint64_t{value});
}

Ref FieldName(const State& state, std::uint8_t field) {
    return field < state.fields.size() ? Shared(state.fields[field]) : None();
}

Ref RecordOf(const State& state, RecordType type, std::initializer_list<Ref> members) {
    const State::Record& record = state.records[static_cast<std::size_t>(type)];
    const Ref values = Tuple(members.size(), [&](std::size_t i) { return members.begin()[i]; });
    if (PyTuple_Size(values.Get()) != record.members)
        Raise(PyExc_SystemError, "qxpdu._records and qxpdu._core are of two versions: %R", record.type);
    const Ref arguments = Made(PyTuple_Pack(1, values.Get()));
    // A named tuple's own __new__ takes its members one by one, and four times as long.
    const auto make = reinterpret_cast<newfunc>(PyType_GetSlot(&PyTuple_Type, Py_tp_new));
    return Made(make(reinterpret_cast<PyTypeObject*>(record.type), arguments.Get(), nullptr));
}

std::size_t CharacterIndex::Of(std::size_t octets) noexcept {
    if (octets < m_octets)
        m_octets = m_characters = 0;
    for (; m_octets < std::min(octets, m_text.size()); ++m_octets)
        m_characters += (m_text[m_octets] & 0xC0) != 0x80 ? 1 : 0;
    return m_characters;
}

Ref PduErrorOf(const State& state, const Ref& message, std::initializer_list<ErrorMember> members) {
    Ref error = Made(PyObject_CallFunctionObjArgs(state.pduError, message.Get(), nullptr));
    for (const ErrorMember& member : members)
        Done(PyObject_SetAttrString(error.Get(), member.name, member.value.Get()));
    return error;
}

Ref PduErrorOf(State& state, const qx_fault& fault, const Ref& partial) {
    const bool hasPlace = fault.code == QX_FAULT_FIELD_CUT || fault.code == QX_FAULT_RESERVED_TYPE;
    const Ref message = hasPlace ? Made(PyUnicode_FromFormat("octet %u: %s", fault.octet, fault.meaning.data))
                                 : Text(fault.meaning);
    return PduErrorOf(state, message,
                      {{"code", Text(fault.name)},
                       {"field", FieldName(state, fault.field)},
                       {"octet", Integer(std::uint64_t{fault.octet})},
                       {"expected", Integer(std::uint64_t{fault.expected})},
                       {"found", Integer(std::uint64_t{fault.found})},
                       {"partial", partial}});
}

void RaisePduError(const State& state, const Ref& error) {
    PyErr_SetObject(state.pduError, error.Get());
    throw PythonError();
}

void RaiseNotHeld(const State& state, qx_text text, std::size_t offset, std::uint32_t character,
                  const Ref& code) {
    const std::size_t index = CharacterIndex(text).Of(offset);
    const Ref message =
        Made(PyUnicode_FromFormat("nothing holds %R at %zu", CharacterOf(character).Get(), index));
    RaisePduError(state,
                  PduErrorOf(state, message, {{"code", code}, {"index", Integer(std::uint64_t{index})}}));
}

} // namespace qxpdu
