// qxpdu gsm encode, decode
#include <fmt/format.h>

#include "Encoding/GSMCharSet.h"
#include "Messages/Octets.h"
#include "characters/Hexadecimal.h"
#include "characters/InputError.h"
#include "characters/Unicode.h"
#include "commands/Commands.h"
#include "commands/Options.h"
#include "show/CodeUnits.h"
#include "show/Json.h"

namespace qxpdu {

namespace {

using Encoding::GSMCharSet;

constexpr char32_t c_lastUnit = 0xFFFF; ///< characters above it have no GSM code
constexpr unsigned char c_firstNoCode = 0x80;

struct Dropped {
    std::size_t position; ///< from 1
    std::string name;
};

std::vector<Dropped> DroppedOf(const GSMCharSet& charSet, const std::u32string& text) {
    std::vector<Dropped> dropped;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] > c_lastUnit ||
            charSet.UnicodeToGsm(static_cast<unsigned short>(text[i])) == GSMCharSet::UNMAPPABLE)
            dropped.push_back({i + 1, CodePointName(text[i])});
    }
    return dropped;
}

void Encode(GSMCharSet& charSet, const Input& input, Console& console) {
    const TString<wchar_t> text = FromUtf8(input.text);
    const TString<char> codes = charSet.UnicodeToGsmString(text);
    const std::string hex =
        Messages::ToHex({reinterpret_cast<const std::uint8_t*>(codes.data()), codes.size()});
    const std::vector<Dropped> dropped = DroppedOf(charSet, show::CodePoints(text));
    for (const Dropped& character : dropped) {
        console.Warning(NameOf(input), fmt::format("character {}, {}, has no GSM code and is dropped",
                                                   character.position, character.name));
    }
    if (!console.WantsJson())
        return console.Line(hex);
    show::Json object = ObjectFor(input);
    object["text"] = input.text;
    object["gsm"] = hex;
    object["septets"] = codes.size();
    object["dropped"] = show::Json::array();
    for (const Dropped& character : dropped)
        object["dropped"].push_back({{"position", character.position}, {"code_point", character.name}});
    console.Object(object);
}

void Decode(GSMCharSet& charSet, const Input& input, Console& console) {
    const std::vector<unsigned char> codes = ReadHex(input.text);
    for (std::size_t i = 0; i < codes.size(); ++i) {
        if (codes[i] >= c_firstNoCode)
            throw InputError(fmt::format("octet {}, 0x{:02X}, is no GSM code", i, codes[i]));
    }
    const std::string text =
        show::ToUtf8(charSet.GsmToUnicode(codes.data(), static_cast<unsigned int>(codes.size())));
    if (!console.WantsJson())
        return console.Line(text);
    show::Json object = ObjectFor(input);
    object["gsm"] = Messages::ToHex(codes);
    object["text"] = text;
    console.Object(object);
}

struct GsmOptions : ConversionOptions {
    bool greek = false;
};

struct Operation {
    const char* name;
    const char* description;
    const char* argument;
    const char* argumentDescription;
    const char* greekDescription;
    const char* footer;
    LineKind kind;
    void (*convert)(GSMCharSet&, const Input&, Console&);
};

constexpr Operation c_operations[] = {
    {"encode", "Write texts as GSM codes", "TEXT", "Texts; without any, one a line from standard input",
     "Give Greek letters the codes of their capitals",
     "One code an octet, in hexadecimal, not packed; a character of the extension table takes two, 1B first. "
     "A\n"
     "character without a code is dropped, with a warning.\n"
     "\n"
     "Example:\n"
     "  qxpdu gsm encode '5 €'",
     LineKind::Text, Encode},
    {"decode", "Read texts from GSM codes", "HEX",
     "Codes in hexadecimal; without any, one line of them a text from standard input",
     "Accepted as by encode; it changes nothing",
     "One code an octet, 00 to 7F, not packed. Of an unknown pair 1B, code, the 1B is skipped.\n"
     "\n"
     "Example:\n"
     "  qxpdu gsm decode 35201B65",
     LineKind::Hex, Decode},
};

int Convert(const GsmOptions& options, const Operation& operation, const Streams& streams) {
    GSMCharSet charSet;
    if (options.greek)
        charSet.AddTranslateTable(Encoding::TranslateTable::GREEK);
    return ConvertAll(options.Settings(), streams, operation.kind, [&](const Input& input, Console& console) {
        operation.convert(charSet, input, console);
    });
}

} // namespace

void AddGsm(const Command& parent) {
    const Command gsm = parent.AddCommand("gsm", "Convert between text and unpacked GSM 7-bit codes");
    gsm.RequireCommand();
    for (const Operation& operation : c_operations) {
        const Command command = gsm.AddCommand(operation.name, operation.description);
        auto options = std::make_shared<GsmOptions>();
        AddConversion(command, *options, operation.argument, operation.argumentDescription);
        command.AddFlag("--greek", options->greek, operation.greekDescription);
        command.SetFooter(operation.footer);
        command.SetAction(
            [options, &operation](const Streams& streams) { return Convert(*options, operation, streams); });
    }
}

} // namespace qxpdu
