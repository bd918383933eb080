// qxpdu encode
#include <ctime>
#include <memory>
#include <sstream>
#include <utility>

#include <fmt/format.h>

#include "Messages/Read.h"
#include "Messages/Words.h"
#include "characters/InputError.h"
#include "commands/Commands.h"
#include "commands/HostEncode.h"
#include "commands/Members.h"
#include "commands/Outgoing.h"
#include "show/Json.h"
#include "show/Message.h"

namespace qxpdu {

namespace {

using Messages::TpduType;

/// What the inputs of one run have in common.
struct Run {
    OutgoingOptions options;
    std::optional<std::uint16_t> reference; ///< of the first text; nothing where the system gives none
};

/// As a modem wants it, without the service centre.
std::size_t TpduLength(const std::vector<std::uint8_t>& pdu) {
    return pdu.size() - 1 - pdu.front();
}

Messages::Reading ReadBack(const std::vector<std::uint8_t>& pdu, const OutgoingOptions& options) {
    const TpduType type = options.Type();
    const bool isToMobile =
        type == TpduType::Deliver || type == TpduType::StatusReport || type == TpduType::SubmitReport;
    Messages::ReadOptions how;
    how.serviceCentre = Messages::Presence::Yes;
    how.direction = isToMobile ? Messages::Direction::ToMobile : Messages::Direction::FromMobile;
    how.failureCause = options.failureCause ? Messages::Presence::Yes : Messages::Presence::No;
    return Messages::Read(pdu, how);
}

void AddHeader(const Messages::UserData& userData, show::Json& object) {
    if (const auto& place = userData.concatenation) {
        object["concatenation"] = {{"reference", place->reference},
                                   {"reference_bits", place->hasWideReference ? 16 : 8},
                                   {"total", place->total},
                                   {"sequence", place->part}};
    }
    if (const auto& ports = userData.ports) {
        object["ports"] = {{"destination", ports->destination},
                           {"originator", ports->originator},
                           {"bits", ports->areWide ? 16 : 8}};
    }
    AddTables(userData.tables, object);
}

/// Alphabet and length of the text, or the data.
void AddContent(const Messages::Tpdu& tpdu, const Messages::UserData& userData, show::Json& object) {
    const Messages::DataCoding* const coding = Messages::CodingOf(tpdu);
    const bool isData = show::IsData(tpdu);
    const Messages::Alphabet alphabet = isData              ? Messages::Alphabet::Data
                                        : coding != nullptr ? coding->alphabet
                                                            : Messages::Alphabet::Gsm7;
    object["alphabet"] = Messages::NameOf(alphabet);
    if (isData)
        object["data"] = Messages::ToHex(userData.Content());
    else
        object[alphabet == Messages::Alphabet::Gsm7 ? "septets" : "characters"] = userData.textUnits;
}

/// One part as it reads, after what the object has already.
show::Json ToJson(show::Json object, const Outgoing& outgoing, std::size_t index,
                  const OutgoingOptions& options) {
    const std::vector<std::uint8_t>& pdu = outgoing.pdus[index];
    const Messages::Reading reading = ReadBack(pdu, options);
    const Messages::UserData* const userData = Messages::UserDataOf(reading.tpdu);
    object["octets"] = Messages::ToHex(pdu);
    object["tpdu_length"] = TpduLength(pdu);
    if (reading.Type() != TpduType::Submit)
        object["type"] = Messages::NameOf(reading.Type());
    if (userData != nullptr)
        AddContent(reading.tpdu, *userData, object);
    object["part"] = index + 1;
    object["parts"] = outgoing.pdus.size();
    if (userData != nullptr)
        AddHeader(*userData, object);
    return object;
}

/// False when a caution is an error.
bool Heed(const std::vector<Caution>& cautions, const Input& input, bool isStrict, Console& console) {
    bool isGood = true;
    for (const Caution& caution : cautions) {
        const std::string where = caution.option.empty() ? NameOf(input) : caution.option;
        const bool isError = isStrict && !caution.isWanted;
        isGood = isGood && !isError;
        if (isError)
            console.Error(where, caution.message);
        else
            console.Warning(where, caution.message);
    }
    return isGood;
}

/// The line that tells a modem that a PDU follows.
std::string CommandFor(const std::vector<std::uint8_t>& pdu, const OutgoingOptions& options) {
    if (options.Type() == TpduType::Command)
        return fmt::format("AT+CMGC={}", TpduLength(pdu));
    if (options.Type() == TpduType::DeliverReport)
        return fmt::format("AT+CNMA={},{}", options.failureCause ? 2 : 1, TpduLength(pdu));
    return fmt::format("AT+CMGS={}", TpduLength(pdu));
}

/// +CNMA takes the TPDU without the octet for a service centre, 3GPP TS 27.005.
Messages::OctetView OctetsToShow(const std::vector<std::uint8_t>& pdu, const OutgoingOptions& options) {
    const bool isForAcknowledgement = options.at && options.Type() == TpduType::DeliverReport;
    return Messages::OctetView(pdu).Sub(isForAcknowledgement ? pdu.size() - TpduLength(pdu) : 0);
}

void Show(const Outgoing& outgoing, const OutgoingOptions& options, const Input& input, Console& console) {
    for (std::size_t i = 0; i < outgoing.pdus.size(); ++i) {
        if (console.WantsJson()) {
            console.Object(ToJson(ObjectFor(input), outgoing, i, options));
            continue;
        }
        if (options.at)
            console.Line(CommandFor(outgoing.pdus[i], options));
        console.Line(Messages::ToHex(OctetsToShow(outgoing.pdus[i], options)));
    }
}

/// One object for all parts, with the cautions in it.
void ShowAsLine(const Outgoing& outgoing, const OutgoingOptions& options, const Input& input,
                Console& console) {
    show::Json object = ObjectFor(input);
    for (const Caution& caution : outgoing.cautions) {
        if (options.strict && !caution.isWanted)
            throw InputError(caution.ToText());
        object["warnings"].push_back(caution.ToText());
    }
    for (std::size_t i = 0; i < outgoing.pdus.size(); ++i)
        object["pdus"].push_back(ToJson(show::Json::object(), outgoing, i, options));
    console.Object(object);
}

void EncodeText(const OutgoingOptions& options, std::optional<std::uint16_t> reference, const Input& input,
                Console& console) {
    constexpr std::uint16_t c_narrow = 0xFF;
    const Outgoing outgoing =
        options.IsForHost()
            ? MakeOutgoingAsHost(options, input.text, static_cast<std::uint8_t>(reference.value_or(0)))
            : MakeOutgoing(options, input.text,
                           reference && options.concatBits != "16" ? *reference & c_narrow : reference);
    if (console.WantsJsonLines())
        ShowAsLine(outgoing, options, input, console);
    else if (Heed(outgoing.cautions, input, options.strict, console))
        Show(outgoing, options, input, console);
}

void Encode(const OutgoingOptions& options, std::optional<std::uint16_t> reference, const Input& input,
            Console& console) {
    try {
        EncodeText(options, reference, input, console);
    } catch (const InputError& error) {
        if (!options.IsDataGiven() || input.source != Input::Source::Stream)
            throw;
        console.Error("--data", error.what()); // nothing was read
    }
}

/// The messages of a run have references one after the other, so that no two of them mix in a handset.
std::optional<std::uint16_t> ReferenceOf(const Run& run, const Input& input) {
    if (!run.reference)
        return std::nullopt;
    const std::size_t before = input.number == 0 ? 0 : input.number - 1;
    return static_cast<std::uint16_t>(*run.reference + before);
}

/// A message that the object of one line tells of.
struct LineMessage {
    OutgoingOptions options;
    std::optional<std::uint16_t> reference;
    std::string text = {};
};

/// Members that the object lacks stay as the command line has them.
LineMessage ReadObject(const std::string& line, const Run& run, std::optional<std::uint16_t> reference) {
    LineMessage message{run.options, reference};
    bool hasText = false;
    bool hasData = false;
    const auto set = [&](const std::string& name, const show::Json& value) {
        hasText = hasText || name == "text";
        hasData = hasData || name == "data";
        if (name == "text")
            message.text = StringIn(name, value);
        else if (!SetOption(name, value, message.options))
            Refuse(name, "no such member");
        if (name == "concat-reference")
            message.reference = static_cast<std::uint16_t>(*message.options.concatReference);
    };
    ReadMembers(line, set, false);
    if (hasText && hasData)
        Refuse("data", "not with text");
    if (hasText)
        message.options.data.clear();
    else if (message.options.data.empty() && !message.options.MayBeEmpty())
        throw InputError("text is required");
    if (const std::string fault = FaultOfCombination(message.options); !fault.empty())
        throw InputError(fault);
    return message;
}

/// With --jsonl, an input that did not come as an argument is an object unless lines are texts.
Afterwards EncodeInput(const Run& run, const Input& input, Console& console) {
    const std::optional<std::uint16_t> reference = ReferenceOf(run, input);
    if (run.options.lines || input.source != Input::Source::Line) {
        Encode(run.options, reference, input, console);
        return {};
    }
    LineMessage message = ReadObject(input.text, run, reference);
    Encode(message.options, message.reference, {input.source, input.number, std::move(message.text)},
           console);
    return {};
}

std::optional<std::uint16_t> FirstReference(const OutgoingOptions& options) {
    if (options.concatReference)
        return static_cast<std::uint16_t>(*options.concatReference);
    if (options.IsForHost()) // as an encoder has it that is made now
        return static_cast<std::uint16_t>(std::time(nullptr) + 1);
    return RandomReference();
}

/// Whether a text is to be read.
bool TakesInput(const OutgoingOptions& options, const ConversionSettings& settings) {
    const bool isNeeded = !options.MayBeEmpty() && !options.IsDataGiven();
    return isNeeded || options.data == "-" || options.lines || options.jsonLines ||
           !settings.arguments.empty();
}

int Encode(const OutgoingOptions& options, const Streams& streams) {
    const Run run{options, FirstReference(options)};
    const ConversionSettings settings = options.Settings();
    const bool hasLines = options.lines || options.jsonLines;
    std::istringstream nothing;
    const Streams without{nothing, streams.out, streams.err, streams.outIsTerminal, streams.errIsTerminal};
    return ConvertStream(
        settings, TakesInput(options, settings) ? streams : without,
        {hasLines ? LineKind::Message : LineKind::Whole,
         [&run](const Input& input, Console& console) { return EncodeInput(run, input, console); }});
}

/// What is wrong with the command line as a whole; an object may still give what it lacks.
std::string FaultOfCommandLine(const OutgoingOptions& options) {
    if (options.IsDataGiven() && options.lines)
        return "--data excludes --lines";
    if (options.IsDataGiven() && !options.inputs->Values().empty())
        return "--data excludes TEXT";
    return options.jsonLines && !options.lines ? "" : FaultOfCombination(options);
}

} // namespace

void AddEncode(const Command& parent) {
    const Command command = parent.AddCommand("encode", "Make the PDUs of a text, or of any message");
    auto options = std::make_shared<OutgoingOptions>();
    AddOutgoing(command, *options);
    command.SetFooter(
        "A line of hexadecimal for each PDU, the service-centre address first. The text goes out in as few\n"
        "messages as it takes, and where these are as many in as few octets: in GSM 7-bit, with the tables\n"
        "of the languages allowed, or in UCS2. With --json an object for each\n"
        "part: \"octets\", \"tpdu_length\" (octets without the service centre, as a modem wants them),\n"
        "\"alphabet\", \"septets\" or \"characters\" or \"data\", \"part\" and \"parts\", and what its\n"
        "header says. With --jsonl an object for each text, with those of its parts as \"pdus\";\n"
        "each line of standard input is then an object itself, with \"text\" and any options by their\n"
        "names: {\"to\": \"+4179123\", \"text\": \"hello\", \"class\": 0, \"status-report\": true}.\n"
        "Reports and commands need no text, and read none from standard input unless it is asked for.\n"
        "\n"
        "Examples:\n"
        "  qxpdu encode --to +4179123 hello\n"
        "  qxpdu encode --to +4179123 --language tr 'Görüşmek üzere'\n"
        "  qxpdu encode --type deliver --from Bank 'Your code is 1234'\n"
        "  qxpdu encode --type status-report --to +4179123 --reference 7 --status 0");
    command.SetAction([options](const Streams& streams) {
        if (const std::string fault = FaultOfCommandLine(*options); !fault.empty())
            throw CommandLineError(fault);
        return Encode(*options, streams);
    });
}

} // namespace qxpdu
