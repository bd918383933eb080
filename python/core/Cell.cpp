// Cell broadcast: pages, messages and notifications, read, joined and written.
#include "Core.h"

namespace qxpdu {
namespace {

Ref SerialOf(State& state, const qx_serial_number& serial) {
    return RecordOf(state, RecordType::SerialNumber,
                    {Integer(serial.value), Member(state, EnumType::Scope, serial.scope),
                     Integer(serial.message_code), Integer(serial.update_number),
                     Truth(serial.has_emergency_alert), Truth(serial.has_popup)});
}

Ref CellCodingOf(State& state, const qx_cell_coding& coding) {
    return RecordOf(state, RecordType::CellCoding,
                    {Integer(coding.value), Member(state, EnumType::CellCodingGroup, coding.group),
                     Member(state, EnumType::Alphabet, coding.alphabet), Integer(coding.message_class),
                     Truth(coding.is_compressed), Truth(coding.has_header), Truth(coding.is_reserved),
                     TextOrNone(coding.language)});
}

Ref PageOf(State& state, const qx_page& page) {
    return RecordOf(state, RecordType::Page,
                    {Integer(page.number), Text(page.text), Octets(page.octets), Octets(page.content),
                     List(state, page.elements, page.element_count, ElementOf), Truth(page.is_header_ignored),
                     Member(state, EnumType::Language, page.locking),
                     Member(state, EnumType::Language, page.single), TextOrNone(page.language),
                     Integer(page.text_offset), Integer(page.text_bit), Integer(page.text_units),
                     Integer(page.padding_units), Truth(page.is_cut)});
}

Ref WarningOf(State& state, const qx_etws_warning& warning) {
    return RecordOf(state, RecordType::EtwsWarning,
                    {Integer(warning.value), Integer(warning.type), Truth(warning.has_emergency_alert),
                     Truth(warning.has_popup), Optional(state, warning.time, TimeOf),
                     Octets(warning.signature)});
}

Ref CellMessageOf(State& state, const qx_cell_message& message) {
    return RecordOf(
        state, RecordType::CellMessage,
        {Text(message.text), Truth(message.is_given_up), Optional(state, message.serial, SerialOf),
         Integer(message.message_identifier), Optional(state, message.coding, CellCodingOf),
         Integer(message.total), List(state, message.pages, message.page_count, PageOf),
         Tuple(message.missing.size, [&](std::size_t i) { return Integer(message.missing.data[i]); })});
}

Ref TakenOf(State& state, qx_result result, const qx_pages_taken* taken) {
    Check(result);
    return RecordOf(
        state, RecordType::PagesTaken,
        {Truth(taken->is_duplicate), List(state, taken->messages, taken->message_count, CellMessageOf)});
}

/// The octets of a reading: those that stand in its places.
Ref CellReadingOf(State& state, const qx_cell_reading& reading, const Ref& octets) {
    return RecordOf(state, RecordType::CellReading,
                    {octets, Member(state, EnumType::CellFormat, reading.format), Text(reading.text),
                     TextOrNone(reading.language), Optional(state, reading.serial, SerialOf),
                     Integer(reading.message_identifier), Optional(state, reading.coding, CellCodingOf),
                     Integer(reading.total), List(state, reading.pages, reading.page_count, PageOf),
                     Optional(state, reading.warning, WarningOf),
                     List(state, reading.places, reading.place_count, PlaceOf),
                     List(state, reading.remarks, reading.remark_count, RemarkOf)});
}

std::uint8_t FormatGiven(PyObject* format) {
    return format != nullptr ? Number<std::uint8_t>(format, "format", QX_CELL_ETWS_NOTIFICATION)
                             : std::uint8_t{QX_CELL_UNKNOWN};
}

struct PageJoiner {
    PyObject_HEAD qx_page_joiner* handle;
    PyObject* weakly; ///< those who refer to it so
    bool isUsed;
};

PyObject* NewPageJoiner(PyTypeObject* type, PyObject* arguments, PyObject* keywords) noexcept {
    return Guarded([&] {
        static const char* c_names[] = {"messages", nullptr};
        Py_ssize_t messages = 0;
        if (PyArg_ParseTupleAndKeywords(arguments, keywords, "|$n:PageJoiner", const_cast<char**>(c_names),
                                        &messages) == 0)
            throw PythonError();
        if (messages < 0)
            Raise(PyExc_ValueError, "messages are 0 or more, not %zd", messages);
        Ref object = Allocated(type);
        qx_page_joiner*& handle = reinterpret_cast<PageJoiner*>(object.Get())->handle;
        handle = qx_page_joiner_new(static_cast<std::size_t>(messages));
        if (handle == nullptr)
            throw std::bad_alloc();
        return object;
    });
}

void FreePageJoiner(PyObject* object) noexcept {
    EndWeakly(object, reinterpret_cast<PageJoiner*>(object)->weakly);
    qx_page_joiner_free(reinterpret_cast<PageJoiner*>(object)->handle);
    Free(object);
}

PyObject* Take(PyObject* object, PyObject* given) noexcept {
    return Guarded([&] {
        State& state = StateOfObject(object);
        const Use<PageJoiner> joiner(object);
        PyObject* const record = Instance(state, given, RecordType::CellReading, "what is joined");
        const Ref source = Bytes(PyTuple_GetItem(record, 0), "octets");
        const CellReading reading(state, source.Get(), FormatGiven(PyTuple_GetItem(record, 1)));
        if (reading.Get().fault != nullptr) // the octets are not those that were read
            RaisePduError(state, PduErrorOf(state, *reading.Get().fault, None()));
        const qx_pages_taken* taken = nullptr;
        const qx_result result = qx_page_joiner_take(joiner->handle, reading.Handle(), &taken);
        return TakenOf(state, result, taken);
    });
}

PyObject* TakeOldest(PyObject* object, PyObject*) noexcept {
    return Guarded([&] {
        State& state = StateOfObject(object);
        const Use<PageJoiner> joiner(object);
        const qx_pages_taken* taken = nullptr;
        const qx_result result = qx_page_joiner_take_oldest(joiner->handle, &taken);
        Check(result);
        return taken->message_count != 0 ? CellMessageOf(state, *taken->messages[0]) : None();
    });
}

PyMethodDef c_methods[] = {
    {"add", Take, METH_O,
     "add($self, reading, /)\n--\n\n"
     "Takes in what decode_cell() gave: PagesTaken, with the message that the page completes and those given "
     "up."},
    {"take_oldest", TakeOldest, METH_NOARGS,
     "take_oldest($self, /)\n--\n\nGives up the oldest CellMessage that waits for pages; None where none "
     "does."},
    {nullptr, nullptr, 0, nullptr},
};

/// What a draft's fault says.
[[noreturn]] void RaiseDraftError(const State& state, qx_text text, const qx_cell_written& written) {
    if (written.misfit != nullptr)
        RaiseNotHeld(state, text, written.misfit->offset, written.misfit->character, None());
    RaisePduError(state, PduErrorOf(state, Text(written.meaning), {{"code", None()}, {"index", None()}}));
}

const Arguments::Signature c_decodeCell = {"decode_cell", {"pdu", "format"}, 1, 1};
const Arguments::Signature c_encodeCell = {
    "encode_cell",
    {"text", "serial_number", "message_identifier", "format", "language", "alphabet", "message_class"},
    1,
    1};

qx_cell_draft DraftOf(const Arguments& arguments) {
    qx_cell_draft draft{};
    draft.size = sizeof draft;
    draft.text = Utf8(arguments.First(), "text");
    if (PyObject* const serial = arguments.Told("serial_number"))
        draft.serial_number = Number<std::uint16_t>(serial, "serial_number");
    if (PyObject* const identifier = arguments.Told("message_identifier"))
        draft.message_identifier = Number<std::uint16_t>(identifier, "message_identifier");
    draft.format = arguments.Told("format") != nullptr ? FormatGiven(arguments.Told("format"))
                                                       : std::uint8_t{QX_CELL_GSM_PAGE};
    if (PyObject* const language = arguments.Told("language"))
        draft.language = Utf8(language, "language");
    draft.alphabet = OptionalGiven(arguments.Told("alphabet"), "alphabet", QX_ALPHABET_UCS2);
    draft.message_class = OptionalGiven(arguments.Told("message_class"), "message_class", 3);
    return draft;
}

} // namespace

PyObject* DecodeCell(PyObject* module, PyObject* const* values, Py_ssize_t count,
                     PyObject* keywords) noexcept {
    return Guarded([&] {
        State& state = StateOf(module);
        const Arguments arguments(c_decodeCell, values, count, keywords);
        const Ref source = SourceOf(state, arguments.First());
        const CellReading reading(state, source.Get(), FormatGiven(arguments[1]));
        if (reading.Get().fault != nullptr)
            RaisePduError(state, PduErrorOf(state, *reading.Get().fault, None()));
        return CellReadingOf(state, reading.Get(), OctetsOfSource(state, source.Get()));
    });
}

PyObject* EncodeCell(PyObject* module, PyObject* const* values, Py_ssize_t count,
                     PyObject* keywords) noexcept {
    return Guarded([&] {
        State& state = StateOf(module);
        const Arguments arguments(c_encodeCell, values, count, keywords);
        const qx_cell_draft draft = DraftOf(arguments);
        const Handle<qx_writer, qx_writer_free> writer(qx_writer_new());
        const qx_cell_written* written = nullptr;
        const qx_result result = qx_write_cell(writer.Get(), &draft, &written);
        Check(result);
        if (result == QX_FAULT)
            RaiseDraftError(state, draft.text, *written);
        return RecordOf(
            state, RecordType::WrittenCell,
            {Tuple(written->octets_count, [&](std::size_t i) { return Octets(written->octets[i]); }),
             Integer(std::uint64_t{written->pages}), Optional(state, written->coding, CellCodingOf)});
    });
}

void AddPageJoiner(PyObject* module, State& state) {
    static PyMemberDef members[] = QXPDU_WEAKLY(PageJoiner);
    static PyType_Slot slots[] = {
        {Py_tp_doc,
         const_cast<char*>(
             "PageJoiner(*, messages=0)\n--\n\n"
             "Puts pages of cell broadcast together that come in any order and many times over. It holds so "
             "many\nmessages at most, 256 for 0. One thread at a time uses it: another one gets a "
             "RuntimeError.")},
        {Py_tp_new, reinterpret_cast<void*>(NewPageJoiner)},
        {Py_tp_dealloc, reinterpret_cast<void*>(FreePageJoiner)},
        {Py_tp_methods, c_methods},
        {Py_tp_members, members},
        {0, nullptr},
    };
    state.pageJoinerType = AddType(module, "qxpdu.PageJoiner", sizeof(PageJoiner), true, slots);
}

} // namespace qxpdu
