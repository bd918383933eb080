// What joins the parts of messages. What was added is handed back as the same objects.
#include <cmath>

#include "Core.h"

namespace qxpdu {
namespace {

struct Joiner {
    PyObject_HEAD qx_joiner* handle;
    PyObject* weakly;             ///< those who refer to it so
    PyObject* messages;           ///< those that were added and not handed back, by their tags
    PyObject* made;               ///< list of Joined that no call has handed back yet
    const qx_joined_list* unmade; ///< what the library has handed back that is not among them; null for none
    std::uint64_t tags;           ///< that have been given
    bool isUsed;                  ///< by a call that has not ended
};

using JoinerUse = Use<Joiner>;

/// The message of a tag, or None. The dictionary's own reference.
PyObject* MessageOf(PyObject* messages, const Ref& tag) {
    PyObject* const found = PyDict_GetItemWithError(messages, tag.Get());
    if (found == nullptr && PyErr_Occurred() != nullptr)
        throw PythonError();
    return found != nullptr ? found : Py_None;
}

/// `handedBack` takes the tags of its parts.
Ref JoinedOf(const State& state, PyObject* messages, const qx_joined& joined, std::vector<Ref>& handedBack) {
    const Ref before =
        joined.outcome == QX_OUTCOME_DUPLICATE ? Shared(MessageOf(messages, Integer(joined.before))) : None();
    const Ref parts = Tuple(joined.part_count, [&](std::size_t i) {
        const qx_joined_part& part = *joined.parts[i];
        handedBack.push_back(Integer(part.tag));
        return RecordOf(state, RecordType::Part,
                        {Integer(part.number), Shared(MessageOf(messages, handedBack.back()))});
    });
    CharacterIndex characters(joined.text);
    const Ref gaps = Tuple(joined.gap_count, [&](std::size_t i) {
        const qx_joined_gap& gap = *joined.gaps[i];
        return RecordOf(state, RecordType::Gap,
                        {Integer(gap.first), Integer(gap.last), characters.At(gap.text_offset),
                         Integer(std::uint64_t{gap.data_offset})});
    });
    return RecordOf(state, RecordType::Joined,
                    {Text(joined.text), Octets(joined.data), Member(state, EnumType::Outcome, joined.outcome),
                     Integer(joined.total), parts, gaps, before});
}

/// Makes what the library has handed back: all of it, or nothing where memory fails.
void MakeAll(const State& state, const JoinerUse& joiner) {
    if (joiner->unmade == nullptr)
        return;
    std::vector<Ref> handedBack;
    const Ref all = Made(PyList_New(0));
    for (std::size_t i = 0; i < joiner->unmade->message_count; ++i)
        Done(PyList_Append(
            all.Get(), JoinedOf(state, joiner->messages, *joiner->unmade->messages[i], handedBack).Get()));
    const Py_ssize_t end = PyList_Size(joiner->made);
    Done(PyList_SetSlice(joiner->made, end, end, all.Get()));
    joiner->unmade = nullptr;
    for (const Ref& tag : handedBack)
        if (PyDict_DelItem(joiner->messages, tag.Get()) < 0)
            PyErr_Clear(); // it was never there
}

/// What `call(&list)` hands back, and before it what a call that failed did not.
template <class Call>
Ref HandedBack(const State& state, const JoinerUse& joiner, Call call) {
    MakeAll(state, joiner);
    Ref next = Made(PyList_New(0));
    const qx_joined_list* list = nullptr;
    Check(call(&list));
    joiner->unmade = list;
    MakeAll(state, joiner);
    return Ref(std::exchange(joiner->made, next.Release()));
}

/// Seconds of the caller's clock, whole ones; of the system's where nothing is told.
std::int64_t SecondsOfClock(const State& state, PyObject* now) {
    const Ref told = now != nullptr ? Shared(now) : Made(PyObject_CallNoArgs(state.monotonic));
    const double seconds = PyFloat_AsDouble(told.Get());
    if (seconds == -1.0 && PyErr_Occurred() != nullptr)
        throw PythonError();
    constexpr double c_most = 9e15; // below it a double counts whole seconds
    if (!(std::fabs(seconds) <= c_most))
        Raise(PyExc_ValueError, "%R is no time", told.Get());
    return static_cast<std::int64_t>(std::floor(seconds));
}

std::int64_t Limit(long long given, const char* what) {
    if (given < 0)
        Raise(PyExc_ValueError, "%s are 0 or more, not %lld", what, given);
    return given;
}

PyObject* NewJoiner(PyTypeObject* type, PyObject* arguments, PyObject* keywords) noexcept {
    return Guarded([&] {
        static const char* c_names[] = {"messages", "octets", "seconds", nullptr};
        long long messages = 0;
        long long octets = 0;
        long long seconds = 0;
        if (PyArg_ParseTupleAndKeywords(arguments, keywords, "|$LLL:Joiner", const_cast<char**>(c_names),
                                        &messages, &octets, &seconds) == 0)
            throw PythonError();
        qx_join_limits limits{};
        limits.size = sizeof limits;
        limits.messages = static_cast<std::size_t>(Limit(messages, "messages"));
        limits.octets = static_cast<std::size_t>(Limit(octets, "octets"));
        limits.seconds = Limit(seconds, "seconds");
        Ref object = Allocated(type);
        auto& joiner = *reinterpret_cast<Joiner*>(object.Get());
        joiner.messages = Made(PyDict_New()).Release();
        joiner.made = Made(PyList_New(0)).Release();
        joiner.handle = qx_joiner_new(&limits);
        if (joiner.handle == nullptr)
            throw std::bad_alloc();
        return object;
    });
}

void FreeJoiner(PyObject* object) noexcept {
    const auto& joiner = *reinterpret_cast<Joiner*>(object);
    EndWeakly(object, joiner.weakly);
    qx_joiner_free(joiner.handle);
    Py_XDECREF(joiner.messages);
    Py_XDECREF(joiner.made);
    Free(object);
}

PyObject* Add(PyObject* object, PyTypeObject*, PyObject* const* values, Py_ssize_t count,
              PyObject* keywords) noexcept {
    static const Arguments::Signature c_signature = {"add", {"message", "now"}, 2, 1};
    return Guarded([&] {
        State& state = StateOfObject(object);
        const JoinerUse joiner(object);
        const Arguments arguments(c_signature, values, count, keywords);
        PyObject* const message = MessageGiven(state, arguments.First(), "what is joined");
        const std::int64_t now = SecondsOfClock(state, arguments[1]);
        const Reading reading(state, message);
        return HandedBack(state, joiner, [&](const qx_joined_list** list) {
            const Ref tag = Integer(++joiner->tags);
            Done(PyDict_SetItem(joiner->messages, tag.Get(), message));
            const qx_result result = qx_joiner_add(joiner->handle, reading.Handle(), now, joiner->tags, list);
            if (result == QX_ARGUMENT) // it was not taken in
                Done(PyDict_DelItem(joiner->messages, tag.Get()));
            return result;
        });
    });
}

PyObject* Expire(PyObject* object, PyTypeObject*, PyObject* const* values, Py_ssize_t count,
                 PyObject* keywords) noexcept {
    static const Arguments::Signature c_signature = {"expire", {"now"}, 1, 0};
    return Guarded([&] {
        const State& state = StateOfObject(object);
        const JoinerUse joiner(object);
        const Arguments arguments(c_signature, values, count, keywords);
        const std::int64_t now = SecondsOfClock(state, arguments[0]);
        return HandedBack(state, joiner, [&](const qx_joined_list** list) {
            return qx_joiner_expire(joiner->handle, now, list);
        });
    });
}

PyObject* Finish(PyObject* object, PyObject*) noexcept {
    return Guarded([&] {
        const State& state = StateOfObject(object);
        const JoinerUse joiner(object);
        return HandedBack(state, joiner, [&](const qx_joined_list** list) {
            return qx_joiner_finish(joiner->handle, list);
        });
    });
}

Py_ssize_t Length(PyObject* object) noexcept {
    return PyDict_Size(reinterpret_cast<Joiner*>(object)->messages);
}

PyMethodDef c_methods[] = {
    {"add", Called(Add), METH_METHOD | METH_FASTCALL | METH_KEYWORDS,
     "add($self, /, message, now=None)\n--\n\n"
     "Takes a Message in, and gives a list of Joined: the message that it completes, or itself where it is "
     "no part,\n"
     "and what is given up. now are seconds of any clock; time.monotonic() where they are not told."},
    {"expire", Called(Expire), METH_METHOD | METH_FASTCALL | METH_KEYWORDS,
     "expire($self, /, now=None)\n--\n\nGives up what has waited too long: a list of Joined."},
    {"finish", Finish, METH_NOARGS,
     "finish($self, /)\n--\n\nGives up everything, the oldest first: a list of Joined."},
    {nullptr, nullptr, 0, nullptr},
};

} // namespace

void AddJoiner(PyObject* module, State& state) {
    static PyMemberDef members[] = QXPDU_WEAKLY(Joiner);
    static PyType_Slot slots[] = {
        {Py_tp_doc,
         const_cast<char*>(
             "Joiner(*, messages=0, octets=0, seconds=0)\n--\n\n"
             "Joins the parts of long messages. What is added is handed back once: at once where it is "
             "no\npart, with its message when that is complete or given up. len() is how many wait.\n\n"
             "It keeps parts of so many messages (1024 for 0) and so many octets (1048576) for so many\n"
             "seconds (86400) at most. One thread at a time uses it: another one gets a RuntimeError.")},
        {Py_tp_new, reinterpret_cast<void*>(NewJoiner)},
        {Py_tp_dealloc, reinterpret_cast<void*>(FreeJoiner)},
        {Py_tp_methods, c_methods},
        {Py_tp_members, members},
        {Py_sq_length, reinterpret_cast<void*>(Length)},
        {0, nullptr},
    };
    state.joinerType = AddType(module, "qxpdu.Joiner", sizeof(Joiner), true, slots);
}

} // namespace qxpdu
