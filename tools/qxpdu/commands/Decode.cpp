// qxpdu decode
#include <algorithm>
#include <memory>
#include <utility>

#include <fmt/format.h>

#include "characters/Hexadecimal.h"
#include "characters/InputError.h"
#include "commands/Cell.h"
#include "commands/Commands.h"
#include "commands/Join.h"
#include "commands/Options.h"
#include "commands/Parts.h"
#include "show/CodeUnits.h"
#include "show/Hex.h"
#include "show/Meanings.h"
#include "show/PduWalk.h"
#include "show/Record.h"

namespace qxpdu {

namespace {

using Encoding::Pdu;
using Encoding::PduDecoder;

struct DecodeOptions : ConversionOptions {
    bool noSmsc = false;
    bool ignoreTimeZone = false;
    bool join = false;
};

std::string HexOf(const Pdu& pdu, const PduField& field) {
    return Hex(pdu.m_Bytes + field.offset, field.length);
}

Raw RawOf(const Pdu& pdu, const PduField& field) {
    if (const auto* number = std::get_if<NumberValue>(&field.value))
        return field.mask == c_wholeOctet ? RawOctet(number->number) : RawNumber(number->number);
    if (const auto* coding = std::get_if<DataCodingValue>(&field.value))
        return RawOctet(coding->number);
    return RawOctets(HexOf(pdu, field));
}

/// Writes the members of a field for a program.
struct FieldWriter {
    const Pdu& pdu;
    const PduField& field;
    JsonText& object;

    void Number(unsigned int number) const {
        object.Member("raw", number);
        object.Member("meaning", field.meaning);
    }

    void Octets() const {
        object.Member("raw", HexOf(pdu, field));
        object.Member("meaning", field.meaning);
    }

    void Bits(std::string_view name, unsigned int value, std::string_view meaning) const {
        object.Object(name, [&] {
            object.Member("raw", value);
            object.Member("meaning", meaning);
        });
    }

    void operator()(const NumberValue& value) const { Number(value.number); }

    void operator()(const DataCodingValue& value) const {
        Number(value.number);
        object.Member("alphabet", AlphabetName(value.alphabet));
        if (value.messageClass != Encoding::MessageClass::CLASS_NONE)
            object.Member("class", static_cast<int>(value.messageClass));
    }

    void operator()(const AddressValue& value) const {
        Octets();
        if (field.length == 1)
            return;
        object.Member("number", value.number);
        Bits("type_of_number", value.typeOfNumber, TypeOfNumberMeaning(value.typeOfNumber));
        Bits("numbering_plan", value.numberingPlan, NumberingPlanMeaning(value.numberingPlan));
    }

    void operator()(const TimeValue& value) const {
        Octets();
        if (!value.time.empty())
            object.Member("time", value.time);
    }

    void operator()(const HeaderValue& value) const {
        Octets();
        object.Array("elements", [&] {
            for (const HeaderElement& element : value.elements)
                object.Element([&] { Write(element); });
        });
    }

    void Write(const HeaderElement& element) const {
        object.Member("identifier", element.identifier);
        object.Member("meaning", ElementName(element.identifier));
        object.Member("data", element.present == 0 ? "" : Hex(pdu.m_Bytes + element.offset, element.present));
    }

