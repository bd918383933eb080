// qxpdu decode
#include <memory>
#include <optional>
#include <utility>

#include <fmt/format.h>

#include "characters/InputError.h"
#include "commands/CellPages.h"
#include "commands/Commands.h"
#include "commands/Join.h"
#include "commands/Joined.h"
#include "commands/Reading.h"
#include "commands/Rows.h"
#include "log/Pasted.h"
#include "show/Json.h"
#include "show/MessageJson.h"
#include "show/MessageText.h"

namespace qxpdu {

namespace {

struct DecodeOptions : ReadingOptions {
    bool join = false;
    bool each = false;
    RowOptions rows;
};

/// `reportOn` is the message that a status report is about.
void Show(const DecodeOptions& options, const Input& input, const show::Message& message,
          const show::HostReading& host, const std::optional<SentMessage>& reportOn, Console& console) {
    if (options.rows.AreWanted()) {
        show::Row row = show::RowOf(message);
        row[show::Column::Input] = NameOf(input);
        return ShowRow(options.rows, row, console);
    }
    if (!console.WantsJson()) {
        const std::string about =
            reportOn ? NameOf({input.source, reportOn->number, {}, std::nullopt, reportOn->file})
                     : std::string();
        return console.Block(show::ToText(message, host, about));
    }
    show::JsonText object;
    Begin(object, input);
    show::Write(message, host, reportOn ? std::optional(reportOn->number) : std::nullopt, object);
    if (reportOn && !reportOn->file.empty())
        object.Member("report_on_file", reportOn->file);
    console.Object(object);
}

/// What --join remembers of the messages before.
struct EarlierMessages {
    const DecodeOptions& options;
    PartJoiner parts = {};
    SentMessages sent = {};
    Input lastSent = {};        ///< the message that a command of the log sent last
    std::string recipient = {}; ///< of it
    CellPages pages{{Messages::CellFormat::Unknown, options.asHost, options.isStrict, options.join,
                     options.each, options.rows}};

    void TakeSent(const Input& input, const std::string& party, int reference) {
        sent.Add(party, reference, {input.number, input.file});
        if (!input.heading || !input.heading->isSent)
            return;
        lastSent = input;
        recipient = party;
    }

    /// The modem tells the reference that it gave the message.
    void TakeReference(const Input& input) {
        if (lastSent.heading && input.heading->sentLine == lastSent.number && input.file == lastSent.file)
            sent.Add(recipient, static_cast<int>(input.heading->reference), {lastSent.number, lastSent.file});
    }

