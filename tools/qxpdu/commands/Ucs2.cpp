// qxpdu ucs2 encode, decode, check
#include <fmt/format.h>

#include "Encoding/UCS2Encoding.h"
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

using Encoding::UCS2Encoding;

void Encode(const Input& input, Console& console) {
    const TString<char> hex = UCS2Encoding::ToUCS2S(FromUtf8(input.text));
    if (!console.WantsJson())
        return console.Line(hex);
    show::Json object = ObjectFor(input);
    object["text"] = input.text;
    object["ucs2"] = hex;
    console.Object(object);
}

void Decode(const Input& input, Console& console) {
    const std::vector<unsigned char> octets = ReadHex(input.text);
    if (octets.size() % 2 != 0)
        throw InputError(fmt::format("{} hexadecimal digits, which is no multiple of 4", 2 * octets.size()));
    const TString<char> hex = Messages::ToHex(octets);
    const std::string text = show::ToUtf8(UCS2Encoding::ToUString(hex));
    if (!console.WantsJson())
        return console.Line(text);
    show::Json object = ObjectFor(input);
    object["ucs2"] = hex;
    object["text"] = text;
    console.Object(object);
}

void Check(const Input& input, Console& console) {
    const bool isUcs2 = UCS2Encoding::IsUCS2(TString<char>(std::string(Trimmed(input.text))));
    if (!isUcs2)
        console.Failed();
    if (!console.WantsJson())
        return console.Line(isUcs2 ? "yes" : "no");
    show::Json object = ObjectFor(input);
    object["is_ucs2"] = isUcs2;
    console.Object(object);
}

struct Operation {
    const char* name;
    const char* description;
    const char* argument;
    const char* argumentDescription;
    const char* footer;
    LineKind kind;
    void (*convert)(const Input&, Console&);
};

constexpr Operation c_operations[] = {
    {"encode", "Write texts as UCS2 hex", "TEXT", "Texts; without any, one a line from standard input",
     "Four digits for each 16-bit unit; a character above U+FFFF takes two units.\n"
     "\n"
     "Example:\n"
     "  qxpdu ucs2 encode 'Hi €'",
     LineKind::Text, Encode},
    {"decode", "Read texts from UCS2 hex", "HEX", "UCS2 hex; without any, one a line from standard input",
     "Example:\n"
     "  qxpdu ucs2 decode 0048006920AC",
     LineKind::Hex, Decode},
    {"check", "Tell whether strings look like UCS2 hex", "STRING",
     "Strings; without any, one a line from standard input",
     "Answers \"yes\" for at least 8 digits and upper-case letters, a multiple of 4 in all, at least four of "
     "them\n"
     "digits, and \"no\" for anything else. The exit status is 1 where some answer is \"no\".\n"
     "\n"
     "Example:\n"
     "  qxpdu ucs2 check 00480069",
     LineKind::Text, Check},
};

} // namespace

void AddUcs2(const Command& parent) {
    const Command ucs2 = parent.AddCommand("ucs2", "Convert between text and UCS2 hex, or recognise it");
    ucs2.RequireCommand();
    for (const Operation& operation : c_operations) {
        const Command command = ucs2.AddCommand(operation.name, operation.description);
        auto options = std::make_shared<ConversionOptions>();
        AddConversion(command, *options, operation.argument, operation.argumentDescription);
        command.SetFooter(operation.footer);
        command.SetAction([options, &operation](const Streams& streams) {
            return ConvertAll(options->Settings(), streams, operation.kind, operation.convert);
        });
    }
}

} // namespace qxpdu
