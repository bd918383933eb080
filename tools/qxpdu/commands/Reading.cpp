#include "commands/Reading.h"

#include <optional>
#include <utility>

#include <fmt/format.h>

#include "characters/Hexadecimal.h"
#include "characters/InputError.h"
#include "log/Pasted.h"
#include "show/JoinedMessage.h"
#include "show/MessageJson.h"
#include "show/MessageText.h"
#include "show/Notes.h"
#include "show/Values.h"

namespace qxpdu {

namespace {

constexpr const char* c_yes = "yes";
constexpr const char* c_no = "no";

std::string FaultOfDirection(const std::string& direction) {
    const std::string_view toMobile = show::DirectionName(Messages::Direction::ToMobile);
    const std::string_view fromMobile = show::DirectionName(Messages::Direction::FromMobile);
    const bool isKnown = direction == toMobile || direction == fromMobile;
    return isKnown ? "" : fmt::format("{} is neither {} nor {}", direction, toMobile, fromMobile);
}

std::optional<Messages::CellFormat> CellFormatOf(std::string_view name) {
    using Messages::CellFormat;
    constexpr std::pair<std::string_view, CellFormat> c_formats[] = {{"gsm", CellFormat::GsmPage},
                                                                     {"umts", CellFormat::UmtsMessage},
                                                                     {"etws", CellFormat::EtwsNotification}};
    for (const auto& [formatName, format] : c_formats) {
        if (name == formatName)
            return format;
    }
    return std::nullopt;
}

std::string FaultOfCellFormat(const std::string& name) {
    return CellFormatOf(name) ? "" : fmt::format("{} is neither gsm, umts nor etws", name);
}

Messages::Direction DirectionOf(const ReadingOptions& options) {
    if (options.direction.empty())
        return Messages::Direction::Unknown;
    const bool isToMobile = options.direction == show::DirectionName(Messages::Direction::ToMobile);
    return isToMobile ? Messages::Direction::ToMobile : Messages::Direction::FromMobile;
}

std::string FaultOfPresence(const std::string& presence) {
    const bool isKnown = presence == c_yes || presence == c_no;
    return isKnown ? "" : fmt::format("{} is neither {} nor {}", presence, c_yes, c_no);
}

Messages::Presence ServiceCentreOf(const ReadingOptions& options) {
    if (options.noSmsc || options.smsc == c_no)
        return Messages::Presence::No;
    return options.smsc == c_yes ? Messages::Presence::Yes : Messages::Presence::Unknown;
}

} // namespace

void AddReading(const Command& command, ReadingOptions& options) {
    const Option noSmsc = command.AddFlag("--no-smsc", options.noSmsc, "The same as --smsc no");
    command
        .AddText("--smsc", options.smsc,
                 "Whether the PDUs begin with a service centre, yes or no; without it, what makes sense")
        .Check(FaultOfPresence)
        .Excludes(noSmsc)
        .Named("yes|no");
    command
        .AddText("--direction", options.direction,
                 "Which way the PDUs go, to-mobile or from-mobile; without it, what the octets allow")
        .Check(FaultOfDirection)
        .Named("WAY");
    AddHostReading(command, options.asHost);
    AddStrict(command, options.isStrict);
}

void AddHostReading(const Command& command, bool& asHost) {
    command
        .AddText(
            "--as", [&asHost](const std::string&) { asHost = true; },
            "Show the reading of libQX_Encoding alone, member by member")
        .Check(FaultOfHost)
        .Named(c_host);
}

void AddStrict(const Command& command, bool& isStrict) {
    command.AddFlag("--strict", isStrict,
                    "Turn warnings into errors: a text of which something is missing, cut or compressed");
}

void AddCellFormat(const Command& command, Messages::CellFormat& format) {
    command
        .AddText(
            "--type", [&format](const std::string& name) { format = *CellFormatOf(name); },
            "Pages of GSM, messages of UMTS, notifications of ETWS: gsm, umts or etws; without it, what the "
            "octets tell")
        .Check(FaultOfCellFormat)
        .Named("gsm|umts|etws")
        .Excludes(command.OptionNamed("--as")); // it knows pages of GSM alone
}

std::optional<show::Message> ReadMessage(const ReadingOptions& options, const Input& input,
                                         Console& console) {
    const Told told{ServiceCentreOf(options), DirectionOf(options),
                    input.heading ? &*input.heading : nullptr};
    PastedPdu pdu = ReadPasted(ReadPduOctets(input.text), told);
    const bool isNothing = pdu.isFreeRecord && !options.asHost;
    show::Message message;
    message.octets = std::move(pdu.octets);
    message.reading = std::move(pdu.reading);
    message.hasServiceCentre = pdu.hasServiceCentre;
    message.isZoneIgnored = options.ignoreTimeZone;
    message.warnings = std::move(pdu.warnings);
    TellWarnings(message.warnings, input, console);
    if (isNothing && console.WantsJsonLines()) {
        show::JsonText object;
        Begin(object, input);
        show::WriteWarnings(message.warnings, object);
        console.Object(object);
    }
    return isNothing ? std::nullopt : std::optional(std::move(message));
}

void TellWarnings(const std::vector<std::string>& warnings, const Input& input, Console& console) {
    if (console.WantsJsonLines())
        return;
    for (const std::string& warning : warnings)
        console.Warning(NameOf(input), warning);
}

void TellRemark(const Messages::Remark& remark, bool isStrict, const Input& input, Console& console) {
    if (isStrict)
        throw InputError(show::ToText(remark));
    if (!console.WantsJsonLines())
        console.Warning(NameOf(input), show::ToText(remark));
}

void ShowFault(const Messages::Fault& fault, const std::vector<std::string>& warnings,
               const show::HostReading& host, const Input& input, Console& console) {
    const std::string words = show::ToText(fault);
    if (!console.WantsJsonLines())
        return console.Error(NameOf(input),
                             host.isRejected ? words : fmt::format("{}; {}", words, show::c_acceptedText));
    show::JsonText object;
    Begin(object, input);
    object.Member("error", std::string_view(words));
    show::WriteWarnings(warnings, object);
    show::WriteFault(fault, object);
    show::WriteDifferences(host, true, object);
    console.Object(object);
    console.Failed();
}

void ShowRecord(const show::Message& message, const Input& input, Console& console) {
    const show::HostReading record = show::ReadAsHost(message);
    if (console.WantsJson()) {
        show::JsonText object;
        Begin(object, input);
        object.Octets("octets", message.octets);
        show::Write(record, object);
        console.Object(object);
    } else {
        console.Block(show::ToText(record));
    }
    if (!record.isRejected)
        return;
    if (console.WantsJsonLines())
        console.Failed(); // the object says so
    else
        console.Error(NameOf(input), "rejected by libQX_Encoding");
}

void WarnOfSurplus(const show::Message& message, const Input& input, Console& console) {
    for (const Messages::Remark& remark : message.reading.remarks) {
        if (remark.code == Messages::RemarkCode::SurplusOctets)
            console.Warning(NameOf(input), show::ToText(remark));
    }
}

void WarnOfText(const ReadingOptions& options, const show::Message& message, bool isPart, const Input& input,
                Console& console) {
    for (const Messages::Remark& remark : message.reading.remarks) {
        if (show::ConcernsText(remark) && !(isPart && show::MayBeHealed(remark)))
            TellRemark(remark, options.isStrict, input, console);
    }
}

} // namespace qxpdu