    void TakePart(const Input& input, const std::shared_ptr<const show::ComparedMessage>& compared,
                  Console& console) {
        const PartJoiner::Outcome outcome = parts.Take(input, compared);
        for (const show::JoinedMessage& message : outcome.messages)
            ShowJoined(message, options.isStrict, options.rows, console);
        if (!outcome.duplicateOf)
            return;
        const Messages::Concatenation& place =
            *Messages::UserDataOf(compared->message.reading.tpdu)->concatenation;
        if (!console.WantsJsonLines())
            return console.Warning(NameOf(input), fmt::format("part {} of {} has come before, in {}",
                                                              place.part, place.total, *outcome.duplicateOf));
        show::Json object = ObjectFor(input);
        object["duplicate_of"] = *outcome.duplicateOf;
        console.Object(object);
    }
};

/// The number of the other party; empty where there is none.
std::string PartyIn(const show::Message& message) {
    const Messages::Address* const party = Messages::PartyOf(message.reading.tpdu);
    return party != nullptr ? party->ToString() : std::string();
}

bool IsPart(const show::Message& message) {
    const Messages::UserData* const userData = Messages::UserDataOf(message.reading.tpdu);
    return userData != nullptr && userData->concatenation.value_or(Messages::Concatenation{}).total > 1;
}

Afterwards Join(EarlierMessages& earlier, const Input& input,
                std::shared_ptr<const show::ComparedMessage> compared, Console& console) {
    const Messages::Tpdu& tpdu = compared->message.reading.tpdu;
    std::string party = PartyIn(compared->message);
    if (const auto* report = std::get_if<Messages::StatusReport>(&tpdu)) {
        return [&earlier, input, party, compared, reference = report->reference](Console& later) {
            Show(earlier.options, input, compared->message, compared->host,
                 earlier.sent.Find(party, reference), later);
        };
    }
    const bool isPart = IsPart(compared->message);
    if (!isPart || earlier.options.each)
        Show(earlier.options, input, compared->message, compared->host, std::nullopt, console);
    return [&earlier, input, party, compared, isPart](Console& later) {
        if (const auto* submit = std::get_if<Messages::Submit>(&compared->message.reading.tpdu))
            earlier.TakeSent(input, party, submit->reference);
        if (isPart)
            earlier.TakePart(input, compared, later);
    };
}

show::Row ReadToRow(const DecodeOptions& options, const Input& input, Console& console) {
    const std::optional<show::Message> message = ReadMessage(options, input, console);
    if (!message) {
        show::Row row;
        row[show::Column::Error] = c_freeRecord;
        return row;
    }
    if (message->reading.fault)
        throw InputError(show::ToText(*message->reading.fault));
    WarnOfText(options, *message, false, input, console);
    WarnOfSurplus(*message, input, console);
    return show::RowOf(*message);
}

Afterwards Convert(EarlierMessages& earlier, const DecodeOptions& options, const Input& input,
                   Console& console) {
    if (input.heading && input.heading->kind == Heading::Kind::Reference)
        return [&earlier, input](Console&) { earlier.TakeReference(input); };
    if (IsPageOfLog(input))
        return earlier.pages.Convert(input, console);
    std::optional<show::Message> read = ReadMessage(options, input, console);
    if (!read)
        return {};
    show::Message& message = *read;
    if (options.asHost) {
        ShowRecord(message, input, console);
        return {};
    }
    const bool isRow = options.rows.AreWanted() && !options.join; // which shows one reading alone
    show::HostReading host =
        isRow && !message.reading.fault ? show::HostReading() : show::CompareWithHost(message);
    if (message.reading.fault) {
        ShowFault(*message.reading.fault, message.warnings, host, input, console);
        return {};
    }
    WarnOfText(options, message, options.join && IsPart(message), input, console);
    if (options.rows.AreWanted())
        WarnOfSurplus(message, input, console);
    if (!options.join) {
        Show(options, input, message, host, std::nullopt, console);
        return {};
    }
    return Join(earlier, input,
                std::make_shared<const show::ComparedMessage>(
                    show::ComparedMessage{std::move(message), std::move(host)}),
                console);
}

void ShowIncomplete(EarlierMessages& earlier, Console& console) {
    for (const show::JoinedMessage& message : earlier.parts.TakeRest())
        ShowJoined(message, earlier.options.isStrict, earlier.options.rows, console);
    earlier.pages.ShowIncomplete(console);
}

} // namespace

void AddDecode(const Command& parent) {
    const Command command = parent.AddCommand("decode", "Show the fields and the text of SMS PDUs");
    auto options = std::make_shared<DecodeOptions>();
    AddConversion(command, *options, "PDU",
                  "PDUs in hexadecimal; without any, one a line from standard input");
    AddReading(command, *options);
    command.AddFlag("--ignore-time-zone", options->ignoreTimeZone, "Show times without their zone");
    const Option join = command.AddFlag(
        "--join", options->join,
        "Put the parts of concatenated messages together, and match status reports to messages");
    command.AddFlag("--each", options->each, "With --join, show each part by itself as well").Needs(join);
    AddFiles(command, *options);
    AddStreaming(command, *options);
    AddRows(command, options->rows);
    command.SetFooter(
        "A line for each field: its name by 3GPP TS 23.040, its value on the wire, its meaning. Below it\n"
        "stands after \"!\" what is unusual, and after \"~\" what a program gets from libQX_Encoding\n"
        "instead. With --json an object for each PDU: a member for each field, \"tp_dcs\" and the like, "
        "with\n"
        "\"raw\" and \"meaning\", then \"text\" or \"data\", \"remarks\" and \"libQX_Encoding\".\n"
        "\n"
        "Standard input and files may be logs of modems: what a program writes around the PDUs is passed "
        "over.\n"
        "\n"
        "With --join a message is shown once its last part has come, or in the end with what is missing. Of\n"
        "messages waiting for parts, the oldest is given up when there are more than 4096, or a mebibyte of "
        "them.\n"
        "\n"
        "Example:\n"
        "  qxpdu decode 0791214365870921040B912143658709F100002120312143658005C8329BFD06\n"
        "  qxpdu decode --join < modem.log\n"
        "  tail -f modem.log | qxpdu decode --brief");
    command.SetAction([options](const Streams& streams) {
        if (options->rows.AreLinesRows())
            return ConvertRows(
                options->Settings(), options->rows, streams,
                [&](const Input& input, Console& console) { return ReadToRow(*options, input, console); });
        const std::shared_ptr<EarlierMessages> earlier(new EarlierMessages{*options});
        streams.out << HeadingOf(options->rows);
        return ConvertStream(options->Settings(), streams,
                             {LineKind::Transcript,
                              [options, earlier](const Input& input, Console& console) {
                                  return Convert(*earlier, *options, input, console);
                              },
                              [earlier](Console& console) { ShowIncomplete(*earlier, console); }});
    });
}

} // namespace qxpdu
