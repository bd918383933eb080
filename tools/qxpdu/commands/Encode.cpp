// qxpdu encode
#include <algorithm>
#include <charconv>
#include <ctime>
#include <optional>
#include <variant>

#include <fmt/format.h>

#include "Encoding/PduDecoder.h"
#include "Encoding/PduEncoder.h"
#include "characters/InputError.h"
#include "characters/Unicode.h"
#include "commands/Commands.h"
#include "commands/Members.h"
#include "commands/Options.h"
#include "commands/OutgoingText.h"
#include "show/CodeUnits.h"
#include "show/Json.h"
#include "show/Plural.h"
#include "show/Record.h"

namespace qxpdu {

namespace {

using Encoding::Pdu;
using Encoding::PduDecoder;
using Encoding::PduEncoder;
using Encoding::ValidityPeriod;

constexpr int c_maxClass = 3;
constexpr int c_maxReference = 255;
constexpr std::size_t c_maxDigits = 20; ///< in an address field of 12 octets

struct EncodeOptions : ConversionOptions {
    std::string to;
    std::string smsc;
    std::optional<int> messageClass;
    std::string validity;
    bool statusReport = false;
    bool rejectDuplicates = false;
    bool replyPath = false;
    std::optional<int> reference;
    bool greek = false;
    bool strict = false;
    bool at = false;
    bool lines = false;
    unsigned int references = 0; ///< the concatenation reference before those of this run
};

/// Gives the messages of a run references of their own, one after the other, as one encoder does.
class InputEncoder : public PduEncoder {
public:
    explicit InputEncoder(unsigned int counter)
        : PduEncoder(Encoding::MessageTypeIndicator::TP_MTI_SMS_SUBMIT) {
        m_ReferenceCounter = static_cast<unsigned char>(counter);
    }
};

/// What goes out of a number: its decimal digits and a plus sign before them.
std::string SentOf(const std::string& number) {
    std::string sent = number.starts_with('+') ? "+" : "";
    std::copy_if(number.begin(), number.end(), std::back_inserter(sent),
                 [](char character) { return character >= '0' && character <= '9'; });
    return sent;
}

/// What makes a number unusable, or nothing.
std::string FaultOfNumber(const std::string& number) {
    const std::string sent = SentOf(number);
    const std::size_t digits = sent.size() - (sent.starts_with('+') ? 1 : 0);
    if (digits == 0)
        return "a number without digits";
    return digits > c_maxDigits ? fmt::format("{} digits, {} at most", digits, c_maxDigits) : "";
}

/// A named period, or the octet.
using Validity = std::variant<ValidityPeriod::TP_VP_Period, int>;

std::optional<Validity> ReadValidity(const std::string& text) {
    constexpr std::pair<std::string_view, ValidityPeriod::TP_VP_Period> c_names[] = {
        {"1h", ValidityPeriod::TP_VP_1_HOUR},   {"2h", ValidityPeriod::TP_VP_2_HOURS},
        {"6h", ValidityPeriod::TP_VP_6_HOURS},  {"12h", ValidityPeriod::TP_VP_12_HOURS},
        {"1d", ValidityPeriod::TP_VP_1_DAY},    {"1w", ValidityPeriod::TP_VP_1_WEEK},
        {"max", ValidityPeriod::TP_VP_MAXIMUM},
    };
    for (const auto& [name, period] : c_names) {
        if (text == name)
            return period;
    }
    unsigned char octet = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), octet);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return octet;
}

std::string FaultOfValidity(const std::string& text) {
    return ReadValidity(text) ? ""
                              : fmt::format("{} is neither 1h, 2h, 6h, 12h, 1d, 1w, max nor an octet", text);
}

void Configure(PduEncoder& encoder, const EncodeOptions& options) {
    encoder.SetRecipient(FromUtf8(SentOf(options.to)));
    encoder.SetSmsc(FromUtf8(SentOf(options.smsc)), false);
    if (options.messageClass)
        encoder.SetClass(static_cast<Encoding::MessageClass::Class>(*options.messageClass));
    if (const auto validity = ReadValidity(options.validity))
        std::visit([&encoder](auto period) { encoder.SetValidityPeriod(period); }, *validity);
    encoder.SetRequireStatusReport(options.statusReport);
    encoder.SetReject_Duplicates(options.rejectDuplicates);
    encoder.SetReplyPath(options.replyPath);
    encoder.SetMessageReference(options.reference.value_or(0));
    if (options.greek)
        encoder.AddTranslateTable(Encoding::TranslateTable::GREEK);
}

/// As a modem wants it, without the service centre.
unsigned int TpduLength(const Pdu& pdu) {
    return pdu.m_Length - 1 - pdu.m_Bytes[0];
}

