#include "commands/Reading.h"

#include <algorithm>

#include <fmt/format.h>

#include "characters/Hexadecimal.h"
#include "characters/InputError.h"
#include "show/MessageJson.h"
#include "show/MessageText.h"

namespace qxpdu {

namespace {

constexpr const char* c_toMobile = "to-mobile";
constexpr const char* c_fromMobile = "from-mobile";
constexpr const char* c_host = "libQX_Encoding";

std::string FaultOfDirection(const std::string& direction) {
    const bool isKnown = direction == c_toMobile || direction == c_fromMobile;
    return isKnown ? "" : fmt::format("{} is neither {} nor {}", direction, c_toMobile, c_fromMobile);
}

std::string FaultOfReader(const std::string& reader) {
    return reader == c_host ? "" : fmt::format("{} is not {}", reader, c_host);
}

Messages::Direction DirectionOf(const ReadingOptions& options) {
    if (options.direction.empty())
        return Messages::Direction::Unknown;
    return options.direction == c_toMobile ? Messages::Direction::ToMobile : Messages::Direction::FromMobile;
}

/// The octets of a PDU after the service centre.
unsigned int TpduLength(const std::vector<std::uint8_t>& octets, bool noSmsc) {
    const std::size_t serviceCentre = noSmsc || octets.empty() ? 0 : octets[0] + std::size_t{1};
    return static_cast<unsigned int>(octets.size() - std::min(octets.size(), serviceCentre));
}

} // namespace

void AddReading(CLI::App& command, ReadingOptions& options) {
    command.add_flag("--no-smsc", options.noSmsc,
                     "The PDUs begin with the TPDU, not with the service centre");
    command
        .add_option("--direction", options.direction,
                    "Which way the PDUs go, to-mobile or from-mobile; without it, what the octets allow")
        ->check(FaultOfDirection)
        ->type_name("WAY");
    command
        .add_option_function<std::string>(
            "--as", [&options](const std::string&) { options.asHost = true; },
            "Show the reading of libQX_Encoding alone: its result and its record, member by member")
        ->check(FaultOfReader)
        ->type_name("libQX_Encoding");
    command.add_flag("--strict", options.isStrict,
                     "Turn warnings into errors: a text of which something is missing, cut or compressed");
}

Message ReadMessage(const ReadingOptions& options, const Input& input) {
    if (input.heading)
        CheckMode(*input.heading);
    Message message;
    message.octets = ReadPduOctets(input.text);
    if (input.heading)
        CheckLength(*input.heading, TpduLength(message.octets, options.noSmsc));
    Messages::ReadOptions known;
    known.serviceCentre = options.noSmsc ? Messages::Presence::No : Messages::Presence::Yes;
    known.direction = DirectionOf(options);
    message.reading = Messages::Read(message.octets, known);
    message.hasServiceCentre = !options.noSmsc;
    message.isZoneIgnored = options.ignoreTimeZone;
    return message;
}

void ShowRecord(const Message& message, const Input& input, Console& console) {
    const HostReading record = ReadAsHost(message);
    if (console.WantsJson()) {
        JsonText object;
        Begin(object, input);
        object.Octets("octets", message.octets.data(), message.octets.size());
        Write(record, object);
        console.Object(object);
    } else {
        console.Block(ToText(record));
    }
    if (!record.isRejected)
        return;
    if (console.WantsJsonLines())
        console.Failed(); // the object says so
    else
        console.Error(NameOf(input), "rejected by libQX_Encoding");
}

void WarnOfText(const ReadingOptions& options, const Message& message, bool isPart, const Input& input,
                Console& console) {
    for (const Messages::Remark& remark : message.reading.remarks) {
        const bool mayBeHealed = remark.code == Messages::RemarkCode::EscapeAtEnd ||
                                 remark.code == Messages::RemarkCode::UnpairedSurrogate;
        if (!ConcernsText(remark) || (isPart && mayBeHealed))
            continue;
        if (options.isStrict)
            throw InputError(ToText(remark));
        if (!console.WantsJsonLines())
            console.Warning(NameOf(input), ToText(remark));
    }
}

} // namespace qxpdu
