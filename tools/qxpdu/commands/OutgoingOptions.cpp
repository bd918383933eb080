#include "commands/OutgoingOptions.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <variant>

#include <fmt/format.h>

#include "Messages/Words.h"
#include "characters/Hexadecimal.h"
#include "characters/InputError.h"
#include "commands/Languages.h"
#include "commands/Members.h"
#include "commands/Numbers.h"
#include "commands/Parties.h"
#include "commands/Times.h"
#include "show/Json.h"

namespace qxpdu {

namespace {

using Messages::TpduType;

constexpr const char* c_first = "first";
constexpr const char* c_all = "all";
constexpr int c_maxOctet = 0xFF;
constexpr int c_maxWord = 0xFFFF;

constexpr std::pair<std::string_view, TpduType> c_types[] = {
    {"submit", TpduType::Submit},
    {"deliver", TpduType::Deliver},
    {"status-report", TpduType::StatusReport},
    {"command", TpduType::Command},
    {"deliver-report", TpduType::DeliverReport},
    {"submit-report", TpduType::SubmitReport},
};

std::optional<TpduType> TypeNamed(std::string_view name) {
    const auto* const found = std::find_if(std::begin(c_types), std::end(c_types),
                                           [name](const auto& row) { return row.first == name; });
    return found == std::end(c_types) ? std::nullopt : std::optional(found->second);
}

// What is wrong with a value by itself.

std::string FaultOfType(const std::string& name) {
    return TypeNamed(name) ? ""
                           : fmt::format("{} is neither submit, deliver, status-report, command, "
                                         "deliver-report nor submit-report",
                                         name);
}

std::string FaultOfReports(const std::string& which) {
    const bool isKnown = which == c_first || which == c_all;
    return isKnown ? "" : fmt::format("{} is neither {} nor {}", which, c_first, c_all);
}

std::string FaultOfCoding(const std::string& name) {
    const bool isKnown = AlphabetNamed(name) || name == "8bit";
    return isKnown ? "" : fmt::format("{} is neither gsm, ucs2 nor 8bit", name);
}

std::string FaultOfData(const std::string& text) {
    try {
        if (text != "-")
            ReadHex(text);
        return {};
    } catch (const InputError& error) {
        return error.what();
    }
}

// The options.

/// What an option is of use for: a bit for each type by its number, and one for libQX_Encoding.
constexpr unsigned int For(TpduType type) {
    return 1U << static_cast<unsigned int>(type);
}
constexpr unsigned int c_deliver = For(TpduType::Deliver);
constexpr unsigned int c_submit = For(TpduType::Submit);
constexpr unsigned int c_statusReport = For(TpduType::StatusReport);
constexpr unsigned int c_command = For(TpduType::Command);
constexpr unsigned int c_reports = For(TpduType::DeliverReport) | For(TpduType::SubmitReport);
constexpr unsigned int c_texts = c_deliver | c_submit | c_statusReport | c_reports;
constexpr unsigned int c_everything = c_texts | c_command;
constexpr unsigned int c_forHost = 0x80;

using Text = std::string OutgoingOptions::*;
using Number = std::optional<int> OutgoingOptions::*;
using Flag = bool OutgoingOptions::*;

struct Row {
    std::string_view name;
    std::variant<Text, Number, Flag> member;
    unsigned int uses;
    const char* value; ///< as help calls it
    const char* description;
    std::string (*faultOf)(const std::string&) = nullptr; ///< of texts
    bool takesBoth = false; ///< a text that may be a number of JSON, or a number that may be hexadecimal
    int least = 0;          ///< of numbers
    int most = c_maxOctet;
};

using Options = OutgoingOptions;

/// In the order of the help.
const Row c_rows[] = {
    {"type", &Options::type, c_everything | c_forHost, "TYPE",
     "What to make: submit, deliver, status-report, command, deliver-report or submit-report; submit without "
     "it",
     FaultOfType},
    {"to", &Options::to, c_submit | c_statusReport | c_command | c_forHost, "NUMBER",
     "Destination number, a leading + for an international one; of a status report, whom the message was for",
     FaultOfNumber},
    {"from", &Options::from, c_deliver | c_statusReport, "PARTY",
     "Number or name that a deliver or a status report is from; a name has 11 characters at most",
     FaultOfParty},
    {"smsc", &Options::smsc, c_everything | c_forHost, "NUMBER",
     "Service-centre number; without it, the modem's own", FaultOfNumber},
    {"alphabet", &Options::alphabet, c_texts, "NAME",
     "gsm, ucs2, or 8bit, an octet for each character up to U+00FF; without it, the cheapest of gsm and ucs2",
     FaultOfCoding},
    {"language", &Options::languages, c_texts, "CODES", c_languagesMeaning, FaultOfLanguages},
    {"replace", &Options::replacesNear, c_texts, "", "Send near characters where that is cheaper"},
    {"data", &Options::data, c_everything, "HEX", "8-bit data in place of a text; - where the input is it",
     FaultOfData},
    {"class", &Options::messageClass, c_texts | c_forHost, "CLASS", "TP-DCS message class, 0 to 3", nullptr,
     false, 0, 3},
    {"port", &Options::ports, c_everything, "TO[:FROM]",
     "Port of the application that it is for, and is from", FaultOfPorts, true},
    {"port-bits", &Options::portBits, c_everything, "8|16", "Bits of the ports; 16 without it", FaultOfBits,
     true},
    {"concat-reference", &Options::concatReference, c_submit | c_deliver | c_forHost, "N",
     "Reference of the parts, of the first text; the next has the next; random without it", nullptr, false, 0,
     c_maxWord},
    {"concat-bits", &Options::concatBits, c_submit | c_deliver, "8|16",
     "Bits of that reference; 8 without it", FaultOfBits, true},
    {"pid", &Options::protocol, c_everything, "N", "TP-PID; 0 without it", nullptr, true, 0, c_maxOctet},
    {"validity", &Options::validity, c_submit | c_forHost, "PERIOD",
     "TP-VP: 90m, 3h, 2d, 1w, max, a bare number for the octet, or until 2026-12-24T18:00:00+01:00",
     FaultOfPeriod, true},
    {"validity-format", &Options::validityFormat, c_submit, "FORMAT",
     "TP-VPF: relative, enhanced, to the second, or absolute; without it, as the validity needs it",
     FaultOfValidityFormat},
    {"single-shot", &Options::isSingleShot, c_submit, "", "Enhanced format: one attempt at delivery"},
    {"status-report", &Options::statusReport, c_submit | c_deliver | c_command | c_forHost, "first|all",
     "TP-SRR, or TP-SRI: ask for a status report on the first part, or with =all on each", FaultOfReports},
    {"reject-duplicates", &Options::rejectDuplicates, c_submit | c_forHost, "",
     "TP-RD: have duplicates rejected"},
    {"reply-path", &Options::replyPath, c_submit | c_deliver | c_forHost, "", "TP-RP: set the reply path"},
    {"reference", &Options::reference, c_submit | c_statusReport | c_command | c_forHost, "N",
     "TP-MR of the first part of each text, 0 to 255; 0 in all parts without it, as modems give their own"},
    {"time", &Options::time, c_deliver | c_statusReport | For(TpduType::SubmitReport), "TIME",
     "TP-SCTS, as 2026-12-24T18:00:00+01:00; now without it", FaultOfTime},
    {"discharge-time", &Options::dischargeTime, c_statusReport, "TIME", "TP-DT; TP-SCTS without it",
     FaultOfTime},
    {"status", &Options::status, c_statusReport, "N", "TP-ST; 0, delivered, without it", nullptr, true, 0,
     c_maxOctet},
    {"for-command", &Options::forCommand, c_statusReport, "", "TP-SRQ: the report is on a command"},
    {"more-messages", &Options::moreMessages, c_deliver | c_statusReport, "", "TP-MMS: more messages wait"},
    {"loop-prevention", &Options::loopPrevention, c_deliver | c_statusReport, "",
     "TP-LP: the message was forwarded or spawned"},
    {"failure-cause", &Options::failureCause, c_reports, "N",
     "TP-FCS, 128 to 255; without it, the report is an acknowledgement", nullptr, true, 128, c_maxOctet},
    {"command-type", &Options::commandType, c_command, "N", "TP-CT; 0, an enquiry, without it", nullptr, true,
     0, c_maxOctet},
    {"message-number", &Options::messageNumber, c_command, "N",
     "TP-MN: TP-MR of the message that the command is about"},
    {"as", &Options::as, c_everything | c_forHost, c_host, "Send what the encoder of that library makes",
     FaultOfHost},
    {"greek", &Options::greek, c_forHost, "", "With --as: Greek letters as capitals in GSM 7-bit"},
    {"strict", &Options::strict, c_everything | c_forHost, "", "Turn warnings into errors"},
};

/// What an option may be given as, and how it is set.
bool IsFlagToo(Text member) {
    return member == &Options::statusReport;
}

std::string RangeOf(const Row& row) {
    return fmt::format("no number from {} to {}", row.least, row.most);
}

std::optional<int> NumberIn(const Row& row, const std::string& text) {
    const std::optional<int> number = NumberOf(text, row.most);
    return number >= row.least ? number : std::nullopt; // nothing is less than any number
}

bool IsGiven(const Row& row, const OutgoingOptions& options) {
    struct Finder {
        const OutgoingOptions& options;
        bool operator()(Text member) const { return !(options.*member).empty(); }
        bool operator()(Number member) const { return (options.*member).has_value(); }
        bool operator()(Flag member) const { return options.*member; }
    };
    return std::visit(Finder{options}, row.member);
}

/// Adds an option to the command line.
struct Adder {
    const Command& command;
    OutgoingOptions& options;
    const Row& row;