/// One part as the decoder reads it back, after what the object has already.
show::Json ToJson(show::Json object, const Toolkit::smart_ptr<Pdu>& pdu, std::size_t part,
                  std::size_t parts) {
    PduDecoder decoder;
    decoder.Decode(pdu, false, false);
    const bool hasHeader = decoder.m_HasUserDataHeader != 0;
    object["octets"] = pdu->GetString();
    object["tpdu_length"] = TpduLength(*pdu);
    object["alphabet"] = AlphabetName(decoder.m_Alphabet);
    object[UnitsOf(decoder)] = TextLength(decoder);
    object["part"] = part;
    object["parts"] = parts;
    if (hasHeader) {
        object["concatenation"] = {{"reference", decoder.m_ConcatReference},
                                   {"total", decoder.m_ConcatTotal},
                                   {"sequence", decoder.m_ConcatSequence}};
    }
    return object;
}

bool IsInGsm(const Toolkit::smart_ptr<Pdu>& pdu) {
    PduDecoder decoder;
    decoder.Decode(pdu, false, false);
    return decoder.m_Alphabet == Encoding::Alphabet::ALPHABET_GSM7;
}

struct Caution {
    std::string option; ///< that it is about; empty for the text
    std::string message;

    std::string ToText() const { return option.empty() ? message : option + ": " + message; }
};

/// What will not go out as it was given.
std::vector<Caution> Cautions(const EncodeOptions& options, const TString<wchar_t>& text, const Pdus& pdus) {
    std::vector<Caution> cautions;
    const auto checkNumber = [&cautions](const char* option, const std::string& number) {
        if (SentOf(number) != number)
            cautions.push_back(
                {option, fmt::format("'{}' goes out as {}", show::Printable(number), SentOf(number))});
    };
    checkNumber("--to", options.to);
    checkNumber("--smsc", options.smsc);
    if (text.empty())
        cautions.push_back({"", "the text is empty; a message without text goes out"});
    if (options.greek && IsInGsm(pdus.front())) {
        const std::u32string characters = show::CodePoints(text);
        if (const auto lost = LostWithGreek(characters); !lost.empty()) {
            cautions.push_back(
                {"", fmt::format("{} lost, which GSM 7-bit has not; the first is character {}, {}",
                                 show::Counted(lost.size(), "character"), lost.front(),
                                 CodePointName(characters[lost.front() - 1]))});
        }
    }
    return cautions;
}

/// False when a caution is an error.
bool Heed(const std::vector<Caution>& cautions, const Input& input, bool isStrict, Console& console) {
    for (const Caution& caution : cautions) {
        const std::string where = caution.option.empty() ? NameOf(input) : caution.option;
        if (isStrict)
            console.Error(where, caution.message);
        else
            console.Warning(where, caution.message);
    }
    return !isStrict || cautions.empty();
}

void Show(const EncodeOptions& options, const Input& input, const Pdus& pdus, Console& console) {
    for (std::size_t i = 0; i < pdus.size(); ++i) {
        if (console.WantsJson()) {
            console.Object(ToJson(ObjectFor(input), pdus[i], i + 1, pdus.size()));
            continue;
        }
        if (options.at)
            console.Line(fmt::format("AT+CMGS={}", TpduLength(*pdus[i])));
        console.Line(pdus[i]->GetString());
    }
}

/// One object for all parts, with the cautions in it.
void ShowAsLine(const Input& input, const Pdus& pdus, const std::vector<Caution>& cautions,
                Console& console) {
    show::Json object = ObjectFor(input);
    for (const Caution& caution : cautions)
        object["warnings"].push_back(caution.ToText());
    object["pdus"] = show::Json::array();
    for (std::size_t i = 0; i < pdus.size(); ++i)
        object["pdus"].push_back(ToJson(show::Json::object(), pdus[i], i + 1, pdus.size()));
    console.Object(object);
}

void Encode(const EncodeOptions& options, const Input& input, Console& console) {
    if (options.to.empty())
        throw InputError("--to is required");
    const TString<wchar_t> text = FromUtf8(input.text);
    InputEncoder encoder(options.references + static_cast<unsigned int>(input.number));
    Configure(encoder, options);
    const Pdus pdus = EncodeText(encoder, text);
    const std::vector<Caution> cautions = Cautions(options, text, pdus);
    if (console.WantsJsonLines() && options.strict && !cautions.empty())
        throw InputError(cautions.front().ToText());
    if (!console.WantsJsonLines() && !Heed(cautions, input, options.strict, console))
        return;
    if (console.WantsJsonLines())
        ShowAsLine(input, pdus, cautions, console);
    else
        Show(options, input, pdus, console);
}

/// The option that is on or off, by its name without the dashes; null where there is none.
bool* FlagNamed(const std::string& name, EncodeOptions& options) {
    const std::pair<std::string_view, bool*> flags[] = {
        {"status-report", &options.statusReport},
        {"reject-duplicates", &options.rejectDuplicates},
        {"reply-path", &options.replyPath},
        {"greek", &options.greek},
        {"strict", &options.strict},
    };
    for (const auto& [flagName, flag] : flags) {
        if (name == flagName)
            return flag;
    }
    return nullptr;
}

