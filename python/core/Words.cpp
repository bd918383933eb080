// English for numbers, as functions of Python's.
#include <string>

#include "Core.h"

namespace qxpdu {
namespace {

/// Of an octet.
template <const char* (*Word)(std::uint8_t)>
PyObject* WordOf(PyObject*, PyObject* number) noexcept {
    return Guarded(
        [&] { return Made(PyUnicode_FromString(Word(Number<std::uint8_t>(number, "a number")))); });
}

/// A text that `put(text, room)` makes.
template <class Put>
Ref MadeText(Put put) {
    std::string text(put(nullptr, 0), '\0');
    put(text.data(), text.size() + 1);
    return Text({text.data(), text.size()});
}

template <std::size_t (*Put)(std::uint8_t, char*, std::size_t)>
PyObject* MeaningOf(PyObject*, PyObject* number) noexcept {
    return Guarded([&] {
        const auto value = Number<std::uint8_t>(number, "a number");
        return MadeText([&](char* text, std::size_t room) { return Put(value, text, room); });
    });
}

PyObject* FieldDescription(PyObject*, PyObject* field) noexcept {
    return Guarded([&] {
        const std::string_view name = View(Utf8(field, "a field"));
        for (std::uint8_t i = 0; i < State::c_fields; ++i)
            if (name == qx_field_name(i))
                return Made(PyUnicode_FromString(qx_field_description(i)));
        return Text({});
    });
}

PyObject* IdentifierMeaning(PyObject*, PyObject* number) noexcept {
    return Guarded([&] {
        const auto value = Number<std::uint16_t>(number, "an identifier");
        return MadeText(
            [&](char* text, std::size_t room) { return qx_message_identifier_meaning(value, text, room); });
    });
}

PyObject* SerialMeaning(PyObject*, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept {
    static const Arguments::Signature c_signature = {"serial_number_meaning", {"serial", "identifier"}, 2, 2};
    return Guarded([&] {
        const Arguments arguments(c_signature, values, count, keywords);
        const auto serial = Number<std::uint16_t>(arguments.Given("serial"), "a serial number");
        const auto identifier = Number<std::uint16_t>(arguments.Given("identifier"), "an identifier");
        return MadeText([&](char* text, std::size_t room) {
            return qx_serial_number_meaning(serial, identifier, text, room);
        });
    });
}

PyObject* PortMeaning(PyObject*, PyObject* const* values, Py_ssize_t count, PyObject* keywords) noexcept {
    static const Arguments::Signature c_signature = {"port_meaning", {"port", "is_wide"}, 2, 1};
    return Guarded([&] {
        const Arguments arguments(c_signature, values, count, keywords);
        const auto port = Number<std::uint16_t>(arguments.First(), "a port");
        return Made(PyUnicode_FromString(qx_port_meaning(arguments.IsSet("is_wide", true), port)));
    });
}

} // namespace

PyObject* ValidityMeaning(PyObject* module, PyObject* validity) noexcept {
    return Guarded([&] {
        GivenValidity given;
        FillValidity(StateOf(module), validity, given);
        return MadeText(
            [&](char* text, std::size_t room) { return qx_validity_meaning(&given.validity, text, room); });
    });
}

#define QXPDU_WORD(name, doc)                                                                                \
    { #name, WordOf < qx_##name>, METH_O, #name "($module, number, /)\n--\n\n" doc }
#define QXPDU_MEANING(name, doc)                                                                             \
    { #name, MeaningOf < qx_##name>, METH_O, #name "($module, number, /)\n--\n\n" doc }

PyMethodDef c_words[] = {
    QXPDU_WORD(type_name, "\"SMS-DELIVER\", of a Type."),
    {"field_description", FieldDescription, METH_O,
     "field_description($module, field, /)\n--\n\n\"originating address\", of \"TP-OA\"."},
    QXPDU_WORD(language_name, "\"Turkish\", of a Language."),
    QXPDU_WORD(alphabet_name, "\"GSM 7-bit\", of an Alphabet."),
    QXPDU_WORD(type_of_number_name, "\"international\", of a TypeOfNumber."),
    QXPDU_WORD(numbering_plan_name, "\"ISDN or telephone (E.164)\", of a numbering plan."),
    QXPDU_WORD(protocol_meaning, "Of TP-PID: \"internet e-mail\"."),
    QXPDU_WORD(status_meaning, "Of TP-ST: \"validity period expired\"."),
    QXPDU_WORD(status_class, "Of TP-ST: \"completed\", \"permanent error\" and so on."),
    QXPDU_WORD(failure_cause_meaning, "Of TP-FCS: \"memory full\"."),
    QXPDU_WORD(command_type_meaning, "Of TP-CT: \"delete a message\"."),
    QXPDU_WORD(element_name, "Of an element of the user-data header: \"hyperlink\"."),
    QXPDU_WORD(class_meaning, "Of a message class, 0 to 3: \"immediate display\"."),
    QXPDU_WORD(waiting_type_name, "\"voice\", of a WaitingType."),
    QXPDU_WORD(join_outcome_name, "\"timed-out\", of an Outcome."),
    QXPDU_WORD(join_outcome_meaning, "\"all of its parts are there\", of an Outcome."),
    QXPDU_WORD(cell_format_name, "\"GSM page\", of a CellFormat."),
    QXPDU_WORD(warning_type_name, "\"earthquake\", of a warning type of ETWS."),
    QXPDU_MEANING(coding_meaning, "Of TP-DCS: \"GSM 7-bit, class 0: immediate display\"."),
    QXPDU_MEANING(cell_coding_meaning, "Of a data coding scheme of cell broadcast: \"GSM 7-bit, German\"."),
    {"message_identifier_meaning", IdentifierMeaning, METH_O,
     "message_identifier_meaning($module, identifier, /)\n--\n\nOf cell broadcast: \"CMAS presidential, "
     "EU-Alert "
     "level 1\"."},
    {"serial_number_meaning", Called(SerialMeaning), METH_FASTCALL | METH_KEYWORDS,
     "serial_number_meaning($module, serial, identifier)\n--\n\n\"scope 1: network wide, message code 2, "
     "update number "
     "3\"."},
    {"port_meaning", Called(PortMeaning), METH_FASTCALL | METH_KEYWORDS,
     "port_meaning($module, port, is_wide=True)\n--\n\nWho has the port: \"assigned by IANA\"."},
    {nullptr, nullptr, 0, nullptr},
};

} // namespace qxpdu