    void operator()(const UserDataValue&) const { Octets(); }
};

/// A PDU that the decoder accepted.
struct Decoded {
    Toolkit::smart_ptr<Pdu> pdu;
    PduDecoder decoder;
    PduWalk walk;
};

/// The octets of a PDU after the service centre.
unsigned int TpduLength(const Pdu& pdu, bool noSmsc) {
    return noSmsc ? pdu.m_Length : pdu.m_Length - std::min(pdu.m_Length, pdu.m_Bytes[0] + 1U);
}

Decoded Decode(const DecodeOptions& options, const Input& input) {
    if (input.heading)
        CheckMode(*input.heading);
    Decoded decoded{ReadPdu(input.text), {}, {}};
    auto& [pdu, decoder, walk] = decoded;
    if (input.heading)
        CheckLength(*input.heading, TpduLength(*pdu, options.noSmsc));
    const bool isGood = decoder.Decode(pdu, options.noSmsc, options.ignoreTimeZone) != 0;
    walk = WalkPdu(decoder, pdu, options.noSmsc, options.ignoreTimeZone);
    if (walk.stop)
        throw InputError(
            fmt::format("{} at octet {}: {}", walk.stop->field, walk.stop->offset, walk.stop->Reason()));
    if (!isGood)
        throw InputError("rejected by the decoder");
    return decoded;
}

bool HasConcatenation(const Decoded& decoded) {
    return ConcatenationOf(*decoded.pdu, decoded.walk).has_value();
}

bool HasText(const PduWalk& walk) {
    return std::any_of(walk.fields.begin(), walk.fields.end(),
                       [](const PduField& field) { return field.name == "TP-UDL"; });
}

/// `reportOn` is the number of the message that a status report is about.
void ShowObject(const Input& input, const Decoded& decoded, std::optional<std::size_t> reportOn,
                Console& console) {
    const PduDecoder& decoder = decoded.decoder;
    JsonText object;
    Begin(object, input);
    object.Member("octets", Hex(decoded.pdu->m_Bytes, decoded.pdu->m_Length));
    for (const PduField& field : decoded.walk.fields)
        object.Object(KeyOf(field.name), [&] {
            std::visit(FieldWriter{*decoded.pdu, field, object}, field.value);
        });
    if (HasConcatenation(decoded)) {
        object.Object("concatenation", [&] {
            object.Member("reference", decoder.m_ConcatReference);
            object.Member("total", decoder.m_ConcatTotal);
            object.Member("sequence", decoder.m_ConcatSequence);
        });
    }
    if (HasText(decoded.walk))
        object.Member("text", ToUtf8(decoder.m_Text));
    if (reportOn)
        object.Member("report_on", *reportOn);
    console.Object(object);
}

void ShowEntries(const Input& input, const Decoded& decoded, std::optional<std::size_t> reportOn,
                 Console& console) {
    const PduDecoder& decoder = decoded.decoder;
    std::vector<Entry> entries;
    for (const PduField& field : decoded.walk.fields)
        entries.push_back({std::string(field.name), RawOf(*decoded.pdu, field), field.meaning});
    if (HasConcatenation(decoded)) {
        entries.push_back({"part",
                           {},
                           fmt::format("{} of {}, reference {}", decoder.m_ConcatSequence,
                                       decoder.m_ConcatTotal, decoder.m_ConcatReference)});
    }
    if (HasText(decoded.walk))
        entries.push_back({"text", {}, ToUtf8(decoder.m_Text)});
    if (reportOn)
        entries.push_back({"report on", {}, NameOf({input.source, *reportOn, {}})});
    console.Block(ToText(entries));
}

void Show(const Input& input, const Decoded& decoded, std::optional<std::size_t> reportOn, Console& console) {
    if (console.WantsJson())
        ShowObject(input, decoded, reportOn, console);
    else
        ShowEntries(input, decoded, reportOn, console);
}

void ShowJoined(const ConcatenatedMessage& message, Console& console) {
    std::vector<int> joined;
    std::vector<std::string> sources;
    std::vector<std::size_t> numbers;
    for (const auto& [number, part] : message.parts) {
        joined.push_back(number);
        sources.push_back(part.source);
        numbers.push_back(part.number);
    }
    const std::vector<int> missing = message.Missing();
    const ConcatenationKey& key = message.key;
    const std::string text = ToUtf8(message.Text());
    if (console.WantsJson()) {
        return console.Object({{"joined", numbers},
                               {"address", key.address},
                               {"reference", key.reference},
                               {"reference_bits", key.hasWideReference ? 16 : 8},
                               {"total", key.total},
                               {"parts_joined", joined},
                               {"parts_missing", missing},
                               {"text", text}});
    }
    std::string parts = fmt::format("{} of {}", fmt::join(joined, ", "), key.total);
    if (!missing.empty())
        parts += fmt::format("; missing {}", fmt::join(missing, ", "));
    console.Block(ToText(std::vector<Entry>{{"Parts joined", {}, std::move(parts)},
                                            {"from", {}, fmt::format("{}", fmt::join(sources, ", "))},
                                            {"address", {}, key.address},
                                            {"reference", {}, fmt::format("{}", key.reference)},
                                            {"text", {}, text}}));
}

/// What --join keeps between the PDUs.
struct Joining {
    Concatenations concatenations;
    SentMessages sent;

    void TakePart(const Input& input, const ConcatenationKey& key, int number, const MessagePart& part,
                  Console& console) {
        const Concatenations::Taken taken = concatenations.Take(key, number, part);
        for (const ConcatenatedMessage& message : taken.messages)
            ShowJoined(message, console);
        if (!taken.duplicateOf)
            return;
        if (!console.WantsJsonLines())
            return console.Warning(NameOf(input), fmt::format("part {} of {} has come before, in {}", number,
                                                              key.total, *taken.duplicateOf));
        Json object = ObjectFor(input);
        object["duplicate_of"] = *taken.duplicateOf;
        console.Object(object);
    }

