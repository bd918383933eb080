// What all of the module needs: references that are given back by themselves, errors, arguments, and the
// types that results are made of. A call of Python's that fails throws PythonError, with Python's exception
// set; every function that Python calls is Guarded().
#ifndef QXPDU_CORE_H
#define QXPDU_CORE_H

#define PY_SSIZE_T_CLEAN
#include <Python.h>
#include <cxxabi.h>
#include <structmember.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

#include "Messages/qx_messages.h"

namespace qxpdu {

/// Python's exception is set.
struct PythonError {};

/// Whether the interpreter ends, and not in this thread: then this one has not its lock, or loses it for good
/// soon, and what belongs to Python stays as it is.
bool IsEndedByAnother() noexcept;

/// Stays here for good. An interpreter that ends has threads that ask for its lock unwind, through frames
/// that are no exceptions' to pass.
[[noreturn]] void Park() noexcept;

inline void GiveUp(PyObject* object) noexcept {
    if (object == nullptr || IsEndedByAnother())
        return;
    try {
        Py_DECREF(object);
    } catch (const abi::__forced_unwind&) {
        Park();
    }
}

/// A reference that is given back at the end.
class Ref {
public:
    Ref() noexcept = default;
    explicit Ref(PyObject* owned) noexcept : m_object(owned) {}
    Ref(const Ref& other) noexcept : m_object(other.m_object) { Py_XINCREF(m_object); }
    Ref(Ref&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    Ref& operator=(Ref other) noexcept {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~Ref() { GiveUp(m_object); }

    PyObject* Get() const noexcept { return m_object; }
    PyObject* Release() noexcept { return std::exchange(m_object, nullptr); }

private:
    PyObject* m_object = nullptr;
};

/// What a call of Python's has made.
inline Ref Made(PyObject* owned) {
    if (owned == nullptr)
        throw PythonError();
    return Ref(owned);
}

/// One more reference to what belongs to others.
inline Ref Shared(PyObject* borrowed) noexcept {
    Py_INCREF(borrowed);
    return Ref(borrowed);
}

inline Ref None() noexcept {
    return Shared(Py_None);
}

/// A call of Python's that gives a negative number where it fails.
inline int Done(int result) {
    if (result < 0)
        throw PythonError();
    return result;
}

/// Throws `exception` with the text that PyErr_Format() makes.
template <class... Values>
[[noreturn]] void Raise(PyObject* exception, const char* format, Values... values) {
    PyErr_Format(exception, format, values...);
    throw PythonError();
}

/// Throws a TypeError: `what` is `wanted`, and the object's class is another one.
[[noreturn]] void RaiseWrongType(const char* what, const char* wanted, PyObject* object);

/// Runs what Python has called; gives `failed` where Python's exception is set.
template <class Result, class Body>
Result Guarded(Result failed, Body body) noexcept {
    try {
        return body();
    } catch (const PythonError&) {
    } catch (const std::bad_alloc&) {
        PyErr_NoMemory();
    } catch (const abi::__forced_unwind&) {
        Park();
    }
    return failed;
}

template <class Body>
PyObject* Guarded(Body body) noexcept {
    return Guarded<PyObject*>(nullptr, [&] { return body().Release(); });
}

/// Throws for what is neither done nor a fault.
void Check(qx_result result);

/// A handle of the library's.
template <class Type, void (*Free)(Type*)>
class Handle {
public:
    explicit Handle(Type* owned) : m_handle(owned) {
        if (owned == nullptr)
            throw std::bad_alloc();
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { Free(m_handle); }

    Type* Get() const noexcept { return m_handle; }

private:
    Type* m_handle;
};

/// The classes in qxpdu/_records.py, by their names there.
#define QXPDU_RECORDS(X)                                                                                     \
    X(Address)                                                                                               \
    X(CellCoding)                                                                                            \
    X(CellMessage)                                                                                           \
    X(CellReading)                                                                                           \
    X(Choice)                                                                                                \
    X(Coding)                                                                                                \
    X(Concatenation)                                                                                         \
    X(CostlyCharacter)                                                                                       \
    X(Cut)                                                                                                   \
    X(Element)                                                                                               \
    X(EtwsWarning)                                                                                           \
    X(Explanation)                                                                                           \
    X(Fault)                                                                                                 \
    X(Gap)                                                                                                   \
    X(Hyperlink)                                                                                             \
    X(Joined)                                                                                                \
    X(NearText)                                                                                              \
    X(ObjectDistribution)                                                                                    \
    X(Page)                                                                                                  \
    X(PagesTaken)                                                                                            \
    X(Part)                                                                                                  \
    X(Pdu)                                                                                                   \
    X(Place)                                                                                                 \
    X(Ports)                                                                                                 \
    X(PredefinedObject)                                                                                      \
    X(Remark)                                                                                                \
    X(Replacement)                                                                                           \
    X(SerialNumber)                                                                                          \
    X(SpecialMessageIndication)                                                                              \
    X(TextFormatting)                                                                                        \
    X(UserData)                                                                                              \
    X(Validity)                                                                                              \
    X(Waiting)                                                                                               \
    X(WrittenCell)

/// The enumerations there, whose values begin with 0 and have no gaps.
#define QXPDU_ENUMS(X)                                                                                       \
    X(Alphabet)                                                                                              \
    X(CellCodingGroup)                                                                                       \
    X(CellFormat)                                                                                            \
    X(CodingGroup)                                                                                           \
    X(Direction)                                                                                             \
    X(Language)                                                                                              \
    X(Outcome)                                                                                               \
    X(Piece)                                                                                                 \
    X(Scope)                                                                                                 \
    X(Type)                                                                                                  \
    X(TypeOfNumber)                                                                                          \
    X(ValidityFormat)                                                                                        \
    X(WaitingType)

#define QXPDU_NAME(name) name,
enum class RecordType : std::uint8_t { QXPDU_RECORDS(QXPDU_NAME) Count };
enum class EnumType : std::uint8_t { QXPDU_ENUMS(QXPDU_NAME) Count };
#undef QXPDU_NAME

/// A reader of messages, and whose PDU it has read last.
struct Reader {
    qx_reader* handle;
    const qx_reading* reading; ///< of `owner`
    const PyObject* owner;     ///< a Message that is alive, or null
};

/// What the module keeps. It begins with zeros, and ends by Clear().
struct State {
    static constexpr std::size_t c_fields = QX_FIELD_WARNING_SIGNATURE + 1;
    static constexpr int c_mostQuarters = 85;

    struct Record {
        PyObject* type;
        Py_ssize_t members;
    };

    std::array<Record, static_cast<std::size_t>(RecordType::Count)> records;
    std::array<PyObject*, static_cast<std::size_t>(EnumType::Count)> enums; ///< tuples of the members
    std::array<PyObject*, c_fields> fields;                                 ///< "TP-OA"
    std::array<PyObject*, 2 * c_mostQuarters + 1> zones; ///< as far as they have been asked for
    PyObject* messageType;
    PyObject* joinerType;
    PyObject* pageJoinerType;
    PyObject* pduError;
    PyObject* datetime;
    PyObject* timedelta;
    PyObject* timezone;
    PyObject* monotonic;
    PyObject* bytesFromHex;
    std::array<Reader, 4> readers; ///< that nobody uses; the last one was used last
    std::size_t readerCount;

    /// Calls `visit(reference)` for each.
    template <class Visit>
    void Each(Visit visit) {
        for (Record& record : records)
            visit(record.type);
        for (auto* list : {&messageType, &joinerType, &pageJoinerType, &pduError, &datetime, &timedelta,
                           &timezone, &monotonic, &bytesFromHex})
            visit(*list);
        for (PyObject*& members : enums)
            visit(members);
        for (PyObject*& field : fields)
            visit(field);
        for (PyObject*& zone : zones)
            visit(zone);
    }
};

inline State& StateOf(PyObject* module) noexcept {
    return *static_cast<State*>(PyModule_GetState(module));
}

/// Of an object of one of the module's types, which have no subtypes.
inline State& StateOfObject(PyObject* object) noexcept {
    return *static_cast<State*>(PyType_GetModuleState(Py_TYPE(object)));
}

/// Notices the end of the interpreter from now on.
void WatchEnd();

/// A function with one of the signatures that PyMethodDef's flags name.
template <class Function>
PyCFunction Called(Function function) {
    return reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(function));
}

/// The arguments of a call. Names and values: what is not given, or by `...`, is null, and None too but for
/// Given().
class Arguments {
public:
    /// The first `positional` names may be given without their names, and the first `required` have to be.
    struct Signature {
        const char* function;
        std::initializer_list<const char*> names;
        std::size_t positional;
        std::size_t required;
    };

    Arguments(const Signature& signature, PyObject* const* values, Py_ssize_t count, PyObject* keywords);

    PyObject* Given(const char* name) const;
    bool IsSet(const char* name, bool otherwise = false) const;
    PyObject* Told(const char* name) const {
        PyObject* const value = Given(name);
        return value == Py_None ? nullptr : value;
    }
    /// What is required, whatever it is.
    PyObject* First() const { return m_values[0]; }
    /// By the place of the name.
    PyObject* operator[](std::size_t index) const {
        return m_values[index] == Py_None ? nullptr : m_values[index];
    }

private:
    std::size_t IndexOf(PyObject* name) const;

    static constexpr std::size_t c_most = 40;

    const Signature& m_signature;
    std::array<PyObject*, c_most> m_values{};
};

// The module's types and their objects.

/// Of objects that can be referred to weakly: the object has a member of this name, null at first.
#define QXPDU_WEAKLY(Object)                                                                                 \
    {                                                                                                        \
        {"__weaklistoffset__", T_PYSSIZET, offsetof(Object, weakly), READONLY, nullptr}, {                   \
            nullptr, 0, 0, 0, nullptr                                                                        \
        }                                                                                                    \
    }
/// Tells those who refer to an object weakly that it ends.
inline void EndWeakly(PyObject* object, const PyObject* weakly) noexcept {
    if (weakly != nullptr)
        Guarded(0, [&] { return PyObject_ClearWeakRefs(object), 0; });
}

/// Adds a type, whose name is "qxpdu.Message": final, not to be changed and, where that is said, not called.
/// A new reference.
PyObject* AddType(PyObject* module, const char* name, std::size_t size, bool isCalled, PyType_Slot* slots);

inline Ref Allocated(PyTypeObject* type) {
    return Made(reinterpret_cast<allocfunc>(PyType_GetSlot(type, Py_tp_alloc))(type, 0));
}

inline void Free(PyObject* object) noexcept {
    PyTypeObject* const type = Py_TYPE(object);
    reinterpret_cast<freefunc>(PyType_GetSlot(type, Py_tp_free))(object);
    Py_DECREF(reinterpret_cast<PyObject*>(type));
}

/// A joiner belongs to one call at a time. A call may let other threads run in its midst.
template <class Object>
class Use {
public:
    explicit Use(PyObject* object) : m_object(*reinterpret_cast<Object*>(object)) {
        if (m_object.isUsed)
            Raise(PyExc_RuntimeError, "a call with this joiner has not ended: one thread at a time uses it");
        m_object.isUsed = true;
    }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
    ~Use() { m_object.isUsed = false; }

    Object* operator->() const noexcept { return &m_object; }

private:
    Object& m_object;
};

// What Python gives.

/// An integer from `least` to `most`; a ValueError names `what`.
long long Integer(PyObject* object, long long least, long long most, const char* what);
template <class Value>
Value Number(PyObject* object, const char* what, long long most = static_cast<Value>(-1)) {
    return static_cast<Value>(Integer(object, 0, most, what));
}
/// None or nothing is no octet.
qx_optional_octet OptionalGiven(PyObject* object, const char* what, long long most);
/// True or False; None or nothing is `otherwise`.
bool Flag(PyObject* object, const char* what, bool otherwise = false);
/// UTF-8 of a str, which keeps it.
qx_text Utf8(PyObject* object, const char* what);
/// The octets of what is bytes-like, as bytes: the same object where it is that already.
Ref Bytes(PyObject* object, const char* what);
qx_octets OctetsOf(PyObject* bytes);
inline qx_octets OctetsOf(const Ref& bytes) {
    return OctetsOf(bytes.Get());
}
/// An instance of a record type.
PyObject* Instance(const State& state, PyObject* object, RecordType type, const char* what);
/// A datetime with a zone.
qx_timestamp TimestampOf(const State& state, PyObject* object);
/// A validity's timedelta in whole seconds, rounded up.
std::uint32_t SecondsOf(const State& state, PyObject* object);

// What Python is given.

Ref Text(qx_text text);
Ref TextOrNone(qx_text text);
Ref Octets(qx_octets octets);
inline Ref Truth(bool value) {
    return Shared(value ? Py_True : Py_False);
}
inline Ref Integer(std::uint64_t value) {
    return Made(PyLong_FromUnsignedLongLong(value));
}
inline Ref Integer(qx_optional_octet octet) {
    return octet.has_value ? Integer(octet.value) : None();
}
/// A member of an enumeration; the number where it has none.
Ref Member(const State& state, EnumType type, std::uint8_t value);
Ref FieldName(const State& state, std::uint8_t field);
Ref RecordOf(const State& state, RecordType type, std::initializer_list<Ref> members);
/// A tuple of what `make(i)` makes.
template <class Make>
Ref Tuple(std::size_t count, Make make) {
    Ref tuple = Made(PyTuple_New(static_cast<Py_ssize_t>(count)));
    for (std::size_t i = 0; i < count; ++i)
        Done(PyTuple_SetItem(tuple.Get(), static_cast<Py_ssize_t>(i), make(i).Release()));
    return tuple;
}
/// A record, or None for a null pointer.
template <class Struct>
Ref Optional(State& state, const Struct* value, Ref (*make)(State&, const Struct&)) {
    return value != nullptr ? make(state, *value) : None();
}
/// A tuple of records.
template <class Struct>
Ref List(State& state, const Struct* const* items, std::size_t count, Ref (*make)(State&, const Struct&)) {
    return Tuple(count, [&](std::size_t i) { return make(state, *items[i]); });
}
inline std::string_view View(qx_text text) {
    return {text.data, text.size};
}

/// Counts the characters of a text up to a place in its octets: where Python counts what stands there. It
/// goes on from the place before, as those that are asked for ascend.
class CharacterIndex {
public:
    explicit CharacterIndex(qx_text text) : m_text(View(text)) {}

    std::size_t Of(std::size_t octets) noexcept;
    Ref At(std::size_t octets) { return Integer(std::uint64_t{Of(octets)}); }

private:
    std::string_view m_text;
    std::size_t m_octets = 0;
    std::size_t m_characters = 0;
};

Ref AddressOf(State& state, const qx_address& address);
Ref TimeOf(State& state, const qx_timestamp& timestamp); ///< None for what is no time
Ref CodingOf(State& state, const qx_coding& coding);
Ref ValidityOf(State& state, const qx_validity& validity);
Ref ConcatenationOf(State& state, const qx_concatenation& concatenation);
Ref PortsOf(State& state, const qx_ports& ports);
Ref ElementOf(State& state, const qx_element& element);
Ref UserDataOf(State& state, const qx_user_data& userData);
Ref PlaceOf(State& state, const qx_place& place);
Ref RemarkOf(State& state, const qx_remark& remark);
Ref FaultOf(State& state, const qx_fault& fault);

/// Throws a PduError. Members without a value are None.
struct ErrorMember {
    const char* name;
    Ref value;
};
/// A character, as a str.
inline Ref CharacterOf(std::uint32_t character) {
    return Made(PyUnicode_FromFormat("%c", static_cast<int>(character)));
}
/// Nothing that may be used holds the character at this octet of the text.
[[noreturn]] void RaiseNotHeld(const State& state, qx_text text, std::size_t offset, std::uint32_t character,
                               const Ref& code);
[[noreturn]] void RaisePduError(const State& state, const Ref& error);
Ref PduErrorOf(const State& state, const Ref& message, std::initializer_list<ErrorMember> members);
/// Of the fault that ended a reading.
Ref PduErrorOf(State& state, const qx_fault& fault, const Ref& partial);

// What the files of the module add to it.

void AddMessage(PyObject* module, State& state);
void AddJoiner(PyObject* module, State& state);
void AddPageJoiner(PyObject* module, State& state);
void ForgetReaders(State& state) noexcept;

/// The octets or digits that are read, as bytes or str: what cannot change.
Ref SourceOf(const State& state, PyObject* pdu);

/// The same octets as bytes.
Ref OctetsOfSource(const State& state, PyObject* source);

/// A reader that nobody else has until this ends.
class Lease {
public:
    /// The reader that has read for `owner` last, or else any.
    Lease(State& state, const PyObject* owner);
    Lease(const Lease&) = delete;
    Lease& operator=(const Lease&) = delete;
    ~Lease();

    Reader* operator->() noexcept { return &m_reader; }
    const Reader* operator->() const noexcept { return &m_reader; }

private:
    State& m_state;
    Reader m_reader{};
};

/// A message, read.
class Reading {
public:
    Reading(State& state, PyObject* message);

    const qx_reader* Handle() const noexcept { return m_reader->handle; }
    const qx_reading& Get() const noexcept { return *m_reader->reading; }

private:
    Ref m_message; ///< so that it outlives the reading
    Lease m_reader;
};

/// Whether a field is there, and whole.
bool Has(const qx_reading& reading, std::uint8_t field);

/// Octets or digits of cell broadcast, read.
class CellReading {
public:
    CellReading(State& state, PyObject* source, std::uint8_t format);

    const qx_reader* Handle() const noexcept { return m_reader->handle; }
    const qx_cell_reading& Get() const noexcept { return *m_reading; }

private:
    Ref m_source; ///< so that it outlives the reading
    Lease m_reader;
    const qx_cell_reading* m_reading = nullptr;
};

/// A Message.
PyObject* MessageGiven(const State& state, PyObject* object, const char* what);

PyObject* Decode(PyObject* module, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept;
PyObject* DecodeMany(PyObject* module, PyObject* const* values, Py_ssize_t count,
                     PyObject* keywords) noexcept;
PyObject* Restore(PyObject* module, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept;
PyObject* DecodeCell(PyObject* module, PyObject* const* values, Py_ssize_t count,
                     PyObject* keywords) noexcept;
PyObject* EncodeCell(PyObject* module, PyObject* const* values, Py_ssize_t count,
                     PyObject* keywords) noexcept;
PyObject* Encode(PyObject* module, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept;
PyObject* Choose(PyObject* module, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept;
PyObject* Explain(PyObject* module, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept;
PyObject* CutText(PyObject* module, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept;
PyObject* ReplaceNear(PyObject* module, PyObject* const* values, Py_ssize_t count,
                      PyObject* keywords) noexcept;
PyObject* MakeNumber(PyObject* module, PyObject* written) noexcept;
PyObject* MakeName(PyObject* module, PyObject* written) noexcept;
PyObject* MakeCoding(PyObject* module, PyObject* value) noexcept;
PyObject* MakeValidity(PyObject* module, PyObject* const* values, Py_ssize_t count,
                       PyObject* keywords) noexcept;
PyObject* ValidityMeaning(PyObject* module, PyObject* validity) noexcept;
extern PyMethodDef c_words[];

/// What a validity is: a record, a timedelta or a datetime.
struct GivenValidity {
    qx_validity validity;
    qx_timestamp until;
};
[[noreturn]] void RaiseNoValidity(PyObject* object);
/// TP-VP.
constexpr std::size_t OctetsOfFormat(std::uint8_t format) {
    return format == QX_VALIDITY_NONE ? 0 : format == QX_VALIDITY_RELATIVE ? 1 : 7;
}
/// A validity points to its end, so it is filled in where it stays.
void FillValidity(State& state, PyObject* object, GivenValidity& filled);

} // namespace qxpdu

#endif
