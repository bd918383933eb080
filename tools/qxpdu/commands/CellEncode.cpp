// qxpdu cell encode
#include <charconv>
#include <map>
#include <memory>
#include <optional>

#include <fmt/format.h>

#include "Messages/Cell.h"
#include "Messages/Words.h"
#include "characters/InputError.h"
#include "characters/Unicode.h"
#include "commands/CellEncode.h"
#include "commands/Members.h"
#include "commands/Options.h"
#include "commands/Writing.h"
#include "show/CodeUnits.h"
#include "show/Json.h"

namespace qxpdu {

namespace {

constexpr int c_maxClass = 3;
constexpr int c_maxScope = 3;
constexpr int c_maxCode = 1023;
constexpr int c_maxUpdate = 15;
constexpr int c_maxWord = 0xFFFF;

struct CellEncodeOptions : ConversionOptions {
    std::string identifier = "0"; ///< number or name
    std::optional<int> serial;    ///< the whole of it
    int scope = 0;
    int code = 0;
    int update = 0;
    std::string language;
    std::string alphabet; ///< "gsm", "ucs2", or empty where the text decides
    std::optional<int> messageClass;
    bool umts = false;
    bool lines = false;
};

/// In decimal or, after 0x, in hexadecimal.
std::optional<std::uint16_t> WordIn(std::string_view text) {
    const bool isHex = text.starts_with("0x") || text.starts_with("0X");
    text.remove_prefix(isHex ? 2 : 0);
    std::uint16_t number = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), number, isHex ? 16 : 10);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

/// The identifier of each name; none where several have it.
using NamedIdentifiers = std::map<std::string, std::optional<std::uint16_t>>;

const NamedIdentifiers& IdentifiersByName() {
    static const NamedIdentifiers named = [] {
        NamedIdentifiers identifiers;
        for (int identifier = 0; identifier <= c_maxWord; ++identifier) {
            const auto number = static_cast<std::uint16_t>(identifier);
            const auto [row, isNew] =
                identifiers.emplace(Messages::MeaningOfMessageIdentifier(number), number);
            if (!isNew)
                row->second.reset();
        }
        return identifiers;
    }();
    return named;
}

std::string FaultOfIdentifier(const std::string& identifier) {
    if (WordIn(identifier))
        return {};
    const auto row = IdentifiersByName().find(identifier);
    if (row == IdentifiersByName().end())
        return identifier + " is neither a number from 0 to 65535 nor the name of an identifier";
    return row->second ? "" : identifier + " is the name of several identifiers";
}

Messages::CellDraft DraftOf(const CellEncodeOptions& options, const std::string& text) {
    Messages::CellDraft draft;
    draft.format = options.umts ? Messages::CellFormat::UmtsMessage : Messages::CellFormat::GsmPage;
    draft.serialNumber.value = static_cast<std::uint16_t>(
        options.serial.value_or(options.scope << 14 | options.code << 4 | options.update));
    const std::optional<std::uint16_t> number = WordIn(options.identifier);
    draft.messageIdentifier = number ? *number : *IdentifiersByName().at(options.identifier);
    draft.text = text;
    draft.language = options.language;
    draft.alphabet = AlphabetNamed(options.alphabet);
    if (options.messageClass)
        draft.messageClass = static_cast<std::uint8_t>(*options.messageClass);
    return draft;
}

/// Of one page, or of the message, after what the object has already.
show::Json ToJson(show::Json object, const Messages::CellDraft& draft, const Messages::CellWritten& written,
                  std::size_t index) {
    object["octets"] = Messages::ToHex(written.octets[index]);
    object["type"] = Messages::NameOf(draft.format);
    object["data_coding_scheme"] = written.coding.value;
    object["alphabet"] = Messages::NameOf(written.coding.alphabet);
    if (draft.format == Messages::CellFormat::GsmPage)
        object["page"] = index + 1;
    object["pages"] = written.pages;
    return object;
}

void ShowWritten(const Input& input, const Messages::CellDraft& draft, const Messages::CellWritten& written,
                 Console& console) {
    show::Json line = ObjectFor(input);
    for (std::size_t i = 0; i < written.octets.size(); ++i) {
        if (console.WantsJsonLines())
            line["pdus"].push_back(ToJson(show::Json::object(), draft, written, i));
        else if (console.WantsJson())
            console.Object(ToJson(ObjectFor(input), draft, written, i));
        else
            console.Line(Messages::ToHex(written.octets[i]));
    }
    if (console.WantsJsonLines())
        console.Object(line);
}

/// "character 2, U+0436, has no GSM code"
std::string WordsOf(const Messages::MisfitCharacter& misfit, std::string_view text) {
    return fmt::format("character {}, {}, has no GSM code",
                       show::CharactersIn(text.substr(0, misfit.offset)) + 1,
                       CodePointName(misfit.character));
}

void Encode(const CellEncodeOptions& options, const Input& input, Console& console) {
    FromUtf8(input.text); // says where it is none
    const Messages::CellDraft draft = DraftOf(options, input.text);
    const Messages::CellWritten written = Messages::WriteCell(draft);
    if (written.fault == Messages::CellDraftFault::NotInAlphabet)
        throw InputError(WordsOf(*written.misfit, input.text));
    if (written.fault != Messages::CellDraftFault::None)
        throw InputError(std::string(Messages::MeaningOf(written.fault)));
    ShowWritten(input, draft, written, console);
}

/// A serial number as a whole is taken to pieces.
void TakeToPieces(CellEncodeOptions& options) {
    if (!options.serial)
        return;
    const Messages::SerialNumber serial{static_cast<std::uint16_t>(*options.serial)};
    options.scope = static_cast<int>(serial.Scope());
    options.code = serial.MessageCode();
    options.update = serial.UpdateNumber();
    options.serial.reset();
}

/// What the object of one line sets; members that it lacks stay as the command line has them.
void SetMember(const std::string& name, const show::Json& value, CellEncodeOptions& options,
               std::string& text) {
    if (name == "text")
        text = StringIn(name, value);
    else if (name == "id")
        options.identifier =
            StringIn(name, value.is_number() ? show::Json(value.dump()) : value, FaultOfIdentifier);
    else if (name == "serial")
        options.serial = NumberIn(name, value, c_maxWord);
    else if (name == "scope")
        options.scope = NumberIn(name, value, c_maxScope);
    else if (name == "code")
        options.code = NumberIn(name, value, c_maxCode);
    else if (name == "update")
        options.update = NumberIn(name, value, c_maxUpdate);
    else if (name == "language")
        options.language = StringIn(name, value);
    else if (name == "alphabet")
        options.alphabet = StringIn(name, value, FaultOfAlphabet);
    else if (name == "class")
        options.messageClass = NumberIn(name, value, c_maxClass);
    else if (name == "umts")
        options.umts = FlagIn(name, value);
    else
        Refuse(name, "no such member");
}

/// With --jsonl, an input that did not come as an argument is an object unless lines are texts.
void EncodeInput(const CellEncodeOptions& options, const Input& input, Console& console) {
    if (options.lines || input.source != Input::Source::Line)
        return Encode(options, input, console);
    CellEncodeOptions own = options;
    TakeToPieces(own);
    std::string text;
    bool hasPieces = false; // of the serial number
    ReadMembers(input.text, [&](const std::string& name, const show::Json& value) {
        SetMember(name, value, own, text);
        hasPieces = hasPieces || name == "scope" || name == "code" || name == "update";
    });
    if (hasPieces && own.serial)
        Refuse("serial", "not with scope, code or update");
    Encode(own, {input.source, input.number, std::move(text)}, console);
}

void AddOptions(const Command& command, CellEncodeOptions& options) {
    command.AddText("--id", options.identifier, "Message identifier, a number or its name; 0 without it")
        .Check(FaultOfIdentifier)
        .Named("ID");
    const Option scope = command.AddNumber("--scope", options.scope, 0, c_maxScope,
                                           "Geographical scope, 0 to 3; 0 without it");
    const Option code =
        command.AddNumber("--code", options.code, 0, c_maxCode, "Message code, 0 to 1023; 0 without it");
    const Option update =
        command.AddNumber("--update", options.update, 0, c_maxUpdate, "Update number, 0 to 15; 0 without it");
    command
        .AddText(
            "--serial", [&options](const std::string& text) { options.serial = *WordIn(text); },
            "The serial number as a whole")
        .Check([](const std::string& text) {
            return WordIn(text) ? std::string() : text + " is no number from 0 to 65535";
        })
        .Excludes(scope)
        .Excludes(code)
        .Excludes(update)
        .Named("N");
    command.AddText("--language", options.language, "Language of the text, ISO 639: two letters")
        .Named("CODE");
    command.AddText("--alphabet", options.alphabet, "gsm or ucs2; without it, UCS2 where the text needs it")
        .Check(FaultOfAlphabet)
        .Named("gsm|ucs2");
    command.AddNumber("--class", options.messageClass, 0, c_maxClass, "Message class, 0 to 3").Named("CLASS");
    command.AddFlag("--umts", options.umts, "One message of UMTS with all pages, in place of pages of GSM");
    AddJson(command, options);
    AddStreaming(command, options);
    AddSentText(command, options, options.lines);
}

} // namespace

void AddCellEncode(const Command& parent) {
    const Command command = parent.AddCommand("encode", "Make cell broadcast pages of a text");
    auto options = std::make_shared<CellEncodeOptions>();
    AddOptions(command, *options);
    command.SetFooter(
        "A line of hexadecimal for each page of GSM, or for the message of UMTS, 3GPP TS 23.041. The text\n"
        "goes out in GSM 7-bit where that holds it, else in UCS2. With --json an object for each line; with\n"
        "--jsonl an object for each text, with those of its pages as \"pdus\", and each line of standard\n"
        "input is then an object itself, with \"text\" and any options by their names.\n"
        "\n"
        "Example:\n"
        "  qxpdu cell encode --id 0x1112 --scope 1 --language en 'Stay inside'");
    command.SetAction([options](const Streams& streams) {
        const bool hasLines = options->lines || options->jsonLines;
        return ConvertAll(
            options->Settings(), streams, hasLines ? LineKind::Message : LineKind::Whole,
            [&options](const Input& input, Console& console) { EncodeInput(*options, input, console); });
    });
}

} // namespace qxpdu
