// qxpdu._core: what the package is made of in C++.
#include "Core.h"

namespace qxpdu {
namespace {

#define QXPDU_NAME(name) #name,
constexpr const char* c_recordNames[] = {QXPDU_RECORDS(QXPDU_NAME)};
constexpr const char* c_enumNames[] = {QXPDU_ENUMS(QXPDU_NAME)};
#undef QXPDU_NAME

PyObject* Attribute(const Ref& module, const char* name) {
    return Made(PyObject_GetAttrString(module.Get(), name)).Release();
}

void TakeRecords(State& state) {
    const Ref records = Made(PyImport_ImportModule("qxpdu._records"));
    for (std::size_t i = 0; i < state.records.size(); ++i) {
        state.records[i].type = Attribute(records, c_recordNames[i]);
        const Ref fields = Made(PyObject_GetAttrString(state.records[i].type, "_fields"));
        const Py_ssize_t members = PyObject_Size(fields.Get());
        if (members < 0)
            throw PythonError();
        state.records[i].members = members;
    }
    for (std::size_t i = 0; i < state.enums.size(); ++i) {
        const Ref type(Attribute(records, c_enumNames[i]));
        state.enums[i] = Made(PySequence_Tuple(type.Get())).Release();
    }
    state.pduError = Attribute(records, "PduError");
}

void TakeOthers(State& state) {
    for (std::size_t i = 0; i < state.fields.size(); ++i)
        state.fields[i] =
            Made(PyUnicode_InternFromString(qx_field_name(static_cast<std::uint8_t>(i)))).Release();
    const Ref datetime = Made(PyImport_ImportModule("datetime"));
    state.datetime = Attribute(datetime, "datetime");
    state.timedelta = Attribute(datetime, "timedelta");
    state.timezone = Attribute(datetime, "timezone");
    const Ref time = Made(PyImport_ImportModule("time"));
    state.monotonic = Attribute(time, "monotonic");
    state.bytesFromHex =
        Made(PyObject_GetAttrString(reinterpret_cast<PyObject*>(&PyBytes_Type), "fromhex")).Release();
}

int Execute(PyObject* module) noexcept {
    return Guarded(-1, [&] {
        State& state = StateOf(module);
        WatchEnd();
        AddMessage(module, state); // of which some records are
        TakeRecords(state);
        TakeOthers(state);
        AddJoiner(module, state);
        AddPageJoiner(module, state);
        Done(PyModule_AddFunctions(module, c_words));
        Done(PyModule_AddStringConstant(module, "library_version", qx_version()));
        return 0;
    });
}

int Traverse(PyObject* module, visitproc visit, void* argument) {
    int result = 0;
    if (PyModule_GetState(module) != nullptr)
        StateOf(module).Each([&](PyObject* object) {
            if (object != nullptr && result == 0)
                result = visit(object, argument);
        });
    return result;
}

int Clear(PyObject* module) {
    if (PyModule_GetState(module) != nullptr) {
        StateOf(module).Each([](PyObject*& object) { Py_CLEAR(object); });
        ForgetReaders(StateOf(module));
    }
    return 0;
}

void Free(void* module) {
    Clear(static_cast<PyObject*>(module));
}

#define QXPDU_CHOICE_SIGNATURE                                                                               \
    "languages=(), alphabet=None, tables=None, room=None, wide_reference=False, ports=None, elements=None"

constexpr int c_keywords = METH_FASTCALL | METH_KEYWORDS;

PyMethodDef c_functions[] = {
    {"decode", Called(Decode), c_keywords,
     "decode($module, /, pdu, *, service_centre=None, direction=None, failure_cause=None, "
     "announced=None)\n--\n\n"
     "Reads one PDU and gives a Message.\n\n"
     "pdu is bytes-like, or a str of hexadecimal digits in upper or lower case, with nothing between them "
     "and, at most,\n"
     "white space before and after them: a line of a file. bytes are octets always, never digits.\n\n"
     "What is known beside the octets, None for what is not: service_centre, whether a service centre's "
     "address comes\n"
     "first, as modems have it; direction, a Direction; failure_cause, whether a report has TP-FCS; "
     "announced, the octets\n"
     "of the TPDU as a modem announces them.\n\n"
     "Raises PduError where the octets cannot be read to their end; its partial is what was read before."},
    {"decode_many", Called(DecodeMany), c_keywords,
     "decode_many($module, /, pdus, *, service_centre=None, direction=None, failure_cause=None, "
     "announced=None,\n"
     "            return_errors=False)\n--\n\n"
     "decode() of each of many PDUs, an iterable: a list of as many Messages. The octets are read without "
     "the\n"
     "interpreter's lock, so that other threads go on.\n\n"
     "The first PDU that cannot be read raises its PduError, whose index says which it is; with "
     "return_errors the errors\n"
     "stand in the list, each in the place of its message."},
    {"_restore", Called(Restore), c_keywords,
     "_restore($module, pdu, service_centre, direction, failure_cause, announced)\n--\n\nFor pickle."},
    {"encode", Called(Encode), c_keywords,
     "encode($module, /, text=None, address=None, *, type=None, data=None, units=None, like=None, "
     "service_centre=...,\n"
     "       coding=None, time=None, discharge=None, validity=..., more_messages=None, "
     "loop_prevention=None,\n"
     "       reject_duplicates=None, status_report_indication=None, status_report_request=None, "
     "is_for_command=None,\n"
     "       reply_path=None, message_reference=None, status=None, command_type=None, message_number=None,\n"
     "       failure_cause=..., parameter_indicator=..., protocol=..., languages=(), alphabet=None, "
     "tables=None,\n"
     "       room=None, wide_reference=False, ports=..., elements=None, replace_near=False, reference=None,\n"
     "       message_class=...)\n--\n\n"
     "Writes a message of any type, an SMS-SUBMIT where none is told: a list of Pdu, as many as the text "
     "takes.\n\n"
     "address is a number as people write it, or an Address as number() and name() make it. service_centre "
     "is the like;\n"
     "'' is the modem's own, which is meant where nothing is told, and None leaves it out altogether.\n\n"
     "What the message says is one of text; data, octets; units, the septets (one an octet) or octets after "
     "the header,\n"
     "in one message. How texts are cut: see cut() and explain(). "
     "coding is TP-DCS; it is chosen where it is not told.\n\n"
     "time and discharge are datetimes with a zone; their microseconds are left out. validity is a "
     "timedelta, a datetime\n"
     "or a Validity. like is a Message that has what is not told: encode(like=message, address='+4179123') "
     "sends it on.\n"
     "With another text or data it keeps ports and message class, and no other element of the header. None "
     "takes "
     "away\n"
     "what it has, of what is ... here. What it ends before, a PduError.partial, has to be told.\n"
     "Without another text its user data stays, with the ports; time and validity stay octet for octet where "
     "they are told\n"
     "as they were read. The lowest three bits of parameter_indicator have to say what is there.\n\n"
     "Raises ValueError for what is told and has no place in the message, and PduError for what would be "
     "read "
     "as\n"
     "another message, and for a text that cannot be written."},
    {"count", Called(Choose), c_keywords,
     "count($module, /, text, *, " QXPDU_CHOICE_SIGNATURE ")\n--\n\n"
     "Finds the cheapest way to write a text: an Explanation of this one Choice. Its members are as of "
     "explain()."},
    {"explain", Called(Explain), c_keywords,
     "explain($module, /, text, *, " QXPDU_CHOICE_SIGNATURE ")\n--\n\n"
     "Every way to write a text, the cheapest first, where its parts begin, and the characters that make it "
     "dear.\n\n"
     "languages may be used beside the default alphabet; alphabet, and tables of a locking and a single "
     "shift, are the\n"
     "only ones that may, and tables are of GSM 7-bit. room is how many octets a message has for user data, "
     "140 where it is\n"
     "not told and 159 at most: encode() refuses what the type has no room for. wide_reference is whether "
     "parts have a\n"
     "reference of 16 bits; ports, Ports, and elements, more elements of the header as they are sent, are in "
     "each part.\n\n"
     "Raises PduError, with the index of the character, for a text that what may be used does not hold."},
    {"cut", Called(CutText), c_keywords,
     "cut($module, /, text, *, " QXPDU_CHOICE_SIGNATURE
     ", replace_near=False,\n    reference=None, message_class=None)\n--\n\n"
     "Cuts a text, or bytes-like data, into the user data of as many messages as it takes: a Cut. See "
     "explain().\n\n"
     "replace_near puts near characters in where that is cheaper; reference is that of the parts, a random "
     "one "
     "where it is\n"
     "not told; message_class is 0 to 3."},
    {"replace_near", Called(ReplaceNear), c_keywords,
     "replace_near($module, /, text, languages=())\n--\n\n"
     "Puts near characters in for what the tables of the default alphabet and of the languages do not hold: "
     "a NearText."},
    {"number", MakeNumber, METH_O,
     "number($module, written, /)\n--\n\n"
     "The Address of a number as people write it: digits, *, #, a, b and c, with or without a plus sign "
     "first.\n"
     "Blanks, -, ., /, ( and ) are passed over."},
    {"name", MakeName, METH_O,
     "name($module, written, /)\n--\n\nThe Address of a name, in the default alphabet."},
    {"coding", MakeCoding, METH_O, "coding($module, value, /)\n--\n\nWhat a value of TP-DCS says: a Coding."},
    {"validity", Called(MakeValidity), c_keywords,
     "validity($module, /, of, *, enhanced=False, single_shot=False)\n--\n\n"
     "A Validity of a timedelta or until a datetime. A timedelta becomes the shortest period of the relative "
     "format that\n"
     "is not shorter; in the enhanced format it is told in seconds, and single_shot has the centre try only "
     "once."},
    {"_validity_meaning", ValidityMeaning, METH_O,
     "_validity_meaning($module, validity, /)\n--\n\n\"relative, 3 hours\"."},
    {"decode_cell", Called(DecodeCell), c_keywords,
     "decode_cell($module, /, pdu, *, format=None)\n--\n\n"
     "Reads a page, a message or a notification of cell broadcast: a CellReading. The format, a CellFormat, "
     "is recognised\n"
     "where it is not told. Raises PduError as decode() does."},
    {"encode_cell", Called(EncodeCell), c_keywords,
     "encode_cell($module, /, text, *, serial_number=0, message_identifier=0, format=None, language=None, "
     "alphabet=None,\n"
     "            message_class=None)\n--\n\n"
     "Writes a text as pages of GSM, or with CellFormat.UMTS_MESSAGE as one message of UMTS: a WrittenCell."},
    {nullptr, nullptr, 0, nullptr},
};

PyModuleDef_Slot c_slots[] = {
    {Py_mod_exec, reinterpret_cast<void*>(Execute)},
    {0, nullptr},
};

PyModuleDef c_module = {
    PyModuleDef_HEAD_INIT,
    "qxpdu._core",
    "What qxpdu is made of in C++; use qxpdu.",
    sizeof(State),
    c_functions,
    c_slots,
    Traverse,
    Clear,
    Free,
};

} // namespace
} // namespace qxpdu

PyMODINIT_FUNC PyInit__core() {
    return PyModuleDef_Init(&qxpdu::c_module);
}
