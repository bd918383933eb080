// qxpdu decode
#include <fmt/format.h>

#include "Commands.h"
#include "Hexadecimal.h"
#include "InputError.h"
#include "Meanings.h"
#include "PduWalk.h"
#include "Record.h"
#include "Unicode.h"

namespace qxpdu {

namespace {

using Encoding::Pdu;
using Encoding::PduDecoder;

struct DecodeOptions : ConversionOptions {
    bool noSmsc = false;
    bool ignoreTimeZone = false;
};

/// Makes the entry of a field from its value.
struct EntryMaker {
    const Pdu& pdu;
    const PduField& field;

    std::string HexAt(unsigned int offset, unsigned int length) const {
        return Hex(pdu.m_Bytes + offset, length);
    }

    Entry Octets(Json details) const {
        return Made(RawOctets(HexAt(field.offset, field.length)), std::move(details));
    }

    Entry Made(Raw raw, Json details) const {
        return {std::string(field.name), std::move(raw), field.meaning, std::move(details)};
    }

    Entry operator()(const NumberValue& value) const {
        return Made(field.mask == c_wholeOctet ? RawOctet(value.number) : RawNumber(value.number),
                    Json::object());
    }

    Entry operator()(const DataCodingValue& value) const {
        Json details = {{"alphabet", AlphabetName(value.alphabet)}};
        if (value.messageClass != Encoding::MessageClass::CLASS_NONE)
            details["class"] = static_cast<int>(value.messageClass);
        return Made(RawOctet(value.number), std::move(details));
    }

    Entry operator()(const AddressValue& value) const {
        if (field.length == 1)
            return Octets(Json::object());
        return Octets(
            {{"number", value.number},
             {"type_of_number",
              {{"raw", value.typeOfNumber}, {"meaning", TypeOfNumberMeaning(value.typeOfNumber)}}},
             {"numbering_plan",
              {{"raw", value.numberingPlan}, {"meaning", NumberingPlanMeaning(value.numberingPlan)}}}});
    }

    Entry operator()(const TimeValue& value) const {
        return Octets(value.time.empty() ? Json::object() : Json{{"time", value.time}});
    }

    Entry operator()(const HeaderValue& value) const {
        Json elements = Json::array();
        for (const HeaderElement& element : value.elements) {
            elements.push_back(
                {{"identifier", element.identifier},
                 {"meaning", ElementName(element.identifier)},
                 {"data", element.present == 0 ? "" : HexAt(element.offset, element.present)}});
        }
        return Octets({{"elements", std::move(elements)}});
    }

    Entry operator()(const UserDataValue&) const { return Octets(Json::object()); }
};

/// A decoded PDU as it is shown.
struct Message {
    std::vector<Entry> entries;
    bool hasConcatenation = false;
    bool hasText = false;
};

Message Describe(const Pdu& pdu, const PduWalk& walk) {
    Message message;
    for (const PduField& field : walk.fields) {
        message.entries.push_back(std::visit(EntryMaker{pdu, field}, field.value));
        if (const auto* header = std::get_if<HeaderValue>(&field.value))
            message.hasConcatenation = header->HasConcatenation();
        message.hasText = message.hasText || field.name == "TP-UDL";
    }
    return message;
}

Json ToJson(const Input& input, const Pdu& pdu, const Message& message, const PduDecoder& decoder) {
    Json object = ObjectFor(input);
    object["octets"] = pdu.GetString();
    for (const Entry& entry : message.entries)
        object[KeyOf(entry.name)] = ToJson(entry);
    if (message.hasConcatenation) {
        object["concatenation"] = {{"reference", decoder.m_ConcatReference},
                                   {"total", decoder.m_ConcatTotal},
                                   {"sequence", decoder.m_ConcatSequence}};
    }
    if (message.hasText)
        object["text"] = ToUtf8(decoder.m_Text);
    return object;
}

std::string ToText(Message message, const PduDecoder& decoder) {
    if (message.hasConcatenation) {
        message.entries.push_back({"part",
                                   {},
                                   fmt::format("{} of {}, reference {}", decoder.m_ConcatSequence,
                                               decoder.m_ConcatTotal, decoder.m_ConcatReference)});
    }
    if (message.hasText)
        message.entries.push_back({"text", {}, ToUtf8(decoder.m_Text)});
    return ToText(message.entries);
}

void Decode(const DecodeOptions& options, const Input& input, Console& console) {
    const Toolkit::smart_ptr<Pdu> pdu = ReadPdu(input.text);
    PduDecoder decoder;
    const bool decoded = decoder.Decode(pdu, options.noSmsc, options.ignoreTimeZone) != 0;
    const PduWalk walk = WalkPdu(decoder, pdu, options.noSmsc, options.ignoreTimeZone);
    if (walk.stop)
        throw InputError(
            fmt::format("{} at octet {}: {}", walk.stop->field, walk.stop->offset, walk.stop->reason));
    if (!decoded)
        throw InputError("rejected by the decoder");
    Message message = Describe(*pdu, walk);
    if (console.WantsJson())
        console.Object(ToJson(input, *pdu, message, decoder));
    else
        console.Block(ToText(std::move(message), decoder));
}

} // namespace

void AddDecode(CLI::App& parent, Action& action) {
    CLI::App* command = parent.add_subcommand("decode", "Show the fields and the text of SMS PDUs");
    auto options = std::make_shared<DecodeOptions>();
    AddConversion(*command, *options, "PDU",
                  "SMS-DELIVER, SMS-SUBMIT or SMS-STATUS-REPORT in hexadecimal; without any, one a line from "
                  "standard input");
    command->add_flag("--no-smsc", options->noSmsc,
                      "The PDUs begin with the TPDU, not with the service centre");
    command->add_flag("--ignore-time-zone", options->ignoreTimeZone, "Show times without their zone");
    command->footer(
        "A line for each field: its name by 3GPP TS 23.040, its value on the wire, its meaning. With\n"
        "--json an object for each PDU: a member for each field, \"tp_dcs\" and the like, with \"raw\" and\n"
        "\"meaning\", then \"concatenation\" and \"text\" where the PDU holds them.\n"
        "\n"
        "Example:\n"
        "  qxpdu decode 0791214365870921040B912143658709F100002120312143658005C8329BFD06");
    command->callback([options, &action] {
        action = [options](const Streams& streams) {
            return ConvertAll(
                *options, streams, LineKind::Hex,
                [&options](const Input& input, Console& console) { Decode(*options, input, console); });
        };
    });
}

} // namespace qxpdu
