#include "commands/Outgoing.h"

#include <map>
#include <utility>
#include <variant>

#include <fmt/format.h>

#include "Messages/Parts.h"
#include "Messages/Words.h"
#include "Messages/Write.h"
#include "characters/Hexadecimal.h"
#include "characters/InputError.h"
#include "characters/Unicode.h"
#include "commands/Parties.h"
#include "commands/Times.h"
#include "show/CodeUnits.h"
#include "show/Plural.h"

namespace qxpdu {

namespace {

using Messages::Tpdu;
using Messages::TpduType;

std::uint8_t OctetOf(std::optional<int> number) {
    return static_cast<std::uint8_t>(number.value_or(0));
}

std::optional<std::uint8_t> MaybeOctetOf(std::optional<int> number) {
    return number ? std::optional(static_cast<std::uint8_t>(*number)) : std::nullopt;
}

std::u32string CharactersOf(std::string_view text) {
    return show::CodePoints(FromUtf8(text));
}

// The fields of each type, but for the user data.

/// TP-SCTS.
Messages::Timestamp TimeOf(const OutgoingOptions& options) {
    return options.time.empty() ? Now() : *TimeIn(options.time);
}

/// TP-DCS of a message without user data; nothing where it has no class.
std::optional<Messages::DataCoding> CodingOf(const OutgoingOptions& options) {
    constexpr unsigned int c_hasClass = 0x10;
    if (!options.messageClass)
        return std::nullopt;
    return Messages::DataCoding(static_cast<std::uint8_t>(c_hasClass | OctetOf(options.messageClass)));
}

Tpdu SubmitOf(const OutgoingOptions& options) {
    Messages::Submit submit;
    submit.rejectDuplicates = options.rejectDuplicates;
    submit.replyPath = options.replyPath;
    submit.reference = OctetOf(options.reference);
    submit.destination = AddressOfNumber(options.to);
    submit.protocol = OctetOf(options.protocol);
    submit.validity = options.Validity().validity;
    return submit;
}

Tpdu DeliverOf(const OutgoingOptions& options) {
    Messages::Deliver deliver;
    deliver.moreMessages = options.moreMessages;
    deliver.loopPrevention = options.loopPrevention;
    deliver.replyPath = options.replyPath;
    deliver.originator = AddressOfParty(options.from);
    deliver.protocol = OctetOf(options.protocol);
    deliver.timestamp = TimeOf(options);
    return deliver;
}

Tpdu StatusReportOf(const OutgoingOptions& options) {
    Messages::StatusReport report;
    report.moreMessages = options.moreMessages;
    report.loopPrevention = options.loopPrevention;
    report.isForCommand = options.forCommand;
    report.reference = OctetOf(options.reference);
    report.recipient = AddressOfParty(options.to.empty() ? options.from : options.to);
    report.timestamp = TimeOf(options);
    report.discharge = options.dischargeTime.empty() ? report.timestamp : *TimeIn(options.dischargeTime);
    report.status = OctetOf(options.status);
    report.protocol = MaybeOctetOf(options.protocol);
    report.coding = CodingOf(options);
    return report;
}

Tpdu CommandOf(const OutgoingOptions& options) {
    Messages::Command command;
    command.reference = OctetOf(options.reference);
    command.protocol = OctetOf(options.protocol);
    command.commandType = OctetOf(options.commandType);
    command.messageNumber = OctetOf(options.messageNumber);
    command.destination = AddressOfNumber(options.to);
    return command;
}

template <typename Report>
Report ReportOf(const OutgoingOptions& options) {
    Report report;
    report.failureCause = MaybeOctetOf(options.failureCause);
    report.protocol = MaybeOctetOf(options.protocol);
    report.coding = CodingOf(options);
    return report;
}

Tpdu TpduOf(const OutgoingOptions& options) {
    switch (options.Type()) {
    case TpduType::Deliver:
        return DeliverOf(options);
    case TpduType::StatusReport:
        return StatusReportOf(options);
    case TpduType::Command:
        return CommandOf(options);
    case TpduType::DeliverReport:
        return ReportOf<Messages::DeliverReport>(options);
    case TpduType::SubmitReport: {
        auto report = ReportOf<Messages::SubmitReport>(options);
        report.timestamp = TimeOf(options);
        return report;
    }
    default:
        return SubmitOf(options);
    }
}

// What differs between the parts.

template <typename Message>
void SetCoding(Message& message, const Messages::DataCoding& coding) {
    if constexpr (requires { message.coding; })
        message.coding = coding;
}

/// TP-DCS takes an octet from the user data, and may be left out where it is 0.
void SetCoding(Messages::StatusReport& report, const Messages::DataCoding& coding) {
    report.coding = coding.value == 0 ? std::nullopt : std::optional(coding);
}

void SetUserData(Tpdu& tpdu, const Messages::DataCoding& coding, const Messages::UserData& userData) {
    std::visit(
        [&](auto& one) {
            SetCoding(one, coding);
            if constexpr (requires { one.data; })
                one.data = userData;
            if constexpr (requires { one.userData; })
                one.userData = userData;
        },
        tpdu);
}

void AskForReport(Tpdu& tpdu, bool isAskedFor) {
    std::visit(
        [&](auto& one) {
            if constexpr (requires { one.statusReportRequest; })
                one.statusReportRequest = isAskedFor;
            if constexpr (requires { one.statusReportIndication; })
                one.statusReportIndication = isAskedFor;
        },
        tpdu);
}

/// Each SMS-SUBMIT has the next, 3GPP TS 23.040 clause 9.2.3.6.
void CountReferenceUp(Tpdu& tpdu) {
    if (auto* const submit = std::get_if<Messages::Submit>(&tpdu))
        ++submit->reference;
}

std::vector<std::uint8_t> Written(const Tpdu& tpdu, const OutgoingOptions& options) {
    Messages::Written written = Messages::Write(tpdu, ServiceCentreOf(options));
    if (written.fault)
        throw InputError(Messages::MeaningOf(*written.fault));
    return std::move(written.octets);
}

// The user data.

/// Octets of user data that the message has room for, which its type and its other fields decide.
std::size_t RoomIn(Tpdu tpdu, const Messages::DataCoding& coding) {
    constexpr std::size_t c_tooMany = 161;
    Messages::UserData userData;
    userData.octets.resize(c_tooMany);
    SetUserData(tpdu, coding, userData);
    const Messages::Written written = Messages::Write(tpdu);
    if (written.fault->code != Messages::WriteFaultCode::UserDataTooLong)
        throw InputError(Messages::MeaningOf(*written.fault));
    return written.fault->other;
}

Messages::CutOptions CuttingOf(const OutgoingOptions& options, std::optional<std::uint16_t> reference) {
    Messages::CutOptions cutting = CuttingOf(options);
    cutting.reference = reference;
    cutting.messageClass = MaybeOctetOf(options.messageClass);
    return cutting;
}

/// An octet for each character.
std::vector<std::uint8_t> OctetsOf(const std::string& text) {
    constexpr char32_t c_last = 0xFF;
    std::vector<std::uint8_t> octets;
    for (const char32_t character : CharactersOf(text)) {
        if (character > c_last)
            throw InputError(fmt::format("character {}, {}, is no octet of 8-bit data", octets.size() + 1,
                                         CodePointName(character)));
        octets.push_back(static_cast<std::uint8_t>(character));
    }
    return octets;
}

std::vector<std::uint8_t> DataOf(const OutgoingOptions& options, const std::string& text) {
    if (options.data.empty())
        return OctetsOf(text);
    return ReadHex(options.IsDataGiven() ? options.data : text);
}

[[noreturn]] void Refuse(const Messages::CutText& cut, const std::string& text) {
    using Messages::CutFaultCode;
    if (cut.fault->code == CutFaultCode::TooManyParts)
        throw InputError(fmt::format("the {} needs {} parts, 255 at most",
                                     cut.choice.alphabet == Messages::Alphabet::Data ? "data" : "text",
                                     cut.choice.parts));
    if (cut.fault->code != CutFaultCode::NoCharacter)
        throw InputError(Messages::MeaningOf(*cut.fault));
    throw InputError(fmt::format("character {}, {}, is in no table of GSM 7-bit that may be used",
                                 show::CharactersIn(std::string_view(text).substr(0, cut.fault->offset)) + 1,
                                 CodePointName(cut.fault->character)));
}

Messages::CutText Cut(const OutgoingOptions& options, const std::string& text, const Tpdu& tpdu,
                      Messages::CutOptions cutting) {
    const bool isData =
        !options.data.empty() || options.alphabet == "8bit" || options.Type() == TpduType::Command;
    const auto cutInto = [&](std::size_t room) {
        cutting.choice.room.octets = room;
        return isData ? Messages::CutIntoParts(Messages::OctetView(DataOf(options, text)), cutting)
                      : Messages::CutIntoParts(text, cutting);
    };
    Messages::CutText cut = cutInto(RoomIn(tpdu, {}));
    if (options.Type() == TpduType::StatusReport && cut.coding.value != 0)
        cut = cutInto(RoomIn(tpdu, cut.coding));
    if (cut.fault)
        Refuse(cut, text);
    if (cut.parts.size() > 1 && options.MayBeEmpty())
        throw InputError(fmt::format("{} of user data fit into an {}, and {} would be needed",
                                     show::Counted(cutting.choice.room.octets, "octet"),
                                     Messages::NameOf(options.Type()),
                                     show::Counted(cut.parts.size(), "message")));
    return cut;
}

// What the user is to know.

/// "U+2026 by '...'".
std::string WordsOf(const std::string& text, const Messages::Replacement& replacement) {
    std::string words;
    for (const char32_t character : CharactersOf(text.substr(replacement.offset, replacement.length)))
        words += (words.empty() ? "" : " ") + CodePointName(character);
    if (replacement.replacement.empty())
        return words + " left out";
    return fmt::format("{} by '{}'", words, show::Printable(replacement.replacement));
}

Caution CautionOf(const std::string& text, const std::vector<Messages::Replacement>& replacements) {
    std::vector<std::string> order;
    std::map<std::string, std::size_t> counts;
    for (const Messages::Replacement& replacement : replacements) {
        std::string words = WordsOf(text, replacement);
        if (++counts[words] == 1)
            order.push_back(std::move(words));
    }
    std::string message = "replaced:";
    for (const std::string& words : order) {
        const std::size_t count = counts[words];
        message += fmt::format("{} {}{}", message.ends_with(':') ? "" : ",", words,
                               count == 1 ? "" : fmt::format(" ({} times)", count));
    }
    return {"", std::move(message), true};
}

std::vector<Caution> CautionsOf(const OutgoingOptions& options, const std::string& text,
                                const Messages::CutText& cut) {
    std::vector<Caution> cautions;
    AddCautionsOfOptions(options, cautions);
    if (text.empty() && options.data.empty() && !options.MayBeEmpty())
        cautions.push_back(CautionOfNoText());
    if (!cut.replacements.empty())
        cautions.push_back(CautionOf(text, cut.replacements));
    return cautions;
}

} // namespace

Caution CautionOfNoText() {
    return {"", "the text is empty; a message without text goes out"};
}

void AddCautionsOfOptions(const OutgoingOptions& options, std::vector<Caution>& cautions) {
    const auto check = [&cautions](const char* option, const std::string& number, const std::string& sent) {
        if (sent != number)
            cautions.push_back({option, fmt::format("'{}' goes out as {}", show::Printable(number), sent)});
    };
    check("--to", options.to, AddressOfNumber(options.to).ToString());
    check("--from", options.from, AddressOfParty(options.from).ToString());
    check("--smsc", options.smsc, AddressOfNumber(options.smsc).ToString());
    if (std::string caution = options.Validity().caution; !caution.empty())
        cautions.push_back({"--validity", std::move(caution)});
}

Messages::Address ServiceCentreOf(const OutgoingOptions& options) {
    return options.smsc.empty() ? Messages::Address{} : AddressOfNumber(options.smsc);
}

Outgoing MakeOutgoing(const OutgoingOptions& options, const std::string& text,
                      std::optional<std::uint16_t> reference) {
    if (options.Type() == TpduType::Command && options.data.empty() && !text.empty())
        throw InputError("an SMS-COMMAND has no text; --data gives it data");
    FromUtf8(text); // says where it is none
    Tpdu tpdu = TpduOf(options);
    const bool hasUserData =
        !options.MayBeEmpty() || !text.empty() || options.IsDataGiven() || !options.ports.empty();
    Messages::CutText cut;
    if (hasUserData)
        cut = Cut(options, text, tpdu, CuttingOf(options, reference));
    Outgoing outgoing{{}, CautionsOf(options, text, cut)};
    AskForReport(tpdu, !options.statusReport.empty());
    if (!hasUserData)
        outgoing.pdus.push_back(Written(tpdu, options));
    for (const Messages::UserData& part : cut.parts) {
        SetUserData(tpdu, cut.coding, part);
        outgoing.pdus.push_back(Written(tpdu, options));
        AskForReport(tpdu, options.statusReport == "all");
        if (options.reference)
            CountReferenceUp(tpdu);
    }
    return outgoing;
}

std::optional<std::uint16_t> RandomReference() {
    // Two parts at least have one.
    const std::vector<std::uint8_t> longData(2 * Messages::CutOptions().choice.room.octets);
    Messages::CutOptions cutting;
    cutting.choice.room.hasWideReference = true;
    const Messages::CutText cut = Messages::CutIntoParts(Messages::OctetView(longData), cutting);
    return cut.fault ? std::nullopt : std::optional(cut.parts.front().concatenation->reference);
}

} // namespace qxpdu