    void operator()(Text member) const {
        const Option option = IsFlagToo(member)
                                  ? command.AddFlagOrText(Name(), options.*member, c_first, row.description)
                                  : command.AddText(Name(), options.*member, row.description);
        Option(option).Check(row.faultOf).Named(row.value);
    }
    void operator()(Number member) const {
        if (!row.takesBoth) {
            command.AddNumber(Name(), options.*member, row.least, row.most, row.description).Named(row.value);
            return;
        }
        command
            .AddText(
                Name(),
                [target = &(options.*member), &row = row](const std::string& text) {
                    *target = NumberIn(row, text);
                },
                row.description)
            .Check([&row = row](const std::string& text) {
                return NumberIn(row, text) ? std::string() : fmt::format("{} is {}", text, RangeOf(row));
            })
            .Named(fmt::format("{0}|0x{0}", row.value));
    }
    void operator()(Flag member) const { command.AddFlag(Name(), options.*member, row.description); }

    std::string Name() const { return fmt::format("--{}", row.name); }
};

/// Sets an option to the value of a member.
struct Setter {
    const std::string& name;
    const show::Json& value;
    OutgoingOptions& options;
    const Row& row;

    void operator()(Text member) const {
        if (IsFlagToo(member) && value.is_boolean())
            options.*member = value.get<bool>() ? c_first : "";
        else
            options.*member = StringIn(
                name, row.takesBoth && value.is_number() ? show::Json(value.dump()) : value, row.faultOf);
    }
    void operator()(Number member) const {
        const bool isText = row.takesBoth && value.is_string();
        const std::optional<int> number =
            isText || value.is_number_integer()
                ? NumberIn(row, isText ? value.get<std::string>() : value.dump())
                : std::nullopt;
        if (!number)
            Refuse(name, RangeOf(row));
        options.*member = number;
    }
    void operator()(Flag member) const { options.*member = FlagIn(name, value); }
};

// What does not go together.

std::string FaultOfUse(const OutgoingOptions& options) {
    const unsigned int use = options.IsForHost() ? c_forHost : For(options.Type());
    for (const Row& row : c_rows) {
        if ((row.uses & use) != 0 || !IsGiven(row, options))
            continue;
        if (row.uses == c_forHost)
            return fmt::format("--{}: only with --as {}", row.name, c_host);
        return fmt::format("--{}: {} has none", row.name,
                           options.IsForHost() ? c_host : Messages::NameOf(options.Type()));
    }
    return {};
}

std::string FaultOfParties(const OutgoingOptions& options) {
    const TpduType type = options.Type();
    if (!options.to.empty() && !options.from.empty())
        return "--from excludes --to";
    if (type == TpduType::StatusReport && options.to.empty() && options.from.empty())
        return "--to or --from is required";
    if ((type == TpduType::Submit || type == TpduType::Command) && options.to.empty())
        return "--to is required";
    return type == TpduType::Deliver && options.from.empty() ? "--from is required" : "";
}

std::string FaultOfContent(const OutgoingOptions& options) {
    if (!options.data.empty() && !(options.alphabet.empty() || options.alphabet == "8bit"))
        return "--data excludes --alphabet";
    if (!options.data.empty() && (!options.languages.empty() || options.replacesNear))
        return options.replacesNear ? "--data excludes --replace" : "--data excludes --language";
    if (options.alphabet == "8bit" && (!options.languages.empty() || options.replacesNear))
        return options.replacesNear ? "--replace: 8-bit data has no tables"
                                    : "--language: 8-bit data has no tables";
    return {};
}

std::string FaultOfHeader(const OutgoingOptions& options) {
    if (options.concatReference.value_or(0) > c_maxOctet && options.concatBits != "16")
        return fmt::format("--concat-reference: {} takes --concat-bits 16", *options.concatReference);
    return FaultOfPortsWithBits(options);
}

std::string FaultOfValidity(const OutgoingOptions& options) {
    try {
        const Messages::Validity validity = options.Validity().validity;
        const bool isKnownToHost = validity.format == Messages::ValidityFormat::None ||
                                   validity.format == Messages::ValidityFormat::Relative;
        return options.IsForHost() && !isKnownToHost
                   ? fmt::format("--validity: {} has relative periods alone", c_host)
                   : "";
    } catch (const InputError& error) {
        return error.what();
    }
}

std::string FaultOfHostUse(const OutgoingOptions& options) {
    if (!options.IsForHost())
        return {};
    if (options.Type() != TpduType::Submit)
        return fmt::format("--type: {} makes no {}", c_host, Messages::NameOf(options.Type()));
    if (options.concatReference.value_or(0) > c_maxOctet)
        return fmt::format("--concat-reference: {} has references from 0 to {}", c_host, c_maxOctet);
    for (const auto& [name, number] : {std::pair("--to", options.to), std::pair("--smsc", options.smsc)}) {
        const std::size_t place = number.find_first_of("*#abc");
        if (place != std::string::npos)
            return fmt::format("{}: character {}, '{}', which {} leaves out", name, place + 1, number[place],
                               c_host);
    }
    return options.statusReport == c_all
               ? fmt::format("--status-report: {} asks for one on the first part alone", c_host)
               : "";
}

std::string FaultOfCommand(const OutgoingOptions& options) {
    const TpduType type = options.Type();
    const bool isSentByMobile =
        type == TpduType::Submit || type == TpduType::Command || type == TpduType::DeliverReport;
    if (options.at && type == TpduType::DeliverReport && !options.smsc.empty())
        return "--smsc: AT+CNMA takes no service centre";
    return options.at && !isSentByMobile
               ? fmt::format("--at: no command of a modem sends an {}", Messages::NameOf(type))
               : "";
}

} // namespace

TpduType OutgoingOptions::Type() const {
    return TypeNamed(type).value_or(TpduType::Submit);
}

bool OutgoingOptions::MayBeEmpty() const {
    return Type() != TpduType::Submit && Type() != TpduType::Deliver;
}

void AddOutgoing(const Command& command, OutgoingOptions& options) {
    for (const Row& row : c_rows)
        std::visit(Adder{command, options, row}, row.member);
    const Option json = AddJson(command, options);
    AddStreaming(command, options);
    command.AddFlag("--at", options.at, "Put AT+CMGS=LENGTH before each PDU, as a modem wants it")
        .Excludes(json)
        .Excludes(command.OptionNamed("--jsonl"));
    AddSentText(command, options, options.lines);
}

bool SetOption(const std::string& name, const show::Json& value, OutgoingOptions& options) {
    const auto* const row = std::find_if(std::begin(c_rows), std::end(c_rows),
                                         [&name](const Row& one) { return one.name == name; });
    if (row == std::end(c_rows))
        return false;
    std::visit(Setter{name, value, options, *row}, row->member);
    return true;
}

std::string FaultOfCombination(const OutgoingOptions& options) {
    for (const auto faultOf : {FaultOfUse, FaultOfHostUse, FaultOfParties, FaultOfContent, FaultOfHeader,
                               FaultOfValidity, FaultOfCommand}) {
        if (std::string fault = faultOf(options); !fault.empty())
            return fault;
    }
    return {};
}

} // namespace qxpdu