    void ShowReport(const Input& input, const std::string& address, const Decoded& decoded,
                    Console& console) const {
        Show(input, decoded, sent.Find(address, decoded.decoder.m_MessageReference), console);
    }
};

/// TP-SCTS, where the PDU has one.
std::string TimeIn(const PduWalk& walk) {
    const auto field = std::find_if(walk.fields.begin(), walk.fields.end(),
                                    [](const PduField& each) { return each.name == "TP-SCTS"; });
    return field == walk.fields.end() ? std::string() : std::get<TimeValue>(field->value).time;
}

struct NumberedPart {
    ConcatenationKey key;
    int number;
    MessagePart part;
};

/// The part that the PDU is, where its place in the message is a possible one.
std::optional<NumberedPart> PartIn(const Input& input, const Decoded& decoded, const std::string& address) {
    const PduDecoder& decoder = decoded.decoder;
    const auto place = ConcatenationOf(*decoded.pdu, decoded.walk);
    if (!place || place->total < 2 || place->sequence < 1 || place->sequence > place->total)
        return std::nullopt;
    MessagePart part{NameOf(input), input.number, decoder.m_Text, TimeIn(decoded.walk)};
    if (const auto codes = EdgeCodesOf(*decoded.pdu, decoded.walk)) {
        part.endsInEscape = codes->last == c_escape;
        part.afterEscape =
            static_cast<wchar_t>(decoder.m_CharSet->FindUnicodeCharFromEscapeChar(codes->first));
    }
    return NumberedPart{{decoder.m_SmsType, address, place->hasWideReference, place->reference, place->total},
                        place->sequence,
                        std::move(part)};
}

Afterwards DecodeAndJoin(Joining& joining, const DecodeOptions& options, const Input& input,
                         Console& console) {
    auto decoded = std::make_shared<const Decoded>(Decode(options, input));
    const PduDecoder& decoder = decoded->decoder;
    using Encoding::MessageTypeIndicator;
    const bool isReport = decoder.m_SmsType == MessageTypeIndicator::TP_MTI_SMS_STATUS_REPORT;
    const bool isSubmit = decoder.m_SmsType == MessageTypeIndicator::TP_MTI_SMS_SUBMIT;
    std::string address = ToUtf8(isReport || isSubmit ? decoder.m_Recipient : decoder.m_Originator);
    if (isReport) {
        return [&joining, input, address, decoded](Console& later) {
            joining.ShowReport(input, address, *decoded, later);
        };
    }
    const auto part = PartIn(input, *decoded, address);
    if (!part)
        Show(input, *decoded, std::nullopt, console);
    return [&joining, input, address, decoded, isSubmit, part](Console& later) {
        if (isSubmit)
            joining.sent.Add(address, decoded->decoder.m_MessageReference, input.number);
        if (part)
            joining.TakePart(input, part->key, part->number, part->part, later);
    };
}

Afterwards Convert(Joining& joining, const DecodeOptions& options, const Input& input, Console& console) {
    if (input.heading && input.heading->isCellPage) {
        ShowCellPage(input, console);
        return {};
    }
    if (options.join)
        return DecodeAndJoin(joining, options, input, console);
    Show(input, Decode(options, input), std::nullopt, console);
    return {};
}

void ShowIncomplete(Joining& joining, Console& console) {
    while (const auto message = joining.concatenations.TakeOldest())
        ShowJoined(*message, console);
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
    command->add_flag(
        "--join", options->join,
        "Put the parts of concatenated messages together, and match status reports to messages");
    AddStreaming(*command, *options);
    command->footer(
        "A line for each field: its name by 3GPP TS 23.040, its value on the wire, its meaning. With\n"
        "--json an object for each PDU: a member for each field, \"tp_dcs\" and the like, with \"raw\" and\n"
        "\"meaning\", then \"concatenation\" and \"text\" where the PDU holds them.\n"
        "\n"
        "Standard input may be the log of a modem: the PDUs after +CMGL, +CMGR, +CMT, +CDS and +CBM lines\n"
        "are decoded, their announced length is checked, and commands and other result codes are skipped.\n"
        "\n"
        "With --join a message is shown once its last part has come, or in the end with what is missing. Of\n"
        "messages waiting for parts, the oldest is given up when there are more than 4096 parts.\n"
        "\n"
        "Example:\n"
        "  qxpdu decode 0791214365870921040B912143658709F100002120312143658005C8329BFD06\n"
        "  qxpdu decode --join < modem.log");
    command->callback([options, &action] {
        action = [options](const Streams& streams) {
            Joining joining;
            return ConvertStream(options->Settings(), streams,
                                 {LineKind::Transcript,
                                  [&](const Input& input, Console& console) {
                                      return Convert(joining, *options, input, console);
                                  },
                                  [&joining](Console& console) { ShowIncomplete(joining, console); }});
        };
    });
}

} // namespace qxpdu