/// What the object of one line sets; members that it lacks stay as the command line has them.
void SetMember(const std::string& name, const show::Json& value, EncodeOptions& options, std::string& text) {
    if (name == "text")
        text = StringIn(name, value);
    else if (name == "to")
        options.to = StringIn(name, value, FaultOfNumber);
    else if (name == "smsc")
        options.smsc = StringIn(name, value, FaultOfNumber);
    else if (name == "validity")
        options.validity =
            StringIn(name, value.is_number() ? show::Json(value.dump()) : value, FaultOfValidity);
    else if (name == "class")
        options.messageClass = NumberIn(name, value, c_maxClass);
    else if (name == "reference")
        options.reference = NumberIn(name, value, c_maxReference);
    else if (bool* flag = FlagNamed(name, options))
        *flag = FlagIn(name, value);
    else
        Refuse(name, "no such member");
}

/// With --jsonl, an input that did not come as an argument is an object unless lines are texts.
Afterwards EncodeInput(const EncodeOptions& options, const Input& input, Console& console) {
    if (options.jsonLines && !options.lines && input.source == Input::Source::Line) {
        EncodeOptions own = options;
        std::string text;
        ReadMembers(input.text, [&](const std::string& name, const show::Json& value) {
            SetMember(name, value, own, text);
        });
        Encode(own, {input.source, input.number, std::move(text)}, console);
    } else {
        Encode(options, input, console);
    }
    return {};
}

int Encode(EncodeOptions options, const Streams& streams) {
    options.references = static_cast<unsigned int>(std::time(nullptr));
    const bool hasLines = options.lines || options.jsonLines;
    return ConvertStream(
        options.Settings(), streams,
        {hasLines ? LineKind::Message : LineKind::Whole,
         [&options](const Input& input, Console& console) { return EncodeInput(options, input, console); }});
}

void AddOptions(const Command& command, EncodeOptions& options) {
    command.AddText("--to", options.to, "Destination number, a leading + for an international one")
        .Check(FaultOfNumber)
        .Named("NUMBER");
    command.AddText("--smsc", options.smsc, "Service-centre number; without it, the modem's own")
        .Check(FaultOfNumber)
        .Named("NUMBER");
    command.AddNumber("--class", options.messageClass, 0, c_maxClass, "TP-DCS message class, 0 to 3")
        .Named("CLASS");
    command
        .AddText("--validity", options.validity,
                 "TP-VP: 1h, 2h, 6h, 12h, 1d, 1w, max, or the octet, 0 to 255")
        .Check(FaultOfValidity)
        .Named("PERIOD");
    command.AddFlag("--status-report", options.statusReport,
                    "TP-SRR: ask for a status report on the first part");
    command.AddFlag("--reject-duplicates", options.rejectDuplicates, "TP-RD: have duplicates rejected");
    command.AddFlag("--reply-path", options.replyPath, "TP-RP: set the reply path");
    command.AddNumber("--reference", options.reference, 0, c_maxReference, "TP-MR, 0 to 255; 0 without it");
    command.AddFlag("--greek", options.greek, "Send Greek letters as capitals in GSM 7-bit");
    command.AddFlag("--strict", options.strict, "Turn warnings into errors");
    const Option json = AddJson(command, options);
    AddStreaming(command, options);
    command.AddFlag("--at", options.at, "Put AT+CMGS=LENGTH before each PDU, as a modem wants it")
        .Excludes(json)
        .Excludes(command.OptionNamed("--jsonl"));
    AddSentText(command, options, options.lines);
}

} // namespace

void AddEncode(const Command& parent) {
    const Command command = parent.AddCommand("encode", "Make SMS-SUBMIT PDUs of a text");
    auto options = std::make_shared<EncodeOptions>();
    AddOptions(command, *options);
    command.SetFooter(
        "A line of hexadecimal for each PDU, the service-centre address first. The text goes out in\n"
        "GSM 7-bit where every character survives that, else in UCS2. With --json an object for each\n"
        "part: \"octets\", \"tpdu_length\" (octets without the service centre, as a modem wants them),\n"
        "\"alphabet\", \"septets\" or \"characters\", \"part\" and \"parts\", and \"concatenation\" where "
        "the\n"
        "part has a header. With --jsonl an object for each text, with those of its parts as \"pdus\";\n"
        "each line of standard input is then an object itself, with \"text\" and any options by their\n"
        "names: {\"to\": \"+4179123\", \"text\": \"hello\", \"class\": 0, \"status-report\": true}.\n"
        "\n"
        "Example:\n"
        "  qxpdu encode --to +4179123 hello");
    command.SetAction([options](const Streams& streams) {
        if (!options->jsonLines && options->to.empty())
            throw CommandLineError("--to is required");
        return Encode(*options, streams);
    });
}

} // namespace qxpdu
