// qxpdu text
#include "Encoding/TextDecoder.h"
#include "Toolkit/ILogger.h"
#include "characters/Unicode.h"
#include "commands/Commands.h"
#include "commands/Options.h"
#include "show/CodeUnits.h"
#include "show/Json.h"

namespace qxpdu {

namespace {

constexpr int c_decoderSeverity = 2; ///< of the line that the text decoder logs

struct TextOptions : ConversionOptions {
    int alphabet = 0;
    bool verbose = false;
};

void Decode(const TextOptions& options, const Input& input, Console& console) {
    const Encoding::TextDecoder decoder(FromUtf8(input.text), options.alphabet);
    const std::string text = show::ToUtf8(decoder.m_DecodedText);
    if (!console.WantsJson())
        return console.Line(text);
    show::Json object = ObjectFor(input);
    object["alphabet"] = options.alphabet;
    object["text"] = text;
    console.Object(object);
}

} // namespace

void AddText(const Command& parent) {
    const Command command = parent.AddCommand("text", "Decode texts in GSM codes or in UCS2 hex");
    auto options = std::make_shared<TextOptions>();
    AddConversion(command, *options, "TEXT", "Texts to decode; without any, one a line from standard input");
    command
        .AddNumber("--alphabet", options->alphabet,
                   "gsm, 0 or 4: the low 8 bits of each character are a GSM code; ucs2 or any other "
                   "number: UCS2 hex")
        .Synonyms({{"gsm", "0"}, {"ucs2", "2"}})
        .Required();
    command.AddFlag("--verbose", options->verbose, "Show the decoder's log line on standard error");
    command.SetFooter(
        "The text decoder rejects nothing: in UCS2 hex a character that is no digit counts as 0, and up\n"
        "to three characters left over at the end are ignored. 'qxpdu ucs2 decode' is strict.\n"
        "\n"
        "Example:\n"
        "  qxpdu text --alphabet ucs2 00480069");
    command.SetAction([options](const Streams& streams) {
        if (options->verbose)
            (*Toolkit::ILogger::s_pInstance)->SetLevel(c_decoderSeverity);
        return ConvertAll(
            options->Settings(), streams, LineKind::Text,
            [&options](const Input& input, Console& console) { Decode(*options, input, console); });
    });
}

} // namespace qxpdu
